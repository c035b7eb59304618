// Mutates documents as JSON, so that most of them still parse and reach the translators. Every fourth mutation is the
// fuzzer's own, of bytes.

#include "fuzz/input.h"

#include "harness/mutate.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <jansson.h>

// NOLINTNEXTLINE(readability-identifier-naming): libFuzzer's name
extern "C" std::size_t LLVMFuzzerMutate(std::uint8_t *data, std::size_t size, std::size_t max_size);

// NOLINTNEXTLINE(readability-identifier-naming): libFuzzer's name
extern "C" std::size_t LLVMFuzzerCustomMutator(std::uint8_t *data, std::size_t size, std::size_t max_size,
                                               unsigned int seed)
{
    using kelmora_fuzz::prefix_size;
    using kelmora_harness::below;
    kelmora_harness::Random random(seed);
    if (size <= prefix_size || below(4, random) == 0)
        return LLVMFuzzerMutate(data, size, max_size);

    json_t *root = json_loadb(reinterpret_cast<const char *>(data) + prefix_size, size - prefix_size, 0, nullptr);
    if (root == nullptr)
        return LLVMFuzzerMutate(data, size, max_size);
    for (std::size_t rounds = 1 + below(3, random); rounds > 0; --rounds)
        kelmora_harness::mutate(root, random);
    char *text = json_dumps(root, JSON_COMPACT);
    json_decref(root);
    const std::size_t length = text != nullptr ? std::strlen(text) : 0;
    const bool fits = text != nullptr && prefix_size + length <= max_size;
    if (fits)
        std::copy_n(text, length, data + prefix_size);
    std::free(text);
    return fits ? prefix_size + length : LLVMFuzzerMutate(data, size, max_size);
}
