#include "tests/support/from_test.h"
#include "tests/support/to_test.h"

#include "host/plugin/lists.h"
#include "kelmora_json.h"
#include "records/firewall.h"

#include <algorithm>

namespace {

/// Whether the host says that it allocated all rules but leaves out the last.
bool forgets_a_rule = false;

} // namespace

// NOLINTBEGIN(bugprone-reserved-identifier): the names are the linker's
extern "C" {

int __real_kelmora_parental_control_allocate_list(kelmora_parental_control *record, uint32_t entries,
                                                  kelmora_errorlist *errors);

int __wrap_kelmora_parental_control_allocate_list(kelmora_parental_control *record, uint32_t entries,
                                                  kelmora_errorlist *errors)
{
    return __real_kelmora_parental_control_allocate_list(record, forgets_a_rule ? entries - 1 : entries, errors);
}
}
// NOLINTEND(bugprone-reserved-identifier)

namespace kelmora_test::parental_control_test {

namespace {

using testing::HasSubstr;

using Rule = kelmora_parental_control_rule;

/// A new record each time, as each node owns its chain.
kelmora_parental_control sample()
{
    return {
        .enabled = 1,
        .parental_control_list = kelmora_host::make_chain<Rule>({
            {
                .username = "Mia's tablet",
                .address_type = 1,
                .ip_address_from = "192.168.17.40",
                .ip_address_to = "192.168.17.41",
                .mac_address = "f4:0f:24:b1:66:03",
                .days = 62,
                .hours_begin = 20,
                .minutes_begin = 30,
                .hours_end = 6,
                .minutes_end = 45,
            },
            {.username = "Ben"},
        }),
    };
}

constexpr char sample_text[] =
    R"({"enabled": true, "parental_control_list": [{"username": "Mia's tablet", "address_type": 1, )"
    R"("ip_address_from": "192.168.17.40", "ip_address_to": "192.168.17.41", "mac_address": "f4:0f:24:b1:66:03", )"
    R"("days": 62, "hours_begin": 20, "minutes_begin": 30, "hours_end": 6, "minutes_end": 45}, )"
    R"({"username": "Ben", "address_type": 0, "ip_address_from": "", "ip_address_to": "", "mac_address": "", )"
    R"("days": 0, "hours_begin": 0, "minutes_begin": 0, "hours_end": 0, "minutes_end": 0}]})";

constexpr char empty_text[] = R"({"enabled": false, "parental_control_list": []})";

class ParentalControlTo : public ToTest<kelmora_parental_control> {
protected:
    ParentalControlTo() : ToTest(parental_control_to_translator) {}
};

TEST_F(ParentalControlTo, WritesTheKeysInOrderAndNoId)
{
    add("the id", sample());
    EXPECT_EQ(object(), sample_text);
}

TEST_F(ParentalControlTo, WritesAnEmptyChainAsAnEmptyArray)
{
    add("0");
    EXPECT_EQ(object(), empty_text);
    EXPECT_EQ(list(), empty_text);
}

TEST_F(ParentalControlTo, WritesAnySwitchButZeroAsTrue)
{
    expect_switches({{"enabled", &kelmora_parental_control::enabled}});
}

TEST_F(ParentalControlTo, WritesIntegersAsUnsigned)
{
    Rule &rule = *add("0", sample()).parental_control_list;
    rule.address_type = 4294967295;
    rule.days = 2147483648;
    rule.hours_begin = 255;
    rule.minutes_begin = 254;
    rule.hours_end = 253;
    rule.minutes_end = 128;
    const std::string text = object();
    EXPECT_THAT(text, HasSubstr(R"("address_type": 4294967295, )"));
    EXPECT_THAT(text, HasSubstr(R"("days": 2147483648, "hours_begin": 255, "minutes_begin": 254, )"
                                R"("hours_end": 253, "minutes_end": 128}, )"));
}

TEST_F(ParentalControlTo, CutsTextsToOneByteLessThanTheirField)
{
    Rule &rule = *add("0", sample()).parental_control_list;
    fill_whole(rule.username, 'u');
    fill_whole(rule.ip_address_from, '1');
    fill_whole(rule.ip_address_to, '2');
    fill_whole(rule.mac_address, 'm');
    EXPECT_THAT(object(), HasSubstr(R"([{"username": "uuuuuuuuuuuuuuuuuuuuuuuuuuuuuuu", "address_type": 1, )"
                                    R"("ip_address_from": "1111111111111111", "ip_address_to": "2222222222222222", )"
                                    R"("mac_address": "mmmmmmmmmmmmmmmmm", "days": 62)"));
}

TEST_F(ParentalControlTo, LeavesOutATextThatIsNotUtf8)
{
    Rule &rule = *add("0", sample()).parental_control_list;
    fill_whole(rule.username, 'u');
    rule.username[30] = '\xC3'; // the first byte of a character that the cut splits
    rule.username[31] = '\xA4';
    EXPECT_THAT(object(), HasSubstr(R"([{"address_type": 1, )"));
}

TEST_F(ParentalControlTo, WritesOtherScriptsAndSlashesAsTheyAre)
{
    set(add("0", sample()).parental_control_list->username, "Käthe/\"北\"");
    EXPECT_THAT(object(), HasSubstr("\"username\": \"Käthe/\\\"北\\\"\""));
}

TEST_F(ParentalControlTo, WritesManyRulesIntoALargerBuffer)
{
    kelmora_parental_control &control = add("0");
    std::string expected = R"({"enabled": false, "parental_control_list": [)";
    for (int i = 0; i < 40; ++i) {
        auto *rule = kelmora_host::make_chain<Rule>({{.username = "Ben"}});
        rule->next = control.parental_control_list;
        control.parental_control_list = rule;
        expected += R"({"username": "Ben", "address_type": 0, "ip_address_from": "", "ip_address_to": "", )"
                    R"("mac_address": "", "days": 0, "hours_begin": 0, "minutes_begin": 0, "hours_end": 0, )"
                    R"("minutes_end": 0})";
        expected += i < 39 ? ", " : "]}";
    }
    EXPECT_EQ(object(), expected);
    EXPECT_EQ(reallocations_, 1U);
}

constexpr char document[] = R"({
    "id": "never read", "enabled": true,
    "parental_control_list": [
        {
            "username": "Ben's phone", "address_type": 2, "ip_address_from": "10.40.0.5", "ip_address_to": "10.40.0.9",
            "mac_address": "0c:d7:46:2e:90:5b", "days": 127, "hours_begin": 21, "minutes_begin": 15, "hours_end": 7,
            "minutes_end": 5
        },
        {
            "username": "Console", "address_type": 0, "ip_address_from": "10.40.0.7", "ip_address_to": "",
            "mac_address": "", "days": 65, "hours_begin": 22, "minutes_begin": 1, "hours_end": 9, "minutes_end": 2
        }
    ]
})";

constexpr char list_name[] = "parental_control_list";

/// The members of a rule, in the order in which they are read.
const std::vector<std::string> members = {"username",    "address_type", "ip_address_from", "ip_address_to",
                                          "mac_address", "days",         "hours_begin",     "minutes_begin",
                                          "hours_end",   "minutes_end"};

const std::vector<std::string> texts = {"username", "ip_address_from", "ip_address_to", "mac_address"};

bool is_string(const std::string &member) { return std::find(texts.begin(), texts.end(), member) != texts.end(); }

class ParentalControlFrom : public FromTest<kelmora_parental_control> {
protected:
    ParentalControlFrom() : FromTest(parental_control_from_translator, document) {}

    Rule &rule() { return *record().parental_control_list; }

    std::size_t length()
    {
        std::size_t length = 0;
        for (const Rule *rule = record().parental_control_list; rule != nullptr; rule = rule->next)
            ++length;
        return length;
    }

    /// Whether the first rule holds the first so many members of the document, and the others are as the host made
    /// them.
    testing::AssertionResult holds(std::size_t count)
    {
        if (length() == 0)
            return testing::AssertionFailure() << "no rule";
        const Rule &stored = rule();
        const std::vector<bool> is_stored = {
            std::string(stored.username) == "Ben's phone",
            stored.address_type == 2,
            std::string(stored.ip_address_from) == "10.40.0.5",
            std::string(stored.ip_address_to) == "10.40.0.9",
            std::string(stored.mac_address) == "0c:d7:46:2e:90:5b",
            stored.days == 127,
            stored.hours_begin == 21,
            stored.minutes_begin == 15,
            stored.hours_end == 7,
            stored.minutes_end == 5,
        };
        const std::vector<bool> is_clear = {
            std::string(stored.username).empty(),
            stored.address_type == 0,
            std::string(stored.ip_address_from).empty(),
            std::string(stored.ip_address_to).empty(),
            std::string(stored.mac_address).empty(),
            stored.days == 0,
            stored.hours_begin == 0,
            stored.minutes_begin == 0,
            stored.hours_end == 0,
            stored.minutes_end == 0,
        };
        for (std::size_t i = 0; i < members.size(); ++i) {
            if (!(i < count ? is_stored : is_clear)[i])
                return testing::AssertionFailure() << members[i];
        }
        return testing::AssertionSuccess();
    }

    /// A member of the first rule is cut to its field, and the rest of the field filled with NULs.
    template <std::size_t width> void expect_rule_text(const std::string &member, char (Rule::*field)[width])
    {
        for (const std::size_t length : {std::size_t{0}, std::size_t{1}, width - 2, width - 1, width, width + 1}) {
            poison();
            EXPECT_TRUE(accepts(with(document, std::string(list_name) + ".0." + member, quoted(length))));
            std::string expected = quoted(length).substr(1, std::min(length, width - 1));
            expected.resize(width, '\0');
            ASSERT_EQ(this->length(), 2U);
            EXPECT_EQ(std::string(rule().*field, width), expected) << member << " with " << length << " characters";
        }
    }

    /// A member of the first rule is cut to its low bits.
    template <class Integer>
    void expect_rule_integer(const std::string &member, Integer Rule::*field,
                             const std::vector<std::pair<std::string, Integer>> &cases)
    {
        for (const auto &[json, expected] : cases) {
            poison();
            EXPECT_TRUE(accepts(with(document, std::string(list_name) + ".0." + member, json)));
            ASSERT_EQ(length(), 2U);
            EXPECT_EQ(rule().*field, expected) << member << ": " << json;
        }
    }
};

TEST_F(ParentalControlFrom, StoresEveryKey)
{
    EXPECT_TRUE(accepts(document));
    EXPECT_EQ(record().enabled, 1);
    ASSERT_EQ(length(), 2U);
    EXPECT_TRUE(holds(10));
    const Rule &second = *rule().next;
    EXPECT_STREQ(second.username, "Console");
    EXPECT_EQ(second.address_type, 0U);
    EXPECT_STREQ(second.ip_address_from, "10.40.0.7");
    EXPECT_STREQ(second.ip_address_to, "");
    EXPECT_STREQ(second.mac_address, "");
    EXPECT_EQ(second.days, 65U);
    EXPECT_EQ(second.hours_begin, 22);
    EXPECT_EQ(second.minutes_begin, 1);
    EXPECT_EQ(second.hours_end, 9);
    EXPECT_EQ(second.minutes_end, 2);
}

TEST_F(ParentalControlFrom, AsksForTheSwitchFirst)
{
    for (const char *text : {"{}", "[]", "[true]", R"({"parental_control_list": []})"}) {
        EXPECT_TRUE(rejects(text, "enabled", "field not found"));
        EXPECT_TRUE(untouched(record().enabled));
    }
    EXPECT_TRUE(rejects("[" + std::string(document) + "]", "enabled", "field not found"));
    EXPECT_EQ(length(), 0U);
}

TEST_F(ParentalControlFrom, TakesOnlyBooleansForTheSwitch)
{
    for (const char *other : {"1", "0", "1.0", "\"true\"", "null", "{}", "[true]"}) {
        EXPECT_TRUE(rejects(with(document, "enabled", other), "enabled", "data type must be a valid boolean"));
        EXPECT_TRUE(untouched(record().enabled));
        EXPECT_EQ(length(), 0U);
    }
    EXPECT_TRUE(accepts(with(document, "enabled", "false")));
    EXPECT_EQ(record().enabled, 0);
    EXPECT_TRUE(accepts(document));
    EXPECT_EQ(record().enabled, 1);
}

TEST_F(ParentalControlFrom, AsksForTheListAndKeepsTheSwitch)
{
    EXPECT_TRUE(rejects(without(document, list_name), list_name, "field not found"));
    EXPECT_EQ(record().enabled, 1);
    for (const char *other : {"1", "1.0", "true", "\"[]\"", "null", "{}"}) {
        poison();
        EXPECT_TRUE(rejects(with(document, list_name, other), list_name, "data type must be a valid array"));
        EXPECT_EQ(record().enabled, 1);
        EXPECT_EQ(length(), 0U);
    }
}

TEST_F(ParentalControlFrom, KeepsTheRulesWhenTheListIsEmpty)
{
    Rule *chain = kelmora_host::make_chain<Rule>({{.username = "old"}, {.username = "older"}});
    record().parental_control_list = chain;
    EXPECT_TRUE(accepts(with(document, list_name, "[]")));
    EXPECT_EQ(record().enabled, 1);
    EXPECT_EQ(record().parental_control_list, chain);
    EXPECT_EQ(length(), 2U);
    EXPECT_STREQ(rule().username, "old");
}

TEST_F(ParentalControlFrom, HasTheHostReplaceTheRules)
{
    record().parental_control_list =
        kelmora_host::make_chain<Rule>({{.username = "a"}, {.username = "b"}, {.username = "c"}});
    EXPECT_TRUE(accepts(document));
    EXPECT_EQ(length(), 2U);
    EXPECT_TRUE(holds(10));
}

TEST_F(ParentalControlFrom, StoresAnyNumberOfRules)
{
    for (std::size_t count = 1; count <= 20; ++count) {
        poison();
        std::string json = "[";
        for (std::size_t i = 0; i < count; ++i)
            json += (i == 0 ? "" : ", ") + (R"({"username": "user )" + std::to_string(i)) +
                    R"(", "address_type": 1, "ip_address_from": "", "ip_address_to": "", "mac_address": "", )"
                    R"("days": 1, "hours_begin": 1, "minutes_begin": 1, "hours_end": 1, "minutes_end": )" +
                    std::to_string(i) + "}";
        EXPECT_TRUE(accepts(with(document, list_name, json + "]")));
        ASSERT_EQ(length(), count);
        std::size_t i = 0;
        for (const Rule *rule = record().parental_control_list; rule != nullptr; rule = rule->next, ++i) {
            EXPECT_EQ(rule->username, "user " + std::to_string(i));
            EXPECT_EQ(rule->minutes_end, i);
        }
    }
}

TEST_F(ParentalControlFrom, LeavesItToTheHostToReportThatItHasNoRoom)
{
    record().parental_control_list = kelmora_host::make_chain<Rule>({{.username = "old"}});
    const kelmora_host::ListLimit limit(2);
    EXPECT_TRUE(rejects(with(document, list_name, "[0, 0, 0]"), list_name, "no room for the list", "host"));
    EXPECT_EQ(record().enabled, 1);
}

TEST_F(ParentalControlFrom, AsksForTheMembersOfARuleInOrderAndKeepsThoseBefore)
{
    for (std::size_t i = members.size(); i-- > 0;) {
        const std::string path = std::string(list_name) + ".0." + members[i];
        poison();
        EXPECT_TRUE(rejects(without(document, path), members[i], "field not found"));
        EXPECT_EQ(record().enabled, 1);
        EXPECT_EQ(length(), 2U);
        EXPECT_TRUE(holds(i));
        EXPECT_STREQ(rule().next->username, "");
        std::vector<std::string> this_and_later;
        for (std::size_t j = i; j < members.size(); ++j)
            this_and_later.push_back(std::string(list_name) + ".0." + members[j]);
        EXPECT_TRUE(rejects(without_all(document, this_and_later), members[i], "field not found"));
    }
}

TEST_F(ParentalControlFrom, ChecksTheTypeOfTheMembersOfARuleAndKeepsThoseBefore)
{
    for (std::size_t i = 0; i < members.size(); ++i) {
        const std::string path = std::string(list_name) + ".0." + members[i];
        std::vector<std::string> others = {"1.0", "true", "false", "null", "{}", "[]", "[1]"};
        others.emplace_back(is_string(members[i]) ? "1" : "\"1\"");
        for (const std::string &other : others) {
            poison();
            EXPECT_TRUE(rejects(with(document, path, other), members[i],
                                is_string(members[i]) ? "data type must be a valid string"
                                                      : "data type must be a valid integer"));
            EXPECT_EQ(length(), 2U);
            EXPECT_TRUE(holds(i)) << path << ": " << other;
        }
    }
}

TEST_F(ParentalControlFrom, AFailingRuleKeepsTheOnesBeforeIt)
{
    EXPECT_TRUE(rejects(without(document, "parental_control_list.1.days"), "days", "field not found"));
    EXPECT_EQ(length(), 2U);
    EXPECT_TRUE(holds(10));
    EXPECT_STREQ(rule().next->ip_address_from, "10.40.0.7");
    EXPECT_EQ(rule().next->days, 0U);
    EXPECT_EQ(rule().next->hours_begin, 0);
}

TEST_F(ParentalControlFrom, ARuleThatIsNoObjectLacksItsUser)
{
    for (const char *other : {"null", "1", "1.5", "true", "\"Ben\"", "[]", R"(["username"])", "{}"}) {
        poison();
        EXPECT_TRUE(rejects(with(document, list_name, "[" + std::string(other) + "]"), "username", "field not found"));
        EXPECT_EQ(length(), 1U);
        EXPECT_TRUE(holds(0));
    }
}

TEST_F(ParentalControlFrom, EndsAtTheRuleThatTheHostDidNotAllocate)
{
    forgets_a_rule = true;
    EXPECT_TRUE(rejects(document, list_name, "out of memory"));
    forgets_a_rule = false;
    EXPECT_EQ(length(), 1U);
    EXPECT_TRUE(holds(10));
}

TEST_F(ParentalControlFrom, CutsTextsToTheirField)
{
    expect_rule_text("username", &Rule::username);
    expect_rule_text("ip_address_from", &Rule::ip_address_from);
    expect_rule_text("ip_address_to", &Rule::ip_address_to);
    expect_rule_text("mac_address", &Rule::mac_address);
}

TEST_F(ParentalControlFrom, CutsIntegersToTheirWidth)
{
    const std::vector<std::pair<std::string, std::uint32_t>> wide = {{"0", 0},
                                                                     {"4294967295", 4294967295},
                                                                     {"-1", 4294967295},
                                                                     {"4294967301", 5},
                                                                     {"9223372036854775807", 4294967295}};
    expect_rule_integer("address_type", &Rule::address_type, wide);
    expect_rule_integer("days", &Rule::days, wide);
    const std::vector<std::pair<std::string, std::uint8_t>> narrow = {
        {"0", 0}, {"255", 255}, {"300", 44}, {"256", 0}, {"-1", 255}, {"9223372036854775807", 255}};
    expect_rule_integer("hours_begin", &Rule::hours_begin, narrow);
    expect_rule_integer("minutes_begin", &Rule::minutes_begin, narrow);
    expect_rule_integer("hours_end", &Rule::hours_end, narrow);
    expect_rule_integer("minutes_end", &Rule::minutes_end, narrow);
}

TEST_F(ParentalControlFrom, StoresWhatItGivesOut)
{
    EXPECT_TRUE(accepts(sample_text));
    ASSERT_EQ(length(), 2U);
    EXPECT_STREQ(rule().username, "Mia's tablet");
    EXPECT_EQ(rule().minutes_end, 45);
    EXPECT_STREQ(rule().next->username, "Ben");
}

} // namespace

} // namespace kelmora_test::parental_control_test
