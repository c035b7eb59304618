#include "tests/support/from_test.h"
#include "tests/support/to_test.h"

#include "kelmora_json.h"
#include "records/routing.h"

namespace kelmora_test {

namespace {

constexpr char on_text[] = "{\n"
                           "                \"enabled\": true\n"
                           "}";

constexpr char off_text[] = "{\n"
                            "                \"enabled\": false\n"
                            "}";

constexpr char on_list_text[] = "[\n"
                                "                {\n"
                                "                                \"enabled\": true\n"
                                "                }\n"
                                "]";

constexpr char on_off_list_text[] = "[\n"
                                    "                {\n"
                                    "                                \"enabled\": true\n"
                                    "                },\n"
                                    "                {\n"
                                    "                                \"enabled\": false\n"
                                    "                }\n"
                                    "]";

class IgmpMldSnoopingTo : public ToTest<kelmora_igmp_mld_snooping> {
protected:
    IgmpMldSnoopingTo() : ToTest(igmp_mld_snooping_to_translator) {}
};

TEST_F(IgmpMldSnoopingTo, WritesTheSwitchAloneWithoutAnId)
{
    add("the id", {.enabled = 1});
    EXPECT_EQ(object(), on_text);
    EXPECT_EQ(list(), on_list_text);
}

TEST_F(IgmpMldSnoopingTo, WritesTheHeadEvenWhenTheCountIsZero)
{
    add("0", {.enabled = 1});
    EXPECT_EQ(object_counting(0), on_text);
    EXPECT_EQ(list_counting(0), on_list_text);
}

TEST_F(IgmpMldSnoopingTo, WalksAllNodesWhateverTheCountSays)
{
    add("0", {.enabled = 1});
    add("1");
    for (const std::uint32_t count : {0U, 1U, 2U, 3U, 4294967295U})
        EXPECT_EQ(list_counting(count), on_off_list_text);
}

TEST_F(IgmpMldSnoopingTo, LeavesTheLastNodeInTheObjectWhenNoListIsAskedFor)
{
    add("0", {.enabled = 1});
    add("1");
    EXPECT_EQ(object(), off_text);
    EXPECT_EQ(object_counting(1), off_text);
}

TEST_F(IgmpMldSnoopingTo, WritesAnySwitchButZeroAsTrue)
{
    for (const int on : {2, 128, 255}) {
        nodes_.clear();
        add("0").enabled = static_cast<std::uint8_t>(on);
        EXPECT_EQ(object(), on_text);
    }
}

TEST_F(IgmpMldSnoopingTo, SurvivesFailingMemory)
{
    add("0", {.enabled = 1});
    add("1");
    expect_survives_failing_memory();
}

class IgmpMldSnoopingFrom : public FromTest<kelmora_igmp_mld_snooping> {
protected:
    IgmpMldSnoopingFrom() : FromTest(igmp_mld_snooping_from_translator, R"({"id": "never read", "enabled": true})") {}
};

TEST_F(IgmpMldSnoopingFrom, StoresTheSwitch)
{
    EXPECT_TRUE(accepts(document_));
    EXPECT_EQ(record().enabled, 1);
    EXPECT_TRUE(accepts(R"({"enabled": false})"));
    EXPECT_EQ(record().enabled, 0);
}

TEST_F(IgmpMldSnoopingFrom, AsksForTheSwitchWithoutNamingItInTheMessage)
{
    expect_required_in_order({{"enabled", "enabled", "field not found"}});
}

TEST_F(IgmpMldSnoopingFrom, MissingSwitchStoresNothing)
{
    for (const char *text : {"{}", "[]", R"({"enable": true})", R"([{"enabled": true}])"}) {
        EXPECT_TRUE(rejects(text, "enabled", "field not found"));
        EXPECT_TRUE(untouched(record()));
    }
}

TEST_F(IgmpMldSnoopingFrom, TakesOnlyTrueForTrue) { expect_boolean("enabled", record().enabled); }

TEST_F(IgmpMldSnoopingFrom, KeepsTheCommonContract) { expect_common_contract(); }

TEST_F(IgmpMldSnoopingFrom, SurvivesFailingMemory) { expect_survives_failing_memory(); }

} // namespace

} // namespace kelmora_test
