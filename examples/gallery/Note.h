#pragma once

#include <zarnic/platform/foundation/Property.h>

#include <cstdint>
#include <string>

namespace gallery {

/// One note. Its members have the names of the table's columns and of the file's keys.
class Note : public zn::NSObject {
    ZN_MODEL(Note, zn::NSObject, ZN_PROPERTY(identifier), ZN_PROPERTY(title), ZN_PROPERTY(text),
             ZN_PROPERTY(changed), ZN_PROPERTY(pinned))
public:
    /// 0 until it is stored.
    std::int64_t identifier = 0;
    std::string title;
    std::string text;
    /// As in "2018-05-28 09:41": sorted as a text it is sorted by time.
    std::string changed;
    bool pinned = false;

    /// Day and month.
    std::string day() const;
    /// Sets `changed` to the time now.
    void touch();
};

}  // namespace gallery
