#pragma once

#include <stdlib.h>

#include <filesystem>
#include <string>

#include "bench/Items.h"
#include "zarnic/ZNDataBaseHelper.h"

namespace bench {

/// The library's database in a home of its own: the filled table `items` and the empty one
/// `inserted`.
class ItemStore {
public:
    /// The same for the whole program, since the library has one database open.
    static const ItemStore& shared() {
        static const ItemStore store;
        return store;
    }
    ~ItemStore() { std::filesystem::remove_all(home_); }
    ItemStore(const ItemStore&) = delete;
    ItemStore& operator=(const ItemStore&) = delete;

    std::string path() const { return home_ + "/Documents/bench/items.db"; }
    sqlite3* connection() const { return zn::ZNDataBaseHelper::GetDB(); }

    static void insert(const Item& item) {
        zn::ZNDataBaseHelper::ExecuteWithSQL(insertItem, item.id, item.title, item.author,
                                             item.body, item.created, item.pinned);
    }
    static Totals totals(const char* sql) {
        Totals totals;
        const auto rows = zn::ZNDataBaseHelper::QueryWithSQL(sql);
        for (const auto& each : *rows) {
            const auto row = each.dictionary();
            totals.take(row["id"].longLongValue(), row["title"].string(), row["author"].string(),
                        row["body"].string(), row["created"].doubleValue(),
                        row["pinned"].longLongValue());
        }
        return totals;
    }

private:
    ItemStore() {
        std::string name = (std::filesystem::temp_directory_path() / "zarnic-XXXXXX").string();
        home_ = mkdtemp(name.data());
        setenv("ZARNIC_HOME", home_.c_str(), 1);
        const std::string columns =
            "(id INTEGER PRIMARY KEY, title TEXT, author TEXT, body TEXT, created REAL, "
            "pinned INTEGER)";
        zn::ZNDataBaseHelper::InitDataBaseHelperFileName(
            "bench", "items.db",
            {"CREATE TABLE inserted" + columns, "CREATE TABLE items" + columns}, {});
        fill();
    }
    static void fill() {
        zn::ZNDataBaseHelper::BeginTransaction();
        for (int index = 0; index < itemCount; ++index)
            insert(Item(index));
        zn::ZNDataBaseHelper::ExecuteWithSQL("INSERT INTO items SELECT * FROM inserted");
        zn::ZNDataBaseHelper::ExecuteWithSQL("DELETE FROM inserted");
        zn::ZNDataBaseHelper::CommitTransaction();
    }

    std::string home_;
};

}  // namespace bench
