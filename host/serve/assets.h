#ifndef KELMORA_HOST_SERVE_ASSETS_H
#define KELMORA_HOST_SERVE_ASSETS_H

#include <span>
#include <string_view>

namespace kelmora_host {

/// A file that is part of the program.
struct Asset {
    std::string_view path; ///< "index.html", "codemirror/lib/codemirror.js"
    std::string_view bytes;
};

/// The files of the page. The build makes the unit that defines it.
[[nodiscard]] std::span<const Asset> page_assets();

} // namespace kelmora_host

#endif
