#include "frame/translator.h"
#include "records/firewall.h"

using namespace kelmora;

namespace {

void write(Encoder &out, const kelmora_firewall_url_blocking &blocking, const NodeId &id)
{
    out.text("id", id);
    out.boolean("enable", blocking.enable);
    out.array("urls", [&](ArrayEncoder &list) {
        for (const auto &node : chain(blocking.urls))
            list.text(node.url);
    });
    out.array("keywords", [&](ArrayEncoder &list) {
        for (const auto &node : chain(blocking.keywords))
            list.text(node.keyword);
    });
}

void read(Decoder &in, kelmora_firewall_url_blocking &blocking)
{
    in.required_boolean("enable"_bare_key, blocking.enable);
    add_texts(in, in.required_array("urls"_bare_key), blocking.urls, &kelmora_firewall_url_blocking_url::url, "urls",
              "url");
    // Here on purpose: the URLs are stored even when the keywords are missing.
    add_texts(in, in.required_array("keywords"_bare_key), blocking.keywords,
              &kelmora_firewall_url_blocking_keyword::keyword, "keywords", "keyword");
}

} // namespace

int firewall_url_blocking_to_translator(kelmora_resource *head, char **out)
{
    return encode<write>(head, out, Shape::counting, Flags::compact);
}

int firewall_url_blocking_from_translator(kelmora_resource *node, const char *text, kelmora_errorlist *errors)
{
    return decode<read>(node, text, errors);
}
