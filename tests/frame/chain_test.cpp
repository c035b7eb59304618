#include "frame/chain.h"

#include "tests/support/allocations.h"

#include "host/gateway/record.h"
#include "host/plugin/errors.h"

#include <cstdlib>
#include <cstring>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <initializer_list>
#include <string>
#include <vector>

namespace kelmora::chain_test {

namespace {

using kelmora_host::Error;
using kelmora_test::Failing;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;
namespace allocations = kelmora_test::allocations;

struct Link {
    int number;
    Link *next;
};

TEST(Chain, IsWalkedFromItsFirstNodeToItsLast)
{
    Link third{3, nullptr};
    Link second{2, &third};
    const Link first{1, &second};
    std::vector<int> numbers;
    for (const Link &link : chain(&first))
        numbers.push_back(link.number);
    EXPECT_THAT(numbers, ElementsAre(1, 2, 3));
}

TEST(Chain, MayBeEmpty)
{
    for (const Link &link : chain<Link>(nullptr))
        FAIL() << link.number;
}

class NewNode : public testing::Test {
protected:
    kelmora_errorlist errors_;
    Decoder::Call call_{Document(json_object()), &errors_};
    Decoder in_{call_, call_.document.root()};
};

TEST_F(NewNode, IsCleared)
{
    void *dirty = std::malloc(sizeof(Link));
    std::memset(dirty, 0xA5, sizeof(Link));
    std::free(dirty);
    auto *node = new_node<Link>(in_, "list");
    ASSERT_NE(node, nullptr);
    EXPECT_EQ(node->number, 0);
    EXPECT_EQ(node->next, nullptr);
    std::free(node);
    EXPECT_TRUE(in_.ok());
}

TEST_F(NewNode, ReportsThatThereIsNoMemory)
{
    allocations::fail(1, Failing::once);
    EXPECT_EQ(new_node<Link>(in_, "list"), nullptr);
    allocations::pass();
    EXPECT_FALSE(in_.ok());
    EXPECT_THAT(errors_.errors, ElementsAre(Error{"list", "out of memory", "json"}));
}

TEST_F(NewNode, IsNotMadeAfterAFailure)
{
    in_.fail("field", "message");
    allocations::pass();
    EXPECT_EQ(new_node<Link>(in_, "list"), nullptr);
    EXPECT_EQ(allocations::asked_for(), 0U);
    EXPECT_THAT(errors_.errors, ElementsAre(Error{"field", "message", "json"}));
}

class ChainBuilderTest : public NewNode {
protected:
    ~ChainBuilderTest() override { kelmora_host::Free().chain(first_); }

    /// Adds nodes of these numbers.
    void build(std::initializer_list<int> numbers)
    {
        ChainBuilder<Link> builder(first_);
        for (const int number : numbers) {
            auto *node = builder.add(in_, "list");
            if (node != nullptr)
                node->number = number;
        }
    }

    [[nodiscard]] std::vector<int> numbers() const
    {
        std::vector<int> numbers;
        for (const Link &link : chain(first_))
            numbers.push_back(link.number);
        return numbers;
    }

    Link *first_ = nullptr;
};

TEST_F(ChainBuilderTest, BuildsAChainInOrder)
{
    build({1, 2, 3});
    EXPECT_THAT(numbers(), ElementsAre(1, 2, 3));
}

TEST_F(ChainBuilderTest, LinksBehindTheFirstNodeAndLetsTheRestGo)
{
    build({1, 2, 3});
    Link *rest = first_->next;
    build({4, 5});
    EXPECT_THAT(numbers(), ElementsAre(1, 4, 5));
    kelmora_host::Free().chain(rest);
}

TEST_F(ChainBuilderTest, LeavesAChainAloneThatNothingIsAddedTo)
{
    build({1, 2});
    build({});
    EXPECT_THAT(numbers(), ElementsAre(1, 2));
}

TEST_F(ChainBuilderTest, KeepsTheChainWellFormedWhenMemoryRunsOut)
{
    allocations::fail(2, Failing::from_then_on);
    build({1, 2, 3});
    allocations::pass();
    EXPECT_THAT(numbers(), ElementsAre(1));
    EXPECT_THAT(errors_.errors, ElementsAre(Error{"list", "out of memory", "json"}));
}

struct Word {
    char text[6];
    Word *next;
};

class AddTexts : public testing::Test {
protected:
    ~AddTexts() override { kelmora_host::Free().chain(first_); }

    /// The chain's texts after the array of this document was added to it.
    std::vector<std::string> texts_of(const char *document)
    {
        Decoder::Call call{Document(json_loads(document, 0, nullptr)), &errors_};
        Decoder in(call, call.document.root());
        allocations::fail(failing_allocation_, Failing::once);
        add_strings(in, ArrayDecoder(call, call.document.root()), first_, &Word::text, "words", "word");
        allocations::pass();
        std::vector<std::string> texts;
        for (const Word &word : chain(first_))
            texts.emplace_back(word.text);
        return texts;
    }

    Word *first_ = nullptr;
    std::size_t failing_allocation_ = 0; ///< counted from 1; 0 is none
    kelmora_errorlist errors_;
};

TEST_F(AddTexts, AddsANodeForEachText)
{
    EXPECT_THAT(texts_of(R"(["one", "two", "three"])"), ElementsAre("one", "two", "three"));
    EXPECT_THAT(errors_.errors, IsEmpty());
}

TEST_F(AddTexts, SkipsWhatIsEmptyOrNoText)
{
    EXPECT_THAT(texts_of(R"(["", 1, null, "one", true, [], {"a": "b"}, "two"])"), ElementsAre("one", "two"));
    EXPECT_THAT(texts_of("[]"), ElementsAre("one", "two"));
}

TEST_F(AddTexts, LinksBehindTheFirstNode)
{
    first_ = kelmora_host::make_chain<Word>({{.text = "old"}});
    EXPECT_THAT(texts_of(R"(["new"])"), ElementsAre("old", "new"));
}

TEST_F(AddTexts, RefusesATextThatTheFieldCannotHoldAndStoresNothingOfIt)
{
    EXPECT_THAT(texts_of(R"(["fives", "sixsix", "more"])"), ElementsAre("fives"));
    EXPECT_THAT(errors_.errors,
                ElementsAre(Error{"word", "one or more elements exceeds the maximum of characters", "size"}));
}

TEST_F(AddTexts, EndsAtTheTextThatThereIsNoMemoryFor)
{
    failing_allocation_ = 2;
    EXPECT_THAT(texts_of(R"(["one", "two", "three"])"), ElementsAre("one"));
    EXPECT_THAT(errors_.errors, ElementsAre(Error{"words", "out of memory", "json"}));
}

TEST_F(AddTexts, CountsBytesNotCharacters)
{
    EXPECT_THAT(texts_of("[\"\u00e9\u00e9\", \"\u00e9\u00e9\u00e9\"]"), ElementsAre("\u00e9\u00e9"));
    EXPECT_THAT(errors_.errors, SizeIs(1));
}

} // namespace

} // namespace kelmora::chain_test
