#ifndef KELMORA_SOAK_DOCUMENTS_H
#define KELMORA_SOAK_DOCUMENTS_H

#include "harness/mutate.h"
#include "host/gateway/gateway.h"
#include "host/gateway/resources.h"

#include <string>
#include <vector>

namespace kelmora_soak {

using kelmora_harness::below;
using kelmora_harness::Random;

/// A text for a from-translator.
struct Document {
    std::string text;
    bool valid; ///< the resource must accept it
};

/// The texts to write into one resource. Never changes, so threads may share it.
class Documents {
public:
    /// gateway: whose records, as the resource's to-translator writes them, are texts to begin with. They and the
    /// resource's example, if it has one, must be JSON; throws std::runtime_error otherwise.
    Documents(const kelmora_host::Resource &resource, kelmora_host::Gateway &gateway);

    /// Any of them, as it is, changed as JSON, or broken; or an empty text. For a raw resource a block of bytes.
    [[nodiscard]] Document pick(Random &random) const;

private:
    bool raw_;
    std::string example_;
    std::vector<std::string> texts_;
};

} // namespace kelmora_soak

#endif
