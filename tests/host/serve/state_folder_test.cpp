#include "host/serve/state_folder.h"

#include "kelmora_json.h"
#include "kelmora_records.h"

#include <cstdlib>
#include <fstream>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace kelmora_host::state_folder_test {

namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::HasSubstr;

class StateFolder : public ::testing::Test {
protected:
    StateFolder()
    {
        Registry::instance().clear();
        kelmora_json_init();
        std::string name = (fs::temp_directory_path() / "state.XXXXXX").string();
        folder = mkdtemp(name.data());
        gateway.add("qos", "0", kelmora_qos{.enabled = 0, .global_download = 1, .global_upload = 2});
    }
    ~StateFolder() override
    {
        fs::remove_all(folder);
        Registry::instance().clear();
    }

    void put(const std::string &path, const std::string &text) const
    {
        fs::create_directories((folder / path).parent_path());
        std::ofstream(folder / path) << text;
    }

    [[nodiscard]] std::int32_t upload(std::size_t index)
    {
        return gateway.nodes("qos").at(index).record().as<kelmora_qos>().global_upload;
    }

    static constexpr const char *good = R"({"enabled": true, "global_download": 5, "global_upload": 6})";

    fs::path folder;
    Gateway gateway;
};

TEST_F(StateFolder, PutsADocumentIntoTheRecordOfItsId)
{
    put("qos/0.json", good);
    const std::vector<AppliedFile> applied = apply_folder(folder, gateway);
    ASSERT_EQ(applied.size(), 1U);
    EXPECT_EQ(applied[0].path, (folder / "qos/0.json").string());
    EXPECT_EQ(applied[0].checked->check.result, CheckResult::lossless);
    EXPECT_EQ(applied[0].checked->file, applied[0].path);
    EXPECT_EQ(gateway.nodes("qos").size(), 1U);
    EXPECT_EQ(upload(0), 6);
}

TEST_F(StateFolder, MakesANewRecordOfAnUnknownIdInTheOrderOfTheNames)
{
    put("qos/b%2Fc.json", good);
    put("qos/a.json", R"({"enabled": true, "global_download": 5, "global_upload": 8})");
    EXPECT_EQ(apply_folder(folder, gateway).size(), 2U);
    ASSERT_EQ(gateway.nodes("qos").size(), 3U);
    EXPECT_EQ(gateway.nodes("qos")[1].id(), "a");
    EXPECT_EQ(upload(1), 8);
    EXPECT_EQ(gateway.nodes("qos")[2].id(), "b/c");
}

TEST_F(StateFolder, StoresWhatIsLeftOfALossyDocumentAndTellsTheRest)
{
    put("qos/0.json", R"({"enabled": true, "global_download": 5, "global_upload": 4294967297})");
    const std::vector<AppliedFile> applied = apply_folder(folder, gateway);
    EXPECT_EQ(applied.at(0).checked->check.result, CheckResult::lossy);
    EXPECT_EQ(applied.at(0).checked->check.findings.at(0).code, "wrapped");
    EXPECT_EQ(upload(0), 1);
}

TEST_F(StateFolder, LeavesNoTraceOfARejectedDocument)
{
    put("qos/0.json", R"({"enabled": true, "global_download": 5})");
    put("qos/new.json", "{");
    const std::vector<AppliedFile> applied = apply_folder(folder, gateway);
    ASSERT_EQ(applied.size(), 2U);
    EXPECT_EQ(applied[0].checked->check.errors.at(0).error.field, "upload");
    EXPECT_EQ(applied[1].checked->check.errors.at(0).error.message, "invalid json data");
    EXPECT_EQ(gateway.nodes("qos").size(), 1U);
    EXPECT_EQ(gateway.nodes("qos")[0].record().as<kelmora_qos>().global_download, 1);
}

TEST_F(StateFolder, TellsWhatCannotBeReadAndGoesOn)
{
    fs::create_directories(folder / "qos" / "0.json");
    put("qos/1.json", good);
    put("raido/radio0.json", good);
    put("qos/%zz.json", good);
    put("qos/" + std::string(129, 'x') + ".json", good);
    const std::vector<AppliedFile> applied = apply_folder(folder, gateway);
    std::vector<std::string> faults;
    faults.reserve(applied.size());
    for (const AppliedFile &file : applied)
        faults.push_back(file.fault);
    EXPECT_THAT(faults, ElementsAre("its name is no id", "Is a directory", "", "its name is no id",
                                    "no resource \"raido\"; similar: radio"));
    EXPECT_EQ(gateway.nodes("qos").size(), 2U);
}

TEST_F(StateFolder, TellsAFileThatCannotBeOpened)
{
    fs::create_directories(folder / "qos");
    fs::create_symlink("nowhere", folder / "qos" / "0.json");
    EXPECT_EQ(apply_folder(folder, gateway).at(0).fault, "No such file or directory");
    EXPECT_EQ(upload(0), 2);
}

TEST_F(StateFolder, PassesOverWhatIsHiddenOrNoDocument)
{
    put(".git/config", "x");
    put("README.md", "x");
    put("qos/.0.json", "x");
    put("qos/0.txt", "x");
    EXPECT_TRUE(apply_folder(folder, gateway).empty());
}

TEST_F(StateFolder, TakesTheBytesOfARawResourceAndAnEmptyFile)
{
    gateway.add("backup_restore", "0", kelmora_backup_restore{});
    put("backup_restore/0.json", std::string("\0\1\2\3\4\5\6\7", 8));
    put("qos/0.json", "");
    const std::vector<AppliedFile> applied = apply_folder(folder, gateway);
    ASSERT_EQ(applied.size(), 2U);
    EXPECT_EQ(gateway.nodes("backup_restore").at(0).record().as<kelmora_backup_restore>().backup[7], 7);
    EXPECT_EQ(applied[1].checked->check.findings.at(0).code, "empty");
    EXPECT_EQ(upload(0), 2);
}

TEST_F(StateFolder, ThrowsWhenThereIsNone)
{
    try {
        (void)apply_folder(folder / "nowhere", gateway);
        ADD_FAILURE() << "nothing is thrown";
    } catch (const FolderError &error) {
        EXPECT_THAT(error.what(), HasSubstr("nowhere: No such file or directory"));
    }
}

} // namespace

} // namespace kelmora_host::state_folder_test
