#pragma once

#include <optional>
#include <string>

#include "platform/uikit/text/TextCanvas.h"
#include "platform/uikit/text/TextEditor.h"
#include "platform/uikit/text/TextFlow.h"
#include "zarnic/platform/uikit/UITextInput.h"

namespace zn {

/// What a text input is made of: the text being edited, its layout, and the picture of it.
struct UITextInput::State {
    State(UITextInput& owner, Lines inputLines);
    ~State() { canvas->stopPainting(); }
    State(const State&) = delete;
    State& operator=(const State&) = delete;

    /// Lays out what the text shows as; all of it again after a change of its look.
    void layOut();
    void setStyle(const TextStyle& newStyle, double newWidth);
    void setColor(const Ref<UIColor>& newColor);
    /// Shows the part of the text that is in `visible`, in the text's coordinates.
    void show(const Rect& visible) { canvas->show(visible, flow.size()); }

    /// What stands for the text on the screen: dots for what is secret, blanks for the line ends of
    /// a single line.
    std::string shownText() const;
    /// A single line takes blanks for line ends.
    std::string fitting(std::string_view text) const;
    bool showsItself() const { return lines == Lines::Many && !secure; }
    std::size_t shownPosition(std::size_t position) const;
    std::size_t realPosition(std::size_t shown) const;
    NSRange shownRange(NSRange range) const;

    /// Where the caret is; in the text's coordinates.
    Rect caret() const { return flow.caretAt({shownPosition(editor.focus()), atLineEnd}); }
    TextPlace focus() const { return {shownPosition(editor.focus()), atLineEnd}; }

    void paint(const Ref<CGContext>& context, const Rect& area) const;
    /// Draws again what shows the selection and the composition, if they are others now.
    void markChanged();

    UITextInput& input;
    Lines lines;
    TextEditor editor;
    TextFlow flow;
    TextStyle style;
    double width = 0;
    CGColor color;
    Ref<TextCanvas> canvas;
    bool secure = false;
    bool editing = false;
    /// The caret stands at the end of a wrapped line, not at the beginning of the next.
    bool atLineEnd = false;
    /// Where the caret would be if each line were long enough: kept while it goes up and down.
    std::optional<double> column;
    UIKeyboardType keyboardType = UIKeyboardType::Default;
    UIReturnKeyType returnKeyType = UIReturnKeyType::Default;
    Ref<UIView> inputView;
    Ref<UIView> accessoryView;

private:
    struct Marks {
        NSRange selected;
        NSRange composed;
        friend bool operator==(const Marks&, const Marks&) = default;
    };
    Marks marks() const;

    /// What was drawn last.
    Marks drawn_;
    void changed(const TextEditor::Change& change);
};

}  // namespace zn
