#include <algorithm>
#include <cmath>
#include <string_view>

#include "platform/foundation/plist/PropertyListGraph.h"
#include "platform/foundation/plist/PropertyListWriters.h"
#include "platform/foundation/text/NumberText.h"
#include "zarnic/platform/foundation/NSDate.h"

namespace zn {
namespace {

constexpr std::string_view prologue =
    "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
    "<!DOCTYPE plist PUBLIC \"-//Apple//DTD PLIST 1.0//EN\" "
    "\"http://www.apple.com/DTDs/PropertyList-1.0.dtd\">\n"
    "<plist version=\"1.0\">\n";
constexpr std::uint64_t maximumUnfoldedSize = 0xFFFFFFFF;
constexpr std::size_t lineLength = 76;
constexpr std::size_t tabWidth = 8;
/// Data is indented no further, so that its lines keep some room.
constexpr std::size_t deepestDataIndent = 8;

class XmlWriter {
public:
    std::optional<std::string> text(const Value& value) {
        text_ = prologue;
        if (!write(value, 0))
            return std::nullopt;
        return std::move(text_) + "</plist>\n";
    }

private:
    /// Each writes whole lines; false for what the form cannot say.
    bool write(const Value& value, std::size_t indent) {
        if (value.isArray())
            return writeArray(value.array(), indent);
        if (value.isDictionary())
            return writeDictionary(value.dictionary(), indent);
        if (value.isString())
            return writeText("string", value.string(), indent);
        if (value.isData())
            writeData(value.bytes(), indent);
        else if (value.isNumber())
            writeNumber(value, indent);
        else
            return writeDate(*value.object<NSDate>(), indent);
        return true;
    }

    bool writeArray(const Array& array, std::size_t indent) {
        if (array.empty())
            return writeLine("<array/>", indent);
        writeLine("<array>", indent);
        return std::ranges::all_of(array,
                                   [&](const Value& item) { return write(item, indent + 1); }) &&
               writeLine("</array>", indent);
    }

    bool writeDictionary(const Dictionary& dictionary, std::size_t indent) {
        if (dictionary.empty())
            return writeLine("<dict/>", indent);
        std::vector<std::pair<std::string_view, const Value*>> sorted;
        sorted.reserve(dictionary.count());
        for (const auto [key, item] : dictionary)
            sorted.emplace_back(key, &item);
        std::ranges::sort(sorted);
        writeLine("<dict>", indent);
        for (const auto& [key, item] : sorted) {
            if (!writeText("key", key, indent + 1) || !write(*item, indent + 1))
                return false;
        }
        return writeLine("</dict>", indent);
    }

    bool writeText(std::string_view element, std::string_view text, std::size_t indent) {
        if (text.find('\0') != text.npos)
            return false;
        open(element, indent);
        for (const char character : text) {
            if (character == '<')
                text_ += "&lt;";
            else if (character == '>')
                text_ += "&gt;";
            else if (character == '&')
                text_ += "&amp;";
            else
                text_ += character;
        }
        close(element);
        return true;
    }

    void writeNumber(const Value& number, std::size_t indent) {
        switch (number.kind()) {
            case Value::Kind::Boolean:
                writeLine(number.boolValue() ? "<true/>" : "<false/>", indent);
                break;
            case Value::Kind::Float:
            case Value::Kind::Double:
                writeElement("real", realName(number.doubleValue()), indent);
                break;
            default:
                writeElement("integer", number.stringValue(), indent);
        }
    }

    static std::string realName(double number) {
        if (std::isinf(number))
            return number > 0 ? "+infinity" : "-infinity";
        return realText(number, 17);
    }

    bool writeDate(const NSDate& date, std::size_t indent) {
        constexpr double yearZero = -62167219200;
        constexpr double yearTenThousand = 253402300800;
        const double seconds = date.timeIntervalSince1970();
        if (!(seconds >= yearZero && seconds < yearTenThousand))
            return false;
        // From `2017-01-01 00:00:00 +0000`.
        const std::string text = date.description();
        writeElement("date", text.substr(0, 10) + 'T' + text.substr(11, 8) + 'Z', indent);
        return true;
    }

    void writeData(std::span<const std::byte> data, std::size_t indent) {
        const std::size_t dataIndent = std::min(indent, deepestDataIndent);
        const std::size_t perLine = (lineLength - tabWidth * dataIndent) / 4 * 3;
        writeLine("<data>", indent);
        for (; !data.empty(); data = data.subspan(std::min(perLine, data.size()))) {
            text_.append(dataIndent, '\t');
            writeBase64(data.first(std::min(perLine, data.size())));
            text_ += '\n';
        }
        writeLine("</data>", indent);
    }

    /// RFC 4648, section 4.
    void writeBase64(std::span<const std::byte> data) {
        constexpr std::string_view digits =
            "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
        for (; !data.empty(); data = data.subspan(std::min<std::size_t>(3, data.size()))) {
            unsigned bits = 0;
            for (std::size_t i = 0; i < 3; ++i)
                bits = bits << 8 | (i < data.size() ? std::to_integer<unsigned>(data[i]) : 0);
            for (std::size_t i = 0; i < 4; ++i)
                text_ += i <= data.size() ? digits[bits >> (18 - 6 * i) & 63] : '=';
        }
    }

    void writeElement(std::string_view element, std::string_view content, std::size_t indent) {
        open(element, indent);
        text_ += content;
        close(element);
    }

    bool writeLine(std::string_view tag, std::size_t indent) {
        text_.append(indent, '\t');
        text_.append(tag) += '\n';
        return true;
    }

    void open(std::string_view element, std::size_t indent) {
        text_.append(indent, '\t');
        (text_ += '<').append(element) += '>';
    }

    void close(std::string_view element) { (text_ += "</").append(element) += ">\n"; }

    std::string text_;
};

}  // namespace

std::optional<std::string> xmlPropertyList(const Value& value) {
    // Recursion is safe in what made a graph: it is neither deep nor endless.
    const auto graph = PropertyListGraph::of(value);
    if (!graph || graph->unfoldedSize() > maximumUnfoldedSize)
        return std::nullopt;
    return XmlWriter().text(value);
}

}  // namespace zn
