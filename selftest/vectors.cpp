// Writes the vectors of kelmora_selftest.c as C: what the plug-in of the build machine makes of the sample records and
// of the examples. Nothing in them depends on the machine.
//
//     kelmora-selftest-vectors PLUGIN EXAMPLES IMPORTS >vectors.inc
//
// EXAMPLES is the folder of documents NAME.json, IMPORTS the list of the symbols that the plug-in may import.

#include "host/contract/fields.h"
#include "host/gateway/gateway.h"
#include "host/gateway/resources.h"
#include "host/json.h"
#include "host/plugin/plugin.h"
#include "host/plugin/registry.h"
#include "host/plugin/translate.h"

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <exception>
#include <filesystem>
#include <fmt/format.h>
#include <fstream>
#include <iostream>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace {

using namespace kelmora_host;

// ---- C

/// A string literal; three octal digits for each byte that is no plain character, so that none runs into the next.
std::string literal(std::string_view bytes)
{
    std::string text = "\"";
    for (const char byte : bytes) {
        const bool plain = byte >= ' ' && byte <= '~' && byte != '"' && byte != '\\' && byte != '?';
        text += plain ? std::string(1, byte) : fmt::format("\\{:03o}", static_cast<unsigned char>(byte));
    }
    return text + '"';
}

template <class T> T load(const char *place)
{
    T value;
    std::memcpy(&value, place, sizeof value);
    return value;
}

bool all_zeros(const char *place, std::size_t size)
{
    return std::all_of(place, place + size, [](char byte) { return byte == 0; });
}

std::string unsigned_literal(const char *place, std::size_t size)
{
    switch (size) {
    case 1:
        return fmt::format("{}", load<std::uint8_t>(place));
    case 2:
        return fmt::format("{}", load<std::uint16_t>(place));
    case 4:
        return fmt::format("{}U", load<std::uint32_t>(place));
    default:
        throw std::logic_error("an integer of another width");
    }
}

std::string signed_literal(const char *place, std::size_t size)
{
    switch (size) {
    case 1:
        return fmt::format("{}", load<std::int8_t>(place));
    case 2:
        return fmt::format("{}", load<std::int16_t>(place));
    case 4: { // the smallest is no literal
        const auto value = load<std::int32_t>(place);
        return value == INT32_MIN ? "-2147483647 - 1" : fmt::format("{}", value);
    }
    default:
        throw std::logic_error("an integer of another width");
    }
}

std::string real_literal(const char *place, std::size_t size)
{
    return size == sizeof(float) ? fmt::format("{:a}F", load<float>(place)) : fmt::format("{:a}", load<double>(place));
}

/// Whether a record's bytes are those of its fields, each string without anything behind its NUL: which of a union's
/// alternatives holds.
bool reads_as(const RecordType &type, const char *place)
{
    std::vector<char> covered(type.size);
    for (const Field &field : type.fields) {
        if (field.kind == FieldKind::string && field.count == 0) {
            const std::size_t length = strnlen(place + field.offset, field.size);
            if (!all_zeros(place + field.offset + length, field.size - length))
                return false;
        }
        std::fill_n(covered.begin() + static_cast<std::ptrdiff_t>(field.offset), field.size, '\1');
    }
    for (std::size_t i = 0; i < type.size; ++i) {
        if (covered[i] == 0 && place[i] != 0)
            return false;
    }
    return true;
}

/// A record and all that hangs on it, as the members of one struct of C and their initializers. The first member is the
/// record itself; the pointers point into the variable of this name.
class Initializer {
public:
    Initializer(std::string variable, const RecordType &type, const char *record) : variable_(std::move(variable))
    {
        add_record("record", type, record);
    }

    [[nodiscard]] const std::string &members() const { return members_; }
    [[nodiscard]] const std::string &values() const { return values_; }

    /// Whether nothing hangs on the record, and nothing could.
    static bool is_flat(const RecordType &type)
    {
        return std::ranges::all_of(type.fields, [](const Field &field) {
            switch (field.kind) {
            case FieldKind::string_pointer:
            case FieldKind::chain:
            case FieldKind::next:
                return false;
            case FieldKind::record:
            case FieldKind::alternatives:
                return is_flat(*field.record);
            default:
                return true;
            }
        });
    }

private:
    void add_record(const std::string &member, const RecordType &type, const char *place)
    {
        members_ += fmt::format(" struct {} {};", type.name, member); // in front of what hangs on it
        const std::string value = record(type, place);
        values_ += fmt::format("\n    .{} = {},", member, value);
    }

    std::string record(const RecordType &type, const char *place)
    {
        std::string text;
        for (const Field &field : type.fields)
            text += this->field(field, place + field.offset);
        return text.empty() ? "{0}" : '{' + text + '}';
    }

    std::string alternative(const RecordType &type, const char *place)
    {
        for (const Field &field : type.fields) {
            std::vector<char> alone(type.size);
            std::memcpy(alone.data(), place, field.size);
            if (std::memcmp(alone.data(), place, type.size) == 0 && reads_as(*field.record, place))
                return fmt::format("{{.{} = {}}}", field.name, record(*field.record, place));
        }
        throw std::logic_error("no alternative holds these bytes");
    }

    /// ".name = value, ", or nothing for zeros.
    std::string field(const Field &field, const char *place)
    {
        if (all_zeros(place, field.size))
            return {};
        if (field.count == 0)
            return fmt::format(".{} = {}, ", field.name, element(field, place));
        std::string elements;
        for (std::size_t i = 0; i < field.count; ++i) {
            const char *one = place + i * field.element_size();
            if (!all_zeros(one, field.element_size()))
                elements += fmt::format("[{}] = {}, ", i, element(field, one));
        }
        return fmt::format(".{} = {{{}}}, ", field.name, elements);
    }

    std::string element(const Field &field, const char *place)
    {
        const std::size_t size = field.element_size();
        switch (field.kind) {
        case FieldKind::unsigned_integer:
            return unsigned_literal(place, size);
        case FieldKind::signed_integer:
            return signed_literal(place, size);
        case FieldKind::real:
            return real_literal(place, size);
        case FieldKind::string: {
            // Whatever stands behind the NUL too: fields are compared whole.
            std::string_view bytes(place, size);
            return literal(bytes.substr(0, bytes.find_last_not_of('\0') + 1));
        }
        case FieldKind::bytes: {
            std::string bytes;
            for (std::size_t i = 0; i < size; ++i)
                bytes += fmt::format("{}, ", static_cast<unsigned char>(place[i]));
            return '{' + bytes + '}';
        }
        case FieldKind::string_pointer: {
            const std::string member = fmt::format("string_{}", strings_++);
            const auto *string = load<const char *>(place);
            members_ += fmt::format(" char {}[{}];", member, std::strlen(string) + 1);
            values_ += fmt::format("\n    .{} = {},", member, literal(string));
            return fmt::format("{}.{}", variable_, member);
        }
        case FieldKind::chain:
        case FieldKind::next: {
            const std::string member = fmt::format("node_{}", nodes_++);
            add_record(member, *field.record, load<const char *>(place));
            return fmt::format("&{}.{}", variable_, member);
        }
        case FieldKind::record:
            return record(*field.record, place);
        case FieldKind::alternatives:
            return alternative(*field.record, place);
        }
        throw std::logic_error("a field of another kind");
    }

    std::string variable_;
    std::string members_;
    std::string values_;
    int nodes_ = 0;
    int strings_ = 0;
};

// ---- documents

/// A document and where in its text each member of an object stands, with the comma that divides it from the others.
/// Of a list only the first element is looked at.
class Document {
public:
    struct Member {
        std::size_t begin;
        std::size_t size;
    };

    explicit Document(const json_t *root) { write(root, true); }

    [[nodiscard]] const std::string &text() const { return text_; }
    [[nodiscard]] const std::vector<Member> &members() const { return members_; }

private:
    void write(const json_t *value, bool looked_at)
    {
        if (json_is_object(value)) {
            write_object(value, looked_at);
        } else if (json_is_array(value)) {
            text_ += '[';
            for (std::size_t i = 0; i < json_array_size(value); ++i) {
                text_ += i == 0 ? "" : ", ";
                write(json_array_get(value, i), looked_at && i == 0);
            }
            text_ += ']';
        } else {
            text_ += scalar(value);
        }
    }

    void write_object(const json_t *value, bool looked_at)
    {
        text_ += '{';
        void *member = json_object_iter(const_cast<json_t *>(value));
        for (bool first = true; member != nullptr; first = false) {
            void *next = json_object_iter_next(const_cast<json_t *>(value), member);
            const std::size_t begin = text_.size();
            text_ += scalar(Json(json_text(json_object_iter_key(member))).get()) + ": ";
            write(json_object_iter_value(member), looked_at);
            const std::size_t end = text_.size();
            if (next != nullptr)
                text_ += ", ";
            if (looked_at && (next != nullptr || first)) // with the comma behind it
                members_.push_back({begin, text_.size() - begin});
            else if (looked_at) // the last one, with the comma in front of it
                members_.push_back({begin - 2, end - begin + 2});
            member = next;
        }
        text_ += '}';
    }

    static std::string scalar(const json_t *value)
    {
        char *text = json_dumps(value, JSON_ENCODE_ANY);
        std::string copy = text;
        std::free(text);
        return copy;
    }

    std::string text_;
    std::vector<Member> members_;
};

/// Longer than any string's field but a few, and more than 32 bits with every sign.
constexpr std::size_t too_long = 300;
constexpr json_int_t too_large = 0x589ABCDEF;

enum class Loss { null, excess };

/// A copy in which each scalar is lost.
Json lossy(const json_t *value, Loss loss)
{
    if (json_is_object(value)) {
        Json copy(json_object());
        const char *key = nullptr;
        json_t *member = nullptr;
        json_object_foreach(const_cast<json_t *>(value), key, member)
            json_object_set_new(copy.get(), key, lossy(member, loss).release());
        return copy;
    }
    if (json_is_array(value)) {
        Json copy(json_array());
        for (std::size_t i = 0; i < json_array_size(value); ++i)
            json_array_append_new(copy.get(), lossy(json_array_get(value, i), loss).release());
        return copy;
    }
    if (loss == Loss::null)
        return Json(json_null());
    if (json_is_string(value)) {
        std::string longer = json_string_value(value);
        longer.append(too_long, 'x');
        return Json(json_text(longer));
    }
    if (json_is_integer(value))
        return Json(json_integer(too_large));
    return Json(json_deep_copy(value)); // true, false, and reals, which no record holds as integers
}

// ---- the vectors

std::string told(const Decoded &decoded, const Node &node)
{
    std::string text;
    for (const Error &error : decoded.errors)
        text += fmt::format("\"{}\": {} ({})\n", error.field, error.message, error.source);
    for (const int field : node.missing())
        text += fmt::format("field {} was not supplied\n", field);
    return text;
}

class ResourceVectors {
public:
    ResourceVectors(const Resource &resource, const std::vector<Node> &nodes)
        : resource_(resource), nodes_(nodes), type_(*record_type(resource.name)),
          translators_(*Registry::instance().find(resource.number)),
          raw_bytes_(is_raw(resource) && resource.directions != Directions::from_only ? raw_size : 0)
    {
    }

    /// Writes the variables of the resource, and returns its row of the table. parsed: the example as JSON, or NULL
    /// where it is none.
    std::string write(const std::string &example, const json_t *parsed)
    {
        std::string samples;
        for (std::size_t i = 0; i < nodes_.size(); ++i)
            samples += sample(i);
        std::string changes;
        if (!example.empty())
            changes = change(example, 0, 0, "");
        if (parsed != nullptr)
            changes += further_changes(parsed);
        fmt::print("static const struct sample samples_{}[] = {{{}}};\n", resource_.number, samples);
        fmt::print("static const struct change changes_{}[] = {{{}\n    {{0}}}};\n\n", resource_.number, changes);

        std::vector<Node> nodes = nodes_;
        const Encoded list = to_json(translators_.to, nodes, true, raw_bytes_);
        return fmt::format("    {{{}, {}, samples_{}, {}, {}, {}, {}, changes_{}, {}}},\n", literal(resource_.name),
                           raw_bytes_, resource_.number, nodes_.size(), list.result, literal(list.text),
                           literal(example), resource_.number, changes_);
    }

private:
    std::string sample(std::size_t index)
    {
        Node node = nodes_[index];
        const auto *record = static_cast<const char *>(node.record().data());
        std::vector<Node> alone{node};
        const Encoded encoded = to_json(translators_.to, alone, false, raw_bytes_);
        const std::string texts = fmt::format("{}, {}", encoded.result, literal(encoded.text));
        if (record == nullptr) // a record that is a chain, an empty one
            return fmt::format("\n    {{{}, NULL, NULL, 0, {}}},", literal(node.id()), texts);

        const std::string name = fmt::format("sample_{}_{}", resource_.number, index);
        const Initializer initializer(name, type_, record);
        fmt::print("static struct {} {{{} }} {};\n", name, initializer.members(), name);
        fmt::print("static const struct {} initial_{} = {{{}\n}};\n", name, name, initializer.values());
        return fmt::format("\n    {{{}, &{}, &initial_{}, sizeof {}, {}}},", literal(node.id()), name, name, name,
                           texts);
    }

    std::string further_changes(const json_t *example)
    {
        const Document document(example);
        const std::string &text = document.text();
        std::string changes = change(text, 0, text.size(), "");
        changes += change(text, 0, text.size(), "{}");
        changes += change(text, 0, text.size(), "[]");
        changes += change(text, text.size() - 1, 1, ""); // no JSON
        for (const Loss loss : {Loss::null, Loss::excess})
            changes += change(text, 0, text.size(), Document(lossy(example, loss).get()).text());
        for (const Document::Member &member : document.members()) {
            if (is_missed(text, member))
                changes += change(text, member.begin, member.size, "");
        }
        return changes;
    }

    /// Whether the document is rejected without this member.
    bool is_missed(std::string text, const Document::Member &member)
    {
        Node node = nodes_.front();
        return from_json(translators_.from, node, text.erase(member.begin, member.size)).result != 1;
    }

    /// What comes of the example, with so many bytes there replaced, on the first sample.
    std::string change(std::string_view example, std::size_t begin, std::size_t size, std::string_view replacement)
    {
        Node node = nodes_.front();
        const std::string document = std::string(example).replace(begin, size, replacement);
        const Decoded decoded = from_json(translators_.from, node, document);
        std::string record = "NULL";
        // What no text tells, where the record is nothing but its own bytes.
        if (Initializer::is_flat(type_) && size == 0) {
            record = fmt::format("&after_{}_{}", resource_.number, changes_);
            const Initializer after("", type_, static_cast<const char *>(node.record().data()));
            fmt::print("static const struct {{{} }} {} = {{{}\n}};\n", after.members(), record.substr(1),
                       after.values());
        }
        ++changes_;
        std::vector<Node> alone;
        const std::string told_text = told(decoded, node);
        alone.push_back(std::move(node));
        const Encoded encoded = to_json(translators_.to, alone, false, raw_bytes_);
        return fmt::format("\n    {{{}, {}, {}, {}, {}, {}, {}}},", begin, size, literal(replacement), decoded.result,
                           literal(told_text), literal(encoded.text), record);
    }

    const Resource &resource_;
    const std::vector<Node> &nodes_;
    const RecordType &type_;
    const Registration &translators_;
    const std::size_t raw_bytes_;
    int changes_ = 0;
};

void write_imports(const std::filesystem::path &path)
{
    std::ifstream file(path);
    std::string line;
    std::string whose;
    fmt::print("static const struct import imports[] = {{\n");
    while (std::getline(file, line)) {
        if (line.starts_with("# "))
            whose = line.substr(2);
        else if (!line.empty())
            fmt::print("    {{{}, {}}},\n", literal(line), literal(whose));
    }
    fmt::print("}};\n\n");
}

void write_vectors(const std::filesystem::path &examples)
{
    const Gateway gateway = sample_gateway();
    std::string table;
    for (const Resource &resource : resources()) {
        const std::vector<Node> &nodes = gateway.nodes(resource.name);
        if (nodes.empty())
            throw std::runtime_error(fmt::format("there is no sample of {}", resource.name));
        ResourceVectors vectors(resource, nodes);
        const std::filesystem::path path = examples / fmt::format("{}.json", resource.name);
        if (is_raw(resource)) {
            table += vectors.write("\1\2\3\4\5\6\7\377", nullptr);
        } else if (!exists(path)) {
            table += vectors.write("", nullptr);
        } else {
            const Json example(json_load_file(path.c_str(), 0, nullptr));
            if (example == nullptr)
                throw std::runtime_error(fmt::format("{} is no JSON", path.string()));
            table += vectors.write(Document(example.get()).text(), example.get());
        }
    }
    fmt::print("static const struct resource resources[] = {{\n{}}};\n", table);
}

} // namespace

int main(int argc, char **argv)
{
    if (argc != 4) {
        std::cerr << "usage: kelmora-selftest-vectors PLUGIN EXAMPLES IMPORTS\n";
        return 2;
    }
    try {
        const Plugin plugin(argv[1]);
        fmt::print("/* Made by kelmora-selftest-vectors. */\n");
        write_imports(argv[3]);
        write_vectors(argv[2]);
    } catch (const std::exception &error) {
        std::cerr << "kelmora-selftest-vectors: " << error.what() << '\n';
        return 1;
    }
    return 0;
}
