#include "frame/chain.h"

#include <cstdlib>
#include <cstring>

namespace kelmora {

void *new_block(const Decoder &in, std::size_t size, const char *list)
{
    if (!in.ok())
        return nullptr;
    void *block = std::malloc(size);
    if (block == nullptr)
        in.fail(list, "out of memory");
    else
        std::memset(block, 0, size);
    return block;
}

} // namespace kelmora
