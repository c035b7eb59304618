#include "tests/support/from_test.h"

#include "kelmora_json.h"
#include "records/device.h"

namespace kelmora_test::telnet_test {

namespace {

constexpr char document[] = R"({"enable": true, "password": "a kettle for the crew", "id": "never read"})";

class TelnetFrom : public FromTest<kelmora_telnet> {
protected:
    TelnetFrom() : FromTest(telnet_from_translator, document) {}
};

TEST_F(TelnetFrom, StoresEveryKey)
{
    EXPECT_TRUE(accepts(document));
    EXPECT_EQ(record().enable, 1);
    EXPECT_STREQ(record().password, "a kettle for the crew");
}

TEST_F(TelnetFrom, AsksForTheRequiredKeysInOrder)
{
    expect_required_in_order({
        {"password", "password", "password field not found"},
        {"enable", "enable", "enable field not found"},
    });
}

TEST_F(TelnetFrom, MissingEnableKeepsThePasswordStoredBefore)
{
    EXPECT_TRUE(rejects(R"({"password": "x"})", "enable", "enable field not found"));
    EXPECT_STREQ(record().password, "x");
    EXPECT_TRUE(untouched(record().enable));
}

TEST_F(TelnetFrom, MissingPasswordStoresNothing)
{
    EXPECT_TRUE(rejects(R"({"enable": true})", "password", "password field not found"));
    EXPECT_TRUE(untouched(record()));
}

TEST_F(TelnetFrom, TakesOnlyTrueForTrue) { expect_boolean("enable", record().enable); }

TEST_F(TelnetFrom, CutsThePasswordToItsField) { expect_string("password", record().password); }

TEST_F(TelnetFrom, StoresTheFirst47CharactersOfALongPassword)
{
    EXPECT_TRUE(accepts(with(document, "password", R"("01234567890123456789012345678901234567890123456789")")));
    EXPECT_STREQ(record().password, "01234567890123456789012345678901234567890123456");
}

TEST(TelnetTo, SucceedsAndWritesNothing)
{
    kelmora_host::Node node("0", kelmora_host::Record(kelmora_telnet{.enable = 1, .password = "a kettle"}));
    char buffer[] = "what the buffer held";
    char *out = buffer;
    EXPECT_EQ(telnet_to_translator(node.resource(), &out), 1);
    EXPECT_EQ(out, buffer);
    EXPECT_STREQ(buffer, "what the buffer held");
    EXPECT_EQ(node.fetches(), 0U);
    EXPECT_EQ(telnet_to_translator(nullptr, nullptr), 1);
}

} // namespace

} // namespace kelmora_test::telnet_test
