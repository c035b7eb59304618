#include "tests/support/from_test.h"
#include "tests/support/to_test.h"

#include "kelmora_json.h"
#include "records/device.h"

namespace kelmora_test::datetime_test {

namespace {

using testing::AllOf;
using testing::HasSubstr;
using testing::Not;

constexpr kelmora_datetime sample{
    .datetime = 1767268800,
    .timezone = "36",
    .timezone_list = nullptr,
    .synced = 1,
    .dst_enabled = 0,
    .ntp_enabled = 1,
    .ntp_automatic = 0,
    .ntp_server1 = "0.pool.example",
    .ntp_server2 = "ntp/zürich",
};

kelmora_datetime with_zones(std::initializer_list<kelmora_datetime_timezone> zones)
{
    kelmora_datetime datetime = sample;
    datetime.timezone_list = kelmora_host::make_chain(zones);
    return datetime;
}

kelmora_datetime with_two_zones()
{
    return with_zones({{.id = 35, .region = "Europe/London"}, {.id = 36, .region = "Europe/Zürich"}});
}

class DatetimeTo : public ToTest<kelmora_datetime> {
protected:
    DatetimeTo() : ToTest(datetime_to_translator) {}
};

TEST_F(DatetimeTo, WritesSortedKeysIndentedAndEscaped)
{
    add("clock", with_two_zones());
    EXPECT_EQ(object(), "{\n"
                        "                \"datetime\": 1767268800,\n"
                        "                \"dst_enabled\": false,\n"
                        "                \"id\": \"clock\",\n"
                        "                \"ntp_server\": {\n"
                        "                                \"automatic\": false,\n"
                        "                                \"enabled\": true,\n"
                        "                                \"ntp_server1\": \"0.pool.example\",\n"
                        "                                \"ntp_server2\": \"ntp\\/z\\u00FCrich\"\n"
                        "                },\n"
                        "                \"synced\": true,\n"
                        "                \"timezone\": \"36\",\n"
                        "                \"timezone_list\": [\n"
                        "                                {\n"
                        "                                                \"id\": 35,\n"
                        "                                                \"region\": \"Europe\\/London\"\n"
                        "                                },\n"
                        "                                {\n"
                        "                                                \"id\": 36,\n"
                        "                                                \"region\": \"Europe\\/Z\\u00FCrich\"\n"
                        "                                }\n"
                        "                ]\n"
                        "}");
}

TEST_F(DatetimeTo, WritesAListOfEntries)
{
    add("a", {.datetime = 1, .timezone = "1", .synced = 1, .dst_enabled = 1, .ntp_enabled = 1, .ntp_automatic = 1});
    add("b");
    EXPECT_EQ(list(), "[\n"
                      "                {\n"
                      "                                \"datetime\": 1,\n"
                      "                                \"dst_enabled\": true,\n"
                      "                                \"id\": \"a\",\n"
                      "                                \"ntp_server\": {\n"
                      "                                                \"automatic\": true,\n"
                      "                                                \"enabled\": true,\n"
                      "                                                \"ntp_server1\": \"\",\n"
                      "                                                \"ntp_server2\": \"\"\n"
                      "                                },\n"
                      "                                \"synced\": true,\n"
                      "                                \"timezone\": \"1\",\n"
                      "                                \"timezone_list\": []\n"
                      "                },\n"
                      "                {\n"
                      "                                \"datetime\": 0,\n"
                      "                                \"dst_enabled\": false,\n"
                      "                                \"id\": \"b\",\n"
                      "                                \"ntp_server\": {\n"
                      "                                                \"automatic\": false,\n"
                      "                                                \"enabled\": false,\n"
                      "                                                \"ntp_server1\": \"\",\n"
                      "                                                \"ntp_server2\": \"\"\n"
                      "                                },\n"
                      "                                \"synced\": false,\n"
                      "                                \"timezone\": \"\",\n"
                      "                                \"timezone_list\": []\n"
                      "                }\n"
                      "]");
}

TEST_F(DatetimeTo, WritesTimeAndZoneNumbersAsUnsigned)
{
    add("clock", with_zones({{.id = 4294967295, .region = "Mars"}})).datetime = 4294967295;
    EXPECT_THAT(object(), AllOf(HasSubstr("\"datetime\": 4294967295,"), HasSubstr("\"id\": 4294967295,")));
}

TEST_F(DatetimeTo, WritesEachSwitchOfItsOwnAndAnyButZeroAsTrue)
{
    add("clock", {.synced = 2});
    EXPECT_THAT(object(), AllOf(HasSubstr("\"synced\": true"), HasSubstr("\"dst_enabled\": false"),
                                HasSubstr("\"enabled\": false"), HasSubstr("\"automatic\": false")));
    nodes_.clear();
    add("clock", {.dst_enabled = 128});
    EXPECT_THAT(object(), AllOf(HasSubstr("\"synced\": false"), HasSubstr("\"dst_enabled\": true"),
                                HasSubstr("\"enabled\": false"), HasSubstr("\"automatic\": false")));
    nodes_.clear();
    add("clock", {.ntp_enabled = 255});
    EXPECT_THAT(object(), AllOf(HasSubstr("\"synced\": false"), HasSubstr("\"dst_enabled\": false"),
                                HasSubstr("\"enabled\": true"), HasSubstr("\"automatic\": false")));
    nodes_.clear();
    add("clock", {.ntp_automatic = 16});
    EXPECT_THAT(object(), AllOf(HasSubstr("\"synced\": false"), HasSubstr("\"dst_enabled\": false"),
                                HasSubstr("\"enabled\": false"), HasSubstr("\"automatic\": true")));
}

TEST_F(DatetimeTo, CutsTextsToOneByteLessThanTheirField)
{
    kelmora_datetime &datetime = add("");
    fill_whole(datetime.timezone, 'z');
    fill_whole(datetime.ntp_server1, '1');
    fill_whole(datetime.ntp_server2, '2');
    fill_whole(nodes_.front().resource()->id, 'n');
    EXPECT_THAT(object(), AllOf(HasSubstr("\"timezone\": \"" + std::string(7, 'z') + '"'),
                                HasSubstr("\"ntp_server1\": \"" + std::string(254, '1') + '"'),
                                HasSubstr("\"ntp_server2\": \"" + std::string(254, '2') + '"'),
                                HasSubstr("\"id\": \"" + std::string(128, 'n') + '"')));
}

TEST_F(DatetimeTo, LeavesOutATextWhoseCutSplitsACharacter)
{
    kelmora_datetime &datetime = add("clock", sample);
    fill_whole(datetime.timezone, 'z');
    datetime.timezone[6] = '\xC3'; // the first byte of a two-byte character: the last that is written
    datetime.timezone[7] = '\xA4';
    fill_whole(datetime.ntp_server1, '1');
    datetime.ntp_server1[253] = '\xC3';
    datetime.ntp_server1[254] = '\xA4';
    EXPECT_THAT(object(), AllOf(Not(HasSubstr("\"timezone\"")), Not(HasSubstr("\"ntp_server1\"")),
                                HasSubstr("\"ntp_server2\""), HasSubstr("\"timezone_list\"")));
}

TEST_F(DatetimeTo, WritesTheWholeRegionHoweverLongItIs)
{
    const std::string region(5000, 'r');
    add("clock", with_zones({{.id = 1, .region = region.c_str()}, {.id = 2, .region = ""}}));
    EXPECT_THAT(object(), AllOf(HasSubstr("\"region\": \"" + region + '"'), HasSubstr("\"region\": \"\"")));
    EXPECT_EQ(reallocations_, 1U);
}

TEST_F(DatetimeTo, KeepsTheEntryOfAZoneWhoseRegionCannotBeWritten)
{
    add("clock", with_zones({{.id = 1, .region = "Malm\xF6"}, {.id = 2, .region = nullptr}}));
    EXPECT_THAT(object(), AllOf(HasSubstr("\"id\": 1\n"), HasSubstr("\"id\": 2\n"), Not(HasSubstr("region"))));
}

TEST_F(DatetimeTo, WritesAllZonesInTheirOrder)
{
    kelmora_datetime_timezone *last_first = nullptr;
    for (std::uint32_t id = 20; id > 0; --id) {
        auto *zone = kelmora_host::make_chain<kelmora_datetime_timezone>({{.id = id, .region = "somewhere"}});
        zone->next = last_first;
        last_first = zone;
    }
    kelmora_datetime datetime = sample;
    datetime.timezone_list = last_first;
    add("clock", datetime);
    const std::string text = object();
    std::size_t place = 0;
    for (int id = 1; id <= 20; ++id) {
        place = text.find("\"id\": " + std::to_string(id) + ",", place);
        ASSERT_NE(place, std::string::npos) << id;
    }
}

TEST_F(DatetimeTo, SurvivesFailingMemoryWithATextThatNeedsALargerBuffer)
{
    const std::string region(4096, 'r');
    add("clock", with_zones({{.id = 1, .region = region.c_str()}}));
    expect_survives_failing_memory();
}

constexpr char document[] = R"({
    "timezone": "35", "dst_enabled": true,
    "ntp_server": {"enabled": true, "automatic": true, "ntp_server1": "ntp1.example", "ntp_server2": "ntp2.example"},
    "id": "never read", "datetime": 5, "synced": true, "timezone_list": [{"id": 1, "region": "never read"}],
    "enabled": false, "automatic": false, "ntp_server1": "never read", "ntp_server2": "never read"
})";

class DatetimeFrom : public FromTest<kelmora_datetime> {
protected:
    DatetimeFrom() : FromTest(datetime_from_translator, document) {}
};

TEST_F(DatetimeFrom, StoresEveryKey)
{
    EXPECT_TRUE(accepts(document));
    EXPECT_STREQ(record().timezone, "35");
    EXPECT_EQ(record().dst_enabled, 1);
    EXPECT_EQ(record().ntp_enabled, 1);
    EXPECT_EQ(record().ntp_automatic, 1);
    EXPECT_STREQ(record().ntp_server1, "ntp1.example");
    EXPECT_STREQ(record().ntp_server2, "ntp2.example");
}

TEST_F(DatetimeFrom, NeverStoresWhatIsReadOnly)
{
    EXPECT_TRUE(accepts(document));
    EXPECT_TRUE(untouched(record().datetime));
    EXPECT_TRUE(untouched(record().synced));
    EXPECT_EQ(record().timezone_list, nullptr);
}

TEST_F(DatetimeFrom, KeepsEverythingThatIsAbsent)
{
    for (const char *nothing : {"{}", "[]", R"([{"timezone": "35"}])"}) {
        EXPECT_TRUE(accepts(nothing));
        EXPECT_TRUE(untouched(record().timezone));
        EXPECT_TRUE(untouched(record().dst_enabled));
        EXPECT_TRUE(untouched(record().ntp_enabled));
        EXPECT_TRUE(untouched(record().ntp_automatic));
        EXPECT_TRUE(untouched(record().ntp_server1));
        EXPECT_TRUE(untouched(record().ntp_server2));
    }
}

TEST_F(DatetimeFrom, KeepsTheOptionalKeysThatAreAbsent)
{
    expect_optional("timezone", record().timezone);
    expect_optional("dst_enabled", record().dst_enabled);
    expect_optional("ntp_server", record().ntp_enabled);
    expect_optional("ntp_server", record().ntp_automatic);
    expect_optional("ntp_server.ntp_server1", record().ntp_server1);
    expect_optional("ntp_server.ntp_server2", record().ntp_server2);
}

TEST_F(DatetimeFrom, ClearsTheSwitchesThatAreAbsentInsideNtpServer)
{
    EXPECT_TRUE(accepts(without(document, "ntp_server.enabled")));
    EXPECT_EQ(record().ntp_enabled, 0);
    EXPECT_EQ(record().ntp_automatic, 1);
    EXPECT_TRUE(accepts(without(document, "ntp_server.automatic")));
    EXPECT_EQ(record().ntp_enabled, 1);
    EXPECT_EQ(record().ntp_automatic, 0);
}

TEST_F(DatetimeFrom, NeedsNoServerWhenTheyAreChosenAutomatically)
{
    EXPECT_TRUE(accepts(R"({"ntp_server": {"automatic": true}})"));
    EXPECT_EQ(record().ntp_enabled, 0);
    EXPECT_EQ(record().ntp_automatic, 1);
    EXPECT_TRUE(untouched(record().ntp_server1));
    EXPECT_TRUE(untouched(record().ntp_server2));
}

TEST_F(DatetimeFrom, AsksForTheFirstServerWhenTheyAreNotChosenAutomatically)
{
    EXPECT_TRUE(rejects(R"({"ntp_server": {"enabled": true}})", "ntp_server", "ntp_server not found"));
    EXPECT_EQ(record().ntp_enabled, 1);
    EXPECT_EQ(record().ntp_automatic, 0);
    EXPECT_TRUE(untouched(record().ntp_server1));
    EXPECT_TRUE(untouched(record().ntp_server2));
}

TEST_F(DatetimeFrom, MissingFirstServerKeepsWhatWasStoredBeforeAndStoresNoSecond)
{
    const std::string text = without(with(document, "ntp_server.automatic", "1"), "ntp_server.ntp_server1");
    EXPECT_TRUE(rejects(text, "ntp_server", "ntp_server not found"));
    EXPECT_STREQ(record().timezone, "35");
    EXPECT_EQ(record().dst_enabled, 1);
    EXPECT_EQ(record().ntp_enabled, 1);
    EXPECT_EQ(record().ntp_automatic, 0);
    EXPECT_TRUE(untouched(record().ntp_server1));
    EXPECT_TRUE(untouched(record().ntp_server2));
}

TEST_F(DatetimeFrom, TakesAnNtpServerThatIsNoObjectForAnEmptyOne)
{
    for (const char *other : {"{}", "null", "true", "1", "\"ntp1.example\"", "[]", R"([{"automatic": true}])"}) {
        poison();
        EXPECT_TRUE(rejects(with(document, "ntp_server", other), "ntp_server", "ntp_server not found")) << other;
        EXPECT_EQ(record().ntp_enabled, 0) << other;
        EXPECT_EQ(record().ntp_automatic, 0) << other;
    }
}

TEST_F(DatetimeFrom, NeedsNoSecondServer)
{
    EXPECT_TRUE(accepts(R"({"ntp_server": {"ntp_server1": "ntp1.example"}})"));
    EXPECT_EQ(record().ntp_enabled, 0);
    EXPECT_EQ(record().ntp_automatic, 0);
    EXPECT_STREQ(record().ntp_server1, "ntp1.example");
    EXPECT_TRUE(untouched(record().ntp_server2));
}

TEST_F(DatetimeFrom, TakesNullForAServerThatIsThere)
{
    EXPECT_TRUE(accepts(R"({"ntp_server": {"ntp_server1": null}})"));
    EXPECT_STREQ(record().ntp_server1, "");
}

TEST_F(DatetimeFrom, TakesOnlyTrueForTrue)
{
    expect_boolean("dst_enabled", record().dst_enabled);
    expect_boolean("ntp_server.enabled", record().ntp_enabled);
    expect_boolean("ntp_server.automatic", record().ntp_automatic);
}

TEST_F(DatetimeFrom, CutsTextsToTheirField)
{
    expect_string("timezone", record().timezone);
    expect_string("ntp_server.ntp_server1", record().ntp_server1);
    expect_string("ntp_server.ntp_server2", record().ntp_server2);
}

TEST_F(DatetimeFrom, StoresTheFirst7CharactersOfALongTimezone)
{
    EXPECT_TRUE(accepts(R"({"timezone": "0123456789"})"));
    EXPECT_STREQ(record().timezone, "0123456");
}

} // namespace

} // namespace kelmora_test::datetime_test
