// No library at all: the same bytes, straight into the host's buffer. It takes its texts for UTF-8.
#include "bench/other_libraries/fields.h"
#include "bench/other_libraries/other_libraries.h"
#include "bench/record.h"

#include <algorithm>
#include <charconv>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>

namespace kelmora_bench {

namespace {

class Out {
public:
    explicit Out(char **buffer) : buffer_(buffer), at_(*buffer), end_(*buffer + smallest_buffer) {}

    template <std::size_t n> void text(const char (&key)[n], const char *field)
    {
        const std::size_t length = std::strlen(field);
        reserve(n + longest_escape * length + punctuation);
        name(key);
        put('"');
        for (const char *character = field; character != field + length; ++character) {
            const auto byte = static_cast<unsigned char>(*character);
            if (byte >= ' ' && byte != '"' && byte != '\\')
                put(*character);
            else
                escape(byte);
        }
        literal("\", ");
    }

    template <std::size_t n, class Integer> void integer(const char (&key)[n], Integer field)
    {
        constexpr std::size_t longest_integer = 20;
        reserve(n + longest_integer + punctuation);
        name(key);
        at_ = std::to_chars(at_, end_, field).ptr;
        literal(", ");
    }

    template <std::size_t n> void boolean(const char (&key)[n], std::uint8_t field)
    {
        reserve(n + punctuation);
        name(key);
        if (field != 0)
            literal("true, ");
        else
            literal("false, ");
    }

    template <std::size_t n, class Node, class Each> void list(const char (&key)[n], const Node *first, Each each)
    {
        reserve(n + punctuation);
        name(key);
        put('[');
        for (const Node *node = first; node != nullptr; node = node->next)
            object([&](Out &entry) { each(entry, *node); });
        close("], ", first != nullptr);
    }

    template <class Fill> void object(Fill fill)
    {
        reserve(punctuation);
        put('{');
        fill(*this);
        close("}, ", true);
    }

    template <class Fill> void document(Fill fill)
    {
        put('[');
        fill(*this);
        close("]", true);
        reserve(1);
        *at_++ = '\0';
        if (const std::size_t size = used(); size > smallest_buffer)
            *buffer_ = static_cast<char *>(std::realloc(*buffer_, size));
    }

private:
    static constexpr std::size_t longest_escape = 6;
    static constexpr std::size_t punctuation = 16; // more than what stands around any value, `false` included

    [[nodiscard]] std::size_t used() const { return static_cast<std::size_t>(at_ - *buffer_); }

    void reserve(std::size_t size)
    {
        if (static_cast<std::size_t>(end_ - at_) < size)
            grow(size);
    }

    void grow(std::size_t size)
    {
        const std::size_t length = used();
        const std::size_t capacity = std::max(2 * static_cast<std::size_t>(end_ - *buffer_), length + size);
        *buffer_ = static_cast<char *>(std::realloc(*buffer_, capacity));
        at_ = *buffer_ + length;
        end_ = *buffer_ + capacity;
    }

    void put(char character) { *at_++ = character; }

    template <std::size_t n> void literal(const char (&text)[n])
    {
        std::memcpy(at_, text, n - 1);
        at_ += n - 1;
    }

    template <std::size_t n> void name(const char (&key)[n])
    {
        put('"');
        literal(key);
        literal("\": ");
    }

    /// Ends an object or an array. some: it has a member, which the separator behind it goes with.
    template <std::size_t n> void close(const char (&text)[n], bool some)
    {
        reserve(punctuation);
        if (some)
            at_ -= 2;
        literal(text);
    }

    void escape(unsigned char byte)
    {
        constexpr char from[] = "\"\\\b\f\n\r\t";
        constexpr char letter[] = "\"\\bfnrt";
        constexpr char digits[] = "0123456789ABCDEF";
        put('\\');
        if (const auto *found = static_cast<const char *>(std::memchr(from, byte, sizeof from - 1))) {
            put(letter[found - from]);
            return;
        }
        literal("u00");
        put(digits[byte / 16U]);
        put(digits[byte % 16U]);
    }

    char **buffer_;
    char *at_;
    char *end_;
};

template <class Record> int to(kelmora_resource *head, char **out)
{
    Out(out).document([&](Out &list) {
        for (kelmora_resource *node = head; node != nullptr; node = kelmora_resource_get_next(node))
            list.object([&](Out &object) { to_json(object, record_of<const Record>(node), node->id); });
    });
    return 1;
}

} // namespace

const OtherLibrary by_hand_peer{
    .name = "by hand",
    .wireless_to = to<kelmora_wireless>,
    .wireless_from = nullptr,
    .pon_counters_to = to<kelmora_pon_counters>,
    .firewall_to = to<kelmora_firewall_ip_port_filtering>,
    .firewall_from = nullptr,
};

} // namespace kelmora_bench
