#include "bench/baselines/baselines.h"
#include "bench/baselines/json.h"

#include "records/wan_lan.h"

namespace kelmora_bench {

namespace {

void fill(json_t *out, const kelmora_interface &interface, const char *id)
{
    json_object_set_new(out, "id", json_string(id));
    json_object_set_new(out, "ip4", json_string(interface.ip4));
    json_object_set_new(out, "netmask", json_string(interface.netmask));
    json_object_set_new(out, "mac", json_string(interface.mac));
    json_object_set_new(out, "mtu", json_integer(interface.mtu));
    json_t *list = json_array();
    for (const auto *ip6 = interface.ip6_list; ip6 != nullptr; ip6 = ip6->next)
        json_array_append_new(list, json_string(ip6->address));
    json_object_set_new(out, "ip6_list", list);
    json_object_set_new(out, "ip6_count", json_integer(interface.ip6_count));
    json_object_set_new(out, "running", json_boolean(interface.running));
}

void from_json(const json_t *in, kelmora_interface &interface)
{
    store_string(interface.ip4, json_object_get(in, "ip4"));
    store_string(interface.mac, json_object_get(in, "mac"));
    store_string(interface.netmask, json_object_get(in, "netmask"));
    store_integer(interface.mtu, json_object_get(in, "mtu"));
    auto **link = &interface.ip6_list;
    const json_t *list = json_object_get(in, "ip6_list");
    const std::size_t size = json_array_size(list);
    for (std::size_t i = 0; i < size; ++i)
        store_string(append(link)->address, json_array_get(list, i));
}

} // namespace

} // namespace kelmora_bench

using namespace kelmora_bench;

int interface_to_baseline(kelmora_resource *head, char **out)
{
    return render_nodes<kelmora_interface, fill>(head, pretty, out);
}

int interface_from_baseline(kelmora_resource *node, const char *text, kelmora_errorlist * /*errors*/)
{
    return document_from_json<kelmora_interface, from_json>(node, text);
}
