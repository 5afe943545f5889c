#pragma once

#include <cstddef>
#include <cstdint>
#include <new>
#include <utility>

#include "zarnic/platform/foundation/Value.h"

namespace zn {

/// Memory for the blocks of values that are made together and will mostly die together, as those of
/// one text: in chunks, each given back when the last block in it is gone. A pool belongs to one
/// thread; its blocks may die on any.
class ValuePool {
public:
    ValuePool() = default;
    ~ValuePool() { seal(); }
    ValuePool(const ValuePool&) = delete;
    ValuePool& operator=(const ValuePool&) = delete;

    /// Constructs a block with so many bytes behind it. Without a pool, and when it is large, it
    /// gets memory of its own.
    template <class Block, class... Arguments>
    static Block* create(ValuePool* pool, std::size_t bytesBehind, Arguments&&... arguments) {
        const std::size_t size = sizeof(Block) + bytesBehind;
        const bool pooled = pool != nullptr && size <= maximumSize;
        void* memory = pooled ? pool->allocate(size) : ::operator new(size);
        auto* block = ::new (memory) Block(std::forward<Arguments>(arguments)...);
        block->offset = pooled ? pool->lastOffset_ : 0;
        return block;
    }

    /// Gives back the memory of a block whose contents are destroyed.
    static void free(detail::Counted* block) noexcept;

private:
    struct Chunk;
    /// Small enough that a value which outlives its neighbours keeps little alive.
    static constexpr std::size_t chunkSize = 32704;
    static constexpr std::size_t maximumSize = 4096;
    /// Once a pool has given this many chunks, 4 MB, it goes on with large ones of the size of the
    /// processor's large pages: pages of 4 KB would then cost more than all else that is done with
    /// the values.
    static constexpr std::size_t smallChunks = 128;
    static constexpr std::size_t largeChunkSize = 2 * 1024 * 1024;

    void* allocate(std::size_t size) {
        const std::size_t rounded = (size + 7) & ~std::size_t{7};
        if (room_ < rounded)
            startChunk();
        lastOffset_ = static_cast<std::uint32_t>(chunkEnd_ - room_);
        room_ -= rounded;
        ++given_;
        return reinterpret_cast<std::byte*>(chunk_) + lastOffset_;
    }
    void startChunk();
    void seal() noexcept;

    Chunk* chunk_ = nullptr;
    std::size_t chunkEnd_ = 0;
    std::size_t room_ = 0;
    std::size_t chunks_ = 0;
    std::uint32_t given_ = 0;
    std::uint32_t lastOffset_ = 0;
};

}  // namespace zn
