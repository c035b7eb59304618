#include "host/gateway/samples.h"

#include "records/device.h"

namespace kelmora_host {

namespace {

constexpr kelmora_action restart{.actionID = 1};

constexpr kelmora_upgrade_by_file uploaded_file{.file = {0x7F, 0x33, 0x12, 0x00, 0x00, 0x5E, 0x20, 0x00}};

constexpr kelmora_factory_default reset_button{.pressedTime = 10};

constexpr kelmora_backup_restore last_backup{.backup = {0x00, 0x00, 0x00, 0x02, 0x68, 0x4B, 0x11, 0xF0}};

constexpr kelmora_change_to_firmware_version other_firmware{.change = 0, .version = "2.4.1-b318"};

constexpr kelmora_custom_default_config providers_defaults{.enabled = 1};

constexpr kelmora_daily_reboot nightly_reboot{.hour = 4, .minute = 30, .enable = 0, .delay = 1};

constexpr kelmora_automatic_maintenance maintenance_window{.enabled = 1, .hour = 3, .min = 15};

/// The clock of a house at the northern sea, with the zones of its neighbours.
kelmora_datetime house_clock()
{
    return {
        .datetime = 1767268800,
        .timezone = "36",
        .timezone_list = make_chain<kelmora_datetime_timezone>({
            {.id = 35, .region = "Europe/London", .next = nullptr},
            {.id = 36, .region = "Europe/Copenhagen", .next = nullptr},
            {.id = 37, .region = "Europe/Helsinki", .next = nullptr},
        }),
        .synced = 1,
        .dst_enabled = 1,
        .ntp_enabled = 1,
        .ntp_automatic = 0,
        .ntp_server1 = "ntp1.example.net",
        .ntp_server2 = "ntp2.example.net",
    };
}

constexpr kelmora_syslog log_server{
    .enabled = 1,
    .server = "192.168.1.20",
    .port = 514,
    .severity_level = 4,
};

} // namespace

void add_device_maintenance_samples(Gateway &gateway)
{
    gateway.add("action", "0", restart);
    gateway.add("upgrade_by_file", "0", uploaded_file);
    gateway.add("factory_default", "0", reset_button);
    gateway.add("backup_restore", "0", last_backup);
    gateway.add("change_to_firmware_version", "0", other_firmware);
    gateway.add("custom_default_config", "0", providers_defaults);
    gateway.add("daily_reboot", "0", nightly_reboot);
    gateway.add("automatic_maintenance", "0", maintenance_window);
    gateway.add("datetime", "0", house_clock());
    gateway.add("syslog", "0", log_server);
}

} // namespace kelmora_host
