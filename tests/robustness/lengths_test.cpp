#include "tests/robustness/resources.h"

#include "tests/support/document.h"

#include "records/diagnostics.h"
#include "records/qos.h"

#include <gtest/gtest.h>
#include <string>
#include <utility>
#include <vector>

namespace kelmora_test::lengths_test {

namespace {

using kelmora_host::make_text;
using kelmora_host::Record;

/// A resource whose text gets as long as a text in its record.
struct Stretchable {
    const char *resource;
    Record (*record)(std::size_t length);
};

Record request(std::size_t length)
{
    return Record(kelmora_http_request{.dest = "192.0.2.1", .body = make_text(std::string(length, 'b'))});
}

/// Rendered with an indent and sorted keys.
Record dscp(std::size_t length)
{
    return Record(
        kelmora_host::ChainRecord<kelmora_qos_available_dscp>{kelmora_host::make_chain<kelmora_qos_available_dscp>(
            {{.id = 1, .dscp = make_text(std::string(length, 'd')), .next = nullptr}})});
}

class TextOfAnyLength : public testing::TestWithParam<Stretchable> {
protected:
    static Written written(std::size_t length, bool as_list)
    {
        Nodes nodes;
        nodes.emplace_back("0", GetParam().record(length));
        return write_out(*kelmora_host::find_resource(GetParam().resource), nodes, as_list);
    }

    /// The text has exactly this length; what it is made of, and what the buffer did.
    static void expect_length(std::size_t length, bool as_list)
    {
        const std::string shortest = written(0, as_list).text;
        const std::size_t stretch = length - shortest.size();
        const Written written = TextOfAnyLength::written(stretch, as_list);
        EXPECT_EQ(written.result, 1);
        ASSERT_EQ(written.text.size(), length);
        EXPECT_NE(written.text.find('"' + std::string(stretch, GetParam().resource[0] == 'h' ? 'b' : 'd') + '"'),
                  std::string::npos);
        EXPECT_TRUE(parses(written.text));
        EXPECT_EQ(written.reallocations, length < 4096 ? 0U : 1U) << length;
        if (length >= 4096) {
            EXPECT_EQ(written.reallocated_size, length + 1);
        }
    }
};

TEST_P(TextOfAnyLength, GrowsTheBufferToExactlyItsSizeFrom4096CharactersOn)
{
    for (const bool as_list : {true, false}) {
        for (std::size_t length = 4090; length <= 4102; ++length)
            expect_length(length, as_list);
        expect_length(std::size_t{1} << 20U, as_list);
    }
}

INSTANTIATE_TEST_SUITE_P(Of, TextOfAnyLength,
                         testing::Values(Stretchable{"http_request", request}, Stretchable{"qos_available_dscp", dscp}),
                         [](const auto &tested) { return std::string(tested.param.resource); });

class FullRecords : public testing::TestWithParam<Resource> {
protected:
    /// Fills the sample records with the pattern; the text must parse.
    void expect_writable(std::string_view pattern, std::size_t phase = 0)
    {
        for (const bool as_list : {true, false}) {
            Nodes nodes = samples_;
            for (kelmora_host::Node &node : nodes)
                fill(GetParam(), node, pattern, phase);
            const Written written = write_out(GetParam(), nodes, as_list);
            EXPECT_EQ(written.result, 1) << testing::PrintToString(pattern);
            EXPECT_TRUE(parses(written.text)) << testing::PrintToString(pattern) << "\n" << written.text;
        }
    }

    const Nodes samples_ = samples_of(GetParam());
};

TEST_P(FullRecords, OfEachByteAreWrittenAsJson)
{
    const unsigned step = slow ? 11 : 1; // from '0' on, the backslash among them
    for (unsigned byte = 0; byte < 256; byte += byte < '0' ? 1 : step)
        expect_writable(std::string(1, static_cast<char>(byte)));
}

TEST_P(FullRecords, OfAllBytesInTurnAreWrittenAsJson)
{
    std::string all;
    for (unsigned byte = 1; byte < 256; ++byte)
        all += static_cast<char>(byte);
    const std::size_t step = slow ? 16 : 1;
    for (std::size_t phase = 0; phase < all.size(); phase += step)
        expect_writable(all, phase);
}

TEST_P(FullRecords, OfLongCharactersThatTheWidthMayCutAreWrittenAsJson)
{
    // Fields begin anywhere, so each phase splits a character at the end of another field.
    for (const std::string_view character : {"ß", "世", "𝄞"}) {
        for (std::size_t phase = 0; phase < character.size(); ++phase)
            expect_writable(character, phase);
    }
}

INSTANTIATE_TEST_SUITE_P(Every, FullRecords, testing::ValuesIn(written_resources()), test_name);

} // namespace

} // namespace kelmora_test::lengths_test
