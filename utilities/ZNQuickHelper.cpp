#include "zarnic/ZNQuickHelper.h"

#include "zarnic/platform/foundation/Dispatch.h"
#include "zarnic/platform/foundation/NSDateFormatter.h"
#include "zarnic/platform/foundation/NSThread.h"
#include "zarnic/platform/uikit/UIApplication.h"

namespace zn {

void ZNQuickHelper::GCDPutOneBlockIntoMainThreadIsNew(bool isNew, double delayTime,
                                                      std::function<void()> block) {
    if (!block)
        return;
    if (delayTime > 0)
        dispatchMainAfter(delayTime, std::move(block));
    else if (NSThread::isMainThread() && !isNew)
        block();
    else
        dispatchMain(std::move(block));
}

/// On purpose not the mirror image of the above: `isNew` is asked before the delay.
void ZNQuickHelper::GCDPutOneBlockIntoGlobalThreadIsNew(bool isNew, double delayTime,
                                                        std::function<void()> block) {
    if (!block)
        return;
    if (NSThread::isMainThread() || isNew) {
        dispatchGlobalAfter(delayTime, std::move(block));
        return;
    }
    NSThread::sleepForTimeInterval(delayTime);
    block();
}

std::string ZNQuickHelper::GetDateFormatterStrByDate(const Ref<NSDate>& date,
                                                     std::string_view dateFomatString) {
    const auto formatter = make<NSDateFormatter>();
    formatter->setDateFormat(dateFomatString);
    return formatter->stringFromDate(date);
}

double ZNQuickHelper::GetTimeSince1970ByDateString(std::string_view dateString,
                                                   std::string_view dateFormatter) {
    const auto formatter = make<NSDateFormatter>();
    formatter->setDateFormat(dateFormatter);
    const auto date = formatter->dateFromString(dateString);
    return date ? date->timeIntervalSince1970() : 0;
}

void ZNQuickHelper::OpenUrl(std::string_view url) {
    UIApplication::sharedApplication()->openURL(url, Dictionary(), nullptr);
}

}  // namespace zn
