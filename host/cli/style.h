#ifndef KELMORA_HOST_CLI_STYLE_H
#define KELMORA_HOST_CLI_STYLE_H

#include <cstddef>
#include <fmt/color.h>
#include <string>
#include <string_view>

namespace kelmora_host {

/// Characters in a line of what is wrapped.
constexpr std::size_t line_width = 80;

/// Colours for a terminal, or none.
class Style {
public:
    explicit Style(bool colours) : colours_(colours) {}

    /// Colours where the stream goes to a terminal and NO_COLOR is not set.
    static Style of(int file_descriptor);

    [[nodiscard]] std::string styled(const fmt::text_style &style, std::string_view text) const
    {
        return colours_ ? fmt::format(style, "{}", text) : std::string(text);
    }

    [[nodiscard]] std::string key(std::string_view text) const { return styled(fg(fmt::terminal_color::blue), text); }
    [[nodiscard]] std::string string(std::string_view text) const
    {
        return styled(fg(fmt::terminal_color::green), text);
    }
    [[nodiscard]] std::string number(std::string_view text) const
    {
        return styled(fg(fmt::terminal_color::yellow), text);
    }
    [[nodiscard]] std::string literal(std::string_view text) const
    {
        return styled(fg(fmt::terminal_color::magenta), text);
    }
    [[nodiscard]] std::string error(std::string_view text) const
    {
        return styled(fg(fmt::terminal_color::red) | fmt::emphasis::bold, text);
    }
    [[nodiscard]] std::string warning(std::string_view text) const
    {
        return styled(fg(fmt::terminal_color::magenta) | fmt::emphasis::bold, text);
    }
    [[nodiscard]] std::string note(std::string_view text) const
    {
        return styled(fg(fmt::terminal_color::cyan) | fmt::emphasis::bold, text);
    }
    [[nodiscard]] std::string heading(std::string_view text) const { return styled(fmt::emphasis::bold, text); }
    [[nodiscard]] std::string faint(std::string_view text) const { return styled(fmt::emphasis::faint, text); }

private:
    bool colours_;
};

} // namespace kelmora_host

#endif
