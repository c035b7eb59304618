#include "host/plugin/doctor.h"

#include "host/plugin/plugin.h"
#include "host/plugin/registry.h"
#include "kelmora_json.h"

#include <filesystem>
#include <fstream>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <iterator>
#include <string>
#include <unistd.h>

namespace kelmora_host::plugin_doctor_test {

namespace {

#ifndef KELMORA_HAVE_LIBELF

TEST(Examine, NeedsLibelf) { EXPECT_THROW((void)examine("/proc/self/exe", {}), ElfError); }

#else

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;
using testing::StartsWith;

/// "MESSAGE [CODE]" of each fault.
std::vector<std::string> faults(const Examination &examination)
{
    std::vector<std::string> lines;
    for (const PluginFault &fault : examination.faults)
        lines.push_back(fault.message + " [" + std::string(fault.code) + "]");
    return lines;
}

std::vector<std::string> faults_of(const std::filesystem::path &plugin) { return faults(examine(plugin, {})); }

TEST(Examine, NeedsFilesThatCanBeRead)
{
    EXPECT_THROW((void)examine("/nowhere", {}), PluginError);
    EXPECT_THROW((void)examine("/", {}), PluginError);
}

TEST(Examine, SaysWhatIsNoSharedObjectInASentence)
{
    EXPECT_THAT(faults_of("/etc/passwd"), ElementsAre("it is no shared object [file]"));
    EXPECT_THAT(faults_of("/bin/true"), ElementsAre("it is a program, no shared object [file]"));
    EXPECT_EQ(examine("/etc/passwd", {}).object, std::nullopt);
}

TEST(Examine, SaysWhatIsNoLibkelmoraJson)
{
    const Examination examination = examine(KELMORA_HOLLOW_MODULE, {});
    EXPECT_THAT(faults(examination), Contains(HasSubstr("does not export")));
    EXPECT_FALSE(examination.is_loaded());
}

#ifdef KELMORA_PLUGIN

TEST(Examine, FindsNothingWrongWithThePlugin)
{
    const Examination examination = examine(KELMORA_PLUGIN, {});
    EXPECT_THAT(faults(examination), IsEmpty());
    EXPECT_EQ(examination.file, KELMORA_PLUGIN);
    EXPECT_TRUE(examination.is_for_this_machine);
    EXPECT_THAT(examination.unresolved, IsEmpty());
    EXPECT_EQ(examination.version, KELMORA_JSON_VERSION);
    ASSERT_THAT(examination.registrations, SizeIs(KELMORA_RESOURCE_COUNT));
    for (int number = 0; number < KELMORA_RESOURCE_COUNT; ++number)
        EXPECT_EQ(examination.registrations[static_cast<std::size_t>(number)], number);
}

TEST(Examine, SaysWhereAFileIsCutShort)
{
    const std::filesystem::path path =
        std::filesystem::temp_directory_path() / ("doctor_test." + std::to_string(getpid()));
    std::filesystem::copy_file(KELMORA_PLUGIN, path, std::filesystem::copy_options::overwrite_existing);
    std::filesystem::resize_file(path, 50000);
    EXPECT_THAT(faults_of(path),
                ElementsAre(StartsWith("it is cut short: it has 50000 bytes, and its segments take ")));
    // What is loaded is all there, and the tables behind that are cut.
    std::filesystem::copy_file(KELMORA_PLUGIN, path, std::filesystem::copy_options::overwrite_existing);
    std::filesystem::resize_file(path, std::filesystem::file_size(path) - 1);
    EXPECT_THAT(faults_of(path), ElementsAre("it has no table of its sections, or no section for the loader [file]"));
    std::filesystem::remove(path);
}

TEST(Examine, SaysWhichExportIsMissing)
{
    const Examination examination = examine(KELMORA_UNLIKE_EXPORTS, {});
    EXPECT_THAT(
        faults(examination),
        ElementsAre("it does not export radio_to_translator [exports]",
                    "for number 5, radio it registers another function than radio_to_translator [registrations]"));
    EXPECT_THAT(examination.faults[0].symbols, ElementsAre("radio_to_translator"));
}

TEST(Examine, SaysWhichImportIsSurplusAndLoadsNothingThatIsUnresolved)
{
    const Examination examination = examine(KELMORA_UNLIKE_IMPORTS, {});
    EXPECT_THAT(
        faults(examination),
        ElementsAre("it imports what neither host, jansson nor C library is asked for: kelmora_nowhere [imports]",
                    "it is not loaded, as this program has no kelmora_nowhere [unresolved]"));
    EXPECT_THAT(examination.unresolved, ElementsAre("kelmora_nowhere"));
    EXPECT_FALSE(examination.is_loaded());
}

TEST(Examine, SaysWhatIsWrittenToNeededAndResolvedWhenItIsLoaded)
{
    EXPECT_THAT(
        faults_of(KELMORA_UNLIKE_DATA),
        ElementsAre("it imports what neither host, jansson nor C library is asked for: cbrt [imports]",
                    "these imports are not left to their first call: cbrt [binding]",
                    "it needs other libraries than the C library: libm.so.6 [needs]",
                    "it asks for all imports to be bound when it is loaded: a host must then have all functions, "
                    "also those for resources that it does not have [binding]",
                    "it has a relocation to be resolved when it is loaded [relocations]",
                    "it has writable data: .data, 16 bytes [writable]",
                    "it asks for a stack that is executable [stack]"));
}

TEST(Examine, SaysWhatIsRegisteredOtherwise)
{
    const Examination examination = examine(KELMORA_UNLIKE_REGISTRY, {});
    EXPECT_EQ(examination.version, "0.9");
    EXPECT_THAT(examination.registrations, SizeIs(KELMORA_RESOURCE_COUNT + 1));
    EXPECT_THAT(
        faults(examination),
        ElementsAre("for number 5, radio it registers another function than radio_from_translator [registrations]",
                    "it registers number 1, session behind number 5, radio [registrations]",
                    "it registers number 12, telnet behind number 12, telnet [registrations]",
                    "it registers number " + std::to_string(KELMORA_RESOURCE_COUNT) +
                        ", which no resource has [registrations]",
                    "it registers no translators for number 15, user [registrations]"));
}

TEST(Examine, TakesAProgramThatHasTheFunctionsForAHost)
{
    EXPECT_THAT(faults(examine(KELMORA_PLUGIN, {"/proc/self/exe"})), IsEmpty()); // it exports them, and loads jansson
}

TEST(Examine, SaysWhatAHostLacks)
{
    const Examination examination = examine(KELMORA_PLUGIN, {"/bin/true"});
    ASSERT_THAT(examination.faults, SizeIs(2));
    EXPECT_THAT(faults(examination)[0],
                StartsWith("/bin/true does not export these of the host's functions: kelmora_errorlist_add_error, "));
    EXPECT_THAT(examination.faults[0].symbols, SizeIs(11));
    EXPECT_THAT(
        faults(examination)[1],
        StartsWith("/bin/true does not load jansson, and does not export these of its functions: json_array, "));
    EXPECT_THAT(examination.faults[1].symbols, SizeIs(19));
}

TEST(Examine, TakesWhatTheLibrariesOfAHostHave)
{
    EXPECT_THAT(faults(examine(KELMORA_PLUGIN, {"/bin/true", "/proc/self/exe"})), IsEmpty());
    // jansson itself has its functions, and none of the host's.
    EXPECT_THAT(faults(examine(KELMORA_PLUGIN, {"/bin/true", KELMORA_JANSSON})), SizeIs(1));
}

TEST(Examine, SaysWhichFileOfAHostIsNoElfFile)
{
    EXPECT_THAT(faults(examine(KELMORA_PLUGIN, {"/proc/self/exe", "/etc/passwd"})),
                ElementsAre("/etc/passwd supplies nothing: it is no ELF file [host]"));
    EXPECT_THROW((void)examine(KELMORA_PLUGIN, {"/nowhere"}), PluginError);
}

#endif

#endif

} // namespace

} // namespace kelmora_host::plugin_doctor_test
