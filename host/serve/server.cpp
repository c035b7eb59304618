#include "host/serve/server.h"

#include "host/serve/problem.h"

#include <algorithm>
#include <arpa/inet.h>
#include <atomic>
#include <cerrno>
#include <condition_variable>
#include <csignal>
#include <cstdint>
#include <cstring>
#include <fmt/format.h>
#include <httplib.h>
#include <list>
#include <mutex>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <optional>
#include <ostream>
#include <poll.h>
#include <string>
#include <string_view>
#include <sys/eventfd.h>
#include <sys/socket.h>
#include <thread>
#include <unistd.h>
#include <utility>

namespace kelmora_host {

namespace {

using Clock = std::chrono::steady_clock;
using Milliseconds = std::chrono::milliseconds;

std::string in_words(int error) { return std::generic_category().message(error); }

/// Whether the descriptor becomes ready for these events before the deadline; false as well once `wake` is readable,
/// where there is one.
bool becomes_ready(int descriptor, short events, Clock::time_point deadline, int wake = -1)
{
    while (true) {
        const auto left = std::chrono::ceil<Milliseconds>(deadline - Clock::now());
        pollfd polled[] = {{descriptor, events, 0}, {wake, POLLIN, 0}}; // one below 0 is passed over
        const int ready = poll(polled, 2, static_cast<int>(std::max(left, Milliseconds(0)).count()));
        if (ready < 0 && errno == EINTR)
            continue;
        return ready > 0 && polled[1].revents == 0 && polled[0].revents != 0;
    }
}

/// Lines of several threads, whole.
class Log {
public:
    explicit Log(std::ostream &stream) : stream_(stream) {}

    void line(const std::string &text)
    {
        const std::scoped_lock lock(mutex_);
        stream_ << text << std::endl; // NOLINT(performance-avoid-endl): who watches it waits for the line
    }

private:
    std::mutex mutex_;
    std::ostream &stream_;
};

/// What of a request's target may be logged: the path, without what a terminal would obey.
std::string loggable(std::string_view target)
{
    constexpr std::size_t longest = 200;
    const std::string_view path = target.substr(0, target.find('?'));
    std::string text;
    for (const char c : path.substr(0, longest)) {
        const auto byte = static_cast<unsigned char>(c);
        if (byte > 0x20 && byte < 0x7F)
            text += c;
        else
            text += fmt::format("\\x{:02x}", byte);
    }
    return path.size() > longest ? text + "..." : text;
}

/// A client's connection, as the HTTP library reads and writes it: within the limits, and with all of an answer sent at
/// once.
class Connection : public httplib::Stream {
public:
    Connection(int socket, int wake, const ServerLimits &limits) : socket_(socket), wake_(wake), limits_(limits)
    {
        constexpr int on = 1;
        setsockopt(socket, IPPROTO_TCP, TCP_NODELAY, &on, sizeof on);
    }

    /// Waits for the first byte of a request; false when none comes.
    bool wait_for_request(Milliseconds longest)
    {
        if (!input_.empty())
            return true;
        return becomes_ready(socket_.number(), POLLIN, Clock::now() + longest, wake_) && receive();
    }

    void begin_request()
    {
        deadline_ = Clock::now() + limits_.request;
        head_left_ = limits_.head;
        in_head_ = true;
    }

    void end_head() { in_head_ = false; }

    /// Forgets what was written and not sent.
    void take_back() { output_.clear(); }

    /// Whether the request's head is longer than it may be.
    [[nodiscard]] bool head_too_long() const { return in_head_ && head_left_ == 0; }

    /// Whether the request did not come in time.
    [[nodiscard]] bool too_late() const { return Clock::now() >= deadline_; }

    /// Sends what was written; false when it could not be.
    bool flush()
    {
        const Clock::time_point deadline = Clock::now() + limits_.answer;
        std::string_view left = output_;
        while (!left.empty() && becomes_ready(socket_.number(), POLLOUT, deadline)) {
            const ssize_t sent = send(socket_.number(), left.data(), left.size(), MSG_NOSIGNAL | MSG_DONTWAIT);
            if (sent < 0 && errno != EAGAIN && errno != EINTR)
                break;
            left.remove_prefix(static_cast<std::size_t>(std::max<ssize_t>(sent, 0)));
        }
        const bool all = left.empty();
        output_.clear();
        return all;
    }

    /// Ends the connection of a client that may still be sending: were it closed at once, the answer would be lost on
    /// its way.
    void close_gently()
    {
        constexpr std::size_t most = 32UL * 1024 * 1024;
        const Clock::time_point deadline = Clock::now() + Milliseconds(2000);
        shutdown(socket_.number(), SHUT_WR);
        std::size_t dropped = 0;
        input_.clear();
        while (dropped < most && becomes_ready(socket_.number(), POLLIN, deadline, wake_) && receive()) {
            dropped += input_.size();
            input_.clear();
        }
    }

    [[nodiscard]] bool is_readable() const override
    {
        return !input_.empty() || becomes_ready(socket_.number(), POLLIN, deadline_, wake_);
    }
    [[nodiscard]] bool is_writable() const override { return true; }

    ssize_t read(char *to, std::size_t size) override
    {
        if (input_.empty() && (!becomes_ready(socket_.number(), POLLIN, deadline_, wake_) || !receive()))
            return -1;
        std::size_t count = std::min(size, input_.size() - begin_);
        if (in_head_) {
            count = std::min(count, head_left_);
            if (count == 0)
                return -1;
            head_left_ -= count;
        }
        std::memcpy(to, input_.data() + begin_, count);
        begin_ += count;
        if (begin_ == input_.size()) {
            input_.clear();
            begin_ = 0;
        }
        return static_cast<ssize_t>(count);
    }

    ssize_t write(const char *from, std::size_t size) override
    {
        output_.append(from, size);
        return static_cast<ssize_t>(size);
    }

    void get_remote_ip_and_port(std::string &ip, int &port) const override
    {
        ip = "127.0.0.1";
        port = 0;
    }
    void get_local_ip_and_port(std::string &ip, int &port) const override { get_remote_ip_and_port(ip, port); }
    [[nodiscard]] socket_t socket() const override { return socket_.number(); }

private:
    /// Fills the empty input; false at its end.
    bool receive()
    {
        constexpr std::size_t chunk = 16UL * 1024;
        input_.resize(chunk);
        begin_ = 0;
        const ssize_t size = recv(socket_.number(), input_.data(), input_.size(), MSG_DONTWAIT);
        input_.resize(static_cast<std::size_t>(std::max<ssize_t>(size, 0)));
        return size > 0;
    }

    Descriptor socket_;
    int wake_;
    const ServerLimits &limits_;
    Clock::time_point deadline_;
    std::string input_;     ///< received, and from begin_ on not read
    std::size_t begin_ = 0; ///< in input_
    std::string output_;
    std::size_t head_left_ = 0;
    bool in_head_ = false;
};

/// The requests of one connection: the HTTP library parses them and words the answers, and no more.
class Exchange : public httplib::Server {
public:
    Exchange(Api &api, Connection &connection, Log &log) : api_(api), connection_(connection), log_(log)
    {
        set_pre_routing_handler([this](const httplib::Request &, httplib::Response &response) {
            return answer_head(response) ? HandlerResponse::Handled : HandlerResponse::Unhandled;
        });
        const auto answer_body = [this](const httplib::Request &, httplib::Response &response,
                                        const httplib::ContentReader &read) { this->answer_body(response, read); };
        Put(the_path, answer_body);
        Post(the_path, answer_body);
        set_keep_alive_max_count(1000); // told to clients; what ends a connection are the limits
        // What the library itself refuses.
        set_error_handler(HandlerWithResponse([this](const httplib::Request &, httplib::Response &response) {
            if (!response.body.empty())
                return HandlerResponse::Unhandled;
            fill(response, api_.finished(problem(response.status, "this is no request that can be read"), request_));
            return HandlerResponse::Handled;
        }));
        set_logger([this](const httplib::Request &, const httplib::Response &response) { status_ = response.status; });
    }

    /// Reads a request and answers it; whether the connection is fit for another one.
    bool process()
    {
        const Clock::time_point begin = Clock::now();
        request_ = {};
        refusal_.reset();
        body_left_ = false;
        head_read_ = false;
        status_ = 0;
        connection_.begin_request();
        bool last = false;
        bool processed = process_request(connection_, false, last, [this](httplib::Request &head) { take(head); });
        if (!head_read_ && connection_.head_too_long())
            give_up(431);
        else if (!head_read_ && connection_.too_late())
            give_up(408);
        body_left_ = body_left_ || !head_read_; // what comes next is anything but a request
        processed = connection_.flush() && processed;
        if (status_ != 0)
            log_.line(fmt::format("{} {} {} {} ms", request_.method.empty() ? "-" : request_.method,
                                  request_.target.empty() ? "-" : loggable(request_.target), status_,
                                  std::chrono::round<Milliseconds>(Clock::now() - begin).count()));
        if (body_left_)
            connection_.close_gently();
        return processed && !last && !body_left_ && status_ != 0;
    }

private:
    /// What all requests are for, as far as the library's own routing is concerned.
    static constexpr const char *the_path = "/";

    /// Answers a request whose head was not read to its end.
    void give_up(int status)
    {
        const std::string answer =
            fmt::format("HTTP/1.1 {} {}\r\nConnection: close\r\nContent-Length: 0\r\n\r\n", status, reason_of(status));
        connection_.take_back();
        connection_.write(answer.data(), answer.size());
        status_ = status;
    }

    static void fill(httplib::Response &response, Answer answer)
    {
        response.status = answer.status;
        for (auto &[name, value] : answer.headers)
            response.set_header(name, value);
        response.set_header("Accept-Ranges", "none");
        response.body = std::move(answer.body);
        if (!answer.content_type.empty())
            response.set_header("Content-Type", answer.content_type);
    }

    /// The request's head, read.
    void take(httplib::Request &head)
    {
        connection_.end_head();
        head_read_ = true;
        request_.method = head.method;
        request_.target = head.target;
        for (const auto &[name, value] : head.headers)
            request_.headers.emplace(name, value);
        has_body_ = request_.headers.contains("Transfer-Encoding") ||
                    header(request_, "Content-Length").value_or("0").find_first_not_of('0') != std::string::npos;
        refusal_ = fault_of_framing();
        if (!refusal_)
            refusal_ = api_.refusal(request_);
        const bool takes_body = head.method == "PUT" || head.method == "POST";
        body_left_ = has_body_ && (refusal_ || !takes_body);
        if (body_left_) {
            head.headers.erase("Connection");
            head.headers.emplace("Connection", "close");
        }
        // Bytes are exact, and their tags strong: no part of them, and nothing compressed.
        head.ranges.clear();
        head.headers.erase("Range");
        head.headers.erase("Accept-Encoding");
        head.path = the_path;
    }

    /// What would leave it open where the request ends.
    std::optional<Answer> fault_of_framing()
    {
        const std::optional<std::string> encoding = header(request_, "Transfer-Encoding");
        if (!encoding)
            return std::nullopt;
        if (media_type(*encoding) != "chunked" || request_.headers.count("Transfer-Encoding") != 1)
            return api_.finished(problem(501, "the only Transfer-Encoding is chunked"), request_);
        if (request_.headers.contains("Content-Length"))
            return api_.finished(problem(400, "Content-Length and Transfer-Encoding exclude each other"), request_);
        return std::nullopt;
    }

    /// Answers what needs no body; false when the body is to be read.
    bool answer_head(httplib::Response &response)
    {
        const bool takes_body = request_.method == "PUT" || request_.method == "POST";
        if (!refusal_ && takes_body && has_body_ &&
            !media_type(header(request_, "Content-Type").value_or("")).starts_with("multipart/"))
            return false;
        body_left_ = has_body_;
        fill(response, refusal_ ? std::move(*refusal_) : api_.answer(request_));
        return true;
    }

    void answer_body(httplib::Response &response, const httplib::ContentReader &read)
    {
        bool too_long = false;
        const bool whole = read([&](const char *bytes, std::size_t size) {
            too_long = request_.body.size() + size > Api::largest_body;
            if (!too_long)
                request_.body.append(bytes, size);
            return !too_long;
        });
        body_left_ = !whole;
        if (too_long)
            fill(response, api_.finished(problem(413, "the body is too long"), request_));
        else if (!whole)
            fill(response, connection_.too_late()
                               ? api_.finished(problem(408, "the body did not come in time"), request_)
                               : api_.finished(problem(400, "the body is not as its headers say"), request_));
        else
            fill(response, api_.answer(request_));
    }

    Api &api_;
    Connection &connection_;
    Log &log_;
    kelmora_host::Request request_;
    std::optional<Answer> refusal_;
    bool head_read_ = false;
    bool has_body_ = false;
    bool body_left_ = false; ///< the client may be sending it yet
    int status_ = 0;
};

void serve_connection(int socket, int wake, const ServerLimits &limits, Api &api, Log &log)
{
    Connection connection(socket, wake, limits);
    Exchange exchange(api, connection, log);
    Milliseconds longest = limits.request;
    while (connection.wait_for_request(longest) && exchange.process())
        longest = limits.idle;
}

/// The threads of the connections.
class Threads {
public:
    ~Threads()
    {
        for (Thread &thread : threads_)
            thread.thread.join();
    }

    void start(auto work)
    {
        reap();
        Thread &added = threads_.emplace_back();
        added.thread = std::thread([this, &added, work] {
            work();
            const std::scoped_lock lock(mutex_);
            added.done = true;
            ended_.notify_one();
        });
    }

    /// Waits a moment until fewer than so many are at work; whether they are.
    bool fewer_than(std::size_t count)
    {
        reap();
        std::unique_lock lock(mutex_);
        return ended_.wait_for(lock, Milliseconds(100), [&] {
            return static_cast<std::size_t>(std::ranges::count(threads_, false, &Thread::done)) < count;
        });
    }

private:
    struct Thread {
        std::thread thread;
        bool done = false; ///< under the mutex
    };

    void reap()
    {
        std::list<Thread> done;
        {
            const std::scoped_lock lock(mutex_);
            for (auto thread = threads_.begin(); thread != threads_.end();) {
                const auto next = std::next(thread);
                if (thread->done)
                    done.splice(done.end(), threads_, thread);
                thread = next;
            }
        }
        for (Thread &thread : done)
            thread.thread.join();
    }

    std::mutex mutex_;
    std::condition_variable ended_;
    std::list<Thread> threads_; ///< added to and taken from by one thread alone
};

int listening_socket(int port)
{
    const int number = socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0);
    if (number < 0)
        throw ServerError("no socket: " + in_words(errno));
    constexpr int on = 1;
    setsockopt(number, SOL_SOCKET, SO_REUSEADDR, &on, sizeof on); // ports of connections that ended just now
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_port = htons(static_cast<std::uint16_t>(port));
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    if (bind(number, reinterpret_cast<const sockaddr *>(&address), sizeof address) == 0 &&
        listen(number, SOMAXCONN) == 0)
        return number;
    const int error = errno;
    close(number);
    throw ServerError(fmt::format("port {} of 127.0.0.1: {}", port, in_words(error)) +
                      (error == EADDRINUSE ? "; --port names another one, 0 any that is free" : ""));
}

int port_of(int socket)
{
    sockaddr_in address{};
    socklen_t size = sizeof address;
    if (getsockname(socket, reinterpret_cast<sockaddr *>(&address), &size) != 0)
        throw ServerError("no port: " + in_words(errno));
    return ntohs(address.sin_port);
}

std::atomic<const Server *> stopped_by_signals = nullptr;

void stop_by_signal(int /*number*/)
{
    const int before = errno;
    if (const Server *server = stopped_by_signals)
        server->stop();
    errno = before;
}

} // namespace

Descriptor::~Descriptor()
{
    if (number_ >= 0)
        close(number_);
}

Server::Server(int port, const ServerLimits &limits)
    : limits_(limits), wake_(eventfd(0, EFD_CLOEXEC)), listening_(listening_socket(port)),
      port_(port_of(listening_.number()))
{
    if (wake_.number() < 0)
        throw ServerError("no eventfd: " + in_words(errno));
}

void Server::run(Api &api, std::ostream &log)
{
    Log lines(log);
    Threads threads;
    const auto stopped = [this] {
        pollfd polled{wake_.number(), POLLIN, 0};
        return poll(&polled, 1, 0) > 0;
    };
    while (!stopped()) {
        if (!threads.fewer_than(limits_.connections) ||
            !becomes_ready(listening_.number(), POLLIN, Clock::now() + std::chrono::hours(1), wake_.number()))
            continue;
        const int client = accept4(listening_.number(), nullptr, nullptr, SOCK_CLOEXEC);
        if (client >= 0)
            threads.start([=, this, &api, &lines] { serve_connection(client, wake_.number(), limits_, api, lines); });
        else if (errno == EMFILE || errno == ENFILE || errno == ENOMEM)
            std::this_thread::sleep_for(Milliseconds(10)); // until a connection ends
    }
}

void Server::stop() const
{
    const std::uint64_t one = 1;
    [[maybe_unused]] const ssize_t written = write(wake_.number(), &one, sizeof one);
}

StopOnSignals::StopOnSignals(const Server &server)
{
    stopped_by_signals = &server;
    struct sigaction action {};
    action.sa_handler = stop_by_signal;
    action.sa_flags = static_cast<int>(SA_RESETHAND);
    sigaction(SIGINT, &action, nullptr);
    sigaction(SIGTERM, &action, nullptr);
}

StopOnSignals::~StopOnSignals()
{
    struct sigaction action {};
    action.sa_handler = SIG_DFL;
    sigaction(SIGINT, &action, nullptr);
    sigaction(SIGTERM, &action, nullptr);
    stopped_by_signals = nullptr;
}

} // namespace kelmora_host
