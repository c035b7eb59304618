#ifndef KELMORA_HOST_JSON_H
#define KELMORA_HOST_JSON_H

#include <jansson.h>
#include <memory>
#include <string>
#include <string_view>

namespace kelmora_host {

/// Releases its reference to a JSON value.
struct JsonRelease {
    void operator()(json_t *value) const { json_decref(value); }
};

/// A JSON value, owned: one reference.
using Json = std::unique_ptr<json_t, JsonRelease>;

/// A new, empty JSON object.
inline Json new_object() { return Json(json_object()); }

/// A new JSON string, for jansson's functions that take over a reference.
inline json_t *json_text(std::string_view text) { return json_stringn(text.data(), text.size()); }

/// Sets a member of an object; the value's reference is taken over.
inline void set(const Json &object, const char *key, json_t *value) { json_object_set_new(object.get(), key, value); }

/// What a JSON text of any type means: a new reference, NULL when it is none.
inline json_t *parsed(const std::string &json) { return json_loads(json.c_str(), JSON_DECODE_ANY, nullptr); }

/// The value as one line of text, without its end.
std::string to_text(const Json &value);

} // namespace kelmora_host

#endif
