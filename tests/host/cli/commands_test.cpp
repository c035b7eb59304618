#include "host/cli/commands.h"

#include "host/cli/diagnostics.h"
#include "host/contract/listing.h"
#include "host/json.h"
#include "kelmora_json.h"
#include "kelmora_records.h"

#include <algorithm>
#include <cstring>
#include <functional>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <string>

namespace kelmora_host::commands_test {

namespace {

using namespace std::string_literals;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::StartsWith;

using StatusAndLine = std::pair<Status, std::string>;

StatusAndLine failure_of(const std::function<void()> &command)
{
    try {
        command();
    } catch (const Failure &failure) {
        return {failure.status(), failure.what()};
    }
    return {Status::done, "no failure"};
}

// Resources of the tests' own, with translators of their own.

struct Door {
    int locked;
};

constexpr Resource door{200, "door", "house", Directions::both};
constexpr Resource bell{201, "bell", "house", Directions::from_only};
constexpr Resource window{202, "window", "house", Directions::to_only};
constexpr Resource stubborn{203, "stubborn", "house", Directions::both};

int door_to(kelmora_resource *head, char **out)
{
    const auto *record = static_cast<const Door *>(kelmora_resource_get_data(head));
    std::string text = "{\"locked\": " + std::to_string(record->locked) + "}";
    if (head->is_list != 0)
        text = "[" + (head->count == 0 ? "" : text) + "]";
    std::memcpy(*out, text.c_str(), text.size() + 1);
    return 1;
}

int door_from(kelmora_resource *node, const char *text, kelmora_errorlist *errors)
{
    const std::string_view command(text);
    if (command == "lock") {
        static_cast<Door *>(kelmora_resource_get_data(node))->locked = 1;
        return 1;
    }
    kelmora_errorlist_add_error(errors, "locked", "no such command", "door");
    return 0;
}

int nothing_to(kelmora_resource * /*head*/, char ** /*out*/) { return 1; }

int nothing_from(kelmora_resource * /*node*/, const char * /*text*/, kelmora_errorlist * /*errors*/) { return 1; }

int failing_to(kelmora_resource * /*head*/, char **out)
{
    std::memcpy(*out, "{}", 3);
    return 0;
}

int silently_failing_from(kelmora_resource * /*node*/, const char * /*text*/, kelmora_errorlist * /*errors*/)
{
    return 0;
}

class Commands : public ::testing::Test {
protected:
    Commands()
    {
        Registry::instance().clear();
        kelmora_json_init();
        kelmora_set_translators(door.number, door_from, door_to);
        kelmora_set_translators(bell.number, door_from, nothing_to);
        kelmora_set_translators(window.number, nothing_from, door_to);
        kelmora_set_translators(stubborn.number, silently_failing_from, failing_to);
        gateway.add("door", "front", Door{0});
        gateway.add("door", "back", Door{1});
    }
    ~Commands() override { Registry::instance().clear(); }

    Gateway gateway = sample_gateway();
    Node front{"front", Record(Door{0})};
};

TEST_F(Commands, KnowAResourceByItsName) { EXPECT_EQ(resource_named("site_survey").number, 20); }

TEST_F(Commands, SuggestResourcesOfASimilarName)
{
    EXPECT_EQ(
        failure_of([] { (void)resource_named("prefix"); }),
        StatusAndLine(Status::usage, "kelmora-host: error: no resource \"prefix\"; similar: ipv6_prefix_delegation"));
    EXPECT_EQ(failure_of([] { (void)resource_named("radios"); }),
              StatusAndLine(Status::usage, "kelmora-host: error: no resource \"radios\"; similar: radio"));
    EXPECT_EQ(failure_of([] { (void)resource_named("raido"); }).second,
              "kelmora-host: error: no resource \"raido\"; similar: radio");
    EXPECT_EQ(failure_of([] { (void)resource_named("static_route"); }).second,
              "kelmora-host: error: no resource \"static_route\"; similar: static_routing, ipv6_static_route and "
              "ipv6_static_route_list");
}

TEST_F(Commands, PointAtTheListWhenNoNameIsSimilar)
{
    const StatusAndLine expected(Status::usage,
                                 "kelmora-host: error: no resource \"teapot\"; kelmora-host list names them all");
    EXPECT_EQ(failure_of([] { (void)resource_named("teapot"); }), expected);
    EXPECT_EQ(failure_of([] { (void)resource_named(""); }).first, Status::usage);
}

TEST_F(Commands, SelectAllRecordsWithoutAnId)
{
    const std::vector<Node> nodes = select_nodes(gateway, door, std::nullopt);
    ASSERT_EQ(nodes.size(), 2U);
    EXPECT_EQ(nodes[0].id(), "front");
    EXPECT_EQ(nodes[1].id(), "back");
}

TEST_F(Commands, SelectTheRecordOfAnId)
{
    const std::vector<Node> nodes = select_nodes(gateway, door, "back");
    ASSERT_EQ(nodes.size(), 1U);
    EXPECT_EQ(nodes[0].id(), "back");
    EXPECT_EQ(select_node(gateway, door, "back").id(), "back");
}

TEST_F(Commands, SelectTheFirstRecordWhenOneIsWantedWithoutAnId)
{
    EXPECT_EQ(select_node(gateway, door, std::nullopt).id(), "front");
}

TEST_F(Commands, NameTheIdsThatThereAreWhenOneIsUnknown)
{
    const StatusAndLine expected(
        Status::usage, "kelmora-host: error: door has no record of the id \"side\"; there are front and back");
    EXPECT_EQ(failure_of([this] { (void)select_nodes(gateway, door, "side"); }), expected);
    EXPECT_EQ(failure_of([this] { (void)select_node(gateway, door, "side"); }), expected);
    EXPECT_EQ(failure_of([this] { (void)select_nodes(gateway, window, "side"); }).second,
              "kelmora-host: error: window has no record of the id \"side\"; the sample gateway has none");
    EXPECT_EQ(failure_of([this] { (void)select_nodes(gateway, resource_named("system"), "x"); }).second,
              "kelmora-host: error: system has no record of the id \"x\"; the only one is 0");
}

TEST_F(Commands, SuggestIdsThatAreSimilar)
{
    EXPECT_EQ(failure_of([this] { (void)select_nodes(gateway, door, "forn"); }).second,
              "kelmora-host: error: door has no record of the id \"forn\"; there are front and back");
    EXPECT_EQ(failure_of([this] { (void)select_nodes(gateway, door, "fornt"); }).second,
              "kelmora-host: error: door has no record of the id \"fornt\"; similar: front");
}

TEST_F(Commands, KnowTheGroupsOfTheResources)
{
    EXPECT_THAT(groups(), ElementsAre("device", "diagnostics", "firewall", "ipv6", "pon", "qos", "remote_mgmt",
                                      "routing", "wan_lan", "wireless"));
    EXPECT_NO_THROW(check_group("pon"));
    EXPECT_EQ(failure_of([] { check_group("wirless"); }),
              StatusAndLine(Status::usage, "kelmora-host: error: no group \"wirless\"; similar: wireless"));
    EXPECT_EQ(failure_of([] { check_group(""); }),
              StatusAndLine(Status::usage,
                            "kelmora-host: error: no group \"\"; the groups are device, diagnostics, firewall, ipv6, "
                            "pon, qos, remote_mgmt, routing, wan_lan and wireless"));
}

TEST_F(Commands, SelectNothingWhereThereIsNoRecord)
{
    EXPECT_THAT(select_nodes(gateway, window, std::nullopt), IsEmpty());
    EXPECT_EQ(failure_of([this] { (void)select_node(gateway, window, std::nullopt); }),
              StatusAndLine(Status::usage, "kelmora-host: error: the sample gateway has no record of window"));
}

TEST_F(Commands, SelectCopiesOfTheGatewaysRecords)
{
    std::vector<Node> nodes = select_nodes(gateway, door, std::nullopt);
    nodes.front().record().as<Door>().locked = 1;
    EXPECT_EQ(gateway.nodes("door").front().record().as<Door>().locked, 0);
}

TEST_F(Commands, ListTheResourcesOfAGroupAsATable)
{
    Registry::instance().clear();
    for (const int number : {1, 20, 5, 2}) // radio and site_survey, and two of other groups
        kelmora_set_translators(number, nothing_from, nothing_to);
    EXPECT_EQ(list_as_table("wireless", "9.8.7"),
              "NUMBER  RESOURCE                          DIRECTIONS  SHOWN AS          GROUP\n"
              "     5  radio                             both        always an object  wireless\n"
              "    20  site_survey                       read-only   always an object  wireless\n"
              "2 pairs of the group wireless registered by libkelmora_json 9.8.7: numbers 5 and 20\n");
}

TEST_F(Commands, ListAllResourcesInTheOrderOfTheirNumbers)
{
    const std::string table = list_as_table("", "9.8.7");
    EXPECT_EQ(std::ranges::count(table, '\n'), 1 + KELMORA_RESOURCE_COUNT + 1);
    EXPECT_THAT(table, HasSubstr("\n     0  wireless  "));
    EXPECT_LT(table.find("\n     5  radio  "), table.find("\n    20  site_survey  "));
    EXPECT_THAT(table, HasSubstr("\n" + std::to_string(KELMORA_RESOURCE_COUNT) +
                                 " pairs registered by libkelmora_json 9.8.7: numbers 0 to " +
                                 std::to_string(KELMORA_RESOURCE_COUNT - 1) + "\n"));
}

TEST_F(Commands, ListOnlyWhatIsRegistered)
{
    Registry::instance().clear();
    kelmora_set_translators(20, nothing_from, nothing_to);
    EXPECT_EQ(list_as_table("", "9.8.7"),
              "NUMBER  RESOURCE                          DIRECTIONS  SHOWN AS          GROUP\n"
              "    20  site_survey                       read-only   always an object  wireless\n"
              "1 pair registered by libkelmora_json 9.8.7: number 20\n");
    EXPECT_EQ(list_as_json(""), "[{\"number\": 20, \"resource\": \"site_survey\", \"directions\": \"read-only\", "
                                "\"shape\": \"always an object\", \"group\": \"wireless\"}]");
    EXPECT_EQ(list_as_json("device"), "[]");
    EXPECT_THAT(list_as_table("device", "9.8.7"),
                HasSubstr("\n0 pairs of the group device registered by libkelmora_json 9.8.7\n"));
}

TEST_F(Commands, ListTheDirectionsOfEachResourceAsJson)
{
    const std::string list = list_as_json("");
    EXPECT_THAT(list, HasSubstr("{\"number\": 1, \"resource\": \"session\", \"directions\": \"both\", "
                                "\"shape\": \"always a list\", \"group\": \"device\"}"));
    EXPECT_THAT(list, HasSubstr("\"resource\": \"telnet\", \"directions\": \"write-only\", \"shape\": \"an object\", "
                                "\"group\": \"device\""));
    EXPECT_THAT(list, HasSubstr("\"resource\": \"status\", \"directions\": \"read-only\", \"shape\": \"list or "
                                "object\", \"group\": \"device\""));
}

TEST_F(Commands, ShowRecordsAsThePlugInWritesThem)
{
    std::vector<Node> nodes = select_nodes(gateway, resource_named("radio"), "radio1");
    const std::string object = "{\"id\": \"radio1\", \"enabled\": true, \"opMode\": 2, \"frequency\": 2, "
                               "\"configuredChannel\": 36, \"channel\": 36, \"extension\": 1, \"bandwidth\": 80, "
                               "\"mu_mimo\": true, \"beamforming\": true, \"ofdma\": true, \"twt\": true, "
                               "\"power\": 75}";
    EXPECT_EQ(show(resource_named("radio"), nodes, false), object);
    EXPECT_EQ(show(resource_named("radio"), nodes, true), "[" + object + "]");
}

TEST_F(Commands, ShowNoRecordsAsAnEmptyList)
{
    std::vector<Node> nothing;
    EXPECT_EQ(show(door, nothing, true), "[]");
    EXPECT_EQ(show(resource_named("radio"), nothing, true), "[]");
    EXPECT_EQ(show(resource_named("site_survey"), nothing, true), "[]");
}

TEST_F(Commands, ShowNothingOfAResourceThatCannotBeRead)
{
    std::vector<Node> nodes{front};
    EXPECT_EQ(show(bell, nodes, true), "");
    EXPECT_EQ(show_warning(bell), "kelmora-host: warning: bell is write-only: there is nothing to show\n");
    EXPECT_EQ(show_warning(door), "");
    EXPECT_EQ(show_warning(window), "");
}

TEST_F(Commands, FailToShowWhatThePlugInFailsToWrite)
{
    std::vector<Node> nodes{front};
    EXPECT_EQ(failure_of([&] { (void)show(stubborn, nodes, true); }),
              StatusAndLine(Status::rejected,
                            "kelmora-host: error: stubborn: the plug-in could not write it, out of memory"));
}

TEST_F(Commands, FailWithoutTranslators)
{
    Registry::instance().clear();
    std::vector<Node> nodes{front};
    const StatusAndLine expected(Status::environment,
                                 "kelmora-host: error: door: the plug-in registered no translators");
    EXPECT_EQ(failure_of([&] { (void)show(door, nodes, true); }), expected);
    EXPECT_EQ(failure_of([&] { (void)check_document(door, front, {"file", "lock"}); }), expected);
}

TEST_F(Commands, TryADocumentOnARecordAndShowItAsASingleObject)
{
    Node node("0", Record(kelmora_qos{}));
    const CheckedFile tried = try_document(
        resource_named("qos"), node, {"qos.json", R"({"enabled": true, "global_download": 5, "global_upload": 6})"});
    EXPECT_EQ(tried.check.result, CheckResult::lossless);
    EXPECT_THAT(tried.record.value_or(""), HasSubstr("\"global_download\": 5"));
    EXPECT_EQ(node.record().as<kelmora_qos>().global_upload, 6U);
    EXPECT_EQ(tried.file, "qos.json");
    EXPECT_EQ(tried.resource, "qos");
}

TEST_F(Commands, CheckADocumentWithoutTouchingTheRecord)
{
    Node node("0", Record(kelmora_qos{.enabled = 1, .global_download = 3, .global_upload = 4}));
    const CheckedFile checked = check_document(
        resource_named("qos"), node, {"qos.json", R"({"enabled": false, "global_download": "5", "global_upload": 6})"});
    EXPECT_EQ(checked.check.result, CheckResult::lossy);
    EXPECT_EQ(checked.record, std::nullopt);
    EXPECT_EQ(node.record().as<kelmora_qos>().global_upload, 4U);
}

TEST_F(Commands, ShowNoRecordOfARejectedDocument)
{
    Node node("0", Record(kelmora_qos{}));
    const CheckedFile tried = try_document(resource_named("qos"), node, {"qos.json", R"({"enabled": true})"});
    EXPECT_EQ(tried.check.result, CheckResult::rejected);
    EXPECT_EQ(tried.record, std::nullopt);
    EXPECT_EQ(
        diagnostics(tried, Style(false)),
        "qos.json:1:1: error: /global_download: download field not found (field \"download\", source \"json\"); the "
        "key is \"global_download\"; this one is reported [rejected]\n"
        "qos.json:1:1: error: /global_upload: upload field not found (field \"upload\", source \"json\"); the key is "
        "\"global_upload\" [later]\n");
    EXPECT_THAT(to_text(as_json(tried)), HasSubstr("\"key\": \"global_download\"}, {\"field\": \"upload\", "));
    EXPECT_THAT(to_text(as_json(tried)), HasSubstr("\"key\": \"global_upload\", \"later\": true}]"));
}

TEST_F(Commands, SayThatAWriteOnlyResourceHasNoRecordToShow)
{
    EXPECT_EQ(try_note(resource_named("telnet")),
              "kelmora-host: note: telnet is write-only: there is no record to show\n");
    EXPECT_EQ(try_note(resource_named("radio")), "");
    EXPECT_EQ(try_note(resource_named("status")), "");
}

TEST_F(Commands, TraceTheStepsOfADocument)
{
    const Node node("0", Record(kelmora_qos{}));
    const InputText input{"qos.json", R"({"enabled": true, "global_download": 7})"};
    EXPECT_EQ(trace_document(resource_named("qos"), node, input, false, Style(false)),
              "PLACE  LOOKED FOR        READ AS  FOUND   STORED\n"
              "1:13   /enabled          boolean  true    enabled = true  (bytes 0..0)\n"
              "1:38   /global_download  integer  7       global_download = 7  (bytes 4..7)\n"
              "       /global_upload             absent\n"
              "error: upload field not found (field \"upload\", source \"json\")\n"
              "rejected; what is stored above stays stored\n");
}

TEST_F(Commands, TraceNothingInATextThatIsNoDocument)
{
    const Node node("0", Record(kelmora_qos{}));
    EXPECT_EQ(failure_of([&] {
                  (void)trace_document(resource_named("qos"), node, {"a.json", "{"}, false, Style(false));
              }),
              StatusAndLine(Status::rejected, "a.json:1:1: error: string or '}' expected near end of file"));
    EXPECT_EQ(
        failure_of([&] {
            (void)trace_document(resource_named("backup_restore"), node, {"a.json", "12345678"}, false, Style(false));
        }).first,
        Status::rejected);
}

TEST_F(Commands, DescribeAResource)
{
    EXPECT_THAT(describe(resource_named("qos"), false, Style(false)), HasSubstr("qos takes an object"));
    EXPECT_THAT(describe(resource_named("qos"), true, Style(false)), StartsWith("{\"resource\": \"qos\""));
    EXPECT_EQ(describe(resource_named("backup_restore"), false, Style(false)),
              "backup_restore moves 8 raw bytes, no JSON\n");
}

TEST_F(Commands, DescribeAKeyWhereverItStands)
{
    const std::string lines = describe_key("global_upload", false, Style(false));
    EXPECT_THAT(lines,
                HasSubstr("qos output /global_upload: integer, -2147483648..2147483647; upstream rate of the line"));
    EXPECT_THAT(lines,
                HasSubstr("qos input /global_upload: integer, -2147483648..2147483647; upstream rate of the line"));
    EXPECT_EQ(failure_of([] { (void)describe_key("global_uplaod", false, Style(false)); }),
              StatusAndLine(Status::usage, "kelmora-host: error: no resource has a key \"global_uplaod\"; similar: "
                                           "global_upload"));
}

TEST_F(Commands, GiveTheSchemaOfADirectionThatThereIs)
{
    EXPECT_THAT(schema_of(resource_named("qos"), Direction::input), HasSubstr("\"urn:kelmora:qos:input\""));
    EXPECT_EQ(failure_of([] { (void)schema_of(resource_named("telnet"), Direction::output); }),
              StatusAndLine(Status::usage, "kelmora-host: error: telnet has no schema for output: it is write-only"));
    EXPECT_EQ(failure_of([] { (void)schema_of(resource_named("status"), Direction::input); }),
              StatusAndLine(Status::usage, "kelmora-host: error: status has no schema for input: it is read-only"));
    EXPECT_EQ(failure_of([] { (void)schema_of(resource_named("backup_restore"), Direction::accept); }),
              StatusAndLine(Status::usage,
                            "kelmora-host: error: backup_restore has no schema for accept: its documents "
                            "are raw bytes, no JSON"));
}

TEST_F(Commands, ShowTheBytesOfARawResourceInHexadecimal)
{
    std::vector<Node> nodes{{"0", Record(kelmora_backup_restore{{0x00, 0x01, 0x7F, 0x80, 0xFF, 0x0A, 0x00, 0x20}})}};
    for (const bool as_list : {true, false})
        EXPECT_EQ(show(resource_named("backup_restore"), nodes, as_list), "00 01 7f 80 ff 0a 00 20");
}

TEST_F(Commands, ShowNothingOfARawResourceThatCannotBeRead)
{
    std::vector<Node> nodes{{"0", Record(kelmora_upgrade_by_file{{1, 2, 3, 4, 5, 6, 7, 8}})}};
    EXPECT_EQ(show(resource_named("upgrade_by_file"), nodes, true), "");
}

TEST_F(Commands, TryARawResourceWithBytesThatMayBeZero)
{
    Node node("0", Record(kelmora_backup_restore{}));
    const CheckedFile tried = try_document(resource_named("backup_restore"), node, {"block", "\0{\"\xFF\0\n}\0"s});
    EXPECT_EQ(tried.record, "00 7b 22 ff 00 0a 7d 00");
    EXPECT_EQ(to_text(as_json(tried)), R"({"file": "block", "resource": "backup_restore", "result": "lossless", )"
                                       R"("record": "00 7b 22 ff 00 0a 7d 00", "errors": [], "findings": []})");
}

TEST_F(Commands, TryARawResourceThatIsWriteOnly)
{
    Node node("0", Record(kelmora_upgrade_by_file{}));
    const CheckedFile tried = try_document(resource_named("upgrade_by_file"), node, {"block", "\0\1\2\3\4\5\6\7"s});
    EXPECT_THAT(node.record().as<kelmora_upgrade_by_file>().file, ElementsAre(0, 1, 2, 3, 4, 5, 6, 7));
    EXPECT_EQ(to_text(as_json(tried)), R"({"file": "block", "resource": "upgrade_by_file", "result": "lossless", )"
                                       R"("record": null, "errors": [], "findings": []})");
}

TEST_F(Commands, RejectAnotherNumberOfBytesThanARawResourceHasWithoutAskingThePlugIn)
{
    Node node("0", Record(kelmora_backup_restore{{1, 2, 3, 4, 5, 6, 7, 8}}));
    for (const std::string &text : {""s, "seven b"s, "nine byte"s, "{\"backup\": 1}"s}) {
        const CheckedFile tried = try_document(resource_named("backup_restore"), node, {"file", text});
        EXPECT_EQ(tried.check.result, CheckResult::rejected);
        EXPECT_THAT(node.record().as<kelmora_backup_restore>().backup, ElementsAre(1, 2, 3, 4, 5, 6, 7, 8));
    }
    const CheckedFile tried = try_document(resource_named("backup_restore"), node, {"file", "nine byte"});
    EXPECT_EQ(diagnostics(tried, Style(false)),
              "file: error: backup_restore takes exactly 8 raw bytes, no JSON; there are 9 [rejected]\n");
}

} // namespace

} // namespace kelmora_host::commands_test
