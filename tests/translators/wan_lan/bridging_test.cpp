#include "tests/support/from_test.h"
#include "tests/support/to_test.h"

#include "kelmora_json.h"
#include "records/wan_lan.h"

namespace kelmora_test::bridging_test {

namespace {

using testing::AllOf;
using testing::HasSubstr;
using testing::Not;

using Entry = kelmora_bridging_mac;

/// A new record each time, as each node owns its chain.
kelmora_bridging sample()
{
    return {
        .ageing_time = 300,
        .spanning_tree_802_1_d = 1,
        .mac_list = kelmora_host::make_chain<Entry>({
            {.port = 1, .mac_addr = "02:1a:11:f0:3c:00", .is_local = 1, .ageing_time = "0.00"},
            {.port = 5, .mac_addr = "5c:e9:31:0a:77:d2", .is_local = 0, .ageing_time = "3.71"},
        }),
    };
}

constexpr char sample_text[] =
    R"({"id": "br0", "ageing_time": 300, "802_1_d_spanning_tree": true, "mac_list": [)"
    R"({"port": 1, "mac_addr": "02:1a:11:f0:3c:00", "is_local": true, "ageing_time": "0.00"}, )"
    R"({"port": 5, "mac_addr": "5c:e9:31:0a:77:d2", "is_local": false, "ageing_time": "3.71"}]})";

constexpr char empty_text[] = R"({"id": "br1", "ageing_time": 0, "802_1_d_spanning_tree": false, "mac_list": []})";

class BridgingTo : public ToTest<kelmora_bridging> {
protected:
    BridgingTo() : ToTest(bridging_to_translator) {}
};

TEST_F(BridgingTo, WritesTheKeysInOrder)
{
    add("br0", sample());
    EXPECT_EQ(object(), sample_text);
    EXPECT_EQ(list(), "[" + std::string(sample_text) + "]");
}

TEST_F(BridgingTo, WritesAnEmptyTableAsAnEmptyArray)
{
    add("br1");
    EXPECT_EQ(object(), empty_text);
    EXPECT_EQ(list(), "[" + std::string(empty_text) + "]");
}

TEST_F(BridgingTo, WritesIntegersAsUnsigned)
{
    add("", {.ageing_time = 4294967295, .mac_list = kelmora_host::make_chain<Entry>({{.port = 65535}})});
    EXPECT_EQ(object(), R"({"id": "", "ageing_time": 4294967295, "802_1_d_spanning_tree": false, "mac_list": [)"
                        R"({"port": 65535, "mac_addr": "", "is_local": false, "ageing_time": ""}]})");
}

TEST_F(BridgingTo, WritesAnySwitchButZeroAsTrue)
{
    kelmora_bridging &bridge = add("br0", sample());
    bridge.spanning_tree_802_1_d = 128;
    bridge.mac_list->next->is_local = 254;
    EXPECT_THAT(object(), AllOf(HasSubstr(R"("802_1_d_spanning_tree": true)"), Not(HasSubstr("false"))));
}

TEST_F(BridgingTo, CutsTextsToOneByteLessThanTheirField)
{
    kelmora_bridging &bridge = add("", sample());
    fill_whole(bridge.mac_list->mac_addr, 'm');
    fill_whole(bridge.mac_list->ageing_time, '9');
    fill_whole(nodes_.front().resource()->id, 'n');
    EXPECT_THAT(object(),
                AllOf(HasSubstr(R"("id": ")" + std::string(128, 'n') + "\","),
                      HasSubstr(R"("mac_addr": "mmmmmmmmmmmmmmmmm", "is_local": true, "ageing_time": "999999999"})")));
}

TEST_F(BridgingTo, LeavesOutATextThatIsNotUtf8)
{
    set(add("br0", sample()).mac_list->ageing_time, "caf\xE9");
    EXPECT_THAT(object(), HasSubstr(R"("is_local": true}, {"port": 5)"));
}

TEST_F(BridgingTo, WritesOtherScriptsAndSlashesAsTheyAre)
{
    set(add("br0", sample()).mac_list->mac_addr, "ä/\"北");
    EXPECT_THAT(object(), HasSubstr("\"mac_addr\": \"ä/\\\"北\""));
}

TEST_F(BridgingTo, WritesALongTableIntoALargerBuffer)
{
    kelmora_bridging &bridge = add("br1");
    std::string expected = R"({"id": "br1", "ageing_time": 0, "802_1_d_spanning_tree": false, "mac_list": [)";
    for (std::uint16_t port = 64; port > 0; --port) {
        auto *entry = kelmora_host::make_chain<Entry>({{.port = port, .mac_addr = "90:09:d0:1f:82:b6"}});
        entry->next = bridge.mac_list;
        bridge.mac_list = entry;
    }
    for (int port = 1; port <= 64; ++port)
        expected += R"({"port": )" + std::to_string(port) +
                    R"(, "mac_addr": "90:09:d0:1f:82:b6", "is_local": false, "ageing_time": ""})" +
                    (port < 64 ? ", " : "]}");
    EXPECT_EQ(object(), expected);
    EXPECT_EQ(reallocations_, 1U);
}

constexpr char document[] = R"({
    "id": "never read", "ageing_time": 120, "802_1_d_spanning_tree": true,
    "mac_list": [{"port": 7, "mac_addr": "never read", "is_local": true, "ageing_time": "never read"}]
})";

class BridgingFrom : public FromTest<kelmora_bridging> {
protected:
    BridgingFrom() : FromTest(bridging_from_translator, document) {}
};

TEST_F(BridgingFrom, StoresEveryKey)
{
    EXPECT_TRUE(accepts(document));
    EXPECT_EQ(record().ageing_time, 120U);
    EXPECT_EQ(record().spanning_tree_802_1_d, 1);
}

TEST_F(BridgingFrom, AcceptsADocumentWithNoneOfTheKeysAndChangesNothing)
{
    const std::string before = image();
    for (const char *text :
         {"{}", "[]", R"({"spanning_tree_802_1_d": true})", R"([{"ageing_time": 1, "802_1_d_spanning_tree": true}])",
          R"({"mac_list": [{"port": 7, "ageing_time": 1}]})"}) {
        EXPECT_TRUE(accepts(text));
        EXPECT_EQ(image(), before);
    }
}

TEST_F(BridgingFrom, KeepsTheKeysThatAreAbsent)
{
    expect_optional("ageing_time", record().ageing_time);
    expect_optional("802_1_d_spanning_tree", record().spanning_tree_802_1_d);
}

TEST_F(BridgingFrom, StoresNullAsZero)
{
    EXPECT_TRUE(accepts(R"({"ageing_time": null, "802_1_d_spanning_tree": null})"));
    EXPECT_EQ(record().ageing_time, 0U);
    EXPECT_EQ(record().spanning_tree_802_1_d, 0);
}

TEST_F(BridgingFrom, NeverTouchesTheTable)
{
    Entry *table = kelmora_host::make_chain<Entry>({{.port = 3, .mac_addr = "90:09:d0:1f:82:b6"}});
    record().mac_list = table;
    for (const char *json : {R"([{"port": 7, "mac_addr": "new"}])", "[]", "null"}) {
        EXPECT_TRUE(accepts(with(document, "mac_list", json)));
        ASSERT_EQ(record().mac_list, table);
        EXPECT_EQ(table->port, 3);
        EXPECT_STREQ(table->mac_addr, "90:09:d0:1f:82:b6");
        EXPECT_EQ(table->next, nullptr);
    }
}

TEST_F(BridgingFrom, TakesOnlyTrueForTrue) { expect_boolean("802_1_d_spanning_tree", record().spanning_tree_802_1_d); }

TEST_F(BridgingFrom, CutsTheAgeingTimeToItsWidth) { expect_integer("ageing_time", record().ageing_time); }

} // namespace

} // namespace kelmora_test::bridging_test
