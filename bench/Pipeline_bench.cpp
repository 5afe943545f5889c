#include <benchmark/benchmark.h>
#include <curl/curl.h>
#include <turbojpeg.h>

#include <QEventLoop>
#include <QLabel>
#include <QNetworkAccessManager>
#include <QNetworkDiskCache>
#include <QNetworkReply>
#include <QPixmapCache>
#include <atomic>
#include <chrono>
#include <condition_variable>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <mutex>
#include <thread>
#include <unordered_map>

#include "tests/support/Nginx.h"
#include "tests/support/TemporaryFolder.h"
#include "zarnic/NSString+ZNCategory.h"
#include "zarnic/ZNImageHelper.h"
#include "zarnic/platform/drawing/UIColor.h"
#include "zarnic/platform/foundation/NSRunLoop.h"

using namespace zn;

namespace {

constexpr int pictureCount = 500;
constexpr int side = 400;
constexpr int workerCount = 8;
constexpr std::int64_t roomForAll = std::int64_t{1} << 30;

/// Rings and stripes: neither flat nor noise.
std::string picture(int number) {
    UIGraphicsBeginImageContextWithOptions({side, side}, true, 1);
    const auto context = UIGraphicsGetCurrentContext();
    for (int ring = 0; ring < 60; ++ring) {
        const double part = static_cast<double>((ring * 37 + number * 11) % 100) / 100;
        context->setFillColor({part, 1 - part, static_cast<double>(ring) / 60, 1});
        const double inset = ring * 3.3;
        context->fillEllipse({inset, inset * 0.7, side - 2 * inset, side - inset});
    }
    const auto image = UIGraphicsGetImageFromCurrentImageContext();
    UIGraphicsEndImageContext();
    const auto jpeg = UIImageJPEGRepresentation(image, 0.85).value();
    return {reinterpret_cast<const char*>(jpeg.data()), jpeg.size()};
}

class Album {
public:
    Album() {
        setenv("no_proxy", "*", 1);
        setenv("ZARNIC_HOME", home_.path().c_str(), 1);
        for (int number = 0; number < pictureCount; ++number) {
            const std::string name = std::to_string(number) + ".jpg";
            server_.write(name, picture(number % 20));
            urls_.push_back(server_.url("/" + name));
        }
    }
    /// Another one in each turn, so that no file has to be deleted between two.
    std::string url(std::size_t index, int turn) const {
        return urls_[index] + "?" + std::to_string(turn);
    }
    std::string folder() const { return home_.path("by-hand"); }

private:
    const TemporaryFolder home_;
    const Nginx server_{Nginx::Encryption::None, 2};
    std::vector<std::string> urls_;
};

const Album& album() {
    static const Album made;
    return made;
}

void require(bool holds, const char* what) {
    if (holds)
        return;
    std::fprintf(stderr, "pipeline: %s\n", what);
    std::exit(1);
}

int nextTurn = 0;

/// Times the turns alone, not the emptying of memory between them.
template <class Clear, class Turn>
void measure(benchmark::State& state, Clear clear, Turn turn) {
    using Seconds = std::chrono::duration<double>;
    clear();
    turn(nextTurn++);
    for ([[maybe_unused]] auto each : state) {
        clear();
        const auto begin = std::chrono::steady_clock::now();
        turn(nextTurn++);
        state.SetIterationTime(Seconds(std::chrono::steady_clock::now() - begin).count());
    }
    state.SetItemsProcessed(state.iterations() * pictureCount);
}

std::int64_t sizeOfAllOurs = 0;

void Pipeline_Zarnic(benchmark::State& state) {
    album();
    const auto helper = ZNImageHelper::SharedInstance();
    helper->setMemoryMaxSize(roomForAll);
    std::vector<Ref<UIImageView>> views;
    for (int number = 0; number < pictureCount; ++number)
        views.push_back(make<UIImageView>());
    const auto clear = [&] {
        for (const auto& view : views)
            view->setImage(nullptr);
        const ObjectLock lock(helper->bufMemory());
        helper->bufMemory()->removeAllObjects();
        helper->setMemorySize(0);
    };
    measure(state, clear, [&](int turn) {
        int told = 0;
        for (std::size_t index = 0; index < views.size(); ++index)
            helper->downloadImageFillView(views[index], nullptr, album().url(index, turn),
                                          [&told](const auto&, const auto& image) {
                                              require(image != nullptr, "no image");
                                              ++told;
                                          });
        while (told < pictureCount)
            NSRunLoop::mainRunLoop()->runPass(1);
    });
    sizeOfAllOurs = helper->memorySize();
    clear();
}

struct Decoded {
    std::vector<unsigned char> pixels;
    unsigned long size = 0;
};

/// The same steps with nothing around them.
class ByHand {
public:
    ByHand() {
        std::filesystem::create_directories(album().folder());
        for (int index = 0; index < workerCount; ++index)
            threads_.emplace_back([this] { work(); });
    }
    ~ByHand() {
        {
            const std::lock_guard guard(mutex_);
            ended_ = true;
        }
        changed_.notify_all();
        for (std::thread& thread : threads_)
            thread.join();
    }
    ByHand(const ByHand&) = delete;
    ByHand& operator=(const ByHand&) = delete;

    void clear() {
        views_.assign(pictureCount, nullptr);
        memory_.clear();
        size_ = 0;
    }
    void fetchAll(int turn) {
        {
            const std::lock_guard guard(mutex_);
            turn_ = turn;
            next_ = 0;
        }
        changed_.notify_all();
        for (int told = 0; told < pictureCount;) {
            std::unique_lock lock(mutex_);
            arrived_.wait(lock, [this] { return !forMain_.empty(); });
            const auto batch = std::exchange(forMain_, {});
            lock.unlock();
            for (const auto& [index, image] : batch) {
                views_[index] = image;
                ++told;
            }
        }
    }
    unsigned long size() const { return size_; }

private:
    static std::size_t append(char* bytes, std::size_t size, std::size_t count, std::string* body) {
        body->append(bytes, size * count);
        return size * count;
    }
    static std::shared_ptr<Decoded> decode(tjhandle reader, tjhandle writer,
                                           const std::string& body) {
        auto image = std::make_shared<Decoded>();
        image->pixels.resize(std::size_t{side} * side * 4);
        const auto* bytes = reinterpret_cast<const unsigned char*>(body.data());
        require(tjDecompress2(reader, bytes, body.size(), image->pixels.data(), side, 0, side,
                              TJPF_BGRA, 0) == 0,
                "not decoded");
        unsigned char* encoded = nullptr;
        tjCompress2(writer, image->pixels.data(), side, 0, side, TJPF_BGRX, &encoded, &image->size,
                    TJSAMP_444, 100, 0);
        tjFree(encoded);
        return image;
    }
    bool take(std::size_t& index) {
        std::unique_lock lock(mutex_);
        changed_.wait(lock, [this] { return ended_ || next_ < pictureCount; });
        index = static_cast<std::size_t>(next_++);
        return !ended_;
    }
    void work() {
        CURL* const handle = curl_easy_init();
        tjhandle const reader = tjInitDecompress();
        tjhandle const writer = tjInitCompress();
        std::string body;
        curl_easy_setopt(handle, CURLOPT_WRITEFUNCTION, append);
        curl_easy_setopt(handle, CURLOPT_WRITEDATA, &body);
        curl_easy_setopt(handle, CURLOPT_NOSIGNAL, 1L);
        for (std::size_t index = 0; take(index);) {
            const std::string url = album().url(index, turn_);
            const std::string key = zn::zn_EncryptMD5(url).value();
            body.clear();
            curl_easy_setopt(handle, CURLOPT_URL, url.c_str());
            require(curl_easy_perform(handle) == CURLE_OK, "not fetched");
            auto image = decode(reader, writer, body);
            std::ofstream(album().folder() + "/" + key, std::ios::binary) << body;
            const std::lock_guard guard(mutex_);
            memory_[key] = image;
            size_ += image->size;
            forMain_.emplace_back(index, std::move(image));
            arrived_.notify_one();
        }
        tjDestroy(writer);
        tjDestroy(reader);
        curl_easy_cleanup(handle);
    }

    std::mutex mutex_;
    std::condition_variable changed_;
    std::condition_variable arrived_;
    bool ended_ = false;
    int next_ = pictureCount;
    std::atomic<int> turn_ = 0;
    unsigned long size_ = 0;
    std::unordered_map<std::string, std::shared_ptr<Decoded>> memory_;
    std::vector<std::pair<std::size_t, std::shared_ptr<Decoded>>> forMain_;
    std::vector<std::shared_ptr<Decoded>> views_;
    std::vector<std::thread> threads_;
};

void Pipeline_ByHand(benchmark::State& state) {
    album();
    ByHand byHand;
    measure(
        state, [&] { byHand.clear(); }, [&](int turn) { byHand.fetchAll(turn); });
    require(sizeOfAllOurs == 0 || static_cast<std::int64_t>(byHand.size()) == sizeOfAllOurs,
            "the images count other sizes");
}

void Pipeline_Qt(benchmark::State& state) {
    QNetworkAccessManager manager;
    auto* const disk = new QNetworkDiskCache(&manager);
    disk->setCacheDirectory(QString::fromStdString(album().folder() + "-qt"));
    disk->setMaximumCacheSize(roomForAll);
    manager.setCache(disk);
    QPixmapCache::setCacheLimit(static_cast<int>(roomForAll >> 10));
    std::vector<std::unique_ptr<QLabel>> labels;
    for (int number = 0; number < pictureCount; ++number)
        labels.push_back(std::make_unique<QLabel>());
    const auto clear = [&] {
        QPixmapCache::clear();
        for (const auto& label : labels)
            label->clear();
    };
    measure(state, clear, [&](int turn) {
        QEventLoop loop;
        int told = 0;
        for (std::size_t index = 0; index < labels.size(); ++index) {
            const QString url = QString::fromStdString(album().url(index, turn));
            QNetworkReply* const reply = manager.get(QNetworkRequest(QUrl(url)));
            QObject::connect(reply, &QNetworkReply::finished, [&, reply, url, index] {
                QPixmap image;
                require(image.loadFromData(reply->readAll()), "not decoded by Qt");
                QPixmapCache::insert(url, image);
                labels[index]->setPixmap(image);
                reply->deleteLater();
                if (++told == pictureCount)
                    loop.quit();
            });
        }
        loop.exec();
    });
    clear();
}

BENCHMARK(Pipeline_Zarnic)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(Pipeline_ByHand)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(Pipeline_Qt)->UseManualTime()->Unit(benchmark::kMillisecond);

}  // namespace
