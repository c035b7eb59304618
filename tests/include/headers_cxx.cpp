#include "kelmora_json.h"
#include "kelmora_records.h"

#include <cstddef>
#include <cstdint>
#include <type_traits>

// Linkage is C's: a declaration that repeats one of them here must not make another function of it.
extern "C" int kelmora_json_init();
extern "C" void *kelmora_resource_get_data(kelmora_resource *node);

static_assert(std::is_same<decltype(&radio_to_translator), kelmora_to_translator>::value, "");
static_assert(std::is_same<decltype(&radio_from_translator), kelmora_from_translator>::value, "");
static_assert(std::is_same<decltype(&kelmora_json_get_version), const char *(*)()>::value, "");
static_assert(
    std::is_same<decltype(&libkelmora_json_check_data_size), std::uintptr_t (*)(const char *, char **)>::value, "");
static_assert(std::is_same<decltype(&libkelmora_json_string), json_t *(*)(const char *, std::size_t)>::value, "");
static_assert(KELMORA_JSON_STRING == 0 && KELMORA_JSON_INTEGER == 1 && KELMORA_JSON_BOOLEAN == 2 &&
                  KELMORA_JSON_ARRAY == 3,
              "the codes that kelmora_json_validate takes");

// Plain data: a host may copy and clear records as bytes.
static_assert(std::is_trivial<kelmora_resource>::value && std::is_standard_layout<kelmora_resource>::value, "");
static_assert(std::is_trivial<kelmora_radio>::value && std::is_standard_layout<kelmora_radio>::value, "");

#define ROW(number, name, group, directions)                                                                           \
    static_assert(std::is_same<decltype(name##_to_translator), decltype(radio_to_translator)>::value, #name);
KELMORA_RESOURCES(ROW)

kelmora_radio *radio_of(kelmora_resource *node);
kelmora_radio *radio_of(kelmora_resource *node)
{
    if (kelmora_json_init() == 0 || node->is_list != 0)
        return nullptr;
    auto *radio = static_cast<kelmora_radio *>(kelmora_resource_get_data(node));
    radio->opMode = 1;
    return radio;
}
