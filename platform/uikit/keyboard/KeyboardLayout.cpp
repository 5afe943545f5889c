#include "platform/uikit/keyboard/KeyboardLayout.h"

#include <array>
#include <string_view>

#include "platform/foundation/text/TextBreaks.h"

namespace zn {
namespace {

using Kind = KeyboardKey::Kind;

constexpr double rowHeight = 54;
constexpr double keyHeight = 42;
constexpr double topGap = 8;
constexpr double gap = 6;
constexpr double side = 3;
constexpr int columns = 10;
constexpr int rowCount = 4;

constexpr std::array<std::array<std::string_view, 3>, 3> rows{{
    {"qwertyuiop", "asdfghjkl", "zxcvbnm"},
    {"1234567890", "-/:;()$&@\"", ".,?!'"},
    {"[]{}#%^*+=", "_\\|~<>€£¥•", ".,?!'"},
}};

std::vector<std::string> lettersOf(std::string_view row) {
    std::vector<std::string> letters;
    for (std::size_t at = 0; at < row.size();) {
        const std::size_t next = nextGrapheme(row, at);
        letters.emplace_back(row.substr(at, next - at));
        at = next;
    }
    return letters;
}

double rowTop(int row) {
    return topGap + row * rowHeight;
}

/// Lays keys from left to right.
class RowMaker {
public:
    RowMaker(std::vector<KeyboardKey>& keys, int row, double left)
        : keys_(keys), y_(rowTop(row)), x_(left) {}

    void add(Kind kind, std::string label, double width) {
        keys_.push_back({kind, std::move(label), {x_, y_, width, keyHeight}});
        x_ += width + gap;
    }

private:
    std::vector<KeyboardKey>& keys_;
    double y_;
    double x_;
};

std::string returnLabel(UIReturnKeyType type) {
    switch (type) {
        case UIReturnKeyType::Go:
            return "Go";
        case UIReturnKeyType::Join:
            return "Join";
        case UIReturnKeyType::Next:
            return "Next";
        case UIReturnKeyType::Search:
            return "Search";
        case UIReturnKeyType::Send:
            return "Send";
        case UIReturnKeyType::Done:
            return "Done";
        default:
            return "return";
    }
}

void addTextRow(std::vector<KeyboardKey>& keys, int row, std::string_view text, double width,
                double keyWidth) {
    const auto letters = lettersOf(text);
    const double used = static_cast<double>(letters.size()) * (keyWidth + gap) - gap;
    RowMaker maker(keys, row, (width - used) / 2);
    for (const std::string& letter : letters)
        maker.add(Kind::Text, letter, keyWidth);
}

/// Letters or signs between two wide keys.
void addThirdRow(std::vector<KeyboardKey>& keys, KeyboardPage page, std::string_view text,
                 double width, double keyWidth) {
    const auto letters = lettersOf(text);
    const double wide = 1.25 * keyWidth;
    const double room = width - 2 * (side + gap / 2 + wide + 2 * gap);
    const double letterWidth = (room + gap) / static_cast<double>(letters.size()) - gap;
    RowMaker first(keys, 2, side + gap / 2);
    if (page == KeyboardPage::Letters)
        first.add(Kind::Shift, {}, wide);
    else if (page == KeyboardPage::Symbols)
        first.add(Kind::MoreSymbols, "#+=", wide);
    else
        first.add(Kind::Symbols, "123", wide);
    RowMaker middle(keys, 2, side + gap / 2 + wide + 2 * gap);
    for (const std::string& letter : letters)
        middle.add(Kind::Text, letter, letterWidth);
    RowMaker last(keys, 2, width - side - gap / 2 - wide);
    last.add(Kind::Delete, {}, wide);
}

void addLastRow(std::vector<KeyboardKey>& keys, KeyboardPage page, double width, double keyWidth,
                UIKeyboardType type, UIReturnKeyType returnKey) {
    const double left = side + gap / 2;
    const double corner = 2.5 * keyWidth;
    const bool letters = page == KeyboardPage::Letters;
    RowMaker maker(keys, rowCount - 1, left);
    maker.add(letters ? Kind::Symbols : Kind::Letters, letters ? "123" : "ABC", corner);
    const bool address = type == UIKeyboardType::EmailAddress;
    const double signs = address ? 2 * (keyWidth + gap) : 0;
    maker.add(Kind::Space, "space", width - 2 * (left + corner + gap) - signs);
    if (address) {
        maker.add(Kind::Text, "@", keyWidth);
        maker.add(Kind::Text, ".", keyWidth);
    }
    maker.add(Kind::Return, returnLabel(returnKey), corner);
}

std::vector<KeyboardKey> digitKeys(double width, bool decimal) {
    std::vector<KeyboardKey> keys;
    const double keyWidth = (width - 2 * (side + gap / 2) - 2 * gap) / 3;
    const double left = side + gap / 2;
    for (int row = 0; row < 3; ++row) {
        RowMaker maker(keys, row, left);
        for (int column = 1; column <= 3; ++column)
            maker.add(Kind::Text, std::to_string(row * 3 + column), keyWidth);
    }
    RowMaker maker(keys, 3, left + (decimal ? 0 : keyWidth + gap));
    if (decimal)
        maker.add(Kind::Text, ".", keyWidth);
    maker.add(Kind::Text, "0", keyWidth);
    maker.add(Kind::Delete, {}, keyWidth);
    return keys;
}

}  // namespace

double keyboardHeight() {
    return topGap + rowCount * rowHeight - gap;
}

std::vector<KeyboardKey> keyboardKeys(KeyboardPage page, double width, UIKeyboardType type,
                                      UIReturnKeyType returnKey) {
    if (page == KeyboardPage::Digits)
        return digitKeys(width, type == UIKeyboardType::DecimalPad);
    const double keyWidth = (width - 2 * side) / columns - gap;
    const auto& texts = rows[static_cast<std::size_t>(page)];
    std::vector<KeyboardKey> keys;
    addTextRow(keys, 0, texts[0], width, keyWidth);
    addTextRow(keys, 1, texts[1], width, keyWidth);
    addThirdRow(keys, page, texts[2], width, keyWidth);
    addLastRow(keys, page, width, keyWidth, type, returnKey);
    return keys;
}

}  // namespace zn
