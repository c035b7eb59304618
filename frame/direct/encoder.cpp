#include "frame/encoder.h"

#include "frame/document.h"
#include "frame/string.h"

#include <cstdlib>
#include <cstring>

namespace kelmora {

Container::Container(Container &around, const char *key, char front) : text_(around.text_)
{
    text_.begin(around.open_, key, 0);
    open_ = text_.open(front, &around.open_);
}

void Container::close() { text_.close(open_); }

void Container::write(const char *key, const char *value, std::size_t size)
{
    if (char *to = text_.begin(open_, key, size); to != nullptr)
        copy(to, value, size);
}

void Container::string(const char *key, const char *string, std::size_t length)
{
    const Escapes escapes = text_.escapes();
    const std::size_t plain = length_without_escapes(string, length, escapes);
    const char *const rest = string + plain;
    std::size_t rest_length = 0;
    std::size_t escaped = 0;
    if (plain != length && *rest != '\0') {
        rest_length = field_length(rest, length - plain);
        escaped = escape(nullptr, rest, rest_length, escapes);
        if (escaped == 0)
            return;
    }
    char *to = text_.begin(open_, key, 1 + plain + escaped + 1);
    if (to == nullptr)
        return;
    *to++ = '"';
    copy(to, string, plain);
    if (escaped != 0)
        escape(to + plain, rest, rest_length, escapes);
    to[plain + escaped] = '"';
}

void Container::whole_string(const char *key, const char *string)
{
    if (string != nullptr)
        Container::string(key, string, std::strlen(string));
}

void Container::integer(const char *key, std::int32_t value)
{
    const auto bits = static_cast<std::uint32_t>(value);
    number(key, value < 0 ? 0 - bits : bits, value < 0);
}

void Container::number(const char *key, std::uint32_t magnitude, bool negative)
{
    char digits[11];
    char *const end = digits + sizeof digits;
    char *first = end;
    do {
        *--first = static_cast<char>('0' + magnitude % 10);
        magnitude /= 10;
    } while (magnitude != 0);
    if (negative)
        *--first = '-';
    write(key, first, static_cast<std::size_t>(end - first));
}

void Container::boolean(const char *key, std::uint32_t value)
{
    write(key, value != 0 ? "true" : "false", value != 0 ? 4 : 5);
}

void Container::real(const char *key, double value)
{
    if (!__builtin_isfinite(value))
        return;
    const Document real(json_real(value));
    char *digits = json_dumps(real.root(), JSON_ENCODE_ANY); // those of the host's jansson
    if (digits != nullptr)
        write(key, digits, std::strlen(digits));
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
