#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <map>
#include <sstream>
#include <string>

#include "tests/support/TestClock.h"
#include "zarnic/platform/uikit/UIApplication.h"
#include "zarnic/platform/uikit/UIEvent.h"
#include "zarnic/platform/uikit/UIScreen.h"
#include "zarnic/platform/uikit/UIWindow.h"

namespace zn::test {

/// What happened, in words separated by blanks.
class Journal {
public:
    void add(const std::string& word) { text_ += (text_.empty() ? "" : " ") + word; }
    /// What was written since it was last taken.
    std::string take() { return std::exchange(text_, {}); }

private:
    std::string text_;
};

/// Writes its touches down: "name:began", "name:moved", "name:ended", "name:cancelled".
class TouchedView : public UIView {
    ZN_OBJECT(TouchedView, UIView)
public:
    TouchedView(Journal& journal, std::string name, const Rect& frame)
        : UIView(frame), journal_(journal), name_(std::move(name)) {}
    /// Called after a touch began, with the view still on the stack.
    std::function<void()> whenTouched;

    void touchesBegan(const TouchSet& touches, const Ref<UIEvent>&) override {
        write("began", touches);
        if (whenTouched)
            std::exchange(whenTouched, {})();
    }
    void touchesMoved(const TouchSet& touches, const Ref<UIEvent>&) override {
        write("moved", touches);
    }
    void touchesEnded(const TouchSet& touches, const Ref<UIEvent>&) override {
        write("ended", touches);
    }
    void touchesCancelled(const TouchSet& touches, const Ref<UIEvent>&) override {
        write("cancelled", touches);
    }

private:
    void write(const std::string& phase, const TouchSet& touches) {
        const int taps = touches.front()->tapCount();
        journal_.add(name_ + ":" + phase + (taps > 1 ? std::to_string(taps) : ""));
    }

    Journal& journal_;
    std::string name_;
};

/// A phone under the manual clock, with one window over the whole of it.
class TouchTest : public testing::Test {
protected:
    void SetUp() override {
        window = make<UIWindow>(UIScreen::mainScreen()->bounds());
        window->setHidden(false);
        clock.settle();
    }

    Ref<TouchedView> addView(const std::string& name, const Rect& frame,
                             Ref<UIView> parent = nullptr) {
        const auto view = make<TouchedView>(journal, name, frame);
        (parent ? parent : window)->addSubview(view);
        return view;
    }

    /// Plays "d10,20 m30,40 u c +0.5": down, move, up, cancel of finger 1 (another one with "2:"
    /// ahead), and seconds that pass. Up without a place is where the finger is.
    void play(const std::string& steps) {
        std::istringstream words(steps);
        for (std::string word; words >> word;)
            step(word);
    }

    ManualClock& clock = testClock();
    Ref<UIApplication> application = UIApplication::sharedApplication();
    Ref<UIWindow> window;
    Journal journal;

private:
    void step(std::string word) {
        std::int64_t finger = 1;
        if (word.size() > 2 && word[1] == ':') {
            finger = word[0] - '0';
            word.erase(0, 2);
        }
        if (word[0] == '+') {
            clock.advance(std::stod(word.substr(1)));
            return;
        }
        Point& place = places_[finger];
        if (word.size() > 1)
            std::sscanf(word.c_str() + 1, "%lf,%lf", &place.x, &place.y);
        switch (word[0]) {
            case 'd':
                return application->touchDown(finger, place);
            case 'm':
                return application->touchMove(finger, place);
            case 'u':
                return application->touchUp(finger, place);
            case 'c':
                return application->touchCancel(finger);
            default:
                FAIL() << "no such step: " << word;
        }
    }

    std::map<std::int64_t, Point> places_;
};

}  // namespace zn::test
