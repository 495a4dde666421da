#pragma once

#include "rxclass.h"
#include "zuhost/service.h"

#include <string>

class AcDbDatabase;

/// The host's window on the working database; there is one.
class AcApDocument : public AcRxObject {
public:
    ACRX_DECLARE_MEMBERS(AcApDocument);

    /// The working database; null without one. It stays its maker's.
    [[nodiscard]] AcDbDatabase* database() const;
};

class AcApDocManager : public AcRxObject {
public:
    ACRX_DECLARE_MEMBERS(AcApDocManager);

    [[nodiscard]] virtual AcApDocument* curDocument() const;
    [[nodiscard]] AcApDocument* mdiActiveDocument() const { return curDocument(); }

    /// Queues text as if the user typed it; a blank or a line end ends a command's name. It runs when the
    /// host is idle: see zuhost::runPendingCommands. eNullObjectPointer without a document or text.
    virtual Acad::ErrorStatus sendStringToExecute(AcApDocument* document, const ACHAR* text,
                                                  bool activate = true, bool wrapUpInactive = false,
                                                  bool echo = true);
};

namespace zuhost {

AcApDocManager& documentManager();

/// What was sent and has not run yet.
const std::wstring& pendingInput();
void clearPendingInput();

/// Runs the commands that were sent, also those that they send themselves, in order; returns how many were
/// run. What a command changes in the current document's drawing is one undo step. Names that nobody
/// registered are told to the editor reactors and on the command line. An exception of the framework ends its
/// command only and is told as well.
int runPendingCommands();

/// The next word of what was sent, upper case and without the marks of commands and options ("_", "."); empty
/// when there is none. A running command that takes it for its answer takes it off; any other word is the
/// next command.
std::wstring pendingWord();
void takePendingWord();

} // namespace zuhost

inline constexpr zuhost::Service<AcApDocManager, zuhost::documentManager> acDocManager;
