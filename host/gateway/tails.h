#ifndef KELMORA_HOST_GATEWAY_TAILS_H
#define KELMORA_HOST_GATEWAY_TAILS_H

#include <cstddef>
#include <functional>
#include <vector>

namespace kelmora_host {

/// While it lives, and on its thread, append() remembers the last nodes of a record's chains, so that a list of n
/// elements takes n steps. Whoever makes one promises that none of the chains' nodes is freed in that time. The chains
/// may be replaced and lengthened by others, but not cut behind their first node: what is appended then goes behind the
/// part that was cut off.
class Tails {
public:
    /// record: where the record begins; the chains are those whose first pointers lie in its bytes.
    Tails(const void *record, std::size_t size) : begin_(record), size_(size), outer_(innermost_) { innermost_ = this; }
    Tails(const Tails &) = delete;
    Tails &operator=(const Tails &) = delete;
    ~Tails() { innermost_ = outer_; }

    /// Hangs a node at the end of a chain; its `next` must be NULL. Where nobody keeps the chain's tail, the end is
    /// looked for from the first node on.
    template <class Node> static void append(Node *&first, Node *node)
    {
        Tail *tail = innermost_ != nullptr ? innermost_->tail_of(&first) : nullptr;
        Node **link = &first;
        if (tail != nullptr && first != nullptr && tail->first == first)
            link = &static_cast<Node *>(tail->last)->next;
        while (*link != nullptr)
            link = &(*link)->next;
        *link = node;
        if (tail != nullptr) {
            tail->first = first;
            tail->last = node;
        }
    }

private:
    struct Tail {
        const void *list; ///< the pointer to the first node
        void *first;
        void *last;
    };

    /// The tail of a chain, empty at first; NULL for a chain of another record.
    Tail *tail_of(const void *list)
    {
        const auto *begin = static_cast<const std::byte *>(begin_);
        if (std::less<>()(list, begin_) || !std::less<>()(list, static_cast<const void *>(begin + size_)))
            return nullptr;
        for (Tail &tail : tails_) {
            if (tail.list == list)
                return &tail;
        }
        return &tails_.emplace_back(Tail{list, nullptr, nullptr});
    }

    const void *begin_;
    std::size_t size_;
    Tails *outer_;
    std::vector<Tail> tails_;

    static inline thread_local Tails *innermost_ = nullptr;
};

} // namespace kelmora_host

#endif
