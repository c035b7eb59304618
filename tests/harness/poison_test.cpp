#include "harness/poison.h"

#include "kelmora_records.h"

#include <algorithm>
#include <cstring>
#include <gtest/gtest.h>
#include <string>

namespace kelmora_harness::poison_test {

namespace {

using kelmora_host::find_resource;
using kelmora_host::Node;
using kelmora_host::Record;
using kelmora_host::Resource;
using kelmora_host::resources;

bool ends_with_a_guard(Record &record)
{
    const auto *end = static_cast<const unsigned char *>(record.bytes()) + record.size();
    return std::all_of(end - guard_size, end, [](unsigned char byte) { return byte == guard_byte; });
}

TEST(BlankRecord, IsAllZerosAndOfTheResourcesSize)
{
    Record radio = blank_record(*find_resource("radio"));
    EXPECT_EQ(radio.size(), sizeof(Guarded<kelmora_radio>));
    const kelmora_radio zeros{};
    EXPECT_EQ(std::memcmp(radio.bytes(), &zeros, sizeof zeros), 0);
    EXPECT_EQ(radio.data(), radio.bytes());
}

TEST(BlankRecord, OfNothingButAChainIsNull)
{
    EXPECT_EQ(blank_record(*find_resource("qos_available_dscp")).data(), nullptr);
}

TEST(PoisonedRecord, IsFullOfPoisonButForItsEmptyChains)
{
    Record trace = poisoned_record(*find_resource("traceroute"));
    const auto &record = trace.as<kelmora_traceroute>();
    EXPECT_EQ(record.host[0], '\xA5');
    EXPECT_EQ(record.interfaceID[19], '\xA5');
    EXPECT_EQ(record.hop_list, nullptr);
}

TEST(BlankAndPoisonedRecords, AreThereForEveryResourceAndGuarded)
{
    for (const Resource &resource : resources()) {
        Record blank = blank_record(resource);
        Record poisoned = poisoned_record(resource);
        EXPECT_GT(blank.size(), guard_size) << resource.name;
        EXPECT_EQ(poisoned.size(), blank.size()) << resource.name;
        EXPECT_TRUE(ends_with_a_guard(blank)) << resource.name;
        EXPECT_TRUE(ends_with_a_guard(poisoned)) << resource.name;
    }
}

Record trace_of_one_hop()
{
    return Record(kelmora_traceroute{
        .host = "198.51.100.1",
        .hop_list = kelmora_host::make_chain<kelmora_traceroute_hop>({{.hop = 1, .next = nullptr}})});
}

TEST(GuardedCopy, HasTheRecordsBytesAndItsOwnChains)
{
    Record original = trace_of_one_hop();
    Record copy = guarded_copy(*find_resource("traceroute"), original);
    EXPECT_TRUE(ends_with_a_guard(copy));
    EXPECT_STREQ(copy.as<kelmora_traceroute>().host, "198.51.100.1");
    const kelmora_traceroute_hop *hop = copy.as<kelmora_traceroute>().hop_list;
    ASSERT_NE(hop, nullptr);
    EXPECT_NE(hop, original.as<kelmora_traceroute>().hop_list);
    EXPECT_EQ(hop->hop, 1);
    EXPECT_EQ(hop->next, nullptr);
}

TEST(ImageOfARecord, IsTheSameForCopiesAndAnotherForEachByteThatHangsOnIt)
{
    const Resource &resource = *find_resource("traceroute");
    Record original = trace_of_one_hop();
    Record copy = guarded_copy(resource, original);
    EXPECT_EQ(image_of(resource, copy), image_of(resource, original));
    copy.as<kelmora_traceroute>().hop_list->hop = 2;
    EXPECT_NE(image_of(resource, copy), image_of(resource, original));
}

TEST(ImageOfARecord, TellsNoChainFromOneOfNothing)
{
    const Resource &resource = *find_resource("http_request");
    Record none{kelmora_http_request{}};
    Record empty{kelmora_http_request{.body = kelmora_host::make_text("")}};
    EXPECT_NE(image_of(resource, none), image_of(resource, empty));
}

TEST(Fill, OverwritesEverythingButPointers)
{
    const Resource &resource = *find_resource("traceroute");
    Node node("0", trace_of_one_hop());
    const kelmora_traceroute_hop *hop = node.record().as<kelmora_traceroute>().hop_list;
    fill(resource, node, "abc", 1);
    const auto &record = node.record().as<kelmora_traceroute>();
    EXPECT_EQ(node.resource()->id[0], 'b');
    EXPECT_EQ(record.hop_list, hop);
    EXPECT_EQ(hop->next, nullptr);
    EXPECT_EQ(*reinterpret_cast<const char *>(&record), 'b');
    EXPECT_EQ(*reinterpret_cast<const char *>(hop), 'b');
}

} // namespace

} // namespace kelmora_harness::poison_test
