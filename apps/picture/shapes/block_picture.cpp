#include "shapes/block_picture.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace zu::picture {

namespace {

std::int64_t rgbOf(const Colour& colour) {
    return colour.rgb ? std::int64_t{*colour.rgb} : -1;
}

/// By hand: QRectF drops boxes without width or height.
QRectF united(const QRectF& a, const QRectF& b) {
    return {QPointF(std::min(a.left(), b.left()), std::min(a.top(), b.top())),
            QPointF(std::max(a.right(), b.right()), std::max(a.bottom(), b.bottom()))};
}

bool areJoinable(const RecordedShape& last, const Shape& shape, const Linetype* linetype) {
    constexpr int kMostElements = 1'000;
    return linetype == nullptr && last.linetype == nullptr && shape.kind == Shape::Kind::stroke &&
           last.shape.kind == Shape::Kind::stroke && last.shape.colour == shape.colour &&
           last.shape.lineWeight == shape.lineWeight && last.shape.path.elementCount() < kMostElements;
}

} // namespace

void BlockPicture::add(const Shape& shape, const Linetype* linetype, double linetypeScale,
                       const QRectF& box) {
    constexpr std::uint64_t kMostElements = 20'000;
    elements_ += static_cast<std::uint64_t>(shape.path.elementCount()) + 1;
    isComplete = isComplete && elements_ <= kMostElements;
    if (!isComplete)
        return;
    if (shapes.empty() || !areJoinable(shapes.back(), shape, linetype)) {
        shapes.push_back({shape, linetype, linetypeScale, box});
        return;
    }
    shapes.back().shape.path.addPath(shape.path);
    shapes.back().box = united(shapes.back().box, box);
}

QRectF BlockPicture::box() const {
    QRectF all = shapes.empty() ? QRectF() : shapes.front().box;
    for (const RecordedShape& recorded : shapes)
        all = united(all, recorded.box);
    return all;
}

std::pair<BlockPicture*, bool> BlockPictures::find(const Block& block, const Look& look) {
    const Key key{&block, look.layer, look.linetype, look.colour.number, rgbOf(look.colour), look.lineWeight};
    const auto [found, isNew] = pictures_.try_emplace(key);
    return {&found->second, isNew};
}

bool Specks::add(QPointF cell, const Colour& colour) {
    constexpr std::size_t kMost = 4'000'000;
    constexpr double kFarthest = std::numeric_limits<std::int32_t>::max();
    if (taken_.size() >= kMost || !(std::abs(cell.x()) < kFarthest && std::abs(cell.y()) < kFarthest))
        return true;
    const std::int64_t rgb = rgbOf(colour);
    return taken_.insert({static_cast<std::int32_t>(cell.x()), static_cast<std::int32_t>(cell.y()),
                          static_cast<std::int32_t>(rgb >= 0 ? rgb + 256 : colour.number)});
}

/// Specks near each other lie next to each other: drawings are in the order of their routes, and most of the
/// time would otherwise be spent on waiting for memory.
std::size_t Specks::Hash::operator()(const Speck& speck) const {
    constexpr std::uint64_t kMixer = 0x9E3779B97F4A7C15ULL;
    constexpr unsigned kBits = 2; // Squares of 4 by 4 cells.
    constexpr std::uint64_t kWithin = (1U << kBits) - 1U;
    const auto x = static_cast<std::uint64_t>(speck.x);
    const auto y = static_cast<std::uint64_t>(speck.y);
    std::uint64_t hash = (x >> kBits) * kMixer;
    hash = (hash ^ (hash >> 32U) ^ (y >> kBits)) * kMixer;
    hash = (hash ^ (hash >> 29U) ^ static_cast<std::uint64_t>(speck.colour)) * kMixer;
    return (hash ^ (hash >> 31U)) << (2 * kBits) | (y & kWithin) << kBits | (x & kWithin);
}

} // namespace zu::picture
