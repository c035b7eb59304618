#include "host/gateway/samples.h"

#include "records/remote_mgmt.h"

namespace kelmora_host {

namespace {

using Subscription = kelmora_tr369_mqtt_client_subscription;
using Mtp = kelmora_tr369_local_agent_controller_mtp;

kelmora_tr369_mqtt_client provider_client()
{
    return {
        .enabled = 1,
        .brokeraddress = "mqtt.example.net",
        .brokerport = 8883,
        .username = "gateway-00178244",
        .password = "eleven paper cranes",
        .clientID = "os::021A11-00178244",
        .keep_alive_time = 60,
        .protocol_version = 2,
        .transport_protocol = 1,
        .subscription = make_chain<Subscription>({
            {.enabled = 1, .topic = "usp/agent/00178244", .qos = 1, .next = nullptr},
            {.enabled = 0, .topic = "usp/broadcast", .qos = 0, .next = nullptr},
        }),
    };
}

constexpr kelmora_tr369_mqtt_client spare_client{
    .enabled = 0,
    .brokeraddress = "192.0.2.83",
    .brokerport = 1883,
    .username = "",
    .password = "",
    .clientID = "os::021A11-00178244-1",
    .keep_alive_time = 120,
    .protocol_version = 1,
    .transport_protocol = 0,
    .subscription = nullptr,
};

constexpr kelmora_tr369_local_agent_mtp websocket_mtp{
    .enabled = 0,
    .protocol = KELMORA_TR369_MTP_WEBSOCKET,
    .reference = "",
    .reference_topic = "",
    .qos = 0,
};

constexpr kelmora_tr369_local_agent_mtp mqtt_mtp{
    .enabled = 1,
    .protocol = KELMORA_TR369_MTP_MQTT,
    .reference = "Device.MQTT.Client.1",
    .reference_topic = "usp/agent/00178244",
    .qos = 1,
};

kelmora_tr369_local_agent_controller provider()
{
    return {
        .enabled = 1,
        .endpoint_id = "proto::controller.example.net",
        .periodic_notific_interval = 86400,
        .mtp = make_chain<Mtp>({
            {.enabled = 1,
             .protocol = KELMORA_TR369_MTP_WEBSOCKET,
             .variant = {.websocket = {.host = "controller.example.net",
                                       .port = 443,
                                       .path = "/usp",
                                       .encryption = 1,
                                       .keep_alive_interval = 30}},
             .next = nullptr},
            {.enabled = 0,
             .protocol = KELMORA_TR369_MTP_MQTT,
             .variant = {.mqtt = {.reference = "Device.MQTT.Client.1", .reference_topic = "usp/controller"}},
             .next = nullptr},
        }),
    };
}

constexpr kelmora_tr369_local_agent_controller installer{
    .enabled = 0,
    .endpoint_id = "self::installer-tablet",
    .periodic_notific_interval = 0,
    .mtp = nullptr,
};

} // namespace

void add_remote_mgmt_tr369_samples(Gateway &gateway)
{
    gateway.add("tr369_mqtt_client", "0", provider_client());
    gateway.add("tr369_mqtt_client", "1", spare_client);

    gateway.add("tr369_local_agent_mtp", "0", websocket_mtp);
    gateway.add("tr369_local_agent_mtp", "1", mqtt_mtp);

    gateway.add("tr369_local_agent_controller", "0", provider());
    gateway.add("tr369_local_agent_controller", "1", installer);
}

} // namespace kelmora_host
