#ifndef KELMORA_HARNESS_ADDRESS_SANITIZER_H
#define KELMORA_HARNESS_ADDRESS_SANITIZER_H

// KELMORA_ADDRESS_SANITIZER is defined where AddressSanitizer watches each access.
#if defined(__SANITIZE_ADDRESS__)
#define KELMORA_ADDRESS_SANITIZER 1
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
#define KELMORA_ADDRESS_SANITIZER 1
#endif
#endif

#endif
