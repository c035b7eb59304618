#include "soak/kept_paths.h"

#include <gtest/gtest.h>
#include <string>

namespace kelmora_soak {

namespace {

using kelmora_host::WriteAnswer;

const WriteAnswer accepted{1, {}};

WriteAnswer rejected(const std::string &field) { return {0, {{field, "field not found", "json"}}}; }

TEST(KeptPath, IsTheSuccessOfAResourceThatKeepsAcceptedDocuments)
{
    ASSERT_NE(kept_path("dhcp_server", "{}", accepted), nullptr);
    EXPECT_EQ(kept_path("dhcp_server", "{}", accepted)->resource, "dhcp_server");
    EXPECT_EQ(kept_path("dhcp_server", "{}", rejected("enabled")), nullptr);
}

TEST(KeptPath, IsNoneWhereNothingWasParsed)
{
    EXPECT_EQ(kept_path("dhcp_server", "", accepted), nullptr);
    EXPECT_EQ(kept_path("rip_config", "{", rejected("")), nullptr);
}

TEST(KeptPath, IsTheAbsenceOfAnyKeyWhereTheTableSaysSo)
{
    EXPECT_NE(kept_path("rip_config", "{}", rejected("send_mode")), nullptr);
    EXPECT_NE(kept_path("rip_config", "{}", rejected("interfaceID")), nullptr);
    EXPECT_EQ(kept_path("rip_config", "{}", accepted), nullptr);
}

TEST(KeptPath, IsTheAbsenceOfOneKeyWhereTheTableNamesIt)
{
    EXPECT_NE(kept_path("ipv6_dhcp_server", "{}", rejected("addresses_config")), nullptr);
    EXPECT_EQ(kept_path("ipv6_dhcp_server", "{}", rejected("mode")), nullptr);
}

TEST(KeptPath, IsTheAbsenceOfAMemberOfAnElementAndNotOfTheListItself)
{
    EXPECT_NE(kept_path("wan_lan_list", "{}", rejected("lan_list.enabled")), nullptr);
    EXPECT_EQ(kept_path("wan_lan_list", "{}", rejected("lan_list")), nullptr);
}

TEST(KeptPath, IsNoneOfAResourceThatIsNotInTheTable)
{
    EXPECT_EQ(kept_path("radio", "{}", accepted), nullptr);
    EXPECT_EQ(kept_path("radio", "{}", rejected("power")), nullptr);
}

} // namespace

} // namespace kelmora_soak
