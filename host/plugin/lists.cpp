#include "host/plugin/lists.h"

#include "host/gateway/tails.h"
#include "host/plugin/observer.h"

#include "kelmora_host.h"
#include "kelmora_records.h"

#include <cstdlib>
#include <cstring>

// The chains that the plug-in has the host make. Nodes are blocks from calloc, which the record frees. A chain that a
// new one replaces is freed by FreeLost, as everything that a translator lets go of.

namespace {

void announce(const kelmora_host::AddedEntry &entry)
{
    kelmora_host::tell_observers([&](kelmora_host::Observer &observer) { observer.adding(entry); });
}

void announce_allocation(const void *record, std::string_view list, std::uint32_t entries)
{
    kelmora_host::tell_observers([&](kelmora_host::Observer &observer) { observer.allocating(record, list, entries); });
}

/// Gives a record a new chain of cleared nodes, or none when there is no memory for all of them.
template <class Node> bool allocate_list(Node *&first, std::uint32_t entries)
{
    first = nullptr;
    if (entries > kelmora_host::ListLimit::longest())
        return false;
    for (std::uint32_t i = 0; i < entries; ++i) {
        auto *node = static_cast<Node *>(std::calloc(1, sizeof(Node)));
        if (node == nullptr) {
            while (first != nullptr) {
                Node *next = first->next;
                std::free(first);
                first = next;
            }
            return false;
        }
        node->next = first;
        first = node;
    }
    return true;
}

/// Appends a copy to a chain; nothing when there is no memory for it.
template <class Node> bool append(Node *&first, const Node &node)
{
    auto *copy = static_cast<Node *>(std::calloc(1, sizeof(Node)));
    if (copy == nullptr)
        return false;
    *copy = node;
    copy->next = nullptr;
    kelmora_host::Tails::append(first, copy);
    return true;
}

/// The same for a node that is one text, cut to the node's field.
template <class Node, std::size_t width> void append_text(Node *&first, char (Node::*field)[width], const char *text)
{
    Node node{};
    std::strncpy(node.*field, text, width - 1);
    append(first, node);
}

void report_no_room(kelmora_errorlist *errors, const char *list)
{
    kelmora_errorlist_add_error(errors, list, "no room for the list", "host");
}

} // namespace

void kelmora_wlan_access_control_allocate_list(kelmora_wlan_access_control *record, uint32_t entries)
{
    announce_allocation(record, "mac_list", entries);
    allocate_list(record->mac_list, entries);
}

int kelmora_parental_control_allocate_list(kelmora_parental_control *record, uint32_t entries,
                                           kelmora_errorlist *errors)
{
    announce_allocation(record, "parental_control_list", entries);
    if (allocate_list(record->parental_control_list, entries))
        return 1;
    report_no_room(errors, "parental_control_list");
    return 0;
}

void kelmora_ipv6_dhcp_dns_servers_add(kelmora_ipv6_dhcp_server *record, const char *address)
{
    announce({.record = record, .list = "dns_servers", .text = address});
    append_text(record->dns_servers, &kelmora_ipv6_dhcp_server_dns_server::address, address);
}

void kelmora_ipv6_dhcp_domains_add(kelmora_ipv6_dhcp_server *record, const char *domain)
{
    announce({.record = record, .list = "domains", .text = domain});
    append_text(record->domains, &kelmora_ipv6_dhcp_server_domain::domain, domain);
}

void kelmora_tr369_local_agent_controller_mtp_add(kelmora_tr369_local_agent_controller *record,
                                                  kelmora_tr369_local_agent_controller_mtp *mtp, int reserved,
                                                  kelmora_errorlist *errors)
{
    announce({.record = record, .list = "mtp", .node = mtp, .reserved = reserved, .errors = errors});
    if (!append(record->mtp, *mtp))
        report_no_room(errors, "mtp");
}

void kelmora_tr369_mqttt_client_subscription_add_element(kelmora_tr369_mqtt_client *record,
                                                         kelmora_tr369_mqtt_client_subscription *subscription,
                                                         int reserved, kelmora_errorlist *errors)
{
    announce({.record = record, .list = "subscription", .node = subscription, .reserved = reserved, .errors = errors});
    if (!append(record->subscription, *subscription))
        report_no_room(errors, "subscription");
}
