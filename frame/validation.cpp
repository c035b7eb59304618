#include "frame/validation.h"

namespace kelmora {

const char *type_fault(const json_t *value, int type)
{
    switch (type) {
    case KELMORA_JSON_STRING:
        return json_is_string(value) ? nullptr : "data type must be a valid string";
    case KELMORA_JSON_INTEGER:
        return json_is_integer(value) ? nullptr : "data type must be a valid integer";
    case KELMORA_JSON_BOOLEAN:
        return json_is_boolean(value) ? nullptr : "data type must be a valid boolean";
    case KELMORA_JSON_ARRAY:
        return json_is_array(value) ? nullptr : "data type must be a valid array";
    default:
        return nullptr;
    }
}

const char *value_fault(const json_t *value, int type)
{
    return value != nullptr ? type_fault(value, type) : "field not found";
}

namespace {

/// The result of a check. A failed one releases the document first, then reports.
int conclude(const char *fault, json_t *root, const char *name, kelmora_errorlist *errors)
{
    if (fault == nullptr)
        return 1;
    json_decref(root);
    kelmora_errorlist_add_error(errors, name, fault, "json");
    return 0;
}

/// A type that asks for presence only.
constexpr int any_type = -1;

} // namespace

} // namespace kelmora

using namespace kelmora;

int kelmora_json_validate_field(json_t *root, const json_t *value, const char *name, kelmora_errorlist *errors)
{
    return conclude(value_fault(value, any_type), root, name, errors);
}

int kelmora_json_validate_string_type(json_t *root, const json_t *value, const char *name, kelmora_errorlist *errors)
{
    return conclude(type_fault(value, KELMORA_JSON_STRING), root, name, errors);
}

int kelmora_json_validate_integer_type(json_t *root, const json_t *value, const char *name, kelmora_errorlist *errors)
{
    return conclude(type_fault(value, KELMORA_JSON_INTEGER), root, name, errors);
}

int kelmora_json_validate_boolean_type(json_t *root, const json_t *value, const char *name, kelmora_errorlist *errors)
{
    return conclude(type_fault(value, KELMORA_JSON_BOOLEAN), root, name, errors);
}

int kelmora_json_validate_array_type(json_t *root, const json_t *value, const char *name, kelmora_errorlist *errors)
{
    return conclude(type_fault(value, KELMORA_JSON_ARRAY), root, name, errors);
}

int kelmora_json_validate(json_t *root, const json_t *value, const char *name, int type, kelmora_errorlist *errors)
{
    return conclude(value_fault(value, type), root, name, errors);
}
