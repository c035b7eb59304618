#include "tests/support/from_test.h"
#include "tests/support/to_test.h"

#include "kelmora_json.h"
#include "records/routing.h"

namespace kelmora_test::mirroring_test {

namespace {

constexpr kelmora_mirroring sample{.enabled = 1, .mirrored_port = 2, .mirror_port = 4};

constexpr char sample_text[] = "{\n"
                               "                \"enabled\": true,\n"
                               "                \"id\": \"0\",\n"
                               "                \"mirror_port\": 4,\n"
                               "                \"mirrored_port\": 2\n"
                               "}";

class MirroringTo : public ToTest<kelmora_mirroring> {
protected:
    MirroringTo() : ToTest(mirroring_to_translator) {}
};

TEST_F(MirroringTo, WritesThePortsAsUnsigned)
{
    add("0", {.mirrored_port = 4294967295, .mirror_port = 2147483648});
    EXPECT_EQ(object(), "{\n"
                        "                \"enabled\": false,\n"
                        "                \"id\": \"0\",\n"
                        "                \"mirror_port\": 2147483648,\n"
                        "                \"mirrored_port\": 4294967295\n"
                        "}");
}

TEST_F(MirroringTo, WritesAnySwitchButZeroAsTrue)
{
    for (const int on : {2, 128, 255}) {
        nodes_.clear();
        add("0", sample).enabled = static_cast<std::uint8_t>(on);
        EXPECT_EQ(object(), sample_text);
    }
}

constexpr char document[] = R"({"id": "never read", "enabled": true, "mirrored_port": 3, "mirror_port": 5})";

class MirroringFrom : public FromTest<kelmora_mirroring> {
protected:
    MirroringFrom() : FromTest(mirroring_from_translator, document) {}
};

TEST_F(MirroringFrom, StoresEveryKey)
{
    EXPECT_TRUE(accepts(document));
    EXPECT_EQ(record().enabled, 1);
    EXPECT_EQ(record().mirrored_port, 3U);
    EXPECT_EQ(record().mirror_port, 5U);
}

TEST_F(MirroringFrom, AsksForTheRequiredKeysInOrder)
{
    expect_required_in_order({
        {"enabled", "enabled", "enabled field not found"},
        {"mirrored_port", "mirrored_port", "mirrored_port field not found"},
        {"mirror_port", "mirror_port", "mirror_port field not found"},
    });
}

TEST_F(MirroringFrom, MissingEnabledStoresNothing)
{
    EXPECT_TRUE(rejects(without(document, "enabled"), "enabled", "enabled field not found"));
    EXPECT_TRUE(untouched(record()));
}

TEST_F(MirroringFrom, MissingMirroredPortKeepsTheSwitchStoredBefore)
{
    EXPECT_TRUE(rejects(without(document, "mirrored_port"), "mirrored_port", "mirrored_port field not found"));
    EXPECT_EQ(record().enabled, 1);
    EXPECT_TRUE(untouched(record().mirrored_port));
    EXPECT_TRUE(untouched(record().mirror_port));
}

TEST_F(MirroringFrom, MissingMirrorPortKeepsEverythingStoredBefore)
{
    EXPECT_TRUE(rejects(without(document, "mirror_port"), "mirror_port", "mirror_port field not found"));
    EXPECT_EQ(record().enabled, 1);
    EXPECT_EQ(record().mirrored_port, 3U);
    EXPECT_TRUE(untouched(record().mirror_port));
}

TEST_F(MirroringFrom, TakesOnlyTrueForTrue) { expect_boolean("enabled", record().enabled); }

TEST_F(MirroringFrom, CutsIntegersToTheirWidth)
{
    expect_integer("mirrored_port", record().mirrored_port);
    expect_integer("mirror_port", record().mirror_port);
}

} // namespace

} // namespace kelmora_test::mirroring_test
