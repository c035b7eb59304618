// The plug-in that writes text directly beside the one that is shipped: the same bytes, whatever the records hold.

#include "harness/mutate.h"
#include "harness/poison.h"
#include "harness/two_plugins.h"
#include "host/gateway/blank.h"
#include "host/gateway/gateway.h"
#include "host/gateway/resources.h"
#include "tests/robustness/resources.h"

#include "records/diagnostics.h"
#include "records/qos.h"
#include "records/wireless.h"

#include <gtest/gtest.h>
#include <string>
#include <string_view>
#include <vector>

namespace kelmora_test::same_texts_test {

namespace {

using kelmora_harness::below;
using kelmora_harness::Random;
using kelmora_host::Node;
using kelmora_host::Resource;
using Nodes = std::vector<Node>;

#ifdef __mips__
constexpr int rounds = 20;
#else
constexpr int rounds = 100;
#endif

const kelmora_harness::TwoPlugins &plugins()
{
    static const kelmora_harness::TwoPlugins both(KELMORA_SHIPPED_PLUGIN, KELMORA_DIRECT_PLUGIN);
    return both;
}

/// For each kind of request.
void expect_same(const Resource &resource, Nodes &nodes)
{
    for (const bool as_list : {true, false}) {
        for (const std::size_t count : {nodes.size(), std::size_t{0}, std::size_t{1}, nodes.size() + 1})
            EXPECT_EQ(plugins().difference(resource, nodes, as_list, static_cast<std::uint32_t>(count)), std::nullopt)
                << "as " << (as_list ? "a list" : "an object") << " of " << count;
    }
}

/// Up to this many nodes: of the sample gateway, which have chains, and empty ones.
Nodes some_nodes(const Resource &resource, std::size_t most, Random &random)
{
    static kelmora_host::Gateway gateway = kelmora_host::sample_gateway();
    const Nodes &samples = gateway.nodes(resource.name);
    Nodes nodes;
    for (std::size_t left = 1 + below(most, random); left != 0; --left) {
        if (samples.empty() || below(8, random) == 0)
            nodes.emplace_back("poisoned", kelmora_harness::poisoned_record(resource));
        else
            nodes.push_back(samples[below(samples.size(), random)]);
    }
    return nodes;
}

/// Bytes that strings are made of: any, those that escapes are about, or pieces of characters of several bytes.
std::string random_bytes(Random &random)
{
    static constexpr std::string_view pieces[] = {"\"",
                                                  "\\",
                                                  "/",
                                                  "\b\f\n\r\t",
                                                  "\x01",
                                                  "\x1F",
                                                  " ",
                                                  "~",
                                                  "\x7F",
                                                  std::string_view("\0", 1),
                                                  "\xC2\x80",
                                                  "\xDF\xBF",
                                                  "\xE0\xA0\x80",
                                                  "\xED\x9F\xBF",
                                                  "\xEE\x80\x80",
                                                  "\xEF\xBF\xBF",
                                                  "\xF0\x90\x80\x80",
                                                  "\xF4\x8F\xBF\xBF",
                                                  "\xC0\x80",
                                                  "\xC1\xBF",
                                                  "\xE0\x9F\xBF",
                                                  "\xED\xA0\x80",
                                                  "\xED\xBF\xBF",
                                                  "\xF0\x8F\xBF\xBF",
                                                  "\xF4\x90\x80\x80",
                                                  "\xF5\x80\x80\x80",
                                                  "\x80",
                                                  "\xE4",
                                                  "plain ASCII",
                                                  "a"};
    const std::size_t kind = below(3, random);
    std::string bytes;
    for (std::size_t left = 1 + below(120, random); left != 0; --left) {
        if (kind == 0)
            bytes += static_cast<char>(below(256, random));
        else if (kind == 1)
            bytes += static_cast<char>(0x20 + below(0x5F, random));
        else
            bytes += pieces[below(std::size(pieces), random)];
        if (below(16, random) == 0)
            bytes += '\0';
    }
    return bytes;
}

class SameTexts : public testing::TestWithParam<Resource> {};

TEST_P(SameTexts, OfSamples)
{
    Random random(1);
    for (const std::size_t most : {1U, 2U, 8U, 64U}) {
        Nodes nodes = some_nodes(GetParam(), most, random);
        expect_same(GetParam(), nodes);
    }
}

TEST_P(SameTexts, OfRandomRecords)
{
    Random random(static_cast<Random::result_type>(GetParam().number) + 1);
    for (int round = 0; round < rounds; ++round) {
        Nodes nodes = some_nodes(GetParam(), 12, random);
        for (Node &node : nodes) {
            if (below(4, random) != 0)
                kelmora_harness::fill(GetParam(), node, random_bytes(random), below(64, random));
        }
        expect_same(GetParam(), nodes);
    }
}

std::vector<Resource> written_resources()
{
    std::vector<Resource> written;
    for (const Resource &resource : kelmora_host::resources()) {
        if (resource.directions != kelmora_host::Directions::from_only && !is_raw(resource))
            written.push_back(resource);
    }
    return written;
}

INSTANTIATE_TEST_SUITE_P(Every, SameTexts, testing::ValuesIn(written_resources()),
                         [](const auto &tested) { return std::string(tested.param.name); });

/// Each string alone in a record, plain and pretty, of every length about the smallest buffer.
TEST(SameTextsOfAnyLength, AboutTheSmallestBuffer)
{
    const Resource &plain = *kelmora_host::find_resource("http_request");
    const Resource &pretty = *kelmora_host::find_resource("qos_available_dscp");
    for (const std::string_view piece : {"b", "\"", "/", "\x01", "\xC3\xA4", "\xF0\x9D\x84\x9E"}) {
        std::string text;
        for (std::size_t length = 1; length < 4200; length += length < 600 || length > 3900 ? 1 : 64) {
            while (text.size() < length)
                text += piece;
            for (const char *end : {"", "\xFF"}) { // which leaves the key out
                Nodes nodes;
                nodes.emplace_back("0", kelmora_host::Record(kelmora_http_request{
                                            .dest = "192.0.2.1", .body = kelmora_host::make_text(text + end)}));
                EXPECT_EQ(plugins().difference(plain, nodes, true, 1), std::nullopt) << length;
                nodes.clear();
                nodes.emplace_back(
                    "0", kelmora_host::Record(kelmora_host::ChainRecord<kelmora_qos_available_dscp>{
                             kelmora_host::make_chain<kelmora_qos_available_dscp>(
                                 {{.id = 1, .dscp = kelmora_host::make_text(text + end), .next = nullptr}})}));
                EXPECT_EQ(plugins().difference(pretty, nodes, true, 1), std::nullopt) << length;
            }
        }
    }
}

/// Deeper than there are levels whose members are remembered.
TEST(SameTextsOfAnyDepth, OfMeshNeighbours)
{
    const Resource &resource = *kelmora_host::find_resource("easymesh");
    for (int levels = 0; levels < 40; ++levels) {
        kelmora_easymesh mesh{};
        for (int level = 0; level < levels; ++level) {
            kelmora_easymesh_neighbor neighbor{};
            neighbor.neighbors = mesh.neighbors;
            mesh.neighbors = kelmora_host::make_chain<kelmora_easymesh_neighbor>({neighbor});
        }
        Nodes nodes;
        nodes.emplace_back("0", kelmora_host::Record(mesh));
        expect_same(resource, nodes);
    }
}

} // namespace

} // namespace kelmora_test::same_texts_test
