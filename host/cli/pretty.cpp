#include "host/cli/pretty.h"

#include "host/contract/positions.h"

#include <optional>

namespace kelmora_host {

namespace {

class Printer {
public:
    Printer(const Positions &document, const Style &style) : document_(document), style_(style) {}

    void print(const Value &value, std::size_t depth)
    {
        switch (value.type) {
        case ValueType::object:
            print_container(value, depth, '{', '}');
            break;
        case ValueType::array:
            print_container(value, depth, '[', ']');
            break;
        case ValueType::string:
            text += style_.string(value.raw);
            break;
        case ValueType::integer:
        case ValueType::real:
            text += style_.number(value.raw);
            break;
        default:
            text += style_.literal(value.raw);
            break;
        }
    }

    std::string text;

private:
    void print_container(const Value &value, std::size_t depth, char open, char close)
    {
        text += open;
        bool first = true;
        for (const Value *element : document_.elements(value)) {
            text += first ? "\n" : ",\n";
            first = false;
            text.append((depth + 1) * 2, ' ');
            if (element->key != nullptr)
                text += style_.key(element->key->raw) + ": ";
            print(*element, depth + 1);
        }
        if (!first)
            text.append("\n").append(depth * 2, ' ');
        text += close;
    }

    const Positions &document_;
    const Style &style_;
};

} // namespace

std::string pretty(const std::string &json, const Style &style)
{
    const std::optional<Positions> document = Positions::parse(json);
    if (!document)
        return json;
    Printer printer(*document, style);
    printer.print(document->root(), 0);
    return printer.text;
}

} // namespace kelmora_host
