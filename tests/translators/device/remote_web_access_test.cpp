#include "tests/support/from_test.h"
#include "tests/support/to_test.h"

#include "kelmora_json.h"
#include "records/device.h"

#include <initializer_list>

namespace kelmora_test::remote_web_access_test {

namespace {

using testing::HasSubstr;

constexpr kelmora_remote_web_access sample{
    .enabled = 1,
    .port = 8443,
    .enable_ip_range = 0,
    .rangeStart = "198.51.100.16",
    .rangeEnd = "198.51.100.31",
    .ipv6Enabled = 1,
    .pingWan = 0,
};

constexpr char sample_text[] =
    R"({"id": "wan", "enabled": true, "port": 8443, "enable_ip_range": false, "rangeStart": "198.51.100.16", )"
    R"("rangeEnd": "198.51.100.31", "ipv6Enabled": true, "pingWan": false})";

class RemoteWebAccessTo : public ToTest<kelmora_remote_web_access> {
protected:
    RemoteWebAccessTo() : ToTest(remote_web_access_to_translator) {}
};

TEST_F(RemoteWebAccessTo, WritesTheKeysInOrder)
{
    add("wan", sample);
    EXPECT_EQ(object(), sample_text);
    EXPECT_EQ(list(), "[" + std::string(sample_text) + "]");
}

TEST_F(RemoteWebAccessTo, WritesThePortAsUnsigned)
{
    add("wan", sample).port = 4294967295;
    EXPECT_THAT(object(), HasSubstr(R"("port": 4294967295, )"));
    nodes_.clear();
    add("wan", sample).port = 2147483648;
    EXPECT_THAT(object(), HasSubstr(R"("port": 2147483648, )"));
}

TEST_F(RemoteWebAccessTo, WritesEachSwitchFromItsOwnFieldAndAnyButZeroAsTrue)
{
    add("", {.enabled = 2});
    EXPECT_EQ(object(), R"({"id": "", "enabled": true, "port": 0, "enable_ip_range": false, "rangeStart": "", )"
                        R"("rangeEnd": "", "ipv6Enabled": false, "pingWan": false})");
    nodes_.clear();
    add("", {.enable_ip_range = 255});
    EXPECT_EQ(object(), R"({"id": "", "enabled": false, "port": 0, "enable_ip_range": true, "rangeStart": "", )"
                        R"("rangeEnd": "", "ipv6Enabled": false, "pingWan": false})");
    nodes_.clear();
    add("", {.ipv6Enabled = 128});
    EXPECT_EQ(object(), R"({"id": "", "enabled": false, "port": 0, "enable_ip_range": false, "rangeStart": "", )"
                        R"("rangeEnd": "", "ipv6Enabled": true, "pingWan": false})");
    nodes_.clear();
    add("", {.pingWan = 16});
    EXPECT_EQ(object(), R"({"id": "", "enabled": false, "port": 0, "enable_ip_range": false, "rangeStart": "", )"
                        R"("rangeEnd": "", "ipv6Enabled": false, "pingWan": true})");
}

TEST_F(RemoteWebAccessTo, CutsTextsToOneByteLessThanTheirField)
{
    kelmora_remote_web_access &access = add("");
    fill_whole(access.rangeStart, 's');
    fill_whole(access.rangeEnd, 'e');
    fill_whole(nodes_.front().resource()->id, 'n');
    EXPECT_EQ(object(), R"({"id": ")" + std::string(128, 'n') +
                            R"(", "enabled": false, "port": 0, "enable_ip_range": false, )"
                            R"("rangeStart": "ssssssssssssssss", "rangeEnd": "eeeeeeeeeeeeeeee", )" // 16 each
                            R"("ipv6Enabled": false, "pingWan": false})");
}

TEST_F(RemoteWebAccessTo, LeavesOutATextWhoseCutSplitsACharacter)
{
    kelmora_remote_web_access &access = add("wan", sample);
    fill_whole(access.rangeEnd, 'e');
    access.rangeEnd[15] = '\xC3'; // the last byte that is written
    access.rangeEnd[16] = '\xA4';
    EXPECT_THAT(object(), HasSubstr(R"("rangeStart": "198.51.100.16", "ipv6Enabled": true)"));
}

TEST_F(RemoteWebAccessTo, LeavesOutATextThatIsNotUtf8)
{
    set(add("wan", sample).rangeStart, "caf\xE9");
    EXPECT_THAT(object(), HasSubstr(R"("enable_ip_range": false, "rangeEnd": "198.51.100.31")"));
}

TEST_F(RemoteWebAccessTo, WritesSlashesAndOtherScriptsAsTheyAre)
{
    set(add("wan", sample).rangeStart, "10.0.0.0/8 ä");
    EXPECT_THAT(object(), HasSubstr(R"("rangeStart": "10.0.0.0/8 ä")"));
}

constexpr char document[] = R"({
    "id": "never read", "pingWan": true, "ipv6Enabled": true, "rangeEnd": "203.0.113.95",
    "rangeStart": "203.0.113.64", "enable_ip_range": true, "port": 9443, "enabled": true
})";

class RemoteWebAccessFrom : public FromTest<kelmora_remote_web_access> {
protected:
    explicit RemoteWebAccessFrom(const char *text = document) : FromTest(remote_web_access_from_translator, text) {}
};

TEST_F(RemoteWebAccessFrom, StoresEveryKey)
{
    EXPECT_TRUE(accepts(document));
    EXPECT_EQ(record().enabled, 1);
    EXPECT_EQ(record().port, 9443U);
    EXPECT_EQ(record().enable_ip_range, 1);
    EXPECT_STREQ(record().rangeStart, "203.0.113.64");
    EXPECT_STREQ(record().rangeEnd, "203.0.113.95");
    EXPECT_EQ(record().ipv6Enabled, 1);
    EXPECT_EQ(record().pingWan, 1);
}

TEST_F(RemoteWebAccessFrom, AsksForTheRequiredKeysInOrder)
{
    expect_required_in_order({
        {"enabled", "enabled", "enabled field not found"},
        {"port", "port", "port field not found"},
        {"rangeStart", "rangeStart", "rangeStart field not found"},
        {"rangeEnd", "rangeEnd", "rangeEnd field not found"},
    });
}

TEST_F(RemoteWebAccessFrom, KeepsTheSwitchesThatAreAbsent)
{
    expect_optional("enable_ip_range", record().enable_ip_range);
    expect_optional("ipv6Enabled", record().ipv6Enabled);
    expect_optional("pingWan", record().pingWan);
}

TEST_F(RemoteWebAccessFrom, ChecksADocumentWithoutTheRangeSwitchAgainstTheRecord)
{
    constexpr char text[] = R"({"enabled": true, "port": 8080})";
    for (const std::uint8_t current : std::initializer_list<std::uint8_t>{1, 2, 128, 255}) {
        poison();
        record().enable_ip_range = current;
        EXPECT_TRUE(rejects(text, "rangeStart", "rangeStart field not found"));
        EXPECT_EQ(record().enabled, 1);
        EXPECT_EQ(record().port, 8080U);
        EXPECT_EQ(record().enable_ip_range, current);
        EXPECT_TRUE(untouched(record().rangeStart));
    }
    poison();
    record().enable_ip_range = 0;
    EXPECT_TRUE(accepts(text));
    EXPECT_EQ(record().enabled, 1);
    EXPECT_EQ(record().port, 8080U);
    EXPECT_EQ(record().enable_ip_range, 0);
    EXPECT_TRUE(untouched(record().rangeStart));
    EXPECT_TRUE(untouched(record().rangeEnd));
    EXPECT_TRUE(untouched(record().ipv6Enabled));
    EXPECT_TRUE(untouched(record().pingWan));
}

TEST_F(RemoteWebAccessFrom, TakesTheDocumentsRangeSwitchBeforeTheRecords)
{
    record().enable_ip_range = 0;
    EXPECT_TRUE(rejects(R"({"enabled": true, "port": 8080, "enable_ip_range": true})", "rangeStart",
                        "rangeStart field not found"));
    EXPECT_EQ(record().enable_ip_range, 1); // stored before

    EXPECT_TRUE(accepts(R"({"enabled": true, "port": 8080, "enable_ip_range": false})"));
    EXPECT_EQ(record().enable_ip_range, 0);
    EXPECT_TRUE(untouched(record().rangeStart));
}

TEST_F(RemoteWebAccessFrom, TakesARangeSwitchThatIsNotTrueForClear)
{
    for (const char *other : {"1", "\"true\"", "null", "{}", "[true]"}) {
        poison();
        EXPECT_TRUE(accepts(R"({"enabled": true, "port": 8080, "enable_ip_range": )" + std::string(other) + "}"));
        EXPECT_EQ(record().enable_ip_range, 0);
    }
}

TEST_F(RemoteWebAccessFrom, MissingRangeEndKeepsTheRangeStartStoredBefore)
{
    EXPECT_TRUE(rejects(without(document, "rangeEnd"), "rangeEnd", "rangeEnd field not found"));
    EXPECT_EQ(record().port, 9443U);
    EXPECT_EQ(record().enable_ip_range, 1);
    EXPECT_STREQ(record().rangeStart, "203.0.113.64");
    EXPECT_TRUE(untouched(record().rangeEnd));
    EXPECT_TRUE(untouched(record().ipv6Enabled));
    EXPECT_TRUE(untouched(record().pingWan));
}

TEST_F(RemoteWebAccessFrom, MissingRangeStartStoresNothingBehindIt)
{
    EXPECT_TRUE(rejects(without(document, "rangeStart"), "rangeStart", "rangeStart field not found"));
    EXPECT_TRUE(untouched(record().rangeStart));
    EXPECT_TRUE(untouched(record().rangeEnd));
    EXPECT_TRUE(untouched(record().ipv6Enabled));
}

TEST_F(RemoteWebAccessFrom, MissingPortStoresEnabledAlone)
{
    EXPECT_TRUE(rejects(without(document, "port"), "port", "port field not found"));
    EXPECT_EQ(record().enabled, 1);
    EXPECT_TRUE(untouched(record().port));
    EXPECT_TRUE(untouched(record().enable_ip_range));
    EXPECT_TRUE(untouched(record().rangeStart));
    EXPECT_TRUE(untouched(record().pingWan));
}

TEST_F(RemoteWebAccessFrom, MissingEnabledStoresNothing)
{
    EXPECT_TRUE(rejects(without(document, "enabled"), "enabled", "enabled field not found"));
    EXPECT_TRUE(untouched(record()));
}

TEST_F(RemoteWebAccessFrom, TakesOnlyTrueForTrue)
{
    expect_boolean("enabled", record().enabled);
    expect_boolean("enable_ip_range", record().enable_ip_range);
    expect_boolean("ipv6Enabled", record().ipv6Enabled);
    expect_boolean("pingWan", record().pingWan);
}

TEST_F(RemoteWebAccessFrom, CutsIntegersToTheirWidth) { expect_integer("port", record().port); }

TEST_F(RemoteWebAccessFrom, CutsTextsToTheirField)
{
    expect_string("rangeStart", record().rangeStart);
    expect_string("rangeEnd", record().rangeEnd);
}

/// Documents that clear the range switch: the range is then optional.
class RemoteWebAccessWithoutRange : public RemoteWebAccessFrom {
protected:
    RemoteWebAccessWithoutRange()
        : RemoteWebAccessFrom(R"({"enabled": true, "port": 9443, "enable_ip_range": false,
                                  "rangeStart": "203.0.113.64", "rangeEnd": "203.0.113.95"})")
    {
    }
};

TEST_F(RemoteWebAccessWithoutRange, KeepsTheRangeThatIsAbsent)
{
    expect_optional("rangeStart", record().rangeStart);
    expect_optional("rangeEnd", record().rangeEnd);
}

TEST_F(RemoteWebAccessWithoutRange, StoresTheRangeThatIsGiven)
{
    EXPECT_TRUE(accepts(document_));
    EXPECT_STREQ(record().rangeStart, "203.0.113.64");
    EXPECT_STREQ(record().rangeEnd, "203.0.113.95");
    expect_string("rangeStart", record().rangeStart);
    expect_string("rangeEnd", record().rangeEnd);
}

} // namespace

} // namespace kelmora_test::remote_web_access_test
