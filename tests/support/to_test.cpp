#include "tests/support/to_test.h"

#include "tests/support/direct_text.h"
#include "tests/support/faults.h"

#include "harness/jansson_alone.h"

namespace kelmora_test {

using kelmora_harness::Failing;
using kelmora_harness::ToAnswer;

ToAnswer ToTestBase::call(const kelmora_harness::ToRequest &request)
{
    ToAnswer answer = kelmora_harness::call_to(to_, nodes_, request);
    expect_none(answer.faults);
    allocations_ = answer.allocations;
    reallocations_ = enlargements(answer.reallocations);
    return answer;
}

std::string ToTestBase::text(bool as_list, std::optional<std::uint32_t> count)
{
    const ToAnswer answer = call({.as_list = as_list, .count = count});
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
                const ToAnswer answer =
                    call({.as_list = as_list, .memory = {n, failing}, .may_leave_half = direct_text});
                const bool reached = answer.allocations >= n;
                if (answer.result == 1 && answer.text != right) {
                    EXPECT_TRUE(!direct_text && reached &&
                                kelmora_harness::damaged_renderings(right, failing).contains(answer.text))
                        << answer.text << "\ninstead of\n"
                        << right << "\nwith allocation " << n << " failing";
                }
                if (answer.result == 0) {
                    EXPECT_EQ(answer.text, empty) << "with allocation " << n << " failing";
                }
                if (direct_text) {
                    EXPECT_EQ(answer.result, reached ? 0 : 1) << "with allocation " << n << " failing";
                }
                if (!reached) {
                    EXPECT_EQ(answer.result, 1);
                    EXPECT_TRUE(n > 1 || direct_text) << "no allocation failed";
                    break;
                }
            }
        }
    }
}

} // namespace kelmora_test
