#ifndef KELMORA_FUZZ_INPUT_H
#define KELMORA_FUZZ_INPUT_H

#include "host/gateway/record.h"
#include "host/gateway/resources.h"
#include "host/plugin/registry.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

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

/// The record that the input asks for, guarded (harness/poison.h): all zeros, poisoned, or one of the sample gateway.
kelmora_host::Record record_before(const Input &input);

/// Ends the process with a report unless `holds`.
void require(bool holds, const Input &input, const char *what);

/// The same unless a checked call found nothing wrong.
void require_none(const std::vector<std::string> &faults, const Input &input);

} // namespace kelmora_fuzz

#endif
