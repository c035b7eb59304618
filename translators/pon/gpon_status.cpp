#include "frame/translator.h"
#include "records/pon.h"

#include <cstdint>
#include <cstdio>

using namespace kelmora;

namespace {

/// "O5" for state 5, "UNDEF" for state 0.
void state_to_json(Encoder &out, std::uint32_t state)
{
    char text[sizeof "O-2147483648"] = "UNDEF";
    if (state != 0)
        std::sprintf(text, "O%d", static_cast<int>(state)); // Contract: as signed
    text[9] = '\0';                                         // Contract: nine characters at most
    out.string("onu_state_id", text);
}

void to_json(Encoder &out, const kelmora_gpon_status &status, const NodeId &id)
{
    out.string("id", id);
    state_to_json(out, status.onu_state);
    out.integer("onu_id", status.onu_id);
    out.string("onu_state_desc", status.onu_state_desc);
}

} // namespace

int gpon_status_to_translator(kelmora_resource *head, char **out)
{
    return encode<to_json>(head, out, Nodes::counting, Flags::plain);
}

// The figures are the device's.
int gpon_status_from_translator(kelmora_resource *, const char *, kelmora_errorlist *) { return 1; }
