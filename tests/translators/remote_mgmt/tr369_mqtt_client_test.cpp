#include "tests/support/from_test.h"
#include "tests/support/to_test.h"

#include "harness/watch.h"
#include "host/plugin/translate.h"

#include "kelmora_json.h"
#include "records/remote_mgmt.h"

namespace kelmora_test::tr369_mqtt_client_test {

namespace {

using testing::AllOf;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

using Client = kelmora_tr369_mqtt_client;
using Subscription = kelmora_tr369_mqtt_client_subscription;

/// A new record each time, as each node owns its chain.
Client sample()
{
    return {
        .enabled = 1,
        .brokeraddress = "mqtt.example.net",
        .brokerport = 8883,
        .username = "gäteway/7",
        .password = "eleven \"cranes\"",
        .clientID = "os::021A11-7",
        .keep_alive_time = 60,
        .protocol_version = 2,
        .transport_protocol = 1,
        .subscription = kelmora_host::make_chain<Subscription>({
            {.enabled = 1, .topic = "usp/agent/7", .qos = 1},
            {.enabled = 0, .topic = "usp/all", .qos = 2},
        }),
    };
}

constexpr char sample_text[] =
    R"({"id": "client0", "enabled": true, "brokeraddress": "mqtt.example.net", "brokerport": 8883, )"
    R"("username": "gäteway/7", "password": "eleven \"cranes\"", "clientID": "os::021A11-7", )"
    R"("keep_alive_time": 60, "protocol_version": 2, "transport_protocol": 1, "subscription": [)"
    R"({"enabled": true, "topic": "usp/agent/7", "qos": 1}, {"enabled": false, "topic": "usp/all", "qos": 2}]})";

constexpr char empty_text[] =
    R"({"id": "client1", "enabled": false, "brokeraddress": "", "brokerport": 0, "username": "", "password": "", )"
    R"("clientID": "", "keep_alive_time": 0, "protocol_version": 0, "transport_protocol": 0, "subscription": []})";

class Tr369MqttClientTo : public ToTest<Client> {
protected:
    Tr369MqttClientTo() : ToTest(tr369_mqtt_client_to_translator) {}
};

TEST_F(Tr369MqttClientTo, WritesTheKeysInOrder)
{
    add("client0", sample());
    EXPECT_EQ(object(), sample_text);
    EXPECT_EQ(list(), "[" + std::string(sample_text) + "]");
}

TEST_F(Tr369MqttClientTo, WritesNoSubscriptionsAsAnEmptyArray)
{
    add("client1");
    EXPECT_EQ(object(), empty_text);
}

TEST_F(Tr369MqttClientTo, WritesPortAndKeepAliveAsSignedAndTheRestAsUnsigned)
{
    constexpr std::uint32_t most = 4294967295;
    add("", {.brokerport = -1,
             .keep_alive_time = -2147483648,
             .protocol_version = most,
             .transport_protocol = most,
             .subscription = kelmora_host::make_chain<Subscription>({{.qos = most}})});
    EXPECT_THAT(object(), AllOf(HasSubstr(R"("brokerport": -1,)"), HasSubstr(R"("keep_alive_time": -2147483648,)"),
                                HasSubstr(R"("protocol_version": 4294967295, "transport_protocol": 4294967295,)"),
                                HasSubstr(R"("qos": 4294967295})")));
}

TEST_F(Tr369MqttClientTo, WritesAnySwitchButZeroAsTrue)
{
    Client &client = add("", sample());
    client.enabled = 128;
    client.subscription->next->enabled = 254;
    EXPECT_THAT(object(), Not(HasSubstr("false")));
    client.enabled = 0;
    EXPECT_THAT(object(), AllOf(HasSubstr(R"("enabled": false, "brokeraddress")"),
                                HasSubstr(R"("enabled": true, "topic": "usp/all")")));
}

TEST_F(Tr369MqttClientTo, CutsTextsToOneByteLessThanTheirField)
{
    Client &client = add("", sample());
    fill_whole(client.brokeraddress, 'b');
    fill_whole(client.username, 'u');
    fill_whole(client.password, 'p');
    fill_whole(client.clientID, 'c');
    fill_whole(client.subscription->topic, 't');
    fill_whole(nodes_.front().resource()->id, 'i');
    const auto cut = [](char character) { return ": \"" + std::string(255, character) + '"'; };
    EXPECT_THAT(object(), AllOf(StartsWith(R"({"id": ")" + std::string(128, 'i') + '"'),
                                HasSubstr("\"brokeraddress\"" + cut('b')), HasSubstr("\"username\"" + cut('u')),
                                HasSubstr("\"password\"" + cut('p')), HasSubstr("\"clientID\"" + cut('c')),
                                HasSubstr("\"topic\"" + cut('t'))));
}

TEST_F(Tr369MqttClientTo, LeavesOutTextsThatAreNotUtf8AfterTheirCut)
{
    Client &client = add("client0", sample());
    fill_whole(client.brokeraddress, 'b');
    client.brokeraddress[254] = '\xC3'; // the first byte of a two-byte character: the last that is written
    client.brokeraddress[255] = '\xA4';
    set(client.subscription->topic, "caf\xE9");
    EXPECT_THAT(object(), AllOf(HasSubstr(R"("enabled": true, "brokerport": 8883,)"),
                                HasSubstr(R"([{"enabled": true, "qos": 1}, {"enabled": false, "topic": "usp/all",)")));
}

TEST_F(Tr369MqttClientTo, WritesManySubscriptionsIntoALargerBuffer)
{
    Client &client = add("client1");
    std::string expected = std::string(empty_text).substr(0, std::string(empty_text).size() - 2);
    for (std::uint32_t qos = 100; qos > 0; --qos) {
        auto *subscription = kelmora_host::make_chain<Subscription>({{.topic = "usp/agent/many", .qos = qos}});
        subscription->next = client.subscription;
        client.subscription = subscription;
    }
    for (int qos = 1; qos <= 100; ++qos)
        expected += R"({"enabled": false, "topic": "usp/agent/many", "qos": )" + std::to_string(qos) +
                    (qos < 100 ? "}, " : "}]}");
    EXPECT_EQ(object(), expected);
    EXPECT_EQ(reallocations_, 1U);
}

constexpr char document[] = R"({
    "id": "never read", "enabled": true, "brokeraddress": "broker.example.org", "brokerport": 1883,
    "username": "the user name", "password": "the password", "clientID": "the client identifier",
    "keep_alive_time": 90, "protocol_version": 4, "transport_protocol": 5,
    "subscription": [
        {"enabled": true, "topic": "first topic", "qos": 1},
        {"enabled": false, "topic": "second topic", "qos": 2}
    ]
})";

class Tr369MqttClientFrom : public FromTest<Client> {
protected:
    Tr369MqttClientFrom() : FromTest(tr369_mqtt_client_from_translator, document) {}

    /// What the host was given, in short.
    std::vector<std::string> subscriptions()
    {
        std::vector<std::string> list;
        for (const Subscription *entry = record().subscription; entry != nullptr; entry = entry->next)
            list.push_back(std::to_string(entry->enabled) + ' ' + entry->topic + ' ' + std::to_string(entry->qos));
        return list;
    }

    /// The entry made of the first element with this value in the member's place.
    Subscription entry_with(const std::string &member, const std::string &json)
    {
        poison();
        EXPECT_TRUE(accepts(with(document, "subscription.0." + member, json)));
        return record().subscription != nullptr ? *record().subscription : Subscription{};
    }

    void expect_settings_stored()
    {
        EXPECT_EQ(record().enabled, 1);
        EXPECT_STREQ(record().brokeraddress, "broker.example.org");
        EXPECT_EQ(record().brokerport, 1883);
        EXPECT_STREQ(record().username, "the user name");
        EXPECT_STREQ(record().password, "the password");
        EXPECT_STREQ(record().clientID, "the client identifier");
        EXPECT_EQ(record().keep_alive_time, 90);
        EXPECT_EQ(record().protocol_version, 4U);
        EXPECT_EQ(record().transport_protocol, 5U);
    }
};

using Texts = std::vector<std::string>;

TEST_F(Tr369MqttClientFrom, StoresEveryKeyAndAddsTheSubscriptionsInOrder)
{
    EXPECT_TRUE(accepts(document));
    expect_settings_stored();
    EXPECT_EQ(subscriptions(), (Texts{"1 first topic 1", "0 second topic 2"}));
}

TEST_F(Tr369MqttClientFrom, AsksForTheRequiredKeysInOrder)
{
    expect_required_in_order({
        {"enabled", "enabled", "enabled field not found"},
        {"brokeraddress", "brokeraddress", "brokeraddress field not found"},
        {"brokerport", "brokerport", "brokerport field not found"},
        {"username", "username", "username field not found"},
        {"password", "password", "password field not found"},
        {"clientID", "clientID", "clientID field not found"},
        {"keep_alive_time", "keep_alive_time", "keep_alive_time field not found"},
        {"protocol_version", "protocol_version", "protocol_version field not found"},
        {"transport_protocol", "transport_protocol", "transport_protocol field not found"},
        {"subscription", "subscription", "subscription field not found"},
        {"subscription.0.enabled", "subscription", "no enabled field"},
        {"subscription.0.topic", "subscription", "no topic field"},
        {"subscription.0.qos", "subscription", "no qos field"},
        {"subscription.1.enabled", "subscription", "no enabled field"},
        {"subscription.1.topic", "subscription", "no topic field"},
        {"subscription.1.qos", "subscription", "no qos field"},
    });
}

TEST_F(Tr369MqttClientFrom, MissingKeyKeepsWhatIsStoredBeforeItAlone)
{
    const std::vector<std::pair<std::string, std::function<bool()>>> keys = {
        {"enabled", [this] { return untouched(record().enabled); }},
        {"brokeraddress", [this] { return untouched(record().brokeraddress); }},
        {"brokerport", [this] { return untouched(record().brokerport); }},
        {"username", [this] { return untouched(record().username); }},
        {"password", [this] { return untouched(record().password); }},
        {"clientID", [this] { return untouched(record().clientID); }},
        {"keep_alive_time", [this] { return untouched(record().keep_alive_time); }},
        {"protocol_version", [this] { return untouched(record().protocol_version); }},
        {"transport_protocol", [this] { return untouched(record().transport_protocol); }},
    };
    for (std::size_t missing = 0; missing < keys.size(); ++missing) {
        poison();
        EXPECT_TRUE(rejects(without(document, keys[missing].first), keys[missing].first,
                            keys[missing].first + " field not found"));
        for (std::size_t i = 0; i < keys.size(); ++i)
            EXPECT_EQ(keys[i].second(), i >= missing) << keys[i].first << " without " << keys[missing].first;
        EXPECT_EQ(record().subscription, nullptr);
    }
}

TEST_F(Tr369MqttClientFrom, MissingSubscriptionsKeepTheSettings)
{
    EXPECT_TRUE(rejects(without(document, "subscription"), "subscription", "subscription field not found"));
    expect_settings_stored();
    EXPECT_EQ(record().subscription, nullptr);
}

TEST_F(Tr369MqttClientFrom, AddsNothingForAnEmptyArrayOrNoArray)
{
    for (const char *json : {"[]", "null", "{}", "7", "1.5", "true", "\"text\"", R"({"enabled": true})"}) {
        poison();
        EXPECT_TRUE(accepts(with(document, "subscription", json)));
        expect_settings_stored();
        EXPECT_EQ(record().subscription, nullptr);
    }
}

TEST_F(Tr369MqttClientFrom, AddsBehindTheSubscriptionsThatAreThere)
{
    record().subscription = kelmora_host::make_chain<Subscription>({{.topic = "old", .qos = 7}});
    const Subscription *old = record().subscription;
    EXPECT_TRUE(accepts(document));
    EXPECT_EQ(record().subscription, old);
    EXPECT_EQ(subscriptions(), (Texts{"0 old 7", "1 first topic 1", "0 second topic 2"}));
}

TEST_F(Tr369MqttClientFrom, KeepsTheSubscriptionsInFrontOfAFailingOne)
{
    for (const std::string member : {"enabled", "topic", "qos"}) {
        poison();
        EXPECT_TRUE(rejects(without(document, "subscription.1." + member), "subscription", "no " + member + " field"));
        expect_settings_stored();
        EXPECT_EQ(subscriptions(), Texts{"1 first topic 1"});

        poison();
        EXPECT_TRUE(rejects(without(document, "subscription.0." + member), "subscription", "no " + member + " field"));
        EXPECT_EQ(record().subscription, nullptr);
    }
}

TEST_F(Tr369MqttClientFrom, StopsAtAnElementThatIsNoObject)
{
    for (const std::string other : {"null", "7", "\"text\"", "true", "[]", "{}"}) {
        poison();
        EXPECT_TRUE(rejects(with(document, "subscription",
                                 R"([{"enabled": true, "topic": "a", "qos": 3}, )" + other +
                                     R"(, {"enabled": true, "topic": "b", "qos": 4}])"),
                            "subscription", "no enabled field"));
        EXPECT_EQ(subscriptions(), Texts{"1 a 3"});
    }
}

TEST_F(Tr369MqttClientFrom, AddsEachOfManySubscriptionsOnce)
{
    for (int count = 0; count <= 20; ++count) {
        std::string json = "[";
        Texts expected;
        for (int i = 0; i < count; ++i) {
            const std::string number = std::to_string(i);
            json += i > 0 ? ", " : "";
            json.append(R"({"enabled": true, "topic": "t)").append(number).append(R"(", "qos": )").append(number) +=
                '}';
            expected.push_back("1 t" + number + ' ' + number);
        }
        poison();
        EXPECT_TRUE(accepts(with(document, "subscription", json + "]")));
        EXPECT_EQ(subscriptions(), expected);
    }
}

TEST_F(Tr369MqttClientFrom, HandsEachSubscriptionOverUnlinkedWithTheRequestsErrors)
{
    kelmora_errorlist errors;
    Texts topics;
    const kelmora_harness::WatchEntries watch([&](const kelmora_host::AddedEntry &entry) {
        EXPECT_EQ(entry.record, &record());
        EXPECT_EQ(entry.reserved, 0);
        EXPECT_EQ(entry.errors, &errors);
        const auto *subscription = static_cast<const Subscription *>(entry.node);
        EXPECT_EQ(subscription->next, nullptr);
        topics.emplace_back(subscription->topic);
    });
    EXPECT_EQ(tr369_mqtt_client_from_translator(node_.resource(), document, &errors), 1);
    EXPECT_EQ(topics, (Texts{"first topic", "second topic"}));
}

TEST_F(Tr369MqttClientFrom, LeavesNothingOfALongerTopicBehindAShorterOne)
{
    EXPECT_TRUE(accepts(with(document, "subscription.0.topic", '"' + std::string(300, 't') + '"')));
    ASSERT_NE(record().subscription, nullptr);
    ASSERT_NE(record().subscription->next, nullptr);
    std::string second = "second topic";
    second.resize(256, '\0');
    EXPECT_EQ(std::string(record().subscription->next->topic, 256), second);
}

TEST_F(Tr369MqttClientFrom, TakesOnlyTrueForTrue)
{
    expect_boolean("enabled", record().enabled);
    EXPECT_EQ(entry_with("enabled", "true").enabled, 1);
    for (const char *json : {"false", "1", "1.0", "\"true\"", "null", "{}", "[true]"})
        EXPECT_EQ(entry_with("enabled", json).enabled, 0) << json;
}

TEST_F(Tr369MqttClientFrom, CutsIntegersToTheirWidth)
{
    expect_integer("brokerport", record().brokerport);
    expect_integer("keep_alive_time", record().keep_alive_time);
    expect_integer("protocol_version", record().protocol_version);
    expect_integer("transport_protocol", record().transport_protocol);
    for (const auto &[json, expected] : std::vector<std::pair<std::string, std::uint32_t>>{
             {"4294967295", 4294967295}, {"4294967301", 5}, {"-1", 4294967295}, {"-9223372036854775808", 0}})
        EXPECT_EQ(entry_with("qos", json).qos, expected) << json;
    for (const char *json : {"1.0", "\"1\"", "true", "null", "{}", "[1]"})
        EXPECT_EQ(entry_with("qos", json).qos, 0U) << json;
}

TEST_F(Tr369MqttClientFrom, CutsTextsToTheirField)
{
    expect_string("brokeraddress", record().brokeraddress);
    expect_string("username", record().username);
    expect_string("password", record().password);
    expect_string("clientID", record().clientID);
    for (const std::size_t length : {0U, 254U, 255U, 256U, 65536U}) {
        const std::string text(length, 't');
        EXPECT_EQ(std::string(entry_with("topic", '"' + text + '"').topic), text.substr(0, 255)) << length;
    }
    for (const char *json : {"1", "1.5", "true", "null", "{}", "[\"text\"]"})
        EXPECT_STREQ(entry_with("topic", json).topic, "") << json;
}

TEST(Tr369MqttClient, TakesBackWhatItWrote)
{
    std::vector<kelmora_host::Node> nodes;
    nodes.emplace_back("client0", kelmora_host::Record(Client{}));
    EXPECT_EQ(kelmora_host::from_json(tr369_mqtt_client_from_translator, nodes.front(), sample_text).result, 1);
    EXPECT_EQ(kelmora_host::to_json(tr369_mqtt_client_to_translator, nodes, false).text, sample_text);
}

} // namespace

} // namespace kelmora_test::tr369_mqtt_client_test
