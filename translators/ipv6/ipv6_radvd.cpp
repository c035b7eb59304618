#include "frame/number.h"
#include "frame/translator.h"
#include "records/ipv6.h"

#include <cstdint>

using namespace kelmora;

namespace {

void to_json(Encoder &out, const kelmora_ipv6_radvd &radvd, const NodeId &id)
{
    out.string("id", id);
    out.integer("max_rtr_adv_interval", radvd.max_rtr_adv_interval);
    out.integer("min_rtr_adv_interval", radvd.min_rtr_adv_interval);
    out.boolean("adv_managed_flag", radvd.adv_managed_flag);
    out.boolean("ipv6_prefix_mode_auto", radvd.ipv6_prefix_mode_auto);
    out.object("ipv6_prefix", [&](Encoder &prefix) {
        prefix.string("prefix", radvd.prefix);
        prefix.integer("prefix_size", radvd.prefix_size);
        prefix.integer("adv_valid_lifetime", radvd.adv_valid_lifetime);
        prefix.integer("adv_preferred_lifetime", radvd.adv_preferred_lifetime);
        prefix.boolean("adv_on_link", radvd.adv_on_link);
        prefix.boolean("adv_autonomous", radvd.adv_autonomous);
        prefix.string("rdnss1", radvd.rdnss1);
        prefix.string("rdnss2", radvd.rdnss2);
    });
    out.boolean("enable_ula", radvd.enable_ula);
    out.object("ipv6_ula_settings", [&](Encoder &ula) {
        ula.string("ula_prefix", radvd.ula_prefix);
        ula.integer("ula_prefix_len", radvd.ula_prefix_len);
        ula.integer("ula_valid_time", radvd.ula_valid_time);
        ula.integer("ula_prefer_time", radvd.ula_prefer_time);
    });
}

// Unlike the other integers a lifetime may be a real, and stops at the largest instead of losing its high bits.
void required_lifetime(const Decoder &in, Key key, std::uint32_t &lifetime)
{
    if (const Decoder value = in.required(key))
        lifetime = saturated(value.number());
}

void from_json(Decoder &in, kelmora_ipv6_radvd &radvd)
{
    in.required_integer("max_rtr_adv_interval"_key, radvd.max_rtr_adv_interval);
    in.required_integer("min_rtr_adv_interval"_key, radvd.min_rtr_adv_interval);
    in.required_boolean("adv_managed_flag"_key, radvd.adv_managed_flag);
    if (const Decoder automatic = in.required("ipv6_prefix_mode_auto"_key))
        radvd.ipv6_prefix_mode_auto = automatic.is_true() ? 1 : 0;
    const Decoder prefix = in.required("ipv6_prefix"_key);
    prefix.required_string("ipv6_prefix:prefix"_key, radvd.prefix);
    prefix.required_integer("ipv6_prefix:prefix_size"_key, radvd.prefix_size);
    required_lifetime(prefix, "ipv6_prefix:adv_valid_lifetime"_key, radvd.adv_valid_lifetime);
    required_lifetime(prefix, "ipv6_prefix:adv_preferred_lifetime"_key, radvd.adv_preferred_lifetime);
    prefix.required_boolean("ipv6_prefix:adv_on_link"_key, radvd.adv_on_link);
    prefix.required_boolean("ipv6_prefix:adv_autonomous"_key, radvd.adv_autonomous);
    prefix.required_string("ipv6_prefix:rdnss1"_key, radvd.rdnss1);
    prefix.required_string("ipv6_prefix:rdnss2"_key, radvd.rdnss2);
    in.required_boolean("enable_ula"_key, radvd.enable_ula);
    const Decoder ula = in.required("ipv6_ula_settings"_key); // required even when none is advertised
    ula.required_string("ipv6_ula_settings:ula_prefix"_key, radvd.ula_prefix);
    ula.required_integer("ipv6_ula_settings:ula_prefix_len"_key, radvd.ula_prefix_len);
    required_lifetime(ula, "ipv6_ula_settings:ula_valid_time"_key, radvd.ula_valid_time);
    required_lifetime(ula, "ipv6_ula_settings:ula_prefer_time"_key, radvd.ula_prefer_time);
}

} // namespace

int ipv6_radvd_to_translator(kelmora_resource *head, char **out)
{
    return encode<to_json>(head, out, Nodes::counting, Flags::plain);
}

int ipv6_radvd_from_translator(kelmora_resource *node, const char *text, kelmora_errorlist *errors)
{
    return decode<from_json>(node, text, errors);
}
