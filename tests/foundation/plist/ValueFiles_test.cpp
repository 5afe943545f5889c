#include "zarnic/platform/foundation/ValueFiles.h"

#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <filesystem>
#include <fstream>
#include <random>

#include "tests/support/TemporaryFolder.h"
#include "zarnic/platform/foundation/NSException.h"
#include "zarnic/platform/foundation/NSPropertyListSerialization.h"

using namespace zn;

namespace {

namespace fs = std::filesystem;

std::string contents(const std::string& path) {
    const Value data = dataWithContentsOfFile(path);
    return data.absent() ? "(absent)"
                         : std::string(reinterpret_cast<const char*>(data.bytes().data()),
                                       data.bytes().size());
}

std::size_t entryCount(const TemporaryFolder& folder) {
    return static_cast<std::size_t>(
        std::distance(fs::directory_iterator(folder.path()), fs::directory_iterator()));
}

constexpr std::array bothWays = {true, false};
constexpr std::size_t length = 200'000;

/// Writes a's and b's in turn until it is killed.
[[noreturn]] void writeForever(const std::string& path, int ready) {
    for (int round = 0;; ++round) {
        writeToFile(std::string(length, round % 2 == 0 ? 'a' : 'b'), path, true);
        if (write(ready, ".", 1) != 1)
            _exit(1);
    }
}

/// Kills a writer while it writes, after some rounds and a little more.
void killWriter(const std::string& path, unsigned long rounds, unsigned long spins) {
    int ends[2];
    ASSERT_EQ(pipe(ends), 0);
    const pid_t writer = fork();
    if (writer == 0)
        writeForever(path, ends[1]);
    char dot = 0;
    for (unsigned long i = 0; i < rounds; ++i)
        ASSERT_EQ(read(ends[0], &dot, 1), 1);
    for (unsigned long i = 0; i < spins; ++i)
        getppid();
    kill(writer, SIGKILL);
    waitpid(writer, nullptr, 0);
    close(ends[0]);
    close(ends[1]);
}

void expectWholeAfterKills(int kills) {
    const TemporaryFolder folder;
    const std::string path = folder.path("file");
    std::mt19937 random(3);
    for (int i = 0; i < kills; ++i) {
        killWriter(path, 1 + random() % 3, random() % 2000);
        const std::string found = contents(path);
        ASSERT_TRUE(found == std::string(length, 'a') || found == std::string(length, 'b'))
            << found.size();
    }
}

}  // namespace

TEST(ValueFiles, eachKindHasItsForm) {
    const TemporaryFolder folder;
    const std::string path = folder.path("file");
    for (const bool atomically : bothWays) {
        EXPECT_TRUE(writeToFile("中文", path, atomically));
        EXPECT_EQ(contents(path), "中文");
        EXPECT_TRUE(writeToFile(Value::data(std::vector(2, std::byte{0})), path, atomically));
        EXPECT_EQ(contents(path), std::string(2, '\0'));
        EXPECT_TRUE(writeToFile("", path, atomically));
        EXPECT_EQ(contents(path), "");
        const Value list = Dictionary{{"a", Array{1, true}}};
        EXPECT_TRUE(writeToFile(list, path, atomically));
        EXPECT_EQ(contents(path).substr(0, 6), "<?xml ");
        EXPECT_EQ(NSPropertyListSerialization::propertyListWithContentsOfFile(path), list);
        EXPECT_TRUE(writeToFile(Array{}, path, atomically));
    }
    EXPECT_EQ(entryCount(folder), 1U);
}

TEST(ValueFiles, whatCannotBeWrittenLeavesTheFile) {
    const TemporaryFolder folder;
    const std::string path = folder.write("file", "old");
    for (const bool atomically : bothWays) {
        EXPECT_FALSE(writeToFile(Value(), path, atomically));
        EXPECT_FALSE(writeToFile(Array{Value::null()}, path, atomically));
        for (const Value& formless : {Value(1), Value::null(), Value(make<NSObject>())})
            EXPECT_THROW(writeToFile(formless, path, atomically), NSException);
        EXPECT_FALSE(writeToFile("x", "", atomically));
        EXPECT_FALSE(writeToFile("x", folder.path(), atomically));
        EXPECT_FALSE(writeToFile("x", folder.path("none/file"), atomically));
        EXPECT_FALSE(writeToFile("x", folder.path("file/below"), atomically));
        EXPECT_FALSE(writeToFile("x", path + std::string(1, '\0'), atomically));
        EXPECT_FALSE(writeToFile("x", folder.path(std::string(300, 'n')), atomically));
    }
    EXPECT_FALSE(writeToFile("x", "/dev/null", true));
    EXPECT_TRUE(fs::is_character_file("/dev/null"));
    EXPECT_EQ(contents(path), "old");
    EXPECT_EQ(entryCount(folder), 1U);
    EXPECT_TRUE(writeToFile("x", folder.path(std::string(255, 'n')), true));
}

TEST(ValueFiles, linksAndPermissionsStay) {
    const TemporaryFolder folder;
    const std::string path = folder.write("real/file", "old");
    ASSERT_EQ(chmod(path.c_str(), 0640), 0);
    fs::create_symlink("real/file", folder.path("link"));
    EXPECT_TRUE(writeToFile("new", folder.path("link"), true));
    EXPECT_TRUE(fs::is_symlink(folder.path("link")));
    EXPECT_EQ(contents(path), "new");
    struct stat status = {};
    ASSERT_EQ(stat(path.c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 07777U, 0640U);

    umask(027);
    EXPECT_TRUE(writeToFile("new", folder.path("other"), true));
    ASSERT_EQ(stat(folder.path("other").c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 07777U, 0640U);

    fs::create_symlink("nowhere", folder.path("dangling"));
    EXPECT_TRUE(writeToFile("new", folder.path("dangling"), true));
    EXPECT_EQ(contents(folder.path("dangling")), "new");
    fs::current_path(folder.path());
    EXPECT_TRUE(writeToFile("relative", "plain", true));
    EXPECT_EQ(contents("plain"), "relative");
}

TEST(ValueFiles, fullDiskLeavesTheOldFileAndNothingElse) {
    const TemporaryFolder folder;
    const std::string path = folder.write("file", "old");
    std::signal(SIGXFSZ, SIG_IGN);
    const rlimit tooLittle{1000, RLIM_INFINITY};
    ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &tooLittle), 0);
    EXPECT_FALSE(writeToFile(std::string(2000, 'x'), path, true));
    EXPECT_FALSE(writeToFile(std::string(2000, 'x'), folder.path("new"), true));
    EXPECT_EQ(contents(path), "old");
    EXPECT_EQ(entryCount(folder), 1U);
}

TEST(ValueFiles, readOnlyFolderLeavesTheOldFile) {
    const TemporaryFolder folder;
    const std::string path = folder.write("file", "old");
    fs::permissions(folder.path(), fs::perms::owner_read | fs::perms::owner_exec);
    // The superuser may write everywhere.
    if (geteuid() == 0) {
        fs::permissions(folder.path(), fs::perms(0555));
        ASSERT_EQ(seteuid(65534), 0);
    }
    EXPECT_FALSE(writeToFile("new", path, true));
    EXPECT_FALSE(writeToFile("new", folder.path("other"), false));
    EXPECT_EQ(contents(path), "old");
    if (getuid() == 0) {
        ASSERT_EQ(seteuid(0), 0);
    }
    fs::permissions(folder.path(), fs::perms::owner_all);
}

TEST(ValueFiles, onlyRegularFilesAreRead) {
    const TemporaryFolder folder;
    EXPECT_EQ(contents(folder.write("empty", "")), "");
    EXPECT_EQ(contents(folder.path()), "(absent)");
    EXPECT_EQ(contents(folder.path("missing")), "(absent)");
    EXPECT_EQ(contents(""), "(absent)");
    ASSERT_EQ(mkfifo(folder.path("pipe").c_str(), 0600), 0);
    EXPECT_EQ(contents(folder.path("pipe")), "(absent)");
    // Says that it is empty.
    EXPECT_NE(contents("/proc/self/status"), "");
}

TEST(ValueFiles, killedWritersLeaveOneOfTheFilesWhole) {
    expectWholeAfterKills(20);
}

TEST(ValueFilesSoak, killedWritersLeaveOneOfTheFilesWhole) {
    expectWholeAfterKills(1000);
}
