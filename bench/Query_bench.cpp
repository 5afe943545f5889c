#include <SQLiteCpp/SQLiteCpp.h>
#include <benchmark/benchmark.h>
#include <sqlite3.h>

#include <QSqlDatabase>
#include <QSqlQuery>
#include <QSqlRecord>
#include <QVariantMap>

#include <map>
#include <variant>
#include <vector>

#include "bench/ItemStore.h"

namespace {

using bench::Totals;

const bench::ItemStore& store() {
    return bench::ItemStore::shared();
}

std::string_view textOf(sqlite3_stmt* statement, int column) {
    const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(statement, column));
    return {text, static_cast<std::size_t>(sqlite3_column_bytes(statement, column))};
}

/// Steps and reads every column, and keeps nothing.
Totals readWithC(sqlite3* connection) {
    Totals totals;
    sqlite3_stmt* statement = nullptr;
    sqlite3_prepare_v2(connection, bench::selectItems, -1, &statement, nullptr);
    while (sqlite3_step(statement) == SQLITE_ROW)
        totals.take(sqlite3_column_int64(statement, 0), textOf(statement, 1), textOf(statement, 2),
                    textOf(statement, 3), sqlite3_column_double(statement, 4),
                    sqlite3_column_int64(statement, 5));
    sqlite3_finalize(statement);
    return totals;
}

/// The same without knowing the types: each column is asked for its own.
Totals readByTypeWithC(sqlite3* connection) {
    Totals totals;
    sqlite3_stmt* statement = nullptr;
    sqlite3_prepare_v2(connection, bench::selectItems, -1, &statement, nullptr);
    while (sqlite3_step(statement) == SQLITE_ROW) {
        for (int column = 0; column < sqlite3_column_count(statement); ++column) {
            const int type = sqlite3_column_type(statement, column);
            if (type == SQLITE_INTEGER)
                totals.integers += sqlite3_column_int64(statement, column);
            else if (type == SQLITE_FLOAT)
                totals.reals += sqlite3_column_double(statement, column);
            else
                totals.characters += textOf(statement, column).size();
        }
    }
    sqlite3_finalize(statement);
    return totals;
}

using Field = std::variant<std::monostate, std::int64_t, double, std::string>;
using Fields = std::map<std::string, Field>;

Field fieldOf(const SQLite::Column& column) {
    if (column.isInteger())
        return column.getInt64();
    if (column.isFloat())
        return column.getDouble();
    return column.isText() ? Field(column.getString()) : Field();
}

std::vector<Fields> readWithSQLiteCpp(SQLite::Database& database) {
    std::vector<Fields> rows;
    SQLite::Statement statement(database, bench::selectItems);
    while (statement.executeStep()) {
        auto& row = rows.emplace_back();
        for (int column = 0; column < statement.getColumnCount(); ++column)
            row[statement.getColumnName(column)] = fieldOf(statement.getColumn(column));
    }
    return rows;
}

Totals totalsOf(const std::vector<Fields>& rows) {
    Totals totals;
    for (const auto& row : rows)
        totals.take(std::get<std::int64_t>(row.at("id")), std::get<std::string>(row.at("title")),
                    std::get<std::string>(row.at("author")), std::get<std::string>(row.at("body")),
                    std::get<double>(row.at("created")), std::get<std::int64_t>(row.at("pinned")));
    return totals;
}

QSqlDatabase& qtDatabase() {
    static QSqlDatabase database = [] {
        auto opened = QSqlDatabase::addDatabase("QSQLITE");
        opened.setDatabaseName(QString::fromStdString(store().path()));
        if (!opened.open())
            std::exit(1);
        return opened;
    }();
    return database;
}

QList<QVariantMap> readWithQt() {
    QList<QVariantMap> rows;
    QSqlQuery query(qtDatabase());
    query.setForwardOnly(true);
    query.exec(bench::selectItems);
    const QSqlRecord columns = query.record();
    while (query.next()) {
        QVariantMap row;
        for (int column = 0; column < columns.count(); ++column)
            row.insert(columns.fieldName(column), query.value(column));
        rows.append(row);
    }
    return rows;
}

Totals totalsOf(const QList<QVariantMap>& rows) {
    Totals totals;
    for (const auto& row : rows)
        totals.take(row["id"].toLongLong(), row["title"].toString().toStdString(),
                    row["author"].toString().toStdString(), row["body"].toString().toStdString(),
                    row["created"].toDouble(), row["pinned"].toLongLong());
    return totals;
}

void QueryRows_Zarnic(benchmark::State& state) {
    bench::requireSame("rows", store().totals(bench::selectItems), readWithC(store().connection()));
    for (auto _ : state)
        zn::ZNDataBaseHelper::QueryWithSQL(bench::selectItems);
}
BENCHMARK(QueryRows_Zarnic)->Unit(benchmark::kMillisecond);

void QueryRows_C(benchmark::State& state) {
    sqlite3* const connection = store().connection();
    for (auto _ : state)
        benchmark::DoNotOptimize(readWithC(connection));
}
BENCHMARK(QueryRows_C)->Unit(benchmark::kMillisecond);

void QueryRows_CByType(benchmark::State& state) {
    sqlite3* const connection = store().connection();
    for (auto _ : state)
        benchmark::DoNotOptimize(readByTypeWithC(connection));
}
BENCHMARK(QueryRows_CByType)->Unit(benchmark::kMillisecond);

void QueryRows_SQLiteCpp(benchmark::State& state) {
    SQLite::Database database(store().path());
    bench::requireSame("rows", totalsOf(readWithSQLiteCpp(database)),
                       readWithC(store().connection()));
    for (auto _ : state)
        readWithSQLiteCpp(database);
}
BENCHMARK(QueryRows_SQLiteCpp)->Unit(benchmark::kMillisecond);

void QueryRows_Qt(benchmark::State& state) {
    bench::requireSame("rows", totalsOf(readWithQt()), readWithC(store().connection()));
    for (auto _ : state)
        readWithQt();
}
BENCHMARK(QueryRows_Qt)->Unit(benchmark::kMillisecond);

}  // namespace
