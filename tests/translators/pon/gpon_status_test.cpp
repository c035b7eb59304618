#include "tests/support/to_test.h"

#include "kelmora_json.h"
#include "records/pon.h"

namespace kelmora_test::gpon_status_test {

namespace {

constexpr kelmora_gpon_status sample{
    .onu_state = 5,
    .onu_id = 9,
    .onu_state_desc = "Operation",
};

constexpr char sample_text[] = R"({"id": "7", "onu_state_id": "O5", "onu_id": 9, "onu_state_desc": "Operation"})";

constexpr char empty_text[] = R"({"id": "8", "onu_state_id": "UNDEF", "onu_id": 0, "onu_state_desc": ""})";

class GponStatusTo : public ToTest<kelmora_gpon_status> {
protected:
    GponStatusTo() : ToTest(gpon_status_to_translator) {}
};

TEST_F(GponStatusTo, WritesAllKeysInOrder)
{
    add("7", sample);
    EXPECT_EQ(object(), sample_text);
    EXPECT_EQ(list(), "[" + std::string(sample_text) + "]");
}

TEST_F(GponStatusTo, WritesAnEmptyRecord)
{
    add("8");
    EXPECT_EQ(object(), empty_text);
}

TEST_F(GponStatusTo, NamesTheStateByItsNumber)
{
    const auto state_id = [this](std::uint32_t state) {
        nodes_.clear();
        add("s").onu_state = state;
        const std::string text = object();
        const std::string before = R"({"id": "s", "onu_state_id": ")";
        const std::string after = R"(", "onu_id": 0, "onu_state_desc": ""})";
        EXPECT_THAT(text, testing::AllOf(testing::StartsWith(before), testing::EndsWith(after)));
        return text.substr(before.size(), text.size() - before.size() - after.size());
    };
    EXPECT_EQ(state_id(0), "UNDEF");
    EXPECT_EQ(state_id(1), "O1");
    EXPECT_EQ(state_id(10), "O10");
    EXPECT_EQ(state_id(12345678), "O12345678");
}

TEST_F(GponStatusTo, CutsTheStateToNineCharacters)
{
    add("s").onu_state = 123456789;
    EXPECT_THAT(object(), testing::HasSubstr(R"("onu_state_id": "O12345678",)"));
    nodes_.clear();
    add("s").onu_state = 2147483647;
    EXPECT_THAT(object(), testing::HasSubstr(R"("onu_state_id": "O21474836",)"));
}

TEST_F(GponStatusTo, WritesTheStateAsASignedNumber)
{
    add("s").onu_state = 4294967295;
    EXPECT_THAT(object(), testing::HasSubstr(R"("onu_state_id": "O-1",)"));
    nodes_.clear();
    add("s").onu_state = 2147483648;
    EXPECT_THAT(object(), testing::HasSubstr(R"("onu_state_id": "O-2147483",)"));
}

TEST_F(GponStatusTo, WritesTheUnitAsUnsignedAndCutsADescriptionThatFillsItsField)
{
    kelmora_gpon_status &status = add("w");
    status.onu_id = 255;
    fill_whole(status.onu_state_desc, 'd');
    EXPECT_EQ(object(), R"({"id": "w", "onu_state_id": "UNDEF", "onu_id": 255, "onu_state_desc": ")" +
                            std::string(19, 'd') + R"("})");
}

TEST_F(GponStatusTo, LeavesOutADescriptionThatIsNotUtf8)
{
    set(add("7", sample).onu_state_desc, "caf\xE9");
    EXPECT_EQ(object(), R"({"id": "7", "onu_state_id": "O5", "onu_id": 9})");
}

} // namespace

} // namespace kelmora_test::gpon_status_test
