#include "host/contract/wording.h"

#include <gtest/gtest.h>

namespace kelmora_host::wording_test {

namespace {

InputKey key(InputType type)
{
    InputKey key{};
    key.path = "/group/key";
    key.type = type;
    return key;
}

TEST(RangeOf, IsOfTheFieldsWidthAndSign)
{
    InputKey integer = key(InputType::integer);
    EXPECT_EQ(range_of(integer), "");
    integer.bits = 32;
    EXPECT_EQ(range_of(integer), "0..4294967295");
    integer.is_signed = true;
    EXPECT_EQ(range_of(integer), "-2147483648..2147483647");
    integer.bits = 64;
    EXPECT_EQ(range_of(integer), "-9223372036854775808..9223372036854775807");
    integer.is_signed = false;
    EXPECT_EQ(range_of(integer), "0..18446744073709551615");
}

TEST(RangeOf, CountsBytesAndElements)
{
    InputKey string = key(InputType::string);
    string.longest = 32;
    EXPECT_EQ(range_of(string), "up to 32 bytes");
    string.longest = 1;
    EXPECT_EQ(range_of(string), "up to 1 byte");
    InputKey list = key(InputType::array);
    list.most = 16;
    EXPECT_EQ(range_of(list), "up to 16");
    list.least = 4;
    EXPECT_EQ(range_of(list), "4 to 16");
    list.least = 16;
    EXPECT_EQ(range_of(list), "16");
    list.most = {};
    EXPECT_EQ(range_of(list), "16 or more");
}

TEST(RangeOf, IsOfEachTypeThatIsWritten)
{
    OutputKey key{};
    EXPECT_EQ(range_of(key), "");
    key.types = {OutputType::integer, OutputType::string};
    key.bits = 16;
    key.longest = 0;
    EXPECT_EQ(range_of(key), "0..65535 or empty");
}

TEST(RequiredOf, SaysOnWhatItDepends)
{
    Input input{{key(InputType::string), key(InputType::string)}};
    InputKey &one = input.keys.front();
    EXPECT_EQ(required_of(one, input), "no");
    one.required = true;
    EXPECT_EQ(required_of(one, input), "yes");
    one.required_when = {{"/group/protocol", "", {"1", "2", "3"}}, {"", "mode", {"1"}}};
    EXPECT_EQ(required_of(one, input), "when protocol is 1, 2 or 3 or the stored mode is 1");
    one.required_when = {{"/group/automatic", "", {"true"}, true}, {"/on", "on", {"1"}}, {"/key", "", {}}};
    EXPECT_EQ(required_of(one, input),
              "when automatic is not true, on is absent and the stored on is 1 or key is there");
    one.refused = true;
    EXPECT_EQ(required_of(one, input), "refused");
}

TEST(RequiredOf, NamesTheKeysOneOfWhichMustBeThere)
{
    Input input{{key(InputType::string), key(InputType::string), key(InputType::string)}};
    input.keys[0].path = "/ip4";
    input.keys[2].path = "/ip6";
    input.keys[0].at_least_one = input.keys[2].at_least_one = 1;
    EXPECT_EQ(required_of(input.keys[0], input), "at least ip4 or ip6");
}

TEST(PresenceOf, SaysWhen)
{
    OutputKey key{};
    EXPECT_EQ(presence_of(key), "always");
    key.always = false;
    EXPECT_EQ(presence_of(key), "sometimes");
    key.when = {{"", "type", {"1"}}};
    EXPECT_EQ(presence_of(key), "when the stored type is 1");
}

TEST(MeaningOf, IsOfTheFirstFieldOrTheIdentifier)
{
    OutputKey key{};
    EXPECT_EQ(meaning_of(key), "");
    key.fields = {{"a", "uint8_t", 0, 1, "first"}, {"b", "uint8_t", 1, 1, "second"}};
    EXPECT_EQ(meaning_of(key), "first");
    EXPECT_EQ(fields_of(key.fields), "a, b");
    key.id = true;
    EXPECT_EQ(meaning_of(key), "the record's identifier");
}

} // namespace

} // namespace kelmora_host::wording_test
