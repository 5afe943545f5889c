#pragma once

#include "zarnic/platform/drawing/UIImage.h"

namespace zn {

/// The icons that an application for phones and tablets needs, from one picture.
class ZN_EXPORT ZNAppIconHelper : public NSObject {
    ZN_OBJECT(ZNAppIconHelper, NSObject)
public:
    /// Writes 18 JPEG files of quality 0.9 into the Documents folder, from `iPhone_20@2x.jpg` (40
    /// pixels) to `AppStore_1024@1x.jpg`, over files of the same names. A square picture of at
    /// least 1,024 points gives exactly these sizes; a smaller one is not enlarged, and one that is
    /// not square keeps its proportions, its shorter side being that long. What is clear becomes
    /// black. Nothing tells of an absent picture or of a file that cannot be written. Any thread.
    static void ZN_GeneratorAppIconViaImage(const Ref<UIImage>& image);
};

}  // namespace zn
