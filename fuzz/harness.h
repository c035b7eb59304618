#ifndef KELMORA_FUZZ_HARNESS_H
#define KELMORA_FUZZ_HARNESS_H

#include "host/gateway/record.h"
#include "host/gateway/resources.h"
#include "host/plugin/registry.h"

#include <cstddef>
#include <cstdint>
#include <string>

namespace kelmora_fuzz {

/// An input taken apart: one byte chooses the resource, one the state of the record before the call, the rest is the
/// document.
struct Input {
    const kelmora_host::Resource *resource;
    kelmora_host::Registration translators;
    std::uint8_t state;
    std::string document; ///< without NUL bytes, as translators take it; raw resources: exactly their bytes
};

/// How many bytes of an input stand in front of its document.
inline constexpr std::size_t prefix_size = 2;

/// Takes an input apart; `resource` is NULL when it is too short.
Input parse_input(const std::uint8_t *data, std::size_t size);

/// The record that the input asks for: all zeros, full of stale bytes, or one of the sample gateway.
kelmora_host::Record record_before(const Input &input);

/// Ends the process with a report unless `holds`.
void require(bool holds, const Input &input, const char *what);

/// Blocks of the JSON library's that are alive.
std::int64_t json_alive();

} // namespace kelmora_fuzz

#endif
