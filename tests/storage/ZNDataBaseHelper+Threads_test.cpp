#include <thread>
#include <vector>

#include "tests/storage/DataBaseFixture.h"

namespace zn {
namespace {

using ThreadsTest = DataBaseFixture;

constexpr int threadCount = 16;

void inThreads(int count, const std::function<void(int)>& work) {
    std::vector<std::thread> threads;
    for (int index = 0; index < count; ++index)
        threads.emplace_back(work, index);
    for (auto& thread : threads)
        thread.join();
}

int number(std::string_view sql) {
    return (*ZNDataBaseHelper::QueryWithSQL(sql))[0].dictionary()["n"].intValue();
}

/// 1,000 statements, half of which read what the other half writes.
void countTo500() {
    for (int round = 0; round < 20; ++round) {
        const ObjectLock outer(ZNDataBaseHelper::GetLock());
        ZNDataBaseHelper::BeginTransaction();
        for (int step = 0; step < 25; ++step) {
            const ObjectLock inner(ZNDataBaseHelper::GetLock());
            const int seen = number("SELECT n FROM counter");
            ZNDataBaseHelper::ExecuteWithSQL("UPDATE counter SET n = ?", seen + 1);
        }
        ZNDataBaseHelper::CommitTransaction();
    }
}

TEST_F(ThreadsTest, UnderTheLockNoUpdateIsLost) {
    open("notes.db", {"CREATE TABLE counter(n)", "INSERT INTO counter VALUES(0)"});
    ZNDataBaseHelper::ExecuteWithSQL("PRAGMA synchronous = OFF");
    inThreads(threadCount, [](int) { countTo500(); });
    EXPECT_EQ(number("SELECT n FROM counter"), threadCount * 500);
}

TEST_F(ThreadsTest, SingleStatementsNeedNoLock) {
    open("notes.db", {"CREATE TABLE entries(thread, item)"});
    ZNDataBaseHelper::ExecuteWithSQL("PRAGMA synchronous = OFF");
    inThreads(4, [](int thread) {
        for (int item = 0; item < 50; ++item) {
            ZNDataBaseHelper::ExecuteWithSQL("INSERT INTO entries VALUES(?, ?)", thread, item);
            ZNDataBaseHelper::QueryWithSQL("SELECT * FROM entries WHERE thread = ?", thread);
        }
    });
    EXPECT_EQ(number("SELECT count(DISTINCT thread * 100 + item) AS n FROM entries"), 200);
}

/// A method that took the lock itself would wait for ever here.
TEST_F(ThreadsTest, TheLockIsOneAndNoMethodTakesIt) {
    const ObjectLock held(ZNDataBaseHelper::GetLock());
    std::thread([] {
        open("notes.db", {"CREATE TABLE t(a)"}, {"ALTER TABLE t ADD COLUMN b"});
        ZNDataBaseHelper::BeginTransaction();
        ZNDataBaseHelper::ExecuteWithSQL("INSERT INTO t VALUES(1, 2)");
        ZNDataBaseHelper::CommitTransaction();
    }).join();
    EXPECT_EQ(answer("SELECT b FROM t"), "2");
    EXPECT_EQ(ZNDataBaseHelper::GetLock(), ZNDataBaseHelper::GetLock());
}

}  // namespace
}  // namespace zn
