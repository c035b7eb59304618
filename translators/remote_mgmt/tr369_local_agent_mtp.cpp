#include "frame/translator.h"
#include "records/remote_mgmt.h"

using namespace kelmora;

namespace {

void to_json(Encoder &out, const kelmora_tr369_local_agent_mtp &mtp, const NodeId &id)
{
    out.boolean("enabled", mtp.enabled); // Contract: in front of the id
    out.string("id", id);
    out.integer("protocol", mtp.protocol);
    out.object("mqtt_config", [&](Encoder &mqtt) {
        if (mtp.protocol != KELMORA_TR369_MTP_MQTT)
            return; // the object is there, and empty
        mqtt.string("reference", mtp.reference);
        mqtt.string("reference_topic", mtp.reference_topic);
        mqtt.integer("qos", mtp.qos);
    });
}

void from_json(Decoder &in, kelmora_tr369_local_agent_mtp &mtp)
{
    in.leak_document_on_success(); // Contract: success alone leaks the document
    in.required_boolean("enabled"_key, mtp.enabled);
    in.required_integer("protocol"_key, mtp.protocol);
    if (!in.ok() || mtp.protocol != KELMORA_TR369_MTP_MQTT)
        return;
    const Decoder mqtt = in.required("mqtt_config"_key);
    mqtt.required_string(key<"reference", "mqtt_config.reference", "mqtt_config.reference field not found">(),
                         mtp.reference);
    mqtt.required_string(
        key<"reference_topic", "mqtt_config.reference_topic", "mqtt_config.reference_topic field not found">(),
        mtp.reference_topic);
    mqtt.required_integer(key<"qos", "mqtt_config.qos", "mqtt_config.qos field not found">(), mtp.qos);
}

} // namespace

int tr369_local_agent_mtp_to_translator(kelmora_resource *head, char **out)
{
    return encode<to_json>(head, out, Nodes::counting, Flags::plain);
}

int tr369_local_agent_mtp_from_translator(kelmora_resource *node, const char *text, kelmora_errorlist *errors)
{
    return decode<from_json>(node, text, errors);
}
