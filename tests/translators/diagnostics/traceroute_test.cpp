#include "tests/support/from_test.h"
#include "tests/support/to_test.h"

#include "kelmora_json.h"
#include "records/diagnostics.h"

#include <limits>

namespace kelmora_test::traceroute_test {

namespace {

using testing::AllOf;
using testing::HasSubstr;
using testing::Not;

using Hop = kelmora_traceroute_hop;

constexpr kelmora_traceroute without_hops{
    .host = "bücher.example/a",
    .ip = "192.0.2.80",
    .hops_limit = 30,
    .deadline_seconds = 60,
    .ip6 = 1,
    .packet_len = 40,
    .first_ttl = 2,
    .interfaceID = "ppp0",
    .hop_list = nullptr,
};

constexpr Hop first_hop{
    .hop = 2,
    .domain = "zürich/1.provider.example",
    .ip = "198.51.100.1",
    .rtt_1 = 8.5,
    .probe_1_output = 11,
    .rtt_2 = 8.25,
    .probe_2_output = 12,
    .rtt_3 = 9.125,
    .probe_3_output = 13,
};

/// A new record each time, as each node owns its chain.
kelmora_traceroute sample()
{
    kelmora_traceroute trace = without_hops;
    trace.hop_list = kelmora_host::make_chain<Hop>({first_hop, {.hop = 3}});
    return trace;
}

constexpr char sample_text[] = R"({
                "deadline_seconds": 60,
                "first_ttl": 2,
                "hop_list": [
                                {
                                                "domain": "z\u00FCrich\/1.provider.example",
                                                "hop": 2,
                                                "ip": "198.51.100.1",
                                                "probe_1_output": 11,
                                                "probe_2_output": 12,
                                                "probe_3_output": 13,
                                                "rtt_1": 8.5,
                                                "rtt_2": 8.25,
                                                "rtt_3": 9.125
                                },
                                {
                                                "domain": "",
                                                "hop": 3,
                                                "ip": "",
                                                "probe_1_output": 0,
                                                "probe_2_output": 0,
                                                "probe_3_output": 0,
                                                "rtt_1": 0.0,
                                                "rtt_2": 0.0,
                                                "rtt_3": 0.0
                                }
                ],
                "hops_limit": 30,
                "host": "b\u00FCcher.example\/a",
                "interfaceID": "ppp0",
                "ip": "192.0.2.80",
                "ip6": true,
                "packet_len": 40
})";

constexpr char empty_text[] = R"({
                "deadline_seconds": 0,
                "first_ttl": 0,
                "hop_list": [],
                "hops_limit": 0,
                "host": "",
                "interfaceID": "",
                "ip": "",
                "ip6": false,
                "packet_len": 0
})";

constexpr char both_text[] = R"([
                {
                                "deadline_seconds": 60,
                                "first_ttl": 2,
                                "hop_list": [
                                                {
                                                                "domain": "z\u00FCrich\/1.provider.example",
                                                                "hop": 2,
                                                                "ip": "198.51.100.1",
                                                                "probe_1_output": 11,
                                                                "probe_2_output": 12,
                                                                "probe_3_output": 13,
                                                                "rtt_1": 8.5,
                                                                "rtt_2": 8.25,
                                                                "rtt_3": 9.125
                                                },
                                                {
                                                                "domain": "",
                                                                "hop": 3,
                                                                "ip": "",
                                                                "probe_1_output": 0,
                                                                "probe_2_output": 0,
                                                                "probe_3_output": 0,
                                                                "rtt_1": 0.0,
                                                                "rtt_2": 0.0,
                                                                "rtt_3": 0.0
                                                }
                                ],
                                "hops_limit": 30,
                                "host": "b\u00FCcher.example\/a",
                                "interfaceID": "ppp0",
                                "ip": "192.0.2.80",
                                "ip6": true,
                                "packet_len": 40
                },
                {
                                "deadline_seconds": 0,
                                "first_ttl": 0,
                                "hop_list": [],
                                "hops_limit": 0,
                                "host": "",
                                "interfaceID": "",
                                "ip": "",
                                "ip6": false,
                                "packet_len": 0
                }
])";

class TracerouteTo : public ToTest<kelmora_traceroute> {
protected:
    TracerouteTo() : ToTest(traceroute_to_translator) {}

    /// A node whose chain has this hop alone; returns the hop.
    Hop &add_hop(const Hop &hop)
    {
        kelmora_traceroute trace = without_hops;
        trace.hop_list = kelmora_host::make_chain<Hop>({hop});
        return *add("0", trace).hop_list;
    }
};

TEST_F(TracerouteTo, WritesSortedKeysIndentedAndEscaped)
{
    add("0", sample());
    EXPECT_EQ(object(), sample_text);
    add("1");
    EXPECT_EQ(list(), both_text);
}

TEST_F(TracerouteTo, WritesNoHopsAsAnEmptyArray)
{
    add("0");
    EXPECT_EQ(object(), empty_text);
}

TEST_F(TracerouteTo, WritesLimitsAsSigned)
{
    add("0", {.hops_limit = -1, .deadline_seconds = -2147483648, .packet_len = -3, .first_ttl = 2147483647});
    EXPECT_THAT(object(), AllOf(HasSubstr("\"hops_limit\": -1,"), HasSubstr("\"deadline_seconds\": -2147483648,"),
                                HasSubstr("\"packet_len\": -3\n"), HasSubstr("\"first_ttl\": 2147483647,")));
}

TEST_F(TracerouteTo, WritesTheHopAsSignedAndTheOutcomesAsUnsigned)
{
    add_hop({.hop = -2, .probe_1_output = 4294967293, .probe_2_output = 4294967294, .probe_3_output = 4294967295});
    EXPECT_THAT(object(),
                AllOf(HasSubstr("\"hop\": -2,"), HasSubstr("\"probe_1_output\": 4294967293,"),
                      HasSubstr("\"probe_2_output\": 4294967294,"), HasSubstr("\"probe_3_output\": 4294967295,")));
}

TEST_F(TracerouteTo, WritesTimesAsReals)
{
    add_hop({.rtt_1 = 144.4, .rtt_2 = -0.5, .rtt_3 = 1200});
    EXPECT_THAT(object(), AllOf(HasSubstr("\"rtt_1\": 144.40000000000001,"), HasSubstr("\"rtt_2\": -0.5,"),
                                HasSubstr("\"rtt_3\": 1200.0\n")));
}

TEST_F(TracerouteTo, LeavesOutAnyTimeThatIsNotFinite)
{
    constexpr double infinity = std::numeric_limits<double>::infinity();
    constexpr double nan = std::numeric_limits<double>::quiet_NaN();
    for (const double time : {infinity, -infinity, nan}) {
        nodes_.clear();
        add_hop(first_hop).rtt_1 = time;
        EXPECT_THAT(object(), AllOf(Not(HasSubstr("rtt_1")), HasSubstr("\"rtt_2\": 8.25,"),
                                    HasSubstr("\"rtt_3\": 9.125\n"), HasSubstr("\"probe_1_output\": 11,")));
        nodes_.clear();
        add_hop(first_hop).rtt_2 = time;
        EXPECT_THAT(object(), AllOf(Not(HasSubstr("rtt_2")), HasSubstr("\"rtt_1\": 8.5,"),
                                    HasSubstr("\"rtt_3\": 9.125\n"), HasSubstr("\"probe_2_output\": 12,")));
        nodes_.clear();
        add_hop(first_hop).rtt_3 = time;
        EXPECT_THAT(object(), AllOf(Not(HasSubstr("rtt_3")), HasSubstr("\"rtt_1\": 8.5,"),
                                    HasSubstr("\"rtt_2\": 8.25\n"), HasSubstr("\"probe_3_output\": 13,")));
    }
}

TEST_F(TracerouteTo, WritesAnySwitchButZeroAsTrue) { expect_switches({{"ip6", &kelmora_traceroute::ip6}}); }

TEST_F(TracerouteTo, CutsTextsToOneByteLessThanTheirField)
{
    kelmora_traceroute &trace = add("0", sample());
    fill_whole(trace.host, 'h');
    fill_whole(trace.ip, 'p');
    fill_whole(trace.interfaceID, 'i');
    fill_whole(trace.hop_list->domain, 'd');
    fill_whole(trace.hop_list->ip, 'q');
    EXPECT_THAT(object(), AllOf(HasSubstr("\"host\": \"" + std::string(255, 'h') + '"'),
                                HasSubstr("\"ip\": \"" + std::string(46, 'p') + '"'),
                                HasSubstr("\"interfaceID\": \"" + std::string(19, 'i') + '"'),
                                HasSubstr("\"domain\": \"" + std::string(255, 'd') + '"'),
                                HasSubstr("\"ip\": \"" + std::string(46, 'q') + '"')));
}

TEST_F(TracerouteTo, KeepsTheHopWhoseTextsCannotBeWritten)
{
    Hop &hop = add_hop({.hop = 4, .ip = "caf\xE9"});
    fill_whole(hop.domain, 'd');
    hop.domain[254] = '\xC3'; // the last byte that is written
    hop.domain[255] = '\xBC';
    EXPECT_THAT(object(), AllOf(Not(HasSubstr("domain")), HasSubstr("\"hop\": 4,\n"
                                                                    "                                                "
                                                                    "\"probe_1_output\": 0,")));
}

TEST_F(TracerouteTo, LeavesOutTextsThatAreNotUtf8OrWhoseCutSplitsACharacter)
{
    kelmora_traceroute &trace = add("0", without_hops);
    fill_whole(trace.host, 'h');
    trace.host[254] = '\xC3'; // the last byte that is written
    trace.host[255] = '\xBC';
    set(trace.ip, "\xFF");
    set(trace.interfaceID, "caf\xE9");
    EXPECT_EQ(object(), R"({
                "deadline_seconds": 60,
                "first_ttl": 2,
                "hop_list": [],
                "hops_limit": 30,
                "ip6": true,
                "packet_len": 40
})");
}

TEST_F(TracerouteTo, WritesALongWayInOrderIntoALargerBuffer)
{
    kelmora_traceroute &trace = add("0");
    for (std::int32_t number = 20; number > 0; --number) {
        Hop *hop = kelmora_host::make_chain<Hop>({{.hop = number}});
        hop->next = trace.hop_list;
        trace.hop_list = hop;
    }
    const std::string text = object();
    std::size_t place = 0;
    for (int number = 1; number <= 20; ++number) {
        place = text.find("\"hop\": " + std::to_string(number) + ",", place);
        ASSERT_NE(place, std::string::npos) << number;
    }
    EXPECT_EQ(text.find("\"hop\":", place + 1), std::string::npos);
    EXPECT_THAT(text, testing::EndsWith("\"packet_len\": 0\n}"));
    EXPECT_EQ(reallocations_, 1U);
}

constexpr char document[] = R"({
    "host": "printer.home.example", "packet_len": 80, "first_ttl": 3, "hops_limit": 20, "deadline_seconds": 90,
    "ip6": true, "interfaceID": "br0", "id": "never read", "ip": "never read",
    "hop_list": [{"hop": 1, "domain": "never read", "ip": "never read", "rtt_1": 1.5, "probe_1_output": 1}]
})";

class TracerouteFrom : public FromTest<kelmora_traceroute> {
protected:
    TracerouteFrom() : FromTest(traceroute_from_translator, document) {}
};

TEST_F(TracerouteFrom, StoresEveryKeyOfTheRequest)
{
    EXPECT_TRUE(accepts(document));
    EXPECT_STREQ(record().host, "printer.home.example");
    EXPECT_EQ(record().packet_len, 80);
    EXPECT_EQ(record().first_ttl, 3);
    EXPECT_EQ(record().hops_limit, 20);
    EXPECT_EQ(record().deadline_seconds, 90);
    EXPECT_EQ(record().ip6, 1);
    EXPECT_STREQ(record().interfaceID, "br0");
}

TEST_F(TracerouteFrom, NeverStoresTheAddressAndBuildsNoHops)
{
    EXPECT_TRUE(accepts(document));
    EXPECT_TRUE(untouched(record().ip));
    EXPECT_EQ(record().hop_list, nullptr);
}

TEST_F(TracerouteFrom, NeverTouchesTheHops)
{
    Hop *hops = kelmora_host::make_chain<Hop>({first_hop});
    record().hop_list = hops;
    for (const char *json : {R"([{"hop": 7, "domain": "new"}])", "[]", "null"}) {
        EXPECT_TRUE(accepts(with(document, "hop_list", json)));
        ASSERT_EQ(record().hop_list, hops);
        EXPECT_EQ(std::memcmp(hops, &first_hop, sizeof first_hop), 0);
    }
}

TEST_F(TracerouteFrom, ReadsTheRequestOutOfADocumentThatWasRead)
{
    EXPECT_TRUE(accepts(sample_text));
    EXPECT_STREQ(record().host, "bücher.example/a");
    EXPECT_EQ(record().packet_len, 40);
    EXPECT_EQ(record().first_ttl, 2);
    EXPECT_EQ(record().hops_limit, 30);
    EXPECT_EQ(record().deadline_seconds, 60);
    EXPECT_EQ(record().ip6, 1);
    EXPECT_STREQ(record().interfaceID, "ppp0");
    EXPECT_TRUE(untouched(record().ip));
    EXPECT_EQ(record().hop_list, nullptr);
}

TEST_F(TracerouteFrom, AsksForTheHost)
{
    expect_required_in_order({{"host", "host", "host field not found"}});
    poison();
    const std::string before = image();
    EXPECT_TRUE(rejects(without(document, "host"), "host", "host field not found"));
    EXPECT_EQ(image(), before);
}

TEST_F(TracerouteFrom, SucceedsWithTheHostAloneAndKeepsTheRest)
{
    EXPECT_TRUE(accepts(R"({"host": "192.0.2.1"})"));
    EXPECT_STREQ(record().host, "192.0.2.1");
    EXPECT_TRUE(untouched(record().ip));
    EXPECT_TRUE(untouched(record().hops_limit));
    EXPECT_TRUE(untouched(record().deadline_seconds));
    EXPECT_TRUE(untouched(record().ip6));
    EXPECT_TRUE(untouched(record().packet_len));
    EXPECT_TRUE(untouched(record().first_ttl));
    EXPECT_TRUE(untouched(record().interfaceID));
}

TEST_F(TracerouteFrom, KeepsTheOptionalKeysThatAreAbsent)
{
    expect_optional("packet_len", record().packet_len);
    expect_optional("first_ttl", record().first_ttl);
    expect_optional("hops_limit", record().hops_limit);
    expect_optional("deadline_seconds", record().deadline_seconds);
    expect_optional("ip6", record().ip6);
    expect_optional("interfaceID", record().interfaceID);
}

TEST_F(TracerouteFrom, StoresNullAsNothing)
{
    EXPECT_TRUE(accepts(R"({"host": null, "packet_len": null, "first_ttl": null, "hops_limit": null,
                            "deadline_seconds": null, "ip6": null, "interfaceID": null})"));
    EXPECT_STREQ(record().host, "");
    EXPECT_EQ(record().packet_len, 0);
    EXPECT_EQ(record().first_ttl, 0);
    EXPECT_EQ(record().hops_limit, 0);
    EXPECT_EQ(record().deadline_seconds, 0);
    EXPECT_EQ(record().ip6, 0);
    EXPECT_STREQ(record().interfaceID, "");
}

TEST_F(TracerouteFrom, TakesOnlyTrueForTrue) { expect_boolean("ip6", record().ip6); }

TEST_F(TracerouteFrom, CutsIntegersToTheirWidth)
{
    expect_integer("packet_len", record().packet_len);
    expect_integer("first_ttl", record().first_ttl);
    expect_integer("hops_limit", record().hops_limit);
    expect_integer("deadline_seconds", record().deadline_seconds);
}

TEST_F(TracerouteFrom, CutsTextsToTheirField)
{
    expect_string("host", record().host);
    expect_string("interfaceID", record().interfaceID);
}

TEST_F(TracerouteFrom, StoresTheFirst255CharactersOfALongHost)
{
    EXPECT_TRUE(accepts(R"({"host": ")" + std::string(254, 'h') + "x" + std::string(45, 'y') + "\"}"));
    EXPECT_EQ(record().host, std::string(254, 'h') + "x");
}

} // namespace

} // namespace kelmora_test::traceroute_test
