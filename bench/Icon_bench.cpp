#include <benchmark/benchmark.h>
#include <spawn.h>
#include <sys/wait.h>

#include <QImage>
#include <QTemporaryDir>
#include <array>
#include <string>
#include <vector>

#include "zarnic/ZNAppIconHelper.h"

using namespace zn;

namespace {

constexpr std::array sizes{40, 60, 58, 87, 80, 120, 120, 180, 20,
                           40, 29, 58, 40, 80, 76,  152, 167, 1024};

/// A folder with a picture that is neither trivially packed nor noise.
const std::string& folder() {
    static const QTemporaryDir place;
    static const std::string path = [] {
        QImage image(1024, 1024, QImage::Format_RGB32);
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x)
                image.setPixel(x, y, qRgb(x / 4, y / 4, (x * y / 1024 + x * 7 % 5) & 255));
        image.save(place.filePath("icon.png"), "PNG");
        const std::string result = place.path().toStdString();
        setenv("ZARNIC_HOME", result.c_str(), 1);
        return result;
    }();
    return path;
}

void iconsOurs() {
    ZNAppIconHelper::ZN_GeneratorAppIconViaImage(
        UIImage::imageWithContentsOfFile(folder() + "/icon.png"));
}

/// One process that decodes once and writes all the sizes.
std::vector<std::string> convertCommand() {
    std::vector<std::string> command{"/usr/bin/convert", folder() + "/icon.png", "-write",
                                     "mpr:source", "+delete"};
    for (std::size_t i = 0; i < sizes.size(); ++i) {
        const std::string size = std::to_string(sizes[i]);
        for (const std::string& part :
             {std::string("("), std::string("mpr:source"), std::string("-resize"),
              size + "x" + size, std::string("-quality"), std::string("90"), std::string("-write"),
              folder() + "/" + std::to_string(i) + ".jpg", std::string("+delete"),
              std::string(")")})
            command.push_back(part);
    }
    command.emplace_back("mpr:source");
    command.emplace_back("null:");
    return command;
}

bool iconsPeer() {
    std::vector<std::string> command = convertCommand();
    std::vector<char*> arguments;
    for (std::string& part : command)
        arguments.push_back(part.data());
    arguments.push_back(nullptr);
    pid_t child = 0;
    int status = 1;
    return posix_spawn(&child, arguments[0], nullptr, nullptr, arguments.data(), environ) == 0 &&
           waitpid(child, &status, 0) == child && status == 0;
}

double meanGray(const QImage& image) {
    double sum = 0;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            sum += qGray(image.pixel(x, y));
    return sum / (image.width() * image.height());
}

/// Both have written all sizes, with the same picture in them.
bool sameIcons() {
    const QImage ours(QString::fromStdString(folder() + "/Documents/iPad_83.5@2x.jpg"));
    const QImage peer(QString::fromStdString(folder() + "/16.jpg"));
    const QImage last(QString::fromStdString(folder() + "/17.jpg"));
    return !ours.isNull() && ours.size() == peer.size() && last.width() == 1024 &&
           std::abs(meanGray(ours) - meanGray(peer)) < 1;
}

void IconSet_Zarnic(benchmark::State& state) {
    iconsOurs();
    if (!iconsPeer() || !sameIcons())
        return state.SkipWithError("the icons differ");
    for ([[maybe_unused]] auto turn : state)
        iconsOurs();
}

void IconSet_Convert(benchmark::State& state) {
    for ([[maybe_unused]] auto turn : state)
        iconsPeer();
}

BENCHMARK(IconSet_Zarnic)->UseRealTime()->Unit(benchmark::kMillisecond);
BENCHMARK(IconSet_Convert)->UseRealTime()->Unit(benchmark::kMillisecond);

}  // namespace
