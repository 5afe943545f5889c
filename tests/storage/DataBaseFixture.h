#pragma once

#include <gmock/gmock.h>

#include <cstdlib>
#include <string>
#include <string_view>
#include <vector>

#include "tests/support/TemporaryFolder.h"
#include "zarnic/ZNDataBaseHelper.h"

namespace zn {

/// A home of its own for each test, and no database open.
class DataBaseFixture : public testing::Test {
protected:
    DataBaseFixture() { setenv("ZARNIC_HOME", home.path().c_str(), 1); }

    using Statements = std::vector<std::string>;

    static void open(std::string_view name = "notes.db", const Statements& tables = {},
                     const Statements& alterations = {}) {
        ZNDataBaseHelper::InitDataBaseHelperFileName("store", name, tables, alterations);
    }
    std::string file(std::string_view name) const {
        return home.path("Documents/store/" + std::string(name));
    }
    /// The first column of the first row as text; "nothing" without one.
    static std::string answer(std::string_view sql) {
        const auto rows = ZNDataBaseHelper::QueryWithSQL(sql);
        if (!rows || rows->empty() || (*rows)[0].dictionary().empty())
            return "nothing";
        return (*(*rows)[0].dictionary().begin()).second.stringValue();
    }

    TemporaryFolder home;
};

}  // namespace zn
