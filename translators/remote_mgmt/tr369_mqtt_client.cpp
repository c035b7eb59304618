#include "frame/translator.h"
#include "records/remote_mgmt.h"

using namespace kelmora;

namespace {

void to_json(Encoder &out, const kelmora_tr369_mqtt_client &client, const NodeId &id)
{
    out.string("id", id);
    out.boolean("enabled", client.enabled);
    out.string("brokeraddress", client.brokeraddress);
    out.integer("brokerport", client.brokerport);
    out.string("username", client.username);
    out.string("password", client.password);
    out.string("clientID", client.clientID);
    out.integer("keep_alive_time", client.keep_alive_time);
    out.integer("protocol_version", client.protocol_version);
    out.integer("transport_protocol", client.transport_protocol);
    out.array("subscription", [&](ArrayEncoder &list) {
        for (const auto &subscription : chain(client.subscription)) {
            list.object([&](Encoder &entry) {
                entry.boolean("enabled", subscription.enabled);
                entry.string("topic", subscription.topic);
                entry.integer("qos", subscription.qos);
            });
        }
    });
}

void from_json(Decoder &in, kelmora_tr369_mqtt_client &client)
{
    in.required_boolean("enabled"_key, client.enabled);
    in.required_string("brokeraddress"_key, client.brokeraddress);
    in.required_integer("brokerport"_key, client.brokerport);
    in.required_string("username"_key, client.username);
    in.required_string("password"_key, client.password);
    in.required_string("clientID"_key, client.clientID);
    in.required_integer("keep_alive_time"_key, client.keep_alive_time);
    in.required_integer("protocol_version"_key, client.protocol_version);
    in.required_integer("transport_protocol"_key, client.transport_protocol);
    kelmora_tr369_mqtt_client_subscription subscription{}; // the host copies it
    for (const Decoder element : in.required_array("subscription"_key)) {
        element.required_boolean(key<"enabled", "subscription", "no enabled field">(), subscription.enabled);
        element.required_string(key<"topic", "subscription", "no topic field">(), subscription.topic);
        element.required_integer(key<"qos", "subscription", "no qos field">(), subscription.qos);
        if (in.ok())
            kelmora_tr369_mqttt_client_subscription_add_element(&client, &subscription, 0, in.errors());
    }
}

} // namespace

int tr369_mqtt_client_to_translator(kelmora_resource *head, char **out)
{
    return encode<to_json>(head, out, Nodes::counting, Flags::plain);
}

int tr369_mqtt_client_from_translator(kelmora_resource *node, const char *text, kelmora_errorlist *errors)
{
    return decode<from_json>(node, text, errors);
}
