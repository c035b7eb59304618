#include "frame/translator.h"
#include "records/remote_mgmt.h"

using namespace kelmora;

namespace {

using Mtp = kelmora_tr369_local_agent_controller_mtp;
using Websocket = kelmora_tr369_local_agent_controller_websocket;
using Mqtt = kelmora_tr369_local_agent_controller_mqtt;

void websocket_to_json(Encoder &out, const Websocket &websocket)
{
    out.string("host", websocket.host);
    out.integer("port", websocket.port);
    out.string("path", websocket.path);
    out.boolean("encryption", websocket.encryption);
    out.integer("keep_alive_interval", websocket.keep_alive_interval);
}

void mqtt_to_json(Encoder &out, const Mqtt &mqtt)
{
    out.string("reference", mqtt.reference);
    out.string("reference_topic", mqtt.reference_topic);
}

void mtp_to_json(Encoder &out, const Mtp &mtp)
{
    out.boolean("enabled", mtp.enabled);
    out.integer("protocol", mtp.protocol);
    if (mtp.protocol == KELMORA_TR369_MTP_WEBSOCKET)
        out.object("websocket", [&](Encoder &websocket) { websocket_to_json(websocket, mtp.variant.websocket); });
    else if (mtp.protocol == KELMORA_TR369_MTP_MQTT)
        out.object("mqtt", [&](Encoder &mqtt) { mqtt_to_json(mqtt, mtp.variant.mqtt); });
}

void to_json(Encoder &out, const kelmora_tr369_local_agent_controller &controller, const NodeId &id)
{
    out.string("id", id);
    out.boolean("enabled", controller.enabled);
    out.string("endpoint_id", controller.endpoint_id);
    out.integer("periodic_notific_interval", controller.periodic_notific_interval);
    out.array("mtp", [&](ArrayEncoder &list) {
        for (const auto &mtp : chain(controller.mtp))
            list.object([&](Encoder &entry) { mtp_to_json(entry, mtp); });
    });
}

void websocket_from_json(const Decoder &in, Websocket &websocket)
{
    in.required_string(key<"host", "mtp.websocket.host", "missing host field">(), websocket.host);
    in.required_integer(key<"port", "mtp.websocket.port", "missing port field">(), websocket.port);
    // Contract: reported under the whole object.
    in.required_string(key<"path", "mtp.websocket", "missing path field">(), websocket.path);
    in.required_boolean(key<"encryption", "mtp.websocket.encryption", "missing encryption field">(),
                        websocket.encryption);
    in.required_integer(
        key<"keep_alive_interval", "mtp.websocket.keep_alive_interval", "missing keep_alive_interval field">(),
        websocket.keep_alive_interval);
}

void mqtt_from_json(const Decoder &in, Mqtt &mqtt)
{
    in.required_string(key<"reference", "mtp.mqtt", "missing reference field">(), mqtt.reference);
    in.required_string(key<"reference_topic", "mtp.mqtt", "missing reference_topic field">(), mqtt.reference_topic);
}

void mtp_from_json(const Decoder &in, Mtp &mtp)
{
    in.required_boolean(key<"enabled", "mtp", "missing enabled field">(), mtp.enabled);
    in.required_integer(key<"protocol", "mtp", "missing protocol field">(), mtp.protocol);
    if (!in.ok())
        return;
    if (mtp.protocol == KELMORA_TR369_MTP_WEBSOCKET)
        websocket_from_json(in.optional("websocket"), mtp.variant.websocket);
    else if (mtp.protocol == KELMORA_TR369_MTP_MQTT)
        mqtt_from_json(in.optional("mqtt"), mtp.variant.mqtt);
    else // reported, and the entry is added all the same
        kelmora_errorlist_add_error(in.errors(), "mtp.protocol", "invalid protocol", "json");
}

void from_json(Decoder &in, kelmora_tr369_local_agent_controller &controller)
{
    in.required_boolean("enabled"_key, controller.enabled);
    in.required_string("endpoint_id"_key, controller.endpoint_id);
    in.required_integer("periodic_notific_interval"_key, controller.periodic_notific_interval);
    Mtp mtp{}; // one for all elements: what an element does not set stays as the one before left it
    for (const Decoder element : in.required_array("mtp"_key)) {
        mtp_from_json(element, mtp);
        if (in.ok())
            kelmora_tr369_local_agent_controller_mtp_add(&controller, &mtp, 0, in.errors());
    }
}

} // namespace

int tr369_local_agent_controller_to_translator(kelmora_resource *head, char **out)
{
    return encode<to_json>(head, out, Nodes::counting, Flags::plain);
}

int tr369_local_agent_controller_from_translator(kelmora_resource *node, const char *text, kelmora_errorlist *errors)
{
    return decode<from_json>(node, text, errors);
}
