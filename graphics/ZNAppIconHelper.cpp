#include "zarnic/ZNAppIconHelper.h"

#include <map>
#include <string>

#include "zarnic/UIImage+ZNCategory.h"
#include "zarnic/ZNFileHelper.h"

namespace zn {

namespace {

struct Icon {
    const char* name;
    /// Of an edge, in pixels.
    int size;
};

constexpr Icon icons[] = {
    {"iPhone_20@2x", 40},  {"iPhone_20@3x", 60},       {"iPhone_29@2x", 58},  {"iPhone_29@3x", 87},
    {"iPhone_40@2x", 80},  {"iPhone_40@3x", 120},      {"iPhone_60@2x", 120}, {"iPhone_60@3x", 180},
    {"iPad_20@1x", 20},    {"iPad_20@2x", 40},         {"iPad_29@1x", 29},    {"iPad_29@2x", 58},
    {"iPad_40@1x", 40},    {"iPad_40@2x", 80},         {"iPad_76@1x", 76},    {"iPad_76@2x", 152},
    {"iPad_83.5@2x", 167}, {"AppStore_1024@1x", 1024},
};

Value jpegOf(const Ref<UIImage>& image, double edge) {
    constexpr float quality = 0.9F;
    const auto jpeg = UIImageJPEGRepresentation(zn_imageAutoSize(image, {edge, edge}), quality);
    return jpeg ? Value::data(*jpeg) : Value();
}

}  // namespace

void ZNAppIconHelper::ZN_GeneratorAppIconViaImage(const Ref<UIImage>& image) {
    constexpr std::uint64_t documents = 9;
    std::map<int, Value> jpegs;
    for (const auto& [name, size] : icons) {
        // Several names share a size, which is drawn once.
        const auto [jpeg, isNew] = jpegs.try_emplace(size);
        if (isNew)
            jpeg->second = jpegOf(image, size);
        const auto path = ZNFileHelper::GetFilePath(documents, std::string(name) + ".jpg");
        if (path)
            ZNFileHelper::WriteFileAtPath(*path, true, jpeg->second);
    }
}

}  // namespace zn
