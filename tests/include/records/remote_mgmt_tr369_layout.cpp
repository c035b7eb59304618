#include "records/remote_mgmt.h"

#include "layout.h"

using Subscription = kelmora_tr369_mqtt_client_subscription;
EXPECT_FIELD(Subscription, enabled, std::uint8_t, 0);
EXPECT_FIELD(Subscription, topic, char[256], 1);
EXPECT_FIELD(Subscription, qos, std::uint32_t, 260);
EXPECT_FIELD(Subscription, next, Subscription *, 264);
static_assert(sizeof(Subscription) == (is_64_bit ? 272 : 268));

EXPECT_FIELD(kelmora_tr369_mqtt_client, enabled, std::uint8_t, 0);
EXPECT_FIELD(kelmora_tr369_mqtt_client, brokeraddress, char[256], 1);
EXPECT_FIELD(kelmora_tr369_mqtt_client, brokerport, std::int32_t, 260);
EXPECT_FIELD(kelmora_tr369_mqtt_client, username, char[256], 264);
EXPECT_FIELD(kelmora_tr369_mqtt_client, password, char[256], 520);
EXPECT_FIELD(kelmora_tr369_mqtt_client, clientID, char[256], 776);
EXPECT_FIELD(kelmora_tr369_mqtt_client, keep_alive_time, std::int32_t, 1032);
EXPECT_FIELD(kelmora_tr369_mqtt_client, protocol_version, std::uint32_t, 1036);
EXPECT_FIELD(kelmora_tr369_mqtt_client, transport_protocol, std::uint32_t, 1040);
EXPECT_FIELD(kelmora_tr369_mqtt_client, subscription, Subscription *, is_64_bit ? 1048 : 1044);
static_assert(sizeof(kelmora_tr369_mqtt_client) == (is_64_bit ? 1056 : 1048));

EXPECT_FIELD(kelmora_tr369_local_agent_mtp, enabled, std::uint8_t, 0);
EXPECT_FIELD(kelmora_tr369_local_agent_mtp, protocol, std::uint32_t, 4);
EXPECT_FIELD(kelmora_tr369_local_agent_mtp, reference, char[128], 8);
EXPECT_FIELD(kelmora_tr369_local_agent_mtp, reference_topic, char[257], 136);
EXPECT_FIELD(kelmora_tr369_local_agent_mtp, qos, std::uint32_t, 396);
static_assert(sizeof(kelmora_tr369_local_agent_mtp) == 400);

using Websocket = kelmora_tr369_local_agent_controller_websocket;
EXPECT_FIELD(Websocket, host, char[256], 0);
EXPECT_FIELD(Websocket, port, std::int32_t, 256);
EXPECT_FIELD(Websocket, path, char[256], 260);
EXPECT_FIELD(Websocket, encryption, std::uint8_t, 516);
EXPECT_FIELD(Websocket, keep_alive_interval, std::int32_t, 520);
static_assert(sizeof(Websocket) == 524);

using Mqtt = kelmora_tr369_local_agent_controller_mqtt;
EXPECT_FIELD(Mqtt, reference, char[128], 0);
EXPECT_FIELD(Mqtt, reference_topic, char[256], 128);
static_assert(sizeof(Mqtt) == 384);

using Mtp = kelmora_tr369_local_agent_controller_mtp;
EXPECT_FIELD(Mtp, enabled, std::uint8_t, 0);
EXPECT_FIELD(Mtp, protocol, std::uint32_t, 4);
EXPECT_FIELD(Mtp, variant.websocket, Websocket, 8);
EXPECT_FIELD(Mtp, variant.mqtt, Mqtt, 8);
EXPECT_FIELD(Mtp, next, Mtp *, is_64_bit ? 536 : 532);
static_assert(sizeof(Mtp) == (is_64_bit ? 544 : 536));

EXPECT_FIELD(kelmora_tr369_local_agent_controller, enabled, std::uint8_t, 0);
EXPECT_FIELD(kelmora_tr369_local_agent_controller, endpoint_id, char[256], 1);
EXPECT_FIELD(kelmora_tr369_local_agent_controller, periodic_notific_interval, std::int32_t, 260);
EXPECT_FIELD(kelmora_tr369_local_agent_controller, mtp, Mtp *, 264);
static_assert(sizeof(kelmora_tr369_local_agent_controller) == (is_64_bit ? 272 : 268));
