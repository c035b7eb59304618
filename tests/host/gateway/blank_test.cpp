#include "host/gateway/blank.h"

#include "kelmora_records.h"

#include <cstring>
#include <gtest/gtest.h>

namespace kelmora_host::blank_test {

namespace {

TEST(BlankRecord, IsAllZerosAndOfTheResourcesSize)
{
    Record radio = blank_record(*find_resource("radio"));
    EXPECT_EQ(radio.size(), sizeof(kelmora_radio));
    const kelmora_radio zeros{};
    EXPECT_EQ(std::memcmp(radio.bytes(), &zeros, sizeof zeros), 0);
}

TEST(BlankRecord, OfNothingButAChainIsNull)
{
    EXPECT_EQ(blank_record(*find_resource("qos_available_dscp")).data(), nullptr);
}

TEST(StaleRecord, IsFullOfStaleBytesButForItsEmptyChains)
{
    Record trace = poisoned_record(*find_resource("traceroute"));
    const auto &record = trace.as<kelmora_traceroute>();
    EXPECT_EQ(record.host[0], '\xA5');
    EXPECT_EQ(record.interfaceID[19], '\xA5');
    EXPECT_EQ(record.hop_list, nullptr);
}

TEST(BlankAndStaleRecords, AreThereForEveryResource)
{
    for (const Resource &resource : resources()) {
        EXPECT_GT(blank_record(resource).size(), 0U) << resource.name;
        EXPECT_EQ(poisoned_record(resource).size(), blank_record(resource).size()) << resource.name;
    }
}

} // namespace

} // namespace kelmora_host::blank_test
