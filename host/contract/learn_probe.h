#ifndef KELMORA_HOST_CONTRACT_LEARN_PROBE_H
#define KELMORA_HOST_CONTRACT_LEARN_PROBE_H

#include "host/contract/image.h"
#include "host/gateway/record.h"
#include "host/gateway/resources.h"
#include "host/plugin/errors.h"
#include "host/plugin/registry.h"

#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace kelmora_host {

/// Integers from 0 up to here are tried one by one, where a condition may hang on them.
constexpr std::int64_t most_varied = 16;

/// What the plug-in gets for a key.
struct Given {
    enum class Kind { absent, null, no, yes, integer, real, string, array, object };

    Kind kind = Kind::absent;
    std::int64_t integer = 1;
    double real = 1.5;
    std::string string = "1";
    std::size_t size = 2; ///< of an array

    bool operator==(const Given &) const = default;
};

[[nodiscard]] Given given_integer(std::int64_t value);
[[nodiscard]] Given given_string(std::string value);

/// size: the number of elements, which are null where no answer says otherwise.
[[nodiscard]] Given given_array(std::size_t size);

/// What the plug-in gets, by the key's path: "/lan_list/*/lan_id" is every element's, "/lan_list/1/lan_id" goes before.
using Answers = std::map<std::string, Given, std::less<>>;

/// How a value was used.
struct HowUsed {
    bool string = false;
    bool integer = false;
    bool real = false;
    bool number = false;
    bool array = false;
    bool object = false;
    bool text = false;
};

/// What the plug-in did with a document.
struct Probe {
    bool accepted = false;
    std::vector<Error> errors;
    std::string culprit;                              ///< the path that was looked up last before the first error
    std::string culprit_place;                        ///< the same with the elements' numbers
    std::vector<std::string> looked;                  ///< paths with "*", in the order of their first look-up
    std::map<std::string, HowUsed, std::less<>> uses; ///< by those paths
    std::map<std::string, std::size_t, std::less<>> elements; ///< of an array's path: elements looked up and there
    std::vector<int> missing;
    std::optional<Image> image; ///< the record afterwards, when asked for

    [[nodiscard]] bool has_looked(std::string_view path) const;
};

/// Asks a from-translator, with any answers in a document's place, or in place of some of its values.
class Prober {
public:
    Prober(const Resource &resource, const Registration &translators);

    /// What it does with these answers and a copy of the record. What there is no answer for it finds in the document.
    [[nodiscard]] Probe probe(const Answers &answers, const Record &record, bool with_image = false,
                              const std::string &document = "{}") const;

private:
    const RecordType *type_;
    const Registration &translators_;
};

/// A resource's from-translator, and the two records that it is asked with when what it takes is learned. Where it does
/// another thing with each, the record decides; a field that is stored differs from one of them.
struct InputSubject {
    /// The resource must take JSON. The translators must live as long.
    InputSubject(const Resource &resource, const Registration &translators);

    const RecordType &type;
    Prober prober;
    Record blank;    ///< all zeros
    Record poisoned; ///< all poisoned_byte
};

} // namespace kelmora_host

#endif
