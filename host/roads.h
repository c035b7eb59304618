#ifndef KELMORA_HOST_ROADS_H
#define KELMORA_HOST_ROADS_H

#include "host/errors.h"
#include "host/node.h"

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

/// What came back on the read road.
struct ReadAnswer {
    int result;       ///< the translator's: 1 for success
    std::string text; ///< the JSON text, empty when the translator wrote nothing; or the bytes of a raw resource
};

/// The read road: records to JSON. as_list: a JSON array of all nodes, else one object. No nodes: the request's head is
/// then an empty record, with a count of 0. raw_bytes: how many bytes the translator of a raw resource writes; 0 where
/// it writes a text.
ReadAnswer read(kelmora_to_translator to, std::vector<Node> &nodes, bool as_list, std::size_t raw_bytes = 0);

/// What came back on the write road.
struct WriteAnswer {
    int result; ///< the translator's: 1 for success, 0 when it rejected the text
    std::vector<Error> errors;
};

/// The write road: JSON to one record. After a rejection the record holds what was stored before it; who wants all or
/// nothing writes into a copy. The text of a raw resource may have NUL bytes.
WriteAnswer write(kelmora_from_translator from, Node &node, const std::string &text);

} // namespace kelmora_host

#endif
