#include "tests/support/from_test.h"
#include "tests/support/to_test.h"

#include "kelmora_json.h"
#include "records/device.h"

namespace kelmora_test {

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

TEST_F(CustomDefaultConfigTo, WritesAnEmptyArrayWhenTheCountIsZeroWhateverIsAskedFor)
{
    add("0", {.enabled = 1});
    EXPECT_EQ(list_counting(0), "[]");
    EXPECT_EQ(object_counting(0), "[]");
}

TEST_F(CustomDefaultConfigTo, WalksAllNodesWhateverTheCountSays)
{
    add("0", {.enabled = 1});
    add("1", {.enabled = 0});
    for (const std::uint32_t count : {1U, 2U, 100U}) {
        EXPECT_EQ(list_counting(count), "[\n"
                                        "                {\n"
                                        "                                \"enabled\": true\n"
                                        "                },\n"
                                        "                {\n"
                                        "                                \"enabled\": false\n"
                                        "                }\n"
                                        "]");
    }
}

TEST_F(CustomDefaultConfigTo, LeavesTheLastNodeInTheObjectWhenNoListIsAskedFor)
{
    add("0", {.enabled = 1});
    add("1", {.enabled = 0});
    EXPECT_EQ(object_counting(1), "{\n"
                                  "                \"enabled\": false\n"
                                  "}");
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

TEST_F(CustomDefaultConfigTo, SurvivesFailingMemory)
{
    add("0", {.enabled = 1});
    add("1", {.enabled = 0});
    expect_survives_failing_memory();
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

TEST_F(CustomDefaultConfigFrom, KeepsTheCommonContract) { expect_common_contract(); }

TEST_F(CustomDefaultConfigFrom, SurvivesFailingMemory) { expect_survives_failing_memory(); }

} // namespace

} // namespace kelmora_test
