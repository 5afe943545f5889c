#pragma once

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>

/// A new folder that goes, with what is in it, when the object does.
class TemporaryFolder {
public:
    TemporaryFolder() {
        std::string name = (std::filesystem::temp_directory_path() / "zarnic-XXXXXX").string();
        if (mkdtemp(name.data()) == nullptr)
            std::abort();
        path_ = name;
    }
    ~TemporaryFolder() {
        std::error_code error;
        std::filesystem::remove_all(path_, error);
    }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    std::string path(std::string_view name = {}) const {
        return name.empty() ? path_ : path_ + "/" + std::string(name);
    }
    /// Writes a file and the folders on its way; returns its path.
    std::string write(std::string_view name, std::string_view contents) const {
        std::filesystem::create_directories(std::filesystem::path(path(name)).parent_path());
        std::ofstream(path(name), std::ios::binary) << contents;
        return path(name);
    }

private:
    std::string path_;
};
