#pragma once

#include "acarray.h"
#include "accmd.h"
#include "rxmfcapi.h"

/// Told of the commands that run. Names are upper case.
class AcEditorReactor : public AcRxObject {
public:
    ACRX_DECLARE_MEMBERS(AcEditorReactor);

    virtual void commandWillStart(const ACHAR* /*command*/) {}
    virtual void commandEnded(const ACHAR* /*command*/) {}
    /// The command was left by an exception.
    virtual void commandFailed(const ACHAR* /*command*/) {}
    virtual void unknownCommand(const ACHAR* /*command*/) {}
};

/// The host's command loop as far as reactors see it.
class AcEditor : public AcRxObject {
public:
    ACRX_DECLARE_MEMBERS(AcEditor);

    /// The reactor stays its maker's, who removes it before its end.
    virtual void addReactor(AcEditorReactor* reactor);
    virtual void removeReactor(AcEditorReactor* reactor);

    [[nodiscard]] const AcArray<AcEditorReactor*>& reactors() const { return reactors_; }

private:
    AcArray<AcEditorReactor*> reactors_;
};

// ---- the progress meter of the status bar; zuhost/progress.h says how it is shown

/// Puts a meter in place of the status bar's text, from min to max; one that is there ends. 0, or -1 when the
/// range is none.
int acedSetStatusBarProgressMeter(const ACHAR* label, int min, int max);
/// Moves the meter; positions outside its range count as its ends. 0, or -1 without a meter.
int acedSetStatusBarProgressMeterPos(int position);
/// Ends the meter, if there is one.
void acedRestoreStatusBar();

namespace zuhost {
AcEditor& editor();
}

inline constexpr zuhost::Service<AcEditor, zuhost::editor> acedEditor;
