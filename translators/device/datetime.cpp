#include "frame/translator.h"
#include "records/device.h"

using namespace kelmora;

namespace {

void to_json(Encoder &out, const kelmora_datetime &datetime, const NodeId &id)
{
    out.string("id", id);
    out.integer("datetime", datetime.datetime);
    out.string("timezone", datetime.timezone);
    out.boolean("synced", datetime.synced);
    out.boolean("dst_enabled", datetime.dst_enabled);
    out.array("timezone_list", [&](ArrayEncoder &list) {
        for (const auto &timezone : chain(datetime.timezone_list)) {
            list.object([&](Encoder &entry) {
                entry.integer("id", timezone.id);
                entry.whole_string("region", timezone.region);
            });
        }
    });
    out.object("ntp_server", [&](Encoder &ntp) {
        ntp.boolean("enabled", datetime.ntp_enabled);
        ntp.boolean("automatic", datetime.ntp_automatic);
        ntp.string("ntp_server1", datetime.ntp_server1);
        ntp.string("ntp_server2", datetime.ntp_server2);
    });
}

void from_json(Decoder &in, kelmora_datetime &datetime)
{
    in.optional_string("timezone", datetime.timezone);
    in.optional_boolean("dst_enabled", datetime.dst_enabled);
    const Decoder ntp = in.optional("ntp_server");
    if (!ntp)
        return;
    // A switch that is absent is cleared, not kept.
    datetime.ntp_enabled = ntp.optional("enabled").is_true() ? 1 : 0;
    datetime.ntp_automatic = ntp.optional("automatic").is_true() ? 1 : 0;
    if (datetime.ntp_automatic == 0 && !ntp.optional("ntp_server1"))
        in.fail("ntp_server", "ntp_server not found");
    ntp.optional_string("ntp_server1", datetime.ntp_server1);
    ntp.optional_string("ntp_server2", datetime.ntp_server2);
}

} // namespace

int datetime_to_translator(kelmora_resource *head, char **out)
{
    return encode<to_json>(head, out, Nodes::walking_if_any, Flags::pretty);
}

int datetime_from_translator(kelmora_resource *node, const char *text, kelmora_errorlist *errors)
{
    return decode<from_json>(node, text, errors);
}
