#include "harness/poison.h"

#include "host/gateway/blank.h"

#include "kelmora_records.h"

#include <array>
#include <functional>
#include <type_traits>
#include <utility>
#include <vector>

namespace kelmora_harness {

using kelmora_host::Owned;
using kelmora_host::Record;
using kelmora_host::Resource;

namespace {

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
    Record (*guarded_copy)(Record record);
    std::string (*image)(Record &record);
    void (*fill)(Record &record, Fill &fill);
};

template <class T> struct TypeOf {
    static Record guarded_copy(Record record)
    {
        Record copy = filled_record<T>(0);
        std::memcpy(copy.bytes(), record.bytes(), sizeof(T));
        kelmora_host::Forget forget; // what hung on it is the copy's
        Owned<T>::visit(record.as<T>(), forget);
        return copy;
    }

    static std::string image(Record &record) { return image_of(record.as<T>()); }

    static void fill(Record &record, Fill &fill) { fill.whole(record.as<T>()); }

    static constexpr Type value{guarded_copy, image, fill};
};

// A node's data is the chain itself.
template <> struct TypeOf<kelmora_qos_available_dscp> : TypeOf<kelmora_host::ChainRecord<kelmora_qos_available_dscp>> {
};

const Type &type_of(const Resource &resource)
{
#define TYPE(number, name, group, directions) &TypeOf<kelmora_##name>::value,
    static constexpr std::array<const Type *, KELMORA_RESOURCE_COUNT> types{KELMORA_RESOURCES(TYPE)};
#undef TYPE
    return *types[static_cast<std::size_t>(resource.number)];
}

} // namespace

Record blank_record(const Resource &resource) { return guarded_copy(resource, kelmora_host::blank_record(resource)); }

Record poisoned_record(const Resource &resource)
{
    return guarded_copy(resource, kelmora_host::poisoned_record(resource));
}

Record guarded_copy(const Resource &resource, Record record)
{
    return type_of(resource).guarded_copy(std::move(record));
}

std::string image_of(const Resource &resource, Record &record) { return type_of(resource).image(record); }

void fill(const Resource &resource, kelmora_host::Node &node, std::string_view pattern, std::size_t phase)
{
    Fill fill(pattern, phase);
    fill.bytes(node.resource()->id, sizeof node.resource()->id);
    type_of(resource).fill(node.record(), fill);
}

} // namespace kelmora_harness
