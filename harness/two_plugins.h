#ifndef KELMORA_HARNESS_TWO_PLUGINS_H
#define KELMORA_HARNESS_TWO_PLUGINS_H

#include "host/gateway/node.h"
#include "host/gateway/resources.h"

#include "kelmora_host.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace kelmora_harness {

/// The plug-in as it is shipped and the one that writes text directly (KELMORA_DIRECT_TEXT), loaded side by side.
class TwoPlugins {
public:
    /// The files that the build made of them. Throws kelmora_host::PluginError when one does not load.
    TwoPlugins(const std::filesystem::path &shipped, const std::filesystem::path &direct);

    /// Has both write the nodes, and says what differs: the result, a byte of the text, a byte that the buffer held
    /// before behind the text, or the buffer's size, as far as the allocator tells it.
    [[nodiscard]] std::optional<std::string> difference(const kelmora_host::Resource &resource,
                                                        std::vector<kelmora_host::Node> &nodes, bool as_list,
                                                        std::uint32_t count) const;

private:
    std::array<std::vector<kelmora_to_translator>, 2> to_; ///< by the resources' numbers
};

} // namespace kelmora_harness

#endif
