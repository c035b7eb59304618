#include "tests/support/to_test.h"

#include "kelmora_json.h"
#include "records/wan_lan.h"

#include <limits>

namespace kelmora_test::connected_device_test {

namespace {

using testing::AllOf;
using testing::HasSubstr;
using testing::Not;

using Address = kelmora_ip6_address;

constexpr kelmora_connected_device without_ip6{
    .hostname = "Büro/Notebook",
    .ip = "192.168.17.100",
    .mac = "5c:e9:31:0a:77:d2",
    .network = "wlan1",
    .opMode = 2,
    .txRate = 866.5,
    .rxRate = 780.25,
    .txBytes = 48211,
    .rxBytes = 9034,
    .unitySize = 3,
    .time = 14466,
    .signalLevel = -52,
    .isStaticIP = 0,
    .isDMZ = 1,
    .ip6_list = nullptr,
    .ip6_count = 7,
    .frequency = 5,
};

/// A new record each time, as each node owns its chain.
kelmora_connected_device sample()
{
    kelmora_connected_device device = without_ip6;
    device.ip6_list = kelmora_host::make_chain<Address>({
        {.address = "2001:db8:4c:1700::64"},
        {.address = "fe80::5ee9:31ff:fe0a:77d2"},
    });
    return device;
}

constexpr char sample_text[] = R"({
                "frequency": 5,
                "hostname": "B\u00FCro\/Notebook",
                "id": "0",
                "ip": "192.168.17.100",
                "ip6_count": 7,
                "ip6_list": [
                                "2001:db8:4c:1700::64",
                                "fe80::5ee9:31ff:fe0a:77d2"
                ],
                "isDMZ": true,
                "isStaticIP": false,
                "mac": "5c:e9:31:0a:77:d2",
                "network": "wlan1",
                "opMode": 2,
                "rxBytes": 9034,
                "rxRate": 780.25,
                "signalLevel": -52,
                "time": 14466,
                "txBytes": 48211,
                "txRate": 866.5,
                "unitySize": 3
})";

constexpr char both_text[] = R"([
                {
                                "frequency": 5,
                                "hostname": "B\u00FCro\/Notebook",
                                "id": "0",
                                "ip": "192.168.17.100",
                                "ip6_count": 7,
                                "ip6_list": [
                                                "2001:db8:4c:1700::64",
                                                "fe80::5ee9:31ff:fe0a:77d2"
                                ],
                                "isDMZ": true,
                                "isStaticIP": false,
                                "mac": "5c:e9:31:0a:77:d2",
                                "network": "wlan1",
                                "opMode": 2,
                                "rxBytes": 9034,
                                "rxRate": 780.25,
                                "signalLevel": -52,
                                "time": 14466,
                                "txBytes": 48211,
                                "txRate": 866.5,
                                "unitySize": 3
                },
                {
                                "frequency": 0,
                                "hostname": "",
                                "id": "1",
                                "ip": "",
                                "ip6_count": 0,
                                "ip6_list": [],
                                "isDMZ": false,
                                "isStaticIP": false,
                                "mac": "",
                                "network": "",
                                "opMode": 0,
                                "rxBytes": 0,
                                "rxRate": 0.0,
                                "signalLevel": 0,
                                "time": 0,
                                "txBytes": 0,
                                "txRate": 0.0,
                                "unitySize": 0
                }
])";

class ConnectedDeviceTo : public ToTest<kelmora_connected_device> {
protected:
    ConnectedDeviceTo() : ToTest(connected_device_to_translator) {}
};

TEST_F(ConnectedDeviceTo, WritesSortedKeysIndentedAndEscaped)
{
    add("0", sample());
    EXPECT_EQ(object(), sample_text);
    add("1");
    EXPECT_EQ(list(), both_text);
}

TEST_F(ConnectedDeviceTo, WritesTheStoredCountWithoutAddresses)
{
    add("0", without_ip6);
    EXPECT_THAT(object(), HasSubstr("\"ip6_count\": 7,\n                \"ip6_list\": [],\n"));
}

TEST_F(ConnectedDeviceTo, WritesLevelUnitAndCountAsSignedAndTheRestAsUnsigned)
{
    constexpr std::uint32_t most = 4294967295;
    add("0", {.opMode = most,
              .txBytes = most,
              .rxBytes = most,
              .unitySize = -1,
              .time = most,
              .signalLevel = -2147483648,
              .ip6_count = -2,
              .frequency = most});
    EXPECT_THAT(object(), AllOf(HasSubstr("\"opMode\": 4294967295,"), HasSubstr("\"txBytes\": 4294967295,"),
                                HasSubstr("\"rxBytes\": 4294967295,"), HasSubstr("\"unitySize\": -1\n"),
                                HasSubstr("\"time\": 4294967295,"), HasSubstr("\"signalLevel\": -2147483648,"),
                                HasSubstr("\"ip6_count\": -2,"), HasSubstr("\"frequency\": 4294967295,")));
}

TEST_F(ConnectedDeviceTo, LooksAtAllBitsOfItsSwitches)
{
    add("0", {.isStaticIP = 0x80000000, .isDMZ = 0x00000100});
    EXPECT_THAT(object(), AllOf(HasSubstr("\"isStaticIP\": true"), HasSubstr("\"isDMZ\": true")));
    add("1", {.isStaticIP = 2, .isDMZ = 0});
    EXPECT_THAT(object(), AllOf(HasSubstr("\"isStaticIP\": true"), HasSubstr("\"isDMZ\": false")));
}

TEST_F(ConnectedDeviceTo, WritesRatesAsReals)
{
    add("0", {.txRate = 1200, .rxRate = -0.5});
    EXPECT_THAT(object(), AllOf(HasSubstr("\"txRate\": 1200.0,"), HasSubstr("\"rxRate\": -0.5,")));
    add("1", {.txRate = 9.5367431640625e-07, .rxRate = 1267650600228229401496703205376.0});
    EXPECT_THAT(object(),
                AllOf(HasSubstr("\"txRate\": 9.5367431640625e-7,"), HasSubstr("\"rxRate\": 1.2676506002282294e30,")));
}

TEST_F(ConnectedDeviceTo, LeavesOutARateThatIsNotFinite)
{
    constexpr double infinity = std::numeric_limits<double>::infinity();
    constexpr double nan = std::numeric_limits<double>::quiet_NaN();
    for (const double rate : {infinity, -infinity, nan}) {
        nodes_.clear();
        add("0", {.txRate = rate, .rxRate = 1.5});
        EXPECT_THAT(object(), AllOf(Not(HasSubstr("txRate")), HasSubstr("\"rxRate\": 1.5,")));
        nodes_.clear();
        add("0", {.txRate = 2.5, .rxRate = rate});
        EXPECT_THAT(object(), AllOf(Not(HasSubstr("rxRate")), HasSubstr("\"txRate\": 2.5,")));
    }
}

TEST_F(ConnectedDeviceTo, CutsTextsToOneByteLessThanTheirField)
{
    kelmora_connected_device &device = add("0", sample());
    fill_whole(device.hostname, 'h');
    fill_whole(device.ip, 'p');
    fill_whole(device.mac, 'm');
    fill_whole(device.network, 'w');
    fill_whole(device.ip6_list->address, '6');
    fill_whole(nodes_.front().resource()->id, 'n');
    EXPECT_THAT(object(), AllOf(HasSubstr("\"hostname\": \"" + std::string(254, 'h') + '"'),
                                HasSubstr("\"ip\": \"" + std::string(16, 'p') + '"'),
                                HasSubstr("\"mac\": \"" + std::string(17, 'm') + '"'),
                                HasSubstr("\"network\": \"" + std::string(127, 'w') + '"'),
                                HasSubstr(" \"" + std::string(45, '6') + "\",\n"),
                                HasSubstr("\"id\": \"" + std::string(128, 'n') + '"')));
}

TEST_F(ConnectedDeviceTo, LeavesOutTextsThatAreNotUtf8OrWhoseCutSplitsACharacter)
{
    kelmora_connected_device &device = add("0", sample());
    fill_whole(device.hostname, 'h');
    device.hostname[253] = '\xC3'; // the last byte that is written
    device.hostname[254] = '\xBC';
    set(device.ip6_list->address, "\xFF");
    EXPECT_THAT(object(), AllOf(Not(HasSubstr("hostname")),
                                HasSubstr("[\n                                \"fe80::5ee9:31ff:fe0a:77d2\"\n")));
}

TEST_F(ConnectedDeviceTo, WritesTwentyDevicesWithTwentyAddressesIntoALargerBuffer)
{
    for (int i = 0; i < 20; ++i) {
        kelmora_connected_device &device = add("0");
        for (int j = 0; j < 20; ++j) {
            auto *address = kelmora_host::make_chain<Address>({{.address = "2001:db8::1"}});
            address->next = device.ip6_list;
            device.ip6_list = address;
        }
    }
    const std::string text = list();
    std::size_t addresses = 0;
    for (std::size_t at = 0; (at = text.find("\"2001:db8::1\"", at)) != std::string::npos; ++at)
        ++addresses;
    EXPECT_EQ(addresses, 400U);
    EXPECT_THAT(text, testing::EndsWith("\"unitySize\": 0\n                }\n]"));
    EXPECT_EQ(reallocations_, 1U);
}

} // namespace

} // namespace kelmora_test::connected_device_test
