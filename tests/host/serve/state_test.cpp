#include "host/serve/state.h"

#include "kelmora_records.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <thread>

namespace kelmora_host::state_test {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

const Resource &qos = *find_resource("qos");
const Resource &radio = *find_resource("radio");

Node record(std::string_view id, std::int32_t upload) { return {id, Record(kelmora_qos{.global_upload = upload})}; }

Gateway two_records()
{
    Gateway gateway;
    gateway.nodes("qos").push_back(record("a", 1));
    gateway.nodes("qos").push_back(record("b", 2));
    return gateway;
}

std::int32_t upload(const Node &node) { return node.record().as<kelmora_qos>().global_upload; }

class StateTest : public ::testing::Test {
protected:
    State state{two_records()};
};

TEST_F(StateTest, BeginsWithTheRecordsInTheirOrder)
{
    EXPECT_THAT(state.ids(qos), ElementsAre("a", "b"));
    EXPECT_EQ(state.count(qos), 2U);
    EXPECT_EQ(upload(state.find(qos, "b")->node), 2);
    EXPECT_EQ(upload(state.records(qos).nodes[0]), 1);
    EXPECT_FALSE(state.find(qos, "c"));
    EXPECT_THAT(state.ids(radio), IsEmpty());
}

TEST_F(StateTest, HandsOutCopies)
{
    state.find(qos, "a")->node.record().as<kelmora_qos>().global_upload = 9;
    state.records(qos).nodes[0].record().as<kelmora_qos>().global_upload = 9;
    EXPECT_EQ(upload(state.find(qos, "a")->node), 1);
}

TEST_F(StateTest, GivesARecordAnotherVersionWithEachChange)
{
    const std::uint64_t a = state.find(qos, "a")->version;
    const std::uint64_t b = state.find(qos, "b")->version;
    const std::uint64_t all = state.records(qos).version;
    const std::uint64_t changed = State::Writer(state, qos).replace(record("a", 7));
    EXPECT_NE(changed, a);
    EXPECT_EQ(state.find(qos, "a")->version, changed);
    EXPECT_EQ(upload(state.find(qos, "a")->node), 7);
    EXPECT_EQ(state.find(qos, "b")->version, b);
    EXPECT_NE(state.records(qos).version, all);
}

TEST_F(StateTest, AddsBehindTheOthersAndRemoves)
{
    State::Writer writer(state, qos);
    const std::uint64_t added = writer.add(record("c", 3));
    EXPECT_EQ(state.find(qos, "c")->version, added);
    EXPECT_EQ(state.records(qos).version, added);
    EXPECT_THAT(state.ids(qos), ElementsAre("a", "b", "c"));
    writer.remove("a");
    EXPECT_THAT(state.ids(qos), ElementsAre("b", "c"));
    EXPECT_GT(state.records(qos).version, added);
}

TEST_F(StateTest, HasNoVersionTwiceThoughARecordComesBack)
{
    const std::uint64_t before = state.find(qos, "a")->version;
    {
        State::Writer writer(state, qos);
        writer.remove("a");
        EXPECT_NE(writer.add(record("a", 1)), before);
    }
    state.reset();
    EXPECT_NE(state.find(qos, "a")->version, before);
}

TEST_F(StateTest, ComesBackToItsBeginning)
{
    {
        State::Writer writer(state, qos);
        writer.replace(record("a", 7));
        writer.remove("b");
        writer.add(record("c", 3));
        State::Writer(state, radio).add(Node("r", Record(kelmora_radio{})));
    }
    state.reset();
    EXPECT_THAT(state.ids(qos), ElementsAre("a", "b"));
    EXPECT_EQ(upload(state.find(qos, "a")->node), 1);
    EXPECT_THAT(state.ids(radio), IsEmpty());
}

TEST_F(StateTest, LetsOneWriterAtATimeReadAndChangeWithoutLosingAnything)
{
    std::vector<std::thread> threads;
    threads.reserve(4);
    for (int thread = 0; thread < 4; ++thread) {
        threads.emplace_back([this] {
            for (int i = 0; i < 100; ++i) {
                State::Writer writer(state, qos);
                writer.replace(record("a", upload(writer.find("a")->node) + 1));
            }
        });
    }
    for (int i = 0; i < 100; ++i)
        EXPECT_EQ(state.records(qos).nodes.size(), 2U); // meanwhile
    for (std::thread &thread : threads)
        thread.join();
    EXPECT_EQ(upload(state.find(qos, "a")->node), 401);
}

} // namespace

} // namespace kelmora_host::state_test
