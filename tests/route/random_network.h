#pragma once

#include "test_drawing.h"

#include <zucomn/route.h>

#include <numbers>
#include <random>

/// A network whose elements lie on a coarse lattice, so that points meet, nearly meet and coincide. It has
/// rotated, mirrored and scaled references, members that are no references, and all link kinds.
class RandomNetwork {
public:
    RandomNetwork(unsigned seed, int size) : random_(seed) {
        drawing.addLayer(L"_ZU_SNAP");
        blocks.push_back(drawing.block(L"RT-A", {{0, 0, 0}, {1, 0, 0}}));
        blocks.push_back(drawing.block(L"RBT-B", {{5, 5, 1}, {6, 5, 1}, {5, 6, 1}, {5, 5.1, 0}}, {5, 5, 9}));
        blocks.push_back(drawing.block(L"RBE-C", {{0, 0, 0}, {0, 0, 0}}));
        blocks.push_back(drawing.block(L"KK-D", {}));
        blocks.push_back(drawing.block(L"RB-E", {{1, 1, 0}}, {}, L"_ZU_SNAP"));
        AcDbObjectIdArray added;
        for (int i = 0; i < size; ++i)
            added.append(addElement());
        RootComn_CreateNewGroup(L"*", added, group, false);
    }

    AcDbObjectId addElement() {
        if (upTo(20) == 0)
            return keep(drawing.add(new AcDbLine({0, 0, 0}, {1, 0, 0})));
        const AcDbObjectId block = blocks[static_cast<std::size_t>(upTo(static_cast<int>(blocks.size())))];
        const double sizes[] = {1.0, -1.0, 2.0, 0.5};
        const AcGeScale3d scale(sizes[upTo(4)], sizes[upTo(4)], 1.0);
        const AcDbObjectId id = drawing.element(block, place(), scale, upTo(4) * std::numbers::pi / 2);
        if (upTo(4) != 0)
            TestDrawing::setLink(id, (std::to_wstring(upTo(5)) + L"|").c_str());
        return keep(id);
    }

    /// A lattice point, sometimes displaced by the tolerance or about as much.
    AcGePoint3d place() {
        const double offsets[] = {0.0, 0.0, 0.0, 0.1, -0.1, 0.05, 0.0999999, 0.1000001};
        return {upTo(9) + offsets[upTo(8)], upTo(9) + offsets[upTo(8)], static_cast<double>(upTo(3))};
    }

    int upTo(int end) { return std::uniform_int_distribution<int>(0, end - 1)(random_); }
    AcDbObjectId anyElement() {
        return elements[static_cast<std::size_t>(upTo(static_cast<int>(elements.size())))];
    }

    TestDrawing drawing;
    std::vector<AcDbObjectId> blocks;
    std::vector<AcDbObjectId> elements;
    AcDbObjectId group;

private:
    AcDbObjectId keep(AcDbObjectId id) {
        elements.push_back(id);
        return id;
    }

    std::mt19937 random_;
};
