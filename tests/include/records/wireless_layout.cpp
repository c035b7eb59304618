#include "records/wireless.h"

#include "layout.h"

EXPECT_FIELD(kelmora_wireless, mode, std::uint32_t, 0);
EXPECT_FIELD(kelmora_wireless, enabled, std::uint8_t, 4);
EXPECT_FIELD(kelmora_wireless, ieee_std, std::uint32_t, 8);
EXPECT_FIELD(kelmora_wireless, interfaceID, char[129], 12);
EXPECT_FIELD(kelmora_wireless, radioID, char[129], 141);
EXPECT_FIELD(kelmora_wireless, broadcast, std::uint8_t, 270);
EXPECT_FIELD(kelmora_wireless, ssid, char[33], 271);
EXPECT_FIELD(kelmora_wireless, bssid, char[18], 304);
EXPECT_FIELD(kelmora_wireless, cipher, std::uint32_t, 324);
EXPECT_FIELD(kelmora_wireless, crypto, std::uint32_t, 328);
EXPECT_FIELD(kelmora_wireless, key, char[64], 332);
EXPECT_FIELD(kelmora_wireless, wps, std::uint8_t, 396);
EXPECT_FIELD(kelmora_wireless, isRoot, std::uint8_t, 397);
EXPECT_FIELD(kelmora_wireless, client_mode_rssi, std::int32_t, 400);
EXPECT_FIELD(kelmora_wireless, guest_network, std::uint8_t, 404);
static_assert(sizeof(kelmora_wireless) == 408);

EXPECT_FIELD(kelmora_radio, enabled, std::uint8_t, 0);
EXPECT_FIELD(kelmora_radio, opMode, std::uint32_t, 4);
EXPECT_FIELD(kelmora_radio, frequency, std::uint32_t, 8);
EXPECT_FIELD(kelmora_radio, configuredChannel, std::uint32_t, 12);
EXPECT_FIELD(kelmora_radio, channel, std::uint32_t, 16);
EXPECT_FIELD(kelmora_radio, extension, std::uint32_t, 20);
EXPECT_FIELD(kelmora_radio, bandwidth, std::uint32_t, 24);
EXPECT_FIELD(kelmora_radio, mu_mimo, std::uint8_t, 28);
EXPECT_FIELD(kelmora_radio, beamforming, std::uint8_t, 29);
EXPECT_FIELD(kelmora_radio, ofdma, std::uint8_t, 30);
EXPECT_FIELD(kelmora_radio, twt, std::uint8_t, 31);
EXPECT_FIELD(kelmora_radio, power, std::uint32_t, 32);
static_assert(sizeof(kelmora_radio) == 36);

EXPECT_FIELD(kelmora_site_survey, ssid, char[33], 0);
EXPECT_FIELD(kelmora_site_survey, signal_level, std::int32_t, 36);
EXPECT_FIELD(kelmora_site_survey, channel, std::int32_t, 40);
EXPECT_FIELD(kelmora_site_survey, extension, std::uint32_t, 44);
EXPECT_FIELD(kelmora_site_survey, bandwidth, std::uint32_t, 48);
EXPECT_FIELD(kelmora_site_survey, mac, char[18], 52);
EXPECT_FIELD(kelmora_site_survey, cipher, std::uint32_t, 72);
EXPECT_FIELD(kelmora_site_survey, crypto, std::uint32_t, 76);
EXPECT_FIELD(kelmora_site_survey, op_mode, std::uint32_t, 80);
static_assert(sizeof(kelmora_site_survey) == 84);
