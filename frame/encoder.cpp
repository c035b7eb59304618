#include "frame/encoder.h"

#include "frame/string.h"

#include <cstring>

namespace kelmora {

namespace {

/// Whether a string has no JSON value because jansson refuses it, rather than for want of memory.
bool refused(const char *field, std::size_t width)
{
    const std::size_t length = field_length(field, width);
    return !is_utf8(field, length < width ? length : width - 1);
}

/// Hands `json` over when it is complete. Incomplete values are released: their parent must not show half of them.
json_t *take_complete(json_t *&json, bool complete)
{
    if (!complete) {
        json_decref(json);
        json = nullptr;
    }
    json_t *taken = json;
    json = nullptr;
    return taken;
}

} // namespace

Encoder::Encoder() : object_(json_object()) {}

Encoder::~Encoder() { json_decref(object_); }

void Encoder::set(const char *key, json_t *value)
{
    if (json_object_set_new(object_, key, value) != 0)
        complete_ = false;
}

void Encoder::set(const char *key, Encoder &nested) { set(key, nested.take()); }

void Encoder::set(const char *key, ArrayEncoder &nested) { set(key, nested.take()); }

void Encoder::string(const char *key, const char *field, std::size_t width)
{
    json_t *value = string_of_field(field, width);
    if (value == nullptr && refused(field, width))
        return;
    set(key, value);
}

void Encoder::whole_string(const char *key, const char *string)
{
    if (string == nullptr)
        return;
    json_t *value = json_string(string);
    if (value == nullptr && !is_utf8(string, std::strlen(string)))
        return;
    set(key, value);
}

void Encoder::integer(const char *key, std::uint32_t value) { set(key, json_integer(value)); }

void Encoder::integer(const char *key, std::int32_t value) { set(key, json_integer(value)); }

void Encoder::boolean(const char *key, std::uint32_t value) { set(key, value != 0 ? json_true() : json_false()); }

void Encoder::real(const char *key, double value)
{
    if (__builtin_isfinite(value))
        set(key, json_real(value));
}

json_t *Encoder::take() { return take_complete(object_, complete_); }

ArrayEncoder::ArrayEncoder() : array_(json_array()) {}

ArrayEncoder::~ArrayEncoder() { json_decref(array_); }

void ArrayEncoder::append(json_t *value)
{
    if (json_array_append_new(array_, value) != 0)
        complete_ = false;
}

void ArrayEncoder::append(Encoder &element) { append(element.take()); }

void ArrayEncoder::string(const char *field, std::size_t width)
{
    json_t *value = string_of_field(field, width);
    if (value == nullptr && refused(field, width))
        return;
    append(value);
}

void ArrayEncoder::integer(std::uint32_t value) { append(json_integer(value)); }

json_t *ArrayEncoder::take() { return take_complete(array_, complete_); }

} // namespace kelmora
