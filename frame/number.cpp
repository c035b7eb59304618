#include "frame/number.h"

namespace kelmora {

namespace {

constexpr std::uint32_t sign_bit = 0x80000000;
constexpr double two_to_the_31 = 2147483648.0;

} // namespace

std::uint32_t saturated(double number)
{
    if (number <= -two_to_the_31)
        return sign_bit;
    if (number < two_to_the_31)
        return static_cast<std::uint32_t>(static_cast<std::int32_t>(number));
    if (number < 2 * two_to_the_31)
        return static_cast<std::uint32_t>(static_cast<std::int32_t>(number - two_to_the_31)) + sign_bit;
    return 0xFFFFFFFF;
}

} // namespace kelmora
