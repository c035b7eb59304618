#include "tests/support/from_test.h"
#include "tests/support/to_test.h"

#include "kelmora_json.h"
#include "records/routing.h"

namespace kelmora_test::igmp_mld_snooping_test {

namespace {

constexpr char on_text[] = "{\n"
                           "                \"enabled\": true\n"
                           "}";

constexpr char on_list_text[] = "[\n"
                                "                {\n"
                                "                                \"enabled\": true\n"
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

TEST_F(IgmpMldSnoopingTo, WritesAnySwitchButZeroAsTrue)
{
    for (const int on : {2, 128, 255}) {
        nodes_.clear();
        add("0").enabled = static_cast<std::uint8_t>(on);
        EXPECT_EQ(object(), on_text);
    }
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

} // namespace

} // namespace kelmora_test::igmp_mld_snooping_test
