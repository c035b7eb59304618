#include "tests/support/to_test.h"

#include "kelmora_json.h"
#include "records/remote_mgmt.h"

namespace kelmora_test::tr069_inform_test {

namespace {

/// A new record each time, as each node owns its text.
kelmora_tr069_inform inform(std::uint32_t status, const std::string &cause)
{
    return {.status = status, .cause = kelmora_host::make_text(cause)};
}

constexpr char sample_text[] = R"({"id": "cwmp", "status": 2, "cause": "no answer from \"acs/é\""})";

class Tr069InformTo : public ToTest<kelmora_tr069_inform> {
protected:
    Tr069InformTo() : ToTest(tr069_inform_to_translator) {}

    void add_sample() { add("cwmp", inform(2, "no answer from \"acs/é\"")); }
};

TEST_F(Tr069InformTo, WritesTheKeysInOrder)
{
    add_sample();
    EXPECT_EQ(object(), sample_text);
    EXPECT_EQ(list(), "[" + std::string(sample_text) + "]");
}

TEST_F(Tr069InformTo, KeepsTheCauseOfAnEarlierNodeInTheObjectWhenTheLastHasNone)
{
    add_sample();
    add("cwmp1", {.status = 3});
    EXPECT_EQ(object(), R"({"id": "cwmp1", "status": 3, "cause": "no answer from \"acs/é\""})");
}

TEST_F(Tr069InformTo, WritesTheStatusAsUnsigned)
{
    add("", inform(4294967295, ""));
    EXPECT_EQ(object(), R"({"id": "", "status": 4294967295, "cause": ""})");
}

TEST_F(Tr069InformTo, LeavesOutACauseThatIsNotThereOrNotUtf8)
{
    add("cwmp", {.status = 1});
    EXPECT_EQ(object(), R"({"id": "cwmp", "status": 1})");
    nodes_.clear();
    add("cwmp", inform(1, "caf\xE9"));
    EXPECT_EQ(object(), R"({"id": "cwmp", "status": 1})");
}

TEST_F(Tr069InformTo, WritesACauseOfAnyLengthWhole)
{
    for (const std::size_t length : {128U, 257U, 4095U, 4096U, 100000U}) {
        nodes_.clear();
        add("cwmp", inform(1, std::string(length, 'c')));
        EXPECT_EQ(object(), R"({"id": "cwmp", "status": 1, "cause": ")" + std::string(length, 'c') + "\"}");
    }
    EXPECT_EQ(reallocations_, 1U);
}

} // namespace

} // namespace kelmora_test::tr069_inform_test
