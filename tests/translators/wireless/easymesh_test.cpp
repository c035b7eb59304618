#include "tests/support/allocations.h"
#include "tests/support/from_test.h"
#include "tests/support/to_test.h"

#include "kelmora_json.h"
#include "records/wireless.h"

#include <algorithm>
#include <cstdlib>
#include <jansson.h>
#include <type_traits>

namespace kelmora_test::easymesh_test {

namespace {

using testing::AnyOf;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::StartsWith;

using Neighbor = kelmora_easymesh_neighbor;

/// Two nodes, the first with one below it that has two of its own; a new tree each time.
Neighbor *tree()
{
    return kelmora_host::make_chain<Neighbor>({
        {
            .name = "Upstairs",
            .model = "KM-R2",
            .is_online = 1,
            .ip = "192.168.17.2",
            .mac = "02:1a:11:f0:4d:10",
            .rssi = -58,
            .backhaul = 2,
            .neighbors = kelmora_host::make_chain<Neighbor>({{
                .name = "Attic",
                .rssi = -71,
                .neighbors = kelmora_host::make_chain<Neighbor>({{.name = "Roof"}, {.name = "Mast"}}),
            }}),
        },
        {.name = "Garage", .mac = "02:1a:11:f0:4d:30"},
    });
}

constexpr char upstairs_text[] =
    R"({"name": "Upstairs", "model": "KM-R2", "is_online": true, "ip": "192.168.17.2", )"
    R"("mac": "02:1a:11:f0:4d:10", "rssi": -58, "backhaul": 2, "neighbors": [)"
    R"({"name": "Attic", "model": "", "is_online": false, "ip": "", "mac": "", "rssi": -71, "backhaul": 0, )"
    R"("neighbors": [)"
    R"({"name": "Roof", "model": "", "is_online": false, "ip": "", "mac": "", "rssi": 0, "backhaul": 0, )"
    R"("neighbors": []}, )"
    R"({"name": "Mast", "model": "", "is_online": false, "ip": "", "mac": "", "rssi": 0, "backhaul": 0, )"
    R"("neighbors": []}]}]})";

constexpr char garage_text[] =
    R"({"name": "Garage", "model": "", "is_online": false, "ip": "", "mac": "02:1a:11:f0:4d:30", "rssi": 0, )"
    R"("backhaul": 0, "neighbors": []})";

/// A new record each time, as each node owns its tree.
kelmora_easymesh sample()
{
    return {
        .enabled = 1,
        .controllerIp = "192.168.17.1",
        .backhaul_mac = "02:1a:11:f0:3c:02",
        .backhaul_rssi = -61,
        .type = 1,
        .backhaul = 2,
        .neighbors = tree(),
        .syncing = 3,
    };
}

const std::string sample_text =
    R"({"enabled": true, "controllerIp": "192.168.17.1", "backhaul_mac": "02:1a:11:f0:3c:02", "backhaul_rssi": -61, )"
    R"("type": 1, "backhaul": 2, "syncing": 3, "neighbors": [)" +
    std::string(upstairs_text) + ", " + garage_text + "]}";

constexpr char empty_text[] =
    R"({"enabled": false, "controllerIp": "", "backhaul_mac": "", "backhaul_rssi": 0, "type": 0, "backhaul": 0, )"
    R"("syncing": 0, "neighbors": []})";

// ---- add_neighbors

/// A JSON array of the caller's, and the memory that it and all in it take.
class AddNeighbors : public testing::Test {
protected:
    AddNeighbors() : alive_before_(allocations::alive()), chain_(tree()), array_(json_array()) {}

    ~AddNeighbors() override
    {
        json_decref(array_);
        kelmora_host::Free free;
        free.chain(chain_);
        EXPECT_EQ(allocations::alive(), alive_before_) << "memory is leaked";
    }

    static std::string rendered(const json_t *json)
    {
        char *text = json_dumps(json, JSON_ENCODE_ANY);
        std::string copy = text != nullptr ? text : "nothing";
        std::free(text);
        return copy;
    }

    std::size_t alive_before_;
    Neighbor *chain_;
    json_t *array_;
};

static_assert(std::is_same_v<decltype(add_neighbors), int(const kelmora_easymesh_neighbor *, json_t *)>);

TEST_F(AddNeighbors, AppendsTheNodesOfEveryLevel)
{
    EXPECT_EQ(add_neighbors(chain_, array_), 0);
    EXPECT_EQ(rendered(array_), "[" + std::string(upstairs_text) + ", " + garage_text + "]");
    EXPECT_EQ(array_->refcount, 1U);
}

TEST_F(AddNeighbors, StartsAtTheNodeThatItIsGiven)
{
    EXPECT_EQ(add_neighbors(chain_->next, array_), 0);
    EXPECT_EQ(rendered(array_), "[" + std::string(garage_text) + "]");
}

TEST_F(AddNeighbors, KeepsTheElementsThatTheArrayHas)
{
    json_array_append_new(array_, json_integer(17));
    EXPECT_EQ(add_neighbors(chain_->next, array_), 0);
    EXPECT_EQ(add_neighbors(chain_, array_), 0);
    EXPECT_EQ(rendered(array_), "[17, " + std::string(garage_text) + ", " + upstairs_text + ", " + garage_text + "]");
}

TEST_F(AddNeighbors, LeavesTheTreeAsItIs)
{
    kelmora_easymesh mesh{.neighbors = chain_};
    Image before;
    kelmora_host::Owned<kelmora_easymesh>::visit(mesh, before);
    EXPECT_EQ(add_neighbors(chain_, array_), 0);
    mesh.neighbors = chain_;
    Image after;
    kelmora_host::Owned<kelmora_easymesh>::visit(mesh, after);
    EXPECT_EQ(after.bytes(), before.bytes());
}

TEST_F(AddNeighbors, FailsForWhatIsNoArray)
{
    EXPECT_EQ(add_neighbors(chain_, nullptr), -1);
    json_t *object = json_object();
    EXPECT_EQ(add_neighbors(chain_, object), -1);
    EXPECT_EQ(object->refcount, 1U);
    EXPECT_EQ(rendered(object), "{}");
    json_decref(object);
    EXPECT_EQ(add_neighbors(chain_, json_true()), -1);
}

TEST_F(AddNeighbors, AppendsNothingForNoNode)
{
    EXPECT_EQ(add_neighbors(nullptr, array_), 0);
    EXPECT_EQ(rendered(array_), "[]");
    EXPECT_EQ(add_neighbors(nullptr, nullptr), -1);
}

TEST_F(AddNeighbors, LeavesWholeNodesAloneInTheArrayWhenMemoryRunsOut)
{
    fill_whole(chain_->next->name, 'n'); // a cut text takes an allocation of the library's own
    const std::string cut = R"({"name": ")" + std::string(63, 'n') + std::string(garage_text).substr(16);
    for (const Failing failing : {Failing::once, Failing::from_then_on}) {
        for (std::size_t n = 1;; ++n) {
            json_t *array = json_array();
            json_array_append_new(array, json_integer(17));
            const std::size_t alive = allocations::alive();
            allocations::fail(n, failing);
            const int result = add_neighbors(chain_, array);
            const bool reached = allocations::asked_for() >= n;
            allocations::pass();
            EXPECT_EQ(result, reached ? -1 : 0) << n;
            EXPECT_EQ(array->refcount, 1U);
            EXPECT_EQ(rendered(json_array_get(array, 0)), "17");
            EXPECT_LE(json_array_size(array), reached ? 2U : 3U);
            for (std::size_t i = 1; i < json_array_size(array); ++i)
                EXPECT_THAT(rendered(json_array_get(array, i)), AnyOf(std::string(upstairs_text), cut)) << n;
            json_array_clear(array);
            EXPECT_LE(allocations::alive(), alive) << "memory is leaked with allocation " << n << " failing";
            json_decref(array);
            if (!reached) {
                EXPECT_GT(n, 1U) << "no allocation failed";
                break;
            }
        }
    }
}

// ---- To JSON

class EasymeshTo : public ToTest<kelmora_easymesh> {
protected:
    EasymeshTo() : ToTest(easymesh_to_translator) {}
};

TEST_F(EasymeshTo, WritesTheKeysInOrderAndNoId)
{
    add("the id", sample());
    EXPECT_EQ(object(), sample_text);
    EXPECT_EQ(list(), "[" + sample_text + "]");
}

TEST_F(EasymeshTo, WritesNoNeighborsAsAnEmptyArray)
{
    add("0");
    EXPECT_EQ(object(), empty_text);
    EXPECT_EQ(list(), "[" + std::string(empty_text) + "]");
}

TEST_F(EasymeshTo, WritesSignalLevelsAsSignedAndCodesAsUnsigned)
{
    kelmora_easymesh &mesh = add("0");
    mesh.backhaul_rssi = -2147483648;
    mesh.type = 4294967295;
    mesh.backhaul = 4294967294;
    mesh.syncing = 2147483648;
    mesh.neighbors = kelmora_host::make_chain<Neighbor>({{.rssi = -1, .backhaul = 4294967295}});
    EXPECT_EQ(object(), R"({"enabled": false, "controllerIp": "", "backhaul_mac": "", "backhaul_rssi": -2147483648, )"
                        R"("type": 4294967295, "backhaul": 4294967294, "syncing": 2147483648, "neighbors": [)"
                        R"({"name": "", "model": "", "is_online": false, "ip": "", "mac": "", "rssi": -1, )"
                        R"("backhaul": 4294967295, "neighbors": []}]})");
}

TEST_F(EasymeshTo, WritesAnySwitchButZeroAsTrue)
{
    expect_switches({{"enabled", &kelmora_easymesh::enabled}});
    add("0").neighbors = kelmora_host::make_chain<Neighbor>({{.is_online = 128}});
    EXPECT_THAT(object(), HasSubstr(R"("is_online": true)"));
}

TEST_F(EasymeshTo, CutsTextsToOneByteLessThanTheirField)
{
    kelmora_easymesh &mesh = add("0");
    fill_whole(mesh.controllerIp, 'c');
    fill_whole(mesh.backhaul_mac, 'b');
    mesh.neighbors = kelmora_host::make_chain<Neighbor>({{}});
    fill_whole(mesh.neighbors->name, 'n');
    fill_whole(mesh.neighbors->model, 'o');
    fill_whole(mesh.neighbors->ip, 'i');
    fill_whole(mesh.neighbors->mac, 'm');
    EXPECT_EQ(object(),
              R"({"enabled": false, "controllerIp": "cccccccccccccccc", "backhaul_mac": "bbbbbbbbbbbbbbbbb", )"
              R"("backhaul_rssi": 0, "type": 0, "backhaul": 0, "syncing": 0, "neighbors": [{"name": ")" +
                  std::string(63, 'n') + R"(", "model": ")" + std::string(63, 'o') +
                  R"(", "is_online": false, "ip": "iiiiiiiiiiiiiiii", "mac": "mmmmmmmmmmmmmmmmm", "rssi": 0, )"
                  R"("backhaul": 0, "neighbors": []}]})");
}

TEST_F(EasymeshTo, LeavesOutATextThatIsNotUtf8ButKeepsItsNode)
{
    kelmora_easymesh &mesh = add("0", sample());
    set(mesh.controllerIp, "\xFF");
    Neighbor &garage = *mesh.neighbors->next;
    fill_whole(garage.name, 'n');
    garage.name[62] = '\xC3'; // the first byte of a character that the cut splits
    garage.name[63] = '\xA4';
    EXPECT_THAT(object(), StartsWith(R"({"enabled": true, "backhaul_mac")"));
    EXPECT_THAT(object(), HasSubstr(R"(, {"model": "", "is_online": false, "ip": "", "mac": "02:1a:11:f0:4d:30")"));
}

TEST_F(EasymeshTo, WritesOtherScriptsAndSlashesAsTheyAre)
{
    set(add("0", sample()).neighbors->name, "Büro/\"北\"");
    EXPECT_THAT(object(), HasSubstr("\"name\": \"Büro/\\\"北\\\"\""));
}

TEST_F(EasymeshTo, WritesADeepTreeIntoALargerBuffer)
{
    kelmora_easymesh &mesh = add("0");
    const std::string node = R"({"name": "n", "model": "", "is_online": false, "ip": "", "mac": "", "rssi": 0, )"
                             R"("backhaul": 0, "neighbors": [)";
    std::string expected = empty_text;
    expected.resize(expected.size() - 2);
    for (int level = 0; level < 100; ++level) {
        mesh.neighbors = kelmora_host::make_chain<Neighbor>({{.name = "n", .neighbors = mesh.neighbors}});
        expected += node;
    }
    for (int level = 0; level < 100; ++level)
        expected += "]}";
    EXPECT_EQ(object(), expected + "]}");
    EXPECT_EQ(reallocations_, 1U);
}

// ---- From JSON

constexpr char document[] = R"({
    "enabled": true, "controllerIp": "10.40.0.1", "type": 4, "backhaul": 5,
    "backhaul_mac": "never read", "backhaul_rssi": -1,
    "neighbors": [
        {"mac": "02:1a:11:f0:4d:40", "name": "Garden house", "model": "KM-R3",
         "is_online": true, "ip": "10.40.0.2", "rssi": -40, "backhaul": 9},
        {"mac": "02:1a:11:f0:4d:50"}
    ]
})";

class EasymeshFrom : public FromTest<kelmora_easymesh> {
protected:
    EasymeshFrom() : FromTest(easymesh_from_translator, document) {}

    std::vector<std::string> addresses()
    {
        std::vector<std::string> addresses;
        for (const Neighbor *node = record().neighbors; node != nullptr; node = node->next)
            addresses.emplace_back(node->mac);
        return addresses;
    }

    /// Puts a chain of two nodes into the record, and returns it.
    Neighbor *add_old_chain()
    {
        poison();
        record().neighbors = kelmora_host::make_chain<Neighbor>({{.mac = "old"}, {.mac = "older"}});
        return record().neighbors;
    }

    /// What the document does not set but the mesh itself, and the rest of the node is clear.
    static void expect_as_made(const Neighbor &node)
    {
        EXPECT_EQ(node.is_online, 0);
        EXPECT_EQ(std::string(node.ip, sizeof node.ip), std::string(17, '\0'));
        EXPECT_EQ(node.rssi, 0);
        EXPECT_EQ(node.backhaul, 0U);
        EXPECT_EQ(node.neighbors, nullptr);
    }

    /// A text of the first node is cut to its field, the rest filled with NULs, and anything else stored as empty.
    template <std::size_t width> void expect_node_text(const std::string &key, char (Neighbor::*field)[width])
    {
        std::vector<std::pair<std::string, std::string>> cases;
        for (const std::size_t length : {std::size_t{0}, std::size_t{1}, width - 2, width - 1, width, width + 1})
            cases.emplace_back(quoted(length), quoted(length).substr(1, std::min(length, width - 1)));
        for (const char *other : {"1", "1.5", "true", "null", "{}", "[\"text\"]"})
            cases.emplace_back(other, "");
        for (auto &[json, expected] : cases) {
            poison();
            EXPECT_TRUE(accepts(with(document, "neighbors.0." + key, json)));
            expected.resize(width, '\0');
            ASSERT_NE(record().neighbors, nullptr);
            EXPECT_EQ(std::string(record().neighbors->*field, width), expected) << key << ": " << json;
        }
    }
};

TEST_F(EasymeshFrom, StoresEveryKey)
{
    EXPECT_TRUE(accepts(document));
    EXPECT_EQ(record().enabled, 1);
    EXPECT_STREQ(record().controllerIp, "10.40.0.1");
    EXPECT_EQ(record().type, 4U);
    EXPECT_EQ(record().backhaul, 5U);
    EXPECT_THAT(addresses(), ElementsAre("02:1a:11:f0:4d:40", "02:1a:11:f0:4d:50"));
    EXPECT_STREQ(record().neighbors->name, "Garden house");
    EXPECT_STREQ(record().neighbors->model, "KM-R3");
}

TEST_F(EasymeshFrom, LeavesWhatIsTheMeshsOwn)
{
    EXPECT_TRUE(accepts(document));
    EXPECT_TRUE(untouched(record().backhaul_mac));
    EXPECT_TRUE(untouched(record().backhaul_rssi));
    EXPECT_TRUE(untouched(record().syncing));
    expect_as_made(*record().neighbors);
    expect_as_made(*record().neighbors->next);
}

TEST_F(EasymeshFrom, StoresAbsentNamesAndModelsAsEmpty)
{
    EXPECT_TRUE(accepts(document));
    const Neighbor &second = *record().neighbors->next;
    EXPECT_EQ(std::string(second.name, sizeof second.name), std::string(64, '\0'));
    EXPECT_EQ(std::string(second.model, sizeof second.model), std::string(64, '\0'));
    EXPECT_EQ(second.next, nullptr);
}

TEST_F(EasymeshFrom, AsksForTheRequiredKeysInOrder)
{
    expect_required_in_order({
        {"enabled", "enabled", "enabled field not found"},
        {"controllerIp", "controllerIp", "controllerIp field not found"},
        {"type", "type", "type field not found"},
        {"backhaul", "backhaul", "backhaul field not found"},
    });
}

TEST_F(EasymeshFrom, AMissingKeyKeepsWhatIsStoredBeforeIt)
{
    Neighbor *old_chain = add_old_chain();
    EXPECT_TRUE(rejects(without(document, "enabled"), "enabled", "enabled field not found"));
    EXPECT_TRUE(untouched(record().enabled));
    EXPECT_TRUE(rejects(without(document, "controllerIp"), "controllerIp", "controllerIp field not found"));
    EXPECT_EQ(record().enabled, 1);
    EXPECT_TRUE(untouched(record().controllerIp));
    EXPECT_TRUE(rejects(without(document, "type"), "type", "type field not found"));
    EXPECT_STREQ(record().controllerIp, "10.40.0.1");
    EXPECT_TRUE(untouched(record().type));
    EXPECT_TRUE(rejects(without(document, "backhaul"), "backhaul", "backhaul field not found"));
    EXPECT_EQ(record().type, 4U);
    EXPECT_TRUE(untouched(record().backhaul));
    EXPECT_EQ(record().neighbors, old_chain);
}

TEST_F(EasymeshFrom, RefusesTheStateWhateverItsValue)
{
    for (const char *value : {"0", "1", "null", "false", "\"\"", "{}", "[]", "1.5"}) {
        Neighbor *old_chain = add_old_chain();
        EXPECT_TRUE(rejects(with(document, "syncing", value), "syncing", "syncing cannot be configured"));
        EXPECT_EQ(record().enabled, 1);
        EXPECT_STREQ(record().controllerIp, "10.40.0.1");
        EXPECT_EQ(record().type, 4U);
        EXPECT_EQ(record().backhaul, 5U);
        EXPECT_TRUE(untouched(record().syncing));
        EXPECT_EQ(record().neighbors, old_chain);
        EXPECT_THAT(addresses(), ElementsAre("old", "older"));
    }
}

TEST_F(EasymeshFrom, AsksForTheRequiredKeysBeforeItLooksForTheState)
{
    EXPECT_TRUE(rejects(without(with(document, "syncing", "0"), "backhaul"), "backhaul", "backhaul field not found"));
}

TEST_F(EasymeshFrom, KeepsTheChainWhenThereAreNoNeighbors)
{
    Neighbor *old_chain = add_old_chain();
    EXPECT_TRUE(accepts(without(document, "neighbors")));
    EXPECT_EQ(record().neighbors, old_chain);
    for (const char *other : {"[]", "null", "1", "1.5", "true", "\"text\"", "{}", R"({"mac": "02:1a:11:f0:4d:40"})"}) {
        EXPECT_TRUE(accepts(with(document, "neighbors", other)));
        EXPECT_EQ(record().neighbors, old_chain) << other;
    }
    EXPECT_THAT(addresses(), ElementsAre("old", "older"));
}

TEST_F(EasymeshFrom, ReplacesTheWholeChain)
{
    const Neighbor *old_chain = add_old_chain();
    EXPECT_TRUE(accepts(document));
    EXPECT_NE(record().neighbors, old_chain);
    EXPECT_THAT(addresses(), ElementsAre("02:1a:11:f0:4d:40", "02:1a:11:f0:4d:50"));
}

TEST_F(EasymeshFrom, StoresAnyNumberOfNeighbors)
{
    for (int count = 1; count <= 20; ++count) {
        poison();
        std::string json = "[";
        std::vector<std::string> expected;
        for (int i = 0; i < count; ++i) {
            expected.push_back("address " + std::to_string(i));
            json += (i == 0 ? "" : ", ") + (R"({"mac": ")" + expected.back()) + R"("})";
        }
        EXPECT_TRUE(accepts(with(document, "neighbors", json + "]")));
        EXPECT_EQ(addresses(), expected);
    }
}

TEST_F(EasymeshFrom, MissingAddressOfTheFirstLeavesOneEmptyNodeInPlaceOfTheOldChain)
{
    const Neighbor *old_chain = add_old_chain();
    EXPECT_TRUE(rejects(without(document, "neighbors.0.mac"), "neighbors", "no mac field"));
    ASSERT_NE(record().neighbors, nullptr);
    EXPECT_NE(record().neighbors, old_chain);
    EXPECT_THAT(addresses(), ElementsAre(""));
    EXPECT_STREQ(record().neighbors->name, "");
    EXPECT_STREQ(record().neighbors->model, "");
    expect_as_made(*record().neighbors);
}

TEST_F(EasymeshFrom, MissingAddressOfALaterOneKeepsThoseBeforeAndEndsTheChain)
{
    add_old_chain();
    EXPECT_TRUE(rejects(without(document, "neighbors.1.mac"), "neighbors", "no mac field"));
    EXPECT_THAT(addresses(), ElementsAre("02:1a:11:f0:4d:40"));
    EXPECT_STREQ(record().neighbors->name, "Garden house");
    EXPECT_EQ(record().enabled, 1);
    EXPECT_EQ(record().backhaul, 5U);
}

TEST_F(EasymeshFrom, ANeighborThatIsNoObjectLacksItsAddress)
{
    for (const char *other : {"null", "1", "1.5", "true", "\"mac\"", "[]", R"([{"mac": "a"}])", "{}"}) {
        poison();
        EXPECT_TRUE(rejects(with(document, "neighbors", R"([{"mac": "a"}, )" + std::string(other) + "]"), "neighbors",
                            "no mac field"));
        EXPECT_THAT(addresses(), ElementsAre("a"));
    }
}

TEST_F(EasymeshFrom, RefusesNeighborsOfNeighborsWhateverTheirValue)
{
    for (const char *value : {"[]", "null", "0", "false", "{}", R"([{"mac": "b"}])"}) {
        add_old_chain();
        EXPECT_TRUE(rejects(with(document, "neighbors.0.neighbors", value), "neighbors",
                            "neighbors of neighbors cannot be set"));
        EXPECT_THAT(addresses(), ElementsAre("02:1a:11:f0:4d:40"));
        EXPECT_STREQ(record().neighbors->name, "Garden house"); // the node is stored by then
        EXPECT_STREQ(record().neighbors->model, "KM-R3");
        expect_as_made(*record().neighbors);
    }
    EXPECT_TRUE(
        rejects(with(document, "neighbors.1.neighbors", "[]"), "neighbors", "neighbors of neighbors cannot be set"));
    EXPECT_THAT(addresses(), ElementsAre("02:1a:11:f0:4d:40", "02:1a:11:f0:4d:50"));
}

TEST_F(EasymeshFrom, LooksForTheAddressBeforeNeighborsOfNeighbors)
{
    EXPECT_TRUE(rejects(with(document, "neighbors", R"([{"neighbors": []}])"), "neighbors", "no mac field"));
}

TEST_F(EasymeshFrom, CountsNullAsAnAddress)
{
    EXPECT_TRUE(accepts(with(document, "neighbors", R"([{"mac": null, "name": null, "model": null}])")));
    EXPECT_THAT(addresses(), ElementsAre(""));
}

TEST_F(EasymeshFrom, TakesOnlyTrueForTrue) { expect_boolean("enabled", record().enabled); }

TEST_F(EasymeshFrom, CutsIntegersToTheirWidth)
{
    expect_integer("type", record().type);
    expect_integer("backhaul", record().backhaul);
}

TEST_F(EasymeshFrom, CutsTextsToTheirField)
{
    expect_string("controllerIp", record().controllerIp);
    expect_node_text("mac", &Neighbor::mac);
    expect_node_text("name", &Neighbor::name);
    expect_node_text("model", &Neighbor::model);
}

TEST_F(EasymeshFrom, KeepsTheOldChainUntilThereIsANewOne)
{
    std::vector<std::vector<std::string>> left;
    for (std::size_t n = 1; n <= 200; ++n) {
        add_old_chain();
        allocations::fail(n, Failing::once);
        if (rejects(document, "neighbors", "out of memory"))
            left.push_back(addresses());
    }
    EXPECT_THAT(left, ElementsAre(ElementsAre("old", "older"), ElementsAre("02:1a:11:f0:4d:40")));
}

} // namespace

} // namespace kelmora_test::easymesh_test
