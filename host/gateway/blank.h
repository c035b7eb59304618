#ifndef KELMORA_HOST_GATEWAY_BLANK_H
#define KELMORA_HOST_GATEWAY_BLANK_H

#include "host/gateway/record.h"
#include "host/gateway/resources.h"

namespace kelmora_host {

/// A new record of the resource's type: all zeros, its chains empty.
Record blank_record(const Resource &resource);

/// The same with every byte poison (0xA5), but for its empty chains and texts.
Record poisoned_record(const Resource &resource);

} // namespace kelmora_host

#endif
