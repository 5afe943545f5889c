#pragma once

#include <memory>
#include <string>

#include "tests/support/ChildProcess.h"
#include "tests/support/TemporaryFolder.h"
#include "zarnic/platform/drawing/UIImage.h"

namespace zn {

/// An X server without a display, whose screen can be read. Started and ended by the test.
class VirtualDisplay {
public:
    VirtualDisplay(int width, int height);

    bool running() { return !name_.empty() && server_->running(); }
    /// For `DISPLAY`.
    const std::string& name() const { return name_; }
    /// The screen's pixels now; null when they cannot be read.
    Ref<UIImage> screenshot() const;
    /// A mouse click at a place of the screen.
    void click(int x, int y) const;
    /// Types a text with the keyboard, whatever keys that takes.
    void type(const std::string& text) const;
    /// Presses keys by their X names, "ctrl+a", one after the other.
    void press(const std::string& keys) const;
    /// The clipboard, as another program reads and writes it.
    std::string clipboard() const;
    void setClipboard(const std::string& text) const;
    /// The mouse goes up or down in even steps with its button pressed, in about this time.
    void drag(int x, int fromY, int toY, double seconds) const;
    /// The mouse goes from one place to another beside it in small steps, its button held down.
    void dragAcross(int fromX, int toX, int y) const;

private:
    TemporaryFolder folder_;
    std::unique_ptr<ChildProcess> server_;
    std::string name_;
};

}  // namespace zn
