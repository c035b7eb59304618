#include "tests/support/to_test.h"

#include "kelmora_json.h"
#include "records/pon.h"

namespace kelmora_test::epon_llid_status_test {

namespace {

constexpr kelmora_epon_llid_status sample{
    .llid_id = 4,
    .llid_id_status = 2,
    .llid_id_status_desc = "Registered",
};

constexpr char sample_text[] = R"({"id": "7", "llid_id": 4, "llid_id_status": 2, "llid_id_status_desc": "Registered"})";

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

} // namespace

} // namespace kelmora_test::epon_llid_status_test
