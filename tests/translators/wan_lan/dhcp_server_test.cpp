#include "tests/support/from_test.h"
#include "tests/support/to_test.h"

#include "kelmora_json.h"
#include "records/wan_lan.h"

namespace kelmora_test::dhcp_server_test {

namespace {

using testing::AllOf;
using testing::HasSubstr;

using Lease = kelmora_dhcp_server_lease;

constexpr kelmora_dhcp_server without_leases{
    .enabled = 1,
    .interface = "br0",
    .rangeStart = "192.168.17.100",
    .rangeEnd = "192.168.17.199",
    .dns_mode = 2,
    .dns1 = "192.168.17.1",
    .dns2 = "9.9.9.9",
    .leases = nullptr,
    .dhcpLeaseTime = 86400,
};

Lease *two_leases()
{
    return kelmora_host::make_chain<Lease>({
        {.mac = "5c:e9:31:0a:77:d2", .ip = "192.168.17.100"},
        {.mac = "a4:83:e7:4c:19:60", .ip = "192.168.17.104"},
    });
}

/// A new record each time, as each node owns its chain.
kelmora_dhcp_server sample()
{
    kelmora_dhcp_server server = without_leases;
    server.leases = two_leases();
    return server;
}

constexpr char sample_text[] =
    R"({"id": "br0", "enabled": true, "interface": "br0", "rangeStart": "192.168.17.100", )"
    R"("rangeEnd": "192.168.17.199", "dns_mode": 2, "dhcpLeaseTime": 86400, "dns1": "192.168.17.1", )"
    R"("dns2": "9.9.9.9", "leases": [{"mac": "5c:e9:31:0a:77:d2", "ip": "192.168.17.100"}, )"
    R"({"mac": "a4:83:e7:4c:19:60", "ip": "192.168.17.104"}]})";

constexpr char other_text[] =
    R"({"id": "br1", "enabled": true, "interface": "br0", "rangeStart": "192.168.17.100", )"
    R"("rangeEnd": "192.168.17.199", "dns_mode": 2, "dhcpLeaseTime": 86400, "dns1": "192.168.17.1", )"
    R"("dns2": "9.9.9.9", "leases": []})";

class DhcpServerTo : public ToTest<kelmora_dhcp_server> {
protected:
    DhcpServerTo() : ToTest(dhcp_server_to_translator) {}
};

TEST_F(DhcpServerTo, WritesTheKeysInOrder)
{
    add("br0", sample());
    EXPECT_EQ(object(), sample_text);
    EXPECT_EQ(list(), "[" + std::string(sample_text) + "]");
}

TEST_F(DhcpServerTo, WritesNoLeasesAsAnEmptyArray)
{
    add("br1", without_leases);
    EXPECT_EQ(object(), other_text);
}

TEST_F(DhcpServerTo, WritesTheModeAsUnsignedAndTheLeaseTimeAsSigned)
{
    add("", {.dns_mode = 4294967295, .dhcpLeaseTime = -1});
    EXPECT_EQ(object(), R"({"id": "", "enabled": false, "interface": "", "rangeStart": "", "rangeEnd": "", )"
                        R"("dns_mode": 4294967295, "dhcpLeaseTime": -1, "dns1": "", "dns2": "", "leases": []})");
    add("", {.dns_mode = 2147483648, .dhcpLeaseTime = -2147483648});
    EXPECT_THAT(object(), HasSubstr(R"("dns_mode": 2147483648, "dhcpLeaseTime": -2147483648)"));
}

TEST_F(DhcpServerTo, WritesAnySwitchButZeroAsTrue)
{
    add("br0", without_leases).enabled = 128;
    EXPECT_THAT(object(), HasSubstr(R"("enabled": true)"));
}

TEST_F(DhcpServerTo, CutsTextsToOneByteLessThanTheirField)
{
    kelmora_dhcp_server &server = add("br0", sample());
    fill_whole(server.interface, 'i');
    fill_whole(server.rangeStart, 's');
    fill_whole(server.rangeEnd, 'e');
    fill_whole(server.dns1, '1');
    fill_whole(server.dns2, '2');
    fill_whole(server.leases->mac, 'm');
    fill_whole(server.leases->ip, 'p');
    fill_whole(nodes_.front().resource()->id, 'n');
    EXPECT_EQ(object(), R"({"id": ")" + std::string(128, 'n') + R"(", "enabled": true, "interface": ")" +
                            std::string(127, 'i') +
                            R"(", "rangeStart": "ssssssssssssssss", "rangeEnd": "eeeeeeeeeeeeeeee", )"
                            R"("dns_mode": 2, "dhcpLeaseTime": 86400, "dns1": "1111111111111111", )"
                            R"("dns2": "2222222222222222", "leases": [{"mac": "mmmmmmmmmmmmmmmmm", )"
                            R"("ip": "pppppppppppppppp"}, {"mac": "a4:83:e7:4c:19:60", "ip": "192.168.17.104"}]})");
}

TEST_F(DhcpServerTo, LeavesOutTextsThatAreNotUtf8)
{
    kelmora_dhcp_server &server = add("br0", sample());
    set(server.dns1, "caf\xE9");
    set(server.leases->ip, "\xFF");
    EXPECT_THAT(object(),
                AllOf(HasSubstr(R"("dhcpLeaseTime": 86400, "dns2")"), HasSubstr(R"([{"mac": "5c:e9:31:0a:77:d2"}, )")));
}

TEST_F(DhcpServerTo, WritesOtherScriptsAndSlashesAsTheyAre)
{
    set(add("br0", without_leases).interface, "Büro/\"2\"");
    EXPECT_THAT(object(), HasSubstr("\"interface\": \"Büro/\\\"2\\\"\""));
}

TEST_F(DhcpServerTo, WritesManyLeasesIntoALargerBuffer)
{
    kelmora_dhcp_server &server = add("br0", without_leases);
    std::string expected = std::string(other_text).substr(0, std::string(other_text).size() - 2);
    expected.replace(expected.find("br1"), 3, "br0");
    for (int i = 0; i < 100; ++i) {
        auto *lease = kelmora_host::make_chain<Lease>({{.mac = "5c:e9:31:0a:77:d2", .ip = "192.168.17.100"}});
        lease->next = server.leases;
        server.leases = lease;
        expected += R"({"mac": "5c:e9:31:0a:77:d2", "ip": "192.168.17.100"})";
        expected += i < 99 ? ", " : "]}";
    }
    EXPECT_EQ(object(), expected);
    EXPECT_EQ(reallocations_, 1U);
}

constexpr char document[] = R"({
    "id": "never read", "enabled": true, "interface": "br2", "rangeStart": "10.40.0.50", "rangeEnd": "10.40.0.90",
    "dns_mode": 7, "dhcpLeaseTime": 3600, "dns1": "10.40.0.1", "dns2": "149.112.112.112",
    "leases": [{"mac": "never read", "ip": "never read"}]
})";

/// Success leaves the document unreleased, failures release it.
class DhcpServerFrom : public FromTest<kelmora_dhcp_server> {
protected:
    DhcpServerFrom() : FromTest(dhcp_server_from_translator, document) { leaks_document_on_success_ = true; }

    testing::AssertionResult misses(const std::string &text, const std::string &key)
    {
        return rejects(text, key, key + " field not found");
    }
};

TEST_F(DhcpServerFrom, StoresEveryKeyAndKeepsTheDocument)
{
    EXPECT_TRUE(accepts(document)); // which looks at the document as well
    EXPECT_EQ(record().enabled, 1);
    EXPECT_STREQ(record().interface, "br2");
    EXPECT_STREQ(record().rangeStart, "10.40.0.50");
    EXPECT_STREQ(record().rangeEnd, "10.40.0.90");
    EXPECT_EQ(record().dns_mode, 7U);
    EXPECT_EQ(record().dhcpLeaseTime, 3600);
    EXPECT_STREQ(record().dns1, "10.40.0.1");
    EXPECT_STREQ(record().dns2, "149.112.112.112");
}

TEST_F(DhcpServerFrom, AsksForTheRequiredKeysInOrder)
{
    expect_required_in_order({
        {"enabled", "enabled", "enabled field not found"},
        {"interface", "interface", "interface field not found"},
        {"rangeStart", "rangeStart", "rangeStart field not found"},
        {"rangeEnd", "rangeEnd", "rangeEnd field not found"},
        {"dns1", "dns1", "dns1 field not found"},
        {"dns2", "dns2", "dns2 field not found"},
    });
}

TEST_F(DhcpServerFrom, MissingEnabledStoresNothing)
{
    EXPECT_TRUE(misses(without(document, "enabled"), "enabled"));
    EXPECT_TRUE(untouched(record().enabled));
    EXPECT_TRUE(untouched(record().interface));
    EXPECT_TRUE(untouched(record().dns_mode));
    EXPECT_TRUE(untouched(record().dns2));
}

TEST_F(DhcpServerFrom, MissingRangeEndLeavesTheModeBehindItUnread)
{
    EXPECT_TRUE(misses(without(document, "rangeEnd"), "rangeEnd"));
    EXPECT_EQ(record().enabled, 1);
    EXPECT_STREQ(record().interface, "br2");
    EXPECT_STREQ(record().rangeStart, "10.40.0.50");
    EXPECT_TRUE(untouched(record().rangeEnd));
    EXPECT_TRUE(untouched(record().dns_mode));
    EXPECT_TRUE(untouched(record().dhcpLeaseTime));
    EXPECT_TRUE(untouched(record().dns1));
}

TEST_F(DhcpServerFrom, MissingDns1KeepsTheModeAndTheLeaseTimeStoredBefore)
{
    EXPECT_TRUE(misses(without(document, "dns1"), "dns1"));
    EXPECT_STREQ(record().rangeEnd, "10.40.0.90");
    EXPECT_EQ(record().dns_mode, 7U);
    EXPECT_EQ(record().dhcpLeaseTime, 3600);
    EXPECT_TRUE(untouched(record().dns1));
    EXPECT_TRUE(untouched(record().dns2));
}

TEST_F(DhcpServerFrom, MissingDns2KeepsEverythingStoredBefore)
{
    EXPECT_TRUE(misses(without(document, "dns2"), "dns2"));
    EXPECT_EQ(record().enabled, 1);
    EXPECT_STREQ(record().interface, "br2");
    EXPECT_STREQ(record().rangeStart, "10.40.0.50");
    EXPECT_STREQ(record().rangeEnd, "10.40.0.90");
    EXPECT_EQ(record().dns_mode, 7U);
    EXPECT_EQ(record().dhcpLeaseTime, 3600);
    EXPECT_STREQ(record().dns1, "10.40.0.1");
    EXPECT_TRUE(untouched(record().dns2));
}

TEST_F(DhcpServerFrom, AsksForTheDnsServersWhateverTheMode)
{
    for (const char *mode : {"0", "1", "2", "3"}) {
        EXPECT_TRUE(misses(without(with(document, "dns_mode", mode), "dns1"), "dns1"));
        EXPECT_TRUE(misses(without(with(document, "dns_mode", mode), "dns2"), "dns2"));
    }
}

TEST_F(DhcpServerFrom, KeepsTheOptionalKeysThatAreAbsent)
{
    expect_optional("dns_mode", record().dns_mode);
    expect_optional("dhcpLeaseTime", record().dhcpLeaseTime);
}

TEST_F(DhcpServerFrom, NeverTouchesTheLeases)
{
    Lease *leases = two_leases();
    record().leases = leases;
    for (const char *json : {R"([{"mac": "new", "ip": "new"}])", "[]", "null", "7"}) {
        EXPECT_TRUE(accepts(with(document, "leases", json)));
        ASSERT_EQ(record().leases, leases);
        EXPECT_STREQ(leases->mac, "5c:e9:31:0a:77:d2");
        EXPECT_STREQ(leases->ip, "192.168.17.100");
        ASSERT_NE(leases->next, nullptr);
        EXPECT_STREQ(leases->next->mac, "a4:83:e7:4c:19:60");
        EXPECT_EQ(leases->next->next, nullptr);
    }
    EXPECT_TRUE(accepts(without(document, "leases")));
    EXPECT_EQ(record().leases, leases);
}

TEST_F(DhcpServerFrom, TakesOnlyTrueForTrue) { expect_boolean("enabled", record().enabled); }

TEST_F(DhcpServerFrom, CutsIntegersToTheirWidth)
{
    expect_integer("dns_mode", record().dns_mode);
    expect_integer("dhcpLeaseTime", record().dhcpLeaseTime);
}

TEST_F(DhcpServerFrom, CutsTextsToTheirField)
{
    expect_string("interface", record().interface);
    expect_string("rangeStart", record().rangeStart);
    expect_string("rangeEnd", record().rangeEnd);
    expect_string("dns1", record().dns1);
    expect_string("dns2", record().dns2);
}

} // namespace

} // namespace kelmora_test::dhcp_server_test
