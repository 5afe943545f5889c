#pragma once

#include <map>
#include <string>

#include "zarnic/platform/drawing/Geometry.h"
#include "zarnic/platform/drawing/UIImage.h"
#include "zarnic/platform/uikit/UIControl.h"

namespace zn {

class UIImageView;
class UILabel;

/// The platform's numbers.
enum class UIButtonType : std::int64_t { Custom = 0, System = 1 };

/// A control with a title and an image, the image on the left, both centred. What it shows is set
/// for each state; a state without a value of its own takes the normal one. Custom buttons have a
/// white title of 18 points and darken their images while pressed; those of the system have a
/// title of 15 points in the tint colour and fade, and are grey when disabled.
class ZN_EXPORT UIButton : public UIControl {
    ZN_OBJECT(UIButton, UIControl)
public:
    UIButton();
    explicit UIButton(const Rect& frame);
    explicit UIButton(UIButtonType type);
    ~UIButton() override;
    void init() override;
    static Ref<UIButton> buttonWithType(UIButtonType type);

    UIButtonType buttonType() const { return type_; }

    /// An empty title and a null colour or image take the state's own value away.
    void setTitle(std::string_view title, unsigned state);
    void setTitleColor(const Ref<UIColor>& color, unsigned state);
    void setImage(const Ref<UIImage>& image, unsigned state);
    void setBackgroundImage(const Ref<UIImage>& image, unsigned state);
    /// The state's own value, else that of the normal state, else what the type of button has.
    std::string titleForState(unsigned state) const;
    Ref<UIColor> titleColorForState(unsigned state) const;
    Ref<UIImage> imageForState(unsigned state) const;
    Ref<UIImage> backgroundImageForState(unsigned state) const;
    std::string currentTitle() const { return titleForState(state()); }
    Ref<UIColor> currentTitleColor() const { return titleColorForState(state()); }
    Ref<UIImage> currentImage() const { return imageForState(state()); }
    Ref<UIImage> currentBackgroundImage() const { return backgroundImageForState(state()); }

    /// Set the font here; text and colour follow the state.
    const Ref<UILabel>& titleLabel() const { return titleLabel_; }
    const Ref<UIImageView>& imageView() const { return imageView_; }

    /// Room around title and image together; default none.
    const EdgeInsets& contentEdgeInsets() const { return contentInsets_; }
    void setContentEdgeInsets(const EdgeInsets& insets);
    /// Moves and narrows the title alone, and the image alone; default none.
    const EdgeInsets& titleEdgeInsets() const { return titleInsets_; }
    void setTitleEdgeInsets(const EdgeInsets& insets);
    const EdgeInsets& imageEdgeInsets() const { return imageInsets_; }
    void setImageEdgeInsets(const EdgeInsets& insets);
    /// Darkens image and background while pressed, unless the pressed state has its own; default
    /// yes.
    bool adjustsImageWhenHighlighted() const { return darkensWhenHighlighted_; }
    void setAdjustsImageWhenHighlighted(bool adjusts);
    /// Pales the image while disabled, unless that state has its own; default yes.
    bool adjustsImageWhenDisabled() const { return palesWhenDisabled_; }
    void setAdjustsImageWhenDisabled(bool adjusts);

    Size sizeThatFits(Size size) const override;
    void layoutSubviews() override;
    void tintColorDidChange() override;

protected:
    unsigned upInsideEvents() const override;
    void stateChanged() override;

private:
    /// What is set for one state.
    struct Look {
        std::string title;
        Ref<UIColor> titleColor;
        Ref<UIImage> image;
        Ref<UIImage> background;
    };
    /// A picture and its darkened form.
    struct Darkened {
        Ref<UIImage> original;
        Ref<UIImage> picture;
    };

    template <class T>
    T lookFor(unsigned state, T Look::*member) const;
    bool hasOwn(unsigned state, Ref<UIImage> Look::*member) const;
    Ref<UIImage> shown(Ref<UIImage> Look::*member, Darkened& cache);
    void update();
    void updateTitle();
    Size titleSize(Size room) const;

    UIButtonType type_ = UIButtonType::Custom;
    std::map<unsigned, Look> looks_;
    Ref<UIImageView> backgroundView_;
    Ref<UIImageView> imageView_;
    Ref<UILabel> titleLabel_;
    EdgeInsets contentInsets_;
    EdgeInsets titleInsets_;
    EdgeInsets imageInsets_;
    bool darkensWhenHighlighted_ = true;
    bool palesWhenDisabled_ = true;
    Darkened darkImage_;
    Darkened darkBackground_;
};

}  // namespace zn
