// What each resource's document is made of: which nodes, in what root, with whose id, rendered with which flags. Its
// keys are told by its own tests.

#include "tests/robustness/resources.h"
#include "tests/support/to_test.h"

#include "harness/poison.h"

#include "kelmora_json.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <jansson.h>
#include <memory>
#include <set>

namespace kelmora_test::shapes_test {

namespace {

/// The nodes that are written.
enum class Entries {
    counted,      ///< as many as the head counts
    all,          ///< the count is not read
    head,         ///< the head alone; the count is not read
    head_repeated ///< as many as the head counts, all made of the head
};

/// What a count of 0 gives, if not what the entries say.
enum class AtZero { as_ever, empty_array };

enum class Root { by_list_flag, array, object };

/// The id that an entry shows.
enum class Id { own, of_the_head, own_as_flow_id, none };

struct Row {
    const char *name;
    Entries entries;
    AtZero at_zero;
    Root root;
    std::size_t flags;
    Id id;
};

constexpr std::size_t plain = 0;
constexpr std::size_t kept_order = 256; // JSON_PRESERVE_ORDER: the same text
constexpr std::size_t pretty = 2000;

// clang-format off
constexpr Row rows[] = {
    {"wireless",                         Entries::counted,       AtZero::as_ever,     Root::by_list_flag, plain,      Id::own},
    {"radio",                            Entries::counted,       AtZero::as_ever,     Root::by_list_flag, plain,      Id::own},
    {"site_survey",                      Entries::all,           AtZero::empty_array, Root::by_list_flag, pretty,     Id::none},
    {"wlan_access_control",              Entries::counted,       AtZero::as_ever,     Root::by_list_flag, plain,      Id::own},
    {"easymesh",                         Entries::counted,       AtZero::as_ever,     Root::by_list_flag, plain,      Id::none},

    {"session",                          Entries::all,           AtZero::as_ever,     Root::array,        pretty,     Id::none},
    {"user",                             Entries::all,           AtZero::as_ever,     Root::by_list_flag, plain,      Id::own},
    {"limited_user_permissions",         Entries::counted,       AtZero::as_ever,     Root::by_list_flag, plain,      Id::none},
    {"remote_web_access",                Entries::counted,       AtZero::as_ever,     Root::by_list_flag, plain,      Id::own},
    {"device",                           Entries::head_repeated, AtZero::as_ever,     Root::by_list_flag, plain,      Id::of_the_head},
    {"status",                           Entries::counted,       AtZero::as_ever,     Root::by_list_flag, plain,      Id::none},
    {"system",                           Entries::all,           AtZero::as_ever,     Root::by_list_flag, pretty,     Id::own},
    {"mp_info",                          Entries::all,           AtZero::as_ever,     Root::by_list_flag, pretty,     Id::none},
    {"limits",                           Entries::all,           AtZero::empty_array, Root::by_list_flag, pretty,     Id::none},
    {"action",                           Entries::all,           AtZero::as_ever,     Root::array,        plain,      Id::none},
    {"factory_default",                  Entries::all,           AtZero::as_ever,     Root::array,        plain,      Id::own},
    {"change_to_firmware_version",       Entries::head_repeated, AtZero::as_ever,     Root::by_list_flag, plain,      Id::of_the_head},
    {"custom_default_config",            Entries::all,           AtZero::empty_array, Root::by_list_flag, pretty,     Id::none},
    {"daily_reboot",                     Entries::all,           AtZero::empty_array, Root::by_list_flag, pretty,     Id::none},
    {"automatic_maintenance",            Entries::all,           AtZero::empty_array, Root::by_list_flag, plain,      Id::own},
    {"datetime",                         Entries::all,           AtZero::empty_array, Root::by_list_flag, pretty,     Id::own},
    {"syslog",                           Entries::all,           AtZero::as_ever,     Root::by_list_flag, pretty,     Id::none},

    {"interface",                        Entries::counted,       AtZero::as_ever,     Root::by_list_flag, pretty,     Id::own},
    {"wan",                              Entries::counted,       AtZero::as_ever,     Root::by_list_flag, plain,      Id::own},
    {"pppoe",                            Entries::counted,       AtZero::as_ever,     Root::by_list_flag, plain,      Id::own},
    {"wan_detect",                       Entries::all,           AtZero::empty_array, Root::by_list_flag, pretty,     Id::none},
    {"wan_lan_list",                     Entries::counted,       AtZero::as_ever,     Root::by_list_flag, plain,      Id::own},
    {"wan_service_type",                 Entries::counted,       AtZero::as_ever,     Root::by_list_flag, plain,      Id::own},
    {"lan",                              Entries::all,           AtZero::as_ever,     Root::array,        plain,      Id::none},
    {"dhcp_server",                      Entries::counted,       AtZero::as_ever,     Root::by_list_flag, plain,      Id::own},
    {"dhcp_static_lease",                Entries::all,           AtZero::empty_array, Root::by_list_flag, pretty,     Id::own},
    {"dhcp_client",                      Entries::counted,       AtZero::as_ever,     Root::by_list_flag, plain,      Id::own},
    {"interface_statistics",             Entries::counted,       AtZero::as_ever,     Root::by_list_flag, plain,      Id::own},
    {"connected_device",                 Entries::all,           AtZero::empty_array, Root::by_list_flag, pretty,     Id::own},
    {"lan_port_status",                  Entries::counted,       AtZero::as_ever,     Root::by_list_flag, plain,      Id::own},
    {"bridging",                         Entries::all,           AtZero::empty_array, Root::by_list_flag, plain,      Id::own},

    {"ipv6_radvd",                       Entries::counted,       AtZero::as_ever,     Root::by_list_flag, plain,      Id::own},
    {"ipv6_prefix_delegation",           Entries::counted,       AtZero::as_ever,     Root::by_list_flag, plain,      Id::none},
    {"ipv6_proxy_mld",                   Entries::counted,       AtZero::as_ever,     Root::by_list_flag, plain,      Id::own},
    {"ipv6_dhcp",                        Entries::counted,       AtZero::as_ever,     Root::by_list_flag, plain,      Id::none},
    {"ipv6_dhcp_server",                 Entries::counted,       AtZero::as_ever,     Root::by_list_flag, plain,      Id::own},
    {"ipv6_dhcp_relay",                  Entries::counted,       AtZero::as_ever,     Root::by_list_flag, plain,      Id::none},
    {"ipv6_dhcp_client",                 Entries::counted,       AtZero::as_ever,     Root::by_list_flag, plain,      Id::own},
    {"ipv6_static_route",                Entries::counted,       AtZero::as_ever,     Root::by_list_flag, plain,      Id::own},
    {"ipv6_static_route_list",           Entries::all,           AtZero::empty_array, Root::by_list_flag, plain,      Id::own},
    {"neighbour_hosts",                  Entries::all,           AtZero::as_ever,     Root::array,        plain,      Id::none},

    {"ping",                             Entries::all,           AtZero::empty_array, Root::by_list_flag, pretty,     Id::none},
    {"traceroute",                       Entries::all,           AtZero::empty_array, Root::by_list_flag, pretty,     Id::none},
    {"http_request",                     Entries::all,           AtZero::as_ever,     Root::by_list_flag, plain,      Id::of_the_head},

    {"natportredirect",                  Entries::counted,       AtZero::as_ever,     Root::by_list_flag, plain,      Id::own},
    {"firewall_port_forwarding_enable",  Entries::all,           AtZero::empty_array, Root::by_list_flag, pretty,     Id::own},
    {"firewall_port_forwarding_table",   Entries::counted,       AtZero::as_ever,     Root::by_list_flag, plain,      Id::own},
    {"filter",                           Entries::all,           AtZero::empty_array, Root::by_list_flag, pretty,     Id::own},
    {"firewall_mac_filtering",           Entries::counted,       AtZero::as_ever,     Root::by_list_flag, plain,      Id::own},
    {"firewall_ip_port_filtering",       Entries::counted,       AtZero::as_ever,     Root::by_list_flag, plain,      Id::own},
    {"ipv6_ip_port_filter",              Entries::counted,       AtZero::as_ever,     Root::by_list_flag, plain,      Id::own},
    {"ipv6_ip_port_filter_default_rule", Entries::counted,       AtZero::as_ever,     Root::by_list_flag, plain,      Id::own},
    {"firewall_domain_blocking",         Entries::counted,       AtZero::as_ever,     Root::by_list_flag, plain,      Id::own},
    {"firewall_url_blocking",            Entries::counted,       AtZero::as_ever,     Root::by_list_flag, plain,      Id::own},
    {"parental_control",                 Entries::head,          AtZero::as_ever,     Root::object,       plain,      Id::none},
    {"acl_capability",                   Entries::all,           AtZero::empty_array, Root::by_list_flag, plain,      Id::own},
    {"acl_config",                       Entries::counted,       AtZero::empty_array, Root::by_list_flag, kept_order, Id::own},
    {"ipv6_acl_capability",              Entries::all,           AtZero::empty_array, Root::by_list_flag, plain,      Id::own},
    {"ipv6_acl_config",                  Entries::counted,       AtZero::empty_array, Root::by_list_flag, pretty,     Id::own},
    {"iptables",                         Entries::all,           AtZero::empty_array, Root::by_list_flag, pretty,     Id::own},
    {"firewall_alg",                     Entries::all,           AtZero::empty_array, Root::by_list_flag, pretty,     Id::own},
    {"ddns",                             Entries::all,           AtZero::empty_array, Root::by_list_flag, pretty,     Id::own},

    {"qos",                              Entries::all,           AtZero::empty_array, Root::by_list_flag, pretty,     Id::own},
    {"qos_rule",                         Entries::all,           AtZero::empty_array, Root::by_list_flag, pretty,     Id::own},
    {"qos_policy",                       Entries::all,           AtZero::empty_array, Root::by_list_flag, pretty,     Id::own},
    {"qos_available_dscp",               Entries::all,           AtZero::empty_array, Root::by_list_flag, pretty,     Id::own},
    {"qos_classification",               Entries::all,           AtZero::empty_array, Root::by_list_flag, plain,      Id::own},
    {"qos_traffic_control",              Entries::all,           AtZero::empty_array, Root::by_list_flag, plain,      Id::own},

    {"static_routing",                   Entries::counted,       AtZero::as_ever,     Root::by_list_flag, plain,      Id::own},
    {"global_routing",                   Entries::counted,       AtZero::as_ever,     Root::by_list_flag, pretty,     Id::own},
    {"rip_enable",                       Entries::all,           AtZero::empty_array, Root::by_list_flag, plain,      Id::own},
    {"rip_config",                       Entries::all,           AtZero::empty_array, Root::by_list_flag, plain,      Id::own},
    {"igmp_proxy",                       Entries::all,           AtZero::empty_array, Root::by_list_flag, pretty,     Id::own},
    {"igmp_mld_snooping",                Entries::all,           AtZero::as_ever,     Root::by_list_flag, pretty,     Id::none},
    {"mirroring",                        Entries::head,          AtZero::empty_array, Root::object,       pretty,     Id::own},
    {"loop_back_detect",                 Entries::all,           AtZero::as_ever,     Root::by_list_flag, plain,      Id::own},
    {"loopback_detect_status",           Entries::all,           AtZero::as_ever,     Root::by_list_flag, plain,      Id::own},

    {"pon_settings",                     Entries::counted,       AtZero::as_ever,     Root::by_list_flag, plain,      Id::own},
    {"pon_stats",                        Entries::counted,       AtZero::as_ever,     Root::by_list_flag, plain,      Id::own},
    {"pon_nodes",                        Entries::counted,       AtZero::as_ever,     Root::by_list_flag, plain,      Id::own},
    {"pon_counters",                     Entries::counted,       AtZero::as_ever,     Root::by_list_flag, plain,      Id::own},
    {"gpon_status",                      Entries::counted,       AtZero::as_ever,     Root::by_list_flag, plain,      Id::own},
    {"gem_port_stats",                   Entries::counted,       AtZero::as_ever,     Root::array,        plain,      Id::own_as_flow_id},
    {"pon_status",                       Entries::counted,       AtZero::as_ever,     Root::by_list_flag, plain,      Id::own},
    {"epon_llid_status",                 Entries::counted,       AtZero::as_ever,     Root::by_list_flag, plain,      Id::own},

    {"tr069_config",                     Entries::all,           AtZero::as_ever,     Root::by_list_flag, plain,      Id::own},
    {"tr069_inform",                     Entries::all,           AtZero::as_ever,     Root::by_list_flag, plain,      Id::own},
    {"tr369_mqtt_client",                Entries::counted,       AtZero::as_ever,     Root::by_list_flag, plain,      Id::own},
    {"tr369_local_agent_mtp",            Entries::counted,       AtZero::as_ever,     Root::by_list_flag, plain,      Id::own},
    {"tr369_local_agent_controller",     Entries::counted,       AtZero::as_ever,     Root::by_list_flag, plain,      Id::own},
};
// clang-format on

void PrintTo(const Row &row, std::ostream *out) { *out << row.name; }

std::string name_of(const testing::TestParamInfo<Row> &info) { return info.param.name; }

TEST(Shapes, HaveARowForEachResourceThatWritesJson)
{
    std::multiset<std::string_view> expected;
    for (const Resource &resource : written_resources())
        expected.insert(resource.name);
    std::multiset<std::string_view> named;
    for (const Row &row : rows)
        named.insert(row.name);
    EXPECT_EQ(named, expected);
}

kelmora_to_translator translator_of(const Resource &resource)
{
#define TO(number, name, group, directions) &name##_to_translator,
    static constexpr std::array<kelmora_to_translator, KELMORA_RESOURCE_COUNT> translators{KELMORA_RESOURCES(TO)};
#undef TO
    return translators[static_cast<std::size_t>(resource.number)];
}

struct Release {
    void operator()(json_t *json) const { json_decref(json); }
};
using Json = std::unique_ptr<json_t, Release>;

/// The three nodes: their ids, and the byte that all of their records but pointers is made of.
struct Sort {
    std::string id;
    char byte;
};
const Sort sorts[] = {{"Zürich/0", '/'}, {"1", '\0'}, {"2", 'b'}};

/// The keys of an entry and of the objects in it, in their order.
std::string keys_of(const json_t *entry)
{
    std::string keys;
    const char *key = nullptr;
    json_t *value = nullptr;
    json_object_foreach(const_cast<json_t *>(entry), key, value) keys += key + ("{" + keys_of(value)) + "} ";
    return keys;
}

/// Keys whose values are no fields, or are fields that the sample only points to.
bool tells_no_record(const std::string &key)
{
    return key == "onu_state_id" || key == "frame_type" || key == "region" || key == "resource_name";
}

class Shape : public ToTestBase, public testing::WithParamInterface<Row> {
protected:
    Shape() : Shape(*kelmora_host::find_resource(GetParam().name)) {}

    /// A node of this sort, with all that hangs on the sample's record; with nothing for zeros. (A cause that is
    /// missing is left out: the cause of the node before would stay in the object.)
    void add(const Sort &sort)
    {
        if (sort.byte == '\0' && resource_.name != "tr069_inform") {
            nodes_.emplace_back("", kelmora_harness::blank_record(resource_));
        } else {
            nodes_.push_back(samples_of(resource_).front());
            fill(resource_, nodes_.back(), std::string_view(&sort.byte, 1));
        }
        set(nodes_.back().resource()->id, sort.id);
    }

    /// The sorts of the entries that are written of the first `size` nodes.
    [[nodiscard]] std::vector<std::size_t> entries(std::size_t size, std::uint32_t count) const
    {
        switch (GetParam().entries) {
        case Entries::counted:
            return first(std::min<std::size_t>(size, count));
        case Entries::all:
            return first(size);
        case Entries::head:
            return first(1);
        case Entries::head_repeated:
            return std::vector<std::size_t>(count, 0);
        }
        return {};
    }

    /// The object shows this sort's id, and of its record alone.
    void expect_entry(const json_t *entry, std::size_t sort)
    {
        ASSERT_TRUE(json_is_object(entry));
        const char *id = json_string_value(json_object_get(entry, "id"));
        const char *flow_id = json_string_value(json_object_get(entry, "flow_id"));
        const std::string &own = sorts[sort].id;
        const std::string none = "none";
        EXPECT_EQ(id != nullptr ? id : none, GetParam().id == Id::own           ? own
                                             : GetParam().id == Id::of_the_head ? sorts[0].id
                                                                                : none);
        EXPECT_EQ(flow_id != nullptr ? flow_id : none, GetParam().id == Id::own_as_flow_id ? own : none);
        telling_ = 0;
        expect_values(entry, sorts[sort].byte, true);
        EXPECT_GT(telling_, 0) << "no value tells the node";
    }

    const Resource &resource_;

private:
    explicit Shape(const Resource &resource) : ToTestBase(translator_of(resource)), resource_(resource) {}

    static std::vector<std::size_t> first(std::size_t size)
    {
        std::vector<std::size_t> indices(size);
        for (std::size_t i = 0; i < size; ++i)
            indices[i] = i;
        return indices;
    }

    /// Each value comes from fields that are full of this byte.
    void expect_values(const json_t *json, char byte, bool is_entry = false)
    {
        const char *key = nullptr;
        json_t *value = nullptr;
        json_object_foreach(const_cast<json_t *>(json), key, value)
        {
            if (!(is_entry && (key == std::string("id") || key == std::string("flow_id"))) && !tells_no_record(key))
                expect_values(value, byte);
        }
        for (std::size_t i = 0; i < json_array_size(json); ++i)
            expect_values(json_array_get(json, i), byte);
        if (json_is_object(json) || json_array_size(json) != 0)
            return;
        if (json_is_array(json)) { // where nothing hangs on the record, or on the end of a chain
            telling_ += byte == '\0' ? 1 : 0;
            return;
        }
        ++telling_;
        if (json_is_string(json)) {
            const std::string string = json_string_value(json);
            EXPECT_EQ(string, std::string(byte == '\0' ? 0 : std::max<std::size_t>(string.size(), 1), byte));
        } else if (json_is_integer(json)) {
            const json_int_t unit = byte;
            EXPECT_THAT(json_integer_value(json), testing::AnyOf(unit, unit * 0x0101, unit * 0x01010101));
        } else if (json_is_real(json)) {
            EXPECT_EQ(json_real_value(json) > 0, byte != '\0');
        } else {
            EXPECT_EQ(json_is_true(json), byte != '\0');
        }
    }

    int telling_ = 0;
};

TEST_P(Shape, WritesTheNodesIntoTheRootWithTheFlagsOfTheResource)
{
    const Row &row = GetParam();
    for (const Sort &sort : sorts) {
        add(sort);
        const auto size = static_cast<std::uint32_t>(nodes_.size());
        for (const std::uint32_t count : {0U, 1U, 2U, size + 1, 4294967295U}) {
            if (row.entries == Entries::head_repeated && count > size + 1)
                continue; // that many entries
            for (const bool as_list : {true, false}) {
                SCOPED_TRACE(std::to_string(size) + " nodes, a count of " + std::to_string(count) +
                             (as_list ? ", as a list" : ""));
                const std::string text = as_list ? list_counting(count) : object_counting(count);
                if (count == 0 && row.at_zero == AtZero::empty_array) {
                    EXPECT_EQ(text, "[]");
                    EXPECT_EQ(allocations_, 0U);
                    continue;
                }
                const Json root(json_loads(text.c_str(), JSON_REJECT_DUPLICATES, nullptr));
                const std::unique_ptr<char, void (*)(void *)> rendered(json_dumps(root.get(), row.flags), std::free);
                EXPECT_EQ(text, rendered.get());
                const std::vector<std::size_t> expected = entries(size, count);
                const bool is_array = row.root == Root::array || (row.root == Root::by_list_flag && as_list);
                ASSERT_EQ(json_is_array(root.get()), is_array) << text;
                if (is_array) {
                    ASSERT_EQ(json_array_size(root.get()), expected.size()) << text;
                    for (std::size_t i = 0; i < expected.size(); ++i) {
                        const json_t *entry = json_array_get(root.get(), i);
                        expect_entry(entry, expected[i]);
                        EXPECT_EQ(keys_of(entry), keys_of(json_array_get(root.get(), 0)));
                    }
                } else if (expected.empty()) {
                    EXPECT_EQ(text, "{}");
                } else {
                    expect_entry(root.get(), expected.back());
                }
            }
        }
    }
}

TEST_P(Shape, CutsTheIdToItsFieldAndLeavesItOutWhenItIsNotUtf8)
{
    const bool as_flow_id = GetParam().id == Id::own_as_flow_id;
    const char *key = as_flow_id ? "flow_id" : "id";
    add(sorts[2]);
    const auto id_written = [&]() -> std::string {
        const Json root(json_loads(object().c_str(), 0, nullptr));
        const json_t *entry = json_is_array(root.get()) ? json_array_get(root.get(), 0) : root.get();
        EXPECT_GT(json_object_size(entry), 0U);
        const json_t *id = json_object_get(entry, key);
        EXPECT_EQ(json_is_string(id), id != nullptr);
        return id != nullptr ? json_string_value(id) : "none";
    };
    auto &id = nodes_.front().resource()->id;
    fill_whole(id, 'n');
    EXPECT_EQ(id_written(), GetParam().id == Id::none ? "none" : std::string(128, 'n'));
    id[127] = '\xC3'; // the first byte of a two-byte character: the last that is written
    id[128] = '\xA4';
    EXPECT_EQ(id_written(), "none");
    set(id, "caf\xE9");
    EXPECT_EQ(id_written(), "none");
}

TEST_P(Shape, SurvivesFailingMemory)
{
    nodes_.push_back(samples_of(resource_).front());
    fill(resource_, nodes_.front(), "f"); // a string that must be cut takes an allocation of the library's own
    nodes_.push_back(samples_of(resource_).front());
    expect_survives_failing_memory();
}

INSTANTIATE_TEST_SUITE_P(Every, Shape, testing::ValuesIn(rows), name_of);

} // namespace

} // namespace kelmora_test::shapes_test
