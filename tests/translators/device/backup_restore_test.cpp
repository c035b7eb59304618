#include "tests/support/allocations.h"
#include "tests/support/from_test.h"

#include "host/gateway/node.h"

#include "kelmora_json.h"
#include "records/device.h"

#include <algorithm>
#include <array>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <memory>
#include <vector>

namespace kelmora_test::backup_restore_test {

namespace {

using testing::Each;

using Block = std::array<std::uint8_t, 8>;

class BackupRestoreTo : public testing::Test {
protected:
    static constexpr std::size_t buffer_size = 4096;
    static constexpr std::uint8_t untouched = 0x5A;

    void add(const Block &block)
    {
        kelmora_backup_restore record{};
        std::copy(block.begin(), block.end(), record.backup);
        nodes_.emplace_back("0", kelmora_host::Record(record));
    }

    /// The first bytes of the buffer; those behind must be left alone.
    Block written(bool as_list = false)
    {
        std::fill(buffer_.begin(), buffer_.end(), untouched);
        auto *const start = reinterpret_cast<char *>(buffer_.data());
        char *out = start;
        EXPECT_EQ(backup_restore_to_translator(kelmora_host::link_request(nodes_, as_list), &out), 1);
        EXPECT_EQ(out, start) << "the buffer was replaced";
        EXPECT_THAT(std::vector(buffer_.begin() + 8, buffer_.end()), Each(untouched));
        Block block{};
        std::copy_n(buffer_.begin(), block.size(), block.begin());
        return block;
    }

    std::vector<kelmora_host::Node> nodes_;
    std::vector<std::uint8_t> buffer_ = std::vector<std::uint8_t>(buffer_size);
};

TEST_F(BackupRestoreTo, WritesTheBlockAndNothingBehindIt)
{
    add({1, 2, 3, 4, 5, 6, 7, 8});
    EXPECT_EQ(written(), (Block{1, 2, 3, 4, 5, 6, 7, 8}));
}

TEST_F(BackupRestoreTo, WritesZeroBytesWhereverTheyStand)
{
    add({0, 255, 0, 0, 128, 6, 7, 0});
    EXPECT_EQ(written(), (Block{0, 255, 0, 0, 128, 6, 7, 0}));
}

TEST_F(BackupRestoreTo, WritesABlockOfZeros)
{
    add({});
    EXPECT_EQ(written(), (Block{0, 0, 0, 0, 0, 0, 0, 0}));
}

TEST_F(BackupRestoreTo, WritesTheHeadAloneWhateverIsAskedFor)
{
    add({1, 2, 3, 4, 5, 6, 7, 8});
    add({11, 12, 13, 14, 15, 16, 17, 18});
    EXPECT_EQ(written(true), (Block{1, 2, 3, 4, 5, 6, 7, 8}));
    EXPECT_EQ(written(false), (Block{1, 2, 3, 4, 5, 6, 7, 8}));
}

TEST_F(BackupRestoreTo, WritesTheHeadWhenTheCountIsZero)
{
    add({1, 2, 3, 4, 5, 6, 7, 8});
    kelmora_resource *head = kelmora_host::link_request(nodes_, true);
    head->count = 0;
    char *out = reinterpret_cast<char *>(buffer_.data());
    EXPECT_EQ(backup_restore_to_translator(head, &out), 1);
    EXPECT_EQ(std::vector(buffer_.begin(), buffer_.begin() + 8), (std::vector<std::uint8_t>{1, 2, 3, 4, 5, 6, 7, 8}));
}

TEST_F(BackupRestoreTo, LeavesTheRecordAsItIs)
{
    add({1, 2, 3, 4, 5, 6, 7, 8});
    written();
    EXPECT_THAT(nodes_.front().record().as<kelmora_backup_restore>().backup,
                testing::ElementsAre(1, 2, 3, 4, 5, 6, 7, 8));
}

TEST_F(BackupRestoreTo, AsksForNoMemory)
{
    add({1, 2, 3, 4, 5, 6, 7, 8});
    kelmora_resource *head = kelmora_host::link_request(nodes_, false);
    char *out = reinterpret_cast<char *>(buffer_.data());
    allocations::fail(1, Failing::from_then_on);
    EXPECT_EQ(backup_restore_to_translator(head, &out), 1);
    EXPECT_EQ(allocations::asked_for(), 0U);
    allocations::pass();
    EXPECT_EQ(buffer_[7], 8);
}

/// The text that is handed over is the block and nothing else, in memory that ends with it.
class BackupRestoreFrom : public FromTest<kelmora_backup_restore> {
protected:
    BackupRestoreFrom() : FromTest(backup_restore_from_translator, "") {}

    /// The block that the record holds after `block` was handed over.
    Block stored(const Block &block)
    {
        const auto text = std::make_unique<char[]>(block.size());
        std::memcpy(text.get(), block.data(), block.size());
        kelmora_errorlist errors;
        EXPECT_EQ(backup_restore_from_translator(node_.resource(), text.get(), &errors), 1);
        EXPECT_TRUE(std::equal(block.begin(), block.end(), reinterpret_cast<std::uint8_t *>(text.get())))
            << "the text was written";
        Block result{};
        std::copy_n(record().backup, result.size(), result.begin());
        return result;
    }
};

TEST_F(BackupRestoreFrom, StoresTheBlockAsItIs)
{
    EXPECT_EQ(stored({1, 2, 3, 4, 5, 6, 7, 8}), (Block{1, 2, 3, 4, 5, 6, 7, 8}));
    EXPECT_EQ(stored({255, 254, 128, 127, 10, 13, 34, 92}), (Block{255, 254, 128, 127, 10, 13, 34, 92}));
}

TEST_F(BackupRestoreFrom, StoresZeroBytesWhereverTheyStand)
{
    EXPECT_EQ(stored({0, 2, 3, 4, 5, 6, 7, 8}), (Block{0, 2, 3, 4, 5, 6, 7, 8}));
    EXPECT_EQ(stored({1, 2, 0, 4, 0, 0, 7, 8}), (Block{1, 2, 0, 4, 0, 0, 7, 8}));
    EXPECT_EQ(stored({1, 2, 3, 4, 5, 6, 7, 0}), (Block{1, 2, 3, 4, 5, 6, 7, 0}));
    EXPECT_EQ(stored({0, 0, 0, 0, 0, 0, 0, 0}), (Block{0, 0, 0, 0, 0, 0, 0, 0}));
}

TEST_F(BackupRestoreFrom, DoesNotTakeTheBlockForJson)
{
    EXPECT_EQ(stored({'{', '"', 'a', '"', ':', '1', '}', ' '}), (Block{'{', '"', 'a', '"', ':', '1', '}', ' '}));
    EXPECT_EQ(stored({'{', '{', '{', '{', '{', '{', '{', '{'}), (Block{'{', '{', '{', '{', '{', '{', '{', '{'}));
}

TEST_F(BackupRestoreFrom, WritesTheBlockAndNothingBehindIt)
{
    EXPECT_TRUE(accepts("eight by, and more that is not stored"));
    EXPECT_EQ(std::string(record().backup, record().backup + 8), "eight by");
    EXPECT_EQ(fetches_, 1U);
}

TEST_F(BackupRestoreFrom, AsksForNoMemory)
{
    allocations::fail(1, Failing::from_then_on);
    kelmora_errorlist errors;
    EXPECT_EQ(backup_restore_from_translator(node_.resource(), "eight by", &errors), 1);
    EXPECT_EQ(allocations::asked_for(), 0U);
    allocations::pass();
    EXPECT_EQ(std::string(record().backup, record().backup + 8), "eight by");
}

} // namespace

} // namespace kelmora_test::backup_restore_test
