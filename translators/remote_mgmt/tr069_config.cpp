#include "frame/translator.h"
#include "records/remote_mgmt.h"

using namespace kelmora;

namespace {

void write(Encoder &out, const kelmora_tr069_config &config, const NodeId &id)
{
    out.text("id", id);
    out.boolean("tr069_enable", config.tr069_enable);
    out.text("ca_cert", config.ca_cert);
    out.object("acs", [&](Encoder &acs) {
        acs.text("acs_url", config.acs_url);
        acs.text("acs_username", config.acs_username);
        acs.text("acs_password", config.acs_password);
        acs.boolean("tr069_inform", config.tr069_inform);
        acs.integer("tr069_interval", config.tr069_interval);
    });
    out.object("connection", [&](Encoder &connection) {
        connection.boolean("enabled", config.connection_enabled);
        connection.text("conreq_name", config.conreq_name);
        connection.text("conreq_pw", config.conreq_pw);
        connection.text("conreq_path", config.conreq_path);
        connection.integer("conreq_port", config.conreq_port);
    });
    out.object("stun", [&](Encoder &stun) {
        stun.boolean("enabled", config.stun_enabled);
        stun.text("stun_server_addr", config.stun_server_addr);
        stun.integer("stun_server_port", config.stun_server_port);
    });
}

void read(Decoder &in, kelmora_tr069_config &config)
{
    in.required_boolean("tr069_enable"_key, config.tr069_enable);
    if (Decoder acs = in.optional("acs")) {
        acs.required_text(key<"acs_url", "acs.acs_url">(), config.acs_url);
        acs.required_text(key<"acs_username", "acs.acs_username">(), config.acs_username);
        acs.required_text(key<"acs_password", "acs.acs_password">(), config.acs_password);
        acs.required_boolean(key<"tr069_inform", "acs.tr069_inform">(), config.tr069_inform);
        acs.required_integer(key<"tr069_interval", "acs.tr069_interval">(), config.tr069_interval);
    }
    if (Decoder connection = in.optional("connection")) {
        connection.required_boolean(key<"enabled", "connection.enabled">(), config.connection_enabled);
        connection.required_text(key<"conreq_name", "connection.conreq_name">(), config.conreq_name);
        connection.required_text(key<"conreq_pw", "connection.conreq_pw">(), config.conreq_pw);
        connection.optional_text("conreq_path", config.conreq_path);
        connection.required_integer(key<"conreq_port", "connection.conreq_port">(), config.conreq_port);
    }
    if (Decoder stun = in.optional("stun")) {
        stun.required_boolean(key<"enabled", "stun.enabled">(), config.stun_enabled);
        stun.required_text(key<"stun_server_addr", "stun.stun_server_addr">(), config.stun_server_addr);
        stun.required_integer(key<"stun_server_port", "stun.stun_server_port">(), config.stun_server_port);
    }
    in.optional_text("ca_cert", config.ca_cert); // last on purpose: not stored when a key above is missing
}

} // namespace

int tr069_config_to_translator(kelmora_resource *head, char **out)
{
    return encode<write>(head, out, Shape::walking, Flags::compact);
}

int tr069_config_from_translator(kelmora_resource *node, const char *text, kelmora_errorlist *errors)
{
    return decode<read>(node, text, errors);
}
