#include "tests/support/to_test.h"

#include "kelmora_json.h"
#include "records/pon.h"

namespace kelmora_test::pon_nodes_test {

namespace {

constexpr kelmora_pon_nodes sample{
    .ponOnuId = 3,
    .model = "K20-max",
    .gpon_provisioning_state = 5,
};

constexpr char sample_text[] = R"({"id": "7", "ponOnuId": 3, "model": "K20-max", "gpon_provisioning_state": 5})";

class PonNodesTo : public ToTest<kelmora_pon_nodes> {
protected:
    PonNodesTo() : ToTest(pon_nodes_to_translator) {}
};

TEST_F(PonNodesTo, WritesAllKeysInOrder)
{
    add("7", sample);
    EXPECT_EQ(object(), sample_text);
    EXPECT_EQ(list(), "[" + std::string(sample_text) + "]");
}

TEST_F(PonNodesTo, WritesBytesAsUnsigned)
{
    add("u", {.ponOnuId = 255, .model = "", .gpon_provisioning_state = 254});
    EXPECT_EQ(object(), R"({"id": "u", "ponOnuId": 255, "model": "", "gpon_provisioning_state": 254})");
}

TEST_F(PonNodesTo, CutsAModelThatFillsItsField)
{
    fill_whole(add("w").model, 'm');
    EXPECT_EQ(object(), R"({"id": "w", "ponOnuId": 0, "model": ")" + std::string(127, 'm') +
                            R"(", "gpon_provisioning_state": 0})");
}

TEST_F(PonNodesTo, LeavesOutAModelThatIsNotUtf8)
{
    set(add("x").model, "caf\xE9");
    EXPECT_EQ(object(), R"({"id": "x", "ponOnuId": 0, "gpon_provisioning_state": 0})");
}

} // namespace

} // namespace kelmora_test::pon_nodes_test
