#pragma once

#include <functional>
#include <map>
#include <utility>

#include "platform/uikit/text/TextFlow.h"
#include "zarnic/platform/foundation/NSTimer.h"
#include "zarnic/platform/uikit/UIView.h"

namespace zn {

/// Shows a text that may be much larger than the screen: draws only the tiles that are seen, and
/// draws those again that change. Its coordinates are the text's. Holds the caret.
class TextCanvas : public UIView {
    ZN_OBJECT(TextCanvas, UIView)
public:
    using Painter = std::function<void(const Ref<CGContext>&, const Rect& area)>;
    explicit TextCanvas(Painter painter);
    ~TextCanvas() override;
    void init() override;

    /// Nothing is drawn any more: the text is gone.
    void stopPainting() { painter_ = {}; }
    /// What is to be seen, and how large the text is.
    void show(const Rect& visible, Size content);
    void invalidate(TextFlow::Band band);
    void invalidateAll();

    /// Shows a caret that blinks, full at first; or none.
    void showCaret(const Rect& place);
    void hideCaret();
    void tintColorDidChange() override;

private:
    class TextTile;
    using Place = std::pair<int, int>;
    void blink();

    Painter painter_;
    std::map<Place, Ref<TextTile>> tiles_;
    Ref<UIView> caret_;
    Ref<NSTimer> blinking_;
};

}  // namespace zn
