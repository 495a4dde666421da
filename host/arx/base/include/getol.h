#pragma once

/// Tolerances of comparisons: for points in drawing units, for vectors relative to unit vectors.
class AcGeTol {
public:
    [[nodiscard]] constexpr double equalPoint() const { return equalPoint_; }
    [[nodiscard]] constexpr double equalVector() const { return equalVector_; }
    constexpr AcGeTol& setEqualPoint(double value) {
        equalPoint_ = value;
        return *this;
    }
    constexpr AcGeTol& setEqualVector(double value) {
        equalVector_ = value;
        return *this;
    }

private:
    double equalPoint_ = 1e-10;
    double equalVector_ = 1e-10;
};
