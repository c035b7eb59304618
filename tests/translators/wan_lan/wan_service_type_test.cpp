#include "tests/support/from_test.h"
#include "tests/support/to_test.h"

#include "kelmora_json.h"
#include "records/wan_lan.h"

namespace kelmora_test::wan_service_type_test {

namespace {

constexpr kelmora_wan_service_type sample{
    .service_other_video = 1,
    .service_tr069 = 0,
    .service_internet = 0,
    .service_voice = 1,
};

constexpr char sample_text[] = R"({"id": "wan0", "service_other_video": true, "service_tr069": false, )"
                               R"("service_internet": false, "service_voice": true})";

class WanServiceTypeTo : public ToTest<kelmora_wan_service_type> {
protected:
    WanServiceTypeTo() : ToTest(wan_service_type_to_translator) {}
};

TEST_F(WanServiceTypeTo, WritesTheKeysInOrder)
{
    add("wan0", sample);
    EXPECT_EQ(object(), sample_text);
    EXPECT_EQ(list(), "[" + std::string(sample_text) + "]");
}

TEST_F(WanServiceTypeTo, WritesEachKeyFromItsOwnField)
{
    add("", {.service_tr069 = 2});
    add("", {.service_internet = 255});
    add("", {.service_other_video = 128});
    add("", {.service_voice = 16});
    EXPECT_EQ(list(), R"([{"id": "", "service_other_video": false, "service_tr069": true, )"
                      R"("service_internet": false, "service_voice": false}, )"
                      R"({"id": "", "service_other_video": false, "service_tr069": false, )"
                      R"("service_internet": true, "service_voice": false}, )"
                      R"({"id": "", "service_other_video": true, "service_tr069": false, )"
                      R"("service_internet": false, "service_voice": false}, )"
                      R"({"id": "", "service_other_video": false, "service_tr069": false, )"
                      R"("service_internet": false, "service_voice": true}])");
}

constexpr char document[] = R"({
    "service_other_video": true, "service_tr069": true, "service_internet": true, "service_voice": true, "id": "never read"
})";

class WanServiceTypeFrom : public FromTest<kelmora_wan_service_type> {
protected:
    WanServiceTypeFrom() : FromTest(wan_service_type_from_translator, document) {}
};

TEST_F(WanServiceTypeFrom, StoresEveryKey)
{
    EXPECT_TRUE(accepts(document));
    EXPECT_EQ(record().service_other_video, 1);
    EXPECT_EQ(record().service_tr069, 1);
    EXPECT_EQ(record().service_internet, 1);
    EXPECT_EQ(record().service_voice, 1);
}

TEST_F(WanServiceTypeFrom, AsksForTheRequiredKeysInOrder)
{
    expect_required_in_order({
        {"service_other_video", "service_other_video", "field not found"},
        {"service_tr069", "service_tr069", "field not found"},
        {"service_internet", "service_internet", "field not found"},
        {"service_voice", "service_voice", "field not found"},
    });
}

TEST_F(WanServiceTypeFrom, MissingInternetKeepsTheTwoStoredBefore)
{
    EXPECT_TRUE(rejects(without(document, "service_internet"), "service_internet", "field not found"));
    EXPECT_EQ(record().service_other_video, 1);
    EXPECT_EQ(record().service_tr069, 1);
    EXPECT_TRUE(untouched(record().service_internet));
    EXPECT_TRUE(untouched(record().service_voice));
}

TEST_F(WanServiceTypeFrom, MissingVideoStoresNothing)
{
    EXPECT_TRUE(rejects(without(document, "service_other_video"), "service_other_video", "field not found"));
    EXPECT_TRUE(untouched(record()));
}

TEST_F(WanServiceTypeFrom, TakesOnlyTrueForTrue)
{
    expect_boolean("service_other_video", record().service_other_video);
    expect_boolean("service_tr069", record().service_tr069);
    expect_boolean("service_internet", record().service_internet);
    expect_boolean("service_voice", record().service_voice);
}

} // namespace

} // namespace kelmora_test::wan_service_type_test
