#include "host/contract/trace.h"

#include "host/gateway/blank.h"
#include "host/plugin/registry.h"

#include "kelmora_json.h"
#include "kelmora_records.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <optional>
#include <string>
#include <vector>

namespace kelmora_host::trace_test {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// A document, where its values are, and what the plug-in does with it.
class Traced {
public:
    Traced(std::string_view name, std::string text) : text_(std::move(text)), document_(*Positions::parse(text_))
    {
        kelmora_json_init();
        const Resource &resource = *find_resource(name);
        trace = kelmora_host::trace(resource, *Registry::instance().find(resource.number),
                                    Node("0", blank_record(resource)), text_, document_);
    }

    /// "POINTER = FIELD:VALUE, ..." of each step.
    [[nodiscard]] std::vector<std::string> steps() const
    {
        std::vector<std::string> lines;
        for (const Step &step : trace.steps) {
            std::string line = step.pointer() + (step.value != nullptr ? " =" : " absent");
            for (const Stored &stored : step.stored)
                line += " " + stored.path + ":" + stored.json();
            lines.push_back(line);
        }
        return lines;
    }

    Trace trace{};

private:
    std::string text_;
    Positions document_;
};

TEST(Trace, HasEachLookUpInItsOrderWithWhereTheValueWent)
{
    EXPECT_THAT(Traced("qos", R"({"global_upload": 3, "global_download": 2, "enabled": true})").steps(),
                ElementsAre("/enabled = enabled:true", "/global_download = global_download:2",
                            "/global_upload = global_upload:3"));
}

TEST(Trace, FindsWhereValuesGoThatAreStoredAlready)
{
    EXPECT_THAT(Traced("qos", R"({"global_upload": 0, "global_download": 0, "enabled": false})").steps(),
                ElementsAre("/enabled = enabled:false", "/global_download = global_download:0",
                            "/global_upload = global_upload:0"));
}

TEST(Trace, FollowsValuesIntoElementsOfArraysAndChains)
{
    EXPECT_THAT(
        Traced("limits", R"({"wifi_limits": [{"radio_id": "a", "value": 1}, {"value": 2}]})").steps(),
        testing::IsSupersetOf({"/wifi_limits/0/radio_id = wifi_limits[1].radio_id:\"a\"",
                               "/wifi_limits/0/value = wifi_limits[1].value:1", "/wifi_limits/1/radio_id absent",
                               "/wifi_limits/1/value = wifi_limits[0].value:2"}));
    EXPECT_THAT(Traced("loop_back_detect", R"({"enabled": true, "detection_interval": 1, "recovery_interval": 2,
                                               "frame_type": "0x88A8", "vlan_list": [7, 8]})")
                    .steps(),
                testing::IsSupersetOf({"/frame_type = frame_type:34984", "/vlan_list/0 = vlan_list[0].vlan_id:7",
                                       "/vlan_list/1 = vlan_list[1].vlan_id:8"}));
}

TEST(Trace, FollowsValuesIntoTheAlternativeThatTheyAreFor)
{
    EXPECT_THAT(
        Traced("tr369_local_agent_controller",
               R"({"enabled": true, "endpoint_id": "e", "periodic_notific_interval": 1, "mtp": [{"enabled": true,
                           "protocol": 1, "mqtt": {"reference": "r", "reference_topic": "t"}}]})")
            .steps(),
        testing::IsSupersetOf(
            {"/mtp/0/protocol = mtp[0].protocol:1", "/mtp/0/mqtt/reference = mtp[0].variant.mqtt.reference:\"r\""}));
}

TEST(Trace, EndsAtTheKeyThatFailed)
{
    const Traced traced("qos", R"({"enabled": true})");
    EXPECT_EQ(traced.trace.result, 0);
    EXPECT_THAT(traced.steps(), ElementsAre("/enabled = enabled:true", "/global_download absent"));
    ASSERT_EQ(traced.trace.errors.size(), 1U);
    EXPECT_EQ(traced.trace.errors[0].error, (Error{"download", "download field not found", "json"}));
    EXPECT_EQ(traced.trace.errors[0].step, 1U);
}

TEST(Trace, KnowsAsWhatAValueWasRead)
{
    const Traced traced("ipv6_radvd",
                        R"({"max_rtr_adv_interval": 1, "min_rtr_adv_interval": 2, "adv_managed_flag": true,
        "ipv6_prefix_mode_auto": true, "ipv6_prefix": {"prefix": "p", "prefix_size": 64, "adv_valid_lifetime": 7}})");
    for (const Step &step : traced.trace.steps) {
        if (step.key == "max_rtr_adv_interval") {
            EXPECT_TRUE(step.uses.contains(Use::integer));
        } else if (step.key == "adv_managed_flag") {
            EXPECT_TRUE(step.uses.empty());
        } else if (step.key == "ipv6_prefix") {
            EXPECT_TRUE(step.uses.contains(Use::object));
        } else if (step.key == "prefix") {
            EXPECT_TRUE(step.uses.contains(Use::string));
        } else if (step.key == "adv_valid_lifetime") {
            EXPECT_TRUE(step.uses.contains(Use::number));
        }
    }
}

TEST(Trace, CountsTheEntriesBeforeAndAfter)
{
    const Traced traced("limits", R"({"wifi_limits": [{}, {}]})");
    EXPECT_EQ(traced.trace.entries_before.at("wifi_limits"), 0U);
    EXPECT_EQ(traced.trace.entries_after.at("wifi_limits"), 2U);
}

TEST(Trace, HasTheFieldsThatAreMarkedAsMissing)
{
    EXPECT_THAT(Traced("device", R"({"leds": true, "alias": "a"})").trace.missing, ElementsAre(4, 5, 7));
}

TEST(Trace, LooksForNothingInAResourceThatIsReadOnly)
{
    EXPECT_THAT(Traced("status", R"({"id": 1})").trace.steps, IsEmpty());
}

TEST(Stored, IsAnIntegerOfTheFieldsWidthAndSign)
{
    const RecordType &lease = *record_type("action");
    const Stored unsigned_word{"actionID", lease.find("actionID"), 0, std::string(4, '\xFF'), std::nullopt};
    EXPECT_EQ(unsigned_word.integer(), 4294967295);
    const Stored signed_word{"pressedTime", record_type("factory_default")->find("pressedTime"), 0,
                             std::string(4, '\xFF'), std::nullopt};
    EXPECT_EQ(signed_word.integer(), -1);
    EXPECT_EQ(signed_word.json(), "-1");
}

TEST(Stored, IsAStringWithoutTheBytesThatACutLeft)
{
    const Field &username = *record_type("user")->find("username");
    EXPECT_EQ((Stored{"username", &username, 0, std::string("a\0b", 3), std::nullopt}.json()), "\"a\"");
    EXPECT_EQ((Stored{"username", &username, 0, "a\xC3", std::nullopt}.json()), "\"a\xEF\xBF\xBD\"");
    EXPECT_EQ((Stored{"username", &username, 0, "\xE2\x82", std::nullopt}.json()), "\"\xEF\xBF\xBD\"");
}

} // namespace

} // namespace kelmora_host::trace_test
