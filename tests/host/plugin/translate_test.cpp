#include "host/plugin/translate.h"

#include "tests/support/allocations.h"

#include <cstdlib>
#include <cstring>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace kelmora_host::translate_test {

namespace {

using ::testing::ElementsAre;

struct Port {
    int number;
};

std::vector<Node> two_ports()
{
    std::vector<Node> nodes;
    nodes.emplace_back("lan1", Record(Port{1}));
    nodes.emplace_back("lan2", Record(Port{2}));
    return nodes;
}

void put(char **out, const std::string &text) { std::memcpy(*out, text.c_str(), text.size() + 1); }

/// Writes what it was asked: "list of 2: lan1 1, lan2 2".
int tell_request(kelmora_resource *head, char **out)
{
    std::string text = head->is_list != 0 ? "list" : "single";
    text += " of " + std::to_string(head->count) + ":";
    for (kelmora_resource *node = head; node != nullptr; node = kelmora_resource_get_next(node))
        text.append(" ").append(node->id).append(" ").append(
            std::to_string(static_cast<Port *>(kelmora_resource_get_data(node))->number));
    put(out, text);
    return 1;
}

int write_much(kelmora_resource * /*head*/, char **out)
{
    *out = static_cast<char *>(std::realloc(*out, 100001));
    put(out, std::string(100000, 'x'));
    return 1;
}

int write_nothing(kelmora_resource * /*head*/, char ** /*out*/) { return 1; }

int fail_with_empty_document(kelmora_resource * /*head*/, char **out)
{
    put(out, "[]");
    return 0;
}

TEST(Read, HandsAListOfAllNodesToTheTranslator)
{
    std::vector<Node> nodes = two_ports();
    const Encoded answer = to_json(tell_request, nodes, true);
    EXPECT_EQ(answer.result, 1);
    EXPECT_EQ(answer.text, "list of 2: lan1 1 lan2 2");
}

TEST(Read, AsksForASingleObjectWhenNoListIsWanted)
{
    std::vector<Node> nodes = two_ports();
    nodes.pop_back();
    EXPECT_EQ(to_json(tell_request, nodes, false).text, "single of 1: lan1 1");
}

TEST(Read, AsksForNothingWithAHeadOfCountZero)
{
    std::vector<Node> nothing;
    EXPECT_EQ(to_json(tell_request, nothing, true).text, "list of 0:  0");
    EXPECT_EQ(to_json(tell_request, nothing, false).text, "single of 0:  0");
}

TEST(Read, TakesTheTextFromABufferThatTheTranslatorEnlarged)
{
    std::vector<Node> nodes = two_ports();
    EXPECT_EQ(to_json(write_much, nodes, true).text, std::string(100000, 'x'));
}

TEST(Read, HasNoTextWhenTheTranslatorWroteNone)
{
    std::vector<Node> nodes = two_ports();
    const Encoded answer = to_json(write_nothing, nodes, true);
    EXPECT_EQ(answer.result, 1);
    EXPECT_EQ(answer.text, "");
}

TEST(Read, PassesAFailureOnWithTheTextThatCameWithIt)
{
    std::vector<Node> nodes = two_ports();
    const Encoded answer = to_json(fail_with_empty_document, nodes, true);
    EXPECT_EQ(answer.result, 0);
    EXPECT_EQ(answer.text, "[]");
}

int write_raw(kelmora_resource * /*head*/, char **out)
{
    std::memcpy(*out, "\0\1\0\2rest", 8);
    return 1;
}

TEST(Read, TakesAsManyBytesAsARawResourceHas)
{
    std::vector<Node> nodes = two_ports();
    EXPECT_EQ(to_json(write_raw, nodes, true, 8).text, std::string("\0\1\0\2rest", 8));
    nodes.clear();
    EXPECT_EQ(to_json(write_raw, nodes, true, 4).text, std::string("\0\1\0\2", 4));
}

TEST(OutputBuffer, StartsEmptyWithTheSizeThatThePlugInCountsOn)
{
    OutputBuffer buffer;
    EXPECT_EQ(OutputBuffer::initial_size, 4096U);
    EXPECT_STREQ(buffer.bytes(), "");
    std::memset(*buffer.pointer(), 'x', OutputBuffer::initial_size); // an address sanitizer would object
    EXPECT_EQ(buffer.bytes()[OutputBuffer::initial_size - 1], 'x');
}

/// Stores the text's length.
int store_length(kelmora_resource *node, const char *text, kelmora_errorlist * /*errors*/)
{
    static_cast<Port *>(kelmora_resource_get_data(node))->number = static_cast<int>(std::strlen(text));
    return 1;
}

int object_twice(kelmora_resource * /*node*/, const char * /*text*/, kelmora_errorlist *errors)
{
    kelmora_errorlist_add_error(errors, "power", "too high", "json");
    kelmora_errorlist_add_error(errors, "", "not today", "calendar");
    return 0;
}

TEST(Write, HandsTextAndRecordToTheTranslator)
{
    Node node("lan1", Record(Port{1}));
    const Decoded answer = from_json(store_length, node, "{\"a\": 1}");
    EXPECT_EQ(answer.result, 1);
    EXPECT_TRUE(answer.errors.empty());
    EXPECT_EQ(node.record().as<Port>().number, 8);
}

TEST(Write, CollectsTheErrorsInTheirOrder)
{
    Node node("lan1", Record(Port{1}));
    const Decoded answer = from_json(object_twice, node, "{}");
    EXPECT_EQ(answer.result, 0);
    EXPECT_THAT(answer.errors, ElementsAre(Error{"power", "too high", "json"}, Error{"", "not today", "calendar"}));
}

int store_third_byte(kelmora_resource *node, const char *text, kelmora_errorlist * /*errors*/)
{
    static_cast<Port *>(kelmora_resource_get_data(node))->number = text[2];
    return 1;
}

TEST(Write, HandsOverWhatStandsBehindANulByte)
{
    Node node("lan1", Record(Port{1}));
    EXPECT_EQ(from_json(store_third_byte, node, std::string("\0\0\7\0", 4)).result, 1);
    EXPECT_EQ(node.record().as<Port>().number, 7);
}

TEST(Write, FreesWhatTheTranslatorLetsGoOf)
{
    const std::size_t alive = kelmora_test::allocations::alive();
    {
        kelmora_interface interface {
        };
        interface.ip6_list = make_chain<kelmora_ip6_address>({{.address = "a"}, {.address = "b"}, {.address = "c"}});
        Node node("id", Record(interface));
        const auto forget_the_second = [](kelmora_resource *resource, const char *, kelmora_errorlist *) {
            auto *first = static_cast<kelmora_interface *>(kelmora_resource_get_data(resource))->ip6_list;
            first->next = first->next->next;
            return 1;
        };
        from_json(forget_the_second, node, "{}");
        EXPECT_EQ(kelmora_test::allocations::alive(), alive + 2);
        EXPECT_STREQ(node.record().as<kelmora_interface>().ip6_list->next->address, "c");
    }
    EXPECT_EQ(kelmora_test::allocations::alive(), alive);
}

} // namespace

} // namespace kelmora_host::translate_test
