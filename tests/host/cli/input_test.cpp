#include "host/cli/input.h"

#include "host/cli/diagnostics.h"

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <string_view>
#include <unistd.h>

namespace kelmora_host::input_test {

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
    const InputText input = read_input(file.path());
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

} // namespace

} // namespace kelmora_host::input_test
