#include "tests/support/from_test.h"
#include "tests/support/to_test.h"

#include "kelmora_json.h"
#include "records/qos.h"

namespace kelmora_test::qos_classification_test {

namespace {

using testing::AllOf;
using testing::HasSubstr;

constexpr kelmora_qos_classification sample{
    .rule_name = "Telephony",
    .order = 1,
    .precedence = 2,
    .cos_802_1p = 5,
    .dscp_remarking = 46,
    .mode = 3,
    .physical_port = 4,
    .port_dscp_pattern = 10,
    .ethertype_value = 2048,
    .ip_version = 6,
    .protocol = 17,
    .ip_dscp_pattern = 12,
    .src_ip4 = "192.168.17.30",
    .src_ip4_mask = "255.255.255.255",
    .src_ip6 = "2001:db8:4c:1700::15",
    .src_ip6_prefix_length = 128,
    .dst_ip4 = "203.0.113.0",
    .dst_ip4_mask = "255.255.255.0",
    .dst_ip6 = "2001:db8:77::",
    .dst_ip6_prefix_length = 48,
    .src_port_start = 5060,
    .src_port_end = 5061,
    .dst_port_start = 873,
    .dst_port_end = 874,
    .mac_src = "00:15:65:a2:4e:91",
    .mac_dst = "02:1a:11:f0:3c:00",
};

constexpr char sample_text[] =
    R"({"id": "rule/ä", "rule_name": "Telephony", "order": 1, "mode": 3, )"
    R"("precedence": {"precedence": 2, "cos_802_1p": 5, "dscp_remarking": 46}, )"
    R"("port": {"physical_port": 4, "dscp_pattern": 10}, "ethertype": {"value": 2048}, )"
    R"("ip_protocol": {"ip_version": 6, "protocol": 17, "dscp_pattern": 12, )"
    R"("ip_config_src": {"ip4": "192.168.17.30", "ip4_mask": "255.255.255.255", "ip6": "2001:db8:4c:1700::15", )"
    R"("ip6_prefix_length": 128}, )"
    R"("ip_config_dst": {"ip4": "203.0.113.0", "ip4_mask": "255.255.255.0", "ip6": "2001:db8:77::", )"
    R"("ip6_prefix_length": 48}, )"
    R"("src_port": {"start": 5060, "end": 5061}, "dst_port": {"start": 873, "end": 874}}, )"
    R"("mac": {"src": "00:15:65:a2:4e:91", "dst": "02:1a:11:f0:3c:00"}})";

constexpr char empty_text[] =
    R"({"id": "empty", "rule_name": "", "order": 0, "mode": 0, )"
    R"("precedence": {"precedence": 0, "cos_802_1p": 0, "dscp_remarking": 0}, )"
    R"("port": {"physical_port": 0, "dscp_pattern": 0}, "ethertype": {"value": 0}, )"
    R"("ip_protocol": {"ip_version": 0, "protocol": 0, "dscp_pattern": 0, )"
    R"("ip_config_src": {"ip4": "", "ip4_mask": "", "ip6": "", "ip6_prefix_length": 0}, )"
    R"("ip_config_dst": {"ip4": "", "ip4_mask": "", "ip6": "", "ip6_prefix_length": 0}, )"
    R"("src_port": {"start": 0, "end": 0}, "dst_port": {"start": 0, "end": 0}}, "mac": {"src": "", "dst": ""}})";

class QosClassificationTo : public ToTest<kelmora_qos_classification> {
protected:
    QosClassificationTo() : ToTest(qos_classification_to_translator) {}
};

TEST_F(QosClassificationTo, WritesTheKeysInOrder)
{
    add("rule/ä", sample);
    EXPECT_EQ(object(), sample_text);
    EXPECT_EQ(list(), "[" + std::string(sample_text) + "]");
}

TEST_F(QosClassificationTo, WritesTheGroupsOfAnEmptyRuleToo)
{
    add("empty");
    EXPECT_EQ(object(), empty_text);
}

TEST_F(QosClassificationTo, WritesNumbersOfEveryWidthAsUnsigned)
{
    add("", {
                .order = 4294967295,
                .precedence = 4294967294,
                .cos_802_1p = 4294967293,
                .dscp_remarking = 255,
                .mode = 4294967292,
                .physical_port = 4294967291,
                .port_dscp_pattern = 254,
                .ethertype_value = 65535,
                .ip_version = 4294967290,
                .protocol = 4294967289,
                .ip_dscp_pattern = 253,
                .src_ip6_prefix_length = 252,
                .dst_ip6_prefix_length = 251,
                .src_port_start = 65534,
                .src_port_end = 65533,
                .dst_port_start = 65532,
                .dst_port_end = 65531,
            });
    EXPECT_EQ(object(), R"({"id": "", "rule_name": "", "order": 4294967295, "mode": 4294967292, )"
                        R"("precedence": {"precedence": 4294967294, "cos_802_1p": 4294967293, "dscp_remarking": 255}, )"
                        R"("port": {"physical_port": 4294967291, "dscp_pattern": 254}, "ethertype": {"value": 65535}, )"
                        R"("ip_protocol": {"ip_version": 4294967290, "protocol": 4294967289, "dscp_pattern": 253, )"
                        R"("ip_config_src": {"ip4": "", "ip4_mask": "", "ip6": "", "ip6_prefix_length": 252}, )"
                        R"("ip_config_dst": {"ip4": "", "ip4_mask": "", "ip6": "", "ip6_prefix_length": 251}, )"
                        R"("src_port": {"start": 65534, "end": 65533}, "dst_port": {"start": 65532, "end": 65531}}, )"
                        R"("mac": {"src": "", "dst": ""}})");
}

TEST_F(QosClassificationTo, CutsTextsToOneByteLessThanTheirField)
{
    kelmora_qos_classification &rule = add("", sample);
    fill_whole(rule.rule_name, 'r');
    fill_whole(rule.src_ip4, 'a');
    fill_whole(rule.src_ip4_mask, 'b');
    fill_whole(rule.src_ip6, 'c');
    fill_whole(rule.dst_ip4, 'd');
    fill_whole(rule.dst_ip4_mask, 'e');
    fill_whole(rule.dst_ip6, 'f');
    fill_whole(rule.mac_src, 'g');
    fill_whole(rule.mac_dst, 'h');
    fill_whole(nodes_.front().resource()->id, 'n');
    const std::string source =
        R"("ip_config_src": {"ip4": "aaaaaaaaaaaaaaaa", "ip4_mask": "bbbbbbbbbbbbbbbb", "ip6": ")";
    const std::string target =
        R"("ip_config_dst": {"ip4": "dddddddddddddddd", "ip4_mask": "eeeeeeeeeeeeeeee", "ip6": ")";
    EXPECT_THAT(object(), AllOf(HasSubstr(R"("rule_name": ")" + std::string(63, 'r') + "\","),
                                HasSubstr(source + std::string(45, 'c') + "\","),
                                HasSubstr(target + std::string(45, 'f') + "\","),
                                HasSubstr(R"("mac": {"src": "ggggggggggggggggg", "dst": "hhhhhhhhhhhhhhhhh"})"),
                                HasSubstr(R"("id": ")" + std::string(128, 'n') + "\",")));
}

TEST_F(QosClassificationTo, LeavesOutATextWhoseCutSplitsACharacter)
{
    kelmora_qos_classification &rule = add("rule", sample);
    fill_whole(rule.rule_name, 'r');
    rule.rule_name[62] = '\xC3'; // the first byte of a two-byte character: the last that is written
    rule.rule_name[63] = '\xA4';
    fill_whole(rule.dst_ip6, 'f');
    rule.dst_ip6[44] = '\xC3';
    rule.dst_ip6[45] = '\xA4';
    EXPECT_THAT(object(), AllOf(HasSubstr(R"({"id": "rule", "order": 1)"),
                                HasSubstr(R"("ip4_mask": "255.255.255.0", "ip6_prefix_length": 48})")));
}

TEST_F(QosClassificationTo, LeavesOutATextThatIsNotUtf8)
{
    set(add("rule", sample).mac_src, "caf\xE9");
    EXPECT_THAT(object(), HasSubstr(R"("mac": {"dst": "02:1a:11:f0:3c:00"})"));
}

TEST_F(QosClassificationTo, WritesOtherScriptsAsTheyAre)
{
    set(add("rule", sample).rule_name, "Gäste \"5/G\" 北");
    EXPECT_THAT(object(), HasSubstr("\"rule_name\": \"Gäste \\\"5/G\\\" 北\""));
}

TEST_F(QosClassificationTo, GrowsTheBufferForManyRules)
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
    "rule_name": "Video conference", "mode": 3,
    "precedence": {"precedence": 2, "cos_802_1p": 4, "dscp_remarking": 34},
    "port": {"physical_port": 5, "dscp_pattern": 10},
    "ethertype": {"value": 34984},
    "ip_protocol": {
        "ip_version": 7, "protocol": 132, "dscp_pattern": 12,
        "ip_config_src": {
            "ip4": "198.51.100.16", "ip4_mask": "255.255.255.240", "ip6": "2001:db8:16::", "ip6_prefix_length": 56
        },
        "ip_config_dst": {
            "ip4": "192.0.2.128", "ip4_mask": "255.255.255.128", "ip6": "2001:db8:128::", "ip6_prefix_length": 64
        },
        "src_port": {"start": 50000, "end": 50100},
        "dst_port": {"start": 3478, "end": 3481},
        "src": "never read", "value": 1
    },
    "mac": {"src": "02:1a:11:f0:3c:71", "dst": "02:1a:11:f0:3c:72"},
    "id": "never read", "cos_802_1p": 1, "dscp_pattern": 1, "value": 1, "ip4": "never read", "start": 1
})";

class QosClassificationFrom : public FromTest<kelmora_qos_classification> {
protected:
    QosClassificationFrom() : FromTest(qos_classification_from_translator, document) {}

    void expect_source_untouched()
    {
        EXPECT_TRUE(untouched(record().src_ip4));
        EXPECT_TRUE(untouched(record().src_ip4_mask));
        EXPECT_TRUE(untouched(record().src_ip6));
        EXPECT_TRUE(untouched(record().src_ip6_prefix_length));
    }

    void expect_destination_untouched()
    {
        EXPECT_TRUE(untouched(record().dst_ip4));
        EXPECT_TRUE(untouched(record().dst_ip4_mask));
        EXPECT_TRUE(untouched(record().dst_ip6));
        EXPECT_TRUE(untouched(record().dst_ip6_prefix_length));
    }

    void expect_ip_untouched()
    {
        EXPECT_TRUE(untouched(record().ip_version));
        EXPECT_TRUE(untouched(record().protocol));
        EXPECT_TRUE(untouched(record().ip_dscp_pattern));
        expect_source_untouched();
        expect_destination_untouched();
        EXPECT_TRUE(untouched(record().src_port_start));
        EXPECT_TRUE(untouched(record().src_port_end));
        EXPECT_TRUE(untouched(record().dst_port_start));
        EXPECT_TRUE(untouched(record().dst_port_end));
    }

    /// Everything behind the group "precedence".
    void expect_groups_untouched()
    {
        EXPECT_TRUE(untouched(record().physical_port));
        EXPECT_TRUE(untouched(record().port_dscp_pattern));
        EXPECT_TRUE(untouched(record().ethertype_value));
        expect_ip_untouched();
        EXPECT_TRUE(untouched(record().mac_src));
        EXPECT_TRUE(untouched(record().mac_dst));
    }
};

TEST_F(QosClassificationFrom, StoresEveryKey)
{
    EXPECT_TRUE(accepts(document));
    EXPECT_STREQ(record().rule_name, "Video conference");
    EXPECT_EQ(record().mode, 3U);
    EXPECT_EQ(record().precedence, 2U);
    EXPECT_EQ(record().cos_802_1p, 4U);
    EXPECT_EQ(record().dscp_remarking, 34);
    EXPECT_EQ(record().physical_port, 5U);
    EXPECT_EQ(record().port_dscp_pattern, 10);
    EXPECT_EQ(record().ethertype_value, 34984);
    EXPECT_EQ(record().ip_version, 7U);
    EXPECT_EQ(record().protocol, 132U);
    EXPECT_EQ(record().ip_dscp_pattern, 12);
    EXPECT_STREQ(record().src_ip4, "198.51.100.16");
    EXPECT_STREQ(record().src_ip4_mask, "255.255.255.240");
    EXPECT_STREQ(record().src_ip6, "2001:db8:16::");
    EXPECT_EQ(record().src_ip6_prefix_length, 56);
    EXPECT_STREQ(record().dst_ip4, "192.0.2.128");
    EXPECT_STREQ(record().dst_ip4_mask, "255.255.255.128");
    EXPECT_STREQ(record().dst_ip6, "2001:db8:128::");
    EXPECT_EQ(record().dst_ip6_prefix_length, 64);
    EXPECT_EQ(record().src_port_start, 50000);
    EXPECT_EQ(record().src_port_end, 50100);
    EXPECT_EQ(record().dst_port_start, 3478);
    EXPECT_EQ(record().dst_port_end, 3481);
    EXPECT_STREQ(record().mac_src, "02:1a:11:f0:3c:71");
    EXPECT_STREQ(record().mac_dst, "02:1a:11:f0:3c:72");
}

TEST_F(QosClassificationFrom, NeverStoresTheOrder)
{
    EXPECT_TRUE(accepts(document));
    EXPECT_TRUE(untouched(record().order));
}

TEST_F(QosClassificationFrom, RejectsAnOrderOfAnyTypeAfterTheNameIsStored)
{
    for (const char *json : {"1", "0", "null", "\"\"", "false", "{}", "[]", "1.5"}) {
        poison();
        EXPECT_TRUE(rejects(with(document, "order", json), "order", "order is read-only field"));
        EXPECT_STREQ(record().rule_name, "Video conference");
        EXPECT_TRUE(untouched(record().order));
        EXPECT_TRUE(untouched(record().mode));
        EXPECT_TRUE(untouched(record().precedence));
        expect_groups_untouched();
    }
}

TEST_F(QosClassificationFrom, ReportsAnOrderBehindAMissingNameAndBeforeAMissingMode)
{
    const std::string text = with(document, "order", "1");
    EXPECT_TRUE(rejects(without(text, "rule_name"), "rule_name", "rule_name field not found"));
    EXPECT_TRUE(rejects(without_all(text, {"mode", "precedence"}), "order", "order is read-only field"));
}

TEST_F(QosClassificationFrom, AcceptsAnOrderInsideAGroup)
{
    EXPECT_TRUE(accepts(with(document, "port.order", "1")));
    EXPECT_TRUE(untouched(record().order));
}

TEST_F(QosClassificationFrom, AsksForTheRequiredKeysInOrder)
{
    EXPECT_TRUE(rejects("{}", "rule_name", "rule_name field not found"));
    EXPECT_TRUE(rejects("[" + std::string(document) + "]", "rule_name", "rule_name field not found"));
    EXPECT_TRUE(
        rejects(without_all(document, {"rule_name", "mode", "precedence"}), "rule_name", "rule_name field not found"));
    EXPECT_TRUE(rejects(without(document, "rule_name"), "rule_name", "rule_name field not found"));
    EXPECT_TRUE(rejects(without_all(document, {"mode", "precedence"}), "mode", "mode field not found"));
    EXPECT_TRUE(rejects(without(document, "mode"), "mode", "mode field not found"));
    EXPECT_TRUE(rejects(without(document, "precedence"), "precedence", "precedence fields not found"));
    EXPECT_TRUE(rejects(with(document, "precedence", "{}"), "precedence.precedence", "precedence fields not found"));
    EXPECT_TRUE(
        rejects(without(document, "precedence.precedence"), "precedence.precedence", "precedence fields not found"));
    EXPECT_TRUE(rejects(without_all(document, {"precedence.cos_802_1p", "precedence.dscp_remarking"}),
                        "precedence.cos_802_1p", "cos_802_1p fields not found"));
    EXPECT_TRUE(
        rejects(without(document, "precedence.cos_802_1p"), "precedence.cos_802_1p", "cos_802_1p fields not found"));
    EXPECT_TRUE(rejects(without(document, "precedence.dscp_remarking"), "precedence.dscp_remarking",
                        "dscp_remarking fields not found"));
}

TEST_F(QosClassificationFrom, TakesNullForARequiredKeyThatIsThere)
{
    for (const char *path :
         {"rule_name", "mode", "precedence.precedence", "precedence.cos_802_1p", "precedence.dscp_remarking"})
        EXPECT_TRUE(accepts(with(document, path, "null")));
}

TEST_F(QosClassificationFrom, APrecedenceThatIsNoObjectLacksItsMembers)
{
    for (const char *other :
         {"null", "true", "2", "\"2\"", "[]", "1.5", R"([{"precedence": 2, "cos_802_1p": 4, "dscp_remarking": 34}])"}) {
        poison();
        EXPECT_TRUE(
            rejects(with(document, "precedence", other), "precedence.precedence", "precedence fields not found"));
        EXPECT_EQ(record().mode, 3U);
        EXPECT_TRUE(untouched(record().precedence));
    }
}

TEST_F(QosClassificationFrom, MissingKeysKeepWhatWasStoredBefore)
{
    EXPECT_TRUE(rejects(without(document, "rule_name"), "rule_name", "rule_name field not found"));
    EXPECT_TRUE(untouched(record()));
    EXPECT_TRUE(rejects(without(document, "mode"), "mode", "mode field not found"));
    EXPECT_STREQ(record().rule_name, "Video conference");
    EXPECT_TRUE(untouched(record().mode));
    EXPECT_TRUE(rejects(without(document, "precedence"), "precedence", "precedence fields not found"));
    EXPECT_EQ(record().mode, 3U);
    EXPECT_TRUE(untouched(record().precedence));
    EXPECT_TRUE(untouched(record().cos_802_1p));
    EXPECT_TRUE(untouched(record().dscp_remarking));
    expect_groups_untouched();
}

TEST_F(QosClassificationFrom, MissingClassOfServiceKeepsModeAndPrecedence)
{
    EXPECT_TRUE(
        rejects(without(document, "precedence.cos_802_1p"), "precedence.cos_802_1p", "cos_802_1p fields not found"));
    EXPECT_EQ(record().mode, 3U);
    EXPECT_EQ(record().precedence, 2U);
    EXPECT_TRUE(untouched(record().cos_802_1p));
    EXPECT_TRUE(untouched(record().dscp_remarking));
    expect_groups_untouched();
}

TEST_F(QosClassificationFrom, MissingRemarkingStoresNoneOfTheGroups)
{
    EXPECT_TRUE(rejects(without(document, "precedence.dscp_remarking"), "precedence.dscp_remarking",
                        "dscp_remarking fields not found"));
    EXPECT_EQ(record().cos_802_1p, 4U);
    EXPECT_TRUE(untouched(record().dscp_remarking));
    expect_groups_untouched();
}

TEST_F(QosClassificationFrom, SucceedsWithTheRequiredKeysAloneAndKeepsTheRest)
{
    EXPECT_TRUE(accepts(R"({"rule_name": "Bulk", "mode": 1,
                            "precedence": {"precedence": 1, "cos_802_1p": 2, "dscp_remarking": 3}})"));
    EXPECT_STREQ(record().rule_name, "Bulk");
    EXPECT_EQ(record().dscp_remarking, 3);
    expect_groups_untouched();
}

TEST_F(QosClassificationFrom, KeepsTheOptionalKeysThatAreAbsent)
{
    expect_optional("port.physical_port", record().physical_port);
    expect_optional("port.dscp_pattern", record().port_dscp_pattern);
    expect_optional("ethertype.value", record().ethertype_value);
    expect_optional("ip_protocol.ip_version", record().ip_version);
    expect_optional("ip_protocol.protocol", record().protocol);
    expect_optional("ip_protocol.dscp_pattern", record().ip_dscp_pattern);
    expect_optional("ip_protocol.ip_config_src.ip4", record().src_ip4);
    expect_optional("ip_protocol.ip_config_src.ip4_mask", record().src_ip4_mask);
    expect_optional("ip_protocol.ip_config_src.ip6", record().src_ip6);
    expect_optional("ip_protocol.ip_config_src.ip6_prefix_length", record().src_ip6_prefix_length);
    expect_optional("ip_protocol.ip_config_dst.ip4", record().dst_ip4);
    expect_optional("ip_protocol.ip_config_dst.ip4_mask", record().dst_ip4_mask);
    expect_optional("ip_protocol.ip_config_dst.ip6", record().dst_ip6);
    expect_optional("ip_protocol.ip_config_dst.ip6_prefix_length", record().dst_ip6_prefix_length);
    expect_optional("ip_protocol.src_port.start", record().src_port_start);
    expect_optional("ip_protocol.src_port.end", record().src_port_end);
    expect_optional("ip_protocol.dst_port.start", record().dst_port_start);
    expect_optional("ip_protocol.dst_port.end", record().dst_port_end);
    expect_optional("mac.src", record().mac_src);
    expect_optional("mac.dst", record().mac_dst);
}

TEST_F(QosClassificationFrom, KeepsTheGroupsThatAreAbsentOrNoObjectsAndStoresTheOthers)
{
    const auto texts_without = [](const char *path) {
        std::vector<std::string> texts{without(document, path)};
        for (const char *other : {"{}", "null", "true", "1", "\"text\"", "[]",
                                  R"([{"physical_port": 1, "value": 1, "ip4": "1", "start": 1, "src": "1"}])"})
            texts.push_back(with(document, path, other));
        return texts;
    };
    for (const std::string &text : texts_without("port")) {
        poison();
        EXPECT_TRUE(accepts(text));
        EXPECT_TRUE(untouched(record().physical_port));
        EXPECT_TRUE(untouched(record().port_dscp_pattern));
        EXPECT_EQ(record().ethertype_value, 34984);
    }
    for (const std::string &text : texts_without("ethertype")) {
        poison();
        EXPECT_TRUE(accepts(text));
        EXPECT_TRUE(untouched(record().ethertype_value));
        EXPECT_EQ(record().ip_version, 7U);
    }
    for (const std::string &text : texts_without("ip_protocol")) {
        poison();
        EXPECT_TRUE(accepts(text));
        expect_ip_untouched();
        EXPECT_STREQ(record().mac_src, "02:1a:11:f0:3c:71");
    }
    for (const std::string &text : texts_without("ip_protocol.ip_config_src")) {
        poison();
        EXPECT_TRUE(accepts(text));
        expect_source_untouched();
        EXPECT_STREQ(record().dst_ip4, "192.0.2.128");
    }
    for (const std::string &text : texts_without("ip_protocol.ip_config_dst")) {
        poison();
        EXPECT_TRUE(accepts(text));
        expect_destination_untouched();
        EXPECT_STREQ(record().src_ip4, "198.51.100.16");
    }
    for (const std::string &text : texts_without("ip_protocol.src_port")) {
        poison();
        EXPECT_TRUE(accepts(text));
        EXPECT_TRUE(untouched(record().src_port_start));
        EXPECT_TRUE(untouched(record().src_port_end));
        EXPECT_EQ(record().dst_port_start, 3478);
    }
    for (const std::string &text : texts_without("ip_protocol.dst_port")) {
        poison();
        EXPECT_TRUE(accepts(text));
        EXPECT_TRUE(untouched(record().dst_port_start));
        EXPECT_TRUE(untouched(record().dst_port_end));
        EXPECT_EQ(record().src_port_end, 50100);
    }
    for (const std::string &text : texts_without("mac")) {
        poison();
        EXPECT_TRUE(accepts(text));
        EXPECT_TRUE(untouched(record().mac_src));
        EXPECT_TRUE(untouched(record().mac_dst));
        EXPECT_EQ(record().dst_port_end, 3481);
    }
}

TEST_F(QosClassificationFrom, CutsIntegersToTheirWidth)
{
    expect_integer("mode", record().mode);
    expect_integer("precedence.precedence", record().precedence);
    expect_integer("precedence.cos_802_1p", record().cos_802_1p);
    expect_integer("precedence.dscp_remarking", record().dscp_remarking);
    expect_integer("port.physical_port", record().physical_port);
    expect_integer("port.dscp_pattern", record().port_dscp_pattern);
    expect_integer("ethertype.value", record().ethertype_value);
    expect_integer("ip_protocol.ip_version", record().ip_version);
    expect_integer("ip_protocol.protocol", record().protocol);
    expect_integer("ip_protocol.dscp_pattern", record().ip_dscp_pattern);
    expect_integer("ip_protocol.ip_config_src.ip6_prefix_length", record().src_ip6_prefix_length);
    expect_integer("ip_protocol.ip_config_dst.ip6_prefix_length", record().dst_ip6_prefix_length);
    expect_integer("ip_protocol.src_port.start", record().src_port_start);
    expect_integer("ip_protocol.src_port.end", record().src_port_end);
    expect_integer("ip_protocol.dst_port.start", record().dst_port_start);
    expect_integer("ip_protocol.dst_port.end", record().dst_port_end);
}

TEST_F(QosClassificationFrom, KeepsTheLow16BitsOfAnEthertype)
{
    EXPECT_TRUE(accepts(with(document, "ethertype.value", "67584")));
    EXPECT_EQ(record().ethertype_value, 2048);
}

TEST_F(QosClassificationFrom, CutsTextsToTheirField)
{
    expect_string("rule_name", record().rule_name);
    expect_string("ip_protocol.ip_config_src.ip4", record().src_ip4);
    expect_string("ip_protocol.ip_config_src.ip4_mask", record().src_ip4_mask);
    expect_string("ip_protocol.ip_config_src.ip6", record().src_ip6);
    expect_string("ip_protocol.ip_config_dst.ip4", record().dst_ip4);
    expect_string("ip_protocol.ip_config_dst.ip4_mask", record().dst_ip4_mask);
    expect_string("ip_protocol.ip_config_dst.ip6", record().dst_ip6);
    expect_string("mac.src", record().mac_src);
    expect_string("mac.dst", record().mac_dst);
}

TEST_F(QosClassificationFrom, DoesNotTakeBackWhatWasWrittenUntilTheOrderIsGone)
{
    EXPECT_TRUE(rejects(sample_text, "order", "order is read-only field"));
    EXPECT_TRUE(accepts(without(sample_text, "order")));
    EXPECT_STREQ(record().src_ip6, "2001:db8:4c:1700::15");
}

} // namespace

} // namespace kelmora_test::qos_classification_test
