#include "host/serve/openapi.h"

#include "host/json.h"
#include "host/serve/routes.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <set>

namespace kelmora_host::openapi_test {

namespace {

/// All values of "$ref" below a value.
void add_references(json_t *value, std::set<std::string> &references)
{
    const char *key = nullptr;
    json_t *member = nullptr;
    json_object_foreach(value, key, member)
    {
        if (std::string_view(key) == "$ref" && json_is_string(member))
            references.insert(json_string_value(member));
        add_references(member, references);
    }
    for (std::size_t i = 0; i < json_array_size(value); ++i)
        add_references(json_array_get(value, i), references);
}

class OpenApi : public ::testing::Test {
protected:
    [[nodiscard]] json_t *operation(const char *path, const char *method) const
    {
        return json_object_get(json_object_get(json_object_get(document.get(), "paths"), path), method);
    }

    Json document{parsed(openapi())};
};

TEST_F(OpenApi, HasAnOperationForEachRouteThatIsNoPartOfThePage)
{
    std::size_t wanted = 0;
    for (const Route &route : routes()) {
        const bool of_records =
            route.path.find("/gateway/{resource}") != std::string_view::npos && route.method != "DELETE";
        for (const Resource &resource : resources())
            wanted += of_records && has_direction(resource, route.operation) ? 1U : 0U;
        wanted += !of_records && !route.summary.empty() ? 1U : 0U;
    }
    std::size_t there = 0;
    const char *path = nullptr;
    json_t *item = nullptr;
    json_object_foreach(json_object_get(document.get(), "paths"), path, item) there += json_object_size(item);
    EXPECT_EQ(there, wanted);
    EXPECT_GT(there, 2 * resources().size());
    EXPECT_EQ(operation("/", "get"), nullptr);
}

TEST_F(OpenApi, HasTheDirectionsOfEachResource)
{
    EXPECT_NE(operation("/api/v1/gateway/radio/{id}", "put"), nullptr);
    EXPECT_EQ(operation("/api/v1/gateway/status/{id}", "put"), nullptr);
    EXPECT_NE(operation("/api/v1/gateway/status/{id}", "get"), nullptr);
    EXPECT_EQ(operation("/api/v1/gateway/telnet", "get"), nullptr);
    EXPECT_NE(operation("/api/v1/gateway/telnet", "post"), nullptr);
}

TEST_F(OpenApi, ReferToTheSchemasOfTheResource)
{
    std::set<std::string> references;
    add_references(operation("/api/v1/gateway/radio/{id}", "put"), references);
    EXPECT_TRUE(references.contains("/schemas/radio.accept.schema.json"));
    references.clear();
    add_references(operation("/api/v1/gateway/radio", "get"), references);
    EXPECT_TRUE(references.contains("/schemas/radio.output.schema.json"));
}

TEST_F(OpenApi, HasWhatItRefersToInItself)
{
    std::set<std::string> references;
    add_references(document.get(), references);
    for (const std::string &reference : references) {
        if (!reference.starts_with("#/"))
            continue;
        json_t *value = document.get();
        for (std::size_t begin = 2; begin < reference.size();) {
            const std::size_t end = std::min(reference.find('/', begin), reference.size());
            value = json_object_get(value, reference.substr(begin, end - begin).c_str());
            begin = end + 1;
        }
        EXPECT_NE(value, nullptr) << reference;
    }
}

TEST_F(OpenApi, DeclaresTheParametersOfEachPathAndQuery)
{
    const json_t *parameters = json_object_get(operation("/api/v1/gateway/radio/{id}", "put"), "parameters");
    std::vector<std::string> names;
    for (std::size_t i = 0; i < json_array_size(parameters); ++i)
        names.emplace_back(json_string_value(json_object_get(json_array_get(parameters, i), "name")));
    EXPECT_THAT(names, testing::ElementsAre("id", "validate", "dryRun"));
    EXPECT_STREQ(json_string_value(json_object_get(document.get(), "openapi")), "3.1.0");
}

} // namespace

} // namespace kelmora_host::openapi_test
