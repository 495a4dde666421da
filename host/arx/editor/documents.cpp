#include "acdocman.h"
#include "command_lock.h"
#include "dbapserv.h"
#include "dbmain.h"

#include <algorithm>
#include <string>

ACRX_CONS_DEFINE_MEMBERS(AcApDocument, AcRxObject)
ACRX_CONS_DEFINE_MEMBERS(AcApDocManager, AcRxObject)
ACRX_CONS_DEFINE_MEMBERS(AcApDocManagerReactor, AcRxObject)

namespace {

template <typename Notification>
void notifyReactors(const AcArray<AcApDocManagerReactor*>& reactors, Notification notification) {
    // A copy: a reactor may remove itself or others.
    // NOLINTNEXTLINE(performance-unnecessary-copy-initialization)
    const AcArray<AcApDocManagerReactor*> registered = reactors;
    for (AcApDocManagerReactor* const reactor : registered)
        if (reactors.contains(reactor))
            notification(*reactor);
}

} // namespace

AcApDocManager& zuhost::documentManager() {
    static auto* const manager = new AcApDocManager;
    return *manager;
}

AcDbDatabase* AcApDocument::database() const {
    return acdbHostApplicationServices()->workingDatabase();
}

const ACHAR* AcApDocument::fileName() const {
    const ACHAR* path = nullptr;
    if (database() != nullptr)
        database()->getFilename(path);
    return path != nullptr ? path : L"";
}

const ACHAR* AcApDocument::docTitle() const {
    const std::wstring path = fileName();
    title_ = path.empty() ? L"Drawing" : path.substr(path.find_last_of(L"/\\") + 1);
    return title_.c_str();
}

AcAp::DocLockMode AcApDocument::lockMode(bool /*includeMine*/) const {
    return locks_.empty() ? AcAp::kNotLocked : locks_.back().mode;
}

bool AcApDocument::isQuiescent() const {
    return std::none_of(locks_.begin(), locks_.end(), [](const Lock& lock) { return lock.isCommand; });
}

AcApDocument* AcApDocManager::curDocument() const {
    static auto* const document = new AcApDocument;
    return document;
}

AcApDocument* AcApDocManager::document(const AcDbDatabase* database) const {
    return database != nullptr && database == curDocument()->database() ? curDocument() : nullptr;
}

bool AcApDocManager::isApplicationContext() const {
    return curDocument()->isQuiescent();
}

Acad::ErrorStatus AcApDocManager::lockDocument(AcApDocument* document, AcAp::DocLockMode mode,
                                               const ACHAR* globalCommand, const ACHAR* /*localCommand*/,
                                               bool /*prompt*/) {
    if (document == nullptr)
        return Acad::eNullObjectPointer;
    if (mode == AcAp::kNone || mode == AcAp::kNotLocked)
        return Acad::eInvalidInput;
    lock(*document, mode, globalCommand != nullptr ? globalCommand : L"", false);
    return Acad::eOk;
}

Acad::ErrorStatus AcApDocManager::unlockDocument(AcApDocument* document) {
    if (document == nullptr)
        return Acad::eNullObjectPointer;
    if (document->locks_.empty() || document->locks_.back().isCommand)
        return Acad::eNotApplicable;
    unlockTo(*document, document->locks_.size() - 1, L"#");
    return Acad::eOk;
}

void AcApDocManager::lock(AcApDocument& document, AcAp::DocLockMode mode, const ACHAR* command,
                          bool isCommand) {
    const AcAp::DocLockMode before = document.lockMode();
    notifyReactors(reactors_, [&](AcApDocManagerReactor& reactor) {
        reactor.documentLockModeWillChange(&document, before, mode, before, command);
    });
    document.locks_.push_back({mode, isCommand});
    notifyReactors(reactors_, [&](AcApDocManagerReactor& reactor) {
        reactor.documentLockModeChanged(&document, before, mode, mode, command);
    });
}

void AcApDocManager::unlockTo(AcApDocument& document, std::size_t depth, const ACHAR* command) {
    const AcAp::DocLockMode before = document.lockMode();
    const AcAp::DocLockMode after = depth > 0 ? document.locks_[depth - 1].mode : AcAp::kNotLocked;
    notifyReactors(reactors_, [&](AcApDocManagerReactor& reactor) {
        reactor.documentLockModeWillChange(&document, before, after, before, command);
    });
    // A reactor may have released some, or set others.
    if (document.locks_.size() > depth)
        document.locks_.erase(document.locks_.begin() + static_cast<std::ptrdiff_t>(depth),
                              document.locks_.end());
    notifyReactors(reactors_, [&](AcApDocManagerReactor& reactor) {
        reactor.documentLockModeChanged(&document, before, after, after, command);
    });
}

void AcApDocManager::addReactor(AcApDocManagerReactor* reactor) {
    if (reactor != nullptr && !reactors_.contains(reactor))
        reactors_.append(reactor);
}

void AcApDocManager::removeReactor(AcApDocManagerReactor* reactor) {
    reactors_.remove(reactor);
}

zuhost::CommandLock::CommandLock(const wchar_t* command)
    : depth_(curDoc()->locks_.size()), command_(command) {
    acDocManager->lock(*curDoc(), AcAp::kWrite, command, true);
}

zuhost::CommandLock::~CommandLock() {
    // Locks that the command has left are released with its own.
    acDocManager->unlockTo(*curDoc(), depth_, (L"#" + command_).c_str());
}
