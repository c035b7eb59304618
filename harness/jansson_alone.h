#ifndef KELMORA_HARNESS_JANSSON_ALONE_H
#define KELMORA_HARNESS_JANSSON_ALONE_H

#include "harness/ledger.h"

#include <cstddef>
#include <optional>
#include <set>
#include <string>

namespace kelmora_harness {

// What jansson alone makes of an allocation that fails. Some of its releases go on after one, and lose the end of a key
// that they render, or a character of a string that they parse: not the library's to see. What the library does with a
// failing allocation is explained where jansson alone does the same.

/// The wrong texts that jansson alone renders, and reports as success, instead of this one when an allocation fails,
/// whichever it is. text: one that json_dumps renders with one of the library's flag words; for another none is found.
[[nodiscard]] std::set<std::string> damaged_renderings(const std::string &text, Failing failing);

/// What jansson alone parses a document to.
struct Parsed {
    std::optional<std::string> text; ///< the tree, rendered again; none when there is no tree
    std::size_t allocations;         ///< that parsing asked for
};
[[nodiscard]] Parsed parse_alone(const std::string &document, FailingAllocation memory = {});

/// The images that differ from a right one only in that a part of the document, which the record holds as text, stands
/// in it as jansson alone renders it when an allocation fails, whichever it is.
[[nodiscard]] std::set<std::string> damaged_images(const std::string &document, const std::string &image,
                                                   Failing failing);

} // namespace kelmora_harness

#endif
