#include "host/serve/contracts.h"

#include "kelmora_json.h"

#include <atomic>
#include <gtest/gtest.h>
#include <thread>

namespace kelmora_host {

namespace {

const Resource &status = *find_resource("status");
std::atomic<int> calls = 0;
kelmora_to_translator real = nullptr;

int counting_to(kelmora_resource *head, char **out)
{
    ++calls;
    return real(head, out);
}

class ContractsTest : public ::testing::Test {
protected:
    ContractsTest()
    {
        Registry::instance().clear();
        kelmora_json_init();
        const Registration known = *Registry::instance().find(status.number);
        real = known.to;
        kelmora_set_translators(status.number, known.from, counting_to);
        calls = 0;
    }
    ~ContractsTest() override { Registry::instance().clear(); }

    Contracts contracts;
};

TEST_F(ContractsTest, AreLearnedOnceWhoeverAsks)
{
    (void)learn(status, *Registry::instance().find(status.number));
    const int calls_of_one = calls.exchange(0);
    ASSERT_GT(calls_of_one, 0);
    std::vector<std::thread> threads;
    threads.reserve(8);
    std::atomic<int> same = 0;
    for (int i = 0; i < 8; ++i)
        threads.emplace_back([&] { same += &contracts.of(status) == &contracts.of(status) ? 1 : 0; });
    for (std::thread &thread : threads)
        thread.join();
    EXPECT_EQ(same, 8);
    EXPECT_EQ(calls, calls_of_one);
}

TEST_F(ContractsTest, AreNotLearnedBeforeSomebodyAsks)
{
    EXPECT_EQ(contracts.of(*find_resource("qos")).resource->name, "qos");
    EXPECT_EQ(calls, 0);
}

TEST_F(ContractsTest, AreThereForAllResourcesByNumber)
{
    const std::vector<Contract> &all = contracts.all();
    ASSERT_EQ(all.size(), resources().size());
    for (const Resource &resource : resources())
        EXPECT_EQ(all[static_cast<std::size_t>(resource.number)].resource, &resource);
}

} // namespace

} // namespace kelmora_host
