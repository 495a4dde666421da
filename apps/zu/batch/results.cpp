#include "batch/results.h"

#include "manners/translation.h"
#include "report/csv.h"
#include "report/output.h"

#include <algorithm>
#include <iostream>

namespace zu::app {

namespace {

constexpr std::string_view kProgram = "zu: ";
constexpr std::string_view kMark = "\xEF\xBB\xBF";

/// What went wrong, out of the messages of a run; the others are warnings.
struct Messages {
    std::string error; ///< Without the name of the program; empty when all went well.
    std::string others;
};

Messages messagesOf(const TaskResult& result) {
    Messages messages;
    std::string_view rest = result.errors;
    while (!rest.empty()) {
        const std::size_t end = std::min(rest.find('\n'), rest.size());
        const std::string_view line = rest.substr(0, end);
        rest.remove_prefix(std::min(end + 1, rest.size()));
        if (line.starts_with(kProgram))
            messages.error.append(messages.error.empty() ? "" : "; ").append(line.substr(kProgram.size()));
        else
            messages.others.append(line).append("\n");
    }
    if (result.crashed)
        messages.error = translated("the program crashed on it");
    else if (result.status != 0 && messages.error.empty() && result.output.empty())
        messages.error = "failed with status " + std::to_string(result.status);
    return messages;
}

/// Line ends inside of JSON texts are escaped.
std::string onOneLine(std::string json) {
    std::erase(json, '\n');
    return Json::accept(json) ? json : "null";
}

std::string jsonLine(const std::string& drawing, const TaskResult& result, const std::string& error) {
    return "{\"drawing\":" + jsonText(drawing) + ",\"status\":" + std::to_string(result.status) +
           ",\"result\":" + onOneLine(result.output) +
           ",\"error\":" + (error.empty() ? "null" : jsonText(error)) + "}\n";
}

/// Where the record that starts the text ends; line ends between quotes belong to it.
std::size_t recordEnd(std::string_view csv) {
    bool isQuoted = false;
    for (std::size_t i = 0; i < csv.size(); ++i) {
        isQuoted ^= csv[i] == '"';
        if (csv[i] == '\n' && !isQuoted)
            return i + 1;
    }
    return csv.size();
}

} // namespace

std::string errorOf(const TaskResult& result) {
    return messagesOf(result).error;
}

std::string withDrawingColumn(std::string_view csv, const std::string& drawing, bool withHeading) {
    std::string table;
    if (csv.starts_with(kMark))
        csv.remove_prefix(kMark.size());
    for (bool isHeading = true; !csv.empty(); isHeading = false) {
        const std::string_view record = csv.substr(0, recordEnd(csv));
        csv.remove_prefix(record.size());
        if (!isHeading)
            table.append(csvField(drawing)).append(",").append(record);
        else if (withHeading)
            table.append(kMark).append("drawing,").append(record);
    }
    return table;
}

void ResultPrinter::print(const std::string& drawing, const TaskResult& result) {
    progress_.clear();
    const Messages messages = messagesOf(result);
    if (form_ == ResultForm::json)
        std::cout << jsonLine(drawing, result, messages.error);
    else if (form_ == ResultForm::csv)
        std::cout << withDrawingColumn(result.output, drawing, isFirst_);
    else if (form_ == ResultForm::text && !result.output.empty())
        std::cout << (isFirst_ ? "" : "\n") << drawing << ":\n" << result.output;
    isFirst_ = isFirst_ && result.output.empty();
    std::cout.flush();
    std::cerr << messages.others;
    if (!messages.error.empty()) {
        const bool namesDrawing = messages.error.starts_with(drawing + ":");
        std::cerr << kProgram << (namesDrawing ? "" : drawing + ": ") << messages.error << '\n';
    }
    failed_ += result.status != 0 ? 1 : 0;
    worst_ = std::max(worst_, result.status);
}

void ResultPrinter::printSummary() {
    progress_.clear();
    const double seconds = std::chrono::duration<double>(Clock::now() - started_).count();
    std::cerr << drawings_ << " drawings in " << shortNumber(seconds) << " s: " << drawings_ - failed_
              << " done, " << failed_ << " failed\n";
}

} // namespace zu::app
