#include "tests/support/from_test.h"
#include "tests/support/to_test.h"

#include "kelmora_json.h"
#include "records/device.h"

#include <initializer_list>

namespace kelmora_test::user_test {

namespace {

using testing::HasSubstr;

constexpr kelmora_user sample{.username = "admin", .password = "nine lighthouses", .is_privileged = 1};

constexpr char sample_text[] =
    R"({"id": "0", "username": "admin", "password": "nine lighthouses", "is_privileged": true})";

class UserTo : public ToTest<kelmora_user> {
protected:
    UserTo() : ToTest(user_to_translator) {}
};

TEST_F(UserTo, WritesTheKeysInOrder)
{
    add("0", sample);
    EXPECT_EQ(object(), sample_text);
    EXPECT_EQ(list(), "[" + std::string(sample_text) + "]");
}

TEST_F(UserTo, KeepsAnEarlierNodesTextWhereTheLastHasNoneToShow)
{
    add("0", sample);
    set(add("1", {.username = "guest"}).password, "caf\xE9");
    EXPECT_EQ(object(), R"({"id": "1", "username": "guest", "password": "nine lighthouses", "is_privileged": false})");
}

TEST_F(UserTo, WritesAnySwitchButZeroAsTrue)
{
    for (const std::uint8_t privileged : std::initializer_list<std::uint8_t>{2, 128, 255}) {
        nodes_.clear();
        add("0", sample).is_privileged = privileged;
        EXPECT_EQ(object(), sample_text);
    }
}

TEST_F(UserTo, CutsTextsToOneByteLessThanTheirField)
{
    kelmora_user &user = add("");
    fill_whole(user.username, 'u');
    fill_whole(user.password, 'p');
    fill_whole(nodes_.front().resource()->id, 'n');
    EXPECT_EQ(object(), R"({"id": ")" + std::string(128, 'n') + R"(", "username": ")" + std::string(32, 'u') +
                            R"(", "password": ")" + std::string(32, 'p') + R"(", "is_privileged": false})");
}

TEST_F(UserTo, LeavesOutATextWhoseCutSplitsACharacter)
{
    kelmora_user &user = add("0", sample);
    fill_whole(user.username, 'u');
    user.username[31] = '\xC3'; // the last byte that is written
    user.username[32] = '\xA4';
    EXPECT_EQ(object(), R"({"id": "0", "password": "nine lighthouses", "is_privileged": true})");
}

TEST_F(UserTo, LeavesOutATextThatIsNotUtf8)
{
    set(add("0", sample).password, "caf\xE9");
    EXPECT_EQ(object(), R"({"id": "0", "username": "admin", "is_privileged": true})");
}

TEST_F(UserTo, WritesOtherScriptsAsTheyAre)
{
    set(add("0", sample).username, "Jürgen/\"2\" 北");
    EXPECT_THAT(object(), HasSubstr("\"username\": \"Jürgen/\\\"2\\\" 北\""));
}

TEST_F(UserTo, GrowsTheBufferForManyUsers)
{
    for (int i = 0; i < 64; ++i)
        add("0", sample);
    const std::string text = list();
    EXPECT_EQ(text.size(), 64 * (sizeof sample_text - 1) + 63 * 2 + 2);
    EXPECT_THAT(text, testing::EndsWith(std::string(sample_text) + "]"));
    EXPECT_EQ(reallocations_, 1U);
}

constexpr char document[] = R"({
    "id": "never read", "is_privileged": true, "password": "copper and glass", "username": "technician"
})";

class UserFrom : public FromTest<kelmora_user> {
protected:
    UserFrom() : FromTest(user_from_translator, document) {}
};

TEST_F(UserFrom, StoresEveryKey)
{
    EXPECT_TRUE(accepts(document));
    EXPECT_STREQ(record().username, "technician");
    EXPECT_STREQ(record().password, "copper and glass");
    EXPECT_EQ(record().is_privileged, 1);
    EXPECT_EQ(fetches_, 1U);
}

TEST_F(UserFrom, AsksForTheRequiredKeysInOrder)
{
    expect_required_in_order({
        {"username", "username", "username field not found"},
        {"password", "password", "password field not found"},
    });
}

TEST_F(UserFrom, MissingUsernameLeavesTheRecordUntouchedAndUnfetched)
{
    for (const char *text : {R"({"password": "x", "is_privileged": true})", "{}", "[]"}) {
        EXPECT_TRUE(rejects(text, "username", "username field not found"));
        EXPECT_TRUE(untouched(record()));
        EXPECT_EQ(fetches_, 0U);
    }
}

TEST_F(UserFrom, EmptyOrBrokenTextFetchesNothing)
{
    EXPECT_TRUE(accepts(""));
    EXPECT_EQ(fetches_, 0U);
    EXPECT_TRUE(rejects("{", "", "invalid json data"));
    EXPECT_EQ(fetches_, 0U);
}

TEST_F(UserFrom, MissingPasswordKeepsTheNameStoredBefore)
{
    EXPECT_TRUE(rejects(without(document, "password"), "password", "password field not found"));
    EXPECT_STREQ(record().username, "technician");
    EXPECT_TRUE(untouched(record().password));
    EXPECT_TRUE(untouched(record().is_privileged));
    EXPECT_EQ(fetches_, 1U);
}

TEST_F(UserFrom, TakesANullUsernameForPresent)
{
    EXPECT_TRUE(rejects(R"({"username": null})", "password", "password field not found"));
    EXPECT_STREQ(record().username, "");
    EXPECT_EQ(fetches_, 1U);
}

TEST_F(UserFrom, KeepsThePrivilegeThatIsAbsent) { expect_optional("is_privileged", record().is_privileged); }

TEST_F(UserFrom, TakesOnlyTrueForTrue) { expect_boolean("is_privileged", record().is_privileged); }

TEST_F(UserFrom, CutsTextsToTheirField)
{
    expect_string("username", record().username);
    expect_string("password", record().password);
}

TEST_F(UserFrom, StoresTheFirst32Characters)
{
    EXPECT_TRUE(accepts(R"({"username": "0123456789012345678901234567890123456789",)"
                        R"( "password": "9876543210987654321098765432109876543210"})"));
    EXPECT_STREQ(record().username, "01234567890123456789012345678901");
    EXPECT_STREQ(record().password, "98765432109876543210987654321098");
    EXPECT_TRUE(untouched(record().is_privileged));
}

} // namespace

} // namespace kelmora_test::user_test
