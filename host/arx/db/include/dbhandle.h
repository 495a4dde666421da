#pragma once

#include "adesk.h"

#include <zuhost/platform/export.h>

#include <compare>

/// The permanent number of an object in its drawing; 0 is the null handle.
class ZUHOST_API AcDbHandle {
public:
    /// Size of a buffer for getIntoAsciiBuffer.
    enum { kStrSiz = 17 };

    constexpr AcDbHandle() = default;
    constexpr explicit AcDbHandle(Adesk::UInt64 value) : value_(value) {}
    /// Parses hexadecimal digits; anything else gives 0.
    explicit AcDbHandle(const ACHAR* text);

    [[nodiscard]] constexpr bool isNull() const { return value_ == 0; }
    [[nodiscard]] constexpr Adesk::UInt64 value() const { return value_; }
    constexpr operator Adesk::UInt64() const { return value_; }
    /// Writes upper-case hexadecimal digits; the buffer must hold at least 17 characters.
    bool getIntoAsciiBuffer(ACHAR* buffer) const;

private:
    Adesk::UInt64 value_ = 0;
};
