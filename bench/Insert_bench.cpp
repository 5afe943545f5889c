#include <benchmark/benchmark.h>
#include <sqlite3.h>

#include "bench/ItemStore.h"

namespace {

/// What the library does, in C: each statement is prepared, bound, run and finalised.
void insertWithC(sqlite3* connection, const bench::Item& item) {
    sqlite3_stmt* statement = nullptr;
    sqlite3_prepare_v2(connection, bench::insertItem, -1, &statement, nullptr);
    sqlite3_bind_int64(statement, 1, item.id);
    sqlite3_bind_text(statement, 2, item.title.c_str(), -1, SQLITE_TRANSIENT);
    sqlite3_bind_text(statement, 3, item.author.c_str(), -1, SQLITE_TRANSIENT);
    sqlite3_bind_text(statement, 4, item.body.c_str(), -1, SQLITE_TRANSIENT);
    sqlite3_bind_double(statement, 5, item.created);
    sqlite3_bind_int64(statement, 6, item.pinned);
    sqlite3_step(statement);
    sqlite3_finalize(statement);
}

bench::Totals intended() {
    bench::Totals totals;
    for (int index = 0; index < bench::itemCount; ++index) {
        const bench::Item item(index);
        totals.take(item.id, item.title, item.author, item.body, item.created, item.pinned);
    }
    return totals;
}

template <class Insert>
void insertAll(benchmark::State& state, Insert insert) {
    std::vector<bench::Item> items;
    for (int index = 0; index < bench::itemCount; ++index)
        items.emplace_back(index);
    for (auto _ : state) {
        state.PauseTiming();
        zn::ZNDataBaseHelper::ExecuteWithSQL("DELETE FROM inserted");
        state.ResumeTiming();
        zn::ZNDataBaseHelper::BeginTransaction();
        for (const auto& item : items)
            insert(item);
        zn::ZNDataBaseHelper::CommitTransaction();
    }
    bench::requireSame("inserts", bench::ItemStore::totals(bench::selectInserted), intended());
}

void InsertRows_Zarnic(benchmark::State& state) {
    bench::ItemStore::shared();
    insertAll(state, bench::ItemStore::insert);
}
BENCHMARK(InsertRows_Zarnic)->Unit(benchmark::kMillisecond);

void InsertRows_C(benchmark::State& state) {
    sqlite3* const connection = bench::ItemStore::shared().connection();
    insertAll(state, [=](const bench::Item& item) { insertWithC(connection, item); });
}
BENCHMARK(InsertRows_C)->Unit(benchmark::kMillisecond);

}  // namespace
