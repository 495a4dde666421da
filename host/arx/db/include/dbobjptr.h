#pragma once

#include "dbmain.h"

/// Keeps an object open for a scope: the constructor or `open` opens it, the destructor closes it.
template <typename T>
class AcDbObjectPointer {
public:
    AcDbObjectPointer() = default;
    explicit AcDbObjectPointer(AcDbObjectId id, AcDb::OpenMode mode = AcDb::kForRead,
                               bool openErased = false) {
        open(id, mode, openErased);
    }
    ~AcDbObjectPointer() { close(); }
    AcDbObjectPointer(const AcDbObjectPointer&) = delete;
    AcDbObjectPointer& operator=(const AcDbObjectPointer&) = delete;

    Acad::ErrorStatus open(AcDbObjectId id, AcDb::OpenMode mode = AcDb::kForRead, bool openErased = false) {
        close();
        return status_ = acdbOpenObject(object_, id, mode, openErased);
    }
    Acad::ErrorStatus close() {
        if (object_ == nullptr)
            return Acad::eNullObjectPointer;
        T* const object = object_;
        object_ = nullptr;
        return object->close();
    }

    [[nodiscard]] Acad::ErrorStatus openStatus() const { return status_; }
    [[nodiscard]] T* object() const { return object_; }
    T* operator->() const { return object_; }
    operator T*() const { return object_; }

private:
    T* object_ = nullptr;
    Acad::ErrorStatus status_ = Acad::eNullObjectPointer;
};

using AcDbEntityPointer = AcDbObjectPointer<AcDbEntity>;
