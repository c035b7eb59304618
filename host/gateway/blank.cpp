#include "host/gateway/blank.h"

#include "kelmora_records.h"

#include <array>
#include <cstddef>
#include <cstring>

namespace kelmora_host {

namespace {

/// The struct that the host keeps a record in.
template <class T> struct Kept {
    using Type = T;
};

template <> struct Kept<kelmora_qos_available_dscp> {
    using Type = ChainRecord<kelmora_qos_available_dscp>;
};

template <class T> Record make(unsigned char byte)
{
    T record;
    std::memset(&record, byte, sizeof record);
    Forget forget;
    Owned<T>::visit(record, forget);
    return Record(record);
}

Record make(const Resource &resource, unsigned char byte)
{
    using Make = Record (*)(unsigned char);
#define ROW(number, name, group, directions) &make<Kept<kelmora_##name>::Type>,
    static constexpr std::array<Make, KELMORA_RESOURCE_COUNT> makers{KELMORA_RESOURCES(ROW)};
#undef ROW
    return makers[static_cast<std::size_t>(resource.number)](byte);
}

} // namespace

Record blank_record(const Resource &resource) { return make(resource, 0); }

Record poisoned_record(const Resource &resource) { return make(resource, poisoned_byte); }

} // namespace kelmora_host
