#include "tests/support/to_test.h"

#include "kelmora_json.h"
#include "records/ipv6.h"

namespace kelmora_test::ipv6_dhcp_client_test {

namespace {

using testing::HasSubstr;

constexpr kelmora_ipv6_dhcp_client sample{
    .ip_address = "2001:db8:4c:1700::164",
    .duid = "00:03:00:01:5c:e9:31:0a:77:d2",
    .aging_time = 71934,
};

constexpr char sample_text[] = R"({"id": "0", "ip_address": "2001:db8:4c:1700::164", )"
                               R"("duid": "00:03:00:01:5c:e9:31:0a:77:d2", "aging_time": 71934})";

class Ipv6DhcpClientTo : public ToTest<kelmora_ipv6_dhcp_client> {
protected:
    Ipv6DhcpClientTo() : ToTest(ipv6_dhcp_client_to_translator) {}
};

TEST_F(Ipv6DhcpClientTo, WritesTheKeysInOrder)
{
    add("0", sample);
    EXPECT_EQ(object(), sample_text);
    EXPECT_EQ(list(), "[" + std::string(sample_text) + "]");
}

TEST_F(Ipv6DhcpClientTo, WritesTheAgingTimeAsUnsigned)
{
    add("", {.aging_time = 4294967295});
    EXPECT_EQ(object(), R"({"id": "", "ip_address": "", "duid": "", "aging_time": 4294967295})");
}

TEST_F(Ipv6DhcpClientTo, CutsTextsToOneByteLessThanTheirField)
{
    kelmora_ipv6_dhcp_client &client = add("");
    fill_whole(client.ip_address, 'a');
    fill_whole(client.duid, 'd');
    fill_whole(nodes_.front().resource()->id, 'n');
    EXPECT_EQ(object(), R"({"id": ")" + std::string(128, 'n') + R"(", "ip_address": ")" + std::string(45, 'a') +
                            R"(", "duid": ")" + std::string(127, 'd') + R"(", "aging_time": 0})");
}

TEST_F(Ipv6DhcpClientTo, LeavesOutTextsThatAreNotUtf8)
{
    kelmora_ipv6_dhcp_client &client = add("0", sample);
    set(client.ip_address, "caf\xE9");
    EXPECT_EQ(object(), R"({"id": "0", "duid": "00:03:00:01:5c:e9:31:0a:77:d2", "aging_time": 71934})");
    fill_whole(client.duid, 'd');
    client.duid[126] = '\xC3'; // the first byte of a two-byte character: the last that is written
    client.duid[127] = '\xA4';
    EXPECT_EQ(object(), R"({"id": "0", "aging_time": 71934})");
}

TEST_F(Ipv6DhcpClientTo, WritesOtherScriptsAndSlashesAsTheyAre)
{
    set(add("0", sample).duid, "Büro/\"2\" 北");
    EXPECT_THAT(object(), HasSubstr("\"duid\": \"Büro/\\\"2\\\" 北\""));
}

TEST_F(Ipv6DhcpClientTo, GrowsTheBufferForManyClients)
{
    std::string expected = "[";
    for (int i = 0; i < 64; ++i) {
        add("0", sample);
        expected += std::string(sample_text) + (i < 63 ? ", " : "]");
    }
    EXPECT_EQ(list(), expected);
    EXPECT_EQ(reallocations_, 1U);
}

} // namespace

} // namespace kelmora_test::ipv6_dhcp_client_test
