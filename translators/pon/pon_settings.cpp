#include "frame/translator.h"
#include "records/pon.h"

using namespace kelmora;

namespace {

void to_json(Encoder &out, const kelmora_pon_settings &pon, const NodeId &id)
{
    out.string("id", id);
    out.string("mode", pon.mode);
    out.object("oam", [&](Encoder &oam) {
        oam.string("model_id", pon.oam_model_id);
        oam.string("vendor_id", pon.oam_vendor_id);
        oam.string("onu_id_mac", pon.onu_id_mac);
        oam.string("hardware_version", pon.oam_hardware_version);
    });
    out.object("omci", [&](Encoder &omci) {
        omci.string("model_id", pon.omci_model_id);
        omci.string("vendor_id", pon.omci_vendor_id);
        omci.string("serial_number", pon.serial_number);
        omci.string("hardware_version", pon.omci_hardware_version);
        omci.integer("olt_profile", pon.olt_profile);
    });
    out.object("security", [&](Encoder &security) {
        security.string("loid", pon.loid);
        security.string("loid_password", pon.loid_password);
        security.string("ploam_password", pon.ploam_password);
    });
}

// A group that is there may lack any member; a document that lacks a group is rejected.
void from_json(Decoder &in, kelmora_pon_settings &pon)
{
    in.required_string("mode"_key, pon.mode);

    const Decoder oam = in.required(key<"oam", "oam", "oam fields not found">());
    oam.optional_string("model_id", pon.oam_model_id);
    oam.optional_string("vendor_id", pon.oam_vendor_id);
    oam.optional_string("onu_id_mac", pon.onu_id_mac);
    oam.optional_string("hardware_version", pon.oam_hardware_version);

    const Decoder omci = in.required(key<"omci", "omci", "omci fields not found">());
    omci.optional_string("model_id", pon.omci_model_id);
    omci.optional_string("vendor_id", pon.omci_vendor_id);
    omci.optional_string("serial_number", pon.serial_number);
    omci.optional_string("hardware_version", pon.omci_hardware_version);
    omci.optional_integer("olt_profile", pon.olt_profile);

    const Decoder security = in.required(key<"security", "security", "security fields not found">());
    security.optional_string("loid", pon.loid);
    security.optional_string("loid_password", pon.loid_password);
    security.optional_string("ploam_password", pon.ploam_password);
}

} // namespace

int pon_settings_to_translator(kelmora_resource *head, char **out)
{
    return encode<to_json>(head, out, Nodes::counting, Flags::plain);
}

int pon_settings_from_translator(kelmora_resource *node, const char *text, kelmora_errorlist *errors)
{
    return decode<from_json>(node, text, errors);
}
