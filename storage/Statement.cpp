#include "storage/Statement.h"

#include <sqlite3.h>

#include <string>

namespace zn {
namespace {

/// As of a text that ends at its first zero byte.
std::string_view upToZero(std::string_view text) {
    return text.substr(0, text.find('\0'));
}

/// SQLite takes a null pointer for NULL, whatever the size.
const void* notNull(std::span<const std::byte> bytes) {
    return bytes.empty() ? "" : static_cast<const void*>(bytes.data());
}

}  // namespace

Statement::Statement(sqlite3* connection, std::string_view sql) {
    // An absent text stays absent: SQLite refuses it, but takes an empty one.
    const std::string text(sql);
    const char* start = sql.data() == nullptr ? nullptr : text.c_str();
    prepared_ = sqlite3_prepare_v2(connection, start, -1, &handle_, nullptr) == SQLITE_OK;
}

Statement::~Statement() {
    sqlite3_finalize(handle_);
}

void Statement::bind(std::span<const Value> parameters) {
    for (const Value& each : parameters) {
        if (each.absent())
            return;
        if (each.isArray()) {
            for (const Value& item : each.array())
                bindItem(item);
        } else {
            bindItem(each);
        }
    }
}

/// What does not fit is dropped: results are not examined, on purpose.
void Statement::bindItem(const Value& item) {
    switch (item.kind()) {
        case Value::Kind::Float:
        case Value::Kind::Double:
            sqlite3_bind_double(handle_, place_++, item.doubleValue());
            break;
        case Value::Kind::Integer:
        case Value::Kind::Unsigned:
        case Value::Kind::Boolean:
        case Value::Kind::Character:
            sqlite3_bind_int64(handle_, place_++, item.longLongValue());
            break;
        case Value::Kind::String: {
            const std::string_view text = upToZero(item.string());
            sqlite3_bind_text64(handle_, place_++, text.data(), text.size(), SQLITE_TRANSIENT,
                                SQLITE_UTF8);
            break;
        }
        case Value::Kind::Data:
            sqlite3_bind_blob64(handle_, place_++, notNull(item.bytes()), item.bytes().size(),
                                SQLITE_TRANSIENT);
            break;
        default:
            break;
    }
}

}  // namespace zn
