// RapidJSON's document, with constant keys and with the records' own texts.
#include "bench/other_libraries/fields.h"
#include "bench/other_libraries/other_libraries.h"
#include "bench/record.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <rapidjson/document.h>
#include <rapidjson/stringbuffer.h>
#include <rapidjson/writer.h>
#include <utility>

namespace kelmora_bench {

namespace {

using rapidjson::Value;
using Allocator = rapidjson::Document::AllocatorType;

/// An allocator whose first bytes are on the stack. By default it would take 64 KiB at a time from the heap.
class StackFirst {
public:
    [[nodiscard]] Allocator &allocator() { return allocator_; }

private:
    static constexpr std::size_t chunk = 4096;

    alignas(std::max_align_t) char pool_[chunk];
    Allocator allocator_{pool_, sizeof pool_, chunk};
};

class Out {
public:
    explicit Out(Allocator &allocator) : allocator_(&allocator) {}

    template <std::size_t n> void text(const char (&key)[n], const char *field)
    {
        add(key, Value(rapidjson::StringRef(field)));
    }

    template <std::size_t n, class Integer> void integer(const char (&key)[n], Integer field)
    {
        add(key, Value(field));
    }

    template <std::size_t n> void boolean(const char (&key)[n], std::uint8_t field) { add(key, Value(field != 0)); }

    template <std::size_t n, class Node, class Each> void list(const char (&key)[n], const Node *first, Each each)
    {
        Value array(rapidjson::kArrayType);
        for (const Node *node = first; node != nullptr; node = node->next) {
            Out entry(*allocator_);
            each(entry, *node);
            array.PushBack(entry.object(), *allocator_);
        }
        add(key, std::move(array));
    }

    [[nodiscard]] Value &object() { return object_; }

private:
    template <std::size_t n> void add(const char (&key)[n], Value &&value)
    {
        object_.AddMember(rapidjson::StringRef(key), value, *allocator_);
    }

    Allocator *allocator_;
    Value object_{rapidjson::kObjectType};
};

class In {
public:
    explicit In(const Value &object) : object_(&object) {}

    template <std::size_t width> void text(const char *key, char (&field)[width])
    {
        if (const auto member = object_->FindMember(key); member != object_->MemberEnd())
            store_string(field, member->value.GetString());
    }

    template <class Integer> void integer(const char *key, Integer &field)
    {
        if (const auto member = object_->FindMember(key); member != object_->MemberEnd())
            field = static_cast<Integer>(member->value.GetInt64());
    }

    void boolean(const char *key, std::uint8_t &field)
    {
        if (const auto member = object_->FindMember(key); member != object_->MemberEnd())
            field = member->value.GetBool() ? 1 : 0;
    }

    template <class Node, class Each> void list(const char *key, Node *&first, Each each)
    {
        const auto array = object_->FindMember(key);
        if (array == object_->MemberEnd())
            return;
        Node **link = &first;
        for (const Value &element : array->value.GetArray()) {
            In entry(element);
            each(entry, *append(link));
        }
    }

private:
    const Value *object_;
};

template <class Record> int to(kelmora_resource *head, char **out)
{
    StackFirst memory;
    Value list(rapidjson::kArrayType);
    list.Reserve(head->count, memory.allocator());
    for (kelmora_resource *node = head; node != nullptr; node = kelmora_resource_get_next(node)) {
        Out object(memory.allocator());
        to_json(object, record_of<const Record>(node), node->id);
        list.PushBack(object.object(), memory.allocator());
    }
    rapidjson::StringBuffer text(nullptr, smallest_buffer);
    rapidjson::Writer<rapidjson::StringBuffer> writer(text);
    list.Accept(writer);
    hand_over(text.GetString(), text.GetSize() + 1, out);
    return 1;
}

template <class Record> int from(kelmora_resource *node, const char *text, kelmora_errorlist * /*errors*/)
{
    char *copy = strdup(text);
    StackFirst memory;
    rapidjson::Document document(&memory.allocator());
    const bool done = !document.ParseInsitu(copy).HasParseError();
    if (done) {
        In in(document);
        from_json(in, record_of<Record>(node));
    }
    std::free(copy);
    return done ? 1 : 0;
}

} // namespace

const OtherLibrary rapidjson_document_peer{
    .name = "RapidJSON Document",
    .wireless_to = to<kelmora_wireless>,
    .wireless_from = from<kelmora_wireless>,
    .pon_counters_to = to<kelmora_pon_counters>,
    .firewall_to = to<kelmora_firewall_ip_port_filtering>,
    .firewall_from = from<kelmora_firewall_ip_port_filtering>,
};

} // namespace kelmora_bench
