#include "harness/ledger.h"

#include "harness/poison.h"

#include <cstdlib>
#include <gtest/gtest.h>
#include <jansson.h>
#include <string>
#include <thread>

namespace kelmora_harness::ledger_test {

namespace {

// A block that the compiler must not take for unused.
void *take(std::size_t size)
{
    void *volatile block = std::malloc(size);
    return block;
}

TEST(Ledger, CountsTheBlocksOfJanssonAndOfThePrograms)
{
    const std::size_t alive = ledger::alive();
    const std::size_t json_alive = ledger::json_alive();
    void *block = take(10);
    json_t *value = json_string("a string");
    EXPECT_EQ(ledger::json_alive(), json_alive + 2);
    EXPECT_EQ(ledger::alive(), alive + 3);
    std::free(block);
    json_decref(value);
    EXPECT_EQ(ledger::json_alive(), json_alive);
    EXPECT_EQ(ledger::alive(), alive);
}

TEST(Ledger, CountsABlockThatCallocMade)
{
    const std::size_t alive = ledger::alive();
    void *volatile block = std::calloc(2, 5);
    EXPECT_EQ(ledger::alive(), alive + 1);
    std::free(block);
    EXPECT_EQ(ledger::alive(), alive);
}

TEST(Ledger, KnowsATextThatJanssonRenderedWhenTheProgramFreesIt)
{
    const Amount before = ledger::json();
    json_t *value = json_object();
    char *text = json_dumps(value, 0);
    json_decref(value);
    EXPECT_EQ((ledger::json() - before).blocks, 1);
    EXPECT_GE((ledger::json() - before).bytes, 3);
    std::free(text);
    EXPECT_EQ(ledger::json(), before);
}

TEST(Ledger, KeepsTheCountOfBlocksWhosePlacesItForgets)
{
    const Amount before = ledger::json();
    char *text = json_dumps(json_true(), JSON_ENCODE_ANY);
    const Amount leaked = ledger::json() - before;
    ledger::forget_json();
    std::free(text);
    EXPECT_EQ(ledger::json() - before, leaked);
}

TEST(Ledger, CountsEachThreadForItselfAndTheProcessForAll)
{
    const Amount before = ledger::json();
    const Amount process_before = ledger::json_of_process();
    char *text = nullptr;
    std::thread([&] {
        const Amount own_before = ledger::json();
        text = json_dumps(json_true(), JSON_ENCODE_ANY);
        EXPECT_EQ((ledger::json() - own_before).blocks, 1);
    }).join();
    EXPECT_EQ(ledger::json(), before);
    EXPECT_EQ((ledger::json_of_process() - process_before).blocks, 1);
    std::free(text); // another thread's: the books stay as they are
    EXPECT_EQ(ledger::json(), before);
}

TEST(Ledger, PoisonsFreshMemory)
{
    auto *block = static_cast<unsigned char *>(take(100));
    EXPECT_EQ(block[0], poison);
    EXPECT_EQ(block[99], poison);
    std::free(block);
}

TEST(Ledger, FailsOneAllocation)
{
    ledger::fail(2, Failing::once);
    void *first = take(1);
    void *second = take(1);
    void *third = take(1);
    EXPECT_EQ(ledger::asked_for(), 3U);
    EXPECT_EQ(ledger::chosen().number, 2U);
    ledger::pass();
    EXPECT_NE(first, nullptr);
    EXPECT_EQ(second, nullptr);
    EXPECT_NE(third, nullptr);
    std::free(first);
    std::free(third);
}

TEST(Ledger, FailsAllAllocationsFromOneOnAmongThemJanssonsAndReallocations)
{
    void *block = take(1);
    void *volatile unmoved = block;
    ledger::fail({1, Failing::from_then_on});
    json_t *value = json_string("a string");
    void *volatile moved = std::realloc(block, 100);
    EXPECT_EQ(ledger::asked_for(), 2U);
    EXPECT_EQ(ledger::reallocations(), 1U);
    EXPECT_EQ(ledger::reallocated_size(), 100U);
    ledger::pass();
    EXPECT_EQ(value, nullptr);
    ASSERT_EQ(moved, nullptr);
    std::free(unmoved);
}

TEST(Ledger, LetsJanssonsParserSurviveEveryFailingAllocation)
{
    for (std::size_t length = 1; length < 200; ++length) { // the closing quote at every place
        const std::string document = "[\"" + std::string(length, 'a') + "\"]";
        bool reached = true;
        for (std::size_t n = 1; reached; ++n) {
            ledger::fail(n, Failing::once);
            json_decref(json_loads(document.c_str(), 0, nullptr));
            reached = ledger::asked_for() >= n;
            ledger::pass();
        }
    }
}

} // namespace

} // namespace kelmora_harness::ledger_test
