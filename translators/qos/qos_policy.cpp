#include "frame/translator.h"
#include "records/qos.h"

#include <cstddef>

using namespace kelmora;

namespace {

void to_json(Encoder &out, const kelmora_qos_policy &policy, const NodeId &id)
{
    out.string("id", id);
    out.boolean("enable", policy.enable);
    out.integer("queue_mode", policy.queue_mode);
    out.array("queue_config", [&](ArrayEncoder &list) {
        for (const auto &queue : policy.queue_config) {
            list.object([&](Encoder &entry) {
                entry.boolean("enable", queue.enable);
                entry.integer("weight", queue.weight);
            });
        }
    });
    out.object("bandwidth_config", [&](Encoder &bandwidth) {
        bandwidth.boolean("totalbandwidth_enable", policy.totalbandwidth_enable);
        bandwidth.integer("totalbandwidth", policy.totalbandwidth);
    });
}

/// A member of a queue.
template <FixedString name> constexpr Key queue_key()
{
    return key<name, "queue_config", "missing an object or field with enable and/or weight">();
}

/// A member of bandwidth_config.
template <FixedString name> constexpr Key bandwidth_key()
{
    return key<name, "bandwidth_config", "missing totalbandwidth_enable and/or totalbandwidth field(s)">();
}

void from_json(Decoder &in, kelmora_qos_policy &policy)
{
    in.required_boolean("enable"_key, policy.enable);
    in.required_integer("queue_mode"_key, policy.queue_mode);
    const ArrayDecoder queues = in.required_array("queue_config"_key);
    std::size_t i = 0;
    for (auto &queue : policy.queue_config) { // as many as the record has: fewer are rejected, more ignored
        const Decoder entry = queues[i++];
        entry.require(queue_key<"enable">(), queue_key<"weight">()); // both or neither is stored
        entry.required_boolean(queue_key<"enable">(), queue.enable);
        entry.required_integer(queue_key<"weight">(), queue.weight);
    }
    const Decoder bandwidth = in.required("bandwidth_config"_key);
    bandwidth.require(bandwidth_key<"totalbandwidth_enable">(), bandwidth_key<"totalbandwidth">()); // both or neither
    bandwidth.required_boolean(bandwidth_key<"totalbandwidth_enable">(), policy.totalbandwidth_enable);
    bandwidth.required_integer(bandwidth_key<"totalbandwidth">(), policy.totalbandwidth);
}

} // namespace

int qos_policy_to_translator(kelmora_resource *head, char **out)
{
    return encode<to_json>(head, out, Nodes::walking_if_any, Flags::pretty);
}

int qos_policy_from_translator(kelmora_resource *node, const char *text, kelmora_errorlist *errors)
{
    return decode<from_json>(node, text, errors);
}
