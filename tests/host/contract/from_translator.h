#ifndef KELMORA_TESTS_HOST_CONTRACT_FROM_TRANSLATOR_H
#define KELMORA_TESTS_HOST_CONTRACT_FROM_TRANSLATOR_H

#include "host/contract/learn_courses.h"
#include "host/contract/learn_keys.h"
#include "host/contract/learn_needs.h"
#include "host/json.h"
#include "host/plugin/registry.h"
#include "kelmora_host.h"

namespace kelmora_host {

/// A from-translator out of a function that takes a parsed document, fills a record and says whether it is accepted.
template <class T, bool (*take)(const json_t *root, T &record, kelmora_errorlist *errors)>
int from_translator(kelmora_resource *node, const char *text, kelmora_errorlist *errors)
{
    const Json root(json_loads(text, 0, nullptr));
    return take(root.get(), *static_cast<T *>(kelmora_resource_get_data(node)), errors) ? 1 : 0;
}

/// A registration of such a from-translator alone.
template <class T, bool (*take)(const json_t *root, T &record, kelmora_errorlist *errors)>
constexpr Registration taking{0, from_translator<T, take>, nullptr};

/// What is learned first of such a from-translator, under the name of a resource that is there.
template <class T, bool (*take)(const json_t *root, T &record, kelmora_errorlist *errors)> struct Learned {
    InputSubject subject{*find_resource("remote_web_access"), taking<T, take>};
    FoundKeys keys = find_keys(subject);
    Courses courses{subject, keys};
    Needs needs{subject, keys, courses};
};

/// Reports that a key is not there.
inline bool is_missing(kelmora_errorlist *errors, const char *key)
{
    kelmora_errorlist_add_error(errors, key, "not found", "json");
    return false;
}

/// What is looked up, and not used.
inline void look_at(const json_t * /*value*/) {}

} // namespace kelmora_host

#endif
