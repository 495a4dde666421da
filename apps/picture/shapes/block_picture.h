#pragma once

#include "flat_set.h"
#include "records/drawing.h"
#include "records/styles.h"
#include "shape.h"

#include <QRectF>

#include <cstdint>
#include <map>
#include <tuple>
#include <vector>

namespace zu::picture {

/// What an entity's shapes look like.
struct Look {
    const Layer* layer = nullptr;
    Colour colour;
    int lineWeight = Styles::kDefaultWeight;
    const Linetype* linetype = nullptr;
    double linetypeScale = 1.0;
    bool isMarkedInvisible = false;
};

/// A shape of a block, in the coordinates of the block.
struct RecordedShape {
    Shape shape;
    const Linetype* linetype = nullptr;
    double linetypeScale = 1.0;
    QRectF box;
};

/// The shapes of a block under one look. Most references show few blocks very often: reading the records of
/// a block for each of them would take the longest of all.
struct BlockPicture {
    /// Appends a shape; a line joins lines before it that look the same.
    void add(const Shape& shape, const Linetype* linetype, double linetypeScale, const QRectF& box);
    [[nodiscard]] QRectF box() const;
    /// What drawing it counts for a limit.
    [[nodiscard]] std::uint64_t work() const { return elements_; }

    std::vector<RecordedShape> shapes;
    bool isComplete = true; ///< False when it holds too much or depends on its place.

private:
    std::uint64_t elements_ = 0; ///< Of all paths.
};

/// Recorded blocks by what they look like: the parts of a look that entities inherit.
class BlockPictures {
public:
    /// The picture of the block, and whether it is new.
    std::pair<BlockPicture*, bool> find(const Block& block, const Look& look);

private:
    /// Block, layer, linetype, number and true colour, line weight.
    using Key = std::tuple<const Block*, const Layer*, const Linetype*, int, std::int64_t, int>;

    std::map<Key, BlockPicture> pictures_;
};

/// The places of shapes too small to see, each taken once.
class Specks {
public:
    /// Returns false when a shape of the colour is there already; true also for cells far off every picture.
    bool add(QPointF cell, const Colour& colour);

private:
    struct Speck {
        std::int32_t x;
        std::int32_t y;
        std::int32_t colour;

        bool operator==(const Speck&) const = default;
    };
    struct Hash {
        std::size_t operator()(const Speck& speck) const;
    };

    FlatSet<Speck, Hash> taken_;
};

} // namespace zu::picture
