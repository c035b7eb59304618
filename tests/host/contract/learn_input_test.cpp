#include "host/contract/learn_input.h"

#include "host/contract/contract.h"
#include "host/contract/learned.h"

#include "kelmora_json.h"

#include <fstream>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <iterator>
#include <set>
#include <string>
#include <vector>

namespace kelmora_host::learn_input_test {

namespace {

using ::testing::IsSubsetOf;

using Names = std::set<std::string>;

std::string contents_of(const std::string &path)
{
    std::ifstream file(path);
    EXPECT_TRUE(file) << path;
    return {std::istreambuf_iterator<char>(file), {}};
}

/// The last step of "/dns_v4/automatic", "dns_v4.automatic" or "ipv6_prefix:prefix".
std::string last_step(const std::string &path) { return path.substr(path.find_last_of("/.:") + 1); }

/// The names that stand in a unit as arguments, by their last steps: keys, and the fields and sources of errors.
Names names_in(const std::string &unit)
{
    Names names;
    char before = ' ';
    for (std::size_t i = 0; i < unit.size(); ++i) {
        if (unit.compare(i, 2, "//") == 0 || unit[i] == '#') {
            i = unit.find('\n', i);
        } else if (unit[i] == '"') {
            const std::size_t end = unit.find('"', i + 1);
            const std::string text = unit.substr(i + 1, end - i - 1);
            const bool is_name = !text.empty() && text.find_first_of(" %") == std::string::npos;
            if (is_name && (before == '(' || before == '<' || before == ','))
                names.insert(last_step(text));
            i = end;
        } else if (unit[i] != ' ' && unit[i] != '\n') {
            before = unit[i];
        }
    }
    return names;
}

/// The headers that several units share, from the project's folder on.
Names headers_of(const std::string &unit)
{
    static const std::string include = "#include \"translators/";
    Names headers;
    for (std::size_t at = unit.find(include); at != std::string::npos; at = unit.find(include, at + 1)) {
        const std::size_t begin = unit.find('"', at) + 1;
        headers.insert(unit.substr(begin, unit.find('"', begin) - begin));
    }
    return headers;
}

void add_error(Names &names, const std::optional<Error> &error)
{
    if (error) {
        names.insert(last_step(error->field));
        names.insert(error->source);
    }
}

TEST(LearnInput, FindsEveryKeyThatStandsInAUnitAndNoOther)
{
    kelmora_json_init();
    for (const Resource &resource : resources()) {
        if (is_raw(resource))
            continue;
        const Registration &translators = *Registry::instance().find(resource.number);
        const Contract &contract = learned(resource, translators);
        Names keys;
        Names others;
        if (contract.input) {
            for (const InputKey &key : contract.input->keys) {
                keys.insert(last_step(key.path));
                for (const auto &error : {key.absent, key.unfit, key.out_of_size, key.unknown})
                    add_error(others, error);
            }
        }
        if (contract.output) {
            for (const OutputKey &key : contract.output->keys) {
                keys.insert(last_step(key.path));
                for (const std::string &value : key.values)
                    others.insert(value.substr(1, value.size() - 2));
            }
        }
        keys.erase("*");
        const std::string folder = KELMORA_TRANSLATORS_DIR "/" + std::string(resource.group) + "/";
        const std::string unit = contents_of(folder + std::string(resource.name) + ".cpp");
        Names names = names_in(unit);
        for (const std::string &shared : headers_of(unit))
            names.merge(names_in(contents_of(KELMORA_TRANSLATORS_DIR "/../" + shared)));
        EXPECT_THAT(keys, IsSubsetOf(names)) << resource.name;
        keys.merge(others);
        names.erase(""); // "list." that a name follows
        EXPECT_THAT(names, IsSubsetOf(keys)) << resource.name;
    }
}

} // namespace

} // namespace kelmora_host::learn_input_test
