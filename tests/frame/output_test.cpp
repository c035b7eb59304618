#include "frame/output.h"

#include "tests/support/allocations.h"

#include "kelmora_json.h"

#include <cstdlib>
#include <cstring>
#include <gtest/gtest.h>
#include <string>

namespace kelmora::output_test {

namespace {

using kelmora_test::Failing;
namespace allocations = kelmora_test::allocations;

/// A host's buffer with a text in it.
class CheckDataSize : public testing::Test {
protected:
    CheckDataSize() { std::strcpy(buffer_, "what was there"); }
    ~CheckDataSize() override { std::free(buffer_); }

    std::uintptr_t check(std::size_t length)
    {
        allocations::pass();
        return libkelmora_json_check_data_size(std::string(length, 'x').c_str(), &buffer_);
    }

    char *buffer_ = static_cast<char *>(std::malloc(4096));
};

TEST_F(CheckDataSize, LeavesTheBufferAloneUpTo4095Characters)
{
    char *const before = buffer_;
    for (const std::size_t length : {0U, 1U, 4094U, 4095U}) {
        EXPECT_EQ(check(length), length);
        EXPECT_EQ(allocations::asked_for(), 0U);
        EXPECT_EQ(buffer_, before);
    }
    EXPECT_STREQ(buffer_, "what was there");
}

TEST_F(CheckDataSize, GrowsTheBufferFrom4096CharactersOn)
{
    for (const std::size_t length : {4096U, 4097U, 100000U}) {
        const std::uintptr_t answer = check(length);
        EXPECT_EQ(answer, reinterpret_cast<std::uintptr_t>(buffer_));
        EXPECT_EQ(allocations::reallocations(), 1U);
        EXPECT_EQ(allocations::reallocated_size(), length + 1);
        EXPECT_STREQ(buffer_, "what was there");
        std::memset(buffer_ + 4096, 'x', length + 1 - 4096); // all of it can be written
    }
}

TEST_F(CheckDataSize, LeavesTheBufferAsItWasWhenItCannotGrow)
{
    char *const before = buffer_;
    const std::string text(4096, 'x');
    allocations::fail(1, Failing::once);
    EXPECT_EQ(libkelmora_json_check_data_size(text.c_str(), &buffer_), 0U);
    allocations::pass();
    EXPECT_EQ(buffer_, before);
    EXPECT_STREQ(buffer_, "what was there");
}

} // namespace

} // namespace kelmora::output_test
