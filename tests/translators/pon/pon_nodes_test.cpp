#include "tests/support/from_test.h"
#include "tests/support/to_test.h"

#include "kelmora_json.h"
#include "records/pon.h"

namespace kelmora_test {

namespace {

constexpr kelmora_pon_nodes sample{
    .ponOnuId = 3,
    .model = "K20-max",
    .gpon_provisioning_state = 5,
};

constexpr char sample_text[] = R"({"id": "7", "ponOnuId": 3, "model": "K20-max", "gpon_provisioning_state": 5})";

constexpr char empty_text[] = R"({"id": "8", "ponOnuId": 0, "model": "", "gpon_provisioning_state": 0})";

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

TEST_F(PonNodesTo, WritesAsManyNodesAsTheHeadCounts)
{
    add("7", sample);
    add("8");
    EXPECT_EQ(list_counting(0), "[]");
    EXPECT_EQ(object_counting(0), "{}");
    EXPECT_EQ(list_counting(1), "[" + std::string(sample_text) + "]");
    EXPECT_EQ(object_counting(1), sample_text);
    EXPECT_EQ(list_counting(5), "[" + std::string(sample_text) + ", " + empty_text + "]");
}

TEST_F(PonNodesTo, LeavesTheLastNodeInTheObjectWhenNoListIsAskedFor)
{
    add("7", sample);
    add("8");
    EXPECT_EQ(object(), empty_text);
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

TEST_F(PonNodesTo, CutsAnIdThatFillsItsField)
{
    add("", sample);
    fill_whole(nodes_.front().resource()->id, 'i');
    EXPECT_EQ(object(), with_id(sample_text, std::string(128, 'i')));
}

TEST_F(PonNodesTo, LeavesOutAnIdThatIsNotUtf8)
{
    add("caf\xE9", sample);
    EXPECT_EQ(object(), without(sample_text, "id"));
}

TEST_F(PonNodesTo, SurvivesFailingMemory)
{
    add("7", sample);
    add("8", sample);
    expect_survives_failing_memory();
}

class PonNodesFrom : public FromTest<kelmora_pon_nodes> {
protected:
    PonNodesFrom() : FromTest(pon_nodes_from_translator, sample_text) {}
};

TEST_F(PonNodesFrom, AcceptsAnythingAndTouchesNothing)
{
    for (const char *text : {"", "{", sample_text, "[]", "nonsense"}) {
        EXPECT_TRUE(accepts(text));
        EXPECT_TRUE(untouched(record()));
        EXPECT_EQ(fetches_, 0U);
    }
    EXPECT_EQ(pon_nodes_from_translator(nullptr, nullptr, nullptr), 1);
}

} // namespace

} // namespace kelmora_test
