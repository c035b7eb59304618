#include "harness/two_plugins.h"

#include "harness/poison.h"

#include "host/plugin/plugin.h"
#include "host/plugin/registry.h"
#include "host/plugin/translate.h"

#include <cstdlib>
#include <cstring>
#include <malloc.h>

namespace kelmora_harness {

namespace {

constexpr std::size_t buffer_size = kelmora_host::OutputBuffer::initial_size;

/// What a call left.
struct Written {
    int result;
    std::string text;
    std::size_t capacity; ///< of the buffer
    bool harmless;        ///< the buffer stayed, and is untouched behind the text, unless the text needed a larger one
};

Written write(kelmora_to_translator to, kelmora_resource *head)
{
    auto *const buffer = static_cast<char *>(std::malloc(buffer_size));
    if (buffer == nullptr)
        std::abort();
    std::memset(buffer, guard_byte, buffer_size);
    char *out = buffer;
    Written written{to(head, &out), "", malloc_usable_size(out), true};
    written.text.assign(out, strnlen(out, written.capacity));
    if (written.text.size() < buffer_size) {
        written.harmless = out == buffer;
        for (std::size_t i = written.text.size() + 1; i < buffer_size; ++i)
            written.harmless = written.harmless && out[i] == static_cast<char>(guard_byte);
    }
    std::free(out);
    return written;
}

std::vector<kelmora_to_translator> to_translators(const std::filesystem::path &file)
{
    const kelmora_host::Plugin plugin(file);
    std::vector<kelmora_to_translator> to;
    for (const kelmora_host::Resource &resource : kelmora_host::resources())
        to.push_back(kelmora_host::Registry::instance().find(resource.number)->to);
    return to;
}

} // namespace

TwoPlugins::TwoPlugins(const std::filesystem::path &shipped, const std::filesystem::path &direct)
    : to_{to_translators(shipped), to_translators(direct)}
{
}

std::optional<std::string> TwoPlugins::difference(const kelmora_host::Resource &resource,
                                                  std::vector<kelmora_host::Node> &nodes, bool as_list,
                                                  std::uint32_t count) const
{
    const auto number = static_cast<std::size_t>(resource.number);
    kelmora_resource *head = kelmora_host::link_request(nodes, as_list);
    head->count = count;
    const Written shipped = write(to_[0][number], head);
    const Written direct = write(to_[1][number], head);
    if (direct.result != shipped.result)
        return "the result is " + std::to_string(direct.result) + " in place of " + std::to_string(shipped.result);
    if (direct.text != shipped.text)
        return "the text is\n" + direct.text + "\nin place of\n" + shipped.text;
    if (!direct.harmless)
        return "the buffer was moved or written behind the text " + direct.text;
    // What a block holds may exceed what was asked for by what cannot be made a block of its own.
    constexpr std::size_t slack = 4 * sizeof(std::size_t);
    if (direct.capacity > shipped.capacity + slack)
        return "the buffer has " + std::to_string(direct.capacity) + " bytes in place of " +
               std::to_string(shipped.capacity);
    return std::nullopt;
}

} // namespace kelmora_harness
