#include "tests/support/allocations.h"
#include "tests/support/from_test.h"
#include "tests/support/to_test.h"

#include "host/plugin/translate.h"

#include "kelmora_json.h"
#include "records/device.h"

#include <cstdlib>
#include <utility>

namespace kelmora_test::limits_test {

namespace {

using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::Pair;

constexpr std::int32_t least = -2147483648;
constexpr std::int32_t most = 2147483647;

constexpr kelmora_limits sample{
    .port_redirect = 1,
    .qos_rules = 2,
    .static_leases = 3,
    .wifi_limits = nullptr,
    .filter_ip = 4,
    .filter_mac = 5,
    .filter_port = 6,
    .filter_url = 7,
};

/// The limits with a chain of their own.
kelmora_limits with_wifi_limits(std::initializer_list<kelmora_limits_wifi_limit> wifi_limits)
{
    kelmora_limits limits = sample;
    limits.wifi_limits = kelmora_host::make_chain(wifi_limits);
    return limits;
}

class LimitsTo : public ToTest<kelmora_limits> {
protected:
    LimitsTo() : ToTest(limits_to_translator) {}
};

TEST_F(LimitsTo, WritesSortedKeysIndentedAndTheChainInItsOrder)
{
    add("the id", with_wifi_limits({{.radio_id = "r1", .value = 32}, {.radio_id = "r0/ä", .value = -1}}));
    EXPECT_EQ(object(), "{\n"
                        "                \"filter_ip\": 4,\n"
                        "                \"filter_mac\": 5,\n"
                        "                \"filter_port\": 6,\n"
                        "                \"filter_url\": 7,\n"
                        "                \"port_redirect\": 1,\n"
                        "                \"qos_rules\": 2,\n"
                        "                \"static_leases\": 3,\n"
                        "                \"wifi_limits\": [\n"
                        "                                {\n"
                        "                                                \"radio_id\": \"r1\",\n"
                        "                                                \"value\": 32\n"
                        "                                },\n"
                        "                                {\n"
                        "                                                \"radio_id\": \"r0\\/\\u00E4\",\n"
                        "                                                \"value\": -1\n"
                        "                                }\n"
                        "                ]\n"
                        "}");
}

TEST_F(LimitsTo, WritesAnEmptyArrayForAnEmptyChain)
{
    add("0", sample);
    EXPECT_EQ(list(), "[\n"
                      "                {\n"
                      "                                \"filter_ip\": 4,\n"
                      "                                \"filter_mac\": 5,\n"
                      "                                \"filter_port\": 6,\n"
                      "                                \"filter_url\": 7,\n"
                      "                                \"port_redirect\": 1,\n"
                      "                                \"qos_rules\": 2,\n"
                      "                                \"static_leases\": 3,\n"
                      "                                \"wifi_limits\": []\n"
                      "                }\n"
                      "]");
}

TEST_F(LimitsTo, WritesIntegersAsSigned)
{
    kelmora_limits limits = with_wifi_limits({{.radio_id = "", .value = least}, {.radio_id = "", .value = most}});
    limits.port_redirect = -1;
    limits.qos_rules = least;
    limits.static_leases = -2;
    limits.filter_ip = most;
    limits.filter_mac = -3;
    limits.filter_port = -4;
    limits.filter_url = -5;
    add("0", limits);
    EXPECT_EQ(object(), "{\n"
                        "                \"filter_ip\": 2147483647,\n"
                        "                \"filter_mac\": -3,\n"
                        "                \"filter_port\": -4,\n"
                        "                \"filter_url\": -5,\n"
                        "                \"port_redirect\": -1,\n"
                        "                \"qos_rules\": -2147483648,\n"
                        "                \"static_leases\": -2,\n"
                        "                \"wifi_limits\": [\n"
                        "                                {\n"
                        "                                                \"radio_id\": \"\",\n"
                        "                                                \"value\": -2147483648\n"
                        "                                },\n"
                        "                                {\n"
                        "                                                \"radio_id\": \"\",\n"
                        "                                                \"value\": 2147483647\n"
                        "                                }\n"
                        "                ]\n"
                        "}");
}

TEST_F(LimitsTo, CutsARadioIdToOneByteLessThanItsField)
{
    kelmora_limits &limits = add("0", with_wifi_limits({{.radio_id = "", .value = 9}}));
    fill_whole(limits.wifi_limits->radio_id, 'r');
    EXPECT_THAT(object(), HasSubstr("\"radio_id\": \"rrrrrr\",\n"));
}

TEST_F(LimitsTo, LeavesOutARadioIdWhoseCutSplitsACharacter)
{
    kelmora_limits &limits = add("0", with_wifi_limits({{.radio_id = "", .value = 9}}));
    fill_whole(limits.wifi_limits->radio_id, 'r');
    limits.wifi_limits->radio_id[5] = '\xC3'; // the first byte of a two-byte character: the last that is written
    limits.wifi_limits->radio_id[6] = '\xA4';
    EXPECT_THAT(object(), AllOf(Not(HasSubstr("radio_id")), HasSubstr("\"value\": 9")));
}

TEST_F(LimitsTo, GrowsTheBufferForALongChain)
{
    kelmora_limits &limits = add("0", sample);
    for (std::int32_t value = 64; value > 0; --value) {
        auto *chain = kelmora_host::make_chain<kelmora_limits_wifi_limit>({{.radio_id = "radio0", .value = value}});
        chain->next = limits.wifi_limits;
        limits.wifi_limits = chain;
    }
    const std::string text = object();
    EXPECT_GT(text.size(), 4096U);
    EXPECT_EQ(reallocations_, 1U);
    EXPECT_THAT(text, AllOf(HasSubstr("\"value\": 1\n"), HasSubstr("\"value\": 64\n"), testing::EndsWith("]\n}")));
}

constexpr char document[] = R"({
    "port_redirect": 11, "qos_rules": 12, "static_leases": 13, "filter_ip": 14, "filter_mac": 15, "filter_port": 16,
    "filter_url": 17, "wifi_limits": [{"radio_id": "r0", "value": 5}, {"radio_id": "r1", "value": 7}],
    "id": "never read"
})";

/// The document with another list.
std::string document_with(const std::string &wifi_limits) { return with(document, "wifi_limits", wifi_limits); }

class LimitsFrom : public FromTest<kelmora_limits> {
protected:
    LimitsFrom() : FromTest(limits_from_translator, document) {}

    /// What the record's chain holds, in its order.
    std::vector<std::pair<std::string, std::int32_t>> chain()
    {
        std::vector<std::pair<std::string, std::int32_t>> entries;
        for (const auto *entry = record().wifi_limits; entry != nullptr; entry = entry->next)
            entries.emplace_back(entry->radio_id, entry->value);
        return entries;
    }

    /// Gives the record a chain to begin with.
    void hold(std::initializer_list<kelmora_limits_wifi_limit> wifi_limits)
    {
        poison();
        record().wifi_limits = kelmora_host::make_chain(wifi_limits);
    }
};

TEST_F(LimitsFrom, StoresEveryKey)
{
    EXPECT_TRUE(accepts(document));
    EXPECT_EQ(record().port_redirect, 11);
    EXPECT_EQ(record().qos_rules, 12);
    EXPECT_EQ(record().static_leases, 13);
    EXPECT_EQ(record().filter_ip, 14);
    EXPECT_EQ(record().filter_mac, 15);
    EXPECT_EQ(record().filter_port, 16);
    EXPECT_EQ(record().filter_url, 17);
    EXPECT_EQ(chain().size(), 2U);
}

TEST_F(LimitsFrom, PutsTheEntriesIntoAnEmptyChainInReverseOrder)
{
    EXPECT_TRUE(accepts(R"({"wifi_limits": [{"radio_id": "r0", "value": 5}, {"radio_id": "r1", "value": 7}]})"));
    EXPECT_THAT(chain(), ElementsAre(Pair("r1", 7), Pair("r0", 5)));
}

TEST_F(LimitsFrom, PutsTheEntriesInFrontOfThoseThatAreThere)
{
    hold({{.radio_id = "old0", .value = 1}, {.radio_id = "old1", .value = 2}});
    const auto *first_of_old = record().wifi_limits;
    EXPECT_TRUE(accepts(document));
    ASSERT_THAT(chain(), ElementsAre(Pair("r1", 7), Pair("r0", 5), Pair("old0", 1), Pair("old1", 2)));
    EXPECT_EQ(record().wifi_limits->next->next, first_of_old);
}

TEST_F(LimitsFrom, AddsTheEntriesOnceMoreAtEachCall)
{
    EXPECT_TRUE(accepts(document));
    EXPECT_TRUE(accepts(document));
    EXPECT_THAT(chain(), ElementsAre(Pair("r1", 7), Pair("r0", 5), Pair("r1", 7), Pair("r0", 5)));
}

TEST_F(LimitsFrom, EndsAChainOfOneEntry)
{
    EXPECT_TRUE(accepts(document_with(R"([{"radio_id": "r0", "value": 5}])")));
    ASSERT_NE(record().wifi_limits, nullptr);
    EXPECT_EQ(record().wifi_limits->next, nullptr);
    EXPECT_THAT(chain(), ElementsAre(Pair("r0", 5)));
}

TEST_F(LimitsFrom, KeepsTheChainWhenThereIsNoListOrAnEmptyOneOrNone)
{
    for (const std::string &text : {without(document, "wifi_limits"), document_with("[]"), document_with("{}"),
                                    document_with(R"({"radio_id": "r0", "value": 5})"), document_with("null"),
                                    document_with("2"), document_with("true"), document_with(R"("r0")")}) {
        poison();
        EXPECT_TRUE(accepts(text));
        EXPECT_EQ(record().wifi_limits, nullptr) << text;
        EXPECT_EQ(record().filter_url, 17) << text;
        hold({{.radio_id = "old", .value = 1}});
        EXPECT_TRUE(accepts(text));
        EXPECT_THAT(chain(), ElementsAre(Pair("old", 1))) << text;
    }
}

TEST_F(LimitsFrom, ClearsANewEntry)
{
    std::vector<void *> blocks(4096);
    for (void *&block : blocks) {
        block = std::malloc(sizeof(kelmora_limits_wifi_limit));
        std::memset(block, poison_byte, sizeof(kelmora_limits_wifi_limit));
    }
    for (void *block : blocks)
        std::free(block);
    EXPECT_TRUE(accepts(R"({"wifi_limits": [{"radio_id": "r0"}, {"value": 7}, {}]})"));
    EXPECT_THAT(chain(), ElementsAre(Pair("", 0), Pair("", 7), Pair("r0", 0)));
}

TEST_F(LimitsFrom, AddsAClearedEntryForAnElementThatIsNoObject)
{
    hold({{.radio_id = "old", .value = 1}});
    EXPECT_TRUE(accepts(R"({"wifi_limits": [null, 5, "r0", true, [], [{"radio_id": "r0"}]]})"));
    EXPECT_THAT(chain(), ElementsAre(Pair("", 0), Pair("", 0), Pair("", 0), Pair("", 0), Pair("", 0), Pair("", 0),
                                     Pair("old", 1)));
}

TEST_F(LimitsFrom, StoresTheFirstSixCharactersOfALongRadioId)
{
    EXPECT_TRUE(accepts(R"({"wifi_limits": [{"radio_id": "0123456789"}, {"radio_id": "012345"},
                                            {"radio_id": "0123456"}]})"));
    EXPECT_THAT(chain(), ElementsAre(Pair("012345", 0), Pair("012345", 0), Pair("012345", 0)));
}

TEST_F(LimitsFrom, CutsARadioIdInsideACharacter)
{
    EXPECT_TRUE(accepts("{\"wifi_limits\": [{\"radio_id\": \"radio\xC3\xA4\"}]}"));
    EXPECT_THAT(chain(), ElementsAre(Pair("radio\xC3", 0)));
}

TEST_F(LimitsFrom, StoresAnEmptyRadioIdForAValueThatIsNoText)
{
    EXPECT_TRUE(accepts(R"({"wifi_limits": [{"radio_id": 1}, {"radio_id": null}, {"radio_id": true},
                                            {"radio_id": ["r0"]}, {"radio_id": {}}]})"));
    EXPECT_THAT(chain(), ElementsAre(Pair("", 0), Pair("", 0), Pair("", 0), Pair("", 0), Pair("", 0)));
}

TEST_F(LimitsFrom, CutsAValueToItsWidth)
{
    EXPECT_TRUE(accepts(R"({"wifi_limits": [{"value": -1}, {"value": 2147483647}, {"value": 2147483648},
                                            {"value": 4294967301}, {"value": 9223372036854775807}]})"));
    EXPECT_THAT(chain(), ElementsAre(Pair("", -1), Pair("", 5), Pair("", least), Pair("", most), Pair("", -1)));
}

TEST_F(LimitsFrom, StoresZeroForAValueThatIsNoInteger)
{
    EXPECT_TRUE(accepts(R"({"wifi_limits": [{"value": 2.5}, {"value": "7"}, {"value": true}, {"value": null},
                                            {"value": [7]}, {"value": {}}]})"));
    EXPECT_THAT(chain(), ElementsAre(Pair("", 0), Pair("", 0), Pair("", 0), Pair("", 0), Pair("", 0), Pair("", 0)));
}

TEST_F(LimitsFrom, TakesALongList)
{
    std::string list;
    for (int value = 0; value < 1000; ++value)
        list += (value > 0 ? ", {\"value\": " : "{\"value\": ") + std::to_string(value) + "}";
    EXPECT_TRUE(accepts(document_with("[" + list + "]")));
    const auto entries = chain();
    ASSERT_EQ(entries.size(), 1000U);
    EXPECT_EQ(entries.front().second, 999);
    EXPECT_EQ(entries.back().second, 0);
}

TEST_F(LimitsFrom, RequiresNothing)
{
    for (const std::string &text : {std::string("{}"), std::string("[]"), "[" + std::string(document) + "]"}) {
        EXPECT_TRUE(accepts(text));
        EXPECT_TRUE(untouched(record().port_redirect)) << text;
        EXPECT_TRUE(untouched(record().filter_url)) << text;
        EXPECT_THAT(chain(), IsEmpty()) << text;
    }
}

TEST_F(LimitsFrom, KeepsTheKeysThatAreAbsent)
{
    expect_optional("port_redirect", record().port_redirect);
    expect_optional("qos_rules", record().qos_rules);
    expect_optional("static_leases", record().static_leases);
    expect_optional("filter_ip", record().filter_ip);
    expect_optional("filter_mac", record().filter_mac);
    expect_optional("filter_port", record().filter_port);
    expect_optional("filter_url", record().filter_url);
}

TEST_F(LimitsFrom, CutsIntegersToTheirWidth)
{
    expect_integer("port_redirect", record().port_redirect);
    expect_integer("qos_rules", record().qos_rules);
    expect_integer("static_leases", record().static_leases);
    expect_integer("filter_ip", record().filter_ip);
    expect_integer("filter_mac", record().filter_mac);
    expect_integer("filter_port", record().filter_port);
    expect_integer("filter_url", record().filter_url);
}

TEST_F(LimitsFrom, ReportsThatThereIsNoMemoryForAnEntryAndKeepsTheChainWhole)
{
    const std::string text = document_with(R"([{"radio_id": "r0"}, {"radio_id": "r1"}, {"radio_id": "r2"}])");
    // The entries are the last that is allocated in a call.
    allocations::pass();
    kelmora_errorlist errors;
    EXPECT_EQ(limits_from_translator(node_.resource(), text.c_str(), &errors), 1);
    const std::size_t all = allocations::asked_for();

    hold({{.radio_id = "old", .value = 1}});
    allocations::fail(all - 2, Failing::once);
    EXPECT_TRUE(rejects(text, "wifi_limits", "out of memory"));
    EXPECT_THAT(chain(), ElementsAre(Pair("old", 1)));
    EXPECT_EQ(record().port_redirect, 11);
    EXPECT_EQ(record().filter_url, 17);

    hold({{.radio_id = "old", .value = 1}});
    allocations::fail(all - 1, Failing::once);
    EXPECT_TRUE(rejects(text, "wifi_limits", "out of memory"));
    EXPECT_THAT(chain(), ElementsAre(Pair("r0", 0), Pair("old", 1)));

    poison();
    allocations::fail(all, Failing::from_then_on);
    EXPECT_TRUE(rejects(text, "wifi_limits", "out of memory"));
    EXPECT_THAT(chain(), ElementsAre(Pair("r1", 0), Pair("r0", 0)));
}

TEST(Limits, WritesBackTheEntriesInTheReverseOrder)
{
    std::vector<kelmora_host::Node> nodes;
    nodes.emplace_back("0", kelmora_host::Record(kelmora_limits{}));
    EXPECT_EQ(kelmora_host::from_json(limits_from_translator, nodes.front(), document).result, 1);
    EXPECT_EQ(kelmora_host::to_json(limits_to_translator, nodes, false).text,
              "{\n"
              "                \"filter_ip\": 14,\n"
              "                \"filter_mac\": 15,\n"
              "                \"filter_port\": 16,\n"
              "                \"filter_url\": 17,\n"
              "                \"port_redirect\": 11,\n"
              "                \"qos_rules\": 12,\n"
              "                \"static_leases\": 13,\n"
              "                \"wifi_limits\": [\n"
              "                                {\n"
              "                                                \"radio_id\": \"r1\",\n"
              "                                                \"value\": 7\n"
              "                                },\n"
              "                                {\n"
              "                                                \"radio_id\": \"r0\",\n"
              "                                                \"value\": 5\n"
              "                                }\n"
              "                ]\n"
              "}");
}

} // namespace

} // namespace kelmora_test::limits_test
