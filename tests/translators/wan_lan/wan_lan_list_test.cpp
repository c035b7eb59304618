#include "tests/support/from_test.h"
#include "tests/support/to_test.h"

#include "kelmora_json.h"
#include "records/wan_lan.h"

namespace kelmora_test::wan_lan_list_test {

namespace {

using testing::AllOf;
using testing::HasSubstr;

using Entry = kelmora_wan_lan_list_entry;

constexpr kelmora_wan_lan_list sample{
    .lan_list = {{.lan_id = "eth0.1", .enabled = 1}, {.lan_id = "eth0.2", .enabled = 0}},
};

constexpr char sample_text[] = R"({"id": "wan0", "lan_list": [{"lan_id": "eth0.1", "enabled": true}, )"
                               R"({"lan_id": "eth0.2", "enabled": false}]})";

class WanLanListTo : public ToTest<kelmora_wan_lan_list> {
protected:
    WanLanListTo() : ToTest(wan_lan_list_to_translator) {}
};

TEST_F(WanLanListTo, WritesTheKeysInOrder)
{
    add("wan0", sample);
    EXPECT_EQ(object(), sample_text);
    EXPECT_EQ(list(), "[" + std::string(sample_text) + "]");
}

TEST_F(WanLanListTo, SkipsUnusedEntries)
{
    add("", {.lan_list = {{}, {.lan_id = "eth0.2", .enabled = 1}}});
    EXPECT_EQ(object(), R"({"id": "", "lan_list": [{"lan_id": "eth0.2", "enabled": true}]})");
}

TEST_F(WanLanListTo, SkipsEntriesThatAreEnabledWithoutAName)
{
    add("", {.lan_list = {{.lan_id = "", .enabled = 1}}}).lan_list[0].lan_id[1] = 'x'; // left there, behind the NUL
    EXPECT_EQ(object(), R"({"id": "", "lan_list": []})");
}

TEST_F(WanLanListTo, WritesTheLastEntryToo)
{
    set(add("").lan_list[15].lan_id, "eth0.16");
    EXPECT_EQ(object(), R"({"id": "", "lan_list": [{"lan_id": "eth0.16", "enabled": false}]})");
}

TEST_F(WanLanListTo, WritesAllSixteenEntriesInOrder)
{
    kelmora_wan_lan_list &ports = add("");
    for (int i = 0; i < 16; ++i)
        set(ports.lan_list[i].lan_id, std::string(1, static_cast<char>('a' + i)));
    ports.lan_list[14].enabled = 1;
    EXPECT_EQ(object(), R"({"id": "", "lan_list": [{"lan_id": "a", "enabled": false}, )"
                        R"({"lan_id": "b", "enabled": false}, {"lan_id": "c", "enabled": false}, )"
                        R"({"lan_id": "d", "enabled": false}, {"lan_id": "e", "enabled": false}, )"
                        R"({"lan_id": "f", "enabled": false}, {"lan_id": "g", "enabled": false}, )"
                        R"({"lan_id": "h", "enabled": false}, {"lan_id": "i", "enabled": false}, )"
                        R"({"lan_id": "j", "enabled": false}, {"lan_id": "k", "enabled": false}, )"
                        R"({"lan_id": "l", "enabled": false}, {"lan_id": "m", "enabled": false}, )"
                        R"({"lan_id": "n", "enabled": false}, {"lan_id": "o", "enabled": true}, )"
                        R"({"lan_id": "p", "enabled": false}]})");
}

TEST_F(WanLanListTo, WritesAnySwitchButZeroAsTrue)
{
    for (const int on : {2, 128, 255}) {
        nodes_.clear();
        add("", sample).lan_list[1].enabled = static_cast<std::uint8_t>(on);
        EXPECT_THAT(object(), HasSubstr(R"({"lan_id": "eth0.2", "enabled": true})"));
    }
}

TEST_F(WanLanListTo, CutsTextsToOneByteLessThanTheirField)
{
    kelmora_wan_lan_list &ports = add("", sample);
    fill_whole(ports.lan_list[0].lan_id, 'l');
    fill_whole(nodes_.front().resource()->id, 'n');
    EXPECT_THAT(object(), AllOf(HasSubstr(R"({"lan_id": "lllllllll", "enabled": true})"),
                                HasSubstr(R"("id": ")" + std::string(128, 'n') + '"')));
}

TEST_F(WanLanListTo, LeavesOutANameThatIsNotUtf8ButKeepsItsEntry)
{
    set(add("wan0", sample).lan_list[0].lan_id, "\xE9");
    EXPECT_EQ(object(), R"({"id": "wan0", "lan_list": [{"enabled": true}, {"lan_id": "eth0.2", "enabled": false}]})");
}

constexpr char document[] = R"({
    "lan_list": [
        {"lan_id": "eth0.3", "enabled": true}, {"lan_id": "eth0.4", "enabled": false}, {"lan_id": "wlan1", "enabled": true}
    ],
    "id": "never read"
})";

/// An array of so many entries, named port0 and so on, all enabled.
std::string ports(int count)
{
    std::string json = "[";
    for (int i = 0; i < count; ++i)
        json += (i == 0 ? "" : ", ") + (R"({"lan_id": "port)" + std::to_string(i)) + R"(", "enabled": true})";
    return json + "]";
}

class WanLanListFrom : public FromTest<kelmora_wan_lan_list> {
protected:
    WanLanListFrom() : FromTest(wan_lan_list_from_translator, document) {}

    /// An entry without as much as a byte of poison.
    static testing::AssertionResult is_clear(const Entry &entry)
    {
        const std::string bytes(reinterpret_cast<const char *>(&entry), sizeof entry);
        return bytes == std::string(sizeof entry, '\0') ? testing::AssertionSuccess() : testing::AssertionFailure();
    }
};

TEST_F(WanLanListFrom, StoresTheEntriesAndClearsTheRest)
{
    EXPECT_TRUE(accepts(document));
    EXPECT_STREQ(record().lan_list[0].lan_id, "eth0.3");
    EXPECT_EQ(record().lan_list[0].enabled, 1);
    EXPECT_STREQ(record().lan_list[1].lan_id, "eth0.4");
    EXPECT_EQ(record().lan_list[1].enabled, 0);
    EXPECT_STREQ(record().lan_list[2].lan_id, "wlan1");
    EXPECT_EQ(record().lan_list[2].enabled, 1);
    for (int i = 3; i < 16; ++i)
        EXPECT_TRUE(is_clear(record().lan_list[i])) << i;
}

TEST_F(WanLanListFrom, TakesSixteenEntriesAndIgnoresTheOthers)
{
    for (int count = 0; count <= 20; ++count) {
        poison();
        EXPECT_TRUE(accepts(with(document, "lan_list", ports(count))));
        for (int i = 0; i < 16; ++i) {
            if (i < count) {
                EXPECT_EQ(record().lan_list[i].lan_id, "port" + std::to_string(i));
                EXPECT_EQ(record().lan_list[i].enabled, 1);
            } else {
                EXPECT_TRUE(is_clear(record().lan_list[i])) << i << " of " << count;
            }
        }
    }
}

TEST_F(WanLanListFrom, NeverLooksAtTheSeventeenthEntry)
{
    EXPECT_TRUE(accepts(without(with(document, "lan_list", ports(17)), "lan_list.16.lan_id")));
    EXPECT_STREQ(record().lan_list[15].lan_id, "port15");
}

TEST_F(WanLanListFrom, AsksForTheList) { expect_required_in_order({{"lan_list", "lan_list", "field not found"}}); }

TEST_F(WanLanListFrom, MissingListStoresNothing)
{
    EXPECT_TRUE(rejects(without(document, "lan_list"), "lan_list", "field not found"));
    EXPECT_TRUE(untouched(record()));
}

TEST_F(WanLanListFrom, ClearsEveryEntryForAnythingButAnArray)
{
    for (const char *other :
         {"[]", "{}", R"({"lan_id": "eth0.1", "enabled": true})", "null", "3", "\"eth0.1\"", "true", "1.5"}) {
        poison();
        EXPECT_TRUE(accepts(with(document, "lan_list", other)));
        for (const Entry &entry : record().lan_list)
            EXPECT_TRUE(is_clear(entry)) << other;
    }
}

TEST_F(WanLanListFrom, MissingNameKeepsTheEntriesBeforeAndBehindIt)
{
    leaks_document_ = true;
    EXPECT_TRUE(rejects(without(document, "lan_list.1.lan_id"), "lan_list.lan_id", "field not found"));
    EXPECT_STREQ(record().lan_list[0].lan_id, "eth0.3");
    EXPECT_EQ(record().lan_list[0].enabled, 1);
    for (int i = 1; i < 16; ++i)
        EXPECT_TRUE(untouched(record().lan_list[i])) << i;
}

TEST_F(WanLanListFrom, MissingSwitchStoresNothingOfItsEntry)
{
    leaks_document_ = true;
    EXPECT_TRUE(rejects(without(document, "lan_list.1.enabled"), "lan_list.enabled", "field not found"));
    EXPECT_STREQ(record().lan_list[0].lan_id, "eth0.3");
    for (int i = 1; i < 16; ++i)
        EXPECT_TRUE(untouched(record().lan_list[i])) << i;
}

TEST_F(WanLanListFrom, AsksForTheNameBeforeTheSwitch)
{
    leaks_document_ = true;
    EXPECT_TRUE(rejects(with(document, "lan_list", "[{}]"), "lan_list.lan_id", "field not found"));
    EXPECT_TRUE(untouched(record()));
}

TEST_F(WanLanListFrom, AnEntryThatIsNoObjectLacksItsName)
{
    leaks_document_ = true;
    for (const char *other :
         {"null", "1", "\"eth0.1\"", "true", "1.5", "[]", R"([{"lan_id": "a", "enabled": true}])"}) {
        EXPECT_TRUE(
            rejects(with(document, "lan_list", "[" + std::string(other) + "]"), "lan_list.lan_id", "field not found"));
        EXPECT_TRUE(untouched(record()));
    }
}

TEST_F(WanLanListFrom, TheSixteenthEntryMayFailToo)
{
    leaks_document_ = true;
    const std::string text = with(document, "lan_list", ports(16));
    EXPECT_TRUE(rejects(without(text, "lan_list.15.lan_id"), "lan_list.lan_id", "field not found"));
    EXPECT_STREQ(record().lan_list[14].lan_id, "port14");
    EXPECT_TRUE(untouched(record().lan_list[15]));
}

TEST_F(WanLanListFrom, CountsNullAsPresentInEntries)
{
    EXPECT_TRUE(accepts(with(document, "lan_list", R"([{"lan_id": null, "enabled": null}])")));
    EXPECT_STREQ(record().lan_list[0].lan_id, "");
    EXPECT_EQ(record().lan_list[0].enabled, 0);
}

TEST_F(WanLanListFrom, StoresEntriesWithoutAName)
{
    EXPECT_TRUE(accepts(with(document, "lan_list.0.lan_id", "\"\"")));
    EXPECT_STREQ(record().lan_list[0].lan_id, "");
    EXPECT_EQ(record().lan_list[0].enabled, 1);
    EXPECT_STREQ(record().lan_list[1].lan_id, "eth0.4"); // its place is its place in the list
}

TEST_F(WanLanListFrom, TakesOnlyTrueForTrue)
{
    expect_boolean("lan_list.0.enabled", record().lan_list[0].enabled);
    expect_boolean("lan_list.2.enabled", record().lan_list[2].enabled);
}

TEST_F(WanLanListFrom, CutsTextsToTheirField)
{
    expect_string("lan_list.0.lan_id", record().lan_list[0].lan_id);
    expect_string("lan_list.2.lan_id", record().lan_list[2].lan_id);
}

} // namespace

} // namespace kelmora_test::wan_lan_list_test
