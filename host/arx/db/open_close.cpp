#include "dbmain.h"

#include "database_core.h"
#include "object_access.h"

#include <utility>

namespace {

constexpr std::uint16_t kMaxReaders = 256;

Acad::ErrorStatus openObject(AcDbObject*& object, AcDbObjectId id, AcDb::OpenMode mode, bool openErased,
                             bool ignoreLock) {
    object = nullptr;
    AcDbStub* const stub = id;
    if (stub == nullptr)
        return Acad::eNullObjectId;
    if (stub->erased && !openErased)
        return Acad::eWasErased;
    return zuhost::ObjectAccess::core(*stub->database).open(*stub, mode, object, ignoreLock);
}

} // namespace

Acad::ErrorStatus acdbOpenAcDbObject(AcDbObject*& object, AcDbObjectId id, AcDb::OpenMode mode,
                                     bool openErased) {
    return openObject(object, id, mode, openErased, false);
}

Acad::ErrorStatus acdbForceOpenObjectOnLockedLayer(AcDbObject*& object, AcDbObjectId id, AcDb::OpenMode mode,
                                                   bool openErased) {
    return openObject(object, id, mode, openErased, true);
}

Acad::ErrorStatus zuhost::DatabaseCore::open(AcDbStub& stub, AcDb::OpenMode mode, AcDbObject*& opened,
                                             bool ignoreLock) {
    AcDbObject& target = object(stub);
    if (target.writing_)
        return Acad::eWasOpenForWrite;
    if (mode == AcDb::kForWrite) {
        if (target.readers_ > 0)
            return Acad::eWasOpenForRead;
        if (!ignoreLock && isOnLockedLayer(target))
            return Acad::eOnLockedLayer;
        target.writing_ = true;
        target.lockIsIgnored_ = ignoreLock;
    } else {
        if (target.readers_ >= kMaxReaders)
            return Acad::eAtMaxReaders;
        ++target.readers_;
    }
    opened = &target;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbObject::close() {
    if (stub_ == nullptr)
        return Acad::eNotInDatabase;
    if (writing_) {
        writing_ = false;
        notifyClosed();
        return Acad::eOk;
    }
    if (readers_ == 0)
        return Acad::eNotOpenForRead;
    --readers_;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbObject::upgradeOpen() {
    if (writing_)
        return Acad::eWasOpenForWrite;
    if (readers_ != 1)
        return readers_ == 0 ? Acad::eNotOpenForRead : Acad::eWasOpenForRead;
    if (core()->isOnLockedLayer(*this))
        return Acad::eOnLockedLayer;
    readers_ = 0;
    writing_ = true;
    lockIsIgnored_ = false;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbObject::downgradeOpen() {
    if (!writing_)
        return Acad::eNotOpenForWrite;
    writing_ = false;
    readers_ = 1;
    notifyClosed();
    return Acad::eOk;
}

/// Notifies reactors of the changes made while the object was open. They may open it again, so the flags are
/// reset first.
void AcDbObject::notifyClosed() {
    const bool wasAppended = std::exchange(appended_, false);
    const bool wasModified = std::exchange(modified_, false);
    const bool wasToggled = std::exchange(eraseToggled_, false);
    const bool nowErased = stub_->erased;
    zuhost::DatabaseCore& database = *core();
    if (wasModified && stub_->owner != nullptr)
        database.recordClosed(*stub_->owner);
    if (wasAppended)
        database.appended(*this);
    else if (wasModified)
        database.modified(*this);
    if (wasModified)
        notifyReactors([this](AcDbObjectReactor& r) { r.modified(this); });
    if (wasToggled) {
        notifyReactors([&](AcDbObjectReactor& r) { r.erased(this, nowErased); });
        database.erased(*this, nowErased);
    }
}
