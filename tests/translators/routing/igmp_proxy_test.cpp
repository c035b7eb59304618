#include "tests/support/from_test.h"
#include "tests/support/to_test.h"

#include "kelmora_json.h"
#include "records/routing.h"

namespace kelmora_test::igmp_proxy_test {

namespace {

using testing::AllOf;
using testing::HasSubstr;

constexpr kelmora_igmp_proxy sample{
    .allow_multicast = 1,
    .robust_count = 2,
    .last_member_query_count = 3,
    .query_interval = 125,
    .query_response_interval = 100,
    .group_leave_delay = 10,
};

constexpr char sample_text[] = "{\n"
                               "                \"allow_multicast\": true,\n"
                               "                \"group_leave_delay\": 10,\n"
                               "                \"id\": \"0\",\n"
                               "                \"last_member_query_count\": 3,\n"
                               "                \"query_interval\": 125,\n"
                               "                \"query_response_interval\": 100,\n"
                               "                \"robust_count\": 2\n"
                               "}";

constexpr char two_proxies_text[] = "[\n"
                                    "                {\n"
                                    "                                \"allow_multicast\": true,\n"
                                    "                                \"group_leave_delay\": 10,\n"
                                    "                                \"id\": \"0\",\n"
                                    "                                \"last_member_query_count\": 3,\n"
                                    "                                \"query_interval\": 125,\n"
                                    "                                \"query_response_interval\": 100,\n"
                                    "                                \"robust_count\": 2\n"
                                    "                },\n"
                                    "                {\n"
                                    "                                \"allow_multicast\": false,\n"
                                    "                                \"group_leave_delay\": 0,\n"
                                    "                                \"id\": \"1\",\n"
                                    "                                \"last_member_query_count\": 0,\n"
                                    "                                \"query_interval\": 0,\n"
                                    "                                \"query_response_interval\": 0,\n"
                                    "                                \"robust_count\": 0\n"
                                    "                }\n"
                                    "]";

class IgmpProxyTo : public ToTest<kelmora_igmp_proxy> {
protected:
    IgmpProxyTo() : ToTest(igmp_proxy_to_translator) {}
};

TEST_F(IgmpProxyTo, WritesSortedKeysIndented)
{
    add("0", sample);
    EXPECT_EQ(object(), sample_text);
}

TEST_F(IgmpProxyTo, WritesAListOfEntries)
{
    add("0", sample);
    add("1");
    EXPECT_EQ(list(), two_proxies_text);
}

TEST_F(IgmpProxyTo, WritesIntegersAsUnsigned)
{
    add("0", {.robust_count = 4294967295,
              .last_member_query_count = 4294967294,
              .query_interval = 4294967293,
              .query_response_interval = 4294967292,
              .group_leave_delay = 2147483648});
    EXPECT_THAT(object(), AllOf(HasSubstr("\"robust_count\": 4294967295\n"),
                                HasSubstr("\"last_member_query_count\": 4294967294,"),
                                HasSubstr("\"query_interval\": 4294967293,"),
                                HasSubstr("\"query_response_interval\": 4294967292,"),
                                HasSubstr("\"group_leave_delay\": 2147483648,")));
}

TEST_F(IgmpProxyTo, WritesAnySwitchButZeroAsTrue)
{
    for (const int on : {2, 128, 255}) {
        nodes_.clear();
        add("0", sample).allow_multicast = static_cast<std::uint8_t>(on);
        EXPECT_EQ(object(), sample_text);
    }
}

constexpr char document[] = R"({
    "id": "never read", "allow_multicast": true, "robust_count": 1, "last_member_query_count": 2,
    "query_interval": 3, "query_response_interval": 4, "group_leave_delay": 5
})";

class IgmpProxyFrom : public FromTest<kelmora_igmp_proxy> {
protected:
    IgmpProxyFrom() : FromTest(igmp_proxy_from_translator, document) {}
};

TEST_F(IgmpProxyFrom, StoresEveryKey)
{
    EXPECT_TRUE(accepts(document));
    EXPECT_EQ(record().allow_multicast, 1);
    EXPECT_EQ(record().robust_count, 1U);
    EXPECT_EQ(record().last_member_query_count, 2U);
    EXPECT_EQ(record().query_interval, 3U);
    EXPECT_EQ(record().query_response_interval, 4U);
    EXPECT_EQ(record().group_leave_delay, 5U);
}

TEST_F(IgmpProxyFrom, AcceptsADocumentWithNoneOfTheKeysAndChangesNothing)
{
    for (const std::string &text : {std::string("{}"), std::string("[]"), "[" + document_ + "]",
                                    std::string(R"({"proxy": {"robust_count": 1}, "Query_interval": 3})")}) {
        EXPECT_TRUE(accepts(text));
        EXPECT_TRUE(untouched(record()));
    }
}

TEST_F(IgmpProxyFrom, StoresASingleKeyAndNothingElse)
{
    EXPECT_TRUE(accepts(R"({"query_interval": 60})"));
    EXPECT_EQ(record().query_interval, 60U);
    EXPECT_TRUE(untouched(record().allow_multicast));
    EXPECT_TRUE(untouched(record().robust_count));
    EXPECT_TRUE(untouched(record().last_member_query_count));
    EXPECT_TRUE(untouched(record().query_response_interval));
    EXPECT_TRUE(untouched(record().group_leave_delay));
}

TEST_F(IgmpProxyFrom, KeepsTheKeysThatAreAbsent)
{
    expect_optional("allow_multicast", record().allow_multicast);
    expect_optional("robust_count", record().robust_count);
    expect_optional("last_member_query_count", record().last_member_query_count);
    expect_optional("query_interval", record().query_interval);
    expect_optional("query_response_interval", record().query_response_interval);
    expect_optional("group_leave_delay", record().group_leave_delay);
}

TEST_F(IgmpProxyFrom, TakesOnlyTrueForTrue) { expect_boolean("allow_multicast", record().allow_multicast); }

TEST_F(IgmpProxyFrom, CutsIntegersToTheirWidth)
{
    expect_integer("robust_count", record().robust_count);
    expect_integer("last_member_query_count", record().last_member_query_count);
    expect_integer("query_interval", record().query_interval);
    expect_integer("query_response_interval", record().query_response_interval);
    expect_integer("group_leave_delay", record().group_leave_delay);
}

} // namespace

} // namespace kelmora_test::igmp_proxy_test
