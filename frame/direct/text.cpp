#include "frame/direct/text.h"

#include <cstdint>
#include <cstdlib>
#include <cstring>

namespace kelmora {

namespace {

constexpr std::size_t indent_step = 16;

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

[[gnu::always_inline]] inline char *Text::put_line(char *to) const
{
    constexpr std::uint32_t blanks = 0x20202020;
    *to++ = '\n';
    for (char *const end = to + indent_; to != end; to += indent_step) {
        static_assert(indent_step == 4 * sizeof blanks);
        __builtin_memcpy(to, &blanks, sizeof blanks);
        __builtin_memcpy(to + 4, &blanks, sizeof blanks);
        __builtin_memcpy(to + 8, &blanks, sizeof blanks);
        __builtin_memcpy(to + 12, &blanks, sizeof blanks);
    }
    return to;
}

char *Text::take(std::size_t size)
{
    if (!reserve(size))
        return nullptr;
    at_ += size;
    return at_ - size;
}

/// Writes what stands between the items before and the next one.
[[gnu::always_inline]] inline char *Text::put_lead(char *to, char front) const
{
    *to++ = front;
    if (pretty_)
        return put_line(to);
    if (front == ',')
        *to++ = ' ';
    return to;
}

char *Text::begin(Open &in, const char *name, std::size_t name_length, std::size_t size)
{
    Order *const order = in.order;
    const bool bare = in.is_bare();
    const std::size_t lead = bare ? 0 : lead_size(in.front);
    const std::size_t whole = lead + name_size(name_length) + size;
    char *to = at_;
    if (whole > static_cast<std::size_t>(end_ - to) || (order != nullptr && !order->has(in.members, name)))
        return begin_new(in, name, name_length, size, whole);
    at_ = to + whole;
    if (order != nullptr)
        order->starts[in.members++] = static_cast<std::size_t>(to - text_) + lead;
    if (!bare)
        to = put_lead(to, in.front);
    in.front = ',';
    if (name_length == 0)
        return to;
    *to++ = '"';
    to = copy(to, name, name_length);
    *to++ = '"';
    *to++ = ':';
    *to++ = ' ';
    return to;
}

/// Makes room, and remembers the name where members are put in order.
[[gnu::cold]] char *Text::begin_new(Open &in, const char *name, std::size_t name_length, std::size_t size,
                                    std::size_t whole)
{
    if (in.order != nullptr && !in.order->has(in.members, name)) {
        if (in.members == most_members)
            arrange(in); // names that came again make place
        if (in.members == most_members)
            fail();
        else
            in.order->learn(in.members, name);
    }
    return reserve(whole) ? begin(in, name, name_length, size) : nullptr;
}

Text::Open Text::open(char front, const Open *around)
{
    const unsigned char members = around != nullptr ? around->members : 0;
    indent_ += pretty_ ? indent_step : 0;
    if (front == '[')
        return {front, ']', members, nullptr};
    Open object{front, '}', 0, nullptr};
    if (!pretty_ && (out_ != &own_ || around != nullptr))
        return object;
    if (level_ == most_levels) {
        fail();
        return object;
    }
    Order &order = orders_[level_++ * places + members % places];
    object.order = &order;
    order.begin = length();
    order.gap = 0;
    if (!order.is_kept(order.ordered) && !is_smallest()) {
        // With as much room in front as it will take, as a rule, its members are put in order with one copy.
        const std::size_t gap = order.size + order.size / 4;
        order.gap = 2 * gap <= static_cast<std::size_t>(end_ - at_) ? gap : 0;
        at_ += order.gap;
    }
    return object;
}

void Text::close(Open &value)
{
    if (value.order != nullptr) {
        if (!value.order->is_kept(value.members))
            arrange(value);
        --level_;
    }
    indent_ -= pretty_ ? indent_step : 0;
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

/// By name, or as they came; of those with one name the last, in the place of the first.
[[gnu::cold]] void Text::find_order(Order &order, unsigned members) const
{
    order.kept = 0;
    for (unsigned member = 0; member < members; ++member) {
        unsigned place = order.kept;
        int difference = 1;
        for (; place != 0; --place) {
            difference = compare(order.names[order.order[place - 1]], order.names[member]);
            if (difference == 0 || (difference < 0 && pretty_))
                break;
        }
        if (difference == 0) {
            order.order[place - 1] = static_cast<unsigned char>(member);
            continue;
        }
        if (!pretty_)
            place = order.kept;
        auto moving = static_cast<unsigned char>(member);
        for (; place != order.kept; ++place) {
            const unsigned char next = order.order[place];
            order.order[place] = moving;
            moving = next;
        }
        order.order[order.kept++] = moving;
    }
    order.ordered = static_cast<unsigned char>(members);
    order.first = 0;
    while (order.first != order.kept && order.order[order.first] == order.first)
        ++order.first;
}

void Text::arrange(Open &in)
{
    if (failed_)
        return;
    Order &order = *in.order;
    if (order.ordered != in.members)
        find_order(order, in.members);
    const std::size_t lead = order.gap == 0 ? lead_size(',') : 0;
    order.starts[in.members] = length() + lead;
    if (order.is_kept(in.members) && order.gap == 0)
        return;
    order.size = length() - order.begin - order.gap + (lead == 0 ? in.members * lead_size(',') : 0);
    const std::size_t end = order.begin + order.size;
    const std::size_t behind = end > length() ? end - length() : 0; // so far behind that they can be put back
    if (is_smallest())
        put_in_order_on_stack(order);
    else if (order.size <= order.gap)
        at_ = put_in_order(order, text_ + order.begin);
    else if (reserve(behind + order.size))
        put_back(order, at_ + behind, put_in_order(order, at_ + behind));
    if (out_ == &own_ && level_ == 1)
        take_over_order(in);
}

/// Where the buffer was not enlarged it may be too small for more than the text. Its stack is taken here alone.
[[gnu::cold]] void Text::put_in_order_on_stack(const Order &order)
{
    char members[smallest_buffer];
    put_back(order, members, put_in_order(order, members));
}

/// Writes the members of the innermost object in their order, from the first that is not in its place, or with a gap
/// all of them. Returns the end.
char *Text::put_in_order(const Order &order, char *to) const
{
    const bool all = order.gap != 0;
    const std::size_t lead = all ? 0 : lead_size(',');
    const unsigned char *const end = order.order + order.kept;
    for (const unsigned char *member = order.order + (all ? 0 : order.first); member != end; ++member) {
        const std::size_t *const start = order.starts + *member;
        const std::size_t size = start[1] - start[0] - lead;
        to = put_lead(to, member == order.order ? '{' : ',');
        if (size < 64) {
            to = copy(to, text_ + start[0], size);
            continue;
        }
        std::memcpy(to, text_ + start[0], size);
        to += size;
    }
    return to;
}

/// Takes over what was put in order elsewhere.
void Text::put_back(const Order &order, const char *members, const char *end)
{
    const bool all = order.gap != 0 || order.first == 0;
    const auto size = static_cast<std::size_t>(end - members);
    at_ = text_ + (all ? order.begin : order.starts[order.first] - lead_size(','));
    std::memcpy(at_, members, size);
    at_ += size;
}

/// Has the members count as written in the order in which they are now, as others may follow.
[[gnu::cold]] void Text::take_over_order(Open &in)
{
    const Order was = *in.order;
    std::size_t *const starts = in.order->starts;
    std::size_t sizes[most_members];
    for (unsigned i = 0; i < in.members; ++i)
        sizes[i] = starts[i + 1] - starts[i];
    for (unsigned i = 0; i < was.kept; ++i) {
        in.order->names[i] = was.names[was.order[i]];
        starts[i + 1] = starts[i] + sizes[was.order[i]];
    }
    in.members = in.order->known = was.kept;
    in.order->ordered = 0;
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

[[gnu::cold]] const char *Text::finish()
{
    if (failed_)
        return nullptr;
    *at_ = '\0';
    return make_room(out_, length()) ? *out_ : nullptr;
}

} // namespace kelmora
