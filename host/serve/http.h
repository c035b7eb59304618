#ifndef KELMORA_HOST_SERVE_HTTP_H
#define KELMORA_HOST_SERVE_HTTP_H

#include <cstddef>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace kelmora_host {

// HTTP requests and answers as values, without connections.

/// Orders names of headers, in which capitals do not count.
struct HeaderOrder {
    bool operator()(const std::string &one, const std::string &two) const;
};

/// The headers of a request; one that is repeated, repeatedly.
using Headers = std::multimap<std::string, std::string, HeaderOrder>;

/// A request as it came.
struct Request {
    std::string method;
    std::string target; ///< as in the request's first line: "/path?query", percent-encoded
    Headers headers;
    std::string body;
};

/// The first header of this name; nothing when there is none.
[[nodiscard]] std::optional<std::string> header(const Request &request, const std::string &name);

/// What is answered.
struct Answer {
    int status = 200;
    std::string content_type; ///< empty without a body
    std::string body;
    std::vector<std::pair<std::string, std::string>> headers;
};

/// The answer's header of this name; empty when there is none.
[[nodiscard]] std::string_view header(const Answer &answer, std::string_view name);

/// A target, taken apart and decoded.
struct RequestTarget {
    std::vector<std::string>
        segments; ///< of "/a/b%2Fc" "a" and "b/c", of "/a/" "a" and an empty one, of "/" that alone
    std::map<std::string, std::string, std::less<>> query;
};

/// Nothing when the target is none: it does not begin with a slash, has a percent sign without two digits, a NUL byte,
/// or a name twice in its query.
[[nodiscard]] std::optional<RequestTarget> parse_target(std::string_view target);

/// "a%2Fb": the text as a segment of a path. All but letters, digits and -._~ are encoded.
[[nodiscard]] std::string percent_encoded(std::string_view text);

/// Nothing when there is a percent sign without two hexadecimal digits.
[[nodiscard]] std::optional<std::string> percent_decoded(std::string_view text);

/// Whether a list of entity tags, as If-Match and If-None-Match have them, has this one or is "*". strong: tags that
/// are marked as weak do not count.
[[nodiscard]] bool lists_tag(std::string_view list, std::string_view tag, bool strong);

/// The type and subtype of a Content-Type, in small letters and without its parameters.
[[nodiscard]] std::string media_type(std::string_view content_type);

/// The Content-Type of a file, by the end of its name.
[[nodiscard]] std::string_view content_type_of(std::string_view file);

/// The words behind a status: "Not Found".
[[nodiscard]] std::string_view reason_of(int status);

} // namespace kelmora_host

#endif
