#include "tests/support/from_test.h"
#include "tests/support/to_test.h"

#include "host/plugin/translate.h"

#include "kelmora_json.h"
#include "records/device.h"

namespace kelmora_test::syslog_test {

namespace {

using testing::AllOf;
using testing::HasSubstr;
using testing::Not;

constexpr kelmora_syslog sample{.enabled = 1, .server = "log/zürich", .port = 514, .severity_level = 4};

constexpr char sample_text[] = "{\n"
                               "                \"enabled\": true,\n"
                               "                \"port\": 514,\n"
                               "                \"server\": \"log\\/z\\u00FCrich\",\n"
                               "                \"severity_level\": 4\n"
                               "}";

constexpr char sample_list[] = "[\n"
                               "                {\n"
                               "                                \"enabled\": true,\n"
                               "                                \"port\": 514,\n"
                               "                                \"server\": \"log\\/z\\u00FCrich\",\n"
                               "                                \"severity_level\": 4\n"
                               "                }\n"
                               "]";

class SyslogTo : public ToTest<kelmora_syslog> {
protected:
    SyslogTo() : ToTest(syslog_to_translator) {}
};

TEST_F(SyslogTo, WritesSortedKeysIndentedAndEscapedWithoutAnId)
{
    add("the id", sample);
    EXPECT_EQ(object(), sample_text);
    EXPECT_EQ(list(), sample_list);
}

TEST_F(SyslogTo, WritesThePortAsSignedAndTheSeverityAsUnsigned)
{
    add("0", {.enabled = 255, .port = -1, .severity_level = 4294967295});
    EXPECT_EQ(object(), "{\n"
                        "                \"enabled\": true,\n"
                        "                \"port\": -1,\n"
                        "                \"server\": \"\",\n"
                        "                \"severity_level\": 4294967295\n"
                        "}");
    nodes_.clear();
    add("0", {.port = -2147483648});
    EXPECT_THAT(object(), AllOf(HasSubstr("\"enabled\": false"), HasSubstr("\"port\": -2147483648")));
}

TEST_F(SyslogTo, CutsTheServerToOneByteLessThanItsField)
{
    fill_whole(add("0").server, 's');
    EXPECT_THAT(object(), HasSubstr("\"server\": \"" + std::string(254, 's') + '"'));
}

TEST_F(SyslogTo, LeavesOutAServerWhoseCutSplitsACharacter)
{
    kelmora_syslog &syslog = add("0", sample);
    fill_whole(syslog.server, 's');
    syslog.server[253] = '\xC3'; // the first byte of a two-byte character: the last that is written
    syslog.server[254] = '\xA4';
    EXPECT_THAT(object(), AllOf(Not(HasSubstr("\"server\"")), HasSubstr("\"port\": 514")));
}

// The long text comes first: jansson's parser must find its room there, where a failure costs it but a character. At
// the quote that ends "severity_level" it would cost the process.
constexpr char document[] = R"({
    "id": "never read, however long", "enabled": true, "server": "logs.example", "port": 6514, "severity_level": 6
})";

class SyslogFrom : public FromTest<kelmora_syslog> {
protected:
    SyslogFrom() : FromTest(syslog_from_translator, document) {}
};

TEST_F(SyslogFrom, StoresEveryKey)
{
    EXPECT_TRUE(accepts(document));
    EXPECT_EQ(record().enabled, 1);
    EXPECT_STREQ(record().server, "logs.example");
    EXPECT_EQ(record().port, 6514);
    EXPECT_EQ(record().severity_level, 6U);
}

TEST_F(SyslogFrom, AsksForTheRequiredKeysInOrder)
{
    expect_required_in_order({
        {"enabled", "enabled", "enabled field not found"},
        {"server", "server", "server field not found"},
    });
}

TEST_F(SyslogFrom, KeepsTheOptionalKeysThatAreAbsent)
{
    expect_optional("port", record().port);
    expect_optional("severity_level", record().severity_level);
    poison();
    EXPECT_TRUE(accepts(R"({"enabled": false, "server": "logs.example"})"));
    EXPECT_TRUE(untouched(record().port));
    EXPECT_TRUE(untouched(record().severity_level));
}

TEST_F(SyslogFrom, MissingServerKeepsTheSwitchStoredBeforeAndStoresNothingBehind)
{
    EXPECT_TRUE(rejects(without(document, "server"), "server", "server field not found"));
    EXPECT_EQ(record().enabled, 1);
    EXPECT_TRUE(untouched(record().server));
    EXPECT_TRUE(untouched(record().port));
    EXPECT_TRUE(untouched(record().severity_level));
    EXPECT_TRUE(rejects(R"({"enabled": true})", "server", "server field not found"));
}

TEST_F(SyslogFrom, TakesOnlyTrueForTrue) { expect_boolean("enabled", record().enabled); }

TEST_F(SyslogFrom, CutsIntegersToTheirWidth)
{
    expect_integer("port", record().port);
    expect_integer("severity_level", record().severity_level);
}

TEST_F(SyslogFrom, CutsTheServerToItsField) { expect_string("server", record().server); }

TEST(Syslog, WritesBackThePortThatWasStored)
{
    kelmora_host::Node node("0", kelmora_host::Record(kelmora_syslog{}));
    EXPECT_EQ(
        kelmora_host::from_json(syslog_from_translator, node, R"({"enabled": true, "server": "", "port": -1})").result,
        1);
    std::vector<kelmora_host::Node> nodes{node};
    EXPECT_THAT(kelmora_host::to_json(syslog_to_translator, nodes, false).text, HasSubstr("\"port\": -1,"));
}

} // namespace

} // namespace kelmora_test::syslog_test
