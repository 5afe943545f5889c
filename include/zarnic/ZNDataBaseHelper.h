#pragma once

#include <concepts>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "zarnic/platform/foundation/Class.h"
#include "zarnic/platform/foundation/Value.h"

struct sqlite3;

extern "C" {

/// A collation callback of SQLite, registered on the database as "pinyin". It compares bytes as
/// signed numbers, so all that is not ASCII comes before all that is, up to the shorter length
/// only. It returns 1 when the first text is greater and 0 when it is less or equal, never a
/// negative number. That is no order: sort and index with it only where any order will do.
ZN_EXPORT int pinyin_cmp(void* unused, int firstLength, const void* first, int secondLength,
                         const void* second);
}

namespace zn {

/// The application's one SQLite database, `Documents/FILENAME/DBNAME`. Statements are prepared, run
/// and finalised within their call. Any thread, but no method locks: threads that share the
/// database hold an `ObjectLock` on `GetLock()` around their work.
class ZN_EXPORT ZNDataBaseHelper final : public NSObject {
    ZN_OBJECT(ZNDataBaseHelper, NSObject)
public:
    ZNDataBaseHelper() = delete;

    /// Opens the database and makes its folders, closing the one open before. When it is new to
    /// this process, runs `HelperCreateTable`, at every start of the program: the statements must
    /// bear repetition. Does nothing when the same file is open already. When it cannot be opened,
    /// no database is open afterwards and the next call tries again.
    static void InitDataBaseHelperFileName(std::string_view fileName, std::string_view dbName,
                                           const std::vector<std::string>& tableStrings,
                                           const std::vector<std::string>& alterTableColumns);
    /// Runs the first statements in one transaction, then `AlterTableColumn`. One that fails is
    /// passed over.
    static void HelperCreateTable(const std::vector<std::string>& tableStrings,
                                  const std::vector<std::string>& alterTableColumns);
    /// Runs each statement by itself. One that fails is passed over, as the addition of a column
    /// does that is there already: how a database of an older version is brought up to date.
    static void AlterTableColumn(const std::vector<std::string>& alterTableColumns);

    /// `BEGIN` and `COMMIT`. Their failure is ignored, a transaction within another one included.
    /// There is no rollback call: `ExecuteWithSQL("ROLLBACK")`.
    static void BeginTransaction();
    static void CommitTransaction();

    /// The rows, each a mutable dictionary by column name; nothing when the statement cannot be
    /// prepared or no database is open. Integers are 64 bits wide, reals doubles, texts end at
    /// their first zero byte; NULL leaves its key out. Of columns with the same name the last that
    /// is not NULL counts. An error while running ends the rows and is not told. Of several
    /// statements only the first is run. Throws `NSInvalidArgumentException` for a text or a
    /// column name that is not UTF-8.
    ///
    /// Parameters take the places of the question marks, by kind: float and double as a real, other
    /// numbers as an integer, text up to its first zero byte, data as a blob, an array as its
    /// items, but not the items of arrays in it. Every other kind is skipped and takes no place;
    /// the first absent one ends the list. Places left over are NULL.
    static std::optional<Array> QueryWithSQL(std::string_view sql,
                                             std::span<const Value> parameters);
    static std::optional<Array> QueryWithSQL(std::string_view sql);
    template <std::convertible_to<Value>... T>
    static std::optional<Array> QueryWithSQL(std::string_view sql, const Value& first,
                                             const T&... further) {
        const Value parameters[]{first, Value(further)...};
        return QueryWithSQL(sql, std::span<const Value>(parameters));
    }

    /// Does the same without the rows: 0 when the statement was prepared and run, whatever came of
    /// it, 1 when it could not be prepared or no database is open.
    static int ExecuteWithSQL(std::string_view sql, std::span<const Value> parameters);
    static int ExecuteWithSQL(std::string_view sql);
    template <std::convertible_to<Value>... T>
    static int ExecuteWithSQL(std::string_view sql, const Value& first, const T&... further) {
        const Value parameters[]{first, Value(further)...};
        return ExecuteWithSQL(sql, std::span<const Value>(parameters));
    }

    /// The open connection, or null. It stays the helper's and goes when another one is opened.
    static sqlite3* GetDB();
    /// The one object whose recursive lock guards the database between threads that agree on it
    /// (`ObjectLock`); no method takes it.
    static Ref<NSObject> GetLock();
};

}  // namespace zn
