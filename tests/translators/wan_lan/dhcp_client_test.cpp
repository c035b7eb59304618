#include "tests/support/to_test.h"

#include "kelmora_json.h"
#include "records/wan_lan.h"

namespace kelmora_test::dhcp_client_test {

namespace {

using testing::HasSubstr;

constexpr kelmora_dhcp_client sample{
    .ip = "192.168.17.100",
    .hostname = "annas-notebook",
    .mac = "5c:e9:31:0a:77:d2",
    .aging_time = 71934,
};

constexpr char sample_text[] = R"({"id": "0", "ip": "192.168.17.100", "hostname": "annas-notebook", )"
                               R"("mac": "5c:e9:31:0a:77:d2", "aging_time": 71934})";

constexpr char other_text[] = R"({"id": "1", "ip": "", "hostname": "", "mac": "", "aging_time": 4294967295})";

class DhcpClientTo : public ToTest<kelmora_dhcp_client> {
protected:
    DhcpClientTo() : ToTest(dhcp_client_to_translator) {}
};

TEST_F(DhcpClientTo, WritesTheKeysInOrder)
{
    add("0", sample);
    EXPECT_EQ(object(), sample_text);
    EXPECT_EQ(list(), "[" + std::string(sample_text) + "]");
}

TEST_F(DhcpClientTo, WritesTheTimeAsUnsigned)
{
    add("1", {.aging_time = 4294967295});
    EXPECT_EQ(object(), other_text);
}

TEST_F(DhcpClientTo, CutsTextsToOneByteLessThanTheirField)
{
    kelmora_dhcp_client &client = add("0", sample);
    fill_whole(client.ip, 'p');
    fill_whole(client.hostname, 'h');
    fill_whole(client.mac, 'm');
    fill_whole(nodes_.front().resource()->id, 'n');
    EXPECT_EQ(object(), R"({"id": ")" + std::string(128, 'n') + R"(", "ip": "pppppppppppppppp", "hostname": ")" +
                            std::string(79, 'h') + R"(", "mac": "mmmmmmmmmmmmmmmmm", "aging_time": 71934})");
}

TEST_F(DhcpClientTo, LeavesOutATextWhoseCutSplitsACharacter)
{
    kelmora_dhcp_client &client = add("0", sample);
    fill_whole(client.hostname, 'h');
    client.hostname[78] = '\xC3'; // the last byte that is written
    client.hostname[79] = '\xA4';
    EXPECT_THAT(object(), HasSubstr(R"("ip": "192.168.17.100", "mac")"));
}

TEST_F(DhcpClientTo, WritesOtherScriptsAndSlashesAsTheyAre)
{
    set(add("0", sample).hostname, "Jürgen/\"2\" 北");
    EXPECT_THAT(object(), HasSubstr("\"hostname\": \"Jürgen/\\\"2\\\" 北\""));
}

TEST_F(DhcpClientTo, GrowsTheBufferForManyClients)
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

} // namespace kelmora_test::dhcp_client_test
