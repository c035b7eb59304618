#ifndef KELMORA_HARNESS_MUTATE_H
#define KELMORA_HARNESS_MUTATE_H

#include <cstddef>
#include <jansson.h>
#include <random>
#include <string>

namespace kelmora_harness {

using Random = std::mt19937_64;

/// A number from 0 to below `end`.
[[nodiscard]] inline std::size_t below(std::size_t end, Random &random)
{
    return static_cast<std::size_t>(random() % end);
}

/// A new JSON value of any kind, near where widths and rules change; the caller's.
[[nodiscard]] json_t *random_value(Random &random);

/// Changes a document somewhere, at any depth: takes a member or an element out, replaces it, or puts one in; repeats
/// elements of an array. The root stays what it is: an object or an array.
void mutate(json_t *root, Random &random);

/// The document, which must be JSON, after one to three changes.
[[nodiscard]] std::string mutated(const std::string &document, Random &random);

/// The text, not empty, with a byte changed, added or taken out, or cut short: most likely no JSON any more.
[[nodiscard]] std::string broken(std::string text, Random &random);

/// A document that is nested about as deep as jansson goes, and at times deeper.
[[nodiscard]] std::string deep_document(Random &random);

} // namespace kelmora_harness

#endif
