#include "frame/decoder.h"

#include "frame/nesting.h"
#include "frame/validation.h"

#include <cstdlib>
#include <cstring>

namespace kelmora {

namespace {

std::uint8_t boolean_of(const json_t *value) { return json_is_true(value) ? 1 : 0; }

/// The integer's low bits, as many as the field has.
template <class Field> void store_integer(Field &field, const json_t *value)
{
    field = static_cast<Field>(json_integer_value(value));
}

} // namespace

void Decoder::fail_silently() const
{
    if (!call_->ok)
        return;
    call_->ok = false;
    if (call_->leak_on_failure)
        call_->document.leak();
    else
        call_->document.release();
}

void Decoder::fail(const char *field, const char *message, const char *source) const
{
    if (!call_->ok)
        return;
    fail_silently();
    kelmora_errorlist_add_error(call_->errors, field, message, source);
}

namespace {

/// jansson renders by recursion, with more than thrice the stack a level that parsing takes: up to here rendering needs
/// no more than parsing the deepest document.
constexpr std::size_t deepest_rendered = 512;

} // namespace

char *Decoder::rendered(const char *name) const
{
    const json_t *value = find(name);
    if (!(json_is_object(value) || json_is_array(value)))
        return nullptr;
    if (nesting_of_member(call_->json, name) > deepest_rendered) {
        fail(name, "nested too deeply");
        return nullptr;
    }
    char *text = json_dumps(value, 0);
    const std::size_t size = text != nullptr ? std::strlen(text) + 1 : 0;
    // A copy of our own: a block from malloc of just this size, whatever jansson allocates.
    auto *copy = text != nullptr ? static_cast<char *>(std::malloc(size)) : nullptr;
    if (copy != nullptr)
        std::memcpy(copy, text, size);
    std::free(text);
    if (copy == nullptr)
        fail(name, "out of memory");
    return copy;
}

const char *Decoder::string() const
{
    const char *string = ok() ? json_string_value(value_) : nullptr;
    return string != nullptr ? string : "";
}

const json_t *Decoder::find(const char *name) const { return call_->ok ? json_object_get(value_, name) : nullptr; }

const json_t *Decoder::find_required(Key key) const
{
    const json_t *value = find(key.name());
    if (value == nullptr)
        fail(key.field(), key.message());
    return value;
}

const json_t *Decoder::find_checked(const char *name, int type) const
{
    const json_t *value = find(name);
    const char *fault = value_fault(value, type);
    if (fault == nullptr)
        return value;
    fail(name, fault);
    return nullptr;
}

void Decoder::required_boolean(Key key, std::uint8_t &field) const
{
    if (const json_t *value = find_required(key))
        field = boolean_of(value);
}

void Decoder::required_integer(Key key, std::uint8_t &field) const
{
    if (const json_t *value = find_required(key))
        store_integer(field, value);
}

void Decoder::required_integer(Key key, std::uint16_t &field) const
{
    if (const json_t *value = find_required(key))
        store_integer(field, value);
}

void Decoder::required_integer(Key key, std::uint32_t &field) const
{
    if (const json_t *value = find_required(key))
        store_integer(field, value);
}

void Decoder::required_string(Key key, char *field, std::size_t width) const
{
    if (const json_t *value = find_required(key))
        kelmora::store_string(field, json_string_value(value), width);
}

Decoder Decoder::required(Key key) const
{
    const json_t *value = find_required(key);
    return {*call_, value};
}

ArrayDecoder Decoder::required_array(Key key) const { return {*call_, find_required(key)}; }

void Decoder::optional_boolean(const char *name, std::uint8_t &field) const
{
    if (const json_t *value = find(name))
        field = boolean_of(value);
}

void Decoder::optional_integer(const char *name, std::uint8_t &field) const
{
    if (const json_t *value = find(name))
        store_integer(field, value);
}

void Decoder::optional_integer(const char *name, std::uint16_t &field) const
{
    if (const json_t *value = find(name))
        store_integer(field, value);
}

void Decoder::optional_integer(const char *name, std::uint32_t &field) const
{
    if (const json_t *value = find(name))
        store_integer(field, value);
}

void Decoder::optional_string(const char *name, char *field, std::size_t width) const
{
    if (const json_t *value = find(name))
        kelmora::store_string(field, json_string_value(value), width);
}

ArrayDecoder Decoder::optional_array(const char *name) const { return {*call_, find(name)}; }

void Decoder::checked_boolean(const char *name, std::uint8_t &field) const
{
    if (const json_t *value = find_checked(name, KELMORA_JSON_BOOLEAN))
        field = boolean_of(value);
}

void Decoder::checked_integer(const char *name, std::uint8_t &field) const
{
    if (const json_t *value = find_checked(name, KELMORA_JSON_INTEGER))
        store_integer(field, value);
}

void Decoder::checked_integer(const char *name, std::uint32_t &field) const
{
    if (const json_t *value = find_checked(name, KELMORA_JSON_INTEGER))
        store_integer(field, value);
}

void Decoder::checked_string(const char *name, char *field, std::size_t width) const
{
    if (const json_t *value = find_checked(name, KELMORA_JSON_STRING))
        kelmora::store_string(field, json_string_value(value), width);
}

ArrayDecoder Decoder::checked_array(const char *name) const { return {*call_, find_checked(name, KELMORA_JSON_ARRAY)}; }

namespace {

/// Parses the text and calls read(in) with the document. Returns the translator's result.
template <class Read> int parse(const char *text, kelmora_errorlist *errors, Read read)
{
    if (*text == '\0')
        return 1;
    Decoder::Call call{Document(json_loads(text, 0, nullptr)), errors, text};
    Decoder in(call, call.document.root());
    if (!in)
        in.fail("", "invalid json data");
    else
        read(in);
    if (call.ok && call.leak_on_success)
        call.document.leak();
    return call.ok ? 1 : 0;
}

} // namespace

int decode(kelmora_resource *node, const char *text, kelmora_errorlist *errors, ReadDocument read)
{
    return parse(text, errors, [=](Decoder &in) { read(in, kelmora_resource_get_data(node)); });
}

int decode_after(Key key, kelmora_resource *node, const char *text, kelmora_errorlist *errors, ReadDocument read)
{
    return parse(text, errors, [=](Decoder &in) {
        if (in.required(key))
            read(in, kelmora_resource_get_data(node));
    });
}

int decode_into(void *into, const char *text, kelmora_errorlist *errors, ReadDocument read)
{
    return parse(text, errors, [=](Decoder &in) { read(in, into); });
}

} // namespace kelmora
