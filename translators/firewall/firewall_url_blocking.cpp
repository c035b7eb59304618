#include "frame/translator.h"
#include "records/firewall.h"

using namespace kelmora;

namespace {

void to_json(Encoder &out, const kelmora_firewall_url_blocking &blocking, const NodeId &id)
{
    out.string("id", id);
    out.boolean("enable", blocking.enable);
    out.array("urls", [&](ArrayEncoder &list) {
        for (const auto &node : chain(blocking.urls))
            list.string(node.url);
    });
    out.array("keywords", [&](ArrayEncoder &list) {
        for (const auto &node : chain(blocking.keywords))
            list.string(node.keyword);
    });
}

void from_json(Decoder &in, kelmora_firewall_url_blocking &blocking)
{
    in.required_boolean("enable"_bare_key, blocking.enable);
    add_strings(in, in.required_array("urls"_bare_key), blocking.urls, &kelmora_firewall_url_blocking_url::url, "urls",
                "url");
    // Asked for here: the URLs are stored even when the keywords are missing.
    add_strings(in, in.required_array("keywords"_bare_key), blocking.keywords,
                &kelmora_firewall_url_blocking_keyword::keyword, "keywords", "keyword");
}

} // namespace

int firewall_url_blocking_to_translator(kelmora_resource *head, char **out)
{
    return encode<to_json>(head, out, Nodes::counting, Flags::plain);
}

int firewall_url_blocking_from_translator(kelmora_resource *node, const char *text, kelmora_errorlist *errors)
{
    return decode<from_json>(node, text, errors);
}
