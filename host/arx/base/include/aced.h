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

namespace zuhost {
AcEditor& editor();
}

inline constexpr zuhost::Service<AcEditor, zuhost::editor> acedEditor;
