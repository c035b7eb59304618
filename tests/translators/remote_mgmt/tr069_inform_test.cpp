#include "tests/support/from_test.h"
#include "tests/support/to_test.h"

#include "kelmora_json.h"
#include "records/remote_mgmt.h"

namespace kelmora_test {

namespace {

using testing::AllOf;
using testing::HasSubstr;
using testing::Not;

/// A new record each time, as each node owns its text.
kelmora_tr069_inform inform(std::uint32_t status, const std::string &cause)
{
    return {.status = status, .cause = kelmora_host::make_text(cause)};
}

constexpr char sample_text[] = R"({"id": "cwmp", "status": 2, "cause": "no answer from \"acs/é\""})";

constexpr char other_text[] = R"({"id": "cwmp1", "status": 0, "cause": ""})";

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

TEST_F(Tr069InformTo, WritesTheHeadWhenTheCountIsZero)
{
    add_sample();
    EXPECT_EQ(list_counting(0), "[" + std::string(sample_text) + "]");
    EXPECT_EQ(object_counting(0), sample_text);
}

TEST_F(Tr069InformTo, WalksAllNodesWhateverTheCountSays)
{
    add_sample();
    add("cwmp1", inform(0, ""));
    for (const std::uint32_t count : {0U, 1U, 2U, 3U, 4294967295U})
        EXPECT_EQ(list_counting(count), "[" + std::string(sample_text) + ", " + other_text + "]");
}

TEST_F(Tr069InformTo, LeavesTheLastNodeInTheObjectWhenNoListIsAskedFor)
{
    add_sample();
    add("cwmp1", inform(0, ""));
    EXPECT_EQ(object(), other_text);
    EXPECT_EQ(object_counting(1), other_text);
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

TEST_F(Tr069InformTo, CutsTheIdTo128Bytes)
{
    add_sample();
    fill_whole(nodes_.front().resource()->id, 'i');
    EXPECT_THAT(object(), HasSubstr(R"({"id": ")" + std::string(128, 'i') + R"(", "status": 2,)"));
    nodes_.front().resource()->id[127] = '\xC3'; // the first byte of a two-byte character: the last that is written
    nodes_.front().resource()->id[128] = '\xA4';
    EXPECT_THAT(object(), AllOf(HasSubstr(R"({"status": 2,)"), Not(HasSubstr("\"id\""))));
}

TEST_F(Tr069InformTo, SurvivesFailingMemory)
{
    add_sample();
    fill_whole(nodes_.front().resource()->id, 'i'); // a cut text takes an allocation of the library's own
    add("cwmp1", inform(1, std::string(4096, 'c')));
    expect_survives_failing_memory();
}

class Tr069InformFrom : public FromTest<kelmora_tr069_inform> {
protected:
    Tr069InformFrom() : FromTest(tr069_inform_from_translator, R"({"status": 7, "cause": "written"})") {}
};

TEST_F(Tr069InformFrom, AcceptsAnythingAndTouchesNothing)
{
    record() = inform(2, "as the host left it");
    const char *cause = record().cause;
    for (const char *text : {"", "{", R"({"status": 7, "cause": "written"})", "{}", "[]", "nonsense"}) {
        EXPECT_TRUE(accepts(text));
        EXPECT_EQ(fetches_, 0U);
        EXPECT_EQ(record().status, 2U);
        ASSERT_EQ(record().cause, cause);
        EXPECT_STREQ(record().cause, "as the host left it");
    }
    EXPECT_EQ(tr069_inform_from_translator(nullptr, nullptr, nullptr), 1);
}

} // namespace

} // namespace kelmora_test
