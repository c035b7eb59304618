#include "host/cli/describe.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace kelmora_host::describe_test {

namespace {

using testing::HasSubstr;

constexpr Resource radio{5, "radio", "wireless", Directions::both};
constexpr Resource status{17, "status", "device", Directions::to_only};
constexpr Resource telnet{12, "telnet", "device", Directions::from_only};
constexpr Resource raw{64, "backup_restore", "device", Directions::both};
const Style plain(false);

InputKey power()
{
    InputKey key{};
    key.path = "/power";
    key.type = InputType::integer;
    key.required = true;
    key.bits = 8;
    key.absent = Error{"power", "power field not found", "json"};
    key.fields = {{"power", "uint8_t", 12, 1, "transmit power"}};
    return key;
}

OutputKey uptime()
{
    OutputKey key{};
    key.path = "/system/uptime";
    key.types = {OutputType::integer};
    key.bits = 32;
    key.fields = {{"uptime", "uint32_t", 0, 4, "seconds since start"}};
    return key;
}

Output writing(std::vector<OutputKey> keys)
{
    Output output{};
    output.keys = std::move(keys);
    return output;
}

TEST(ContractAsTables, HasATableForEachDirection)
{
    EXPECT_EQ(contract_as_tables({&radio, Input{{power()}}, writing({uptime()})}, plain),
              "radio writes an object, or a list of them where a list is asked for\n"
              "\n"
              "KEY       TYPE     RANGE          WRITTEN  C FIELD\n"
              "system\n"
              "  uptime  integer  0..4294967295  always   uint32_t uptime\n"
              "      seconds since start\n"
              "\n"
              "radio takes an object, whose keys are looked for in this order\n"
              "\n"
              "KEY    TYPE     RANGE   REQUIRED  C FIELD\n"
              "power  integer  0..255  yes       uint8_t power\n"
              "    transmit power; absent: \"power field not found\"\n");
}

TEST(ContractAsTables, NamesTheFieldOfAnErrorThatIsNotTheKey)
{
    InputKey key = power();
    key.absent = Error{"action", "action field not found", "power"};
    EXPECT_THAT(contract_as_tables({&radio, Input{{key}}, std::nullopt}, plain),
                HasSubstr("absent: \"action field not found\", field \"action\", source \"power\"\n"));
}

TEST(ContractAsTables, PutsConditionsBelow)
{
    InputKey key = power();
    key.required_when = {{"/protocol", "", {"1"}}};
    const std::string text = contract_as_tables({&radio, Input{{key}}, std::nullopt}, plain);
    EXPECT_THAT(text, HasSubstr("0..255  when ...  uint8_t power\n"));
    EXPECT_THAT(text, HasSubstr("required when protocol is 1"));
}

TEST(ContractAsTables, SaysWhatGoesOneWayOrNone)
{
    EXPECT_THAT(contract_as_tables({&status, std::nullopt, writing({uptime()})}, plain),
                HasSubstr("status is read-only: whatever it is sent is accepted, and nothing is stored\n"));
    EXPECT_THAT(contract_as_tables({&telnet, Input{{power()}}, std::nullopt}, plain),
                HasSubstr("telnet is write-only: nothing is written of it\n"));
    EXPECT_EQ(contract_as_tables({&raw, std::nullopt, std::nullopt}, plain),
              "backup_restore moves 8 raw bytes, no JSON\n");
}

TEST(ContractAsTables, AlignsColumnsUnderColours)
{
    const Contract contract{&radio, Input{{power()}}, std::nullopt};
    std::string coloured = contract_as_tables(contract, Style(true));
    std::string bare;
    for (std::size_t i = 0; i < coloured.size(); ++i) {
        if (coloured[i] == '\x1b')
            i = coloured.find('m', i);
        else
            bare += coloured[i];
    }
    EXPECT_EQ(bare, contract_as_tables(contract, plain));
    EXPECT_NE(bare, coloured);
}

TEST(FindKey, FindsKeysOfTheNameElseThoseThatHaveIt)
{
    const std::vector<Contract> contracts{{&radio, Input{{power()}}, writing({uptime()})}};
    EXPECT_EQ(find_key(contracts, "power", plain), "radio input /power: integer, 0..255; transmit power\n");
    EXPECT_EQ(find_key(contracts, "time", plain),
              "radio output /system/uptime: integer, 0..4294967295; seconds since start\n");
    EXPECT_EQ(find_key(contracts, "system", plain), "");
}

} // namespace

} // namespace kelmora_host::describe_test
