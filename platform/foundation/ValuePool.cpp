#include "platform/foundation/ValuePool.h"

namespace zn {

struct ValuePool::Chunk {
    /// More than a chunk can hold: while the pool gives from a chunk, its count cannot reach 0.
    static constexpr std::uint32_t open = 1U << 30;

    void release(std::uint32_t count) noexcept {
        if (live.load(std::memory_order_acquire) == count ||
            live.fetch_sub(count, std::memory_order_acq_rel) == count)
            ::operator delete(this);
    }

    alignas(8) std::atomic<std::uint32_t> live{open};
};

void ValuePool::startChunk() {
    void* memory = ::operator new(chunkSize);
    seal();
    chunk_ = ::new (memory) Chunk;
    room_ = chunkSize - sizeof(Chunk);
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
