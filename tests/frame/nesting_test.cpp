#include "frame/nesting.h"

#include <gtest/gtest.h>
#include <string>

namespace kelmora {

namespace {

TEST(NestingOfMember, CountsTheObjectsAndArraysInTheMember)
{
    EXPECT_EQ(nesting_of_member(R"({"body": 1})", "body"), 0U);
    EXPECT_EQ(nesting_of_member(R"({"body": {}})", "body"), 1U);
    EXPECT_EQ(nesting_of_member(R"({"body": []})", "body"), 1U);
    EXPECT_EQ(nesting_of_member(R"({"body": [{"a": [1]}, {}, [[]]]})", "body"), 3U);
    EXPECT_EQ(nesting_of_member("\n{ \"body\"\t:\r[ [ ] ] }\n", "body"), 2U);
}

TEST(NestingOfMember, IsZeroForAnAbsentMember)
{
    EXPECT_EQ(nesting_of_member("{}", "body"), 0U);
    EXPECT_EQ(nesting_of_member("[]", "body"), 0U);
    EXPECT_EQ(nesting_of_member(R"([{"body": [[]]}])", "body"), 0U);
}

TEST(NestingOfMember, LeavesOtherMembersOut)
{
    EXPECT_EQ(nesting_of_member(R"({"a": [[[]]], "body": [[]], "z": [[[[]]]]})", "body"), 2U);
    EXPECT_EQ(nesting_of_member(R"({"bod": [[]], "bodyy": [[]], "Body": [[]], "": [[]]})", "body"), 0U);
    EXPECT_EQ(nesting_of_member(R"({"a": {"body": [[]]}, "b": [{"body": [[]]}], "body": []})", "body"), 1U);
}

TEST(NestingOfMember, TakesNoValueForAName)
{
    EXPECT_EQ(nesting_of_member(R"({"a": "body", "b": [[]]})", "body"), 0U);
    EXPECT_EQ(nesting_of_member(R"({"a": ["body", [[]]], "body": {"x": "body"}})", "body"), 1U);
}

TEST(NestingOfMember, TakesNoBracketsInStringsForNesting)
{
    EXPECT_EQ(nesting_of_member(R"({"body": ["[[[", "\"[{", "\\", "}]"]})", "body"), 1U);
    EXPECT_EQ(nesting_of_member(R"({"{\"[": "]}", "body": {"[": 1}})", "body"), 1U);
}

TEST(NestingOfMember, GoesByTheLastOfSeveral)
{
    EXPECT_EQ(nesting_of_member(R"({"body": [[[]]], "body": []})", "body"), 1U);
    EXPECT_EQ(nesting_of_member(R"({"body": [], "body": [[[]]]})", "body"), 3U);
    EXPECT_EQ(nesting_of_member(R"({"body": [[]], "a": [[[]]], "body": 1})", "body"), 0U);
}

TEST(NestingOfMember, TakesANameWithAnEscapeForTheMembers)
{
    EXPECT_EQ(nesting_of_member(R"({"b\u006fdy": [[]]})", "body"), 2U);
    EXPECT_EQ(nesting_of_member(R"({"body": [[]], "b\u006fdy": []})", "body"), 2U);
    EXPECT_EQ(nesting_of_member(R"({"b\u006fdy": [[]], "body": []})", "body"), 1U);
}

TEST(NestingOfMember, CountsAsDeepAsTheDocumentIs)
{
    const std::string levels(100000, '[');
    EXPECT_EQ(nesting_of_member((R"({"body": )" + levels + std::string(100000, ']') + "}").c_str(), "body"), 100000U);
}

} // namespace

} // namespace kelmora
