#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "zarnic/platform/uikit/UIKeyInput.h"
#include "zarnic/platform/uikit/UIView.h"

namespace zn {

/// Editing as text fields and text views have it: caret, selection by fingers and keys, deletion by
/// grapheme, undo, pasteboard, composition. Positions are bytes of the text's UTF-8; those inside a
/// grapheme mean its beginning, those beyond the end the end. Main thread only.
///
/// Keys: arrows, Home, End and the page keys move the caret, with shift the selection's end, with
/// Control, Command or Alternate by words or to the ends; Backspace and Delete take a grapheme, or
/// with those a word; Control or Command with A, C, X, V, Z, shift-Z and Y.
class ZN_EXPORT UITextInput : public UIKeyInput {
public:
    UITextInput(const UITextInput&) = delete;
    UITextInput& operator=(const UITextInput&) = delete;
    ~UITextInput() override;

    bool hasText() const override;
    void insertText(std::string_view text) override;
    void deleteBackward() override;
    bool pressKey(const UIKey& key) override;
    void setMarkedText(std::string_view text, NSRange selected) override;
    void unmarkText() override;
    Rect caretRectOnScreen() const override;

    NSRange selectedRange() const;
    /// Ends a composition.
    void setSelectedRange(NSRange range);
    /// What an input method is composing; absent without.
    std::optional<NSRange> markedTextRange() const;
    std::string textInRange(NSRange range) const;
    /// As the user would: the delegate is asked and told, and it can be undone.
    void replaceRange(NSRange range, std::string_view text);

    // What menus and shortcuts do. Text that is typed unseen is neither cut nor copied.
    /// The word at the caret.
    void select();
    void selectAll();
    void cut();
    void copy();
    void paste();
    bool canUndo() const;
    bool canRedo() const;
    void undo();
    void redo();

    // Places, in the view's coordinates.
    std::size_t closestPositionToPoint(Point point) const;
    Rect caretRectForPosition(std::size_t position) const;
    std::vector<Rect> selectionRectsForRange(NSRange range) const;

    UIKeyboardType keyboardType() const override;
    void setKeyboardType(UIKeyboardType type);
    UIReturnKeyType returnKeyType() const override;
    void setReturnKeyType(UIReturnKeyType type);
    /// Shows a dot for each grapheme; default no.
    bool secureTextEntry() const override;
    void setSecureTextEntry(bool secure);
    Ref<UIView> inputView() const override;
    void setInputView(const Ref<UIView>& view);
    Ref<UIView> inputAccessoryView() const override;
    void setInputAccessoryView(const Ref<UIView>& view);

protected:
    enum class Lines { One, Many };
    explicit UITextInput(Lines lines);

    struct State;
    State& input() { return *state_; }
    const State& input() const { return *state_; }

    /// All of it is new; tells nobody.
    void replaceAllText(std::string_view text);
    /// Whether an edit is undone together with its neighbours of the same kind.
    enum class Step { Joined, Alone };
    /// Every edit of the user comes here.
    void edit(NSRange range, std::string_view text, Step step = Step::Joined);

    // What the view must do.
    virtual UIView& inputOwner() = 0;
    virtual bool acceptsEdits() const { return true; }
    /// Asked before each edit of the user.
    virtual bool shouldChange(NSRange, std::string_view) { return true; }
    /// The text looks different, whoever changed it.
    virtual void contentChanged() {}
    /// The user has edited: time to tell the delegate and the observers.
    virtual void textEdited() {}
    /// The caret or the selection has moved; shows it.
    virtual void selectionMoved() {}
    virtual void returnPressed() { edit(selectedRange(), "\n"); }

private:
    friend class TextTouch;
    void refresh();
    void editedByUser();
    void deleteOne(bool forward, bool word);
    void deleteForwardOrCut(const UIKey& key);
    bool pressShortcut(const UIKey& key);
    bool pressMovingKey(const UIKey& key);
    void moveSideways(const UIKey& key);
    /// Down, or up for less than none.
    void moveLines(const UIKey& key, double lines);
    void moveTo(const UIKey& key, std::size_t position, bool atLineEnd);

    std::unique_ptr<State> state_;
};

}  // namespace zn
