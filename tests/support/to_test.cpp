#include "tests/support/to_test.h"

#include "tests/support/allocations.h"
#include "tests/support/document.h"

#include <algorithm>
#include <cstdlib>

namespace kelmora_test {

namespace {

constexpr std::size_t promised_size = 4096;
constexpr std::size_t guard_size = 64;
constexpr unsigned char untouched = 0x5A;

/// The bytes of all records and nodes, to compare.
std::vector<std::string> images(std::vector<kelmora_host::Node> &nodes)
{
    std::vector<std::string> images;
    for (kelmora_host::Node &node : nodes) {
        images.emplace_back(reinterpret_cast<const char *>(node.resource()), sizeof(kelmora_resource));
        images.emplace_back(static_cast<const char *>(node.record().bytes()), node.record().size());
    }
    return images;
}

} // namespace

template <class Prepare>
ToTestBase::Answer ToTestBase::call(bool as_list, std::optional<std::uint32_t> count, Prepare prepare)
{
    kelmora_resource *head = kelmora_host::link_request(nodes_, as_list);
    head->count = count.value_or(head->count);
    const auto images_before = images(nodes_);

    auto *buffer = static_cast<char *>(std::malloc(promised_size + guard_size));
    std::memset(buffer, untouched, promised_size + guard_size);
    char *out = buffer;
    const std::size_t alive_before = allocations::alive();

    prepare();
    const int result = to_(head, &out);
    allocations_ = allocations::asked_for();
    reallocations_ = allocations::reallocations();
    allocations::pass();

    EXPECT_EQ(allocations::alive(), alive_before) << "memory outlives the call";
    EXPECT_EQ(images(nodes_), images_before) << "a record or a node was written";
    const Answer answer{result, out};
    if (answer.text.size() < promised_size) {
        const auto *guard = reinterpret_cast<unsigned char *>(out) + promised_size;
        EXPECT_TRUE(std::all_of(guard, guard + guard_size, [](unsigned char byte) { return byte == untouched; }))
            << "written behind the buffer";
    }
    std::free(out);
    return answer;
}

std::string ToTestBase::text(bool as_list, std::optional<std::uint32_t> count)
{
    const Answer answer = call(as_list, count, allocations::pass);
    EXPECT_EQ(answer.result, 1);
    return answer.text;
}

void ToTestBase::expect_survives_failing_memory()
{
    for (const bool as_list : {true, false}) {
        const std::string right = text(as_list);
        const char *empty = right.front() == '[' ? "[]" : "{}"; // not every root is what was asked for
        for (const Failing failing : {Failing::once, Failing::from_then_on}) {
            for (std::size_t n = 1;; ++n) {
                const Answer answer = call(as_list, std::nullopt, [&] { allocations::fail(n, failing); });
                const bool reached = allocations_ >= n;
                // After one passing failure jansson may go on and render a broken key, which is not ours to see, and
                // a text that does not parse. Anything that does parse must be right.
                const bool broken_key = reached && failing == Failing::once && !parses(answer.text);
                if (answer.result == 1 && !broken_key) {
                    EXPECT_EQ(answer.text, right) << "with allocation " << n << " failing";
                }
                if (answer.result == 0) {
                    EXPECT_EQ(answer.text, empty) << "with allocation " << n << " failing";
                }
                if (!reached) {
                    EXPECT_EQ(answer.result, 1);
                    EXPECT_GT(n, 1U) << "no allocation failed";
                    break;
                }
            }
        }
    }
}

} // namespace kelmora_test
