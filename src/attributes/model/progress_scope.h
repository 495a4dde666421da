#pragma once

#include <cstddef>

namespace zu {

/// Shows the host's progress meter for a job of equal steps and restores the status bar on destruction. The
/// meter advances in whole per cents only, so that updates cost little in long jobs.
class ProgressScope {
public:
    /// `label` is the id of a library text.
    ProgressScope(unsigned label, std::size_t steps);
    ~ProgressScope();
    ProgressScope(const ProgressScope&) = delete;
    ProgressScope& operator=(const ProgressScope&) = delete;

    /// Counts one completed step.
    void advance();

private:
    std::size_t steps_;
    std::size_t done_ = 0;
    std::size_t percent_ = 0;
};

} // namespace zu
