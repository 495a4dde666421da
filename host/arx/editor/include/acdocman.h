#pragma once

#include "acarray.h"
#include "rxdlinkr.h"

#include <zuhost/platform/export.h>

#include <vector>

class AcDbDatabase;

namespace zuhost {
class CommandLock;
}

struct AcAp {
    enum DocLockMode {
        kNone = 0x00,
        kAutoWrite = 0x01,
        kNotLocked = 0x02,
        kWrite = 0x04,
        kRead = 0x08,
        kXWrite = 0x10,
        kProtectedAutoWrite = 0x14
    };
};

/// The host's only document, which shows the working database.
class ZUHOST_API AcApDocument : public AcRxObject {
public:
    ACRX_DECLARE_MEMBERS(AcApDocument);

    /// Returns the working database, not owned; null without one.
    [[nodiscard]] AcDbDatabase* database() const;
    /// Returns the path of the drawing's file, empty for a drawing that has none; valid until the drawing is
    /// opened or saved.
    [[nodiscard]] const ACHAR* fileName() const;
    /// Returns the name of that file without its folder, "Drawing" for a drawing that has none; valid until
    /// the next call.
    [[nodiscard]] const ACHAR* docTitle() const;

    /// Returns the innermost lock, kNotLocked without one. There is one user of documents, so both are the
    /// same.
    [[nodiscard]] AcAp::DocLockMode lockMode(bool includeMine = true) const;
    [[nodiscard]] AcAp::DocLockMode myLockMode() const { return lockMode(); }
    /// Returns true when no command runs.
    [[nodiscard]] bool isQuiescent() const;

private:
    friend class AcApDocManager;
    friend class zuhost::CommandLock;
    struct Lock {
        AcAp::DocLockMode mode;
        bool isCommand;
    };
    std::vector<Lock> locks_; ///< The innermost last.
    mutable std::wstring title_;
};

/// Notified of locks of the document. The host has one document from its start to its end, so the other
/// members are never called.
class ZUHOST_API AcApDocManagerReactor : public AcRxObject {
public:
    ACRX_DECLARE_MEMBERS(AcApDocManagerReactor);

    virtual void documentCreateStarted(AcApDocument* /*document*/) {}
    virtual void documentCreated(AcApDocument* /*document*/) {}
    virtual void documentToBeDestroyed(AcApDocument* /*document*/) {}
    virtual void documentDestroyed(const ACHAR* /*fileName*/) {}
    virtual void documentCreateCanceled(AcApDocument* /*document*/) {}
    /// Called before and after a lock is set or released; `command` is the command's name, with "#" before it
    /// on release.
    virtual void documentLockModeWillChange(AcApDocument* /*document*/, AcAp::DocLockMode /*mine*/,
                                            AcAp::DocLockMode /*newMine*/, AcAp::DocLockMode /*current*/,
                                            const ACHAR* /*command*/) {}
    virtual void documentLockModeChanged(AcApDocument* /*document*/, AcAp::DocLockMode /*previousMine*/,
                                         AcAp::DocLockMode /*mine*/, AcAp::DocLockMode /*current*/,
                                         const ACHAR* /*command*/) {}
    virtual void documentBecameCurrent(AcApDocument* /*document*/) {}
    virtual void documentToBeActivated(AcApDocument* /*document*/) {}
    virtual void documentToBeDeactivated(AcApDocument* /*document*/) {}
    virtual void documentActivated(AcApDocument* /*document*/) {}
    virtual void documentActivationModified(bool /*isActive*/) {}
    virtual void documentTitleUpdated(AcApDocument* /*document*/) {}
};

class ZUHOST_API AcApDocManager : public AcRxObject {
public:
    ACRX_DECLARE_MEMBERS(AcApDocManager);

    [[nodiscard]] virtual AcApDocument* curDocument() const;
    [[nodiscard]] AcApDocument* mdiActiveDocument() const { return curDocument(); }
    [[nodiscard]] AcApDocument* document(const AcDbDatabase* database) const;
    [[nodiscard]] long documentCount() const { return 1; }
    /// Returns true when no command runs.
    [[nodiscard]] bool isApplicationContext() const;

    /// Locks the document until unlockDocument; locks nest, and a running command holds one. They keep
    /// nothing from being changed: there is one user. eInvalidInput for kNone and kNotLocked,
    /// eNullObjectPointer for a null document.
    virtual Acad::ErrorStatus lockDocument(AcApDocument* document, AcAp::DocLockMode mode = AcAp::kWrite,
                                           const ACHAR* globalCommand = nullptr,
                                           const ACHAR* localCommand = nullptr, bool prompt = true);
    /// Releases the innermost lock; eNotApplicable when it is a command's or there is none.
    virtual Acad::ErrorStatus unlockDocument(AcApDocument* document);

    /// The reactor stays owned by the caller, which removes it before destroying it.
    void addReactor(AcApDocManagerReactor* reactor);
    void removeReactor(AcApDocManagerReactor* reactor);

    /// Queues text as if the user had typed it; a blank or a line end terminates a command's name. It runs
    /// when the running command has ended. eNullObjectPointer for a null document or text.
    virtual Acad::ErrorStatus sendStringToExecute(AcApDocument* document, const ACHAR* text,
                                                  bool activate = true, bool wrapUpInactive = false,
                                                  bool echo = true);

private:
    friend class zuhost::CommandLock;
    void lock(AcApDocument& document, AcAp::DocLockMode mode, const ACHAR* command, bool isCommand);
    /// Releases all locks but the outermost `depth` ones.
    void unlockTo(AcApDocument& document, std::size_t depth, const ACHAR* command);

    AcArray<AcApDocManagerReactor*> reactors_;
};

namespace zuhost {
ZUHOST_API AcApDocManager& documentManager();
}

inline constexpr zuhost::Service<AcApDocManager, zuhost::documentManager> acDocManager;

inline AcApDocManager* acDocManagerPtr() {
    return acDocManager;
}
inline AcApDocument* curDoc() {
    return acDocManager->curDocument();
}
