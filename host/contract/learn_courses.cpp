#include "host/contract/learn_courses.h"

#include "host/contract/learn_condition.h"
#include "host/contract/pointer.h"

#include <algorithm>

namespace kelmora_host {

Courses::Courses(const InputSubject &subject, const FoundKeys &keys) : keys_(keys)
{
    for (const auto &[path, known] : keys.all) {
        if (known.refused || is_element(path))
            continue;
        std::vector<Course> &courses = courses_[path];
        for (const Given &value : values_of(known))
            courses.push_back({value, subject.prober.probe(keys.at_home(path, value), subject.blank)});
        courses.push_back({Given{}, subject.prober.probe(keys.at_home(path, {}), subject.blank)});
    }
}

std::vector<Condition> Courses::looked_at_when(const std::string &path) const
{
    std::vector<Condition> conditions;
    for (const auto &[decider, courses] : courses_) {
        if (decider == path || is_within(path, decider) || is_within(decider, path))
            continue;
        Split split;
        for (const Course &course : courses) {
            if (course.probe.accepted)
                (course.probe.has_looked(path) ? split.so : split.not_so).push_back(course.value);
        }
        std::optional<Condition> condition = split.condition(decider, other_of(keys_.at(decider)));
        const std::string parent = parent_of(path);
        const bool inherited = condition && keys_.all.contains(parent) && decides(decider, parent);
        if (condition && !inherited)
            conditions.push_back(std::move(*condition));
    }
    return conditions;
}

/// Whether the decider decides about whether a key is looked at.
bool Courses::decides(const std::string &decider, const std::string &path) const
{
    const std::vector<Course> &courses = courses_.at(decider);
    const auto accepted = [](const Course &course) { return course.probe.accepted; };
    const auto looked = [&](const Course &course) { return !accepted(course) || course.probe.has_looked(path); };
    const auto unlooked = [&](const Course &course) { return !accepted(course) || !course.probe.has_looked(path); };
    return !std::ranges::all_of(courses, looked) && !std::ranges::all_of(courses, unlooked);
}

void Courses::learn_decisions(InputKey &key) const
{
    const std::vector<Course> &courses = courses_.at(key.path);
    const Course &other = courses[courses.size() - 2]; // before its absence
    for (const Course &course : courses) {
        if (course.value.kind == Given::Kind::absent)
            continue;
        if (course.probe.looked != other.probe.looked || course.probe.accepted != other.probe.accepted ||
            course.probe.errors != other.probe.errors)
            key.values.push_back(condition_value(course.value));
    }
    if (other.probe.accepted && !other.probe.errors.empty())
        key.unknown = other.probe.errors.front();
}

} // namespace kelmora_host
