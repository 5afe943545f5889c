#include <gmock/gmock.h>
#include <sys/stat.h>

#include <filesystem>
#include <fstream>
#include <set>

#include "tests/imagecache/RealTime.h"
#include "tests/imagecache/TestImages.h"
#include "zarnic/NSString+ZNCategory.h"
#include "zarnic/platform/foundation/NSUserDefaults.h"

namespace zn {
namespace {

namespace fs = std::filesystem;

/// Has a picture of 16 pixels for every URL.
class PictureHelper final : public ZNImageHelper {
public:
    Value downloadImageData(std::optional<std::string_view>) const override {
        ++fetches;
        return data_;
    }
    mutable std::atomic<int> fetches = 0;

private:
    const Value data_ = pngData(16);
};

/// Damages the good file at the path; those that nobody can read are recorded, except a link that
/// leads nowhere, which is no file.
struct Damage {
    const char* name;
    void (*apply)(const std::string& path);
    bool recorded;
};

void overwrite(const std::string& path, std::string_view contents) {
    std::ofstream(path, std::ios::binary | std::ios::trunc) << contents;
}

const Damage damages[] = {
    {"cut in the head", [](const std::string& path) { fs::resize_file(path, 20); }, true},
    {"cut to one byte", [](const std::string& path) { fs::resize_file(path, 1); }, true},
    {"overwritten", [](const std::string& path) { overwrite(path, std::string(500, 'x')); }, true},
    {"empty", [](const std::string& path) { overwrite(path, ""); }, true},
    {"a folder",
     [](const std::string& path) {
         fs::remove(path);
         fs::create_directories(path + "/inside");
     },
     true},
    {"a pipe",
     [](const std::string& path) {
         fs::remove(path);
         mkfifo(path.c_str(), 0600);
     },
     true},
    {"a link to nowhere",
     [](const std::string& path) {
         fs::remove(path);
         fs::create_symlink("/nonexistent/picture", path);
     },
     false},
    {"a link to itself",
     [](const std::string& path) {
         fs::remove(path);
         fs::create_symlink(path, path);
     },
     false},
};

class DamagedFilesTest : public testing::Test {
protected:
    void damageAndAsk(int count) {
        std::set<std::string> unreadable;
        for (int number = 0; number < count; ++number) {
            const Damage& damage = damages[static_cast<std::size_t>(number) % std::size(damages)];
            const std::string url = "http://a/" + std::to_string(number);
            const std::string key = zn::zn_EncryptMD5(url).value();
            helper->writeFile(key, pngData(16));
            damage.apply(helper->getFilePath(key));
            if (damage.recorded)
                unreadable.insert(key);
            helper->downloadImageFillView(
                nullptr, nullptr, url,
                [this](const auto&, const auto& image) { widths.push_back(widthOf(image)); });
        }
        EXPECT_TRUE(
            runUntil([&] { return widths.size() == static_cast<std::size_t>(count); }, 300));
        EXPECT_EQ(widths, std::vector<int>(static_cast<std::size_t>(count), 16));
        EXPECT_EQ(helper->fetches, count);
        expectRecorded(unreadable);
    }
    static void expectRecorded(const std::set<std::string>& unreadable) {
        std::set<std::string> recorded;
        const Value keys =
            NSUserDefaults::standardUserDefaults()->arrayForKey("TKImageHelper_Unbelievable");
        for (const Value& key : keys.array())
            recorded.insert(std::string(key.string()));
        EXPECT_EQ(recorded, unreadable);
        EXPECT_EQ(keys.array().count(), unreadable.size());
    }

    const OwnHome home;
    Ref<PictureHelper> helper = make<PictureHelper>();
    std::vector<int> widths;
};

TEST_F(DamagedFilesTest, areFetchedAgain) {
    damageAndAsk(4 * std::size(damages));
}

using DamagedFilesSoakTest = DamagedFilesTest;

TEST_F(DamagedFilesSoakTest, fiveHundredOfThem) {
    damageAndAsk(500);
}

}  // namespace
}  // namespace zn
