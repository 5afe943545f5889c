#pragma once

#include <string>
#include <string_view>

#include "zarnic/platform/foundation/Value.h"

/// The words of the archive's property list.
namespace zn::archive {

inline constexpr std::int64_t version = 100000;
inline constexpr const char* versionKey = "$version";
inline constexpr const char* archiverKey = "$archiver";
inline constexpr const char* archiverName = "NSKeyedArchiver";
inline constexpr const char* topKey = "$top";
inline constexpr const char* objectsKey = "$objects";
inline constexpr const char* rootKey = "root";
inline constexpr const char* classKey = "$class";
inline constexpr const char* classNameKey = "$classname";
inline constexpr const char* classesKey = "$classes";
inline constexpr const char* absentMark = "$null";
inline constexpr const char* referenceKey = "CF$UID";

inline constexpr const char* itemsKey = "NS.objects";
inline constexpr const char* keysKey = "NS.keys";
inline constexpr const char* timeKey = "NS.time";
/// For dates whose seconds since 2001 would not give the same seconds since 1970.
inline constexpr const char* exactTimeKey = "NS.since1970";
inline constexpr const char* bytesKey = "NS.bytes";
inline constexpr const char* textKey = "NS.string";
inline constexpr const char* dataKey = "NS.data";

inline constexpr double secondsFrom1970To2001 = 978307200;

/// Keys of objects that begin with a dollar sign get another, so that they never meet the archive's
/// own.
std::string escaped(std::string_view key);

}  // namespace zn::archive
