#include "frame/translator.h"
#include "records/pon.h"

using namespace kelmora;

namespace {

void write(Encoder &out, const kelmora_pon_settings &pon, const NodeId &id)
{
    out.text("id", id);
    out.text("mode", pon.mode);
    out.object("oam", [&](Encoder &oam) {
        oam.text("model_id", pon.oam_model_id);
        oam.text("vendor_id", pon.oam_vendor_id);
        oam.text("onu_id_mac", pon.onu_id_mac);
        oam.text("hardware_version", pon.oam_hardware_version);
    });
    out.object("omci", [&](Encoder &omci) {
        omci.text("model_id", pon.omci_model_id);
        omci.text("vendor_id", pon.omci_vendor_id);
        omci.text("serial_number", pon.serial_number);
        omci.text("hardware_version", pon.omci_hardware_version);
        omci.integer("olt_profile", pon.olt_profile);
    });
    out.object("security", [&](Encoder &security) {
        security.text("loid", pon.loid);
        security.text("loid_password", pon.loid_password);
        security.text("ploam_password", pon.ploam_password);
    });
}

// The groups are required, their members are not, on purpose.
void read(Decoder &in, kelmora_pon_settings &pon)
{
    in.required_text("mode"_key, pon.mode);

    Decoder oam = in.required(key<"oam", "oam", "oam fields not found">());
    oam.optional_text("model_id", pon.oam_model_id);
    oam.optional_text("vendor_id", pon.oam_vendor_id);
    oam.optional_text("onu_id_mac", pon.onu_id_mac);
    oam.optional_text("hardware_version", pon.oam_hardware_version);

    Decoder omci = in.required(key<"omci", "omci", "omci fields not found">());
    omci.optional_text("model_id", pon.omci_model_id);
    omci.optional_text("vendor_id", pon.omci_vendor_id);
    omci.optional_text("serial_number", pon.serial_number);
    omci.optional_text("hardware_version", pon.omci_hardware_version);
    omci.optional_integer("olt_profile", pon.olt_profile);

    Decoder security = in.required(key<"security", "security", "security fields not found">());
    security.optional_text("loid", pon.loid);
    security.optional_text("loid_password", pon.loid_password);
    security.optional_text("ploam_password", pon.ploam_password);
}

} // namespace

int pon_settings_to_translator(kelmora_resource *head, char **out)
{
    return encode<write>(head, out, Shape::counting, Flags::compact);
}

int pon_settings_from_translator(kelmora_resource *node, const char *text, kelmora_errorlist *errors)
{
    return decode<read>(node, text, errors);
}
