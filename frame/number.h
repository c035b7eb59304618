#ifndef KELMORA_FRAME_NUMBER_H
#define KELMORA_FRAME_NUMBER_H

#include <cstdint>

namespace kelmora {

/// A number as an unsigned 32-bit integer: the fraction is cut off, what is too large becomes 4294967295, and what is
/// negative its two's complement, from -2147483648 down 2147483648. So -1 gives 4294967295.
[[nodiscard]] std::uint32_t saturated(double number);

} // namespace kelmora

#endif
