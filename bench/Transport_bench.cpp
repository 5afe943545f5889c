#include <benchmark/benchmark.h>
#include <curl/curl.h>

#include <QEventLoop>
#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <algorithm>
#include <atomic>
#include <barrier>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <functional>
#include <string>
#include <thread>
#include <vector>

#include "tests/support/Nginx.h"
#include "zarnic/platform/services/HttpTransport.h"
#include "zarnic/platform/services/Services.h"

using namespace zn;

namespace {

constexpr std::size_t fileCount = 500;
constexpr std::size_t fileSize = 50 * 1024;
constexpr int workerCount = 8;

/// Files of one size on a server that runs until the program ends.
class Site {
public:
    Site() {
        setenv("no_proxy", "*", 1);
        for (std::size_t index = 0; index < fileCount; ++index) {
            const std::string name = std::to_string(index) + ".jpg";
            server_.write(name, std::string(fileSize, static_cast<char>(index)));
            urls_.push_back(server_.url("/" + name));
        }
    }

    const std::vector<std::string>& urls() const { return urls_; }

private:
    const Nginx server_{Nginx::Encryption::None, 2};
    std::vector<std::string> urls_;
};

const Site& site() {
    static const Site made;
    return made;
}

void requireAll(std::size_t bytes) {
    if (bytes == fileCount * fileSize)
        return;
    std::fprintf(stderr, "%zu bytes came instead of %zu\n", bytes, fileCount * fileSize);
    std::exit(1);
}

/// Gives the size of what one URL names; made once for each worker, and called on its thread.
using Getter = std::function<std::size_t(const std::string&)>;

/// Threads that share the URLs of a turn among them and live for many turns.
class Crew {
public:
    explicit Crew(const std::function<Getter()>& makeGetter) {
        for (int index = 0; index < workerCount; ++index)
            threads_.emplace_back([this, makeGetter] { work(makeGetter()); });
    }
    ~Crew() {
        ended_ = true;
        begin_.arrive_and_wait();
        for (std::thread& thread : threads_)
            thread.join();
    }
    Crew(const Crew&) = delete;
    Crew& operator=(const Crew&) = delete;

    std::size_t getAll() {
        next_ = 0;
        bytes_ = 0;
        begin_.arrive_and_wait();
        end_.arrive_and_wait();
        return bytes_;
    }

private:
    void work(const Getter& getter) {
        const auto& urls = site().urls();
        while (begin_.arrive_and_wait(), !ended_) {
            for (std::size_t index; (index = next_++) < urls.size();)
                bytes_ += getter(urls[index]);
            end_.arrive_and_wait();
        }
    }

    std::barrier<> begin_{workerCount + 1};
    std::barrier<> end_{workerCount + 1};
    std::atomic<bool> ended_ = false;
    std::atomic<std::size_t> next_ = 0;
    std::atomic<std::size_t> bytes_ = 0;
    std::vector<std::thread> threads_;
};

void measure(benchmark::State& state, const std::function<std::size_t()>& getAll) {
    requireAll(getAll());
    for ([[maybe_unused]] auto turn : state)
        requireAll(getAll());
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(fileCount));
}

void FilesGet_Zarnic(benchmark::State& state) {
    site();
    Crew crew([] {
        return [transport = Services::get<HttpTransport>()](const std::string& url) {
            return transport->get({url, 10}).bytes().size();
        };
    });
    measure(state, [&] { return crew.getAll(); });
}

std::size_t append(char* bytes, std::size_t size, std::size_t count, std::string* body) {
    body->append(bytes, size * count);
    return size * count;
}

/// A handle with nothing set but what it cannot do without.
class BareHandle {
public:
    BareHandle() : handle_(curl_easy_init()) {
        curl_easy_setopt(handle_, CURLOPT_WRITEFUNCTION, append);
        curl_easy_setopt(handle_, CURLOPT_WRITEDATA, &body_);
        curl_easy_setopt(handle_, CURLOPT_NOSIGNAL, 1L);
    }
    ~BareHandle() { curl_easy_cleanup(handle_); }
    BareHandle(const BareHandle&) = delete;
    BareHandle& operator=(const BareHandle&) = delete;

    std::size_t get(const std::string& url) {
        body_.clear();
        curl_easy_setopt(handle_, CURLOPT_URL, url.c_str());
        return curl_easy_perform(handle_) == CURLE_OK ? body_.size() : 0;
    }

private:
    CURL* handle_;
    std::string body_;
};

void FilesGet_Libcurl(benchmark::State& state) {
    site();
    curl_global_init(CURL_GLOBAL_DEFAULT);
    Crew crew([] {
        return [handle = std::make_shared<BareHandle>()](const std::string& url) {
            return handle->get(url);
        };
    });
    measure(state, [&] { return crew.getAll(); });
}

std::size_t getAllByQt(QNetworkAccessManager& manager) {
    QEventLoop loop;
    std::size_t bytes = 0;
    std::size_t left = fileCount;
    for (const std::string& url : site().urls()) {
        auto* reply = manager.get(QNetworkRequest(QUrl(QString::fromStdString(url))));
        QObject::connect(reply, &QNetworkReply::finished, [&, reply] {
            bytes += static_cast<std::size_t>(reply->readAll().size());
            reply->deleteLater();
            if (--left == 0)
                loop.quit();
        });
    }
    loop.exec();
    return bytes;
}

void FilesGet_Qt(benchmark::State& state) {
    site();
    QNetworkAccessManager manager;
    measure(state, [&] { return getAllByQt(manager); });
}

/// The tool, with its start.
void FilesGet_CurlParallel(benchmark::State& state) {
    const TemporaryFolder folder;
    {
        std::ofstream list(folder.path("list"));
        for (const std::string& url : site().urls())
            list << "url = " << url << "\noutput = /dev/null\n";
    }
    const std::string command = "curl --no-progress-meter --parallel --parallel-max " +
                                std::to_string(workerCount) + " --write-out '%{size_download}\\n'" +
                                " --config " + folder.path("list") +
                                " | awk '{ sum += $1 } END { printf \"%d\", sum }'";
    measure(state,
            [&] { return static_cast<std::size_t>(std::stoull(runCommand(command).output)); });
}

BENCHMARK(FilesGet_Zarnic)->UseRealTime();
BENCHMARK(FilesGet_Libcurl)->UseRealTime();
BENCHMARK(FilesGet_Qt)->UseRealTime();
BENCHMARK(FilesGet_CurlParallel)->UseRealTime();

}  // namespace
