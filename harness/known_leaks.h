#ifndef KELMORA_HARNESS_KNOWN_LEAKS_H
#define KELMORA_HARNESS_KNOWN_LEAKS_H

#include "host/plugin/translate.h"

#include <span>
#include <string>
#include <string_view>

namespace kelmora_harness {

/// A path on which a resource's contract leaves the parsed document unreleased.
struct KnownLeak {
    std::string_view resource;
    int result;             ///< the translator's
    std::string_view error; ///< the error's field; with a * at the end any that begins so
    std::string_view when;  ///< "the document is leaked when", as the documentation has it
};

/// All of them, by resource.
[[nodiscard]] std::span<const KnownLeak> known_leaks();

/// The one that a call of a from-translator took, or NULL: whatever the build does with the document on it.
[[nodiscard]] const KnownLeak *known_leak(std::string_view resource, const std::string &text,
                                          const kelmora_host::Decoded &answer);

/// Whether the library was built to release the document on these paths as well.
#ifdef KELMORA_RELEASE_ALL
inline constexpr bool releases_all = true;
#else
inline constexpr bool releases_all = false;
#endif

} // namespace kelmora_harness

#endif
