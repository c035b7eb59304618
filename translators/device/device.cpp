#include "frame/translator.h"
#include "records/device.h"

using namespace kelmora;

namespace {

void to_json(Encoder &out, const kelmora_device &device, const NodeId &id)
{
    out.string("id", id);
    out.string("model", device.model);
    out.integer("uptime", device.uptime);
    out.string("fw_version", device.fw_version);
    out.boolean("show_wizard", device.show_wizard);
    out.boolean("login_enable", device.login_enable);
    out.string("alias", device.alias);
    out.boolean("leds", device.leds);
    out.boolean("is_manageable", device.is_manageable);
}

/// Positions of fields in the record, as kelmora_set_missing counts them.
enum Position { alias = 3, show_wizard = 4, login_enable = 5, leds = 6, is_manageable = 7 };

void from_json(Decoder &in, kelmora_resource *node)
{
    auto &device = record_of<kelmora_device>(node);
    const auto report_if_absent = [&in, node](const char *key, Position position) {
        if (!in.optional(key))
            kelmora_set_missing(node, position);
    };
    in.optional_boolean("show_wizard", device.show_wizard);
    report_if_absent("show_wizard", show_wizard);
    in.optional_string("alias", device.alias);
    report_if_absent("alias", alias);
    in.optional_boolean("login_enable", device.login_enable);
    report_if_absent("login_enable", login_enable);
    in.optional_boolean("leds", device.leds);
    report_if_absent("leds", leds);
    in.optional_boolean("is_manageable", device.is_manageable);
    report_if_absent("is_manageable", is_manageable);
}

} // namespace

// The device is one record: a list of several entries shows the head's several times.
int device_to_translator(kelmora_resource *head, char **out)
{
    return encode<to_json>(head, out, Nodes::head_repeated, Flags::plain);
}

int device_from_translator(kelmora_resource *node, const char *text, kelmora_errorlist *errors)
{
    return decode<from_json>(node, text, errors);
}
