#include "tests/support/to_test.h"

#include "kelmora_json.h"
#include "records/qos.h"

namespace kelmora_test::qos_available_dscp_test {

namespace {

using testing::HasSubstr;
using testing::Not;

using kelmora_host::make_text;

using Entry = kelmora_qos_available_dscp;
using Entries = kelmora_host::ChainRecord<Entry>;

/// A new record each time, as each node owns its chain.
Entries sample()
{
    return {kelmora_host::make_chain<Entry>({
        {.id = 0, .dscp = make_text("standard / für alle")},
        {.id = 46, .dscp = make_text("EF")},
    })};
}

constexpr char sample_text[] = "{\n"
                               "                \"id\": \"dscp\",\n"
                               "                \"qos_available_dscp\": [\n"
                               "                                {\n"
                               "                                                \"dscp\": \"standard \\/ f\\u00FCr "
                               "alle\",\n"
                               "                                                \"id\": 0\n"
                               "                                },\n"
                               "                                {\n"
                               "                                                \"dscp\": \"EF\",\n"
                               "                                                \"id\": 46\n"
                               "                                }\n"
                               "                ]\n"
                               "}";

constexpr char empty_text[] = "{\n"
                              "                \"id\": \"empty\",\n"
                              "                \"qos_available_dscp\": []\n"
                              "}";

class QosAvailableDscpTo : public ToTest<Entries> {
protected:
    QosAvailableDscpTo() : ToTest(qos_available_dscp_to_translator) {}

    /// A node whose chain has one entry.
    void add_entry(std::uint32_t id, char *dscp)
    {
        add("dscp", {kelmora_host::make_chain<Entry>({{.id = id, .dscp = dscp}})});
    }
};

TEST_F(QosAvailableDscpTo, WritesSortedKeysIndentedAndEscaped)
{
    add("dscp", sample());
    EXPECT_EQ(object(), sample_text);
}

TEST_F(QosAvailableDscpTo, WritesNoDataAsAnEmptyArray)
{
    add("empty");
    EXPECT_EQ(object(), empty_text);
}

TEST_F(QosAvailableDscpTo, WritesAListOfEntriesWithTheirOwnChainsAndIds)
{
    add("a", sample());
    add("b");
    add("c", {kelmora_host::make_chain<Entry>({{.id = 10, .dscp = make_text("AF11")}})});
    EXPECT_EQ(list(), "[\n"
                      "                {\n"
                      "                                \"id\": \"a\",\n"
                      "                                \"qos_available_dscp\": [\n"
                      "                                                {\n"
                      "                                                                \"dscp\": \"standard \\/ "
                      "f\\u00FCr alle\",\n"
                      "                                                                \"id\": 0\n"
                      "                                                },\n"
                      "                                                {\n"
                      "                                                                \"dscp\": \"EF\",\n"
                      "                                                                \"id\": 46\n"
                      "                                                }\n"
                      "                                ]\n"
                      "                },\n"
                      "                {\n"
                      "                                \"id\": \"b\",\n"
                      "                                \"qos_available_dscp\": []\n"
                      "                },\n"
                      "                {\n"
                      "                                \"id\": \"c\",\n"
                      "                                \"qos_available_dscp\": [\n"
                      "                                                {\n"
                      "                                                                \"dscp\": \"AF11\",\n"
                      "                                                                \"id\": 10\n"
                      "                                                }\n"
                      "                                ]\n"
                      "                }\n"
                      "]");
}

TEST_F(QosAvailableDscpTo, WritesTheEntrysNumberAsUnsigned)
{
    add_entry(4294967295, make_text("EF"));
    EXPECT_THAT(object(), HasSubstr("\"id\": 4294967295\n"));
}

TEST_F(QosAvailableDscpTo, WritesAWholeTextHoweverLongItIs)
{
    const std::string dscp(5000, 'd');
    add_entry(1, make_text(dscp));
    EXPECT_THAT(object(), HasSubstr("\"dscp\": \"" + dscp + "\",\n"));
    EXPECT_EQ(reallocations_, 1U);
}

TEST_F(QosAvailableDscpTo, WritesAnEmptyText)
{
    add_entry(1, make_text(""));
    EXPECT_THAT(object(), HasSubstr("\"dscp\": \"\",\n"));
}

TEST_F(QosAvailableDscpTo, KeepsTheEntryWhoseTextCannotBeWritten)
{
    add("dscp",
        {kelmora_host::make_chain<Entry>({{.id = 1, .dscp = make_text("caf\xE9")}, {.id = 2, .dscp = nullptr}})});
    EXPECT_EQ(object(), "{\n"
                        "                \"id\": \"dscp\",\n"
                        "                \"qos_available_dscp\": [\n"
                        "                                {\n"
                        "                                                \"id\": 1\n"
                        "                                },\n"
                        "                                {\n"
                        "                                                \"id\": 2\n"
                        "                                }\n"
                        "                ]\n"
                        "}");
}

TEST_F(QosAvailableDscpTo, WritesAllEntriesInTheirOrder)
{
    Entries &entries = add("dscp");
    for (std::uint32_t id = 64; id > 0; --id) {
        Entry *entry = kelmora_host::make_chain<Entry>({{.id = id, .dscp = make_text("code")}});
        entry->next = entries.first;
        entries.first = entry;
    }
    const std::string text = object();
    std::size_t place = 0;
    for (int id = 1; id <= 64; ++id) {
        place = text.find("\"id\": " + std::to_string(id) + "\n", place);
        ASSERT_NE(place, std::string::npos) << id;
    }
    EXPECT_THAT(text, Not(HasSubstr("\"id\": 65\n")));
}

TEST_F(QosAvailableDscpTo, SurvivesFailingMemoryWithATextThatNeedsALargerBuffer)
{
    add_entry(1, make_text(std::string(4096, 'd')));
    expect_survives_failing_memory();
}

} // namespace

} // namespace kelmora_test::qos_available_dscp_test
