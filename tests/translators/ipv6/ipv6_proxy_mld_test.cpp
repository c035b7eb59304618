#include "tests/support/from_test.h"
#include "tests/support/to_test.h"

#include "kelmora_json.h"
#include "records/ipv6.h"

namespace kelmora_test::ipv6_proxy_mld_test {

namespace {

constexpr kelmora_ipv6_proxy_mld sample{
    .robust_count = 2,
    .query_interval = 125,
    .query_response_interval = 100,
    .response_interval_of_last_group_member = 10,
};

constexpr char sample_text[] = R"({"id": "0", "query_interval": 125, "query_response_interval": 100, )"
                               R"("response_interval_of_last_group_member": 10, "robust_count": 2})";

class Ipv6ProxyMldTo : public ToTest<kelmora_ipv6_proxy_mld> {
protected:
    Ipv6ProxyMldTo() : ToTest(ipv6_proxy_mld_to_translator) {}
};

TEST_F(Ipv6ProxyMldTo, WritesTheKeysInOrder)
{
    add("0", sample);
    EXPECT_EQ(object(), sample_text);
    EXPECT_EQ(list(), "[" + std::string(sample_text) + "]");
}

TEST_F(Ipv6ProxyMldTo, WritesTheTimesAsUnsignedAndTheCountAsSigned)
{
    constexpr std::uint32_t most = 4294967295;
    add("", {.robust_count = -1,
             .query_interval = most,
             .query_response_interval = most,
             .response_interval_of_last_group_member = most});
    EXPECT_EQ(object(), R"({"id": "", "query_interval": 4294967295, "query_response_interval": 4294967295, )"
                        R"("response_interval_of_last_group_member": 4294967295, "robust_count": -1})");
    add("", {.robust_count = -2147483647 - 1,
             .query_interval = 2147483648,
             .query_response_interval = 2147483648,
             .response_interval_of_last_group_member = 2147483648});
    EXPECT_EQ(object(), R"({"id": "", "query_interval": 2147483648, "query_response_interval": 2147483648, )"
                        R"("response_interval_of_last_group_member": 2147483648, "robust_count": -2147483648})");
}

// The longest key first, and never read: it takes the one character that jansson may lose of a text when an allocation
// fails, which would else make a key missing, and that leaks the document.
constexpr char document[] = R"({
    "never read, and longer than any key that is": 0,
    "query_interval": 60, "query_response_interval": 50, "response_interval_of_last_group_member": 5,
    "robust_count": 3, "id": "never read"
})";

/// A missing key leaves the document unreleased, success releases it.
class Ipv6ProxyMldFrom : public FromTest<kelmora_ipv6_proxy_mld> {
protected:
    Ipv6ProxyMldFrom() : FromTest(ipv6_proxy_mld_from_translator, document) { leaks_document_on_failure_ = true; }
};

TEST_F(Ipv6ProxyMldFrom, StoresEveryKeyAndReleasesTheDocument)
{
    EXPECT_TRUE(accepts(document)); // which looks at the document as well
    EXPECT_EQ(record().query_interval, 60U);
    EXPECT_EQ(record().query_response_interval, 50U);
    EXPECT_EQ(record().response_interval_of_last_group_member, 5U);
    EXPECT_EQ(record().robust_count, 3);
}

TEST_F(Ipv6ProxyMldFrom, AsksForTheKeysInOrderAndKeepsTheDocumentThatLacksOne)
{
    expect_required_in_order({
        {"query_interval", "query_interval", "query_interval field not found"},
        {"query_response_interval", "query_response_interval", "query_response_interval field not found"},
        {"response_interval_of_last_group_member", "response_interval_of_last_group_member",
         "response_interval_of_last_group_member field not found"},
        {"robust_count", "robust_count", "robust_count field not found"},
    });
}

TEST_F(Ipv6ProxyMldFrom, StoresAllOrNothing)
{
    for (const std::string key :
         {"query_interval", "query_response_interval", "response_interval_of_last_group_member", "robust_count"}) {
        EXPECT_TRUE(rejects(without(document, key), key, key + " field not found"));
        EXPECT_TRUE(untouched(record()));
    }
}

TEST_F(Ipv6ProxyMldFrom, CutsIntegersToTheirWidth)
{
    expect_integer("query_interval", record().query_interval);
    expect_integer("query_response_interval", record().query_response_interval);
    expect_integer("response_interval_of_last_group_member", record().response_interval_of_last_group_member);
    expect_integer("robust_count", record().robust_count);
}

TEST_F(Ipv6ProxyMldFrom, StoresALargeCountAsNegative)
{
    EXPECT_TRUE(accepts(with(document, "robust_count", "4294967295")));
    EXPECT_EQ(record().robust_count, -1);
}

} // namespace

} // namespace kelmora_test::ipv6_proxy_mld_test
