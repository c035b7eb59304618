#include "host/contract/typescript.h"

#include "host/contract/key_tree.h"
#include "host/contract/wording.h"

#include <algorithm>
#include <cctype>
#include <fmt/format.h>
#include <string_view>
#include <type_traits>

namespace kelmora_host {

namespace {

bool is_letter_or_digit(char c) { return std::isalnum(static_cast<unsigned char>(c)) != 0; }

/// "tr069_config" as "Tr069Config".
std::string type_name(std::string_view resource)
{
    std::string name;
    bool begins = true;
    for (const char c : resource) {
        if (is_letter_or_digit(c))
            name += static_cast<char>(begins ? std::toupper(static_cast<unsigned char>(c)) : c);
        begins = !is_letter_or_digit(c);
    }
    return name;
}

std::string property(const std::string &name)
{
    const bool identifier =
        !name.empty() && std::isdigit(static_cast<unsigned char>(name.front())) == 0 &&
        std::ranges::all_of(name, [](char c) { return is_letter_or_digit(c) || c == '_' || c == '$'; });
    return identifier ? name : fmt::format("\"{}\"", name);
}

std::string indentation(std::size_t depth) { return std::string(depth * 2, ' '); }

/// A comment of several phrases; nothing when there are none.
std::string comment(const std::vector<std::string> &phrases, std::size_t depth)
{
    std::string text;
    for (const std::string &phrase : phrases) {
        text += text.empty() || phrase.empty() ? "" : "; ";
        for (const char c : phrase) {
            if (c == '/' && text.ends_with('*'))
                text += '\\'; // else it would end the comment
            text += c;
        }
    }
    if (text.empty())
        return "";
    if (text.substr(0, text.find_first_of(" ;")).find('_') == std::string::npos) // else it begins with a name
        text.front() = static_cast<char>(std::toupper(static_cast<unsigned char>(text.front())));
    return fmt::format("{}/** {}. */\n", indentation(depth), text);
}

std::string_view typescript_type(InputType type)
{
    switch (type) {
    case InputType::integer:
    case InputType::real:
        return "number";
    case InputType::text:
        return "object"; // a list is one, too
    case InputType::array:
        return "unknown[]";
    case InputType::any:
        return "unknown";
    default:
        return name_of(type);
    }
}

std::string_view typescript_type(OutputType type)
{
    switch (type) {
    case OutputType::integer:
    case OutputType::real:
        return "number";
    case OutputType::array:
        return "unknown[]";
    default:
        return name_of(type);
    }
}

std::string plain_type(const InputKey &key) { return std::string(key.refused ? "never" : typescript_type(key.type)); }

std::string plain_type(const OutputKey &key)
{
    std::string types;
    for (const OutputType type : key.types)
        types.append(types.empty() ? "" : " | ").append(typescript_type(type));
    return types;
}

/// Whether a key must be there for every document of its type.
bool must_be_there(const InputKey &key)
{
    return key.required && key.required_when.empty() && key.looked_at_when.empty();
}

bool must_be_there(const OutputKey &key) { return key.always; }

/// Its type with that of its members or elements.
class Writer {
public:
    /// prefix: of the names of types that it makes itself.
    Writer(const Input *input, std::string prefix) : input_(input), prefix_(std::move(prefix)) {}

    /// The types of the elements that lists within them have as well, which need a name.
    [[nodiscard]] std::string shared_types(const Output &output) const
    {
        std::string types;
        const KeyTree<OutputKey> tree = key_tree(output.keys);
        for (const OutputKey &key : output.keys) {
            if (!key.like.empty())
                types += "\nexport interface " + shared_name(key.like) + " " +
                         members(*find(tree, key.like)->element(), 0) + "\n";
        }
        return types;
    }

    template <class Key> std::string members(const KeyTree<Key> &tree, std::size_t depth) const
    {
        std::string text = "{\n";
        for (const KeyTree<Key> &child : tree.children) {
            const bool required = child.key != nullptr && must_be_there(*child.key);
            if (child.key != nullptr)
                text += comment(sentences(*child.key), depth + 1);
            text += indentation(depth + 1) + property(child.name) + (required ? ": " : "?: ") + type(child, depth + 1) +
                    ";\n";
        }
        return text + indentation(depth) + "}";
    }

private:
    template <class Key> std::string type(const KeyTree<Key> &tree, std::size_t depth) const
    {
        if (const KeyTree<Key> *element = tree.element())
            return fmt::format("Array<{}>", type(*element, depth));
        if constexpr (std::is_same_v<Key, OutputKey>) {
            if (tree.key != nullptr && !tree.key->like.empty())
                return shared_name(tree.key->like) + "[]";
        }
        return tree.children.empty() && tree.key != nullptr ? plain_type(*tree.key) : members(tree, depth);
    }

    [[nodiscard]] std::vector<std::string> sentences(const InputKey &key) const
    {
        std::vector<std::string> all{std::string(meaning_of(key)), range_of(key)};
        if (key.type == InputType::real)
            all.emplace_back("a number with a fraction or an exponent: 2 is read as 0, 2.0 as 2");
        if (key.refused)
            all.emplace_back("must not be there");
        else if (!key.required_when.empty() || key.at_least_one != 0)
            all.push_back("required: " + required_of(key, *input_));
        if (!key.only_with.empty())
            all.push_back("stored only with " + others_of(key));
        if (!key.looked_at_when.empty())
            all.push_back("looked at " + looked_at_of(key));
        all.push_back(effect_of(key));
        return all;
    }

    [[nodiscard]] static std::vector<std::string> sentences(const OutputKey &key)
    {
        return {std::string(meaning_of(key)), range_of(key), key.always ? "" : presence_of(key)};
    }

    /// Of the elements of a list: "EasymeshOutputNeighbors".
    [[nodiscard]] std::string shared_name(std::string_view list) const { return prefix_ + type_name(list); }

    const Input *input_;
    std::string prefix_;
};

std::string shown(const Output &output, const std::string &type)
{
    switch (output.root) {
    case RootShape::by_list_flag:
        return fmt::format("{} | {}[]", type, type);
    case RootShape::array:
        return type + "[]";
    case RootShape::object:
        break;
    }
    return type;
}

} // namespace

std::string typescript(const std::vector<Contract> &contracts)
{
    std::string types =
        "// The documents of libkelmora_json's resources. Made from the plug-in by `kelmora-host types`, not by hand.\n"
        "//\n"
        "// Output: a record as it is written. Strings that are not UTF-8 and reals that are not finite leave their "
        "key\n"
        "// out, whatever the type says. Input: a document as it is taken; keys beyond those that are named here are\n"
        "// ignored.\n";
    std::string resources = "\n/** All resources that have documents, by name. */\nexport interface Resources {\n";
    for (const Contract &contract : contracts) {
        const std::string name(contract.resource->name);
        const std::string type = type_name(name);
        std::string directions;
        if (contract.output) {
            const std::string record = type + "Output";
            const Writer writer(nullptr, record);
            types +=
                fmt::format("\n/** What `{}` writes of a record. */\nexport interface {} {}\n{}", name, record,
                            writer.members(key_tree(contract.output->keys), 0), writer.shared_types(*contract.output));
            directions += fmt::format("    /** One record. */\n    output: {};\n"
                                      "    /** The whole text. */\n    text: {};\n",
                                      record, shown(*contract.output, record));
        }
        if (contract.input) {
            const std::string document = type + "Input";
            types += fmt::format("\n/** What `{}` takes. */\nexport interface {} {}\n", name, document,
                                 Writer(&*contract.input, document).members(key_tree(contract.input->keys), 0));
            directions += fmt::format("    input: {};\n", document);
        }
        if (!directions.empty())
            resources += fmt::format("  {}: {{\n{}  }};\n", property(name), directions);
    }
    return types + resources + "}\n";
}

} // namespace kelmora_host
