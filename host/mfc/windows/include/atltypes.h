#pragma once

#include <windows.h>

class CSize : public SIZE {
public:
    CSize() = default;
    CSize(int width, int height) {
        cx = width;
        cy = height;
    }
};

class CPoint : public POINT {
public:
    CPoint() = default;
    CPoint(int across, int down) {
        x = across;
        y = down;
    }
    explicit CPoint(const POINT& point) : POINT(point) {}
};

/// The right and bottom edges are exclusive.
class CRect : public RECT {
public:
    CRect() = default;
    CRect(int leftSide, int topSide, int rightSide, int bottomSide) {
        left = leftSide;
        top = topSide;
        right = rightSide;
        bottom = bottomSide;
    }
    // NOLINTNEXTLINE(google-explicit-constructor, hicpp-explicit-conversions): as the interface has it.
    CRect(const RECT& rectangle) : RECT(rectangle) {}

    [[nodiscard]] int Width() const { return right - left; }
    [[nodiscard]] int Height() const { return bottom - top; }
    [[nodiscard]] BOOL IsRectEmpty() const { return right <= left || bottom <= top ? TRUE : FALSE; }
    [[nodiscard]] BOOL PtInRect(const POINT& point) const {
        return point.x >= left && point.x < right && point.y >= top && point.y < bottom ? TRUE : FALSE;
    }
    void DeflateRect(int across, int down) { DeflateRect(across, down, across, down); }
    void DeflateRect(int fromLeft, int fromTop, int fromRight, int fromBottom) {
        left += fromLeft;
        top += fromTop;
        right -= fromRight;
        bottom -= fromBottom;
    }
};
