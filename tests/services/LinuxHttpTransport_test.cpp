#include "platform/services/linux/LinuxHttpTransport.h"

#include <gmock/gmock.h>
#include <sys/resource.h>

#include <cstdlib>
#include <filesystem>
#include <functional>
#include <set>
#include <thread>
#include <vector>

#include "tests/support/Loopback.h"
#include "tests/support/Nginx.h"

using namespace zn;
namespace fs = std::filesystem;
using testing::HasSubstr;

namespace {

std::string textOf(const Value& data) {
    return {reinterpret_cast<const char*>(data.bytes().data()), data.bytes().size()};
}

/// Something that no compression makes much of.
std::string noise(std::size_t size, std::uint32_t seed) {
    std::string bytes(size, '\0');
    for (char& byte : bytes)
        byte = static_cast<char>((seed = seed * 1664525 + 1013904223) >> 24);
    return bytes;
}

class LinuxHttpTransportTest : public testing::Test {
protected:
    LinuxHttpTransportTest() { setenv("no_proxy", "*", 1); }

    std::string text(const std::string& path) const {
        return textOf(transport->get({server.url(path), 30}));
    }

    const Nginx server;
    const Ref<LinuxHttpTransport> transport =
        make<LinuxHttpTransport>(LinuxHttpTransport::Settings{.userAgent = "Test\r\n/1"});
};

/// The address family of a descriptor; nothing when it is no socket.
std::optional<int> familyOf(int descriptor) {
    sockaddr_storage address = {};
    socklen_t size = sizeof address;
    if (getsockname(descriptor, reinterpret_cast<sockaddr*>(&address), &size) != 0)
        return std::nullopt;
    return address.ss_family;
}

}  // namespace

TEST_F(LinuxHttpTransportTest, givesTheBodyWhateverItsSizeAndTheStatus) {
    for (const std::size_t size : {0U, 1U, 14U, 15U, 65535U, 65537U, 3000000U}) {
        server.write("body", noise(size, 7));
        const Value body = transport->get({server.url("/body"), 30});
        EXPECT_TRUE(body.isData()) << size;
        EXPECT_EQ(textOf(body), noise(size, 7)) << size;
    }
    EXPECT_THAT(text("/unknown"), HasSubstr("404 Not Found"));
}

TEST_F(LinuxHttpTransportTest, sendsTheURLAsItIsButForTheFragment) {
    const std::string path = "/echo/%E5%9B%BE%20(1).png;a?b=%2F/?&c=~";
    EXPECT_EQ(text(path), path);
    EXPECT_EQ(text("/echo?a#b"), "/echo?a");
    EXPECT_EQ(text("/agent"), "Test/1");
    server.write("图 片.png", "found");
    EXPECT_EQ(text("/%E5%9B%BE%20%E7%89%87.png"), "found");
}

TEST_F(LinuxHttpTransportTest, expandsCompressedBodiesUpToTheCap) {
    EXPECT_EQ(text("/accepts"), "gzip, deflate");
    const std::string zeros(5000000, '\0');
    server.write("zeros", zeros);
    EXPECT_EQ(text("/gzip/zeros"), zeros);
    transport->setLargestBody(zeros.size() - 1);
    EXPECT_TRUE(transport->get({server.url("/gzip/zeros"), 30}).absent());
    EXPECT_TRUE(transport->get({server.url("/zeros"), 30}).absent());
    transport->setLargestBody(zeros.size());
    EXPECT_EQ(text("/zeros"), zeros);
    transport->setLargestBody(0);
    EXPECT_TRUE(transport->get({server.url("/zeros"), 30}).absent());
    server.write("empty", "");
    EXPECT_TRUE(transport->get({server.url("/empty"), 30}).isData());
}

TEST_F(LinuxHttpTransportTest, aThreadKeepsItsConnection) {
    server.write("file", noise(200000, 1));
    const std::string connection = text("/connection");
    EXPECT_EQ(text("/moved/file"), noise(200000, 1));
    EXPECT_EQ(text("/connection"), connection);
    EXPECT_EQ(textOf(make<LinuxHttpTransport>()->get({server.url("/connection")})), connection);
    std::string other;
    std::thread([&] { other = text("/connection"); }).join();
    EXPECT_NE(other, connection);
}

TEST_F(LinuxHttpTransportTest, servesManyThreadsAtOnce) {
    constexpr std::uint32_t threadCount = 8;
    std::vector<std::string> connections(threadCount);
    std::vector<std::thread> threads;
    std::atomic<int> wrong = 0;
    for (std::uint32_t index = 0; index < threadCount; ++index)
        server.write(std::to_string(index), noise(50000 + index, index));
    for (std::uint32_t index = 0; index < threadCount; ++index)
        threads.emplace_back([&, index] {
            for (std::uint32_t turn = 0; turn < 50; ++turn) {
                const std::uint32_t file = (index + turn) % threadCount;
                wrong += text("/" + std::to_string(file)) != noise(50000 + file, file);
            }
            connections[index] = text("/connection");
        });
    for (std::thread& thread : threads)
        thread.join();
    EXPECT_EQ(wrong, 0);
    EXPECT_EQ(std::set(connections.begin(), connections.end()).size(), threadCount);
}

TEST_F(LinuxHttpTransportTest, programsThatAreStartedInheritNoConnection) {
    ASSERT_NE(text("/connection"), "");
    int connections = 0;
    for (const auto& entry : fs::directory_iterator("/proc/self/fd")) {
        const int descriptor = std::stoi(entry.path().filename());
        if (familyOf(descriptor) != AF_INET)
            continue;
        ++connections;
        EXPECT_NE(fcntl(descriptor, F_GETFD) & FD_CLOEXEC, 0);
    }
    EXPECT_EQ(connections, 1);
}

TEST_F(LinuxHttpTransportTest, comesBackAfterThereWereNoDescriptors) {
    server.write("file", "body");
    // The sanitizers need descriptors of their own where a type is first used.
    ASSERT_EQ(text("/file"), "body");
    std::thread([this] {
        rlimit usual = {};
        getrlimit(RLIMIT_NOFILE, &usual);
        const rlimit none = {.rlim_cur = 0, .rlim_max = usual.rlim_max};
        setrlimit(RLIMIT_NOFILE, &none);
        const bool failed = transport->get({server.url("/file"), 30}).absent();
        setrlimit(RLIMIT_NOFILE, &usual);
        EXPECT_TRUE(failed);
        EXPECT_EQ(text("/file"), "body");
    }).join();
}

TEST_F(LinuxHttpTransportTest, whatIsNoURLOfTheWebIsAbsent) {
    server.write("file", "body");
    ASSERT_EQ(text("/file"), "body");
    const std::string address = server.url("/").substr(7);
    for (const std::string& url :
         {std::string(), std::string("/"), std::string("http:"), std::string("http://"),
          address + "file", "http:" + address + "file", "http:/" + address + "file",
          "ftp://" + address + "file", std::string("file:///etc/hostname"),
          server.url("/file\r\nX: y"), server.url("/fi le"), server.url("/file") + '\0',
          std::string("http://127.0.0.1:99999/"), std::string("http://no.such.host.invalid/")})
        EXPECT_TRUE(transport->get({url, 5}).absent()) << url;
    EXPECT_EQ(textOf(transport->get({"HTTP://" + address + "file", 30})), "body");
    const FileDescriptor nobody = boundSocket();
    EXPECT_TRUE(transport->get({loopbackURL("http", portOf(nobody), "/"), 5}).absent());
}

TEST(LinuxHttpTransportEncryptionTest, trustsOnlyWhomItMay) {
    setenv("no_proxy", "*", 1);
    const Nginx server(Nginx::Encryption::SelfSigned);
    server.write("file", "secret");
    const std::string url = server.url("/file");
    EXPECT_TRUE(make<LinuxHttpTransport>()->get({url, 30}).absent());
    const auto trusting = make<LinuxHttpTransport>(
        LinuxHttpTransport::Settings{.certificates = server.certificate()});
    EXPECT_EQ(textOf(trusting->get({url, 30})), "secret");
    // The certificate is not for this name.
    std::string renamed = url;
    renamed.replace(url.find("127.0.0.1"), 9, "localhost");
    EXPECT_TRUE(trusting->get({renamed, 30}).absent());
    // What was trusted before on this thread counts for nothing.
    EXPECT_TRUE(make<LinuxHttpTransport>()->get({url, 30}).absent());
}

TEST(LinuxHttpTransportEncryptionTest, aProcessMayEndWhileThreadsAreAtWork) {
    setenv("no_proxy", "*", 1);
    const Nginx server(Nginx::Encryption::SelfSigned);
    server.write("file", noise(50000, 1));
    const auto endAtWork = [&] {
        const auto transport = make<LinuxHttpTransport>(
            LinuxHttpTransport::Settings{.certificates = server.certificate()});
        std::atomic<int> count = 0;
        // Each request is a thread's first and makes a connection.
        std::function<void()> getAgainAndAgain = [&] {
            transport->get({server.url("/file"), 30});
            ++count;
            count.notify_one();
            std::thread(getAgainAndAgain).detach();
        };
        for (int index = 0; index < 8; ++index)
            std::thread(getAgainAndAgain).detach();
        for (int seen = 0; seen < 20; seen = count)
            count.wait(seen);
        std::exit(0);
    };
    for (int attempt = 0; attempt < 5; ++attempt)
        EXPECT_EXIT(endAtWork(), testing::ExitedWithCode(0), "");
}
