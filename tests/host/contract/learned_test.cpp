#include "host/contract/learned.h"

#include "host/contract/learn_input.h"
#include "kelmora_json.h"

#include <atomic>
#include <gmock/gmock.h>
#include <thread>

namespace kelmora_host::learned_test {

namespace {

using testing::Each;

const Resource &status = *find_resource("status");
std::atomic<int> calls = 0;
kelmora_to_translator real = nullptr;

int counting_to(kelmora_resource *head, char **out)
{
    ++calls;
    return real(head, out);
}

class LearnedContracts : public ::testing::Test {
protected:
    LearnedContracts()
    {
        Registry::instance().clear();
        kelmora_json_init();
        const Registration known = *Registry::instance().find(status.number);
        real = known.to;
        kelmora_set_translators(status.number, known.from, counting_to);
        calls = 0;
    }
    ~LearnedContracts() override { Registry::instance().clear(); }

    static const Contract &of(const Resource &resource)
    {
        return learned(resource, *Registry::instance().find(resource.number));
    }
};

TEST_F(LearnedContracts, AreLearnedOnceWhoeverAsks)
{
    (void)learn(status, *Registry::instance().find(status.number));
    const int calls_of_one = calls.exchange(0);
    ASSERT_GT(calls_of_one, 0);
    std::vector<std::thread> threads;
    threads.reserve(8);
    std::vector<const Contract *> got(8);
    for (const Contract *&each : got)
        threads.emplace_back([&each] { each = &of(status); });
    for (std::thread &thread : threads)
        thread.join();
    EXPECT_THAT(got, Each(&of(status)));
    EXPECT_EQ(calls, calls_of_one);
}

TEST_F(LearnedContracts, AreNotLearnedBeforeSomebodyAsks)
{
    EXPECT_EQ(of(*find_resource("qos")).resource->name, "qos");
    EXPECT_EQ(calls, 0);
}

TEST(AllLearnedContracts, AreThereByNumber)
{
    kelmora_json_init();
    const std::vector<Contract> all = learned_contracts();
    ASSERT_EQ(all.size(), resources().size());
    for (const Resource &resource : resources())
        EXPECT_EQ(all[static_cast<std::size_t>(resource.number)].resource, &resource);
}

TEST(LearnedInput, IsLearnedOnceForAllThreads)
{
    kelmora_json_init();
    const Resource &resource = *find_resource("wan");
    const Registration &translators = *Registry::instance().find(resource.number);
    std::vector<const Input *> each_learned(8);
    std::vector<std::thread> threads;
    threads.reserve(each_learned.size());
    for (const Input *&each : each_learned)
        threads.emplace_back([&] { each = &learned_input(resource, translators); });
    for (std::thread &thread : threads)
        thread.join();
    EXPECT_THAT(each_learned, Each(each_learned.front()));
    const auto paths = [](const Input &input) {
        std::vector<std::string> all;
        for (const InputKey &key : input.keys)
            all.push_back(key.path);
        return all;
    };
    EXPECT_EQ(paths(*each_learned.front()), paths(learn_input(resource, translators)));
}

} // namespace

} // namespace kelmora_host::learned_test
