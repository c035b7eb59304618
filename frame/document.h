#ifndef KELMORA_FRAME_DOCUMENT_H
#define KELMORA_FRAME_DOCUMENT_H

#include <jansson.h>

namespace kelmora {

/// Owns the root of a JSON document, and releases it at the end of its life at the latest.
class Document {
public:
    /// root: one reference, taken over; NULL makes an empty document.
    explicit Document(json_t *root) : root_(root) {}
    Document(const Document &) = delete;
    Document &operator=(const Document &) = delete;
    ~Document() { release(); }

    /// The root, borrowed; NULL when there is none or it was released.
    [[nodiscard]] json_t *root() const { return root_; }

    /// Releases the root now. More than once does no harm.
    void release();

    /// Leaks the root, as a few paths must: each such call costs the process one document for good. A build with
    /// KELMORA_RELEASE_ALL releases it instead.
    void leak();

private:
    json_t *root_;
};

} // namespace kelmora

#endif
