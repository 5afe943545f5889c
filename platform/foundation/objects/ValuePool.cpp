#include "platform/foundation/objects/ValuePool.h"

#include <sys/mman.h>

#include <cstdlib>

namespace zn {
namespace {

void* allocateChunk(std::size_t size, std::size_t alignment) {
    void* memory = std::aligned_alloc(alignment, size);
    if (memory == nullptr)
        throw std::bad_alloc();
    return memory;
}

}  // namespace

struct ValuePool::Chunk {
    /// More than a chunk can hold: while the pool gives from a chunk, its count cannot reach 0.
    static constexpr std::uint32_t open = 1U << 30;

    void release(std::uint32_t count) noexcept {
        if (live.load(std::memory_order_acquire) == count ||
            live.fetch_sub(count, std::memory_order_acq_rel) == count)
            std::free(this);
    }

    alignas(8) std::atomic<std::uint32_t> live{open};
};

void ValuePool::startChunk() {
    const bool isLarge = chunks_ >= smallChunks;
    const std::size_t size = isLarge ? largeChunkSize : chunkSize;
    void* memory = allocateChunk(size, isLarge ? largeChunkSize : alignof(std::max_align_t));
    // Only an advice: without large pages small ones do.
    if (isLarge)
        madvise(memory, size, MADV_HUGEPAGE);
    seal();
    chunk_ = ::new (memory) Chunk;
    chunkEnd_ = size;
    room_ = size - sizeof(Chunk);
    ++chunks_;
}

void ValuePool::seal() noexcept {
    if (chunk_ != nullptr)
        chunk_->release(Chunk::open - given_);
    given_ = 0;
}

void ValuePool::free(detail::Counted* block) noexcept {
    const std::uint32_t offset = block->offset;
    if (offset == 0) {
        ::operator delete(block);
        return;
    }
    auto* chunk = reinterpret_cast<std::byte*>(block) - offset;
    reinterpret_cast<Chunk*>(chunk)->release(1);
}

}  // namespace zn
