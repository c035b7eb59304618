#ifndef KELMORA_FRAME_ENCODER_H
#define KELMORA_FRAME_ENCODER_H

#include "frame/direct/text.h"

#include "kelmora_host.h"

#include <cstdint>
#include <jansson.h>

namespace kelmora {

// What has no comment here has one in the other frame/encoder.h.

using NodeId = char[KELMORA_ID_SIZE];

/// What an object and an array that are written into a text have in common. name: none for an element.
class Container {
public:
    Container(const Container &) = delete;
    Container &operator=(const Container &) = delete;

    /// Ends it. Nothing can be added afterwards.
    void close();

    template <std::size_t width> void string(Name name, const char (&field)[width])
    {
        Container::field(name.characters, (width - 1) << name_bits | name.length, field);
    }
    void whole_string(Name name, const char *string) { whole_string(name.characters, name.length, string); }
    void integer(Name name, std::uint32_t value) { integer(name.characters, name.length, value); }
    void integer(Name name, std::int32_t value) { integer(name.characters, name.length, value); }
    void boolean(Name name, std::uint32_t value) { boolean(name.characters, name.length, value); }
    void real(Name name, double value) { real(name.characters, name.length, value); }

protected:
    /// A root.
    Container(Text &text, char front) : text_(text), open_(text.open(front, nullptr)) {}

    Container(Container &around, char front, const char *name, std::size_t length);
    ~Container() = default;

    template <class Nested, class Fill> void nest(Name name, Fill fill)
    {
        Nested nested(*this, name);
        fill(nested);
        nested.close();
    }

private:
    // Names are taken apart here, as the target takes a class of two words from memory only.
    void whole_string(const char *name, std::size_t length, const char *string);
    void integer(const char *name, std::size_t length, std::uint32_t value);
    void integer(const char *name, std::size_t length, std::int32_t value);
    void boolean(const char *name, std::size_t length, std::uint32_t value);
    void real(const char *name, std::size_t length, double value);
    void string(const char *name, std::size_t length, const char *string, std::size_t string_length);
    void field(const char *name, std::size_t lengths, const char *field);
    void write(const char *name, std::size_t length, const char *value, std::size_t size);

    /// Of a field's length and its name's in one word, as the target takes four arguments in registers: the name's
    /// bits.
    static constexpr unsigned name_bits = 8;

    Text &text_;
    Text::Open open_;
};

class ArrayEncoder;

class Encoder : public Container {
public:
    explicit Encoder(Text &text) : Container(text, '{') {}
    Encoder(Container &around, Name name) : Container(around, '{', name.characters, name.length) {}

    template <class Fill> void object(Name name, Fill fill) { nest<Encoder>(name, fill); }
    template <class Fill> void array(Name name, Fill fill) { nest<ArrayEncoder>(name, fill); }
};

class ArrayEncoder : private Container {
public:
    explicit ArrayEncoder(Text &text) : Container(text, '[') {}
    ArrayEncoder(Container &around, Name name) : Container(around, '[', name.characters, name.length) {}

    using Container::close;

    template <std::size_t width> void string(const char (&field)[width]) { Container::string({}, field); }
    void integer(std::uint32_t value) { Container::integer({}, value); }
    template <class Fill> void object(Fill fill) { nest<Encoder>({}, fill); }
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
