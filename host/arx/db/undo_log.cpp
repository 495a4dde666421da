#include "undo_log.h"

#include "database_core.h"
#include "object_access.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace zuhost {

namespace {

std::optional<TagList> copied(const TagList* list) {
    return list != nullptr ? std::optional(*list) : std::nullopt;
}

} // namespace

void UndoLog::startStep() {
    if (!grouped_)
        newStep();
}

void UndoLog::beginGroup() {
    newStep();
    grouped_ = true;
}

void UndoLog::endGroup() {
    grouped_ = false;
    newStep();
}

void UndoLog::newStep() {
    ++step_;
    stepOpen_ = false;
    recorded_.clear();
}

void UndoLog::clear() {
    endGroup();
    transactions_.clear();
    undo_.clear();
    redo_.clear();
    marks_.clear();
    control_ = {};
}

void UndoLog::setControl(UndoControl control) {
    const bool drops = !control.isEnabled && transactions_.empty();
    if (drops)
        clear();
    control_ = control;
    keepAllowed();
    ++step_; // as for disable
}

void UndoLog::keepAllowed() {
    if (!control_.onlyOne || !transactions_.empty())
        return;
    marks_.clear();
    if (undo_.size() > 1)
        undo_.erase(undo_.begin(), undo_.end() - 1);
}

bool UndoLog::undo(DatabaseCore& core) {
    if (undo_.size() <= lowestStep() || !play(core, undo_, redo_, true))
        return false;
    while (hasMark() && marks_.back() > undo_.size())
        marks_.pop_back();
    return true;
}

void UndoLog::mark() {
    endGroup();
    marks_.push_back(undo_.size());
    keepAllowed();
}

bool UndoLog::undoToMark(DatabaseCore& core) {
    if (!hasMark() && undo_.size() <= lowestStep())
        return false;
    const std::size_t steps = std::max(hasMark() ? marks_.back() : 0, lowestStep());
    if (hasMark())
        marks_.pop_back();
    while (undo_.size() > steps)
        undo(core);
    return true;
}

void UndoLog::record(AcDbStub& stub, const TagList* own, Kind kind) {
    if ((!isRecording() && transactions_.empty()) || !recorded_.insert(&stub).second)
        return;
    if (!stepOpen_) {
        undo_.emplace_back();
        keepAllowed();
    }
    stepOpen_ = true;
    redo_.clear();
    // Undoing an addition erases the object, whatever else changed in the step.
    undo_.back().push_back({&stub, copied(own), kind == Kind::appended || stub.erased, kind});
}

void UndoLog::startTransaction() {
    transactions_.push_back({undo_.size(), stepOpen_, recorded_});
    newStep();
}

void UndoLog::resume(Start start) {
    newStep();
    stepOpen_ = start.stepOpen;
    recorded_ = std::move(start.recorded);
}

void UndoLog::commitTransaction() {
    if (transactions_.empty())
        return;
    Start start = std::move(transactions_.back());
    transactions_.pop_back();
    const auto first = undo_.begin() + static_cast<std::ptrdiff_t>(start.steps);
    Step changes;
    for (auto step = first; step != undo_.end(); ++step)
        std::move(step->begin(), step->end(), std::back_inserter(changes));
    undo_.erase(first, undo_.end());
    if (isRecording() || !transactions_.empty()) {
        // Only the state before the first change counts.
        std::erase_if(changes, [&](const Entry& entry) { return !start.recorded.insert(entry.stub).second; });
        if (!start.stepOpen && !changes.empty()) {
            undo_.emplace_back();
            start.stepOpen = true;
        }
        if (!changes.empty())
            std::move(changes.begin(), changes.end(), std::back_inserter(undo_.back()));
        keepAllowed();
    }
    resume(std::move(start));
}

void UndoLog::abortTransaction(DatabaseCore& core) {
    if (transactions_.empty())
        return;
    const bool grouped = grouped_; // playing a step ends the group, which goes on after the transaction
    std::vector<Step> dropped;
    while (undo_.size() > transactions_.back().steps)
        play(core, undo_, dropped, true);
    Start start = std::move(transactions_.back());
    transactions_.pop_back();
    resume(std::move(start));
    grouped_ = grouped;
}

bool UndoLog::play(DatabaseCore& core, std::vector<Step>& from, std::vector<Step>& to, bool undoing) {
    if (from.empty())
        return false;
    endGroup(); // later changes must not join the step that is played
    Step step = std::move(from.back());
    from.pop_back();
    Step opposite;
    for (std::size_t last = step.size(); last-- > 0;) {
        Entry& entry = step[last];
        const AcDbObject& object = core.object(*entry.stub);
        opposite.push_back(
            {entry.stub, copied(ObjectAccess::ownTags(object)), entry.stub->erased, entry.kind});
        core.restore(*entry.stub, std::move(entry.tags), entry.erased, entry.kind, undoing);
    }
    to.push_back(std::move(opposite));
    return true;
}

} // namespace zuhost
