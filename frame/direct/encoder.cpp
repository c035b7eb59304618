#include "frame/encoder.h"

#include "frame/document.h"
#include "frame/string.h"

#include <cstdlib>
#include <cstring>

namespace kelmora {

namespace {

/// Writes digits that end here. Returns where they begin.
char *put_digits(char *end, std::uint32_t value)
{
    do {
        *--end = static_cast<char>('0' + value % 10);
        value /= 10;
    } while (value != 0);
    return end;
}

} // namespace

Container::Container(Container &around, char front, const char *name, std::size_t length) : text_(around.text_)
{
    text_.begin(around.open_, name, length, 0);
    open_ = text_.open(front, &around.open_);
}

void Container::close() { text_.close(open_); }

void Container::write(const char *name, std::size_t length, const char *value, std::size_t size)
{
    if (char *to = text_.begin(open_, name, length, size); to != nullptr)
        copy(to, value, size);
}

void Container::field(const char *name, std::size_t lengths, const char *field)
{
    const std::size_t length = lengths & ((1U << name_bits) - 1);
    const std::size_t width = lengths >> name_bits;
    const std::size_t plain = length_without_escapes(field, width, text_.escapes());
    if (plain != width && field[plain] != '\0') {
        string(name, length, field, width);
    } else if (char *to = text_.begin(open_, name, length, 1 + plain + 1); to != nullptr) {
        *to++ = '"';
        *copy(to, field, plain) = '"';
    }
}

void Container::whole_string(const char *name, std::size_t length, const char *string)
{
    if (string != nullptr)
        Container::string(name, length, string, std::strlen(string));
}

void Container::string(const char *name, std::size_t length, const char *string, std::size_t string_length)
{
    // What may turn out not to be UTF-8 is not written before that is known.
    const bool sure = is_ascii(string, string_length);
    const Text::Room room = sure ? text_.room(open_, length) : Text::Room{nullptr, 0};
    const std::size_t size = quote(room.begin, room.size, string, string_length, text_.escapes());
    char *to = size != 0 ? text_.begin(open_, name, length, size) : nullptr;
    if (to != nullptr && (to != room.begin || size > room.size))
        quote(to, size, string, string_length, text_.escapes());
}

void Container::integer(const char *name, std::size_t length, std::uint32_t value)
{
    char digits[10];
    const char *const first = put_digits(digits + sizeof digits, value);
    write(name, length, first, static_cast<std::size_t>(digits + sizeof digits - first));
}

void Container::integer(const char *name, std::size_t length, std::int32_t value)
{
    char digits[11];
    const auto bits = static_cast<std::uint32_t>(value);
    char *first = put_digits(digits + sizeof digits, value < 0 ? 0 - bits : bits);
    if (value < 0)
        *--first = '-';
    write(name, length, first, static_cast<std::size_t>(digits + sizeof digits - first));
}

void Container::boolean(const char *name, std::size_t length, std::uint32_t value)
{
    write(name, length, value != 0 ? "true" : "false", value != 0 ? 4 : 5);
}

void Container::real(const char *name, std::size_t length, double value)
{
    if (!__builtin_isfinite(value))
        return;
    const Document real(json_real(value));
    char *digits = json_dumps(real.root(), JSON_ENCODE_ANY); // those of the host's jansson
    if (digits != nullptr)
        write(name, length, digits, std::strlen(digits));
    else
        text_.fail();
    std::free(digits);
}

bool extend(json_t *array, const char *text)
{
    const Document elements(text != nullptr ? json_loads(text, 0, nullptr) : nullptr);
    // Where memory runs out, jansson's parser may lose characters and say nothing.
    char *again = json_dumps(elements.root(), 0);
    bool done = array != nullptr && again != nullptr && compare(again, text) == 0;
    std::free(again);
    for (std::size_t i = 0; done && i < json_array_size(elements.root()); ++i)
        done = json_array_append_new(array, json_incref(json_array_get(elements.root(), i))) == 0;
    return done;
}

} // namespace kelmora
