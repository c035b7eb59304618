#ifndef KELMORA_HOST_CLI_COMMANDS_H
#define KELMORA_HOST_CLI_COMMANDS_H

#include "host/cli/input.h"
#include "host/cli/report.h"
#include "host/cli/style.h"
#include "host/contract/layout.h"
#include "host/contract/schema.h"
#include "host/gateway/gateway.h"
#include "host/gateway/resources.h"
#include "host/plugin/doctor.h"
#include "host/plugin/registry.h"

#include <filesystem>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace kelmora_host {

// What the program does once its arguments are parsed. The translators are those of Registry::instance().

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

/// The records as the plug-in writes them; of a raw resource, the first one's bytes in hexadecimal. as_list: as an
/// array of any number of them, even none. Throws Failure (rejected) when the plug-in reports that it did not succeed.
std::string show(const Resource &resource, std::vector<Node> &nodes, bool as_list);

/// The line that says why there is nothing to show, where the resource is write-only; else empty.
std::string show_warning(const Resource &resource);

/// What becomes of a document that would be read into the node's record. file: what the document is called.
CheckedFile check_document(const Resource &resource, const Node &node, const InputText &input);

/// The same, and has the plug-in read it into the node's record: of an accepted one with that record as it then is.
/// Throws Failure (rejected) when the record cannot be shown.
CheckedFile try_document(const Resource &resource, Node &node, const InputText &input);

/// The line that says why there is no record to show, where the resource is write-only; else empty.
std::string try_note(const Resource &resource);

/// Every step of the plug-in's in a document. Throws Failure (rejected) when the text is no document, or the resource's
/// are not JSON.
std::string trace_document(const Resource &resource, const Node &node, const InputText &input, bool as_json,
                           const Style &style);

/// What a resource takes and writes: tables for a terminal, or a JSON object.
std::string describe(const Resource &resource, bool as_json, const Style &style);

/// Where a key of this name stands: a line for each place, or a JSON array. Throws Failure (usage) when no resource
/// knows such a key.
std::string describe_key(const std::string &name, bool as_json, const Style &style);

/// A resource's JSON Schema. Throws Failure (usage) when there are no documents in this direction.
std::string schema_of(const Resource &resource, Direction direction);

/// Writes the schemas of all resources into a folder, which is made where it is not there, as
/// RESOURCE.DIRECTION.schema.json. Throws Failure (environment) when one cannot be written.
void write_schemas(const std::string &folder);

/// The TypeScript types of all resources.
std::string types();

/// The targets that a name stands for: that one, or all of them without a name. Throws Failure (usage) when there is
/// none of this name.
std::span<const Target> targets_named(const std::optional<std::string> &name);

/// How a resource's record, or all of them (NULL), is laid out: tables for a terminal, or JSON.
std::string layouts(const Resource *resource, std::span<const Target> on, bool as_json, const Style &style);

/// Looks at a plug-in, and at the program and libraries that are to load it. Throws Failure (environment) when a file
/// cannot be read or this program lacks what looks into it.
Examination examination_of(const std::filesystem::path &plugin, const std::vector<std::string> &suppliers);

} // namespace kelmora_host

#endif
