#include "host/plugin/observer.h"

#include <utility>

namespace kelmora_host {

namespace {

thread_local Observer *current = nullptr;

} // namespace

Observation::Observation(Observer &observer) : outer_(std::exchange(current, &observer)) {}

Observation::~Observation() { current = outer_; }

Silence::Silence() : observer_(std::exchange(current, nullptr)) {}

Silence::~Silence() { current = observer_; }

} // namespace kelmora_host
