#include "frame/translator.h"
#include "records/device.h"

using namespace kelmora;

namespace {

void write(Encoder &out, const kelmora_datetime &datetime, const NodeId &id)
{
    out.text("id", id);
    out.integer("datetime", datetime.datetime);
    out.text("timezone", datetime.timezone);
    out.boolean("synced", datetime.synced);
    out.boolean("dst_enabled", datetime.dst_enabled);
    out.array("timezone_list", [&](ArrayEncoder &list) {
        for (const auto &timezone : chain(datetime.timezone_list)) {
            list.object([&](Encoder &entry) {
                entry.integer("id", timezone.id);
                entry.whole_text("region", timezone.region);
            });
        }
    });
    out.object("ntp_server", [&](Encoder &ntp) {
        ntp.boolean("enabled", datetime.ntp_enabled);
        ntp.boolean("automatic", datetime.ntp_automatic);
        ntp.text("ntp_server1", datetime.ntp_server1);
        ntp.text("ntp_server2", datetime.ntp_server2);
    });
}

void read(Decoder &in, kelmora_datetime &datetime)
{
    in.optional_text("timezone", datetime.timezone);
    in.optional_boolean("dst_enabled", datetime.dst_enabled);
    Decoder ntp = in.optional("ntp_server");
    if (!ntp)
        return;
    // A switch that is absent is cleared, not kept, on purpose.
    datetime.ntp_enabled = ntp.optional("enabled").is_true() ? 1 : 0;
    datetime.ntp_automatic = ntp.optional("automatic").is_true() ? 1 : 0;
    if (datetime.ntp_automatic == 0 && !ntp.optional("ntp_server1"))
        in.fail("ntp_server", "ntp_server not found");
    ntp.optional_text("ntp_server1", datetime.ntp_server1);
    ntp.optional_text("ntp_server2", datetime.ntp_server2);
}

} // namespace

int datetime_to_translator(kelmora_resource *head, char **out)
{
    return encode<write>(head, out, Shape::walking | Shape::literal_when_empty, Flags::pretty);
}

int datetime_from_translator(kelmora_resource *node, const char *text, kelmora_errorlist *errors)
{
    return decode<read>(node, text, errors);
}
