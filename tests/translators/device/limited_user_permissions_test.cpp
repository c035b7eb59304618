#include "tests/support/to_test.h"

#include "kelmora_json.h"
#include "records/device.h"

namespace kelmora_test::limited_user_permissions_test {

namespace {

using Entry = kelmora_limited_user_permissions_entry;

constexpr char sample_text[] = R"({"limited_user_permissions": [{"resource_name": "wireless", "resource_id": 0}, )"
                               R"({"resource_name": "status", "resource_id": 17}]})";

constexpr char empty_text[] = R"({"limited_user_permissions": []})";

/// A new record each time, as each node owns its chain.
kelmora_limited_user_permissions sample()
{
    return {kelmora_host::make_chain<Entry>({
        {.resource_name = "wireless", .resource_id = 0},
        {.resource_name = "status", .resource_id = 17},
    })};
}

class LimitedUserPermissionsTo : public ToTest<kelmora_limited_user_permissions> {
protected:
    LimitedUserPermissionsTo() : ToTest(limited_user_permissions_to_translator) {}

    /// A node whose chain has one entry.
    void add_permission(const char *name, std::uint32_t id)
    {
        add("", {kelmora_host::make_chain<Entry>({{.resource_name = name, .resource_id = id}})});
    }
};

TEST_F(LimitedUserPermissionsTo, WritesTheChainInOrderAndNoId)
{
    add("the id", sample());
    EXPECT_EQ(object(), sample_text);
    EXPECT_EQ(list(), "[" + std::string(sample_text) + "]");
}

TEST_F(LimitedUserPermissionsTo, WritesAnEmptyChainAsAnEmptyArray)
{
    add("0");
    EXPECT_EQ(object(), empty_text);
    EXPECT_EQ(list(), "[" + std::string(empty_text) + "]");
}

TEST_F(LimitedUserPermissionsTo, WritesNumbersAsUnsigned)
{
    add_permission("", 4294967295);
    EXPECT_EQ(object(), R"({"limited_user_permissions": [{"resource_name": "", "resource_id": 4294967295}]})");
}

TEST_F(LimitedUserPermissionsTo, WritesANameOfAnyLengthWhole)
{
    const std::string name(300, 'n');
    add_permission(name.c_str(), 1);
    EXPECT_EQ(object(), R"({"limited_user_permissions": [{"resource_name": ")" + name + R"(", "resource_id": 1}]})");
}

TEST_F(LimitedUserPermissionsTo, WritesTwentyLongNamesIntoALargerBuffer)
{
    const std::string name(300, 'n');
    Entry *first = nullptr;
    for (std::uint32_t id = 20; id > 0; --id) {
        Entry *entry = kelmora_host::make_chain<Entry>({{.resource_name = name.c_str(), .resource_id = id}});
        entry->next = first;
        first = entry;
    }
    add("0", {first});
    std::string expected = R"({"limited_user_permissions": [)";
    for (int id = 1; id <= 20; ++id)
        expected +=
            R"({"resource_name": ")" + name + R"(", "resource_id": )" + std::to_string(id) + (id < 20 ? "}, " : "}]}");
    EXPECT_EQ(object(), expected);
    EXPECT_EQ(reallocations_, 1U);
}

TEST_F(LimitedUserPermissionsTo, WritesOtherScriptsAsTheyAre)
{
    add_permission("Gäste/\"2\" 北", 1);
    EXPECT_EQ(object(),
              "{\"limited_user_permissions\": [{\"resource_name\": \"Gäste/\\\"2\\\" 北\", \"resource_id\": 1}]}");
}

TEST_F(LimitedUserPermissionsTo, LeavesOutANameThatIsNotUtf8)
{
    add_permission("caf\xE9", 3);
    EXPECT_EQ(object(), R"({"limited_user_permissions": [{"resource_id": 3}]})");
}

} // namespace

} // namespace kelmora_test::limited_user_permissions_test
