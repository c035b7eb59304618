#include "tests/support/to_test.h"

#include "kelmora_json.h"
#include "records/ipv6.h"

namespace kelmora_test::ipv6_static_route_list_test {

namespace {

using Entry = kelmora_ipv6_static_route_list_entry;

/// A new record each time, as each node owns its chain.
kelmora_ipv6_static_route_list sample()
{
    return {kelmora_host::make_chain<Entry>({
        {.destination = "::/0",
         .next_hop = "fe80::1",
         .flags = "UG",
         .metric = 1024,
         .ref = 4,
         .use = 9,
         .interfaceID = "ppp0"},
        {.destination = "2001:db8:4c:1700::/64",
         .next_hop = "::",
         .flags = "U",
         .metric = 256,
         .ref = 2,
         .use = 118,
         .interfaceID = "br0"},
    })};
}

constexpr char sample_text[] =
    R"({"id": "0", "ipv6_static_route_list": [)"
    R"({"destination": "::/0", "next_hop": "fe80::1", "flags": "UG", "metric": 1024, "ref": 4, "use": 9, )"
    R"("interfaceID": "ppp0"}, )"
    R"({"destination": "2001:db8:4c:1700::/64", "next_hop": "::", "flags": "U", "metric": 256, "ref": 2, "use": 118, )"
    R"("interfaceID": "br0"}]})";

constexpr char empty_text[] = R"({"id": "1", "ipv6_static_route_list": []})";

class Ipv6StaticRouteListTo : public ToTest<kelmora_ipv6_static_route_list> {
protected:
    Ipv6StaticRouteListTo() : ToTest(ipv6_static_route_list_to_translator) {}

    /// A node whose chain has this entry alone; returns the entry.
    Entry &add_route(std::string_view id, const Entry &route)
    {
        return *add(id, {kelmora_host::make_chain<Entry>({route})}).ipv6_static_route_list;
    }
};

TEST_F(Ipv6StaticRouteListTo, WritesTheChainAndTheKeysInOrder)
{
    add("0", sample());
    EXPECT_EQ(object(), sample_text);
    EXPECT_EQ(list(), "[" + std::string(sample_text) + "]");
}

TEST_F(Ipv6StaticRouteListTo, WritesAnEmptyTableAsAnEmptyArray)
{
    add("1");
    EXPECT_EQ(object(), empty_text);
    EXPECT_EQ(list(), "[" + std::string(empty_text) + "]");
}

TEST_F(Ipv6StaticRouteListTo, WritesIntegersAsUnsigned)
{
    add_route("0", {.metric = 4294967295, .ref = 65535, .use = 65534});
    EXPECT_EQ(object(), R"({"id": "0", "ipv6_static_route_list": [{"destination": "", "next_hop": "", "flags": "", )"
                        R"("metric": 4294967295, "ref": 65535, "use": 65534, "interfaceID": ""}]})");
}

TEST_F(Ipv6StaticRouteListTo, CutsTextsToOneByteLessThanTheirField)
{
    Entry &route = add_route("0", {});
    fill_whole(route.destination, 'd');
    fill_whole(route.next_hop, 'h');
    fill_whole(route.flags, 'f');
    fill_whole(route.interfaceID, 'i');
    fill_whole(nodes_.front().resource()->id, 'n');
    EXPECT_EQ(object(), R"({"id": ")" + std::string(128, 'n') + R"(", "ipv6_static_route_list": [{"destination": ")" +
                            std::string(45, 'd') + R"(", "next_hop": ")" + std::string(45, 'h') +
                            R"(", "flags": "fffffffff", "metric": 0, "ref": 0, "use": 0, )" +
                            R"("interfaceID": "iiiiiiiiiiiiiiiiiii"}]})");
}

TEST_F(Ipv6StaticRouteListTo, KeepsTheRouteWhoseTextsCannotBeWritten)
{
    Entry &route = add_route("0", {.destination = "caf\xE9", .next_hop = "\xFF", .flags = "", .interfaceID = "\x80"});
    fill_whole(route.flags, 'f');
    route.flags[8] = '\xC3'; // the last byte that is written
    route.flags[9] = '\xA4';
    EXPECT_EQ(object(), R"({"id": "0", "ipv6_static_route_list": [{"metric": 0, "ref": 0, "use": 0}]})");
}

TEST_F(Ipv6StaticRouteListTo, WritesOtherScriptsAndSlashesAsTheyAre)
{
    add_route("0", {.flags = "ä/\"北"});
    EXPECT_THAT(object(), testing::HasSubstr("\"flags\": \"ä/\\\"北\""));
}

TEST_F(Ipv6StaticRouteListTo, WritesALongTableIntoALargerBuffer)
{
    kelmora_ipv6_static_route_list &routes = add("1");
    for (std::uint16_t ref = 64; ref > 0; --ref) {
        auto *entry = kelmora_host::make_chain<Entry>({{.destination = "2001:db8::/32", .ref = ref}});
        entry->next = routes.ipv6_static_route_list;
        routes.ipv6_static_route_list = entry;
    }
    std::string expected = R"({"id": "1", "ipv6_static_route_list": [)";
    for (int ref = 1; ref <= 64; ++ref)
        expected += R"({"destination": "2001:db8::/32", "next_hop": "", "flags": "", "metric": 0, "ref": )" +
                    std::to_string(ref) + R"(, "use": 0, "interfaceID": ""})" + (ref < 64 ? ", " : "]}");
    EXPECT_EQ(object(), expected);
    EXPECT_EQ(reallocations_, 1U);
}

} // namespace

} // namespace kelmora_test::ipv6_static_route_list_test
