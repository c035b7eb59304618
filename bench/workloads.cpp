#include "bench/workloads.h"

#include "bench/baselines/baselines.h"

#include "host/cli/input.h"
#include "host/gateway/gateway.h"
#include "host/json.h"

#include "kelmora_records.h"

#include <filesystem>
#include <jansson.h>

namespace kelmora_bench {

namespace {

using kelmora_host::Duplicate;
using kelmora_host::Free;
using kelmora_host::Json;
using kelmora_host::Owned;

/// `size` copies of the resource's samples.
Nodes copies(std::string_view resource, std::size_t size)
{
    Nodes nodes;
    nodes.reserve(size);
    for (std::size_t i = 0; i < size; ++i)
        nodes.push_back(sample_nodes(resource)[i % sample_nodes(resource).size()]);
    return nodes;
}

/// A deep copy of one element, without what follows it.
template <class Element> Element *copy_of(const Element &element)
{
    auto *copy = static_cast<Element *>(Duplicate::allocate(sizeof(Element)));
    *copy = element;
    copy->next = nullptr;
    Duplicate duplicate;
    Owned<Element>::visit(*copy, duplicate);
    return copy;
}

/// A chain of `size` copies of a chain's elements.
template <class Element> Element *grown(const Element *chain, std::size_t size)
{
    Element *first = nullptr;
    Element **link = &first;
    const Element *element = chain;
    for (std::size_t i = 0; i < size; ++i) {
        *link = copy_of(*element);
        link = &(*link)->next;
        element = element->next != nullptr ? element->next : chain;
    }
    return first;
}

/// One node: the resource's first sample, with a chain of `size` elements.
template <class Record, class Element, Element *Record::*chain>
Nodes one_with_chain(std::string_view resource, std::size_t size)
{
    Nodes nodes{sample_nodes(resource).front()};
    Element *&first = nodes.front().record().as<Record>().*chain;
    Element *sample = first;
    first = grown(sample, size);
    Free().chain(sample);
    return nodes;
}

/// A tree of `size` neighbours, each of which has up to three.
kelmora_easymesh_neighbor *neighbor_tree(const kelmora_easymesh_neighbor &sample, std::size_t size)
{
    constexpr std::size_t most = 3;
    std::vector<kelmora_easymesh_neighbor *> all;
    for (std::size_t i = 0; i < size; ++i) {
        kelmora_easymesh_neighbor childless = sample;
        childless.neighbors = nullptr;
        all.push_back(copy_of(childless));
        if (i == 0)
            continue;
        kelmora_easymesh_neighbor **link = &all[(i - 1) / most]->neighbors;
        while (*link != nullptr)
            link = &(*link)->next;
        *link = all.back();
    }
    return all.front();
}

Nodes mesh(std::string_view resource, std::size_t size)
{
    Nodes nodes{sample_nodes(resource).front()};
    kelmora_easymesh_neighbor *&neighbors = nodes.front().record().as<kelmora_easymesh>().neighbors;
    kelmora_easymesh_neighbor *sample = neighbors;
    neighbors = neighbor_tree(*sample, size);
    Free().chain(sample);
    return nodes;
}

constexpr auto rules_of_filter =
    one_with_chain<kelmora_firewall_ip_port_filtering, kelmora_firewall_ip_port_filtering_rule,
                   &kelmora_firewall_ip_port_filtering::filter_lists>;
constexpr auto rules_of_control = one_with_chain<kelmora_parental_control, kelmora_parental_control_rule,
                                                 &kelmora_parental_control::parental_control_list>;
constexpr auto hops = one_with_chain<kelmora_traceroute, kelmora_traceroute_hop, &kelmora_traceroute::hop_list>;

constexpr Workload all[] = {
    {"wireless", 8, copies, nullptr, wireless_to_baseline, wireless_from_baseline},
    {"connected_device", 200, copies, nullptr, connected_device_to_baseline, nullptr},
    {"wan", 8, copies, nullptr, wan_to_baseline, wan_from_baseline},
    {"tr069_config", 1, copies, nullptr, tr069_config_to_baseline, tr069_config_from_baseline},
    {"qos_classification", 16, copies, nullptr, qos_classification_to_baseline, qos_classification_from_baseline},
    {"firewall_ip_port_filtering", 64, rules_of_filter, "filter_lists", firewall_ip_port_filtering_to_baseline,
     firewall_ip_port_filtering_from_baseline},
    {"traceroute", 30, hops, nullptr, traceroute_to_baseline, traceroute_from_baseline},
    {"easymesh", 40, mesh, "neighbors", easymesh_to_baseline, easymesh_from_baseline},
    {"parental_control", 32, rules_of_control, "parental_control_list", parental_control_to_baseline,
     parental_control_from_baseline},
    {"interface", 8, copies, "ip6_list", interface_to_baseline, interface_from_baseline},
    {"pon_counters", 1, copies, nullptr, pon_counters_to_baseline, nullptr},
    {"datetime", 1, copies, nullptr, datetime_to_baseline, datetime_from_baseline},
};

Json read_example(std::string_view resource)
{
    const std::string file = KELMORA_EXAMPLES "/" + std::string(resource) + ".json";
    return Json(std::filesystem::exists(file) ? json_loads(kelmora_host::read_input(file).text.c_str(), 0, nullptr)
                                              : nullptr);
}

} // namespace

const Nodes &sample_nodes(std::string_view resource)
{
    static kelmora_host::Gateway gateway = kelmora_host::sample_gateway();
    return gateway.nodes(resource);
}

std::string example(std::string_view resource)
{
    const Json document = read_example(resource);
    return document ? kelmora_host::to_text(document) : "";
}

std::string Workload::document(std::size_t size) const
{
    if (list == nullptr)
        return example(resource);
    const Json document = read_example(resource);
    json_t *elements = json_object_get(document.get(), list);
    const std::size_t given = json_array_size(elements);
    json_t *grown = json_array();
    for (std::size_t i = 0; i < size; ++i)
        json_array_append(grown, json_array_get(elements, i % given));
    json_object_set_new(document.get(), list, grown);
    return kelmora_host::to_text(document);
}

std::span<const Workload> workloads() { return all; }

} // namespace kelmora_bench
