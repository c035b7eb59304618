#ifndef KELMORA_FRAME_DECODER_H
#define KELMORA_FRAME_DECODER_H

#include "frame/document.h"
#include "frame/key.h"
#include "frame/string.h"

#include "kelmora_host.h"

#include <cstddef>
#include <cstdint>
#include <jansson.h>

namespace kelmora {

class ArrayDecoder;

/// A reading position in a parsed document: one JSON value, whose members are read by key. The members of a value that
/// is no object are all missing. A handle: copies read the same document and share its first failure.
///
/// The first failure ends the translation: it releases the document, appends its one error, and makes every later read
/// of this and all other positions in the document do nothing. So reads simply follow each other; only code with
/// effects of its own (allocating, linking, calling the host) asks ok() before.
///
/// Required members must be there, JSON null included; optional ones are stored only when they are there. Types are not
/// checked but by the `checked` reads: a boolean is true only for JSON true, an integer that is none reads as 0, a
/// string that is none as empty. Integers are cut to the field's width, strings to the field's width less one byte.
class Decoder {
public:
    /// What all positions in one document share.
    struct Call {
        Document document;
        kelmora_errorlist *errors;
        const char *json = ""; ///< what the document was parsed from
        bool ok = true;
        bool leak_on_success = false;
        bool leak_on_failure = false;
    };

    Decoder(Call &call, const json_t *value) : call_(&call), value_(value) {}

    /// No failure so far.
    [[nodiscard]] bool ok() const { return call_->ok; }

    /// Fails with this error, unless there was a failure before. The texts are constants.
    void fail(const char *field, const char *message, const char *source = "json") const;

    /// Fails without an error of its own: for a host function that reported one.
    void fail_silently() const;

    /// The request's errors, for the host functions that take them, and for the errors that are none: those with which
    /// the translation goes on.
    [[nodiscard]] kelmora_errorlist *errors() const { return call_->errors; }

    /// For the few paths that must leak the document (Document::leak): success, and failures from here on until it is
    /// said otherwise.
    void leak_document_on_success() const { call_->leak_on_success = true; }
    void leak_document_on_failure(bool leak) const { call_->leak_on_failure = leak; }

    // ---- this value

    /// Whether the document has this value at all; false after a failure.
    explicit operator bool() const { return ok() && value_ != nullptr; }

    /// JSON true, and nothing else; a missing value is not.
    [[nodiscard]] bool is_true() const { return ok() && json_is_true(value_); }

    /// A JSON string.
    [[nodiscard]] bool is_string() const { return ok() && json_is_string(value_); }

    /// The value as a string, empty when it is none. Valid until the document is released.
    [[nodiscard]] const char *string() const;

    /// Stores that string, cut to the field's width less one byte; nothing when the value is missing.
    template <std::size_t width> void store_string(char (&field)[width]) const
    {
        if (*this)
            kelmora::store_string(field, string(), width);
    }

    /// The value as a number, 0 when it is no integer.
    [[nodiscard]] json_int_t integer() const { return ok() ? json_integer_value(value_) : 0; }

    /// The value as a number, 0 when it is none: of a real alone, or of an integer too.
    [[nodiscard]] double real() const { return ok() ? json_real_value(value_) : 0; }
    [[nodiscard]] double number() const { return ok() ? json_number_value(value_) : 0; }

    // ---- members that must be there

    void required_boolean(Key key, std::uint8_t &field) const;
    void required_integer(Key key, std::uint8_t &field) const;
    void required_integer(Key key, std::uint16_t &field) const;
    void required_integer(Key key, std::uint32_t &field) const;
    void required_integer(Key key, std::int32_t &field) const { required_integer(key, as_unsigned(field)); }
    template <std::size_t width> void required_string(Key key, char (&field)[width]) const
    {
        required_string(key, field, width);
    }

    /// A member of any type, for reads of its own or for its members.
    [[nodiscard]] Decoder required(Key key) const;

    /// Fails, and reads nothing, unless all of these members are there: for those that are stored together or not at
    /// all. The first that is missing is reported.
    template <class... Keys> void require(Keys... keys) const { (static_cast<void>(find_required(keys)), ...); }

    /// A member's elements; a value that is no array has none.
    [[nodiscard]] ArrayDecoder required_array(Key key) const;

    // ---- members that may be absent; the field then keeps what it held

    void optional_boolean(const char *name, std::uint8_t &field) const;
    void optional_integer(const char *name, std::uint8_t &field) const;
    void optional_integer(const char *name, std::uint16_t &field) const;
    void optional_integer(const char *name, std::uint32_t &field) const;
    void optional_integer(const char *name, std::int32_t &field) const { optional_integer(name, as_unsigned(field)); }
    template <std::size_t width> void optional_string(const char *name, char (&field)[width]) const
    {
        optional_string(name, field, width);
    }

    /// A member of any type; false as a condition when it is absent.
    [[nodiscard]] Decoder optional(const char *name) const { return {*call_, find(name)}; }

    /// A member's elements; an absent member or one that is no array has none.
    [[nodiscard]] ArrayDecoder optional_array(const char *name) const;

    /// A member of the root, which this must be, as compact JSON text where it is an object or array: a block from
    /// malloc of just the text's size, the caller's. NULL for any other value, an absent one, and after a failure, be
    /// it this one's own: (name, "out of memory", "json"), and for a member of more than 512 levels (name, "nested too
    /// deeply", "json").
    [[nodiscard]] char *rendered(const char *name) const;

    // ---- members that must be there and of their type: "field not found", "data type must be a valid ..."

    void checked_boolean(const char *name, std::uint8_t &field) const;
    void checked_integer(const char *name, std::uint8_t &field) const;
    void checked_integer(const char *name, std::uint32_t &field) const;
    template <std::size_t width> void checked_string(const char *name, char (&field)[width]) const
    {
        checked_string(name, field, width);
    }
    [[nodiscard]] ArrayDecoder checked_array(const char *name) const;

private:
    /// The same bytes: what is stored into a signed field is the integer's low bits, as for an unsigned one.
    static std::uint32_t &as_unsigned(std::int32_t &field) { return reinterpret_cast<std::uint32_t &>(field); }

    [[nodiscard]] const json_t *find(const char *name) const;
    [[nodiscard]] const json_t *find_required(Key key) const;
    [[nodiscard]] const json_t *find_checked(const char *name, int type) const;
    void required_string(Key key, char *field, std::size_t width) const;
    void optional_string(const char *name, char *field, std::size_t width) const;
    void checked_string(const char *name, char *field, std::size_t width) const;

    Call *call_;
    const json_t *value_;
};

/// The elements of an array, in order. A loop over them stops by itself after a failure.
class ArrayDecoder {
public:
    ArrayDecoder(Decoder::Call &call, const json_t *array) : call_(&call), array_(array) {}

    /// 0 after a failure.
    [[nodiscard]] std::size_t size() const { return call_->ok ? json_array_size(array_) : 0; }

    /// Missing behind the last element.
    [[nodiscard]] Decoder operator[](std::size_t index) const
    {
        return {*call_, call_->ok ? json_array_get(array_, index) : nullptr};
    }

    class Iterator {
    public:
        explicit Iterator(const ArrayDecoder &elements) : elements_(&elements), size_(elements.size()) {}
        Decoder operator*() const { return (*elements_)[index_]; }
        Iterator &operator++()
        {
            ++index_;
            return *this;
        }
        /// Asked before each round: is there another element, and no failure?
        bool operator!=(std::nullptr_t /*end*/) const { return index_ < size_ && elements_->call_->ok; }

    private:
        const ArrayDecoder *elements_;
        std::size_t size_;
        std::size_t index_ = 0;
    };

    [[nodiscard]] Iterator begin() const { return Iterator(*this); }
    [[nodiscard]] static std::nullptr_t end() { return nullptr; }

private:
    Decoder::Call *call_;
    const json_t *array_;
};

/// The record of a node, as the type that the resource keeps.
template <class Record> Record &record_of(kelmora_resource *node)
{
    return *static_cast<Record *>(kelmora_resource_get_data(node));
}

/// Reads a document into a record, or with what the node itself is needed for.
using ReadDocument = void (*)(Decoder &in, void *into);

/// A from-translator, which fetches the record once the document is parsed. An empty text succeeds at once. Returns 1,
/// or 0 after a failure.
int decode(kelmora_resource *node, const char *text, kelmora_errorlist *errors, ReadDocument read);

/// The same, which does not fetch the record before the document turned out to have this key.
int decode_after(Key key, kelmora_resource *node, const char *text, kelmora_errorlist *errors, ReadDocument read);

/// The same into a record that was fetched already, or into the node.
int decode_into(void *into, const char *text, kelmora_errorlist *errors, ReadDocument read);

namespace detail {

template <auto from_json> struct RecordReader;

template <class Record, void (*from_json)(Decoder &, Record &)> struct RecordReader<from_json> {
    static void call(Decoder &in, void *record) { from_json(in, *static_cast<Record *>(record)); }
    static constexpr bool takes_node = false;
};

template <void (*from_json)(Decoder &, kelmora_resource *)> struct RecordReader<from_json> {
    static void call(Decoder &in, void *node) { from_json(in, static_cast<kelmora_resource *>(node)); }
    static constexpr bool takes_node = true;
};

} // namespace detail

/// A from-translator of the function that reads one record: void from_json(Decoder &, Record &), or with
/// kelmora_resource * in the record's place where the resource has the host do something with the node.
template <auto from_json> int decode(kelmora_resource *node, const char *text, kelmora_errorlist *errors)
{
    using Reader = detail::RecordReader<from_json>;
    if constexpr (Reader::takes_node)
        return decode_into(node, text, errors, &Reader::call);
    else
        return decode(node, text, errors, &Reader::call);
}

/// The same for a record that is not fetched before the document turned out to have this key.
template <auto from_json> int decode_after(Key key, kelmora_resource *node, const char *text, kelmora_errorlist *errors)
{
    using Reader = detail::RecordReader<from_json>;
    static_assert(!Reader::takes_node);
    return decode_after(key, node, text, errors, &Reader::call);
}

/// The same into a record that was fetched before the text is looked at.
template <auto from_json, class Record> int decode_into(Record &record, const char *text, kelmora_errorlist *errors)
{
    return decode_into(&record, text, errors, &detail::RecordReader<from_json>::call);
}

} // namespace kelmora

#endif
