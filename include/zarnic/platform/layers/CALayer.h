#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "zarnic/platform/drawing/CGContext.h"
#include "zarnic/platform/drawing/CGImage.h"
#include "zarnic/platform/foundation/Class.h"
#include "zarnic/platform/layers/CAAnimation.h"

namespace zn {

class CALayer;

/// What a layer asks of its owner (a view). Held as a plain pointer: the owner clears it.
class ZN_EXPORT CALayerDelegate {
public:
    virtual ~CALayerDelegate() = default;
    /// Whether `drawLayer` has something to draw; without it the layer takes no memory for it.
    virtual bool layerDraws(const CALayer&) { return false; }
    /// Draws the contents, y downward, in points, bounds origin applied.
    virtual void drawLayer(CALayer&, const Ref<CGContext>&) {}
    virtual void layoutSublayersOfLayer(CALayer&) {}
    /// Animates a change of a property: null for no animation. Layers without a delegate animate
    /// by themselves for the transaction's duration.
    virtual Ref<CAAnimation> actionForLayer(CALayer&, std::string_view) { return nullptr; }
};

/// The platform's numbers of content modes, as layers use them.
enum class CAContentsGravity {
    Resize,
    ResizeAspect,
    ResizeAspectFill,
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

/// A node of what is on the screen. Setters change the model at once; the picture follows when
/// the pass ends, through animations where there are any. Setting geometry that is not a number
/// throws `CALayerInvalidGeometry`. Main thread only.
class ZN_EXPORT CALayer : public NSObject {
    ZN_OBJECT(CALayer, NSObject)
public:
    CALayer();
    ~CALayer() override;

    // Geometry, in the superlayer's points (bounds: in its own).
    /// Its origin is what the sublayers are shifted by.
    const Rect& bounds() const;
    void setBounds(const Rect& bounds);
    /// Where the anchor point lies in the superlayer.
    Point position() const;
    void setPosition(Point position);
    /// In units of the bounds; default (0.5, 0.5).
    Point anchorPoint() const;
    void setAnchorPoint(Point anchor);
    double zPosition() const;
    void setZPosition(double z);
    const AffineTransform& affineTransform() const;
    void setAffineTransform(const AffineTransform& transform);
    /// The box of the transformed bounds; setting it sets position and the size of the bounds.
    Rect frame() const;
    void setFrame(const Rect& frame);

    // The tree.
    Ref<CALayer> superlayer() const;
    const std::vector<Ref<CALayer>>& sublayers() const;
    /// Moves a layer that has a superlayer to the end. A null layer, or one that holds this one, is
    /// refused with `CALayerInvalid`.
    void addSublayer(const Ref<CALayer>& layer);
    /// Moves a layer that has a superlayer. An index past the end means the end.
    void insertSublayer(const Ref<CALayer>& layer, std::size_t index);
    void insertSublayerBelow(const Ref<CALayer>& layer, const Ref<CALayer>& sibling);
    void insertSublayerAbove(const Ref<CALayer>& layer, const Ref<CALayer>& sibling);
    void removeFromSuperlayer();
    /// A mask has no superlayer: setting one takes it out of its tree.
    const Ref<CALayer>& mask() const;
    void setMask(const Ref<CALayer>& mask);

    // Appearance.
    double opacity() const;
    void setOpacity(double opacity);
    bool hidden() const;
    void setHidden(bool hidden);
    bool masksToBounds() const;
    void setMasksToBounds(bool masks);
    const CGColor& backgroundColor() const;
    void setBackgroundColor(const CGColor& color);
    double cornerRadius() const;
    void setCornerRadius(double radius);
    double borderWidth() const;
    void setBorderWidth(double width);
    const CGColor& borderColor() const;
    void setBorderColor(const CGColor& color);
    const CGColor& shadowColor() const;
    void setShadowColor(const CGColor& color);
    Size shadowOffset() const;
    void setShadowOffset(Size offset);
    /// The Gaussian's standard deviation in points; default 3.
    double shadowRadius() const;
    void setShadowRadius(double radius);
    double shadowOpacity() const;
    void setShadowOpacity(double opacity);
    /// In the layer's own coordinates; absent for the shadow of what the layer and its sublayers
    /// show.
    std::optional<CGPath> shadowPath() const;
    void setShadowPath(std::optional<CGPath> path);
    /// Sublayers and contents are drawn once into a picture, then composed.
    bool shouldRasterize() const;
    void setShouldRasterize(bool rasterize);

    // Contents.
    const Ref<CGImage>& contents() const;
    void setContents(const Ref<CGImage>& contents);
    /// Pixels a point of the contents.
    double contentsScale() const;
    void setContentsScale(double scale);
    CAContentsGravity contentsGravity() const;
    void setContentsGravity(CAContentsGravity gravity);
    /// Unit rectangle that is stretched; default all of it.
    const Rect& contentsCenter() const;
    void setContentsCenter(const Rect& center);
    bool needsDisplay() const;
    void setNeedsDisplay();
    void displayIfNeeded();
    /// Draw the contents again whenever the size of the bounds changes.
    bool needsDisplayOnBoundsChange() const;
    void setNeedsDisplayOnBoundsChange(bool needs);
    /// Overridden by layers that draw themselves; the base asks the delegate.
    virtual void drawInContext(const Ref<CGContext>& context);
    virtual bool drawsContents() const;

    // Layout: before a commit, `layoutSublayers` of every layer that needs it, parents first.
    bool needsLayout() const;
    void setNeedsLayout();
    void layoutIfNeeded();
    virtual void layoutSublayers();

    // Animation.
    /// An equal key replaces the running one, which ends with finished NO. An empty key keeps
    /// all of them. Begins when the pass ends. An animation that ends by itself on a layer that is
    /// on no screen, or hidden, ends there with finished YES; an endless one waits to be seen.
    void addAnimation(const Ref<CAAnimation>& animation, std::string_view key);
    Ref<CAAnimation> animationForKey(std::string_view key) const;
    std::vector<std::string> animationKeys() const;
    /// The completions of removed and replaced animations are called when the pass ends.
    void removeAnimationForKey(std::string_view key);
    void removeAllAnimations();
    /// Whether an animation of the property ("opacity") is running: from its addition until it is
    /// taken off or its end is told.
    bool animates(std::string_view property) const;
    /// The property as shown now: the model value, changed by the running animations.
    CAValue presentationValue(std::string_view property) const;
    double presentationOpacity() const;
    Rect presentationFrame() const;

    // Conversion (model values); a null layer means the root of this tree.
    Point convertPointToLayer(Point point, const Ref<CALayer>& layer) const;
    Point convertPointFromLayer(Point point, const Ref<CALayer>& layer) const;
    AffineTransform transformToLayer(const Ref<CALayer>& layer) const;
    bool containsPoint(Point point) const;

    /// Draws the model values of the whole tree below, masks and shadows included, in the layer's
    /// own coordinates, after what layout and drawing it still needs. No animation shows.
    void renderInContext(const Ref<CGContext>& context);

    CALayerDelegate* delegate() const;
    void setDelegate(CALayerDelegate* delegate);
    const std::string& name() const;
    void setName(std::string name);

    /// For the layer floor only.
    struct Node;
    Node& node() const { return *node_; }

private:
    std::unique_ptr<Node> node_;
};

}  // namespace zn
