#include "tests/support/to_test.h"

#include "kelmora_json.h"
#include "records/wireless.h"

namespace kelmora_test::site_survey_test {

namespace {

using testing::AllOf;
using testing::HasSubstr;

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

} // namespace

} // namespace kelmora_test::site_survey_test
