#include "soak/known_leaks.h"

#include <algorithm>
#include <array>

namespace kelmora_soak {

namespace {

constexpr std::array<KnownLeak, 11> paths{{
    {"dhcp_server", 1, "", "every accepted document stays"},
    {"loop_back_detect", 1, "", "every accepted document stays"},
    {"tr369_local_agent_mtp", 1, "", "every accepted document stays"},
    {"ipv6_proxy_mld", 0, "*", "a missing key leaves the document"},
    {"rip_enable", 0, "*", "a missing key leaves the document"},
    {"rip_config", 0, "*", "a missing key leaves the document"},
    {"ipv6_ip_port_filter_default_rule", 0, "*", "a missing key leaves the document"},
    {"ipv6_dhcp_server", 0, "addresses_config", "the absence of this key alone leaves the document"},
    {"wan_lan_list", 0, "lan_list.*", "a missing member of an element leaves the document"},
    {"firewall_mac_filtering", 0, "entry.*", "a missing member of an element leaves the document"},
    {"firewall_ip_port_filtering", 0, "filter_lists.*", "a missing member of an element leaves the document"},
}};

bool matches(std::string_view pattern, std::string_view field)
{
    if (!pattern.ends_with('*'))
        return field == pattern;
    return field.starts_with(pattern.substr(0, pattern.size() - 1));
}

/// Whether there was a document at all: an empty text is not parsed, and the error of one that does not parse has no
/// field.
bool was_parsed(const std::string &text, const kelmora_host::Decoded &answer)
{
    return !text.empty() && (answer.result == 1 || (!answer.errors.empty() && !answer.errors.front().field.empty()));
}

} // namespace

std::span<const KnownLeak> known_leaks() { return paths; }

const KnownLeak *known_leak(std::string_view resource, const std::string &text, const kelmora_host::Decoded &answer)
{
    if (!was_parsed(text, answer))
        return nullptr;
    const auto *found = std::ranges::find_if(paths, [&](const KnownLeak &path) {
        return path.resource == resource && path.result == answer.result &&
               (answer.result == 1 || matches(path.error, answer.errors.front().field));
    });
    return found != paths.end() ? found : nullptr;
}

} // namespace kelmora_soak
