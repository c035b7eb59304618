#include "frame/translator.h"
#include "records/device.h"

using namespace kelmora;

namespace {

void to_json(Encoder &out, const kelmora_automatic_maintenance &maintenance, const NodeId &id)
{
    out.string("id", id);
    out.boolean("enabled", maintenance.enabled);
    out.object("time", [&](Encoder &time) {
        time.integer("hour", maintenance.hour);
        time.integer("min", maintenance.min);
    });
}

void from_json(Decoder &in, kelmora_automatic_maintenance &maintenance)
{
    in.required_boolean("enabled"_key, maintenance.enabled);
    const Decoder time = in.required("time"_key);
    time.required_integer(key<"hour", "time.hour", "time.hour field not found">(), maintenance.hour);
    time.required_integer(key<"min", "time.min", "time.min field not found">(), maintenance.min);
}

} // namespace

int automatic_maintenance_to_translator(kelmora_resource *head, char **out)
{
    return encode<to_json>(head, out, Nodes::walking_if_any, Flags::plain);
}

int automatic_maintenance_from_translator(kelmora_resource *node, const char *text, kelmora_errorlist *errors)
{
    return decode<from_json>(node, text, errors);
}
