#include "tests/support/from_test.h"
#include "tests/support/to_test.h"

#include "kelmora_json.h"
#include "records/device.h"

namespace kelmora_test::custom_default_config_test {

namespace {

class CustomDefaultConfigTo : public ToTest<kelmora_custom_default_config> {
protected:
    CustomDefaultConfigTo() : ToTest(custom_default_config_to_translator) {}
};

TEST_F(CustomDefaultConfigTo, WritesTheSwitchIndented)
{
    add("the id", {.enabled = 1});
    EXPECT_EQ(object(), "{\n"
                        "                \"enabled\": true\n"
                        "}");
    EXPECT_EQ(list(), "[\n"
                      "                {\n"
                      "                                \"enabled\": true\n"
                      "                }\n"
                      "]");
}

TEST_F(CustomDefaultConfigTo, WritesAnySwitchButZeroAsTrue)
{
    for (const std::uint8_t enabled : {std::uint8_t{2}, std::uint8_t{128}, std::uint8_t{255}}) {
        nodes_.clear();
        add("0", {.enabled = enabled});
        EXPECT_EQ(object(), "{\n"
                            "                \"enabled\": true\n"
                            "}");
    }
}

constexpr char document[] = R"({"enabled": true, "id": "never read"})";

class CustomDefaultConfigFrom : public FromTest<kelmora_custom_default_config> {
protected:
    CustomDefaultConfigFrom() : FromTest(custom_default_config_from_translator, document) {}
};

TEST_F(CustomDefaultConfigFrom, StoresTrueAndFalse)
{
    EXPECT_TRUE(accepts(document));
    EXPECT_EQ(record().enabled, 1);
    EXPECT_TRUE(accepts(R"({"enabled": false})"));
    EXPECT_EQ(record().enabled, 0);
}

TEST_F(CustomDefaultConfigFrom, AsksForTheSwitch)
{
    for (const char *text : {"{}", "[]", R"([{"enabled": true}])", R"({"enable": true})"})
        EXPECT_TRUE(rejects(text, "enabled", "field not found"));
    EXPECT_TRUE(untouched(record().enabled));
}

TEST_F(CustomDefaultConfigFrom, RefusesWhatIsNoBoolean)
{
    for (const char *other : {"1", "0", "1.0", "\"true\"", "\"\"", "null", "{}", "[]", "[true]"})
        EXPECT_TRUE(rejects(with(document, "enabled", other), "enabled", "data type must be a valid boolean"));
    EXPECT_TRUE(untouched(record().enabled));
}

} // namespace

} // namespace kelmora_test::custom_default_config_test
