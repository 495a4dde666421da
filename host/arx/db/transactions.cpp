#include "dbtrans.h"

#include "database_core.h"
#include "dbapserv.h"
#include "transactions.h"

#include <algorithm>
#include <memory>
#include <unordered_set>

ACRX_NO_CONS_DEFINE_MEMBERS(AcTransaction, AcRxObject)
ACRX_NO_CONS_DEFINE_MEMBERS(AcTransactionReactor, AcRxObject)
ACRX_NO_CONS_DEFINE_MEMBERS(AcDbTransactionManager, AcRxObject)

namespace {

struct Level {
    std::unique_ptr<AcTransaction> transaction;
    std::vector<AcDbObjectId> opened;
    std::vector<AcDbDatabase*> databases; ///< Whose changes are recorded.
};

struct State {
    std::vector<Level> levels;
    std::unordered_set<AcDbObjectId> open; ///< The objects of all levels.
    std::vector<AcTransactionReactor*> reactors;
};

State& state() {
    static auto* const instance = new State; // never destroyed: databases can end during process exit
    return *instance;
}

template <typename Notify>
void notifyAll(Notify notify) {
    const std::vector<AcTransactionReactor*> reactors = state().reactors; // they can remove themselves
    for (AcTransactionReactor* const reactor : reactors)
        if (std::find(state().reactors.begin(), state().reactors.end(), reactor) != state().reactors.end())
            notify(*reactor);
}

/// Records the changes of the database for every open transaction.
void record(AcDbDatabase& database) {
    for (Level& level : state().levels) {
        if (std::find(level.databases.begin(), level.databases.end(), &database) != level.databases.end())
            continue;
        zuhost::coreOf(database).undo.startTransaction();
        level.databases.push_back(&database);
    }
}

void note(AcDbObjectId id) {
    if (state().open.insert(id).second)
        state().levels.back().opened.push_back(id);
}

/// Returns the object of an id that is open.
AcDbObject& objectOf(AcDbObjectId id) {
    return zuhost::coreOf(*id.database()).object(*static_cast<AcDbStub*>(id));
}

void closeObjects(const std::vector<AcDbObjectId>& ids) {
    for (const AcDbObjectId id : ids) {
        state().open.erase(id);
        objectOf(id).close(); // fails when the user closed it
    }
}

} // namespace

void zuhost::leaveTransactions(AcDbDatabase& database) {
    std::erase_if(state().open, [&](AcDbObjectId id) { return id.database() == &database; });
    for (Level& level : state().levels) {
        std::erase(level.databases, &database);
        std::erase_if(level.opened, [&](AcDbObjectId id) { return id.database() == &database; });
    }
}

AcDbTransactionManager& zuhost::transactionManager() {
    static auto* const manager = new AcDbTransactionManager;
    return *manager;
}

Acad::ErrorStatus AcTransaction::getObject(AcDbObject*& object, AcDbObjectId id, AcDb::OpenMode mode,
                                           bool openErased) {
    object = nullptr;
    if (acdbTransactionManager->topTransaction() != this)
        return Acad::eNotTopTransaction;
    if (id.isNull())
        return Acad::eNullObjectId;
    record(*id.database());
    if (!state().open.contains(id)) {
        const Acad::ErrorStatus status = acdbOpenAcDbObject(object, id, mode, openErased);
        if (status == Acad::eOk)
            note(id);
        return status;
    }
    if (id.isErased() && !openErased)
        return Acad::eWasErased;
    AcDbObject& known = objectOf(id);
    if (!known.isReadEnabled()) { // closed by its user
        const Acad::ErrorStatus status = acdbOpenAcDbObject(object, id, mode, openErased);
        return status;
    }
    if (mode == AcDb::kForWrite && !known.isWriteEnabled())
        if (const Acad::ErrorStatus status = known.upgradeOpen(); status != Acad::eOk)
            return status;
    object = &known;
    return Acad::eOk;
}

AcTransaction* AcDbTransactionManager::startTransaction() {
    Level& level = state().levels.emplace_back();
    level.transaction.reset(new AcTransaction);
    if (AcDbDatabase* const drawing = acdbHostApplicationServices()->workingDatabase())
        record(*drawing);
    int number = numActiveTransactions();
    AcTransaction* const started = level.transaction.get();
    notifyAll([&](AcTransactionReactor& r) { r.transactionStarted(number); });
    return started;
}

Acad::ErrorStatus AcDbTransactionManager::endTransaction() {
    std::vector<Level>& levels = state().levels;
    if (levels.empty())
        return Acad::eNoActiveTransactions;
    Level ended = std::move(levels.back());
    levels.pop_back();
    if (levels.empty())
        closeObjects(ended.opened); // before the commit: closing can notify of changes
    else
        levels.back().opened.insert(levels.back().opened.end(), ended.opened.begin(), ended.opened.end());
    for (AcDbDatabase* const database : ended.databases)
        zuhost::coreOf(*database).undo.commitTransaction();
    int number = numActiveTransactions();
    notifyAll([&](AcTransactionReactor& r) { r.transactionEnded(number); });
    return Acad::eOk;
}

Acad::ErrorStatus AcDbTransactionManager::abortTransaction() {
    std::vector<Level>& levels = state().levels;
    if (levels.empty())
        return Acad::eNoActiveTransactions;
    Level aborted = std::move(levels.back());
    levels.pop_back();
    closeObjects(aborted.opened);
    for (AcDbDatabase* const database : aborted.databases) {
        zuhost::DatabaseCore& core = zuhost::coreOf(*database);
        core.undo.abortTransaction(core);
    }
    int number = numActiveTransactions();
    notifyAll([&](AcTransactionReactor& r) { r.transactionAborted(number); });
    return Acad::eOk;
}

int AcDbTransactionManager::numActiveTransactions() const {
    return static_cast<int>(state().levels.size());
}

AcTransaction* AcDbTransactionManager::topTransaction() const {
    return state().levels.empty() ? nullptr : state().levels.back().transaction.get();
}

Acad::ErrorStatus AcDbTransactionManager::getObject(AcDbObject*& object, AcDbObjectId id, AcDb::OpenMode mode,
                                                    bool openErased) {
    object = nullptr;
    AcTransaction* const top = topTransaction();
    return top != nullptr ? top->getObject(object, id, mode, openErased) : Acad::eNoActiveTransactions;
}

Acad::ErrorStatus AcDbTransactionManager::addNewlyCreatedDBRObject(AcDbObject* object, bool add) {
    if (object == nullptr)
        return Acad::eNullObjectPointer;
    if (state().levels.empty())
        return Acad::eNoActiveTransactions;
    if (object->database() == nullptr || !object->isNewObject() || !object->isWriteEnabled())
        return Acad::eNotNewlyCreated;
    const AcDbObjectId id = object->objectId();
    if (add) {
        note(id);
        return Acad::eOk;
    }
    state().open.erase(id);
    for (Level& level : state().levels)
        std::erase(level.opened, id);
    return Acad::eOk;
}

void AcDbTransactionManager::addReactor(AcTransactionReactor* reactor) {
    std::vector<AcTransactionReactor*>& reactors = state().reactors;
    if (reactor != nullptr && std::find(reactors.begin(), reactors.end(), reactor) == reactors.end())
        reactors.push_back(reactor);
}

void AcDbTransactionManager::removeReactor(AcTransactionReactor* reactor) {
    std::erase(state().reactors, reactor);
}
