#pragma once

#include "line_block.h"

#include <afx.h>

#include <algorithm>
#include <deque>
#include <functional>
#include <future>
#include <optional>
#include <thread>
#include <utility>

namespace zu {

/// Reads a text file block by block; several threads process the blocks of a large file.
template <typename Result>
class BlockReader {
public:
    /// Processes the lines of a block; must not access objects of other threads.
    using Read = std::function<Result(LineBlock block)>;

    /// Starts at the file's current line.
    BlockReader(CStdioFile& file, Read read) : file_(file), read_(std::move(read)) {}

    /// Returns the result of the next block, in file order; nullopt at the end. Rethrows exceptions of
    /// reading the file and of processing a block in the same order.
    std::optional<Result> next() {
        do
            start();
        while (!complete_ && blocks_.size() < threads_);
        if (blocks_.empty()) {
            if (failure_)
                AfxThrowFileException(failure_->m_cause, failure_->m_lOsError, failure_->m_strFileName);
            return std::nullopt;
        }
        std::future<Result> first = std::move(blocks_.front());
        blocks_.pop_front();
        return first.get();
    }

private:
    void start() {
        if (complete_)
            return;
        try {
            LineBlock block;
            if (!readLines(file_, block, blockSize_)) {
                complete_ = true;
                return;
            }
            complete_ = block.isLast();
            blocks_.push_back(std::async(policy(), std::cref(read_), std::move(block)));
            if (complete_)
                blocks_.back().wait();
            blockSize_ = std::min(blockSize_ + blockSize_ / 16, kLargeBlock);
        } catch (CFileException* error) {
            // Reports the error in file order; the table may end earlier.
            complete_ = true;
            failure_.emplace(error->m_cause, error->m_lOsError, error->m_strFileName);
            error->Delete();
        }
    }
    /// Defers to the calling thread the last block, often the only one, and every block when the system has
    /// one hardware thread.
    [[nodiscard]] std::launch policy() const {
        const bool here = complete_ || threads_ <= 1;
        return here ? std::launch::deferred : std::launch::async | std::launch::deferred;
    }

    // Starting a thread costs as much as reading about 50 KB.
    static constexpr UINT kSmallBlock = 1U << 18U;
    static constexpr UINT kLargeBlock = 1U << 20U;
    static constexpr unsigned kMostThreads = 8;

    CStdioFile& file_;
    Read read_;
    UINT blockSize_ = kSmallBlock;
    unsigned threads_ = std::min(std::thread::hardware_concurrency(), kMostThreads);
    std::deque<std::future<Result>> blocks_; ///< Waits for its threads; declared after the members they use.
    std::optional<CFileException> failure_;  ///< Of reading the file after the last block.
    bool complete_ = false;
};

} // namespace zu
