#pragma once

#include <windows.h>

class CPoint;
class CRect;

constexpr bool operator==(const SIZE& a, const SIZE& b) {
    return a.cx == b.cx && a.cy == b.cy;
}
constexpr bool operator==(const POINT& a, const POINT& b) {
    return a.x == b.x && a.y == b.y;
}
constexpr bool operator==(const RECT& a, const RECT& b) {
    return a.left == b.left && a.top == b.top && a.right == b.right && a.bottom == b.bottom;
}

class CSize : public SIZE {
public:
    constexpr CSize() = default;
    constexpr CSize(int width, int height) : SIZE{width, height} {}
    // NOLINTNEXTLINE(google-explicit-constructor, hicpp-explicit-conversions): as the interface has it.
    constexpr CSize(const SIZE& size) : SIZE(size) {}
    explicit CSize(const POINT& point) : SIZE{point.x, point.y} {}

    void SetSize(int width, int height) { *this = CSize(width, height); }
    void operator+=(const SIZE& other) { *this = *this + other; }
    void operator-=(const SIZE& other) { *this = *this - other; }
    CSize operator+(const SIZE& other) const { return {cx + other.cx, cy + other.cy}; }
    CSize operator-(const SIZE& other) const { return {cx - other.cx, cy - other.cy}; }
    CSize operator-() const { return {-cx, -cy}; }
    CPoint operator+(const POINT& point) const;
    CPoint operator-(const POINT& point) const;
};

class CPoint : public POINT {
public:
    constexpr CPoint() = default;
    constexpr CPoint(int across, int down) : POINT{across, down} {}
    // NOLINTNEXTLINE(google-explicit-constructor, hicpp-explicit-conversions): as the interface has it.
    constexpr CPoint(const POINT& point) : POINT(point) {}
    explicit CPoint(const SIZE& size) : POINT{size.cx, size.cy} {}
    /// Takes the coordinates from a message's parameter.
    explicit CPoint(LPARAM packed)
        : POINT{static_cast<std::int16_t>(LOWORD(static_cast<std::uintptr_t>(packed))),
                static_cast<std::int16_t>(HIWORD(static_cast<std::uintptr_t>(packed)))} {}

    void SetPoint(int across, int down) { *this = CPoint(across, down); }
    void Offset(int across, int down) { *this = {x + across, y + down}; }
    void Offset(const POINT& point) { Offset(point.x, point.y); }
    void Offset(const SIZE& size) { Offset(size.cx, size.cy); }
    void operator+=(const SIZE& size) { Offset(size); }
    void operator-=(const SIZE& size) { Offset(-size.cx, -size.cy); }
    void operator+=(const POINT& point) { Offset(point); }
    void operator-=(const POINT& point) { Offset(-point.x, -point.y); }
    CPoint operator+(const SIZE& size) const { return {x + size.cx, y + size.cy}; }
    CPoint operator-(const SIZE& size) const { return {x - size.cx, y - size.cy}; }
    CPoint operator+(const POINT& point) const { return {x + point.x, y + point.y}; }
    CSize operator-(const POINT& point) const { return {x - point.x, y - point.y}; }
    CPoint operator-() const { return {-x, -y}; }
    CRect operator+(const RECT& rectangle) const;
};

inline CPoint CSize::operator+(const POINT& point) const {
    return {cx + point.x, cy + point.y};
}
inline CPoint CSize::operator-(const POINT& point) const {
    return {cx - point.x, cy - point.y};
}

/// The right and bottom edges are exclusive.
class CRect : public RECT {
public:
    constexpr CRect() = default;
    constexpr CRect(int leftSide, int topSide, int rightSide, int bottomSide)
        : RECT{leftSide, topSide, rightSide, bottomSide} {}
    // NOLINTBEGIN(google-explicit-constructor, hicpp-explicit-conversions): as the interface has it.
    constexpr CRect(const RECT& rectangle) : RECT(rectangle) {}
    CRect(const RECT* rectangle) : RECT(rectangle != nullptr ? *rectangle : RECT{}) {}
    operator LPRECT() { return this; }
    operator LPCRECT() const { return this; }
    // NOLINTEND(google-explicit-constructor, hicpp-explicit-conversions)
    CRect(const POINT& corner, const SIZE& size)
        : RECT{corner.x, corner.y, corner.x + size.cx, corner.y + size.cy} {}
    CRect(const POINT& topLeft, const POINT& bottomRight)
        : RECT{topLeft.x, topLeft.y, bottomRight.x, bottomRight.y} {}

    [[nodiscard]] int Width() const { return right - left; }
    [[nodiscard]] int Height() const { return bottom - top; }
    [[nodiscard]] CSize Size() const { return {Width(), Height()}; }
    [[nodiscard]] CPoint& TopLeft() { return *reinterpret_cast<CPoint*>(&left); }
    [[nodiscard]] CPoint& BottomRight() { return *reinterpret_cast<CPoint*>(&right); }
    [[nodiscard]] CPoint TopLeft() const { return {left, top}; }
    [[nodiscard]] CPoint BottomRight() const { return {right, bottom}; }
    [[nodiscard]] CPoint CenterPoint() const { return {left + Width() / 2, top + Height() / 2}; }
    [[nodiscard]] BOOL IsRectEmpty() const { return right <= left || bottom <= top ? TRUE : FALSE; }
    [[nodiscard]] BOOL IsRectNull() const { return *this == CRect() ? TRUE : FALSE; }
    [[nodiscard]] BOOL PtInRect(const POINT& point) const {
        return point.x >= left && point.x < right && point.y >= top && point.y < bottom ? TRUE : FALSE;
    }

    void SetRect(int leftSide, int topSide, int rightSide, int bottomSide) {
        *this = CRect(leftSide, topSide, rightSide, bottomSide);
    }
    void SetRect(const POINT& topLeft, const POINT& bottomRight) { *this = CRect(topLeft, bottomRight); }
    void SetRectEmpty() { *this = CRect(); }
    void CopyRect(const RECT* other) { *this = CRect(other); }
    [[nodiscard]] BOOL EqualRect(const RECT* other) const { return *this == CRect(other) ? TRUE : FALSE; }

    void InflateRect(int across, int down) { InflateRect(across, down, across, down); }
    void InflateRect(const SIZE& size) { InflateRect(size.cx, size.cy); }
    void InflateRect(int toLeft, int toTop, int toRight, int toBottom) {
        left -= toLeft;
        top -= toTop;
        right += toRight;
        bottom += toBottom;
    }
    void DeflateRect(int across, int down) { InflateRect(-across, -down); }
    void DeflateRect(const SIZE& size) { InflateRect(-size.cx, -size.cy); }
    void DeflateRect(int fromLeft, int fromTop, int fromRight, int fromBottom) {
        InflateRect(-fromLeft, -fromTop, -fromRight, -fromBottom);
    }
    void OffsetRect(int across, int down) { InflateRect(-across, -down, across, down); }
    void OffsetRect(const POINT& by) { OffsetRect(by.x, by.y); }
    void OffsetRect(const SIZE& by) { OffsetRect(by.cx, by.cy); }
    void MoveToX(int x) { OffsetRect(x - left, 0); }
    void MoveToY(int y) { OffsetRect(0, y - top); }
    void MoveToXY(int x, int y) { OffsetRect(x - left, y - top); }
    void MoveToXY(const POINT& point) { MoveToXY(point.x, point.y); }
    /// Exchanges edges so that width and height are not negative.
    void NormalizeRect() { *this = {min(left, right), min(top, bottom), max(left, right), max(top, bottom)}; }

    /// Each returns FALSE, with an empty rectangle, when the result is empty.
    BOOL IntersectRect(const RECT* one, const RECT* other) {
        const CRect a(one);
        const CRect b(other);
        *this = {max(a.left, b.left), max(a.top, b.top), min(a.right, b.right), min(a.bottom, b.bottom)};
        if (a.IsRectEmpty() != FALSE || b.IsRectEmpty() != FALSE || IsRectEmpty() != FALSE)
            SetRectEmpty();
        return IsRectEmpty() == FALSE ? TRUE : FALSE;
    }
    /// Ignores an empty rectangle.
    BOOL UnionRect(const RECT* one, const RECT* other) {
        const CRect a(one);
        const CRect b(other);
        if (a.IsRectEmpty() != FALSE)
            *this = b.IsRectEmpty() != FALSE ? CRect() : b;
        else if (b.IsRectEmpty() != FALSE)
            *this = a;
        else
            *this = {min(a.left, b.left), min(a.top, b.top), max(a.right, b.right), max(a.bottom, b.bottom)};
        return IsRectEmpty() == FALSE ? TRUE : FALSE;
    }

    void operator+=(const POINT& by) { OffsetRect(by); }
    void operator+=(const SIZE& by) { OffsetRect(by); }
    void operator+=(const RECT* by) { InflateRect(by->left, by->top, by->right, by->bottom); }
    void operator-=(const POINT& by) { OffsetRect(-by.x, -by.y); }
    void operator-=(const SIZE& by) { OffsetRect(-by.cx, -by.cy); }
    void operator-=(const RECT* by) { DeflateRect(by->left, by->top, by->right, by->bottom); }
    void operator&=(const RECT& other) { IntersectRect(this, &other); }
    void operator|=(const RECT& other) { UnionRect(this, &other); }
    CRect operator+(const POINT& by) const { return {left + by.x, top + by.y, right + by.x, bottom + by.y}; }
    CRect operator-(const POINT& by) const { return {left - by.x, top - by.y, right - by.x, bottom - by.y}; }
    CRect operator+(const SIZE& by) const { return *this + CPoint(by); }
    CRect operator-(const SIZE& by) const { return *this - CPoint(by); }
    CRect operator&(const RECT& other) const {
        CRect result;
        result.IntersectRect(this, &other);
        return result;
    }
    CRect operator|(const RECT& other) const {
        CRect result;
        result.UnionRect(this, &other);
        return result;
    }
};

inline CRect CPoint::operator+(const RECT& rectangle) const {
    return CRect(rectangle) + *this;
}
