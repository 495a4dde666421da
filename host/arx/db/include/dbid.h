#pragma once

#include "acarray.h"
#include "dbhandle.h"

#include <zuhost/platform/export.h>

#include <compare>
#include <functional>

struct AcDbStub;
class AcDbDatabase;
class AcRxClass;

/// Identifies an object of an open drawing. Valid as long as the drawing is open, even if the object is
/// erased.
class ZUHOST_API AcDbObjectId {
public:
    static const AcDbObjectId kNull;

    constexpr AcDbObjectId() = default;
    constexpr AcDbObjectId(AcDbStub* stub) : stub_(stub) {}

    [[nodiscard]] constexpr bool isNull() const { return stub_ == nullptr; }
    constexpr AcDbObjectId& setNull() {
        stub_ = nullptr;
        return *this;
    }
    [[nodiscard]] bool isValid() const { return stub_ != nullptr; }
    [[nodiscard]] bool isErased() const;
    [[nodiscard]] AcDbHandle handle() const;
    [[nodiscard]] AcDbDatabase* database() const;
    /// Returns the object's class without opening the object; null for the null id.
    [[nodiscard]] AcRxClass* objectClass() const;

    constexpr operator AcDbStub*() const { return stub_; }
    constexpr bool operator==(const AcDbObjectId&) const = default;
    bool operator<(const AcDbObjectId& other) const { return std::less<>()(stub_, other.stub_); }

private:
    AcDbStub* stub_ = nullptr;
};

using AcDbObjectIdArray = AcArray<AcDbObjectId>;

template <>
struct std::hash<AcDbObjectId> {
    std::size_t operator()(const AcDbObjectId& id) const noexcept {
        return std::hash<AcDbStub*>()(static_cast<AcDbStub*>(id));
    }
};
