#ifndef KELMORA_FRAME_ENCODER_H
#define KELMORA_FRAME_ENCODER_H

#include "frame/direct/text.h"

#include "kelmora_host.h"

#include <cstdint>
#include <jansson.h>

namespace kelmora {

// What has no comment here has one in the other frame/encoder.h.

using NodeId = char[KELMORA_ID_SIZE];

/// What an object and an array that are written into a text have in common. key: NULL for an element.
class Container {
public:
    Container(const Container &) = delete;
    Container &operator=(const Container &) = delete;

    /// Ends it. Nothing can be added afterwards.
    void close();

    void whole_string(const char *key, const char *string);
    void integer(const char *key, std::uint32_t value) { number(key, value, false); }
    void integer(const char *key, std::int32_t value);
    void boolean(const char *key, std::uint32_t value);
    void real(const char *key, double value);

protected:
    /// A root.
    Container(Text &text, char front) : text_(text), open_(text.open(front, nullptr)) {}

    Container(Container &around, const char *key, char front);
    ~Container() = default;

    /// A string of at most `length` bytes.
    void string(const char *key, const char *string, std::size_t length);

    template <class Nested, class Fill> void nest(const char *key, Fill fill)
    {
        Nested nested(*this, key);
        fill(nested);
        nested.close();
    }

private:
    void number(const char *key, std::uint32_t magnitude, bool negative);
    void write(const char *key, const char *value, std::size_t size);

    Text &text_;
    Text::Open open_;
};

class ArrayEncoder;

class Encoder : public Container {
public:
    explicit Encoder(Text &text) : Container(text, '{') {}
    Encoder(Container &around, const char *key) : Container(around, key, '{') {}

    template <std::size_t width> void string(const char *key, const char (&field)[width])
    {
        Container::string(key, field, width - 1);
    }

    template <class Fill> void object(const char *key, Fill fill) { nest<Encoder>(key, fill); }
    template <class Fill> void array(const char *key, Fill fill) { nest<ArrayEncoder>(key, fill); }
};

class ArrayEncoder : private Container {
public:
    explicit ArrayEncoder(Text &text) : Container(text, '[') {}
    ArrayEncoder(Container &around, const char *key) : Container(around, key, '[') {}

    using Container::close;

    template <std::size_t width> void string(const char (&field)[width])
    {
        Container::string(nullptr, field, width - 1);
    }
    void integer(std::uint32_t value) { Container::integer(nullptr, value); }
    template <class Fill> void object(Fill fill) { nest<Encoder>(nullptr, fill); }
};

/// Adds the elements of an array's text to one of jansson's. text: NULL when it could not be written.
[[nodiscard]] bool extend(json_t *array, const char *text);

template <class Fill> [[nodiscard]] bool extend(json_t *array, Fill fill)
{
    Text text(nullptr, false);
    ArrayEncoder list(text);
    fill(list);
    list.close();
    return extend(array, text.finish());
}

} // namespace kelmora

#endif
