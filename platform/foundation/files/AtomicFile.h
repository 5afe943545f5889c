#pragma once

#include <string>
#include <string_view>

namespace zn {

/// Writes all bytes to the file, which keeps its permissions and, if it is a link, stays one. When
/// this fails, is killed or the machine stops, the file is the old one or the new one, whole: the
/// bytes go to the disk in another file of the same folder, which then takes its name. Where there
/// was nothing to lose, no file or an empty one, nobody waits for the disk: a machine that stops
/// soon after may come back without the new bytes. False when that cannot be done or something
/// there is no regular file.
bool writeFileAtomically(const std::string& path, std::string_view bytes);

/// Writes into the file itself, truncating it; false when it is not written wholly.
bool writeFileInPlace(const std::string& path, std::string_view bytes);

}  // namespace zn
