// Document, record, text, record, text: what was accepted once is written as a document, and where a resource reads
// what it writes, that document is accepted again and gives the same text.

#include "fuzz/input.h"

#include "harness/call.h"
#include "harness/poison.h"

#include <algorithm>
#include <array>
#include <string>
#include <string_view>
#include <vector>

using namespace kelmora_fuzz;

namespace {

/// The resources that do not read what they write.
constexpr std::array<std::string_view, 6> one_way{
    "easymesh",             // shows how far it is synchronised, which cannot be written
    "http_request",         // shows the body as a text, and reads it as a document
    "interface_statistics", // reads its counters from reals, and shows integers
    "limits",               // turns the order of a list round
    "mp_info",              // reads a password, and shows what it is for
    "qos_classification",   // shows the order, which cannot be written
};

bool reads_what_it_writes(const Input &input)
{
    return input.resource->directions == kelmora_host::Directions::both && !is_raw(*input.resource) &&
           std::ranges::find(one_way, input.resource->name) == one_way.end();
}

/// A text that is cut may end within a character, and then its key is not written.
bool may_have_cut_characters(const std::string &document)
{
    return std::ranges::any_of(document, [](char c) { return static_cast<unsigned char>(c) >= 0x80 || c == '\\'; });
}

/// Whether the document is accepted.
bool accepts(const Input &input, kelmora_host::Node &node, const std::string &document)
{
    const kelmora_harness::FromAnswer answer = kelmora_harness::call_from(*input.resource, node, document);
    require_none(answer.faults, input);
    return answer.result == 1;
}

/// The record as its resource writes it; where that is an array whatever is asked for, its one element.
std::string text_of(const Input &input, const kelmora_host::Node &node)
{
    std::vector<kelmora_host::Node> nodes{node};
    const kelmora_harness::ToAnswer answer = kelmora_harness::call_to(input.translators.to, nodes);
    require_none(answer.faults, input);
    require(answer.result == 1, input, "the record cannot be written");
    if (!answer.text.starts_with('['))
        return answer.text;
    return answer.text.substr(1, answer.text.size() - 2);
}

} // namespace

// NOLINTNEXTLINE(readability-identifier-naming): libFuzzer's name
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const Input input = parse_input(data, size);
    if (input.resource == nullptr || !reads_what_it_writes(input))
        return -1; // of no use in the corpus

    kelmora_host::Node node("a node", kelmora_harness::blank_record(*input.resource));
    if (!accepts(input, node, input.document))
        return 0;
    const std::string text = text_of(input, node);
    if (may_have_cut_characters(input.document))
        return 0;

    kelmora_host::Node again("a node", kelmora_harness::blank_record(*input.resource));
    require(accepts(input, again, text), input, text.c_str());
    require(text_of(input, again) == text, input, text.c_str());
    return 0;
}
