#pragma once

#include "drawing/stub.h"
#include "drawing/tag_list.h"
#include "zuhost/undo.h"

#include <cstdint>
#include <optional>
#include <unordered_set>
#include <vector>

namespace zuhost {

struct DatabaseCore;

/// For each step, the records and the erased flag of every object before its first change.
class UndoLog {
public:
    enum class Kind { changed, appended };

    /// Begins a step, unless a group is open. Steps without changes are not stored.
    void startStep();
    /// Begins a group: all changes up to its end form one step.
    void beginGroup();
    void endGroup();
    /// Returns the number of the current step; objects compare it to know whether they are recorded in it.
    [[nodiscard]] std::uint32_t step() const { return step_; }
    void disable(bool disabled) {
        disabled_ = disabled;
        ++step_; // objects changed meanwhile were not recorded and must be when they change again
    }
    [[nodiscard]] bool enabled() const { return !disabled_; }
    [[nodiscard]] UndoControl control() const { return control_; }
    /// Drops the steps that the control does not allow.
    void setControl(UndoControl control);
    void clear();

    /// Records the state of an object before it changes; ignores all but the object's first change in a step.
    /// `own` is its own list of records, null while they are those in the drawing's bytes.
    void record(AcDbStub& stub, const TagList* own, Kind kind);

    /// Both return false when there is no step to undo or redo.
    bool undo(DatabaseCore& core);
    bool redo(DatabaseCore& core) { return play(core, redo_, undo_, false); }

    /// Marks the current state. Undoing a step before the mark removes the mark.
    void mark();
    [[nodiscard]] bool hasMark() const { return !marks_.empty(); }
    /// Returns true when no step is left after the last mark.
    [[nodiscard]] bool atMark() const { return hasMark() && marks_.back() == undo_.size(); }
    /// Undoes all steps after the last mark and removes the mark; without a mark undoes all steps. False when
    /// there is neither a mark nor a step.
    bool undoToMark(DatabaseCore& core);

    // ---- transactions: what they change is recorded even while undo is disabled
    void startTransaction();
    /// Makes the changes of the innermost transaction part of the enclosing one, or of the undo step in which
    /// it was started.
    void commitTransaction();
    /// Takes the changes of the innermost transaction back; they can't be redone.
    void abortTransaction(DatabaseCore& core);

private:
    struct Entry {
        AcDbStub* stub;
        std::optional<TagList> tags;
        bool erased;
        Kind kind;
    };
    using Step = std::vector<Entry>;
    /// The state at the start of a transaction.
    struct Start {
        std::size_t steps;
        bool stepOpen;
        std::unordered_set<AcDbStub*> recorded;
    };

    bool play(DatabaseCore& core, std::vector<Step>& from, std::vector<Step>& to, bool undoing);

    void newStep();
    /// Returns true when changes outside of transactions are recorded.
    [[nodiscard]] bool isRecording() const { return !disabled_ && control_.isEnabled; }
    /// Drops all steps but the last when the control allows one only.
    void keepAllowed();

    /// Returns the number of steps that belong to no transaction.
    [[nodiscard]] std::size_t lowestStep() const {
        return transactions_.empty() ? 0 : transactions_.back().steps;
    }
    void resume(Start start);

    std::vector<Start> transactions_;
    std::vector<Step> undo_;
    std::vector<Step> redo_;
    std::vector<std::size_t> marks_;         ///< For each mark, the number of steps before it.
    std::unordered_set<AcDbStub*> recorded_; ///< The objects of the current step.
    std::uint32_t step_ = 1;
    bool stepOpen_ = false;
    bool grouped_ = false;
    bool disabled_ = false;
    UndoControl control_;
};

} // namespace zuhost
