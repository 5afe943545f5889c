#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "zarnic/platform/drawing/TextLayout.h"
#include "zarnic/platform/uikit/UIControl.h"
#include "zarnic/platform/uikit/UITextInput.h"

namespace zn {

class TextTouch;
class UIButton;
class UILabel;
class UITextField;

/// The platform's numbers.
enum class UITextBorderStyle : std::int64_t { None = 0, Line = 1, Bezel = 2, RoundedRect = 3 };
enum class UITextFieldViewMode : std::int64_t {
    Never = 0,
    WhileEditing = 1,
    UnlessEditing = 2,
    Always = 3
};

/// Posted with the field as the object: each once, after the delegate was told.
inline constexpr const char* UITextFieldTextDidBeginEditingNotification =
    "UITextFieldTextDidBeginEditingNotification";
inline constexpr const char* UITextFieldTextDidEndEditingNotification =
    "UITextFieldTextDidEndEditingNotification";
inline constexpr const char* UITextFieldTextDidChangeNotification =
    "UITextFieldTextDidChangeNotification";

/// Held weakly by the field. Ranges are bytes of the text's UTF-8.
class ZN_EXPORT UITextFieldDelegate {
public:
    virtual ~UITextFieldDelegate() = default;
    virtual bool textFieldShouldBeginEditing(const Ref<UITextField>&) { return true; }
    virtual void textFieldDidBeginEditing(const Ref<UITextField>&) {}
    virtual bool textFieldShouldEndEditing(const Ref<UITextField>&) { return true; }
    virtual void textFieldDidEndEditing(const Ref<UITextField>&) {}
    /// Before each edit of the user; false leaves the text as it is.
    virtual bool textFieldShouldChangeCharactersInRange(const Ref<UITextField>&, NSRange,
                                                        std::string_view) {
        return true;
    }
    virtual void textFieldDidChangeSelection(const Ref<UITextField>&) {}
    virtual bool textFieldShouldClear(const Ref<UITextField>&) { return true; }
    /// The return key; true sends `EditingDidEndOnExit`, and ends editing if that has a target.
    virtual bool textFieldShouldReturn(const Ref<UITextField>&) { return true; }
};

/// A line of text that the user edits: black, system font of 17 points, no border, unless set
/// otherwise. One that is too long ends in an ellipsis until it is edited. A touch makes it the
/// first responder and its window key. Main thread only.
class ZN_EXPORT UITextField : public UIControl, public UITextInput {
    ZN_OBJECT(UITextField, UIControl)
public:
    UITextField();
    explicit UITextField(const Rect& frame);
    ~UITextField() override;
    void init() override;

    Ref<UITextFieldDelegate> delegate() const { return delegate_.lock(); }
    void setDelegate(const Ref<UITextFieldDelegate>& delegate) { delegate_ = delegate; }

    const std::string& text() const;
    /// Tells nobody and cannot be undone; the caret goes to the end. Line ends show as blanks.
    virtual void setText(std::string_view text);
    const Ref<UIFont>& font() const { return font_; }
    /// Null for the default. The placeholder follows unless it has a font of its own.
    virtual void setFont(const Ref<UIFont>& font);
    const Ref<UIColor>& textColor() const { return textColor_; }
    /// Null for black.
    virtual void setTextColor(const Ref<UIColor>& color);
    NSTextAlignment textAlignment() const { return alignment_; }
    virtual void setTextAlignment(NSTextAlignment alignment);
    std::string placeholder() const;
    /// Shown in grey while there is no text.
    virtual void setPlaceholder(std::string_view placeholder);
    /// The label that shows the placeholder, made when it is first asked for.
    const Ref<UILabel>& placeholderLabel();

    UITextBorderStyle borderStyle() const { return borderStyle_; }
    /// Draws with the layer's border and corners; with a rounded one the background is white unless
    /// set.
    virtual void setBorderStyle(UITextBorderStyle style);
    /// Default never.
    UITextFieldViewMode clearButtonMode() const { return clearMode_; }
    void setClearButtonMode(UITextFieldViewMode mode);
    bool clearsOnBeginEditing() const { return clearsOnBegin_; }
    void setClearsOnBeginEditing(bool clears) { clearsOnBegin_ = clears; }
    /// Views beside the text, as large as they are; shown never unless the mode is set.
    const Ref<UIView>& leftView() const { return leftView_; }
    void setLeftView(const Ref<UIView>& view);
    const Ref<UIView>& rightView() const { return rightView_; }
    void setRightView(const Ref<UIView>& view);
    UITextFieldViewMode leftViewMode() const { return leftMode_; }
    void setLeftViewMode(UITextFieldViewMode mode);
    UITextFieldViewMode rightViewMode() const { return rightMode_; }
    void setRightViewMode(UITextFieldViewMode mode);
    bool isEditing() const;

    // Where the parts go; overridden to move them.
    virtual Rect textRectForBounds(const Rect& bounds) const;
    virtual Rect editingRectForBounds(const Rect& bounds) const;
    virtual Rect placeholderRectForBounds(const Rect& bounds) const;
    virtual Rect clearButtonRectForBounds(const Rect& bounds) const;
    virtual Rect leftViewRectForBounds(const Rect& bounds) const;
    virtual Rect rightViewRectForBounds(const Rect& bounds) const;

    /// Room for the text, or the placeholder, and the border.
    Size sizeThatFits(Size size) const override;
    void layoutSubviews() override;
    void setEnabled(bool enabled) override;
    void didMoveToWindow() override;
    void tintColorDidChange() override;

    bool canBecomeFirstResponder() const override;
    bool becomeFirstResponder() override;
    bool resignFirstResponder() override;
    void lostFirstResponder() override;

    bool beginTrackingWithTouch(const Ref<UITouch>& touch, const Ref<UIEvent>& event) override;
    bool continueTrackingWithTouch(const Ref<UITouch>& touch, const Ref<UIEvent>& event) override;
    void endTrackingWithTouch(const Ref<UITouch>& touch, const Ref<UIEvent>& event) override;
    void cancelTrackingWithEvent(const Ref<UIEvent>& event) override;

protected:
    UIView& inputOwner() override { return *this; }
    bool acceptsEdits() const override { return enabled(); }
    bool shouldChange(NSRange range, std::string_view text) override;
    void contentChanged() override;
    void textEdited() override;
    void selectionMoved() override;
    void returnPressed() override;

private:
    bool shows(UITextFieldViewMode mode) const;
    bool showsClearButton() const;
    Rect contentRect(const Rect& bounds) const;
    void applyBorder();
    void restyle();
    void replaceSideView(Ref<UIView>& place, const Ref<UIView>& view);
    void placeSideView(const Ref<UIView>& view, UITextFieldViewMode mode, const Rect& frame);
    void placeClearButton();
    void placePlaceholder();
    /// While it is not edited, a text that is too long ends in an ellipsis.
    void truncate(double room);
    /// Aligns a text that fits, and scrolls a longer one to its caret.
    void placeText();
    void clearTapped();
    void beginEditing();
    void finishEditing();
    void post(const char* name);
    Point placeOf(const Ref<UITouch>& touch) const;

    WeakRef<UITextFieldDelegate> delegate_;
    Ref<UIFont> font_;
    Ref<UIColor> textColor_;
    Ref<UIView> clip_;
    Ref<UILabel> placeholderLabel_;
    Ref<UIButton> clearButton_;
    Ref<UIView> leftView_;
    Ref<UIView> rightView_;
    std::unique_ptr<TextTouch> touch_;
    Point touchStart_;
    /// How far a long text is scrolled to the left.
    double scrolled_ = 0;
    NSTextAlignment alignment_ = NSTextAlignment::Natural;
    UITextBorderStyle borderStyle_ = UITextBorderStyle::None;
    UITextFieldViewMode clearMode_ = UITextFieldViewMode::Never;
    UITextFieldViewMode leftMode_ = UITextFieldViewMode::Never;
    UITextFieldViewMode rightMode_ = UITextFieldViewMode::Never;
    bool clearsOnBegin_ = false;
    bool dragging_ = false;
};

}  // namespace zn
