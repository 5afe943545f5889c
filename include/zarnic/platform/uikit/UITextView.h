#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "zarnic/platform/drawing/TextLayout.h"
#include "zarnic/platform/uikit/UIScrollView.h"
#include "zarnic/platform/uikit/UITextInput.h"

namespace zn {

class TextTouch;
class UILongPressGestureRecognizer;
class UITextView;

/// Posted with the view as the object: each once, after the delegate was told.
inline constexpr const char* UITextViewTextDidBeginEditingNotification =
    "UITextViewTextDidBeginEditingNotification";
inline constexpr const char* UITextViewTextDidEndEditingNotification =
    "UITextViewTextDidEndEditingNotification";
inline constexpr const char* UITextViewTextDidChangeNotification =
    "UITextViewTextDidChangeNotification";

/// Held weakly by the view. Ranges are bytes of the text's UTF-8.
class ZN_EXPORT UITextViewDelegate : public UIScrollViewDelegate {
public:
    virtual bool textViewShouldBeginEditing(const Ref<UITextView>&) { return true; }
    virtual void textViewDidBeginEditing(const Ref<UITextView>&) {}
    virtual bool textViewShouldEndEditing(const Ref<UITextView>&) { return true; }
    virtual void textViewDidEndEditing(const Ref<UITextView>&) {}
    /// Before each edit of the user; false leaves the text as it is.
    virtual bool textViewShouldChangeTextInRange(const Ref<UITextView>&, NSRange,
                                                 std::string_view) {
        return true;
    }
    virtual void textViewDidChange(const Ref<UITextView>&) {}
    virtual void textViewDidChangeSelection(const Ref<UITextView>&) {}
};

/// Text of many lines that the user edits, or only reads. Wraps to its width, scrolls, and keeps
/// the caret in sight; texts of hundreds of kilobytes stay quick, unless they are one paragraph. A
/// finger scrolls a text that is higher than the view and selects in one that is not; held down, it
/// selects in both. Main thread only.
class ZN_EXPORT UITextView : public UIScrollView, public UITextInput {
    ZN_OBJECT(UITextView, UIScrollView)
public:
    UITextView();
    explicit UITextView(const Rect& frame);
    ~UITextView() override;
    void init() override;

    /// The scroll view's delegate, when it is one of a text view.
    Ref<UITextViewDelegate> textViewDelegate() const;

    const std::string& text() const;
    /// Tells nobody, posts no notice, and cannot be undone; the caret goes to the end.
    virtual void setText(std::string_view text);
    /// Null, the default, looks like the system font of 12 points.
    const Ref<UIFont>& font() const { return font_; }
    virtual void setFont(const Ref<UIFont>& font);
    /// Null, the default, looks black.
    const Ref<UIColor>& textColor() const { return textColor_; }
    virtual void setTextColor(const Ref<UIColor>& color);
    NSTextAlignment textAlignment() const { return alignment_; }
    virtual void setTextAlignment(NSTextAlignment alignment);
    /// Default yes. A text that cannot be edited is never the first responder.
    bool editable() const { return editable_; }
    virtual void setEditable(bool editable);
    /// Room around the text; default 8 points above and below.
    const EdgeInsets& textContainerInset() const { return textInsets_; }
    void setTextContainerInset(const EdgeInsets& insets);
    /// Room at both ends of each line, inside the inset; default 5 points.
    double lineFragmentPadding() const { return padding_; }
    void setLineFragmentPadding(double padding);
    bool isEditing() const;
    void scrollRangeToVisible(NSRange range);

    /// The text in lines of the width, whole ones for no width, and the room around it.
    Size sizeThatFits(Size size) const override;
    void setBounds(const Rect& bounds) override;
    void setFrame(const Rect& frame) override;
    void layoutSubviews() override;
    void didMoveToWindow() override;
    void tintColorDidChange() override;

    bool canBecomeFirstResponder() const override;
    bool becomeFirstResponder() override;
    bool resignFirstResponder() override;
    void lostFirstResponder() override;

    void touchesBegan(const TouchSet& touches, const Ref<UIEvent>& event) override;
    void touchesMoved(const TouchSet& touches, const Ref<UIEvent>& event) override;
    void touchesEnded(const TouchSet& touches, const Ref<UIEvent>& event) override;
    void touchesCancelled(const TouchSet& touches, const Ref<UIEvent>& event) override;

protected:
    UIView& inputOwner() override { return *this; }
    bool acceptsEdits() const override { return editable_; }
    bool shouldChange(NSRange range, std::string_view text) override;
    void contentChanged() override;
    void textEdited() override;
    void selectionMoved() override;

private:
    double textWidth() const;
    void restyle();
    /// Lines of the present width.
    void rewrap();
    void placeText();
    bool scrolls() const;
    void beginEditing();
    void finishEditing();
    void post(const char* name);
    Point placeOf(const Ref<UITouch>& touch) const;
    void pressed(const Ref<UILongPressGestureRecognizer>& recognizer);

    Ref<UIFont> font_;
    Ref<UIColor> textColor_;
    std::unique_ptr<TextTouch> touch_;
    EdgeInsets textInsets_{8, 0, 8, 0};
    double padding_ = 5;
    Point touchStart_;
    NSTextAlignment alignment_ = NSTextAlignment::Natural;
    bool editable_ = true;
    bool dragging_ = false;
};

}  // namespace zn
