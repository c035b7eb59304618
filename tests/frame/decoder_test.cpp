#include "frame/decoder.h"

#include "tests/support/allocations.h"
#include "tests/support/from_test.h"

#include <cstring>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace kelmora::decoder_test {

namespace {

using kelmora_host::Error;
using kelmora_test::FromTest;
using kelmora_test::with;
using kelmora_test::without;
using testing::ElementsAre;
using testing::IsEmpty;

/// A field of every kind, each read in every way.
struct Fields {
    std::uint8_t boolean;
    std::uint8_t byte;
    std::uint16_t half;
    std::uint32_t word;
    std::int32_t number;
    char text[8];
    std::uint8_t optional_boolean;
    std::uint8_t optional_byte;
    std::uint16_t optional_half;
    std::uint32_t optional_word;
    std::int32_t optional_number;
    char optional_string[8];
    std::uint8_t nested;
};

void from_json(Decoder &in, Fields &fields)
{
    in.required_boolean("boolean"_key, fields.boolean);
    in.required_integer("byte"_key, fields.byte);
    in.required_integer("half"_key, fields.half);
    in.required_integer("word"_key, fields.word);
    in.required_integer("number"_key, fields.number);
    in.required_string("text"_key, fields.text);
    in.optional_boolean("optional_boolean", fields.optional_boolean);
    in.optional_integer("optional_byte", fields.optional_byte);
    in.optional_integer("optional_half", fields.optional_half);
    in.optional_integer("optional_word", fields.optional_word);
    in.optional_integer("optional_number", fields.optional_number);
    in.optional_string("optional_string", fields.optional_string);
    Decoder group = in.required(key<"group", "group", "group fields not found">());
    group.required_boolean("group.nested"_key, fields.nested);
}

int from(kelmora_resource *node, const char *text, kelmora_errorlist *errors)
{
    return decode<from_json>(node, text, errors);
}

constexpr char document[] = R"({
    "boolean": true, "byte": 1, "half": 2, "word": 3, "number": -4, "text": "five",
    "optional_boolean": true, "optional_byte": 6, "optional_half": 7, "optional_word": 8, "optional_number": -9,
    "optional_string": "ten", "group": {"nested": true}
})";

class Decode : public FromTest<Fields> {
protected:
    Decode() : FromTest(from, document) {}
};

TEST_F(Decode, StoresEveryKind)
{
    EXPECT_TRUE(accepts(document));
    EXPECT_EQ(record().boolean, 1);
    EXPECT_EQ(record().byte, 1);
    EXPECT_EQ(record().half, 2);
    EXPECT_EQ(record().word, 3U);
    EXPECT_EQ(record().number, -4);
    EXPECT_STREQ(record().text, "five");
    EXPECT_EQ(record().optional_boolean, 1);
    EXPECT_EQ(record().optional_byte, 6);
    EXPECT_EQ(record().optional_half, 7);
    EXPECT_EQ(record().optional_word, 8U);
    EXPECT_EQ(record().optional_number, -9);
    EXPECT_STREQ(record().optional_string, "ten");
    EXPECT_EQ(record().nested, 1);
}

TEST_F(Decode, ReportsTheFirstMissingKeyAlone)
{
    expect_required_in_order({{"boolean", "boolean", "boolean field not found"},
                              {"byte", "byte", "byte field not found"},
                              {"half", "half", "half field not found"},
                              {"word", "word", "word field not found"},
                              {"number", "number", "number field not found"},
                              {"text", "text", "text field not found"}});
    EXPECT_TRUE(rejects(without(document, "group"), "group", "group fields not found"));
    EXPECT_TRUE(rejects(without(document, "group.nested"), "group.nested", "nested field not found"));
}

TEST_F(Decode, FindsNoMembersInWhatIsNoObject)
{
    for (const char *value : {"1", "true", "null", "\"nested\"", "[]", "[{\"nested\": true}]"})
        EXPECT_TRUE(rejects(with(document, "group", value), "group.nested", "nested field not found"));
}

TEST_F(Decode, StoresNothingBehindAFailure)
{
    poison();
    EXPECT_TRUE(rejects(without(document, "word"), "word", "word field not found"));
    EXPECT_EQ(record().half, 2);
    EXPECT_TRUE(untouched(record().word));
    EXPECT_TRUE(untouched(record().number));
    EXPECT_TRUE(untouched(record().text));
    EXPECT_TRUE(untouched(record().optional_boolean));
    EXPECT_TRUE(untouched(record().optional_string));
    EXPECT_TRUE(untouched(record().nested));
}

TEST_F(Decode, KeepsOptionalFieldsThatAreAbsent)
{
    expect_optional("optional_boolean", record().optional_boolean);
    expect_optional("optional_byte", record().optional_byte);
    expect_optional("optional_half", record().optional_half);
    expect_optional("optional_word", record().optional_word);
    expect_optional("optional_number", record().optional_number);
    expect_optional("optional_string", record().optional_string);
}

TEST_F(Decode, TakesOnlyTrueForTrue)
{
    expect_boolean("boolean", record().boolean);
    expect_boolean("optional_boolean", record().optional_boolean);
    expect_boolean("group.nested", record().nested);
}

TEST_F(Decode, CutsIntegersToTheirWidth)
{
    expect_integer("byte", record().byte);
    expect_integer("half", record().half);
    expect_integer("word", record().word);
    expect_integer("number", record().number);
    expect_integer("optional_byte", record().optional_byte);
    expect_integer("optional_half", record().optional_half);
    expect_integer("optional_word", record().optional_word);
    expect_integer("optional_number", record().optional_number);
}

TEST_F(Decode, CutsTextsToTheirField)
{
    expect_string("text", record().text);
    expect_string("optional_string", record().optional_string);
}

TEST_F(Decode, CutsTextsBetweenBytesOfACharacterToo)
{
    EXPECT_TRUE(accepts(with(document, "text", "\"123456\xC3\xA4\"")));
    EXPECT_STREQ(record().text, "123456\xC3");
}

TEST_F(Decode, KeepsTheCommonContract) { expect_common_contract(); }

TEST_F(Decode, SurvivesFailingMemory) { expect_survives_failing_memory(); }

/// Members that must be of their type.
struct Checked {
    std::uint8_t boolean;
    std::uint8_t byte;
    std::uint32_t word;
    char text[8];
    std::uint32_t elements;
};

void checked_from_json(Decoder &in, Checked &fields)
{
    in.checked_boolean("boolean", fields.boolean);
    in.checked_integer("byte", fields.byte);
    in.checked_integer("word", fields.word);
    in.checked_string("text", fields.text);
    const ArrayDecoder list = in.checked_array("list");
    if (in.ok())
        fields.elements = static_cast<std::uint32_t>(list.size());
}

constexpr char checked_document[] = R"({"boolean": true, "byte": 300, "word": 5, "text": "text", "list": [1, 2]})";

class DecodeChecked : public FromTest<Checked> {
protected:
    DecodeChecked()
        : FromTest([](kelmora_resource *node, const char *text,
                      kelmora_errorlist *errors) { return decode<checked_from_json>(node, text, errors); },
                   checked_document)
    {
    }
};

TEST_F(DecodeChecked, StoresWhatIsOfItsType)
{
    EXPECT_TRUE(accepts(checked_document));
    EXPECT_EQ(record().boolean, 1);
    EXPECT_EQ(record().byte, 44);
    EXPECT_EQ(record().word, 5U);
    EXPECT_STREQ(record().text, "text");
    EXPECT_EQ(record().elements, 2U);
    EXPECT_TRUE(accepts(with(checked_document, "boolean", "false")));
    EXPECT_EQ(record().boolean, 0);
}

TEST_F(DecodeChecked, RejectsEveryOtherTypeAndStoresNothingOfIt)
{
    const std::vector<std::pair<std::string, std::string>> types = {
        {"boolean", "boolean"}, {"byte", "integer"}, {"word", "integer"}, {"text", "string"}, {"list", "array"}};
    const std::vector<std::pair<std::string, std::string>> values = {
        {"true", "boolean"}, {"0", "integer"}, {"1.0", "real"}, {"\"text\"", "string"},
        {"[]", "array"},     {"{}", "object"}, {"null", "null"}};
    for (const auto &[member, type] : types) {
        for (const auto &[value, kind] : values) {
            const std::string text = with(checked_document, member, value);
            if (kind == type)
                EXPECT_TRUE(accepts(text));
            else
                EXPECT_TRUE(rejects(text, member, "data type must be a valid " + type));
        }
        EXPECT_TRUE(rejects(without(checked_document, member), member, "field not found"));
    }
    poison();
    EXPECT_TRUE(rejects(with(checked_document, "word", "\"5\""), "word", "data type must be a valid integer"));
    EXPECT_EQ(record().byte, 44);
    EXPECT_TRUE(untouched(record().word));
    EXPECT_TRUE(untouched(record().text));
}

/// What a reader saw.
struct Seen {
    std::vector<std::string> texts;
    std::vector<long long> numbers;
    std::size_t rounds = 0;
};

/// Reads a document without a node; the reader has the parsed document before it.
template <class Reader> std::vector<Error> reading(const char *text, Reader reader)
{
    const std::size_t alive = kelmora_test::allocations::json_alive();
    kelmora_errorlist errors;
    {
        Decoder::Call call{Document(json_loads(text, 0, nullptr)), &errors};
        Decoder in(call, call.document.root());
        reader(in);
    }
    EXPECT_EQ(kelmora_test::allocations::json_alive(), alive);
    return errors.errors;
}

/// The same with a document that is still there after a failure, so that it would show who reads it even so.
template <class Reader> std::vector<Error> reading_what_stays(const char *text, Reader reader)
{
    json_t *root = json_loads(text, 0, nullptr);
    kelmora_errorlist errors;
    {
        Decoder::Call call{Document(json_incref(root)), &errors};
        Decoder in(call, root);
        reader(in);
    }
    json_decref(root);
    return errors.errors;
}

TEST(Decoder, ReadsElementsInOrder)
{
    Seen seen;
    EXPECT_THAT(reading(R"({"list": ["a", 5, "", {"n": 7}]})",
                        [&](Decoder &in) {
                            for (const Decoder element : in.required_array("list"_key)) {
                                seen.texts.emplace_back(element.string());
                                seen.numbers.push_back(element.integer());
                            }
                            const ArrayDecoder list = in.optional_array("list");
                            EXPECT_EQ(list.size(), 4U);
                            std::uint32_t n = 0;
                            list[3].required_integer("n"_key, n);
                            EXPECT_EQ(n, 7U);
                            EXPECT_FALSE(list[4]);
                        }),
                IsEmpty());
    EXPECT_THAT(seen.texts, ElementsAre("a", "", "", ""));
    EXPECT_THAT(seen.numbers, ElementsAre(0, 5, 0, 0));
}

TEST(Decoder, StoresAnElementsText)
{
    char field[4] = "abc";
    EXPECT_THAT(reading(R"({"list": ["too long", 5, "x"]})",
                        [&](Decoder &in) {
                            const ArrayDecoder list = in.required_array("list"_key);
                            list[0].store_string(field);
                            EXPECT_EQ(std::string(field, sizeof field), std::string("too\0", 4));
                            list[2].store_string(field);
                            EXPECT_EQ(std::string(field, sizeof field), std::string("x\0\0\0", 4));
                            list[3].store_string(field);
                            EXPECT_STREQ(field, "x");
                            list[1].store_string(field);
                            EXPECT_EQ(std::string(field, sizeof field), std::string(4, '\0'));
                        }),
                IsEmpty());
}

TEST(Decoder, SeesNoElementsInWhatIsNoArray)
{
    EXPECT_THAT(reading(R"({"object": {"a": 1}, "text": "abc", "number": 5})",
                        [](Decoder &in) {
                            for (const char *name : {"object", "text", "number", "missing"}) {
                                for (const Decoder element : in.optional_array(name))
                                    FAIL() << name << element.string();
                                EXPECT_EQ(in.optional_array(name).size(), 0U);
                            }
                            EXPECT_EQ(in.required_array("text"_key).size(), 0U);
                        }),
                IsEmpty());
}

TEST(Decoder, EndsALoopAtAFailure)
{
    Seen seen;
    EXPECT_THAT(reading(R"({"list": [{"n": 1}, {}, {"n": 3}]})",
                        [&](Decoder &in) {
                            for (Decoder element : in.required_array("list"_key)) {
                                std::uint32_t n = 0;
                                element.required_integer(key<"n", "list", "no n field">(), n);
                                ++seen.rounds;
                            }
                            EXPECT_FALSE(in.ok());
                        }),
                ElementsAre(Error{"list", "no n field", "json"}));
    EXPECT_EQ(seen.rounds, 2U);
}

TEST(Decoder, DoesNothingAfterAFailure)
{
    const char *document_text = R"({"n": 1, "group": {"n": 2}, "list": [1], "text": "t", "true": true, "real": 2.5})";
    const auto read_on = [](Decoder &in) {
        const Decoder yes = in.required("true"_key);
        const Decoder real = in.required("real"_key);
        Decoder group = in.required("group"_key);
        const Decoder number = in.required("n"_key);
        const Decoder word = in.required("text"_key);
        const ArrayDecoder list = in.required_array("list"_key);
        in.fail("field", "message", "source");
        in.fail("another", "message");
        std::uint32_t n = 5;
        std::uint8_t boolean = 5;
        char text[4] = "abc";
        in.required_integer("n"_key, n);
        in.required_integer("missing"_key, n);
        in.optional_integer("n", n);
        group.required_integer("n"_key, n);
        in.checked_integer("n", n);
        in.checked_integer("missing", n);
        in.checked_boolean("n", boolean);
        in.required_string("text"_key, text);
        EXPECT_EQ(n, 5U);
        EXPECT_EQ(boolean, 5);
        EXPECT_STREQ(text, "abc");
        EXPECT_FALSE(in);
        EXPECT_FALSE(in.optional("n"));
        EXPECT_FALSE(group);
        EXPECT_EQ(number.integer(), 0);
        EXPECT_EQ(number.number(), 0);
        EXPECT_EQ(real.real(), 0);
        EXPECT_FALSE(yes.is_true());
        EXPECT_STREQ(word.string(), "");
        EXPECT_FALSE(word.is_string());
        EXPECT_EQ(list.size(), 0U);
        EXPECT_FALSE(list[0]);
    };
    EXPECT_THAT(reading(document_text, read_on), ElementsAre(Error{"field", "message", "source"}));
    EXPECT_THAT(reading_what_stays(document_text, read_on), ElementsAre(Error{"field", "message", "source"}));
}

TEST(Decoder, ReadsRealsAndNumbers)
{
    EXPECT_THAT(reading(R"({"real": 2.5, "integer": 7, "text": "1.5"})",
                        [](Decoder &in) {
                            EXPECT_EQ(in.optional("real").real(), 2.5);
                            EXPECT_EQ(in.optional("integer").real(), 0);
                            EXPECT_EQ(in.optional("text").real(), 0);
                            EXPECT_EQ(in.optional("missing").real(), 0);
                            EXPECT_EQ(in.optional("real").number(), 2.5);
                            EXPECT_EQ(in.optional("integer").number(), 7);
                            EXPECT_EQ(in.optional("text").number(), 0);
                        }),
                IsEmpty());
}

TEST(Decoder, TellsTheKindOfAValue)
{
    EXPECT_THAT(reading(R"({"true": true, "false": false, "one": 1, "text": "true", "empty": "", "null": null})",
                        [](Decoder &in) {
                            EXPECT_TRUE(in.optional("true").is_true());
                            for (const char *name : {"false", "one", "text", "null", "missing"})
                                EXPECT_FALSE(in.optional(name).is_true()) << name;
                            EXPECT_TRUE(in.optional("text").is_string());
                            EXPECT_TRUE(in.optional("empty").is_string());
                            for (const char *name : {"true", "one", "null", "missing"})
                                EXPECT_FALSE(in.optional(name).is_string()) << name;
                        }),
                IsEmpty());
}

TEST(Decoder, TellsAnAbsentMemberFromAPresentOne)
{
    EXPECT_THAT(reading(R"({"null": null, "empty": {}})",
                        [](Decoder &in) {
                            EXPECT_TRUE(in.optional("null"));
                            EXPECT_TRUE(in.optional("empty"));
                            EXPECT_FALSE(in.optional("missing"));
                            std::uint32_t n = 5;
                            in.optional("missing").optional_integer("n", n);
                            EXPECT_EQ(n, 5U);
                            EXPECT_TRUE(in.ok());
                        }),
                IsEmpty());
}

// ---- records that are fetched late, or early

void number_from_json(Decoder &in, std::uint32_t &number) { in.required_integer("n"_key, number); }

class DecodeAfter : public FromTest<std::uint32_t> {
protected:
    DecodeAfter()
        : FromTest(
              [](kelmora_resource *node, const char *text, kelmora_errorlist *errors) {
                  return decode_after<number_from_json>(key<"first", "the field", "first field not found">(), node,
                                                        text, errors);
              },
              R"({"first": null, "n": 7})")
    {
    }
};

TEST_F(DecodeAfter, FetchesTheRecordOnceTheKeyWasFound)
{
    EXPECT_TRUE(accepts(document_));
    EXPECT_EQ(record(), 7U);
    EXPECT_EQ(fetches_, 1U);
    EXPECT_TRUE(rejects(R"({"first": 1})", "n", "n field not found"));
    EXPECT_EQ(fetches_, 1U);
}

TEST_F(DecodeAfter, LeavesTheHostAloneWithoutTheKey)
{
    EXPECT_TRUE(rejects(R"({"n": 7})", "the field", "first field not found"));
    EXPECT_EQ(fetches_, 0U);
    EXPECT_TRUE(rejects("{", "", "invalid json data"));
    EXPECT_EQ(fetches_, 0U);
    EXPECT_TRUE(accepts(""));
    EXPECT_EQ(fetches_, 0U);
}

void node_from_json(Decoder &in, kelmora_resource *node)
{
    if (!in.optional("n"))
        kelmora_set_missing(node, 3);
    in.optional_integer("n", record_of<std::uint32_t>(node));
}

TEST(DecodeNode, HandsTheReaderTheNodeItself)
{
    kelmora_host::Node node("id", kelmora_host::Record(std::uint32_t{5}));
    EXPECT_EQ(decode<node_from_json>(node.resource(), "{}", nullptr), 1);
    EXPECT_THAT(node.missing(), ElementsAre(3));
    EXPECT_EQ(decode<node_from_json>(node.resource(), R"({"n": 7})", nullptr), 1);
    EXPECT_EQ(node.record().as<std::uint32_t>(), 7U);
}

TEST(DecodeInto, TakesARecordThatWasFetchedAlready)
{
    std::uint32_t record = 5;
    kelmora_errorlist errors;
    EXPECT_EQ(decode_into<number_from_json>(record, "", &errors), 1);
    EXPECT_EQ(record, 5U);
    EXPECT_EQ(decode_into<number_from_json>(record, R"({"n": 7})", &errors), 1);
    EXPECT_EQ(record, 7U);
    EXPECT_EQ(decode_into<number_from_json>(record, "{", &errors), 0);
    EXPECT_THAT(errors.errors, ElementsAre(Error{"", "invalid json data", "json"}));
}

// ---- failures that another one reports

void silently_from_json(Decoder &in, std::uint32_t &record)
{
    in.required_integer("n"_key, record);
    in.fail_silently();
    in.required_integer("m"_key, record);
    in.fail("field", "message");
}

TEST(DecodeFailingSilently, ReportsNothingAndReadsNoMore)
{
    const std::size_t alive = kelmora_test::allocations::json_alive();
    std::uint32_t record = 5;
    kelmora_errorlist errors;
    EXPECT_EQ(decode_into<silently_from_json>(record, R"({"n": 7, "m": 8})", &errors), 0);
    EXPECT_EQ(record, 7U);
    EXPECT_THAT(errors.errors, IsEmpty());
    EXPECT_EQ(decode_into<silently_from_json>(record, "{}", &errors), 0);
    EXPECT_THAT(errors.errors, ElementsAre(Error{"n", "n field not found", "json"}));
    EXPECT_EQ(kelmora_test::allocations::json_alive(), alive);
}

// ---- documents inside documents

struct Body {
    char *text;
};

void body_from_json(Decoder &in, Body &body) { body.text = in.rendered("body"); }

class DecodeRendered : public testing::Test {
protected:
    ~DecodeRendered() override { std::free(body_.text); }

    int read(const char *text) { return decode_into<body_from_json>(body_, text, &errors_); }

    Body body_{};
    kelmora_errorlist errors_;
};

TEST_F(DecodeRendered, IsTheCompactTextOfAnObjectOrArray)
{
    EXPECT_EQ(read(R"({ "body" : { "b" : [ 1 , null ],  "a" : "\u00e9/" } })"), 1);
    EXPECT_STREQ(body_.text, "{\"b\": [1, null], \"a\": \"\u00e9/\"}");
    std::free(body_.text);
    EXPECT_EQ(read(R"({"body": []})"), 1);
    EXPECT_STREQ(body_.text, "[]");
}

TEST_F(DecodeRendered, IsNullForEverythingElse)
{
    for (const char *text :
         {"{}", R"({"body": "{}"})", R"({"body": 1})", R"({"body": 1.5})", R"({"body": true})", R"({"body": null})"}) {
        EXPECT_EQ(read(text), 1) << text;
        EXPECT_EQ(body_.text, nullptr) << text;
    }
    EXPECT_THAT(errors_.errors, IsEmpty());
}

TEST_F(DecodeRendered, ReportsThatThereIsNoMemory)
{
    using kelmora_test::Failing;
    namespace allocations = kelmora_test::allocations;
    for (std::size_t n = 1;; ++n) {
        errors_.errors.clear();
        allocations::fail(n, Failing::from_then_on);
        const int result = read(R"({"body": {"a": 1}})");
        const bool reached = allocations::asked_for() >= n;
        allocations::pass();
        if (!reached) {
            EXPECT_EQ(result, 1);
            EXPECT_STREQ(body_.text, R"({"a": 1})");
            EXPECT_GT(n, 3U);
            break;
        }
        EXPECT_EQ(result, 0);
        EXPECT_EQ(body_.text, nullptr);
        EXPECT_THAT(errors_.errors, testing::AnyOf(ElementsAre(Error{"", "invalid json data", "json"}),
                                                   ElementsAre(Error{"body", "out of memory", "json"})));
    }
}

// ---- known leaks

void kept_from_json(Decoder &in, std::uint32_t &record)
{
    in.leak_document_on_failure(true);
    in.required_integer("kept"_key, record);
    in.leak_document_on_failure(false);
    in.required_integer("released"_key, record);
    in.leak_document_on_success();
    in.optional_integer("read afterwards", record);
}

class DecodeKept : public testing::Test {
protected:
    /// How many JSON values outlive the call.
    std::size_t kept_by(const char *text)
    {
        const std::size_t alive = kelmora_test::allocations::json_alive();
        kelmora_errorlist errors;
        decode_into<kept_from_json>(record_, text, &errors);
        return kelmora_test::allocations::json_alive() - alive;
    }

    std::uint32_t record_ = 0;
};

TEST_F(DecodeKept, OutlivesTheCallOnThePathsThatSaySoUnlessAllIsReleased)
{
    const auto expect_kept = [](std::size_t blocks) {
#ifdef KELMORA_RELEASE_ALL
        EXPECT_EQ(blocks, 0U);
#else
        EXPECT_GT(blocks, 0U);
#endif
    };
    expect_kept(kept_by("{}"));
    expect_kept(kept_by(R"({"kept": 1, "released": 2, "read afterwards": 3})"));
    EXPECT_EQ(record_, 3U);
}

TEST_F(DecodeKept, IsReleasedOnAllOtherPaths)
{
    EXPECT_EQ(kept_by(""), 0U);
    EXPECT_EQ(kept_by("{"), 0U);
    EXPECT_EQ(kept_by(R"({"kept": 1})"), 0U);
}

} // namespace

} // namespace kelmora::decoder_test
