#include "platform/uikit/keyboard/KeyboardView.h"

#include "zarnic/platform/foundation/Clock.h"
#include "zarnic/platform/foundation/NSDate.h"
#include "zarnic/platform/foundation/NSRunLoop.h"
#include "zarnic/platform/foundation/NSString.h"
#include "zarnic/platform/uikit/UIApplication.h"

namespace zn {
namespace {

/// Seconds: between the two taps that lock the shift key, before deletion repeats, and between.
constexpr double doubleTap = 0.35;
constexpr double repeatDelay = 0.5;
constexpr double repeatInterval = 0.08;

void deleteBackward() {
    if (const auto input = UIApplication::sharedApplication()->keyInput())
        input->deleteBackward();
}

bool typesDigits(UIKeyboardType type) {
    return type == UIKeyboardType::NumberPad || type == UIKeyboardType::DecimalPad;
}

}  // namespace

KeyboardView::KeyboardView(double width) : UIView(Rect(0, 0, width, keyboardHeight())) {}

KeyboardView::~KeyboardView() {
    if (deleting_)
        deleting_->invalidate();
}

void KeyboardView::init() {
    UIView::init();
    setMultipleTouchEnabled(true);
    show(KeyboardPage::Letters);
}

void KeyboardView::adapt(const UIKeyInput& input) {
    if (input.keyboardType() == type_ && input.returnKeyType() == returnKey_)
        return;
    type_ = input.keyboardType();
    returnKey_ = input.returnKeyType();
    show(typesDigits(type_) ? KeyboardPage::Digits : KeyboardPage::Letters);
}

void KeyboardView::show(KeyboardPage page) {
    page_ = page;
    for (const Ref<KeyButton>& key : keys_)
        key->removeFromSuperview();
    keys_.clear();
    for (const KeyboardKey& key : keyboardKeys(page, bounds().width(), type_, returnKey_))
        addKey(key);
    setShift(KeyButton::Shift::Off);
}

void KeyboardView::addKey(const KeyboardKey& key) {
    const bool standsOut = key.kind == Kind::Return && returnKey_ != UIReturnKeyType::Default &&
                           returnKey_ != UIReturnKeyType::Next;
    const auto button = make<KeyButton>(key, standsOut);
    button->addTarget(ZN_ACTION(ref(this), pressed), UIControlEvents::TouchDown);
    button->addTarget(ZN_ACTION(ref(this), released), UIControlEvents::TouchUpInside);
    button->addTarget(ZN_ACTION(ref(this), left),
                      UIControlEvents::TouchUpOutside | UIControlEvents::TouchCancel);
    addSubview(button);
    keys_.push_back(button);
}

void KeyboardView::setShift(KeyButton::Shift shift) {
    shift_ = shift;
    for (const Ref<KeyButton>& key : keys_) {
        if (key->key().kind == Kind::Shift)
            key->showShift(shift);
        if (key->key().kind == Kind::Text && page_ == KeyboardPage::Letters)
            key->setLabel(shift == KeyButton::Shift::Off ? key->key().label
                                                         : uppercaseString(key->key().label));
    }
}

void KeyboardView::pressed(const Ref<KeyButton>& key) {
    if (key->key().kind == Kind::Shift)
        toggleShift();
    else if (key->key().kind == Kind::Delete)
        startDeleting();
}

void KeyboardView::toggleShift() {
    const double now = Clock::shared().monotonic();
    const bool again = shiftedAt_ >= 0 && now - shiftedAt_ <= doubleTap;
    shiftedAt_ = now;
    if (again && shift_ == KeyButton::Shift::Once)
        setShift(KeyButton::Shift::Locked);
    else
        setShift(shift_ == KeyButton::Shift::Off ? KeyButton::Shift::Once : KeyButton::Shift::Off);
}

void KeyboardView::startDeleting() {
    deleteBackward();
    deleting_ =
        NSTimer::timerWithTimeInterval(repeatInterval, true, [](const auto&) { deleteBackward(); });
    NSRunLoop::mainRunLoop()->addTimer(deleting_, NSRunLoopMode::Common);
    deleting_->setFireDate(NSDate::dateWithTimeIntervalSinceNow(repeatDelay));
}

void KeyboardView::left(const Ref<KeyButton>&) {
    if (deleting_)
        deleting_->invalidate();
    deleting_ = nullptr;
}

void KeyboardView::released(const Ref<KeyButton>& key) {
    left(key);
    const auto application = UIApplication::sharedApplication();
    switch (key->key().kind) {
        case Kind::Text: {
            application->insertText(key->label());
            if (shift_ == KeyButton::Shift::Once)
                setShift(KeyButton::Shift::Off);
            break;
        }
        case Kind::Space:
            application->insertText(" ");
            break;
        case Kind::Return:
            application->insertText("\n");
            break;
        case Kind::Letters:
            show(KeyboardPage::Letters);
            break;
        case Kind::Symbols:
            show(KeyboardPage::Symbols);
            break;
        case Kind::MoreSymbols:
            show(KeyboardPage::MoreSymbols);
            break;
        default:
            break;
    }
}

}  // namespace zn
