#include "frame/nesting.h"

#include <gtest/gtest.h>
#include <string>

namespace kelmora::nesting_test {

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

TEST(NestingOfMember, DecodesTheEscapesOfAName)
{
    EXPECT_EQ(nesting_of_member(R"({"b\u006fdy": [[]]})", "body"), 2U);
    EXPECT_EQ(nesting_of_member(R"({"\u0062\u006F\u0064\u0079": [[]]})", "body"), 2U);
    EXPECT_EQ(nesting_of_member(R"({"body": [[]], "b\u006fdy": []})", "body"), 1U);
    EXPECT_EQ(nesting_of_member(R"({"b\u006fdy": [[]], "body": []})", "body"), 1U);
    EXPECT_EQ(nesting_of_member(R"({"a\/b": [[]]})", "a/b"), 2U);
    EXPECT_EQ(nesting_of_member(R"({"\b\f\n\r\t\"\\": [[]]})", "\b\f\n\r\t\"\\"), 2U);
}

TEST(NestingOfMember, TakesNoOtherNameWithEscapesForTheMembers)
{
    for (const char *other : {R"(x\n)", R"(body\n)", R"(body\u006f)", R"(bod\u0179)", R"(bod\u7900)", R"(b\u006fd)",
                              R"(b\u006fdy\\)", R"(\ud83d\ude00)", R"(\\u0062ody)", R"(\"body)", R"(bod\t)"}) {
        const std::string document = std::string(R"({"body": {}, ")") + other + R"(": [[[]]]})";
        EXPECT_EQ(nesting_of_member(document.c_str(), "body"), 1U) << document;
    }
}

TEST(NestingOfMember, CountsAsDeepAsTheDocumentIs)
{
    const std::string levels(100000, '[');
    EXPECT_EQ(nesting_of_member((R"({"body": )" + levels + std::string(100000, ']') + "}").c_str(), "body"), 100000U);
}

} // namespace

} // namespace kelmora::nesting_test
