#include <filesystem>
#include <random>

#include "tests/storage/DataBaseFixture.h"
#include "tests/storage/ForkedProcess.h"

namespace zn {
namespace {

/// Told before each step; a committed batch is told by its number.
constexpr std::int32_t step = 0;
constexpr int batchSize = 12;

/// What a process finds that opens the database after the other one was killed.
struct Found {
    std::int32_t intact = 0;
    std::int32_t last = 0;
    std::int32_t whole = 0;
    std::int32_t partial = 0;
};

class CrashTest : public DataBaseFixture {
protected:
    /// A small cache, so that pages are written to the file before the commit, too.
    static void openForCrash() {
        open("crash.db",
             {"CREATE TABLE IF NOT EXISTS entries(batch INTEGER, item INTEGER, text TEXT, "
              "UNIQUE(item, batch))"},
             {"ALTER TABLE entries ADD COLUMN added DEFAULT 1"});
        ZNDataBaseHelper::ExecuteWithSQL("PRAGMA cache_size = 4");
    }
    static std::int32_t count(const char* sql) {
        const auto rows = ZNDataBaseHelper::QueryWithSQL(sql);
        return rows && !rows->empty() ? (*rows)[0].dictionary()["n"].intValue() : -1;
    }

    /// Never ends by itself.
    static void commitBatches(const ForkedProcess::Tell& tell) {
        openForCrash();
        const std::string text(1500, 'x');
        for (std::int32_t batch = count("SELECT ifnull(max(batch), 0) AS n FROM entries") + 1;;
             ++batch) {
            ZNDataBaseHelper::BeginTransaction();
            for (int item = 0; item < batchSize; ++item) {
                tell(step);
                ZNDataBaseHelper::ExecuteWithSQL(
                    "INSERT INTO entries(batch, item, text) VALUES(?, ?, ?)", batch, item, text);
            }
            tell(step);
            ZNDataBaseHelper::CommitTransaction();
            tell(batch);
        }
    }
    static void look(const ForkedProcess::Tell& tell) {
        openForCrash();
        tell(answer("PRAGMA integrity_check") == "ok");
        tell(count("SELECT ifnull(max(batch), 0) AS n FROM entries"));
        const std::string sizes =
            "SELECT count(*) AS n FROM (SELECT 1 FROM entries GROUP BY batch "
            "HAVING count(*) ";
        tell(count((sizes + "= 12)").c_str()));
        tell(count((sizes + "<> 12)").c_str()));
        ZNDataBaseHelper::ExecuteWithSQL(
            "DELETE FROM entries WHERE batch < (SELECT max(batch) "
            "FROM entries) - 5");
    }

    /// The batch committed last before the process was killed, as far as it told.
    std::int32_t killAfter(int steps) {
        ForkedProcess writer(commitBatches);
        std::int32_t committed = 0;
        for (int i = 0; i < steps; ++i)
            committed = std::max(committed, writer.hear().value_or(step));
        writer.kill();
        while (const auto heard = writer.hear())
            committed = std::max(committed, *heard);
        return committed;
    }
    static Found lookAfterwards() {
        ForkedProcess reader(look);
        Found found;
        for (auto* number : {&found.intact, &found.last, &found.whole, &found.partial})
            *number = reader.hear().value_or(-1);
        reader.wait();
        return found;
    }

    void crash(int times) {
        std::mt19937 random(20180101);
        std::uniform_int_distribution<int> steps(1, 4 * (batchSize + 2));
        std::int32_t before = 0;
        int journals = 0;
        for (int time = 0; time < times; ++time) {
            const int after = steps(random);
            SCOPED_TRACE("kill " + std::to_string(time) + " after " + std::to_string(after));
            const std::int32_t committed = std::max(before, killAfter(after));
            journals += std::filesystem::exists(file("crash.db-journal")) ? 1 : 0;
            const Found found = lookAfterwards();
            EXPECT_EQ(found.intact, 1);
            EXPECT_EQ(found.partial, 0);
            EXPECT_GE(found.last, committed);
            EXPECT_LE(found.last, committed + 1);
            EXPECT_GE(found.whole, std::min(found.last, 6));
            ASSERT_FALSE(HasFailure());
            before = found.last;
        }
        EXPECT_GT(before, times / 2);
        EXPECT_GT(journals, times / 2) << "too few were killed within a transaction";
    }
};

TEST_F(CrashTest, AKilledProcessLosesNoCommittedBatchAndLeavesNoPartOfOne) {
    crash(50);
}

using CrashSoakTest = CrashTest;

TEST_F(CrashSoakTest, AThousandTimes) {
    crash(1000);
}

}  // namespace
}  // namespace zn
