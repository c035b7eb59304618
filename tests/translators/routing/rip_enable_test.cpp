#include "tests/support/from_test.h"
#include "tests/support/to_test.h"

#include "kelmora_json.h"
#include "records/routing.h"

namespace kelmora_test::rip_enable_test {

namespace {

constexpr char on_text[] = R"({"id": "0", "enable": true})";
class RipEnableTo : public ToTest<kelmora_rip_enable> {
protected:
    RipEnableTo() : ToTest(rip_enable_to_translator) {}
};

TEST_F(RipEnableTo, WritesTheKeysInOrder)
{
    add("0", {.enable = 1});
    EXPECT_EQ(object(), on_text);
    EXPECT_EQ(list(), "[" + std::string(on_text) + "]");
}

TEST_F(RipEnableTo, WritesAnySwitchButZeroAsTrue)
{
    for (const int on : {2, 128, 255}) {
        nodes_.clear();
        add("0").enable = static_cast<std::uint8_t>(on);
        EXPECT_EQ(object(), on_text);
    }
}

TEST_F(RipEnableTo, WritesOtherScriptsAndSlashesAsTheyAre)
{
    add("zürich/1");
    EXPECT_EQ(object(), R"({"id": "zürich/1", "enable": false})");
}

/// A missing key leaves the document unreleased, success releases it.
class RipEnableFrom : public FromTest<kelmora_rip_enable> {
protected:
    RipEnableFrom() : FromTest(rip_enable_from_translator, R"({"id": "never read", "enable": true})")
    {
        leaks_document_on_failure_ = true;
    }
};

TEST_F(RipEnableFrom, StoresTheSwitchAndReleasesTheDocument)
{
    EXPECT_TRUE(accepts(document_)); // which looks at the document as well
    EXPECT_EQ(record().enable, 1);
    EXPECT_TRUE(accepts(R"({"enable": false})"));
    EXPECT_EQ(record().enable, 0);
}

TEST_F(RipEnableFrom, MissingSwitchStoresNothingAndKeepsTheDocument)
{
    expect_required_in_order({{"enable", "enable", "enable not found"}});
    poison();
    for (const char *text : {"{ }", R"({"enabled": true})", R"({"Enable": true})", R"({"rip": {"enable": true}})"}) {
        EXPECT_TRUE(rejects(text, "enable", "enable not found"));
        EXPECT_TRUE(untouched(record()));
    }
}

TEST_F(RipEnableFrom, TakesOnlyTrueForTrue) { expect_boolean("enable", record().enable); }

} // namespace

} // namespace kelmora_test::rip_enable_test
