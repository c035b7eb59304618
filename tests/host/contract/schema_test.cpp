#include "host/contract/schema.h"

#include "host/json.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <stdexcept>

namespace kelmora_host::schema_test {

namespace {

constexpr Resource both_ways{5, "radio", "wireless", Directions::both};

InputKey key(std::string path, InputType type, bool required = false)
{
    InputKey key{};
    key.path = std::move(path);
    key.type = type;
    key.required = required;
    return key;
}

InputKey integer(std::string path, unsigned bits, bool is_signed, bool required = false)
{
    InputKey integer = key(std::move(path), InputType::integer, required);
    integer.bits = bits;
    integer.is_signed = is_signed;
    return integer;
}

InputKey string(std::string path, std::size_t longest, Excess too_long = Excess::cut)
{
    InputKey string = key(std::move(path), InputType::string);
    string.longest = longest;
    string.too_long = too_long;
    return string;
}

Contract taking(std::vector<InputKey> keys) { return {&both_ways, Input{std::move(keys)}, std::nullopt}; }

/// The schema without what says of what it is.
Json bare(const Contract &contract, Direction direction)
{
    Json json(json_loads(schema(contract, direction).c_str(), 0, nullptr));
    for (const char *head : {"$schema", "$id", "title", "description"})
        json_object_del(json.get(), head);
    return json;
}

std::string bare_text(const Contract &contract, Direction direction) { return to_text(bare(contract, direction)); }

/// A JSON text as to_text has it.
std::string as_text(const char *json) { return to_text(Json(json_loads(json, 0, nullptr))); }

TEST(Schema, SaysOfWhatItIs)
{
    const Json json(json_loads(schema(taking({}), Direction::input).c_str(), 0, nullptr));
    EXPECT_STREQ(json_string_value(json_object_get(json.get(), "$schema")),
                 "https://json-schema.org/draft/2020-12/schema");
    EXPECT_STREQ(json_string_value(json_object_get(json.get(), "$id")), "urn:kelmora:radio:input");
    EXPECT_STREQ(json_string_value(json_object_get(json.get(), "title")), "radio, input");
}

TEST(Schema, IsThereWhereThereAreDocuments)
{
    constexpr Resource read_only{17, "status", "device", Directions::to_only};
    constexpr Resource raw{64, "backup_restore", "device", Directions::both};
    EXPECT_TRUE(has_schema({&read_only, std::nullopt, Output{}}, Direction::output));
    EXPECT_FALSE(has_schema({&read_only, std::nullopt, Output{}}, Direction::input));
    EXPECT_TRUE(has_schema({&read_only, std::nullopt, Output{}}, Direction::accept));
    EXPECT_FALSE(has_schema({&raw, std::nullopt, std::nullopt}, Direction::accept));
    EXPECT_FALSE(has_schema(taking({}), Direction::output));
    EXPECT_THROW(static_cast<void>(schema(taking({}), Direction::output)), std::invalid_argument);
}

TEST(AcceptSchema, TakesAnythingOfAReadOnlyResource)
{
    constexpr Resource read_only{17, "status", "device", Directions::to_only};
    EXPECT_EQ(bare_text({&read_only, std::nullopt, Output{}}, Direction::accept), "{}");
}

TEST(AcceptSchema, TakesArraysWhereNothingIsRequired)
{
    EXPECT_EQ(bare_text(taking({key("/a", InputType::boolean)}), Direction::accept),
              as_text(R"({"type": ["object", "array"]})"));
    EXPECT_EQ(bare_text(taking({key("/a", InputType::boolean, true)}), Direction::accept),
              as_text(R"({"required": ["a"], "type": "object"})"));
}

TEST(AcceptSchema, RefusesAKeyWhateverItsValue)
{
    InputKey refused = key("/order", InputType::any);
    refused.refused = true;
    EXPECT_EQ(bare_text(taking({refused}), Direction::accept),
              as_text(R"({"properties": {"order": false}, "type": ["object", "array"]})"));
}

TEST(AcceptSchema, RequiresTheMembersOfAGroupThatIsThere)
{
    const Contract contract = taking({key("/dns", InputType::object), key("/dns/automatic", InputType::boolean, true)});
    EXPECT_EQ(bare_text(contract, Direction::accept), as_text(R"({
        "properties": {"dns": {"required": ["automatic"], "type": "object"}},
        "type": ["object", "array"]})"));
}

TEST(AcceptSchema, LeavesAGroupOfOptionalMembersToBeAnything)
{
    const Contract contract = taking({key("/dmz", InputType::object), string("/dmz/ip4", 15)});
    EXPECT_EQ(bare_text(contract, Direction::accept), as_text(R"({"type": ["object", "array"]})"));
}

TEST(AcceptSchema, AsksForOneOfSeveralKeys)
{
    InputKey one = key("/ip4", InputType::string);
    InputKey other = key("/ip6", InputType::string);
    one.at_least_one = 1;
    other.at_least_one = 1;
    EXPECT_EQ(bare_text(taking({one, other}), Direction::accept), as_text(R"({
        "allOf": [{"anyOf": [{"required": ["ip4"]}, {"required": ["ip6"]}]}], "type": "object"})"));
}

TEST(AcceptSchema, ChecksTypesThatThePlugInChecks)
{
    InputKey mode = integer("/mode", 8, false, true);
    mode.checked = true;
    InputKey list = key("/mac_list", InputType::array, true);
    list.checked = true;
    InputKey element = string("/mac_list/*", 17);
    element.checked = true;
    EXPECT_EQ(bare_text(taking({mode, list, element}), Direction::accept), as_text(R"({
        "properties": {"mode": {"type": "integer"}, "mac_list": {"items": {"type": "string"}, "type": "array"}},
        "required": ["mode", "mac_list"], "type": "object"})"));
}

TEST(AcceptSchema, LimitsOnlyWhatIsRejected)
{
    InputKey list = key("/domains", InputType::array);
    list.most = 16;
    list.too_many = Excess::rejected;
    const Contract contract =
        taking({list, string("/domains/*", 255, Excess::rejected), string("/alias", 31, Excess::cut)});
    EXPECT_EQ(bare_text(contract, Direction::accept), as_text(R"({
        "properties": {"domains": {"maxItems": 16, "items": {"maxLength": 255, "x-kelmora-max-bytes": 255}}},
        "type": ["object", "array"]})"));
}

TEST(AcceptSchema, LeavesElementsFreeThatAreNotLookedAt)
{
    InputKey list = key("/queues", InputType::array, true);
    list.least = 2;
    list.most = 2;
    list.too_many = Excess::ignored;
    const Contract contract =
        taking({list, key("/queues/*", InputType::object), integer("/queues/*/w", 8, false, true)});
    EXPECT_EQ(bare_text(contract, Direction::accept), as_text(R"({
        "properties": {"queues": {"minItems": 2, "if": {"maxItems": 2},
            "then": {"items": {"$ref": "#/$defs/element_of_queues"}},
            "else": {"prefixItems": [{"$ref": "#/$defs/element_of_queues"}, {"$ref": "#/$defs/element_of_queues"}]},
            "type": "array"}},
        "required": ["queues"], "type": "object",
        "$defs": {"element_of_queues": {"required": ["w"], "type": "object"}}})"));
}

TEST(AcceptSchema, RequiresAKeyWhenTheLowBitsOfAnotherSaySo)
{
    InputKey config = key("/config", InputType::object);
    config.required_when = {{"/protocol", "", {"1"}}};
    config.looked_at_when = {{"/protocol", "", {"1"}}};
    const Contract contract =
        taking({integer("/protocol", 8, false, true), config, key("/config/reference", InputType::string, true)});
    EXPECT_EQ(bare_text(contract, Direction::accept), as_text(R"({
        "required": ["protocol"],
        "allOf": [
            {"if": {"type": "object", "required": ["protocol"], "properties": {"protocol": {"enum": [1, -255, 257]}}},
             "then": {"properties": {"config": {"required": ["reference"], "type": "object"}}}},
            {"if": {"allOf": [
                {"type": "object", "required": ["protocol"], "properties": {"protocol": {"enum": [1, -255, 257]}}},
                {"type": "object", "required": ["protocol"], "properties": {"protocol": {"enum": [1, -255, 257]}}}]},
             "then": {"type": "object", "required": ["config"]}}],
        "type": "object"})"));
}

TEST(AcceptSchema, RequiresAKeyWithoutTrueInAnother)
{
    InputKey server = key("/ntp/server", InputType::string);
    server.required_when = {{"/ntp/automatic", "", {"true"}, true}};
    const Contract contract =
        taking({key("/ntp", InputType::object), key("/ntp/automatic", InputType::boolean), server});
    EXPECT_EQ(bare_text(contract, Direction::accept), as_text(R"({
        "properties": {"ntp": {
            "allOf": [{"if": {"not": {"type": "object", "required": ["automatic"],
                                         "properties": {"automatic": {"enum": [true]}}}},
                       "then": {"type": "object", "required": ["server"]}}],
            "type": "object"}},
        "type": ["object", "array"]})"));
}

TEST(AcceptSchema, ReadsWhatIsNoIntegerAsZero)
{
    InputKey host = key("/mtp/*/host", InputType::string);
    host.required_when = {{"/mtp/*/protocol", "", {"0"}}};
    const Contract contract = taking({key("/mtp", InputType::array), key("/mtp/*", InputType::object),
                                      integer("/mtp/*/protocol", 32, false, true), host});
    EXPECT_EQ(bare_text(contract, Direction::accept), as_text(R"({
        "properties": {"mtp": {"items": {
            "required": ["protocol"],
            "allOf": [{"if": {"type": "object", "required": ["protocol"], "properties": {
                           "protocol": {"anyOf": [{"not": {"type": "integer"}}, {"multipleOf": 4294967296}]}}},
                       "then": {"type": "object", "required": ["host"]}}],
            "type": "object"}}},
        "type": ["object", "array"]})"));
}

TEST(AcceptSchema, IsThatOfARecordOfZeros)
{
    InputKey start = key("/start", InputType::string);
    start.required_when = {{"/range", "", {"true"}}, {"/range", "range", {"1"}}};
    InputKey otherwise = key("/otherwise", InputType::string);
    otherwise.required_when = {{"/range", "range", {"0"}}};
    InputKey never = key("/never", InputType::string);
    never.required_when = {{"", "mode", {"2"}}};
    InputKey always = key("/always", InputType::string);
    always.required_when = {{"", "mode", {"0"}}};
    EXPECT_EQ(bare_text(taking({key("/range", InputType::boolean), start}), Direction::accept), as_text(R"({
        "allOf": [{"if": {"type": "object", "required": ["range"], "properties": {"range": {"enum": [true]}}},
                   "then": {"type": "object", "required": ["start"]}}],
        "type": ["object", "array"], "x-kelmora-record-of-zeros": ["/range"]})"));
    EXPECT_EQ(bare_text(taking({key("/range", InputType::boolean), otherwise}), Direction::accept), as_text(R"({
        "allOf": [{"if": {"not": {"type": "object", "required": ["range"]}},
                   "then": {"type": "object", "required": ["otherwise"]}}],
        "type": "object", "x-kelmora-record-of-zeros": ["/range"]})"));
    EXPECT_EQ(bare_text(taking({never}), Direction::accept),
              as_text(R"({"type": ["object", "array"], "x-kelmora-record-of-zeros": [""]})"));
    EXPECT_EQ(bare_text(taking({always}), Direction::accept), as_text(R"({
        "allOf": [{"type": "object", "required": ["always"]}], "type": "object",
        "x-kelmora-record-of-zeros": [""]})"));
}

TEST(InputSchema, HasTypesAndRanges)
{
    const Contract contract = taking({key("/on", InputType::boolean), integer("/small", 8, true),
                                      integer("/wide", 32, false), string("/name", 31), key("/body", InputType::text)});
    EXPECT_EQ(bare_text(contract, Direction::input), as_text(R"({
        "properties": {
            "on": {"type": "boolean"},
            "small": {"type": "integer", "minimum": -128, "maximum": 127},
            "wide": {"type": "integer", "minimum": 0, "maximum": 4294967295},
            "name": {"type": "string", "maxLength": 31, "x-kelmora-max-bytes": 31},
            "body": {"type": ["object", "array"]}},
        "type": "object"})"));
}

TEST(InputSchema, LeavesAKeyToBeAnythingWithoutTheOneThatItIsStoredWith)
{
    InputKey ip4 = string("/dmz/ip4", 15);
    ip4.only_with = {"/dmz/enabled"};
    const Contract contract = taking({key("/dmz", InputType::object), key("/dmz/enabled", InputType::any), ip4});
    EXPECT_EQ(bare_text(contract, Direction::input), as_text(R"({
        "properties": {"dmz": {
            "allOf": [{"if": {"type": "object", "required": ["enabled"]},
                       "then": {"properties": {"ip4": {"type": "string", "maxLength": 15,
                                                       "x-kelmora-max-bytes": 15}}}}],
            "type": "object"}},
        "type": "object"})"));
    EXPECT_EQ(bare_text(contract, Direction::accept), as_text(R"({"type": ["object", "array"]})"));
}

TEST(InputSchema, LeavesNoElementUnlookedAt)
{
    InputKey list = key("/lan_list", InputType::array);
    list.most = 4;
    list.too_many = Excess::ignored;
    EXPECT_EQ(bare_text(taking({list, key("/lan_list/*", InputType::boolean)}), Direction::input), as_text(R"({
        "properties": {"lan_list": {"maxItems": 4, "items": {"type": "boolean"}, "type": "array"}},
        "type": "object"})"));
}

TEST(InputSchema, LeavesOutNoElementThatIsSkipped)
{
    InputKey element = string("/domains/*", 255);
    element.empty_is_skipped = true;
    EXPECT_EQ(bare_text(taking({key("/domains", InputType::array), element}), Direction::input), as_text(R"({
        "properties": {"domains": {"items": {"type": "string", "maxLength": 255, "x-kelmora-max-bytes": 255,
                                             "minLength": 1}, "type": "array"}},
        "type": "object"})"));
}

TEST(InputSchema, SaysWhereAnIntegerMustBeWrittenAsAReal)
{
    InputKey counter = key("/tx", InputType::real);
    counter.bits = 32;
    EXPECT_EQ(bare_text(taking({counter}), Direction::input), as_text(R"({
        "properties": {"tx": {"type": "integer", "x-kelmora-write-as": "2.0, not 2", "minimum": 0,
                              "maximum": 4294967295}},
        "type": "object"})"));
}

TEST(InputSchema, TellsMeaningFieldAndError)
{
    InputKey power = integer("/power", 8, false, true);
    power.fields = {{"power", "uint8_t", 12, 1, "transmit power in percent"}};
    power.absent = Error{"power", "power field not found", "json"};
    power.values = {"0", "100"};
    EXPECT_EQ(bare_text(taking({power}), Direction::input), as_text(R"({
        "properties": {"power": {"type": "integer", "minimum": 0, "maximum": 255,
            "description": "transmit power in percent", "x-kelmora-fields": ["power"], "x-kelmora-values": [0, 100],
            "x-kelmora-error": {"field": "power", "message": "power field not found", "source": "json"}}},
        "required": ["power"], "type": "object"})"));
}

OutputKey out(std::string path, OutputType type)
{
    OutputKey key{};
    key.path = std::move(path);
    key.types = {type};
    return key;
}

TEST(OutputSchema, LetsStringsAndRealsBeLeftOut)
{
    OutputKey ssid = out("/ssid", OutputType::string);
    ssid.longest = 32;
    OutputKey sometimes = out("/sometimes", OutputType::boolean);
    sometimes.always = false;
    Output output{};
    output.root = RootShape::array;
    output.keys = {ssid,      out("/on", OutputType::boolean), out("/t", OutputType::real),
                   sometimes, out("/list", OutputType::array), out("/list/*", OutputType::string)};
    EXPECT_EQ(bare_text({&both_ways, std::nullopt, output}, Direction::output), as_text(R"({
        "type": "array", "items": {"$ref": "#/$defs/record"},
        "$defs": {"record": {"type": "object", "properties": {
            "ssid": {"type": "string", "maxLength": 32, "x-kelmora-max-bytes": 32, "x-kelmora-always": true},
            "on": {"type": "boolean"},
            "t": {"type": "number", "x-kelmora-always": true},
            "sometimes": {"type": "boolean"},
            "list": {"type": "array", "items": {"type": "string"}}},
            "required": ["on", "list"], "additionalProperties": false}}})"));
}

TEST(OutputSchema, HasTheRootsThatThereCanBe)
{
    Output output{};
    output.keys = {out("/on", OutputType::boolean)};
    const auto shapes = [&] {
        const Json json = bare({&both_ways, std::nullopt, output}, Direction::output);
        return to_text(Json(json_incref(json_object_get(json.get(), "anyOf"))));
    };
    output.root = RootShape::by_list_flag;
    EXPECT_EQ(shapes(), R"([{"$ref": "#/$defs/record"}, {"type": "array", "items": {"$ref": "#/$defs/record"}}, )"
                        R"({"type": "object", "maxProperties": 0}])");
    output.root = RootShape::object;
    EXPECT_EQ(shapes(), R"([{"$ref": "#/$defs/record"}, {"type": "object", "maxProperties": 0}])");
    output.empty_without_count = true;
    EXPECT_EQ(shapes(), R"([{"$ref": "#/$defs/record"}, {"type": "object", "maxProperties": 0}, )"
                        R"({"type": "array", "maxItems": 0}])");
}

TEST(OutputSchema, GoesRoundWhereAListWithinAListIsOfTheSameForm)
{
    OutputKey inner = out("/n/*/n", OutputType::array);
    inner.like = "/n";
    Output output{};
    output.root = RootShape::array;
    output.keys = {out("/n", OutputType::array), out("/n/*", OutputType::object), inner};
    const Json json = bare({&both_ways, std::nullopt, output}, Direction::output);
    json_t *form = json_object_get(json_object_get(json.get(), "$defs"), "element_n");
    ASSERT_NE(form, nullptr);
    EXPECT_EQ(to_text(Json(json_incref(form))), as_text(R"({
        "type": "object", "properties": {"n": {"type": "array", "items": {"$ref": "#/$defs/element_n"}}},
        "required": ["n"], "additionalProperties": false})"));
}

TEST(OutputSchema, TakesEachOfSeveralTypes)
{
    OutputKey body = out("/body", OutputType::object);
    body.types = {OutputType::object, OutputType::array, OutputType::string};
    Output output{};
    output.root = RootShape::array;
    output.keys = {body};
    const std::string text = bare_text({&both_ways, std::nullopt, output}, Direction::output);
    EXPECT_THAT(text, testing::HasSubstr(R"("body": {"type": ["object", "array", "string"])"));
}

} // namespace

} // namespace kelmora_host::schema_test
