#include "tests/support/from_test.h"
#include "tests/support/to_test.h"

#include "host/plugin/translate.h"

#include "kelmora_json.h"
#include "records/ipv6.h"

namespace kelmora_test::ipv6_radvd_test {

namespace {

using testing::AllOf;
using testing::HasSubstr;
using testing::Not;

constexpr kelmora_ipv6_radvd sample{
    .max_rtr_adv_interval = 600,
    .min_rtr_adv_interval = 200,
    .adv_managed_flag = 0,
    .ipv6_prefix_mode_auto = 1,
    .prefix = "2001:db8:4c:1700::",
    .prefix_size = 64,
    .adv_valid_lifetime = 86400,
    .adv_preferred_lifetime = 14400,
    .adv_on_link = 1,
    .adv_autonomous = 0,
    .rdnss1 = "fe80::1",
    .rdnss2 = "2620:fe::fe",
    .enable_ula = 1,
    .ula_prefix = "fd5e:17c2:94::",
    .ula_prefix_len = 48,
    .ula_valid_time = 4294967295,
    .ula_prefer_time = 7200,
};

constexpr char sample_text[] =
    R"({"id": "br0", "max_rtr_adv_interval": 600, "min_rtr_adv_interval": 200, "adv_managed_flag": false, )"
    R"("ipv6_prefix_mode_auto": true, "ipv6_prefix": {"prefix": "2001:db8:4c:1700::", "prefix_size": 64, )"
    R"("adv_valid_lifetime": 86400, "adv_preferred_lifetime": 14400, "adv_on_link": true, "adv_autonomous": false, )"
    R"("rdnss1": "fe80::1", "rdnss2": "2620:fe::fe"}, "enable_ula": true, "ipv6_ula_settings": )"
    R"({"ula_prefix": "fd5e:17c2:94::", "ula_prefix_len": 48, "ula_valid_time": 4294967295, )"
    R"("ula_prefer_time": 7200}})";

constexpr char empty_text[] =
    R"({"id": "", "max_rtr_adv_interval": 0, "min_rtr_adv_interval": 0, "adv_managed_flag": false, )"
    R"("ipv6_prefix_mode_auto": false, "ipv6_prefix": {"prefix": "", "prefix_size": 0, )"
    R"("adv_valid_lifetime": 0, "adv_preferred_lifetime": 0, "adv_on_link": false, "adv_autonomous": false, )"
    R"("rdnss1": "", "rdnss2": ""}, "enable_ula": false, "ipv6_ula_settings": )"
    R"({"ula_prefix": "", "ula_prefix_len": 0, "ula_valid_time": 0, "ula_prefer_time": 0}})";

class Ipv6RadvdTo : public ToTest<kelmora_ipv6_radvd> {
protected:
    Ipv6RadvdTo() : ToTest(ipv6_radvd_to_translator) {}
};

TEST_F(Ipv6RadvdTo, WritesTheKeysInOrder)
{
    add("br0", sample);
    EXPECT_EQ(object(), sample_text);
    EXPECT_EQ(list(), "[" + std::string(sample_text) + "]");
}

TEST_F(Ipv6RadvdTo, WritesIntegersAsUnsigned)
{
    constexpr std::uint32_t most = 4294967295;
    add("", {.max_rtr_adv_interval = most,
             .min_rtr_adv_interval = most,
             .prefix_size = 65535,
             .adv_valid_lifetime = most,
             .adv_preferred_lifetime = most,
             .ula_prefix_len = most,
             .ula_valid_time = most,
             .ula_prefer_time = most});
    EXPECT_EQ(object(), R"({"id": "", "max_rtr_adv_interval": 4294967295, "min_rtr_adv_interval": 4294967295, )"
                        R"("adv_managed_flag": false, "ipv6_prefix_mode_auto": false, "ipv6_prefix": {"prefix": "", )"
                        R"("prefix_size": 65535, "adv_valid_lifetime": 4294967295, )"
                        R"("adv_preferred_lifetime": 4294967295, "adv_on_link": false, "adv_autonomous": false, )"
                        R"("rdnss1": "", "rdnss2": ""}, "enable_ula": false, "ipv6_ula_settings": )"
                        R"({"ula_prefix": "", "ula_prefix_len": 4294967295, "ula_valid_time": 4294967295, )"
                        R"("ula_prefer_time": 4294967295}})");
}

TEST_F(Ipv6RadvdTo, WritesEachSwitchFromItsOwnField)
{
    expect_switches({{"adv_managed_flag", &kelmora_ipv6_radvd::adv_managed_flag},
                     {"adv_on_link", &kelmora_ipv6_radvd::adv_on_link},
                     {"adv_autonomous", &kelmora_ipv6_radvd::adv_autonomous},
                     {"enable_ula", &kelmora_ipv6_radvd::enable_ula}});
}

TEST_F(Ipv6RadvdTo, LooksAtAllBitsOfTheAutomaticPrefix)
{
    for (const std::uint32_t on : {1U, 2U, 256U, 65536U, 2147483648U, 4294967295U}) {
        nodes_.clear();
        add("").ipv6_prefix_mode_auto = on;
        std::string expected = empty_text;
        const std::string off = R"("ipv6_prefix_mode_auto": false)";
        expected.replace(expected.find(off), off.size(), R"("ipv6_prefix_mode_auto": true)");
        EXPECT_EQ(object(), expected) << on;
    }
}

TEST_F(Ipv6RadvdTo, CutsTextsToOneByteLessThanTheirField)
{
    kelmora_ipv6_radvd &radvd = add("");
    fill_whole(radvd.prefix, 'p');
    fill_whole(radvd.rdnss1, '1');
    fill_whole(radvd.rdnss2, '2');
    fill_whole(radvd.ula_prefix, 'u');
    fill_whole(nodes_.front().resource()->id, 'n');
    EXPECT_THAT(object(), AllOf(HasSubstr(R"({"prefix": ")" + std::string(45, 'p') + '"'),
                                HasSubstr(R"("rdnss1": ")" + std::string(45, '1') + '"'),
                                HasSubstr(R"("rdnss2": ")" + std::string(45, '2') + "\"}"),
                                HasSubstr(R"({"ula_prefix": "uuuuuuuuuuuuuuuu", "ula_prefix_len")"),
                                HasSubstr(R"({"id": ")" + std::string(128, 'n') + '"')));
}

TEST_F(Ipv6RadvdTo, LeavesOutATextWhoseCutSplitsACharacter)
{
    kelmora_ipv6_radvd &radvd = add("br0", sample);
    fill_whole(radvd.ula_prefix, 'u');
    radvd.ula_prefix[15] = '\xC3'; // the first byte of a two-byte character: the last that is written
    radvd.ula_prefix[16] = '\xA4';
    EXPECT_THAT(object(), HasSubstr(R"("ipv6_ula_settings": {"ula_prefix_len": 48)"));
}

TEST_F(Ipv6RadvdTo, LeavesOutTextsThatAreNotUtf8)
{
    kelmora_ipv6_radvd &radvd = add("br0", sample);
    set(radvd.prefix, "caf\xE9");
    set(radvd.rdnss1, "\xFF");
    set(radvd.rdnss2, "\xE2\x82");
    EXPECT_THAT(object(), AllOf(HasSubstr(R"("ipv6_prefix": {"prefix_size": 64)"),
                                HasSubstr(R"("adv_autonomous": false}, "enable_ula")")));
}

TEST_F(Ipv6RadvdTo, WritesOtherScriptsAndSlashesAsTheyAre)
{
    set(add("br0", sample).rdnss1, "Büro/\"2\" 北");
    EXPECT_THAT(object(), HasSubstr("\"rdnss1\": \"Büro/\\\"2\\\" 北\""));
}

TEST_F(Ipv6RadvdTo, GrowsTheBufferForManyNodes)
{
    std::string expected = "[";
    for (int i = 0; i < 20; ++i) {
        add("br0", sample);
        expected += std::string(sample_text) + (i < 19 ? ", " : "]");
    }
    EXPECT_EQ(list(), expected);
    EXPECT_EQ(reallocations_, 1U);
}

constexpr char document[] = R"({
    "max_rtr_adv_interval": 1800, "min_rtr_adv_interval": 450, "adv_managed_flag": true,
    "ipv6_prefix_mode_auto": true,
    "ipv6_prefix": {
        "prefix": "2001:db8:99:4200::", "prefix_size": 60, "adv_valid_lifetime": 3600, "adv_preferred_lifetime": 1200,
        "adv_on_link": true, "adv_autonomous": true, "rdnss1": "2001:db8:99::53", "rdnss2": "2001:db8:99::54"
    },
    "enable_ula": true,
    "ipv6_ula_settings": {
        "ula_prefix": "fd00:db8:77::", "ula_prefix_len": 56, "ula_valid_time": 900, "ula_prefer_time": 300
    },
    "id": "never read"
})";

class Ipv6RadvdFrom : public FromTest<kelmora_ipv6_radvd> {
protected:
    Ipv6RadvdFrom() : FromTest(ipv6_radvd_from_translator, document) {}

    /// The rules of a lifetime, the only numbers here that may be reals and that stop at the largest.
    void expect_lifetime(const std::string &path, const std::uint32_t &field)
    {
        const std::vector<std::pair<std::string, std::uint32_t>> cases = {
            {"0", 0U},
            {"1", 1U},
            {"2147483647", 2147483647U},
            {"2147483648", 2147483648U},
            {"4294967294", 4294967294U},
            {"4294967295", 4294967295U},
            {"4294967296", 4294967295U},
            {"5000000000", 4294967295U},
            {"9223372036854775807", 4294967295U},
            {"-1", 4294967295U},
            {"-2", 4294967294U},
            {"-2147483648", 2147483648U},
            {"-2147483649", 2147483648U},
            {"-5000000000", 2147483648U},
            {"-9223372036854775808", 2147483648U},
            {"0.9", 0U},
            {"-0.9", 0U},
            {"3600.9", 3600U},
            {"2147483647.5", 2147483647U},
            {"2147483648.5", 2147483648U},
            {"4294967295.0", 4294967295U},
            {"4294967295.9", 4294967295U},
            {"1e300", 4294967295U},
            {"-1.5", 4294967295U},
            {"-1e300", 2147483648U},
            {"\"7\"", 0U},
            {"true", 0U},
            {"false", 0U},
            {"null", 0U},
            {"{}", 0U},
            {"[7]", 0U},
        };
        for (const auto &[json, expected] : cases) {
            poison();
            EXPECT_TRUE(accepts(with(document, path, json)));
            EXPECT_EQ(field, expected) << path << ": " << json;
        }
    }
};

TEST_F(Ipv6RadvdFrom, StoresEveryKey)
{
    EXPECT_TRUE(accepts(document));
    EXPECT_EQ(record().max_rtr_adv_interval, 1800U);
    EXPECT_EQ(record().min_rtr_adv_interval, 450U);
    EXPECT_EQ(record().adv_managed_flag, 1);
    EXPECT_EQ(record().ipv6_prefix_mode_auto, 1U);
    EXPECT_STREQ(record().prefix, "2001:db8:99:4200::");
    EXPECT_EQ(record().prefix_size, 60);
    EXPECT_EQ(record().adv_valid_lifetime, 3600U);
    EXPECT_EQ(record().adv_preferred_lifetime, 1200U);
    EXPECT_EQ(record().adv_on_link, 1);
    EXPECT_EQ(record().adv_autonomous, 1);
    EXPECT_STREQ(record().rdnss1, "2001:db8:99::53");
    EXPECT_STREQ(record().rdnss2, "2001:db8:99::54");
    EXPECT_EQ(record().enable_ula, 1);
    EXPECT_STREQ(record().ula_prefix, "fd00:db8:77::");
    EXPECT_EQ(record().ula_prefix_len, 56U);
    EXPECT_EQ(record().ula_valid_time, 900U);
    EXPECT_EQ(record().ula_prefer_time, 300U);
}

TEST_F(Ipv6RadvdFrom, AsksForTheRequiredKeysInOrder)
{
    expect_required_in_order({
        {"max_rtr_adv_interval", "max_rtr_adv_interval", "max_rtr_adv_interval field not found"},
        {"min_rtr_adv_interval", "min_rtr_adv_interval", "min_rtr_adv_interval field not found"},
        {"adv_managed_flag", "adv_managed_flag", "adv_managed_flag field not found"},
        {"ipv6_prefix_mode_auto", "ipv6_prefix_mode_auto", "ipv6_prefix_mode_auto field not found"},
        {"ipv6_prefix.prefix", "ipv6_prefix:prefix", "prefix field not found"},
        {"ipv6_prefix.prefix_size", "ipv6_prefix:prefix_size", "prefix_size field not found"},
        {"ipv6_prefix.adv_valid_lifetime", "ipv6_prefix:adv_valid_lifetime", "adv_valid_lifetime field not found"},
        {"ipv6_prefix.adv_preferred_lifetime", "ipv6_prefix:adv_preferred_lifetime",
         "adv_preferred_lifetime field not found"},
        {"ipv6_prefix.adv_on_link", "ipv6_prefix:adv_on_link", "adv_on_link field not found"},
        {"ipv6_prefix.adv_autonomous", "ipv6_prefix:adv_autonomous", "adv_autonomous field not found"},
        {"ipv6_prefix.rdnss1", "ipv6_prefix:rdnss1", "rdnss1 field not found"},
        {"ipv6_prefix.rdnss2", "ipv6_prefix:rdnss2", "rdnss2 field not found"},
        {"enable_ula", "enable_ula", "enable_ula field not found"},
        {"ipv6_ula_settings.ula_prefix", "ipv6_ula_settings:ula_prefix", "ula_prefix field not found"},
        {"ipv6_ula_settings.ula_prefix_len", "ipv6_ula_settings:ula_prefix_len", "ula_prefix_len field not found"},
        {"ipv6_ula_settings.ula_valid_time", "ipv6_ula_settings:ula_valid_time", "ula_valid_time field not found"},
        {"ipv6_ula_settings.ula_prefer_time", "ipv6_ula_settings:ula_prefer_time", "ula_prefer_time field not found"},
    });
}

TEST_F(Ipv6RadvdFrom, AsksForThePrefixBehindTheSwitchesAndBeforeTheUniqueLocalOne)
{
    const std::string neither = without_all(document, {"ipv6_prefix", "enable_ula", "ipv6_ula_settings"});
    EXPECT_TRUE(rejects(without(neither, "ipv6_prefix_mode_auto"), "ipv6_prefix_mode_auto",
                        "ipv6_prefix_mode_auto field not found"));
    EXPECT_TRUE(rejects(neither, "ipv6_prefix", "ipv6_prefix field not found"));
    EXPECT_TRUE(rejects(without_all(document, {"ipv6_prefix.rdnss2", "enable_ula", "ipv6_ula_settings"}),
                        "ipv6_prefix:rdnss2", "rdnss2 field not found"));
    EXPECT_TRUE(rejects(without_all(document, {"enable_ula", "ipv6_ula_settings"}), "enable_ula",
                        "enable_ula field not found"));
}

TEST_F(Ipv6RadvdFrom, MissingFirstKeyStoresNothing)
{
    EXPECT_TRUE(rejects(without(document, "max_rtr_adv_interval"), "max_rtr_adv_interval",
                        "max_rtr_adv_interval field not found"));
    EXPECT_TRUE(untouched(record()));
}

TEST_F(Ipv6RadvdFrom, MissingModeLeavesTheWholeSwitchAsItWas)
{
    EXPECT_TRUE(rejects(without(document, "ipv6_prefix_mode_auto"), "ipv6_prefix_mode_auto",
                        "ipv6_prefix_mode_auto field not found"));
    EXPECT_EQ(record().adv_managed_flag, 1);
    EXPECT_TRUE(untouched(record().ipv6_prefix_mode_auto));
    EXPECT_TRUE(untouched(record().prefix));
    EXPECT_TRUE(untouched(record().enable_ula));
}

TEST_F(Ipv6RadvdFrom, MissingPrefixKeepsWhatIsStoredBeforeIt)
{
    EXPECT_TRUE(rejects(without(document, "ipv6_prefix"), "ipv6_prefix", "ipv6_prefix field not found"));
    EXPECT_EQ(record().max_rtr_adv_interval, 1800U);
    EXPECT_EQ(record().ipv6_prefix_mode_auto, 1U);
    EXPECT_TRUE(untouched(record().prefix));
    EXPECT_TRUE(untouched(record().adv_valid_lifetime));
    EXPECT_TRUE(untouched(record().enable_ula));
    EXPECT_TRUE(untouched(record().ula_prefix));
}

TEST_F(Ipv6RadvdFrom, MissingLifetimesStoreNothing)
{
    EXPECT_TRUE(rejects(without(document, "ipv6_prefix.adv_valid_lifetime"), "ipv6_prefix:adv_valid_lifetime",
                        "adv_valid_lifetime field not found"));
    EXPECT_EQ(record().prefix_size, 60);
    EXPECT_TRUE(untouched(record().adv_valid_lifetime));
    EXPECT_TRUE(untouched(record().adv_preferred_lifetime));
    EXPECT_TRUE(rejects(without(document, "ipv6_prefix.adv_preferred_lifetime"), "ipv6_prefix:adv_preferred_lifetime",
                        "adv_preferred_lifetime field not found"));
    EXPECT_EQ(record().adv_valid_lifetime, 3600U);
    EXPECT_TRUE(untouched(record().adv_preferred_lifetime));
    EXPECT_TRUE(untouched(record().adv_on_link));
}

TEST_F(Ipv6RadvdFrom, MissingUniqueLocalSettingsKeepEverythingStoredBefore)
{
    EXPECT_TRUE(
        rejects(without(document, "ipv6_ula_settings"), "ipv6_ula_settings", "ipv6_ula_settings field not found"));
    EXPECT_EQ(record().max_rtr_adv_interval, 1800U);
    EXPECT_EQ(record().min_rtr_adv_interval, 450U);
    EXPECT_EQ(record().adv_managed_flag, 1);
    EXPECT_EQ(record().ipv6_prefix_mode_auto, 1U);
    EXPECT_STREQ(record().prefix, "2001:db8:99:4200::");
    EXPECT_EQ(record().prefix_size, 60);
    EXPECT_EQ(record().adv_valid_lifetime, 3600U);
    EXPECT_EQ(record().adv_preferred_lifetime, 1200U);
    EXPECT_EQ(record().adv_on_link, 1);
    EXPECT_EQ(record().adv_autonomous, 1);
    EXPECT_STREQ(record().rdnss1, "2001:db8:99::53");
    EXPECT_STREQ(record().rdnss2, "2001:db8:99::54");
    EXPECT_EQ(record().enable_ula, 1);
    EXPECT_TRUE(untouched(record().ula_prefix));
    EXPECT_TRUE(untouched(record().ula_prefix_len));
    EXPECT_TRUE(untouched(record().ula_valid_time));
    EXPECT_TRUE(untouched(record().ula_prefer_time));
}

TEST_F(Ipv6RadvdFrom, AsksForTheUniqueLocalSettingsEvenWhenTheyAreOff)
{
    EXPECT_TRUE(rejects(without(with(document, "enable_ula", "false"), "ipv6_ula_settings"), "ipv6_ula_settings",
                        "ipv6_ula_settings field not found"));
}

TEST_F(Ipv6RadvdFrom, MissingLastKeyKeepsTheRest)
{
    EXPECT_TRUE(rejects(without(document, "ipv6_ula_settings.ula_prefer_time"), "ipv6_ula_settings:ula_prefer_time",
                        "ula_prefer_time field not found"));
    EXPECT_STREQ(record().ula_prefix, "fd00:db8:77::");
    EXPECT_EQ(record().ula_prefix_len, 56U);
    EXPECT_EQ(record().ula_valid_time, 900U);
    EXPECT_TRUE(untouched(record().ula_prefer_time));
}

TEST_F(Ipv6RadvdFrom, GroupsThatAreNoObjectsLackTheirKeys)
{
    for (const char *other : {"null", "{}", "[]", "1", "1.5", "true", "\"prefix\"", R"([{"prefix": "::"}])"}) {
        poison();
        EXPECT_TRUE(rejects(with(document, "ipv6_prefix", other), "ipv6_prefix:prefix", "prefix field not found"));
        EXPECT_EQ(record().ipv6_prefix_mode_auto, 1U);
        EXPECT_TRUE(untouched(record().prefix));
        poison();
        EXPECT_TRUE(rejects(with(document, "ipv6_ula_settings", other), "ipv6_ula_settings:ula_prefix",
                            "ula_prefix field not found"));
        EXPECT_EQ(record().enable_ula, 1);
        EXPECT_TRUE(untouched(record().ula_prefix));
    }
}

TEST_F(Ipv6RadvdFrom, ReadsGroupedKeysNowhereElse)
{
    EXPECT_TRUE(rejects(with(without(document, "ipv6_prefix.prefix"), "prefix", "\"::\""), "ipv6_prefix:prefix",
                        "prefix field not found"));
    EXPECT_TRUE(rejects(with(without(document, "enable_ula"), "ipv6_ula_settings.enable_ula", "true"), "enable_ula",
                        "enable_ula field not found"));
}

TEST_F(Ipv6RadvdFrom, TakesOnlyTrueForTrue)
{
    expect_boolean("adv_managed_flag", record().adv_managed_flag);
    expect_boolean("ipv6_prefix.adv_on_link", record().adv_on_link);
    expect_boolean("ipv6_prefix.adv_autonomous", record().adv_autonomous);
    expect_boolean("enable_ula", record().enable_ula);
}

TEST_F(Ipv6RadvdFrom, StoresTheAutomaticPrefixInAllItsBits)
{
    for (const auto &[json, expected] : std::vector<std::pair<std::string, std::uint32_t>>{{"true", 1U},
                                                                                           {"false", 0U},
                                                                                           {"1", 0U},
                                                                                           {"1.0", 0U},
                                                                                           {"\"true\"", 0U},
                                                                                           {"null", 0U},
                                                                                           {"{}", 0U},
                                                                                           {"[true]", 0U}}) {
        poison();
        EXPECT_TRUE(accepts(with(document, "ipv6_prefix_mode_auto", json)));
        EXPECT_EQ(record().ipv6_prefix_mode_auto, expected) << json;
    }
}

TEST_F(Ipv6RadvdFrom, CutsIntegersToTheirWidth)
{
    expect_integer("max_rtr_adv_interval", record().max_rtr_adv_interval);
    expect_integer("min_rtr_adv_interval", record().min_rtr_adv_interval);
    expect_integer("ipv6_prefix.prefix_size", record().prefix_size);
    expect_integer("ipv6_ula_settings.ula_prefix_len", record().ula_prefix_len);
}

TEST_F(Ipv6RadvdFrom, StoresTheLow16BitsOfThePrefixSize)
{
    EXPECT_TRUE(accepts(with(document, "ipv6_prefix.prefix_size", "65600")));
    EXPECT_EQ(record().prefix_size, 64);
    EXPECT_EQ(record().adv_valid_lifetime, 3600U);
}

TEST_F(Ipv6RadvdFrom, StopsLifetimesAtTheLargestAndCutsTheirFraction)
{
    expect_lifetime("ipv6_prefix.adv_valid_lifetime", record().adv_valid_lifetime);
    expect_lifetime("ipv6_prefix.adv_preferred_lifetime", record().adv_preferred_lifetime);
    expect_lifetime("ipv6_ula_settings.ula_valid_time", record().ula_valid_time);
    expect_lifetime("ipv6_ula_settings.ula_prefer_time", record().ula_prefer_time);
}

TEST_F(Ipv6RadvdFrom, CutsTextsToTheirField)
{
    expect_string("ipv6_prefix.prefix", record().prefix);
    expect_string("ipv6_prefix.rdnss1", record().rdnss1);
    expect_string("ipv6_prefix.rdnss2", record().rdnss2);
    expect_string("ipv6_ula_settings.ula_prefix", record().ula_prefix);
}

TEST_F(Ipv6RadvdFrom, StoresTheFirst16CharactersOfAUniqueLocalPrefix)
{
    EXPECT_TRUE(accepts(with(document, "ipv6_ula_settings.ula_prefix", R"("fd12:3456:789a:1::")")));
    EXPECT_STREQ(record().ula_prefix, "fd12:3456:789a:1");
    EXPECT_EQ(record().ula_prefix_len, 56U);
}

TEST(Ipv6Radvd, WritesBackTheLifetimesThatLastForEver)
{
    kelmora_host::Node node("br0", kelmora_host::Record(kelmora_ipv6_radvd{}));
    const std::string text = with(with(document, "ipv6_prefix.adv_valid_lifetime", "4294967295"),
                                  "ipv6_ula_settings.ula_prefer_time", "4294967295.0");
    EXPECT_EQ(kelmora_host::from_json(ipv6_radvd_from_translator, node, text).result, 1);
    std::vector<kelmora_host::Node> nodes{node};
    EXPECT_THAT(kelmora_host::to_json(ipv6_radvd_to_translator, nodes, false).text,
                AllOf(HasSubstr(R"("adv_valid_lifetime": 4294967295)"), HasSubstr(R"("ula_prefer_time": 4294967295)"),
                      Not(HasSubstr("-1"))));
}

} // namespace

} // namespace kelmora_test::ipv6_radvd_test
