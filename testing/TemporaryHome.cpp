#include "testing/TemporaryHome.h"

#include <cstdlib>
#include <filesystem>

namespace zn {
namespace {

constexpr const char* variable = "ZARNIC_HOME";

}  // namespace

TemporaryHome::TemporaryHome() {
    std::error_code error;
    std::string path =
        (std::filesystem::temp_directory_path(error) / "zarnic-stage-XXXXXX").string();
    if (std::getenv(variable) != nullptr || mkdtemp(path.data()) == nullptr)
        return;
    path_ = path;
    setenv(variable, path_.c_str(), 1);
}

TemporaryHome::~TemporaryHome() {
    if (path_.empty())
        return;
    unsetenv(variable);
    std::error_code error;
    std::filesystem::remove_all(path_, error);
}

}  // namespace zn
