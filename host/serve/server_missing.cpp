// Where the HTTP library is not there.

#include "host/serve/server.h"

namespace kelmora_host {

Descriptor::~Descriptor() = default;

Server::Server(int port, const ServerLimits &limits) : limits_(limits), wake_(-1), listening_(-1), port_(port)
{
    throw ServerError("this program was built without cpp-httplib, which serve needs");
}

void Server::run(Api & /*api*/, std::ostream & /*log*/) {}

void Server::stop() const {}

StopOnSignals::StopOnSignals(const Server & /*server*/) {}

StopOnSignals::~StopOnSignals() = default;

} // namespace kelmora_host
