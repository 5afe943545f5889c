#include "zarnic/platform/foundation/NSBundle.h"

#include <gtest/gtest.h>

#include <cstdlib>

#include "tests/support/TemporaryFolder.h"
#include "zarnic/platform/foundation/NSPathUtilities.h"

using namespace zn;
namespace fs = std::filesystem;

namespace {

std::string infoWithIdentifier(std::string_view identifier) {
    return "<plist version=\"1.0\"><dict><key>CFBundleIdentifier</key><string>" +
           std::string(identifier) +
           "</string><key>CFBundleVersion</key><string>7</string></dict></plist>";
}

/// Each test is a process of its own, so that the main bundle is looked up anew.
class NSBundleTest : public testing::Test {
protected:
    void setEnvironment(const char* name, const std::string& value) {
        setenv(name, value.c_str(), 1);
    }
    std::string mainBundleFolder() {
        setEnvironment("ZARNIC_BUNDLE", folder.path("main.app/"));
        return folder.path("main.app");
    }
    std::string directory(std::int64_t kind) {
        const auto paths = NSSearchPathForDirectoriesInDomains(kind);
        return paths.size() == 1 && fs::is_directory(paths[0]) ? paths[0] : "none";
    }

    TemporaryFolder folder;
};

using FoldersTest = NSBundleTest;

}  // namespace

TEST_F(NSBundleTest, theMainBundleIsTheFolderNamedByTheEnvironment) {
    const std::string path = mainBundleFolder();
    folder.write("main.app/Info.plist", infoWithIdentifier("org.example.panel"));
    const auto bundle = NSBundle::mainBundle();
    EXPECT_EQ(bundle->bundlePath(), path);
    EXPECT_EQ(bundle->bundleIdentifier(), "org.example.panel");
    EXPECT_EQ(bundle->objectForInfoDictionaryKey("CFBundleVersion"), "7");
    EXPECT_TRUE(bundle->objectForInfoDictionaryKey("missing").absent());
    EXPECT_EQ(NSBundle::bundleWithPath(path + "/"), bundle);
}

TEST_F(NSBundleTest, withoutAnyFolderTheMainBundleIsEmpty) {
    unsetenv("ZARNIC_BUNDLE");
    const auto bundle = NSBundle::mainBundle();
    EXPECT_EQ(fs::path(bundle->bundlePath()).parent_path().filename(), "share");
    EXPECT_TRUE(bundle->infoDictionary().empty());
    EXPECT_FALSE(bundle->pathForResource("a", "png"));
}

TEST_F(NSBundleTest, anExistingFolderOpensOnceAndWhateverItsInfo) {
    folder.write("a/Info.plist", "damaged");
    const auto bundle = NSBundle::bundleWithPath(folder.path("a"));
    ASSERT_TRUE(bundle);
    EXPECT_EQ(NSBundle::bundleWithPath(folder.path("a")), bundle);
    EXPECT_EQ(bundle->bundleIdentifier(), "");
    EXPECT_FALSE(bundle->infoDictionary().isMutable());
    EXPECT_FALSE(NSBundle::bundleWithPath(folder.path("missing")));
    EXPECT_FALSE(NSBundle::bundleWithPath(folder.path("a/Info.plist")));
}

TEST_F(NSBundleTest, findsResourcesByNameAndType) {
    const auto bundle = NSBundle::bundleWithPath(folder.path());
    const auto picture = folder.write("pictures/a.png", "");
    EXPECT_EQ(bundle->pathForResource("pictures/a", "png"), picture);
    EXPECT_EQ(bundle->pathForResource("pictures/a.png", ""), picture);
    EXPECT_EQ(bundle->pathForResource("pictures", ""), folder.path("pictures"));
    EXPECT_FALSE(bundle->pathForResource("a", "png"));
    EXPECT_FALSE(bundle->pathForResource("", ""));
}

TEST_F(NSBundleTest, picturesOfTheScaleComeFirstThenLargerThenSmallerOnes) {
    const auto bundle = NSBundle::bundleWithPath(folder.path());
    for (const auto* name :
         {"all.png", "all@2x.png", "all@3x.png", "ends.png", "ends@3x.png", "small.png"})
        folder.write(name, "");
    const auto scaleOf = [&](const char* name, int scale) {
        const auto found = bundle->pathForScaledResource(name, "png", scale);
        return found ? found->scale : 0;
    };
    for (const int scale : {1, 2, 3})
        EXPECT_EQ(scaleOf("all", scale), scale);
    EXPECT_EQ(scaleOf("ends", 2), 3);
    EXPECT_EQ(scaleOf("small", 3), 1);
    EXPECT_EQ(scaleOf("missing", 2), 0);
    EXPECT_EQ(scaleOf("", 2), 0);
    EXPECT_EQ(bundle->pathForScaledResource("all", "png", 2)->path, folder.path("all@2x.png"));
}

TEST_F(FoldersTest, everythingLiesUnderTheHomeOfTheEnvironment) {
    setEnvironment("ZARNIC_HOME", folder.path("home"));
    EXPECT_EQ(directory(5), folder.path("home/Library"));
    EXPECT_EQ(directory(9), folder.path("home/Documents"));
    EXPECT_EQ(directory(13), folder.path("home/Library/Caches"));
    EXPECT_EQ(directory(14), folder.path("home/Library/Application Support"));
}

TEST_F(FoldersTest, otherwiseUnderTheXdgFoldersOfTheApplication) {
    mainBundleFolder();
    folder.write("main.app/Info.plist", infoWithIdentifier("org/example"));
    unsetenv("ZARNIC_HOME");
    unsetenv("XDG_CACHE_HOME");
    setEnvironment("HOME", folder.path("user"));
    setEnvironment("XDG_DATA_HOME", folder.path("data"));
    EXPECT_EQ(directory(5), folder.path("data/org-example/Library"));
    EXPECT_EQ(directory(9), folder.path("data/org-example/Documents"));
    EXPECT_EQ(directory(13), folder.path("user/.cache/org-example"));
    setEnvironment("XDG_DATA_HOME", "relative");
    EXPECT_EQ(directory(14),
              folder.path("user/.local/share/org-example/Library/Application Support"));
}

TEST_F(FoldersTest, withoutABundleTheProgramNamesTheApplication) {
    unsetenv("ZARNIC_HOME");
    unsetenv("ZARNIC_BUNDLE");
    setEnvironment("XDG_CACHE_HOME", folder.path("cache"));
    EXPECT_EQ(directory(13), folder.path("cache/foundation_tests"));
}

TEST_F(FoldersTest, otherKindsAndDomainsHaveNoFolder) {
    setEnvironment("ZARNIC_HOME", folder.path("home"));
    for (const std::int64_t kind : {-1, 0, 8, 12, 99, 102})
        EXPECT_TRUE(NSSearchPathForDirectoriesInDomains(kind).empty()) << kind;
    EXPECT_TRUE(NSSearchPathForDirectoriesInDomains(9, 2).empty());
    EXPECT_EQ(NSSearchPathForDirectoriesInDomains(9, NSAllDomainsMask).size(), 1U);
}

namespace {

std::vector<std::string> localizationsOf(const std::string& info,
                                         std::initializer_list<const char*> folders) {
    TemporaryFolder folder;
    for (const char* name : folders)
        folder.write(std::string(name) + "/Localizable.strings", "");
    folder.write("Info.plist", "<plist version=\"1.0\"><dict>" + info + "</dict></plist>");
    return make<NSBundle>(folder.path())->localizations();
}

}  // namespace

TEST(NSBundle, itsLocalizations) {
    using Names = std::vector<std::string>;
    const std::string german = "<key>CFBundleDevelopmentRegion</key><string>de</string>";
    const std::string list =
        "<key>CFBundleLocalizations</key><array><string>fr</string>"
        "<string></string><integer>1</integer></array>";
    EXPECT_EQ(localizationsOf("", {}), Names());
    EXPECT_EQ(localizationsOf("", {"zh-Hans.lproj", "en.lproj", ".lproj"}),
              (Names{"en", "zh-Hans"}));
    EXPECT_EQ(localizationsOf(list, {"fr.lproj"}), (Names{"fr", "fr"}));
    EXPECT_EQ(localizationsOf(german, {}), Names{"de"});
    EXPECT_EQ(localizationsOf(german, {"fr.lproj"}), Names{"fr"});
    EXPECT_EQ(localizationsOf(german, {"Base.lproj", "fr.lproj"}), (Names{"Base", "fr", "de"}));
    EXPECT_EQ(localizationsOf(german, {"Base.lproj", "German.lproj"}), (Names{"Base", "German"}));
}
