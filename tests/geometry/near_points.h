#pragma once

#include <zucomn/geometry.h>

#include <gtest/gtest.h>

inline void expectPoint(const Point& actual, const Point& expected, double tolerance = 1e-9) {
    EXPECT_NEAR(actual.x, expected.x, tolerance);
    EXPECT_NEAR(actual.y, expected.y, tolerance);
}

/// Initial value of outputs, to check that a call leaves them untouched.
inline constexpr Point kUntouched{-77.0, 78.0};
