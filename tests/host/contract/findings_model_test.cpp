// Random documents, and a model of a few resources that says what must be found: no loss unreported, none invented. The
// model is written from the resources' tables, by hand.

#include "host/contract/findings.h"

#include "harness/address_sanitizer.h"
#include "host/gateway/blank.h"
#include "host/plugin/registry.h"

#include "kelmora_json.h"

#include <algorithm>
#include <cstdint>
#include <gtest/gtest.h>
#include <ostream>
#include <random>
#include <set>
#include <string>
#include <tuple>
#include <vector>

namespace kelmora_host::findings_model_test {

namespace {

enum class Takes { boolean, integer8, integer16, integer32, signed32, string };

struct ModelKey {
    const char *name;
    Takes takes;
    std::size_t width; ///< of a string's field, in bytes
    bool required;
};

/// A resource whose document is one object without objects or lists in it.
struct Model {
    const char *resource;
    std::vector<ModelKey> keys;
    std::vector<const char *> shown_only;
};

const std::vector<Model> models{
    {"radio",
     {{"enabled", Takes::boolean, 0, true},
      {"opMode", Takes::integer32, 0, true},
      {"frequency", Takes::integer32, 0, true},
      {"configuredChannel", Takes::integer32, 0, true},
      {"channel", Takes::integer32, 0, true},
      {"extension", Takes::integer32, 0, true},
      {"bandwidth", Takes::integer32, 0, true},
      {"mu_mimo", Takes::boolean, 0, false},
      {"beamforming", Takes::boolean, 0, false},
      {"ofdma", Takes::boolean, 0, false},
      {"twt", Takes::boolean, 0, false},
      {"power", Takes::integer32, 0, true}},
     {"id"}},
    {"wireless",
     {{"interfaceID", Takes::string, 129, true},
      {"radioID", Takes::string, 129, true},
      {"broadcast", Takes::boolean, 0, true},
      {"ssid", Takes::string, 33, true},
      {"cipher", Takes::integer32, 0, true},
      {"crypto", Takes::integer32, 0, true},
      {"mode", Takes::integer32, 0, false},
      {"key", Takes::string, 64, true},
      {"wps", Takes::boolean, 0, true},
      {"enabled", Takes::boolean, 0, true},
      {"isRoot", Takes::boolean, 0, false},
      {"client_mode_rssi", Takes::signed32, 0, false},
      {"ieee_std", Takes::integer32, 0, false},
      {"guest_network", Takes::boolean, 0, false}},
     {"id", "bssid"}},
    {"filter",
     {{"enabled", Takes::boolean, 0, true},
      {"description", Takes::string, 33, false},
      {"protocol", Takes::integer32, 0, true},
      {"type", Takes::integer32, 0, true},
      {"target", Takes::string, 201, true},
      {"port_start", Takes::signed32, 0, false},
      {"port_end", Takes::signed32, 0, false},
      {"policy", Takes::integer32, 0, false}},
     {"id"}},
    {"ipv6_acl_config",
     {{"interfaceID", Takes::string, 20, true},
      {"ip6_start_addr", Takes::string, 46, true},
      {"ip6_prefix_length", Takes::integer8, 0, true},
      {"enable", Takes::boolean, 0, true},
      {"service_any", Takes::boolean, 0, true},
      {"service_telnet", Takes::boolean, 0, false},
      {"service_ftp", Takes::boolean, 0, true},
      {"service_tftp", Takes::boolean, 0, true},
      {"service_http", Takes::boolean, 0, true},
      {"service_https", Takes::boolean, 0, true},
      {"service_ping", Takes::boolean, 0, true},
      {"service_ssh", Takes::boolean, 0, true}},
     {"id"}},
};

#if defined(__mips__) || defined(KELMORA_ADDRESS_SANITIZER) // emulated, or watched
constexpr int documents = 200;
#else
constexpr int documents = 1500;
#endif

/// What must be found, or was: the code, the pointer, and what is stored.
using Expected = std::tuple<std::string, std::string, std::string>;

/// A value to send: its JSON text, and what the model makes of it.
struct Sent {
    std::string json;
    std::string code;   ///< empty when nothing is lost
    std::string stored; ///< JSON text; "-" for nothing
};

class Random {
public:
    explicit Random(std::uint64_t seed) : engine_(seed) {}
    std::size_t below(std::size_t end) { return static_cast<std::size_t>(engine_() % end); }
    bool one_in(std::size_t chances) { return below(chances) == 0; }

private:
    std::mt19937_64 engine_;
};

std::int64_t wrapped(std::int64_t sent, Takes takes)
{
    switch (takes) {
    case Takes::integer8:
        return sent & 0xFF;
    case Takes::integer16:
        return sent & 0xFFFF;
    case Takes::integer32:
        return sent & 0xFFFFFFFF;
    default:
        return static_cast<std::int64_t>((static_cast<std::uint64_t>(sent) & 0xFFFFFFFFU) ^ 0x80000000U) - 0x80000000LL;
    }
}

Sent integer(Random &random, Takes takes)
{
    static constexpr std::int64_t interesting[] = {
        0,           1,           2,          -1,         7,          127,       128,        255,
        256,         257,         32768,      65535,      65536,      70000,     2147483647, 2147483648,
        -2147483648, -2147483649, 4294967295, 4294967296, 4294967301, INT64_MAX, INT64_MIN};
    const std::int64_t sent = interesting[random.below(std::size(interesting))];
    const std::int64_t stored = wrapped(sent, takes);
    return {std::to_string(sent), stored == sent ? "" : "wrapped", std::to_string(stored)};
}

Sent string(Random &random, std::size_t width)
{
    const std::size_t lengths[] = {0, 1, 5, width - 2, width - 1, width, width + 1, 3 * width};
    const std::size_t length = lengths[random.below(std::size(lengths))];
    const std::string text(length, static_cast<char>('a' + random.below(26)));
    const bool cut = length > width - 1;
    return {'"' + text + '"', cut ? "cut" : "", '"' + text.substr(0, width - 1) + '"'};
}

Sent of_another_type(Random &random, const ModelKey &key)
{
    static const std::vector<std::pair<Takes, const char *>> others{{Takes::boolean, "true"}, {Takes::boolean, "false"},
                                                                    {Takes::integer32, "7"},  {Takes::integer32, "0"},
                                                                    {Takes::string, "\"5\""}, {Takes::string, "\"\""}};
    static const std::vector<const char *> of_nobody{"null", "2.5", "1e2", "{}", "[]", "[1]", "{\"a\": 1}"};
    const std::string zero = key.takes == Takes::boolean ? "false" : key.takes == Takes::string ? "\"\"" : "0";
    if (random.one_in(2)) {
        const auto &[takes, json] = others[random.below(others.size())];
        const bool both_integers =
            takes == Takes::integer32 && key.takes != Takes::boolean && key.takes != Takes::string;
        if (takes != key.takes && !both_integers)
            return {json, "wrong-type", zero};
    }
    return {of_nobody[random.below(of_nobody.size())], "wrong-type", zero};
}

Sent value(Random &random, const ModelKey &key)
{
    if (random.one_in(3))
        return of_another_type(random, key);
    switch (key.takes) {
    case Takes::boolean:
        return random.one_in(2) ? Sent{"true", "", ""} : Sent{"false", "", ""};
    case Takes::string:
        return string(random, key.width);
    default:
        return integer(random, key.takes);
    }
}

/// A document, and what must be found in it.
struct Trial {
    std::vector<std::string> members;
    std::set<Expected> expected;
    bool rejected = false;

    void add(const std::string &key, const Sent &sent)
    {
        members.push_back('"' + key + "\": " + sent.json);
        if (!sent.code.empty())
            expected.insert({sent.code, "/" + key, sent.stored});
    }

    [[nodiscard]] std::string document() const
    {
        std::string text = "{";
        for (const std::string &member : members)
            text += (text.size() > 1 ? ", " : "") + member;
        return text + "}";
    }
};

Trial random_trial(Random &random, const Model &model)
{
    Trial trial;
    for (const ModelKey &key : model.keys) {
        const bool absent = key.required ? random.one_in(100) : random.one_in(2);
        if (absent) {
            trial.rejected = trial.rejected || key.required;
            continue;
        }
        if (random.one_in(20)) { // given twice: the first does not count
            trial.members.push_back(std::string("\"") + key.name + "\": null");
            trial.expected.insert({"repeated", std::string("/") + key.name, "-"});
        }
        trial.add(key.name, value(random, key));
    }
    for (const char *key : model.shown_only) {
        if (random.one_in(2))
            trial.add(key, {"\"x\"", "read-only", "-"});
    }
    if (random.one_in(4))
        trial.add("nobody's", {"{\"a\": [1]}", "unknown", "-"});
    if (random.one_in(4))
        trial.add("a~b/c", {"1", "unknown", "-"});
    return trial;
}

class FindingsOfRandomDocuments : public testing::TestWithParam<Model> {};

TEST_P(FindingsOfRandomDocuments, AreThoseOfTheModel)
{
    kelmora_json_init();
    const Resource &resource = *find_resource(GetParam().resource);
    const Registration &translators = *Registry::instance().find(resource.number);
    const Node node("0", blank_record(resource));
    Random random(static_cast<std::uint64_t>(resource.number));
    for (int i = 0; i < documents; ++i) {
        const Trial trial = random_trial(random, GetParam());
        const std::string document = trial.document();
        const Check found = check(resource, translators, node, document);
        if (trial.rejected) {
            EXPECT_EQ(found.result, CheckResult::rejected) << document;
            continue;
        }
        std::set<Expected> codes;
        bool lossy = false;
        for (const Finding &finding : found.findings) {
            std::string pointer = finding.pointer == "/a~0b~1c" ? "/a~b/c" : finding.pointer;
            codes.insert({std::string(finding.code), std::move(pointer), finding.stored.value_or("-")});
            lossy = lossy || finding.severity != Severity::note;
        }
        EXPECT_EQ(codes, trial.expected) << document;
        EXPECT_EQ(codes.size(), found.findings.size()) << document;
        EXPECT_EQ(found.result, lossy ? CheckResult::lossy : CheckResult::lossless) << document;
        EXPECT_TRUE(found.errors.empty()) << document;
        if (HasFailure())
            return;
    }
}

void PrintTo(const Model &model, std::ostream *out) { *out << model.resource; }

INSTANTIATE_TEST_SUITE_P(Of, FindingsOfRandomDocuments, testing::ValuesIn(models),
                         [](const auto &tested) { return std::string(tested.param.resource); });

} // namespace

} // namespace kelmora_host::findings_model_test
