#include "Note.h"

#include <zarnic/ZNQuickHelper.h>
#include <zarnic/platform/foundation/Clock.h>

using namespace zn;

namespace gallery {
namespace {

constexpr const char* timeFormat = "yyyy-MM-dd HH:mm";

}  // namespace

ZN_REGISTER_CLASS(Note);

std::string Note::day() const {
    const double time = ZNQuickHelper::GetTimeSince1970ByDateString(changed, timeFormat);
    return ZNQuickHelper::GetDateFormatterStrByDate(make<NSDate>(time), "d MMM");
}

void Note::touch() {
    changed =
        ZNQuickHelper::GetDateFormatterStrByDate(make<NSDate>(Clock::shared().now()), timeFormat);
}

}  // namespace gallery
