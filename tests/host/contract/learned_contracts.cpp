// Prints what is learned of all resources, a line each, without what depends on the machine: offsets, and the sizes of
// pointers and of what holds them. Its exit status is 1 when that took more seconds of processor time than it was
// given.

#include "host/contract/contract.h"
#include "host/json.h"

#include "kelmora_json.h"

#include <cstdlib>
#include <ctime>
#include <iostream>
#include <string_view>

namespace {

using namespace kelmora_host;

void remove_places(json_t *value)
{
    const char *type = json_string_value(json_object_get(value, "type"));
    json_object_del(value, "offset");
    if (type != nullptr && std::string_view(type).find('*') != std::string_view::npos)
        json_object_del(value, "size");
    const char *key = nullptr;
    json_t *member = nullptr;
    json_object_foreach(value, key, member) remove_places(member);
    for (std::size_t i = 0; i < json_array_size(value); ++i)
        remove_places(json_array_get(value, i));
}

} // namespace

int main(int argc, char **argv)
{
    kelmora_json_init();
    for (const Resource &resource : resources()) {
        const Contract contract = learn(resource, *Registry::instance().find(resource.number));
        const Json json(json_loads(contract_as_json(contract).c_str(), 0, nullptr));
        remove_places(json.get());
        std::cout << to_text(json) << '\n';
    }
    const double seconds = static_cast<double>(std::clock()) / CLOCKS_PER_SEC;
    if (argc > 1 && seconds > std::atof(argv[1])) {
        std::cerr << seconds << " seconds\n";
        return 1;
    }
    return 0;
}
