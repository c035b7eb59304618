// nlohmann::ordered_json, with members appended without a look for others of their names.
#include "bench/other_libraries/fields.h"
#include "bench/other_libraries/other_libraries.h"
#include "bench/record.h"

#include <cstddef>
#include <cstdint>
#include <nlohmann/json.hpp>
#include <string>
#include <utility>

namespace kelmora_bench {

namespace {

using Json = nlohmann::ordered_json;

class Out {
public:
    Out() { object_.reserve(16); }

    void text(const char *key, const char *field) { object_.emplace_back(key, field); }
    template <class Integer> void integer(const char *key, Integer field) { object_.emplace_back(key, field); }
    void boolean(const char *key, std::uint8_t field) { object_.emplace_back(key, field != 0); }

    template <class Node, class Each> void list(const char *key, const Node *first, Each each)
    {
        Json::array_t array;
        for (const Node *node = first; node != nullptr; node = node->next) {
            Out entry;
            each(entry, *node);
            array.emplace_back(entry.take());
        }
        object_.emplace_back(key, std::move(array));
    }

    [[nodiscard]] Json::object_t take() { return std::move(object_); }

private:
    Json::object_t object_;
};

class In {
public:
    explicit In(const Json &object) : object_(&object) {}

    template <std::size_t width> void text(const char *key, char (&field)[width])
    {
        if (const auto value = object_->find(key); value != object_->end())
            store_string(field, value->get_ref<const std::string &>().c_str());
    }

    template <class Integer> void integer(const char *key, Integer &field)
    {
        if (const auto value = object_->find(key); value != object_->end())
            value->get_to(field);
    }

    void boolean(const char *key, std::uint8_t &field)
    {
        if (const auto value = object_->find(key); value != object_->end())
            field = value->get<bool>() ? 1 : 0;
    }

    template <class Node, class Each> void list(const char *key, Node *&first, Each each)
    {
        const auto array = object_->find(key);
        if (array == object_->end())
            return;
        Node **link = &first;
        for (const Json &element : *array) {
            In entry(element);
            each(entry, *append(link));
        }
    }

private:
    const Json *object_;
};

template <class Record> int to(kelmora_resource *head, char **out)
{
    Json::array_t list;
    list.reserve(head->count);
    for (kelmora_resource *node = head; node != nullptr; node = kelmora_resource_get_next(node)) {
        Out object;
        to_json(object, record_of<const Record>(node), node->id);
        list.emplace_back(object.take());
    }
    const std::string text = Json(std::move(list)).dump();
    hand_over(text.c_str(), text.size() + 1, out);
    return 1;
}

template <class Record> int from(kelmora_resource *node, const char *text, kelmora_errorlist * /*errors*/)
{
    const Json document = Json::parse(text, nullptr, false);
    if (document.is_discarded())
        return 0;
    In in(document);
    from_json(in, record_of<Record>(node));
    return 1;
}

} // namespace

const OtherLibrary nlohmann_peer{
    .name = "nlohmann::ordered_json",
    .wireless_to = to<kelmora_wireless>,
    .wireless_from = from<kelmora_wireless>,
    .pon_counters_to = to<kelmora_pon_counters>,
    .firewall_to = to<kelmora_firewall_ip_port_filtering>,
    .firewall_from = from<kelmora_firewall_ip_port_filtering>,
};

} // namespace kelmora_bench
