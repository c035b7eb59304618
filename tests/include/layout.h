/* Pins the layout of the structs that host and plug-in share. */
#ifndef KELMORA_TESTS_INCLUDE_LAYOUT_H
#define KELMORA_TESTS_INCLUDE_LAYOUT_H

#include <cstddef>
#include <cstdint>
#include <type_traits>

constexpr bool is_64_bit = sizeof(void *) == 8;

/* The record's field is of this type and stands at this offset. */
#define EXPECT_FIELD(record, field, type, offset)                                                                      \
    static_assert(std::is_same_v<decltype(record::field), type>, #record "::" #field);                                 \
    static_assert(offsetof(record, field) == (offset), #record "::" #field)

#endif
