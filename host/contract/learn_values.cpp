#include "host/contract/learn_values.h"

#include "host/contract/learn_records.h"
#include "host/contract/pointer.h"

#include <algorithm>
#include <array>

namespace kelmora_host {

namespace {

using Kind = Given::Kind;

/// All kinds but absence, for the tries of other types.
constexpr std::array all_kinds{Kind::null, Kind::no,     Kind::yes,   Kind::integer,
                               Kind::real, Kind::string, Kind::array, Kind::object};

constexpr std::size_t long_string = 70000; ///< bytes

} // namespace

void ValueLearner::learn_types(InputKey &key) const
{
    if (key.refused) {
        const Probe present = subject_.prober.probe(keys_.at_home(key.path, {.kind = Kind::yes}), subject_.blank);
        if (!present.errors.empty())
            key.unfit = present.errors.front();
        return;
    }
    bool all_rejected = true;
    std::optional<Error> error;
    for (const Kind kind : all_kinds) {
        if (is_of_type(kind, key.type))
            continue;
        const Probe probe = subject_.prober.probe(keys_.at_home(key.path, {.kind = kind}), subject_.blank);
        all_rejected = all_rejected && !probe.accepted;
        if (!probe.accepted && !probe.errors.empty() && !error)
            error = probe.errors.front();
    }
    key.checked = all_rejected && error;
    if (key.checked)
        key.unfit = error;
    else if (keys_.is_leaf(key.path) && !is_element(key.path) && needs_.is_optional(key.path))
        key.skipped = counts_as_absent(key);
}

/// Whether a value of another type does no more than none at all.
bool ValueLearner::counts_as_absent(const InputKey &key) const
{
    const Probe absent = subject_.prober.probe(keys_.at_home(key.path, {}), subject_.poisoned, true);
    const Probe there =
        subject_.prober.probe(keys_.at_home(key.path, keys_.at(key.path).good), subject_.poisoned, true);
    const auto is_like_absent = [&](Kind kind) {
        const Probe probe = subject_.prober.probe(keys_.at_home(key.path, {.kind = kind}), subject_.poisoned, true);
        return absent.image->same(*probe.image);
    };
    return !absent.image->same(*there.image) && std::ranges::all_of(all_kinds, [&](Kind kind) {
        return is_of_type(kind, key.type) || is_like_absent(kind);
    });
}

/// What is stored of a number, as the field's low bits.
std::optional<std::uint64_t> ValueLearner::stored(const InputKey &key, const Given &given) const
{
    const Probe probe = subject_.prober.probe(keys_.at_home(key.path, given), subject_.blank, true);
    const std::string bytes = probe.accepted ? bytes_of(*probe.image, key.fields.front()) : std::string();
    const auto as = [&bytes]<class T>(T number) {
        bytes.copy(reinterpret_cast<char *>(&number), sizeof number);
        return std::uint64_t{number};
    };
    switch (bytes.size()) {
    case sizeof(std::uint8_t):
        return as(std::uint8_t{});
    case sizeof(std::uint16_t):
        return as(std::uint16_t{});
    case sizeof(std::uint32_t):
        return as(std::uint32_t{});
    default:
        return std::nullopt;
    }
}

void ValueLearner::learn_range(InputKey &key) const
{
    if (key.type == InputType::integer || key.type == InputType::number || key.type == InputType::real)
        learn_number(key);
    else if (key.type == InputType::string)
        learn_length(key);
}

void ValueLearner::learn_number(InputKey &key) const
{
    if (key.fields.empty())
        return;
    const KeyField &field = key.fields.front();
    const auto number = [&key](std::int64_t value) {
        return key.type == InputType::real ? Given{.kind = Kind::real, .real = static_cast<double>(value)}
                                           : given_integer(value);
    };
    const auto width = static_cast<unsigned>(field.size * 8);
    while (key.bits < width && stored(key, number(std::int64_t{1} << key.bits)) == std::uint64_t{1} << key.bits)
        ++key.bits;
    key.is_signed = field.type.starts_with("int");
    if (key.bits == 0 || key.bits > 32)
        return;
    const std::uint64_t most = (std::uint64_t{1} << key.bits) - 1;
    const std::int64_t beyond = (std::int64_t{1} << (key.bits + 1)) + (std::int64_t{1} << key.bits);
    key.saturates = stored(key, number(beyond)) == most;
}

void ValueLearner::learn_length(InputKey &key) const
{
    const auto text =
        std::ranges::find_if(key.fields, [](const KeyField &field) { return field.type.starts_with("char["); });
    if (text == key.fields.end())
        return;
    const auto kept = [&](std::size_t size) -> std::optional<std::size_t> {
        const Probe probe =
            subject_.prober.probe(keys_.at_home(key.path, given_string(std::string(size, 'x'))), subject_.blank, true);
        if (!probe.accepted)
            return std::nullopt;
        const std::string bytes = bytes_of(*probe.image, *text);
        return std::min(bytes.find('\0'), bytes.size());
    };
    if (const std::optional<std::size_t> longest = kept(long_string)) {
        key.longest = longest;
        key.too_long = Excess::cut;
        return;
    }
    std::size_t taken = 0;
    std::size_t rejected = long_string;
    while (rejected - taken > 1) {
        const std::size_t middle = (taken + rejected) / 2;
        (kept(middle) ? taken : rejected) = middle;
    }
    key.longest = taken;
    key.too_long = Excess::rejected;
    const Probe probe =
        subject_.prober.probe(keys_.at_home(key.path, given_string(std::string(rejected, 'x'))), subject_.blank);
    if (!probe.errors.empty())
        key.out_of_size = probe.errors.front();
}

} // namespace kelmora_host
