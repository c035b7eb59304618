#include "frame/encode.h"

#include "tests/support/to_test.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <string>

namespace kelmora::encode_test {

namespace {

using kelmora_test::ToTest;

struct Point {
    std::uint32_t x;
    char name[8192];
};

void to_json(Encoder &out, const Point &point, const NodeId &id)
{
    out.string("id", id);
    out.integer("x", point.x);
}

void x_to_json(Encoder &out, const Point &point) { out.integer("x", point.x); }

void name_to_json(Encoder &out, const Point &point) { out.string("name", point.name); }

template <Nodes nodes, Root root = Root::by_list_flag, Flags flags = Flags::plain>
int to(kelmora_resource *head, char **out)
{
    return encode<to_json>(head, out, nodes, root, flags);
}

/// Three nodes a, b, c with x of 1, 2, 3.
class EncodeTest : public ToTest<Point> {
protected:
    explicit EncodeTest(kelmora_to_translator to) : ToTest(to)
    {
        add("a").x = 1;
        add("b").x = 2;
        add("c").x = 3;
    }
};

constexpr char all[] = R"([{"id": "a", "x": 1}, {"id": "b", "x": 2}, {"id": "c", "x": 3}])";

class Counting : public EncodeTest {
protected:
    Counting() : EncodeTest(to<Nodes::counting>) {}
};

TEST_F(Counting, WritesAsManyNodesAsTheHeadCounts)
{
    EXPECT_EQ(list_counting(0), "[]");
    EXPECT_EQ(list_counting(1), R"([{"id": "a", "x": 1}])");
    EXPECT_EQ(list_counting(2), R"([{"id": "a", "x": 1}, {"id": "b", "x": 2}])");
    EXPECT_EQ(list_counting(3), all);
}

TEST_F(Counting, EndsAtTheLastNode)
{
    EXPECT_EQ(list_counting(4), all);
    EXPECT_EQ(list_counting(4294967295), all);
}

TEST_F(Counting, LeavesTheLastNodeInASingleObject)
{
    EXPECT_EQ(object_counting(0), "{}");
    EXPECT_EQ(object_counting(1), R"({"id": "a", "x": 1})");
    EXPECT_EQ(object_counting(2), R"({"id": "b", "x": 2})");
    EXPECT_EQ(object_counting(9), R"({"id": "c", "x": 3})");
}

TEST_F(Counting, TakesAnyListFlagButZeroForAList)
{
    nodes_.front().resource()->is_list = 0;
    kelmora_resource *head = kelmora_host::link_request(nodes_, true);
    head->is_list = 128;
    auto *out = static_cast<char *>(std::malloc(4096));
    EXPECT_EQ(to<Nodes::counting>(head, &out), 1);
    EXPECT_STREQ(out, all);
    std::free(out);
}

class CountingLiteral : public EncodeTest {
protected:
    CountingLiteral() : EncodeTest(to<Nodes::counting_if_any>) {}
};

TEST_F(CountingLiteral, WritesAnEmptyArrayWhenTheCountIsZero)
{
    EXPECT_EQ(list_counting(0), "[]");
    EXPECT_EQ(object_counting(0), "[]");
    EXPECT_EQ(object_counting(1), R"({"id": "a", "x": 1})");
    EXPECT_EQ(list_counting(2), R"([{"id": "a", "x": 1}, {"id": "b", "x": 2}])");
}

class Walking : public EncodeTest {
protected:
    Walking() : EncodeTest(to<Nodes::walking>) {}
};

TEST_F(Walking, WritesEveryNodeWhateverTheCount)
{
    for (const std::uint32_t count : {0U, 1U, 3U, 100U}) {
        EXPECT_EQ(list_counting(count), all);
        EXPECT_EQ(object_counting(count), R"({"id": "c", "x": 3})");
    }
}

class WalkingLiteral : public EncodeTest {
protected:
    WalkingLiteral() : EncodeTest(to<Nodes::walking_if_any>) {}
};

TEST_F(WalkingLiteral, ReadsTheCountOnlyForTheEmptyArray)
{
    EXPECT_EQ(list_counting(0), "[]");
    EXPECT_EQ(object_counting(0), "[]");
    EXPECT_EQ(list_counting(1), all);
    EXPECT_EQ(object_counting(1), R"({"id": "c", "x": 3})");
}

TEST_F(WalkingLiteral, BuildsNothingForTheEmptyArray)
{
    list_counting(0);
    EXPECT_EQ(allocations_, 0U);
}

class HeadOnly : public EncodeTest {
protected:
    HeadOnly() : EncodeTest(to<Nodes::head_only, Root::always_object>) {}
};

TEST_F(HeadOnly, WritesTheHeadAlone)
{
    for (const std::uint32_t count : {0U, 1U, 3U}) {
        EXPECT_EQ(object_counting(count), R"({"id": "a", "x": 1})");
        EXPECT_EQ(list_counting(count), R"({"id": "a", "x": 1})");
    }
}

class HeadRepeated : public EncodeTest {
protected:
    HeadRepeated() : EncodeTest(to<Nodes::head_repeated>) {}
};

TEST_F(HeadRepeated, WritesTheHeadAsOftenAsItCounts)
{
    EXPECT_EQ(list_counting(0), "[]");
    EXPECT_EQ(list_counting(2), R"([{"id": "a", "x": 1}, {"id": "a", "x": 1}])");
    EXPECT_EQ(object_counting(0), "{}");
    EXPECT_EQ(object_counting(2), R"({"id": "a", "x": 1})");
}

TEST_F(HeadRepeated, WritesMoreEntriesThan16BitsCount)
{
    const std::string text = list_counting(65537);
    EXPECT_EQ(std::count(text.begin(), text.end(), '{'), 65537);
}

class AlwaysArray : public EncodeTest {
protected:
    AlwaysArray() : EncodeTest(to<Nodes::walking, Root::always_array>) {}
};

TEST_F(AlwaysArray, WritesAnArrayWhateverIsAskedFor)
{
    EXPECT_EQ(list(), all);
    EXPECT_EQ(object(), all);
}

class HeadId : public EncodeTest {
protected:
    HeadId() : EncodeTest(to<Nodes::walking_with_head_id>) {}
};

TEST_F(HeadId, WritesEveryNodeWithTheHeadsId)
{
    EXPECT_EQ(list(), R"([{"id": "a", "x": 1}, {"id": "a", "x": 2}, {"id": "a", "x": 3}])");
    EXPECT_EQ(object(), R"({"id": "a", "x": 3})");
}

void chain_to_json(Encoder &out, const Point *first, const NodeId &id)
{
    out.string("id", id);
    out.boolean("there", first != nullptr ? 1 : 0);
}

int to_of_pointers(kelmora_resource *head, char **out)
{
    return encode<chain_to_json>(head, out, Nodes::walking, Flags::plain);
}

struct Link {
    Link *next;
};

class RecordThatMayBeNull : public ToTest<kelmora_host::ChainRecord<Link>> {
protected:
    RecordThatMayBeNull() : ToTest(to_of_pointers) {}
};

TEST_F(RecordThatMayBeNull, IsHandedToTheWriterAsItIs)
{
    add("without");
    add("with", {kelmora_host::make_chain<Link>({{}})});
    EXPECT_EQ(list(), R"([{"id": "without", "there": false}, {"id": "with", "there": true}])");
}

class Pretty : public EncodeTest {
protected:
    Pretty() : EncodeTest(to<Nodes::counting, Root::by_list_flag, Flags::pretty>) {}
};

TEST_F(Pretty, SortsAndIndents)
{
    EXPECT_EQ(object_counting(1), "{\n                \"id\": \"a\",\n                \"x\": 1\n}");
}

class InsertionOrder : public EncodeTest {
protected:
    InsertionOrder() : EncodeTest(to<Nodes::counting, Root::by_list_flag, Flags::insertion_order>) {}
};

TEST_F(InsertionOrder, IsTheCompactText) { EXPECT_EQ(object_counting(1), R"({"id": "a", "x": 1})"); }

class WithoutId : public EncodeTest {
protected:
    WithoutId()
        : EncodeTest([](kelmora_resource *head, char **out) {
              return encode<x_to_json>(head, out, Nodes::counting, Flags::plain);
          })
    {
    }
};

TEST_F(WithoutId, HandsTheWriterTheRecordAlone) { EXPECT_EQ(list(), R"([{"x": 1}, {"x": 2}, {"x": 3}])"); }

/// Texts of a wanted length: {"name": "xxx"}.
class Lengths : public ToTest<Point> {
protected:
    Lengths()
        : ToTest([](kelmora_resource *head, char **out) {
              return encode<name_to_json>(head, out, Nodes::counting, Flags::plain);
          })
    {
    }

    /// Makes the text as long as this and returns it.
    std::string make(std::size_t length)
    {
        const std::size_t frame = std::strlen(R"({"name": ""})");
        nodes_.clear();
        std::memset(add("").name, 'x', length - frame);
        return "{\"name\": \"" + std::string(length - frame, 'x') + "\"}";
    }
};

TEST_F(Lengths, AreWrittenWholeAround4096)
{
    for (std::size_t length = 4090; length <= 4102; ++length) {
        const std::string expected = make(length);
        EXPECT_EQ(object(), expected) << length;
        EXPECT_EQ(reallocations_, length < 4096 ? 0U : 1U) << length;
    }
    const std::string expected = make(8000);
    EXPECT_EQ(object(), expected);
}

TEST_F(Lengths, SurviveFailingMemoryAround4096)
{
    for (const std::size_t length : {4095U, 4096U, 8000U}) {
        make(length);
        expect_survives_failing_memory();
    }
}

} // namespace

} // namespace kelmora::encode_test
