#include "tests/support/from_test.h"
#include "tests/support/to_test.h"

#include "kelmora_json.h"
#include "records/wan_lan.h"

namespace kelmora_test::interface_statistics_test {

namespace {

using testing::HasSubstr;

constexpr kelmora_interface_statistics sample{
    .interfaceID = "eth0",
    .tx = 184233,
    .rx = 1920557,
    .unity_size = 1,
    .time = 357119,
};

constexpr char sample_text[] =
    R"({"id": "0", "interfaceID": "eth0", "tx": 184233, "rx": 1920557, "unity_size": 1, "time": 357119})";

constexpr char other_text[] =
    R"({"id": "1", "interfaceID": "", "tx": 4294967295, "rx": 4294967295, "unity_size": -1, "time": 4294967295})";

constexpr kelmora_interface_statistics other{
    .tx = 4294967295,
    .rx = 4294967295,
    .unity_size = -1,
    .time = 4294967295,
};

class InterfaceStatisticsTo : public ToTest<kelmora_interface_statistics> {
protected:
    InterfaceStatisticsTo() : ToTest(interface_statistics_to_translator) {}
};

TEST_F(InterfaceStatisticsTo, WritesTheKeysInOrder)
{
    add("0", sample);
    EXPECT_EQ(object(), sample_text);
    EXPECT_EQ(list(), "[" + std::string(sample_text) + "]");
}

TEST_F(InterfaceStatisticsTo, WritesTheUnitAsSignedAndTheRestAsUnsigned)
{
    add("1", other);
    EXPECT_EQ(object(), other_text);
    add("0", {.unity_size = -2147483648});
    EXPECT_THAT(object(), HasSubstr(R"("unity_size": -2147483648)"));
}

TEST_F(InterfaceStatisticsTo, CutsTextsToOneByteLessThanTheirField)
{
    fill_whole(add("0", sample).interfaceID, 'i');
    fill_whole(nodes_.front().resource()->id, 'n');
    EXPECT_EQ(object(), R"({"id": ")" + std::string(128, 'n') + R"(", "interfaceID": ")" + std::string(127, 'i') +
                            R"(", "tx": 184233, "rx": 1920557, "unity_size": 1, "time": 357119})");
}

TEST_F(InterfaceStatisticsTo, LeavesOutATextWhoseCutSplitsACharacter)
{
    kelmora_interface_statistics &statistics = add("0", sample);
    fill_whole(statistics.interfaceID, 'i');
    statistics.interfaceID[126] = '\xC3'; // the last byte that is written
    statistics.interfaceID[127] = '\xA4';
    EXPECT_THAT(object(), HasSubstr(R"("id": "0", "tx")"));
}

TEST_F(InterfaceStatisticsTo, WritesOtherScriptsAndSlashesAsTheyAre)
{
    set(add("0", sample).interfaceID, "Büro/\"2\"");
    EXPECT_THAT(object(), HasSubstr("\"interfaceID\": \"Büro/\\\"2\\\"\""));
}

constexpr char document[] = R"({
    "id": "never read", "time": 60, "unity_size": 2, "rx": 64000.0, "tx": 1500.0, "interfaceID": "eth1"
})";

class InterfaceStatisticsFrom : public FromTest<kelmora_interface_statistics> {
protected:
    InterfaceStatisticsFrom() : FromTest(interface_statistics_from_translator, document) {}

    /// The real, saturated; 0 for every other type.
    void expect_counter(const std::string &path, const std::uint32_t &field)
    {
        for (const auto &[json, expected] : std::vector<std::pair<std::string, std::uint32_t>>{
                 {"0.0", 0},
                 {"-0.0", 0},
                 {"1.0", 1},
                 {"1.999", 1},
                 {"0.999", 0},
                 {"-0.999", 0},
                 {"2147483647.0", 2147483647},
                 {"2147483647.5", 2147483647},
                 {"2147483648.0", 2147483648},
                 {"4294967294.75", 4294967294},
                 {"4294967295.0", 4294967295},
                 {"4294967295.5", 4294967295},
                 {"4294967296.0", 4294967295},
                 {"4294967301.0", 4294967295},
                 {"1e300", 4294967295},
                 {"1.5e3", 1500},
                 {"-1.0", 4294967295},
                 {"-1.9", 4294967295},
                 {"-2.0", 4294967294},
                 {"-2147483647.0", 2147483649},
                 {"-2147483648.0", 2147483648},
                 {"-2147483649.0", 2147483648},
                 {"-4294967296.0", 2147483648},
                 {"-1e300", 2147483648},
                 {"0", 0},
                 {"100", 0},
                 {"4294967295", 0},
                 {"-1", 0},
                 {"9223372036854775807", 0},
                 {"true", 0},
                 {"false", 0},
                 {"null", 0},
                 {"\"5.0\"", 0},
                 {"{}", 0},
                 {"[5.0]", 0},
             }) {
            poison();
            EXPECT_TRUE(accepts(with(document, path, json)));
            EXPECT_EQ(field, expected) << path << ": " << json;
        }
    }
};

TEST_F(InterfaceStatisticsFrom, StoresEveryKey)
{
    EXPECT_TRUE(accepts(document));
    EXPECT_STREQ(record().interfaceID, "eth1");
    EXPECT_EQ(record().tx, 1500U);
    EXPECT_EQ(record().rx, 64000U);
    EXPECT_EQ(record().unity_size, 2);
    EXPECT_EQ(record().time, 60U);
}

TEST_F(InterfaceStatisticsFrom, AsksForTheRequiredKeysInOrder)
{
    expect_required_in_order({
        {"interfaceID", "interfaceID", "interfaceID field not found"},
        {"tx", "tx", "tx field not found"},
        {"rx", "rx", "rx field not found"},
        {"unity_size", "unity_size", "unity_size field not found"},
        {"time", "time", "time field not found"},
    });
}

TEST_F(InterfaceStatisticsFrom, StoresZeroForAnIntegerCounterAndTheRealOne)
{
    EXPECT_TRUE(accepts(with(with(document, "tx", "100"), "rx", "200.0")));
    EXPECT_EQ(record().tx, 0U);
    EXPECT_EQ(record().rx, 200U);
}

TEST_F(InterfaceStatisticsFrom, ReadsCountersAsRealsAlone)
{
    expect_counter("tx", record().tx);
    expect_counter("rx", record().rx);
}

TEST_F(InterfaceStatisticsFrom, RejectsARealThatNoDoubleHolds)
{
    EXPECT_TRUE(rejects(R"({"interfaceID": "eth1", "tx": 1e400, "rx": 1.0, "unity_size": 1, "time": 1})", "",
                        "invalid json data"));
    EXPECT_TRUE(untouched(record()));
}

TEST_F(InterfaceStatisticsFrom, MissingInterfaceStoresNothing)
{
    EXPECT_TRUE(rejects(without(document, "interfaceID"), "interfaceID", "interfaceID field not found"));
    EXPECT_TRUE(untouched(record()));
}

TEST_F(InterfaceStatisticsFrom, MissingTxStoresNoCounter)
{
    EXPECT_TRUE(rejects(without(document, "tx"), "tx", "tx field not found"));
    EXPECT_STREQ(record().interfaceID, "eth1");
    EXPECT_TRUE(untouched(record().tx));
    EXPECT_TRUE(untouched(record().rx));
    EXPECT_TRUE(untouched(record().unity_size));
    EXPECT_TRUE(untouched(record().time));
}

TEST_F(InterfaceStatisticsFrom, MissingRxKeepsTheTxStoredBefore)
{
    EXPECT_TRUE(rejects(without(document, "rx"), "rx", "rx field not found"));
    EXPECT_EQ(record().tx, 1500U);
    EXPECT_TRUE(untouched(record().rx));
    EXPECT_TRUE(untouched(record().unity_size));
}

TEST_F(InterfaceStatisticsFrom, MissingTimeKeepsEverythingStoredBefore)
{
    EXPECT_TRUE(rejects(without(document, "time"), "time", "time field not found"));
    EXPECT_STREQ(record().interfaceID, "eth1");
    EXPECT_EQ(record().tx, 1500U);
    EXPECT_EQ(record().rx, 64000U);
    EXPECT_EQ(record().unity_size, 2);
    EXPECT_TRUE(untouched(record().time));
}

TEST_F(InterfaceStatisticsFrom, CutsIntegersToTheirWidth)
{
    expect_integer("unity_size", record().unity_size);
    expect_integer("time", record().time);
}

TEST_F(InterfaceStatisticsFrom, CutsTextsToTheirField) { expect_string("interfaceID", record().interfaceID); }

} // namespace

} // namespace kelmora_test::interface_statistics_test
