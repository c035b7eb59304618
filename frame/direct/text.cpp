#include "frame/direct/text.h"

#include "frame/output.h"

#include <cstdlib>
#include <cstring>

namespace kelmora {

namespace {

void reverse(char *first, char *end)
{
    for (; first < end && first < --end; ++first) {
        const char byte = *first;
        *first = *end;
        *end = byte;
    }
}

} // namespace

int compare(const char *left, const char *right)
{
    for (; *left == *right && *left != '\0'; ++left)
        ++right;
    return static_cast<unsigned char>(*left) - static_cast<unsigned char>(*right);
}

Text::Text(char **out, bool pretty)
    : out_(out != nullptr ? out : &own_), text_(*out_), at_(text_),
      end_(out != nullptr ? text_ + smallest_buffer - 1 : text_), pretty_(pretty)
{
}

Text::~Text() { std::free(own_); }

/// Remembers a key and the size of what stands before its value as the next member's, and none behind it, or finds the
/// member that has it.
bool Text::learn(Open &in, const char *key, std::size_t size)
{
    if (in.again != none)
        put_in_place(in);
    Layout &layout = *layout_;
    layout.known = in.members; // so that the key after one that came again comes here too
    layout.ordered = 0;
    layout.starts[in.members] = length();
    for (unsigned char i = 0; out_ == &own_ && depth_ == 1 && i < in.members; ++i) {
        if (compare(layout.keys[i], key) == 0) {
            in.again = i;
            return true;
        }
    }
    if (in.members == most_members) {
        fail();
        return false;
    }
    layout.keys[in.members] = key;
    layout.sizes[in.members] = static_cast<unsigned short>(size);
    layout.known = ++in.members;
    return true;
}

/// Has the value behind the last member take the place of the one that its key had before.
[[gnu::cold]] void Text::put_in_place(Open &in)
{
    if (failed_)
        return;
    std::size_t *const starts = layout_->starts;
    char *const value = text_ + starts[in.again] + layout_->sizes[in.again];
    char *const others = text_ + starts[in.again + 1];
    char *const fresh = text_ + starts[in.members];
    const auto size = at_ - fresh;
    forget_inside(value, at_);
    reverse(value, at_);
    reverse(value, value + size);
    reverse(value + size, value + size + (fresh - others));
    at_ -= others - value;
    for (unsigned i = in.again + 1U; i < in.members; ++i)
        starts[i] += static_cast<std::size_t>(size - (others - value));
    in.again = none;
}

/// Forgets what is remembered to be inside the innermost object and this range, whose bytes were moved.
void Text::forget_inside(const char *begin, const char *end)
{
    for (unsigned layout = 1 + (depth_ - 1) * places; layout < layouts; ++layout) {
        Layout &inside = layouts_[layout];
        for (unsigned char i = 0; i < inside.known; ++i) {
            if (text_ + inside.starts[i] >= begin && text_ + inside.starts[i] < end)
                inside.known = i;
        }
    }
}

char *Text::put_line(char *to) const
{
    *to = '\n';
    std::memset(to + 1, ' ', indent_);
    return to + 1 + indent_;
}

char *Text::take(std::size_t size)
{
    if (!reserve(size))
        return nullptr;
    at_ += size;
    return at_ - size;
}

char *Text::begin(Open &in, const char *key, std::size_t size)
{
    // As a rule it is the same member as in the object before, and the same stands before its value.
    Layout &layout = *layout_;
    const unsigned member = in.members;
    if (key == nullptr || member >= layout.known || layout.keys[member] != key ||
        static_cast<std::size_t>(end_ - at_) < layout.sizes[member] + size)
        return begin_new(in, key, size);
    char *const to = at_;
    copy(to, text_ + layout.starts[member], layout.sizes[member]);
    *to = in.front;
    in.front = ',';
    ++in.members;
    layout.starts[member] = length();
    at_ += layout.sizes[member] + size;
    return to + layout.sizes[member];
}

[[gnu::noinline]] char *Text::begin_new(Open &in, const char *key, std::size_t size)
{
    const bool first = in.front != ',';
    const std::size_t key_size = key != nullptr ? std::strlen(key) : 0;
    const std::size_t before = (pretty_ ? indent_ + 2 : first ? 1 : 2) + (key != nullptr ? key_size + 4 : 0);
    if (key != nullptr && !learn(in, key, before))
        return nullptr;
    if (in.again != none)
        return take(size);
    char *to = take(before + size);
    if (to == nullptr)
        return nullptr;
    *to++ = in.front;
    in.front = ',';
    if (pretty_)
        to = put_line(to);
    else if (!first)
        *to++ = ' ';
    if (key != nullptr) {
        *to++ = '"';
        copy(to, key, key_size);
        copy(to + key_size, "\": ", 3);
        to += key_size + 3;
    }
    return to;
}

/// A plain text may be deeper than there are layouts: what is remembered may then be another object's and of no use,
/// but nothing needs it. In a pretty one each open object has its own.
Text::Open Text::open(char front, const Open *around)
{
    Open opened{front, '}', 0, none, layout_};
    indent_ += pretty_ ? 16 : 0;
    const unsigned members = around != nullptr ? around->members : 0;
    if (front == '[') {
        opened.back = ']';
        opened.members = static_cast<unsigned char>(members);
        return opened;
    }
    if (depth_ != 0)
        layout_ = &layouts_[1 + ((depth_ - 1) * places + members % places) % (layouts - 1)];
    if (layout_->indent != indent_)
        layout_->known = 0;
    layout_->indent = indent_;
    if (++depth_ > most_levels && pretty_)
        fail();
    return opened;
}

void Text::close(Open &value)
{
    if (value.again != none)
        put_in_place(value);
    if (value.back == '}') {
        if (pretty_ && !failed_ && value.members > 1)
            sort(value.members);
        --depth_;
        layout_ = value.around;
    }
    indent_ -= pretty_ ? 16 : 0;
    const bool empty = value.front != ',';
    char *to = take(empty ? 2 : pretty_ ? indent_ + 2 : 1);
    if (to == nullptr)
        return;
    if (empty)
        *to++ = value.front;
    else if (pretty_)
        to = put_line(to);
    *to = value.back;
}

void Text::sort(unsigned members)
{
    Layout &layout = *layout_;
    for (unsigned i = layout.ordered == members ? members : 0; i < members; ++i) {
        unsigned place = i;
        for (; place != 0 && compare(layout.keys[layout.order[place - 1]], layout.keys[i]) > 0; --place)
            layout.order[place] = layout.order[place - 1];
        layout.order[place] = static_cast<unsigned char>(i);
        layout.ordered = static_cast<unsigned char>(i + 1);
    }
    layout.known = layout.ordered;
    layout.starts[members] = length();
    unsigned first = 0;
    while (first < members && layout.order[first] == first)
        ++first;
    while (members > first && layout.order[members - 1] == members - 1)
        --members;
    if (first == members)
        return;
    if (static_cast<std::size_t>(end_ - text_) < smallest_buffer)
        sort_in_smallest_buffer(first, members);
    else if (reserve(layout.starts[members] - layout.starts[first]))
        place_in_order(first, members, at_);
}

/// Its stack is taken here alone.
[[gnu::noinline]] void Text::sort_in_smallest_buffer(unsigned first, unsigned last)
{
    char sorted[smallest_buffer];
    place_in_order(first, last, sorted);
}

/// Each member begins with a comma or, the first of all, a bracket.
void Text::place_in_order(unsigned first, unsigned last, char *sorted)
{
    Layout &layout = *layout_;
    char *const begin = text_ + layout.starts[first];
    const char front = *begin;
    std::size_t sizes[most_members];
    for (unsigned i = first; i < last; ++i)
        sizes[i] = layout.starts[i + 1] - layout.starts[i];
    char *to = sorted;
    for (unsigned i = first; i < last; ++i) {
        const unsigned member = layout.order[i];
        std::memcpy(to, text_ + layout.starts[member], sizes[member]);
        *to = ',';
        layout.starts[member] = static_cast<std::size_t>(begin - text_ + (to - sorted));
        to += sizes[member];
    }
    *sorted = front;
    std::memcpy(begin, sorted, static_cast<std::size_t>(to - sorted));
    forget_inside(begin, begin + (to - sorted));
}

/// To twice the text at least, so that a long one is moved a few times only.
[[gnu::cold]] bool Text::grow(std::size_t size)
{
    if (failed_)
        return false;
    const std::size_t used = length();
    const std::size_t wanted = used + (size > used ? size : used) + 1;
    const std::size_t capacity = wanted > smallest_buffer ? wanted : smallest_buffer;
    auto *text = static_cast<char *>(std::realloc(text_, capacity));
    if (text == nullptr) {
        fail();
        return false;
    }
    *out_ = text_ = text;
    at_ = text + used;
    end_ = text + capacity - 1;
    return true;
}

[[gnu::cold]] void Text::fail()
{
    failed_ = true;
    end_ = at_; // nothing has room any more
}

const char *Text::finish()
{
    if (failed_)
        return nullptr;
    *at_ = '\0';
    return make_room(out_, length()) ? *out_ : nullptr;
}

} // namespace kelmora
