#include "frame/translator.h"
#include "records/firewall.h"

using namespace kelmora;

namespace {

void to_json(Encoder &out, const kelmora_ddns &account, const NodeId &id)
{
    out.string("id", id);
    out.integer("provider", account.provider);
    out.string("hostname", account.hostname);
    out.string("interface", account.interface);
    out.string("username", account.username);
    out.string("password", account.password);
    out.integer("enabled", account.enabled); // Contract: a number
    out.integer("instance_num", account.instance_num);
    out.integer("service_port", account.service_port);
    out.integer("status", account.status);
}

void from_json(Decoder &in, kelmora_ddns &account)
{
    in.required_integer("provider"_key, account.provider);
    in.required_string("hostname"_key, account.hostname);
    in.required_string("interface"_key, account.interface);
    in.required_string("username"_key, account.username);
    in.required_string("password"_key, account.password);
    if (const Decoder enabled = in.required("enabled"_key))
        account.enabled = enabled.integer() != 0 ? 1 : 0; // all 64 bits count; JSON true is no number, and stores 0
    in.required_integer("instance_num"_key, account.instance_num);
    in.required_integer("service_port"_key, account.service_port);
    in.optional_integer("status", account.status);
}

} // namespace

int ddns_to_translator(kelmora_resource *head, char **out)
{
    return encode<to_json>(head, out, Nodes::walking_if_any, Flags::pretty);
}

int ddns_from_translator(kelmora_resource *node, const char *text, kelmora_errorlist *errors)
{
    return decode<from_json>(node, text, errors);
}
