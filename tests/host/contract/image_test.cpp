#include "host/contract/image.h"

#include "kelmora_records.h"

#include <cstring>
#include <gtest/gtest.h>
#include <vector>

namespace kelmora_host::image_test {

namespace {

Record server_with_leases()
{
    return Record(
        kelmora_dhcp_server{.enabled = 1,
                            .leases = make_chain<kelmora_dhcp_server_lease>(
                                {{.mac = "a", .ip = "1", .next = nullptr}, {.mac = "b", .ip = "2", .next = nullptr}})});
}

std::vector<std::string> paths(const Image &image)
{
    std::vector<std::string> paths;
    for (const Image::Block &block : image.blocks())
        paths.push_back(image.path(block));
    return paths;
}

TEST(Image, HasTheRecordAndTheNodesThatHangOnIt)
{
    Record server = server_with_leases();
    const Image image(server, *record_type("dhcp_server"));
    EXPECT_EQ(paths(image), (std::vector<std::string>{"", "leases[0]", "leases[1]"}));
    EXPECT_EQ(image.bytes().size(), sizeof(kelmora_dhcp_server) + 2 * sizeof(kelmora_dhcp_server_lease));
    EXPECT_EQ(image.bytes()[0], 1);
}

TEST(Image, NamesNodesOfNodesAndStrings)
{
    Record mesh(kelmora_easymesh{.neighbors = make_chain<kelmora_easymesh_neighbor>(
                                     {{.neighbors = make_chain<kelmora_easymesh_neighbor>({{.rssi = 1}})}})});
    EXPECT_EQ(paths(Image(mesh, *record_type("easymesh"))),
              (std::vector<std::string>{"", "neighbors[0]", "neighbors[0].neighbors[0]"}));
    Record request(kelmora_http_request{.body = make_text("{}")});
    EXPECT_EQ(paths(Image(request, *record_type("http_request"))), (std::vector<std::string>{"", "body"}));
}

TEST(Image, OfTwoRecordsThatHoldTheSameIsTheSameWhereverTheyAre)
{
    Record one = server_with_leases();
    Record two = server_with_leases();
    const Image first(one, *record_type("dhcp_server"));
    const Image second(two, *record_type("dhcp_server"));
    EXPECT_TRUE(first.same_shape(second));
    EXPECT_EQ(first.bytes(), second.bytes());
}

TEST(Image, HasAnotherShapeWithAnotherNumberOfNodes)
{
    Record one = server_with_leases();
    Record two(kelmora_dhcp_server{});
    EXPECT_FALSE(Image(one, *record_type("dhcp_server")).same_shape(Image(two, *record_type("dhcp_server"))));
}

TEST(Image, KnowsTheBlockOfEachByte)
{
    Record server = server_with_leases();
    const Image image(server, *record_type("dhcp_server"));
    EXPECT_EQ(image.path(image.block_at(0)), "");
    EXPECT_EQ(image.path(image.block_at(sizeof(kelmora_dhcp_server) - 1)), "");
    EXPECT_EQ(image.path(image.block_at(sizeof(kelmora_dhcp_server))), "leases[0]");
    EXPECT_EQ(image.path(image.block_at(image.bytes().size() - 1)), "leases[1]");
}

} // namespace

} // namespace kelmora_host::image_test
