#include "frame/translator.h"
#include "records/firewall.h"

using namespace kelmora;

namespace {

void write(Encoder &out, const kelmora_firewall_domain_blocking &blocking, const NodeId &id)
{
    out.text("id", id);
    out.boolean("enable", blocking.enable);
    out.array("domains", [&](ArrayEncoder &list) {
        for (const auto &node : chain(blocking.domains))
            list.text(node.domain);
    });
}

void read(Decoder &in, kelmora_firewall_domain_blocking &blocking)
{
    in.required_boolean("enable"_bare_key, blocking.enable);
    add_texts(in, in.required_array("domains"_bare_key), blocking.domains,
              &kelmora_firewall_domain_blocking_domain::domain, "domains", "domain");
}

} // namespace

int firewall_domain_blocking_to_translator(kelmora_resource *head, char **out)
{
    return encode<write>(head, out, Shape::counting, Flags::compact);
}

int firewall_domain_blocking_from_translator(kelmora_resource *node, const char *text, kelmora_errorlist *errors)
{
    return decode<read>(node, text, errors);
}
