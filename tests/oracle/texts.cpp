// texts COUNT SEED RESOURCE...: for each resource, what its to-translator writes of COUNT lists of records of random
// bytes, whose chains have random lengths: a line "RESOURCE<TAB>TEXT" each, the text as a JSON string.

#include "host/contract/fields.h"
#include "host/contract/learn_records.h"
#include "host/gateway/blank.h"
#include "host/gateway/resources.h"
#include "host/json.h"
#include "host/plugin/plugin.h"
#include "host/plugin/registry.h"
#include "host/plugin/translate.h"

#include <bit>
#include <cstdint>
#include <cstdlib>
#include <iostream>
#include <random>
#include <string>
#include <vector>

namespace {

using namespace kelmora_host;

using Random = std::mt19937_64;

/// Bytes of one manner a field: zeros, ones, anything, or characters, which alone are sure to be UTF-8.
void fill(char *bytes, std::size_t size, Random &random)
{
    const auto manner = random() % 5;
    for (std::size_t i = 0; i < size; ++i) {
        const auto any = static_cast<unsigned char>(random());
        const unsigned char byte = manner == 0   ? 0
                                   : manner == 1 ? 0xff
                                   : manner == 2 ? any
                                                 : static_cast<unsigned char>(' ' + any % 95);
        bytes[i] = static_cast<char>(byte);
    }
    if (manner == 3 && size > 1)
        bytes[random() % size] = '\0';
}

/// A small number, as codes are that a to-translator takes another course for.
void fill_integer(char *bytes, std::size_t size, Random &random)
{
    if (random() % 2 == 0)
        return fill(bytes, size, random);
    const std::uint64_t number = random() % 4;
    for (std::size_t i = 0; i < size; ++i) {
        const std::size_t place = std::endian::native == std::endian::little ? i : size - 1 - i;
        bytes[place] = static_cast<char>(place < 8 && i < 8 ? number >> (8 * i) : 0);
    }
}

Node random_node(const Resource &resource, Random &random)
{
    Record record = blank_record(resource);
    const RecordType &type = *record_type(resource.name);
    hang_chains(record, type, random() % 4);
    for (const Leaf &leaf : leaves(record, type)) {
        const bool integer =
            leaf.field->kind == FieldKind::unsigned_integer || leaf.field->kind == FieldKind::signed_integer;
        if (leaf.field->kind == FieldKind::string_pointer)
            store_text(leaf, std::string(random() % 300, static_cast<char>('a' + random() % 26)));
        else if (integer)
            fill_integer(leaf.place, leaf.size, random);
        else
            fill(leaf.place, leaf.size, random);
    }
    std::string id(random() % 20, 'i');
    fill(id.data(), id.size(), random);
    return Node(id, std::move(record));
}

void write(const Resource &resource, std::size_t count, Random &random)
{
    for (std::size_t i = 0; i < count; ++i) {
        std::vector<Node> nodes;
        for (std::size_t size = random() % 4; size > 0; --size)
            nodes.push_back(random_node(resource, random));
        const Encoded answer =
            to_json(Registry::instance().find(resource.number)->to, nodes, nodes.size() != 1 || random() % 2 == 0);
        if (answer.text.empty())
            continue; // write-only
        const Json text(json_text(answer.text));
        std::cout << resource.name << "\t" << to_text(text) << "\n";
    }
}

} // namespace

int main(int argc, char **argv)
{
    if (argc < 3)
        return 2;
    const Plugin plugin{Plugin::default_path()};
    Random random(std::strtoull(argv[2], nullptr, 10));
    for (int i = 3; i < argc; ++i) {
        const Resource *resource = find_resource(argv[i]);
        if (resource != nullptr && !is_raw(*resource))
            write(*resource, std::strtoull(argv[1], nullptr, 10), random);
    }
    return 0;
}
