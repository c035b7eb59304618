#ifndef KELMORA_HOST_GATEWAY_BLANK_H
#define KELMORA_HOST_GATEWAY_BLANK_H

#include "host/gateway/record.h"
#include "host/gateway/resources.h"

namespace kelmora_host {

constexpr unsigned char poisoned_byte = 0xA5;

/// A new record of the resource's type: all zeros, its chains empty.
Record blank_record(const Resource &resource);

/// The same with every byte poisoned_byte, but for its empty chains and texts.
Record poisoned_record(const Resource &resource);

} // namespace kelmora_host

#endif
