#include "frame/direct/text.h"

#include "tests/support/allocations.h"

#include <cstdlib>
#include <cstring>
#include <gtest/gtest.h>
#include <string>

namespace kelmora::text_test {

namespace {

using kelmora_test::Failing;
namespace allocations = kelmora_test::allocations;

/// The names "k0", "k1" ...
const char *name(unsigned number)
{
    static char names[64][4];
    const std::string text = 'k' + std::to_string(number);
    std::memcpy(names[number], text.c_str(), text.size() + 1);
    return names[number];
}

void member(Text &text, Text::Open &in, const char *key)
{
    if (char *to = text.begin(in, key, std::strlen(key), 1); to != nullptr)
        *to = '0';
}

/// Whether an object of so many members can be written.
bool holds_members(unsigned members, bool pretty)
{
    Text text(nullptr, pretty);
    Text::Open object = text.open('{', nullptr);
    for (unsigned i = 0; i < members; ++i)
        member(text, object, name(i));
    text.close(object);
    return text.finish() != nullptr;
}

TEST(Text, FailsForAnObjectOfMoreMembersThanItRemembers)
{
    for (const bool pretty : {false, true}) {
        EXPECT_TRUE(holds_members(Text::most_members, pretty));
        EXPECT_FALSE(holds_members(Text::most_members + 1, pretty));
    }
}

void nest(Text &text, Text::Open &in, unsigned levels)
{
    if (levels == 0)
        return;
    text.begin(in, "nested", 6, 0);
    Text::Open object = text.open('{', &in);
    nest(text, object, levels - 1);
    text.close(object);
}

/// Whether objects that are nested so deep can be written.
bool holds_levels(unsigned levels, bool pretty)
{
    Text text(nullptr, pretty);
    Text::Open object = text.open('{', nullptr);
    nest(text, object, levels - 1);
    text.close(object);
    return text.finish() != nullptr;
}

TEST(Text, FailsForSortedObjectsThatAreDeeperThanItRemembers)
{
    EXPECT_TRUE(holds_levels(Text::most_levels, true));
    EXPECT_FALSE(holds_levels(Text::most_levels + 1, true));
    EXPECT_TRUE(holds_levels(100, false));
}

TEST(Text, IsReleasedWithItsOwnBlock)
{
    const std::size_t alive = allocations::alive();
    {
        Text text(nullptr, false);
        Text::Open array = text.open('[', nullptr);
        if (char *to = text.begin(array, nullptr, 0, 10000); to != nullptr)
            std::memset(to, '0', 10000);
        text.close(array);
        EXPECT_EQ(text.finish(), '[' + std::string(10000, '0') + ']');
    }
    EXPECT_EQ(allocations::alive(), alive);
}

TEST(Text, WritesNothingAfterAFailure)
{
    allocations::fail(1, Failing::from_then_on);
    Text text(nullptr, true);
    Text::Open object = text.open('{', nullptr);
    member(text, object, "a");
    allocations::pass();
    member(text, object, "b");
    EXPECT_EQ(text.begin(object, "c", 1, 1), nullptr);
    text.close(object);
    EXPECT_EQ(text.finish(), nullptr);
}

TEST(Compare, OrdersByBytes)
{
    EXPECT_EQ(compare("", ""), 0);
    EXPECT_EQ(compare("same", "same"), 0);
    EXPECT_LT(compare("", "a"), 0);
    EXPECT_GT(compare("ab", "a"), 0);
    EXPECT_LT(compare("B", "a"), 0);
    EXPECT_LT(compare("a", "\xC3"), 0);
}

} // namespace

} // namespace kelmora::text_test
