#ifndef KELMORA_HOST_CLI_COMMANDS_H
#define KELMORA_HOST_CLI_COMMANDS_H

#include "host/cli/input.h"
#include "host/gateway/gateway.h"
#include "host/gateway/resources.h"
#include "host/plugin/errors.h"
#include "host/plugin/registry.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace kelmora_host {

// What the program does once its arguments are taken apart. The translators are those of Registry::instance().

/// The resource of this name. Throws Failure (usage) when there is none.
const Resource &resource_named(std::string_view name);

/// The groups of the resources, by the alphabet.
std::vector<std::string> groups();

/// Throws Failure (usage) when there is no group of this name.
void check_group(std::string_view name);

/// Copies of the gateway's nodes of a resource: all, or the one of an id. Throws Failure (usage) when there is none of
/// that id.
std::vector<Node> select_nodes(const Gateway &gateway, const Resource &resource, const std::optional<std::string> &id);

/// A copy of one node: the one of an id, or the first. Throws Failure (usage) when there is none.
Node select_node(const Gateway &gateway, const Resource &resource, const std::optional<std::string> &id);

/// The registered resources of a group, or of all of them when the group is empty: a table that ends with a line of
/// totals.
std::string list_as_table(std::string_view group, std::string_view plugin_version);

/// The same as a JSON array of objects.
std::string list_as_json(std::string_view group);

/// The records as the plug-in writes them; of a raw resource, the first one's bytes in hexadecimal. as_list: as an
/// array of any number of them, even none. Throws Failure (rejected) when the plug-in reports that it did not succeed.
std::string show(const Resource &resource, std::vector<Node> &nodes, bool as_list);

/// The line that says why there is nothing to show, where the resource cannot be read; else empty.
std::string show_warning(const Resource &resource);

/// An error of a document, with what the host knows about its place.
struct DocumentError {
    Error error;
    std::optional<Fault> place;

    bool operator==(const DocumentError &) const = default;
};

/// What became of a document.
struct Outcome {
    bool accepted;
    std::string record;                ///< the record read back; empty when it cannot be read or was not accepted
    std::vector<DocumentError> errors; ///< why it was not accepted, or what the plug-in reports although it was
    bool raw = false;                  ///< the record is a raw resource's, and no JSON
};

/// Has the plug-in store a document into the node's record. A text with a NUL byte is rejected without asking it, and
/// for a raw resource one of another size than raw_size. Throws Failure (rejected) when the record cannot be read back.
Outcome set(const Resource &resource, Node &node, const std::string &text);

/// The line that says what an accepted document did not do, where the resource goes one way only; else empty.
std::string set_warning(const Resource &resource);

/// The errors as lines for people, each with its end; as warnings when the document was accepted. input_name: what the
/// document is called.
std::string errors_as_lines(const Outcome &outcome, std::string_view input_name);

/// The outcome as a JSON object, in which a raw resource's record is a string. Throws Failure (rejected) when the
/// record of another one is no JSON.
std::string outcome_as_json(const Outcome &outcome);

} // namespace kelmora_host

#endif
