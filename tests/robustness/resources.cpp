#include "tests/robustness/resources.h"

#include "host/plugin/registry.h"

#include "tests/support/from_test.h"

#include "host/gateway/gateway.h"
#include "host/plugin/translate.h"

#include "kelmora_json.h"
#include "kelmora_records.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <iterator>
#include <set>
#include <type_traits>
#include <unordered_set>

namespace kelmora_test {

using kelmora_host::ChainRecord;
using kelmora_host::Directions;
using kelmora_host::Error;
using kelmora_host::Node;
using kelmora_host::Owned;
using kelmora_host::Record;

namespace {

constexpr std::size_t promised_size = 4096;
constexpr std::size_t buffer_guard = address_sanitizer ? 0 : 64; // the sanitizer watches the very end
constexpr unsigned char untouched = 0x5A;

#ifdef KELMORA_RELEASE_ALL
constexpr bool releases_all = true;
#else
constexpr bool releases_all = false;
#endif

const kelmora_host::Registration &translators_of(const Resource &resource)
{
    kelmora_host::Registry &registry = kelmora_host::Registry::instance();
    if (registry.log().empty())
        kelmora_json_init();
    return *registry.find(resource.number);
}

std::vector<Resource> resources_without(Directions other_direction)
{
    std::vector<Resource> chosen;
    for (const Resource &resource : kelmora_host::resources()) {
        if (resource.directions != other_direction && !is_raw(resource))
            chosen.push_back(resource);
    }
    return chosen;
}

/// Whether no node and no text hangs on a record twice. (A ring would never end.)
struct WellFormed {
    template <class Node> void chain(Node *&first)
    {
        for (Node *node = first; node != nullptr && see(node); node = node->next)
            Owned<Node>::visit(*node, *this);
    }

    void text(char *&text)
    {
        if (text != nullptr)
            see(text);
    }

    bool see(const void *block)
    {
        yes = yes && seen.insert(block).second;
        return yes;
    }

    bool yes = true;
    std::unordered_set<const void *> seen;
};

/// Puts the pointers of a record back at the end of its life.
class KeepPointers {
public:
    template <class T> explicit KeepPointers(T &record)
    {
        Owned<T>::visit(record, *this);
        if constexpr (requires { record.next; })
            keep(record.next);
        if constexpr (std::is_same_v<T, kelmora_datetime_timezone>)
            keep(record.region);
        if constexpr (std::is_same_v<T, kelmora_limited_user_permissions_entry>)
            keep(record.resource_name);
    }
    KeepPointers(const KeepPointers &) = delete;
    KeepPointers &operator=(const KeepPointers &) = delete;
    ~KeepPointers()
    {
        for (const auto &put_back : kept_)
            put_back();
    }

    template <class Node> void chain(Node *&first) { keep(first); }
    void text(char *&text) { keep(text); }

private:
    template <class Pointer> void keep(Pointer &pointer)
    {
        kept_.emplace_back([&pointer, value = pointer] { pointer = value; });
    }

    std::vector<std::function<void()>> kept_;
};

/// Overwrites everything but pointers.
class Fill {
public:
    Fill(std::string_view pattern, std::size_t phase) : pattern_(pattern), phase_(phase) {}

    template <class T> void whole(T &record)
    {
        {
            const KeepPointers keep(record);
            bytes(&record, sizeof record);
        }
        Owned<T>::visit(record, *this);
    }

    template <class Node> void chain(Node *&first)
    {
        for (Node *node = first; node != nullptr; node = node->next)
            whole(*node);
    }

    void text(char *&text)
    {
        if (text != nullptr)
            bytes(text, std::strlen(text));
    }

    void bytes(void *first, std::size_t size)
    {
        for (std::size_t i = 0; i < size; ++i)
            static_cast<char *>(first)[i] = pattern_[(i + phase_) % pattern_.size()];
    }

private:
    std::string_view pattern_;
    std::size_t phase_;
};

/// What can be done with the records of a resource.
struct Type {
    Record (*stale)(); ///< a Guarded one
    std::string (*image)(Record &guarded);
    bool (*well_formed)(Record &guarded);
    void (*fill)(Record &record, Fill &fill); ///< one that is not guarded
};

template <class T> struct TypeOf {
    static Record stale()
    {
        Guarded<T> guarded;
        std::memset(&guarded, 0xA5, sizeof guarded);
        kelmora_host::Forget forget;
        Owned<T>::visit(guarded.record, forget);
        return Record(guarded);
    }

    static std::string image(Record &guarded)
    {
        T copy;
        std::memcpy(&copy, guarded.bytes(), sizeof copy);
        Image image;
        Owned<T>::visit(copy, image);
        return std::string(reinterpret_cast<const char *>(&copy), sizeof copy) + image.bytes();
    }

    static bool well_formed(Record &guarded)
    {
        WellFormed well_formed;
        Owned<T>::visit(guarded.as<Guarded<T>>().record, well_formed);
        return well_formed.yes;
    }

    static void fill(Record &record, Fill &fill) { fill.whole(record.as<T>()); }

    static constexpr Type value{stale, image, well_formed, fill};
};

// A node's data is the chain itself.
template <> struct TypeOf<kelmora_qos_available_dscp> : TypeOf<ChainRecord<kelmora_qos_available_dscp>> {
};

const Type &type_of(const Resource &resource)
{
#define TYPE(number, name, group, directions) &TypeOf<kelmora_##name>::value,
    static constexpr std::array<const Type *, KELMORA_RESOURCE_COUNT> types{KELMORA_RESOURCES(TYPE)};
#undef TYPE
    return *types[static_cast<std::size_t>(resource.number)];
}

/// The bytes of all records and nodes, to compare.
std::vector<std::string> images(Nodes &nodes)
{
    std::vector<std::string> images;
    for (Node &node : nodes) {
        images.emplace_back(reinterpret_cast<const char *>(node.resource()), sizeof(kelmora_resource));
        images.emplace_back(static_cast<const char *>(node.record().bytes()), node.record().size());
    }
    return images;
}

bool is_one_of(std::string_view name, const std::set<std::string_view> &names) { return names.contains(name); }

/// Whether the contract leaves the document of a call unreleased.
bool leaks_document(const Resource &resource, const std::string &text, const Answer &answer)
{
    if (releases_all)
        return false;
    if (answer.result == 1)
        return !text.empty() && is_one_of(resource.name, {"dhcp_server", "loop_back_detect", "tr369_local_agent_mtp"});
    if (answer.errors.empty() || answer.errors.back().message == "invalid json data")
        return false;
    const std::string &field = answer.errors.back().field;
    if (is_one_of(resource.name, {"ipv6_proxy_mld", "rip_enable", "rip_config", "ipv6_ip_port_filter_default_rule"}))
        return true;
    if (resource.name == "ipv6_dhcp_server")
        return field == "addresses_config";
    // A member of a list's element: "list.member".
    return is_one_of(resource.name, {"wan_lan_list", "firewall_mac_filtering", "firewall_ip_port_filtering"}) &&
           field.find('.') != std::string::npos;
}

/// An error with which the translation goes on.
bool is_remark(const Error &error) { return error == Error{"mtp.protocol", "invalid protocol", "json"}; }

} // namespace

std::vector<Resource> written_resources() { return resources_without(Directions::from_only); }

std::vector<Resource> read_resources()
{
    std::vector<Resource> chosen = resources_without(Directions::to_only);
    std::erase_if(chosen, [](const Resource &resource) {
        return resource.name == "connected_device"; // takes any text, and reads nothing of it
    });
    return chosen;
}

std::string test_name(const testing::TestParamInfo<Resource> &info) { return std::string(info.param.name); }

Nodes samples_of(const Resource &resource)
{
    static kelmora_host::Gateway gateway = kelmora_host::sample_gateway();
    return gateway.nodes(resource.name);
}

std::string example_of(const Resource &resource)
{
    const std::string path = KELMORA_EXAMPLES_DIR "/" + std::string(resource.name) + ".json";
    std::ifstream file(path);
    EXPECT_TRUE(file.is_open()) << path;
    return {std::istreambuf_iterator<char>(file), {}};
}

Written write_out(const Resource &resource, Nodes &nodes, bool as_list, FailingAllocation memory)
{
    const kelmora_to_translator to = translators_of(resource).to;
    kelmora_resource *head = kelmora_host::link_request(nodes, as_list);
    const auto images_before = images(nodes);

    auto *buffer = static_cast<char *>(std::malloc(promised_size + buffer_guard));
    std::memset(buffer, untouched, promised_size + buffer_guard);
    char *out = buffer;
    const std::size_t alive_before = allocations::alive();

    allocations::fail(memory.number, memory.failing);
    const int result = to(head, &out);
    const Written written{result, out, allocations::asked_for(), allocations::reallocations(),
                          allocations::reallocated_size()};
    allocations::pass();

    EXPECT_EQ(allocations::alive(), alive_before) << "memory outlives the call";
    EXPECT_TRUE(images(nodes) == images_before) << "a record or a node was written";
    if (written.text.size() < promised_size) {
        const auto *bytes = reinterpret_cast<const unsigned char *>(out);
        EXPECT_TRUE(std::all_of(bytes + written.text.size() + 1, bytes + promised_size + buffer_guard,
                                [](unsigned char byte) { return byte == untouched; }))
            << "written behind the text";
    } else {
        EXPECT_EQ(written.reallocated_size, written.text.size() + 1);
    }
    std::free(out);
    return written;
}

Answer read_in(const Resource &resource, const std::string &text, FailingAllocation memory,
               const std::function<void(Nodes &)> &look)
{
    const kelmora_from_translator from = translators_of(resource).from;
    const Type &type = type_of(resource);
    const auto library_blocks = [] { return allocations::alive() - allocations::json_alive(); };
    const std::size_t blocks_before = library_blocks();
    Answer answer{};
    {
        Nodes nodes;
        nodes.emplace_back("node under test", type.stale());
        Node &node = nodes.front();
        const kelmora_resource header_before = *node.resource();
        const std::size_t json_before = allocations::json_alive();

        allocations::fail(memory.number, memory.failing);
        kelmora_host::Decoded written = kelmora_host::from_json(from, node, text);
        answer.allocations = allocations::asked_for();
        allocations::pass();
        answer.result = written.result;
        answer.errors = std::move(written.errors);

        const auto failures = std::count_if(answer.errors.begin(), answer.errors.end(), std::not_fn(is_remark));
        EXPECT_EQ(failures, answer.result == 1 ? 0 : 1) << "result and errors do not fit together";
        EXPECT_TRUE(answer.result == 0 || answer.result == 1) << answer.result;
        if (leaks_document(resource, text, answer)) {
            EXPECT_GT(allocations::json_alive(), json_before) << "the document is not kept";
        } else {
            EXPECT_EQ(allocations::json_alive(), json_before) << "JSON values outlive the call";
        }
        EXPECT_EQ(std::memcmp(node.resource(), &header_before, sizeof header_before), 0) << "the node was written into";
        const auto *end = static_cast<const unsigned char *>(node.record().bytes()) + node.record().size();
        EXPECT_TRUE(std::all_of(end - guard_size, end, [](unsigned char byte) { return byte == 0xA5; }))
            << "written behind the record";
        const bool well_formed = type.well_formed(node.record());
        EXPECT_TRUE(well_formed) << "a node or a text hangs on the record twice";
        if (!well_formed)
            std::abort(); // freeing it would do worse
        answer.image = type.image(node.record());
        if (look)
            look(nodes);
    }
    EXPECT_EQ(library_blocks(), blocks_before) << "memory outlives the call that the record does not own";
    return answer;
}

void fill(const Resource &resource, Node &node, std::string_view pattern, std::size_t phase)
{
    Fill fill(pattern, phase);
    fill.bytes(node.resource()->id, sizeof node.resource()->id);
    type_of(resource).fill(node.record(), fill);
}

} // namespace kelmora_test
