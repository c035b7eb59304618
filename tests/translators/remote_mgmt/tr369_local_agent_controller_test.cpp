#include "tests/support/allocations.h"
#include "tests/support/from_test.h"
#include "tests/support/to_test.h"

#include "harness/watch.h"
#include "host/plugin/translate.h"

#include "kelmora_json.h"
#include "records/remote_mgmt.h"

namespace kelmora_test::tr369_local_agent_controller_test {

namespace {

using kelmora_host::Error;
using testing::AllOf;
using testing::HasSubstr;
using testing::StartsWith;

using Controller = kelmora_tr369_local_agent_controller;
using Mtp = kelmora_tr369_local_agent_controller_mtp;
using Mqtt = kelmora_tr369_local_agent_controller_mqtt;
using Websocket = kelmora_tr369_local_agent_controller_websocket;

constexpr Websocket websocket{
    .host = "controller.example.net",
    .port = 443,
    .path = "/üsp",
    .encryption = 1,
    .keep_alive_interval = 30,
};

constexpr Mqtt mqtt{.reference = "Device.MQTT.Client.1", .reference_topic = "usp/\"controller\""};

/// A new record each time, as each node owns its chain.
Controller with_mtps(std::initializer_list<Mtp> mtps)
{
    return {
        .enabled = 1,
        .endpoint_id = "proto::controller/7",
        .periodic_notific_interval = 86400,
        .mtp = kelmora_host::make_chain(mtps),
    };
}

Controller sample()
{
    return with_mtps({
        {.enabled = 1, .protocol = 0, .variant = {.websocket = websocket}},
        {.enabled = 0, .protocol = 1, .variant = {.mqtt = mqtt}},
        {.enabled = 1, .protocol = 2, .variant = {.websocket = websocket}},
    });
}

constexpr char sample_text[] =
    R"({"id": "controller0", "enabled": true, "endpoint_id": "proto::controller/7", )"
    R"("periodic_notific_interval": 86400, "mtp": [)"
    R"({"enabled": true, "protocol": 0, "websocket": {"host": "controller.example.net", "port": 443, )"
    R"("path": "/üsp", "encryption": true, "keep_alive_interval": 30}}, )"
    R"({"enabled": false, "protocol": 1, "mqtt": {"reference": "Device.MQTT.Client.1", )"
    R"("reference_topic": "usp/\"controller\""}}, )"
    R"({"enabled": true, "protocol": 2}]})";

constexpr char empty_text[] =
    R"({"id": "controller1", "enabled": false, "endpoint_id": "", "periodic_notific_interval": 0, "mtp": []})";

class Tr369LocalAgentControllerTo : public ToTest<Controller> {
protected:
    Tr369LocalAgentControllerTo() : ToTest(tr369_local_agent_controller_to_translator) {}
};

TEST_F(Tr369LocalAgentControllerTo, WritesTheKeysInOrder)
{
    add("controller0", sample());
    EXPECT_EQ(object(), sample_text);
    EXPECT_EQ(list(), "[" + std::string(sample_text) + "]");
}

TEST_F(Tr369LocalAgentControllerTo, WritesNoMtpsAsAnEmptyArray)
{
    add("controller1");
    EXPECT_EQ(object(), empty_text);
}

TEST_F(Tr369LocalAgentControllerTo, WritesNoVariantForAnUnknownProtocol)
{
    for (const std::uint32_t protocol : {2U, 7U, 256U, 65537U, 16777216U, 4294967295U}) {
        nodes_.clear();
        add("", with_mtps({{.enabled = 1, .protocol = protocol, .variant = {.websocket = websocket}}}));
        EXPECT_THAT(object(),
                    HasSubstr(R"("mtp": [{"enabled": true, "protocol": )" + std::to_string(protocol) + "}]}"));
    }
}

TEST_F(Tr369LocalAgentControllerTo, WritesIntegersAsSigned)
{
    Websocket extreme = websocket;
    extreme.port = -1;
    extreme.keep_alive_interval = -2147483648;
    add("", with_mtps({{.variant = {.websocket = extreme}}})).periodic_notific_interval = -2;
    EXPECT_THAT(object(), AllOf(HasSubstr(R"("periodic_notific_interval": -2,)"), HasSubstr(R"("port": -1,)"),
                                HasSubstr(R"("keep_alive_interval": -2147483648})")));
}

TEST_F(Tr369LocalAgentControllerTo, WritesEachSwitchFromItsOwnFieldAndAnyButZeroAsTrue)
{
    Controller &controller = add("", sample());
    Mtp &mtp = *controller.mtp;
    mtp.next->enabled = mtp.next->next->enabled = 1;
    const std::string keys[] = {R"({"id": "", "enabled")", R"([{"enabled")", R"("encryption")"};
    std::uint8_t *const fields[] = {&controller.enabled, &mtp.enabled, &mtp.variant.websocket.encryption};
    for (int on = 0; on < 3; ++on) {
        for (int i = 0; i < 3; ++i)
            *fields[i] = i == on ? 128 : 0;
        for (int i = 0; i < 3; ++i)
            EXPECT_THAT(object(), HasSubstr(keys[i] + (i == on ? ": true" : ": false")));
    }
}

TEST_F(Tr369LocalAgentControllerTo, CutsTextsToOneByteLessThanTheirField)
{
    Controller &controller = add("", sample());
    fill_whole(controller.endpoint_id, 'e');
    fill_whole(controller.mtp->variant.websocket.host, 'h');
    fill_whole(controller.mtp->variant.websocket.path, 'p');
    fill_whole(controller.mtp->next->variant.mqtt.reference, 'r');
    fill_whole(controller.mtp->next->variant.mqtt.reference_topic, 't');
    fill_whole(nodes_.front().resource()->id, 'i');
    const auto cut = [](char character) { return ": \"" + std::string(255, character) + '"'; };
    EXPECT_THAT(object(),
                AllOf(StartsWith(R"({"id": ")" + std::string(128, 'i') + "\","),
                      HasSubstr("\"endpoint_id\"" + cut('e')), HasSubstr("\"host\"" + cut('h')),
                      HasSubstr("\"path\"" + cut('p')), HasSubstr("\"reference\": \"" + std::string(127, 'r') + '"'),
                      HasSubstr("\"reference_topic\"" + cut('t'))));
}

TEST_F(Tr369LocalAgentControllerTo, LeavesOutTextsThatAreNotUtf8AfterTheirCut)
{
    Controller &controller = add("controller0", sample());
    set(controller.endpoint_id, "caf\xE9");
    Mqtt &second = controller.mtp->next->variant.mqtt;
    fill_whole(second.reference, 'r');
    second.reference[126] = '\xC3'; // the first byte of a two-byte character: the last that is written
    second.reference[127] = '\xA4';
    EXPECT_THAT(object(), AllOf(HasSubstr(R"("enabled": true, "periodic_notific_interval")"),
                                HasSubstr(R"("mqtt": {"reference_topic")")));
}

TEST_F(Tr369LocalAgentControllerTo, WritesManyMtpsIntoALargerBuffer)
{
    Controller &controller = add("controller1");
    std::string expected = std::string(empty_text).substr(0, std::string(empty_text).size() - 2);
    for (int i = 100; i > 0; --i) {
        auto *mtp = kelmora_host::make_chain<Mtp>({{.protocol = 1, .variant = {.mqtt = {}}}});
        set(mtp->variant.mqtt.reference, std::to_string(i));
        mtp->next = controller.mtp;
        controller.mtp = mtp;
    }
    for (int i = 1; i <= 100; ++i)
        expected += R"({"enabled": false, "protocol": 1, "mqtt": {"reference": ")" + std::to_string(i) +
                    R"(", "reference_topic": ""}})" + (i < 100 ? ", " : "]}");
    EXPECT_EQ(object(), expected);
    EXPECT_EQ(reallocations_, 1U);
}

TEST_F(Tr369LocalAgentControllerTo, SurvivesFailingMemory)
{
    fill_whole(add("controller0", sample()).mtp->variant.websocket.path, 'p'); // its cut takes an allocation
    add("controller1", sample());
    expect_survives_failing_memory();
}

constexpr char document[] = R"({
    "id": "never read", "enabled": true, "endpoint_id": "the endpoint", "periodic_notific_interval": 600,
    "mtp": [
        {"enabled": true, "protocol": 0,
         "websocket": {"host": "198.51.100.9", "port": 8443, "path": "/path", "encryption": true,
                       "keep_alive_interval": 45}},
        {"enabled": true, "protocol": 1, "mqtt": {"reference": "the client", "reference_topic": "the topic"}}
    ]
})";

constexpr char websocket_json[] =
    R"({"enabled": true, "protocol": 0, "websocket": )"
    R"({"host": "a", "port": 1, "path": "b", "encryption": true, "keep_alive_interval": 2}})";
constexpr char mqtt_json[] = R"({"enabled": true, "protocol": 1, "mqtt": {"reference": "c", "reference_topic": "d"}})";
constexpr char unknown_json[] = R"({"enabled": true, "protocol": 7})";

const Error invalid_protocol{"mtp.protocol", "invalid protocol", "json"};

/// The document with these elements.
std::string with_elements(std::initializer_list<std::string> elements)
{
    std::string json;
    for (const std::string &element : elements)
        json += (json.empty() ? "[" : ", ") + element;
    return with(document, "mtp", json + "]");
}

class Tr369LocalAgentControllerFrom : public FromTest<Controller> {
protected:
    Tr369LocalAgentControllerFrom() : FromTest(tr369_local_agent_controller_from_translator, document) {}

    /// The protocols of the entries that the host was given.
    std::vector<std::uint32_t> protocols()
    {
        std::vector<std::uint32_t> list;
        for (const Mtp *mtp = record().mtp; mtp != nullptr; mtp = mtp->next)
            list.push_back(mtp->protocol);
        return list;
    }

    /// The entry with this index.
    Mtp entry(int index)
    {
        const Mtp *mtp = record().mtp;
        for (int i = 0; mtp != nullptr && i < index; ++i)
            mtp = mtp->next;
        if (mtp != nullptr)
            return *mtp;
        ADD_FAILURE() << "no entry " << index;
        return {};
    }

    /// The entry of an element with this value in a member's place.
    Mtp entry_with(int index, const std::string &member, const std::string &json)
    {
        poison();
        EXPECT_TRUE(accepts(with(document, "mtp." + std::to_string(index) + '.' + member, json)));
        return entry(index);
    }
    Websocket websocket_with(const std::string &member, const std::string &json)
    {
        return entry_with(0, "websocket." + member, json).variant.websocket;
    }
    Mqtt mqtt_with(const std::string &member, const std::string &json)
    {
        return entry_with(1, "mqtt." + member, json).variant.mqtt;
    }

    void expect_settings_stored()
    {
        EXPECT_EQ(record().enabled, 1);
        EXPECT_STREQ(record().endpoint_id, "the endpoint");
        EXPECT_EQ(record().periodic_notific_interval, 600);
    }
};

using Protocols = std::vector<std::uint32_t>;

TEST_F(Tr369LocalAgentControllerFrom, StoresEveryKeyAndAddsTheMtpsInOrder)
{
    EXPECT_TRUE(accepts(document));
    expect_settings_stored();
    ASSERT_EQ(protocols(), (Protocols{0, 1}));
    const Mtp first = entry(0);
    EXPECT_EQ(first.enabled, 1);
    EXPECT_STREQ(first.variant.websocket.host, "198.51.100.9");
    EXPECT_EQ(first.variant.websocket.port, 8443);
    EXPECT_STREQ(first.variant.websocket.path, "/path");
    EXPECT_EQ(first.variant.websocket.encryption, 1);
    EXPECT_EQ(first.variant.websocket.keep_alive_interval, 45);
    const Mtp second = entry(1);
    EXPECT_EQ(second.enabled, 1);
    EXPECT_STREQ(second.variant.mqtt.reference, "the client");
    EXPECT_STREQ(second.variant.mqtt.reference_topic, "the topic");
}

TEST_F(Tr369LocalAgentControllerFrom, AsksForTheRequiredKeysInOrder)
{
    expect_required_in_order({
        {"enabled", "enabled", "enabled field not found"},
        {"endpoint_id", "endpoint_id", "endpoint_id field not found"},
        {"periodic_notific_interval", "periodic_notific_interval", "periodic_notific_interval field not found"},
        {"mtp", "mtp", "mtp field not found"},
        {"mtp.0.enabled", "mtp", "missing enabled field"},
        {"mtp.0.protocol", "mtp", "missing protocol field"},
        {"mtp.0.websocket.host", "mtp.websocket.host", "missing host field"},
        {"mtp.0.websocket.port", "mtp.websocket.port", "missing port field"},
        {"mtp.0.websocket.path", "mtp.websocket", "missing path field"},
        {"mtp.0.websocket.encryption", "mtp.websocket.encryption", "missing encryption field"},
        {"mtp.0.websocket.keep_alive_interval", "mtp.websocket.keep_alive_interval",
         "missing keep_alive_interval field"},
        {"mtp.1.enabled", "mtp", "missing enabled field"},
        {"mtp.1.mqtt.reference", "mtp.mqtt", "missing reference field"},
        {"mtp.1.mqtt.reference_topic", "mtp.mqtt", "missing reference_topic field"},
    });
    EXPECT_TRUE(rejects(without(document, "mtp.1.protocol"), "mtp", "missing protocol field"));
    EXPECT_TRUE(rejects(without(without(document, "mtp.1.protocol"), "mtp.1.mqtt"), "mtp", "missing protocol field"));
}

TEST_F(Tr369LocalAgentControllerFrom, MissingKeyKeepsWhatIsStoredBeforeItAlone)
{
    EXPECT_TRUE(rejects(without(document, "enabled"), "enabled", "enabled field not found"));
    EXPECT_TRUE(untouched(record().enabled));
    EXPECT_TRUE(untouched(record().endpoint_id));
    EXPECT_TRUE(rejects(without(document, "endpoint_id"), "endpoint_id", "endpoint_id field not found"));
    EXPECT_EQ(record().enabled, 1);
    EXPECT_TRUE(untouched(record().endpoint_id));
    EXPECT_TRUE(untouched(record().periodic_notific_interval));
    EXPECT_TRUE(rejects(without(document, "periodic_notific_interval"), "periodic_notific_interval",
                        "periodic_notific_interval field not found"));
    EXPECT_STREQ(record().endpoint_id, "the endpoint");
    EXPECT_TRUE(untouched(record().periodic_notific_interval));
    EXPECT_TRUE(rejects(without(document, "mtp"), "mtp", "mtp field not found"));
    expect_settings_stored();
    EXPECT_EQ(record().mtp, nullptr);
}

TEST_F(Tr369LocalAgentControllerFrom, AddsNothingForAnEmptyArrayOrNoArray)
{
    for (const char *json : {"[]", "null", "{}", "7", "1.5", "true", "\"text\"", websocket_json}) {
        poison();
        EXPECT_TRUE(accepts(with(document, "mtp", json)));
        expect_settings_stored();
        EXPECT_EQ(record().mtp, nullptr);
    }
}

TEST_F(Tr369LocalAgentControllerFrom, AddsBehindTheMtpsThatAreThere)
{
    record().mtp = kelmora_host::make_chain<Mtp>({{.protocol = 9}});
    EXPECT_TRUE(accepts(document));
    EXPECT_EQ(protocols(), (Protocols{9, 0, 1}));
}

TEST_F(Tr369LocalAgentControllerFrom, AddsEachOfManyMtpsOnce)
{
    for (std::size_t count = 0; count <= 20; ++count) {
        std::string json;
        Protocols expected;
        for (std::size_t i = 0; i < count; ++i) {
            json.append(json.empty() ? "[" : ", ").append(i % 2 == 0 ? mqtt_json : websocket_json);
            expected.push_back(i % 2 == 0 ? 1 : 0);
        }
        poison();
        EXPECT_TRUE(accepts(with(document, "mtp", json.empty() ? "[]" : json + "]")));
        EXPECT_EQ(protocols(), expected);
    }
}

TEST_F(Tr369LocalAgentControllerFrom, HandsEachMtpOverUnlinkedWithTheRequestsErrors)
{
    kelmora_errorlist errors;
    Protocols handed_over;
    const kelmora_harness::WatchEntries watch([&](const kelmora_host::AddedEntry &entry) {
        EXPECT_EQ(entry.record, &record());
        EXPECT_EQ(entry.reserved, 0);
        EXPECT_EQ(entry.errors, &errors);
        const auto *mtp = static_cast<const Mtp *>(entry.node);
        EXPECT_EQ(mtp->next, nullptr);
        handed_over.push_back(mtp->protocol);
    });
    const std::string text = with_elements({mqtt_json, unknown_json, websocket_json});
    EXPECT_EQ(tr369_local_agent_controller_from_translator(node_.resource(), text.c_str(), &errors), 1);
    EXPECT_EQ(handed_over, (Protocols{1, 7, 0}));
}

TEST_F(Tr369LocalAgentControllerFrom, TakesAVariantThatIsNoObjectOrMissingForAnEmptyOne)
{
    for (const char *other : {"{}", "null", "7", "\"text\"", "true", "[]", R"([{"host": "a", "reference": "b"}])"}) {
        EXPECT_TRUE(rejects(with(document, "mtp.0.websocket", other), "mtp.websocket.host", "missing host field"));
        EXPECT_TRUE(rejects(with(document, "mtp.1.mqtt", other), "mtp.mqtt", "missing reference field"));
    }
    EXPECT_TRUE(rejects(without(document, "mtp.0.websocket"), "mtp.websocket.host", "missing host field"));
    EXPECT_TRUE(rejects(without(document, "mtp.1.mqtt"), "mtp.mqtt", "missing reference field"));
}

TEST_F(Tr369LocalAgentControllerFrom, ReadsOnlyTheVariantOfTheProtocol)
{
    EXPECT_TRUE(rejects(with(document, "mtp.0.protocol", "1"), "mtp.mqtt", "missing reference field"));
    EXPECT_TRUE(rejects(with(document, "mtp.1.protocol", "0"), "mtp.websocket.host", "missing host field"));
    poison();
    EXPECT_TRUE(accepts(with(with(document, "mtp.0.mqtt", "7"), "mtp.1.websocket", "7")));
    EXPECT_STREQ(entry(1).variant.mqtt.reference, "the client");
}

TEST_F(Tr369LocalAgentControllerFrom, StopsAtAnElementThatIsNoObject)
{
    for (const std::string other : {"null", "7", "\"text\"", "true", "[]", "{}"}) {
        poison();
        EXPECT_TRUE(rejects(with_elements({websocket_json, other, mqtt_json}), "mtp", "missing enabled field"));
        EXPECT_EQ(protocols(), Protocols{0});
    }
}

TEST_F(Tr369LocalAgentControllerFrom, KeepsTheMtpsInFrontOfAFailingOne)
{
    EXPECT_TRUE(rejects(without(document, "mtp.1.mqtt.reference_topic"), "mtp.mqtt", "missing reference_topic field"));
    expect_settings_stored();
    EXPECT_EQ(protocols(), Protocols{0});
    poison();
    EXPECT_TRUE(rejects(without(document, "mtp.0.websocket.path"), "mtp.websocket", "missing path field"));
    expect_settings_stored();
    EXPECT_EQ(record().mtp, nullptr);
}

TEST_F(Tr369LocalAgentControllerFrom, ReportsAnUnknownProtocolAndAddsTheElementAllTheSame)
{
    EXPECT_TRUE(accepts_reporting(with_elements({unknown_json}), {invalid_protocol}));
    expect_settings_stored();
    EXPECT_EQ(protocols(), Protocols{7});
    EXPECT_EQ(entry(0).enabled, 1);
    const Websocket nothing = entry(0).variant.websocket;
    EXPECT_STREQ(nothing.host, "");
    EXPECT_EQ(nothing.port, 0);
    EXPECT_STREQ(nothing.path, "");
    EXPECT_EQ(nothing.encryption, 0);
    EXPECT_EQ(nothing.keep_alive_interval, 0);
}

TEST_F(Tr369LocalAgentControllerFrom, ReportsEachUnknownProtocolAndGoesOn)
{
    EXPECT_TRUE(accepts_reporting(with_elements({unknown_json, websocket_json, unknown_json, mqtt_json, unknown_json}),
                                  {invalid_protocol, invalid_protocol, invalid_protocol}));
    EXPECT_EQ(protocols(), (Protocols{7, 0, 7, 1, 7}));
    EXPECT_STREQ(entry(1).variant.websocket.host, "a");
    EXPECT_STREQ(entry(3).variant.mqtt.reference_topic, "d");
}

TEST_F(Tr369LocalAgentControllerFrom, FailsAtALaterElementAfterReportingAnUnknownProtocol)
{
    const std::size_t json_before = allocations::json_alive();
    std::vector<std::size_t> alive_at_errors;
    kelmora_errorlist errors;
    const kelmora_harness::WatchErrors watch(
        [&](const kelmora_errorlist & /*errors*/) { alive_at_errors.push_back(allocations::json_alive()); });
    const std::string text = with_elements({unknown_json, R"({"enabled": true})", unknown_json});
    EXPECT_EQ(tr369_local_agent_controller_from_translator(node_.resource(), text.c_str(), &errors), 0);
    EXPECT_EQ(errors.errors, (std::vector<Error>{invalid_protocol, {"mtp", "missing protocol field", "json"}}));
    EXPECT_EQ(protocols(), Protocols{7});
    expect_settings_stored();
    ASSERT_EQ(alive_at_errors.size(), 2U);
    EXPECT_GT(alive_at_errors[0], json_before) << "the document is still read";
    EXPECT_EQ(alive_at_errors[1], json_before) << "the document is not released before its error";
    EXPECT_EQ(allocations::json_alive(), json_before);
}

TEST_F(Tr369LocalAgentControllerFrom, StoresTheLow32BitsOfTheProtocolAndGoesByThem)
{
    EXPECT_TRUE(accepts(with(document, "mtp.1.protocol", "4294967297")));
    EXPECT_EQ(protocols(), (Protocols{0, 1}));
    EXPECT_STREQ(entry(1).variant.mqtt.reference, "the client");
    poison();
    EXPECT_TRUE(accepts(with(document, "mtp.0.protocol", "4294967296")));
    EXPECT_EQ(protocols(), (Protocols{0, 1}));
    for (const auto &[json, stored] : std::vector<std::pair<std::string, std::uint32_t>>{
             {"2", 2}, {"-1", 4294967295}, {"257", 257}, {"4294967301", 5}, {"-9223372036854775807", 1}}) {
        poison();
        const std::string text = with(document, "mtp.1.protocol", json);
        if (stored == 1)
            EXPECT_TRUE(accepts(text));
        else
            EXPECT_TRUE(accepts_reporting(text, {invalid_protocol}));
        EXPECT_EQ(protocols(), (Protocols{0, stored})) << json;
    }
}

TEST_F(Tr369LocalAgentControllerFrom, TakesAProtocolThatIsNoIntegerForWebsocket)
{
    for (const char *json : {"1.0", "\"1\"", "true", "null", "{}", "[1]"}) {
        EXPECT_EQ(entry_with(0, "protocol", json).protocol, 0U) << json;
        EXPECT_TRUE(rejects(with(document, "mtp.1.protocol", json), "mtp.websocket.host", "missing host field"));
    }
}

TEST_F(Tr369LocalAgentControllerFrom, KeepsThePreviousElementsValuesWhereAnElementSetsNone)
{
    EXPECT_TRUE(accepts_reporting(with_elements({websocket_json, unknown_json, mqtt_json}), {invalid_protocol}));
    ASSERT_EQ(protocols(), (Protocols{0, 7, 1}));
    const Websocket unknown = entry(1).variant.websocket;
    EXPECT_STREQ(unknown.host, "a");
    EXPECT_EQ(unknown.port, 1);
    EXPECT_STREQ(unknown.path, "b");
    EXPECT_EQ(unknown.encryption, 1);
    EXPECT_EQ(unknown.keep_alive_interval, 2);
    const Websocket behind_mqtt = entry(2).variant.websocket; // what lies behind the shorter variant
    EXPECT_EQ(behind_mqtt.encryption, 1);
    EXPECT_EQ(behind_mqtt.keep_alive_interval, 2);
}

TEST_F(Tr369LocalAgentControllerFrom, TakesOnlyTrueForTrue)
{
    expect_boolean("enabled", record().enabled);
    EXPECT_EQ(entry_with(0, "enabled", "true").enabled, 1);
    EXPECT_EQ(websocket_with("encryption", "true").encryption, 1);
    for (const char *json : {"false", "1", "1.0", "\"true\"", "null", "{}", "[true]"}) {
        EXPECT_EQ(entry_with(0, "enabled", json).enabled, 0) << json;
        EXPECT_EQ(entry_with(1, "enabled", json).enabled, 0) << json; // not the previous element's either
        EXPECT_EQ(websocket_with("encryption", json).encryption, 0) << json;
    }
}

TEST_F(Tr369LocalAgentControllerFrom, CutsIntegersToTheirWidth)
{
    expect_integer("periodic_notific_interval", record().periodic_notific_interval);
    for (const auto &[json, expected] : std::vector<std::pair<std::string, std::int32_t>>{{"2147483647", 2147483647},
                                                                                          {"2147483648", -2147483648},
                                                                                          {"4294967295", -1},
                                                                                          {"4294967301", 5},
                                                                                          {"-1", -1},
                                                                                          {"1.0", 0},
                                                                                          {"\"1\"", 0},
                                                                                          {"true", 0},
                                                                                          {"null", 0},
                                                                                          {"[1]", 0}}) {
        EXPECT_EQ(websocket_with("port", json).port, expected) << json;
        EXPECT_EQ(websocket_with("keep_alive_interval", json).keep_alive_interval, expected) << json;
    }
}

TEST_F(Tr369LocalAgentControllerFrom, CutsTextsToTheirField)
{
    expect_string("endpoint_id", record().endpoint_id);
    for (const std::size_t length : {0U, 126U, 127U, 128U, 254U, 255U, 256U, 257U, 65536U}) {
        const std::string text(length, 't');
        const std::string json = '"' + text + '"';
        EXPECT_EQ(std::string(websocket_with("host", json).host), text.substr(0, 255)) << length;
        EXPECT_EQ(std::string(websocket_with("path", json).path), text.substr(0, 255)) << length;
        EXPECT_EQ(std::string(mqtt_with("reference", json).reference), text.substr(0, 127)) << length;
        EXPECT_EQ(std::string(mqtt_with("reference_topic", json).reference_topic), text.substr(0, 255)) << length;
    }
    for (const char *json : {"1", "1.5", "true", "null", "{}", "[\"text\"]"}) {
        EXPECT_STREQ(websocket_with("host", json).host, "") << json;
        EXPECT_STREQ(websocket_with("path", json).path, "") << json;
        EXPECT_STREQ(mqtt_with("reference", json).reference, "") << json;
        EXPECT_STREQ(mqtt_with("reference_topic", json).reference_topic, "") << json;
    }
}

TEST_F(Tr369LocalAgentControllerFrom, WritesNothingBehindATextThatIsCut)
{
    const std::string longer = '"' + std::string(300, 't') + '"';
    EXPECT_EQ(websocket_with("host", longer).port, 8443);
    EXPECT_EQ(websocket_with("path", longer).encryption, 1);
    EXPECT_STREQ(mqtt_with("reference", longer).reference_topic, "the topic");
}

TEST(Tr369LocalAgentController, TakesBackWhatItWrote)
{
    std::vector<kelmora_host::Node> nodes;
    nodes.emplace_back("controller0", kelmora_host::Record(Controller{}));
    kelmora_errorlist errors;
    EXPECT_EQ(tr369_local_agent_controller_from_translator(nodes.front().resource(), sample_text, &errors), 1);
    EXPECT_EQ(errors.errors, std::vector<Error>{invalid_protocol});
    EXPECT_EQ(kelmora_host::to_json(tr369_local_agent_controller_to_translator, nodes, false).text, sample_text);
}

} // namespace

} // namespace kelmora_test::tr369_local_agent_controller_test
