#include "host/contract/positions.h"

#include "host/json.h"

#include <chrono>
#include <cstring>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <memory>
#include <random>
#include <string>
#include <utility>
#include <vector>

namespace kelmora_host::positions_test {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

const char *type_name(ValueType type)
{
    switch (type) {
    case ValueType::null:
        return "null";
    case ValueType::boolean:
        return "boolean";
    case ValueType::integer:
        return "integer";
    case ValueType::real:
        return "real";
    case ValueType::string:
        return "string";
    case ValueType::array:
        return "array";
    case ValueType::object:
        return "object";
    }
    return "";
}

std::string place(Position position) { return std::to_string(position.line) + ':' + std::to_string(position.column); }

void list(const Positions &positions, const Value &value, std::vector<std::string> &lines)
{
    std::string line = pointer(value) + ' ' + type_name(value.type) + ' ' + place(value.position) + ' ' +
                       std::to_string(positions.offset(value.raw)) + '+' + std::to_string(value.raw.size());
    if (value.key != nullptr)
        line += " key " + place(value.key->position) + ' ' + std::to_string(positions.offset(value.key->raw)) + '+' +
                std::to_string(value.key->raw.size());
    lines.push_back(line);
    for (const Value *child : positions.elements(value))
        list(positions, *child, lines);
}

/// For each value "POINTER TYPE LINE:COLUMN OFFSET+LENGTH", and of a member " key LINE:COLUMN OFFSET+LENGTH".
std::vector<std::string> values(const std::string &text)
{
    const auto positions = Positions::parse(text);
    std::vector<std::string> lines;
    if (positions)
        list(*positions, positions->root(), lines);
    return lines;
}

std::vector<std::string> repeated(const std::string &text)
{
    const auto positions = Positions::parse(text);
    std::vector<std::string> lines;
    for (const Value *member : positions.value().repeated())
        lines.push_back(pointer(*member) + ' ' + place(member->key->position));
    return lines;
}

/// Whether a value is what jansson has in its place.
bool agree(const Positions &positions, const Value &value, const json_t *json)
{
    switch (value.type) {
    case ValueType::null:
        return json_is_null(json);
    case ValueType::boolean:
        return value.raw == (json_is_true(json) ? "true" : "false") && json_is_boolean(json);
    case ValueType::integer:
        return json_is_integer(json) && (std::to_string(json_integer_value(json)) == value.raw ||
                                         (value.raw == "-0" && json_integer_value(json) == 0));
    case ValueType::real:
        return json_is_real(json);
    case ValueType::string:
        return json_is_string(json) && value.string == std::string(json_string_value(json), json_string_length(json));
    case ValueType::array:
        if (!json_is_array(json) || json_array_size(json) != value.size)
            return false;
        for (std::size_t index = 0; index < json_array_size(json); ++index) {
            const Value *element = positions.element(value, index);
            if (element == nullptr || element->parent != &value || element->index != index ||
                !agree(positions, *element, json_array_get(json, index)))
                return false;
        }
        return true;
    case ValueType::object: {
        if (!json_is_object(json))
            return false;
        std::size_t overridden = 0;
        for (const Value *member : positions.repeated())
            overridden += member->parent == &value ? 1 : 0;
        if (json_object_size(json) + overridden != value.size)
            return false;
        const char *key = nullptr;
        json_t *counts = nullptr;
        json_object_foreach(const_cast<json_t *>(json), key, counts) // NOLINT: it has no form for a constant
        {
            const Value *member = positions.member(value, key);
            if (member == nullptr || member->parent != &value || member->key->string != key ||
                !agree(positions, *member, counts))
                return false;
        }
        return true;
    }
    }
    return false;
}

Json load(const std::string &text) { return Json(json_loadb(text.data(), text.size(), 0, nullptr)); }

/// Whether all that jansson takes out of the text is found there.
bool agrees_with_jansson(const std::string &text)
{
    const Json json = load(text);
    const auto positions = Positions::parse(text);
    return json && positions && agree(*positions, positions->root(), json.get());
}

TEST(Positions, OfMembersAndTheirKeys)
{
    EXPECT_THAT(
        values("{\"mode\": 3, \"ssid\": \"home\"}"),
        ElementsAre(" object 1:1 0+27", "/mode integer 1:10 9+1 key 1:2 1+6", "/ssid string 1:21 20+6 key 1:13 12+6"));
}

TEST(Positions, OfEveryType)
{
    EXPECT_THAT(values("[null, true, false, -12, 1.5, \"a\", [], {}]"),
                ElementsAre(" array 1:1 0+42", "/0 null 1:2 1+4", "/1 boolean 1:8 7+4", "/2 boolean 1:14 13+5",
                            "/3 integer 1:21 20+3", "/4 real 1:26 25+3", "/5 string 1:31 30+3", "/6 array 1:36 35+2",
                            "/7 object 1:40 39+2"));
}

TEST(Positions, OverSeveralLines)
{
    EXPECT_THAT(values("{\n  \"a\":\n    true,\n  \"b\": null\n}\n"),
                ElementsAre(" object 1:1 0+32", "/a boolean 3:5 13+4 key 2:3 4+3", "/b null 4:8 26+4 key 4:3 21+3"));
}

TEST(Positions, BehindEmptyLinesAndSpaces) { EXPECT_THAT(values("\n\n \t[ ]  "), ElementsAre(" array 3:3 4+3")); }

TEST(Positions, LinesThatEndInCrLfAreOneLineEach)
{
    EXPECT_THAT(values("{\r\n\"a\": 1,\r\n\r\n\"b\": 2\r\n}"),
                ElementsAre(" object 1:1 0+23", "/a integer 2:6 8+1 key 2:1 3+3", "/b integer 4:6 19+1 key 4:1 14+3"));
}

TEST(Positions, ATabIsOneColumn)
{
    EXPECT_THAT(values("{\t\"a\":\t\t7}"), ElementsAre(" object 1:1 0+10", "/a integer 1:9 8+1 key 1:3 2+3"));
}

TEST(Positions, ColumnsCountCharactersAndOffsetsBytes)
{
    // Characters of 2, 3 and 4 bytes.
    EXPECT_THAT(values("{\"\u00e9\u20ac\": \"\U0001f600\", \"b\": 0}"),
                ElementsAre(" object 1:1 0+25", "/\u00e9\u20ac string 1:8 10+6 key 1:2 1+7",
                            "/b integer 1:18 23+1 key 1:13 18+3"));
}

TEST(Positions, EscapesCountAsTheyStandInTheText)
{
    EXPECT_THAT(values("[\"\\u00e9\\n\", \"\\\\\", \"\\\"\", 5]"),
                ElementsAre(" array 1:1 0+27", "/0 string 1:2 1+10", "/1 string 1:14 13+4", "/2 string 1:20 19+4",
                            "/3 integer 1:26 25+1"));
}

TEST(Positions, OfNestedArrays)
{
    EXPECT_THAT(values("[[1,[2]],\n [[],3]]"),
                ElementsAre(" array 1:1 0+18", "/0 array 1:2 1+7", "/0/0 integer 1:3 2+1", "/0/1 array 1:5 4+3",
                            "/0/1/0 integer 1:6 5+1", "/1 array 2:2 11+6", "/1/0 array 2:3 12+2",
                            "/1/1 integer 2:6 15+1"));
}

TEST(Positions, NumbersInTextsAreNoNumbers)
{
    EXPECT_THAT(
        values("{\"-1\": \"2e5\", \"a\\\"3\": 4}"),
        ElementsAre(" object 1:1 0+24", "/-1 string 1:8 7+5 key 1:2 1+4", "/a\"3 integer 1:23 22+1 key 1:15 14+6"));
}

TEST(Positions, OfNumbersInAllForms)
{
    EXPECT_THAT(values("[-0,0.0,1E5,1e+5,-1.25e-3]"),
                ElementsAre(" array 1:1 0+26", "/0 integer 1:2 1+2", "/1 real 1:5 4+3", "/2 real 1:9 8+3",
                            "/3 real 1:13 12+4", "/4 real 1:18 17+8"));
}

TEST(Positions, HoldTheRawTextAndWhatItMeans)
{
    const std::string text = "{\"a\\u0062\": \"c\\td\\ud83d\\ude00\", \"e\": [1, 2]}";
    const auto positions = Positions::parse(text);
    ASSERT_TRUE(positions);
    const Value *string = positions->member(positions->root(), "ab");
    ASSERT_NE(string, nullptr);
    EXPECT_EQ(string->raw, "\"c\\td\\ud83d\\ude00\"");
    EXPECT_EQ(string->string, "c\td\U0001f600");
    EXPECT_EQ(string->key->raw, "\"a\\u0062\"");
    EXPECT_EQ(string->key->string, "ab");
    const Value *array = positions->member(positions->root(), "e");
    ASSERT_NE(array, nullptr);
    EXPECT_EQ(array->raw, "[1, 2]");
    EXPECT_EQ(array->string, "");
    EXPECT_EQ(positions->root().raw, text);
}

TEST(Positions, StayWhereTheyAreWhenTheyAreMoved)
{
    const std::string text = "{\"a\\n\": [\"b\\n\"]}";
    auto positions = Positions::parse(text);
    ASSERT_TRUE(positions);
    const Value *array = positions->member(positions->root(), "a\n");
    const Positions moved = std::move(*positions);
    EXPECT_EQ(moved.member(moved.root(), "a\n"), array);
    EXPECT_EQ(moved.element(*array, 0)->string, "b\n");
}

TEST(Positions, AnElementThatIsNotThereIsNull)
{
    const std::string text = "[{\"a\": 1}, 2]";
    const auto positions = Positions::parse(text);
    ASSERT_TRUE(positions);
    const Value &root = positions->root();
    EXPECT_NE(positions->element(root, 1), nullptr);
    EXPECT_EQ(positions->element(root, 2), nullptr);
    EXPECT_EQ(positions->element(root, static_cast<std::size_t>(-1)), nullptr);
    EXPECT_EQ(positions->element(*positions->element(root, 1), 0), nullptr);
}

TEST(Positions, AMemberThatIsNotThereIsNull)
{
    const std::string text = "{\"b\": [7], \"d\": {}, \"f\": \"b\"}";
    const auto positions = Positions::parse(text);
    ASSERT_TRUE(positions);
    const Value &root = positions->root();
    for (const char *key : {"", "a", "c", "e", "g", "bb", "B"})
        EXPECT_EQ(positions->member(root, key), nullptr) << key;
    EXPECT_EQ(positions->member(*positions->member(root, "b"), "0"), nullptr);
    EXPECT_EQ(positions->member(*positions->member(root, "d"), "b"), nullptr);
    EXPECT_EQ(positions->member(*positions->member(root, "f"), "b"), nullptr);
}

TEST(Positions, OfARepeatedKeyTheLastCounts)
{
    const std::string text = "{\"a\": 1, \"b\": 2, \"a\": 3, \"a\": 4}";
    const auto positions = Positions::parse(text);
    ASSERT_TRUE(positions);
    EXPECT_EQ(positions->member(positions->root(), "a")->raw, "4");
    EXPECT_EQ(positions->member(positions->root(), "b")->raw, "2");
    EXPECT_THAT(repeated(text), ElementsAre("/a 1:2", "/a 1:18"));
}

TEST(Positions, FindRepeatedKeysAtEveryDepth)
{
    EXPECT_THAT(
        repeated("{\"x\": [{\"b\": 1,\n\"a\": {\"c\": 0, \"c\": 0},\n\"b\": 2}],\n\"y\": 1,\n\"x\": 3,\n\"y\": 2}"),
        ElementsAre("/x 1:2", "/x/0/b 1:9", "/x/0/a/c 2:7", "/y 4:1"));
}

TEST(Positions, KeysAreTheSameByWhatTheyMean)
{
    EXPECT_THAT(repeated("{\"\\u0061\": 1, \"a\": 2}"), ElementsAre("/a 1:2"));
    EXPECT_THAT(repeated("{\"\": 1, \"\": 2}"), ElementsAre("/ 1:2"));
}

TEST(Positions, KeysOfDifferentObjectsAreNotRepeated)
{
    EXPECT_THAT(repeated("[{\"a\": 1}, {\"a\": {\"a\": 2}}, {\"b\": \"a\", \"c\": \"a\"}]"), IsEmpty());
}

TEST(Pointer, EscapesTildeAndSlash)
{
    EXPECT_THAT(values("{\"a/b\": {\"~\": [0], \"~1\": 1}, \"\": 2}"),
                ElementsAre(" object 1:1 0+35", "/a~1b object 1:9 8+19 key 1:2 1+5",
                            "/a~1b/~0 array 1:15 14+3 key 1:10 9+3", "/a~1b/~0/0 integer 1:16 15+1",
                            "/a~1b/~01 integer 1:26 25+1 key 1:20 19+4", "/ integer 1:34 33+1 key 1:30 29+2"));
}

TEST(Positions, TakeEveryNumberThatJanssonTakes)
{
    const std::string zeros(400, '0');
    for (const std::string &number : std::vector<std::string>{
             "0", "-0", "-0.0", "0e999", "0.0e400", "-0E+99999999999999999999", "1e-999", "1e-99999999999999999999",
             "9223372036854775807", "-9223372036854775808", "1e308", "1.7976931348623157e308", "0.1e309", "4.9e-324",
             "1" + zeros + "e-400", "1" + zeros + ".5e-400", "0." + zeros + "1e401", "123456789012345678901234567890.0",
             "0." + zeros + zeros})
        EXPECT_TRUE(agrees_with_jansson("{\"a\": [" + number + ", " + number + "]}")) << number;
}

TEST(Positions, TakeEveryStringThatJanssonTakes)
{
    for (const std::string &string : std::vector<std::string>{"",
                                                              "\\\"",
                                                              "\\\\",
                                                              "\\/",
                                                              "/",
                                                              "\\b\\f\\n\\r\\t",
                                                              "\\u0001",
                                                              "\\uffff",
                                                              "\\ud800\\udc00",
                                                              "\\uDBFF\\uDFFF",
                                                              "\x7f",
                                                              "\xc2\x80",
                                                              "\xef\xbf\xbf",
                                                              "\xf4\x8f\xbf\xbf",
                                                              "\\u005c",
                                                              "\\u0022",
                                                              "\\\\\\\"",
                                                              "1",
                                                              "-",
                                                              "\\u00e9",
                                                              "\xef\xbb\xbf",
                                                              "{\\\"a\\\": [1]}"})
        EXPECT_TRUE(agrees_with_jansson("{\"" + string + "\": [\"" + string + "\"], \"z\": 1}")) << string;
}

TEST(Positions, TakeEveryDocumentThatJanssonTakes)
{
    for (const std::string &text : std::vector<std::string>{
             "{}", "[]", " { } ", "\r\n[\t]\r\n", "[[[]]]", "{\"a\":{}}", "[{},[],{}]", "{\"a\":1,\"a\":2}",
             "{\"a\":{\"b\":1},\"a\":{\"c\":[1,2]},\"c\":0}", "[true,false,null]"})
        EXPECT_TRUE(agrees_with_jansson(text)) << text;
}

TEST(Positions, OfWhatIsNoDocumentThereAreNone)
{
    for (const std::string &text : std::vector<std::string>{"",
                                                            " ",
                                                            "{",
                                                            "[",
                                                            "]",
                                                            "{]",
                                                            "[1",
                                                            "[1,",
                                                            "[1,]",
                                                            "[,1]",
                                                            "[1 2]",
                                                            "{\"a\"",
                                                            "{\"a\":",
                                                            "{\"a\":}",
                                                            "{\"a\" 1}",
                                                            "{\"a\":1,}",
                                                            "{a:1}",
                                                            "{1:1}",
                                                            "[tru]",
                                                            "[nul",
                                                            "[True]",
                                                            "[NaN]",
                                                            "[\"a]",
                                                            "[\"\\x\"]",
                                                            "[\"\\u12\"]",
                                                            "[\"\\ud800\"]",
                                                            "[\"a\nb\"]",
                                                            "[] []",
                                                            "[]]",
                                                            "7",
                                                            "\"a\"",
                                                            "null",
                                                            "\xef\xbb\xbf[]",
                                                            std::string("[\0]", 3),
                                                            std::string("[]\0", 3),
                                                            std::string("[\"\0\"]", 5),
                                                            "[\"\\",
                                                            "[-",
                                                            "[\x80]",
                                                            "// a\n[]"}) {
        EXPECT_FALSE(Positions::parse(text)) << text;
        EXPECT_FALSE(load(text)) << text;
    }
}

TEST(Positions, ReachAsDeepAsJanssonDoes)
{
    constexpr std::size_t depth = 2048;
    const std::string text = std::string(depth, '[') + std::string(depth, ']');
    ASSERT_TRUE(load(text));
    ASSERT_FALSE(load('[' + text + ']'));
    const auto positions = Positions::parse(text);
    ASSERT_TRUE(positions);
    const Value *value = &positions->root();
    for (std::size_t level = 1; level < depth; ++level)
        value = positions->element(*value, 0);
    EXPECT_EQ(value->size, 0U);
    EXPECT_EQ(value->position, (Position{1, 2048}));
    EXPECT_EQ(pointer(*value).size(), 2 * (depth - 1));
}

TEST(Positions, NoDepthIsTooDeep)
{
    constexpr std::size_t depth = 100'000;
    std::string text;
    for (std::size_t level = 0; level < depth; ++level)
        text += "{\"a\":[";
    EXPECT_FALSE(Positions::parse(text));
    for (std::size_t level = 0; level < depth; ++level)
        text += "]}";
    const auto positions = Positions::parse(text);
    ASSERT_TRUE(positions);
    EXPECT_EQ(positions->root().raw.size(), text.size());
}

TEST(Positions, NoTextIsHarmful)
{
    // The same random changes each time: bytes of a document replaced, inserted, taken away.
    const std::string document =
        "{\"a\\u00e9\": [1, -2.5e3, \"x\\\"y\", null, {\"b\": true, \"b\": {}}], \"\u20ac\": \"\\ud83d\\ude00\"}";
    const std::string characters = std::string("{}[]:,\"\\/-+.0123456789eEtruefalsn u\t\n\x7f\x80\xe9\xff") + '\0';
    std::mt19937 random(1); // NOLINT: the same on every machine
    const auto below = [&random](std::size_t bound) { return random() % bound; };
    std::size_t taken = 0;
    for (int trial = 0; trial < 20'000; ++trial) {
        std::string text = document;
        for (std::size_t change = 0; change <= below(3); ++change) {
            const std::size_t at = below(text.size());
            const char character = characters[below(characters.size())];
            switch (below(3)) {
            case 0:
                text[at] = character;
                break;
            case 1:
                text.insert(at, 1, character);
                break;
            default:
                text.erase(at, 1);
            }
        }
        // Of its own size, so that a byte read behind it is seen by AddressSanitizer.
        const auto exact = std::make_unique<char[]>(text.size());
        std::memcpy(exact.get(), text.data(), text.size());
        const auto positions = Positions::parse({exact.get(), text.size()});
        if (text.find('\0') != std::string::npos)
            continue; // jansson 2.14 overlooks a NUL behind a number
        if (const Json json = load(text)) {
            ++taken;
            ASSERT_TRUE(positions) << text;
            ASSERT_TRUE(agree(*positions, positions->root(), json.get())) << text;
        }
    }
    EXPECT_GT(taken, 1000U);
}

TEST(Positions, TakeTimeInProportionToTheText)
{
    std::string text = "[";
    for (int index = 0; text.size() < 10'000'000; ++index)
        text += "{\"name\": \"network\", \"enabled\": true, \"level\": -71, \"key\\u00e9\": [" + std::to_string(index) +
                "]},\n";
    text += "null]";
    const auto begin = std::chrono::steady_clock::now();
    const auto positions = Positions::parse(text);
    const std::chrono::duration<double> taken = std::chrono::steady_clock::now() - begin;
    ASSERT_TRUE(positions);
    const Value &root = positions->root();
    const Value *last = positions->element(root, root.size - 1);
    EXPECT_EQ(last->position, (Position{root.size, 1}));
    EXPECT_EQ(positions->offset(last->raw), text.size() - 5);
    RecordProperty("seconds", std::to_string(taken.count()));
    EXPECT_LT(taken.count(), 60.0); // emulated and with sanitizers on a busy machine; what is not linear takes hours
}

} // namespace

} // namespace kelmora_host::positions_test
