#include "host/cli/layout.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace kelmora_host::cli_layout_test {

namespace {

using testing::HasSubstr;
using testing::StartsWith;

const Style plain(false);

TEST(LayoutsAsTables, HaveTheTargetsBesideEachOther)
{
    EXPECT_EQ(
        layouts_as_tables(*find_resource("limited_user_permissions"), targets(), plain),
        "struct kelmora_limited_user_permissions: 4 bytes at multiples of 4 on mips, 8 bytes at multiples of 8 on "
        "x86-64\n"
        "   mips AT  WIDTH   x86-64 AT  WIDTH  FIELD                     TYPE\n"
        "         0      4           0      8  limited_user_permissions  struct "
        "kelmora_limited_user_permissions_entry *\n"
        "\n"
        "struct kelmora_limited_user_permissions_entry: 12 bytes at multiples of 4 on mips, 24 bytes at multiples "
        "of 8 on x86-64\n"
        "   mips AT  WIDTH   x86-64 AT  WIDTH  FIELD          TYPE\n"
        "         0      4           0      8  resource_name  const char *\n"
        "         4      4           8      4  resource_id    uint32_t\n"
        "         8      4          16      8  next           struct kelmora_limited_user_permissions_entry *\n");
}

TEST(LayoutsAsTables, HaveTheOneTargetThatIsAskedFor)
{
    EXPECT_EQ(layouts_as_tables(*find_resource("user"), {find_target("mips"), 1}, plain),
              "struct kelmora_user: 67 bytes at multiples of 1 on mips\n"
              "   mips AT  WIDTH  FIELD          TYPE\n"
              "         0     33  username       char[33]\n"
              "        33     33  password       char[33]\n"
              "        66      1  is_privileged  uint8_t\n");
}

TEST(LayoutsAsTables, CallAUnionSo)
{
    EXPECT_THAT(layouts_as_tables(*find_resource("tr369_local_agent_controller"), {find_target("mips"), 1}, plain),
                HasSubstr("\nunion kelmora_tr369_local_agent_controller_mtp.variant: 524 bytes at multiples of 4 on "
                          "mips\n"));
}

TEST(LayoutsAsTables, OfAllBeginWithTheNodeAndHaveEachStructOnce)
{
    const std::string text = layouts_as_tables(targets(), plain);
    EXPECT_THAT(text, StartsWith("struct kelmora_resource: "));
    EXPECT_THAT(text, HasSubstr("\nstruct kelmora_ip6_address: "));
    EXPECT_EQ(text.find("\nstruct kelmora_ip6_address: "), text.rfind("\nstruct kelmora_ip6_address: "));
    EXPECT_THAT(text, HasSubstr("\nstruct kelmora_tr369_local_agent_controller: "));
}

} // namespace

} // namespace kelmora_host::cli_layout_test
