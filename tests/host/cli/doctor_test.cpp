#include "host/cli/doctor.h"

#include "kelmora_json.h"

#include <elf.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace kelmora_host::cli_doctor_test {

namespace {

using testing::HasSubstr;

const Style plain(false);

Examination right()
{
    Examination examination;
    examination.file = "a.so";
    examination.is_for_this_machine = true;
    examination.object = ElfFile{{64, false, EM_X86_64}, std::nullopt, {"libc.so.6"}, {"a", "b"}, {}, {}, {}};
    examination.object->imports = {{"json_array", true}, {"kelmora_set_translators", true}, {"strlen", true}};
    examination.version = KELMORA_JSON_VERSION;
    examination.registrations = {0, 5};
    return examination;
}

TEST(ExaminationAsText, SaysWhatThePluginIs)
{
    EXPECT_EQ(examination_as_text(right(), plain),
              "machine        64-bit little-endian x86-64\n"
              "soname         none\n"
              "needs          libc.so.6\n"
              "exports        2 functions\n"
              "imports        3: 1 of the host's, 1 of jansson's and 1 of the C library's\n"
              "binds          each import at its first call\n"
              "writable data  none\n"
              "relocations    none when it is loaded\n"
              "version        " KELMORA_JSON_VERSION "\n"
              "registers      2 pairs, in this order\n"
              "  0 wireless, 5 radio\n"
              "a.so: nothing is wrong\n");
}

TEST(ExaminationAsText, HasALineForEachFault)
{
    Examination examination = right();
    examination.version = "0.9";
    examination.object->soname = "libx.so.1";
    examination.object->imports = {{"system", false}, {"strlen", true}};
    examination.object->writable = {{".data", 16}, {".bss", 8}};
    examination.object->relocations = {"", "system"};
    examination.faults = {{"imports", "it imports system", {"system"}}, {"writable", "it has writable data", {}}};
    EXPECT_EQ(examination_as_text(examination, plain),
              "machine        64-bit little-endian x86-64\n"
              "soname         libx.so.1\n"
              "needs          libc.so.6\n"
              "exports        2 functions\n"
              "imports        2: 1 of the C library's and 1 of nobody's\n"
              "binds          1 of the imports when it is loaded\n"
              "writable data  .data (16 bytes) and .bss (8 bytes)\n"
              "relocations    2 when it is loaded\n"
              "version        0.9; this program was made with " KELMORA_JSON_VERSION "\n"
              "registers      2 pairs, in this order\n"
              "  0 wireless, 5 radio\n"
              "a.so: error: it imports system [imports]\n"
              "a.so: error: it has writable data [writable]\n"
              "a.so: 2 things are wrong\n");
}

TEST(ExaminationAsText, SendsThoseForOtherMachinesThere)
{
    Examination examination = right();
    examination.object->machine = {32, true, EM_MIPS};
    examination.is_for_this_machine = false;
    examination.version.clear();
    examination.registrations.clear();
    EXPECT_THAT(
        examination_as_text(examination, plain),
        HasSubstr("\nIt is for 32-bit big-endian MIPS, so it is not loaded here; run kelmora-selftest there.\n"));
}

TEST(ExaminationAsText, OfNoSharedObjectIsASentence)
{
    Examination examination;
    examination.file = "a.txt";
    examination.faults = {{"file", "it is no shared object", {}}};
    EXPECT_EQ(examination_as_text(examination, plain), "a.txt: error: it is no shared object [file]\n"
                                                       "a.txt: 1 thing is wrong\n");
}

TEST(ExaminationAsJson, SaysTheSame)
{
    EXPECT_EQ(
        to_text(as_json(right())),
        R"({"plugin": "a.so", "result": "right", )"
        R"("machine": {"name": "64-bit little-endian x86-64", "bits": 64, "byte_order": "little", "this": true}, )"
        R"("soname": null, "needs": ["libc.so.6"], "exports": ["a", "b"], "imports": [)"
        R"({"name": "json_array", "of": "jansson", "lazy": true}, )"
        R"({"name": "kelmora_set_translators", "of": "host", "lazy": true}, )"
        R"({"name": "strlen", "of": "c-library", "lazy": true}], "binds_now": false, "writable": [], )"
        R"("relocations": 0, "version": ")" KELMORA_JSON_VERSION R"(", "registrations": [)"
        R"({"number": 0, "resource": "wireless"}, {"number": 5, "resource": "radio"}], "faults": []})");
    Examination examination;
    examination.file = "a.so";
    examination.faults = {{"exports", "it does not export x and y", {"x", "y"}}};
    EXPECT_EQ(to_text(as_json(examination)), R"({"plugin": "a.so", "result": "wrong", "faults": [{"code": "exports", )"
                                             R"("message": "it does not export x and y", "symbols": ["x", "y"]}]})");
}

} // namespace

} // namespace kelmora_host::cli_doctor_test
