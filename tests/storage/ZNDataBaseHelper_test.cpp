#include "zarnic/ZNDataBaseHelper.h"

#include <gmock/gmock.h>

#include <filesystem>
#include <fstream>
#include <sstream>

#include "tests/storage/DataBaseFixture.h"

namespace zn {
namespace {

using ZNDataBaseHelperTest = DataBaseFixture;
namespace fs = std::filesystem;

/// How many of the process's descriptors are open on the file.
int descriptorsOn(const std::string& path) {
    int count = 0;
    for (const auto& entry : fs::directory_iterator("/proc/self/fd")) {
        std::error_code error;
        count += fs::read_symlink(entry.path(), error) == path ? 1 : 0;
    }
    return count;
}

std::string contents(const std::string& path) {
    std::ostringstream text;
    text << std::ifstream(path, std::ios::binary).rdbuf();
    return text.str();
}

TEST_F(ZNDataBaseHelperTest, BeforeTheFirstOpenEverythingIsRefused) {
    EXPECT_EQ(ZNDataBaseHelper::GetDB(), nullptr);
    ZNDataBaseHelper::BeginTransaction();
    ZNDataBaseHelper::HelperCreateTable({"CREATE TABLE t(a)"}, {"ALTER TABLE t ADD b"});
    ZNDataBaseHelper::CommitTransaction();
    EXPECT_EQ(ZNDataBaseHelper::ExecuteWithSQL("SELECT 1"), 1);
    EXPECT_EQ(ZNDataBaseHelper::ExecuteWithSQL("SELECT ?", 1), 1);
    EXPECT_FALSE(ZNDataBaseHelper::QueryWithSQL("SELECT 1"));
}

TEST_F(ZNDataBaseHelperTest, OpeningTheSameFileAgainRunsNothing) {
    const Statements tables{"CREATE TABLE IF NOT EXISTS opened(a)", "INSERT INTO opened VALUES(1)"};
    ZNDataBaseHelper::InitDataBaseHelperFileName("a/b", "x.db", tables, {});
    sqlite3* const handle = ZNDataBaseHelper::GetDB();
    ASSERT_NE(handle, nullptr);
    EXPECT_TRUE(fs::is_regular_file(home.path("Documents/a/b/x.db")));
    for (const auto* same : {"a/b", "a//b/", "/a/b"})
        ZNDataBaseHelper::InitDataBaseHelperFileName(same, "x.db", tables, tables);
    EXPECT_EQ(ZNDataBaseHelper::GetDB(), handle);
    EXPECT_EQ(answer("SELECT count(*) FROM opened"), "1");
}

TEST_F(ZNDataBaseHelperTest, OpeningAnotherFileClosesTheFirst) {
    const Statements tables{"CREATE TABLE IF NOT EXISTS opened(a)", "INSERT INTO opened VALUES(1)"};
    open("first.db", tables);
    ZNDataBaseHelper::BeginTransaction();
    ZNDataBaseHelper::ExecuteWithSQL("INSERT INTO opened VALUES('not committed')");
    open("second.db");
    EXPECT_EQ(descriptorsOn(file("first.db")), 0);
    EXPECT_EQ(descriptorsOn(file("second.db")), 1);
    EXPECT_FALSE(ZNDataBaseHelper::QueryWithSQL("SELECT * FROM opened"));
    open("first.db", tables);
    EXPECT_EQ(answer("SELECT count(*) FROM opened"), "2");
}

TEST_F(ZNDataBaseHelperTest, StatementsThatFailArePassedOver) {
    open(
        "notes.db",
        {"CREATE TABLE t(a UNIQUE)", "CREATE TABLE t(b)", "no statement", "INSERT INTO t VALUES(1)",
         "INSERT INTO t VALUES(1)", "CREATE TABLE u(a)"},
        {"ALTER TABLE t ADD COLUMN a", "ALTER TABLE t ADD COLUMN b", "ALTER TABLE u ADD COLUMN b"});
    EXPECT_EQ(answer("SELECT count(*) FROM t"), "1");
    EXPECT_EQ(ZNDataBaseHelper::ExecuteWithSQL("SELECT a, b FROM t"), 0);
    EXPECT_EQ(ZNDataBaseHelper::ExecuteWithSQL("SELECT a, b FROM u"), 0);
}

/// The schema runs in one transaction, the alterations each in their own.
TEST_F(ZNDataBaseHelperTest, OnlyTheTablesAreMadeInATransaction) {
    open("notes.db", {"CREATE TABLE t(a)", "ROLLBACK", "CREATE TABLE u(a)"},
         {"CREATE TABLE v(a)", "ROLLBACK"});
    EXPECT_EQ(ZNDataBaseHelper::ExecuteWithSQL("SELECT * FROM t"), 1);
    EXPECT_EQ(ZNDataBaseHelper::ExecuteWithSQL("SELECT * FROM u"), 0);
    EXPECT_EQ(ZNDataBaseHelper::ExecuteWithSQL("SELECT * FROM v"), 0);
}

TEST_F(ZNDataBaseHelperTest, TransactionsCommitOrRollBackAsAWhole) {
    open("notes.db", {"CREATE TABLE t(a)"});
    ZNDataBaseHelper::CommitTransaction();
    ZNDataBaseHelper::BeginTransaction();
    ZNDataBaseHelper::ExecuteWithSQL("INSERT INTO t VALUES(1)");
    ZNDataBaseHelper::BeginTransaction();
    ZNDataBaseHelper::ExecuteWithSQL("INSERT INTO t VALUES(2)");
    ZNDataBaseHelper::CommitTransaction();
    ZNDataBaseHelper::BeginTransaction();
    ZNDataBaseHelper::ExecuteWithSQL("INSERT INTO t VALUES(3)");
    ZNDataBaseHelper::ExecuteWithSQL("ROLLBACK");
    EXPECT_EQ(answer("SELECT group_concat(a) FROM t"), "1,2");
}

TEST_F(ZNDataBaseHelperTest, AFileThatCannotBeOpenedLeavesNoDatabaseOpen) {
    home.write("Documents/file", "in the way");
    fs::create_directories(home.path("Documents/store/folder.db"));
    for (const auto& [folder, name] : {std::pair("file", "x.db"),
                                       {"file/below", "x.db"},
                                       {"store", "folder.db"},
                                       {"store", ""}}) {
        open();
        ASSERT_NE(ZNDataBaseHelper::GetDB(), nullptr);
        ZNDataBaseHelper::InitDataBaseHelperFileName(folder, name, {"CREATE TABLE t(a)"}, {});
        EXPECT_EQ(ZNDataBaseHelper::GetDB(), nullptr) << folder << " " << name;
        EXPECT_EQ(ZNDataBaseHelper::ExecuteWithSQL("SELECT 1"), 1);
    }
    EXPECT_EQ(contents(home.path("Documents/file")), "in the way");
}

TEST_F(ZNDataBaseHelperTest, AfterAFailureTheSameFileIsTriedAgain) {
    fs::create_directories(file("notes.db"));
    open("notes.db", {"CREATE TABLE t(a)"});
    EXPECT_EQ(ZNDataBaseHelper::GetDB(), nullptr);
    fs::remove(file("notes.db"));
    open("notes.db", {"CREATE TABLE t(a)"});
    EXPECT_EQ(ZNDataBaseHelper::ExecuteWithSQL("SELECT * FROM t"), 0);
}

/// SQLite looks into a file when the first statement needs it.
TEST_F(ZNDataBaseHelperTest, AFileThatIsNoDatabaseIsLeftAsItIs) {
    const std::string text(5000, 'x');
    home.write("Documents/store/notes.db", text);
    open("notes.db", {"CREATE TABLE t(a)"});
    EXPECT_NE(ZNDataBaseHelper::GetDB(), nullptr);
    EXPECT_EQ(ZNDataBaseHelper::ExecuteWithSQL("CREATE TABLE t(a)"), 1);
    EXPECT_EQ(contents(file("notes.db")), text);
}

}  // namespace
}  // namespace zn
