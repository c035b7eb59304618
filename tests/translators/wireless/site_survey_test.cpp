#include "tests/support/from_test.h"
#include "tests/support/to_test.h"

#include "kelmora_json.h"
#include "records/wireless.h"

namespace kelmora_test {

namespace {

using testing::AllOf;
using testing::HasSubstr;
using testing::Not;

constexpr kelmora_site_survey sample{
    .ssid = "Café/Bar",
    .signal_level = -45,
    .channel = 11,
    .extension = 1,
    .bandwidth = 40,
    .mac = "9c:c7:a6:5e:20:b4",
    .cipher = 2,
    .crypto = 3,
    .op_mode = 4,
};

class SiteSurveyTo : public ToTest<kelmora_site_survey> {
protected:
    SiteSurveyTo() : ToTest(site_survey_to_translator) {}
};

TEST_F(SiteSurveyTo, WritesSortedKeysIndentedAndEscaped)
{
    add("0", sample);
    EXPECT_EQ(list(), "[\n"
                      "                {\n"
                      "                                \"bandwidth\": 40,\n"
                      "                                \"channel\": 11,\n"
                      "                                \"cipher\": 2,\n"
                      "                                \"crypto\": 3,\n"
                      "                                \"extension\": 1,\n"
                      "                                \"mac\": \"9c:c7:a6:5e:20:b4\",\n"
                      "                                \"op_mode\": 4,\n"
                      "                                \"signal_level\": -45,\n"
                      "                                \"ssid\": \"Caf\\u00E9\\/Bar\"\n"
                      "                }\n"
                      "]");
    EXPECT_EQ(object(), "{\n"
                        "                \"bandwidth\": 40,\n"
                        "                \"channel\": 11,\n"
                        "                \"cipher\": 2,\n"
                        "                \"crypto\": 3,\n"
                        "                \"extension\": 1,\n"
                        "                \"mac\": \"9c:c7:a6:5e:20:b4\",\n"
                        "                \"op_mode\": 4,\n"
                        "                \"signal_level\": -45,\n"
                        "                \"ssid\": \"Caf\\u00E9\\/Bar\"\n"
                        "}");
}

TEST_F(SiteSurveyTo, WritesAnEmptyArrayWhenTheCountIsZeroWhateverIsAskedFor)
{
    add("0", sample);
    EXPECT_EQ(list_counting(0), "[]");
    EXPECT_EQ(object_counting(0), "[]");
}

TEST_F(SiteSurveyTo, WalksAllNodesWhateverTheCountSays)
{
    add("0", sample);
    add("1", sample).channel = 12;
    add("2", sample).channel = 13;
    const std::string all = list_counting(3);
    EXPECT_THAT(all, AllOf(HasSubstr("\"channel\": 11"), HasSubstr("\"channel\": 12"), HasSubstr("\"channel\": 13")));
    EXPECT_EQ(list_counting(1), all);
    EXPECT_EQ(list_counting(100), all);
}

TEST_F(SiteSurveyTo, LeavesTheLastNodeInTheObjectWhenNoListIsAskedFor)
{
    add("0", sample);
    add("1", sample).channel = 12;
    EXPECT_THAT(object_counting(1), AllOf(Not(HasSubstr("\"channel\": 11")), HasSubstr("\"channel\": 12")));
}

TEST_F(SiteSurveyTo, WritesNoId)
{
    add("the id", sample);
    EXPECT_THAT(object(), AllOf(Not(HasSubstr("\"id\"")), Not(HasSubstr("the id"))));
}

TEST_F(SiteSurveyTo, WritesLevelAndChannelAsSignedAndTheRestAsUnsigned)
{
    constexpr std::uint32_t most = 4294967295;
    add("0", {.signal_level = -1,
              .channel = -2147483648,
              .extension = most,
              .bandwidth = most,
              .cipher = most,
              .crypto = most,
              .op_mode = most});
    EXPECT_EQ(object(), "{\n"
                        "                \"bandwidth\": 4294967295,\n"
                        "                \"channel\": -2147483648,\n"
                        "                \"cipher\": 4294967295,\n"
                        "                \"crypto\": 4294967295,\n"
                        "                \"extension\": 4294967295,\n"
                        "                \"mac\": \"\",\n"
                        "                \"op_mode\": 4294967295,\n"
                        "                \"signal_level\": -1,\n"
                        "                \"ssid\": \"\"\n"
                        "}");
}

TEST_F(SiteSurveyTo, CutsTextsToOneByteLessThanTheirField)
{
    kelmora_site_survey &access_point = add("0");
    fill_whole(access_point.ssid, 's');
    fill_whole(access_point.mac, 'm');
    EXPECT_THAT(object(), AllOf(HasSubstr("\"ssid\": \"" + std::string(32, 's') + '"'),
                                HasSubstr("\"mac\": \"" + std::string(17, 'm') + '"')));
}

TEST_F(SiteSurveyTo, GrowsTheBufferForALongScan)
{
    for (int i = 0; i < 64; ++i)
        add(std::to_string(i), sample);
    const std::string text = list();
    EXPECT_GT(text.size(), 4096U);
    EXPECT_THAT(text, testing::EndsWith("}\n]"));
}

TEST_F(SiteSurveyTo, SurvivesFailingMemory)
{
    add("0", sample);
    add("1", sample);
    expect_survives_failing_memory();
}

class SiteSurveyFrom : public FromTest<kelmora_site_survey> {
protected:
    SiteSurveyFrom() : FromTest(site_survey_from_translator, R"({"ssid": "written"})") {}
};

TEST_F(SiteSurveyFrom, AcceptsAnythingAndTouchesNothing)
{
    for (const char *text : {"", "{", R"({"ssid": "written"})", "[]", "nonsense"}) {
        EXPECT_TRUE(accepts(text));
        EXPECT_TRUE(untouched(record()));
        EXPECT_EQ(fetches_, 0U);
    }
    EXPECT_EQ(site_survey_from_translator(nullptr, nullptr, nullptr), 1);
}

} // namespace

} // namespace kelmora_test
