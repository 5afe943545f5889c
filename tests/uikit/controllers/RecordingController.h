#pragma once

#include <string>
#include <vector>

#include "zarnic/platform/uikit/UIViewController.h"

namespace zn {

/// A controller that writes down what is told to it: "a+" will appear, "A+" did appear, "a-" will
/// disappear, "A-" did disappear, for one named "a".
class RecordingController : public UIViewController {
    ZN_OBJECT(RecordingController, UIViewController)
public:
    using Record = std::vector<std::string>;
    RecordingController(char name, Record& record) : name_(name), record_(record) {}

    void viewWillAppear(bool) override { note(name_, '+'); }
    void viewDidAppear(bool) override { note(upper(), '+'); }
    void viewWillDisappear(bool) override { note(name_, '-'); }
    void viewDidDisappear(bool) override { note(upper(), '-'); }

private:
    char upper() const { return static_cast<char>(name_ - 'a' + 'A'); }
    void note(char name, char sign) { record_.push_back({name, sign}); }

    char name_;
    Record& record_;
};

}  // namespace zn
