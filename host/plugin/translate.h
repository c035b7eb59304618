#ifndef KELMORA_HOST_PLUGIN_TRANSLATE_H
#define KELMORA_HOST_PLUGIN_TRANSLATE_H

#include "host/gateway/node.h"
#include "host/plugin/errors.h"

#include <cstddef>
#include <string>
#include <vector>

namespace kelmora_host {

/// The buffer that a to-translator writes into: from malloc, 4096 bytes to begin with.
class OutputBuffer {
public:
    static constexpr std::size_t initial_size = 4096;

    OutputBuffer();
    OutputBuffer(const OutputBuffer &) = delete;
    OutputBuffer &operator=(const OutputBuffer &) = delete;
    ~OutputBuffer();

    [[nodiscard]] char **pointer() { return &bytes_; }
    [[nodiscard]] const char *bytes() const { return bytes_; }

private:
    char *bytes_;
};

/// What a to-translator answered.
struct Encoded {
    int result;       ///< the translator's: 1 for success
    std::string text; ///< the JSON text, empty when the translator wrote nothing; or the bytes of a raw resource
};

/// Records to JSON. as_list: a JSON array of all nodes, else one object. No nodes: the request's head is
/// then an empty record, with a count of 0. raw_bytes: how many bytes the translator of a raw resource writes; 0 where
/// it writes a text.
Encoded to_json(kelmora_to_translator to, std::vector<Node> &nodes, bool as_list, std::size_t raw_bytes = 0);

/// What a from-translator answered.
struct Decoded {
    int result; ///< the translator's: 1 for success, 0 when it rejected the text
    std::vector<Error> errors;
};

/// JSON to one record. After a rejection the record holds what was stored before it; who wants all or nothing hands in
/// a copy. The text of a raw resource may have NUL bytes.
Decoded from_json(kelmora_from_translator from, Node &node, const std::string &text);

} // namespace kelmora_host

#endif
