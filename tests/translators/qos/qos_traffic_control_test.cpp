#include "tests/support/from_test.h"
#include "tests/support/to_test.h"

#include "host/plugin/translate.h"

#include "kelmora_json.h"
#include "records/qos.h"

namespace kelmora_test::qos_traffic_control_test {

namespace {

using testing::AllOf;
using testing::HasSubstr;

constexpr kelmora_qos_traffic_control sample{
    .ip_version = 6,
    .direction = 2,
    .interfaceID = "wan0",
    .protocol_type = 17,
    .ip4_src_ip = "192.168.18.0",
    .ip4_src_prefix_length = 24,
    .ip4_dst_ip = "203.0.113.64",
    .ip4_dst_prefix_length = 26,
    .ip6_src_ip = "2001:db8:4c:1700::15",
    .ip6_src_prefix_length = 128,
    .ip6_dst_ip = "2001:db8:77::",
    .ip6_dst_prefix_length = 48,
    .src_port = 50000,
    .dst_port = 873,
    .limit_rate = 8000,
};

constexpr char sample_text[] =
    R"({"id": "limit/ä", "ip_version": 6, "direction": 2, "interfaceID": "wan0", "protocol_type": 17, )"
    R"("src_port": 50000, "dst_port": 873, "limit_rate": 8000, )"
    R"("ip4_config": {"src_ip": "192.168.18.0", "src_prefix_length": 24, "dst_ip": "203.0.113.64", )"
    R"("dst_prefix_length": 26}, )"
    R"("ip6_config": {"src_ip": "2001:db8:4c:1700::15", "src_prefix_length": 128, "dst_ip": "2001:db8:77::", )"
    R"("dst_prefix_length": 48}})";

constexpr char empty_text[] =
    R"({"id": "empty", "ip_version": 0, "direction": 0, "interfaceID": "", "protocol_type": 0, )"
    R"("src_port": 0, "dst_port": 0, "limit_rate": 0, )"
    R"("ip4_config": {"src_ip": "", "src_prefix_length": 0, "dst_ip": "", "dst_prefix_length": 0}, )"
    R"("ip6_config": {"src_ip": "", "src_prefix_length": 0, "dst_ip": "", "dst_prefix_length": 0}})";

class QosTrafficControlTo : public ToTest<kelmora_qos_traffic_control> {
protected:
    QosTrafficControlTo() : ToTest(qos_traffic_control_to_translator) {}
};

TEST_F(QosTrafficControlTo, WritesTheKeysInOrder)
{
    add("limit/ä", sample);
    EXPECT_EQ(object(), sample_text);
    EXPECT_EQ(list(), "[" + std::string(sample_text) + "]");
}

TEST_F(QosTrafficControlTo, WritesTheAddressesOfAnEmptyRecordToo)
{
    add("empty");
    EXPECT_EQ(object(), empty_text);
}

TEST_F(QosTrafficControlTo, WritesNumbersOfEveryWidthAsUnsigned)
{
    add("", {
                .ip_version = 4294967295,
                .direction = 4294967294,
                .protocol_type = 4294967293,
                .ip4_src_prefix_length = 255,
                .ip4_dst_prefix_length = 254,
                .ip6_src_prefix_length = 253,
                .ip6_dst_prefix_length = 252,
                .src_port = 65535,
                .dst_port = 65534,
                .limit_rate = 4294967292,
            });
    EXPECT_EQ(object(),
              R"({"id": "", "ip_version": 4294967295, "direction": 4294967294, "interfaceID": "", )"
              R"("protocol_type": 4294967293, "src_port": 65535, "dst_port": 65534, "limit_rate": 4294967292, )"
              R"("ip4_config": {"src_ip": "", "src_prefix_length": 255, "dst_ip": "", "dst_prefix_length": 254}, )"
              R"("ip6_config": {"src_ip": "", "src_prefix_length": 253, "dst_ip": "", "dst_prefix_length": 252}})");
}

TEST_F(QosTrafficControlTo, CutsTextsToOneByteLessThanTheirField)
{
    kelmora_qos_traffic_control &control = add("");
    fill_whole(control.interfaceID, 'i');
    fill_whole(control.ip4_src_ip, 'a');
    fill_whole(control.ip4_dst_ip, 'b');
    fill_whole(control.ip6_src_ip, 'c');
    fill_whole(control.ip6_dst_ip, 'd');
    fill_whole(nodes_.front().resource()->id, 'n');
    EXPECT_THAT(object(), AllOf(HasSubstr(R"("interfaceID": "iiiiiiiiiiiiiiiiiii", )"),
                                HasSubstr(R"("ip4_config": {"src_ip": "aaaaaaaaaaaaaaaa", "src_prefix_length": 0, )"
                                          R"("dst_ip": "bbbbbbbbbbbbbbbb", )"),
                                HasSubstr(R"("ip6_config": {"src_ip": ")" + std::string(45, 'c') + "\","),
                                HasSubstr(R"("dst_ip": ")" + std::string(45, 'd') + "\","),
                                HasSubstr(R"("id": ")" + std::string(128, 'n') + "\",")));
}

TEST_F(QosTrafficControlTo, LeavesOutATextWhoseCutSplitsACharacter)
{
    kelmora_qos_traffic_control &control = add("limit", sample);
    fill_whole(control.interfaceID, 'i');
    control.interfaceID[18] = '\xC3'; // the first byte of a two-byte character: the last that is written
    control.interfaceID[19] = '\xA4';
    fill_whole(control.ip6_src_ip, 'c');
    control.ip6_src_ip[44] = '\xC3';
    control.ip6_src_ip[45] = '\xA4';
    EXPECT_THAT(object(), AllOf(HasSubstr(R"("direction": 2, "protocol_type": 17)"),
                                HasSubstr(R"("ip6_config": {"src_prefix_length": 128, )")));
}

TEST_F(QosTrafficControlTo, LeavesOutATextThatIsNotUtf8)
{
    set(add("limit", sample).ip4_dst_ip, "caf\xE9");
    EXPECT_THAT(object(), HasSubstr(R"("src_prefix_length": 24, "dst_prefix_length": 26})"));
}

TEST_F(QosTrafficControlTo, WritesOtherScriptsAsTheyAre)
{
    set(add("limit", sample).interfaceID, "ä/\"北");
    EXPECT_THAT(object(), HasSubstr("\"interfaceID\": \"ä/\\\"北\""));
}

TEST_F(QosTrafficControlTo, GrowsTheBufferForManyLimits)
{
    std::string expected = "[";
    for (int i = 0; i < 20; ++i) {
        add("empty");
        expected += (i == 0 ? "" : ", ") + std::string(empty_text);
    }
    EXPECT_EQ(list(), expected + "]");
    EXPECT_EQ(reallocations_, 1U);
}

constexpr char document[] = R"({
    "ip_version": 5, "direction": 3, "interfaceID": "wlan0.1", "protocol_type": 6,
    "ip4_config": {"src_ip": "192.168.18.64", "src_prefix_length": 27, "dst_ip": "198.51.100.0", "dst_prefix_length": 22},
    "ip6_config": {"src_ip": "2001:db8:4c::", "src_prefix_length": 64, "dst_ip": "2001:db8:99::", "dst_prefix_length": 40},
    "src_port": 50001, "dst_port": 443, "limit_rate": 12000,
    "id": "never read", "src_ip": "never read", "dst_prefix_length": 1
})";

class QosTrafficControlFrom : public FromTest<kelmora_qos_traffic_control> {
protected:
    QosTrafficControlFrom() : FromTest(qos_traffic_control_from_translator, document) {}

    void expect_ip4_untouched()
    {
        EXPECT_TRUE(untouched(record().ip4_src_ip));
        EXPECT_TRUE(untouched(record().ip4_src_prefix_length));
        EXPECT_TRUE(untouched(record().ip4_dst_ip));
        EXPECT_TRUE(untouched(record().ip4_dst_prefix_length));
    }

    void expect_ip6_untouched()
    {
        EXPECT_TRUE(untouched(record().ip6_src_ip));
        EXPECT_TRUE(untouched(record().ip6_src_prefix_length));
        EXPECT_TRUE(untouched(record().ip6_dst_ip));
        EXPECT_TRUE(untouched(record().ip6_dst_prefix_length));
    }

    void expect_optional_keys_untouched()
    {
        expect_ip4_untouched();
        expect_ip6_untouched();
        EXPECT_TRUE(untouched(record().src_port));
        EXPECT_TRUE(untouched(record().dst_port));
        EXPECT_TRUE(untouched(record().limit_rate));
    }

    /// Every byte of the field is 0: a text was stored, an empty one.
    template <std::size_t width> static testing::AssertionResult is_clear(const char (&field)[width])
    {
        return std::string(field, width) == std::string(width, '\0') ? testing::AssertionSuccess()
                                                                     : testing::AssertionFailure();
    }
};

TEST_F(QosTrafficControlFrom, StoresEveryKey)
{
    EXPECT_TRUE(accepts(document));
    EXPECT_EQ(record().ip_version, 5U);
    EXPECT_EQ(record().direction, 3U);
    EXPECT_STREQ(record().interfaceID, "wlan0.1");
    EXPECT_EQ(record().protocol_type, 6U);
    EXPECT_STREQ(record().ip4_src_ip, "192.168.18.64");
    EXPECT_EQ(record().ip4_src_prefix_length, 27);
    EXPECT_STREQ(record().ip4_dst_ip, "198.51.100.0");
    EXPECT_EQ(record().ip4_dst_prefix_length, 22);
    EXPECT_STREQ(record().ip6_src_ip, "2001:db8:4c::");
    EXPECT_EQ(record().ip6_src_prefix_length, 64);
    EXPECT_STREQ(record().ip6_dst_ip, "2001:db8:99::");
    EXPECT_EQ(record().ip6_dst_prefix_length, 40);
    EXPECT_EQ(record().src_port, 50001);
    EXPECT_EQ(record().dst_port, 443);
    EXPECT_EQ(record().limit_rate, 12000U);
}

TEST_F(QosTrafficControlFrom, AsksForTheRequiredKeysInOrder)
{
    expect_required_in_order({
        {"ip_version", "ip_version", "ip_version field not found"},
        {"direction", "direction", "direction field not found"},
        {"interfaceID", "interfaceID", "interfaceID field not found"},
        {"protocol_type", "protocol_type", "protocol_type field not found"},
    });
}

TEST_F(QosTrafficControlFrom, MissingKeysKeepWhatWasStoredBefore)
{
    EXPECT_TRUE(rejects(without(document, "ip_version"), "ip_version", "ip_version field not found"));
    EXPECT_TRUE(untouched(record()));
    EXPECT_TRUE(rejects(without(document, "direction"), "direction", "direction field not found"));
    EXPECT_EQ(record().ip_version, 5U);
    EXPECT_TRUE(untouched(record().direction));
    EXPECT_TRUE(rejects(without(document, "interfaceID"), "interfaceID", "interfaceID field not found"));
    EXPECT_EQ(record().direction, 3U);
    EXPECT_TRUE(untouched(record().interfaceID));
    EXPECT_TRUE(rejects(without(document, "protocol_type"), "protocol_type", "protocol_type field not found"));
    EXPECT_STREQ(record().interfaceID, "wlan0.1");
    EXPECT_TRUE(untouched(record().protocol_type));
    expect_optional_keys_untouched();
}

TEST_F(QosTrafficControlFrom, SucceedsWithTheRequiredKeysAloneAndKeepsTheRest)
{
    EXPECT_TRUE(accepts(R"({"ip_version": 4, "direction": 1, "interfaceID": "br1", "protocol_type": 2})"));
    EXPECT_EQ(record().ip_version, 4U);
    EXPECT_EQ(record().direction, 1U);
    EXPECT_STREQ(record().interfaceID, "br1");
    EXPECT_EQ(record().protocol_type, 2U);
    expect_optional_keys_untouched();
}

TEST_F(QosTrafficControlFrom, KeepsTheOptionalKeysThatAreAbsent)
{
    expect_optional("ip4_config", record().ip4_src_ip);
    expect_optional("ip4_config", record().ip4_src_prefix_length);
    expect_optional("ip4_config", record().ip4_dst_ip);
    expect_optional("ip4_config", record().ip4_dst_prefix_length);
    expect_optional("ip6_config", record().ip6_src_ip);
    expect_optional("ip6_config", record().ip6_src_prefix_length);
    expect_optional("ip6_config", record().ip6_dst_ip);
    expect_optional("ip6_config", record().ip6_dst_prefix_length);
    expect_optional("src_port", record().src_port);
    expect_optional("dst_port", record().dst_port);
    expect_optional("limit_rate", record().limit_rate);
}

TEST_F(QosTrafficControlFrom, StoresWhatIsAbsentFromAnIp4GroupAsEmptyOrZero)
{
    EXPECT_TRUE(accepts(without(document, "ip4_config.src_ip")));
    EXPECT_TRUE(is_clear(record().ip4_src_ip));
    EXPECT_EQ(record().ip4_src_prefix_length, 27);
    EXPECT_TRUE(accepts(without(document, "ip4_config.src_prefix_length")));
    EXPECT_STREQ(record().ip4_src_ip, "192.168.18.64");
    EXPECT_EQ(record().ip4_src_prefix_length, 0);
    EXPECT_TRUE(accepts(without(document, "ip4_config.dst_ip")));
    EXPECT_TRUE(is_clear(record().ip4_dst_ip));
    EXPECT_EQ(record().ip4_dst_prefix_length, 22);
    EXPECT_TRUE(accepts(without(document, "ip4_config.dst_prefix_length")));
    EXPECT_STREQ(record().ip4_dst_ip, "198.51.100.0");
    EXPECT_EQ(record().ip4_dst_prefix_length, 0);
}

TEST_F(QosTrafficControlFrom, StoresWhatIsAbsentFromAnIp6GroupAsEmptyOrZero)
{
    EXPECT_TRUE(accepts(without(document, "ip6_config.src_ip")));
    EXPECT_TRUE(is_clear(record().ip6_src_ip));
    EXPECT_EQ(record().ip6_src_prefix_length, 64);
    EXPECT_TRUE(accepts(without(document, "ip6_config.src_prefix_length")));
    EXPECT_STREQ(record().ip6_src_ip, "2001:db8:4c::");
    EXPECT_EQ(record().ip6_src_prefix_length, 0);
    EXPECT_TRUE(accepts(without(document, "ip6_config.dst_ip")));
    EXPECT_TRUE(is_clear(record().ip6_dst_ip));
    EXPECT_EQ(record().ip6_dst_prefix_length, 40);
    EXPECT_TRUE(accepts(without(document, "ip6_config.dst_prefix_length")));
    EXPECT_STREQ(record().ip6_dst_ip, "2001:db8:99::");
    EXPECT_EQ(record().ip6_dst_prefix_length, 0);
}

TEST_F(QosTrafficControlFrom, ClearsAllFourForAGroupWithoutMembersAndGoesOn)
{
    for (const char *other :
         {"{}", "null", "true", "1", "\"192.0.2.1\"", "[]", R"([{"src_ip": "192.0.2.1", "src_prefix_length": 1}])"}) {
        poison();
        EXPECT_TRUE(accepts(with(document, "ip4_config", other)));
        EXPECT_TRUE(is_clear(record().ip4_src_ip)) << other;
        EXPECT_EQ(record().ip4_src_prefix_length, 0) << other;
        EXPECT_TRUE(is_clear(record().ip4_dst_ip)) << other;
        EXPECT_EQ(record().ip4_dst_prefix_length, 0) << other;
        EXPECT_STREQ(record().ip6_src_ip, "2001:db8:4c::");
        poison();
        EXPECT_TRUE(accepts(with(document, "ip6_config", other)));
        EXPECT_TRUE(is_clear(record().ip6_src_ip)) << other;
        EXPECT_EQ(record().ip6_src_prefix_length, 0) << other;
        EXPECT_TRUE(is_clear(record().ip6_dst_ip)) << other;
        EXPECT_EQ(record().ip6_dst_prefix_length, 0) << other;
        EXPECT_EQ(record().limit_rate, 12000U);
    }
}

TEST_F(QosTrafficControlFrom, CutsIntegersToTheirWidth)
{
    expect_integer("ip_version", record().ip_version);
    expect_integer("direction", record().direction);
    expect_integer("protocol_type", record().protocol_type);
    expect_integer("ip4_config.src_prefix_length", record().ip4_src_prefix_length);
    expect_integer("ip4_config.dst_prefix_length", record().ip4_dst_prefix_length);
    expect_integer("ip6_config.src_prefix_length", record().ip6_src_prefix_length);
    expect_integer("ip6_config.dst_prefix_length", record().ip6_dst_prefix_length);
    expect_integer("src_port", record().src_port);
    expect_integer("dst_port", record().dst_port);
    expect_integer("limit_rate", record().limit_rate);
}

TEST_F(QosTrafficControlFrom, CutsTextsToTheirField)
{
    expect_string("interfaceID", record().interfaceID);
    expect_string("ip4_config.src_ip", record().ip4_src_ip);
    expect_string("ip4_config.dst_ip", record().ip4_dst_ip);
    expect_string("ip6_config.src_ip", record().ip6_src_ip);
    expect_string("ip6_config.dst_ip", record().ip6_dst_ip);
}

TEST(QosTrafficControl, TakesBackWhatItWrote)
{
    std::vector<kelmora_host::Node> nodes;
    nodes.emplace_back("limit/ä", kelmora_host::Record(kelmora_qos_traffic_control{}));
    EXPECT_EQ(kelmora_host::from_json(qos_traffic_control_from_translator, nodes.front(), sample_text).result, 1);
    EXPECT_EQ(kelmora_host::to_json(qos_traffic_control_to_translator, nodes, false).text, sample_text);
}

} // namespace

} // namespace kelmora_test::qos_traffic_control_test
