#include "frame/translator.h"
#include "records/device.h"

#include <cstring>

using namespace kelmora;

// An upgrade is write-only.
int upgrade_by_file_to_translator(kelmora_resource *, char **) { return 1; }

// No JSON: the text is the block itself. It may begin with a zero byte, so an empty text is none of its own.
int upgrade_by_file_from_translator(kelmora_resource *node, const char *text, kelmora_errorlist * /*errors*/)
{
    auto &file = record_of<kelmora_upgrade_by_file>(node).file;
    std::memcpy(file, text, sizeof file);
    return 1;
}
