// The plug-in takes jansson's functions from the process, where these come first: each hands the call on to jansson,
// and tells the observer. What jansson calls of them itself is not told, as nothing is while a call is under way.

#include "host/plugin/observer.h"

#include <cstdio>
#include <cstdlib>
#include <dlfcn.h>
#include <jansson.h>

namespace {

using kelmora_host::Accessor;
using kelmora_host::Observer;
using kelmora_host::Silence;

/// The function of this name that comes behind the program's own.
template <class Function> Function *next(const char *name)
{
    void *function = dlsym(RTLD_NEXT, name);
    if (function == nullptr) {
        std::fprintf(stderr, "kelmora-host: error: jansson has no %s\n", name);
        std::abort();
    }
    return reinterpret_cast<Function *>(function);
}

/// The result of call(), once the observers were told of it by tell(Observer &, result).
template <class Call, class Tell> auto told(Call call, Tell tell)
{
    const Silence silence;
    const auto result = call();
    silence.tell([&](Observer &observer) { tell(observer, result); });
    return result;
}

} // namespace

extern "C" {

json_t *json_loads(const char *text, std::size_t flags, json_error_t *error)
{
    static const auto real = next<decltype(json_loads)>("json_loads");
    return told([=] { return real(text, flags, error); },
                [=](Observer &observer, const json_t *root) { observer.parsed(text, root); });
}

json_t *json_object_get(const json_t *object, const char *key)
{
    static const auto real = next<decltype(json_object_get)>("json_object_get");
    const Silence silence;
    json_t *found = real(object, key);
    silence.tell([&](Observer &observer) { found = observer.member(object, key, found); });
    return found;
}

json_t *json_array_get(const json_t *array, std::size_t index)
{
    static const auto real = next<decltype(json_array_get)>("json_array_get");
    const Silence silence;
    json_t *found = real(array, index);
    silence.tell([&](Observer &observer) { found = observer.element(array, index, found); });
    return found;
}

std::size_t json_array_size(const json_t *array)
{
    static const auto real = next<decltype(json_array_size)>("json_array_size");
    return told([=] { return real(array); },
                [=](Observer &observer, std::size_t size) { observer.counted(array, size); });
}

const char *json_string_value(const json_t *value)
{
    static const auto real = next<decltype(json_string_value)>("json_string_value");
    return told([=] { return real(value); },
                [=](Observer &observer, const char *) { observer.read(value, Accessor::string); });
}

json_int_t json_integer_value(const json_t *value)
{
    static const auto real = next<decltype(json_integer_value)>("json_integer_value");
    return told([=] { return real(value); },
                [=](Observer &observer, json_int_t) { observer.read(value, Accessor::integer); });
}

double json_real_value(const json_t *value)
{
    static const auto real = next<decltype(json_real_value)>("json_real_value");
    return told([=] { return real(value); }, [=](Observer &observer, double) { observer.read(value, Accessor::real); });
}

double json_number_value(const json_t *value)
{
    static const auto real = next<decltype(json_number_value)>("json_number_value");
    return told([=] { return real(value); },
                [=](Observer &observer, double) { observer.read(value, Accessor::number); });
}

char *json_dumps(const json_t *value, std::size_t flags)
{
    static const auto real = next<decltype(json_dumps)>("json_dumps");
    return told([=] { return real(value, flags); },
                [=](Observer &observer, const char *) { observer.rendered(value); });
}
}
