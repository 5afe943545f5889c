#pragma once

#include <gmock/gmock.h>

#include "tests/uikit/controllers/RecordingController.h"
#include "zarnic/platform/uikit/UINavigationController.h"
#include "zarnic/testing/Stage.h"

namespace zn {

/// Writes will-show and did-show into the screens' record, as "show" and "shown".
class Watcher : public NSObject, public UINavigationControllerDelegate {
    ZN_OBJECT(Watcher, NSObject)
public:
    explicit Watcher(RecordingController::Record& record) : record_(record) {}
    void navigationControllerWillShowViewController(const Ref<UINavigationController>&,
                                                    const Ref<UIViewController>&, bool) override {
        record_.push_back("show");
        if (onWillShow)
            std::exchange(onWillShow, {})();
    }
    void navigationControllerDidShowViewController(const Ref<UINavigationController>&,
                                                   const Ref<UIViewController>&, bool) override {
        record_.push_back("shown");
    }
    std::function<void()> onWillShow;

private:
    RecordingController::Record& record_;
};

/// A navigation controller with the root `a`, and two more screens.
class NavigationTest : public ::testing::Test {
protected:
    NavigationTest() {
        watcher = make<Watcher>(record);
        navigation = make<UINavigationController>(a);
        navigation->setDelegate(watcher);
    }
    void showOnScreen() {
        stage.show(navigation);
        stage.settle();
        record.clear();
    }

    Stage stage;
    RecordingController::Record record;
    Ref<RecordingController> a = make<RecordingController>('a', record);
    Ref<RecordingController> b = make<RecordingController>('b', record);
    Ref<RecordingController> c = make<RecordingController>('c', record);
    Ref<Watcher> watcher;
    Ref<UINavigationController> navigation;
};

}  // namespace zn
