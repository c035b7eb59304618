#include "frame/number.h"
#include "frame/translator.h"
#include "records/wan_lan.h"

using namespace kelmora;

namespace {

void to_json(Encoder &out, const kelmora_interface_statistics &statistics, const NodeId &id)
{
    out.string("id", id);
    out.string("interfaceID", statistics.interfaceID);
    out.integer("tx", statistics.tx);
    out.integer("rx", statistics.rx);
    out.integer("unity_size", statistics.unity_size);
    out.integer("time", statistics.time);
}

/// A real, although to_json gives an integer: an integer in the document stores 0.
void counter_from_json(const Decoder &in, Key key, std::uint32_t &counter)
{
    if (const Decoder value = in.required(key))
        counter = saturated(value.real());
}

void from_json(Decoder &in, kelmora_interface_statistics &statistics)
{
    in.required_string("interfaceID"_key, statistics.interfaceID);
    counter_from_json(in, "tx"_key, statistics.tx);
    counter_from_json(in, "rx"_key, statistics.rx);
    in.required_integer("unity_size"_key, statistics.unity_size);
    in.required_integer("time"_key, statistics.time);
}

} // namespace

int interface_statistics_to_translator(kelmora_resource *head, char **out)
{
    return encode<to_json>(head, out, Nodes::counting, Flags::plain);
}

int interface_statistics_from_translator(kelmora_resource *node, const char *text, kelmora_errorlist *errors)
{
    return decode<from_json>(node, text, errors);
}
