#include "frame/chain.h"

#include "tests/support/allocations.h"

#include "host/errors.h"

#include <cstdlib>
#include <cstring>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <vector>

namespace kelmora {

namespace {

using kelmora_host::Error;
using kelmora_test::Failing;
using testing::ElementsAre;
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
    void *stale = std::malloc(sizeof(Link));
    std::memset(stale, 0xA5, sizeof(Link));
    std::free(stale);
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

} // namespace

} // namespace kelmora
