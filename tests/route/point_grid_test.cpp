#include "route/point_grid.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <random>
#include <set>

namespace {

using Points = std::vector<AcGePoint3d>;

/// Owners come and go, with few and with many points, near each other and alone.
TEST(PointGrid, FindsWhatComparingAllFinds) {
    constexpr double kDistance = 0.1;
    std::mt19937 random(7);
    const auto below = [&](unsigned most) { return static_cast<unsigned>(random() % most); };
    const auto place = [&](unsigned size) {
        return AcGePoint3d(0.07 * below(size) - 3.0, 0.07 * below(size) - 3.0, 0.0);
    };
    zu::PointGrid grid(kDistance);
    std::map<int, Points> owners;
    for (int step = 0; step < 4000; ++step) {
        const int owner = static_cast<int>(below(150));
        if (const auto found = owners.find(owner); found != owners.end()) {
            grid.remove(owner);
            owners.erase(found);
        } else {
            Points& points = owners[owner];
            points.resize(below(12));
            const unsigned size = below(2) == 0 ? 90 : 90000;
            std::generate(points.begin(), points.end(), [&] { return place(size); });
            grid.add(points, owner);
        }
        const AcGePoint3d centre = place(90);
        std::set<int> expected;
        for (const auto& [other, points] : owners)
            if (std::any_of(points.begin(), points.end(),
                            [&](const AcGePoint3d& point) { return kDistance >= point.distanceTo(centre); }))
                expected.insert(other);
        std::set<int> found;
        grid.visit(
            centre, kDistance, [](int) { return false; },
            [&](int other) {
                found.insert(other);
                return true;
            });
        ASSERT_EQ(found, expected) << step;
    }
}

} // namespace
