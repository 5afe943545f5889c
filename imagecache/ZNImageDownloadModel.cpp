#include "zarnic/ZNImageDownloadModel.h"

namespace zn {

ZNImageDownloadModel::ZNImageDownloadModel() = default;

ZNImageDownloadModel::~ZNImageDownloadModel() = default;

}  // namespace zn
