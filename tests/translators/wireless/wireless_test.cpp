#include "tests/support/from_test.h"
#include "tests/support/to_test.h"

#include "host/plugin/translate.h"

#include "kelmora_json.h"
#include "records/wireless.h"

namespace kelmora_test::wireless_test {

namespace {

using testing::AllOf;
using testing::HasSubstr;
using testing::Not;

constexpr kelmora_wireless sample{
    .mode = 1,
    .enabled = 1,
    .ieee_std = 6,
    .interfaceID = "wlan0",
    .radioID = "radio0",
    .broadcast = 1,
    .ssid = "Nordlicht",
    .bssid = "02:1a:11:f0:3c:01",
    .cipher = 4,
    .crypto = 5,
    .key = "seven herons at dusk",
    .wps = 0,
    .isRoot = 1,
    .client_mode_rssi = -70,
    .guest_network = 0,
};

constexpr char sample_text[] =
    R"({"mode": 1, "enabled": true, "id": "wlan0", "ieee_std": 6, "interfaceID": "wlan0", "radioID": "radio0", )"
    R"("broadcast": true, "ssid": "Nordlicht", "bssid": "02:1a:11:f0:3c:01", "cipher": 4, "crypto": 5, )"
    R"("key": "seven herons at dusk", "wps": false, "isRoot": true, "client_mode_rssi": -70, "guest_network": false})";

class WirelessTo : public ToTest<kelmora_wireless> {
protected:
    WirelessTo() : ToTest(wireless_to_translator) {}
};

TEST_F(WirelessTo, WritesTheKeysInOrder)
{
    add("wlan0", sample);
    EXPECT_EQ(object(), sample_text);
    EXPECT_EQ(list(), "[" + std::string(sample_text) + "]");
}

TEST_F(WirelessTo, GivesEachNodeItsOwnId)
{
    add("first", sample);
    add("second", sample);
    EXPECT_THAT(list(), AllOf(HasSubstr(R"("id": "first")"), HasSubstr(R"("id": "second")")));
    EXPECT_THAT(object(), AllOf(Not(HasSubstr("first")), HasSubstr(R"("id": "second")"))); // the last one's is left
}

TEST_F(WirelessTo, WritesCodesAsUnsignedAndTheThresholdAsSigned)
{
    constexpr std::uint32_t most = 4294967295;
    add("", {.mode = most, .ieee_std = most, .cipher = most, .crypto = most, .client_mode_rssi = -1});
    EXPECT_EQ(object(), R"({"mode": 4294967295, "enabled": false, "id": "", "ieee_std": 4294967295, )"
                        R"("interfaceID": "", "radioID": "", "broadcast": false, "ssid": "", "bssid": "", )"
                        R"("cipher": 4294967295, "crypto": 4294967295, "key": "", "wps": false, "isRoot": false, )"
                        R"("client_mode_rssi": -1, "guest_network": false})");
}

TEST_F(WirelessTo, WritesEachSwitchFromItsOwnField)
{
    expect_switches({{"enabled", &kelmora_wireless::enabled},
                     {"broadcast", &kelmora_wireless::broadcast},
                     {"wps", &kelmora_wireless::wps},
                     {"isRoot", &kelmora_wireless::isRoot},
                     {"guest_network", &kelmora_wireless::guest_network}});
}

TEST_F(WirelessTo, CutsTextsToOneByteLessThanTheirField)
{
    kelmora_wireless &network = add("");
    fill_whole(network.interfaceID, 'i');
    fill_whole(network.radioID, 'r');
    fill_whole(network.ssid, 's');
    fill_whole(network.bssid, 'b');
    fill_whole(network.key, 'k');
    fill_whole(nodes_.front().resource()->id, 'n');
    EXPECT_THAT(object(), AllOf(HasSubstr(R"("interfaceID": ")" + std::string(128, 'i') + '"'),
                                HasSubstr(R"("radioID": ")" + std::string(128, 'r') + '"'),
                                HasSubstr(R"("ssid": ")" + std::string(32, 's') + '"'),
                                HasSubstr(R"("bssid": ")" + std::string(17, 'b') + '"'),
                                HasSubstr(R"("key": ")" + std::string(63, 'k') + '"'),
                                HasSubstr(R"("id": ")" + std::string(128, 'n') + '"')));
}

TEST_F(WirelessTo, LeavesOutATextWhoseCutSplitsACharacter)
{
    kelmora_wireless &network = add("wlan0", sample);
    fill_whole(network.ssid, 's');
    network.ssid[31] = '\xC3'; // the first byte of a two-byte character: the last that is written
    network.ssid[32] = '\xA4';
    EXPECT_THAT(object(), AllOf(Not(HasSubstr("\"ssid\"")), HasSubstr(R"("broadcast": true, "bssid")")));
}

TEST_F(WirelessTo, LeavesOutATextThatIsNotUtf8)
{
    set(add("wlan0", sample).key, "caf\xE9");
    EXPECT_THAT(object(), AllOf(Not(HasSubstr("\"key\"")), HasSubstr(R"("crypto": 5, "wps")")));
}

TEST_F(WirelessTo, WritesOtherScriptsAsTheyAre)
{
    set(add("wlan0", sample).ssid, "Gäste \"5/G\" 北");
    EXPECT_THAT(object(), HasSubstr("\"ssid\": \"Gäste \\\"5/G\\\" 北\""));
}

constexpr char document[] = R"({
    "interfaceID": "wlan1", "radioID": "radio1", "broadcast": true, "ssid": "Seeblick", "cipher": 1, "crypto": 2,
    "mode": 3, "key": "correct horse", "wps": true, "enabled": true, "isRoot": true, "client_mode_rssi": -4,
    "ieee_std": 5, "guest_network": true, "bssid": "never read", "id": "never read"
})";

class WirelessFrom : public FromTest<kelmora_wireless> {
protected:
    WirelessFrom() : FromTest(wireless_from_translator, document) {}
};

TEST_F(WirelessFrom, StoresEveryKey)
{
    EXPECT_TRUE(accepts(document));
    EXPECT_STREQ(record().interfaceID, "wlan1");
    EXPECT_STREQ(record().radioID, "radio1");
    EXPECT_EQ(record().broadcast, 1);
    EXPECT_STREQ(record().ssid, "Seeblick");
    EXPECT_EQ(record().cipher, 1U);
    EXPECT_EQ(record().crypto, 2U);
    EXPECT_EQ(record().mode, 3U);
    EXPECT_STREQ(record().key, "correct horse");
    EXPECT_EQ(record().wps, 1);
    EXPECT_EQ(record().enabled, 1);
    EXPECT_EQ(record().isRoot, 1);
    EXPECT_EQ(record().client_mode_rssi, -4);
    EXPECT_EQ(record().ieee_std, 5U);
    EXPECT_EQ(record().guest_network, 1);
}

TEST_F(WirelessFrom, NeverStoresTheBssid)
{
    EXPECT_TRUE(accepts(document));
    EXPECT_TRUE(untouched(record().bssid));
}

TEST_F(WirelessFrom, AsksForTheRequiredKeysInOrder)
{
    expect_required_in_order({
        {"interfaceID", "interfaceID", "interfaceID field not found"},
        {"radioID", "radioID", "radioID field not found"},
        {"broadcast", "broadcast", "broadcast field not found"},
        {"ssid", "ssid", "ssid field not found"},
        {"cipher", "cipher", "cipher field not found"},
        {"crypto", "crypto", "crypto field not found"},
        {"key", "key", "key field not found"},
        {"wps", "wps", "wps field not found"},
        {"enabled", "enabled", "enabled field not found"},
    });
}

TEST_F(WirelessFrom, SucceedsWithTheRequiredKeysAloneAndKeepsTheRest)
{
    EXPECT_TRUE(accepts(without_all(document, {"mode", "isRoot", "client_mode_rssi", "ieee_std", "guest_network"})));
    EXPECT_TRUE(untouched(record().mode));
    EXPECT_TRUE(untouched(record().isRoot));
    EXPECT_TRUE(untouched(record().client_mode_rssi));
    EXPECT_TRUE(untouched(record().ieee_std));
    EXPECT_TRUE(untouched(record().guest_network));
    EXPECT_STREQ(record().ssid, "Seeblick");
}

TEST_F(WirelessFrom, KeepsTheOptionalKeysThatAreAbsent)
{
    expect_optional("mode", record().mode);
    expect_optional("isRoot", record().isRoot);
    expect_optional("client_mode_rssi", record().client_mode_rssi);
    expect_optional("ieee_std", record().ieee_std);
    expect_optional("guest_network", record().guest_network);
}

TEST_F(WirelessFrom, MissingKeyKeepsTheModeStoredBefore)
{
    EXPECT_TRUE(rejects(without(document, "key"), "key", "key field not found"));
    EXPECT_EQ(record().mode, 3U);
    EXPECT_TRUE(untouched(record().key));
    EXPECT_TRUE(untouched(record().wps));
}

TEST_F(WirelessFrom, MissingCryptoLeavesTheModeBehindItUnread)
{
    EXPECT_TRUE(rejects(without(document, "crypto"), "crypto", "crypto field not found"));
    EXPECT_EQ(record().cipher, 1U);
    EXPECT_TRUE(untouched(record().mode));
}

TEST_F(WirelessFrom, MissingEnabledKeepsEverythingStoredBefore)
{
    EXPECT_TRUE(rejects(without(document, "enabled"), "enabled", "enabled field not found"));
    EXPECT_STREQ(record().interfaceID, "wlan1");
    EXPECT_STREQ(record().key, "correct horse");
    EXPECT_EQ(record().wps, 1);
    EXPECT_TRUE(untouched(record().enabled));
    EXPECT_TRUE(untouched(record().isRoot));
    EXPECT_TRUE(untouched(record().ieee_std));
}

TEST_F(WirelessFrom, TakesOnlyTrueForTrue)
{
    expect_boolean("broadcast", record().broadcast);
    expect_boolean("wps", record().wps);
    expect_boolean("enabled", record().enabled);
    expect_boolean("isRoot", record().isRoot);
    expect_boolean("guest_network", record().guest_network);
}

TEST_F(WirelessFrom, CutsIntegersToTheirWidth)
{
    expect_integer("cipher", record().cipher);
    expect_integer("crypto", record().crypto);
    expect_integer("mode", record().mode);
    expect_integer("ieee_std", record().ieee_std);
    expect_integer("client_mode_rssi", record().client_mode_rssi);
}

TEST_F(WirelessFrom, CutsTextsToTheirField)
{
    expect_string("interfaceID", record().interfaceID);
    expect_string("radioID", record().radioID);
    expect_string("ssid", record().ssid);
    expect_string("key", record().key);
}

TEST_F(WirelessFrom, StoresTheFirst32CharactersOfALongSsid)
{
    EXPECT_TRUE(accepts(with(document, "ssid", R"("0123456789012345678901234567890123456789")")));
    EXPECT_STREQ(record().ssid, "01234567890123456789012345678901");
}

TEST(Wireless, WritesBackTheThresholdAndTheCodesThatWereStored)
{
    kelmora_host::Node node("wlan0", kelmora_host::Record(kelmora_wireless{}));
    const std::string text = with(with(document, "client_mode_rssi", "-70"), "cipher", "4294967295");
    EXPECT_EQ(kelmora_host::from_json(wireless_from_translator, node, text).result, 1);
    std::vector<kelmora_host::Node> nodes{node};
    EXPECT_THAT(kelmora_host::to_json(wireless_to_translator, nodes, false).text,
                AllOf(HasSubstr(R"("client_mode_rssi": -70)"), HasSubstr(R"("cipher": 4294967295)")));
}

} // namespace

} // namespace kelmora_test::wireless_test
