// Makes every call of the plug-in on every sample and every example, and looks at each byte that comes of it: under
// Valgrind's memcheck this shows the use of bytes that were never written, which no sanitizer of the other tests sees.
#include "host/gateway/blank.h"
#include "host/gateway/gateway.h"
#include "host/gateway/resources.h"
#include "host/plugin/plugin.h"
#include "host/plugin/registry.h"
#include "host/plugin/translate.h"

#include <cstddef>
#include <exception>
#include <fcntl.h>
#include <fstream>
#include <iostream>
#include <iterator>
#include <stdexcept>
#include <string>
#include <string_view>
#include <unistd.h>
#include <valgrind/valgrind.h>
#include <vector>

namespace {

using kelmora_host::Directions;
using kelmora_host::Error;
using kelmora_host::Node;
using kelmora_host::Registration;
using kelmora_host::Resource;

/// How many calls were made.
struct Calls {
    std::size_t to = 0;
    std::size_t from = 0;
};

/// Hands bytes to the system, which is where memcheck asks whether they were written.
void use(const void *bytes, std::size_t size)
{
    static const int sink = open("/dev/null", O_WRONLY | O_CLOEXEC);
    if (write(sink, bytes, size) != static_cast<ssize_t>(size))
        throw std::runtime_error("cannot write to /dev/null");
}

void use(std::string_view text) { use(text.data(), text.size()); }

/// The resource's document in examples/, or 8 bytes for a raw one; empty where there is none.
std::string example_of(const Resource &resource)
{
    if (is_raw(resource))
        return {"\x01\x00\xFF\x7F\x80\x00\x20\x00", kelmora_host::raw_size};
    std::ifstream file(KELMORA_EXAMPLES "/" + std::string(resource.name) + ".json");
    return {std::istreambuf_iterator<char>(file), {}};
}

class EveryCall {
public:
    EveryCall(const Resource &resource, const Registration &pair) : resource_(resource), pair_(pair) {}

    void make(std::vector<Node> samples)
    {
        to(samples, true);
        to(samples, false);
        for (const Node &sample : samples) {
            std::vector<Node> alone{sample};
            to(alone, false);
        }

        std::vector<std::string> documents{example_of(resource_)};
        if (!is_raw(resource_))
            documents.insert(documents.end(), {"{}", "{"});
        const Node blank("blank", blank_record(resource_));
        const Node poisoned("poisoned", poisoned_record(resource_));
        for (const std::string &document : documents) {
            for (const Node &sample : samples)
                from(sample, document);
            // Of these each byte was written before, padding included.
            for (const Node &node : {blank, poisoned}) {
                Node written = from(node, document);
                use(written.record().bytes(), written.record().size());
            }
        }
    }

    [[nodiscard]] Calls calls() const { return calls_; }

private:
    void to(std::vector<Node> &nodes, bool as_list)
    {
        const std::size_t raw_bytes =
            is_raw(resource_) && resource_.directions != Directions::from_only ? kelmora_host::raw_size : 0;
        use(kelmora_host::to_json(pair_.to, nodes, as_list, raw_bytes).text);
        ++calls_.to;
    }

    /// Into a copy of the node, which is then translated back.
    Node from(const Node &node, const std::string &document)
    {
        std::vector<Node> written{node};
        for (const Error &error : kelmora_host::from_json(pair_.from, written.front(), document).errors)
            use(error.field + error.message + error.source);
        ++calls_.from;
        to(written, false);
        return written.front();
    }

    const Resource &resource_;
    const Registration &pair_;
    Calls calls_;
};

/// Whether memcheck found nothing.
bool make_every_call()
{
    if (RUNNING_ON_VALGRIND == 0)
        throw std::runtime_error("this shows nothing but under valgrind");
    const kelmora_host::Plugin plugin(kelmora_host::Plugin::default_path());
    kelmora_host::Gateway gateway = kelmora_host::sample_gateway();
    Calls all;
    unsigned found = VALGRIND_COUNT_ERRORS;
    for (const Resource &resource : kelmora_host::resources()) {
        EveryCall every(resource, *kelmora_host::Registry::instance().find(resource.number));
        every.make(gateway.nodes(resource.name));
        all.to += every.calls().to;
        all.from += every.calls().from;
        if (VALGRIND_COUNT_ERRORS != found)
            std::cout << "above: found in calls of " << resource.name << std::endl;
        found = VALGRIND_COUNT_ERRORS;
    }
    std::cout << all.to << " calls to JSON, " << all.from << " from JSON\n";
    return found == 0;
}

} // namespace

int main()
{
    try {
        return make_every_call() ? 0 : 1;
    } catch (const std::exception &error) {
        std::cerr << "every_call: error: " << error.what() << "\n";
        return 1;
    }
}
