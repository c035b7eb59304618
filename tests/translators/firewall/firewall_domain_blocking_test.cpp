#include "tests/support/allocations.h"
#include "tests/support/from_test.h"
#include "tests/support/to_test.h"

#include "kelmora_json.h"
#include "records/firewall.h"

namespace kelmora_test::firewall_domain_blocking_test {

namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

using Domain = kelmora_firewall_domain_blocking_domain;

constexpr char too_long[] = "one or more elements exceeds the maximum of characters";

/// A new record each time, as each node owns its chain.
kelmora_firewall_domain_blocking sample()
{
    return {
        .enable = 1,
        .domains = kelmora_host::make_chain<Domain>({{.domain = "ads.example.com"}, {.domain = "casino.example"}}),
    };
}

constexpr char sample_text[] = R"({"id": "0", "enable": true, "domains": ["ads.example.com", "casino.example"]})";

constexpr char empty_text[] = R"({"id": "1", "enable": false, "domains": []})";

class FirewallDomainBlockingTo : public ToTest<kelmora_firewall_domain_blocking> {
protected:
    FirewallDomainBlockingTo() : ToTest(firewall_domain_blocking_to_translator) {}
};

TEST_F(FirewallDomainBlockingTo, WritesTheKeysInOrder)
{
    add("0", sample());
    EXPECT_EQ(object(), sample_text);
    EXPECT_EQ(list(), "[" + std::string(sample_text) + "]");
}

TEST_F(FirewallDomainBlockingTo, WritesNoDomainsAsAnEmptyArray)
{
    add("1");
    EXPECT_EQ(object(), empty_text);
    EXPECT_EQ(list(), "[" + std::string(empty_text) + "]");
}

TEST_F(FirewallDomainBlockingTo, WritesAnySwitchButZeroAsTrue)
{
    expect_switches({{"enable", &kelmora_firewall_domain_blocking::enable}});
}

TEST_F(FirewallDomainBlockingTo, CutsTextsToOneByteLessThanTheirField)
{
    fill_whole(add("", sample()).domains->domain, 'd');
    fill_whole(nodes_.front().resource()->id, 'n');
    EXPECT_EQ(object(), R"({"id": ")" + std::string(128, 'n') + R"(", "enable": true, "domains": [")" +
                            std::string(119, 'd') + R"(", "casino.example"]})");
}

TEST_F(FirewallDomainBlockingTo, SkipsADomainThatIsNotUtf8)
{
    Domain *domains = add("0", sample()).domains;
    fill_whole(domains->domain, 'd');
    domains->domain[118] = '\xC3'; // the first byte of a character that the cut splits
    domains->domain[119] = '\xA4';
    EXPECT_EQ(object(), R"({"id": "0", "enable": true, "domains": ["casino.example"]})");
}

TEST_F(FirewallDomainBlockingTo, WritesOtherScriptsSlashesAndEmptyTextsAsTheyAre)
{
    kelmora_firewall_domain_blocking &blocking = add("0", sample());
    set(blocking.domains->domain, "bücher/\"北\"");
    set(blocking.domains->next->domain, "");
    EXPECT_THAT(object(), HasSubstr("[\"bücher/\\\"北\\\"\", \"\"]"));
}

TEST_F(FirewallDomainBlockingTo, WritesManyDomainsIntoALargerBuffer)
{
    kelmora_firewall_domain_blocking &blocking = add("1");
    std::string expected = R"({"id": "1", "enable": false, "domains": [)";
    for (int i = 0; i < 60; ++i) {
        auto *domain = kelmora_host::make_chain<Domain>({{}});
        fill_whole(domain->domain, 'd');
        domain->next = blocking.domains;
        blocking.domains = domain;
        expected += '"' + std::string(119, 'd') + (i < 59 ? "\", " : "\"]}");
    }
    EXPECT_EQ(object(), expected);
    EXPECT_EQ(reallocations_, 1U);
}

constexpr char document[] =
    R"({"id": "never read", "enable": true, "domains": ["shop.example.org", "chat.example.net"]})";

class FirewallDomainBlockingFrom : public FromTest<kelmora_firewall_domain_blocking> {
protected:
    FirewallDomainBlockingFrom() : FromTest(firewall_domain_blocking_from_translator, document) {}

    std::vector<std::string> domains()
    {
        std::vector<std::string> domains;
        for (const Domain *node = record().domains; node != nullptr; node = node->next)
            domains.emplace_back(node->domain);
        return domains;
    }

    /// The document with another list.
    static std::string blocking(const std::string &json) { return with(document, "domains", json); }
};

TEST_F(FirewallDomainBlockingFrom, StoresEveryKey)
{
    EXPECT_TRUE(accepts(document));
    EXPECT_EQ(record().enable, 1);
    EXPECT_THAT(domains(), ElementsAre("shop.example.org", "chat.example.net"));
}

TEST_F(FirewallDomainBlockingFrom, AsksForTheRequiredKeysInOrder)
{
    expect_required_in_order({
        {"enable", "enable", "field not found"},
        {"domains", "domains", "field not found"},
    });
}

TEST_F(FirewallDomainBlockingFrom, MissingSwitchStoresNothing)
{
    EXPECT_TRUE(rejects(without(document, "enable"), "enable", "field not found"));
    EXPECT_TRUE(untouched(record().enable));
    EXPECT_EQ(record().domains, nullptr);
}

TEST_F(FirewallDomainBlockingFrom, MissingListKeepsTheSwitchAndTheChain)
{
    Domain *chain = kelmora_host::make_chain<Domain>({{.domain = "old"}});
    record().domains = chain;
    EXPECT_TRUE(rejects(without(document, "domains"), "domains", "field not found"));
    EXPECT_EQ(record().enable, 1);
    EXPECT_EQ(record().domains, chain);
    EXPECT_THAT(domains(), ElementsAre("old"));
}

TEST_F(FirewallDomainBlockingFrom, TakesOnlyTrueForTrue) { expect_boolean("enable", record().enable); }

TEST_F(FirewallDomainBlockingFrom, StoresAnyNumberOfDomains)
{
    for (int count = 0; count <= 20; ++count) {
        poison();
        std::string json = "[";
        std::vector<std::string> expected;
        for (int i = 0; i < count; ++i) {
            expected.push_back(std::to_string(i) + ".example");
            json += (i == 0 ? "\"" : ", \"") + expected.back() + '"';
        }
        EXPECT_TRUE(accepts(blocking(json + "]")));
        EXPECT_EQ(domains(), expected);
    }
}

TEST_F(FirewallDomainBlockingFrom, SkipsEmptyTextsAndWhatIsNoText)
{
    EXPECT_TRUE(accepts(blocking(R"(["", "a.example"])")));
    EXPECT_THAT(domains(), ElementsAre("a.example"));
    poison();
    EXPECT_TRUE(accepts(blocking(R"([1, 1.5, true, false, null, {}, ["x"], {"domain": "x"}, "b.example", ""])")));
    EXPECT_THAT(domains(), ElementsAre("b.example"));
}

TEST_F(FirewallDomainBlockingFrom, TakesAnythingButAnArrayForAnEmptyList)
{
    Domain *chain = kelmora_host::make_chain<Domain>({{.domain = "a"}, {.domain = "b"}});
    record().domains = chain;
    for (const char *other : {"[]", "[\"\"]", "null", "1", "1.5", "true", "\"a.example\"", "{\"0\": \"a.example\"}"}) {
        EXPECT_TRUE(accepts(blocking(other)));
        EXPECT_EQ(record().domains, chain) << other;
        EXPECT_THAT(domains(), ElementsAre("a", "b")) << other;
    }
}

TEST_F(FirewallDomainBlockingFrom, LinksBehindTheFirstNodeAndLetsGoOfTheOthers)
{
    Domain *first = kelmora_host::make_chain<Domain>({{.domain = "a"}, {.domain = "b"}, {.domain = "c"}});
    record().domains = first;
    EXPECT_TRUE(accepts(document));
    EXPECT_EQ(record().domains, first);
    EXPECT_THAT(domains(), ElementsAre("a", "shop.example.org", "chat.example.net"));
}

TEST_F(FirewallDomainBlockingFrom, StoresATextThatJustFitsWhole)
{
    for (const std::size_t length : {1U, 118U, 119U}) {
        poison();
        EXPECT_TRUE(accepts(blocking("[" + quoted(length) + "]")));
        std::string expected = quoted(length).substr(1, length);
        expected.resize(120, '\0');
        ASSERT_NE(record().domains, nullptr);
        EXPECT_EQ(std::string(record().domains->domain, 120), expected);
        EXPECT_EQ(record().domains->next, nullptr);
    }
}

TEST_F(FirewallDomainBlockingFrom, RefusesALongerTextAndKeepsTheOnesBeforeIt)
{
    for (const std::size_t length : {120U, 121U, 65536U}) {
        poison();
        EXPECT_TRUE(
            rejects(blocking("[\"a.example\", " + quoted(length) + ", \"b.example\"]"), "domain", too_long, "size"));
        EXPECT_EQ(record().enable, 1);
        EXPECT_THAT(domains(), ElementsAre("a.example"));
        poison();
        EXPECT_TRUE(rejects(blocking("[" + quoted(length) + "]"), "domain", too_long, "size"));
        EXPECT_THAT(domains(), IsEmpty());
    }
}

TEST_F(FirewallDomainBlockingFrom, CountsBytesNotCharacters)
{
    std::string umlauts;
    for (int i = 0; i < 59; ++i)
        umlauts += "ä";
    EXPECT_TRUE(accepts(blocking("[\"" + umlauts + "x\"]")));
    EXPECT_THAT(domains(), ElementsAre(umlauts + "x"));
    EXPECT_TRUE(rejects(blocking("[\"" + umlauts + "ä\"]"), "domain", too_long, "size"));
}

TEST_F(FirewallDomainBlockingFrom, StoresWhatItGivesOut)
{
    EXPECT_TRUE(accepts(sample_text));
    EXPECT_THAT(domains(), ElementsAre("ads.example.com", "casino.example"));
}

TEST_F(FirewallDomainBlockingFrom, ReportsTheListThatNoMemoryIsLeftFor)
{
    allocations::pass();
    kelmora_errorlist errors;
    EXPECT_EQ(firewall_domain_blocking_from_translator(node_.resource(), document, &errors), 1);
    const std::size_t last = allocations::asked_for(); // the second domain
    poison();
    allocations::fail(last, Failing::once);
    EXPECT_TRUE(rejects(document, "domains", "out of memory"));
    EXPECT_THAT(domains(), ElementsAre("shop.example.org"));
}

} // namespace

} // namespace kelmora_test::firewall_domain_blocking_test
