#include "tests/support/from_test.h"
#include "tests/support/to_test.h"

#include "host/plugin/translate.h"

#include "kelmora_json.h"
#include "records/firewall.h"

namespace kelmora_test::filter_test {

namespace {

using testing::AllOf;
using testing::HasSubstr;
using testing::Not;

constexpr kelmora_filter sample{
    .enabled = 1,
    .description = "Spätdienst",
    .protocol = 6,
    .type = 2,
    .target = "192.168.17.0/24",
    .port_start = 1024,
    .port_end = 2048,
    .policy = 3,
};

constexpr char sample_text[] = "{\n"
                               "                \"description\": \"Sp\\u00E4tdienst\",\n"
                               "                \"enabled\": true,\n"
                               "                \"id\": \"7\",\n"
                               "                \"policy\": 3,\n"
                               "                \"port_end\": 2048,\n"
                               "                \"port_start\": 1024,\n"
                               "                \"protocol\": 6,\n"
                               "                \"target\": \"192.168.17.0\\/24\",\n"
                               "                \"type\": 2\n"
                               "}";

class FilterTo : public ToTest<kelmora_filter> {
protected:
    FilterTo() : ToTest(filter_to_translator) {}
};

TEST_F(FilterTo, WritesSortedKeysIndentedAndEscaped)
{
    add("7", sample);
    EXPECT_EQ(object(), sample_text);
}

TEST_F(FilterTo, WritesAListOfRules)
{
    add("7", sample);
    add("8");
    EXPECT_EQ(list(), "[\n"
                      "                {\n"
                      "                                \"description\": \"Sp\\u00E4tdienst\",\n"
                      "                                \"enabled\": true,\n"
                      "                                \"id\": \"7\",\n"
                      "                                \"policy\": 3,\n"
                      "                                \"port_end\": 2048,\n"
                      "                                \"port_start\": 1024,\n"
                      "                                \"protocol\": 6,\n"
                      "                                \"target\": \"192.168.17.0\\/24\",\n"
                      "                                \"type\": 2\n"
                      "                },\n"
                      "                {\n"
                      "                                \"description\": \"\",\n"
                      "                                \"enabled\": false,\n"
                      "                                \"id\": \"8\",\n"
                      "                                \"policy\": 0,\n"
                      "                                \"port_end\": 0,\n"
                      "                                \"port_start\": 0,\n"
                      "                                \"protocol\": 0,\n"
                      "                                \"target\": \"\",\n"
                      "                                \"type\": 0\n"
                      "                }\n"
                      "]");
}

TEST_F(FilterTo, WritesCodesAsUnsignedAndPortsAsSigned)
{
    constexpr std::uint32_t most = 4294967295;
    add("", {.protocol = most, .type = most - 1, .port_start = -1, .port_end = -2147483647 - 1, .policy = most - 2});
    EXPECT_THAT(object(), AllOf(HasSubstr("\"protocol\": 4294967295,"), HasSubstr("\"type\": 4294967294\n"),
                                HasSubstr("\"policy\": 4294967293,"), HasSubstr("\"port_start\": -1,"),
                                HasSubstr("\"port_end\": -2147483648,")));
}

TEST_F(FilterTo, WritesAnySwitchButZeroAsTrue)
{
    for (const int on : {1, 2, 128, 255}) {
        nodes_.clear();
        add("").enabled = static_cast<std::uint8_t>(on);
        EXPECT_THAT(object(), HasSubstr("\"enabled\": true"));
    }
}

TEST_F(FilterTo, CutsTextsToOneByteLessThanTheirField)
{
    kelmora_filter &filter = add("");
    fill_whole(filter.description, 'd');
    fill_whole(filter.target, 't');
    fill_whole(nodes_.front().resource()->id, 'i');
    EXPECT_THAT(object(), AllOf(HasSubstr("\"description\": \"" + std::string(32, 'd') + '"'),
                                HasSubstr("\"target\": \"" + std::string(200, 't') + '"'),
                                HasSubstr("\"id\": \"" + std::string(128, 'i') + '"')));
}

TEST_F(FilterTo, LeavesOutATextWhoseCutSplitsACharacter)
{
    kelmora_filter &filter = add("7", sample);
    fill_whole(filter.description, 'd');
    filter.description[31] = '\xC3'; // the first byte of a two-byte character: the last that is written
    filter.description[32] = '\xA4';
    EXPECT_THAT(object(), AllOf(Not(HasSubstr("\"description\"")), HasSubstr("\"target\": \"192.168.17.0")));
    set(filter.description, "mended");
    fill_whole(filter.target, 't');
    filter.target[199] = '\xC3';
    filter.target[200] = '\xA4';
    EXPECT_THAT(object(), AllOf(Not(HasSubstr("\"target\"")), HasSubstr("\"description\": \"mended\"")));
}

TEST_F(FilterTo, GrowsTheBufferForALongList)
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
    "enabled": true, "description": "Homework comes first", "protocol": 17, "type": 4, "target": "10.40.0.0/25",
    "port_start": 3074, "port_end": 3079, "policy": 5, "id": "never read"
})";

class FilterFrom : public FromTest<kelmora_filter> {
protected:
    FilterFrom() : FromTest(filter_from_translator, document) {}
};

TEST_F(FilterFrom, StoresEveryKey)
{
    EXPECT_TRUE(accepts(document));
    EXPECT_EQ(record().enabled, 1);
    EXPECT_STREQ(record().description, "Homework comes first");
    EXPECT_EQ(record().protocol, 17U);
    EXPECT_EQ(record().type, 4U);
    EXPECT_STREQ(record().target, "10.40.0.0/25");
    EXPECT_EQ(record().port_start, 3074);
    EXPECT_EQ(record().port_end, 3079);
    EXPECT_EQ(record().policy, 5U);
}

TEST_F(FilterFrom, AsksForTheRequiredKeysInOrder)
{
    expect_required_in_order({
        {"enabled", "enabled", "enabled field not found"},
        {"protocol", "protocol", "protocol field not found"},
        {"type", "type", "type field not found"},
        {"target", "target", "target field not found"},
    });
}

TEST_F(FilterFrom, SucceedsWithTheRequiredKeysAlone)
{
    EXPECT_TRUE(accepts(R"({"enabled": false, "protocol": 1, "type": 2, "target": ""})"));
    EXPECT_EQ(record().enabled, 0);
    EXPECT_EQ(record().protocol, 1U);
    EXPECT_EQ(record().type, 2U);
    EXPECT_STREQ(record().target, "");
    EXPECT_TRUE(untouched(record().description));
    EXPECT_TRUE(untouched(record().port_start));
    EXPECT_TRUE(untouched(record().port_end));
    EXPECT_TRUE(untouched(record().policy));
}

TEST_F(FilterFrom, KeepsTheOptionalKeysThatAreAbsent)
{
    expect_optional("description", record().description);
    expect_optional("port_start", record().port_start);
    expect_optional("port_end", record().port_end);
    expect_optional("policy", record().policy);
}

TEST_F(FilterFrom, MissingSwitchStoresNothing)
{
    EXPECT_TRUE(rejects(without(document, "enabled"), "enabled", "enabled field not found"));
    EXPECT_TRUE(untouched(record()));
}

TEST_F(FilterFrom, MissingProtocolKeepsTheDescription)
{
    EXPECT_TRUE(rejects(without(document, "protocol"), "protocol", "protocol field not found"));
    EXPECT_EQ(record().enabled, 1);
    EXPECT_STREQ(record().description, "Homework comes first");
    EXPECT_TRUE(untouched(record().protocol));
    EXPECT_TRUE(untouched(record().type));
    EXPECT_TRUE(untouched(record().target));
}

TEST_F(FilterFrom, MissingTypeKeepsTheProtocol)
{
    EXPECT_TRUE(rejects(without(document, "type"), "type", "type field not found"));
    EXPECT_EQ(record().protocol, 17U);
    EXPECT_TRUE(untouched(record().type));
    EXPECT_TRUE(untouched(record().target));
}

TEST_F(FilterFrom, MissingTargetStoresNoPortAndNoPolicy)
{
    EXPECT_TRUE(rejects(without(document, "target"), "target", "target field not found"));
    EXPECT_EQ(record().type, 4U);
    EXPECT_TRUE(untouched(record().target));
    EXPECT_TRUE(untouched(record().port_start));
    EXPECT_TRUE(untouched(record().port_end));
    EXPECT_TRUE(untouched(record().policy));
}

TEST_F(FilterFrom, TakesOnlyTrueForTrue) { expect_boolean("enabled", record().enabled); }

TEST_F(FilterFrom, CutsIntegersToTheirWidth)
{
    expect_integer("protocol", record().protocol);
    expect_integer("type", record().type);
    expect_integer("port_start", record().port_start);
    expect_integer("port_end", record().port_end);
    expect_integer("policy", record().policy);
}

TEST_F(FilterFrom, CutsTextsToTheirField)
{
    expect_string("description", record().description);
    expect_string("target", record().target);
}

TEST(Filter, TakesBackWhatItWrote)
{
    std::vector<kelmora_host::Node> nodes;
    nodes.emplace_back("7", kelmora_host::Record(kelmora_filter{}));
    EXPECT_EQ(kelmora_host::from_json(filter_from_translator, nodes.front(), sample_text).result, 1);
    EXPECT_EQ(kelmora_host::to_json(filter_to_translator, nodes, false).text, sample_text);
}

} // namespace

} // namespace kelmora_test::filter_test
