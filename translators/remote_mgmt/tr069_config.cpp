#include "frame/translator.h"
#include "records/remote_mgmt.h"

using namespace kelmora;

namespace {

void to_json(Encoder &out, const kelmora_tr069_config &config, const NodeId &id)
{
    out.string("id", id);
    out.boolean("tr069_enable", config.tr069_enable);
    out.string("ca_cert", config.ca_cert);
    out.object("acs", [&](Encoder &acs) {
        acs.string("acs_url", config.acs_url);
        acs.string("acs_username", config.acs_username);
        acs.string("acs_password", config.acs_password);
        acs.boolean("tr069_inform", config.tr069_inform);
        acs.integer("tr069_interval", config.tr069_interval);
    });
    out.object("connection", [&](Encoder &connection) {
        connection.boolean("enabled", config.connection_enabled);
        connection.string("conreq_name", config.conreq_name);
        connection.string("conreq_pw", config.conreq_pw);
        connection.string("conreq_path", config.conreq_path);
        connection.integer("conreq_port", config.conreq_port);
    });
    out.object("stun", [&](Encoder &stun) {
        stun.boolean("enabled", config.stun_enabled);
        stun.string("stun_server_addr", config.stun_server_addr);
        stun.integer("stun_server_port", config.stun_server_port);
    });
}

void from_json(Decoder &in, kelmora_tr069_config &config)
{
    in.required_boolean("tr069_enable"_key, config.tr069_enable);
    if (const Decoder acs = in.optional("acs")) {
        acs.required_string("acs.acs_url"_key, config.acs_url);
        acs.required_string("acs.acs_username"_key, config.acs_username);
        acs.required_string("acs.acs_password"_key, config.acs_password);
        acs.required_boolean("acs.tr069_inform"_key, config.tr069_inform);
        acs.required_integer("acs.tr069_interval"_key, config.tr069_interval);
    }
    if (const Decoder connection = in.optional("connection")) {
        connection.required_boolean("connection.enabled"_key, config.connection_enabled);
        connection.required_string("connection.conreq_name"_key, config.conreq_name);
        connection.required_string("connection.conreq_pw"_key, config.conreq_pw);
        connection.optional_string("conreq_path", config.conreq_path);
        connection.required_integer("connection.conreq_port"_key, config.conreq_port);
    }
    if (const Decoder stun = in.optional("stun")) {
        stun.required_boolean("stun.enabled"_key, config.stun_enabled);
        stun.required_string("stun.stun_server_addr"_key, config.stun_server_addr);
        stun.required_integer("stun.stun_server_port"_key, config.stun_server_port);
    }
    in.optional_string("ca_cert", config.ca_cert); // last: not stored when a key above is missing
}

} // namespace

int tr069_config_to_translator(kelmora_resource *head, char **out)
{
    return encode<to_json>(head, out, Nodes::walking, Flags::plain);
}

int tr069_config_from_translator(kelmora_resource *node, const char *text, kelmora_errorlist *errors)
{
    return decode<from_json>(node, text, errors);
}
