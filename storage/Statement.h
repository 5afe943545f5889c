#pragma once

#include <span>
#include <string_view>

#include "zarnic/platform/foundation/Value.h"

struct sqlite3;
struct sqlite3_stmt;

namespace zn {

/// A statement from its preparation to its end, which finalises it also when an exception leaves.
class Statement {
public:
    Statement(sqlite3* connection, std::string_view sql);
    ~Statement();
    Statement(const Statement&) = delete;
    Statement& operator=(const Statement&) = delete;

    bool prepared() const { return prepared_; }
    /// Null, too, for a text that holds no statement.
    sqlite3_stmt* handle() const { return handle_; }

    /// Fills the places in order, up to the first absent value; kinds that cannot be stored take no
    /// place.
    void bind(std::span<const Value> parameters);

private:
    void bindItem(const Value& item);

    sqlite3_stmt* handle_ = nullptr;
    int place_ = 1;
    bool prepared_;
};

}  // namespace zn
