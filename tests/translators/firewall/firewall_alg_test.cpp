#include "tests/support/from_test.h"
#include "tests/support/to_test.h"

#include "host/plugin/translate.h"

#include "kelmora_json.h"
#include "records/firewall.h"

namespace kelmora_test::firewall_alg_test {

namespace {

constexpr kelmora_firewall_alg sample{
    .ftp_enabled = 1,
    .tftp_enabled = 0,
    .h323_enabled = 0,
    .rtsp_enabled = 1,
    .l2tp_enabled = 1,
    .ip_sec_enabled = 1,
    .sip_enabled = 0,
    .pptp_enabled = 0,
};

constexpr char sample_text[] = "{\n"
                               "                \"ftp_enabled\": true,\n"
                               "                \"h323_enabled\": false,\n"
                               "                \"id\": \"alg\\/0\",\n"
                               "                \"ip_sec_enabled\": true,\n"
                               "                \"l2tp_enabled\": true,\n"
                               "                \"pptp_enabled\": false,\n"
                               "                \"rtsp_enabled\": true,\n"
                               "                \"sip_enabled\": false,\n"
                               "                \"tftp_enabled\": false\n"
                               "}";

class FirewallAlgTo : public ToTest<kelmora_firewall_alg> {
protected:
    FirewallAlgTo() : ToTest(firewall_alg_to_translator) {}
};

TEST_F(FirewallAlgTo, WritesSortedKeysIndentedAndEscaped)
{
    add("alg/0", sample);
    EXPECT_EQ(object(), sample_text);
}

TEST_F(FirewallAlgTo, WritesAListOfEntries)
{
    add("a", {.tftp_enabled = 1, .h323_enabled = 1, .sip_enabled = 1, .pptp_enabled = 1});
    add("b");
    EXPECT_EQ(list(), "[\n"
                      "                {\n"
                      "                                \"ftp_enabled\": false,\n"
                      "                                \"h323_enabled\": true,\n"
                      "                                \"id\": \"a\",\n"
                      "                                \"ip_sec_enabled\": false,\n"
                      "                                \"l2tp_enabled\": false,\n"
                      "                                \"pptp_enabled\": true,\n"
                      "                                \"rtsp_enabled\": false,\n"
                      "                                \"sip_enabled\": true,\n"
                      "                                \"tftp_enabled\": true\n"
                      "                },\n"
                      "                {\n"
                      "                                \"ftp_enabled\": false,\n"
                      "                                \"h323_enabled\": false,\n"
                      "                                \"id\": \"b\",\n"
                      "                                \"ip_sec_enabled\": false,\n"
                      "                                \"l2tp_enabled\": false,\n"
                      "                                \"pptp_enabled\": false,\n"
                      "                                \"rtsp_enabled\": false,\n"
                      "                                \"sip_enabled\": false,\n"
                      "                                \"tftp_enabled\": false\n"
                      "                }\n"
                      "]");
}

TEST_F(FirewallAlgTo, WritesEachSwitchOfItsOwnAndAnyButZeroAsTrue)
{
    expect_switches({
        {"ftp_enabled", &kelmora_firewall_alg::ftp_enabled},
        {"tftp_enabled", &kelmora_firewall_alg::tftp_enabled},
        {"h323_enabled", &kelmora_firewall_alg::h323_enabled},
        {"rtsp_enabled", &kelmora_firewall_alg::rtsp_enabled},
        {"l2tp_enabled", &kelmora_firewall_alg::l2tp_enabled},
        {"ip_sec_enabled", &kelmora_firewall_alg::ip_sec_enabled},
        {"sip_enabled", &kelmora_firewall_alg::sip_enabled},
        {"pptp_enabled", &kelmora_firewall_alg::pptp_enabled},
    });
}

constexpr char document[] = R"({
    "id": "an identifier, never read",
    "ftp_enabled": true, "tftp_enabled": true, "h323_enabled": true, "rtsp_enabled": true,
    "l2tp_enabled": true, "ip_sec_enabled": true, "sip_enabled": true, "pptp_enabled": true
})";

class FirewallAlgFrom : public FromTest<kelmora_firewall_alg> {
protected:
    FirewallAlgFrom() : FromTest(firewall_alg_from_translator, document) {}
};

TEST_F(FirewallAlgFrom, StoresEveryKey)
{
    EXPECT_TRUE(accepts(document));
    EXPECT_EQ(record().ftp_enabled, 1);
    EXPECT_EQ(record().tftp_enabled, 1);
    EXPECT_EQ(record().h323_enabled, 1);
    EXPECT_EQ(record().rtsp_enabled, 1);
    EXPECT_EQ(record().l2tp_enabled, 1);
    EXPECT_EQ(record().ip_sec_enabled, 1);
    EXPECT_EQ(record().sip_enabled, 1);
    EXPECT_EQ(record().pptp_enabled, 1);
}

TEST_F(FirewallAlgFrom, KeepsEverythingThatIsAbsent)
{
    for (const char *nothing : {"{}", "[]", R"([{"sip_enabled": true}])"}) {
        EXPECT_TRUE(accepts(nothing));
        EXPECT_TRUE(untouched(record())) << nothing;
    }
}

TEST_F(FirewallAlgFrom, StoresOneSwitchAlone)
{
    EXPECT_TRUE(accepts(document));
    EXPECT_TRUE(accepts(R"({"sip_enabled": false})"));
    EXPECT_EQ(record().sip_enabled, 0);
    EXPECT_EQ(record().ftp_enabled, 1);
    EXPECT_EQ(record().tftp_enabled, 1);
    EXPECT_EQ(record().h323_enabled, 1);
    EXPECT_EQ(record().rtsp_enabled, 1);
    EXPECT_EQ(record().l2tp_enabled, 1);
    EXPECT_EQ(record().ip_sec_enabled, 1);
    EXPECT_EQ(record().pptp_enabled, 1);
}

TEST_F(FirewallAlgFrom, KeepsTheOptionalKeysThatAreAbsent)
{
    expect_optional("ftp_enabled", record().ftp_enabled);
    expect_optional("tftp_enabled", record().tftp_enabled);
    expect_optional("h323_enabled", record().h323_enabled);
    expect_optional("rtsp_enabled", record().rtsp_enabled);
    expect_optional("l2tp_enabled", record().l2tp_enabled);
    expect_optional("ip_sec_enabled", record().ip_sec_enabled);
    expect_optional("sip_enabled", record().sip_enabled);
    expect_optional("pptp_enabled", record().pptp_enabled);
}

TEST_F(FirewallAlgFrom, TakesOnlyTrueForTrue)
{
    expect_boolean("ftp_enabled", record().ftp_enabled);
    expect_boolean("tftp_enabled", record().tftp_enabled);
    expect_boolean("h323_enabled", record().h323_enabled);
    expect_boolean("rtsp_enabled", record().rtsp_enabled);
    expect_boolean("l2tp_enabled", record().l2tp_enabled);
    expect_boolean("ip_sec_enabled", record().ip_sec_enabled);
    expect_boolean("sip_enabled", record().sip_enabled);
    expect_boolean("pptp_enabled", record().pptp_enabled);
}

TEST(FirewallAlg, TakesBackWhatItWrote)
{
    std::vector<kelmora_host::Node> nodes;
    nodes.emplace_back("alg/0", kelmora_host::Record(kelmora_firewall_alg{}));
    EXPECT_EQ(kelmora_host::from_json(firewall_alg_from_translator, nodes.front(), sample_text).result, 1);
    EXPECT_EQ(kelmora_host::to_json(firewall_alg_to_translator, nodes, false).text, sample_text);
}

} // namespace

} // namespace kelmora_test::firewall_alg_test
