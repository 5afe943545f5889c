#pragma once

#include <string>

namespace zn {

/// A folder of its own for what the application keeps, as long as the object lives; nothing when
/// `ZARNIC_HOME` says already where that is.
class TemporaryHome {
public:
    TemporaryHome();
    ~TemporaryHome();
    TemporaryHome(const TemporaryHome&) = delete;
    TemporaryHome& operator=(const TemporaryHome&) = delete;

private:
    std::string path_;
};

}  // namespace zn
