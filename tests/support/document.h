#ifndef KELMORA_TESTS_SUPPORT_DOCUMENT_H
#define KELMORA_TESTS_SUPPORT_DOCUMENT_H

#include <string>
#include <string_view>
#include <vector>

namespace kelmora_test {

// Variants of a JSON document. A path names a member, nested ones with dots ("time.hour"), elements of arrays by
// number ("entry.0.direction"). Texts that do not parse and paths that do not exist throw.

/// The document with a member set to the value that `json` is the text of. The member may be new.
[[nodiscard]] std::string with(const std::string &document, std::string_view path, const std::string &json);

/// The document without a member, which it must have.
[[nodiscard]] std::string without(const std::string &document, std::string_view path);

/// The document without several members.
[[nodiscard]] std::string without_all(const std::string &document, const std::vector<std::string> &paths);

/// The text of an object with another id in the place of its own. It is taken as it is to stand between the quotes.
[[nodiscard]] std::string with_id(const std::string &object, const std::string &id);

/// The text of a pretty array of these pretty objects.
[[nodiscard]] std::string pretty_array(const std::vector<std::string> &objects);

/// Whether jansson takes the text for a JSON document.
[[nodiscard]] bool parses(const std::string &text);

/// A text of this length as JSON, quotes included.
[[nodiscard]] std::string quoted(std::size_t length);

} // namespace kelmora_test

#endif
