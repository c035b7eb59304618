#include "host/gateway/tails.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <list>
#include <thread>
#include <vector>

namespace kelmora_host::tails_test {

namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

struct Stop {
    int number;
    Stop *next;
};

struct Line {
    Stop *out;
    Stop *back;
};

class TailsTest : public ::testing::Test {
protected:
    Stop *stop(int number) { return &stops_.emplace_back(Stop{number, nullptr}); }

    static std::vector<int> numbers(const Stop *first)
    {
        std::vector<int> numbers;
        for (; first != nullptr; first = first->next)
            numbers.push_back(first->number);
        return numbers;
    }

    /// Whether appending to this chain passes by its first node: it then ends up behind a second chain that hangs there
    /// for this call.
    bool walks(Stop *&first)
    {
        Stop *detour = stop(0);
        Stop *second = first->next;
        first->next = detour;
        Stop *added = stop(9);
        Tails::append(first, added);
        first->next = second;
        return detour->next == added;
    }

    Line line_{};

private:
    std::list<Stop> stops_;
};

TEST_F(TailsTest, AppendToAnEmptyChainAndBehindItsEnd)
{
    Tails::append(line_.out, stop(1));
    Tails::append(line_.out, stop(2));
    EXPECT_THAT(numbers(line_.out), ElementsAre(1, 2));
    const Tails tails(&line_, sizeof line_);
    Tails::append(line_.out, stop(3));
    Tails::append(line_.out, stop(4));
    EXPECT_THAT(numbers(line_.out), ElementsAre(1, 2, 3, 4));
    EXPECT_THAT(numbers(line_.back), IsEmpty());
}

TEST_F(TailsTest, AreKeptForEachChainOfTheRecord)
{
    const Tails tails(&line_, sizeof line_);
    for (int i = 0; i < 3; ++i) {
        Tails::append(line_.out, stop(i));
        Tails::append(line_.back, stop(-i));
    }
    EXPECT_THAT(numbers(line_.out), ElementsAre(0, 1, 2));
    EXPECT_THAT(numbers(line_.back), ElementsAre(0, -1, -2));
    EXPECT_FALSE(walks(line_.out));
    EXPECT_FALSE(walks(line_.back));
}

TEST_F(TailsTest, AreForgottenAtTheEndOfTheirLife)
{
    {
        const Tails tails(&line_, sizeof line_);
        Tails::append(line_.out, stop(1));
        Tails::append(line_.out, stop(2));
    }
    EXPECT_TRUE(walks(line_.out));
    const Tails tails(&line_, sizeof line_);
    EXPECT_TRUE(walks(line_.out));
}

TEST_F(TailsTest, AreNotKeptForAnotherRecord)
{
    Line other[2]{};
    const Tails tails(&other[0], sizeof other[0]);
    for (Line *line : {&line_, &other[1]}) {
        Tails::append(line->out, stop(1));
        Tails::append(line->out, stop(2));
        EXPECT_TRUE(walks(line->out));
    }
}

TEST_F(TailsTest, AreNotKeptForAnotherThread)
{
    const Tails tails(&line_, sizeof line_);
    std::thread([this] {
        Tails::append(line_.out, stop(1));
        Tails::append(line_.out, stop(2));
        EXPECT_TRUE(walks(line_.out));
    }).join();
}

TEST_F(TailsTest, AreThoseOfTheInnermostLife)
{
    Line inner{};
    const Tails outer_tails(&line_, sizeof line_);
    Tails::append(line_.out, stop(1));
    Tails::append(line_.out, stop(2));
    {
        const Tails inner_tails(&inner, sizeof inner);
        Tails::append(inner.out, stop(3));
        Tails::append(inner.out, stop(4));
        EXPECT_FALSE(walks(inner.out));
    }
    EXPECT_FALSE(walks(line_.out));
}

TEST_F(TailsTest, FollowAChainThatOthersReplaceOrLengthen)
{
    const Tails tails(&line_, sizeof line_);
    Tails::append(line_.out, stop(1));
    Tails::append(line_.out, stop(2));

    line_.out->next->next = stop(3);
    Tails::append(line_.out, stop(4));
    EXPECT_THAT(numbers(line_.out), ElementsAre(1, 2, 3, 4));

    line_.out = nullptr;
    Tails::append(line_.out, stop(5));
    EXPECT_THAT(numbers(line_.out), ElementsAre(5));

    Stop *front = stop(6);
    front->next = line_.out;
    line_.out = front;
    Tails::append(line_.out, stop(7));
    EXPECT_THAT(numbers(line_.out), ElementsAre(6, 5, 7));
}

} // namespace

} // namespace kelmora_host::tails_test
