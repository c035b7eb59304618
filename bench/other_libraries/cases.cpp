#include "bench/other_libraries/cases.h"

#include "bench/baselines/baselines.h"
#include "bench/record.h"

#include "host/json.h"

#include "records/wireless.h"

#include <algorithm>
#include <jansson.h>

namespace kelmora_bench {

namespace {

using kelmora_host::Json;

constexpr Subject all_subjects[] = {
    {"wireless", 16, 1, &OtherLibrary::wireless_to, &OtherLibrary::wireless_from},
    {"pon_counters", 16, 0, &OtherLibrary::pon_counters_to, nullptr},
    {"firewall_ip_port_filtering", 64, 64, &OtherLibrary::firewall_to, &OtherLibrary::firewall_from},
};

constexpr OtherLibrary baseline_peer{
    .name = "baseline",
    .wireless_to = wireless_to_baseline,
    .wireless_from = wireless_from_baseline,
    .pon_counters_to = pon_counters_to_baseline,
    .firewall_to = firewall_ip_port_filtering_to_baseline,
    .firewall_from = firewall_ip_port_filtering_from_baseline,
};

const kelmora_host::Registration &registered(std::string_view resource)
{
    return *kelmora_host::Registry::instance().find(kelmora_host::find_resource(resource)->number);
}

OtherLibrary library_peer()
{
    const kelmora_host::Registration &wireless = registered("wireless");
    const kelmora_host::Registration &firewall = registered("firewall_ip_port_filtering");
    return {
        .name = "library",
        .wireless_to = wireless.to,
        .wireless_from = wireless.from,
        .pon_counters_to = registered("pon_counters").to,
        .firewall_to = firewall.to,
        .firewall_from = firewall.from,
    };
}

/// The text as the baseline's JSON library writes it, whatever its blanks and escapes; "" for one that is no document.
std::string normalized(const std::string &text)
{
    const Json document(json_loads(text.c_str(), JSON_REJECT_DUPLICATES, nullptr));
    return document != nullptr ? kelmora_host::to_text(document) : "";
}

constexpr char odd_text[] = "\"\\/\b\f\n\r\t\x01\x1f\x7f \xC3\xA4\xE2\x82\xAC\xF0\x9F\x90\xA6";
constexpr char odd_document[] = R"({
    "interfaceID": "", "radioID": "\"\\\/\b\f\n\r\t\u0001\u001f\u007f\u00e4\u20AC\ud83d\udc26 ä€", "broadcast": true,
    "ssid": "longer than the thirty-two bytes of its field", "cipher": 4294967295, "crypto": 0, "mode": 2147483648,
    "key": "another", "wps": false, "enabled": true, "client_mode_rssi": -2147483648, "other": [{"key": null}, []]
})";

} // namespace

std::span<const Subject> subjects() { return all_subjects; }

const Workload &workload_of(const Subject &subject)
{
    const std::span<const Workload> all = workloads();
    return *std::find_if(all.begin(), all.end(),
                         [&](const Workload &workload) { return workload.resource == subject.resource; });
}

std::vector<OtherLibrary> all_peers()
{
    return {library_peer(), baseline_peer, jansson_pack_peer,       cjson_peer,           json_c_peer,
            nlohmann_peer,  by_hand_peer,  rapidjson_document_peer, rapidjson_stream_peer};
}

void require_same_document(const std::string &name, const std::string &text, const std::string &baseline)
{
    if (normalized(text).empty() || normalized(text) != normalized(baseline))
        throw std::runtime_error(name + " is not the same document: " + text + " instead of " + baseline);
}

void require_same_odd_texts(const OtherLibrary &other_library)
{
    const Subject &wireless = all_subjects[0];
    const std::string name = std::string("a wireless of odd texts: ") + other_library.name;
    Nodes nodes = workload_of(wireless).nodes(1);
    store_string(nodes.front().record().as<kelmora_wireless>().ssid, odd_text);
    ToCall to(other_library.wireless_to, nodes);
    ToCall to_baseline(wireless_to_baseline, nodes);
    settle(name, to);
    settle(name, to_baseline);
    require_same_document(name, to.result(), to_baseline.result());

    if (other_library.wireless_from == nullptr)
        return;
    const kelmora_host::Resource &resource = *kelmora_host::find_resource(wireless.resource);
    FromCall from(other_library.wireless_from, resource, odd_document);
    FromCall from_baseline(wireless_from_baseline, resource, odd_document);
    settle(name, from);
    settle(name, from_baseline);
    require_same_document(name, from.result(wireless_to_baseline), from_baseline.result(wireless_to_baseline));
}

} // namespace kelmora_bench
