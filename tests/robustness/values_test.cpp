#include "tests/robustness/resources.h"

#include "tests/support/document.h"

#include "records/diagnostics.h"
#include "records/pon.h"

#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <jansson.h>
#include <limits>
#include <locale.h>
#include <memory>
#include <pthread.h>
#include <string>
#include <vector>

namespace kelmora_test::values_test {

namespace {

using kelmora_host::Record;
using testing::HasSubstr;
using testing::Not;

struct Release {
    void operator()(json_t *json) const { json_decref(json); }
};
using Json = std::unique_ptr<json_t, Release>;

std::string rendered(const json_t *json)
{
    char *text = json_dumps(json, JSON_ENCODE_ANY);
    std::string copy = text;
    std::free(text);
    return copy;
}

/// A place in a document that takes any value.
struct Location {
    std::string path; ///< for messages
    std::string name; ///< the member's; empty for an element and the root
    std::string before, value, after;
    std::size_t depth; ///< containers around the value

    [[nodiscard]] std::string with(const std::string &json) const { return before + json + after; }
};

/// All places of a document: its root, each member and the first element of each array, at any depth.
class Locations {
public:
    explicit Locations(const std::string &document) : root_(json_loads(document.c_str(), 0, nullptr))
    {
        locations_.push_back({"", "", "", rendered(root_.get()), "", 0});
        walk(root_.get(), "", 1);
    }

    [[nodiscard]] const std::vector<Location> &all() const { return locations_; }

private:
    void walk(json_t *json, const std::string &path, std::size_t depth)
    {
        const char *key = nullptr;
        json_t *value = nullptr;
        json_object_foreach(json, key, value)
        {
            const Json original(json_incref(value));
            const std::string name = key;
            json_object_set_new(json, key, json_string(marker));
            add(path + "." + name, name, original.get(), depth);
            json_object_set(json, key, original.get());
            walk(original.get(), path + "." + name, depth + 1);
        }
        if (json_array_size(json) != 0) {
            const Json original(json_incref(json_array_get(json, 0)));
            json_array_set_new(json, 0, json_string(marker));
            add(path + "[0]", "", original.get(), depth);
            json_array_set(json, 0, original.get());
            walk(original.get(), path + "[0]", depth + 1);
        }
    }

    void add(const std::string &path, const std::string &name, const json_t *original, std::size_t depth)
    {
        const std::string document = rendered(root_.get());
        const std::string quoted_marker = std::string("\"") + marker + '"';
        const std::size_t at = document.find(quoted_marker);
        locations_.push_back({path, name, document.substr(0, at), rendered(original),
                              document.substr(at + quoted_marker.size()), depth});
    }

    static constexpr char marker[] = "the place";
    Json root_;
    std::vector<Location> locations_;
};

/// What is stored can be written, in whatever state the document left it.
void expect_writable(const Resource &resource, Nodes &nodes)
{
    if (resource.directions == kelmora_host::Directions::from_only)
        return;
    const Written written = write_out(resource, nodes, false);
    EXPECT_EQ(written.result, 1);
    EXPECT_TRUE(parses(written.text)) << written.text;
}

class EveryValue : public testing::TestWithParam<Resource> {
protected:
    /// Reads the document, and writes what it left.
    static Answer read(const std::string &document)
    {
        const testing::TestResult &test = *testing::UnitTest::GetInstance()->current_test_info()->result();
        const int failures_before = test.total_part_count();
        Answer answer = read_in(GetParam(), document, {}, [](Nodes &nodes) { expect_writable(GetParam(), nodes); });
        EXPECT_EQ(test.total_part_count(), failures_before) << "with " << document.substr(0, 1000);
        return answer;
    }

    static void expect_unparsable(const std::string &document)
    {
        const Answer answer = read(document);
        EXPECT_EQ(answer.result, 0);
        EXPECT_EQ(answer.errors, (std::vector<kelmora_host::Error>{{"", "invalid json data", "json"}}))
            << document.substr(0, 1000);
    }

    const Locations locations_{example_of(GetParam())};
};

TEST_P(EveryValue, TakesEachKindOfValue)
{
    for (const Location &place : locations_.all()) {
        for (const char *json :
             {"{}", R"({"a": 1})", "[]", "[1]", "\"\"", "\"a\"", "1", "0.5", "true", "false", "null"})
            read(place.with(json));
    }
}

TEST_P(EveryValue, TakesIntegersAroundTheEdgesOfEachWidth)
{
    std::vector<std::string> integers = {
        "0", "-1", "9223372036854775806", "9223372036854775807", "-9223372036854775807", "-9223372036854775808"};
    for (const unsigned bits : {7U, 8U, 15U, 16U, 31U, 32U}) {
        const std::int64_t edge = std::int64_t{1} << bits;
        for (const std::int64_t number : {edge - 1, edge, edge + 1}) {
            integers.push_back(std::to_string(number));
            integers.push_back(std::to_string(-number));
        }
    }
    for (const Location &place : locations_.all()) {
        for (const std::string &integer : integers)
            read(place.with(integer));
        for (const char *too_large : {"9223372036854775808", "-9223372036854775809", "123456789012345678901234567890"})
            expect_unparsable(place.with(too_large));
    }
}

TEST_P(EveryValue, TakesRealsOutOfEachRange)
{
    for (const Location &place : locations_.all()) {
        for (const char *real :
             {"1e308", "-1e308", "4294967296.5", "-2147483649.5", "9223372036854775808.0", "-0.0", "1e-400", "5e-324"})
            read(place.with(real));
        for (const char *too_large : {"1e309", "-1e309"})
            expect_unparsable(place.with(too_large));
    }
}

TEST_P(EveryValue, TakesTextsOfAnyLength)
{
    for (const Location &place : locations_.all()) {
        for (const std::size_t length : {0U, 1U, slow ? 9000U : 65536U})
            read(place.with(quoted(length)));
    }
}

std::string list_of(const std::string &element, std::size_t count)
{
    std::string list = "[";
    for (std::size_t i = 0; i < count; ++i)
        list += (i == 0 ? "" : ",") + element;
    return list + "]";
}

TEST_P(EveryValue, TakesListsOfAnyLength)
{
    for (const Location &place : locations_.all()) {
        for (const char *element : {"null", "7", "\"a\"", "{}", "[]"}) {
            for (const std::size_t count : {0U, 1U, 2U, 20U})
                read(place.with(list_of(element, count)));
        }
        read(place.with(list_of("null", slow ? 1000 : 10000)));
    }
}

TEST_P(EveryValue, TakesListsOfManyElementsOfItsOwn)
{
    for (const Location &place : locations_.all()) {
        const Json value(json_loads(place.value.c_str(), JSON_DECODE_ANY, nullptr));
        if (json_array_size(value.get()) == 0)
            continue;
        const std::string element = rendered(json_array_get(value.get(), 0));
        for (const std::size_t count : {1U, 2U, 20U, slow ? 1000U : 10000U})
            read(place.with(list_of(element, count)));
    }
}

TEST_P(EveryValue, LetsTheLastOfSeveralMembersOfOneNameCount)
{
    const Answer plain = read(locations_.all().front().value);
    EXPECT_EQ(plain.result, 1);
    for (const Location &place : locations_.all()) {
        if (place.name.empty())
            continue;
        for (const char *earlier : {"null", "[1]", "\"a\"", "{\"a\": 1}"}) {
            const std::string twice = std::string(earlier) + ", \"" + place.name + "\": " + place.value;
            EXPECT_TRUE(read(place.with(twice)) == plain) << place.path;
        }
    }
}

TEST_P(EveryValue, IgnoresEmptyAndUnknownKeys)
{
    const Answer plain = read(locations_.all().front().value);
    for (const Location &place : locations_.all()) {
        // The body of http_request is stored whole.
        if (place.name.empty() || place.path.starts_with(".body."))
            continue;
        EXPECT_TRUE(read(place.with(place.value + ", \"\": [1], \"\": 2, \"nobody's\": {\"\": null}")) == plain)
            << place.path;
    }
}

/// Runs a function on a thread with a small stack.
void run_on_stack(std::size_t size, const std::function<void()> &function)
{
    pthread_attr_t attributes;
    pthread_t thread{};
    ASSERT_EQ(pthread_attr_init(&attributes), 0);
    ASSERT_EQ(pthread_attr_setstacksize(&attributes, size), 0);
    const auto start = [](void *argument) -> void * {
        (*static_cast<const std::function<void()> *>(argument))();
        return nullptr;
    };
    std::function<void()> copy = function;
    ASSERT_EQ(pthread_create(&thread, &attributes, start, &copy), 0);
    EXPECT_EQ(pthread_join(thread, nullptr), 0);
    pthread_attr_destroy(&attributes);
}

constexpr std::size_t small_stack = std::size_t{256} * 1024; ///< what hosts are told to give at least
constexpr std::size_t deepest = 2048;                        ///< of what jansson parses

std::string nested_arrays(std::size_t depth) { return std::string(depth, '[') + std::string(depth, ']'); }

std::string nested_objects(std::size_t depth)
{
    std::string text;
    for (std::size_t i = 1; i < depth; ++i)
        text += "{\"a\":";
    return text + "{}" + std::string(depth - 1, '}');
}

TEST_P(EveryValue, TakesDocumentsAsDeepAsTheParserAllowsOnASmallStack)
{
    run_on_stack(small_stack, [this] {
        auto nested = nested_arrays;
        const std::size_t step = slow ? 3 : 1;
        for (std::size_t i = 0; i < locations_.all().size(); i += step) {
            const Location &place = locations_.all()[i];
            const Answer answer = read(place.with(nested(deepest - place.depth)));
            for (const kelmora_host::Error &error : answer.errors)
                EXPECT_NE(error.message, "invalid json data") << place.path;
            expect_unparsable(place.with(nested(deepest - place.depth + 1)));
            nested = nested == nested_arrays ? nested_objects : nested_arrays; // in turn
        }
    });
}

INSTANTIATE_TEST_SUITE_P(Every, EveryValue, testing::ValuesIn(read_resources()), test_name);

TEST(DeepestBody, IsRenderedOnASmallStack)
{
    const Resource &resource = *kelmora_host::find_resource("http_request");
    run_on_stack(small_stack, [&] {
        for (const std::string &body : {nested_arrays(512), nested_objects(512)})
            EXPECT_EQ(read_in(resource, with(example_of(resource), "body", body)).result, 1);
    });
}

class LargeDocument : public testing::TestWithParam<const char *> {
protected:
    /// The example with this in front of its first member.
    std::string behind(const std::string &text) { return "{" + text + example_.substr(example_.find('{') + 1); }

    const Resource &resource_ = *kelmora_host::find_resource(GetParam());
    const std::string example_ = example_of(resource_);
};

constexpr std::size_t mebibytes = std::size_t{slow ? 1 : 10} << 20U;

TEST_P(LargeDocument, With100000UnknownKeysIsReadAsWithoutThem)
{
    std::string unknown;
    for (int i = 0; i < 100000; ++i)
        unknown += "\"unknown" + std::to_string(i) + "\": " + std::to_string(i) + ", ";
    EXPECT_TRUE(read_in(resource_, behind(unknown)) == read_in(resource_, example_));
}

TEST_P(LargeDocument, WithMebibytesOfTextIsReadAsWithoutIt)
{
    EXPECT_TRUE(read_in(resource_, behind("\"unknown\": " + quoted(mebibytes) + ", ")) == read_in(resource_, example_));
}

TEST_P(LargeDocument, WithMebibytesOfSpaceIsReadAsWithoutIt)
{
    EXPECT_TRUE(read_in(resource_, behind(std::string(mebibytes, ' '))) == read_in(resource_, example_));
}

INSTANTIATE_TEST_SUITE_P(Of, LargeDocument, testing::Values("radio", "easymesh", "http_request", "dhcp_server"));

TEST(LargeText, OfMebibytesIsCutToItsField)
{
    const Resource &radio = *kelmora_host::find_resource("ping");
    const Answer cut = read_in(radio, with(example_of(radio), "host", quoted(5000)));
    EXPECT_EQ(cut.result, 1);
    EXPECT_TRUE(read_in(radio, with(example_of(radio), "host", quoted(mebibytes))) == cut);
}

TEST(LargeText, OfMebibytesIsStoredAndWrittenWholeWhereThereIsNoLimit)
{
    const Resource &resource = *kelmora_host::find_resource("http_request");
    const std::string text = quoted(mebibytes);
    const std::string document = R"({"dest": "192.0.2.1", "method": 1, "body": [)" + text + "]}";
    const Answer answer = read_in(resource, document, {}, [&](Nodes &nodes) {
        const Written written = write_out(resource, nodes, false);
        EXPECT_EQ(written.result, 1);
        EXPECT_NE(written.text.find(R"("[\)" + text.substr(0, text.size() - 1) + R"(\"]")"), std::string::npos);
    });
    EXPECT_EQ(answer.result, 1);
    EXPECT_TRUE(answer.image.ends_with("[" + text + "]"));
}

/// The text of one record.
template <class T> std::string text_of(std::string_view resource, const T &record)
{
    Nodes nodes;
    nodes.emplace_back("0", Record(record));
    Written written = write_out(*kelmora_host::find_resource(resource), nodes, false);
    EXPECT_EQ(written.result, 1);
    EXPECT_TRUE(parses(written.text)) << written.text;
    return written.text;
}

constexpr double infinite = std::numeric_limits<double>::infinity();
constexpr double no_number = std::numeric_limits<double>::quiet_NaN();

TEST(UnusualReals, ThatJsonDoesNotHaveAreLeftOut)
{
    for (const double real : {infinite, -infinite, no_number, -no_number}) {
        const std::string ping = text_of(
            "ping", kelmora_ping{.max_time = real, .min_time = real, .avg_time = real, .packets_lost_percent = real});
        for (const char *key : {"max_time", "min_time", "avg_time", "packets_lost_percent"})
            EXPECT_THAT(ping, Not(HasSubstr(key)));
        EXPECT_THAT(ping, HasSubstr("packets_qty"));

        const std::string trace = text_of(
            "traceroute",
            kelmora_traceroute{.hop_list = kelmora_host::make_chain<kelmora_traceroute_hop>(
                                   {{.hop = 1, .rtt_1 = real, .rtt_2 = real, .rtt_3 = real, .next = nullptr}})});
        EXPECT_THAT(trace, Not(HasSubstr("rtt_")));
        EXPECT_THAT(trace, HasSubstr("\"hop\": 1"));

        const auto narrow = static_cast<float>(real);
        const std::string pon = text_of("pon_status", kelmora_pon_status{.bias_current = narrow,
                                                                         .rx_power = narrow,
                                                                         .temperature = narrow,
                                                                         .tx_power = narrow,
                                                                         .voltage = narrow});
        for (const char *key : {"bias_current", "rx_power", "temperature", "tx_power", "voltage"})
            EXPECT_THAT(pon, Not(HasSubstr(key)));
        EXPECT_THAT(pon, HasSubstr("current_mode"));
    }
}

/// As jansson alone writes it: some of its releases write all 17 digits, others as many as are needed.
std::string real(double value)
{
    const Json json(json_real(value));
    std::string text = rendered(json.get());
    EXPECT_EQ(std::strtod(text.c_str(), nullptr), value);
    return text;
}

TEST(UnusualReals, ThatJsonHasAreWrittenExactly)
{
    EXPECT_THAT(text_of("ping", kelmora_ping{.max_time = -0.0, .min_time = 5e-324}),
                AllOf(HasSubstr("\"max_time\": -0.0"), HasSubstr("\"min_time\": " + real(5e-324))));
    EXPECT_THAT(text_of("traceroute", kelmora_traceroute{.hop_list = kelmora_host::make_chain<kelmora_traceroute_hop>(
                                                             {{.rtt_1 = -0.0, .rtt_2 = 1e300, .next = nullptr}})}),
                AllOf(HasSubstr("-0.0"), HasSubstr(real(1e300))));
    EXPECT_THAT(
        text_of("pon_status", kelmora_pon_status{.bias_current = -0.0F, .voltage = std::numeric_limits<float>::max()}),
        AllOf(HasSubstr("\"bias_current\": -0.0"),
              HasSubstr("\"voltage\": " + real(std::numeric_limits<float>::max()))));
}

/// A locale whose decimal point is a comma, made for the test and set for the process.
class DecimalComma : public testing::Test {
protected:
    void SetUp() override
    {
        if (!std::filesystem::exists("/usr/share/i18n/charmaps"))
            GTEST_SKIP() << "no character maps to make a locale with a decimal comma of: the package locales has them";
        folder_ = std::filesystem::temp_directory_path() / ("decimal-comma-XXXXXX");
        std::string pattern = folder_.string();
        ASSERT_NE(mkdtemp(pattern.data()), nullptr);
        folder_ = pattern;
        std::ofstream(folder_ / "source") << "LC_NUMERIC\n"
                                             "decimal_point \"<U002C>\"\n"
                                             "thousands_sep \"<U002E>\"\n"
                                             "grouping 3;3\n"
                                             "END LC_NUMERIC\n";
        const char *order = *reinterpret_cast<const char *>(&one_) == 1 ? "--little-endian" : "--big-endian";
        // The other categories are missing, which makes localedef warn and fail though it writes the files.
        (void)std::system(
            ("cd " + pattern + " && localedef -c --no-archive " + order + " -i ./source ./comma >/dev/null 2>&1")
                .c_str());
        ASSERT_TRUE(std::filesystem::exists(folder_ / "comma" / "LC_NUMERIC"));
        ASSERT_EQ(setenv("LOCPATH", pattern.c_str(), 1), 0);
        ASSERT_NE(setlocale(LC_NUMERIC, "comma"), nullptr);
        ASSERT_STREQ(localeconv()->decimal_point, ",");
    }

    void TearDown() override
    {
        setlocale(LC_NUMERIC, "C");
        unsetenv("LOCPATH");
        if (!folder_.empty())
            std::filesystem::remove_all(folder_);
    }

private:
    static constexpr std::uint16_t one_ = 1;
    std::filesystem::path folder_;
};

TEST_F(DecimalComma, OfTheHostsLocaleDoesNotReachTheTexts)
{
    EXPECT_THAT(text_of("ping", kelmora_ping{.max_time = 31.5}), HasSubstr("\"max_time\": 31.5,"));
    EXPECT_THAT(text_of("pon_status", kelmora_pon_status{.rx_power = -17.25F}), HasSubstr("\"rx_power\": -17.25,"));
    for (const Resource &resource : written_resources()) {
        Nodes nodes = samples_of(resource);
        const std::string with_comma = write_out(resource, nodes, true).text;
        setlocale(LC_NUMERIC, "C");
        EXPECT_EQ(with_comma, write_out(resource, nodes, true).text);
        setlocale(LC_NUMERIC, "comma");
    }
}

TEST_F(DecimalComma, OfTheHostsLocaleDoesNotChangeWhatIsRead)
{
    const Resource &resource = *kelmora_host::find_resource("http_request");
    const Answer answer = read_in(resource, R"({"dest": "192.0.2.1", "method": 1, "body": [0.5, -1.25e3, 1e2]})");
    EXPECT_EQ(answer.result, 1);
    EXPECT_TRUE(answer.image.ends_with("[0.5, -1250.0, 100.0]"));
    EXPECT_EQ(read_in(resource, R"({"dest": "192.0.2.1", "method": 1, "body": [0,5.0.1]})").result, 0);
    for (const Resource &each : read_resources()) {
        const Answer with_comma = read_in(each, example_of(each));
        setlocale(LC_NUMERIC, "C");
        EXPECT_TRUE(with_comma == read_in(each, example_of(each))) << each.name;
        setlocale(LC_NUMERIC, "comma");
    }
}

} // namespace

} // namespace kelmora_test::values_test
