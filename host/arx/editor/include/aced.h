#pragma once

#include "acarray.h"
#include "accmd.h"
#include "acedads.h"
#include "rxmfcapi.h"

#include <zuhost/platform/export.h>

/// Notified of the commands that run. Names are in upper case.
class ZUHOST_API AcEditorReactor : public AcRxObject {
public:
    ACRX_DECLARE_MEMBERS(AcEditorReactor);

    virtual void commandWillStart(const ACHAR* /*command*/) {}
    virtual void commandEnded(const ACHAR* /*command*/) {}
    /// Never called: a command that the user cancels ends as others do, with what it makes of RTCAN.
    virtual void commandCancelled(const ACHAR* /*command*/) {}
    /// The command threw an exception.
    virtual void commandFailed(const ACHAR* /*command*/) {}
    virtual void unknownCommand(const ACHAR* /*command*/) {}
};

namespace zuhost {
struct EditorAccess;
}

/// The command loop's reactors.
class ZUHOST_API AcEditor : public AcRxObject {
public:
    ACRX_DECLARE_MEMBERS(AcEditor);

    /// The reactor stays owned by the caller, which removes it before destroying it.
    virtual void addReactor(AcEditorReactor* reactor);
    virtual void removeReactor(AcEditorReactor* reactor);

private:
    friend struct zuhost::EditorAccess;

    AcArray<AcEditorReactor*> reactors_;
};

// ---- the progress meter of the status bar; zuhost/progress.h defines how it is shown

/// Replaces the status bar's text by a meter from `min` to `max`; a meter in use ends first. Returns 0; -1
/// when `max` is less than `min`.
ZUHOST_API int acedSetStatusBarProgressMeter(const ACHAR* label, int min, int max);
/// Moves the meter; clamps positions to its range. Returns 0; -1 without a meter.
ZUHOST_API int acedSetStatusBarProgressMeterPos(int position);
/// Ends the meter, if any.
ZUHOST_API void acedRestoreStatusBar();

namespace zuhost {
ZUHOST_API AcEditor& editor();
}

inline constexpr zuhost::Service<AcEditor, zuhost::editor> acedEditor;
