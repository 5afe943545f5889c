#pragma once

#include <atomic>
#include <string>

struct sqlite3;

namespace zn {

/// The process's one connection, closed or open on a file.
class Connection {
public:
    static Connection& shared();

    /// Null while it is closed.
    sqlite3* handle() const noexcept { return handle_.load(std::memory_order_acquire); }
    bool isOpenOn(const std::string& path) const { return open_ && path_ == path; }

    /// Opens the file, which is made if it is missing, in place of the one open before, and
    /// registers the collation. Returns whether it is open.
    bool reopen(const std::string& path);
    /// Runs a statement without rows; its failure is ignored.
    void run(const char* statement) const;

private:
    Connection() = default;
    void close();

    std::atomic<sqlite3*> handle_ = nullptr;
    std::string path_;
    bool open_ = false;
};

}  // namespace zn
