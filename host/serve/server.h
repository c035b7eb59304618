#ifndef KELMORA_HOST_SERVE_SERVER_H
#define KELMORA_HOST_SERVE_SERVER_H

#include "host/serve/api.h"

#include <chrono>
#include <cstddef>
#include <iosfwd>
#include <stdexcept>

namespace kelmora_host {

/// The server could not be set up; what() says why.
class ServerError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// What clients may take up.
struct ServerLimits {
    std::size_t connections = 256;           ///< at once; further ones wait
    std::size_t head = 32UL * 1024;          ///< bytes of a request's first line and headers
    std::chrono::milliseconds request{5000}; ///< from a request's first byte to its last one
    std::chrono::milliseconds answer{10000}; ///< until the client has taken an answer
    std::chrono::milliseconds idle{5000};    ///< between two requests of a connection
};

/// A file descriptor, owned.
class Descriptor {
public:
    explicit Descriptor(int number) : number_(number) {}
    Descriptor(const Descriptor &) = delete;
    Descriptor &operator=(const Descriptor &) = delete;
    ~Descriptor();

    [[nodiscard]] int number() const { return number_; }

private:
    int number_;
};

/// A port of 127.0.0.1, on which requests are answered, each connection on a thread of its own.
class Server {
public:
    /// Listens, though nothing is answered yet. port: 0 for any free one. Throws ServerError.
    explicit Server(int port, const ServerLimits &limits = {});

    [[nodiscard]] int port() const { return port_; }

    /// Answers until stop() is called, and finishes the answers under way. log: a line for each request, with the path
    /// and nothing else of what was sent.
    void run(Api &api, std::ostream &log);

    /// Ends run(), also one that is yet to come. May be called from any thread, and by a handler of a signal.
    void stop() const;

private:
    ServerLimits limits_;
    Descriptor wake_; ///< readable once it is to stop
    Descriptor listening_;
    int port_;
};

/// While it lives, SIGINT and SIGTERM stop the server; a second one ends the process. One at a time.
class StopOnSignals {
public:
    explicit StopOnSignals(const Server &server);
    StopOnSignals(const StopOnSignals &) = delete;
    StopOnSignals &operator=(const StopOnSignals &) = delete;
    ~StopOnSignals();
};

} // namespace kelmora_host

#endif
