#ifndef KELMORA_HARNESS_WATCH_H
#define KELMORA_HARNESS_WATCH_H

#include "host/plugin/observer.h"

#include <functional>
#include <utility>

namespace kelmora_harness {

/// Calls a function at each error that is reported while it lives, behind the error.
class WatchErrors : public kelmora_host::Observer {
public:
    explicit WatchErrors(std::function<void(const kelmora_errorlist &)> look) : look_(std::move(look)) {}

    void failed(const kelmora_errorlist &errors) override { look_(errors); }

private:
    std::function<void(const kelmora_errorlist &)> look_;
    kelmora_host::Observation observation_{*this};
};

/// Calls a function at each entry that is added to a list of the host's while it lives, before it is.
class WatchEntries : public kelmora_host::Observer {
public:
    explicit WatchEntries(std::function<void(const kelmora_host::AddedEntry &)> look) : look_(std::move(look)) {}

    void adding(const kelmora_host::AddedEntry &entry) override { look_(entry); }

private:
    std::function<void(const kelmora_host::AddedEntry &)> look_;
    kelmora_host::Observation observation_{*this};
};

} // namespace kelmora_harness

#endif
