#pragma once

#include "drawing/stub.h"
#include "drawing/tag_list.h"

#include <cstdint>
#include <unordered_set>
#include <vector>

namespace zuhost {

struct DatabaseCore;

/// What has to be put back to take steps of work back: before each first change of an object in a step its
/// records and whether it was erased.
class UndoLog {
public:
    enum class Kind { changed, appended };

    /// Begins a step, unless a group is open. One without changes leaves no trace.
    void startStep();
    /// Makes one step of all up to the end of the group.
    void beginGroup();
    void endGroup();
    /// Number of the present step, by which objects know whether they were noted in it.
    [[nodiscard]] std::uint32_t step() const { return step_; }
    void disable(bool disabled) {
        disabled_ = disabled;
        ++step_; // what changed meanwhile was not noted
    }
    [[nodiscard]] bool enabled() const { return !disabled_; }
    void clear();

    /// Notes the state of an object before it changes; only the first note of an object in a step counts.
    void note(AcDbStub& stub, const TagList& tags, Kind kind);

    /// False when there is nothing to take back (or do again).
    bool undo(DatabaseCore& core);
    bool redo(DatabaseCore& core) { return play(core, redo_, undo_, false); }

    /// Marks how far the work has come. A mark goes when work before it is taken back.
    void mark();
    [[nodiscard]] bool hasMark() const { return !marks_.empty(); }
    /// True when all work since the last mark is taken back.
    [[nodiscard]] bool atMark() const { return hasMark() && marks_.back() == undo_.size(); }
    /// Takes the work since the last mark back, and the mark away; all work where there is no mark. False
    /// when there is neither.
    bool undoToMark(DatabaseCore& core);

private:
    struct Entry {
        AcDbStub* stub;
        TagList tags;
        bool erased;
        Kind kind;
    };
    using Step = std::vector<Entry>;

    bool play(DatabaseCore& core, std::vector<Step>& from, std::vector<Step>& to, bool undoing);

    void newStep();

    std::vector<Step> undo_;
    std::vector<Step> redo_;
    std::vector<std::size_t> marks_;      ///< Numbers of steps that were there.
    std::unordered_set<AcDbStub*> noted_; ///< The objects of the present step.
    std::uint32_t step_ = 1;
    bool stepOpen_ = false;
    bool grouped_ = false;
    bool disabled_ = false;
};

} // namespace zuhost
