#include "host/contract/layout.h"

#include "kelmora_config.h"

#include <algorithm>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <string>

namespace kelmora_host::layout_header_test {

namespace {

using testing::HasSubstr;

// That it holds, as C and as C++, tests/include says.

std::size_t count_of(const std::string &text, const std::string &part)
{
    std::size_t count = 0;
    for (std::size_t at = text.find(part); at != std::string::npos; at = text.find(part, at + 1))
        ++count;
    return count;
}

TEST(LayoutHeader, HasTheNumbersOfBothTargets)
{
    const std::string text = layout_header();
    EXPECT_THAT(text, HasSubstr("\nKELMORA_LAYOUT_STRUCT(kelmora_limits, 32, 40);\n"
                                "KELMORA_LAYOUT_FIELD(kelmora_limits, port_redirect, 0, 4, 0, 4);\n"));
    EXPECT_THAT(text, HasSubstr("\nKELMORA_LAYOUT_FIELD(kelmora_limits, wifi_limits, 12, 4, 16, 8);\n"));
    EXPECT_THAT(text, HasSubstr("\nKELMORA_LAYOUT_FIELD(kelmora_resource, id, "));
}

TEST(LayoutHeader, HasEveryStructAndEveryFieldOnce)
{
    const std::string text = layout_header();
    std::size_t structs = 1; // the node, of four fields
    std::size_t fields = 4;
    for (const RecordType *type : all_record_types()) {
        if (type->name.find('.') != std::string_view::npos)
            continue;
        ++structs;
        fields += type->fields.size();
        EXPECT_EQ(count_of(text, "\nKELMORA_LAYOUT_STRUCT(" + std::string(type->name) + ", "), 1U) << type->name;
        for (const Field &field : type->fields)
            EXPECT_EQ(count_of(text, "\nKELMORA_LAYOUT_FIELD(" + std::string(type->name) + ", " +
                                         std::string(field.name) + ", "),
                      1U)
                << type->name << '.' << field.name;
    }
    EXPECT_EQ(count_of(text, "\nKELMORA_LAYOUT_STRUCT("), structs);
    EXPECT_EQ(count_of(text, "\nKELMORA_LAYOUT_FIELD("), fields);
}

TEST(LayoutHeader, HoldsTheValuesThatThePluginWasBuiltWith)
{
    const std::string text = layout_header();
    EXPECT_THAT(text, HasSubstr("KELMORA_HOST_PRIVATE_POINTERS == " + std::to_string(KELMORA_HOST_PRIVATE_POINTERS)));
    EXPECT_THAT(text, HasSubstr("KELMORA_TR069_HOST_BLOCK_SIZE == " + std::to_string(KELMORA_TR069_HOST_BLOCK_SIZE)));
}

} // namespace

} // namespace kelmora_host::layout_header_test
