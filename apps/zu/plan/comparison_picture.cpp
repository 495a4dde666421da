#include "plan/comparison_picture.h"

#include "manners/translation.h"
#include "plan/plan_picture.h"

#include <span>

namespace zu::app {

namespace {

constexpr QColor kRemoved(0xd0, 0x21, 0x2a);
constexpr QColor kAdded(0x1a, 0x8f, 0x3c);
constexpr QColor kChanged(0xd5, 0x83, 0x00);

void colour(PlanOptions& options, std::span<const AcDbObjectId> entities, const QColor& colour) {
    for (const AcDbObjectId entity : entities)
        options.colours.insert_or_assign(entity, colour);
}

void show(PlanOptions& options, std::span<const AcDbObjectId> removed) {
    colour(options, removed, kRemoved);
    options.others.insert(options.others.end(), removed.begin(), removed.end());
}

} // namespace

void saveComparison(AcDbDatabase& after, const zucomn::DrawingDifferences& differences,
                    const std::string& file) {
    PlanOptions options;
    options.labels = PlanLabelKind::none;
    options.marksJoints = false;
    options.legend = {
        {kRemoved, translated("removed")}, {kAdded, translated("added")}, {kChanged, translated("changed")}};
    show(options, differences.removed);
    show(options, differences.othersRemoved);
    colour(options, differences.othersAdded, kAdded);
    colour(options, differences.added, kAdded);
    colour(options, differences.othersChanged, kChanged);
    for (const zucomn::ElementChange& change : differences.changed) {
        if (change.isMoved) {
            options.others.push_back(change.before);
            options.colours.insert_or_assign(change.before, kChanged.lighter());
        }
        options.colours.insert_or_assign(change.after, kChanged);
    }
    savePlan(after, file, options);
}

} // namespace zu::app
