#include "tests/support/from_test.h"
#include "tests/support/to_test.h"

#include "host/plugin/translate.h"

#include "kelmora_json.h"
#include "records/qos.h"

namespace kelmora_test::qos_policy_test {

namespace {

using testing::AllOf;
using testing::HasSubstr;
using testing::Not;

constexpr kelmora_qos_policy sample{
    .enable = 1,
    .queue_mode = 2,
    .queue_config = {{.enable = 1, .weight = 40},
                     {.enable = 0, .weight = 30},
                     {.enable = 1, .weight = 20},
                     {.enable = 0, .weight = 10}},
    .totalbandwidth_enable = 1,
    .totalbandwidth = 250000,
};

constexpr char sample_text[] = "{\n"
                               "                \"bandwidth_config\": {\n"
                               "                                \"totalbandwidth\": 250000,\n"
                               "                                \"totalbandwidth_enable\": true\n"
                               "                },\n"
                               "                \"enable\": true,\n"
                               "                \"id\": \"policy\",\n"
                               "                \"queue_config\": [\n"
                               "                                {\n"
                               "                                                \"enable\": true,\n"
                               "                                                \"weight\": 40\n"
                               "                                },\n"
                               "                                {\n"
                               "                                                \"enable\": false,\n"
                               "                                                \"weight\": 30\n"
                               "                                },\n"
                               "                                {\n"
                               "                                                \"enable\": true,\n"
                               "                                                \"weight\": 20\n"
                               "                                },\n"
                               "                                {\n"
                               "                                                \"enable\": false,\n"
                               "                                                \"weight\": 10\n"
                               "                                }\n"
                               "                ],\n"
                               "                \"queue_mode\": 2\n"
                               "}";

class QosPolicyTo : public ToTest<kelmora_qos_policy> {
protected:
    QosPolicyTo() : ToTest(qos_policy_to_translator) {}
};

TEST_F(QosPolicyTo, WritesSortedKeysIndented)
{
    add("policy", sample);
    EXPECT_EQ(object(), sample_text);
}

TEST_F(QosPolicyTo, WritesAListOfEntriesWithFourQueuesEach)
{
    add("a/ä");
    EXPECT_EQ(list(), "[\n"
                      "                {\n"
                      "                                \"bandwidth_config\": {\n"
                      "                                                \"totalbandwidth\": 0,\n"
                      "                                                \"totalbandwidth_enable\": false\n"
                      "                                },\n"
                      "                                \"enable\": false,\n"
                      "                                \"id\": \"a\\/\\u00E4\",\n"
                      "                                \"queue_config\": [\n"
                      "                                                {\n"
                      "                                                                \"enable\": false,\n"
                      "                                                                \"weight\": 0\n"
                      "                                                },\n"
                      "                                                {\n"
                      "                                                                \"enable\": false,\n"
                      "                                                                \"weight\": 0\n"
                      "                                                },\n"
                      "                                                {\n"
                      "                                                                \"enable\": false,\n"
                      "                                                                \"weight\": 0\n"
                      "                                                },\n"
                      "                                                {\n"
                      "                                                                \"enable\": false,\n"
                      "                                                                \"weight\": 0\n"
                      "                                                }\n"
                      "                                ],\n"
                      "                                \"queue_mode\": 0\n"
                      "                }\n"
                      "]");
}

TEST_F(QosPolicyTo, WritesIntegersAsUnsigned)
{
    kelmora_qos_policy &policy = add("policy", {.queue_mode = 4294967295, .totalbandwidth = 4294967294});
    policy.queue_config[3].weight = 255;
    EXPECT_THAT(object(), AllOf(HasSubstr("\"queue_mode\": 4294967295\n"), HasSubstr("\"totalbandwidth\": 4294967294,"),
                                HasSubstr("\"weight\": 255\n")));
}

TEST_F(QosPolicyTo, WritesEachSwitchFromItsOwnFieldAndAnyButZeroAsTrue)
{
    constexpr char policy_enabled[] = "\n                \"enable\": true";
    constexpr char queue_enabled[] = "                \"enable\": true,\n                                             "
                                     "   \"weight\": 9\n";
    constexpr char total_enabled[] = "\"totalbandwidth_enable\": true";
    kelmora_qos_policy &policy = add("policy", {.enable = 128});
    EXPECT_THAT(object(),
                AllOf(HasSubstr(policy_enabled), Not(HasSubstr(queue_enabled)), Not(HasSubstr(total_enabled))));
    policy = {.totalbandwidth_enable = 2};
    EXPECT_THAT(object(),
                AllOf(Not(HasSubstr(policy_enabled)), Not(HasSubstr(queue_enabled)), HasSubstr(total_enabled)));
    for (auto &queue : policy.queue_config) {
        policy = {};
        queue = {.enable = 255, .weight = 9};
        EXPECT_THAT(object(),
                    AllOf(Not(HasSubstr(policy_enabled)), HasSubstr(queue_enabled), Not(HasSubstr(total_enabled))));
    }
}

constexpr char document[] = R"({
    "enable": true, "queue_mode": 3,
    "queue_config": [
        {"enable": true, "weight": 11}, {"enable": false, "weight": 12}, {"weight": 13, "enable": true},
        {"enable": true, "weight": 14, "name": "never read"}
    ],
    "bandwidth_config": {"totalbandwidth_enable": true, "totalbandwidth": 90000},
    "id": "never read", "totalbandwidth_enable": false, "totalbandwidth": 1, "weight": 2
})";

constexpr char incomplete_queue[] = "missing an object or field with enable and/or weight";
constexpr char incomplete_bandwidth[] = "missing totalbandwidth_enable and/or totalbandwidth field(s)";

/// The document's first queues, and one more element behind them.
std::string queues(std::size_t count, const char *more = nullptr)
{
    std::vector<const char *> elements{R"({"enable": true, "weight": 11})", R"({"enable": false, "weight": 12})",
                                       R"({"enable": true, "weight": 13})", R"({"enable": true, "weight": 14})"};
    elements.resize(count);
    if (more != nullptr)
        elements.push_back(more);
    std::string json = "[";
    for (const char *element : elements)
        json += (json.size() > 1 ? ", " : "") + std::string(element);
    return json + "]";
}

class QosPolicyFrom : public FromTest<kelmora_qos_policy> {
protected:
    QosPolicyFrom() : FromTest(qos_policy_from_translator, document) {}

    /// The first queues are those of the document; none behind them is stored.
    void expect_stored_queues(std::size_t count)
    {
        constexpr kelmora_qos_policy_queue expected[] = {{1, 11}, {0, 12}, {1, 13}, {1, 14}};
        for (std::size_t i = 0; i < 4; ++i) {
            const kelmora_qos_policy_queue &queue = record().queue_config[i];
            if (i < count) {
                EXPECT_EQ(queue.enable, expected[i].enable) << i;
                EXPECT_EQ(queue.weight, expected[i].weight) << i;
            } else {
                EXPECT_TRUE(untouched(queue)) << i;
            }
        }
    }

    void expect_bandwidth_untouched()
    {
        EXPECT_TRUE(untouched(record().totalbandwidth_enable));
        EXPECT_TRUE(untouched(record().totalbandwidth));
    }
};

TEST_F(QosPolicyFrom, StoresEveryKey)
{
    EXPECT_TRUE(accepts(document));
    EXPECT_EQ(record().enable, 1);
    EXPECT_EQ(record().queue_mode, 3U);
    expect_stored_queues(4);
    EXPECT_EQ(record().totalbandwidth_enable, 1);
    EXPECT_EQ(record().totalbandwidth, 90000U);
}

TEST_F(QosPolicyFrom, AsksForTheRequiredKeysInOrder)
{
    // null counts as present for these two alone: for the other two it has no members.
    for (const char *path : {"enable", "queue_mode"})
        EXPECT_TRUE(accepts(with(document, path, "null")));
    EXPECT_TRUE(rejects("{}", "enable", "enable field not found"));
    EXPECT_TRUE(rejects("[" + std::string(document) + "]", "enable", "enable field not found"));
    EXPECT_TRUE(rejects(R"({"enable": null})", "queue_mode", "queue_mode field not found"));
    EXPECT_TRUE(rejects(R"({"enable": true, "queue_mode": 1})", "queue_config", "queue_config field not found"));
    EXPECT_TRUE(rejects(without(document, "bandwidth_config"), "bandwidth_config", "bandwidth_config field not found"));
    EXPECT_TRUE(rejects(without_all(document, {"bandwidth_config", "queue_config", "queue_mode", "enable"}), "enable",
                        "enable field not found"));
    EXPECT_TRUE(rejects(without_all(document, {"bandwidth_config", "queue_config", "queue_mode"}), "queue_mode",
                        "queue_mode field not found"));
    EXPECT_TRUE(rejects(without_all(document, {"bandwidth_config", "queue_config"}), "queue_config",
                        "queue_config field not found"));
}

TEST_F(QosPolicyFrom, MissingKeysKeepWhatWasStoredBefore)
{
    EXPECT_TRUE(rejects(without(document, "enable"), "enable", "enable field not found"));
    EXPECT_TRUE(untouched(record()));
    EXPECT_TRUE(rejects(without(document, "queue_mode"), "queue_mode", "queue_mode field not found"));
    EXPECT_EQ(record().enable, 1);
    EXPECT_TRUE(untouched(record().queue_mode));
    expect_stored_queues(0);
    EXPECT_TRUE(rejects(without(document, "queue_config"), "queue_config", "queue_config field not found"));
    EXPECT_EQ(record().queue_mode, 3U);
    expect_stored_queues(0);
    EXPECT_TRUE(rejects(without(document, "bandwidth_config"), "bandwidth_config", "bandwidth_config field not found"));
    expect_stored_queues(4);
    expect_bandwidth_untouched();
}

TEST_F(QosPolicyFrom, AListThatIsTooShortKeepsTheQueuesThatItHas)
{
    for (std::size_t count = 0; count < 4; ++count) {
        poison();
        EXPECT_TRUE(rejects(with(document, "queue_config", queues(count)), "queue_config", incomplete_queue));
        EXPECT_EQ(record().queue_mode, 3U);
        expect_stored_queues(count);
        expect_bandwidth_untouched();
    }
}

TEST_F(QosPolicyFrom, IgnoresQueuesBehindTheFourth)
{
    for (const char *more : {R"({"enable": false, "weight": 99})", "{}", "null", "1"}) {
        poison();
        EXPECT_TRUE(accepts(with(document, "queue_config", queues(4, more))));
        expect_stored_queues(4);
        EXPECT_EQ(record().totalbandwidth_enable, 1);
        EXPECT_EQ(record().totalbandwidth, 90000U);
    }
}

TEST_F(QosPolicyFrom, AnIncompleteQueueStoresNeitherOfItsMembers)
{
    for (std::size_t count = 0; count < 4; ++count) {
        for (const char *incomplete : {R"({"enable": true})", R"({"weight": 14})", "{}", "null", "true", "14", "\"14\"",
                                       "[]", R"([{"enable": true, "weight": 14}])"}) {
            poison();
            EXPECT_TRUE(
                rejects(with(document, "queue_config", queues(count, incomplete)), "queue_config", incomplete_queue));
            expect_stored_queues(count);
            expect_bandwidth_untouched();
        }
    }
}

TEST_F(QosPolicyFrom, TakesQueuesThatAreNoArrayForMissingOnes)
{
    for (const char *other : {"null", "{}", R"({"enable": true, "weight": 11})", "true", "4", "\"text\"", "1.5"}) {
        poison();
        EXPECT_TRUE(rejects(with(document, "queue_config", other), "queue_config", incomplete_queue));
        EXPECT_EQ(record().queue_mode, 3U);
        expect_stored_queues(0);
    }
}

TEST_F(QosPolicyFrom, AnIncompleteQueueIsReportedBeforeAMissingBandwidth)
{
    EXPECT_TRUE(rejects(without_all(document, {"queue_config.3.weight", "bandwidth_config"}), "queue_config",
                        incomplete_queue));
}

TEST_F(QosPolicyFrom, AnIncompleteBandwidthStoresNeitherOfItsMembers)
{
    for (const char *member : {"bandwidth_config.totalbandwidth_enable", "bandwidth_config.totalbandwidth"}) {
        poison();
        EXPECT_TRUE(rejects(without(document, member), "bandwidth_config", incomplete_bandwidth));
        expect_stored_queues(4);
        expect_bandwidth_untouched();
    }
    for (const char *other : {"{}", "null", "true", "90000", "\"90000\"", "[]",
                              R"([{"totalbandwidth_enable": true, "totalbandwidth": 90000}])"}) {
        poison();
        EXPECT_TRUE(rejects(with(document, "bandwidth_config", other), "bandwidth_config", incomplete_bandwidth));
        expect_stored_queues(4);
        expect_bandwidth_untouched();
    }
}

TEST_F(QosPolicyFrom, TakesOnlyTrueForTrue)
{
    expect_boolean("enable", record().enable);
    for (int i = 0; i < 4; ++i)
        expect_boolean("queue_config." + std::to_string(i) + ".enable", record().queue_config[i].enable);
    expect_boolean("bandwidth_config.totalbandwidth_enable", record().totalbandwidth_enable);
}

TEST_F(QosPolicyFrom, CutsIntegersToTheirWidth)
{
    expect_integer("queue_mode", record().queue_mode);
    for (int i = 0; i < 4; ++i)
        expect_integer("queue_config." + std::to_string(i) + ".weight", record().queue_config[i].weight);
    expect_integer("bandwidth_config.totalbandwidth", record().totalbandwidth);
}

TEST(QosPolicy, WritesBackTheLow8BitsOfAWeight)
{
    std::vector<kelmora_host::Node> nodes;
    nodes.emplace_back("policy", kelmora_host::Record(kelmora_qos_policy{}));
    const std::string text = with(document, "queue_config.1.weight", "300");
    EXPECT_EQ(kelmora_host::from_json(qos_policy_from_translator, nodes.front(), text).result, 1);
    EXPECT_THAT(kelmora_host::to_json(qos_policy_to_translator, nodes, false).text, HasSubstr("\"weight\": 44\n"));
}

TEST(QosPolicy, TakesBackWhatItWrote)
{
    std::vector<kelmora_host::Node> nodes;
    nodes.emplace_back("policy", kelmora_host::Record(kelmora_qos_policy{}));
    EXPECT_EQ(kelmora_host::from_json(qos_policy_from_translator, nodes.front(), sample_text).result, 1);
    EXPECT_EQ(kelmora_host::to_json(qos_policy_to_translator, nodes, false).text, sample_text);
}

} // namespace

} // namespace kelmora_test::qos_policy_test
