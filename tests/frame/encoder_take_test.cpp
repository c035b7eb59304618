#include "frame/encoder.h"

#include "tests/support/allocations.h"

#include <gtest/gtest.h>
#include <jansson.h>

namespace kelmora::encoder_take_test {

namespace {

using kelmora_test::Failing;
namespace allocations = kelmora_test::allocations;

TEST(EncoderTake, ReleasesWhatNobodyTook)
{
    const std::size_t alive = allocations::alive();
    {
        Encoder out;
        out.object("object", [](Encoder &nested) { nested.integer("n", 1U); });
        ArrayEncoder list;
        list.integer(1);
    }
    EXPECT_EQ(allocations::alive(), alive);
}

/// A document with a value of every kind.
json_t *everything()
{
    const char text[8] = "fits";
    const char cut[3] = {'a', 'b', 'c'};
    Encoder out;
    out.string("text", text);
    out.string("cut", cut);
    out.whole_string("whole", "text");
    out.integer("unsigned", 1U);
    out.integer("signed", -1);
    out.boolean("boolean", 1);
    out.real("real", 0.5);
    out.object("object", [&](Encoder &nested) {
        nested.object("deeper", [&](Encoder &deeper) { deeper.string("text", text); });
    });
    out.array("array", [&](ArrayEncoder &list) {
        list.string(text);
        list.string(cut);
        list.integer(1);
        list.object([](Encoder &element) { element.integer("n", 1U); });
    });
    return out.take();
}

TEST(EncoderTake, IsIncompleteWhicheverAllocationFails)
{
    allocations::pass();
    json_decref(everything());
    const std::size_t all = allocations::asked_for();
    EXPECT_GT(all, 20U);
    const std::size_t alive = allocations::alive();
    for (const Failing failing : {Failing::once, Failing::from_then_on}) {
        for (std::size_t n = 1; n <= all; ++n) {
            allocations::fail(n, failing);
            EXPECT_EQ(everything(), nullptr) << "with allocation " << n << " of " << all << " failing";
            allocations::pass();
            EXPECT_EQ(allocations::alive(), alive);
        }
    }
}

} // namespace

} // namespace kelmora::encoder_take_test
