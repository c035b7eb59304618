#include "tests/support/from_test.h"
#include "tests/support/to_test.h"

#include "kelmora_json.h"
#include "records/qos.h"

namespace kelmora_test::qos_test {

namespace {

using testing::AllOf;
using testing::HasSubstr;

constexpr kelmora_qos sample{.enabled = 1, .global_download = 250000, .global_upload = 40000};

constexpr char sample_text[] = "{\n"
                               "                \"enabled\": true,\n"
                               "                \"global_download\": 250000,\n"
                               "                \"global_upload\": 40000,\n"
                               "                \"id\": \"linie\\/s\\u00FCd\"\n"
                               "}";

class QosTo : public ToTest<kelmora_qos> {
protected:
    QosTo() : ToTest(qos_to_translator) {}
};

TEST_F(QosTo, WritesSortedKeysIndentedAndEscaped)
{
    add("linie/süd", sample);
    EXPECT_EQ(object(), sample_text);
}

TEST_F(QosTo, WritesAListOfEntries)
{
    add("a", sample);
    add("b");
    EXPECT_EQ(list(), "[\n"
                      "                {\n"
                      "                                \"enabled\": true,\n"
                      "                                \"global_download\": 250000,\n"
                      "                                \"global_upload\": 40000,\n"
                      "                                \"id\": \"a\"\n"
                      "                },\n"
                      "                {\n"
                      "                                \"enabled\": false,\n"
                      "                                \"global_download\": 0,\n"
                      "                                \"global_upload\": 0,\n"
                      "                                \"id\": \"b\"\n"
                      "                }\n"
                      "]");
}

TEST_F(QosTo, WritesRatesAsSigned)
{
    add("0", {.global_download = -1, .global_upload = -2147483648});
    EXPECT_THAT(object(), AllOf(HasSubstr("\"global_download\": -1,"), HasSubstr("\"global_upload\": -2147483648,")));
}

TEST_F(QosTo, WritesAnySwitchButZeroAsTrue) { expect_switches({{"enabled", &kelmora_qos::enabled}}); }

constexpr char document[] = R"({
    "enabled": true, "global_download": 100000, "global_upload": -5, "id": "never read", "download": 7, "upload": 8
})";

class QosFrom : public FromTest<kelmora_qos> {
protected:
    QosFrom() : FromTest(qos_from_translator, document) {}
};

TEST_F(QosFrom, StoresEveryKey)
{
    EXPECT_TRUE(accepts(document));
    EXPECT_EQ(record().enabled, 1);
    EXPECT_EQ(record().global_download, 100000);
    EXPECT_EQ(record().global_upload, -5);
}

TEST_F(QosFrom, AsksForTheRequiredKeysInOrderAndNamesTheRatesByTheirShortNames)
{
    expect_required_in_order({
        {"enabled", "enabled", "enabled field not found"},
        {"global_download", "download", "download field not found"},
        {"global_upload", "upload", "upload field not found"},
    });
}

TEST_F(QosFrom, MissingKeysKeepWhatWasStoredBefore)
{
    EXPECT_TRUE(rejects(without(document, "enabled"), "enabled", "enabled field not found"));
    EXPECT_TRUE(untouched(record()));
    EXPECT_TRUE(rejects(without(document, "global_download"), "download", "download field not found"));
    EXPECT_EQ(record().enabled, 1);
    EXPECT_TRUE(untouched(record().global_download));
    EXPECT_TRUE(untouched(record().global_upload));
    EXPECT_TRUE(rejects(without(document, "global_upload"), "upload", "upload field not found"));
    EXPECT_EQ(record().global_download, 100000);
    EXPECT_TRUE(untouched(record().global_upload));
}

TEST_F(QosFrom, TakesOnlyTrueForTrue) { expect_boolean("enabled", record().enabled); }

TEST_F(QosFrom, CutsIntegersToTheirWidth)
{
    expect_integer("global_download", record().global_download);
    expect_integer("global_upload", record().global_upload);
}

} // namespace

} // namespace kelmora_test::qos_test
