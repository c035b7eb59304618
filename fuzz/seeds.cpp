// seeds EXAMPLES OUT: the inputs to begin with: each example document, and each sample record as the plug-in writes it,
// for every state of the record before.

#include "fuzz/input.h"

#include "host/gateway/gateway.h"
#include "host/plugin/translate.h"

#include <filesystem>
#include <fstream>
#include <iostream>
#include <sstream>
#include <string>
#include <vector>

namespace {

void save(const std::filesystem::path &path, const kelmora_host::Resource &resource, int state,
          const std::string &document)
{
    std::ofstream file(path, std::ios::binary);
    file << static_cast<char>(resource.number) << static_cast<char>(state) << document;
    if (!file)
        std::cerr << "seeds: cannot write " << path << "\n";
}

} // namespace

int main(int argc, char **argv)
{
    if (argc != 3) {
        std::cerr << "usage: seeds EXAMPLES OUT\n";
        return 2;
    }
    const std::filesystem::path examples = argv[1];
    const std::filesystem::path out = argv[2];
    std::filesystem::create_directories(out);
    kelmora_host::Gateway gateway = kelmora_host::sample_gateway();
    for (const kelmora_host::Resource &resource : kelmora_host::resources()) {
        const std::string name(resource.name);
        const std::uint8_t head[] = {static_cast<std::uint8_t>(resource.number), 0};
        const kelmora_fuzz::Input input = kelmora_fuzz::parse_input(head, sizeof head);
        if (std::ifstream example(examples / (name + ".json")); example) {
            std::ostringstream text;
            text << example.rdbuf();
            for (const int state : {0, 1, 2})
                save(out / (name + "-example-" + std::to_string(state)), resource, state, text.str());
        }
        if (std::vector<kelmora_host::Node> nodes = gateway.nodes(name); !nodes.empty() && !is_raw(resource))
            save(out / (name + "-sample"), resource, 0, kelmora_host::to_json(input.translators.to, nodes, false).text);
    }
    return 0;
}
