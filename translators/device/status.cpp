#include "frame/translator.h"
#include "records/device.h"

using namespace kelmora;

namespace {

void to_json(Encoder &out, const kelmora_status &status)
{
    out.boolean("has_internet", status.has_internet);
    out.boolean("wan_cable", status.wan_cable);
    out.boolean("tavoline_connected", status.tavoline_connected);
    out.boolean("firmware_update", status.firmware_update);
    out.integer("wps_status", status.wps_status);
}

} // namespace

int status_to_translator(kelmora_resource *head, char **out)
{
    return encode<to_json>(head, out, Nodes::counting, Flags::plain);
}

// The summary is read-only.
int status_from_translator(kelmora_resource *, const char *, kelmora_errorlist *) { return 1; }
