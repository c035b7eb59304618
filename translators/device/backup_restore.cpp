#include "frame/translator.h"
#include "records/device.h"

#include <cstring>

using namespace kelmora;

// No JSON in either direction: the text is the block itself, without a NUL behind it. It may begin with a zero byte, so
// an empty text is none of its own.

int backup_restore_to_translator(kelmora_resource *head, char **out)
{
    const auto &backup = record_of<kelmora_backup_restore>(head).backup;
    std::memcpy(*out, backup, sizeof backup);
    return 1;
}

int backup_restore_from_translator(kelmora_resource *node, const char *text, kelmora_errorlist * /*errors*/)
{
    auto &backup = record_of<kelmora_backup_restore>(node).backup;
    std::memcpy(backup, text, sizeof backup);
    return 1;
}
