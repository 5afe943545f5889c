#include "zarnic/platform/uikit/UIKeyInput.h"

namespace zn {

UIKeyInput::~UIKeyInput() = default;

}  // namespace zn
