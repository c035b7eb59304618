#ifndef KELMORA_HOST_SERVE_STATE_FOLDER_H
#define KELMORA_HOST_SERVE_STATE_FOLDER_H

#include "host/contract/findings_json.h"
#include "host/gateway/gateway.h"

#include <filesystem>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

namespace kelmora_host {

/// The folder could not be read; what() says why, and of which.
class FolderError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// What became of one file of a folder of documents.
struct AppliedFile {
    std::string path;
    std::optional<CheckedFile> checked; ///< nothing when there was no document to read
    std::string fault;                  ///< why; else empty
};

/// Applies a folder of documents to a gateway: FOLDER/RESOURCE/ID.json is read into the record of that id, or into a
/// new one of zeros where there is none. In an ID a slash is %2F, as in a URL. A rejected document leaves no trace.
/// Returns what became of each file, in the order of the folders' and files' names; hidden files and those of other
/// endings are passed over. Throws FolderError. The translators are those of Registry::instance().
[[nodiscard]] std::vector<AppliedFile> apply_folder(const std::filesystem::path &folder, Gateway &gateway);

} // namespace kelmora_host

#endif
