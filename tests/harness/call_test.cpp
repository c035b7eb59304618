#include "harness/call.h"

#include "harness/address_sanitizer.h"
#include "harness/known_leaks.h"
#include "harness/poison.h"

#include "host/json.h"

#include "kelmora_records.h"

#include <cstdlib>
#include <cstring>
#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace kelmora_harness::call_test {

namespace {

using kelmora_host::Decoded;
using kelmora_host::Node;

using Faults = std::vector<std::string>;

// To-translators, each with one fault.

int write_well(kelmora_resource * /*head*/, char **out)
{
    std::strcpy(*out, "{}");
    return 1;
}

int write_nothing(kelmora_resource * /*head*/, char ** /*out*/) { return 1; }

std::vector<Node> one_node()
{
    std::vector<Node> nodes;
    nodes.emplace_back("0", blank_record(*kelmora_host::find_resource("traceroute")));
    return nodes;
}

Faults faults_of(kelmora_to_translator to)
{
    std::vector<Node> nodes = one_node();
    return call_to(to, nodes).faults;
}

TEST(CallTo, FindsNothingWrongWithWhatIsRight)
{
    EXPECT_EQ(faults_of(write_well), Faults{});
    EXPECT_EQ(faults_of(write_nothing), Faults{});
    std::vector<Node> none;
    EXPECT_EQ(call_to(write_well, none).text, "{}");
}

TEST(CallTo, FindsBlocksThatOutliveTheCall)
{
    static json_t *left = nullptr;
    EXPECT_EQ(faults_of([](kelmora_resource *head, char **out) {
                  left = json_integer(1);
                  return write_well(head, out);
              }),
              Faults{"memory outlives the call: 1 blocks"});
    json_decref(left);
}

TEST(CallTo, FindsAWrittenRecordAndAWrittenNode)
{
    const Faults written{"a record or a node was written"};
    EXPECT_EQ(faults_of([](kelmora_resource *head, char **out) {
                  static_cast<kelmora_traceroute *>(kelmora_resource_get_data(head))->host[0] = 'x';
                  return write_well(head, out);
              }),
              written);
    EXPECT_EQ(faults_of([](kelmora_resource *head, char **out) {
                  ++head->count;
                  return write_well(head, out);
              }),
              written);
}

TEST(CallTo, FindsBytesBehindTheText)
{
    EXPECT_EQ(faults_of([](kelmora_resource *head, char **out) {
                  (*out)[3] = 'x';
                  return write_well(head, out);
              }),
              Faults{"written behind the text"});
}

#ifndef KELMORA_ADDRESS_SANITIZER // which reports these itself
TEST(CallTo, FindsBytesBehindTheBuffer)
{
    EXPECT_EQ(faults_of([](kelmora_resource *head, char **out) {
                  char *volatile buffer = *out;
                  buffer[4096] = 'x';
                  return write_well(head, out);
              }),
              Faults{"written behind the buffer"});
}
#endif

TEST(CallTo, FindsATextWithoutAnEndAndABufferOfTheWrongSize)
{
    const auto enlarge = [](std::size_t size, char **out) {
        *out = static_cast<char *>(std::realloc(*out, size));
        std::memset(*out, 'x', size);
        return 1;
    };
    static const auto grow = enlarge;
    EXPECT_EQ(faults_of([](kelmora_resource * /*head*/, char **out) { return grow(5000, out); }).front(),
              "the text does not end within its buffer");
    EXPECT_EQ(faults_of([](kelmora_resource * /*head*/, char **out) {
                  grow(5000, out);
                  (*out)[4500] = '\0';
                  return 1;
              }),
              Faults{"the buffer has room for 5000 bytes, and the text 4500 characters"});
    EXPECT_EQ(faults_of([](kelmora_resource * /*head*/, char **out) {
                  grow(5000, out);
                  (*out)[4999] = '\0';
                  return 1;
              }),
              Faults{});
}

// From-translators.

const Leaks no_leak = [](const Decoded &) { return false; };
const Leaks leak = [](const Decoded &) { return true; };

Faults faults_of(kelmora_from_translator from, const Leaks &leaks = no_leak)
{
    Node node("0", poisoned_record(*kelmora_host::find_resource("traceroute")));
    return call_from(from, node, "[1]", leaks).faults;
}

kelmora_traceroute &trace_of(kelmora_resource *node)
{
    return *static_cast<kelmora_traceroute *>(kelmora_resource_get_data(node));
}

int accept(kelmora_resource * /*node*/, const char * /*text*/, kelmora_errorlist * /*errors*/) { return 1; }

int reject(kelmora_resource * /*node*/, const char * /*text*/, kelmora_errorlist *errors)
{
    kelmora_errorlist_add_error(errors, "a", "b", "json");
    return 0;
}

TEST(CallFrom, FindsNothingWrongWithWhatIsRight)
{
    EXPECT_EQ(faults_of(accept), Faults{});
    EXPECT_EQ(faults_of(reject), Faults{});
    EXPECT_EQ(faults_of([](kelmora_resource *node, const char *, kelmora_errorlist *) {
                  trace_of(node).hop_list =
                      kelmora_host::make_chain<kelmora_traceroute_hop>({{.next = nullptr}, {.next = nullptr}});
                  return 1;
              }),
              Faults{});
}

TEST(CallFrom, FindsAResultThatDoesNotFitTheErrors)
{
    EXPECT_EQ(faults_of([](kelmora_resource *, const char *, kelmora_errorlist *) { return 0; }),
              Faults{"the result is 0 with 0 errors"});
    EXPECT_EQ(faults_of([](kelmora_resource *node, const char *text, kelmora_errorlist *errors) {
                  reject(node, text, errors);
                  return 1;
              }),
              Faults{"the result is 1 with 1 errors"});
    EXPECT_EQ(faults_of([](kelmora_resource *node, const char *text, kelmora_errorlist *errors) {
                  reject(node, text, errors);
                  return reject(node, text, errors);
              }),
              Faults{"the result is 0 with 2 errors"});
    EXPECT_EQ(faults_of([](kelmora_resource *node, const char *text, kelmora_errorlist *errors) {
                  reject(node, text, errors);
                  return 2;
              }),
              Faults{"the result is 2"});
}

TEST(CallFrom, TakesARemarkForNoFailure)
{
    EXPECT_EQ(faults_of([](kelmora_resource *, const char *, kelmora_errorlist *errors) {
                  kelmora_errorlist_add_error(errors, "mtp.protocol", "invalid protocol", "json");
                  return 1;
              }),
              Faults{});
}

TEST(CallFrom, FindsADocumentThatIsReleasedAfterItsError)
{
    EXPECT_EQ(faults_of([](kelmora_resource *node, const char *text, kelmora_errorlist *errors) {
                  const kelmora_host::Json document(json_loads(text, 0, nullptr));
                  return reject(node, text, errors);
              }),
              Faults{"the document is not released before its error"});
}

json_t *left = nullptr;

int leave(kelmora_resource * /*node*/, const char *text, kelmora_errorlist * /*errors*/)
{
    left = json_loads(text, 0, nullptr);
    return 1;
}

TEST(CallFrom, FindsValuesThatOutliveTheCallUnlessTheyAreTheDocumentThatLeaks)
{
    ASSERT_EQ(faults_of(leave).size(), 1U);
    json_decref(left);
    EXPECT_TRUE(faults_of(leave).front().starts_with("JSON values outlive the call: "));
    json_decref(left);
    EXPECT_EQ(faults_of(leave, leak), Faults{});
    json_decref(left);
    EXPECT_EQ(faults_of(accept, leak), Faults{"not exactly the document is leaked: 0 blocks"});
    EXPECT_EQ(faults_of(
                  [](kelmora_resource *, const char *, kelmora_errorlist *) {
                      left = json_string("a string");
                      return 1;
                  },
                  leak),
              Faults{"not exactly the document is leaked: 2 blocks"});
    json_decref(left);
}

TEST(CallFrom, FindsMemoryThatDoesNotHangOnTheRecord)
{
    static void *lost = nullptr;
    EXPECT_EQ(faults_of([](kelmora_resource *, const char *, kelmora_errorlist *) {
                  lost = std::malloc(1);
                  return 1;
              }),
              Faults{"memory outlives the call that does not hang on the record: 1 blocks"});
    std::free(lost);
}

TEST(CallFrom, FreesWhatTheTranslatorLetsGoOf)
{
    Node node("0", poisoned_record(*kelmora_host::find_resource("traceroute")));
    node.record().as<kelmora_traceroute>().hop_list =
        kelmora_host::make_chain<kelmora_traceroute_hop>({{.next = nullptr}});
    const std::size_t alive = ledger::alive();
    const FromAnswer answer = call_from(
        [](kelmora_resource *written, const char *, kelmora_errorlist *) {
            trace_of(written).hop_list = nullptr;
            return 1;
        },
        node, "", no_leak);
    EXPECT_EQ(answer.faults, Faults{});
    EXPECT_EQ(ledger::alive(), alive - 1);
}

TEST(CallFrom, FindsAWrittenNode)
{
    EXPECT_EQ(faults_of([](kelmora_resource *node, const char *, kelmora_errorlist *) {
                  node->id[0] = 'x';
                  return 1;
              }),
              Faults{"the node was written into"});
}

#ifndef KELMORA_ADDRESS_SANITIZER // which reports these itself
TEST(CallFrom, FindsBytesBehindTheRecord)
{
    EXPECT_EQ(faults_of([](kelmora_resource *node, const char *, kelmora_errorlist *) {
                  char *volatile end = reinterpret_cast<char *>(&trace_of(node) + 1);
                  end[0] = 'x';
                  return 1;
              }),
              Faults{"written behind the record"});
}
#endif

TEST(CallFrom, FindsARing)
{
    static kelmora_traceroute_hop *hop = nullptr;
    EXPECT_EQ(faults_of([](kelmora_resource *node, const char *, kelmora_errorlist *) {
                  hop = kelmora_host::make_chain<kelmora_traceroute_hop>({{.next = nullptr}});
                  hop->next = hop;
                  trace_of(node).hop_list = hop;
                  return 1;
              }),
              Faults{"a node or a string hangs on the record twice"});
    std::free(hop);
}

TEST(CallFrom, FailsTheAllocationThatIsChosen)
{
    Node node("0", poisoned_record(*kelmora_host::find_resource("traceroute")));
    static void *second = nullptr;
    const FromAnswer answer = call_from(
        [](kelmora_resource *, const char *, kelmora_errorlist *) {
            void *volatile first = std::malloc(1);
            std::free(first);
            second = std::malloc(1);
            return 1;
        },
        node, "", no_leak, {2, Failing::once});
    EXPECT_EQ(answer.allocations, 2U);
    EXPECT_EQ(second, nullptr);
    EXPECT_EQ(answer.faults, Faults{});
}

TEST(CallFrom, OfAResourceKnowsItsLeaks)
{
    const kelmora_host::Resource &resource = *kelmora_host::find_resource("rip_enable");
    Node node("0", poisoned_record(resource));
    const FromAnswer answer = call_from(resource, node, "{}");
    EXPECT_EQ(answer.faults, Faults{});
    EXPECT_EQ(answer.leaked.blocks != 0, !releases_all);
}

} // namespace

} // namespace kelmora_harness::call_test
