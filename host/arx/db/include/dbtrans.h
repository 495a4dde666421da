#pragma once

#include "dbmain.h"
#include "rxdlinkr.h"

#include <zuhost/platform/export.h>

class AcDbTransactionManager;

/// A transaction: objects opened through it stay open until the outermost one ends, and ending or aborting it
/// decides about all changes of their databases since its start.
class ZUHOST_API AcTransaction : public AcRxObject {
public:
    ACRX_DECLARE_MEMBERS(AcTransaction);

    /// Opens the object; an object of an open transaction is returned again, and upgraded for kForWrite.
    /// eNotTopTransaction for any transaction but the innermost one; otherwise as acdbOpenAcDbObject.
    Acad::ErrorStatus getObject(AcDbObject*& object, AcDbObjectId id, AcDb::OpenMode mode = AcDb::kForRead,
                                bool openErased = false);
    template <typename T>
    Acad::ErrorStatus getObject(T*& object, AcDbObjectId id, AcDb::OpenMode mode = AcDb::kForRead,
                                bool openErased = false) {
        AcDbObject* found = nullptr;
        const Acad::ErrorStatus status = getObject(found, id, mode, openErased);
        object = status == Acad::eOk ? T::cast(found) : nullptr;
        return status == Acad::eOk && object == nullptr ? Acad::eNotThatKindOfClass : status;
    }

private:
    friend class AcDbTransactionManager;
    AcTransaction() = default;
};

/// Notified of transactions. The numbers count those that are open at the time of the call.
class ZUHOST_API AcTransactionReactor : public AcRxObject {
public:
    ACRX_DECLARE_MEMBERS(AcTransactionReactor);

    virtual void transactionStarted(int& /*number*/) {}
    virtual void transactionEnded(int& /*number*/) {}
    virtual void transactionAborted(int& /*number*/) {}
};

/// Starts and ends transactions, which nest. An object that was opened through one is not closed by its user.
class ZUHOST_API AcDbTransactionManager : public AcRxObject {
public:
    ACRX_DECLARE_MEMBERS(AcDbTransactionManager);

    /// Returns the new innermost transaction, which ends with endTransaction or abortTransaction.
    AcTransaction* startTransaction();
    /// Ends the innermost transaction and keeps its changes, unless an enclosing one is aborted. The end of
    /// the outermost one closes the objects. eNoActiveTransactions without any.
    Acad::ErrorStatus endTransaction();
    /// Closes the objects that were opened in the innermost transaction and takes back all changes since its
    /// start, also of objects that were opened and closed without it. eNoActiveTransactions without any.
    Acad::ErrorStatus abortTransaction();

    [[nodiscard]] int numActiveTransactions() const;
    /// Null without a transaction.
    [[nodiscard]] AcTransaction* topTransaction() const;

    /// Opens the object in the innermost transaction; eNoActiveTransactions without any.
    Acad::ErrorStatus getObject(AcDbObject*& object, AcDbObjectId id, AcDb::OpenMode mode = AcDb::kForRead,
                                bool openErased = false);
    template <typename T>
    Acad::ErrorStatus getObject(T*& object, AcDbObjectId id, AcDb::OpenMode mode = AcDb::kForRead,
                                bool openErased = false) {
        AcTransaction* const top = topTransaction();
        object = nullptr;
        return top != nullptr ? top->getObject(object, id, mode, openErased) : Acad::eNoActiveTransactions;
    }
    /// Makes a new object, which is in a database and open for write, one of the innermost transaction, which
    /// closes it and erases it when it is aborted. With `add` false removes it again, still open.
    /// eNotNewlyCreated for an object that is in no database or was not added while it was open.
    Acad::ErrorStatus addNewlyCreatedDBRObject(AcDbObject* object, bool add = true);

    void addReactor(AcTransactionReactor* reactor);
    void removeReactor(AcTransactionReactor* reactor);
};

namespace zuhost {
ZUHOST_API AcDbTransactionManager& transactionManager();
}

inline constexpr zuhost::Service<AcDbTransactionManager, zuhost::transactionManager> acdbTransactionManager;
