// RapidJSON without a document: its Writer, and its Reader with handlers of its events.
#include "bench/other_libraries/fields.h"
#include "bench/other_libraries/other_libraries.h"
#include "bench/record.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <rapidjson/reader.h>
#include <rapidjson/stringbuffer.h>
#include <rapidjson/writer.h>
#include <string_view>

namespace kelmora_bench {

namespace {

using Writer = rapidjson::Writer<rapidjson::StringBuffer>;

class Out {
public:
    explicit Out(Writer &writer) : writer_(&writer) {}

    template <std::size_t n> void text(const char (&key)[n], const char *field)
    {
        name(key);
        writer_->String(field);
    }

    template <std::size_t n> void integer(const char (&key)[n], std::uint32_t field)
    {
        name(key);
        writer_->Uint(field);
    }

    template <std::size_t n> void integer(const char (&key)[n], std::int32_t field)
    {
        name(key);
        writer_->Int(field);
    }

    template <std::size_t n> void boolean(const char (&key)[n], std::uint8_t field)
    {
        name(key);
        writer_->Bool(field != 0);
    }

    template <std::size_t n, class Node, class Each> void list(const char (&key)[n], const Node *first, Each each)
    {
        name(key);
        writer_->StartArray();
        for (const Node *node = first; node != nullptr; node = node->next) {
            writer_->StartObject();
            each(*this, *node);
            writer_->EndObject();
        }
        writer_->EndArray();
    }

private:
    template <std::size_t n> void name(const char (&key)[n]) { writer_->Key(key, n - 1); }

    Writer *writer_;
};

template <class Record> int to(kelmora_resource *head, char **out)
{
    rapidjson::StringBuffer text(nullptr, smallest_buffer);
    Writer writer(text);
    Out object(writer);
    writer.StartArray();
    for (kelmora_resource *node = head; node != nullptr; node = kelmora_resource_get_next(node)) {
        writer.StartObject();
        to_json(object, record_of<const Record>(node), node->id);
        writer.EndObject();
    }
    writer.EndArray();
    hand_over(text.GetString(), text.GetSize() + 1, out);
    return 1;
}

/// A value that the Reader came by, or the beginning of an object in a list.
struct Event {
    enum Kind { element, text, integer, boolean } kind;
    const char *characters = nullptr;
    std::int64_t number = 0;
};

/// Stores an event into the field that has its key.
class In {
public:
    /// keys: those that lead to the event, of which there are `depth`. last: the node that was appended last.
    In(const std::string_view *keys, unsigned depth, const Event &event, void *&last)
        : keys_(keys), depth_(depth), event_(&event), last_(&last)
    {
    }

    template <std::size_t width> void text(std::string_view key, char (&field)[width])
    {
        if (is(Event::text, key))
            store_string(field, event_->characters);
    }

    template <class Integer> void integer(std::string_view key, Integer &field)
    {
        if (is(Event::integer, key))
            field = static_cast<Integer>(event_->number);
    }

    void boolean(std::string_view key, std::uint8_t &field)
    {
        if (is(Event::boolean, key))
            field = event_->number != 0 ? 1 : 0;
    }

    template <class Node, class Each> void list(std::string_view key, Node *&first, Each each)
    {
        if (depth_ != 2 || *keys_ != key)
            return;
        if (event_->kind == Event::element) {
            Node **link = *last_ != nullptr ? &static_cast<Node *>(*last_)->next : &first;
            *last_ = append(link);
            return;
        }
        In entry(keys_ + 1, 1, *event_, *last_);
        each(entry, *static_cast<Node *>(*last_));
    }

private:
    [[nodiscard]] bool is(Event::Kind kind, std::string_view key) const
    {
        return depth_ == 1 && event_->kind == kind && *keys_ == key;
    }

    const std::string_view *keys_;
    unsigned depth_;
    const Event *event_;
    void **last_;
};

/// Reads into a record as the events come. Keys and texts must last until the Reader is done: it parses in situ.
// NOLINTBEGIN(readability-identifier-naming): the Reader calls these
template <class Record> class Handler : public rapidjson::BaseReaderHandler<rapidjson::UTF8<>, Handler<Record>> {
public:
    explicit Handler(Record &record) : record_(&record) {}

    bool StartObject()
    {
        ++depth_;
        return depth_ != most || take({Event::element});
    }

    bool EndObject(rapidjson::SizeType /*members*/)
    {
        --depth_;
        return true;
    }

    bool Key(const char *key, rapidjson::SizeType length, bool /*copy*/)
    {
        if (depth_ <= most)
            keys_[depth_ - 1] = {key, length};
        return true;
    }

    bool String(const char *text, rapidjson::SizeType /*length*/, bool /*copy*/) { return take({Event::text, text}); }
    bool Int(int number) { return Int64(number); }
    bool Uint(unsigned number) { return Int64(number); }
    bool Int64(std::int64_t number) { return take({Event::integer, nullptr, number}); }
    bool Uint64(std::uint64_t number) { return Int64(static_cast<std::int64_t>(number)); }
    bool Bool(bool value) { return take({Event::boolean, nullptr, value ? 1 : 0}); }

private:
    static constexpr unsigned most = 2; // an object, and those in its list

    bool take(const Event &event)
    {
        if (depth_ >= 1 && depth_ <= most) {
            In in(keys_, depth_, event, last_);
            from_json(in, *record_);
        }
        return true;
    }

    Record *record_;
    std::string_view keys_[most];
    unsigned depth_ = 0;
    void *last_ = nullptr;
};
// NOLINTEND(readability-identifier-naming)

template <class Record> int from(kelmora_resource *node, const char *text, kelmora_errorlist * /*errors*/)
{
    char *copy = strdup(text);
    rapidjson::InsituStringStream stream(copy);
    Handler<Record> handler(record_of<Record>(node));
    rapidjson::Reader reader;
    const bool done = !reader.Parse<rapidjson::kParseInsituFlag>(stream, handler).IsError();
    std::free(copy);
    return done ? 1 : 0;
}

} // namespace

const OtherLibrary rapidjson_stream_peer{
    .name = "RapidJSON Writer, Reader",
    .wireless_to = to<kelmora_wireless>,
    .wireless_from = from<kelmora_wireless>,
    .pon_counters_to = to<kelmora_pon_counters>,
    .firewall_to = to<kelmora_firewall_ip_port_filtering>,
    .firewall_from = from<kelmora_firewall_ip_port_filtering>,
};

} // namespace kelmora_bench
