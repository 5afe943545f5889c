#include "storage/RowReader.h"

#include <sqlite3.h>

#include <string_view>

#include "platform/foundation/objects/ValueBlocks.h"
#include "zarnic/platform/foundation/NSException.h"
#include "zarnic/platform/foundation/NSString.h"

namespace zn {
namespace {

[[noreturn]] void throwInvalid(const char* what) {
    throw NSException(NSInvalidArgumentException, std::string(what) + " is not valid UTF-8");
}

Value text(sqlite3_value* value, ValuePool& pool) {
    const auto* start = reinterpret_cast<const char*>(sqlite3_value_text(value));
    const std::string_view text(start == nullptr ? "" : start);
    if (!isValidUTF8(text))
        throwInvalid("a text of the database");
    return ValueBlocks::text(text, pool);
}

/// The pointer is asked for before the size, since asking may convert.
Value blob(sqlite3_value* value) {
    const auto* start = static_cast<const std::byte*>(sqlite3_value_blob(value));
    const auto size = static_cast<std::size_t>(sqlite3_value_bytes(value));
    return Value::data({start, size});
}

/// SQLite's own lock of a connection for a scope; recursive.
class ConnectionLock {
public:
    explicit ConnectionLock(sqlite3* connection) : mutex_(sqlite3_db_mutex(connection)) {
        sqlite3_mutex_enter(mutex_);
    }
    ~ConnectionLock() { sqlite3_mutex_leave(mutex_); }
    ConnectionLock(const ConnectionLock&) = delete;
    ConnectionLock& operator=(const ConnectionLock&) = delete;

private:
    sqlite3_mutex* mutex_;
};

}  // namespace

/// The lock of SQLite's own is held over a row, so that its values may be read without one each.
Value RowReader::next() {
    if (statement_ == nullptr)
        return {};
    const ConnectionLock lock(sqlite3_db_handle(statement_));
    if (sqlite3_step(statement_) != SQLITE_ROW)
        return {};
    // Not earlier: the first step prepares the statement anew when the tables have changed.
    if (places_.empty())
        readColumns();
    return readRow();
}

void RowReader::readColumns() {
    for (int column = 0; column < sqlite3_column_count(statement_); ++column) {
        const char* name = sqlite3_column_name(statement_, column);
        const bool valid = name != nullptr && isValidUTF8(name);
        places_.push_back(valid ? keys_.add(name) : KeyTable::notFound);
    }
    values_.resize(keys_.count());
}

Value RowReader::readRow() {
    for (std::size_t column = 0; column < places_.size(); ++column) {
        Value value = read(sqlite3_column_value(statement_, static_cast<int>(column)));
        if (value.absent())
            continue;
        if (places_[column] == KeyTable::notFound)
            throwInvalid("the name of a column");
        values_[places_[column]] = std::move(value);
    }
    return ValueBlocks::row(keys_, values_, pool_);
}

/// Absent for NULL.
Value RowReader::read(sqlite3_value* value) {
    switch (sqlite3_value_type(value)) {
        case SQLITE_INTEGER:
            return sqlite3_value_int64(value);
        case SQLITE_FLOAT:
            return sqlite3_value_double(value);
        case SQLITE_TEXT:
            return text(value, pool_);
        case SQLITE_BLOB:
            return blob(value);
        default:
            return {};
    }
}

}  // namespace zn
