#include "kelmora_json.h"

#include <cstddef>
#include <jansson.h>

namespace {

/// "prefix.key", cut to what the buffer holds: enough for every prefix and key of the resources.
class DottedName {
public:
    DottedName(const char *prefix, const char *key)
    {
        append(prefix);
        append(".");
        append(key);
    }

    [[nodiscard]] const char *text() const { return text_; }

private:
    void append(const char *part)
    {
        for (; *part != '\0' && length_ < sizeof text_ - 1; ++part)
            text_[length_++] = *part;
    }

    char text_[56]{};
    std::size_t length_ = 0;
};

} // namespace

json_t *get_json_obj(json_t *object, const char *key, const char *prefix, kelmora_errorlist *errors)
{
    json_t *member = json_object_get(object, key);
    if (member != nullptr)
        return member;
    if (prefix == nullptr || *prefix == '\0')
        kelmora_errorlist_add_error(errors, key, "field not found", "json");
    else
        kelmora_errorlist_add_error(errors, DottedName(prefix, key).text(), "field not found", "json");
    json_decref(object);
    return nullptr;
}
