// Prints what stack the translators take, in bytes. Lines of "use RESOURCE DIRECTION DOCUMENT ALL JSON FIRST": ALL is
// everything that a call takes, JSON what the JSON library takes of itself to render or parse the same text, FIRST what
// the call takes when it is the process's first. "deepest RESOURCE DOCUMENT ALL JSON": the same for documents as deep
// as a client can send them. "tree LEVELS ALL BUILD DUMP RELEASE": of a tree of mesh neighbours, all in all and in its
// three steps. "carries STACK LEVELS": the deepest tree that a stack carries.
#include "bench/baselines/json.h"
#include "bench/calls.h"
#include "bench/painted_stack.h"
#include "bench/program.h"

#include "host/json.h"

#include "kelmora_records.h"

#include <cstddef>
#include <cstdlib>
#include <dlfcn.h>
#include <filesystem>
#include <functional>
#include <iostream>
#include <jansson.h>
#include <memory>
#include <stdexcept>
#include <string>
#include <string_view>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

namespace kelmora_bench {

namespace {

using kelmora_host::Json;
using kelmora_host::Registration;
using kelmora_host::Registry;
using kelmora_host::Resource;

/// What the JSON library takes to render a document as this text was rendered, or to parse the text.
std::size_t use_of_dumping(const json_t *document, std::size_t flags)
{
    return stack_use([&] { std::free(json_dumps(document, flags)); });
}

std::size_t use_of_dumping(const std::string &text)
{
    const Json document(json_loads(text.c_str(), 0, nullptr));
    return document ? use_of_dumping(document.get(), text[1] == '\n' ? pretty : 0) : 0;
}

std::size_t use_of_parsing(const std::string &text)
{
    return stack_use([&] { json_decref(json_loads(text.c_str(), 0, nullptr)); });
}

/// A call to measure.
struct Use {
    std::string name;
    std::function<std::size_t()> all;
    std::function<std::size_t()> json;
};

Use use_of(std::string name, std::shared_ptr<ToCall> call)
{
    return {std::move(name), [call] { return stack_use([&] { call->make(); }); },
            [call] { return use_of_dumping(call->result()); }};
}

Use use_of(std::string name, std::shared_ptr<FromCall> call, const std::string &text)
{
    return {std::move(name),
            [call] {
                call->prepare();
                return stack_use([&] { call->make(); });
            },
            [text] { return use_of_parsing(text); }};
}

const Registration &pair_of(const Resource &resource) { return *Registry::instance().find(resource.number); }

Use reading(const Resource &resource, const std::string &document, const std::string &text)
{
    return use_of(std::string(resource.name) + " from " + document,
                  std::make_shared<FromCall>(pair_of(resource).from, resource, text), text);
}

/// Every translator: the samples as a list and as an object; the example, and what has no key and what is no JSON.
std::vector<Use> every_use()
{
    std::vector<Use> uses;
    for (const Resource &resource : kelmora_host::resources()) {
        Nodes nodes = sample_nodes(resource.name);
        if (nodes.empty())
            nodes.push_back(kelmora_host::empty_node());
        for (const bool as_list : {true, false})
            uses.push_back(use_of(std::string(resource.name) + " to " + (as_list ? "list" : "object"),
                                  std::make_shared<ToCall>(pair_of(resource).to, nodes, as_list)));
        if (is_raw(resource)) {
            uses.push_back(reading(resource, "bytes", std::string(kelmora_host::raw_size, 'a')));
            continue;
        }
        if (const std::string text = example(resource.name); !text.empty())
            uses.push_back(reading(resource, "example", text));
        uses.push_back(reading(resource, "empty", "{}"));
        uses.push_back(reading(resource, "broken", "{"));
    }
    return uses;
}

/// What a call takes in a process of its own, where it is the first: the imports are yet to be bound.
std::size_t first_use(const Use &use)
{
    int ends[2];
    if (pipe(ends) != 0)
        throw std::runtime_error("no pipe");
    const pid_t child = fork();
    std::size_t bytes = 0;
    if (child == 0) {
        run_on_painted_stack([&] { bytes = use.all(); });
        _exit(write(ends[1], &bytes, sizeof bytes) == sizeof bytes ? 0 : 1);
    }
    close(ends[1]);
    const bool done = child > 0 && read(ends[0], &bytes, sizeof bytes) == sizeof bytes;
    close(ends[0]);
    if (child > 0)
        waitpid(child, nullptr, 0);
    if (!done)
        throw std::runtime_error(use.name + ": the process that was to measure it failed");
    return bytes;
}

// ---- the deepest documents

constexpr std::size_t deepest_parsed = 2048;
constexpr std::size_t deepest_rendered = 512;

std::string nested_arrays(std::size_t depth) { return std::string(depth, '[') + std::string(depth, ']'); }

std::string nested_objects(std::size_t depth)
{
    std::string text;
    for (std::size_t i = 1; i < depth; ++i)
        text += "{\"a\":";
    return text + "{}" + std::string(depth - 1, '}');
}

/// With a member of so many levels.
void measure_deepest(std::string_view name, const std::string &key, std::size_t levels)
{
    const Resource &resource = *kelmora_host::find_resource(name);
    const std::string text = example(name);
    const std::string front = text.substr(0, text.rfind('}')) + ", \"" + key + "\": ";
    for (const auto &[kind, value] :
         {std::pair("arrays", nested_arrays(levels)), std::pair("objects", nested_objects(levels))}) {
        const Use use = reading(resource, kind, front + value + "}");
        std::cout << "deepest " << name << " " << kind << " " << use.all() << " " << use.json() << "\n";
    }
}

// ---- the tree of a mesh's neighbours

/// A mesh whose neighbours each have one of their own, so many levels deep.
Nodes mesh_of(std::size_t levels)
{
    kelmora_easymesh mesh{};
    for (std::size_t i = 0; i < levels; ++i) {
        auto *parent = static_cast<kelmora_easymesh_neighbor *>(std::calloc(1, sizeof(kelmora_easymesh_neighbor)));
        parent->neighbors = mesh.neighbors;
        mesh.neighbors = parent;
    }
    Nodes nodes;
    nodes.emplace_back("mesh", kelmora_host::Record(mesh));
    return nodes;
}

std::size_t use_of_tree(std::size_t levels)
{
    ToCall call(pair_of(*kelmora_host::find_resource("easymesh")).to, mesh_of(levels));
    return stack_use([&] { call.make(); });
}

void measure_tree(std::size_t levels, decltype(add_neighbors) &add)
{
    Nodes nodes = mesh_of(levels);
    const kelmora_easymesh_neighbor *first = nodes.front().record().as<kelmora_easymesh>().neighbors;
    json_t *array = json_array();
    const std::size_t build = stack_use([&] { add(first, array); });
    const std::size_t dump = use_of_dumping(array, 0);
    const std::size_t release = stack_use([&] { json_decref(array); });
    std::cout << "tree " << levels << " " << use_of_tree(levels) << " " << build << " " << dump << " " << release
              << "\n";
}

/// The deepest tree that a stack of so many bytes carries. Two measures tell where to look; the last ones decide.
std::size_t deepest_tree(std::size_t bytes)
{
    constexpr std::size_t step = 8;
    const std::size_t base = use_of_tree(step);
    const std::size_t slope = (use_of_tree(2 * step) - base) / step;
    std::size_t levels = bytes > base ? step + (bytes - base) / slope : step;
    while (levels > 0 && use_of_tree(levels) > bytes)
        --levels;
    while (use_of_tree(levels + 1) <= bytes)
        ++levels;
    return levels;
}

// ----

void measure(const std::vector<Use> &uses, const std::vector<std::size_t> &first, decltype(add_neighbors) &add)
{
    for (const Use &use : uses) { // binds what they import
        use.all();
        use.json();
    }
    for (std::size_t i = 0; i < uses.size(); ++i)
        std::cout << "use " << uses[i].name << " " << uses[i].all() << " " << uses[i].json() << " " << first[i] << "\n";

    measure_deepest("wireless", "nobody's", deepest_parsed - 1); // the root is one
    measure_deepest("http_request", "body", deepest_rendered);

    for (const std::size_t levels : {1U, 2U, 16U, 32U, 64U})
        measure_tree(levels, add);
    for (const std::size_t kibibytes : {8U, 64U, 256U})
        std::cout << "carries " << kibibytes * 1024 << " " << deepest_tree(kibibytes * 1024) << "\n";
}

void run(const std::filesystem::path &file)
{
    const kelmora_host::Plugin plugin(file);
    auto *add = reinterpret_cast<decltype(add_neighbors) *>(dlsym(dlopen(file.c_str(), RTLD_LAZY), "add_neighbors"));
    if (add == nullptr)
        throw std::runtime_error(dlerror());

    json_object_seed(1); // or the order in its hash tables, and with it the depths, would change from run to run
    const std::vector<Use> uses = every_use();
    std::vector<std::size_t> first;
    first.reserve(uses.size());
    for (const Use &use : uses)
        first.push_back(first_use(use));
    run_on_painted_stack([&] { measure(uses, first, *add); });
}

} // namespace

} // namespace kelmora_bench

int main(int argc, char **argv)
{
    using namespace kelmora_bench;
    return run_program("kelmora-bench-stack", [&] { run(plugin_file(argc, argv)); });
}
