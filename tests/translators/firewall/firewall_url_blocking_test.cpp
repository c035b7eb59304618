#include "tests/support/allocations.h"
#include "tests/support/from_test.h"
#include "tests/support/to_test.h"

#include "kelmora_json.h"
#include "records/firewall.h"

namespace kelmora_test::firewall_url_blocking_test {

namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

using Keyword = kelmora_firewall_url_blocking_keyword;
using Url = kelmora_firewall_url_blocking_url;

constexpr char too_long[] = "one or more elements exceeds the maximum of characters";

/// A new record each time, as each node owns its chains.
kelmora_firewall_url_blocking sample()
{
    return {
        .enable = 1,
        .urls = kelmora_host::make_chain<Url>({{.url = "http://games.example.com/"}, {.url = "example.org/live?c=7"}}),
        .keywords = kelmora_host::make_chain<Keyword>({{.keyword = "lottery"}, {.keyword = "betting"}}),
    };
}

constexpr char sample_text[] =
    R"({"id": "0", "enable": true, "urls": ["http://games.example.com/", "example.org/live?c=7"], )"
    R"("keywords": ["lottery", "betting"]})";

constexpr char empty_text[] = R"({"id": "1", "enable": false, "urls": [], "keywords": []})";

class FirewallUrlBlockingTo : public ToTest<kelmora_firewall_url_blocking> {
protected:
    FirewallUrlBlockingTo() : ToTest(firewall_url_blocking_to_translator) {}
};

TEST_F(FirewallUrlBlockingTo, WritesTheKeysInOrder)
{
    add("0", sample());
    EXPECT_EQ(object(), sample_text);
    EXPECT_EQ(list(), "[" + std::string(sample_text) + "]");
}

TEST_F(FirewallUrlBlockingTo, WritesEmptyListsAsEmptyArrays)
{
    add("1");
    EXPECT_EQ(object(), empty_text);
    EXPECT_EQ(list(), "[" + std::string(empty_text) + "]");
}

TEST_F(FirewallUrlBlockingTo, WritesAnySwitchButZeroAsTrue)
{
    expect_switches({{"enable", &kelmora_firewall_url_blocking::enable}});
}

TEST_F(FirewallUrlBlockingTo, CutsTextsToOneByteLessThanTheirField)
{
    kelmora_firewall_url_blocking &blocking = add("", sample());
    fill_whole(blocking.urls->url, 'u');
    fill_whole(blocking.keywords->keyword, 'k');
    fill_whole(nodes_.front().resource()->id, 'n');
    EXPECT_EQ(object(), R"({"id": ")" + std::string(128, 'n') + R"(", "enable": true, "urls": [")" +
                            std::string(127, 'u') +
                            R"(", "example.org/live?c=7"], "keywords": ["kkkkkkkkkkkkkkkkkkk", "betting"]})");
}

TEST_F(FirewallUrlBlockingTo, SkipsTextsThatAreNotUtf8)
{
    kelmora_firewall_url_blocking &blocking = add("0", sample());
    set(blocking.urls->next->url, "caf\xE9");
    fill_whole(blocking.keywords->keyword, 'k');
    blocking.keywords->keyword[18] = '\xC3'; // the first byte of a character that the cut splits
    blocking.keywords->keyword[19] = '\xA4';
    EXPECT_EQ(object(),
              R"({"id": "0", "enable": true, "urls": ["http://games.example.com/"], "keywords": ["betting"]})");
}

TEST_F(FirewallUrlBlockingTo, WritesOtherScriptsAndSlashesAsTheyAre)
{
    set(add("0", sample()).keywords->keyword, "glück/\"北\"");
    EXPECT_THAT(object(), HasSubstr("[\"glück/\\\"北\\\"\", \"betting\"]"));
}

TEST_F(FirewallUrlBlockingTo, WritesManyUrlsIntoALargerBuffer)
{
    kelmora_firewall_url_blocking &blocking = add("1");
    std::string expected = R"({"id": "1", "enable": false, "urls": [)";
    for (int i = 0; i < 60; ++i) {
        auto *url = kelmora_host::make_chain<Url>({{}});
        fill_whole(url->url, 'u');
        url->next = blocking.urls;
        blocking.urls = url;
        expected += '"' + std::string(127, 'u') + (i < 59 ? "\", " : "\"], \"keywords\": []}");
    }
    EXPECT_EQ(object(), expected);
    EXPECT_EQ(reallocations_, 1U);
}

constexpr char document[] = R"({
    "id": "never read", "enable": true,
    "urls": ["http://news.example.net/feed", "example.net"], "keywords": ["poker", "roulette"]
})";

class FirewallUrlBlockingFrom : public FromTest<kelmora_firewall_url_blocking> {
protected:
    FirewallUrlBlockingFrom() : FromTest(firewall_url_blocking_from_translator, document) {}

    std::vector<std::string> urls()
    {
        std::vector<std::string> urls;
        for (const Url *node = record().urls; node != nullptr; node = node->next)
            urls.emplace_back(node->url);
        return urls;
    }

    std::vector<std::string> keywords()
    {
        std::vector<std::string> keywords;
        for (const Keyword *node = record().keywords; node != nullptr; node = node->next)
            keywords.emplace_back(node->keyword);
        return keywords;
    }
};

TEST_F(FirewallUrlBlockingFrom, StoresEveryKey)
{
    EXPECT_TRUE(accepts(document));
    EXPECT_EQ(record().enable, 1);
    EXPECT_THAT(urls(), ElementsAre("http://news.example.net/feed", "example.net"));
    EXPECT_THAT(keywords(), ElementsAre("poker", "roulette"));
}

TEST_F(FirewallUrlBlockingFrom, AsksForTheRequiredKeysInOrder)
{
    expect_required_in_order({
        {"enable", "enable", "field not found"},
        {"urls", "urls", "field not found"},
        {"keywords", "keywords", "field not found"},
    });
}

TEST_F(FirewallUrlBlockingFrom, MissingSwitchStoresNothing)
{
    EXPECT_TRUE(rejects(without(document, "enable"), "enable", "field not found"));
    EXPECT_TRUE(untouched(record().enable));
    EXPECT_THAT(urls(), IsEmpty());
    EXPECT_THAT(keywords(), IsEmpty());
}

TEST_F(FirewallUrlBlockingFrom, MissingUrlsKeepTheSwitchAndBothLists)
{
    record().urls = kelmora_host::make_chain<Url>({{.url = "a"}});
    record().keywords = kelmora_host::make_chain<Keyword>({{.keyword = "x"}});
    EXPECT_TRUE(rejects(without(document, "urls"), "urls", "field not found"));
    EXPECT_EQ(record().enable, 1);
    EXPECT_THAT(urls(), ElementsAre("a"));
    EXPECT_THAT(keywords(), ElementsAre("x"));
}

TEST_F(FirewallUrlBlockingFrom, MissingKeywordsKeepTheUrls)
{
    EXPECT_TRUE(rejects(without(document, "keywords"), "keywords", "field not found"));
    EXPECT_EQ(record().enable, 1);
    EXPECT_THAT(urls(), ElementsAre("http://news.example.net/feed", "example.net"));
    EXPECT_THAT(keywords(), IsEmpty());
}

TEST_F(FirewallUrlBlockingFrom, ALongUrlIsReportedBeforeMissingKeywords)
{
    const std::string text = with(document, "urls", "[\"example.net\", " + quoted(128) + "]");
    EXPECT_TRUE(rejects(without(text, "keywords"), "url", too_long, "size"));
    EXPECT_THAT(urls(), ElementsAre("example.net"));
}

TEST_F(FirewallUrlBlockingFrom, TakesOnlyTrueForTrue) { expect_boolean("enable", record().enable); }

TEST_F(FirewallUrlBlockingFrom, StoresAnyNumberOfUrlsAndKeywords)
{
    for (int count = 0; count <= 20; ++count) {
        poison();
        std::string json = "[";
        std::vector<std::string> expected;
        for (int i = 0; i < count; ++i) {
            expected.push_back(std::to_string(i) + ".example");
            json += (i == 0 ? "\"" : ", \"") + expected.back() + '"';
        }
        EXPECT_TRUE(accepts(with(with(document, "urls", json + "]"), "keywords", json + "]")));
        EXPECT_EQ(urls(), expected);
        EXPECT_EQ(keywords(), expected);
    }
}

TEST_F(FirewallUrlBlockingFrom, SkipsEmptyTextsAndWhatIsNoText)
{
    const char *mixed = R"(["", 1, 1.5, true, false, null, {}, ["x"], "example", ""])";
    EXPECT_TRUE(accepts(with(with(document, "urls", mixed), "keywords", mixed)));
    EXPECT_THAT(urls(), ElementsAre("example"));
    EXPECT_THAT(keywords(), ElementsAre("example"));
}

TEST_F(FirewallUrlBlockingFrom, TakesAnythingButAnArrayForAnEmptyList)
{
    for (const char *other : {"[]", "null", "1", "1.5", "true", "\"example\"", "{\"0\": \"example\"}"}) {
        poison();
        EXPECT_TRUE(accepts(with(document, "urls", other)));
        EXPECT_THAT(urls(), IsEmpty()) << other;
        EXPECT_THAT(keywords(), ElementsAre("poker", "roulette")) << other;
        poison();
        EXPECT_TRUE(accepts(with(document, "keywords", other)));
        EXPECT_THAT(urls(), ElementsAre("http://news.example.net/feed", "example.net")) << other;
        EXPECT_THAT(keywords(), IsEmpty()) << other;
    }
}

TEST_F(FirewallUrlBlockingFrom, LinksBehindTheFirstNodesAndLetsGoOfTheOthers)
{
    Url *first_url = kelmora_host::make_chain<Url>({{.url = "a"}, {.url = "b"}, {.url = "c"}});
    Keyword *first_keyword = kelmora_host::make_chain<Keyword>({{.keyword = "x"}, {.keyword = "y"}});
    record().urls = first_url;
    record().keywords = first_keyword;
    EXPECT_TRUE(accepts(with(document, "keywords", "[]")));
    EXPECT_EQ(record().urls, first_url);
    EXPECT_THAT(urls(), ElementsAre("a", "http://news.example.net/feed", "example.net"));
    EXPECT_THAT(keywords(), ElementsAre("x", "y"));
    EXPECT_TRUE(accepts(with(document, "urls", "[]")));
    EXPECT_THAT(urls(), ElementsAre("a", "http://news.example.net/feed", "example.net"));
    EXPECT_EQ(record().keywords, first_keyword);
    EXPECT_THAT(keywords(), ElementsAre("x", "poker", "roulette"));
}

TEST_F(FirewallUrlBlockingFrom, StoresTextsThatJustFitWhole)
{
    EXPECT_TRUE(
        accepts(with(with(document, "urls", "[" + quoted(127) + "]"), "keywords", "[" + quoted(19) + ", \"k\"]")));
    ASSERT_THAT(urls(), ElementsAre(quoted(127).substr(1, 127)));
    ASSERT_THAT(keywords(), ElementsAre("abcdefghijklmnopqrs", "k"));
    EXPECT_EQ(std::string(record().keywords->next->keyword, 20), "k" + std::string(19, '\0'));
}

TEST_F(FirewallUrlBlockingFrom, RefusesALongerUrlAndKeepsTheOnesBeforeIt)
{
    for (const std::size_t length : {128U, 129U, 65536U}) {
        poison();
        EXPECT_TRUE(rejects(with(document, "urls", "[\"a\", " + quoted(length) + ", \"b\"]"), "url", too_long, "size"));
        EXPECT_EQ(record().enable, 1);
        EXPECT_THAT(urls(), ElementsAre("a"));
        EXPECT_THAT(keywords(), IsEmpty());
    }
}

TEST_F(FirewallUrlBlockingFrom, RefusesALongerKeywordAndKeepsWhatIsBeforeIt)
{
    for (const std::size_t length : {20U, 21U, 65536U}) {
        poison();
        EXPECT_TRUE(
            rejects(with(document, "keywords", "[\"a\", " + quoted(length) + ", \"b\"]"), "keyword", too_long, "size"));
        EXPECT_EQ(record().enable, 1);
        EXPECT_THAT(urls(), ElementsAre("http://news.example.net/feed", "example.net"));
        EXPECT_THAT(keywords(), ElementsAre("a"));
    }
}

TEST_F(FirewallUrlBlockingFrom, CountsBytesNotCharacters)
{
    EXPECT_TRUE(accepts(with(document, "keywords", "[\"äääääääääx\"]")));
    EXPECT_THAT(keywords(), ElementsAre("äääääääääx"));
    EXPECT_TRUE(rejects(with(document, "keywords", "[\"ääääääääää\"]"), "keyword", too_long, "size"));
}

TEST_F(FirewallUrlBlockingFrom, StoresWhatItGivesOut)
{
    EXPECT_TRUE(accepts(sample_text));
    EXPECT_THAT(urls(), ElementsAre("http://games.example.com/", "example.org/live?c=7"));
    EXPECT_THAT(keywords(), ElementsAre("lottery", "betting"));
}

TEST_F(FirewallUrlBlockingFrom, ReportsTheListThatNoMemoryIsLeftFor)
{
    allocations::pass();
    kelmora_errorlist errors;
    EXPECT_EQ(firewall_url_blocking_from_translator(node_.resource(), document, &errors), 1);
    const std::size_t last = allocations::asked_for(); // two URLs and two keywords come last
    poison();
    allocations::fail(last - 2, Failing::once);
    EXPECT_TRUE(rejects(document, "urls", "out of memory"));
    EXPECT_THAT(urls(), ElementsAre("http://news.example.net/feed"));
    EXPECT_THAT(keywords(), IsEmpty());
    poison();
    allocations::fail(last, Failing::once);
    EXPECT_TRUE(rejects(document, "keywords", "out of memory"));
    EXPECT_THAT(urls(), ElementsAre("http://news.example.net/feed", "example.net"));
    EXPECT_THAT(keywords(), ElementsAre("poker"));
}

} // namespace

} // namespace kelmora_test::firewall_url_blocking_test
