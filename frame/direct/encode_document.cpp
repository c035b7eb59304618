#include "frame/encode_document.h"

#include "frame/output.h"

namespace kelmora {

namespace {

/// Whether several nodes write into one object, where a later one's members take the place of an earlier one's.
bool share_object(kelmora_resource *head, Format format)
{
    if (root_is_array(*head, format) || format.nodes() == Nodes::head_only)
        return false;
    return is_counted(format) ? head->count > 1 : kelmora_resource_get_next(head) != nullptr;
}

template <class Root> void write_root(Text &text, kelmora_resource *head, Format format, NodeToJson to_json)
{
    Root root(text);
    nodes_to_json(root, head, format, to_json);
    root.close();
}

} // namespace

bool encode_document(kelmora_resource *head, char **out, Format format, NodeToJson to_json)
{
    const bool apart = share_object(head, format); // on its way such a text may be longer than in the end
    Text text(apart ? nullptr : out, format.flags() == static_cast<std::size_t>(Flags::pretty));
    if (root_is_array(*head, format))
        write_root<ArrayEncoder>(text, head, format, to_json);
    else
        write_root<Encoder>(text, head, format, to_json);
    const char *whole = text.finish();
    return apart ? hand_over(whole, out) : whole != nullptr;
}

} // namespace kelmora
