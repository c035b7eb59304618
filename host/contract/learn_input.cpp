#include "host/contract/learn_input.h"

#include "host/contract/learn_courses.h"
#include "host/contract/learn_key_fields.h"
#include "host/contract/learn_keys.h"
#include "host/contract/learn_lists.h"
#include "host/contract/learn_needs.h"
#include "host/contract/learn_values.h"
#include "host/contract/pointer.h"

namespace kelmora_host {

Input learn_input(const Resource &resource, const Registration &translators)
{
    // What concerns all keys.
    const InputSubject subject(resource, translators);
    const FoundKeys keys = find_keys(subject);
    const Courses courses(subject, keys);
    const Needs needs(subject, keys, courses);

    // What concerns one.
    const ValueLearner values(subject, keys, needs);
    const KeyFieldLearner fields(subject, keys, needs);
    const ListLearner lists(subject, keys, fields);
    const auto describe = [&](const std::string &path) {
        const FoundKey &found = keys.at(path);
        const Need &need = needs.of(path);
        InputKey key;
        key.path = path;
        key.type = type_of(found);
        key.refused = found.refused;
        key.required = need.always;
        key.required_when = need.when;
        key.absent = need.error;
        key.looked_at_when = courses.looked_at_when(path);
        values.learn_types(key);
        if (key.type == InputType::array) {
            lists.learn_list(key);
        } else if (found.is_leaf() || key.type == InputType::text) {
            fields.learn_fields(key);
            values.learn_range(key);
            fields.learn_only_with(key);
            fields.learn_also_sets(key);
        }
        if (is_element(path)) {
            key.empty_is_skipped = key.type == InputType::string && lists.skips_empty(path);
        } else if (!found.refused) {
            if (found.good.kind == Given::Kind::integer) {
                courses.learn_decisions(key);
                needs.add_decisions(key);
            }
            fields.learn_absence(key);
        }
        key.skipped = key.skipped && !key.cleared_when_absent;
        return key;
    };
    Input input;
    for (const std::string &path : keys.ordered())
        input.keys.push_back(describe(path));
    needs.find_groups(input.keys);
    return input;
}

} // namespace kelmora_host
