// A host with other private fields than the default's.
#undef KELMORA_HOST_PRIVATE_POINTERS
#define KELMORA_HOST_PRIVATE_POINTERS 5
#include "kelmora_host.h"

#include "layout.h"

EXPECT_FIELD(kelmora_resource, host_private, void *[5], 0);
EXPECT_FIELD(kelmora_resource, count, std::uint32_t, is_64_bit ? 40 : 20);
EXPECT_FIELD(kelmora_resource, id, char[129], is_64_bit ? 44 : 24);
EXPECT_FIELD(kelmora_resource, is_list, std::uint8_t, is_64_bit ? 173 : 153);
static_assert(sizeof(kelmora_resource) == (is_64_bit ? 176 : 156));
