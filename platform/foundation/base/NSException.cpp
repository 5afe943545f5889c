#include "zarnic/platform/foundation/NSException.h"

namespace zn {

NSException::NSException(std::string name, std::string reason)
    : name_(std::move(name)), reason_(std::move(reason)), what_(name_ + ": " + reason_) {}

NSException::~NSException() = default;

}  // namespace zn
