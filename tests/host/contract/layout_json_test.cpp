#include "host/contract/layout.h"
#include "host/json.h"

#include <gtest/gtest.h>
#include <string>

namespace kelmora_host::layout_json_test {

namespace {

TEST(LayoutsAsJson, HaveANumberForEachTarget)
{
    EXPECT_EQ(layouts_as_json(*find_resource("qos_available_dscp"), targets()),
              R"({"resource": "qos_available_dscp", "records": [{"name": "kelmora_qos_available_dscp", )"
              R"("kind": "struct", "meaning": ")" +
                  std::string(record_type("qos_available_dscp")->meaning) +
                  R"(", "size": {"mips": 12, "x86-64": 24}, "alignment": {"mips": 4, "x86-64": 8}, "fields": [)"
                  R"({"name": "id", "type": "uint32_t", "offset": {"mips": 0, "x86-64": 0}, )"
                  R"("width": {"mips": 4, "x86-64": 4}, "meaning": ")" +
                  std::string(record_type("qos_available_dscp")->fields[0].meaning) +
                  R"("}, {"name": "dscp", "type": "char *", "offset": {"mips": 4, "x86-64": 8}, )"
                  R"("width": {"mips": 4, "x86-64": 8}, "meaning": ")" +
                  std::string(record_type("qos_available_dscp")->fields[1].meaning) +
                  R"("}, {"name": "next", "type": "struct kelmora_qos_available_dscp *", )"
                  R"("offset": {"mips": 8, "x86-64": 16}, "width": {"mips": 4, "x86-64": 8}, )"
                  R"("record": "kelmora_qos_available_dscp", "meaning": ")" +
                  std::string(record_type("qos_available_dscp")->fields[2].meaning) + R"("}]}]})");
}

TEST(LayoutsAsJson, HaveTheTargetAloneThatIsAskedFor)
{
    const std::string text = layouts_as_json(*find_resource("limits"), {find_target("mips"), 1});
    EXPECT_NE(text.find(R"("size": {"mips": 32}, "alignment": {"mips": 4})"), std::string::npos) << text;
    EXPECT_EQ(text.find("x86-64"), std::string::npos);
}

TEST(LayoutsAsJson, SayHowManyElementsAnArrayHas)
{
    const std::string text = layouts_as_json(*find_resource("loop_back_detect"), targets());
    EXPECT_NE(
        text.find(R"("width": {"mips": 64, "x86-64": 64}, "count": 16, "record": "kelmora_loop_back_detect_vlan")"),
        std::string::npos)
        << text;
    EXPECT_NE(text.find(R"({"name": "kelmora_loop_back_detect_vlan", "kind": "struct")"), std::string::npos);
}

TEST(LayoutsAsJson, OfAllBeginWithTheNode)
{
    const Json list(json_loads(layouts_as_json(targets()).c_str(), 0, nullptr));
    ASSERT_EQ(json_array_size(list.get()), resources().size() + 1);
    const json_t *node = json_array_get(json_object_get(json_array_get(list.get(), 0), "records"), 0);
    EXPECT_STREQ(json_string_value(json_object_get(node, "name")), "kelmora_resource");
    for (std::size_t i = 0; i < resources().size(); ++i)
        EXPECT_EQ(json_string_value(json_object_get(json_array_get(list.get(), i + 1), "resource")),
                  resources()[i].name);
}

} // namespace

} // namespace kelmora_host::layout_json_test
