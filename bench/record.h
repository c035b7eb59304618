#ifndef KELMORA_BENCH_RECORD_H
#define KELMORA_BENCH_RECORD_H

// What a translation needs besides a JSON library; the baselines and the other_libraries share it.

#include "kelmora_host.h"

#include <cstddef>
#include <cstdlib>
#include <cstring>

namespace kelmora_bench {

/// Bytes that the host's buffer has at least.
inline constexpr std::size_t smallest_buffer = 4096;

/// Copies a text into the host's buffer. size: its bytes, the NUL included.
inline void hand_over(const char *text, std::size_t size, char **out)
{
    if (size > smallest_buffer)
        *out = static_cast<char *>(std::realloc(*out, size));
    std::memcpy(*out, text, size);
}

template <class Record> Record &record_of(kelmora_resource *node)
{
    return *static_cast<Record *>(kelmora_resource_get_data(node));
}

/// Stores as much of a text as the field holds.
template <std::size_t width> void store_string(char (&field)[width], const char *text)
{
    std::strncpy(field, text, width - 1);
    field[width - 1] = '\0';
}

/// A new node at the end of a chain, all zeros. link: where it is hung, and then where the next one goes.
template <class Node> Node *append(Node **&link)
{
    auto *node = static_cast<Node *>(std::calloc(1, sizeof(Node)));
    *link = node;
    link = &node->next;
    return node;
}

} // namespace kelmora_bench

#endif
