#pragma once

#include <vector>

#include "zarnic/platform/Value.h"

struct sqlite3_stmt;

namespace zn {

/// Makes dictionaries of the rows of one statement, which share one table of keys. Make it when the
/// statement has its first row: before, its columns may still change.
class RowReader {
public:
    explicit RowReader(sqlite3_stmt* statement);

    /// The row at which the statement stands. Throws `NSInvalidArgumentException` for a text or a
    /// name that is not UTF-8.
    Dictionary row();

private:
    void readColumn(int column);

    sqlite3_stmt* statement_;
    KeyTable keys_;
    /// Of each column its place among the keys; `KeyTable::notFound` for a name that is not UTF-8.
    std::vector<std::size_t> places_;
    std::vector<Value> values_;
};

}  // namespace zn
