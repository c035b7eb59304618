#include "tests/support/from_test.h"
#include "tests/support/to_test.h"

#include "kelmora_json.h"
#include "records/pon.h"

namespace kelmora_test {

namespace {

constexpr kelmora_epon_llid_status sample{
    .llid_id = 4,
    .llid_id_status = 2,
    .llid_id_status_desc = "Registered",
};

constexpr char sample_text[] = R"({"id": "7", "llid_id": 4, "llid_id_status": 2, "llid_id_status_desc": "Registered"})";

constexpr char empty_text[] = R"({"id": "8", "llid_id": 0, "llid_id_status": 0, "llid_id_status_desc": ""})";

class EponLlidStatusTo : public ToTest<kelmora_epon_llid_status> {
protected:
    EponLlidStatusTo() : ToTest(epon_llid_status_to_translator) {}
};

TEST_F(EponLlidStatusTo, WritesAllKeysInOrder)
{
    add("7", sample);
    EXPECT_EQ(object(), sample_text);
    EXPECT_EQ(list(), "[" + std::string(sample_text) + "]");
}

TEST_F(EponLlidStatusTo, WritesAsManyNodesAsTheHeadCounts)
{
    add("7", sample);
    add("8");
    EXPECT_EQ(list_counting(0), "[]");
    EXPECT_EQ(object_counting(0), "{}");
    EXPECT_EQ(list_counting(1), "[" + std::string(sample_text) + "]");
    EXPECT_EQ(object_counting(1), sample_text);
    EXPECT_EQ(list_counting(5), "[" + std::string(sample_text) + ", " + empty_text + "]");
}

TEST_F(EponLlidStatusTo, LeavesTheLastNodeInTheObjectWhenNoListIsAskedFor)
{
    add("7", sample);
    add("8");
    EXPECT_EQ(object(), empty_text);
}

TEST_F(EponLlidStatusTo, WritesNumbersAsUnsignedAndCutsADescriptionThatFillsItsField)
{
    kelmora_epon_llid_status &link = add("w");
    link.llid_id = 65535;
    link.llid_id_status = 65534;
    fill_whole(link.llid_id_status_desc, 'd');
    EXPECT_EQ(object(), R"({"id": "w", "llid_id": 65535, "llid_id_status": 65534, "llid_id_status_desc": ")" +
                            std::string(127, 'd') + R"("})");
}

TEST_F(EponLlidStatusTo, LeavesOutADescriptionThatIsNotUtf8)
{
    set(add("7", sample).llid_id_status_desc, "caf\xE9");
    EXPECT_EQ(object(), R"({"id": "7", "llid_id": 4, "llid_id_status": 2})");
}

TEST_F(EponLlidStatusTo, CutsAnIdThatFillsItsField)
{
    add("", sample);
    fill_whole(nodes_.front().resource()->id, 'i');
    EXPECT_EQ(object(), with_id(sample_text, std::string(128, 'i')));
}

TEST_F(EponLlidStatusTo, LeavesOutAnIdThatIsNotUtf8)
{
    add("caf\xE9", sample);
    EXPECT_EQ(object(), without(sample_text, "id"));
}

TEST_F(EponLlidStatusTo, SurvivesFailingMemory)
{
    add("7", sample);
    add("8", sample);
    expect_survives_failing_memory();
}

class EponLlidStatusFrom : public FromTest<kelmora_epon_llid_status> {
protected:
    EponLlidStatusFrom() : FromTest(epon_llid_status_from_translator, sample_text) {}
};

TEST_F(EponLlidStatusFrom, AcceptsAnythingAndTouchesNothing)
{
    for (const char *text : {"", "{", sample_text, "[]", "nonsense"}) {
        EXPECT_TRUE(accepts(text));
        EXPECT_TRUE(untouched(record()));
        EXPECT_EQ(fetches_, 0U);
    }
    EXPECT_EQ(epon_llid_status_from_translator(nullptr, nullptr, nullptr), 1);
}

} // namespace

} // namespace kelmora_test
