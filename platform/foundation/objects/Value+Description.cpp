#include <algorithm>

#include "zarnic/platform/foundation/Value.h"

namespace zn {
namespace {

/// `<` groups of four bytes `>`.
std::string dataText(std::span<const std::byte> bytes) {
    constexpr std::string_view digits = "0123456789abcdef";
    std::string text = "<";
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        if (i != 0 && i % 4 == 0)
            text += ' ';
        const auto byte = std::to_integer<unsigned>(bytes[i]);
        text += digits[byte >> 4];
        text += digits[byte & 15];
    }
    return text + '>';
}

std::string plainText(const Value& value) {
    switch (value.kind()) {
        case Value::Kind::Absent:
            return "(null)";
        case Value::Kind::Null:
            return "<null>";
        case Value::Kind::Data:
            return dataText(value.bytes());
        case Value::Kind::Object:
            return value.object()->description();
        default:
            return value.stringValue();
    }
}

/// Writes nested containers without recursion: nests may be deeper than the stack.
class Describer {
public:
    std::string text(const Value& value) {
        write(value);
        while (!open_.empty())
            step();
        return std::move(text_);
    }

private:
    struct Level {
        const Value* container;
        std::size_t next = 0;
    };

    void write(const Value& value) {
        if (value.isArray())
            text_ += std::to_string(value.array().count()) + " (\n", open_.push_back({&value});
        else if (value.isDictionary())
            text_ += "{\t\n ", open_.push_back({&value});
        else
            text_ += plainText(value);
    }

    /// Ends the item written last, then begins the next one or closes the container.
    void step() {
        auto& level = open_.back();
        const bool isArray = level.container->isArray();
        if (level.next != 0)
            text_ += isArray ? ", \n" : ",\n";
        const std::size_t index = level.next++;
        if (index == count(*level.container)) {
            text_ += isArray ? ')' : '}';
            open_.pop_back();
        } else if (isArray) {
            text_ += '\t';
            write(level.container->array()[index]);
        } else {
            const auto [key, value] = level.container->dictionary().entry(index);
            text_.append("\t \"").append(key).append("\" = ");
            write(value);
        }
    }

    static std::size_t count(const Value& container) {
        return container.isArray() ? container.array().count() : container.dictionary().count();
    }

    std::string text_;
    std::vector<Level> open_;
};

}  // namespace

std::string Value::description() const {
    return Describer().text(*this);
}

}  // namespace zn
