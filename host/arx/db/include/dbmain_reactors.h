#pragma once

// Part of dbmain.h: the reactors.

#include "acdb.h"
#include "rxclass.h"

#include <zuhost/platform/export.h>

class AcDbObject;

/// Notified of the changes of one object that it was added to. The object must not be changed by the reactor.
class ZUHOST_API AcDbObjectReactor : public AcRxObject {
public:
    ACRX_DECLARE_MEMBERS(AcDbObjectReactor);

    virtual void openedForModify(const AcDbObject* /*object*/) {}
    virtual void modified(const AcDbObject* /*object*/) {}
    virtual void erased(const AcDbObject* /*object*/, bool /*erasing*/) {}
    /// The object was copied by clone or deepClone; the copy may be in no database yet.
    virtual void copied(const AcDbObject* /*object*/, const AcDbObject* /*copy*/) {}
    /// A change of the object was undone or redone; `modified` is called too.
    virtual void modifyUndone(const AcDbObject* /*object*/) {}
    /// The object's addition was undone, or redone.
    virtual void unappended(const AcDbObject* /*object*/) {}
    virtual void reappended(const AcDbObject* /*object*/) {}
    virtual void goodbye(const AcDbObject* /*object*/) {}
};

/// Notified of changes of the objects of a database when they are closed after the change.
class ZUHOST_API AcDbDatabaseReactor : public AcRxObject {
public:
    ACRX_DECLARE_MEMBERS(AcDbDatabaseReactor);

    virtual void objectAppended(const AcDbDatabase* /*database*/, const AcDbObject* /*object*/) {}
    /// An addition that was undone, and one that was redone.
    virtual void objectUnAppended(const AcDbDatabase* /*database*/, const AcDbObject* /*object*/) {}
    virtual void objectReAppended(const AcDbDatabase* /*database*/, const AcDbObject* /*object*/) {}
    /// Called before the first change while an object is open.
    virtual void objectOpenedForModify(const AcDbDatabase* /*database*/, const AcDbObject* /*object*/) {}
    virtual void objectModified(const AcDbDatabase* /*database*/, const AcDbObject* /*object*/) {}
    virtual void objectErased(const AcDbDatabase* /*database*/, const AcDbObject* /*object*/,
                              bool /*erased*/ = true) {}
    /// A variable of the drawing is set, by its name without "$".
    virtual void headerSysVarWillChange(const AcDbDatabase* /*database*/, const ACHAR* /*name*/) {}
    virtual void headerSysVarChanged(const AcDbDatabase* /*database*/, const ACHAR* /*name*/,
                                     bool /*success*/) {}
    /// The database is about to be destroyed; it no longer refers to the reactor afterwards.
    virtual void goodbye(const AcDbDatabase* /*database*/) {}
};
