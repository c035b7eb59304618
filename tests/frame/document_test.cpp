#include "frame/document.h"

#include "tests/support/allocations.h"

#include <gtest/gtest.h>

namespace kelmora::document_test {

namespace {

namespace allocations = kelmora_test::allocations;

TEST(Document, ReleasesItsRootAtTheEndOfItsLife)
{
    const std::size_t alive = allocations::json_alive();
    {
        const Document document(json_object());
        EXPECT_NE(document.root(), nullptr);
        EXPECT_GT(allocations::json_alive(), alive);
    }
    EXPECT_EQ(allocations::json_alive(), alive);
}

TEST(Document, ReleasesItsRootOnceHoweverOftenItIsAsked)
{
    json_t *root = json_object();
    json_incref(root);
    {
        Document document(root);
        document.release();
        document.release();
        EXPECT_EQ(document.root(), nullptr);
        EXPECT_EQ(root->refcount, 1U);
    }
    EXPECT_EQ(root->refcount, 1U);
    json_decref(root);
}

TEST(Document, KeepsItsRootUnreleasedUnlessAllIsReleased)
{
    json_t *root = json_object();
    json_incref(root);
    {
        Document document(root);
        document.leak();
        EXPECT_EQ(document.root(), nullptr);
    }
#ifdef KELMORA_RELEASE_ALL
    EXPECT_EQ(root->refcount, 1U);
#else
    EXPECT_EQ(root->refcount, 2U);
    json_decref(root);
#endif
    json_decref(root);
}

TEST(Document, MayBeEmpty)
{
    Document document(nullptr);
    EXPECT_EQ(document.root(), nullptr);
    document.release();
    document.leak();
}

} // namespace

} // namespace kelmora::document_test
