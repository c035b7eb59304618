#ifndef KELMORA_HOST_SERVE_API_H
#define KELMORA_HOST_SERVE_API_H

#include "host/serve/assets.h"
#include "host/serve/http.h"
#include "host/serve/routes.h"
#include "host/serve/state.h"

#include <cstddef>
#include <filesystem>
#include <optional>
#include <span>
#include <string>
#include <variant>

namespace kelmora_host {

/// What the answers depend on besides the state.
struct ApiOptions {
    int port = 0;                           ///< that requests come to: the Host of requests must have it
    std::optional<std::string> cors_origin; ///< whose pages may ask as well
    std::filesystem::path docs;             ///< the folder of the reference, which may be missing
    std::span<const Asset> page;            ///< its files
};

/// The gateway's HTTP interface without connections: a request in, an answer out. Any number of threads may ask at
/// once. The translators are those of Registry::instance().
class Api {
public:
    /// The longest body that is taken.
    static constexpr std::size_t largest_body = 1024UL * 1024;

    /// The state must outlive it.
    Api(State &state, ApiOptions options);

    /// What is answered when the request's first line and headers alone are enough to refuse it.
    [[nodiscard]] std::optional<Answer> refusal(const Request &head);

    /// The answer to a request, for HEAD with the body that GET would have.
    [[nodiscard]] Answer answer(const Request &request);

    /// Adds the headers that every answer has: for answers that were made elsewhere.
    [[nodiscard]] Answer finished(Answer answer, const Request &request) const;

private:
    struct Call;

    std::optional<Answer> find_fault(const Request &head, Call &call) const;
    [[nodiscard]] std::optional<Answer> fault_of_sender(const Request &head) const;
    static std::optional<Answer> fault_of_body(const Request &head, const Call &call);
    std::optional<Answer> find_route(const Request &head, Call &call) const;

    Answer perform(const Call &call);
    Answer records(const Call &call) const;
    Answer record(const Call &call) const;
    Answer put(const Call &call);
    Answer post(const Call &call);
    Answer remove(const Call &call);
    Answer write(const Call &call, State::Writer &writer, Node node, bool is_new) const;
    Answer check_document(const Call &call) const;
    Answer trace_document(const Call &call) const;
    Answer schema(const Call &call);
    Answer docs(const Call &call) const;
    Answer asset(const Call &call) const;

    /// The node that a document to check would go into, or why there is none.
    [[nodiscard]] std::variant<Node, Answer> target_of(const Call &call) const;
    [[nodiscard]] std::string tag(std::uint64_t version) const;

    State &state_;
    ApiOptions options_;
    std::string run_; ///< sets this process's tags apart from those of others
};

} // namespace kelmora_host

#endif
