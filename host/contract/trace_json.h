#ifndef KELMORA_HOST_CONTRACT_TRACE_JSON_H
#define KELMORA_HOST_CONTRACT_TRACE_JSON_H

#include "host/contract/image.h"
#include "host/contract/trace.h"
#include "host/json.h"

#include <string>
#include <string_view>
#include <vector>

namespace kelmora_host {

// A trace for programs.

/// As what a step's value was read; one that was not read at all, but stored, as a boolean.
[[nodiscard]] std::vector<std::string_view> read_as(const Step &step);

/// A trace as a JSON object. file: what the document is called; empty when it has no name.
[[nodiscard]] Json steps_as_json(const Trace &trace, std::string_view file, std::string_view resource);

/// An image as a JSON object, which is the caller's: its blocks, each with its bytes in hexadecimal and the places of
/// its fields, of which those of a union share their bytes.
[[nodiscard]] json_t *image_as_json(const Image &image);

} // namespace kelmora_host

#endif
