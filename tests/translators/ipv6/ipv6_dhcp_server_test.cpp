#include "tests/support/from_test.h"
#include "tests/support/to_test.h"

#include "harness/watch.h"

#include "kelmora_json.h"
#include "records/ipv6.h"

namespace kelmora_test::ipv6_dhcp_server_test {

namespace {

using testing::AllOf;
using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;
using testing::IsEmpty;

using Domain = kelmora_ipv6_dhcp_server_domain;
using DnsServer = kelmora_ipv6_dhcp_server_dns_server;

constexpr kelmora_ipv6_dhcp_server without_lists{
    .mode = 2,
    .ip_pool_range_start = "2001:db8:4c:1700::100",
    .ip_pool_range_end = "2001:db8:4c:1700::1ff",
    .prefix_length = 64,
    .valid_lifetime = 86400,
    .preffered_lifetime = 43200,
    .renew_time = 21600,
    .rebind_time = 34560,
    .client_duid = "01",
    .domains = nullptr,
    .dns_servers = nullptr,
};

/// A new record each time, as each node owns its chains.
kelmora_ipv6_dhcp_server sample()
{
    kelmora_ipv6_dhcp_server server = without_lists;
    server.domains = kelmora_host::make_chain<Domain>({{.domain = "home.arpa"}, {.domain = "nordlicht.example"}});
    server.dns_servers = kelmora_host::make_chain<DnsServer>(
        {{.address = "fe80::1"}, {.address = "2620:fe::fe"}, {.address = "2620:fe::9"}});
    return server;
}

constexpr char sample_text[] =
    R"({"id": "br0", "mode": 2, "addresses_config": {"ip_pool_range_start": "2001:db8:4c:1700::100", )"
    R"("ip_pool_range_end": "2001:db8:4c:1700::1ff", "prefix_length": 64, "valid_lifetime": 86400, )"
    R"("preffered_lifetime": 43200, "renew_time": 21600, "rebind_time": 34560, "client_duid": "01"}, )"
    R"("domains": ["home.arpa", "nordlicht.example"], "dns_servers": ["fe80::1", "2620:fe::fe", "2620:fe::9"]})";

constexpr char other_text[] =
    R"({"id": "br1", "mode": 2, "addresses_config": {"ip_pool_range_start": "2001:db8:4c:1700::100", )"
    R"("ip_pool_range_end": "2001:db8:4c:1700::1ff", "prefix_length": 64, "valid_lifetime": 86400, )"
    R"("preffered_lifetime": 43200, "renew_time": 21600, "rebind_time": 34560, "client_duid": "01"}, )"
    R"("domains": [], "dns_servers": []})";

class Ipv6DhcpServerTo : public ToTest<kelmora_ipv6_dhcp_server> {
protected:
    Ipv6DhcpServerTo() : ToTest(ipv6_dhcp_server_to_translator) {}
};

TEST_F(Ipv6DhcpServerTo, WritesTheKeysInOrder)
{
    add("br0", sample());
    EXPECT_EQ(object(), sample_text);
    EXPECT_EQ(list(), "[" + std::string(sample_text) + "]");
}

TEST_F(Ipv6DhcpServerTo, WritesEmptyListsAsEmptyArrays)
{
    add("br1", without_lists);
    EXPECT_EQ(object(), other_text);
}

TEST_F(Ipv6DhcpServerTo, WritesEachListFromItsOwnChain)
{
    add("", {.domains = kelmora_host::make_chain<Domain>({{.domain = "home.arpa"}})});
    EXPECT_THAT(object(), EndsWith(R"(, "domains": ["home.arpa"], "dns_servers": []})"));
    nodes_.clear();
    add("", {.dns_servers = kelmora_host::make_chain<DnsServer>({{.address = "fe80::1"}})});
    EXPECT_THAT(object(), EndsWith(R"(, "domains": [], "dns_servers": ["fe80::1"]})"));
}

TEST_F(Ipv6DhcpServerTo, WritesIntegersAsUnsigned)
{
    constexpr std::uint32_t most = 4294967295;
    add("", {.mode = most,
             .prefix_length = most,
             .valid_lifetime = most,
             .preffered_lifetime = most,
             .renew_time = most,
             .rebind_time = most});
    EXPECT_EQ(object(), R"({"id": "", "mode": 4294967295, "addresses_config": {"ip_pool_range_start": "", )"
                        R"("ip_pool_range_end": "", "prefix_length": 4294967295, "valid_lifetime": 4294967295, )"
                        R"("preffered_lifetime": 4294967295, "renew_time": 4294967295, "rebind_time": 4294967295, )"
                        R"("client_duid": ""}, "domains": [], "dns_servers": []})");
}

TEST_F(Ipv6DhcpServerTo, CutsTextsToOneByteLessThanTheirField)
{
    kelmora_ipv6_dhcp_server &server = add("", sample());
    fill_whole(server.ip_pool_range_start, 's');
    fill_whole(server.ip_pool_range_end, 'e');
    fill_whole(server.client_duid, 'c');
    fill_whole(server.domains->domain, 'd');
    fill_whole(server.dns_servers->next->address, 'a');
    fill_whole(nodes_.front().resource()->id, 'n');
    EXPECT_EQ(object(), R"({"id": ")" + std::string(128, 'n') +
                            R"(", "mode": 2, "addresses_config": {"ip_pool_range_start": ")" + std::string(45, 's') +
                            R"(", "ip_pool_range_end": ")" + std::string(45, 'e') +
                            R"(", "prefix_length": 64, "valid_lifetime": 86400, "preffered_lifetime": 43200, )"
                            R"("renew_time": 21600, "rebind_time": 34560, "client_duid": "cc"}, "domains": [")" +
                            std::string(254, 'd') + R"(", "nordlicht.example"], "dns_servers": ["fe80::1", ")" +
                            std::string(45, 'a') + R"(", "2620:fe::9"]})");
}

TEST_F(Ipv6DhcpServerTo, LeavesOutATextWhoseCutSplitsACharacter)
{
    kelmora_ipv6_dhcp_server &server = add("br0", sample());
    server.client_duid[0] = 'c';
    server.client_duid[1] = '\xC3'; // the first byte of a two-byte character: the last that is written
    server.client_duid[2] = '\xA4';
    fill_whole(server.domains->domain, 'd');
    server.domains->domain[253] = '\xC3';
    server.domains->domain[254] = '\xA4';
    EXPECT_THAT(object(), HasSubstr(R"("rebind_time": 34560}, "domains": ["nordlicht.example"])"));
}

TEST_F(Ipv6DhcpServerTo, LeavesOutTextsThatAreNotUtf8)
{
    kelmora_ipv6_dhcp_server &server = add("br0", sample());
    set(server.ip_pool_range_start, "caf\xE9");
    set(server.ip_pool_range_end, "\xFF");
    set(server.dns_servers->next->address, "\xE2\x82");
    EXPECT_THAT(object(), AllOf(HasSubstr(R"("addresses_config": {"prefix_length": 64)"),
                                HasSubstr(R"("dns_servers": ["fe80::1", "2620:fe::9"])")));
}

TEST_F(Ipv6DhcpServerTo, WritesEntriesThatAreEmpty)
{
    add("", {.domains = kelmora_host::make_chain<Domain>({{.domain = ""}, {.domain = "home.arpa"}}),
             .dns_servers = kelmora_host::make_chain<DnsServer>({{.address = ""}})});
    EXPECT_THAT(object(), EndsWith(R"("domains": ["", "home.arpa"], "dns_servers": [""]})"));
}

TEST_F(Ipv6DhcpServerTo, WritesOtherScriptsAndSlashesAsTheyAre)
{
    set(add("br0", sample()).domains->domain, "büro/\"2\" 北");
    EXPECT_THAT(object(), HasSubstr("\"domains\": [\"büro/\\\"2\\\" 北\", "));
}

TEST_F(Ipv6DhcpServerTo, WritesChainsThatOutgrowTheBuffer)
{
    kelmora_ipv6_dhcp_server &server = add("br1", without_lists);
    std::string expected = std::string(other_text).substr(0, std::string(other_text).size() - 2);
    for (int i = 0; i < 400; ++i) {
        auto *longer = kelmora_host::make_chain<DnsServer>({{.address = "2620:fe::fe"}});
        longer->next = server.dns_servers;
        server.dns_servers = longer;
        expected += i < 399 ? R"("2620:fe::fe", )" : R"("2620:fe::fe"]})";
    }
    EXPECT_EQ(object(), expected);
    EXPECT_EQ(reallocations_, 1U);
}

// The longest text first, and never read: it takes the one character that jansson may lose of a text when an allocation
// fails, which would else make "addresses_config" missing, and that leaks the document.
constexpr char document[] = R"({
    "never read, and longer than any key that is": 0,
    "mode": 1,
    "addresses_config": {
        "ip_pool_range_start": "2001:db8:99:4200::a000", "ip_pool_range_end": "2001:db8:99:4200::afff",
        "prefix_length": 60, "valid_lifetime": 7200, "preffered_lifetime": 3600, "renew_time": 1800,
        "rebind_time": 2880, "client_duid": "03"
    },
    "domains": ["guests.example", "lab.example"],
    "dns_servers": ["2001:db8:99::53", "2001:db8:99::54", "2001:db8:99::55"],
    "id": "never read"
})";

class Ipv6DhcpServerFrom : public FromTest<kelmora_ipv6_dhcp_server> {
protected:
    Ipv6DhcpServerFrom() : FromTest(ipv6_dhcp_server_from_translator, document) {}

    std::vector<std::string> domains()
    {
        std::vector<std::string> domains;
        for (const Domain *node = record().domains; node != nullptr; node = node->next)
            domains.emplace_back(node->domain);
        return domains;
    }

    std::vector<std::string> dns_servers()
    {
        std::vector<std::string> addresses;
        for (const DnsServer *node = record().dns_servers; node != nullptr; node = node->next)
            addresses.emplace_back(node->address);
        return addresses;
    }

    /// All that the record holds but its lists.
    void expect_settings_stored()
    {
        EXPECT_EQ(record().mode, 1U);
        EXPECT_STREQ(record().ip_pool_range_start, "2001:db8:99:4200::a000");
        EXPECT_STREQ(record().ip_pool_range_end, "2001:db8:99:4200::afff");
        EXPECT_EQ(record().prefix_length, 60U);
        EXPECT_EQ(record().valid_lifetime, 7200U);
        EXPECT_EQ(record().preffered_lifetime, 3600U);
        EXPECT_EQ(record().renew_time, 1800U);
        EXPECT_EQ(record().rebind_time, 2880U);
        EXPECT_STREQ(record().client_duid, "03");
    }

    testing::AssertionResult misses(const std::string &text, const std::string &key)
    {
        return rejects(text, key, key + " field not found");
    }
};

TEST_F(Ipv6DhcpServerFrom, StoresEveryKey)
{
    EXPECT_TRUE(accepts(document));
    expect_settings_stored();
    EXPECT_THAT(domains(), ElementsAre("guests.example", "lab.example"));
    EXPECT_THAT(dns_servers(), ElementsAre("2001:db8:99::53", "2001:db8:99::54", "2001:db8:99::55"));
}

TEST_F(Ipv6DhcpServerFrom, AsksForTheRequiredKeysInOrder)
{
    expect_required_in_order({
        {"mode", "mode", "field not found"},
        {"addresses_config.ip_pool_range_start", "ip_pool_range_start", "ip_pool_range_start field not found"},
        {"addresses_config.ip_pool_range_end", "ip_pool_range_end", "ip_pool_range_end field not found"},
        {"addresses_config.prefix_length", "prefix_length", "prefix_length field not found"},
        {"addresses_config.valid_lifetime", "valid_lifetime", "valid_lifetime field not found"},
        {"addresses_config.preffered_lifetime", "preffered_lifetime", "preffered_lifetime field not found"},
        {"addresses_config.renew_time", "renew_time", "renew_time field not found"},
        {"addresses_config.rebind_time", "rebind_time", "rebind_time field not found"},
        {"addresses_config.client_duid", "client_duid", "client_duid field not found"},
    });
}

TEST_F(Ipv6DhcpServerFrom, MissingModeStoresNothing)
{
    EXPECT_TRUE(rejects(without(document, "mode"), "mode", "field not found"));
    EXPECT_TRUE(rejects(without_all(document, {"mode", "addresses_config"}), "mode", "field not found"));
    EXPECT_TRUE(untouched(record().mode));
    EXPECT_TRUE(untouched(record().ip_pool_range_start));
    EXPECT_TRUE(untouched(record().client_duid));
    EXPECT_THAT(domains(), IsEmpty());
    EXPECT_THAT(dns_servers(), IsEmpty());
}

TEST_F(Ipv6DhcpServerFrom, MissingAddressesAloneKeepTheDocument)
{
    leaks_document_ = true;
    EXPECT_TRUE(misses(without(document, "addresses_config"), "addresses_config"));
    EXPECT_EQ(record().mode, 1U);
    EXPECT_TRUE(untouched(record().ip_pool_range_start));
    EXPECT_TRUE(untouched(record().prefix_length));
    EXPECT_THAT(domains(), IsEmpty());
    EXPECT_THAT(dns_servers(), IsEmpty());
    EXPECT_TRUE(misses(R"({"mode": 1})", "addresses_config"));
}

TEST_F(Ipv6DhcpServerFrom, AddressesThatAreNoObjectLackTheirKeysAndReleaseTheDocument)
{
    for (const char *other : {"null", "{}", "[]", "1", "1.5", "true", "\"::\"", R"([{"ip_pool_range_start": "::"}])"}) {
        poison();
        EXPECT_TRUE(misses(with(document, "addresses_config", other), "ip_pool_range_start"));
        EXPECT_EQ(record().mode, 1U);
        EXPECT_TRUE(untouched(record().ip_pool_range_start));
        EXPECT_THAT(domains(), IsEmpty());
    }
}

TEST_F(Ipv6DhcpServerFrom, ReadsTheAddressesNowhereElse)
{
    EXPECT_TRUE(
        misses(with(without(document, "addresses_config.prefix_length"), "prefix_length", "60"), "prefix_length"));
    EXPECT_TRUE(rejects(with(without(document, "mode"), "addresses_config.mode", "1"), "mode", "field not found"));
}

TEST_F(Ipv6DhcpServerFrom, AsksForThePreferredLifetimeInItsOwnSpelling)
{
    for (const char *spelling :
         {"preferred_lifetime", "prefered_lifetime", "preferrred_lifetime", "preffered_life_time"}) {
        poison();
        EXPECT_TRUE(misses(with(without(document, "addresses_config.preffered_lifetime"),
                                std::string("addresses_config.") + spelling, "3600"),
                           "preffered_lifetime"));
        EXPECT_EQ(record().valid_lifetime, 7200U);
        EXPECT_TRUE(untouched(record().preffered_lifetime));
        EXPECT_TRUE(untouched(record().renew_time));
    }
}

TEST_F(Ipv6DhcpServerFrom, MissingDuidKeepsWhatIsStoredBeforeAndAddsNothing)
{
    EXPECT_TRUE(misses(without(document, "addresses_config.client_duid"), "client_duid"));
    EXPECT_EQ(record().mode, 1U);
    EXPECT_STREQ(record().ip_pool_range_start, "2001:db8:99:4200::a000");
    EXPECT_STREQ(record().ip_pool_range_end, "2001:db8:99:4200::afff");
    EXPECT_EQ(record().prefix_length, 60U);
    EXPECT_EQ(record().valid_lifetime, 7200U);
    EXPECT_EQ(record().preffered_lifetime, 3600U);
    EXPECT_EQ(record().renew_time, 1800U);
    EXPECT_EQ(record().rebind_time, 2880U);
    EXPECT_TRUE(untouched(record().client_duid));
    EXPECT_THAT(domains(), IsEmpty());
    EXPECT_THAT(dns_servers(), IsEmpty());
}

TEST_F(Ipv6DhcpServerFrom, MissingPoolEndStoresNothingBehindIt)
{
    EXPECT_TRUE(misses(without(document, "addresses_config.ip_pool_range_end"), "ip_pool_range_end"));
    EXPECT_STREQ(record().ip_pool_range_start, "2001:db8:99:4200::a000");
    EXPECT_TRUE(untouched(record().ip_pool_range_end));
    EXPECT_TRUE(untouched(record().prefix_length));
    EXPECT_TRUE(untouched(record().client_duid));
    EXPECT_THAT(dns_servers(), IsEmpty());
}

TEST_F(Ipv6DhcpServerFrom, EachListMayBeAbsent)
{
    EXPECT_TRUE(accepts(without(document, "dns_servers")));
    EXPECT_THAT(domains(), ElementsAre("guests.example", "lab.example"));
    EXPECT_THAT(dns_servers(), IsEmpty());
    poison();
    EXPECT_TRUE(accepts(without(document, "domains")));
    EXPECT_THAT(domains(), IsEmpty());
    EXPECT_THAT(dns_servers(), ElementsAre("2001:db8:99::53", "2001:db8:99::54", "2001:db8:99::55"));
    poison();
    EXPECT_TRUE(accepts(without_all(document, {"domains", "dns_servers"})));
    EXPECT_THAT(domains(), IsEmpty());
    EXPECT_THAT(dns_servers(), IsEmpty());
    EXPECT_STREQ(record().client_duid, "03");
}

TEST_F(Ipv6DhcpServerFrom, AddsNothingFromAnythingButAnArray)
{
    for (const char *other : {"[]", "{}", R"({"0": "lab.example"})", R"("lab.example")", "null", "3", "true", "1.5"}) {
        poison();
        EXPECT_TRUE(accepts(with(with(document, "domains", other), "dns_servers", other)));
        EXPECT_THAT(domains(), IsEmpty()) << other;
        EXPECT_THAT(dns_servers(), IsEmpty()) << other;
    }
}

TEST_F(Ipv6DhcpServerFrom, HandsEmptyTextsOverLikeAnyOther)
{
    EXPECT_TRUE(accepts(with(with(document, "domains", R"(["", "lab.example", ""])"), "dns_servers",
                             R"(["", "2001:db8:99::53", ""])")));
    EXPECT_THAT(domains(), ElementsAre("", "lab.example", ""));
    EXPECT_THAT(dns_servers(), ElementsAre("", "2001:db8:99::53", ""));
}

TEST_F(Ipv6DhcpServerFrom, HandsElementsThatAreNoTextOverAsEmpty)
{
    const std::string elements = R"([1, "a", null, true, 1.5, {}, ["b"], false, "c"])";
    EXPECT_TRUE(accepts(with(with(document, "domains", elements), "dns_servers", elements)));
    EXPECT_THAT(domains(), ElementsAre("", "a", "", "", "", "", "", "", "c"));
    EXPECT_THAT(dns_servers(), ElementsAre("", "a", "", "", "", "", "", "", "c"));
}

TEST_F(Ipv6DhcpServerFrom, AddsRepeatedTextsEachTime)
{
    EXPECT_TRUE(accepts(with(document, "domains", R"(["lab.example", "lab.example"])")));
    EXPECT_THAT(domains(), ElementsAre("lab.example", "lab.example"));
}

TEST_F(Ipv6DhcpServerFrom, AddsAsManyEntriesAsThereAreElements)
{
    std::string json = R"("::0")";
    for (std::size_t count = 1; count <= 20; ++count) {
        poison();
        EXPECT_TRUE(accepts(with(with(document, "domains", "[" + json + "]"), "dns_servers", "[" + json + "]")));
        ASSERT_EQ(domains().size(), count);
        EXPECT_EQ(domains().back(), "::" + std::to_string(count - 1));
        EXPECT_EQ(dns_servers(), domains());
        json += ", \"::" + std::to_string(count) + "\"";
    }
}

TEST_F(Ipv6DhcpServerFrom, AddsBehindWhatTheListsHold)
{
    record().domains = kelmora_host::make_chain<Domain>({{.domain = "first"}, {.domain = "second"}});
    record().dns_servers = kelmora_host::make_chain<DnsServer>({{.address = "::1"}});
    EXPECT_TRUE(accepts(document));
    EXPECT_THAT(domains(), ElementsAre("first", "second", "guests.example", "lab.example"));
    EXPECT_THAT(dns_servers(), ElementsAre("::1", "2001:db8:99::53", "2001:db8:99::54", "2001:db8:99::55"));
    EXPECT_TRUE(accepts(with(without(document, "dns_servers"), "domains", R"(["third"])")));
    EXPECT_THAT(domains(), ElementsAre("first", "second", "guests.example", "lab.example", "third"));
    EXPECT_THAT(dns_servers(), ElementsAre("::1", "2001:db8:99::53", "2001:db8:99::54", "2001:db8:99::55"));
}

TEST_F(Ipv6DhcpServerFrom, FailureLeavesTheListsAlone)
{
    record().domains = kelmora_host::make_chain<Domain>({{.domain = "first"}});
    record().dns_servers = kelmora_host::make_chain<DnsServer>({{.address = "::1"}});
    EXPECT_TRUE(misses(without(document, "addresses_config.client_duid"), "client_duid"));
    EXPECT_THAT(domains(), ElementsAre("first"));
    EXPECT_THAT(dns_servers(), ElementsAre("::1"));
}

TEST_F(Ipv6DhcpServerFrom, HandsOverAllDomainsThenAllDnsServersOnceAllElseIsStored)
{
    std::vector<std::string> handed_over;
    const kelmora_harness::WatchEntries watch([&](const kelmora_host::AddedEntry &entry) {
        EXPECT_EQ(entry.record, &record());
        expect_settings_stored();
        handed_over.push_back(std::string(entry.list) + ' ' + std::string(entry.text));
    });
    const std::string domains_last =
        with(without(document, "domains"), "domains", R"(["guests.example", "lab.example"])");
    for (const std::string &text : {std::string(document), domains_last}) {
        poison();
        handed_over.clear();
        EXPECT_TRUE(accepts(text));
        EXPECT_THAT(handed_over,
                    ElementsAre("domains guests.example", "domains lab.example", "dns_servers 2001:db8:99::53",
                                "dns_servers 2001:db8:99::54", "dns_servers 2001:db8:99::55"));
    }
}

TEST_F(Ipv6DhcpServerFrom, LeavesTheCutOfLongEntriesToTheHost)
{
    std::vector<std::string> handed_over;
    const kelmora_harness::WatchEntries watch(
        [&](const kelmora_host::AddedEntry &entry) { handed_over.emplace_back(entry.text); });
    const std::string text = quoted(5000);
    EXPECT_TRUE(accepts(with(with(document, "domains", "[" + text + "]"), "dns_servers", "[" + text + "]")));
    EXPECT_THAT(handed_over, ElementsAre(text.substr(1, 5000), text.substr(1, 5000)));
    EXPECT_THAT(domains(), ElementsAre(text.substr(1, 254)));
    EXPECT_THAT(dns_servers(), ElementsAre(text.substr(1, 45)));
}

TEST_F(Ipv6DhcpServerFrom, CutsIntegersToTheirWidth)
{
    expect_integer("mode", record().mode);
    expect_integer("addresses_config.prefix_length", record().prefix_length);
    expect_integer("addresses_config.valid_lifetime", record().valid_lifetime);
    expect_integer("addresses_config.preffered_lifetime", record().preffered_lifetime);
    expect_integer("addresses_config.renew_time", record().renew_time);
    expect_integer("addresses_config.rebind_time", record().rebind_time);
}

TEST_F(Ipv6DhcpServerFrom, CutsTextsToTheirField)
{
    expect_string("addresses_config.ip_pool_range_start", record().ip_pool_range_start);
    expect_string("addresses_config.ip_pool_range_end", record().ip_pool_range_end);
    expect_string("addresses_config.client_duid", record().client_duid);
}

TEST_F(Ipv6DhcpServerFrom, StoresTheFirstTwoCharactersOfALongDuid)
{
    EXPECT_TRUE(accepts(with(document, "addresses_config.client_duid", R"("123")")));
    EXPECT_STREQ(record().client_duid, "12");
}

} // namespace

} // namespace kelmora_test::ipv6_dhcp_server_test
