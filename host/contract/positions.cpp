#include "host/contract/positions.h"

#include "host/contract/pointer.h"

#include <algorithm>
#include <utility>

// The parser's empty stack adds to a null pointer, which UndefinedBehaviorSanitizer does not let pass.
#ifdef __clang__
#pragma clang attribute push(__attribute__((no_sanitize("pointer-overflow"))), apply_to = function)
#endif
#include <rapidjson/reader.h>
#ifdef __clang__
#pragma clang attribute pop
#endif

namespace kelmora_host {

namespace {

constexpr std::string_view number_characters = "+-.0123456789Ee";

} // namespace

// The parser says what its stream and its handler call their functions.
// NOLINTBEGIN(readability-identifier-naming)

/// The text as the parser reads it. Every number looks like a 0 to it: numbers are jansson's to judge, which takes some
/// that the parser would refuse for their size (0e999).
class Positions::Stream {
public:
    using Ch = char;

    explicit Stream(std::string_view text) : text_(text) {}

    [[nodiscard]] Ch Peek() const
    {
        if (offset_ == text_.size())
            return '\0';
        return at_number() ? '0' : text_[offset_];
    }

    Ch Take()
    {
        if (offset_ == text_.size())
            return '\0';
        if (at_number()) {
            begin_token();
            const std::size_t end = std::min(text_.find_first_not_of(number_characters, offset_), text_.size());
            position_.column += static_cast<std::uint32_t>(end - offset_);
            offset_ = end;
            return '0';
        }
        const Ch taken = text_[offset_];
        if (!in_string_ && taken == '"')
            begin_token();
        if (escaped_)
            escaped_ = false;
        else if (taken == '"')
            in_string_ = !in_string_;
        else
            escaped_ = in_string_ && taken == '\\';
        ++offset_;
        if (taken == '\n')
            position_ = {position_.line + 1, 1};
        else if (offset_ == text_.size() || !continues_character(text_[offset_]))
            ++position_.column;
        return taken;
    }

    [[nodiscard]] std::size_t Tell() const { return offset_; }
    [[nodiscard]] Position position() const { return position_; }

    /// Where the last string or number began.
    [[nodiscard]] std::size_t token() const { return token_; }
    [[nodiscard]] Position token_position() const { return token_position_; }

    // For parsing in place alone, which nobody does.
    static Ch *PutBegin() { return nullptr; }
    static void Put(Ch /*character*/) {}
    static void Flush() {}
    static std::size_t PutEnd(Ch * /*begin*/) { return 0; }

private:
    static bool continues_character(char byte) { return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U; }

    [[nodiscard]] bool at_number() const
    {
        const char next = text_[offset_];
        return !in_string_ && (next == '-' || (next >= '0' && next <= '9'));
    }

    void begin_token()
    {
        token_ = offset_;
        token_position_ = position_;
    }

    std::string_view text_;
    std::size_t offset_ = 0;
    std::size_t token_ = 0;
    Position position_{1, 1};
    Position token_position_{1, 1};
    bool in_string_ = false;
    bool escaped_ = false;
};

/// Takes the parser's events.
class Positions::Builder {
public:
    Builder(Positions &positions, const Stream &stream) : made_(positions), stream_(stream) {}

    // A word is taken without a token; it is on one line.
    bool Null() { return add_word(ValueType::null, 4); }
    bool Bool(bool value) { return add_word(ValueType::boolean, value ? 4 : 5); }

    bool Uint(unsigned /*zero*/)
    {
        const std::string_view raw = token();
        const bool real = raw.find_first_of(".eE") != std::string_view::npos;
        add(real ? ValueType::real : ValueType::integer, raw, stream_.token_position());
        return true;
    }

    bool String(const char *characters, rapidjson::SizeType size, bool /*copy*/)
    {
        const std::string_view raw = token();
        add(ValueType::string, raw, stream_.token_position()).string = meaning(raw, {characters, size});
        return true;
    }

    bool Key(const char *characters, rapidjson::SizeType size, bool /*copy*/)
    {
        const std::string_view raw = token();
        made_.keys_.push_back({stream_.token_position(), raw, meaning(raw, {characters, size})});
        key_ = &made_.keys_.back();
        return true;
    }

    // The bracket is the next character in both cases.
    bool StartObject() { return open(ValueType::object); }
    bool StartArray() { return open(ValueType::array); }

    bool EndObject(rapidjson::SizeType /*count*/)
    {
        const Value &object = close();
        const auto members = std::span(made_.by_key_).subspan(object.children);
        std::ranges::sort(members, [](const Value *one, const Value *other) {
            return std::pair(one->key->string, one->index) < std::pair(other->key->string, other->index);
        });
        for (std::size_t next = 1; next < members.size(); ++next) {
            if (members[next - 1]->key->string == members[next]->key->string)
                made_.repeated_.push_back(members[next - 1]);
        }
        return true;
    }

    bool EndArray(rapidjson::SizeType /*count*/)
    {
        close();
        return true;
    }

    // Never come: numbers look like a 0.
    static bool Int(int /*value*/) { return false; }
    static bool Int64(std::int64_t /*value*/) { return false; }
    static bool Uint64(std::uint64_t /*value*/) { return false; }
    static bool Double(double /*value*/) { return false; }
    static bool RawNumber(const char * /*characters*/, rapidjson::SizeType /*size*/, bool /*copy*/) { return false; }

private:
    [[nodiscard]] std::string_view token() const
    {
        return made_.text_.substr(stream_.token(), stream_.Tell() - stream_.token());
    }

    /// A string's meaning, which lives as long as the positions: most stand in the text as they are.
    std::string_view meaning(std::string_view raw, std::string_view decoded)
    {
        const std::string_view inside = raw.substr(1, raw.size() - 2);
        return inside == decoded ? inside : std::string_view(made_.strings_.emplace_back(decoded));
    }

    Value &add(ValueType type, std::string_view raw, Position position)
    {
        Value *parent = open_.empty() ? nullptr : open_.back();
        Value &value = made_.values_.emplace_back();
        value = {raw, {}, parent, std::exchange(key_, nullptr), position, 0, 0, 0, type};
        if (parent != nullptr)
            value.index = parent->size++;
        pending_.push_back(&value);
        return value;
    }

    bool add_word(ValueType type, std::uint32_t size)
    {
        const Position end = stream_.position();
        add(type, made_.text_.substr(stream_.Tell() - size, size), {end.line, end.column - size});
        return true;
    }

    bool open(ValueType type)
    {
        open_.push_back(&add(type, made_.text_.substr(stream_.Tell(), 1), stream_.position()));
        return true;
    }

    const Value &close()
    {
        Value &value = *open_.back();
        open_.pop_back();
        value.raw = {value.raw.data(), stream_.Tell() + 1 - made_.offset(value.raw)};
        value.children = static_cast<std::uint32_t>(made_.children_.size());
        const auto first = pending_.end() - static_cast<std::ptrdiff_t>(value.size);
        made_.children_.insert(made_.children_.end(), first, pending_.end());
        made_.by_key_.insert(made_.by_key_.end(), first, pending_.end());
        pending_.erase(first, pending_.end());
        return value;
    }

    Positions &made_;
    const Stream &stream_;
    const kelmora_host::Key *key_ = nullptr;
    std::vector<Value *> open_;          // the arrays and objects around the place that is read
    std::vector<const Value *> pending_; // values whose parent is open
};

// NOLINTEND(readability-identifier-naming)

std::optional<Positions> Positions::parse(std::string_view text)
{
    Positions positions(text);
    Stream stream(text);
    Builder builder(positions, stream);
    rapidjson::Reader reader;
    if (!reader.Parse<rapidjson::kParseIterativeFlag>(stream, builder) || stream.Tell() != text.size())
        return std::nullopt;
    const ValueType type = positions.root().type;
    if (type != ValueType::array && type != ValueType::object)
        return std::nullopt;
    std::ranges::sort(positions.repeated_, {}, [](const Value *member) { return member->raw.data(); });
    return positions;
}

std::span<const Value *const> Positions::elements(const Value &value) const
{
    return std::span(children_).subspan(value.children, value.size);
}

const Value *Positions::element(const Value &value, std::size_t index) const
{
    return index < value.size ? elements(value)[index] : nullptr;
}

const Value *Positions::member(const Value &object, std::string_view key) const
{
    if (object.type != ValueType::object)
        return nullptr;
    const auto members = std::span(by_key_).subspan(object.children, object.size);
    const auto behind =
        std::ranges::upper_bound(members, key, {}, [](const Value *member) { return member->key->string; });
    return behind != members.begin() && behind[-1]->key->string == key ? behind[-1] : nullptr;
}

const Value &Positions::nearest(std::string_view pointer) const
{
    const Value *place = &root();
    for (const std::string &token : tokens_of(pointer)) {
        const bool is_index = place->type == ValueType::array && !token.empty() &&
                              token.find_first_not_of("0123456789") == std::string::npos;
        const Value *next =
            is_index ? element(*place, std::strtoul(token.c_str(), nullptr, 10)) : member(*place, token);
        if (next == nullptr)
            break;
        place = next;
    }
    return *place;
}

std::string pointer(const Value &value)
{
    std::vector<const Value *> steps;
    for (const Value *step = &value; step->parent != nullptr; step = step->parent)
        steps.push_back(step);
    std::string made;
    for (auto step = steps.rbegin(); step != steps.rend(); ++step) {
        const Key *key = (*step)->key;
        made.append("/").append(key != nullptr ? escaped_token(key->string) : std::to_string((*step)->index));
    }
    return made;
}

} // namespace kelmora_host
