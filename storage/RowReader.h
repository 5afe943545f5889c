#pragma once

#include <vector>

#include "platform/foundation/objects/ValuePool.h"
#include "zarnic/platform/foundation/Value.h"

struct sqlite3_stmt;
struct sqlite3_value;

namespace zn {

/// Runs a statement and makes dictionaries of its rows, which share one table of keys.
class RowReader {
public:
    /// The statement, which may be null, must outlive the reader.
    explicit RowReader(sqlite3_stmt* statement) : statement_(statement) {}

    /// The next row, a mutable dictionary; absent at the end or at an error. Throws
    /// `NSInvalidArgumentException` for a text or the name of a column that is not UTF-8.
    Value next();

private:
    void readColumns();
    Value readRow();
    Value read(sqlite3_value* value);

    sqlite3_stmt* statement_;
    KeyTable keys_;
    /// Of each column its place among the keys; `KeyTable::notFound` for a name that is not UTF-8.
    std::vector<std::size_t> places_;
    std::vector<Value> values_;
    ValuePool pool_;
};

}  // namespace zn
