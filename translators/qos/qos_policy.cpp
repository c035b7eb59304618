#include "frame/translator.h"
#include "records/qos.h"

#include <cstddef>
#include <cstdint>
#include <iterator>

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
    for (std::size_t i = 0; i < std::size(policy.queue_config) && in.ok(); ++i) { // more are ignored, on purpose
        auto &queue = policy.queue_config[i];
        Decoder entry = queues[i];
        const Decoder enable = entry.required(queue_key<"enable">());
        const Decoder weight = entry.required(queue_key<"weight">());
        if (in.ok()) { // both or neither
            queue.enable = enable.is_true() ? 1 : 0;
            queue.weight = static_cast<std::uint8_t>(weight.integer());
        }
    }
    Decoder bandwidth = in.required("bandwidth_config"_key);
    const Decoder limited = bandwidth.required(bandwidth_key<"totalbandwidth_enable">());
    const Decoder limit = bandwidth.required(bandwidth_key<"totalbandwidth">());
    if (in.ok()) { // both or neither
        policy.totalbandwidth_enable = limited.is_true() ? 1 : 0;
        policy.totalbandwidth = static_cast<std::uint32_t>(limit.integer());
    }
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
