#include "host/gateway/record.h"

#include "tests/support/allocations.h"

#include <cstdlib>
#include <cstring>
#include <gtest/gtest.h>
#include <memory>
#include <new>
#include <utility>

namespace kelmora_host {

namespace record_test {

namespace {

// A policy of groups of rules: chains in chains, with texts at every level.
struct Rule {
    char *name;
    int priority;
    Rule *next;
};

struct Group {
    int number;
    Rule *rules;
    Group *next;
};

struct Policy {
    int version;
    char *comment;
    Group *groups;
};

struct Plain {
    int number;
    char name[8];
};

} // namespace

} // namespace record_test

template <> struct Owned<record_test::Rule> {
    template <class Visitor> static void visit(record_test::Rule &rule, Visitor &visitor) { visitor.text(rule.name); }
};

template <> struct Owned<record_test::Group> {
    template <class Visitor> static void visit(record_test::Group &group, Visitor &visitor)
    {
        visitor.chain(group.rules);
    }
};

template <> struct Owned<record_test::Policy> {
    template <class Visitor> static void visit(record_test::Policy &policy, Visitor &visitor)
    {
        visitor.text(policy.comment);
        visitor.chain(policy.groups);
    }
};

namespace record_test {

namespace {

namespace allocations = kelmora_test::allocations;

/// Two groups: number 1 of the rules "allow" (10) and "deny" (20), number 2 of none.
Policy two_groups()
{
    Rule *rules = make_chain<Rule>({{make_text("allow"), 10, nullptr}, {make_text("deny"), 20, nullptr}});
    return {7, make_text("at night"), make_chain<Group>({{1, rules, nullptr}, {2, nullptr, nullptr}})};
}

constexpr std::size_t blocks_of_two_groups = 7;

TEST(MakeChain, LinksCopiesOfTheNodesInOrder)
{
    Rule elsewhere{nullptr, 0, nullptr};
    Rule *chain = make_chain<Rule>({{nullptr, 1, &elsewhere}, {nullptr, 2, &elsewhere}});
    EXPECT_EQ(chain->priority, 1);
    EXPECT_EQ(chain->next->priority, 2);
    EXPECT_EQ(chain->next->next, nullptr);
    Free().chain(chain);
    EXPECT_EQ(make_chain<Rule>({}), nullptr);
}

TEST(Record, HoldsACopyOfTheStructItIsMadeOf)
{
    Plain plain{42, "plain"};
    Record record(plain);
    plain.number = 43;
    EXPECT_EQ(record.as<Plain>().number, 42);
    EXPECT_STREQ(record.as<Plain>().name, "plain");
    EXPECT_EQ(record.size(), sizeof(Plain));
    EXPECT_EQ(record.data(), &record.as<Plain>());
}

TEST(Record, OfNothingButAChainShowsItsFirstNode)
{
    Record record(ChainRecord<Rule>{make_chain<Rule>({{make_text("allow"), 10, nullptr}})});
    EXPECT_STREQ(static_cast<Rule *>(record.data())->name, "allow");
    EXPECT_EQ(record.data(), record.as<ChainRecord<Rule>>().first);
    EXPECT_NE(Record(record).data(), record.data());
    EXPECT_EQ(Record(ChainRecord<Rule>{nullptr}).data(), nullptr);
}

TEST(FreeLostTest, FreesWhatARecordNoLongerOwns)
{
    const std::size_t alive = allocations::alive();
    {
        Record record(two_groups());
        Policy &policy = record.as<Policy>();
        {
            const FreeLost free_lost(record);
            policy.comment = nullptr;       // one block
            policy.groups->rules = nullptr; // two nodes with a text each
        }
        EXPECT_EQ(allocations::alive(), alive + blocks_of_two_groups - 5);
        EXPECT_EQ(policy.groups->next->number, 2);
    }
    EXPECT_EQ(allocations::alive(), alive);
}

TEST(Record, FreesAllThatHangsOnItAtTheEndOfItsLife)
{
    const std::size_t alive = allocations::alive();
    {
        const Record record(two_groups());
        EXPECT_EQ(allocations::alive(), alive + blocks_of_two_groups);
    }
    EXPECT_EQ(allocations::alive(), alive);
}

TEST(Record, CopiesChainsOfChainsAndTextsNodeByNode)
{
    Record original(two_groups());
    Record copy(original);
    const Policy &from = original.as<Policy>();
    const Policy &to = copy.as<Policy>();

    EXPECT_EQ(to.version, 7);
    EXPECT_STREQ(to.comment, "at night");
    EXPECT_NE(to.comment, from.comment);

    ASSERT_NE(to.groups, nullptr);
    EXPECT_NE(to.groups, from.groups);
    EXPECT_EQ(to.groups->number, 1);

    const Rule *rule = to.groups->rules;
    ASSERT_NE(rule, nullptr);
    EXPECT_NE(rule, from.groups->rules);
    EXPECT_STREQ(rule->name, "allow");
    EXPECT_NE(rule->name, from.groups->rules->name);
    EXPECT_EQ(rule->priority, 10);

    ASSERT_NE(rule->next, nullptr);
    EXPECT_NE(rule->next, from.groups->rules->next);
    EXPECT_STREQ(rule->next->name, "deny");
    EXPECT_EQ(rule->next->priority, 20);
    EXPECT_EQ(rule->next->next, nullptr);

    const Group *second = to.groups->next;
    ASSERT_NE(second, nullptr);
    EXPECT_NE(second, from.groups->next);
    EXPECT_EQ(second->number, 2);
    EXPECT_EQ(second->rules, nullptr);
    EXPECT_EQ(second->next, nullptr);
}

TEST(Record, SurvivesTheEndOfTheRecordThatItWasCopiedFrom)
{
    auto original = std::make_unique<Record>(two_groups());
    Record copy(*original);
    original.reset();
    EXPECT_STREQ(copy.as<Policy>().comment, "at night");
    EXPECT_STREQ(copy.as<Policy>().groups->rules->next->name, "deny");
}

TEST(Record, IsNotTouchedByChangesToItsCopy)
{
    Record original(two_groups());
    Record copy(original);
    copy.as<Policy>().groups->rules->priority = 99;
    copy.as<Policy>().comment[0] = 'A';
    EXPECT_EQ(original.as<Policy>().groups->rules->priority, 10);
    EXPECT_STREQ(original.as<Policy>().comment, "at night");
}

TEST(Record, CopiesAbsentChainsAndTextsAsAbsent)
{
    Record original(Policy{1, nullptr, nullptr});
    Record copy(original);
    EXPECT_EQ(copy.as<Policy>().comment, nullptr);
    EXPECT_EQ(copy.as<Policy>().groups, nullptr);
}

TEST(Record, FreesACopyOnItsOwn)
{
    const std::size_t alive = allocations::alive();
    {
        const Record original(two_groups());
        {
            Record copy(original);
            copy.as<Policy>().version = 8;
            EXPECT_EQ(allocations::alive(), alive + 2 * blocks_of_two_groups);
        }
        EXPECT_EQ(allocations::alive(), alive + blocks_of_two_groups);
    }
    EXPECT_EQ(allocations::alive(), alive);
}

TEST(Record, FreesWhatItHeldWhenAnotherIsAssigned)
{
    const std::size_t alive = allocations::alive();
    {
        const Record source(Policy{8, make_text("by day"), nullptr});
        Record target(two_groups());
        target = source;
        EXPECT_STREQ(target.as<Policy>().comment, "by day");
        EXPECT_EQ(target.as<Policy>().version, 8);
        EXPECT_EQ(target.as<Policy>().groups, nullptr);
        EXPECT_EQ(allocations::alive(), alive + 2);
    }
    EXPECT_EQ(allocations::alive(), alive);
}

TEST(Record, TakesTheTypeOfTheRecordThatIsAssigned)
{
    Record record(Plain{1, "one"});
    record = Record(Policy{8, nullptr, nullptr});
    EXPECT_EQ(record.size(), sizeof(Policy));
    EXPECT_EQ(record.as<Policy>().version, 8);
}

TEST(Record, CanBeAssignedToItself)
{
    Record record(two_groups());
    const Record &same = record;
    record = same;
    EXPECT_STREQ(record.as<Policy>().groups->rules->name, "allow");
}

TEST(Record, MovesWithoutCopyingWhatHangsOnIt)
{
    const std::size_t alive = allocations::alive();
    {
        Record from(two_groups());
        const Group *groups = from.as<Policy>().groups;
        Record to(std::move(from));
        EXPECT_EQ(to.as<Policy>().groups, groups);
        EXPECT_EQ(allocations::alive(), alive + blocks_of_two_groups);
    }
    EXPECT_EQ(allocations::alive(), alive);
}

TEST(Record, CopyingThrowsWhenMemoryRunsOut)
{
    const Record original(two_groups());
    allocations::fail(1, kelmora_test::Failing::once);
    EXPECT_THROW((void)Record(original), std::bad_alloc);
    allocations::pass();
}

} // namespace

} // namespace record_test

} // namespace kelmora_host
