#include "host/serve/http.h"

#include "host/names.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <fmt/format.h>

namespace kelmora_host {

namespace {

/// Of ASCII alone, whatever the locale is.
char small(char letter) { return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter; }

int digit(char c)
{
    constexpr std::string_view digits = "0123456789abcdef";
    const std::size_t value = digits.find(small(c));
    return value != std::string_view::npos ? static_cast<int>(value) : -1;
}

bool is_unreserved(char c)
{
    return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9') ||
           std::string_view("-._~").find(c) != std::string_view::npos;
}

std::string_view trimmed(std::string_view text)
{
    constexpr std::string_view blanks = " \t";
    const std::size_t begin = text.find_first_not_of(blanks);
    if (begin == std::string_view::npos)
        return {};
    return text.substr(begin, text.find_last_not_of(blanks) - begin + 1);
}

/// The parts between the separators, at least one.
std::vector<std::string_view> split(std::string_view text, char separator)
{
    std::vector<std::string_view> parts;
    while (true) {
        const std::size_t end = text.find(separator);
        parts.push_back(text.substr(0, end));
        if (end == std::string_view::npos)
            return parts;
        text.remove_prefix(end + 1);
    }
}

/// In queries a plus sign is a blank.
std::optional<std::string> query_decoded(std::string_view text)
{
    std::string spaced(text);
    std::ranges::replace(spaced, '+', ' ');
    return percent_decoded(spaced);
}

bool add_to_query(std::string_view query, RequestTarget &target)
{
    for (const std::string_view pair : split(query, '&')) {
        if (pair.empty())
            continue;
        const std::size_t equals = pair.find('=');
        const std::optional<std::string> name = query_decoded(pair.substr(0, equals));
        const std::optional<std::string> value =
            query_decoded(equals != std::string_view::npos ? pair.substr(equals + 1) : std::string_view());
        if (!name || !value || !target.query.emplace(*name, *value).second)
            return false;
    }
    return true;
}

} // namespace

bool HeaderOrder::operator()(const std::string &one, const std::string &two) const
{
    return std::ranges::lexicographical_compare(one, two, {}, small, small);
}

std::optional<std::string> header(const Request &request, const std::string &name)
{
    const auto found = request.headers.find(name);
    if (found == request.headers.end())
        return std::nullopt;
    return found->second;
}

std::string_view header(const Answer &answer, std::string_view name)
{
    const auto found =
        std::ranges::find(answer.headers, name, [](const auto &pair) { return std::string_view(pair.first); });
    return found != answer.headers.end() ? std::string_view(found->second) : std::string_view();
}

std::optional<RequestTarget> parse_target(std::string_view target)
{
    if (!target.starts_with('/'))
        return std::nullopt;
    RequestTarget parsed;
    const std::size_t question = target.find('?');
    for (const std::string_view segment : split(target.substr(1, question - 1), '/')) {
        std::optional<std::string> decoded = percent_decoded(segment);
        if (!decoded || decoded->find('\0') != std::string::npos)
            return std::nullopt;
        parsed.segments.push_back(std::move(*decoded));
    }
    if (question != std::string_view::npos && !add_to_query(target.substr(question + 1), parsed))
        return std::nullopt;
    return parsed;
}

std::string percent_encoded(std::string_view text)
{
    std::string encoded;
    for (const char c : text) {
        if (is_unreserved(c))
            encoded += c;
        else
            encoded += fmt::format("%{:02X}", static_cast<unsigned char>(c));
    }
    return encoded;
}

std::optional<std::string> percent_decoded(std::string_view text)
{
    std::string decoded;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] != '%') {
            decoded += text[i];
            continue;
        }
        const bool whole = i + 2 < text.size();
        const int high = whole ? digit(text[i + 1]) : -1;
        const int low = whole ? digit(text[i + 2]) : -1;
        if (high < 0 || low < 0)
            return std::nullopt;
        decoded += static_cast<char>(static_cast<unsigned char>(high * 16 + low));
        i += 2;
    }
    return decoded;
}

bool lists_tag(std::string_view list, std::string_view tag, bool strong)
{
    for (std::string_view each : split(list, ',')) {
        each = trimmed(each);
        if (each.starts_with("W/")) {
            if (strong)
                continue;
            each.remove_prefix(2);
        }
        if (each == "*" || each == tag)
            return true;
    }
    return false;
}

std::string media_type(std::string_view content_type)
{
    return in_small_letters(trimmed(content_type.substr(0, content_type.find(';'))));
}

std::string_view content_type_of(std::string_view file)
{
    struct Type {
        std::string_view end;
        std::string_view type;
    };
    static constexpr std::array types{
        Type{".html", "text/html; charset=utf-8"},
        Type{".css", "text/css; charset=utf-8"},
        Type{".js", "text/javascript; charset=utf-8"},
        Type{".mjs", "text/javascript; charset=utf-8"},
        Type{".ts", "text/plain; charset=utf-8"},
        Type{".txt", "text/plain; charset=utf-8"},
        Type{".json", "application/json"},
        Type{".svg", "image/svg+xml"},
        Type{".png", "image/png"},
    };
    const auto found = std::ranges::find_if(types, [&](const Type &type) { return file.ends_with(type.end); });
    return found != types.end() ? found->type : "application/octet-stream";
}

std::string_view reason_of(int status)
{
    switch (status) {
    case 200:
        return "OK";
    case 201:
        return "Created";
    case 204:
        return "No Content";
    case 304:
        return "Not Modified";
    case 400:
        return "Bad Request";
    case 403:
        return "Forbidden";
    case 404:
        return "Not Found";
    case 405:
        return "Method Not Allowed";
    case 408:
        return "Request Timeout";
    case 409:
        return "Conflict";
    case 412:
        return "Precondition Failed";
    case 413:
        return "Content Too Large";
    case 415:
        return "Unsupported Media Type";
    case 422:
        return "Unprocessable Content";
    case 431:
        return "Request Header Fields Too Large";
    case 501:
        return "Not Implemented";
    case 503:
        return "Service Unavailable";
    default:
        return "Internal Server Error";
    }
}

} // namespace kelmora_host
