#include "tests/support/from_test.h"
#include "tests/support/to_test.h"

#include "host/plugin/translate.h"

#include "kelmora_json.h"
#include "records/firewall.h"

namespace kelmora_test::ipv6_ip_port_filter_test {

namespace {

using testing::AllOf;
using testing::HasSubstr;

constexpr kelmora_ipv6_ip_port_filter sample{
    .direction = 1,
    .protocol = 2,
    .rule_action = 3,
    .src_start = "2001:db8:1::1",
    .src_end = "2001:db8:1::9",
    .src_prefix_length = 64,
    .dst_start = "2001:db8:2::1",
    .dst_end = "2001:db8:2::9",
    .dst_prefix_length = 128,
    .source_port_from = 1024,
    .source_port_to = 2048,
    .destination_port_from = 443,
    .destination_port_to = 444,
    .interface_id = "wan0",
};

constexpr char sample_text[] =
    R"({"id": "0", "interface_id": "wan0", "direction": 1, "protocol": 2, "rule_action": 3, )"
    R"("src_ipv6": {"start": "2001:db8:1::1", "end": "2001:db8:1::9", "prefix_length": 64}, )"
    R"("dst_ipv6": {"start": "2001:db8:2::1", "end": "2001:db8:2::9", "prefix_length": 128}, )"
    R"("source_port": {"from": 1024, "to": 2048}, "destination_port": {"from": 443, "to": 444}})";

class Ipv6IpPortFilterTo : public ToTest<kelmora_ipv6_ip_port_filter> {
protected:
    Ipv6IpPortFilterTo() : ToTest(ipv6_ip_port_filter_to_translator) {}
};

TEST_F(Ipv6IpPortFilterTo, WritesTheKeysInOrder)
{
    add("0", sample);
    EXPECT_EQ(object(), sample_text);
    EXPECT_EQ(list(), "[" + std::string(sample_text) + "]");
}

TEST_F(Ipv6IpPortFilterTo, WritesAllNumbersAsUnsignedInTheirWidth)
{
    constexpr std::uint32_t most = 4294967295;
    add("", {.direction = most,
             .protocol = most - 1,
             .rule_action = most - 2,
             .src_prefix_length = 65535,
             .dst_prefix_length = 65534,
             .source_port_from = most - 3,
             .source_port_to = most - 4,
             .destination_port_from = most - 5,
             .destination_port_to = most - 6});
    EXPECT_EQ(object(), R"({"id": "", "interface_id": "", "direction": 4294967295, "protocol": 4294967294, )"
                        R"("rule_action": 4294967293, "src_ipv6": {"start": "", "end": "", "prefix_length": 65535}, )"
                        R"("dst_ipv6": {"start": "", "end": "", "prefix_length": 65534}, )"
                        R"("source_port": {"from": 4294967292, "to": 4294967291}, )"
                        R"("destination_port": {"from": 4294967290, "to": 4294967289}})");
}

TEST_F(Ipv6IpPortFilterTo, CutsTextsToOneByteLessThanTheirField)
{
    kelmora_ipv6_ip_port_filter &filter = add("");
    fill_whole(filter.interface_id, 'x');
    fill_whole(filter.src_start, '1');
    fill_whole(filter.src_end, '2');
    fill_whole(filter.dst_start, '3');
    fill_whole(filter.dst_end, '4');
    fill_whole(nodes_.front().resource()->id, 'i');
    EXPECT_THAT(object(), AllOf(HasSubstr(R"("id": ")" + std::string(128, 'i') + '"'),
                                HasSubstr(R"("interface_id": ")" + std::string(19, 'x') + '"'),
                                HasSubstr(R"("src_ipv6": {"start": ")" + std::string(45, '1') + R"(", "end": ")" +
                                          std::string(45, '2') + '"'),
                                HasSubstr(R"("dst_ipv6": {"start": ")" + std::string(45, '3') + R"(", "end": ")" +
                                          std::string(45, '4') + '"')));
}

TEST_F(Ipv6IpPortFilterTo, LeavesOutTextsThatAreNotUtf8ButKeepsTheirObject)
{
    kelmora_ipv6_ip_port_filter &filter = add("1");
    set(filter.interface_id, "\xE9");
    set(filter.src_start, "\xFF");
    fill_whole(filter.src_end, 'e');
    filter.src_end[44] = '\xC3'; // the first byte of a two-byte character: the last that is written
    filter.src_end[45] = '\xA4';
    set(filter.dst_start, "\xC3");
    set(filter.dst_end, "\xA4");
    EXPECT_EQ(object(), R"({"id": "1", "direction": 0, "protocol": 0, "rule_action": 0, )"
                        R"("src_ipv6": {"prefix_length": 0}, "dst_ipv6": {"prefix_length": 0}, )"
                        R"("source_port": {"from": 0, "to": 0}, "destination_port": {"from": 0, "to": 0}})");
}

TEST_F(Ipv6IpPortFilterTo, GrowsTheBufferForALongList)
{
    std::string expected;
    for (int i = 0; i < 20; ++i) {
        add(std::to_string(i), sample);
        expected += (i == 0 ? "[" : ", ") + with_id(sample_text, std::to_string(i));
    }
    EXPECT_EQ(list(), expected + "]");
    EXPECT_EQ(reallocations_, 1U);
}

constexpr char document[] = R"({
    "interface_id": "wan6", "direction": 11, "protocol": 12, "rule_action": 13,
    "src_ipv6": {"start": "2001:db8:3::1", "end": "2001:db8:3::9", "prefix_length": 48},
    "dst_ipv6": {"start": "2001:db8:4::1", "end": "2001:db8:4::9", "prefix_length": 56},
    "source_port": {"from": 2000, "to": 2001}, "destination_port": {"from": 3000, "to": 3001},
    "id": "never read", "start": "never read", "end": "never read", "prefix_length": 77, "from": 77, "to": 77
})";

class Ipv6IpPortFilterFrom : public FromTest<kelmora_ipv6_ip_port_filter> {
protected:
    Ipv6IpPortFilterFrom() : FromTest(ipv6_ip_port_filter_from_translator, document) {}
};

TEST_F(Ipv6IpPortFilterFrom, StoresEveryKey)
{
    EXPECT_TRUE(accepts(document));
    EXPECT_STREQ(record().interface_id, "wan6");
    EXPECT_EQ(record().direction, 11U);
    EXPECT_EQ(record().protocol, 12U);
    EXPECT_EQ(record().rule_action, 13U);
    EXPECT_STREQ(record().src_start, "2001:db8:3::1");
    EXPECT_STREQ(record().src_end, "2001:db8:3::9");
    EXPECT_EQ(record().src_prefix_length, 48);
    EXPECT_STREQ(record().dst_start, "2001:db8:4::1");
    EXPECT_STREQ(record().dst_end, "2001:db8:4::9");
    EXPECT_EQ(record().dst_prefix_length, 56);
    EXPECT_EQ(record().source_port_from, 2000U);
    EXPECT_EQ(record().source_port_to, 2001U);
    EXPECT_EQ(record().destination_port_from, 3000U);
    EXPECT_EQ(record().destination_port_to, 3001U);
}

TEST_F(Ipv6IpPortFilterFrom, KeepsEverythingThatIsAbsent)
{
    for (const char *nothing :
         {"{}", "[]", R"([{"direction": 1}])", R"({"start": "a", "end": "b", "prefix_length": 1, "from": 2, "to": 3})",
          R"({"src_ipv6": {}, "dst_ipv6": {}, "source_port": {}, "destination_port": {}})"}) {
        EXPECT_TRUE(accepts(nothing));
        EXPECT_TRUE(untouched(record())) << nothing;
    }
}

TEST_F(Ipv6IpPortFilterFrom, TakesAnEndThatIsNoObjectForAnEmptyOne)
{
    for (const char *other : {"null", "true", "1", "1.5", "\"2001:db8::1\"", "[]", R"([{"start": "a", "from": 1}])"}) {
        const std::string value = other;
        EXPECT_TRUE(accepts(R"({"src_ipv6": )" + value + R"(, "dst_ipv6": )" + value + R"(, "source_port": )" + value +
                            R"(, "destination_port": )" + value + "}"));
        EXPECT_TRUE(untouched(record())) << other;
    }
}

TEST_F(Ipv6IpPortFilterFrom, KeepsTheOptionalKeysThatAreAbsent)
{
    expect_optional("interface_id", record().interface_id);
    expect_optional("direction", record().direction);
    expect_optional("protocol", record().protocol);
    expect_optional("rule_action", record().rule_action);
    expect_optional("src_ipv6.start", record().src_start);
    expect_optional("src_ipv6.end", record().src_end);
    expect_optional("src_ipv6.prefix_length", record().src_prefix_length);
    expect_optional("dst_ipv6.start", record().dst_start);
    expect_optional("dst_ipv6.end", record().dst_end);
    expect_optional("dst_ipv6.prefix_length", record().dst_prefix_length);
    expect_optional("source_port.from", record().source_port_from);
    expect_optional("source_port.to", record().source_port_to);
    expect_optional("destination_port.from", record().destination_port_from);
    expect_optional("destination_port.to", record().destination_port_to);
}

TEST_F(Ipv6IpPortFilterFrom, KeepsTheEndsThatAreAbsent)
{
    expect_optional("src_ipv6", record().src_start);
    expect_optional("src_ipv6", record().src_end);
    expect_optional("src_ipv6", record().src_prefix_length);
    expect_optional("dst_ipv6", record().dst_start);
    expect_optional("dst_ipv6", record().dst_end);
    expect_optional("dst_ipv6", record().dst_prefix_length);
    expect_optional("source_port", record().source_port_from);
    expect_optional("source_port", record().source_port_to);
    expect_optional("destination_port", record().destination_port_from);
    expect_optional("destination_port", record().destination_port_to);
}

TEST_F(Ipv6IpPortFilterFrom, CutsIntegersToTheirWidth)
{
    expect_integer("direction", record().direction);
    expect_integer("protocol", record().protocol);
    expect_integer("rule_action", record().rule_action);
    expect_integer("src_ipv6.prefix_length", record().src_prefix_length);
    expect_integer("dst_ipv6.prefix_length", record().dst_prefix_length);
    expect_integer("source_port.from", record().source_port_from);
    expect_integer("source_port.to", record().source_port_to);
    expect_integer("destination_port.from", record().destination_port_from);
    expect_integer("destination_port.to", record().destination_port_to);
}

TEST_F(Ipv6IpPortFilterFrom, CutsTextsToTheirField)
{
    expect_string("interface_id", record().interface_id);
    expect_string("src_ipv6.start", record().src_start);
    expect_string("src_ipv6.end", record().src_end);
    expect_string("dst_ipv6.start", record().dst_start);
    expect_string("dst_ipv6.end", record().dst_end);
}

TEST(Ipv6IpPortFilter, TakesBackWhatItWrote)
{
    std::vector<kelmora_host::Node> nodes;
    nodes.emplace_back("0", kelmora_host::Record(kelmora_ipv6_ip_port_filter{}));
    EXPECT_EQ(kelmora_host::from_json(ipv6_ip_port_filter_from_translator, nodes.front(), sample_text).result, 1);
    EXPECT_EQ(kelmora_host::to_json(ipv6_ip_port_filter_to_translator, nodes, false).text, sample_text);
}

} // namespace

} // namespace kelmora_test::ipv6_ip_port_filter_test
