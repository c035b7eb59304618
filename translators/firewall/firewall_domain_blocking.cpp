#include "frame/translator.h"
#include "records/firewall.h"

using namespace kelmora;

namespace {

void to_json(Encoder &out, const kelmora_firewall_domain_blocking &blocking, const NodeId &id)
{
    out.string("id", id);
    out.boolean("enable", blocking.enable);
    out.array("domains", [&](ArrayEncoder &list) {
        for (const auto &node : chain(blocking.domains))
            list.string(node.domain);
    });
}

void from_json(Decoder &in, kelmora_firewall_domain_blocking &blocking)
{
    in.required_boolean("enable"_bare_key, blocking.enable);
    add_strings(in, in.required_array("domains"_bare_key), blocking.domains,
                &kelmora_firewall_domain_blocking_domain::domain, "domains", "domain");
}

} // namespace

int firewall_domain_blocking_to_translator(kelmora_resource *head, char **out)
{
    return encode<to_json>(head, out, Nodes::counting, Flags::plain);
}

int firewall_domain_blocking_from_translator(kelmora_resource *node, const char *text, kelmora_errorlist *errors)
{
    return decode<from_json>(node, text, errors);
}
