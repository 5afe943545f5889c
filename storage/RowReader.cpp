#include "storage/RowReader.h"

#include <sqlite3.h>

#include <string_view>

#include "zarnic/platform/NSException.h"
#include "zarnic/platform/NSString.h"

namespace zn {
namespace {

[[noreturn]] void throwInvalid(const char* what) {
    throw NSException(NSInvalidArgumentException, std::string(what) + " is not valid UTF-8");
}

Value text(sqlite3_stmt* statement, int column) {
    const auto* start = reinterpret_cast<const char*>(sqlite3_column_text(statement, column));
    const std::string_view text(start == nullptr ? "" : start);
    if (!isValidUTF8(text))
        throwInvalid("a text of the database");
    return text;
}

/// The pointer is asked for before the size, since asking may convert.
Value blob(sqlite3_stmt* statement, int column) {
    const auto* start = static_cast<const std::byte*>(sqlite3_column_blob(statement, column));
    const auto size = static_cast<std::size_t>(sqlite3_column_bytes(statement, column));
    return Value::data({start, size});
}

}  // namespace

RowReader::RowReader(sqlite3_stmt* statement) : statement_(statement) {
    for (int column = 0; column < sqlite3_column_count(statement); ++column) {
        const char* name = sqlite3_column_name(statement, column);
        const bool valid = name != nullptr && isValidUTF8(name);
        places_.push_back(valid ? keys_.add(name) : KeyTable::notFound);
    }
    values_.resize(keys_.count());
}

Dictionary RowReader::row() {
    for (int column = 0; column < static_cast<int>(places_.size()); ++column)
        readColumn(column);
    return {keys_, values_};
}

void RowReader::readColumn(int column) {
    const auto read = [&]() -> Value {
        switch (sqlite3_column_type(statement_, column)) {
            case SQLITE_INTEGER:
                return sqlite3_column_int64(statement_, column);
            case SQLITE_FLOAT:
                return sqlite3_column_double(statement_, column);
            case SQLITE_TEXT:
                return text(statement_, column);
            case SQLITE_BLOB:
                return blob(statement_, column);
            default:
                return {};
        }
    };
    Value value = read();
    if (value.absent())
        return;
    const std::size_t place = places_[static_cast<std::size_t>(column)];
    if (place == KeyTable::notFound)
        throwInvalid("the name of a column");
    values_[place] = std::move(value);
}

}  // namespace zn
