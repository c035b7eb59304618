#include "tests/support/from_test.h"
#include "tests/support/to_test.h"

#include "kelmora_json.h"
#include "records/diagnostics.h"

#include <limits>

namespace kelmora_test::ping_test {

namespace {

using testing::AllOf;
using testing::HasSubstr;
using testing::Not;

constexpr kelmora_ping sample{
    .host = "bücher.example/a",
    .ip = "2001:db8:9:80::22",
    .max_time = 31.5,
    .min_time = 11.25,
    .avg_time = 18.75,
    .packets_lost_percent = 12.5,
    .packet_size = 56,
    .packets_qty = 8,
    .packets_sent = 9,
    .packets_received = 7,
    .hops_limit = 64,
    .ttl = 57,
    .deadline_seconds = 10,
    .ip6 = 1,
    .interfaceID = "ppp0",
};

constexpr char sample_text[] = R"({
                "avg_time": 18.75,
                "deadline_seconds": 10,
                "hops_limit": 64,
                "host": "b\u00FCcher.example\/a",
                "interfaceID": "ppp0",
                "ip": "2001:db8:9:80::22",
                "ip6": true,
                "max_time": 31.5,
                "min_time": 11.25,
                "packet_size": 56,
                "packets_lost_percent": 12.5,
                "packets_qty": 8,
                "packets_received": 7,
                "packets_sent": 9,
                "ttl": 57
})";

constexpr char both_text[] = R"([
                {
                                "avg_time": 18.75,
                                "deadline_seconds": 10,
                                "hops_limit": 64,
                                "host": "b\u00FCcher.example\/a",
                                "interfaceID": "ppp0",
                                "ip": "2001:db8:9:80::22",
                                "ip6": true,
                                "max_time": 31.5,
                                "min_time": 11.25,
                                "packet_size": 56,
                                "packets_lost_percent": 12.5,
                                "packets_qty": 8,
                                "packets_received": 7,
                                "packets_sent": 9,
                                "ttl": 57
                },
                {
                                "avg_time": 0.0,
                                "deadline_seconds": 0,
                                "hops_limit": 0,
                                "host": "",
                                "interfaceID": "",
                                "ip": "",
                                "ip6": false,
                                "max_time": 0.0,
                                "min_time": 0.0,
                                "packet_size": 0,
                                "packets_lost_percent": 0.0,
                                "packets_qty": 0,
                                "packets_received": 0,
                                "packets_sent": 0,
                                "ttl": 0
                }
])";

class PingTo : public ToTest<kelmora_ping> {
protected:
    PingTo() : ToTest(ping_to_translator) {}
};

TEST_F(PingTo, WritesSortedKeysIndentedAndEscaped)
{
    add("0", sample);
    EXPECT_EQ(object(), sample_text);
    add("1");
    EXPECT_EQ(list(), both_text);
}

TEST_F(PingTo, WritesIntegersAsSigned)
{
    add("0", {.packet_size = -1,
              .packets_qty = -2,
              .packets_sent = -3,
              .packets_received = -4,
              .hops_limit = -5,
              .ttl = -2147483648,
              .deadline_seconds = 2147483647});
    EXPECT_EQ(object(), R"({
                "avg_time": 0.0,
                "deadline_seconds": 2147483647,
                "hops_limit": -5,
                "host": "",
                "interfaceID": "",
                "ip": "",
                "ip6": false,
                "max_time": 0.0,
                "min_time": 0.0,
                "packet_size": -1,
                "packets_lost_percent": 0.0,
                "packets_qty": -2,
                "packets_received": -4,
                "packets_sent": -3,
                "ttl": -2147483648
})");
}

TEST_F(PingTo, WritesTimesAsReals)
{
    add("0", {.max_time = 144.4,
              .min_time = -0.5,
              .avg_time = 1200,
              .packets_lost_percent = 1267650600228229401496703205376.0});
    EXPECT_THAT(object(), AllOf(HasSubstr("\"max_time\": 144.40000000000001,"), HasSubstr("\"min_time\": -0.5,"),
                                HasSubstr("\"avg_time\": 1200.0,"),
                                HasSubstr("\"packets_lost_percent\": 1.2676506002282294e30,")));
}

TEST_F(PingTo, LeavesOutAnyTimeThatIsNotFinite)
{
    constexpr double infinity = std::numeric_limits<double>::infinity();
    constexpr double nan = std::numeric_limits<double>::quiet_NaN();
    const std::vector<std::pair<std::string, double kelmora_ping::*>> times = {
        {"\"max_time\": 31.5,", &kelmora_ping::max_time},
        {"\"min_time\": 11.25,", &kelmora_ping::min_time},
        {"\"avg_time\": 18.75,", &kelmora_ping::avg_time},
        {"\"packets_lost_percent\": 12.5,", &kelmora_ping::packets_lost_percent},
    };
    for (const double other : {infinity, -infinity, nan}) {
        for (const auto &[line, field] : times) {
            nodes_.clear();
            add("0", sample).*field = other;
            std::string expected = sample_text;
            const std::string whole_line = "                " + line + "\n";
            expected.erase(expected.find(whole_line), whole_line.size());
            EXPECT_EQ(object(), expected);
        }
    }
}

TEST_F(PingTo, WritesAnySwitchButZeroAsTrue) { expect_switches({{"ip6", &kelmora_ping::ip6}}); }

TEST_F(PingTo, CutsTextsToOneByteLessThanTheirField)
{
    kelmora_ping &ping = add("0", sample);
    fill_whole(ping.host, 'h');
    fill_whole(ping.ip, 'p');
    fill_whole(ping.interfaceID, 'i');
    EXPECT_THAT(object(), AllOf(HasSubstr("\"host\": \"" + std::string(255, 'h') + '"'),
                                HasSubstr("\"ip\": \"" + std::string(46, 'p') + '"'),
                                HasSubstr("\"interfaceID\": \"" + std::string(19, 'i') + '"')));
}

TEST_F(PingTo, LeavesOutTextsThatAreNotUtf8OrWhoseCutSplitsACharacter)
{
    kelmora_ping &ping = add("0", sample);
    fill_whole(ping.host, 'h');
    ping.host[254] = '\xC3'; // the last byte that is written
    ping.host[255] = '\xBC';
    set(ping.ip, "\xFF");
    set(ping.interfaceID, "caf\xE9");
    EXPECT_THAT(object(), AllOf(Not(HasSubstr("\"host\"")), Not(HasSubstr("\"ip\"")), Not(HasSubstr("interfaceID")),
                                HasSubstr("\"hops_limit\": 64,\n                \"ip6\": true,\n")));
}

TEST_F(PingTo, WritesTwentyPingsIntoALargerBuffer)
{
    std::string expected = "[\n";
    const std::string one = std::string(both_text).substr(2, std::string(both_text).find("},\n") - 1); // with its brace
    for (int i = 0; i < 20; ++i) {
        add(std::to_string(i), sample);
        expected += one + (i < 19 ? ",\n" : "\n]");
    }
    EXPECT_EQ(list(), expected);
    EXPECT_EQ(reallocations_, 1U);
}

constexpr char document[] = R"({
    "host": "printer.home.example", "packet_size": 1400, "packets_qty": 20, "hops_limit": 32, "deadline_seconds": 45,
    "ip6": true, "interfaceID": "br0", "id": "never read", "ip": "never read", "max_time": 1.5, "min_time": 1.5,
    "avg_time": 1.5, "packets_lost_percent": 1.5, "packets_sent": 1, "packets_received": 1, "ttl": 1
})";

class PingFrom : public FromTest<kelmora_ping> {
protected:
    PingFrom() : FromTest(ping_from_translator, document) {}

    void expect_results_untouched()
    {
        EXPECT_TRUE(untouched(record().ip));
        EXPECT_TRUE(untouched(record().max_time));
        EXPECT_TRUE(untouched(record().min_time));
        EXPECT_TRUE(untouched(record().avg_time));
        EXPECT_TRUE(untouched(record().packets_lost_percent));
        EXPECT_TRUE(untouched(record().packets_sent));
        EXPECT_TRUE(untouched(record().packets_received));
        EXPECT_TRUE(untouched(record().ttl));
    }
};

TEST_F(PingFrom, StoresEveryKeyOfTheRequest)
{
    EXPECT_TRUE(accepts(document));
    EXPECT_STREQ(record().host, "printer.home.example");
    EXPECT_EQ(record().packet_size, 1400);
    EXPECT_EQ(record().packets_qty, 20);
    EXPECT_EQ(record().hops_limit, 32);
    EXPECT_EQ(record().deadline_seconds, 45);
    EXPECT_EQ(record().ip6, 1);
    EXPECT_STREQ(record().interfaceID, "br0");
}

TEST_F(PingFrom, NeverStoresTheResults)
{
    EXPECT_TRUE(accepts(document));
    expect_results_untouched();
}

TEST_F(PingFrom, ReadsTheRequestOutOfADocumentThatWasRead)
{
    EXPECT_TRUE(accepts(sample_text));
    EXPECT_STREQ(record().host, "bücher.example/a");
    EXPECT_EQ(record().packet_size, 56);
    EXPECT_EQ(record().packets_qty, 8);
    EXPECT_EQ(record().hops_limit, 64);
    EXPECT_EQ(record().deadline_seconds, 10);
    EXPECT_EQ(record().ip6, 1);
    EXPECT_STREQ(record().interfaceID, "ppp0");
    expect_results_untouched();
}

TEST_F(PingFrom, AsksForTheHost)
{
    expect_required_in_order({{"host", "host", "host field not found"}});
    poison();
    EXPECT_TRUE(rejects(without(document, "host"), "host", "host field not found"));
    EXPECT_TRUE(untouched(record()));
}

TEST_F(PingFrom, SucceedsWithTheHostAloneAndKeepsTheRest)
{
    EXPECT_TRUE(accepts(R"({"host": "192.0.2.1"})"));
    EXPECT_STREQ(record().host, "192.0.2.1");
    EXPECT_TRUE(untouched(record().packet_size));
    EXPECT_TRUE(untouched(record().packets_qty));
    EXPECT_TRUE(untouched(record().hops_limit));
    EXPECT_TRUE(untouched(record().deadline_seconds));
    EXPECT_TRUE(untouched(record().ip6));
    EXPECT_TRUE(untouched(record().interfaceID));
    expect_results_untouched();
}

TEST_F(PingFrom, StoresHostAndQuantityAndKeepsTheRest)
{
    EXPECT_TRUE(accepts(R"({"host": "192.0.2.1", "packets_qty": 3})"));
    EXPECT_STREQ(record().host, "192.0.2.1");
    EXPECT_EQ(record().packets_qty, 3);
    EXPECT_TRUE(untouched(record().packet_size));
    EXPECT_TRUE(untouched(record().hops_limit));
    EXPECT_TRUE(untouched(record().deadline_seconds));
    EXPECT_TRUE(untouched(record().ip6));
    EXPECT_TRUE(untouched(record().interfaceID));
    expect_results_untouched();
}

TEST_F(PingFrom, KeepsTheOptionalKeysThatAreAbsent)
{
    expect_optional("packet_size", record().packet_size);
    expect_optional("packets_qty", record().packets_qty);
    expect_optional("hops_limit", record().hops_limit);
    expect_optional("deadline_seconds", record().deadline_seconds);
    expect_optional("ip6", record().ip6);
    expect_optional("interfaceID", record().interfaceID);
}

TEST_F(PingFrom, StoresNullAsNothing)
{
    EXPECT_TRUE(accepts(R"({"host": null, "packet_size": null, "packets_qty": null, "hops_limit": null,
                            "deadline_seconds": null, "ip6": null, "interfaceID": null})"));
    EXPECT_STREQ(record().host, "");
    EXPECT_EQ(record().packet_size, 0);
    EXPECT_EQ(record().packets_qty, 0);
    EXPECT_EQ(record().hops_limit, 0);
    EXPECT_EQ(record().deadline_seconds, 0);
    EXPECT_EQ(record().ip6, 0);
    EXPECT_STREQ(record().interfaceID, "");
}

TEST_F(PingFrom, ReadsARealAsZero)
{
    EXPECT_TRUE(accepts(with(document, "packet_size", "56.0")));
    EXPECT_EQ(record().packet_size, 0);
}

TEST_F(PingFrom, TakesOnlyTrueForTrue) { expect_boolean("ip6", record().ip6); }

TEST_F(PingFrom, CutsIntegersToTheirWidth)
{
    expect_integer("packet_size", record().packet_size);
    expect_integer("packets_qty", record().packets_qty);
    expect_integer("hops_limit", record().hops_limit);
    expect_integer("deadline_seconds", record().deadline_seconds);
}

TEST_F(PingFrom, CutsTextsToTheirField)
{
    expect_string("host", record().host);
    expect_string("interfaceID", record().interfaceID);
}

TEST_F(PingFrom, StoresTheFirst255CharactersOfALongHost)
{
    EXPECT_TRUE(accepts(R"({"host": ")" + std::string(254, 'h') + "x" + std::string(45, 'y') + "\"}"));
    EXPECT_EQ(record().host, std::string(254, 'h') + "x");
}

} // namespace

} // namespace kelmora_test::ping_test
