#pragma once

#include "aced.h"

namespace zuhost {

/// Members that the interface lacks, for the host's own classes.
struct EditorAccess {
    static const AcArray<AcEditorReactor*>& reactors(const AcEditor& editor) { return editor.reactors_; }
};

} // namespace zuhost
