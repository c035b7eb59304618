#include "tests/support/to_test.h"

#include "kelmora_json.h"
#include "records/wan_lan.h"

namespace kelmora_test::lan_port_status_test {

namespace {

constexpr kelmora_lan_port_status sample{.status = "LAN1: 1000M full; LAN2: down"};

constexpr char sample_text[] = R"({"id": "0", "status": "LAN1: 1000M full; LAN2: down"})";

class LanPortStatusTo : public ToTest<kelmora_lan_port_status> {
protected:
    LanPortStatusTo() : ToTest(lan_port_status_to_translator) {}
};

TEST_F(LanPortStatusTo, WritesTheKeysInOrder)
{
    add("0", sample);
    EXPECT_EQ(object(), sample_text);
    EXPECT_EQ(list(), "[" + std::string(sample_text) + "]");
}

TEST_F(LanPortStatusTo, CutsTextsToOneByteLessThanTheirField)
{
    fill_whole(add("0").status, 's');
    fill_whole(nodes_.front().resource()->id, 'n');
    EXPECT_EQ(object(), R"({"id": ")" + std::string(128, 'n') + R"(", "status": ")" + std::string(255, 's') + R"("})");
}

TEST_F(LanPortStatusTo, LeavesOutATextWhoseCutSplitsACharacter)
{
    kelmora_lan_port_status &ports = add("0");
    fill_whole(ports.status, 's');
    ports.status[254] = '\xC3'; // the last byte that is written
    ports.status[255] = '\xA4';
    EXPECT_EQ(object(), R"({"id": "0"})");
}

TEST_F(LanPortStatusTo, WritesOtherScriptsControlCharactersAndSlashesAsJson)
{
    set(add("0").status, "Büro/1:\tup\n\"2\" 北\x7F");
    EXPECT_EQ(object(), "{\"id\": \"0\", \"status\": \"Büro/1:\\tup\\n\\\"2\\\" 北\x7F\"}");
}

TEST_F(LanPortStatusTo, GrowsTheBufferForManyNodes)
{
    std::string expected = "[";
    for (int i = 0; i < 20; ++i) {
        fill_whole(add("0").status, 's');
        expected += R"({"id": "0", "status": ")" + std::string(255, 's') + R"("})" + (i < 19 ? ", " : "]");
    }
    EXPECT_EQ(list(), expected);
    EXPECT_EQ(reallocations_, 1U);
}

} // namespace

} // namespace kelmora_test::lan_port_status_test
