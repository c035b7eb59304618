#include "tests/support/to_test.h"

#include "kelmora_json.h"
#include "records/routing.h"

namespace kelmora_test::global_routing_test {

namespace {

using testing::AllOf;
using testing::HasSubstr;
using testing::Not;

constexpr kelmora_global_routing sample{
    .route = {.destination = "0.0.0.0",
              .net_mask = "0.0.0.0/zürich",
              .next_hop = "203.0.113.1",
              .metric = 100,
              .interfaceID = "wan0"},
};

constexpr char sample_text[] = "{\n"
                               "                \"id\": \"0\",\n"
                               "                \"route\": {\n"
                               "                                \"destination\": \"0.0.0.0\",\n"
                               "                                \"interfaceID\": \"wan0\",\n"
                               "                                \"metric\": 100,\n"
                               "                                \"net_mask\": \"0.0.0.0\\/z\\u00FCrich\",\n"
                               "                                \"next_hop\": \"203.0.113.1\"\n"
                               "                }\n"
                               "}";

constexpr char two_routes_text[] =
    "[\n"
    "                {\n"
    "                                \"id\": \"0\",\n"
    "                                \"route\": {\n"
    "                                                \"destination\": \"0.0.0.0\",\n"
    "                                                \"interfaceID\": \"wan0\",\n"
    "                                                \"metric\": 100,\n"
    "                                                \"net_mask\": \"0.0.0.0\\/z\\u00FCrich\",\n"
    "                                                \"next_hop\": \"203.0.113.1\"\n"
    "                                }\n"
    "                },\n"
    "                {\n"
    "                                \"id\": \"1\",\n"
    "                                \"route\": {\n"
    "                                                \"destination\": \"\",\n"
    "                                                \"interfaceID\": \"\",\n"
    "                                                \"metric\": 0,\n"
    "                                                \"net_mask\": \"\",\n"
    "                                                \"next_hop\": \"\"\n"
    "                                }\n"
    "                }\n"
    "]";

class GlobalRoutingTo : public ToTest<kelmora_global_routing> {
protected:
    GlobalRoutingTo() : ToTest(global_routing_to_translator) {}
};

TEST_F(GlobalRoutingTo, WritesSortedKeysIndentedAndEscaped)
{
    add("0", sample);
    EXPECT_EQ(object(), sample_text);
}

TEST_F(GlobalRoutingTo, WritesAListOfRoutes)
{
    add("0", sample);
    add("1");
    EXPECT_EQ(list(), two_routes_text);
}

TEST_F(GlobalRoutingTo, WritesTheMetricAsUnsigned)
{
    add("0").route.metric = 65535;
    EXPECT_THAT(object(), HasSubstr("\"metric\": 65535,"));
}

TEST_F(GlobalRoutingTo, CutsTextsToOneByteLessThanTheirField)
{
    kelmora_global_routing &routing = add("");
    fill_whole(routing.route.destination, 'd');
    fill_whole(routing.route.net_mask, 'm');
    fill_whole(routing.route.next_hop, 'h');
    fill_whole(routing.route.interfaceID, 'i');
    fill_whole(nodes_.front().resource()->id, 'n');
    EXPECT_THAT(object(), AllOf(HasSubstr("\"destination\": \"" + std::string(16, 'd') + '"'),
                                HasSubstr("\"net_mask\": \"" + std::string(16, 'm') + '"'),
                                HasSubstr("\"next_hop\": \"" + std::string(16, 'h') + '"'),
                                HasSubstr("\"interfaceID\": \"" + std::string(19, 'i') + '"'),
                                HasSubstr("\"id\": \"" + std::string(128, 'n') + '"')));
}

TEST_F(GlobalRoutingTo, LeavesOutATextWhoseCutSplitsACharacter)
{
    kelmora_global_routing &routing = add("0", sample);
    fill_whole(routing.route.next_hop, 'h');
    routing.route.next_hop[15] = '\xC3'; // the first byte of a two-byte character: the last that is written
    routing.route.next_hop[16] = '\xA4';
    EXPECT_THAT(object(), AllOf(HasSubstr("\"net_mask\""), Not(HasSubstr("\"next_hop\"")), HasSubstr("\"metric\"")));
}

} // namespace

} // namespace kelmora_test::global_routing_test
