#include "bench/baselines/baselines.h"
#include "bench/baselines/json.h"

#include "records/device.h"

namespace kelmora_bench {

namespace {

void fill(json_t *out, const kelmora_datetime &datetime, const char *id)
{
    json_object_set_new(out, "id", json_string(id));
    json_object_set_new(out, "datetime", json_integer(datetime.datetime));
    json_object_set_new(out, "timezone", json_string(datetime.timezone));
    json_object_set_new(out, "synced", json_boolean(datetime.synced));
    json_object_set_new(out, "dst_enabled", json_boolean(datetime.dst_enabled));
    json_t *list = json_array();
    for (const auto *timezone = datetime.timezone_list; timezone != nullptr; timezone = timezone->next) {
        json_t *entry = json_object();
        json_object_set_new(entry, "id", json_integer(timezone->id));
        json_object_set_new(entry, "region", json_string(timezone->region));
        json_array_append_new(list, entry);
    }
    json_object_set_new(out, "timezone_list", list);
    json_t *ntp = json_object();
    json_object_set_new(ntp, "enabled", json_boolean(datetime.ntp_enabled));
    json_object_set_new(ntp, "automatic", json_boolean(datetime.ntp_automatic));
    json_object_set_new(ntp, "ntp_server1", json_string(datetime.ntp_server1));
    json_object_set_new(ntp, "ntp_server2", json_string(datetime.ntp_server2));
    json_object_set_new(out, "ntp_server", ntp);
}

void from_json(const json_t *in, kelmora_datetime &datetime)
{
    store_string(datetime.timezone, json_object_get(in, "timezone"));
    store_boolean(datetime.dst_enabled, json_object_get(in, "dst_enabled"));
    const json_t *ntp = json_object_get(in, "ntp_server");
    store_boolean(datetime.ntp_enabled, json_object_get(ntp, "enabled"));
    store_boolean(datetime.ntp_automatic, json_object_get(ntp, "automatic"));
    store_string(datetime.ntp_server1, json_object_get(ntp, "ntp_server1"));
    store_string(datetime.ntp_server2, json_object_get(ntp, "ntp_server2"));
}

} // namespace

} // namespace kelmora_bench

using namespace kelmora_bench;

int datetime_to_baseline(kelmora_resource *head, char **out)
{
    return render_nodes<kelmora_datetime, fill>(head, pretty, out);
}

int datetime_from_baseline(kelmora_resource *node, const char *text, kelmora_errorlist * /*errors*/)
{
    return document_from_json<kelmora_datetime, from_json>(node, text);
}
