#pragma once

#include <limits>

/// A range of parameters, possibly without bounds.
class AcGeInterval {
public:
    constexpr AcGeInterval() = default;
    constexpr AcGeInterval(double lower, double upper) : lower_(lower), upper_(upper) {}

    constexpr AcGeInterval& set(double lower, double upper) { return *this = AcGeInterval(lower, upper); }
    /// Removes both bounds.
    constexpr AcGeInterval& set() { return *this = AcGeInterval(); }
    [[nodiscard]] constexpr double lowerBound() const { return lower_; }
    [[nodiscard]] constexpr double upperBound() const { return upper_; }
    constexpr void getBounds(double& lower, double& upper) const {
        lower = lower_;
        upper = upper_;
    }
    [[nodiscard]] constexpr double length() const { return upper_ - lower_; }
    [[nodiscard]] constexpr bool isBoundedBelow() const { return lower_ > -kInfinity; }
    [[nodiscard]] constexpr bool isBoundedAbove() const { return upper_ < kInfinity; }
    [[nodiscard]] constexpr bool isBounded() const { return isBoundedBelow() && isBoundedAbove(); }
    [[nodiscard]] constexpr bool isUnBounded() const { return !isBounded(); }
    [[nodiscard]] constexpr bool contains(double value) const { return lower_ <= value && value <= upper_; }

private:
    static constexpr double kInfinity = std::numeric_limits<double>::infinity();

    double lower_ = -kInfinity;
    double upper_ = kInfinity;
};
