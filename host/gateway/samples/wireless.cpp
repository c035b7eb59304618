#include "host/gateway/samples.h"

#include "records/wireless.h"

namespace kelmora_host {

namespace {

constexpr kelmora_wireless home_network{
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

constexpr kelmora_wireless home_network_5ghz{
    .mode = 1,
    .enabled = 1,
    .ieee_std = 7,
    .interfaceID = "wlan1",
    .radioID = "radio1",
    .broadcast = 1,
    .ssid = "Nordlicht 5G",
    .bssid = "02:1a:11:f0:3c:02",
    .cipher = 4,
    .crypto = 5,
    .key = "seven herons at dusk",
    .wps = 0,
    .isRoot = 1,
    .client_mode_rssi = -75,
    .guest_network = 0,
};

constexpr kelmora_wireless guest_network{
    .mode = 1,
    .enabled = 0,
    .ieee_std = 6,
    .interfaceID = "wlan0.1",
    .radioID = "radio0",
    .broadcast = 1,
    .ssid = "Nordlicht Gäste",
    .bssid = "02:1a:11:f0:3c:03",
    .cipher = 4,
    .crypto = 4,
    .key = "welcome to our house",
    .wps = 0,
    .isRoot = 1,
    .client_mode_rssi = -80,
    .guest_network = 1,
};

constexpr kelmora_radio radio_2ghz{
    .enabled = 1,
    .opMode = 2,
    .frequency = 1,
    .configuredChannel = 0,
    .channel = 6,
    .extension = 1,
    .bandwidth = 20,
    .mu_mimo = 0,
    .beamforming = 1,
    .ofdma = 1,
    .twt = 0,
    .power = 100,
};

constexpr kelmora_radio radio_5ghz{
    .enabled = 1,
    .opMode = 2,
    .frequency = 2,
    .configuredChannel = 36,
    .channel = 36,
    .extension = 1,
    .bandwidth = 80,
    .mu_mimo = 1,
    .beamforming = 1,
    .ofdma = 1,
    .twt = 1,
    .power = 75,
};

constexpr kelmora_site_survey neighbour{
    .ssid = "Villa Kunterbunt",
    .signal_level = -45,
    .channel = 11,
    .extension = 0,
    .bandwidth = 20,
    .mac = "9c:c7:a6:5e:20:b4",
    .cipher = 4,
    .crypto = 4,
    .op_mode = 1,
};

constexpr kelmora_site_survey cafe{
    .ssid = "Café am Hafen",
    .signal_level = -82,
    .channel = 44,
    .extension = 1,
    .bandwidth = 40,
    .mac = "e0:28:6d:91:07:5a",
    .cipher = 0,
    .crypto = 0,
    .op_mode = 2,
};

constexpr kelmora_site_survey hidden{
    .ssid = "",
    .signal_level = -88,
    .channel = 1,
    .extension = 0,
    .bandwidth = 20,
    .mac = "38:10:d5:0b:f2:e9",
    .cipher = 4,
    .crypto = 5,
    .op_mode = 1,
};

} // namespace

void add_wireless_samples(Gateway &gateway)
{
    gateway.add("wireless", "wlan0", home_network);
    gateway.add("wireless", "wlan1", home_network_5ghz);
    gateway.add("wireless", "wlan0.1", guest_network);

    gateway.add("radio", "radio0", radio_2ghz);
    gateway.add("radio", "radio1", radio_5ghz);

    gateway.add("site_survey", "0", neighbour);
    gateway.add("site_survey", "1", cafe);
    gateway.add("site_survey", "2", hidden);
}

} // namespace kelmora_host
