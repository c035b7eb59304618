#include "harness/known_leaks.h"

#include <gtest/gtest.h>
#include <string>

namespace kelmora_harness {

namespace {

using kelmora_host::Decoded;

const Decoded accepted{1, {}};

Decoded rejected(const std::string &field) { return {0, {{field, "field not found", "json"}}}; }

TEST(KnownLeak, IsTheSuccessOfAResourceThatKeepsAcceptedDocuments)
{
    ASSERT_NE(known_leak("dhcp_server", "{}", accepted), nullptr);
    EXPECT_EQ(known_leak("dhcp_server", "{}", accepted)->resource, "dhcp_server");
    EXPECT_EQ(known_leak("dhcp_server", "{}", rejected("enabled")), nullptr);
}

TEST(KnownLeak, IsNoneWhereNothingWasParsed)
{
    EXPECT_EQ(known_leak("dhcp_server", "", accepted), nullptr);
    EXPECT_EQ(known_leak("rip_config", "{", rejected("")), nullptr);
}

TEST(KnownLeak, IsTheAbsenceOfAnyKeyWhereTheTableSaysSo)
{
    EXPECT_NE(known_leak("rip_config", "{}", rejected("send_mode")), nullptr);
    EXPECT_NE(known_leak("rip_config", "{}", rejected("interfaceID")), nullptr);
    EXPECT_EQ(known_leak("rip_config", "{}", accepted), nullptr);
}

TEST(KnownLeak, IsTheAbsenceOfOneKeyWhereTheTableNamesIt)
{
    EXPECT_NE(known_leak("ipv6_dhcp_server", "{}", rejected("addresses_config")), nullptr);
    EXPECT_EQ(known_leak("ipv6_dhcp_server", "{}", rejected("mode")), nullptr);
}

TEST(KnownLeak, IsTheAbsenceOfAMemberOfAnElementAndNotOfTheListItself)
{
    EXPECT_NE(known_leak("wan_lan_list", "{}", rejected("lan_list.enabled")), nullptr);
    EXPECT_EQ(known_leak("wan_lan_list", "{}", rejected("lan_list")), nullptr);
}

TEST(KnownLeak, IsNoneOfAResourceThatIsNotInTheTable)
{
    EXPECT_EQ(known_leak("radio", "{}", accepted), nullptr);
    EXPECT_EQ(known_leak("radio", "{}", rejected("power")), nullptr);
}

} // namespace

} // namespace kelmora_harness
