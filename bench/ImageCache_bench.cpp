#include <benchmark/benchmark.h>

#include <QCache>
#include <QCryptographicHash>
#include <QPixmapCache>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

#include "zarnic/NSString+ZNCategory.h"
#include "zarnic/ZNImageHelper.h"
#include "zarnic/platform/foundation/Clock.h"

using namespace zn;

namespace {

constexpr int urlCount = 100;
constexpr int entryCount = 10'000;

std::string urlOf(int number) {
    return "http://pictures.example/albums/2026/summer/" + std::to_string(number) + ".jpg";
}

Ref<UIImage> smallImage() {
    UIGraphicsBeginImageContext({8, 8});
    const auto image = UIGraphicsGetImageFromCurrentImageContext();
    UIGraphicsEndImageContext();
    return image;
}

QByteArray keyOf(const QByteArray& url) {
    return QCryptographicHash::hash(url, QCryptographicHash::Md5).toHex();
}

/// A hundred images in memory; each call fills the view with another one.
void MemoryHit_Zarnic(benchmark::State& state) {
    const auto helper = ZNImageHelper::SharedInstance();
    std::vector<std::string> urls;
    for (int number = 0; number < urlCount; ++number) {
        urls.push_back(urlOf(number));
        helper->setBufMemoryModelByKey(zn::zn_EncryptMD5(urls.back()).value(), smallImage());
    }
    const auto view = make<UIImageView>();
    std::size_t turn = 0;
    for ([[maybe_unused]] auto each : state)
        ZNImageHelper::DownloadImageFillView(view, nullptr, urls[turn++ % urls.size()]);
    if (!view->image())
        std::exit(1);
}

void MemoryHit_Qt(benchmark::State& state) {
    std::vector<QByteArray> urls;
    QPixmapCache::setCacheLimit(100'000);
    for (int number = 0; number < urlCount; ++number) {
        urls.push_back(QByteArray::fromStdString(urlOf(number)));
        QPixmapCache::insert(QString::fromLatin1(keyOf(urls.back())), QPixmap(8, 8));
    }
    std::size_t turn = 0;
    for ([[maybe_unused]] auto each : state) {
        QPixmap found;
        if (!QPixmapCache::find(QString::fromLatin1(keyOf(urls[turn++ % urls.size()])), &found))
            std::exit(1);
        benchmark::DoNotOptimize(found);
    }
}

/// Keys that come back long after they have gone.
std::vector<std::string> manyKeys() {
    std::vector<std::string> keys;
    for (int number = 0; number < 4 * entryCount; ++number)
        keys.push_back(zn::zn_EncryptMD5(urlOf(number)).value());
    return keys;
}

/// Each insertion removes the entry that was unused for longest, of ten thousand.
void Evict_Zarnic(benchmark::State& state) {
    const auto keys = manyKeys();
    const auto helper = make<ZNImageHelper>();
    const auto image = smallImage();
    helper->setMemoryMaxSize(entryCount * helper->getImageSize(image));
    std::size_t turn = 0;
    for (; turn < entryCount; ++turn)
        helper->setBufMemoryModelByKey(keys[turn], image);
    for ([[maybe_unused]] auto each : state)
        helper->setBufMemoryModelByKey(keys[turn++ % keys.size()], image);
    if (helper->bufMemory()->count() != entryCount)
        std::exit(1);
}

/// The same, with every second entry used again meanwhile.
void EvictUsed_Zarnic(benchmark::State& state) {
    const auto keys = manyKeys();
    const auto helper = make<ZNImageHelper>();
    const auto image = smallImage();
    helper->setMemoryMaxSize(entryCount * helper->getImageSize(image));
    std::size_t turn = 0;
    for (; turn < entryCount; ++turn)
        helper->setBufMemoryModelByKey(keys[turn], image);
    for ([[maybe_unused]] auto each : state) {
        if (const auto used = helper->getBufMemoryModelByKey(keys[(turn - 5000) % keys.size()]))
            used->setLastCallTime(Clock::shared().now());
        helper->setBufMemoryModelByKey(keys[turn++ % keys.size()], image);
    }
}

void Evict_Qt(benchmark::State& state) {
    struct Entry {
        QPixmap image;
    };
    std::vector<QString> keys;
    for (const std::string& key : manyKeys())
        keys.push_back(QString::fromStdString(key));
    const QPixmap image(8, 8);
    QCache<QString, Entry> cache(entryCount);
    std::size_t turn = 0;
    for (; turn < entryCount; ++turn)
        cache.insert(keys[turn], new Entry{image});
    for ([[maybe_unused]] auto each : state)
        cache.insert(keys[turn++ % keys.size()], new Entry{image});
    if (cache.size() != entryCount)
        std::exit(1);
}

BENCHMARK(MemoryHit_Zarnic);
BENCHMARK(MemoryHit_Qt);
BENCHMARK(Evict_Zarnic);
BENCHMARK(EvictUsed_Zarnic);
BENCHMARK(Evict_Qt);

}  // namespace
