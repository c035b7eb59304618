#include "host/plugin/lists.h"

#include "harness/watch.h"

#include "host/gateway/record.h"
#include "host/plugin/errors.h"

#include "kelmora_host.h"

#include <ctime>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace kelmora_host::lists_test {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

template <class Node> std::size_t length(const Node *first)
{
    std::size_t nodes = 0;
    for (; first != nullptr; first = first->next)
        ++nodes;
    return nodes;
}

TEST(WlanAccessControlList, HasExactlyAsManyClearedEntriesAsAskedFor)
{
    for (const std::uint32_t entries : {0U, 1U, 20U}) {
        Record owner(kelmora_wlan_access_control{});
        auto &record = owner.as<kelmora_wlan_access_control>();
        kelmora_wlan_access_control_allocate_list(&record, entries);
        EXPECT_EQ(length(record.mac_list), entries);
        for (const auto *entry = record.mac_list; entry != nullptr; entry = entry->next)
            EXPECT_EQ(std::string(entry->mac, sizeof entry->mac), std::string(sizeof entry->mac, '\0'));
    }
}

TEST(WlanAccessControlList, ReplacesTheOneThatWasThere)
{
    Record owner(kelmora_wlan_access_control{
        .mode = 1, .mac_list = make_chain<kelmora_wlan_access_control_mac>({{"02:00:00:00:00:01", nullptr}})});
    auto &record = owner.as<kelmora_wlan_access_control>();
    {
        const FreeLost free_lost(owner);
        kelmora_wlan_access_control_allocate_list(&record, 2);
    }
    EXPECT_EQ(length(record.mac_list), 2U);
    EXPECT_STREQ(record.mac_list->mac, "");
}

TEST(WlanAccessControlList, HasNoLimitOfItsOwn)
{
    Record owner(kelmora_wlan_access_control{});
    auto &record = owner.as<kelmora_wlan_access_control>();
    kelmora_wlan_access_control_allocate_list(&record, 70000);
    EXPECT_EQ(length(record.mac_list), 70000U);
}

TEST(WlanAccessControlList, IsEmptyWhenThereIsNoRoomForIt)
{
    Record owner(kelmora_wlan_access_control{});
    auto &record = owner.as<kelmora_wlan_access_control>();
    {
        const ListLimit limit(2);
        kelmora_wlan_access_control_allocate_list(&record, 3);
        EXPECT_EQ(record.mac_list, nullptr);
        kelmora_wlan_access_control_allocate_list(&record, 2);
        EXPECT_EQ(length(record.mac_list), 2U);
    }
    const FreeLost free_lost(owner);
    kelmora_wlan_access_control_allocate_list(&record, 3);
    EXPECT_EQ(length(record.mac_list), 3U);
}

TEST(ParentalControlList, HasExactlyAsManyEntriesAsAskedFor)
{
    Record owner(kelmora_parental_control{});
    auto &record = owner.as<kelmora_parental_control>();
    kelmora_errorlist errors;
    EXPECT_NE(kelmora_parental_control_allocate_list(&record, 3, &errors), 0);
    EXPECT_EQ(length(record.parental_control_list), 3U);
    EXPECT_THAT(errors.errors, IsEmpty());
}

TEST(ParentalControlList, IsRefusedWhenThereIsNoRoomForIt)
{
    Record owner(kelmora_parental_control{});
    auto &record = owner.as<kelmora_parental_control>();
    kelmora_errorlist errors;
    const ListLimit limit(2);
    EXPECT_EQ(kelmora_parental_control_allocate_list(&record, 3, &errors), 0);
    EXPECT_EQ(record.parental_control_list, nullptr);
    EXPECT_THAT(errors.errors, ElementsAre(Error{"parental_control_list", "no room for the list", "host"}));
}

TEST(Ipv6DhcpLists, GrowAtTheirEnds)
{
    Record owner(kelmora_ipv6_dhcp_server{});
    auto &record = owner.as<kelmora_ipv6_dhcp_server>();
    kelmora_ipv6_dhcp_domains_add(&record, "home.example");
    kelmora_ipv6_dhcp_domains_add(&record, "");
    kelmora_ipv6_dhcp_dns_servers_add(&record, "2001:db8::53");
    ASSERT_EQ(length(record.domains), 2U);
    EXPECT_STREQ(record.domains->domain, "home.example");
    EXPECT_STREQ(record.domains->next->domain, "");
    ASSERT_EQ(length(record.dns_servers), 1U);
    EXPECT_STREQ(record.dns_servers->address, "2001:db8::53");
}

TEST(Ipv6DhcpLists, CutATextThatTheirNodesCannotHold)
{
    Record owner(kelmora_ipv6_dhcp_server{});
    auto &record = owner.as<kelmora_ipv6_dhcp_server>();
    kelmora_ipv6_dhcp_domains_add(&record, std::string(300, 'd').c_str());
    kelmora_ipv6_dhcp_dns_servers_add(&record, std::string(300, 'a').c_str());
    EXPECT_EQ(record.domains->domain, std::string(254, 'd'));
    EXPECT_EQ(record.dns_servers->address, std::string(45, 'a'));
}

TEST(Ipv6DhcpLists, TakeTimeInProportionToTheirLength)
{
    constexpr std::size_t entries = 40000; // walking the list for each takes half a minute
    Record owner(kelmora_ipv6_dhcp_server{});
    auto &record = owner.as<kelmora_ipv6_dhcp_server>();
    const std::clock_t begin = std::clock();
    {
        const FreeLost free_lost(owner);
        for (std::size_t i = 0; i < entries; ++i) {
            kelmora_ipv6_dhcp_domains_add(&record, "home.example");
            kelmora_ipv6_dhcp_dns_servers_add(&record, "2001:db8::53");
        }
    }
    EXPECT_LT((std::clock() - begin) / CLOCKS_PER_SEC, 5);
    EXPECT_EQ(length(record.domains), entries);
    EXPECT_EQ(length(record.dns_servers), entries);
}

TEST(Tr369Lists, GrowByCopiesOfWhatTheyAreGiven)
{
    kelmora_errorlist errors;
    Record client_owner(kelmora_tr369_mqtt_client{});
    auto &client = client_owner.as<kelmora_tr369_mqtt_client>();
    kelmora_tr369_mqtt_client_subscription subscription{.enabled = 1, .topic = "usp/first", .qos = 1, .next = nullptr};
    subscription.next = &subscription; // not set by the plug-in: anything
    kelmora_tr369_mqttt_client_subscription_add_element(&client, &subscription, 0, &errors);
    subscription.qos = 2;
    kelmora_tr369_mqttt_client_subscription_add_element(&client, &subscription, 0, &errors);
    ASSERT_EQ(length(client.subscription), 2U);
    EXPECT_EQ(client.subscription->qos, 1U);
    EXPECT_EQ(client.subscription->next->qos, 2U);

    Record controller_owner(kelmora_tr369_local_agent_controller{});
    auto &controller = controller_owner.as<kelmora_tr369_local_agent_controller>();
    kelmora_tr369_local_agent_controller_mtp mtp{};
    mtp.protocol = 7;
    kelmora_tr369_local_agent_controller_mtp_add(&controller, &mtp, 0, &errors);
    ASSERT_EQ(length(controller.mtp), 1U);
    EXPECT_EQ(controller.mtp->protocol, 7U);
    EXPECT_THAT(errors.errors, IsEmpty());
}

/// Sees each entry at the moment of its call.
class AddedEntries : public testing::Test {
protected:
    void look(const AddedEntry &entry)
    {
        entries_.push_back(entry);
        texts_.emplace_back(entry.text);
        entries_there_.push_back(length(dhcp_.domains) + length(dhcp_.dns_servers) + length(client_.subscription) +
                                 length(controller_.mtp));
    }

    const kelmora_harness::WatchEntries watch_{[this](const AddedEntry &entry) { look(entry); }};

    Record dhcp_owner_{kelmora_ipv6_dhcp_server{}};
    Record client_owner_{kelmora_tr369_mqtt_client{}};
    Record controller_owner_{kelmora_tr369_local_agent_controller{}};
    kelmora_ipv6_dhcp_server &dhcp_ = dhcp_owner_.as<kelmora_ipv6_dhcp_server>();
    kelmora_tr369_mqtt_client &client_ = client_owner_.as<kelmora_tr369_mqtt_client>();
    kelmora_tr369_local_agent_controller &controller_ = controller_owner_.as<kelmora_tr369_local_agent_controller>();

    std::vector<AddedEntry> entries_;
    std::vector<std::string> texts_;
    std::vector<std::size_t> entries_there_; ///< in all lists, at each call
};

TEST_F(AddedEntries, AreSeenWholeBeforeTheyAreAdded)
{
    const std::string domain(300, 'd');
    const std::string address(300, 'a');
    kelmora_ipv6_dhcp_domains_add(&dhcp_, domain.c_str());
    kelmora_ipv6_dhcp_dns_servers_add(&dhcp_, address.c_str());
    ASSERT_EQ(entries_.size(), 2U);
    EXPECT_EQ(entries_[0].list, "domains");
    EXPECT_EQ(entries_[1].list, "dns_servers");
    EXPECT_THAT(texts_, ElementsAre(domain, address));
    for (const AddedEntry &entry : entries_) {
        EXPECT_EQ(entry.record, &dhcp_);
        EXPECT_EQ(entry.node, nullptr);
        EXPECT_EQ(entry.reserved, 0);
        EXPECT_EQ(entry.errors, nullptr);
    }
    EXPECT_THAT(entries_there_, ElementsAre(0, 1));
    EXPECT_EQ(length(dhcp_.domains), 1U);
    EXPECT_EQ(length(dhcp_.dns_servers), 1U);
}

TEST_F(AddedEntries, AreSeenWithTheOtherArgumentsOfTheirCall)
{
    kelmora_errorlist errors;
    kelmora_tr369_mqtt_client_subscription subscription{};
    kelmora_tr369_local_agent_controller_mtp mtp{};
    kelmora_tr369_mqttt_client_subscription_add_element(&client_, &subscription, 5, &errors);
    kelmora_tr369_local_agent_controller_mtp_add(&controller_, &mtp, -6, nullptr);
    ASSERT_EQ(entries_.size(), 2U);
    EXPECT_EQ(entries_[0].record, &client_);
    EXPECT_EQ(entries_[0].list, "subscription");
    EXPECT_EQ(entries_[0].node, &subscription);
    EXPECT_EQ(entries_[0].reserved, 5);
    EXPECT_EQ(entries_[0].errors, &errors);
    EXPECT_EQ(entries_[1].record, &controller_);
    EXPECT_EQ(entries_[1].list, "mtp");
    EXPECT_EQ(entries_[1].node, &mtp);
    EXPECT_EQ(entries_[1].reserved, -6);
    EXPECT_EQ(entries_[1].errors, nullptr);
    EXPECT_THAT(texts_, ElementsAre("", ""));
    EXPECT_THAT(entries_there_, ElementsAre(0, 1));
}

} // namespace

} // namespace kelmora_host::lists_test
