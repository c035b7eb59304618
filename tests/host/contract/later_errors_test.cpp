#include "host/contract/later_errors.h"

#include "host/gateway/blank.h"

#include "kelmora_json.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace kelmora_host::later_errors_test {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;

/// "POINTER: MESSAGE" of each error behind the first one, of a document for a record of zeros.
std::vector<std::string> later(std::string_view name, const std::string &text)
{
    kelmora_json_init();
    const Resource &resource = *find_resource(name);
    const Record record = blank_record(resource);
    std::vector<std::string> lines;
    for (const LaterError &each : later_errors(resource, *Registry::instance().find(resource.number), record, text)) {
        std::string line = each.pointer;
        lines.push_back(line.append(": ").append(each.error.message));
    }
    return lines;
}

TEST(LaterErrors, AreThoseOfAllOtherRequiredKeysThatAreAbsent)
{
    EXPECT_THAT(later("qos", "{}"),
                ElementsAre("/global_download: download field not found", "/global_upload: upload field not found"));
    EXPECT_THAT(later("qos", R"({"global_download": 1})"), ElementsAre("/global_upload: upload field not found"));
}

TEST(LaterErrors, AreNoneWhereOneThingIsAtFault)
{
    EXPECT_THAT(later("qos", R"({"enabled": true, "global_upload": 1})"), IsEmpty());
}

TEST(LaterErrors, AreToldOfEachElementThatLacksAMember)
{
    EXPECT_THAT(later("wan_lan_list", R"({"wan_list": [], "lan_list": [{}, {"lan_id": "a"}]})"), Not(IsEmpty()));
    EXPECT_THAT(later("tr369_mqtt_client",
                      R"({"enabled": true, "brokeraddress": "a", "brokerport": 1, "username": "u", "password": "p",
                          "clientID": "c", "keep_alive_time": 1, "protocol_version": 1, "transport_protocol": 1,
                          "subscription": [{"enabled": true, "qos": 1}, {"topic": "t", "qos": 1},
                                           {"enabled": true, "topic": "t"}]})"),
                ElementsAre("/subscription/1/enabled: no enabled field", "/subscription/2/qos: no qos field"));
}

TEST(LaterErrors, AreNotThoseThatOnlyAValueOfTheSendersChoiceWouldBring)
{
    // With protocol 1 mqtt_config is required; without a protocol nobody knows.
    EXPECT_THAT(later("tr369_local_agent_mtp", R"({"enabled": true})"), IsEmpty());
    EXPECT_THAT(later("tr369_local_agent_mtp", R"({"protocol": 1})"),
                ElementsAre("/mqtt_config: mqtt_config field not found",
                            "/mqtt_config/reference: mqtt_config.reference field not found",
                            "/mqtt_config/reference_topic: mqtt_config.reference_topic field not found",
                            "/mqtt_config/qos: mqtt_config.qos field not found"));
}

TEST(LaterErrors, EndWithTheHundredth)
{
    std::string elements = "{}";
    for (int i = 0; i < 200; ++i)
        elements += ", {}";
    EXPECT_EQ(later("tr369_mqtt_client",
                    R"({"enabled": true, "brokeraddress": "a", "brokerport": 1, "username": "u", "password": "p",
                        "clientID": "c", "keep_alive_time": 1, "protocol_version": 1, "transport_protocol": 1,
                        "subscription": [)" +
                        elements + "]}")
                  .size(),
              most_later_errors);
}

/// Mending one after the other must come to an end, for every resource.
TEST(LaterErrors, TogetherWithTheFirstAreAllThatStandsBetweenAnEmptyDocumentAndAnAcceptedOne)
{
    kelmora_json_init();
    for (const Resource &resource : resources()) {
        if (is_raw(resource) || resource.directions == Directions::to_only)
            continue;
        const std::vector<LaterError> errors =
            later_errors(resource, *Registry::instance().find(resource.number), blank_record(resource), "{}");
        EXPECT_LT(errors.size(), most_later_errors) << resource.name;
        for (const LaterError &each : errors)
            EXPECT_EQ(std::ranges::count(errors, each.pointer, &LaterError::pointer), 1)
                << resource.name << each.pointer;
    }
}

} // namespace

} // namespace kelmora_host::later_errors_test
