#include "tests/support/from_test.h"
#include "tests/support/to_test.h"

#include "kelmora_json.h"
#include "records/wan_lan.h"

namespace kelmora_test::dhcp_static_lease_test {

namespace {

using testing::AllOf;
using testing::HasSubstr;

constexpr kelmora_dhcp_static_lease sample{
    .description = "Büro/Printer",
    .mac = "00:1b:a9:6d:e3:0f",
    .ip = "192.168.17.20",
};

constexpr kelmora_dhcp_static_lease other{
    .description = "",
    .mac = "90:09:d0:1f:82:b6",
    .ip = "192.168.17.21",
};

constexpr char sample_text[] = R"({
                "description": "B\u00FCro\/Printer",
                "id": "0",
                "ip": "192.168.17.20",
                "mac": "00:1b:a9:6d:e3:0f"
})";

constexpr char both_text[] = R"([
                {
                                "description": "B\u00FCro\/Printer",
                                "id": "0",
                                "ip": "192.168.17.20",
                                "mac": "00:1b:a9:6d:e3:0f"
                },
                {
                                "description": "",
                                "id": "1",
                                "ip": "192.168.17.21",
                                "mac": "90:09:d0:1f:82:b6"
                }
])";

class DhcpStaticLeaseTo : public ToTest<kelmora_dhcp_static_lease> {
protected:
    DhcpStaticLeaseTo() : ToTest(dhcp_static_lease_to_translator) {}
};

TEST_F(DhcpStaticLeaseTo, WritesSortedKeysIndentedAndEscaped)
{
    add("0", sample);
    EXPECT_EQ(object(), sample_text);
    add("1", other);
    EXPECT_EQ(list(), both_text);
}

TEST_F(DhcpStaticLeaseTo, CutsTextsToOneByteLessThanTheirField)
{
    kelmora_dhcp_static_lease &lease = add("0");
    fill_whole(lease.description, 'd');
    fill_whole(lease.mac, 'm');
    fill_whole(lease.ip, 'p');
    fill_whole(nodes_.front().resource()->id, 'n');
    EXPECT_THAT(object(), AllOf(HasSubstr("\"description\": \"" + std::string(32, 'd') + '"'),
                                HasSubstr("\"mac\": \"" + std::string(17, 'm') + '"'),
                                HasSubstr("\"ip\": \"" + std::string(16, 'p') + '"'),
                                HasSubstr("\"id\": \"" + std::string(128, 'n') + '"')));
}

TEST_F(DhcpStaticLeaseTo, LeavesOutTextsThatAreNotUtf8OrWhoseCutSplitsACharacter)
{
    kelmora_dhcp_static_lease &lease = add("0", sample);
    fill_whole(lease.description, 'd');
    lease.description[31] = '\xC3'; // the last byte that is written
    lease.description[32] = '\xBC';
    set(lease.mac, "\xFF");
    EXPECT_EQ(object(), R"({
                "id": "0",
                "ip": "192.168.17.20"
})");
}

TEST_F(DhcpStaticLeaseTo, GrowsTheBufferForManyLeases)
{
    for (int i = 0; i < 64; ++i)
        add("1", other);
    const std::string text = list();
    EXPECT_THAT(text, AllOf(testing::StartsWith("[\n                {\n"), testing::EndsWith("                }\n]")));
    std::size_t leases = 0;
    for (std::size_t at = 0; (at = text.find("90:09:d0:1f:82:b6", at)) != std::string::npos; ++at)
        ++leases;
    EXPECT_EQ(leases, 64U);
    EXPECT_EQ(reallocations_, 1U);
}

constexpr char document[] = R"({
    "id": "never read", "description": "Greenhouse", "ip": "192.168.17.33", "mac": "b8:27:eb:73:0d:c4"
})";

class DhcpStaticLeaseFrom : public FromTest<kelmora_dhcp_static_lease> {
protected:
    DhcpStaticLeaseFrom() : FromTest(dhcp_static_lease_from_translator, document) {}
};

TEST_F(DhcpStaticLeaseFrom, StoresEveryKey)
{
    EXPECT_TRUE(accepts(document));
    EXPECT_STREQ(record().mac, "b8:27:eb:73:0d:c4");
    EXPECT_STREQ(record().ip, "192.168.17.33");
    EXPECT_STREQ(record().description, "Greenhouse");
}

TEST_F(DhcpStaticLeaseFrom, AsksForTheRequiredKeysInOrder)
{
    expect_required_in_order({{"mac", "mac", "mac field not found"}, {"ip", "ip", "ip field not found"}});
}

TEST_F(DhcpStaticLeaseFrom, MissingMacStoresNothing)
{
    EXPECT_TRUE(rejects(without(document, "mac"), "mac", "mac field not found"));
    EXPECT_TRUE(untouched(record()));
}

TEST_F(DhcpStaticLeaseFrom, MissingIpKeepsTheMacStoredBefore)
{
    EXPECT_TRUE(rejects(without(document, "ip"), "ip", "ip field not found"));
    EXPECT_STREQ(record().mac, "b8:27:eb:73:0d:c4");
    EXPECT_TRUE(untouched(record().ip));
    EXPECT_TRUE(untouched(record().description));
}

TEST_F(DhcpStaticLeaseFrom, KeepsTheDescriptionThatIsAbsent) { expect_optional("description", record().description); }

TEST_F(DhcpStaticLeaseFrom, CutsTextsToTheirField)
{
    expect_string("mac", record().mac);
    expect_string("ip", record().ip);
    expect_string("description", record().description);
}

TEST_F(DhcpStaticLeaseFrom, StoresTheFirst32CharactersOfALongDescription)
{
    EXPECT_TRUE(accepts(with(document, "description", R"("0123456789012345678901234567890123456789")")));
    EXPECT_STREQ(record().description, "01234567890123456789012345678901");
}

} // namespace

} // namespace kelmora_test::dhcp_static_lease_test
