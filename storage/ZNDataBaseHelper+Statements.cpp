#include "storage/RowReader.h"
#include "storage/Statement.h"
#include "zarnic/ZNDataBaseHelper.h"

namespace zn {
namespace {

/// Hands each row to `take`; false when the statement cannot be prepared.
template <class Take>
bool runStatement(std::string_view sql, std::span<const Value> parameters, Take take) {
    Statement statement(ZNDataBaseHelper::GetDB(), sql);
    if (!statement.prepared())
        return false;
    statement.bind(parameters);
    RowReader reader(statement.handle());
    for (Value row = reader.next(); !row.absent(); row = reader.next())
        take(std::move(row));
    return true;
}

}  // namespace

std::optional<Array> ZNDataBaseHelper::QueryWithSQL(std::string_view sql,
                                                    std::span<const Value> parameters) {
    Array rows;
    if (!runStatement(sql, parameters, [&rows](Value row) { rows.add(std::move(row)); }))
        return std::nullopt;
    return rows;
}

std::optional<Array> ZNDataBaseHelper::QueryWithSQL(std::string_view sql) {
    return QueryWithSQL(sql, std::span<const Value>());
}

/// The rows are made here as well, so that an invalid text raises here as well.
int ZNDataBaseHelper::ExecuteWithSQL(std::string_view sql, std::span<const Value> parameters) {
    return runStatement(sql, parameters, [](const Value&) {}) ? 0 : 1;
}

int ZNDataBaseHelper::ExecuteWithSQL(std::string_view sql) {
    return ExecuteWithSQL(sql, std::span<const Value>());
}

}  // namespace zn
