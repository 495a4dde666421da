#pragma once

#include <afx.h>

#include <algorithm>
#include <deque>
#include <exception>
#include <functional>
#include <future>
#include <optional>
#include <thread>
#include <utility>

namespace zu {

/// Reads a text file block by block, the blocks of a large one at the same time by several threads.
template <typename Result>
class BlockReader {
public:
    /// Makes something of a block's lines, away from other threads' objects.
    using Read = std::function<Result(CTextBlock block)>;

    /// For the lines of the file that were not read yet.
    BlockReader(CStdioFile& file, Read read) : file_(file), read_(std::move(read)) {}

    /// What became of the next block, in the order of the file; nullopt at its end. Throws what reading the
    /// file or the block threw, in its place.
    std::optional<Result> next() {
        do
            start();
        while (!complete_ && blocks_.size() < threads_);
        if (blocks_.empty())
            return std::nullopt;
        std::future<Result> first = std::move(blocks_.front());
        blocks_.pop_front();
        return first.get();
    }

private:
    void start() {
        if (complete_)
            return;
        try {
            CTextBlock block;
            if (file_.ReadBlock(block, blockSize_) == FALSE) {
                complete_ = true;
                return;
            }
            complete_ = block.IsLast() != FALSE;
            blocks_.push_back(std::async(policy(), std::cref(read_), std::move(block)));
            if (complete_)
                blocks_.back().wait();
            blockSize_ = std::min(blockSize_ + blockSize_ / 16, kLargeBlock);
        } catch (const CFileException&) {
            // Who reads in order may not get as far.
            complete_ = true;
            std::promise<Result> failure;
            failure.set_exception(std::current_exception());
            blocks_.push_back(failure.get_future());
        }
    }
    /// The last block, often the only one, is read by this thread; so are all where there is but one, or
    /// where the system gives no more.
    [[nodiscard]] std::launch policy() const {
        const bool here = complete_ || threads_ <= 1;
        return here ? std::launch::deferred : std::launch::async | std::launch::deferred;
    }

    // To start a thread takes as long as reading some 50 KB.
    static constexpr UINT kSmallBlock = 1U << 18U;
    static constexpr UINT kLargeBlock = 1U << 20U;
    static constexpr unsigned kMostThreads = 8;

    CStdioFile& file_;
    Read read_;
    UINT blockSize_ = kSmallBlock;
    unsigned threads_ = std::min(std::thread::hardware_concurrency(), kMostThreads);
    std::deque<std::future<Result>> blocks_; ///< Last, so that no thread outlives what it uses.
    bool complete_ = false;
};

} // namespace zu
