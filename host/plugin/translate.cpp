#include "host/plugin/translate.h"

#include "host/plugin/observer.h"

#include <cstdlib>
#include <new>
#include <utility>

void kelmora_errorlist_add_error(kelmora_errorlist *errors, const char *field, const char *message, const char *source)
{
    errors->errors.push_back({field, message, source});
    kelmora_host::tell_observers([errors](kelmora_host::Observer &observer) { observer.failed(*errors); });
}

void kelmora_set_missing(kelmora_resource *node, int field)
{
    kelmora_host::Node::of(node).mark_missing(field);
    kelmora_host::tell_observers([field](kelmora_host::Observer &observer) { observer.marked_missing(field); });
}

namespace kelmora_host {

namespace {

Encoded ask(kelmora_to_translator to, kelmora_resource *head, std::size_t raw_bytes)
{
    OutputBuffer buffer;
    const int result = to(head, buffer.pointer());
    return {result, raw_bytes != 0 ? std::string(buffer.bytes(), raw_bytes) : std::string(buffer.bytes())};
}

} // namespace

OutputBuffer::OutputBuffer() : bytes_(static_cast<char *>(std::malloc(initial_size)))
{
    if (bytes_ == nullptr)
        throw std::bad_alloc();
    bytes_[0] = '\0';
}

OutputBuffer::~OutputBuffer() { std::free(bytes_); }

Encoded to_json(kelmora_to_translator to, std::vector<Node> &nodes, bool as_list, std::size_t raw_bytes)
{
    if (!nodes.empty())
        return ask(to, link_request(nodes, as_list), raw_bytes);
    Node nothing = empty_node();
    nothing.resource()->is_list = as_list ? 1 : 0;
    return ask(to, nothing.resource(), raw_bytes);
}

Decoded from_json(kelmora_from_translator from, Node &node, const std::string &text)
{
    kelmora_errorlist errors;
    const FreeLost free_lost(node.record());
    const int result = from(node.resource(), text.c_str(), &errors);
    return {result, std::move(errors.errors)};
}

} // namespace kelmora_host
