#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <vector>

#include "zarnic/platform/drawing/UIColor.h"
#include "zarnic/platform/layers/CALayer.h"
#include "zarnic/platform/uikit/UIResponder.h"

namespace zn {

class UIGestureRecognizer;
class UIViewController;
class UIWindow;

/// The platform's numbers.
enum class UIViewContentMode {
    ScaleToFill,
    ScaleAspectFit,
    ScaleAspectFill,
    Redraw,
    Center,
    Top,
    Bottom,
    Left,
    Right,
    TopLeft,
    TopRight,
    BottomLeft,
    BottomRight,
};

/// Bit set: what changes when the superview's size does.
namespace UIViewAutoresizing {
inline constexpr unsigned None = 0, FlexibleLeftMargin = 1, FlexibleWidth = 2,
                          FlexibleRightMargin = 4, FlexibleTopMargin = 8, FlexibleHeight = 16,
                          FlexibleBottomMargin = 32;
}  // namespace UIViewAutoresizing

/// The platform's numbers, a bit set; the curve is in bits 16 and up.
namespace UIViewAnimationOptions {
inline constexpr unsigned None = 0, LayoutSubviews = 1, AllowUserInteraction = 2,
                          BeginFromCurrentState = 4, Repeat = 8, Autoreverse = 16,
                          OverrideInheritedDuration = 32, OverrideInheritedCurve = 64,
                          CurveEaseInOut = 0u << 16, CurveEaseIn = 1u << 16,
                          CurveEaseOut = 2u << 16, CurveLinear = 3u << 16;
}  // namespace UIViewAnimationOptions

/// A rectangle that draws, takes touches and holds others. Subclasses override `init` to build
/// themselves; `make<UIView>(frame)` calls it. Main thread only.
class ZN_EXPORT UIView : public UIResponder, private CALayerDelegate {
    ZN_OBJECT(UIView, UIResponder)
public:
    UIView();
    explicit UIView(const Rect& frame);
    ~UIView() override;
    /// Makes the layer (`makeLayer`) and gives it the frame.
    void init() override;

    const Ref<CALayer>& layer() const { return layer_; }

    // Geometry, in points; `NSException` from the layer for what is not a number.
    /// With a transform, the box around the view.
    virtual Rect frame() const;
    /// A negative size is standardised. Subviews follow as their `autoresizingMask` says.
    virtual void setFrame(const Rect& frame);
    /// Its origin is what the subviews are shifted by.
    virtual Rect bounds() const;
    /// Keeps the centre, so that the frame's origin moves when the size changes.
    virtual void setBounds(const Rect& bounds);
    Point center() const;
    void setCenter(Point center);
    AffineTransform transform() const;
    void setTransform(const AffineTransform& transform);
    // Conversion; a null view means the window's coordinates (of the topmost view, without a
    // window). Between windows it goes through the screen's. Model values, not what animations
    // show.
    Point convertPointToView(Point point, const Ref<UIView>& view) const;
    Point convertPointFromView(Point point, const Ref<UIView>& view) const;
    Rect convertRectToView(const Rect& rect, const Ref<UIView>& view) const;
    Rect convertRectFromView(const Rect& rect, const Ref<UIView>& view) const;
    /// The size it would like for the size it may have; the base gives its present size.
    virtual Size sizeThatFits(Size size) const;
    /// Takes `sizeThatFits` of its present size, keeping the origin.
    void sizeToFit();
    /// Bits of `UIViewAutoresizing`. What the superview's side gains or loses is shared among the
    /// flexible parts in proportion to what they have, or evenly when they have nothing.
    unsigned autoresizingMask() const { return autoresizingMask_; }
    void setAutoresizingMask(unsigned mask) { autoresizingMask_ = mask; }
    bool autoresizesSubviews() const { return autoresizesSubviews_; }
    void setAutoresizesSubviews(bool autoresizes) { autoresizesSubviews_ = autoresizes; }

    // The tree.
    Ref<UIView> superview() const { return superview_.lock(); }
    /// Back to front.
    const std::vector<Ref<UIView>>& subviews() const { return subviews_; }
    virtual Ref<UIWindow> window() const;
    /// Takes the view from where it is and puts it on top. A null view is ignored; the view itself
    /// or one that holds it is refused with `NSInvalidArgumentException`.
    void addSubview(const Ref<UIView>& view);
    /// An index past the end means the top.
    void insertSubviewAtIndex(const Ref<UIView>& view, std::size_t index);
    /// On top when the sibling is no subview.
    void insertSubviewBelow(const Ref<UIView>& view, const Ref<UIView>& sibling);
    void insertSubviewAbove(const Ref<UIView>& view, const Ref<UIView>& sibling);
    /// Its first responder, if it holds it, resigns.
    void removeFromSuperview();
    void bringSubviewToFront(const Ref<UIView>& view);
    void sendSubviewToBack(const Ref<UIView>& view);
    /// A view is its own descendant.
    bool isDescendantOfView(const Ref<UIView>& view) const;
    /// The first of this view and those below it that has the tag, or null.
    Ref<UIView> viewWithTag(std::int64_t tag) const;
    std::int64_t tag() const { return tag_; }
    void setTag(std::int64_t tag) { tag_ = tag; }
    virtual void didAddSubview(const Ref<UIView>&) {}
    virtual void willRemoveSubview(const Ref<UIView>&) {}
    virtual void willMoveToSuperview(const Ref<UIView>&) {}
    virtual void didMoveToSuperview() {}
    virtual void willMoveToWindow(const Ref<UIWindow>&) {}
    virtual void didMoveToWindow() {}

    // Appearance.
    Ref<UIColor> backgroundColor() const { return backgroundColor_; }
    virtual void setBackgroundColor(const Ref<UIColor>& color);
    /// Between 0 and 1; others are cut.
    double alpha() const;
    void setAlpha(double alpha);
    virtual bool hidden() const;
    virtual void setHidden(bool hidden);
    bool opaque() const { return opaque_; }
    void setOpaque(bool opaque) { opaque_ = opaque; }
    bool clipsToBounds() const;
    void setClipsToBounds(bool clips);
    UIViewContentMode contentMode() const { return contentMode_; }
    virtual void setContentMode(UIViewContentMode mode);
    /// Pixels a point of what `drawRect` draws; the screen's unless set.
    double contentScaleFactor() const;
    void setContentScaleFactor(double scale);
    /// Its own, else the superview's, else the system's blue.
    Ref<UIColor> tintColor() const;
    void setTintColor(const Ref<UIColor>& color);
    /// After the colour that `tintColor` gives changed, here or above.
    virtual void tintColorDidChange() {}

    // Drawing and layout.
    /// Draws into the current graphics context, in the bounds' coordinates. A class that overrides
    /// it says so in `drawsRect`.
    virtual void drawRect(const Rect&) {}
    virtual bool drawsRect() const { return false; }
    void setNeedsDisplay();
    /// `layoutSubviews` is called before the pass ends, or by `layoutIfNeeded`.
    void setNeedsLayout();
    void layoutIfNeeded();
    virtual void layoutSubviews() {}

    // Touch.
    bool userInteractionEnabled() const { return userInteractionEnabled_; }
    virtual void setUserInteractionEnabled(bool enabled) { userInteractionEnabled_ = enabled; }
    bool multipleTouchEnabled() const { return multipleTouchEnabled_; }
    void setMultipleTouchEnabled(bool enabled) { multipleTouchEnabled_ = enabled; }
    bool exclusiveTouch() const { return exclusiveTouch_; }
    void setExclusiveTouch(bool exclusive) { exclusiveTouch_ = exclusive; }
    /// The topmost view below here, or this one, that takes a touch at the point (in its bounds'
    /// coordinates). Hidden ones, ones with an alpha below 0.01, ones that take no touches and ones
    /// that an animation without `AllowUserInteraction` moves are passed over with all they hold.
    virtual Ref<UIView> hitTest(Point point, const Ref<UIEvent>& event);
    virtual bool pointInside(Point point, const Ref<UIEvent>& event) const;
    /// A recogniser has one view: it leaves its former one.
    void addGestureRecognizer(const Ref<UIGestureRecognizer>& recognizer);
    void removeGestureRecognizer(const Ref<UIGestureRecognizer>& recognizer);
    const std::vector<Ref<UIGestureRecognizer>>& gestureRecognizers() const {
        return gestureRecognizers_;
    }
    Ref<UIResponder> nextResponder() const override;
    /// Makes the first responder below here resign; with `force` even when it refuses. Whether none
    /// is left here.
    bool endEditing(bool force);

    // Animation.
    using Block = std::function<void()>;
    using Completion = std::function<void(bool finished)>;
    /// Changes made inside `animations` reach the screen over `duration` seconds, ease in and out,
    /// starting from what is on the screen; the properties have their new values at once. A later
    /// change of the same property, animated or not, ends the earlier animation. The completion
    /// comes once, on the main thread, after all the block's animations: true when each ran its
    /// course, or when there was nothing to animate or no time to do it in (on the next pass).
    /// Inside another block the other's duration and pace hold, unless an option says otherwise.
    static void animateWithDuration(double duration, const Block& animations,
                                    Completion completion = {});
    static void animateWithDuration(double duration, double delay, unsigned options,
                                    const Block& animations, Completion completion = {});
    static void performWithoutAnimation(const Block& actions);
    static bool areAnimationsEnabled();
    static void setAnimationsEnabled(bool enabled);
    /// Inside an animation block.
    static double inheritedAnimationDuration();

protected:
    /// The kind of layer a class of views has.
    virtual Ref<CALayer> makeLayer() const;
    /// Gives the layer the scale of what is drawn: when the view is made, when it comes into a
    /// window, when the scale is set.
    virtual void updateContentScale();

private:
    friend class UIViewController;
    friend class UIWindow;

    // CALayerDelegate.
    bool layerDraws(const CALayer& layer) override;
    void drawLayer(CALayer& layer, const Ref<CGContext>& context) override;
    void layoutSublayersOfLayer(CALayer& layer) override;
    Ref<CAAnimation> actionForLayer(CALayer& layer, std::string_view property) override;

    void insertSubview(const Ref<UIView>& view, std::size_t index);
    void attach(const Ref<UIView>& view, std::size_t index);
    void detach(const Ref<UIView>& view);
    std::size_t indexOfSubview(const Ref<UIView>& view) const;
    /// The subview is told before and after that its window changes, with all it holds.
    void announceWindow(const Ref<UIWindow>& window);
    void moveToWindow(const Ref<UIWindow>& window);
    void spreadTintColor();

    void sizeChanged(Size oldSize);
    void resizeSubviews(Size oldSize);
    void resizeInSuperview(Size oldSize, Size newSize);
    AffineTransform transformToSuperview() const;
    AffineTransform transformToAncestor(const UIView* ancestor) const;
    AffineTransform transformToView(const UIView* view) const;
    const UIView* topmost() const;
    const UIView* commonAncestor(const UIView& other) const;

    Rect initialFrame_;
    Ref<CALayer> layer_;
    WeakRef<UIView> superview_;
    std::vector<Ref<UIView>> subviews_;
    std::vector<Ref<UIGestureRecognizer>> gestureRecognizers_;
    /// The controller whose root view this is.
    WeakRef<UIViewController> controller_;
    Ref<UIColor> backgroundColor_;
    Ref<UIColor> tintColor_;
    std::int64_t tag_ = 0;
    /// 0 for the screen's.
    double contentScale_ = 0;
    /// How many running animations keep touches away.
    int untouchable_ = 0;
    unsigned autoresizingMask_ = UIViewAutoresizing::None;
    UIViewContentMode contentMode_ = UIViewContentMode::ScaleToFill;
    bool autoresizesSubviews_ = true;
    bool opaque_ = true;
    bool userInteractionEnabled_ = true;
    bool multipleTouchEnabled_ = false;
    bool exclusiveTouch_ = false;
};

}  // namespace zn
