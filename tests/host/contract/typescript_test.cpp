#include "host/contract/typescript.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace kelmora_host::typescript_test {

namespace {

using testing::HasSubstr;

constexpr Resource bridging{77, "bridging", "wan_lan", Directions::both};
constexpr Resource tr069_config{53, "tr069_config", "remote_mgmt", Directions::both};

InputKey in(std::string path, InputType type, bool required = false)
{
    InputKey key{};
    key.path = std::move(path);
    key.type = type;
    key.required = required;
    return key;
}

OutputKey out(std::string path, OutputType type)
{
    OutputKey key{};
    key.path = std::move(path);
    key.types = {type};
    return key;
}

std::string of(const Resource &resource, std::vector<InputKey> keys)
{
    return typescript({{&resource, Input{std::move(keys)}, std::nullopt}});
}

TEST(Typescript, NamesTypesByResourceAndDirection)
{
    Output output{};
    output.keys = {out("/url", OutputType::string)};
    const std::string text = typescript({{&tr069_config, Input{{in("/url", InputType::string, true)}}, output}});
    EXPECT_THAT(text, HasSubstr("export interface Tr069ConfigOutput {\n  url: string;\n}\n"));
    EXPECT_THAT(text, HasSubstr("export interface Tr069ConfigInput {\n  url: string;\n}\n"));
    EXPECT_THAT(text, HasSubstr("  tr069_config: {\n"
                                "    /** One record. */\n    output: Tr069ConfigOutput;\n"
                                "    /** The whole text. */\n"
                                "    text: Tr069ConfigOutput | Tr069ConfigOutput[];\n"
                                "    input: Tr069ConfigInput;\n  };\n"));
}

TEST(Typescript, QuotesKeysThatAreNoIdentifiers)
{
    EXPECT_THAT(of(bridging, {in("/802_1_d_spanning_tree", InputType::boolean)}),
                HasSubstr("  \"802_1_d_spanning_tree\"?: boolean;\n"));
}

TEST(Typescript, CommentsEachKeyWithMeaningAndRange)
{
    InputKey time = in("/time", InputType::integer);
    time.bits = 32;
    time.fields = {{"time", "uint32_t", 0, 4, "how long, in seconds"}};
    EXPECT_THAT(of(bridging, {time}), HasSubstr("  /** How long, in seconds; 0..4294967295. */\n  time?: number;\n"));
}

TEST(Typescript, LetsNoMeaningEndItsComment)
{
    InputKey odd = in("/odd", InputType::integer);
    odd.fields = {{"odd", "int", 0, 4, "*/ export {}"}};
    EXPECT_THAT(of(bridging, {odd}), HasSubstr("/** *\\/ export {}. */\n"));
}

TEST(Typescript, NestsObjectsAndLists)
{
    EXPECT_THAT(of(bridging, {in("/list", InputType::array, true), in("/list/*", InputType::object),
                              in("/list/*/port", InputType::integer, true), in("/names", InputType::array),
                              in("/names/*", InputType::string), in("/empty", InputType::array)}),
                HasSubstr("  list: Array<{\n    port: number;\n  }>;\n"
                          "  names?: Array<string>;\n"
                          "  empty?: unknown[];\n"));
}

TEST(Typescript, NamesTheElementsOfAListThatListsWithinThemHaveAsWell)
{
    OutputKey inner = out("/neighbors/*/neighbors", OutputType::array);
    inner.like = "/neighbors";
    Output output{};
    output.keys = {out("/neighbors", OutputType::array), out("/neighbors/*", OutputType::object), inner};
    EXPECT_THAT(typescript({{&bridging, std::nullopt, output}}),
                HasSubstr("export interface BridgingOutputNeighbors {\n  neighbors: BridgingOutputNeighbors[];\n}\n"));
}

TEST(Typescript, ForbidsRefusedKeysAndSaysWhenOthersAreRequired)
{
    InputKey order = in("/order", InputType::any);
    order.refused = true;
    InputKey config = in("/config", InputType::object);
    config.required_when = {{"/protocol", "", {"1"}}};
    const std::string text = of(bridging, {order, config});
    EXPECT_THAT(text, HasSubstr("  /** Must not be there. */\n  order?: never;\n"));
    EXPECT_THAT(text, HasSubstr("  /** Required: when protocol is 1. */\n  config?: object;\n"));
}

} // namespace

} // namespace kelmora_host::typescript_test
