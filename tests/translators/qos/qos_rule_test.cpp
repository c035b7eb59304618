#include "tests/support/from_test.h"
#include "tests/support/to_test.h"

#include "kelmora_json.h"
#include "records/qos.h"

namespace kelmora_test::qos_rule_test {

namespace {

using testing::AllOf;
using testing::HasSubstr;
using testing::Not;

constexpr kelmora_qos_rule sample{
    .enabled = 1,
    .name = "Gäste",
    .type = 2,
    .host_field = 77,
    .mode = 3,
    .download = 10000,
    .upload = 2000,
    .target = "192.168.18.0/24",
};

constexpr char sample_text[] = "{\n"
                               "                \"download\": 10000,\n"
                               "                \"enabled\": true,\n"
                               "                \"id\": \"rule0\",\n"
                               "                \"mode\": 3,\n"
                               "                \"name\": \"G\\u00E4ste\",\n"
                               "                \"target\": \"192.168.18.0\\/24\",\n"
                               "                \"type\": 2,\n"
                               "                \"upload\": 2000\n"
                               "}";

class QosRuleTo : public ToTest<kelmora_qos_rule> {
protected:
    QosRuleTo() : ToTest(qos_rule_to_translator) {}
};

TEST_F(QosRuleTo, WritesSortedKeysIndentedAndEscaped)
{
    add("rule0", sample);
    EXPECT_EQ(object(), sample_text);
}

TEST_F(QosRuleTo, WritesAListOfEntries)
{
    add("rule0", sample);
    add("rule1");
    EXPECT_EQ(list(), "[\n"
                      "                {\n"
                      "                                \"download\": 10000,\n"
                      "                                \"enabled\": true,\n"
                      "                                \"id\": \"rule0\",\n"
                      "                                \"mode\": 3,\n"
                      "                                \"name\": \"G\\u00E4ste\",\n"
                      "                                \"target\": \"192.168.18.0\\/24\",\n"
                      "                                \"type\": 2,\n"
                      "                                \"upload\": 2000\n"
                      "                },\n"
                      "                {\n"
                      "                                \"download\": 0,\n"
                      "                                \"enabled\": false,\n"
                      "                                \"id\": \"rule1\",\n"
                      "                                \"mode\": 0,\n"
                      "                                \"name\": \"\",\n"
                      "                                \"target\": \"\",\n"
                      "                                \"type\": 0,\n"
                      "                                \"upload\": 0\n"
                      "                }\n"
                      "]");
}

TEST_F(QosRuleTo, WritesCodesAsUnsignedAndRatesAsSigned)
{
    add("", {.type = 4294967295, .mode = 4294967294, .download = -1, .upload = -2147483648});
    EXPECT_EQ(object(), "{\n"
                        "                \"download\": -1,\n"
                        "                \"enabled\": false,\n"
                        "                \"id\": \"\",\n"
                        "                \"mode\": 4294967294,\n"
                        "                \"name\": \"\",\n"
                        "                \"target\": \"\",\n"
                        "                \"type\": 4294967295,\n"
                        "                \"upload\": -2147483648\n"
                        "}");
}

TEST_F(QosRuleTo, NeverWritesTheFieldOfTheHostsOwn)
{
    add("", {.host_field = 4294967295});
    EXPECT_EQ(object(), "{\n"
                        "                \"download\": 0,\n"
                        "                \"enabled\": false,\n"
                        "                \"id\": \"\",\n"
                        "                \"mode\": 0,\n"
                        "                \"name\": \"\",\n"
                        "                \"target\": \"\",\n"
                        "                \"type\": 0,\n"
                        "                \"upload\": 0\n"
                        "}");
}

TEST_F(QosRuleTo, WritesAnySwitchButZeroAsTrue) { expect_switches({{"enabled", &kelmora_qos_rule::enabled}}); }

TEST_F(QosRuleTo, CutsTextsToOneByteLessThanTheirField)
{
    kelmora_qos_rule &rule = add("");
    fill_whole(rule.name, 'r');
    fill_whole(rule.target, 't');
    fill_whole(nodes_.front().resource()->id, 'n');
    EXPECT_THAT(object(), AllOf(HasSubstr("\"name\": \"" + std::string(63, 'r') + '"'),
                                HasSubstr("\"target\": \"" + std::string(199, 't') + '"'),
                                HasSubstr("\"id\": \"" + std::string(128, 'n') + '"')));
}

TEST_F(QosRuleTo, LeavesOutATextWhoseCutSplitsACharacter)
{
    kelmora_qos_rule &rule = add("rule0", sample);
    fill_whole(rule.name, 'r');
    rule.name[62] = '\xC3'; // the first byte of a two-byte character: the last that is written
    rule.name[63] = '\xA4';
    EXPECT_THAT(object(), AllOf(Not(HasSubstr("\"name\"")), HasSubstr("\"target\"")));
    rule = sample;
    fill_whole(rule.target, 't');
    rule.target[198] = '\xC3';
    rule.target[199] = '\xA4';
    EXPECT_THAT(object(), AllOf(Not(HasSubstr("\"target\"")), HasSubstr("\"name\"")));
}

TEST_F(QosRuleTo, LeavesOutATextThatIsNotUtf8)
{
    set(add("rule0", sample).target, "caf\xE9");
    EXPECT_THAT(object(), AllOf(Not(HasSubstr("\"target\"")), HasSubstr("\"name\"")));
}

TEST_F(QosRuleTo, GrowsTheBufferForManyRules)
{
    std::vector<std::string> expected;
    for (int i = 0; i < 20; ++i) {
        add(std::to_string(i), sample);
        expected.push_back(with_id(sample_text, std::to_string(i)));
    }
    EXPECT_EQ(list(), pretty_array(expected));
    EXPECT_EQ(reallocations_, 1U);
}

constexpr char document[] = R"({
    "enabled": true, "name": "Game console", "type": 5, "mode": 6, "download": -7, "upload": 8,
    "target": "192.168.17.77", "id": "never read", "host_field": 99
})";

class QosRuleFrom : public FromTest<kelmora_qos_rule> {
protected:
    QosRuleFrom() : FromTest(qos_rule_from_translator, document) {}
};

TEST_F(QosRuleFrom, StoresEveryKey)
{
    EXPECT_TRUE(accepts(document));
    EXPECT_EQ(record().enabled, 1);
    EXPECT_STREQ(record().name, "Game console");
    EXPECT_EQ(record().type, 5U);
    EXPECT_EQ(record().mode, 6U);
    EXPECT_EQ(record().download, -7);
    EXPECT_EQ(record().upload, 8);
    EXPECT_STREQ(record().target, "192.168.17.77");
}

TEST_F(QosRuleFrom, NeverStoresTheFieldOfTheHostsOwn)
{
    EXPECT_TRUE(accepts(document));
    EXPECT_TRUE(untouched(record().host_field));
}

TEST_F(QosRuleFrom, AsksForTheRequiredKeysInOrder)
{
    expect_required_in_order({
        {"enabled", "enabled", "enabled field not found"},
        {"type", "type", "type field not found"},
        {"mode", "mode", "mode field not found"},
        {"download", "download", "download field not found"},
        {"upload", "upload", "upload field not found"},
        {"target", "target", "target field not found"},
    });
}

TEST_F(QosRuleFrom, KeepsANameThatIsAbsent) { expect_optional("name", record().name); }

TEST_F(QosRuleFrom, MissingEnabledStoresNothing)
{
    EXPECT_TRUE(rejects(without(document, "enabled"), "enabled", "enabled field not found"));
    EXPECT_TRUE(untouched(record()));
}

TEST_F(QosRuleFrom, MissingTypeKeepsTheNameStoredBefore)
{
    EXPECT_TRUE(rejects(without(document, "type"), "type", "type field not found"));
    EXPECT_EQ(record().enabled, 1);
    EXPECT_STREQ(record().name, "Game console");
    EXPECT_TRUE(untouched(record().type));
    EXPECT_TRUE(untouched(record().mode));
    EXPECT_TRUE(untouched(record().download));
    EXPECT_TRUE(untouched(record().upload));
    EXPECT_TRUE(untouched(record().target));
}

TEST_F(QosRuleFrom, MissingUploadKeepsWhatWasStoredBefore)
{
    EXPECT_TRUE(rejects(without(document, "upload"), "upload", "upload field not found"));
    EXPECT_EQ(record().type, 5U);
    EXPECT_EQ(record().mode, 6U);
    EXPECT_EQ(record().download, -7);
    EXPECT_TRUE(untouched(record().upload));
    EXPECT_TRUE(untouched(record().target));
}

TEST_F(QosRuleFrom, MissingTargetKeepsEverythingElse)
{
    EXPECT_TRUE(rejects(without(document, "target"), "target", "target field not found"));
    EXPECT_STREQ(record().name, "Game console");
    EXPECT_EQ(record().upload, 8);
    EXPECT_TRUE(untouched(record().target));
}

TEST_F(QosRuleFrom, TakesOnlyTrueForTrue) { expect_boolean("enabled", record().enabled); }

TEST_F(QosRuleFrom, CutsIntegersToTheirWidth)
{
    expect_integer("type", record().type);
    expect_integer("mode", record().mode);
    expect_integer("download", record().download);
    expect_integer("upload", record().upload);
}

TEST_F(QosRuleFrom, CutsTextsToTheirField)
{
    expect_string("name", record().name);
    expect_string("target", record().target);
}

} // namespace

} // namespace kelmora_test::qos_rule_test
