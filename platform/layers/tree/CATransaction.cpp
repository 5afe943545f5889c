#include "platform/layers/tree/AnimationScheduler.h"
#include "platform/layers/tree/LayerCommit.h"
#include "platform/layers/tree/TransactionState.h"

namespace zn {
namespace {

struct Settings {
    bool disableActions = false;
    double duration = 0.25;
    CAMediaTimingFunction timingFunction = CAMediaTimingFunction::standard();
    std::shared_ptr<TransactionGroup> group = std::make_shared<TransactionGroup>();
};

/// The pass's own settings, then those of each open transaction.
std::vector<Settings>& settings() {
    static auto* stack = new std::vector<Settings>(1);
    return *stack;
}

}  // namespace

std::vector<std::shared_ptr<TransactionGroup>> openTransactionGroups() {
    std::vector<std::shared_ptr<TransactionGroup>> groups;
    for (const Settings& each : settings())
        groups.push_back(each.group);
    return groups;
}

void endPassTransaction() {
    auto group = std::exchange(settings().front(), Settings()).group;
    AnimationScheduler::shared().close(group);
}

void CATransaction::begin() {
    Settings inner = settings().back();
    inner.group = std::make_shared<TransactionGroup>();
    settings().push_back(std::move(inner));
}

void CATransaction::commit() {
    if (settings().size() < 2)
        return;
    auto group = settings().back().group;
    settings().pop_back();
    AnimationScheduler::shared().close(group);
}

void CATransaction::flush() {
    LayerCommit::shared().run();
}

void CATransaction::setDisableActions(bool disable) {
    settings().back().disableActions = disable;
    LayerCommit::shared().schedule();
}

bool CATransaction::disableActions() {
    return settings().back().disableActions;
}

void CATransaction::setAnimationDuration(double seconds) {
    settings().back().duration = seconds > 0 ? seconds : 0;
    LayerCommit::shared().schedule();
}

double CATransaction::animationDuration() {
    return settings().back().duration;
}

void CATransaction::setAnimationTimingFunction(const CAMediaTimingFunction& function) {
    settings().back().timingFunction = function;
    LayerCommit::shared().schedule();
}

CAMediaTimingFunction CATransaction::animationTimingFunction() {
    return settings().back().timingFunction;
}

void CATransaction::setCompletionBlock(std::function<void()> block) {
    settings().back().group->completion = std::move(block);
    LayerCommit::shared().schedule();
}

}  // namespace zn
