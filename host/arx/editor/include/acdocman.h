#pragma once

#include "rxclass.h"
#include "zuhost/service.h"

#include <string>

class AcDbDatabase;

/// The host's only document, which shows the working database.
class AcApDocument : public AcRxObject {
public:
    ACRX_DECLARE_MEMBERS(AcApDocument);

    /// Returns the working database, not owned; null without one.
    [[nodiscard]] AcDbDatabase* database() const;
};

class AcApDocManager : public AcRxObject {
public:
    ACRX_DECLARE_MEMBERS(AcApDocManager);

    [[nodiscard]] virtual AcApDocument* curDocument() const;
    [[nodiscard]] AcApDocument* mdiActiveDocument() const { return curDocument(); }

    /// Queues text as if the user had typed it; a blank or a line end terminates a command's name.
    /// zuhost::runPendingCommands runs it. eNullObjectPointer for a null document or text.
    virtual Acad::ErrorStatus sendStringToExecute(AcApDocument* document, const ACHAR* text,
                                                  bool activate = true, bool wrapUpInactive = false,
                                                  bool echo = true);
};

namespace zuhost {

AcApDocManager& documentManager();

/// Returns the text that was sent and has not run yet.
const std::wstring& pendingInput();
void clearPendingInput();

/// Runs the commands that were sent, and those that they send themselves, in order; returns their number. The
/// changes of a command are one undo step. Unknown names and commands left by an exception are printed on the
/// command line and reported to the editor reactors; the commands after them still run.
int runPendingCommands();

/// Returns the next word that was sent, in upper case and without the prefixes "'", "_" and "."; empty when
/// there is none. A running command that uses it as its input removes it with takePendingWord; otherwise it
/// is the next command.
std::wstring pendingWord();
void takePendingWord();

} // namespace zuhost

inline constexpr zuhost::Service<AcApDocManager, zuhost::documentManager> acDocManager;
