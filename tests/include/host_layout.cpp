// The default, whatever this build was configured with.
#undef KELMORA_HOST_PRIVATE_POINTERS
#include "kelmora_host.h"

#include "layout.h"

EXPECT_FIELD(kelmora_resource, host_private, void *[2], 0);
EXPECT_FIELD(kelmora_resource, count, std::uint32_t, is_64_bit ? 16 : 8);
EXPECT_FIELD(kelmora_resource, id, char[129], is_64_bit ? 20 : 12);
EXPECT_FIELD(kelmora_resource, is_list, std::uint8_t, is_64_bit ? 149 : 141);
static_assert(sizeof(kelmora_resource) == (is_64_bit ? 152 : 144));
