#include "platform/services/linux/LinuxURLOpener.h"

#include <gtest/gtest.h>
#include <sys/wait.h>

#include <cerrno>
#include <iterator>
#include <optional>

#include "tests/support/TemporaryFolder.h"
#include "zarnic/platform/foundation/NSRunLoop.h"
#include "zarnic/testing/FakeURLOpener.h"

using namespace zn;
namespace fs = std::filesystem;

namespace {

class LinuxURLOpenerTest : public testing::Test {
protected:
    std::string program(const std::string& commands) {
        const auto path = folder.write("opener", "#!/bin/sh\n" + commands + "\n");
        fs::permissions(path, fs::perms::owner_all);
        return path;
    }

    /// What the completion hears; it comes later, on the main loop.
    std::optional<bool> opened(URLOpener& opener, std::string_view url) {
        std::optional<bool> result;
        opener.open(url, [&](bool success) { result = success; });
        EXPECT_FALSE(result);
        for (int pass = 0; pass < 100 && !result; ++pass)
            NSRunLoop::mainRunLoop()->runPass(0.5);
        return result;
    }

    std::string fileText(const std::string& name) {
        std::ifstream file(folder.path(name));
        return {std::istreambuf_iterator<char>(file), {}};
    }

    TemporaryFolder folder;
};

}  // namespace

TEST_F(LinuxURLOpenerTest, theURLArrivesAsOneArgumentThatNoShellReads) {
    LinuxURLOpener opener(program("printf '%s|' $# \"$@\" > " + folder.path("arguments")));
    const std::string url = "https://example.org/a b?c=$(touch " + folder.path("x") + ")&d=';\"`";
    EXPECT_EQ(opened(opener, url), true);
    EXPECT_EQ(fileText("arguments"), "1|" + url + "|");
    EXPECT_FALSE(fs::exists(folder.path("x")));
}

TEST_F(LinuxURLOpenerTest, leavesNoProcessBehind) {
    LinuxURLOpener opener(program("exit 0"));
    EXPECT_EQ(opened(opener, "mailto:a@example.org"), true);
    EXPECT_EQ(waitpid(-1, nullptr, WNOHANG), -1);
    EXPECT_EQ(errno, ECHILD);
}

TEST_F(LinuxURLOpenerTest, failuresOfTheProgramAreHeard) {
    LinuxURLOpener failing(program("exit 3"));
    EXPECT_EQ(opened(failing, "tel:123"), false);
    LinuxURLOpener missing(folder.path("missing"));
    EXPECT_EQ(opened(missing, "tel:123"), false);
}

TEST_F(LinuxURLOpenerTest, textsWithoutASchemeStartNothing) {
    LinuxURLOpener opener(program("touch " + folder.path("started")));
    for (const auto* text :
         {"", "example.org", "/etc/passwd", "--help:x", ":x", "1a:x", "a b:x", "https://a\nb"})
        EXPECT_EQ(opened(opener, text), false) << text;
    EXPECT_FALSE(fs::exists(folder.path("started")));
    opener.open("no scheme", nullptr);
}

TEST_F(LinuxURLOpenerTest, theFakeNotesWhatItWouldOpen) {
    FakeURLOpener opener;
    EXPECT_EQ(opened(opener, "https://example.org"), true);
    EXPECT_EQ(opened(opener, "nothing"), false);
    opener.succeeds = false;
    EXPECT_EQ(opened(opener, "tel:1"), false);
    EXPECT_EQ(opener.opened, (std::vector<std::string>{"https://example.org", "tel:1"}));
}
