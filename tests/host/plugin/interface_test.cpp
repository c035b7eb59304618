#include "host/plugin/interface.h"

#include "kelmora_resources.h"

#include <algorithm>
#include <gtest/gtest.h>

namespace kelmora_host::plugin_interface_test {

namespace {

// That the lists are right, tests/abi and tests/completeness_test.sh say.

TEST(InterfaceExports, AreAllNamesOfTheListInOrder)
{
    const std::vector<std::string> &names = interface_exports();
    EXPECT_EQ(names.size(), 2U * KELMORA_RESOURCE_COUNT + 13); // entry points and helpers
    EXPECT_TRUE(std::ranges::is_sorted(names));
    EXPECT_TRUE(std::ranges::binary_search(names, "kelmora_json_init"));
    EXPECT_TRUE(std::ranges::binary_search(names, "acl_capability_from_translator")); // the list's first
    EXPECT_TRUE(std::ranges::binary_search(names, "wlan_access_control_to_translator"));
    EXPECT_FALSE(std::ranges::binary_search(names, ""));
    EXPECT_TRUE(
        std::ranges::none_of(names, [](const std::string &name) { return name.find('#') != std::string::npos; }));
}

TEST(InterfaceImports, HaveTheirProviders)
{
    EXPECT_EQ(provider_of("kelmora_errorlist_add_error"), Provider::host);
    EXPECT_EQ(provider_of("kelmora_wlan_access_control_allocate_list"), Provider::host);
    EXPECT_EQ(provider_of("json_array"), Provider::jansson);
    EXPECT_EQ(provider_of("json_true"), Provider::jansson);
    EXPECT_EQ(provider_of("free"), Provider::c_library);
    EXPECT_EQ(provider_of("strtol"), Provider::c_library);
    EXPECT_EQ(provider_of("system"), std::nullopt);
    EXPECT_EQ(provider_of(""), std::nullopt);
    const auto of = [](Provider provider) {
        return std::ranges::count(interface_imports(), provider, &AllowedImport::provider);
    };
    EXPECT_EQ(of(Provider::host), 11);
    EXPECT_EQ(of(Provider::jansson), 19);
}

} // namespace

} // namespace kelmora_host::plugin_interface_test
