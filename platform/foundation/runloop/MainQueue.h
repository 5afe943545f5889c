#pragma once

#include <cstdint>
#include <functional>
#include <mutex>
#include <vector>

namespace zn {

/// The blocks that wait for the main loop, first in, first out.
class MainQueue {
public:
    using Block = std::function<void()>;

    static MainQueue& shared();

    /// From any thread.
    void add(Block block);
    /// Runs the blocks that were there at the call; main thread. A nested call runs what the outer
    /// one has left first, so that the order holds. Returns whether there was one.
    bool run();

private:
    void takeIncoming();

    std::mutex mutex_;
    std::vector<Block> incoming_;

    // The main thread's own: taken blocks, of which those before `next_` have run.
    std::vector<Block> taken_;
    std::size_t next_ = 0;
    std::uint64_t takenEver_ = 0;
    std::uint64_t runEver_ = 0;
};

}  // namespace zn
