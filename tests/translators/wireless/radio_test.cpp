#include "tests/support/from_test.h"
#include "tests/support/to_test.h"

#include "kelmora_json.h"
#include "records/wireless.h"

namespace kelmora_test::radio_test {

namespace {

constexpr kelmora_radio sample{
    .enabled = 1,
    .opMode = 2,
    .frequency = 3,
    .configuredChannel = 0,
    .channel = 36,
    .extension = 4,
    .bandwidth = 80,
    .mu_mimo = 0,
    .beamforming = 1,
    .ofdma = 0,
    .twt = 1,
    .power = 100,
};

constexpr char sample_text[] =
    R"({"id": "radio0", "enabled": true, "opMode": 2, "frequency": 3, "configuredChannel": 0, "channel": 36, )"
    R"("extension": 4, "bandwidth": 80, "mu_mimo": false, "beamforming": true, "ofdma": false, "twt": true, )"
    R"("power": 100})";

class RadioTo : public ToTest<kelmora_radio> {
protected:
    RadioTo() : ToTest(radio_to_translator) {}
};

TEST_F(RadioTo, WritesTheKeysInOrder)
{
    add("radio0", sample);
    EXPECT_EQ(object(), sample_text);
    EXPECT_EQ(list(), "[" + std::string(sample_text) + "]");
}

TEST_F(RadioTo, WritesIntegersAsUnsigned)
{
    constexpr std::uint32_t most = 4294967295;
    add("", {.opMode = most,
             .frequency = most,
             .configuredChannel = most,
             .channel = most,
             .extension = most,
             .bandwidth = most,
             .power = most});
    EXPECT_EQ(object(),
              R"({"id": "", "enabled": false, "opMode": 4294967295, "frequency": 4294967295, )"
              R"("configuredChannel": 4294967295, "channel": 4294967295, "extension": 4294967295, )"
              R"("bandwidth": 4294967295, "mu_mimo": false, "beamforming": false, "ofdma": false, "twt": false, )"
              R"("power": 4294967295})");
}

TEST_F(RadioTo, WritesEachSwitchFromItsOwnField)
{
    expect_switches({{"enabled", &kelmora_radio::enabled},
                     {"mu_mimo", &kelmora_radio::mu_mimo},
                     {"beamforming", &kelmora_radio::beamforming},
                     {"ofdma", &kelmora_radio::ofdma},
                     {"twt", &kelmora_radio::twt}});
}

constexpr char document[] = R"({
    "id": "never read", "enabled": true, "opMode": 1, "frequency": 2, "configuredChannel": 3, "channel": 4,
    "extension": 5, "bandwidth": 6, "mu_mimo": true, "beamforming": true, "ofdma": true, "twt": true, "power": 7
})";

class RadioFrom : public FromTest<kelmora_radio> {
protected:
    RadioFrom() : FromTest(radio_from_translator, document) {}
};

TEST_F(RadioFrom, StoresEveryKey)
{
    EXPECT_TRUE(accepts(document));
    EXPECT_EQ(record().enabled, 1);
    EXPECT_EQ(record().opMode, 1U);
    EXPECT_EQ(record().frequency, 2U);
    EXPECT_EQ(record().configuredChannel, 3U);
    EXPECT_EQ(record().channel, 4U);
    EXPECT_EQ(record().extension, 5U);
    EXPECT_EQ(record().bandwidth, 6U);
    EXPECT_EQ(record().mu_mimo, 1);
    EXPECT_EQ(record().beamforming, 1);
    EXPECT_EQ(record().ofdma, 1);
    EXPECT_EQ(record().twt, 1);
    EXPECT_EQ(record().power, 7U);
}

TEST_F(RadioFrom, AsksForTheRequiredKeysInOrder)
{
    expect_required_in_order({
        {"enabled", "enabled", "enabled field not found"},
        {"opMode", "opMode", "opMode field not found"},
        {"frequency", "frequency", "frequency field not found"},
        {"configuredChannel", "configuredChannel", "configuredChannel field not found"},
        {"channel", "channel", "channel field not found"},
        {"extension", "extension", "extension field not found"},
        {"bandwidth", "bandwidth", "bandwidth field not found"},
        {"power", "power", "power field not found"},
    });
}

TEST_F(RadioFrom, KeepsTheFeaturesThatAreAbsent)
{
    expect_optional("mu_mimo", record().mu_mimo);
    expect_optional("beamforming", record().beamforming);
    expect_optional("ofdma", record().ofdma);
    expect_optional("twt", record().twt);
}

TEST_F(RadioFrom, MissingPowerKeepsTheFeaturesStoredBefore)
{
    EXPECT_TRUE(rejects(without(document, "power"), "power", "power field not found"));
    EXPECT_EQ(record().bandwidth, 6U);
    EXPECT_EQ(record().mu_mimo, 1);
    EXPECT_EQ(record().beamforming, 1);
    EXPECT_EQ(record().ofdma, 1);
    EXPECT_EQ(record().twt, 1);
    EXPECT_TRUE(untouched(record().power));
}

TEST_F(RadioFrom, MissingBandwidthStoresNothingBehindIt)
{
    EXPECT_TRUE(rejects(without(document, "bandwidth"), "bandwidth", "bandwidth field not found"));
    EXPECT_EQ(record().extension, 5U);
    EXPECT_TRUE(untouched(record().bandwidth));
    EXPECT_TRUE(untouched(record().mu_mimo));
    EXPECT_TRUE(untouched(record().twt));
    EXPECT_TRUE(untouched(record().power));
}

TEST_F(RadioFrom, TakesOnlyTrueForTrue)
{
    expect_boolean("enabled", record().enabled);
    expect_boolean("mu_mimo", record().mu_mimo);
    expect_boolean("beamforming", record().beamforming);
    expect_boolean("ofdma", record().ofdma);
    expect_boolean("twt", record().twt);
}

TEST_F(RadioFrom, CutsIntegersToTheirWidth)
{
    expect_integer("opMode", record().opMode);
    expect_integer("frequency", record().frequency);
    expect_integer("configuredChannel", record().configuredChannel);
    expect_integer("channel", record().channel);
    expect_integer("extension", record().extension);
    expect_integer("bandwidth", record().bandwidth);
    expect_integer("power", record().power);
}

} // namespace

} // namespace kelmora_test::radio_test
