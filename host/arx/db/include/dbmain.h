#pragma once

// Objects, entities and drawings; how objects are opened. Include this header: its parts are no headers of
// the host.

#include "dbmain_database.h"
#include "dbmain_entity.h"

#include <zuhost/platform/export.h>

#include <type_traits>

/// Opens an object. On failure `object` is null.
/// eNullObjectId, eWasErased (unless `openErased`), eWasOpenForWrite, eWasOpenForRead (asking to write),
/// eOnLockedLayer (asking to write an entity whose layer is locked), eAtMaxReaders, eNotThatKindOfClass
/// (typed form).
ZUHOST_API Acad::ErrorStatus acdbOpenAcDbObject(AcDbObject*& object, AcDbObjectId id, AcDb::OpenMode mode,
                                                bool openErased = false);
/// As above, but opens entities on locked layers for write too; they can then be erased as well.
ZUHOST_API Acad::ErrorStatus acdbForceOpenObjectOnLockedLayer(AcDbObject*& object, AcDbObjectId id,
                                                              AcDb::OpenMode mode, bool openErased = false);

template <typename T>
Acad::ErrorStatus acdbOpenObject(T*& object, AcDbObjectId id, AcDb::OpenMode mode = AcDb::kForRead,
                                 bool openErased = false, bool openOnLockedLayer = false) {
    object = nullptr;
    AcDbObject* opened = nullptr;
    const Acad::ErrorStatus status = openOnLockedLayer
                                         ? acdbForceOpenObjectOnLockedLayer(opened, id, mode, openErased)
                                         : acdbOpenAcDbObject(opened, id, mode, openErased);
    if (status != Acad::eOk)
        return status;
    if constexpr (std::is_same_v<T, AcDbObject>) {
        object = opened;
        return Acad::eOk;
    } else {
        object = T::cast(opened);
        if (object != nullptr)
            return Acad::eOk;
        opened->close();
        return Acad::eNotThatKindOfClass;
    }
}

inline Acad::ErrorStatus acdbOpenAcDbEntity(AcDbEntity*& entity, AcDbObjectId id, AcDb::OpenMode mode,
                                            bool openErased = false) {
    return acdbOpenObject(entity, id, mode, openErased);
}

/// Returns whether an entry of AcDbObject::reactors refers to an object of the drawing, and to which.
ZUHOST_API bool acdbIsPersistentReactor(const void* reactor);
ZUHOST_API AcDbObjectId acdbPersistentReactorObjectId(const void* reactor);

/// Registers an application in the working database, so that extended data may name it.
ZUHOST_API int acdbRegApp(const ACHAR* application);
ZUHOST_API Acad::ErrorStatus acdbRegApp(AcDbDatabase* database, const ACHAR* application);
