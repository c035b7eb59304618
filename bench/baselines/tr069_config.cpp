#include "bench/baselines/baselines.h"
#include "bench/baselines/json.h"

#include "records/remote_mgmt.h"

namespace kelmora_bench {

namespace {

void fill(json_t *out, const kelmora_tr069_config &config, const char *id)
{
    json_object_set_new(out, "id", json_string(id));
    json_object_set_new(out, "tr069_enable", json_boolean(config.tr069_enable));
    json_object_set_new(out, "ca_cert", json_string(config.ca_cert));
    json_t *acs = json_object();
    json_object_set_new(acs, "acs_url", json_string(config.acs_url));
    json_object_set_new(acs, "acs_username", json_string(config.acs_username));
    json_object_set_new(acs, "acs_password", json_string(config.acs_password));
    json_object_set_new(acs, "tr069_inform", json_boolean(config.tr069_inform));
    json_object_set_new(acs, "tr069_interval", json_integer(config.tr069_interval));
    json_object_set_new(out, "acs", acs);
    json_t *connection = json_object();
    json_object_set_new(connection, "enabled", json_boolean(config.connection_enabled));
    json_object_set_new(connection, "conreq_name", json_string(config.conreq_name));
    json_object_set_new(connection, "conreq_pw", json_string(config.conreq_pw));
    json_object_set_new(connection, "conreq_path", json_string(config.conreq_path));
    json_object_set_new(connection, "conreq_port", json_integer(config.conreq_port));
    json_object_set_new(out, "connection", connection);
    json_t *stun = json_object();
    json_object_set_new(stun, "enabled", json_boolean(config.stun_enabled));
    json_object_set_new(stun, "stun_server_addr", json_string(config.stun_server_addr));
    json_object_set_new(stun, "stun_server_port", json_integer(config.stun_server_port));
    json_object_set_new(out, "stun", stun);
}

void from_json(const json_t *in, kelmora_tr069_config &config)
{
    store_boolean(config.tr069_enable, json_object_get(in, "tr069_enable"));
    if (const json_t *acs = json_object_get(in, "acs")) {
        store_string(config.acs_url, json_object_get(acs, "acs_url"));
        store_string(config.acs_username, json_object_get(acs, "acs_username"));
        store_string(config.acs_password, json_object_get(acs, "acs_password"));
        store_boolean(config.tr069_inform, json_object_get(acs, "tr069_inform"));
        store_integer(config.tr069_interval, json_object_get(acs, "tr069_interval"));
    }
    if (const json_t *connection = json_object_get(in, "connection")) {
        store_boolean(config.connection_enabled, json_object_get(connection, "enabled"));
        store_string(config.conreq_name, json_object_get(connection, "conreq_name"));
        store_string(config.conreq_pw, json_object_get(connection, "conreq_pw"));
        store_string(config.conreq_path, json_object_get(connection, "conreq_path"));
        store_integer(config.conreq_port, json_object_get(connection, "conreq_port"));
    }
    if (const json_t *stun = json_object_get(in, "stun")) {
        store_boolean(config.stun_enabled, json_object_get(stun, "enabled"));
        store_string(config.stun_server_addr, json_object_get(stun, "stun_server_addr"));
        store_integer(config.stun_server_port, json_object_get(stun, "stun_server_port"));
    }
    store_string(config.ca_cert, json_object_get(in, "ca_cert"));
}

} // namespace

} // namespace kelmora_bench

using namespace kelmora_bench;

int tr069_config_to_baseline(kelmora_resource *head, char **out)
{
    return render_nodes<kelmora_tr069_config, fill>(head, 0, out);
}

int tr069_config_from_baseline(kelmora_resource *node, const char *text, kelmora_errorlist * /*errors*/)
{
    return document_from_json<kelmora_tr069_config, from_json>(node, text);
}
