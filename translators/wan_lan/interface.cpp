#include "frame/translator.h"
#include "records/wan_lan.h"

using namespace kelmora;

namespace {

void to_json(Encoder &out, const kelmora_interface &interface, const NodeId &id)
{
    out.string("id", id);
    out.string("ip4", interface.ip4);
    out.string("netmask", interface.netmask);
    out.string("mac", interface.mac);
    out.integer("mtu", interface.mtu);
    out.array("ip6_list", [&](ArrayEncoder &list) {
        for (const auto &ip6 : chain(interface.ip6_list))
            list.string(ip6.address);
    });
    out.integer("ip6_count", interface.ip6_count); // the host's count, which need not be the list's length
    out.boolean("running", interface.running);
}

void from_json(Decoder &in, kelmora_interface &interface)
{
    in.required_string("ip4"_key, interface.ip4);
    in.required_string("mac"_key, interface.mac);
    in.required_string("netmask"_key, interface.netmask);
    in.required_integer("mtu"_key, interface.mtu);
    // ip6_count stays as it is: the host counts.
    ChainBuilder<kelmora_ip6_address> builder(interface.ip6_list);
    for (const Decoder element : in.optional_array("ip6_list")) {
        if (*element.string() == '\0')
            continue;
        if (auto *ip6 = builder.add(in, "ip6_list"))
            element.store_string(ip6->address);
    }
}

} // namespace

int interface_to_translator(kelmora_resource *head, char **out)
{
    return encode<to_json>(head, out, Nodes::counting, Flags::pretty);
}

int interface_from_translator(kelmora_resource *node, const char *text, kelmora_errorlist *errors)
{
    return decode<from_json>(node, text, errors);
}
