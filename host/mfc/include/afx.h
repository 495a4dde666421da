#pragma once

#include "afxstr.h"
#include "windows.h"

#include <memory>

class CObject;

/// Run-time description of a class of the framework; see RUNTIME_CLASS.
struct CRuntimeClass {
    const char* m_lpszClassName;
    CObject* (*m_pfnCreateObject)();
    const CRuntimeClass* m_pBaseClass;

    /// A new object, owned by the caller; null when the class can't be created dynamically.
    [[nodiscard]] CObject* CreateObject() const {
        return m_pfnCreateObject != nullptr ? m_pfnCreateObject() : nullptr;
    }
    [[nodiscard]] bool IsDerivedFrom(const CRuntimeClass* base) const;
};

/// Root of the framework's classes.
class CObject {
public:
    static const CRuntimeClass classCObject;

    virtual ~CObject() = default;
    [[nodiscard]] virtual const CRuntimeClass* GetRuntimeClass() const { return &classCObject; }
    [[nodiscard]] BOOL IsKindOf(const CRuntimeClass* base) const {
        return GetRuntimeClass()->IsDerivedFrom(base) ? TRUE : FALSE;
    }

protected:
    CObject() = default;
    CObject(const CObject&) = default;
    CObject& operator=(const CObject&) = default;
};

#define RUNTIME_CLASS(class_name) (&class_name::class##class_name)

#define DECLARE_DYNAMIC(class_name)                                                                          \
public:                                                                                                      \
    static const CRuntimeClass class##class_name;                                                            \
    const CRuntimeClass* GetRuntimeClass() const override {                                                  \
        return &class##class_name;                                                                           \
    }

#define IMPLEMENT_DYNAMIC(class_name, base_class_name)                                                       \
    const CRuntimeClass class_name::class##class_name = {#class_name, nullptr,                               \
                                                         RUNTIME_CLASS(base_class_name)};

#define DECLARE_DYNCREATE(class_name)                                                                        \
    DECLARE_DYNAMIC(class_name)                                                                              \
    static CObject* CreateObject();

#define IMPLEMENT_DYNCREATE(class_name, base_class_name)                                                     \
    CObject* class_name::CreateObject() {                                                                    \
        return new class_name;                                                                               \
    }                                                                                                        \
    const CRuntimeClass class_name::class##class_name = {#class_name, &class_name::CreateObject,             \
                                                         RUNTIME_CLASS(base_class_name)};

/// Root of the framework's exceptions; thrown by value, caught by reference.
class CException : public CObject {
public:
    [[nodiscard]] virtual CString GetErrorText() const { return {}; }
};

/// An argument out of range, such as an index beyond an array's end.
class CInvalidArgException : public CException {
public:
    [[nodiscard]] CString GetErrorText() const override { return L"An invalid argument was encountered."; }
};

/// An operation of a file failed; `m_cause` says why in the framework's own numbers.
class CFileException : public CException {
public:
    enum Cause : int {
        none = 0,
        genericException = 1,
        fileNotFound = 2,
        badPath = 3,
        tooManyOpenFiles = 4,
        accessDenied = 5,
        invalidFile = 6,
        removeCurrentDir = 7,
        directoryFull = 8,
        badSeek = 9,
        hardIO = 10,
        sharingViolation = 11,
        lockViolation = 12,
        diskFull = 13,
        endOfFile = 14
    };

    explicit CFileException(int cause = none, LONG osError = 0, const wchar_t* file = nullptr)
        : m_cause(cause), m_lOsError(osError), m_strFileName(file) {}

    int m_cause;
    LONG m_lOsError;
    CString m_strFileName;
};

[[noreturn]] void AfxThrowInvalidArgException();
[[noreturn]] void AfxThrowFileException(int cause, LONG osError = 0, const wchar_t* file = nullptr);
