#pragma once

#include "adesk.h"

#include <zuhost/platform/export.h>

class AcRxClass;

/// Root of the host's classes with run-time type information. The order of the virtual members is part of the
/// binary interface.
class ZUHOST_API AcRxObject {
public:
    virtual ~AcRxObject() = default;

    virtual AcRxClass* isA() const;
    static AcRxClass* desc();
    static AcRxObject* cast(const AcRxObject* object);

    /// Returns a copy owned by the caller; null for classes that can't be copied.
    virtual AcRxObject* clone() const { return nullptr; }
    virtual Acad::ErrorStatus copyFrom(const AcRxObject* /*other*/) { return Acad::eNotImplementedYet; }
    virtual bool isEqualTo(const AcRxObject* other) const { return this == other; }
    virtual AcRx::Ordering comparedTo(const AcRxObject* other) const;

    /// Returns true when the object is of the class or one derived from it.
    bool isKindOf(const AcRxClass* aClass) const;

    /// Returns the protocol extension of the object's class for the given class; null when there is none.
    AcRxObject* queryX(const AcRxClass* protocol) const { return subQueryX(protocol); }

protected:
    AcRxObject() = default;
    AcRxObject(const AcRxObject&) = default;
    AcRxObject& operator=(const AcRxObject&) = default;
    AcRxObject(AcRxObject&&) = default;
    AcRxObject& operator=(AcRxObject&&) = default;

    virtual AcRxObject* subQueryX(const AcRxClass* protocol) const;
};

/// Declares the run-time type members of a class; one of the macros below defines them in a source file.
#define ACRX_DECLARE_MEMBERS(CLASS_NAME)                                                                     \
    AcRxClass* isA() const override;                                                                         \
    static AcRxClass* gpDesc;                                                                                \
    static AcRxClass* desc();                                                                                \
    static CLASS_NAME* cast(const AcRxObject* object);                                                       \
    static void rxInit()

/// Defines the members; the class is registered on the first call of desc(). CREATE makes an object, or is
/// null.
#define ACRX_DEFINE_MEMBERS_WITH(CLASS_NAME, PARENT_CLASS, CREATE)                                           \
    AcRxClass* CLASS_NAME::gpDesc = nullptr;                                                                 \
    AcRxClass* CLASS_NAME::desc() {                                                                          \
        if (gpDesc == nullptr)                                                                               \
            rxInit();                                                                                        \
        return gpDesc;                                                                                       \
    }                                                                                                        \
    AcRxClass* CLASS_NAME::isA() const {                                                                     \
        return CLASS_NAME::desc();                                                                           \
    }                                                                                                        \
    CLASS_NAME* CLASS_NAME::cast(const AcRxObject* object) {                                                 \
        return object != nullptr && object->isKindOf(CLASS_NAME::desc())                                     \
                   ? const_cast<CLASS_NAME*>(static_cast<const CLASS_NAME*>(object))                         \
                   : nullptr;                                                                                \
    }                                                                                                        \
    void CLASS_NAME::rxInit() {                                                                              \
        if (gpDesc == nullptr)                                                                               \
            gpDesc = newAcRxClass(L## #CLASS_NAME, PARENT_CLASS::desc(), CREATE);                            \
    }

#define ACRX_NO_CONS_DEFINE_MEMBERS(CLASS_NAME, PARENT_CLASS)                                                \
    ACRX_DEFINE_MEMBERS_WITH(CLASS_NAME, PARENT_CLASS, nullptr)
#define ACRX_CONS_DEFINE_MEMBERS(CLASS_NAME, PARENT_CLASS)                                                   \
    ACRX_DEFINE_MEMBERS_WITH(CLASS_NAME, PARENT_CLASS, []() -> AcRxObject* { return new CLASS_NAME; })
