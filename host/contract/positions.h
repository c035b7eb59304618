#ifndef KELMORA_HOST_CONTRACT_POSITIONS_H
#define KELMORA_HOST_CONTRACT_POSITIONS_H

#include <cstddef>
#include <cstdint>
#include <deque>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace kelmora_host {

/// A place in a text. Lines and columns count from 1, columns in characters.
struct Position {
    std::uint32_t line;
    std::uint32_t column;

    bool operator==(const Position &) const = default;
};

/// The key of a member of an object.
struct Key {
    Position position;       ///< of its opening quote
    std::string_view raw;    ///< as it stands in the text, with its quotes
    std::string_view string; ///< what it means
};

enum class ValueType { null, boolean, integer, real, string, array, object };

/// A value of a JSON document, and where it stands.
struct Value {
    std::string_view raw;    ///< as it stands in the text
    std::string_view string; ///< what a string means; of other types empty
    const Value *parent;     ///< the array or object that holds it; NULL for the root
    const Key *key;          ///< its key when it is a member of an object; else NULL
    Position position;       ///< of its first character
    std::uint32_t index;     ///< its place among the elements or members of its parent, from 0
    std::uint32_t size;      ///< elements or members, repeated ones each; of other types 0
    std::uint32_t children;  ///< of Positions: where they begin in its lists
    ValueType type;
};

/// The values of a JSON document with their places.
///
/// Takes every text without a NUL that jansson takes, and no claim is made on others: numbers in particular are not
/// checked. Time and memory are in proportion to the text; no nesting is too deep.
class Positions {
public:
    Positions(const Positions &) = delete; // its parts refer to each other
    Positions &operator=(const Positions &) = delete;
    Positions(Positions &&) noexcept = default;
    Positions &operator=(Positions &&) noexcept = default;
    ~Positions() = default;

    /// Nothing when the text is no document. It refers to the text, which must outlive it and stay where it is.
    [[nodiscard]] static std::optional<Positions> parse(std::string_view text);

    /// The outermost array or object.
    [[nodiscard]] const Value &root() const { return values_.front(); }

    /// An object's member of this key: the last one when the key is repeated, which is the one that counts. NULL when
    /// there is none, or the value is no object.
    [[nodiscard]] const Value *member(const Value &object, std::string_view key) const;

    /// An array's element, or an object's member in the order of the text. NULL when there is none.
    [[nodiscard]] const Value *element(const Value &value, std::size_t index) const;

    /// What a JSON Pointer points to, or the innermost value around the place where that would be.
    [[nodiscard]] const Value &nearest(std::string_view pointer) const;

    /// All elements or members in the order of the text.
    [[nodiscard]] std::span<const Value *const> elements(const Value &value) const;

    /// The members that do not count, in the order of the text: their key stands again further on in the same object.
    [[nodiscard]] std::span<const Value *const> repeated() const { return repeated_; }

    /// How many bytes of the text are in front of what `raw` views: the raw text of a value or key.
    [[nodiscard]] std::size_t offset(std::string_view raw) const
    {
        return static_cast<std::size_t>(raw.data() - text_.data());
    }

private:
    class Stream;
    class Builder;

    explicit Positions(std::string_view text) : text_(text) {}

    std::string_view text_;
    std::deque<Value> values_; // in deques what is pointed to stays where it is
    std::deque<Key> keys_;
    std::deque<std::string> strings_; // those that differ from the text
    std::vector<const Value *> children_;
    std::vector<const Value *> by_key_; // an object's, where its children are in children_, by key, then in their order
    std::vector<const Value *> repeated_;
};

/// The value's JSON Pointer (RFC 6901): "/wan/0/dns~1v4", and "" for the root.
[[nodiscard]] std::string pointer(const Value &value);

} // namespace kelmora_host

#endif
