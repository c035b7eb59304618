#include "host/cli/doctor.h"

#include "host/gateway/resources.h"
#include "host/names.h"
#include "host/plugin/plugin.h"

#include <algorithm>
#include <array>
#include <fmt/format.h>
#include <fmt/ranges.h>

namespace kelmora_host {

namespace {

constexpr std::size_t label_width = 15;

std::string_view name_of(std::optional<Provider> provider)
{
    if (!provider)
        return "unknown";
    switch (*provider) {
    case Provider::host:
        return "host";
    case Provider::jansson:
        return "jansson";
    case Provider::c_library:
        break;
    }
    return "c-library";
}

std::string_view resource_name(int number)
{
    return number >= 0 && number < KELMORA_RESOURCE_COUNT ? resources()[static_cast<std::size_t>(number)].name
                                                          : "no resource";
}

std::string line(const Style &style, std::string_view label, std::string_view text)
{
    return fmt::format("{}{:{}}{}\n", style.heading(label), "", label_width - label.size(), text);
}

/// The words, with commas between them, on as many lines as it takes.
std::string wrapped(const std::vector<std::string> &words)
{
    std::string text;
    std::size_t column = 0;
    for (const std::string &word : words) {
        const bool last = &word == &words.back();
        if (column != 0 && column + 1 + word.size() + (last ? 0 : 1) <= line_width) {
            text += " ";
            ++column;
        } else {
            text += column == 0 ? "  " : "\n  ";
            column = 2;
        }
        text += word + (last ? "" : ",");
        column += word.size() + (last ? 0 : 1);
    }
    return text + "\n";
}

std::string imports_line(const ElfFile &object)
{
    struct Row {
        std::optional<Provider> provider;
        std::string_view of_whom;
    };
    static constexpr std::array<Row, 4> rows{{{Provider::host, "of the host's"},
                                              {Provider::jansson, "of jansson's"},
                                              {Provider::c_library, "of the C library's"},
                                              {std::nullopt, "of nobody's"}}};
    std::vector<std::string> parts;
    for (const Row &row : rows) {
        const auto count = std::ranges::count_if(
            object.imports, [&row](const ElfImport &import) { return provider_of(import.name) == row.provider; });
        if (count != 0)
            parts.push_back(fmt::format("{} {}", count, row.of_whom));
    }
    return fmt::format("{}{}{}", object.imports.size(), parts.empty() ? "" : ": ", enumeration(parts));
}

std::string binding_of(const ElfFile &object)
{
    const auto eager = std::ranges::count(object.imports, false, &ElfImport::lazy);
    if (object.binds_now)
        return "all imports when it is loaded";
    return eager == 0 ? "each import at its first call" : fmt::format("{} of the imports when it is loaded", eager);
}

std::string writable_of(const ElfFile &object)
{
    std::vector<std::string> sections;
    for (const ElfSection &section : object.writable)
        sections.push_back(fmt::format("{} ({} bytes)", section.name, section.size));
    return sections.empty() ? "none" : enumeration(sections);
}

std::string version_of(const Examination &examination)
{
    return examination.version == Plugin::default_version
               ? examination.version
               : fmt::format("{}; this program was made with {}", examination.version, Plugin::default_version);
}

} // namespace

std::string examination_as_text(const Examination &examination, const Style &style)
{
    std::string text;
    if (examination.object) {
        const ElfFile &object = *examination.object;
        text += line(style, "machine", name_of(object.machine));
        text += line(style, "soname", object.soname.value_or("none"));
        text += line(style, "needs", object.needed.empty() ? "nothing" : enumeration(object.needed));
        text += line(style, "exports", fmt::format("{} functions", object.exports.size()));
        text += line(style, "imports", imports_line(object));
        text += line(style, "binds", binding_of(object));
        text += line(style, "writable data", writable_of(object));
        text += line(style, "relocations",
                     object.relocations.empty() ? "none when it is loaded"
                                                : fmt::format("{} when it is loaded", object.relocations.size()));
        if (examination.is_loaded()) {
            text += line(style, "version", version_of(examination));
            text += line(style, "registers", fmt::format("{} pairs, in this order", examination.registrations.size()));
            std::vector<std::string> pairs;
            for (const int number : examination.registrations)
                pairs.push_back(fmt::format("{} {}", number, resource_name(number)));
            if (!pairs.empty())
                text += wrapped(pairs);
        } else if (!examination.is_for_this_machine) {
            text += fmt::format("It is for {}, so it is not loaded here; run kelmora-selftest there.\n",
                                name_of(object.machine));
        }
    }
    for (const PluginFault &fault : examination.faults)
        text += fmt::format("{}: {} {} [{}]\n", examination.file, style.error("error:"), fault.message, fault.code);
    if (examination.faults.empty())
        return text + examination.file + ": nothing is wrong\n";
    return text + fmt::format("{}: {} wrong\n", examination.file,
                              examination.faults.size() == 1 ? "1 thing is"
                                                             : fmt::format("{} things are", examination.faults.size()));
}

Json as_json(const Examination &examination)
{
    const auto texts = [](const std::vector<std::string> &values) {
        json_t *array = json_array();
        for (const std::string &value : values)
            json_array_append_new(array, json_text(value));
        return array;
    };
    Json whole(json_object());
    const auto set = [&whole](const char *key, json_t *value) { json_object_set_new(whole.get(), key, value); };
    set("plugin", json_text(examination.file));
    set("result", json_text(examination.faults.empty() ? "right" : "wrong"));
    if (examination.object) {
        const ElfFile &object = *examination.object;
        json_t *machine = json_object();
        json_object_set_new(machine, "name", json_text(name_of(object.machine)));
        json_object_set_new(machine, "bits", json_integer(object.machine.bits));
        json_object_set_new(machine, "byte_order", json_text(object.machine.big_endian ? "big" : "little"));
        json_object_set_new(machine, "this", json_boolean(examination.is_for_this_machine));
        set("machine", machine);
        set("soname", object.soname ? json_text(*object.soname) : json_null());
        set("needs", texts(object.needed));
        set("exports", texts(object.exports));
        json_t *imports = json_array();
        for (const ElfImport &import : object.imports) {
            json_t *entry = json_object();
            json_object_set_new(entry, "name", json_text(import.name));
            json_object_set_new(entry, "of", json_text(name_of(provider_of(import.name))));
            json_object_set_new(entry, "lazy", json_boolean(import.lazy));
            json_array_append_new(imports, entry);
        }
        set("imports", imports);
        set("binds_now", json_boolean(object.binds_now));
        json_t *writable = json_array();
        for (const ElfSection &section : object.writable) {
            json_t *entry = json_object();
            json_object_set_new(entry, "section", json_text(section.name));
            json_object_set_new(entry, "size", json_integer(static_cast<json_int_t>(section.size)));
            json_array_append_new(writable, entry);
        }
        set("writable", writable);
        set("relocations", json_integer(static_cast<json_int_t>(object.relocations.size())));
    }
    if (examination.is_loaded()) {
        set("version", json_text(examination.version));
        json_t *registrations = json_array();
        for (const int number : examination.registrations) {
            json_t *entry = json_object();
            json_object_set_new(entry, "number", json_integer(number));
            json_object_set_new(entry, "resource", json_text(resource_name(number)));
            json_array_append_new(registrations, entry);
        }
        set("registrations", registrations);
    }
    json_t *faults = json_array();
    for (const PluginFault &fault : examination.faults) {
        json_t *entry = json_object();
        json_object_set_new(entry, "code", json_text(fault.code));
        json_object_set_new(entry, "message", json_text(fault.message));
        json_object_set_new(entry, "symbols", texts(fault.symbols));
        json_array_append_new(faults, entry);
    }
    set("faults", faults);
    return whole;
}

} // namespace kelmora_host
