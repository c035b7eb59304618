#ifndef KELMORA_TESTS_SUPPORT_FROM_CHAIN_TEST_H
#define KELMORA_TESTS_SUPPORT_FROM_CHAIN_TEST_H

#include "tests/support/from_test.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <gtest/gtest.h>
#include <limits>
#include <string>
#include <utility>
#include <vector>

namespace kelmora_test {

/// The tests of a from-translator that makes a chain of an array of objects. The rules of one member are tried on the
/// second element, so the document must have two at least.
template <class Type, class Node> class FromChainTest : public FromTest<Type> {
protected:
    /// list: the array's key; first: where the record keeps the chain.
    FromChainTest(kelmora_from_translator from, std::string document, std::string list, Node *Type::*first)
        : FromTest<Type>(from, std::move(document)), list_(std::move(list)), first_(first)
    {
    }

    /// Copies of the chain's nodes.
    std::vector<Node> nodes()
    {
        std::vector<Node> nodes;
        for (const Node *node = this->record().*first_; node != nullptr; node = node->next)
            nodes.push_back(*node);
        return nodes;
    }

    /// The path of a member of the second element.
    [[nodiscard]] std::string second(const std::string &member) const { return list_ + ".1." + member; }

    /// What the second element becomes when its member has this value.
    Node stored(const std::string &member, const std::string &json)
    {
        this->poison();
        EXPECT_TRUE(this->accepts(with(this->document_, second(member), json)));
        return nodes().at(1);
    }

    /// The array given as JSON instead of the document's own.
    [[nodiscard]] std::string with_list(const std::string &json) const { return with(this->document_, list_, json); }

    /// Each member is required, they are asked for in this order, and null counts as present. A missing one leaves the
    /// document unreleased. The paths are the members' names.
    void expect_members_required_in_order(const std::vector<RequiredKey> &members)
    {
        std::vector<std::string> this_and_later;
        for (auto member = members.rbegin(); member != members.rend(); ++member) {
            this_and_later.push_back(second(member->path));
            this->leaks_document_ = true;
            this->poison();
            EXPECT_TRUE(this->rejects(without(this->document_, second(member->path)), member->field, member->message));
            EXPECT_EQ(nodes().size(), 2U) << member->path;
            EXPECT_TRUE(this->rejects(without_all(this->document_, this_and_later), member->field, member->message));
            this->leaks_document_ = false;
            EXPECT_TRUE(this->accepts(with(this->document_, second(member->path), "null")));
        }
        this->leaks_document_ = true;
        for (const char *other : {"{}", "[]", "null", "true", "1", "1.5", "\"text\""}) {
            EXPECT_TRUE(this->rejects(with_list("[" + std::string(other) + "]"), members.front().field,
                                      members.front().message));
        }
        this->leaks_document_ = false;
    }

    /// The integer's low bits; 0 for every other type.
    template <class Integer> void expect_member_integer(const std::string &member, Integer Node::*field)
    {
        constexpr std::int64_t most = std::numeric_limits<Integer>::max();
        std::vector<std::pair<std::string, std::int64_t>> cases = {
            {"0", 0},
            {"1", 1},
            {std::to_string(most), most},
            {std::to_string(most + 1), 0},
            {std::to_string(most + 6), 5},
            {"-1", most},
            {"9223372036854775807", most},
            {"-9223372036854775808", 0},
        };
        for (const char *other : {"1.0", "2.5", "\"7\"", "true", "false", "null", "{}", "[7]"})
            cases.emplace_back(other, 0);
        for (const auto &[json, expected] : cases)
            EXPECT_EQ(stored(member, json).*field, expected) << member << ": " << json;
    }

    /// The text, cut to the field's width less one; the rest filled with NULs; empty for every other type.
    template <std::size_t width> void expect_member_string(const std::string &member, char (Node::*field)[width])
    {
        for (const std::size_t length :
             {std::size_t{0}, std::size_t{1}, width - 2, width - 1, width, width + 1, std::size_t{65536}}) {
            const std::string text = quoted(length);
            std::string expected = text.substr(1, std::min(length, width - 1));
            expected.resize(width, '\0');
            const Node node = stored(member, text);
            EXPECT_EQ(std::string(node.*field, width), expected) << member << " with " << length << " characters";
        }
        for (const char *other : {"1", "1.5", "true", "false", "null", "{}", "[\"text\"]"}) {
            const Node node = stored(member, other);
            EXPECT_EQ(std::string(node.*field, width), std::string(width, '\0')) << member << ": " << other;
        }
    }

    /// Absent: accepted, and the field is empty.
    template <std::size_t width> void expect_member_optional(const std::string &member, char (Node::*field)[width])
    {
        this->poison();
        EXPECT_TRUE(this->accepts(without(this->document_, second(member))));
        const Node node = nodes().at(1);
        EXPECT_EQ(std::string(node.*field, width), std::string(width, '\0')) << member;
    }

private:
    std::string list_;
    Node *Type::*first_;
};

} // namespace kelmora_test

#endif
