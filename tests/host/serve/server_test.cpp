#include "host/serve/server.h"

#include "host/plugin/registry.h"

#include "kelmora_json.h"
#include "kelmora_records.h"

#include <arpa/inet.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <netinet/in.h>
#include <sstream>
#include <string>
#include <sys/socket.h>
#include <thread>
#include <unistd.h>

namespace kelmora_host::server_test {

namespace {

using namespace std::chrono_literals;
using testing::AllOf;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::MatchesRegex;
using testing::Not;
using testing::StartsWith;

/// A connection of a client's.
class Client {
public:
    explicit Client(int port) : socket_(::socket(AF_INET, SOCK_STREAM, 0))
    {
        constexpr timeval longest{20, 0};
        setsockopt(socket_.number(), SOL_SOCKET, SO_RCVTIMEO, &longest, sizeof longest);
        sockaddr_in address{};
        address.sin_family = AF_INET;
        address.sin_port = htons(static_cast<std::uint16_t>(port));
        address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        EXPECT_EQ(connect(socket_.number(), reinterpret_cast<const sockaddr *>(&address), sizeof address), 0);
    }

    void send(const std::string &text) const { (void)::send(socket_.number(), text.data(), text.size(), MSG_NOSIGNAL); }

    void end_sending() const { shutdown(socket_.number(), SHUT_WR); }

    /// All that comes until the server ends the connection.
    [[nodiscard]] std::string receive() const
    {
        std::string text;
        char chunk[4096];
        for (ssize_t size = 0; (size = recv(socket_.number(), chunk, sizeof chunk, 0)) > 0;)
            text.append(chunk, static_cast<std::size_t>(size));
        return text;
    }

    /// One answer, by its length.
    [[nodiscard]] std::string receive_answer() const
    {
        std::string text;
        char byte = 0;
        while (!text.ends_with("\r\n\r\n") && recv(socket_.number(), &byte, 1, 0) == 1)
            text += byte;
        const std::size_t length = text.find("Content-Length: ");
        if (length == std::string::npos)
            return text;
        for (std::size_t left = std::stoul(text.substr(length + 16)); left > 0; --left) {
            if (recv(socket_.number(), &byte, 1, 0) != 1)
                break;
            text += byte;
        }
        return text;
    }

private:
    Descriptor socket_;
};

class ServerTest : public ::testing::Test {
protected:
    ServerTest()
    {
        Registry::instance().clear();
        kelmora_json_init();
    }
    ~ServerTest() override
    {
        server.stop();
        if (thread.joinable())
            thread.join();
        Registry::instance().clear();
    }

    static Gateway gateway()
    {
        Gateway gateway;
        gateway.add("qos", "0", kelmora_qos{.enabled = 0, .global_download = 1, .global_upload = 2});
        return gateway;
    }

    [[nodiscard]] std::string head(const std::string &line, const std::string &more = "") const
    {
        return line + " HTTP/1.1\r\nHost: localhost:" + std::to_string(server.port()) + "\r\n" + more + "\r\n";
    }

    [[nodiscard]] std::string answer_to(const std::string &text) const
    {
        const Client client(server.port());
        client.send(text);
        client.end_sending();
        return client.receive();
    }

    /// The log, once nobody writes it any more.
    std::string log_at_the_end()
    {
        server.stop();
        thread.join();
        return log.str();
    }

    static constexpr const char *body = R"({"enabled": true, "global_download": 5, "global_upload": 6})";
    const std::string json_of_length =
        "Content-Type: application/json\r\nContent-Length: " + std::to_string(std::string(body).size()) + "\r\n";

    State state{gateway()};
    Server server{0, {.connections = 16, .head = 4096, .request = 300ms, .answer = 1s, .idle = 300ms}};
    Api api{state, {server.port(), std::nullopt, "/nowhere", {}}};
    std::ostringstream log;
    std::thread thread{[this] { server.run(api, log); }};
};

TEST_F(ServerTest, AnswersWithTheBytesThemselves)
{
    const std::string answer = answer_to(head("GET /api/v1/gateway/qos/0"));
    EXPECT_THAT(answer, AllOf(StartsWith("HTTP/1.1 200 OK\r\n"), HasSubstr("Content-Type: application/json\r\n"),
                              HasSubstr("ETag: \""), HasSubstr("X-Content-Type-Options: nosniff\r\n")));
    EXPECT_TRUE(answer.ends_with("\r\n\r\n"
                                 "{\n                \"enabled\": false,\n                \"global_download\": 1,\n"
                                 "                \"global_upload\": 2,\n                \"id\": \"0\"\n}"))
        << answer;
}

TEST_F(ServerTest, AnswersSeveralRequestsOfAConnection)
{
    const Client client(server.port());
    client.send(head("GET /api/v1/ids/qos"));
    EXPECT_TRUE(client.receive_answer().ends_with("[\"0\"]"));
    client.send(head("PUT /api/v1/gateway/qos/0", json_of_length) + body + head("GET /api/v1/gateway/qos/0"));
    EXPECT_THAT(client.receive_answer(), HasSubstr(R"("committed": true)"));
    EXPECT_THAT(client.receive_answer(), HasSubstr(R"("global_upload": 6,)"));
}

TEST_F(ServerTest, TakesABodyInChunks)
{
    const std::string document(body);
    std::ostringstream chunks;
    chunks << std::hex << 10 << "\r\n"
           << document.substr(0, 10) << "\r\n"
           << document.size() - 10 << "\r\n"
           << document.substr(10) << "\r\n0\r\n\r\n";
    EXPECT_THAT(answer_to(head("PUT /api/v1/gateway/qos/0",
                               "Content-Type: application/json\r\nTransfer-Encoding: chunked\r\n") +
                          chunks.str()),
                StartsWith("HTTP/1.1 200 OK\r\n"));
}

TEST_F(ServerTest, SendsNoBodyToHead)
{
    const std::string answer = answer_to(head("HEAD /api/v1/gateway/qos/0"));
    EXPECT_THAT(answer, AllOf(StartsWith("HTTP/1.1 200 OK\r\n"), HasSubstr("Content-Length: 137\r\n")));
    EXPECT_TRUE(answer.ends_with("\r\n\r\n"));
}

TEST_F(ServerTest, NeedsNoLengthWhereThereIsNoBody)
{
    EXPECT_THAT(answer_to(head("POST /api/v1/state:reset")), StartsWith("HTTP/1.1 204 "));
}

TEST_F(ServerTest, SendsNoPartAndNothingCompressed)
{
    const std::string answer =
        answer_to(head("GET /api/v1/gateway/qos/0", "Range: bytes=0-3\r\nAccept-Encoding: gzip, br\r\n"));
    EXPECT_THAT(answer, AllOf(StartsWith("HTTP/1.1 200 OK\r\n"), HasSubstr("global_upload"),
                              Not(HasSubstr("Content-Encoding"))));
}

TEST_F(ServerTest, RefusesWhatIsNoRequest)
{
    for (const char *text : {"nonsense\r\n\r\n", "GET\r\n\r\n", "\x16\x03\x01\r\n\r\n", "GET / HTTP/9.9\r\n\r\n"}) {
        const std::string answer = answer_to(text);
        EXPECT_THAT(answer, StartsWith("HTTP/1.1 400 ")) << text;
        EXPECT_EQ(answer.find("HTTP/1.1", 1), std::string::npos) << answer; // what comes next is no request either
        EXPECT_THAT(answer, HasSubstr("application/problem+json")) << text;
    }
    EXPECT_THAT(answer_to("GET / HTTP/1.1\r\n\r\n"), StartsWith("HTTP/1.1 400 ")); // without a Host
}

TEST_F(ServerTest, RefusesAHeadThatIsTooLong)
{
    EXPECT_THAT(answer_to(head("GET /" + std::string(10000, 'x'))), StartsWith("HTTP/1.1 431 "));
    const std::string answer = answer_to(head("GET /", "X: " + std::string(10000, 'x') + "\r\n"));
    EXPECT_THAT(answer, StartsWith("HTTP/1.1 431 "));
    EXPECT_EQ(answer.find("HTTP/1.1", 1), std::string::npos) << answer;
}

TEST_F(ServerTest, RefusesABodyBeforeItIsSent)
{
    const Client client(server.port());
    client.send(head("PUT /api/v1/gateway/qos/0", "Content-Type: application/json\r\nContent-Length: 99999999\r\n"));
    EXPECT_THAT(client.receive_answer(), AllOf(StartsWith("HTTP/1.1 413 "), HasSubstr("Connection: close\r\n")));
}

TEST_F(ServerTest, RefusesABodyThatTurnsOutTooLong)
{
    std::string text =
        head("PUT /api/v1/gateway/qos/0", "Content-Type: application/json\r\nTransfer-Encoding: chunked\r\n");
    for (int i = 0; i < 17; ++i)
        text += "10000\r\n" + std::string(65536, ' ') + "\r\n";
    EXPECT_THAT(answer_to(text + "0\r\n\r\n"), StartsWith("HTTP/1.1 413 "));
}

TEST_F(ServerTest, RefusesWhatLeavesItOpenWhereARequestEnds)
{
    const std::string json = "Content-Type: application/json\r\n";
    EXPECT_THAT(
        answer_to(head("PUT /api/v1/gateway/qos/0", json + "Content-Length: 3\r\nTransfer-Encoding: chunked\r\n")),
        StartsWith("HTTP/1.1 400 "));
    EXPECT_THAT(answer_to(head("PUT /api/v1/gateway/qos/0", json + "Transfer-Encoding: gzip, chunked\r\n")),
                StartsWith("HTTP/1.1 501 "));
    EXPECT_THAT(answer_to(head("PUT /api/v1/gateway/qos/0", json + "Content-Length: 3\r\nContent-Length: 4\r\n")),
                StartsWith("HTTP/1.1 400 "));
}

TEST_F(ServerTest, DoesNotTakeTheBodyOfARefusedRequestForTheNextOne)
{
    const std::string next = head("DELETE /api/v1/gateway/qos/0");
    const std::string answer =
        answer_to(head("GET /api/v1/ids/qos", "Content-Length: " + std::to_string(next.size()) + "\r\n") + next);
    EXPECT_EQ(answer.find("HTTP/1.1", 1), std::string::npos) << answer;
    EXPECT_TRUE(state.find(*find_resource("qos"), "0"));
}

TEST_F(ServerTest, CutsOffWhoSendsTooSlowly)
{
    const Client head_only(server.port());
    head_only.send("GET / HT");
    const Client body_only(server.port());
    body_only.send(head("PUT /api/v1/gateway/qos/0", json_of_length) + "{");
    const auto begin = std::chrono::steady_clock::now();
    EXPECT_THAT(head_only.receive(), StartsWith("HTTP/1.1 408 "));
    EXPECT_THAT(body_only.receive(), StartsWith("HTTP/1.1 408 "));
    EXPECT_LT(std::chrono::steady_clock::now() - begin, 5s);
}

TEST_F(ServerTest, EndsAConnectionOnWhichNothingComes)
{
    const Client client(server.port());
    EXPECT_THAT(client.receive(), IsEmpty());
}

TEST_F(ServerTest, LetsFurtherConnectionsWait)
{
    std::vector<std::unique_ptr<Client>> slow;
    slow.reserve(20);
    for (int i = 0; i < 20; ++i)
        slow.push_back(std::make_unique<Client>(server.port()));
    EXPECT_THAT(answer_to(head("GET /api/v1/ids/qos")), HasSubstr("[\"0\"]"));
}

TEST_F(ServerTest, LogsALineForEachRequestWithoutWhatIsSecret)
{
    (void)answer_to(head("PUT /api/v1/gateway/qos/0?dryRun=true", json_of_length) + body);
    (void)answer_to(head("GET /%1b[31m\x1b[31m?passphrase=secret"));
    EXPECT_THAT(log_at_the_end(), MatchesRegex("PUT /api/v1/gateway/qos/0 200 [0-9]+ ms\n"
                                               "GET /%1b\\[31m\\\\x1b\\[31m 404 [0-9]+ ms\n"));
}

TEST_F(ServerTest, FinishesWhatIsUnderWayWhenItStops)
{
    const Client idle(server.port());
    idle.send(head("GET /api/v1/ids/qos"));
    (void)idle.receive_answer();
    const auto begin = std::chrono::steady_clock::now();
    server.stop();
    thread.join();
    EXPECT_LT(std::chrono::steady_clock::now() - begin, 5s);
    EXPECT_THAT(idle.receive(), IsEmpty());
}

TEST(Server, SaysThatAPortIsInUse)
{
    const Server first(0);
    try {
        const Server second(first.port());
        ADD_FAILURE() << "both listen";
    } catch (const ServerError &error) {
        EXPECT_THAT(error.what(), HasSubstr("Address already in use"));
        EXPECT_THAT(error.what(), HasSubstr(std::to_string(first.port())));
    }
}

TEST(Server, StopsBeforeItRuns)
{
    Server server(0);
    server.stop();
    State state{Gateway()};
    Api api(state, {server.port(), std::nullopt, "", {}});
    std::ostringstream log;
    server.run(api, log);
    EXPECT_EQ(log.str(), "");
}

} // namespace

} // namespace kelmora_host::server_test
