#include "host/contract/findings.h"

#include "host/gateway/blank.h"
#include "host/gateway/gateway.h"
#include "host/plugin/registry.h"

#include "kelmora_json.h"
#include "kelmora_records.h"

#include <fstream>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <iterator>
#include <string>
#include <vector>

namespace kelmora_host::findings_test {

namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

/// "LINE:COLUMN SEVERITY CODE POINTER SENT -> STORED".
std::string line_of(const Finding &finding)
{
    std::string line = std::to_string(finding.position.line) + ":" + std::to_string(finding.position.column) + " ";
    line.append(name_of(finding.severity)).append(" ").append(finding.code).append(" ").append(finding.pointer);
    line.append(" ").append(finding.sent.value_or("-")).append(" -> ").append(finding.stored.value_or("-"));
    return line;
}

class Findings : public testing::Test {
protected:
    Findings() { kelmora_json_init(); }

    /// A document checked on a record of zeros, or on the first one of the sample gateway.
    static Check on_zeros(std::string_view name, const std::string &document)
    {
        const Resource &resource = *find_resource(name);
        return checked(resource, Node("0", blank_record(resource)), document);
    }

    static Check on_sample(std::string_view name, const std::string &document)
    {
        return checked(*find_resource(name), sample_gateway().nodes(name).front(), document);
    }

    static Check checked(const Resource &resource, const Node &node, const std::string &document)
    {
        return check(resource, *Registry::instance().find(resource.number), node, document);
    }

    static std::vector<std::string> lines(const Check &check)
    {
        std::vector<std::string> lines;
        for (const Finding &finding : check.findings)
            lines.push_back(line_of(finding));
        return lines;
    }

    static std::vector<std::string> found(std::string_view resource, const std::string &document)
    {
        return lines(on_zeros(resource, document));
    }
};

constexpr char qos[] = R"({"enabled": true, "global_download": 1, "global_upload": 2)";

TEST_F(Findings, AreNoneInADocumentOfWhichNothingIsLost)
{
    const Check check = on_zeros("qos", std::string(qos) + "}");
    EXPECT_EQ(check.result, CheckResult::lossless);
    EXPECT_THAT(check.findings, IsEmpty());
    EXPECT_THAT(check.errors, IsEmpty());
}

TEST_F(Findings, AreNoneInTheExamplesButEntriesThatStay)
{
    std::size_t examples = 0;
    for (const Resource &resource : resources()) {
        std::ifstream file(KELMORA_EXAMPLES_DIR "/" + std::string(resource.name) + ".json");
        if (!file)
            continue;
        ++examples;
        const std::string document{std::istreambuf_iterator<char>(file), {}};
        const Check check = on_sample(resource.name, document);
        EXPECT_EQ(check.result, CheckResult::lossless) << resource.name;
        for (const Finding &finding : check.findings)
            EXPECT_EQ(finding.code, "entries") << resource.name;
    }
    EXPECT_GT(examples, 0U);
}

TEST_F(Findings, TellOfAStringThatIsCut)
{
    const std::string long_one(33, 'x');
    EXPECT_THAT(found("user", R"({"username": ")" + long_one + R"(", "password": "p", "is_privileged": true})"),
                ElementsAre("1:14 warning cut /username \"" + long_one + "\" -> \"" + long_one.substr(1) + '"'));
    EXPECT_THAT(
        found("user", R"({"username": ")" + long_one.substr(1) + R"(", "password": "p", "is_privileged": true})"),
        IsEmpty());
}

TEST_F(Findings, SayWhenACutFallsInsideACharacter)
{
    const Check check =
        on_zeros("user", R"({"username": ")" + std::string(31, 'x') + R"(ä", "password": "p", "is_privileged": true})");
    ASSERT_EQ(check.findings.size(), 1U);
    EXPECT_EQ(check.findings[0].message, "33 bytes sent, 32 kept; the cut falls inside a character, so the key will be "
                                         "missing from the output");
    EXPECT_EQ(check.findings[0].stored, '"' + std::string(31, 'x') + "\xEF\xBF\xBD\"");
}

TEST_F(Findings, TellOfStringsThatTheHostCuts)
{
    const std::string domain(300, 'd');
    const Check check =
        on_zeros("ipv6_dhcp_server",
                 R"({"mode": 1, "addresses_config": {"ip_pool_range_start": "a", "ip_pool_range_end": "b",
        "prefix_length": 1, "valid_lifetime": 2, "preffered_lifetime": 3, "renew_time": 4, "rebind_time": 5,
        "client_duid": "c"}, "domains": ["ok", ")" +
                     domain + R"("]})");
    ASSERT_EQ(check.findings.size(), 1U);
    EXPECT_EQ(check.findings[0].code, "cut");
    EXPECT_EQ(check.findings[0].pointer, "/domains/1");
}

TEST_F(Findings, TellOfIntegersThatDoNotFit)
{
    EXPECT_THAT(found("qos", R"({"enabled": true, "global_download": 4294967296, "global_upload": -1})"),
                ElementsAre("1:38 warning wrapped /global_download 4294967296 -> 0"));
    EXPECT_THAT(found("action", R"({"actionID": -1})"), ElementsAre("1:14 warning wrapped /actionID -1 -> 4294967295"));
    EXPECT_THAT(found("factory_default", R"({"pressedTime": 2147483648})"),
                ElementsAre("1:17 warning wrapped /pressedTime 2147483648 -> -2147483648"));
    EXPECT_THAT(found("automatic_maintenance", R"({"enabled": true, "time": {"hour": 256, "min": 255}})"),
                ElementsAre("1:36 warning wrapped /time/hour 256 -> 0"));
}

TEST_F(Findings, TellOfNumbersThatAreNearestToWhatFits)
{
    EXPECT_THAT(
        found("interface_statistics",
              R"({"interfaceID": "a", "tx": 5000000000.0, "rx": 7.5, "unity_size": 1, "time": 2})"),
        ElementsAre("1:28 warning wrapped /tx 5000000000.0 -> 4294967295", "1:48 warning wrapped /rx 7.5 -> 7"));
    EXPECT_THAT(
        found("interface_statistics", R"({"interfaceID": "a", "tx": 5, "rx": 7.0, "unity_size": 1, "time": 2})"),
        ElementsAre("1:28 warning wrong-type /tx 5 -> 0"));
}

TEST_F(Findings, TellOfValuesOfATypeThatIsNotTaken)
{
    EXPECT_THAT(found("qos", R"({"enabled": 1, "global_download": "4", "global_upload": 2.5})"),
                ElementsAre("1:13 warning wrong-type /enabled 1 -> false",
                            "1:35 warning wrong-type /global_download \"4\" -> 0",
                            "1:57 warning wrong-type /global_upload 2.5 -> 0"));
    EXPECT_THAT(found("qos", R"({"enabled": null, "global_download": null, "global_upload": true})"),
                ElementsAre("1:13 warning wrong-type /enabled null -> false",
                            "1:38 warning wrong-type /global_download null -> 0",
                            "1:61 warning wrong-type /global_upload true -> 0"));
    EXPECT_THAT(found("user", R"({"username": 5, "password": ["p"], "is_privileged": "true"})"),
                ElementsAre("1:14 warning wrong-type /username 5 -> \"\"",
                            "1:29 warning wrong-type /password [\"p\"] -> \"\"",
                            "1:53 warning wrong-type /is_privileged \"true\" -> false"));
}

TEST_F(Findings, TellOfValuesThatAreNoObjectsAndNoLists)
{
    EXPECT_THAT(found("system", R"({"upnp": true, "dmz": 5, "ipv6": []})"),
                ElementsAre("1:23 warning wrong-type /dmz 5 -> -", "1:34 warning wrong-type /ipv6 [] -> -"));
    EXPECT_THAT(found("limits", R"({"wifi_limits": {"radio_id": "a"}})"),
                ElementsAre("1:17 warning wrong-type /wifi_limits {\"radio_id\": \"a\"} -> -"));
}

TEST_F(Findings, TellOfMembersThatAreSkippedForTheirType)
{
    EXPECT_THAT(found("session", R"({"username": 5, "token": "t"})"),
                ElementsAre("1:14 warning wrong-type /username 5 -> -"));
    EXPECT_THAT(found("http_request", R"({"dest": "d", "method": 1, "body": "text"})"),
                ElementsAre("1:36 warning wrong-type /body \"text\" -> -"));
    EXPECT_THAT(found("http_request", R"({"dest": "d", "method": 1, "body": {"a": [1, {"a": null}]}})"), IsEmpty());
}

TEST_F(Findings, TellOfElementsWhereverTheyAreStored)
{
    EXPECT_THAT(found("wan_lan_list", R"({"lan_list": [{"lan_id": "eth0.1", "enabled": true},
        {"lan_id": "eth0.12345", "enabled": 0}]})"),
                ElementsAre("2:20 warning cut /lan_list/1/lan_id \"eth0.12345\" -> \"eth0.1234\"",
                            "2:45 warning wrong-type /lan_list/1/enabled 0 -> false"));
    EXPECT_THAT(
        found("limits", R"({"wifi_limits": [{"radio_id": "a", "value": 1}, {"radio_id": 2, "value": 2147483648}]})"),
        ElementsAre("1:62 warning wrong-type /wifi_limits/1/radio_id 2 -> \"\"",
                    "1:74 warning wrapped /wifi_limits/1/value 2147483648 -> -2147483648"));
}

TEST_F(Findings, TellOfKeysThatNobodyKnowsWithTheNearestThatSomebodyDoes)
{
    const Check check = on_zeros("qos", std::string(qos) + R"(, "enable": true, "a~b/c": [1]})");
    EXPECT_EQ(check.result, CheckResult::lossy);
    EXPECT_THAT(lines(check),
                ElementsAre("1:61 warning unknown /enable true -> -", "1:77 warning unknown /a~0b~1c [1] -> -"));
    EXPECT_THAT(check.findings[0].message, HasSubstr("the nearest is \"enabled\""));
}

TEST_F(Findings, TellOfUnknownKeysInsideOfObjectsAndElements)
{
    EXPECT_THAT(found("wan_lan_list", R"({"lan_list": [{"lan_id": "a", "enabled": true, "lanid": 1}]})"),
                ElementsAre("1:48 warning unknown /lan_list/0/lanid 1 -> -"));
    EXPECT_THAT(found("system", R"({"upnp": true, "ipv6": {"enable": true}})"),
                ElementsAre("1:25 warning unknown /ipv6/enable true -> -"));
}

TEST_F(Findings, NoteKeysThatAreShownAndNeverTaken)
{
    const Check check = on_zeros("qos", std::string(qos) + R"(, "id": "0"})");
    EXPECT_EQ(check.result, CheckResult::lossless);
    EXPECT_THAT(lines(check), ElementsAre("1:61 note read-only /id \"0\" -> -"));
    EXPECT_THAT(lines(on_sample("dhcp_server",
                                R"({"enabled": true, "interface": "a", "rangeStart": "b", "rangeEnd": "c", "dns1": "d",
        "dns2": "e", "leases": [{"mac": "m"}]})")),
                ElementsAre(HasSubstr("note read-only /leases ")));
}

TEST_F(Findings, TellOfWhatIsNotLookedAt)
{
    const std::string entry = R"({"lan_id": "a", "enabled": true})";
    std::string list = entry;
    for (int i = 1; i < 19; ++i)
        list += ", " + entry;
    const Check check = on_zeros("wan_lan_list", R"({"lan_list": [)" + list + "]}");
    ASSERT_EQ(check.findings.size(), 1U);
    EXPECT_EQ(check.findings[0].code, "ignored");
    EXPECT_EQ(check.findings[0].pointer, "/lan_list/16");
    EXPECT_EQ(check.findings[0].message, "3 elements are not looked at, from here on");
    EXPECT_THAT(found("http_request", R"({"dest": "d", "method": 1, "mesh_session": true, "body": {"a": 1}})"),
                ElementsAre("1:58 warning ignored /body {\"a\": 1} -> -"));
    EXPECT_THAT(found("system", R"({"upnp": true, "dmz": {"enabled": true}})"),
                ElementsAre("1:35 warning ignored /dmz/enabled true -> -"));
}

TEST_F(Findings, TellOfADocumentForAResourceThatIsReadOnly)
{
    const Check check = on_zeros("status", R"({"id": 5})");
    EXPECT_EQ(check.result, CheckResult::lossy);
    EXPECT_THAT(lines(check), ElementsAre("1:1 warning ignored  {\"id\": 5} -> -"));
    EXPECT_EQ(on_zeros("status", "no JSON").result, CheckResult::lossy);
}

TEST_F(Findings, TellOfRepeatedKeysAndWhichOneCounts)
{
    const Check check = on_zeros("qos", std::string(qos) + ",\n \"enabled\": false}");
    EXPECT_THAT(lines(check), ElementsAre("1:2 warning repeated /enabled true -> -"));
    EXPECT_EQ(check.findings[0].message, "\"enabled\" stands again in line 2, and that one counts");
    EXPECT_THAT(found("http_request", R"({"dest": "d", "method": 1, "body": {"a": 1, "a": 2}})"),
                ElementsAre("1:37 warning repeated /body/a 1 -> -"));
    EXPECT_THAT(found("system", R"({"upnp": true, "nobody": {"a": 1, "a": 2}})"),
                ElementsAre("1:16 warning unknown /nobody {\"a\": 1, \"a\": 2} -> -"));
}

TEST_F(Findings, TellOfEmptyDocuments)
{
    for (const char *empty : {"", "{}", " {\n} "}) {
        const Check check = on_zeros("session", empty);
        EXPECT_EQ(check.result, CheckResult::lossy) << empty;
        ASSERT_EQ(check.findings.size(), 1U) << empty;
        EXPECT_EQ(check.findings[0].code, "empty") << empty;
    }
    EXPECT_EQ(on_zeros("qos", "{}").result, CheckResult::rejected);
    EXPECT_THAT(on_zeros("qos", "{}").findings, IsEmpty());
}

TEST_F(Findings, TellOfARootThatIsNoObject)
{
    EXPECT_THAT(found("session", R"([{"username": "u"}])"),
                ElementsAre("1:1 warning not-an-object  [{\"username\": \"u\"}] -> -"));
    const Check rejected = on_zeros("qos", "[]");
    EXPECT_EQ(rejected.result, CheckResult::rejected);
    EXPECT_THAT(lines(rejected), ElementsAre("1:1 error not-an-object  [] -> -"));
}

TEST_F(Findings, NoteListsThatKeepTheirOldEntries)
{
    const Check check = on_sample("ipv6_dhcp_server", R"({"mode": 1, "addresses_config": {"ip_pool_range_start": "a",
        "ip_pool_range_end": "b", "prefix_length": 1, "valid_lifetime": 2, "preffered_lifetime": 3, "renew_time": 4,
        "rebind_time": 5, "client_duid": "c"}, "domains": ["x"]})");
    EXPECT_EQ(check.result, CheckResult::lossless);
    ASSERT_EQ(check.findings.size(), 1U);
    EXPECT_EQ(check.findings[0].code, "entries");
    EXPECT_EQ(check.findings[0].severity, Severity::note);
    EXPECT_EQ(check.findings[0].message, "2 entries were there, 1 came, 3 are there now");
}

TEST_F(Findings, AreNoneOfAListThatReplacesTheOne)
{
    EXPECT_THAT(lines(on_sample("wlan_access_control", R"({"mode": 1, "mac_list": ["02:00:00:00:00:01"]})")),
                IsEmpty());
    EXPECT_THAT(lines(on_sample("easymesh", R"({"enabled": true, "controllerIp": "a", "type": 1, "backhaul": 2,
        "neighbors": [{"mac": "m"}]})")),
                IsEmpty());
}

TEST_F(Findings, KnowValuesThatDecideWhatElseIsLookedFor)
{
    EXPECT_THAT(found("datetime", R"({"ntp_server": {"enabled": true, "automatic": 1, "ntp_server1": "a"}})"),
                ElementsAre("1:47 warning wrong-type /ntp_server/automatic 1 -> false"));
    EXPECT_THAT(found("tr369_local_agent_controller",
                      R"({"enabled": true, "endpoint_id": "e", "periodic_notific_interval": 1,
        "mtp": [{"enabled": true, "protocol": "1", "websocket": {"host": "h", "port": 1, "path": "p",
        "encryption": true, "keep_alive_interval": 2}}]})"),
                ElementsAre("2:47 warning wrong-type /mtp/0/protocol \"1\" -> 0"));
    EXPECT_THAT(found("remote_web_access",
                      R"({"enabled": true, "port": 1, "enable_ip_range": 0, "rangeStart": "a", "rangeEnd": "b"})"),
                ElementsAre("1:49 warning wrong-type /enable_ip_range 0 -> false"));
}

TEST_F(Findings, LocateIntegersThatAreStoredAsTruths)
{
    EXPECT_THAT(found("ddns", R"({"provider": 1, "hostname": "h", "interface": "i", "username": "u", "password": "p",
        "enabled": true, "instance_num": 2, "service_port": 3})"),
                ElementsAre("2:20 warning wrong-type /enabled true -> 0"));
}

TEST_F(Findings, HaveTheErrorsWithTheirPlaces)
{
    const Check absent = on_zeros("wan_lan_list", R"({"lan_list": [{"lan_id": "a", "enabled": true},
        {"lan_id": "b"}]})");
    EXPECT_EQ(absent.result, CheckResult::rejected);
    EXPECT_THAT(absent.errors,
                ElementsAre(LocatedError{
                    {"lan_list.enabled", "field not found", "json"}, "/lan_list/1/enabled", Position{2, 9}, ""}));
    const Check unfit = on_zeros("wlan_access_control", R"({"mode": 1, "mac_list": ["a", 5]})");
    EXPECT_THAT(unfit.errors,
                ElementsAre(LocatedError{
                    {"mac_address", "data type must be a valid string", "json"}, "/mac_list/1", Position{1, 31}, ""}));
    const Check syntax = on_zeros("qos", "{\n\"a\" 1}");
    EXPECT_EQ(syntax.errors.at(0).position, (Position{2, 5}));
    EXPECT_EQ(syntax.errors.at(0).detail, "':' expected near '1'");
}

TEST_F(Findings, OfARejectedDocumentAreThoseOfWhatWasStoredBefore)
{
    EXPECT_THAT(found("qos", R"({"enabled": 1, "global_download": 4294967299})"),
                ElementsAre("1:13 warning wrong-type /enabled 1 -> false",
                            "1:35 warning wrapped /global_download 4294967299 -> 3"));
}

TEST_F(Findings, RejectATextWithANulByteWithoutAskingThePlugIn)
{
    const Check check = on_zeros("qos", std::string("{}\0", 3));
    EXPECT_EQ(check.result, CheckResult::rejected);
    EXPECT_THAT(check.errors,
                ElementsAre(LocatedError{{"", "NUL byte in the text", "kelmora-host"}, "", Position{1, 3}, ""}));
}

TEST_F(Findings, LeaveTheRecordAsItWas)
{
    const Resource &resource = *find_resource("qos");
    Node node("0", Record(kelmora_qos{.enabled = 1, .global_download = 5, .global_upload = 6}));
    (void)checked(resource, node, R"({"enabled": false, "global_download": 1, "global_upload": 2})");
    EXPECT_EQ(node.record().as<kelmora_qos>().global_download, 5U);
}

} // namespace

} // namespace kelmora_host::findings_test
