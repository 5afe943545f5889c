#include "storage/WeightedSize.h"

#include <sys/stat.h>

#include <limits>

#include "platform/foundation/files/FolderWalk.h"

namespace zn {
namespace {

constexpr std::int64_t maximum = std::numeric_limits<std::int64_t>::max();

class WeightedSize final : public FolderWalk {
public:
    std::int64_t sum() const { return sum_; }

protected:
    void visit(const Entry& entry) override {
        struct stat status = {};
        if (entry.kind == Kind::Folder || !leadsToFile(entry) ||
            fstatat(entry.folder, entry.name, &status, AT_SYMLINK_NOFOLLOW) != 0)
            return;
        const std::int64_t weighted = weightedSize(status.st_size, entry.depth);
        sum_ = weighted > maximum - sum_ ? maximum : sum_ + weighted;
    }

private:
    /// A link counts with its own size when it leads to a file.
    static bool leadsToFile(const Entry& entry) {
        struct stat target = {};
        return entry.kind != Kind::Link ||
               (fstatat(entry.folder, entry.name, &target, 0) == 0 && !S_ISDIR(target.st_mode));
    }

    static std::int64_t weightedSize(std::int64_t size, std::size_t depth) {
        const std::size_t shift = depth - 1;
        if (size == 0 || shift == 0)
            return size;
        return shift > 62 || size > maximum >> shift ? maximum : size << shift;
    }

    std::int64_t sum_ = 0;
};

}  // namespace

std::int64_t weightedSizeOfFolder(const std::string& path) {
    WeightedSize walk;
    return walk.walk(path) == FolderWalk::Outcome::Finished ? walk.sum() : 0;
}

}  // namespace zn
