#pragma once

#include "records/drawing.h"
#include "records/styles.h"
#include "scene.h"
#include "shapes/block_picture.h"

#include <gemat3d.h>

#include <optional>
#include <string_view>
#include <vector>

namespace zu::picture {

/// Why an entity is not drawn; empty when it is.
using Outcome = std::string_view;
inline constexpr Outcome kDrawn{};
/// It is no graphics where it stands, and does not count.
inline constexpr Outcome kNoGraphics = "no graphics";

/// One entity for its builder.
struct Entity {
    std::size_t index = 0;
    std::string_view type;
    Records records;
    Look look;
};

/// Where builders put shapes. Holds the transformation to the world and the look that blocks pass on, applies
/// limits, and counts.
class Canvas {
public:
    /// Measuring leaves out what depends on the extents: infinite lines, marks of points.
    enum class Purpose { draw, measure };

    Canvas(const Drawing& drawing, const SceneOptions& options, const ShapeSink& sink,
           Purpose purpose = Purpose::draw);

    [[nodiscard]] const Drawing& drawing() const { return drawing_; }
    [[nodiscard]] const Styles& styles() const { return styles_; }
    [[nodiscard]] const SceneOptions& options() const { return options_; }
    [[nodiscard]] bool isMeasuring() const { return purpose_ == Purpose::measure; }
    [[nodiscard]] bool isInBlock() const { return !blocks_.empty(); }

    // ---- shapes of the current entity. Planes are those of its coordinate system, before toWorld.

    /// Maps points of a plane in the coordinate system of a normal, at a height, to the world seen from
    /// above.
    [[nodiscard]] QTransform planeToWorld(const AcGeVector3d& normal, double height) const;
    /// The same for the plane that the entity's extrusion (210) and elevation determine.
    [[nodiscard]] QTransform planeOf(const Entity& entity, double height) const;
    [[nodiscard]] QPointF worldPoint(const AcGePoint3d& point) const;

    void stroke(const Entity& entity, const QPainterPath& path, const QTransform& toWorld);
    void stroke(const Entity& entity, const std::vector<AcGePoint3d>& points, bool closed = false);
    void line(const Entity& entity, const AcGePoint3d& from, const AcGePoint3d& to);
    void fill(const Entity& entity, const QPainterPath& path, const QTransform& toWorld);
    void dot(const Entity& entity, const AcGePoint3d& place);
    /// The run's `place` maps text space to the plane that `toWorld` maps.
    void text(const Entity& entity, TextRun run, const QTransform& toWorld);
    /// The same in another colour.
    void text(const Entity& entity, TextRun run, const QTransform& toWorld, const Colour& colour);

    /// The block with an undecoded name, each looked up once: most references are to few blocks.
    [[nodiscard]] const Block* findBlock(std::string_view name);
    /// Draws the contents of a block with its base point at the origin of `placement`.
    Outcome block(const Entity& entity, const Block& block, const AcGeMatrix3d& placement);
    /// Calls `draw` with each entity of a block that shows, placed as by block().
    void within(const Entity& entity, const Block& block, const AcGeMatrix3d& placement,
                const std::function<void(const Entity&)>& draw);
    /// Draws entities as they are, in a space that `placement` transforms, within a clip.
    void space(const std::vector<std::size_t>& entities, const AcGeMatrix3d& placement, const QRectF& clip,
               const std::vector<std::uint64_t>& frozenLayers);
    /// Draws an entity that belongs to the current one, such as an attribute, in the same space.
    void entityAt(std::size_t index);

    /// Counts work. False once the limit is passed: builders stop then.
    bool take(std::uint64_t work);
    [[nodiscard]] bool isStopped() const { return isStopped_; }

    // ---- for the scene
    void topLevel(const std::vector<std::size_t>& entities);
    [[nodiscard]] SceneReport report() const;
    /// The entity of the space whose shapes are being produced.
    [[nodiscard]] std::size_t current() const { return current_; }
    /// Where infinite lines are cut.
    [[nodiscard]] QRectF frame();

private:
    struct Inherited;

    [[nodiscard]] Look lookOf(const Records& records) const;
    /// Why the entity is hidden; empty when it shows.
    [[nodiscard]] Outcome hiddenBy(const Entity& entity) const;
    [[nodiscard]] bool passesFilter(const Layer& layer) const;
    void draw(std::size_t index);
    void count(std::size_t index, Outcome outcome);
    void drawPath(const Entity& entity, Shape::Kind kind, const QPainterPath& path,
                  const QTransform& toWorld);
    void emitShape(const Entity& entity, Shape::Kind kind, const QRectF& box);
    void setDashes(const Linetype& linetype, double scale);
    void deliver(const Linetype* linetype, double linetypeScale, const QRectF& box);
    void deliverTexts(const Linetype& linetype, double scale);
    [[nodiscard]] bool isSpeck(const QRectF& box) const;
    [[nodiscard]] bool isOutside(const QRectF& box) const;
    void deliverSpeck(const QRectF& box);
    [[nodiscard]] Entity entityOf(std::size_t index) const;
    const BlockPicture* pictureOf(const Entity& entity, const Block& block);
    void drawContents(const Block& block);
    void drawPicture(const BlockPicture& picture, const QTransform& place);
    void measurePicture(const BlockPicture& picture, const QTransform& place);

    const Drawing& drawing_;
    const SceneOptions& options_;
    const ShapeSink& sink_;
    Purpose purpose_;
    Styles styles_;
    AcGeMatrix3d toWorld_;
    std::optional<Look> around_; ///< Of the block reference around what is drawn.
    std::vector<const Block*> blocks_;
    std::vector<std::uint64_t> frozen_;
    mutable std::unordered_map<const Layer*, bool> passingLayers_; ///< Each is filtered once.
    int spaces_ = 0;
    Shape shape_;
    std::uint64_t left_;
    bool isStopped_ = false;
    bool isTooMuch_ = false;
    bool isOutOfRange_ = false;
    bool lacksShapes_ = false; ///< The current entity's linetype has shapes, which are not drawn.
    std::size_t current_ = 0;
    std::vector<bool> counted_;
    std::map<std::string, std::size_t> drawn_;
    std::map<std::pair<std::string, std::string>, std::size_t> notDrawn_;
    std::optional<QRectF> frame_;
    std::unordered_map<std::string_view, const Block*> knownBlocks_;
    BlockPictures pictures_;
    BlockPicture* recorded_ = nullptr; ///< Receives the shapes while a block is recorded.
    Specks specks_;
};

/// Produces the shapes of one entity of a type.
using Builder = Outcome (*)(Canvas& canvas, const Entity& entity);

/// The builder of a type; null for types that can't be drawn.
[[nodiscard]] Builder builderOf(std::string_view type);

} // namespace zu::picture
