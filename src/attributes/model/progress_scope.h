#pragma once

#include <cstddef>

namespace zu {

/// The host's progress meter for a job of many equal steps: there for the scope's life, and gone on every way
/// out of it. The meter is moved for each hundredth of the job only.
class ProgressScope {
public:
    /// `label` is the id of a text of the library.
    ProgressScope(unsigned label, std::size_t steps);
    ~ProgressScope();
    ProgressScope(const ProgressScope&) = delete;
    ProgressScope& operator=(const ProgressScope&) = delete;

    /// One more step is done.
    void advance();

private:
    std::size_t steps_;
    std::size_t done_ = 0;
    std::size_t percent_ = 0;
};

} // namespace zu
