#pragma once

#include <mutex>

#include "platform/foundation/bundle/BundleTables.h"
#include "zarnic/platform/foundation/NSBundle.h"

namespace zn {

struct NSBundle::State {
    std::once_flag infoRead;
    Dictionary info;
    BundleTables tables;
};

}  // namespace zn
