#include <signal.h>
#include <sys/mount.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>

#include "tests/storage/DataBaseFixture.h"

namespace zn {
namespace {

/// Permissions bind only those who are not root.
class OrdinaryUser {
public:
    OrdinaryUser() {
        if (geteuid() == 0 && seteuid(nobody) != 0)
            std::abort();
    }
    ~OrdinaryUser() {
        if (getuid() == 0 && seteuid(0) != 0)
            std::abort();
    }
    OrdinaryUser(const OrdinaryUser&) = delete;
    OrdinaryUser& operator=(const OrdinaryUser&) = delete;

private:
    static constexpr uid_t nobody = 65534;
};

class DiskTest : public DataBaseFixture {
protected:
    static constexpr const char* table = "CREATE TABLE IF NOT EXISTS t(a)";
    static constexpr const char* entry = "INSERT INTO t VALUES('x')";

    void makeReadOnly() const {
        for (const auto* name : {"Documents/store", "Documents"}) {
            if (std::filesystem::exists(home.path(name)))
                chmod(home.path(name).c_str(), 0555);
        }
        chmod(home.path().c_str(), 0555);
    }
    ~DiskTest() override {
        chmod(home.path().c_str(), 0755);
        chmod(home.path("Documents").c_str(), 0755);
        chmod(home.path("Documents/store").c_str(), 0755);
    }
};

TEST_F(DiskTest, InAReadOnlyHomeNothingIsOpened) {
    makeReadOnly();
    const OrdinaryUser user;
    open("notes.db", {table});
    EXPECT_EQ(ZNDataBaseHelper::GetDB(), nullptr);
    EXPECT_EQ(ZNDataBaseHelper::ExecuteWithSQL(entry), 1);
}

TEST_F(DiskTest, ADatabaseInAReadOnlyHomeCanStillBeRead) {
    open("notes.db", {table, entry});
    open("other.db");
    chmod(file("notes.db").c_str(), 0444);
    makeReadOnly();
    const OrdinaryUser user;
    open("notes.db", {table, entry, "CREATE TABLE u(a)"}, {"ALTER TABLE t ADD COLUMN b"});
    EXPECT_EQ(ZNDataBaseHelper::ExecuteWithSQL(entry), 0);
    EXPECT_EQ(answer("SELECT count(*) FROM t"), "1");
    EXPECT_FALSE(ZNDataBaseHelper::QueryWithSQL("SELECT * FROM u"));
}

TEST_F(DiskTest, AHomeThatAppearsLaterIsUsedThen) {
    home.write("volume", "not mounted yet");
    setenv("ZARNIC_HOME", home.path("volume/home").c_str(), 1);
    open("notes.db", {table});
    EXPECT_EQ(ZNDataBaseHelper::GetDB(), nullptr);
    std::filesystem::remove(home.path("volume"));
    open("notes.db", {table, entry});
    EXPECT_EQ(answer("SELECT count(*) FROM t"), "1");
}

/// A home with little room: a small volume of its own where that may be mounted, else a bound on
/// the size of files.
class FullDiskTest : public DiskTest {
protected:
    FullDiskTest() {
        mounted_ = mount("tmpfs", home.path().c_str(), "tmpfs", 0, "size=256k") == 0;
        if (mounted_)
            return;
        signal(SIGXFSZ, SIG_IGN);
        setFileSizeLimit(256 * 1024);
    }
    ~FullDiskTest() override {
        open("elsewhere");
        if (mounted_)
            umount2(home.path().c_str(), MNT_DETACH);
    }
    void makeRoom() {
        if (mounted_)
            mount("tmpfs", home.path().c_str(), "tmpfs", MS_REMOUNT, "size=4m");
        else
            setFileSizeLimit(RLIM_INFINITY);
    }

private:
    static void setFileSizeLimit(rlim_t bytes) {
        rlimit limit{};
        getrlimit(RLIMIT_FSIZE, &limit);
        limit.rlim_cur = std::min(bytes, limit.rlim_max);
        setrlimit(RLIMIT_FSIZE, &limit);
    }

    bool mounted_ = false;
};

TEST_F(FullDiskTest, WhatFitsStaysAndTheRestComesBackWithTheRoom) {
    open("notes.db", {table});
    const std::string text(4000, 'x');
    const auto insert = [&](int count) {
        for (int i = 0; i < count; ++i)
            EXPECT_EQ(ZNDataBaseHelper::ExecuteWithSQL("INSERT INTO t VALUES(?)", text), 0);
    };
    insert(100);
    const int kept = std::stoi(answer("SELECT count(*) FROM t"));
    EXPECT_GT(kept, 10);
    EXPECT_LT(kept, 100);
    EXPECT_EQ(answer("PRAGMA integrity_check"), "ok");
    open("other.db");
    open("notes.db", {table});
    EXPECT_EQ(answer("SELECT count(*) FROM t WHERE length(a) = 4000"), std::to_string(kept));
    makeRoom();
    insert(100);
    EXPECT_EQ(answer("SELECT count(*) FROM t"), std::to_string(kept + 100));
    EXPECT_EQ(answer("PRAGMA integrity_check"), "ok");
}

}  // namespace
}  // namespace zn
