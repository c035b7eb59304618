#include "host/contract/listing.h"

#include "kelmora_json.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace kelmora_host::listing_test {

namespace {

using testing::HasSubstr;

constexpr Resource radio{5, "radio", "wireless", Directions::both};
constexpr Resource telnet{12, "telnet", "device", Directions::from_only};
constexpr Resource raw{64, "backup_restore", "device", Directions::both};

class Listing : public ::testing::Test {
protected:
    Listing() { Registry::instance().clear(); }
    ~Listing() override { Registry::instance().clear(); }
};

TEST_F(Listing, SaysWhatTheDocumentIs)
{
    EXPECT_EQ(shape_of(radio, RootShape::by_list_flag), "list or object");
    EXPECT_EQ(shape_of(radio, RootShape::array), "always a list");
    EXPECT_EQ(shape_of(radio, RootShape::object), "always an object");
    EXPECT_EQ(shape_of(telnet, std::nullopt), "an object");
    EXPECT_EQ(shape_of(raw, std::nullopt), "8 raw bytes");
}

TEST_F(Listing, SaysTheDirections)
{
    EXPECT_EQ(words_of(Directions::both), "both");
    EXPECT_EQ(words_of(Directions::to_only), "read-only");
    EXPECT_EQ(words_of(Directions::from_only), "write-only");
}

TEST_F(Listing, HasWhatIsRegistered)
{
    EXPECT_TRUE(registered("").empty());
    kelmora_json_init();
    EXPECT_EQ(registered("").size(), resources().size());
    for (const Resource &resource : registered("wireless"))
        EXPECT_EQ(resource.group, "wireless");
}

TEST_F(Listing, CountsRecordsWhereItIsTold)
{
    kelmora_json_init();
    EXPECT_THAT(list_as_json("wireless"), HasSubstr(R"({"number": 5, "resource": "radio", "directions": "both", )"
                                                    R"("shape": "list or object", "group": "wireless"})"));
    EXPECT_THAT(list_as_json("wireless", [](const Resource &resource) { return resource.name.size(); }),
                HasSubstr(R"("shape": "list or object", "group": "wireless", "records": 5})"));
}

TEST_F(Listing, NamesSimilarResources)
{
    EXPECT_EQ(no_such_resource("raido"), "no resource \"raido\"; similar: radio");
    EXPECT_EQ(no_such_resource("qqqqqqqqqqqqqq"), "no resource \"qqqqqqqqqqqqqq\"");
}

} // namespace

} // namespace kelmora_host::listing_test
