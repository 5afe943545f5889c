#include <benchmark/benchmark.h>

#include <openssl/evp.h>

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <random>
#include <string>
#include <vector>

#include "zarnic/NSString+ZNCategory.h"
#include "zarnic/ZNFileHelper.h"

namespace {

namespace fs = std::filesystem;

[[noreturn]] void fail(const char* what) {
    std::fprintf(stderr, "%s: results differ\n", what);
    std::exit(1);
}

// The digest of a text as digits.

const std::string sixtyBytes = "https://example.com/pictures/2018/01/01/a-picture-of-it.jpeg";

/// libcrypto's best path: the algorithm fetched once, one context, a table for the digits.
class PeerDigest {
public:
    std::string hexadecimal(const std::string& text) {
        static constexpr char digits[] = "0123456789abcdef";
        unsigned char bytes[EVP_MAX_MD_SIZE];
        unsigned size = 0;
        EVP_DigestInit_ex2(context_, algorithm_, nullptr);
        EVP_DigestUpdate(context_, text.data(), text.size());
        EVP_DigestFinal_ex(context_, bytes, &size);
        std::string result(2 * std::size_t{size}, '\0');
        for (std::size_t i = 0; i < size; ++i) {
            result[2 * i] = digits[bytes[i] >> 4];
            result[2 * i + 1] = digits[bytes[i] & 15];
        }
        return result;
    }

private:
    // Kept until the process ends.
    EVP_MD* algorithm_ = EVP_MD_fetch(nullptr, "MD5", nullptr);
    EVP_MD_CTX* context_ = EVP_MD_CTX_new();
};

void Md5OfSixtyBytes_Zarnic(benchmark::State& state) {
    if (zn::zn_EncryptMD5(sixtyBytes) != PeerDigest().hexadecimal(sixtyBytes))
        fail("MD5");
    for (auto _ : state)
        benchmark::DoNotOptimize(zn::zn_EncryptMD5(sixtyBytes));
}
BENCHMARK(Md5OfSixtyBytes_Zarnic);

void Md5OfSixtyBytes_Libcrypto(benchmark::State& state) {
    PeerDigest digest;
    for (auto _ : state)
        benchmark::DoNotOptimize(digest.hexadecimal(sixtyBytes));
}
BENCHMARK(Md5OfSixtyBytes_Libcrypto);

// The size of a folder.

/// 100,000 files in 2,000 folders, up to 20 deep; removed at the end.
class Tree {
public:
    static const Tree& shared() {
        static const Tree tree;
        return tree;
    }
    const std::string& path() const { return path_; }
    std::int64_t weightedSize() const { return weightedSize_; }

private:
    static constexpr int folderCount = 2000;
    static constexpr int filesPerFolder = 50;
    static constexpr int maximumDepth = 20;

    struct Folder {
        std::string path;
        int depth;  ///< Of the files in it.
    };

    Tree() {
        std::string name = (fs::temp_directory_path() / "zarnic-tree-XXXXXX").string();
        if (mkdtemp(name.data()) == nullptr)
            fail("mkdtemp");
        path_ = name;
        std::vector<Folder> folders{{path_, 1}};
        while (folders.size() < folderCount) {
            Folder folder = folders[folders.size() - 1 - random_() % among(folders)];
            if (folder.depth == maximumDepth)
                continue;
            folder.path += "/folder" + std::to_string(folders.size());
            ++folder.depth;
            fs::create_directory(folder.path);
            folders.push_back(folder);
        }
        for (const Folder& folder : folders) {
            for (int i = 0; i < filesPerFolder; ++i)
                writeFile(folder, "file" + std::to_string(i), random_() % 100);
        }
    }
    ~Tree() { fs::remove_all(path_); }

    /// Mostly one of the last ones, so that it goes deep.
    std::size_t among(const std::vector<Folder>& folders) {
        return random_() % 4 == 0 ? folders.size() : std::min<std::size_t>(folders.size(), 100);
    }

    void writeFile(const Folder& folder, const std::string& name, std::size_t size) {
        std::ofstream(folder.path + "/" + name) << std::string(size, 'x');
        weightedSize_ += static_cast<std::int64_t>(size) << (folder.depth - 1);
    }

    std::mt19937 random_{1};
    std::string path_;
    std::int64_t weightedSize_ = 0;
};

void SizeOfFolder_Zarnic(benchmark::State& state) {
    const Tree& tree = Tree::shared();
    if (zn::ZNFileHelper::GetFileSizeAtPath(tree.path()) != tree.weightedSize())
        fail("folder size");
    for (auto _ : state)
        benchmark::DoNotOptimize(zn::ZNFileHelper::GetFileSizeAtPath(tree.path()));
}
BENCHMARK(SizeOfFolder_Zarnic)->UseRealTime()->Unit(benchmark::kMillisecond);

void SizeOfFolder_Du(benchmark::State& state) {
    const std::string command = "du -s " + Tree::shared().path() + " > /dev/null";
    for (auto _ : state) {
        if (std::system(command.c_str()) != 0)
            fail("du");
    }
}
BENCHMARK(SizeOfFolder_Du)->UseRealTime()->Unit(benchmark::kMillisecond);

}  // namespace
