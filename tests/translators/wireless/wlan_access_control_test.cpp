#include "tests/support/from_test.h"
#include "tests/support/to_test.h"

#include "host/plugin/lists.h"
#include "kelmora_json.h"
#include "records/wireless.h"

#include <optional>

namespace kelmora_test::wlan_access_control_test {

namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

using Entry = kelmora_wlan_access_control_mac;

/// A new record each time, as each node owns its chain.
kelmora_wlan_access_control sample()
{
    return {
        .mode = 2,
        .mac_list = kelmora_host::make_chain<Entry>({{.mac = "5c:e9:31:0a:77:d2"}, {.mac = "a4:83:e7:4c:19:60"}}),
    };
}

constexpr char sample_text[] = R"({"id": "wlan0", "mode": 2, "mac_list": ["5c:e9:31:0a:77:d2", "a4:83:e7:4c:19:60"]})";

constexpr char empty_text[] = R"({"id": "wlan1", "mode": 0, "mac_list": []})";

class WlanAccessControlTo : public ToTest<kelmora_wlan_access_control> {
protected:
    WlanAccessControlTo() : ToTest(wlan_access_control_to_translator) {}
};

TEST_F(WlanAccessControlTo, WritesTheKeysInOrder)
{
    add("wlan0", sample());
    EXPECT_EQ(object(), sample_text);
    EXPECT_EQ(list(), "[" + std::string(sample_text) + "]");
}

TEST_F(WlanAccessControlTo, WritesAnEmptyChainAsAnEmptyArray)
{
    add("wlan1");
    EXPECT_EQ(object(), empty_text);
    EXPECT_EQ(list(), "[" + std::string(empty_text) + "]");
}

TEST_F(WlanAccessControlTo, WritesTheModeAsUnsigned)
{
    add("", {.mode = 4294967295});
    EXPECT_EQ(object(), R"({"id": "", "mode": 4294967295, "mac_list": []})");
}

TEST_F(WlanAccessControlTo, CutsTextsToOneByteLessThanTheirField)
{
    fill_whole(add("", sample()).mac_list->mac, 'm');
    fill_whole(nodes_.front().resource()->id, 'n');
    EXPECT_EQ(object(), R"({"id": ")" + std::string(128, 'n') +
                            R"(", "mode": 2, "mac_list": ["mmmmmmmmmmmmmmmmm", "a4:83:e7:4c:19:60"]})");
}

TEST_F(WlanAccessControlTo, SkipsAnAddressThatIsNotUtf8)
{
    Entry &entry = *add("wlan0", sample()).mac_list;
    fill_whole(entry.mac, 'm');
    entry.mac[16] = '\xC3'; // the first byte of a character that the cut splits
    entry.mac[17] = '\xA4';
    EXPECT_EQ(object(), R"({"id": "wlan0", "mode": 2, "mac_list": ["a4:83:e7:4c:19:60"]})");
}

TEST_F(WlanAccessControlTo, WritesOtherScriptsSlashesAndEmptyTextsAsTheyAre)
{
    kelmora_wlan_access_control &control = add("wlan0", sample());
    set(control.mac_list->mac, "ä/\"北");
    set(control.mac_list->next->mac, "");
    EXPECT_THAT(object(), HasSubstr("[\"ä/\\\"北\", \"\"]"));
}

TEST_F(WlanAccessControlTo, WritesManyAddressesIntoALargerBuffer)
{
    kelmora_wlan_access_control &control = add("wlan1");
    std::string expected = R"({"id": "wlan1", "mode": 0, "mac_list": [)";
    for (int i = 0; i < 300; ++i) {
        auto *entry = kelmora_host::make_chain<Entry>({{.mac = "5c:e9:31:0a:77:d2"}});
        entry->next = control.mac_list;
        control.mac_list = entry;
        expected += i < 299 ? R"("5c:e9:31:0a:77:d2", )" : R"("5c:e9:31:0a:77:d2"]})";
    }
    EXPECT_EQ(object(), expected);
    EXPECT_EQ(reallocations_, 1U);
}

constexpr char document[] =
    R"({"id": "never read", "mode": 7, "mac_list": ["f4:0f:24:b1:66:03", "0c:d7:46:2e:90:5b"]})";

class WlanAccessControlFrom : public FromTest<kelmora_wlan_access_control> {
protected:
    WlanAccessControlFrom() : FromTest(wlan_access_control_from_translator, document) {}

    std::vector<std::string> addresses()
    {
        std::vector<std::string> addresses;
        for (const Entry *entry = record().mac_list; entry != nullptr; entry = entry->next)
            addresses.emplace_back(entry->mac);
        return addresses;
    }

    /// The document with another list.
    static std::string listing(const std::string &json) { return with(document, "mac_list", json); }

    /// A list of one element more than the host has room for from now on.
    std::string too_many(const std::string &element)
    {
        limit_.emplace(2);
        return listing("[" + element + "," + element + "," + element + "]");
    }

    std::optional<kelmora_host::ListLimit> limit_;
};

TEST_F(WlanAccessControlFrom, StoresEveryKey)
{
    EXPECT_TRUE(accepts(document));
    EXPECT_EQ(record().mode, 7U);
    EXPECT_THAT(addresses(), ElementsAre("f4:0f:24:b1:66:03", "0c:d7:46:2e:90:5b"));
}

TEST_F(WlanAccessControlFrom, AsksForTheModeFirst)
{
    for (const char *text : {"{}", "[]", "[7]", R"({"mac_list": []})"}) {
        EXPECT_TRUE(rejects(text, "mode", "field not found"));
        EXPECT_TRUE(untouched(record().mode));
    }
    EXPECT_TRUE(rejects("[" + std::string(document) + "]", "mode", "field not found"));
    EXPECT_THAT(addresses(), IsEmpty());
}

TEST_F(WlanAccessControlFrom, TakesOnlyIntegersForTheMode)
{
    for (const char *other : {"\"1\"", "1.0", "true", "false", "null", "{}", "[1]"}) {
        EXPECT_TRUE(rejects(with(document, "mode", other), "mode", "data type must be a valid integer"));
        EXPECT_TRUE(untouched(record().mode));
        EXPECT_THAT(addresses(), IsEmpty());
    }
}

TEST_F(WlanAccessControlFrom, CutsTheModeToItsWidth)
{
    for (const auto &[json, expected] :
         std::vector<std::pair<std::string, std::uint32_t>>{{"0", 0},
                                                            {"4294967295", 4294967295},
                                                            {"4294967301", 5},
                                                            {"-1", 4294967295},
                                                            {"9223372036854775807", 4294967295},
                                                            {"-9223372036854775808", 0}}) {
        poison();
        EXPECT_TRUE(accepts(with(document, "mode", json)));
        EXPECT_EQ(record().mode, expected) << json;
    }
}

TEST_F(WlanAccessControlFrom, AsksForTheListAndKeepsTheModeAndTheChain)
{
    Entry *chain = kelmora_host::make_chain<Entry>({{.mac = "old"}});
    record().mac_list = chain;
    EXPECT_TRUE(rejects(R"({"mode": 1})", "mac_list", "field not found"));
    EXPECT_EQ(record().mode, 1U);
    for (const char *other : {"null", "1", "1.0", "true", "\"f4:0f:24:b1:66:03\"", "{}"}) {
        EXPECT_TRUE(rejects(listing(other), "mac_list", "data type must be a valid array"));
        EXPECT_EQ(record().mode, 7U);
        EXPECT_EQ(record().mac_list, chain);
    }
    EXPECT_THAT(addresses(), ElementsAre("old"));
}

TEST_F(WlanAccessControlFrom, HasTheHostReplaceTheChain)
{
    record().mac_list = kelmora_host::make_chain<Entry>({{.mac = "a"}, {.mac = "b"}, {.mac = "c"}});
    EXPECT_TRUE(accepts(document));
    EXPECT_THAT(addresses(), ElementsAre("f4:0f:24:b1:66:03", "0c:d7:46:2e:90:5b"));
}

TEST_F(WlanAccessControlFrom, HasTheHostEmptyTheChainForAnEmptyList)
{
    record().mac_list = kelmora_host::make_chain<Entry>({{.mac = "a"}, {.mac = "b"}});
    EXPECT_TRUE(accepts(R"({"mode": 1, "mac_list": []})"));
    EXPECT_EQ(record().mode, 1U);
    EXPECT_EQ(record().mac_list, nullptr);
}

TEST_F(WlanAccessControlFrom, StoresAnyNumberOfAddresses)
{
    for (int count = 0; count <= 20; ++count) {
        poison();
        std::string json = "[";
        std::vector<std::string> expected;
        for (int i = 0; i < count; ++i) {
            expected.push_back("address " + std::to_string(i));
            json += (i == 0 ? "\"" : ", \"") + expected.back() + '"';
        }
        EXPECT_TRUE(accepts(listing(json + "]")));
        EXPECT_EQ(addresses(), expected);
    }
}

TEST_F(WlanAccessControlFrom, StoresEmptyTextsToo)
{
    EXPECT_TRUE(accepts(listing(R"(["", "b", ""])")));
    EXPECT_THAT(addresses(), ElementsAre("", "b", ""));
}

TEST_F(WlanAccessControlFrom, TakesOnlyTextsForAddressesAndKeepsThoseBefore)
{
    for (const char *other : {"7", "1.5", "true", "false", "null", "{}", "[]", "[\"x\"]"}) {
        poison();
        EXPECT_TRUE(rejects(listing("[\"aa:bb:cc:dd:ee:ff\", " + std::string(other) + ", \"never read\"]"),
                            "mac_address", "data type must be a valid string"));
        EXPECT_EQ(record().mode, 7U);
        EXPECT_THAT(addresses(), ElementsAre("aa:bb:cc:dd:ee:ff", "", "")); // as the host made them
    }
}

TEST_F(WlanAccessControlFrom, CutsAddressesToTheirField)
{
    for (const std::size_t length : {1U, 16U, 17U, 18U, 20U, 65536U}) {
        poison();
        EXPECT_TRUE(accepts(listing("[" + quoted(length) + "]")));
        std::string expected = std::string("abcdefghijklmnopq").substr(0, length);
        expected.resize(18, '\0');
        ASSERT_NE(record().mac_list, nullptr);
        EXPECT_EQ(std::string(record().mac_list->mac, 18), expected);
    }
}

TEST_F(WlanAccessControlFrom, FailsWhenTheHostHasNoRoomForTheList)
{
    record().mac_list = kelmora_host::make_chain<Entry>({{.mac = "old"}});
    EXPECT_TRUE(rejects(too_many("\"\""), "mac_list", "out of memory"));
    EXPECT_EQ(record().mode, 7U);
    EXPECT_EQ(record().mac_list, nullptr); // as the host left it
}

TEST_F(WlanAccessControlFrom, ChecksAnElementBeforeItsPlaceInTheChain)
{
    EXPECT_TRUE(rejects(too_many("0"), "mac_address", "data type must be a valid string"));
}

TEST_F(WlanAccessControlFrom, StoresWhatItGivesOut)
{
    EXPECT_TRUE(accepts(sample_text));
    EXPECT_EQ(record().mode, 2U);
    EXPECT_THAT(addresses(), ElementsAre("5c:e9:31:0a:77:d2", "a4:83:e7:4c:19:60"));
}

} // namespace

} // namespace kelmora_test::wlan_access_control_test
