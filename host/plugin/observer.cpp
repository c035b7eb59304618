#include "host/plugin/observer.h"

#include <utility>

namespace kelmora_host {

namespace {

thread_local Observation *innermost = nullptr;

} // namespace

Observation::Observation(Observer &observer) : observer_(observer), outer_(std::exchange(innermost, this)) {}

Observation::~Observation() { innermost = outer_; }

Silence::Silence() : innermost_(std::exchange(innermost, nullptr)) {}

Silence::~Silence() { innermost = innermost_; }

} // namespace kelmora_host
