#ifndef KELMORA_FRAME_KEY_H
#define KELMORA_FRAME_KEY_H

#include <cstddef>
#include <cstring>

namespace kelmora {

/// A string that can be a template argument.
template <std::size_t Size> struct FixedString {
    char characters[Size]{};

    constexpr FixedString(const char (&literal)[Size]) // implicit: literals turn into it
    {
        for (std::size_t i = 0; i < Size; ++i)
            characters[i] = literal[i];
    }

    constexpr FixedString() = default;

    /// Both strings in one, with one NUL at the end.
    template <std::size_t Other> constexpr auto operator+(const FixedString<Other> &other) const
    {
        FixedString<Size + Other - 1> both;
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

/// Where the last step of a path begins: behind the last dot or colon.
template <std::size_t Size> constexpr std::size_t last_step(const FixedString<Size> &path)
{
    std::size_t begin = 0;
    for (std::size_t i = 0; i < Size; ++i) {
        if (path.characters[i] == '.' || path.characters[i] == ':')
            begin = i + 1;
    }
    return begin;
}

/// The last step of a path: the key itself.
template <FixedString path> constexpr auto name_in()
{
    constexpr std::size_t begin = last_step(path);
    FixedString<sizeof path.characters - begin> name;
    for (std::size_t i = begin; i < sizeof path.characters; ++i)
        name.characters[i - begin] = path.characters[i];
    return name;
}

/// The error field of a path: empty, which stands for the name, where it is no more than that.
template <FixedString path> constexpr auto field_of()
{
    if constexpr (last_step(path) == 0)
        return FixedString("");
    else
        return path;
}

/// Aligned to a byte, as compilers would give each a word's alignment.
template <FixedString name, FixedString field, FixedString message>
alignas(1) inline constexpr auto packed_key = name + FixedString("\0") + field + FixedString("\0") + message;

} // namespace detail

/// "opMode"_key: the key of this name, reported under it, with the message "opMode field not found".
/// "acs.acs_url"_key: the key "acs_url", reported under its path, with the message "acs_url field not found". A colon
/// divides a path as well.
template <FixedString path> constexpr Key operator""_key()
{
    constexpr auto name = detail::name_in<path>();
    return Key(detail::packed_key<name, detail::field_of<path>(), name + FixedString(" field not found")>.characters);
}

/// "enabled"_bare_key, "lan_list.enabled"_bare_key: the same with the message "field not found".
template <FixedString path> constexpr Key operator""_bare_key()
{
    return Key(detail::packed_key<detail::name_in<path>(), detail::field_of<path>(), "field not found">.characters);
}

/// key<"enable", "enable", "enable not found">(): the key "enable" with an error field and a message of its own.
template <FixedString name, FixedString field, FixedString message> constexpr Key key()
{
    return Key(detail::packed_key<name, field, message>.characters);
}

} // namespace kelmora

#endif
