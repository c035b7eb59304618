#include "host/gateway/samples.h"

#include "records/qos.h"

namespace kelmora_host {

namespace {

constexpr kelmora_qos line{.enabled = 1, .global_download = 250000, .global_upload = 40000};

constexpr kelmora_qos_rule television_rule{
    .enabled = 1,
    .name = "Television",
    .type = 1,
    .host_field = 0,
    .mode = 2,
    .download = 30000,
    .upload = 1000,
    .target = "192.168.17.60",
};

constexpr kelmora_qos_rule guests_rule{
    .enabled = 0,
    .name = "Gäste",
    .type = 2,
    .host_field = 0,
    .mode = 1,
    .download = 10000,
    .upload = 2000,
    .target = "192.168.18.0/24",
};

constexpr kelmora_qos_policy policy{
    .enable = 1,
    .queue_mode = 1,
    .queue_config =
        {
            {.enable = 1, .weight = 40},
            {.enable = 1, .weight = 30},
            {.enable = 1, .weight = 20},
            {.enable = 0, .weight = 10},
        },
    .totalbandwidth_enable = 1,
    .totalbandwidth = 250000,
};

ChainRecord<kelmora_qos_available_dscp> available_dscp()
{
    return {make_chain<kelmora_qos_available_dscp>({
        {.id = 0, .dscp = make_text("default (CS0)"), .next = nullptr},
        {.id = 34, .dscp = make_text("AF41"), .next = nullptr},
        {.id = 46, .dscp = make_text("EF"), .next = nullptr},
    })};
}

} // namespace

void add_qos_policy_samples(Gateway &gateway)
{
    gateway.add("qos", "0", line);

    gateway.add("qos_rule", "0", television_rule);
    gateway.add("qos_rule", "1", guests_rule);

    gateway.add("qos_policy", "0", policy);

    gateway.add("qos_available_dscp", "0", available_dscp());
}

} // namespace kelmora_host
