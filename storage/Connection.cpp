#include "storage/Connection.h"

#include <sqlite3.h>

#include "zarnic/ZNDataBaseHelper.h"

namespace zn {

Connection& Connection::shared() {
    // Never destroyed: a program may end while a thread is at work on it.
    static auto& connection = *new Connection;
    return connection;
}

bool Connection::reopen(const std::string& path) {
    close();
    sqlite3* opened = nullptr;
    if (sqlite3_open(path.c_str(), &opened) != SQLITE_OK) {
        sqlite3_close(opened);
        return false;
    }
    sqlite3_create_collation(opened, "pinyin", SQLITE_UTF8, nullptr, pinyin_cmp);
    handle_.store(opened, std::memory_order_release);
    path_ = path;
    open_ = true;
    return true;
}

void Connection::close() {
    path_.clear();
    open_ = false;
    if (sqlite3* handle = handle_.exchange(nullptr))
        sqlite3_close(handle);
}

void Connection::run(const char* statement) const {
    // Stays null when there is no connection.
    char* message = nullptr;
    sqlite3_exec(handle(), statement, nullptr, nullptr, &message);
    sqlite3_free(message);
}

}  // namespace zn
