#include "host/contract/learn_keys.h"

#include "from_translator.h"
#include "kelmora_records.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace kelmora_host::learn_keys_test {

namespace {

using ::testing::ElementsAre;
using Kind = Given::Kind;
using Access = kelmora_remote_web_access;

template <auto take> FoundKeys keys_of()
{
    return find_keys({*find_resource("remote_web_access"), taking<Access, take>});
}

InputType type_at(const FoundKeys &keys, const char *path) { return type_of(keys.at(path)); }

bool one_of_each_type(const json_t *root, Access &access, kelmora_errorlist * /*errors*/)
{
    access.enabled = json_is_true(json_object_get(root, "enabled"));
    access.port = static_cast<std::uint32_t>(json_integer_value(json_object_get(root, "port")));
    json_real_value(json_object_get(root, "share"));
    json_string_value(json_object_get(root, "rangeStart"));
    look_at(json_object_get(root, "unused"));
    look_at(json_object_get(json_object_get(root, "group"), "member"));
    look_at(json_array_get(json_object_get(root, "list"), 0));
    return true;
}

TEST(FindKeys, TellsTypesByHowValuesAreUsed)
{
    const FoundKeys keys = keys_of<one_of_each_type>();
    EXPECT_EQ(type_at(keys, "/enabled"), InputType::boolean);
    EXPECT_EQ(type_at(keys, "/port"), InputType::integer);
    EXPECT_EQ(type_at(keys, "/share"), InputType::real);
    EXPECT_EQ(type_at(keys, "/rangeStart"), InputType::string);
    EXPECT_EQ(type_at(keys, "/unused"), InputType::any);
    EXPECT_EQ(type_at(keys, "/group"), InputType::object);
    EXPECT_EQ(type_at(keys, "/list"), InputType::array);
}

TEST(FindKeys, PutsMembersAndElementsBehindWhatTheyAreIn)
{
    EXPECT_THAT(keys_of<one_of_each_type>().ordered(),
                ElementsAre("/enabled", "/port", "/share", "/rangeStart", "/unused", "/group", "/group/member", "/list",
                            "/list/*"));
}

bool end_with_port_7(const json_t *root, Access & /*access*/, kelmora_errorlist *errors)
{
    if (json_integer_value(json_object_get(root, "port")) == 7 &&
        json_string_value(json_object_get(root, "rangeEnd")) == nullptr)
        return is_missing(errors, "rangeEnd");
    json_string_value(json_object_get(root, "rangeStart"));
    return true;
}

TEST(FindKeys, FindsWhatIsLookedAtWithOneValueOfAnotherKeyAlone)
{
    const FoundKeys keys = keys_of<end_with_port_7>();
    EXPECT_THAT(keys.ordered(), ElementsAre("/port", "/rangeEnd", "/rangeStart"));
    EXPECT_EQ(keys.at("/rangeEnd").home.at("/port"), given_integer(7));
    EXPECT_EQ(keys.home_of("/rangeEnd").at("/port"), given_integer(7));
    EXPECT_EQ(keys.document().at("/port"), given_integer(1));
}

bool no_order(const json_t *root, Access & /*access*/, kelmora_errorlist *errors)
{
    if (json_object_get(root, "order") == nullptr)
        return true;
    kelmora_errorlist_add_error(errors, "order", "not taken", "json");
    return false;
}

TEST(FindKeys, LeavesOutWhatIsRefusedInWhateverForm)
{
    const FoundKeys keys = keys_of<no_order>();
    EXPECT_TRUE(keys.at("/order").refused);
    EXPECT_FALSE(keys.document().contains("/order"));
}

bool four_queues(const json_t *root, Access & /*access*/, kelmora_errorlist *errors)
{
    const json_t *queues = json_object_get(root, "queues");
    if (json_array_size(queues) != 4)
        return is_missing(errors, "queues");
    for (std::size_t i = 0; i < 4; ++i)
        json_integer_value(json_object_get(json_array_get(queues, i), "weight"));
    return true;
}

TEST(FindKeys, FindsTheSizeOfAListThatTakesOneAlone)
{
    const FoundKeys keys = keys_of<four_queues>();
    EXPECT_EQ(keys.at("/queues").good, given_array(4));
    EXPECT_EQ(type_at(keys, "/queues/*/weight"), InputType::integer);
}

TEST(FoundKeys, MakeDocumentsWithOtherValuesAndWithoutKeys)
{
    FoundKeys keys;
    keys.all["/a"].good = given_integer(1);
    keys.all["/b"].good = given_string("1");
    keys.all["/b"].home = {{"/a", given_integer(2)}};
    EXPECT_EQ(keys.document(), (Answers{{"/a", given_integer(1)}, {"/b", given_string("1")}}));
    EXPECT_EQ(keys.at_home("/b", {}), (Answers{{"/a", given_integer(2)}, {"/b", {}}}));
}

TEST(ValuesOf, AreThoseOnWhichSomethingMayHang)
{
    EXPECT_THAT(values_of({.good = {.kind = Kind::yes}}),
                ElementsAre(Given{.kind = Kind::yes}, Given{.kind = Kind::no}));
    EXPECT_EQ(values_of({.good = given_integer(1)}).size(), 18);
    EXPECT_EQ(values_of({.good = given_integer(1)}).back(), other_of({.good = given_integer(1)}));
    EXPECT_TRUE(values_of({.good = given_string("1")}).empty());
}

} // namespace

} // namespace kelmora_host::learn_keys_test
