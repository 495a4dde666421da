#include "report/plan_marks.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <map>
#include <utility>

namespace zu::app {

namespace {

// In widths of the plan, which is as wide as its page.
constexpr double kLetter = 1.0 / 130.0;
constexpr double kEnds = 1.0 / 110.0;
constexpr double kHeight = 1.0 / 55.0;
constexpr std::size_t kMostNamed = 3;

int numberOf(const Json& finding) {
    return finding["number"].get<int>();
}

double widthOf(std::size_t letters) {
    return static_cast<double>(letters) * kLetter + kEnds;
}

double widthOf(const PlanMark& mark) {
    return widthOf(mark.text([](const Json& finding) { return finding["number"].dump(); }).size());
}

/// Marks at the edges of the plan stay within it.
double middleOf(const PlanMark& mark) {
    const double half = widthOf(mark) / 2.0;
    return std::clamp(mark.x, half, 1.0 - half);
}

/// Marks by the cells of the plan that they lie in. A cell is as wide and high as the widest mark.
class MarkGrid {
public:
    /// `proportion` is the plan's height in widths.
    MarkGrid(double widest, double proportion) : widest_(widest), proportion_(proportion) {}

    void add(PlanMark mark) {
        if (PlanMark* const covered = find(mark)) {
            std::vector<const Json*> all;
            std::merge(covered->findings.begin(), covered->findings.end(), mark.findings.begin(),
                       mark.findings.end(), std::back_inserter(all),
                       [](const Json* a, const Json* b) { return numberOf(*a) < numberOf(*b); });
            covered->findings = std::move(all);
            return;
        }
        cells_[cellOf(mark)].push_back(marks_.size());
        marks_.push_back(std::move(mark));
    }

    std::vector<PlanMark> takeMarks() { return std::move(marks_); }

private:
    using Cell = std::pair<int, int>;

    [[nodiscard]] Cell cellOf(const PlanMark& mark) const {
        return {static_cast<int>(middleOf(mark) / widest_), static_cast<int>(mark.y * proportion_ / kHeight)};
    }

    [[nodiscard]] bool cover(const PlanMark& a, const PlanMark& b) const {
        return std::abs(middleOf(a) - middleOf(b)) < (widthOf(a) + widthOf(b)) / 2.0 &&
               std::abs(a.y - b.y) * proportion_ < kHeight;
    }

    [[nodiscard]] PlanMark* find(const PlanMark& mark) {
        const auto [column, row] = cellOf(mark);
        for (int x = column - 1; x <= column + 1; ++x)
            for (int y = row - 1; y <= row + 1; ++y)
                if (const auto cell = cells_.find({x, y}); cell != cells_.end())
                    for (const std::size_t other : cell->second)
                        if (cover(marks_[other], mark))
                            return &marks_[other];
        return nullptr;
    }

    double widest_;
    double proportion_;
    std::map<Cell, std::vector<std::size_t>> cells_;
    std::vector<PlanMark> marks_;
};

std::vector<PlanMark> marksOf(const Json& findings) {
    std::vector<PlanMark> marks;
    for (const Json& finding : findings)
        if (const Json& place = finding["place"]; place.is_array())
            marks.push_back({place[0].get<double>(), place[1].get<double>(), {&finding}});
    return marks;
}

} // namespace

bool PlanMark::isError() const {
    return std::any_of(findings.begin(), findings.end(), [](const Json* finding) {
        return (*finding)["severity"].get<std::string>() == "error";
    });
}

std::string PlanMark::text(const std::function<std::string(const Json& finding)>& link) const {
    std::string text = link(*findings.front());
    const std::size_t others = findings.size() - 1;
    if (others <= kMostNamed - 1) {
        for (std::size_t i = 1; i < findings.size(); ++i)
            text += ' ' + link(*findings[i]);
        return text;
    }
    const auto last = static_cast<std::size_t>(numberOf(*findings.back()) - numberOf(*findings.front()));
    return text + (last == others ? "–" + link(*findings.back()) : " +" + std::to_string(others));
}

std::vector<PlanMark> planMarks(const Json& report) {
    std::vector<PlanMark> marks = marksOf(report["findings"]);
    if (marks.empty())
        return marks;
    const double proportion = report["plan"]["height"].get<double>() / report["plan"]["width"].get<double>();
    const std::size_t digits = std::to_string(numberOf(*marks.back().findings.back())).size();
    const double widest = widthOf(kMostNamed * (digits + 1));
    // A mark that stands for more becomes wider, and can then cover others.
    for (std::size_t before = marks.size() + 1; marks.size() < before;) {
        before = marks.size();
        MarkGrid grid(widest, proportion);
        for (PlanMark& mark : marks)
            grid.add(std::move(mark));
        marks = grid.takeMarks();
    }
    for (PlanMark& mark : marks)
        mark.x = middleOf(mark);
    return marks;
}

} // namespace zu::app
