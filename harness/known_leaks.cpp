#include "harness/known_leaks.h"

#include <algorithm>
#include <array>

namespace kelmora_harness {

namespace {

constexpr std::array<KnownLeak, 11> paths{{
    {"dhcp_server", 1, "", "it is accepted"},
    {"loop_back_detect", 1, "", "it is accepted"},
    {"tr369_local_agent_mtp", 1, "", "it is accepted"},
    {"ipv6_proxy_mld", 0, "*", "a required key is missing"},
    {"rip_enable", 0, "*", "a required key is missing"},
    {"rip_config", 0, "*", "a required key is missing"},
    {"ipv6_ip_port_filter_default_rule", 0, "*", "a required key is missing"},
    {"ipv6_dhcp_server", 0, "addresses_config", "`addresses_config` is missing"},
    {"wan_lan_list", 0, "lan_list.*", "an element of its list lacks a member"},
    {"firewall_mac_filtering", 0, "entry.*", "an element of its list lacks a member"},
    {"firewall_ip_port_filtering", 0, "filter_lists.*", "an element of its list lacks a member"},
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
    return !text.empty() && (answer.result == 1 || (!answer.errors.empty() && !answer.errors.back().field.empty()));
}

} // namespace

std::span<const KnownLeak> known_leaks() { return paths; }

const KnownLeak *known_leak(std::string_view resource, const std::string &text, const kelmora_host::Decoded &answer)
{
    if (!was_parsed(text, answer))
        return nullptr;
    const auto *found = std::ranges::find_if(paths, [&](const KnownLeak &path) {
        return path.resource == resource && path.result == answer.result &&
               (answer.result == 1 || matches(path.error, answer.errors.back().field));
    });
    return found != paths.end() ? found : nullptr;
}

} // namespace kelmora_harness
