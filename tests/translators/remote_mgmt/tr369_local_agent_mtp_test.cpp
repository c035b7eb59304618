#include "tests/support/from_test.h"
#include "tests/support/to_test.h"

#include "kelmora_json.h"
#include "records/remote_mgmt.h"

namespace kelmora_test::tr369_local_agent_mtp_test {

namespace {

using testing::AllOf;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

using Mtp = kelmora_tr369_local_agent_mtp;

constexpr Mtp sample{
    .enabled = 1,
    .protocol = 1,
    .reference = "Device.MQTT.Client.1",
    .reference_topic = "usp/ägent/\"7\"",
    .qos = 2,
};

constexpr char sample_text[] =
    R"({"enabled": true, "id": "mtp0", "protocol": 1, "mqtt_config": {"reference": "Device.MQTT.Client.1", )"
    R"("reference_topic": "usp/ägent/\"7\"", "qos": 2}})";

constexpr char other_text[] = R"({"enabled": false, "id": "mtp1", "protocol": 0, "mqtt_config": {}})";

class Tr369LocalAgentMtpTo : public ToTest<Mtp> {
protected:
    Tr369LocalAgentMtpTo() : ToTest(tr369_local_agent_mtp_to_translator) {}
};

TEST_F(Tr369LocalAgentMtpTo, WritesTheSwitchInFrontOfTheId)
{
    add("mtp0", sample);
    EXPECT_EQ(object(), sample_text);
    EXPECT_EQ(list(), "[" + std::string(sample_text) + "]");
}

TEST_F(Tr369LocalAgentMtpTo, WritesAnEmptyMqttConfigForEveryOtherProtocol)
{
    add("mtp1");
    EXPECT_EQ(object(), other_text);
    for (const std::uint32_t protocol : {0U, 2U, 257U, 65537U, 16777216U, 4294967295U}) {
        nodes_.clear();
        add("mtp0", sample).protocol = protocol;
        EXPECT_EQ(object(), R"({"enabled": true, "id": "mtp0", "protocol": )" + std::to_string(protocol) +
                                R"(, "mqtt_config": {}})");
    }
}

TEST_F(Tr369LocalAgentMtpTo, WritesTheQualityOfServiceAsUnsigned)
{
    add("mtp0", sample).qos = 4294967295;
    EXPECT_THAT(object(), HasSubstr(R"("qos": 4294967295}})"));
}

TEST_F(Tr369LocalAgentMtpTo, WritesAnySwitchButZeroAsTrue) { expect_switches({{"enabled", &Mtp::enabled}}); }

TEST_F(Tr369LocalAgentMtpTo, CutsTextsToOneByteLessThanTheirField)
{
    Mtp &mtp = add("", sample);
    fill_whole(mtp.reference, 'r');
    fill_whole(mtp.reference_topic, 't');
    fill_whole(nodes_.front().resource()->id, 'i');
    EXPECT_EQ(object(), R"({"enabled": true, "id": ")" + std::string(128, 'i') +
                            R"(", "protocol": 1, "mqtt_config": {"reference": ")" + std::string(127, 'r') +
                            R"(", "reference_topic": ")" + std::string(256, 't') + R"(", "qos": 2}})");
}

TEST_F(Tr369LocalAgentMtpTo, LeavesOutTextsThatAreNotUtf8AfterTheirCut)
{
    Mtp &mtp = add("mtp0", sample);
    fill_whole(mtp.reference_topic, 't');
    mtp.reference_topic[255] = '\xC3'; // the first byte of a two-byte character: the last that is written
    mtp.reference_topic[256] = '\xA4';
    EXPECT_THAT(object(), HasSubstr(R"("reference": "Device.MQTT.Client.1", "qos": 2}})"));
    set(mtp.reference, "caf\xE9");
    EXPECT_THAT(object(), HasSubstr(R"("mqtt_config": {"qos": 2}})"));
    fill_whole(nodes_.front().resource()->id, '\xFF');
    EXPECT_THAT(object(), AllOf(StartsWith(R"({"enabled": true, "protocol": 1,)"), Not(HasSubstr("\"id\""))));
}

TEST_F(Tr369LocalAgentMtpTo, GrowsTheBufferForALongList)
{
    std::string expected;
    for (int i = 0; i < 64; ++i) {
        add("mtp0", sample);
        expected += (i == 0 ? "[" : ", ") + std::string(sample_text);
    }
    EXPECT_EQ(list(), expected + "]");
    EXPECT_EQ(reallocations_, 1U);
}

constexpr char document[] = R"({
    "id": "never read", "enabled": true, "protocol": 1,
    "mqtt_config": {"reference": "the client", "reference_topic": "the topic", "qos": 3}
})";

/// Success leaves the document unreleased, failures release it.
class Tr369LocalAgentMtpFrom : public FromTest<Mtp> {
protected:
    Tr369LocalAgentMtpFrom() : FromTest(tr369_local_agent_mtp_from_translator, document)
    {
        leaks_document_on_success_ = true;
    }

    void expect_mqtt_untouched()
    {
        EXPECT_TRUE(untouched(record().reference));
        EXPECT_TRUE(untouched(record().reference_topic));
        EXPECT_TRUE(untouched(record().qos));
    }
};

TEST_F(Tr369LocalAgentMtpFrom, StoresEveryKeyAndKeepsTheDocument)
{
    EXPECT_TRUE(accepts(document)); // which looks at the document as well
    EXPECT_EQ(record().enabled, 1);
    EXPECT_EQ(record().protocol, 1U);
    EXPECT_STREQ(record().reference, "the client");
    EXPECT_STREQ(record().reference_topic, "the topic");
    EXPECT_EQ(record().qos, 3U);
}

TEST_F(Tr369LocalAgentMtpFrom, AsksForTheRequiredKeysInOrder)
{
    EXPECT_TRUE(rejects("{}", "enabled", "enabled field not found"));
    EXPECT_TRUE(rejects("[]", "enabled", "enabled field not found"));
    EXPECT_TRUE(rejects("[" + std::string(document) + "]", "enabled", "enabled field not found"));
    EXPECT_TRUE(rejects(without(document, "enabled"), "enabled", "enabled field not found"));
    EXPECT_TRUE(rejects(R"({"enabled": true})", "protocol", "protocol field not found"));
    EXPECT_TRUE(rejects(without(document, "protocol"), "protocol", "protocol field not found"));
    EXPECT_TRUE(rejects(without(document, "mqtt_config"), "mqtt_config", "mqtt_config field not found"));
    const std::vector<std::string> inner = {"reference", "reference_topic", "qos"};
    std::string text = document;
    for (auto key = inner.rbegin(); key != inner.rend(); ++key) {
        const std::string path = "mqtt_config." + *key;
        EXPECT_TRUE(rejects(without(document, path), path, path + " field not found"));
        EXPECT_TRUE(accepts(with(document, path, "null")));
        text = without(text, path);
        EXPECT_TRUE(rejects(text, path, path + " field not found"));
    }
}

TEST_F(Tr369LocalAgentMtpFrom, MissingSwitchStoresNothing)
{
    EXPECT_TRUE(rejects(without(document, "enabled"), "enabled", "enabled field not found"));
    EXPECT_TRUE(untouched(record()));
}

TEST_F(Tr369LocalAgentMtpFrom, MissingProtocolStoresTheSwitchAloneWhateverTheRecordHeld)
{
    EXPECT_TRUE(rejects(without(document, "protocol"), "protocol", "protocol field not found"));
    EXPECT_EQ(record().enabled, 1);
    EXPECT_TRUE(untouched(record().protocol));
    expect_mqtt_untouched();

    record().protocol = 1;
    EXPECT_TRUE(rejects(without(document, "protocol"), "protocol", "protocol field not found"));
    EXPECT_EQ(record().protocol, 1U);
    expect_mqtt_untouched();
}

TEST_F(Tr369LocalAgentMtpFrom, EndsWithAnyOtherProtocolAndKeepsTheMqttSettings)
{
    for (const char *protocol : {"0", "2", "-1", "4294967296", "257", "null", "\"1\"", "1.0", "true", "[1]"}) {
        poison();
        EXPECT_TRUE(accepts(with(document, "protocol", protocol)));
        EXPECT_EQ(record().enabled, 1);
        EXPECT_NE(record().protocol, 1U);
        EXPECT_FALSE(untouched(record().protocol));
        expect_mqtt_untouched();
    }
    poison();
    EXPECT_TRUE(accepts(R"({"enabled": false, "protocol": 2})"));
    EXPECT_EQ(record().enabled, 0);
    EXPECT_EQ(record().protocol, 2U);
    expect_mqtt_untouched();
    EXPECT_TRUE(accepts(R"({"enabled": false, "protocol": 2, "mqtt_config": 7})"));
}

TEST_F(Tr369LocalAgentMtpFrom, StoresTheLow32BitsOfTheProtocolAndGoesByThem)
{
    for (const auto &[json, stored] : std::vector<std::pair<std::string, std::uint32_t>>{{"4294967295", 4294967295},
                                                                                         {"-1", 4294967295},
                                                                                         {"4294967296", 0},
                                                                                         {"4294967301", 5},
                                                                                         {"1.0", 0},
                                                                                         {"\"1\"", 0},
                                                                                         {"true", 0},
                                                                                         {"null", 0}}) {
        poison();
        EXPECT_TRUE(accepts(with(document, "protocol", json)));
        EXPECT_EQ(record().protocol, stored) << json;
        expect_mqtt_untouched();
    }
    poison();
    EXPECT_TRUE(accepts(with(document, "protocol", "4294967297")));
    EXPECT_EQ(record().protocol, 1U);
    EXPECT_STREQ(record().reference, "the client");
    EXPECT_EQ(record().qos, 3U);
}

TEST_F(Tr369LocalAgentMtpFrom, MissingMqttConfigKeepsSwitchAndProtocol)
{
    EXPECT_TRUE(rejects(without(document, "mqtt_config"), "mqtt_config", "mqtt_config field not found"));
    EXPECT_EQ(record().enabled, 1);
    EXPECT_EQ(record().protocol, 1U);
    expect_mqtt_untouched();
}

TEST_F(Tr369LocalAgentMtpFrom, AsksForTheReferenceOfAnyMqttConfig)
{
    for (const char *other : {"{}", "null", "1", "\"text\"", "true", "[]", R"([{"reference": "a"}])"}) {
        poison();
        EXPECT_TRUE(rejects(with(document, "mqtt_config", other), "mqtt_config.reference",
                            "mqtt_config.reference field not found"));
        EXPECT_EQ(record().protocol, 1U);
        expect_mqtt_untouched();
    }
}

TEST_F(Tr369LocalAgentMtpFrom, MissingQualityOfServiceKeepsBothReferences)
{
    EXPECT_TRUE(rejects(without(document, "mqtt_config.qos"), "mqtt_config.qos", "mqtt_config.qos field not found"));
    EXPECT_STREQ(record().reference, "the client");
    EXPECT_STREQ(record().reference_topic, "the topic");
    EXPECT_TRUE(untouched(record().qos));
}

TEST_F(Tr369LocalAgentMtpFrom, MissingTopicKeepsTheReferenceAlone)
{
    EXPECT_TRUE(rejects(without(document, "mqtt_config.reference_topic"), "mqtt_config.reference_topic",
                        "mqtt_config.reference_topic field not found"));
    EXPECT_STREQ(record().reference, "the client");
    EXPECT_TRUE(untouched(record().reference_topic));
    EXPECT_TRUE(untouched(record().qos));
}

TEST_F(Tr369LocalAgentMtpFrom, ReadsTheMqttSettingsInsideTheirObjectAlone)
{
    EXPECT_TRUE(rejects(with(without(document, "mqtt_config.reference"), "reference", "\"outside\""),
                        "mqtt_config.reference", "mqtt_config.reference field not found"));
}

TEST_F(Tr369LocalAgentMtpFrom, TakesOnlyTrueForTrue) { expect_boolean("enabled", record().enabled); }

TEST_F(Tr369LocalAgentMtpFrom, CutsIntegersToTheirWidth) { expect_integer("mqtt_config.qos", record().qos); }

TEST_F(Tr369LocalAgentMtpFrom, CutsTextsToTheirField)
{
    expect_string("mqtt_config.reference", record().reference);
    expect_string("mqtt_config.reference_topic", record().reference_topic);
}

} // namespace

} // namespace kelmora_test::tr369_local_agent_mtp_test
