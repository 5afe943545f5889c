#include "zarnic/platform/UIKeyInput.h"

namespace zn {

UIKeyInput::~UIKeyInput() = default;

}  // namespace zn
