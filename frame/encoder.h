#ifndef KELMORA_FRAME_ENCODER_H
#define KELMORA_FRAME_ENCODER_H

#include "kelmora_host.h"

#include <cstddef>
#include <cstdint>
#include <jansson.h>

namespace kelmora {

/// A node's identifier as the host keeps it.
using NodeId = char[KELMORA_ID_SIZE];

class ArrayEncoder;

/// A JSON object in the making. Each call adds one key, in the order of the calls; a key that an earlier node gave
/// keeps its place and takes the new value. A node gives each key once. Keys are constants.
///
/// What jansson cannot express is left out without being an error: a string that is not UTF-8 after its cut, a real
/// that is not finite. Where memory runs out the object counts as incomplete from then on, and so does everything that
/// it becomes part of.
class Encoder {
public:
    Encoder();
    Encoder(const Encoder &) = delete;
    Encoder &operator=(const Encoder &) = delete;
    ~Encoder();

    /// A string field of fixed width, cut to width - 1 bytes.
    template <std::size_t width> void string(const char *key, const char (&field)[width]) { string(key, field, width); }

    /// A string of any length, uncut; the key is left out when it is NULL.
    void whole_string(const char *key, const char *string);

    /// Narrower fields widen to int32_t.
    void integer(const char *key, std::uint32_t value);
    void integer(const char *key, std::int32_t value);

    /// true for any value but 0.
    void boolean(const char *key, std::uint32_t value);

    void real(const char *key, double value);

    /// A nested object; fill(Encoder &) adds its keys.
    template <class Fill> void object(const char *key, Fill fill)
    {
        Encoder nested;
        fill(nested);
        set(key, nested);
    }

    /// A nested array; fill(ArrayEncoder &) adds its elements.
    template <class Fill> void array(const char *key, Fill fill);

    /// Hands the finished object over; NULL when it is incomplete. Nothing can be added afterwards.
    [[nodiscard]] json_t *take();

private:
    void string(const char *key, const char *field, std::size_t width);
    void set(const char *key, json_t *value);
    void set(const char *key, Encoder &nested);
    void set(const char *key, ArrayEncoder &nested);

    json_t *object_;
    bool complete_ = true;
};

/// A JSON array in the making, with the same rules. Elements come in the order of the calls.
class ArrayEncoder {
public:
    ArrayEncoder();

    /// Adds to an array that is there already: one reference, taken over. See extend().
    explicit ArrayEncoder(json_t *array) : array_(array) {}

    ArrayEncoder(const ArrayEncoder &) = delete;
    ArrayEncoder &operator=(const ArrayEncoder &) = delete;
    ~ArrayEncoder();

    /// A string field of fixed width, cut to width - 1 bytes; no element when it is not UTF-8.
    template <std::size_t width> void string(const char (&field)[width]) { string(field, width); }

    void integer(std::uint32_t value);

    /// fill(Encoder &) adds the element's keys.
    template <class Fill> void object(Fill fill)
    {
        Encoder element;
        fill(element);
        append(element);
    }

    /// Hands the finished array over; NULL when it is incomplete. Nothing can be added afterwards.
    [[nodiscard]] json_t *take();

private:
    void string(const char *field, std::size_t width);
    void append(json_t *value);
    void append(Encoder &element);

    json_t *array_;
    bool complete_ = true;
};

template <class Fill> void Encoder::array(const char *key, Fill fill)
{
    ArrayEncoder nested;
    fill(nested);
    set(key, nested);
}

/// Adds elements to an array that is there already: fill(ArrayEncoder &) does. Returns false when it is none and there
/// are elements, when it is NULL, and where memory ran out: the array may then have some of them, each of them whole.
template <class Fill> [[nodiscard]] bool extend(json_t *array, Fill fill)
{
    ArrayEncoder list(json_incref(array));
    fill(list);
    json_t *complete = list.take();
    json_decref(complete);
    return complete != nullptr;
}

} // namespace kelmora

#endif
