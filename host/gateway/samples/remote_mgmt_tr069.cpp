#include "host/gateway/samples.h"

#include "records/remote_mgmt.h"

namespace kelmora_host {

namespace {

constexpr kelmora_tr069_config client{
    .tr069_enable = 1,
    .acs_url = "https://acs.example.net:7548/cwmp",
    .acs_username = "02-1a-11-GW4100-00178244",
    .acs_password = "tin lantern 88",
    .tr069_inform = 1,
    .tr069_interval = 43200,
    .connection_enabled = 1,
    .conreq_name = "acs",
    .conreq_pw = "quiet harbour 12",
    .conreq_path = "/tr069/notify",
    .conreq_port = 7547,
    .stun_enabled = 1,
    .stun_server_addr = "stun.example.net",
    .stun_server_port = 3478,
    .host_block = {},
    .ca_cert = "-----BEGIN CERTIFICATE-----\n"
               "MIIBszCCAVmgAwIBAgIUQ0EgZm9yIHRoZSBzYW1wbGUgZ2F0ZXdheTAKBggqhkjO\n"
               "-----END CERTIFICATE-----\n",
};

kelmora_tr069_inform last_inform()
{
    return {.status = 2, .cause = make_text("Connection to acs.example.net timed out after 30 s")};
}

} // namespace

void add_remote_mgmt_tr069_samples(Gateway &gateway)
{
    gateway.add("tr069_config", "0", client);

    gateway.add("tr069_inform", "0", last_inform());
}

} // namespace kelmora_host
