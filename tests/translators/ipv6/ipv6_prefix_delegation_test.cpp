#include "tests/support/from_test.h"
#include "tests/support/to_test.h"

#include "kelmora_json.h"
#include "records/ipv6.h"

#include <algorithm>

namespace kelmora_test::ipv6_prefix_delegation_test {

namespace {

constexpr kelmora_ipv6_prefix_delegation sample{
    .mode = 1,
    .prefix = "2001:db8:4c:1700::/56",
    .interfaceID = "wan0",
};

constexpr char sample_text[] = R"({"mode": 1, "prefix": "2001:db8:4c:1700::/56", "interfaceID": "wan0"})";

class Ipv6PrefixDelegationTo : public ToTest<kelmora_ipv6_prefix_delegation> {
protected:
    Ipv6PrefixDelegationTo() : ToTest(ipv6_prefix_delegation_to_translator) {}
};

TEST_F(Ipv6PrefixDelegationTo, WritesTheKeysInOrderAndNoId)
{
    add("br0", sample);
    EXPECT_EQ(object(), sample_text);
    EXPECT_EQ(list(), "[" + std::string(sample_text) + "]");
}

TEST_F(Ipv6PrefixDelegationTo, WritesTheModeAsUnsigned)
{
    add("", {.mode = 4294967295});
    EXPECT_EQ(object(), R"({"mode": 4294967295, "prefix": "", "interfaceID": ""})");
}

TEST_F(Ipv6PrefixDelegationTo, CutsTextsToOneByteLessThanTheirField)
{
    kelmora_ipv6_prefix_delegation &delegation = add("");
    fill_whole(delegation.prefix, 'p');
    fill_whole(delegation.interfaceID, 'i');
    EXPECT_EQ(object(), R"({"mode": 0, "prefix": ")" + std::string(45, 'p') + R"(", "interfaceID": ")" +
                            std::string(19, 'i') + "\"}");
}

TEST_F(Ipv6PrefixDelegationTo, LeavesOutTextsThatAreNotUtf8)
{
    kelmora_ipv6_prefix_delegation &delegation = add("", sample);
    set(delegation.prefix, "caf\xE9");
    EXPECT_EQ(object(), R"({"mode": 1, "interfaceID": "wan0"})");
    fill_whole(delegation.interfaceID, 'i');
    delegation.interfaceID[18] = '\xC3'; // the first byte of a two-byte character: the last that is written
    delegation.interfaceID[19] = '\xA4';
    EXPECT_EQ(object(), R"({"mode": 1})");
}

TEST_F(Ipv6PrefixDelegationTo, WritesOtherScriptsAndSlashesAsTheyAre)
{
    set(add("", sample).interfaceID, "Büro/\"2\" 北");
    EXPECT_EQ(object(), "{\"mode\": 1, \"prefix\": \"2001:db8:4c:1700::/56\", "
                        "\"interfaceID\": \"Büro/\\\"2\\\" 北\"}");
}

constexpr char document[] = R"({
    "mode": 2, "prefix": "2001:db8:99:4200::/60", "interfaceID": "wan5", "id": "never read"
})";

class Ipv6PrefixDelegationFrom : public FromTest<kelmora_ipv6_prefix_delegation> {
protected:
    Ipv6PrefixDelegationFrom() : FromTest(ipv6_prefix_delegation_from_translator, document) {}

    /// A text is cut to the field's width less one byte and filled up with NULs.
    template <std::size_t width> void expect_cut(const std::string &path, const char (&field)[width])
    {
        for (const std::size_t length :
             {std::size_t{0}, std::size_t{1}, width - 2, width - 1, width, width + 1, std::size_t{65536}}) {
            const std::string text = quoted(length);
            poison();
            EXPECT_TRUE(accepts(with(document, path, text)));
            std::string expected = text.substr(1, std::min(length, width - 1));
            expected.resize(width, '\0');
            EXPECT_EQ(std::string(field, width), expected) << path << " with " << length << " characters";
        }
    }
};

TEST_F(Ipv6PrefixDelegationFrom, StoresEveryKey)
{
    EXPECT_TRUE(accepts(document));
    EXPECT_EQ(record().mode, 2U);
    EXPECT_STREQ(record().prefix, "2001:db8:99:4200::/60");
    EXPECT_STREQ(record().interfaceID, "wan5");
}

TEST_F(Ipv6PrefixDelegationFrom, AsksForTheKeysInOrder)
{
    for (const char *text : {"{}", "[]", R"([{"mode": 2, "prefix": "::", "interfaceID": "wan5"}])"})
        EXPECT_TRUE(rejects(text, "mode", "field not found"));
    EXPECT_TRUE(rejects(without(document, "mode"), "mode", "field not found"));
    EXPECT_TRUE(untouched(record()));
    EXPECT_TRUE(rejects(without_all(document, {"prefix", "interfaceID"}), "prefix", "field not found"));
    EXPECT_TRUE(rejects(without(document, "prefix"), "prefix", "field not found"));
    EXPECT_TRUE(rejects(without(document, "interfaceID"), "interfaceID", "field not found"));
}

TEST_F(Ipv6PrefixDelegationFrom, RefusesAModeThatIsNoInteger)
{
    for (const char *other : {"\"1\"", "\"\"", "1.0", "2.5", "true", "false", "null", "{}", "[]", "[1]"}) {
        EXPECT_TRUE(rejects(with(document, "mode", other), "mode", "data type must be a valid integer"));
        EXPECT_TRUE(untouched(record()));
    }
}

TEST_F(Ipv6PrefixDelegationFrom, RefusesAPrefixThatIsNoTextAndKeepsTheMode)
{
    for (const char *other : {"1", "1.5", "true", "false", "null", "{}", "[]", R"(["::"])"}) {
        poison();
        EXPECT_TRUE(rejects(with(document, "prefix", other), "prefix", "data type must be a valid string"));
        EXPECT_EQ(record().mode, 2U);
        EXPECT_TRUE(untouched(record().prefix));
        EXPECT_TRUE(untouched(record().interfaceID));
    }
}

TEST_F(Ipv6PrefixDelegationFrom, RefusesAnInterfaceThatIsNoTextAndKeepsTheRest)
{
    for (const char *other : {"1", "1.5", "true", "false", "null", "{}", "[]", R"(["wan5"])"}) {
        poison();
        EXPECT_TRUE(rejects(with(document, "interfaceID", other), "interfaceID", "data type must be a valid string"));
        EXPECT_EQ(record().mode, 2U);
        EXPECT_STREQ(record().prefix, "2001:db8:99:4200::/60");
        EXPECT_TRUE(untouched(record().interfaceID));
    }
}

TEST_F(Ipv6PrefixDelegationFrom, ReportsTheFirstOfSeveralFaultsAlone)
{
    EXPECT_TRUE(rejects(R"({"mode": "1", "prefix": 1})", "mode", "data type must be a valid integer"));
    EXPECT_TRUE(rejects(R"({"mode": 1, "interfaceID": 1})", "prefix", "field not found"));
    EXPECT_TRUE(rejects(R"({"mode": 1, "prefix": 1})", "prefix", "data type must be a valid string"));
}

TEST_F(Ipv6PrefixDelegationFrom, MissingInterfaceKeepsWhatIsStoredBefore)
{
    EXPECT_TRUE(rejects(without(document, "interfaceID"), "interfaceID", "field not found"));
    EXPECT_EQ(record().mode, 2U);
    EXPECT_STREQ(record().prefix, "2001:db8:99:4200::/60");
    EXPECT_TRUE(untouched(record().interfaceID));
}

TEST_F(Ipv6PrefixDelegationFrom, StoresTheLow32BitsOfTheMode)
{
    for (const auto &[json, expected] : std::vector<std::pair<std::string, std::uint32_t>>{
             {"0", 0U},
             {"4294967295", 4294967295U},
             {"4294967301", 5U},
             {"-1", 4294967295U},
             {"9223372036854775807", 4294967295U},
             {"-9223372036854775808", 0U},
         }) {
        poison();
        EXPECT_TRUE(accepts(with(document, "mode", json)));
        EXPECT_EQ(record().mode, expected) << json;
    }
}

TEST_F(Ipv6PrefixDelegationFrom, CutsTextsToTheirField)
{
    expect_cut("prefix", record().prefix);
    expect_cut("interfaceID", record().interfaceID);
}

} // namespace

} // namespace kelmora_test::ipv6_prefix_delegation_test
