#pragma once

#include "batch/tasks.h"
#include "terminal.h"

#include <chrono>
#include <string>

namespace zu::app {

/// How the results of several drawings are printed.
enum class ResultForm {
    text, ///< Each below its drawing's name.
    json, ///< One line a drawing: {"drawing","status","result","error"}.
    none, ///< Not at all.
    csv   ///< One table, whose first column is the drawing.
};

/// Prints what runs of the program for several drawings printed: results on the standard output, messages, a
/// progress line and a summary on the standard error.
class ResultPrinter {
public:
    ResultPrinter(ResultForm form, std::size_t drawings) : form_(form), drawings_(drawings) {}

    void print(const std::string& drawing, const TaskResult& result);
    void showProgress(std::size_t done) { progress_.show(done, drawings_); }
    void printSummary();
    [[nodiscard]] int worstStatus() const { return worst_; }

private:
    using Clock = std::chrono::steady_clock;

    ResultForm form_;
    std::size_t drawings_;
    std::size_t failed_ = 0;
    int worst_ = 0;
    bool isFirst_ = true;
    ProgressLine progress_;
    Clock::time_point started_ = Clock::now();
};

/// What went wrong in a run of the program, without the program's name; empty when all went well.
[[nodiscard]] std::string errorOf(const TaskResult& result);

/// Rows of CSV with a first column of its own; the heading line and the mark before it only when asked for.
[[nodiscard]] std::string withDrawingColumn(std::string_view csv, const std::string& drawing,
                                            bool withHeading);

} // namespace zu::app
