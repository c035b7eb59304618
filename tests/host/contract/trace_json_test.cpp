#include "host/contract/trace_json.h"

#include "kelmora_json.h"
#include "kelmora_records.h"

#include <bit>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace kelmora_host::trace_json_test {

namespace {

using testing::HasSubstr;
using testing::StartsWith;

class TraceJson : public ::testing::Test {
protected:
    TraceJson()
    {
        Registry::instance().clear();
        kelmora_json_init();
    }
    ~TraceJson() override { Registry::instance().clear(); }

    static std::string traced(std::string_view name, const Node &node, const std::string &text)
    {
        const Resource &resource = *find_resource(name);
        const std::optional<Positions> document = Positions::parse(text);
        return to_text(steps_as_json(
            trace(resource, *Registry::instance().find(resource.number), node, text, *document), "", name));
    }

    static Json image(Record &record, std::string_view name)
    {
        return Json(image_as_json(Image(record, *record_type(name))));
    }
};

TEST_F(TraceJson, TellsEachStepWithTheBytesAndTheirPlace)
{
    const std::string one = std::endian::native == std::endian::big ? "00000007" : "07000000";
    EXPECT_EQ(
        traced("qos", Node("0", Record(kelmora_qos{})), R"({"enabled": true, "global_download": 7})"),
        R"({"resource": "qos", "accepted": false, "steps": [{"pointer": "/enabled", "line": 1, "column": 13, )"
        R"("found": true, "read_as": ["boolean"], "value": true, "stored": [{"block": "", "field": "enabled", )"
        R"("offset": 0, "size": 1, "bytes": "01", "value": true}]}, {"pointer": "/global_download", "line": 1, )"
        R"("column": 38, "found": true, "read_as": ["integer"], "value": 7, "stored": [{"block": "", "field": )"
        R"("global_download", "offset": 4, "size": 4, "bytes": ")" +
            one +
            R"(", "value": 7}]}, {"pointer": "/global_upload", "line": 1, "column": 1, "found": false, )"
            R"("read_as": [], "stored": []}], "errors": [{"field": "upload", "message": "upload field not found", )"
            R"("source": "json", "pointer": "/global_upload"}]})");
}

TEST_F(TraceJson, NamesTheBlockThatAFieldIsIn)
{
    const std::string steps = traced("firewall_domain_blocking", Node("0", Record(kelmora_firewall_domain_blocking{})),
                                     R"({"enable": true, "domains": ["a.example"]})");
    EXPECT_THAT(steps, HasSubstr(R"("block": "domains[0]", "field": "domains[0].)")) << steps;
}

TEST_F(TraceJson, TellsAnImageBlockByBlockWithItsFields)
{
    Record record(kelmora_http_request{.body = make_text("{}")});
    const Json json = image(record, "http_request");
    const json_t *blocks = json_object_get(json.get(), "blocks");
    ASSERT_EQ(json_array_size(blocks), 2U);
    EXPECT_EQ(to_text(Json(json_incref(json_array_get(blocks, 1)))),
              R"({"path": "body", "type": "char", "bytes": "7b7d00", "fields": []})");
    const std::string first = to_text(Json(json_incref(json_array_get(blocks, 0))));
    EXPECT_THAT(first, StartsWith(R"({"path": "", "type": "struct kelmora_http_request", "bytes": ")"));
}

TEST_F(TraceJson, TellsTheFieldsOfAnArrayOfStructsEachByItself)
{
    Record record(kelmora_wan_lan_list{});
    const std::string text = to_text(image(record, "wan_lan_list"));
    EXPECT_THAT(text, HasSubstr("lan_list[0].lan_id"));
    EXPECT_THAT(text, HasSubstr("lan_list[15].lan_id"));
}

} // namespace

} // namespace kelmora_host::trace_json_test
