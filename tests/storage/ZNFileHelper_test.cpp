#include "zarnic/ZNFileHelper.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <limits>

#include "tests/support/TemporaryFolder.h"
#include "zarnic/platform/foundation/NSException.h"
#include "zarnic/platform/foundation/NSPropertyListSerialization.h"

using namespace zn;
using namespace std::literals;

namespace {

namespace fs = std::filesystem;

std::string text(const Value& data) {
    return {reinterpret_cast<const char*>(data.bytes().data()), data.bytes().size()};
}

Value data(std::string_view bytes) {
    return Value::data(std::as_bytes(std::span(bytes)));
}

bool isEmpty(const TemporaryFolder& folder) {
    return fs::is_empty(folder.path());
}

/// Makes a chain of folders too deep for a path, with a file at the end.
void makeChain(const std::string& start, int depth) {
    const fs::path before = fs::current_path();
    fs::current_path(start);
    for (int i = 0; i < depth; ++i) {
        ASSERT_EQ(mkdir("folder-with-a-long-name", 0700), 0);
        ASSERT_EQ(chdir("folder-with-a-long-name"), 0);
    }
    std::ofstream("file") << "x";
    fs::current_path(before);
}

void removeChain(const std::string& start) {
    EXPECT_EQ(std::system(("rm -rf '" + start + "'").c_str()), 0);
}

}  // namespace

TEST(ZNFileHelper, pathsLieInTheApplicationsFolders) {
    const TemporaryFolder home;
    setenv("ZARNIC_HOME", home.path().c_str(), 1);
    EXPECT_EQ(ZNFileHelper::GetFilePath(9, "a/b.txt"), home.path("Documents/a/b.txt"));
    EXPECT_EQ(ZNFileHelper::GetFilePath(NSSearchPathDirectory::Caches, "x"),
              home.path("Library/Caches/x"));
    EXPECT_EQ(ZNFileHelper::GetFilePath(9, ""), home.path("Documents"));
    EXPECT_EQ(ZNFileHelper::GetFilePath(12345, "x"), std::nullopt);
    EXPECT_EQ(ZNFileHelper::GetFilePath(std::numeric_limits<std::uint64_t>::max(), "x"),
              std::nullopt);
    EXPECT_FALSE(fs::exists(home.path("Documents/a")));
}

TEST(ZNFileHelper, newFilesNeedTheFlagEvenWhenTheirFolderIsThere) {
    const TemporaryFolder folder;
    const std::string deep = folder.path("a/b/c.txt");
    EXPECT_FALSE(ZNFileHelper::WriteFileAtPath(deep, false, "text"));
    EXPECT_FALSE(ZNFileHelper::WriteFileAtPath(folder.path("c.txt"), false, "text"));
    EXPECT_TRUE(isEmpty(folder));
    EXPECT_TRUE(ZNFileHelper::WriteFileAtPath(deep, true, "text"));
    EXPECT_EQ(text(ZNFileHelper::ReadFileAtPath(deep)), "text");
    EXPECT_TRUE(ZNFileHelper::WriteFileAtPath(deep, false, data("other")));
    EXPECT_TRUE(ZNFileHelper::WriteFileAtPath(deep, true, data("another")));
    EXPECT_EQ(text(ZNFileHelper::ReadFileAtPath(deep)), "another");
}

TEST(ZNFileHelper, nullsAreNotWritten) {
    const TemporaryFolder folder;
    for (const Value& null : {Value(), Value::null(), Value(""), data("")})
        EXPECT_FALSE(ZNFileHelper::WriteFileAtPath(folder.path("a/file"), true, null));
    EXPECT_TRUE(isEmpty(folder));
}

TEST(ZNFileHelper, pathsThatCannotBeMadeAreFalse) {
    const TemporaryFolder folder;
    const std::string file = folder.write("file", "old");
    fs::current_path(folder.path());
    for (const std::string& path :
         {std::string(), std::string("plain"), std::string("/zarnic-file-in-the-root.txt"),
          file + "/below", folder.path("new/"), folder.path("a\0b"s)})
        EXPECT_FALSE(ZNFileHelper::WriteFileAtPath(path, true, "x")) << path;
    // The folder before the slash was made.
    EXPECT_TRUE(fs::is_directory(folder.path("new")));
    EXPECT_FALSE(fs::exists("plain"));
    EXPECT_TRUE(ZNFileHelper::WriteFileAtPath("./plain", true, "x"));
    EXPECT_TRUE(ZNFileHelper::WriteFileAtPath("plain", false, "y"));
    EXPECT_EQ(text(ZNFileHelper::ReadFileAtPath("plain")), "y");
}

TEST(ZNFileHelper, collectionsArePropertyListsAndOneThatIsNoneLeavesAnEmptyNewFile) {
    const TemporaryFolder folder;
    const std::string path = folder.path("list");
    const Value list = Dictionary{{"a", Array{1, true, "text"}}};
    EXPECT_TRUE(ZNFileHelper::WriteFileAtPath(path, true, list));
    EXPECT_EQ(NSPropertyListSerialization::propertyListWithContentsOfFile(path), list);
    // True on purpose: the outcome of the writing itself does not count.
    EXPECT_TRUE(ZNFileHelper::WriteFileAtPath(path, true, Array{Value::null()}));
    EXPECT_EQ(NSPropertyListSerialization::propertyListWithContentsOfFile(path), list);
    EXPECT_TRUE(ZNFileHelper::WriteFileAtPath(folder.path("new"), true, Array{Value::null()}));
    EXPECT_EQ(text(ZNFileHelper::ReadFileAtPath(folder.path("new"))), "");
    EXPECT_TRUE(ZNFileHelper::ReadFileAtPath(folder.path("new")).isData());
    EXPECT_THROW(ZNFileHelper::WriteFileAtPath(path, true, 5), NSException);
    EXPECT_TRUE(ZNFileHelper::WriteFileAtPath(folder.path(), true, "onto a folder"));
}

TEST(ZNFileHelper, readsAndDeletes) {
    const TemporaryFolder folder;
    EXPECT_TRUE(ZNFileHelper::ReadFileAtPath(folder.path("none")).absent());
    EXPECT_TRUE(ZNFileHelper::ReadFileAtPath(folder.path()).absent());
    EXPECT_FALSE(ZNFileHelper::DeleteFileAtPath(folder.path("none")));
    EXPECT_FALSE(ZNFileHelper::DeleteFileAtPath(""));

    folder.write("kept/file", "x");
    folder.write("gone/deep/.hidden", "x");
    fs::create_directory_symlink("../kept", folder.path("gone/link"));
    EXPECT_TRUE(ZNFileHelper::DeleteFileAtPath(folder.path("gone")));
    EXPECT_FALSE(ZNFileHelper::FileExistsAtPath(folder.path("gone")));
    EXPECT_TRUE(ZNFileHelper::FileExistsAtPath(folder.path("kept/file")));
    fs::create_directory_symlink("kept", folder.path("link"));
    EXPECT_TRUE(ZNFileHelper::DeleteFileAtPath(folder.path("link")));
    EXPECT_TRUE(ZNFileHelper::FileExistsAtPath(folder.path("kept/file")));
    // One that leads nowhere does not exist.
    fs::create_symlink("nowhere", folder.path("dangling"));
    EXPECT_FALSE(ZNFileHelper::FileExistsAtPath(folder.path("dangling")));
    EXPECT_FALSE(ZNFileHelper::DeleteFileAtPath(folder.path("dangling")));
}

TEST(ZNFileHelper, listsEveryDepthWithoutFollowingLinks) {
    const TemporaryFolder folder;
    folder.write("a/b/file", "x");
    folder.write(".hidden", "x");
    fs::create_directory_symlink("..", folder.path("a/up"));
    fs::create_directory(folder.path("empty"));
    using Paths = std::vector<std::string>;
    EXPECT_EQ(ZNFileHelper::GetAllSubFilesAtPath(folder.path()),
              (Paths{".hidden", "a", "a/b", "a/b/file", "a/up", "empty"}));
    EXPECT_EQ(ZNFileHelper::GetAllSubFilesAtPath(folder.path("a/up/empty/")), Paths{});
    EXPECT_EQ(ZNFileHelper::GetAllSubFilesAtPath(folder.path(".hidden")), std::nullopt);
    EXPECT_EQ(ZNFileHelper::GetAllSubFilesAtPath(folder.path("none")), std::nullopt);
    EXPECT_EQ(ZNFileHelper::GetAllSubFilesAtPath(""), std::nullopt);
}

TEST(ZNFileHelper, sizeCountsAFileTwiceAsOftenForEachFolderOnItsWay) {
    const TemporaryFolder folder;
    folder.write("one", "1234567890");
    EXPECT_EQ(ZNFileHelper::GetFileSizeAtPath(folder.path("one")), 10);
    EXPECT_EQ(ZNFileHelper::GetFileSizeAtPath(folder.path()), 10);
    folder.write("a/two", "12345");
    EXPECT_EQ(ZNFileHelper::GetFileSizeAtPath(folder.path()), 10 + 5 * 2);
    // Once by itself, once in each of the two folders above it, and once more in the inner one as
    // part of the outer one.
    folder.write("a/b/three", "123");
    EXPECT_EQ(ZNFileHelper::GetFileSizeAtPath(folder.path()), 10 + 5 * 2 + 3 * 4);
    folder.write("a/b/c/four", "1");
    EXPECT_EQ(ZNFileHelper::GetFileSizeAtPath(folder.path()), 10 + 5 * 2 + 3 * 4 + 8);
    fs::create_directory(folder.path("empty"));
    EXPECT_EQ(ZNFileHelper::GetFileSizeAtPath(folder.path("empty")), 0);
    EXPECT_EQ(ZNFileHelper::GetFileSizeAtPath(folder.path("none")), 0);
    EXPECT_EQ(ZNFileHelper::GetFileSizeAtPath(""), 0);
}

TEST(ZNFileHelper, linksCountThemselvesAndFoldersBehindThemNothing) {
    const TemporaryFolder folder;
    folder.write("a/file", "1234567890");
    fs::create_directory_symlink("..", folder.path("a/up"));
    fs::create_symlink("nowhere", folder.path("a/dangling"));
    EXPECT_EQ(ZNFileHelper::GetFileSizeAtPath(folder.path("a")), 10);
    fs::create_symlink("file", folder.path("a/link"));
    EXPECT_EQ(ZNFileHelper::GetFileSizeAtPath(folder.path("a")), 10 + 4);
    EXPECT_EQ(ZNFileHelper::GetFileSizeAtPath(folder.path("a/link")), 4);
    // The folder that is asked for may be a link.
    EXPECT_EQ(ZNFileHelper::GetFileSizeAtPath(folder.path("a/up")), 2 * (10 + 4));
}

TEST(ZNFileHelper, sizeSaturatesAndNeitherDepthNorLongPathsStopIt) {
    const TemporaryFolder folder;
    makeChain(folder.path(), 62);
    EXPECT_EQ(ZNFileHelper::GetFileSizeAtPath(folder.path()), std::int64_t{1} << 62);
    removeChain(folder.path("folder-with-a-long-name"));
    // More folders than files may be open, and a path longer than the system takes.
    makeChain(folder.path(), 2000);
    EXPECT_EQ(ZNFileHelper::GetFileSizeAtPath(folder.path()),
              std::numeric_limits<std::int64_t>::max());
    const auto paths = ZNFileHelper::GetAllSubFilesAtPath(folder.path());
    ASSERT_TRUE(paths);
    EXPECT_EQ(paths->size(), 2001U);
    EXPECT_TRUE(paths->back().ends_with("name/file"));
    removeChain(folder.path("folder-with-a-long-name"));
}

TEST(ZNFileHelper, manyBranchesAtGreatDepthAreEachCountedOnce) {
    const TemporaryFolder folder;
    std::string path;
    for (int depth = 0; depth < 150; ++depth) {
        path += "d/";
        folder.write(path + "e/empty", "");
        folder.write(path + "f", "");
    }
    folder.write("one", "x");
    EXPECT_EQ(ZNFileHelper::GetFileSizeAtPath(folder.path()), 1);
    EXPECT_EQ(ZNFileHelper::GetAllSubFilesAtPath(folder.path())->size(), 150U * 4 + 1);
}

TEST(ZNFileHelper, aFolderThatCannotBeListedMakesTheWholeNothing) {
    const TemporaryFolder folder;
    folder.write("file", "x");
    folder.write("shut/file", "x");
    fs::permissions(folder.path("shut"), fs::perms::none);
    fs::permissions(folder.path(), fs::perms(0755));
    // The superuser may list everything.
    const bool privileged = geteuid() == 0;
    if (privileged) {
        ASSERT_EQ(seteuid(65534), 0);
    }
    EXPECT_EQ(ZNFileHelper::GetAllSubFilesAtPath(folder.path()), std::nullopt);
    EXPECT_EQ(ZNFileHelper::GetFileSizeAtPath(folder.path()), 0);
    EXPECT_EQ(ZNFileHelper::GetFileSizeAtPath(folder.path("file")), 1);
    if (privileged) {
        ASSERT_EQ(seteuid(0), 0);
    }
    fs::permissions(folder.path("shut"), fs::perms::owner_all);
}
