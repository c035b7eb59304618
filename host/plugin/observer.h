#ifndef KELMORA_HOST_PLUGIN_OBSERVER_H
#define KELMORA_HOST_PLUGIN_OBSERVER_H

#include "host/plugin/errors.h"

#include <cstddef>
#include <jansson.h>
#include <string_view>

namespace kelmora_host {

/// An entry for a record's list, as the plug-in hands it over.
struct AddedEntry {
    const void *record;                        ///< the one whose list it is for
    std::string_view list;                     ///< the name of the list
    std::string_view text = {};                ///< whole, of any length; empty where the entry is a node
    const void *node = nullptr;                ///< the node that is to be copied; NULL where the entry is a text
    int reserved = 0;                          ///< 0 as well where the call has no such argument
    const kelmora_errorlist *errors = nullptr; ///< NULL as well where the call has no such argument
};

/// How a JSON value was read, by the function of jansson's that was called for it.
enum class Accessor { string, integer, real, number };

/// Is told what the plug-in does during a call, at that very moment: its calls of jansson's functions (where the
/// process has host/plugin/interpose.cpp) and of the host's. All do nothing by default. What an observer does itself is
/// not observed. It must not throw: the plug-in is on the stack.
class Observer {
public:
    Observer() = default;
    Observer(const Observer &) = delete;
    Observer &operator=(const Observer &) = delete;
    virtual ~Observer() = default;

    /// A text was parsed. root: NULL when it is no document.
    virtual void parsed(const char * /*text*/, const json_t * /*root*/) {}

    /// A member was looked up. found: borrowed; NULL when there is none, or the value is no object. Returns what the
    /// plug-in is to get in its place: borrowed, and alive until the end of the call.
    virtual json_t *member(const json_t * /*object*/, const char * /*key*/, json_t *found) { return found; }

    /// The same of an element.
    virtual json_t *element(const json_t * /*array*/, std::size_t /*index*/, json_t *found) { return found; }

    /// The number of elements was asked for; 0 when the value is no array.
    virtual void counted(const json_t * /*array*/, std::size_t /*size*/) {}

    /// A value was read. value: of any type, or NULL.
    virtual void read(const json_t * /*value*/, Accessor /*accessor*/) {}

    /// A value was rendered as text.
    virtual void rendered(const json_t * /*value*/) {}

    /// An error was appended to the request's list, as its last one.
    virtual void failed(const kelmora_errorlist & /*errors*/) {}

    /// A field of the record was marked as not supplied: its position in the record.
    virtual void marked_missing(int /*field*/) {}

    /// A chain of so many entries was asked for, in place of the one that the record had.
    virtual void allocating(const void * /*record*/, std::string_view /*list*/, std::size_t /*entries*/) {}

    /// An entry is about to be added to a list of the record's.
    virtual void adding(const AddedEntry & /*entry*/) {}
};

/// While it lives, what this thread's calls of the plug-in do is told to an observer. They nest: all are told, the
/// outer ones first.
class Observation {
public:
    explicit Observation(Observer &observer);
    Observation(const Observation &) = delete;
    Observation &operator=(const Observation &) = delete;
    ~Observation();

    /// Calls tell(Observer &) for this observation's observer, those of the outer ones before.
    template <class Tell> void tell(const Tell &tell)
    {
        if (outer_ != nullptr)
            outer_->tell(tell);
        tell(observer_);
    }

private:
    Observer &observer_;
    Observation *outer_;
};

/// Silences this thread's observations while it lives, and knows whom it silenced: for the functions that tell.
class Silence {
public:
    Silence();
    Silence(const Silence &) = delete;
    Silence &operator=(const Silence &) = delete;
    ~Silence();

    /// Calls tell(Observer &) for each observer.
    template <class Tell> void tell(const Tell &tell) const
    {
        if (innermost_ != nullptr)
            innermost_->tell(tell);
    }

private:
    Observation *innermost_;
};

/// Calls tell(Observer &) for each that observes this thread.
template <class Tell> void tell_observers(const Tell &tell)
{
    const Silence silence;
    silence.tell(tell);
}

} // namespace kelmora_host

#endif
