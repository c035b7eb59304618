#include "tests/support/allocations.h"
#include "tests/support/from_test.h"

#include "kelmora_json.h"
#include "records/device.h"

#include <algorithm>
#include <array>
#include <memory>

namespace kelmora_test::upgrade_by_file_test {

namespace {

using Block = std::array<std::uint8_t, 8>;

TEST(UpgradeByFileTo, DoesNothing)
{
    char untouched[] = "untouched";
    char *out = untouched;
    EXPECT_EQ(upgrade_by_file_to_translator(nullptr, &out), 1);
    EXPECT_EQ(out, untouched);
    EXPECT_STREQ(untouched, "untouched");
    EXPECT_EQ(upgrade_by_file_to_translator(nullptr, nullptr), 1);
}

/// The text that is handed over is the block and nothing else, in memory that ends with it.
class UpgradeByFileFrom : public FromTest<kelmora_upgrade_by_file> {
protected:
    UpgradeByFileFrom() : FromTest(upgrade_by_file_from_translator, "") {}

    /// The block that the record holds after `block` was handed over.
    Block stored(const Block &block)
    {
        const auto text = std::make_unique<char[]>(block.size());
        std::memcpy(text.get(), block.data(), block.size());
        kelmora_errorlist errors;
        EXPECT_EQ(upgrade_by_file_from_translator(node_.resource(), text.get(), &errors), 1);
        EXPECT_TRUE(std::equal(block.begin(), block.end(), reinterpret_cast<std::uint8_t *>(text.get())))
            << "the text was written";
        Block result{};
        std::copy_n(record().file, result.size(), result.begin());
        return result;
    }
};

TEST_F(UpgradeByFileFrom, StoresTheBlockAsItIs)
{
    EXPECT_EQ(stored({1, 2, 3, 4, 5, 6, 7, 8}), (Block{1, 2, 3, 4, 5, 6, 7, 8}));
    EXPECT_EQ(stored({255, 254, 128, 127, 10, 13, 34, 92}), (Block{255, 254, 128, 127, 10, 13, 34, 92}));
}

TEST_F(UpgradeByFileFrom, StoresZeroBytesWhereverTheyStand)
{
    EXPECT_EQ(stored({0, 2, 3, 4, 5, 6, 7, 8}), (Block{0, 2, 3, 4, 5, 6, 7, 8}));
    EXPECT_EQ(stored({1, 2, 0, 4, 0, 0, 7, 8}), (Block{1, 2, 0, 4, 0, 0, 7, 8}));
    EXPECT_EQ(stored({1, 2, 3, 4, 5, 6, 7, 0}), (Block{1, 2, 3, 4, 5, 6, 7, 0}));
    EXPECT_EQ(stored({0, 0, 0, 0, 0, 0, 0, 0}), (Block{0, 0, 0, 0, 0, 0, 0, 0}));
}

TEST_F(UpgradeByFileFrom, DoesNotTakeTheBlockForJson)
{
    EXPECT_EQ(stored({'{', '"', 'a', '"', ':', '1', '}', ' '}), (Block{'{', '"', 'a', '"', ':', '1', '}', ' '}));
    EXPECT_EQ(stored({'{', '{', '{', '{', '{', '{', '{', '{'}), (Block{'{', '{', '{', '{', '{', '{', '{', '{'}));
}

TEST_F(UpgradeByFileFrom, WritesTheBlockAndNothingBehindIt)
{
    EXPECT_TRUE(accepts("eight by, and more that is not stored"));
    EXPECT_EQ(std::string(record().file, record().file + 8), "eight by");
    EXPECT_EQ(fetches_, 1U);
}

TEST_F(UpgradeByFileFrom, AsksForNoMemory)
{
    allocations::fail(1, Failing::from_then_on);
    kelmora_errorlist errors;
    EXPECT_EQ(upgrade_by_file_from_translator(node_.resource(), "eight by", &errors), 1);
    EXPECT_EQ(allocations::asked_for(), 0U);
    allocations::pass();
    EXPECT_EQ(std::string(record().file, record().file + 8), "eight by");
}

} // namespace

} // namespace kelmora_test::upgrade_by_file_test
