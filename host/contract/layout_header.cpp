#include "host/contract/layout.h"

#include "kelmora_config.h"

#include <algorithm>
#include <iterator>

namespace kelmora_host {

namespace {

constexpr std::string_view header_begin = R"(/*
 * Proof that a program's nodes and records are laid out as the plug-in's: static assertions of every size, offset and
 * width, in C99 and C++11. Include it in one source of a host, compiled as the rest of it is; where a field stands
 * elsewhere (another compiler option, another header, another machine) that source does not compile, and the error
 * names the field. It declares nothing that a program could use.
 *
 * For machines with pointers of 4 or of 8 bytes on which a field stands at a multiple of its width.
 *
 * Made when the plug-in was built, with its values of kelmora_config.h.
 */
#ifndef KELMORA_LAYOUT_H
#define KELMORA_LAYOUT_H

#include "kelmora_host.h"
#include "kelmora_records.h"

#include <stddef.h>

/* clang-format off */

#if defined(__cplusplus)
#define KELMORA_LAYOUT(name, what, condition) static_assert(condition, what)
#define KELMORA_LAYOUT_WIDTH(record, field) sizeof(record::field)
#else
#if defined(__STDC_VERSION__) && __STDC_VERSION__ >= 201112L
#define KELMORA_LAYOUT(name, what, condition) _Static_assert(condition, what)
#else
#define KELMORA_LAYOUT(name, what, condition) typedef char kelmora_layout_of_##name[(condition) ? 1 : -1]
#endif
#define KELMORA_LAYOUT_WIDTH(record, field) sizeof(((struct record *)0)->field)
#endif

/* Of two numbers the one for this machine's pointers. */
#define KELMORA_LAYOUT_OF(with_4_bytes, with_8_bytes) (sizeof(void *) == 4 ? (with_4_bytes) : (with_8_bytes))

/* Size of a struct. */
#define KELMORA_LAYOUT_STRUCT(record, size_4, size_8) \
    KELMORA_LAYOUT(record, "struct " #record " has another size than the plug-in's", \
                   sizeof(struct record) == KELMORA_LAYOUT_OF(size_4, size_8))

/* Offset and width of a field. */
#define KELMORA_LAYOUT_FIELD(record, field, offset_4, width_4, offset_8, width_8) \
    KELMORA_LAYOUT(record##_field_##field, "struct " #record ": " #field " is not where the plug-in has it", \
                   offsetof(struct record, field) == KELMORA_LAYOUT_OF(offset_4, offset_8) && \
                       KELMORA_LAYOUT_WIDTH(record, field) == KELMORA_LAYOUT_OF(width_4, width_8))

KELMORA_LAYOUT(pointers, "pointers are of 4 or of 8 bytes", sizeof(void *) == 4 || sizeof(void *) == 8);
)";

constexpr std::string_view header_end = R"(
/* clang-format on */

#undef KELMORA_LAYOUT_FIELD
#undef KELMORA_LAYOUT_STRUCT
#undef KELMORA_LAYOUT_OF
#undef KELMORA_LAYOUT_WIDTH
#undef KELMORA_LAYOUT

#endif
)";

std::string joined(std::initializer_list<std::string_view> parts)
{
    std::string text;
    for (const std::string_view part : parts)
        text.append(part);
    return text;
}

std::string assertions(const Layout &narrow, const Layout &wide)
{
    std::string text = joined({"\nKELMORA_LAYOUT_STRUCT(", narrow.name, ", ", std::to_string(narrow.size), ", ",
                               std::to_string(wide.size), ");\n"});
    for (std::size_t i = 0; i < narrow.fields.size(); ++i) {
        const FieldLayout &field = narrow.fields[i];
        text += joined({"KELMORA_LAYOUT_FIELD(", narrow.name, ", ", field.name});
        for (const FieldLayout &each : {field, wide.fields[i]})
            text += joined({", ", std::to_string(each.offset), ", ", std::to_string(each.size)});
        text += ");\n";
    }
    return text;
}

std::string configured(std::string_view macro, std::size_t value)
{
    const std::string number = std::to_string(value);
    return joined({"KELMORA_LAYOUT(", macro.substr(macro.find('_') + 1), ", \"the plug-in was built with ", macro, "=",
                   number, "\", ", macro, " == ", number, ");\n"});
}

} // namespace

std::string layout_header()
{
    const Target &narrow = *std::ranges::find(targets(), 4U, &Target::pointer_size);
    const Target &wide = *std::ranges::find(targets(), 8U, &Target::pointer_size);
    std::string text(header_begin);
    text += configured("KELMORA_HOST_PRIVATE_POINTERS", KELMORA_HOST_PRIVATE_POINTERS);
    text += configured("KELMORA_TR069_HOST_BLOCK_SIZE", KELMORA_TR069_HOST_BLOCK_SIZE);
    text += assertions(node_layout(narrow), node_layout(wide));
    for (const RecordType *type : all_record_types()) {
        const Layout layout = layout_of(*type, narrow);
        if (!layout.is_union) // it has no name; its members are structs, which begin where it does
            text += assertions(layout, layout_of(*type, wide));
    }
    return text.append(header_end);
}

} // namespace kelmora_host
