#ifndef KELMORA_FRAME_KEY_H
#define KELMORA_FRAME_KEY_H

#include <cstddef>
#include <cstring>

namespace kelmora {

/// A text that can be a template argument.
template <std::size_t Size> struct FixedText {
    char characters[Size]{};

    constexpr FixedText(const char (&text)[Size]) // implicit: literals turn into it
    {
        for (std::size_t i = 0; i < Size; ++i)
            characters[i] = text[i];
    }

    constexpr FixedText() = default;

    /// Both texts in one, with one NUL at the end.
    template <std::size_t Other> constexpr auto operator+(const FixedText<Other> &other) const
    {
        FixedText<Size + Other - 1> both;
        for (std::size_t i = 0; i < Size - 1; ++i)
            both.characters[i] = characters[i];
        for (std::size_t i = 0; i < Other; ++i)
            both.characters[Size - 1 + i] = other.characters[i];
        return both;
    }
};

/// A required key: its name, and the error field and the message that report its absence, all of them constants.
///
/// The three lie behind each other as "name\0field\0message\0" (an empty field stands for the name), so that a key
/// takes one register to hand over and no relocation to load. A key that is used more than once is a function that
/// returns it, not a variable, which would be data to relocate.
class Key {
public:
    constexpr explicit Key(const char *packed) : packed_(packed) {}

    [[nodiscard]] constexpr const char *name() const { return packed_; }
    [[nodiscard]] const char *field() const { return *after(packed_) != '\0' ? after(packed_) : packed_; }
    [[nodiscard]] const char *message() const { return after(after(packed_)); }

private:
    static const char *after(const char *text) { return text + std::strlen(text) + 1; }

    const char *packed_;
};

namespace detail {

/// Aligned to a byte, as compilers would give each a word's alignment.
template <FixedText name, FixedText field, FixedText message>
alignas(1) inline constexpr auto packed_key = name + FixedText("\0") + field + FixedText("\0") + message;

} // namespace detail

/// "opMode"_key: reported under its own name, with the message "opMode field not found".
template <FixedText name> constexpr Key operator""_key()
{
    return Key(detail::packed_key<name, "", name + FixedText(" field not found")>.characters);
}

/// "enabled"_bare_key: reported under its own name, with the message "field not found".
template <FixedText name> constexpr Key operator""_bare_key()
{
    return Key(detail::packed_key<name, "", "field not found">.characters);
}

/// key<"acs_url", "acs.acs_url">(): reported under another field name, with the message "acs_url field not found".
/// key<"enable", "enable", "enable not found">(): with another message as well.
template <FixedText name, FixedText field, FixedText message = name + FixedText(" field not found")> constexpr Key key()
{
    return Key(detail::packed_key<name, field, message>.characters);
}

} // namespace kelmora

#endif
