#include "zarnic/platform/foundation/NSUserDefaults.h"

#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <filesystem>
#include <functional>
#include <limits>
#include <thread>

#include "tests/support/TemporaryFolder.h"
#include "zarnic/platform/foundation/NSDate.h"
#include "zarnic/platform/foundation/NSException.h"
#include "zarnic/platform/foundation/NSLog.h"
#include "zarnic/platform/foundation/NSPropertyListSerialization.h"

using namespace zn;

namespace {

namespace fs = std::filesystem;

Ref<NSUserDefaults> open(const std::string& path) {
    return make<NSUserDefaults>(path);
}

Value inFile(const std::string& path) {
    return NSPropertyListSerialization::propertyListWithContentsOfFile(path);
}

/// Runs in a process of its own; its exit status.
int elsewhere(const std::function<void()>& work) {
    const pid_t child = fork();
    if (child == 0) {
        work();
        std::exit(0);
    }
    int status = -1;
    waitpid(child, &status, 0);
    return status;
}

struct Home {
    Home() { setenv("ZARNIC_HOME", folder.path().c_str(), 1); }

    TemporaryFolder folder;
    std::string file = folder.path("Library/Preferences/defaults.plist");
};

/// Sets its keys one after the other, each written.
void setKeys(const std::string& path, int writer, int count) {
    const auto defaults = open(path);
    for (int i = 0; i < count; ++i) {
        defaults->setInteger(i, std::to_string(writer) + "-" + std::to_string(i));
        if (!defaults->synchronize())
            std::_Exit(1);
    }
}

void expectKeys(const std::string& path, int writers, int count) {
    const auto defaults = open(path);
    EXPECT_EQ(defaults->dictionaryRepresentation().count(),
              static_cast<std::size_t>(writers * count));
    for (int writer = 0; writer < writers; ++writer) {
        for (int i = 0; i < count; ++i)
            EXPECT_EQ(defaults->objectForKey(std::to_string(writer) + "-" + std::to_string(i)), i);
    }
}

}  // namespace

TEST(NSUserDefaults, keepsEveryKindAndReadsItAsOthers) {
    const TemporaryFolder folder;
    const std::string path = folder.path("defaults.plist");
    const auto data = Value::data(std::vector<std::byte>(3, std::byte{0}));
    const auto maximum = std::numeric_limits<std::uint64_t>::max();
    const Value all = Dictionary{{"text", "12.5 apples"},
                                 {"int", -7},
                                 {"big", maximum},
                                 {"yes", true},
                                 {"float", 1.5f},
                                 {"double", 0.1},
                                 {"data", data},
                                 {"date", NSDate::dateWithTimeIntervalSince1970(1.5)},
                                 {"list", Array{1, Dictionary{{"k", "v"}}}},
                                 {"zero\0", "é\n"}};
    for (const auto [key, value] : all.dictionary())
        open(path)->setObject(value, key);
    {
        const auto defaults = open(path);
        for (const auto [key, value] : all.dictionary())
            defaults->setObject(value, key);
        EXPECT_EQ(Value(defaults->dictionaryRepresentation()), all);
        EXPECT_TRUE(defaults->synchronize());
    }
    EXPECT_EQ(inFile(path), all);
    const auto defaults = open(path);
    for (const auto [key, value] : all.dictionary()) {
        EXPECT_EQ(defaults->objectForKey(key), value) << key;
        EXPECT_EQ(defaults->objectForKey(key).kind(), value.kind()) << key;
    }
    EXPECT_EQ(defaults->integerForKey("text"), 12);
    EXPECT_EQ(defaults->doubleForKey("text"), 12.5);
    EXPECT_EQ(defaults->floatForKey("int"), -7);
    EXPECT_EQ(defaults->stringForKey("int"), "-7");
    EXPECT_EQ(defaults->stringForKey("list"), std::nullopt);
    EXPECT_TRUE(defaults->boolForKey("yes"));
    EXPECT_FALSE(defaults->boolForKey("list"));
    EXPECT_TRUE(defaults->arrayForKey("data").absent());
    EXPECT_EQ(defaults->arrayForKey("list").array().count(), 2U);
    EXPECT_TRUE(defaults->dictionaryForKey("list").absent());
    EXPECT_EQ(defaults->dataForKey("data"), data);
    EXPECT_EQ(defaults->integerForKey("none"), 0);
    EXPECT_TRUE(defaults->objectForKey("none").absent());
}

TEST(NSUserDefaults, whatIsReadCannotChangeWhatIsKept) {
    const TemporaryFolder folder;
    const auto defaults = open(folder.path("defaults.plist"));
    Array inner{1};
    Array list{inner};
    defaults->setObject(list, "list");
    list.add(2);
    inner.add(2);
    EXPECT_EQ(defaults->objectForKey("list"), Value(Array{Value(Array{1})}));
    EXPECT_THROW(defaults->objectForKey("list").array().add(1), NSException);
    EXPECT_THROW(defaults->objectForKey("list").array()[0].array().add(1), NSException);
    EXPECT_THROW(defaults->dictionaryRepresentation().set("list", 1), NSException);
}

TEST(NSUserDefaults, whatIsNoPropertyListRaisesAndChangesNothing) {
    const TemporaryFolder folder;
    const auto defaults = open(folder.path("defaults.plist"));
    defaults->setInteger(1, "key");
    Array cycle;
    cycle.add(cycle);
    for (const Value& bad : {Value::null(), Value(make<NSObject>()), Value("\xFF"),
                             Value(Array{Value::null()}), Value(cycle)}) {
        EXPECT_THROW(defaults->setObject(bad, "key"), NSException);
        EXPECT_THROW(defaults->registerDefaults(Dictionary{{"key", bad}}), NSException);
    }
    EXPECT_EQ(defaults->integerForKey("key"), 1);
    cycle.removeAll();
}

TEST(NSUserDefaults, registeredValuesShowUntilOneIsSetAndAreNotWritten) {
    const TemporaryFolder folder;
    const std::string path = folder.path("defaults.plist");
    const auto defaults = open(path);
    defaults->registerDefaults({{"a", 1}, {"b", 2}});
    defaults->registerDefaults({{"b", 3}});
    EXPECT_EQ(defaults->integerForKey("a"), 1);
    EXPECT_EQ(defaults->integerForKey("b"), 3);
    defaults->setInteger(5, "a");
    EXPECT_EQ(defaults->integerForKey("a"), 5);
    EXPECT_EQ(Value(defaults->dictionaryRepresentation()), Value(Dictionary{{"a", 5}, {"b", 3}}));
    EXPECT_TRUE(defaults->synchronize());
    EXPECT_EQ(inFile(path), Value(Dictionary{{"a", 5}}));
    defaults->setObject({}, "a");
    EXPECT_EQ(defaults->integerForKey("a"), 1);
    defaults->setInteger(6, "b");
    defaults->removeObjectForKey("b");
    EXPECT_EQ(defaults->integerForKey("b"), 3);
    EXPECT_TRUE(defaults->synchronize());
    EXPECT_EQ(inFile(path), Value(Dictionary{}));
}

TEST(NSUserDefaults, aProgramThatJustEndsHasWrittenItsChanges) {
    const Home home;
    EXPECT_EQ(elsewhere([] { NSUserDefaults::standardUserDefaults()->setBool(true, "seen"); }), 0);
    EXPECT_EQ(inFile(home.file), Value(Dictionary{{"seen", true}}));
    EXPECT_TRUE(NSUserDefaults::standardUserDefaults()->boolForKey("seen"));
    EXPECT_EQ(NSUserDefaults::standardUserDefaults(), NSUserDefaults::standardUserDefaults());
}

TEST(NSUserDefaults, programsThatChangeDifferentKeysLoseNothing) {
    const TemporaryFolder folder;
    const std::string path = folder.path("defaults.plist");
    constexpr int writers = 4;
    constexpr int count = 25;
    std::vector<pid_t> children;
    for (int writer = 0; writer < writers; ++writer) {
        children.push_back(fork());
        if (children.back() == 0) {
            setKeys(path, writer, count);
            std::_Exit(0);
        }
    }
    for (const pid_t child : children) {
        int status = -1;
        waitpid(child, &status, 0);
        EXPECT_EQ(status, 0);
    }
    expectKeys(path, writers, count);
}

TEST(NSUserDefaults, synchronizeShowsWhatOthersWroteAndKeepsWhatWasChangedHere) {
    const TemporaryFolder folder;
    const std::string path = folder.path("defaults.plist");
    const auto one = open(path);
    const auto other = open(path);
    one->setInteger(1, "same");
    one->setInteger(1, "one");
    EXPECT_TRUE(one->synchronize());
    EXPECT_TRUE(other->objectForKey("one").absent());
    other->setInteger(2, "same");
    EXPECT_TRUE(other->synchronize());
    EXPECT_EQ(other->integerForKey("one"), 1);
    EXPECT_EQ(one->integerForKey("same"), 1);
    EXPECT_TRUE(one->synchronize());
    EXPECT_EQ(one->integerForKey("same"), 2);
    one->removeObjectForKey("same");
    EXPECT_TRUE(one->synchronize());
    EXPECT_TRUE(other->synchronize());
    EXPECT_TRUE(other->objectForKey("same").absent());
}

TEST(NSUserDefaults, threadsMayChangeItTogether) {
    const TemporaryFolder folder;
    const std::string path = folder.path("defaults.plist");
    constexpr int writers = 4;
    constexpr int count = 20;
    const auto defaults = open(path);
    {
        std::vector<std::jthread> threads;
        for (int writer = 0; writer < writers; ++writer) {
            threads.emplace_back([&, writer] {
                for (int i = 0; i < count; ++i) {
                    const std::string key = std::to_string(writer) + "-" + std::to_string(i);
                    defaults->setInteger(i, key);
                    EXPECT_EQ(defaults->integerForKey(key), i);
                }
                defaults->synchronize();
            });
        }
    }
    EXPECT_TRUE(defaults->synchronize());
    expectKeys(path, writers, count);
}

TEST(NSUserDefaults, withoutAPlaceToWriteItLivesInMemory) {
    const TemporaryFolder folder;
    folder.write("file", "");
    for (const std::string& path :
         {folder.path("none/defaults.plist"), folder.path("file/defaults.plist"), std::string(),
          folder.path(), std::string("/proc/defaults.plist")}) {
        const auto defaults = open(path);
        defaults->setInteger(1, "key");
        EXPECT_FALSE(defaults->synchronize()) << path;
        EXPECT_EQ(defaults->integerForKey("key"), 1) << path;
    }
    // It is written as soon as that can be done.
    const auto late = open(folder.path("late/defaults.plist"));
    late->setInteger(1, "key");
    EXPECT_FALSE(late->synchronize());
    fs::create_directory(folder.path("late"));
    EXPECT_TRUE(late->synchronize());
    EXPECT_EQ(inFile(folder.path("late/defaults.plist")), Value(Dictionary{{"key", 1}}));
}

TEST(NSUserDefaults, readOnlyHomeKeepsTheOldFile) {
    const TemporaryFolder folder;
    const std::string path = folder.path("defaults.plist");
    {
        const auto defaults = open(path);
        defaults->setInteger(1, "old");
        ASSERT_TRUE(defaults->synchronize());
    }
    fs::permissions(folder.path(), fs::perms(0555));
    fs::permissions(path + ".lock", fs::perms(0444));
    const bool privileged = geteuid() == 0;
    if (privileged) {
        ASSERT_EQ(seteuid(65534), 0);
    }
    const auto defaults = open(path);
    EXPECT_EQ(defaults->integerForKey("old"), 1);
    defaults->setInteger(2, "new");
    EXPECT_FALSE(defaults->synchronize());
    EXPECT_EQ(defaults->integerForKey("new"), 2);
    EXPECT_EQ(inFile(path), Value(Dictionary{{"old", 1}}));
    if (privileged) {
        ASSERT_EQ(seteuid(0), 0);
    }
    fs::permissions(folder.path(), fs::perms::owner_all);
}

TEST(NSUserDefaults, fullDiskKeepsTheOldFile) {
    const TemporaryFolder folder;
    const std::string path = folder.path("defaults.plist");
    const auto defaults = open(path);
    defaults->setInteger(1, "old");
    ASSERT_TRUE(defaults->synchronize());
    std::signal(SIGXFSZ, SIG_IGN);
    const rlimit tooLittle{1000, RLIM_INFINITY};
    ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &tooLittle), 0);
    defaults->setObject(std::string(5000, 'x'), "new");
    EXPECT_FALSE(defaults->synchronize());
    EXPECT_EQ(defaults->stringForKey("new"), std::string(5000, 'x'));
    EXPECT_EQ(inFile(path), Value(Dictionary{{"old", 1}}));
}

TEST(NSUserDefaults, damagedFilesArePutAside) {
    const TemporaryFolder folder;
    const std::string path = folder.write("defaults.plist", "<plist><dict><key>a</key>");
    std::vector<std::string> log;
    setLogSink([&](std::string_view line) { log.emplace_back(line); });
    const auto defaults = open(path);
    EXPECT_TRUE(defaults->dictionaryRepresentation().empty());
    EXPECT_TRUE(fs::exists(path));
    defaults->setInteger(1, "key");
    EXPECT_TRUE(defaults->synchronize());
    setLogSink({});
    EXPECT_EQ(fs::file_size(path + ".damaged"), 25U);
    EXPECT_EQ(inFile(path), Value(Dictionary{{"key", 1}}));
    EXPECT_EQ(log.size(), 1U);

    // An empty one, as some other program may leave it, is nothing to keep.
    const auto empty = open(folder.write("empty.plist", ""));
    empty->setInteger(1, "key");
    EXPECT_TRUE(empty->synchronize());
    EXPECT_FALSE(fs::exists(folder.path("empty.plist.damaged")));
}

TEST(NSUserDefaults, killedWritersLeaveWhatTheyAcknowledged) {
    const TemporaryFolder folder;
    const std::string path = folder.path("defaults.plist");
    for (int round = 0; round < 20; ++round) {
        int ends[2];
        ASSERT_EQ(pipe(ends), 0);
        const pid_t writer = fork();
        if (writer == 0) {
            const auto defaults = open(path);
            for (int i = 0;; ++i) {
                defaults->setInteger(i, "count");
                if (!defaults->synchronize() || write(ends[1], &i, sizeof i) != sizeof i)
                    std::_Exit(1);
            }
        }
        int acknowledged = -1;
        for (int i = 0; i <= round % 7; ++i)
            ASSERT_EQ(read(ends[0], &acknowledged, sizeof acknowledged),
                      static_cast<ssize_t>(sizeof acknowledged));
        kill(writer, SIGKILL);
        waitpid(writer, nullptr, 0);
        close(ends[0]);
        close(ends[1]);
        ASSERT_TRUE(inFile(path).isDictionary());
        EXPECT_GE(open(path)->integerForKey("count"), acknowledged);
    }
}
