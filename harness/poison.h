#ifndef KELMORA_HARNESS_POISON_H
#define KELMORA_HARNESS_POISON_H

#include "host/gateway/node.h"
#include "host/gateway/record.h"
#include "host/gateway/resources.h"

#include <cstddef>
#include <cstring>
#include <string>
#include <string_view>

namespace kelmora_harness {

/// What fills memory that nobody has written: no plausible value of anything.
inline constexpr unsigned char poison = 0xA5;

/// What stands, this often, where nobody may write: other bytes than poison, which a translator might copy there.
inline constexpr unsigned char guard_byte = 0x5A;
inline constexpr std::size_t guard_size = 64;

/// A record, and its guard behind it.
template <class Type> struct Guarded {
    Type record;
    unsigned char guard[guard_size];
};

template <class Type> void *data_of(Guarded<Type> &guarded)
{
    using kelmora_host::data_of;
    return data_of(guarded.record);
}

} // namespace kelmora_harness

template <class Type> struct kelmora_host::Owned<kelmora_harness::Guarded<Type>> {
    template <class Visitor> static void visit(kelmora_harness::Guarded<Type> &guarded, Visitor &visitor)
    {
        Owned<Type>::visit(guarded.record, visitor);
    }
};

namespace kelmora_harness {

/// Fills a record with this byte, but for its chains and strings: they are empty. What hung on it is not freed.
template <class Type> void fill_bytes(Type &record, unsigned char byte)
{
    std::memset(&record, byte, sizeof record);
    kelmora_host::Forget forget;
    kelmora_host::Owned<Type>::visit(record, forget);
}

/// A guarded record, filled with this byte as fill_bytes does.
template <class Type> kelmora_host::Record filled_record(unsigned char byte)
{
    Guarded<Type> guarded;
    fill_bytes(guarded.record, byte);
    std::memset(guarded.guard, guard_byte, sizeof guarded.guard);
    return kelmora_host::Record(guarded);
}

/// Takes the image of what a record owns, and the pointers to it out of the record.
class Image {
public:
    template <class Node> void chain(Node *&first)
    {
        for (const Node *node = first; node != nullptr; node = node->next) {
            Node copy = *node;
            copy.next = nullptr;
            kelmora_host::Owned<Node>::visit(copy, *this);
            bytes_.append(reinterpret_cast<const char *>(&copy), sizeof copy);
        }
        bytes_.append("end of chain");
        first = nullptr;
    }

    void text(char *&text)
    {
        bytes_.append(text != nullptr ? text : "no text");
        text = nullptr;
    }

    [[nodiscard]] const std::string &bytes() const { return bytes_; }

private:
    std::string bytes_;
};

/// A record's bytes and those of all that hangs on it, without the pointers between them.
template <class Type> std::string image_of(const Type &record)
{
    Type copy;
    std::memcpy(&copy, &record, sizeof copy);
    Image image;
    kelmora_host::Owned<Type>::visit(copy, image);
    return std::string(reinterpret_cast<const char *>(&copy), sizeof copy) + image.bytes();
}

// The same for a record of a resource, guarded or not. A guarded one is what checked calls (harness/call.h) ask for.

/// The host's blank record of the resource, guarded: all zeros, its chains and strings empty.
[[nodiscard]] kelmora_host::Record blank_record(const kelmora_host::Resource &resource);

/// The host's poisoned one, guarded: every byte poison, but for its empty chains and strings.
[[nodiscard]] kelmora_host::Record poisoned_record(const kelmora_host::Resource &resource);

/// A guarded copy of a record of the resource's that is not guarded.
[[nodiscard]] kelmora_host::Record guarded_copy(const kelmora_host::Resource &resource, kelmora_host::Record record);

/// The record's image, without its guard.
[[nodiscard]] std::string image_of(const kelmora_host::Resource &resource, kelmora_host::Record &record);

/// Overwrites all bytes of a node's record, of what hangs on it and of its id with the pattern, again and again from
/// its `phase`-th byte on; pointers stay as they are.
void fill(const kelmora_host::Resource &resource, kelmora_host::Node &node, std::string_view pattern,
          std::size_t phase = 0);

} // namespace kelmora_harness

#endif
