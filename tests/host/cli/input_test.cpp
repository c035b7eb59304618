#include "host/cli/input.h"

#include "host/cli/diagnostics.h"

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <string_view>
#include <unistd.h>

namespace kelmora_host {

namespace {

using namespace std::string_literals;

/// A file with a text, until the end of the test.
class TemporaryFile {
public:
    explicit TemporaryFile(const std::string &text) { std::ofstream(path_, std::ios::binary) << text; }
    TemporaryFile(const TemporaryFile &) = delete;
    TemporaryFile &operator=(const TemporaryFile &) = delete;
    ~TemporaryFile() { std::filesystem::remove(path_); }

    [[nodiscard]] const std::string &path() const { return path_; }

private:
    std::string path_ = std::filesystem::temp_directory_path() / ("input_test." + std::to_string(getpid()));
};

/// The failure of reading a file.
std::pair<Status, std::string> failure_of(const std::string &file)
{
    try {
        (void)read_input(file);
    } catch (const Failure &failure) {
        return {failure.status(), failure.what()};
    }
    return {Status::done, "read"};
}

TEST(ReadInput, ReadsAFileByteForByte)
{
    const std::string text = "{\r\n\t\"a\0b\": \"\xff\"}\n"s;
    const TemporaryFile file(text);
    const Input input = read_input(file.path());
    EXPECT_EQ(input.text, text);
    EXPECT_EQ(input.name, file.path());
}

TEST(ReadInput, ReadsAFileOfAnySize)
{
    const TemporaryFile empty("");
    EXPECT_EQ(read_input(empty.path()).text, "");
    std::string text;
    for (int line = 0; line < 5000; ++line)
        text += std::to_string(line) + "\n";
    std::ofstream(empty.path(), std::ios::binary) << text;
    EXPECT_EQ(read_input(empty.path()).text, text);
}

TEST(ReadInput, FailsForAFileThatIsNotThere)
{
    EXPECT_EQ(failure_of("/nowhere/radio.json"),
              std::pair(Status::environment, "/nowhere/radio.json: error: No such file or directory"s));
}

TEST(ReadInput, FailsForADirectory)
{
    EXPECT_EQ(failure_of("/"), std::pair(Status::environment, "/: error: Is a directory"s));
}

TEST(FindNul, FindsNoneWhereThereIsNone)
{
    EXPECT_EQ(find_nul(""), std::nullopt);
    EXPECT_EQ(find_nul("{\n}\n"), std::nullopt);
}

TEST(FindNul, CountsLinesAndColumnsFromOne)
{
    EXPECT_EQ(find_nul("\0"s), (Fault{1, 1, "NUL byte in the text"}));
    EXPECT_EQ(find_nul("{}\0"s), (Fault{1, 3, "NUL byte in the text"}));
    EXPECT_EQ(find_nul("{\n\n\0"s), (Fault{3, 1, "NUL byte in the text"}));
    EXPECT_EQ(find_nul("{\n  \0\n}"s), (Fault{2, 3, "NUL byte in the text"}));
}

TEST(FindNul, FindsTheFirstOfSeveral) { EXPECT_EQ(find_nul("a\0b\n\0"s), (Fault{1, 2, "NUL byte in the text"})); }

TEST(FindNul, CountsCharactersAndNotBytes)
{
    EXPECT_EQ(find_nul("\"\xc3\xa4\xe2\x82\xac\0"s), (Fault{1, 4, "NUL byte in the text"}));
}

TEST(FindParseFault, FindsNoneInADocument)
{
    EXPECT_EQ(find_parse_fault("{\"a\": 1}"), std::nullopt);
    EXPECT_EQ(find_parse_fault(" [] \n"), std::nullopt);
}

TEST(FindParseFault, SaysWhereAndWhyParsingStopped)
{
    const std::optional<Fault> fault = find_parse_fault("{\n  \"a\": 1\n  \"b\": 2\n}\n");
    EXPECT_EQ(fault, (Fault{3, 5, "'}' expected near '\"b\"'"}));
}

TEST(FindParseFault, CountsCharactersAndNotBytes)
{
    const std::optional<Fault> fault = find_parse_fault("[\"\xc3\xa4\xe2\x82\xac\" 1]");
    ASSERT_TRUE(fault);
    EXPECT_EQ(fault->line, 1);
    EXPECT_EQ(fault->column, 7);
}

TEST(FindParseFault, FindsOneBehindADocument)
{
    const std::optional<Fault> fault = find_parse_fault("{}\n{}");
    ASSERT_TRUE(fault);
    EXPECT_EQ(fault->line, 2);
    EXPECT_EQ(fault->column, 1);
}

TEST(FindParseFault, FindsOneAtTheEndOfATextThatBreaksOff)
{
    const std::optional<Fault> fault = find_parse_fault("{\"a\": 1,\n");
    ASSERT_TRUE(fault);
    EXPECT_EQ(fault->line, 2);
    EXPECT_EQ(fault->column, 1);
}

TEST(FindParseFault, TakesNoValueButObjectAndArrayForADocument)
{
    EXPECT_NE(find_parse_fault("1"), std::nullopt);
    EXPECT_NE(find_parse_fault("\"radio\""), std::nullopt);
    EXPECT_NE(find_parse_fault("null"), std::nullopt);
    EXPECT_NE(find_parse_fault(""), std::nullopt);
}

TEST(FindParseFault, FindsBytesThatAreNoText) { EXPECT_NE(find_parse_fault("[\"\xff\"]"), std::nullopt); }

} // namespace

} // namespace kelmora_host
