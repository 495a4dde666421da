#include "part_shapes.h"

#include "curves.h"
#include "text_shapes.h"
#include "wide_segments.h"

#include <QTransform>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <unordered_map>

namespace zu::preview {

namespace {

constexpr int kDeepestNesting = 16;
constexpr int kMostEntities = 1'500'000;
/// As many corners and control points of paths count as an entity: a long one takes longer to draw.
constexpr int kElementsPerEntity = 20;
/// Corners and control points of the looks that are kept.
constexpr int kMostKnown = 1'000'000;
constexpr double kFarthest = 1e12;
constexpr int kForeground = 7;
constexpr int kNoColor = 256;
constexpr int kFrozen = 1;

/// What a block's entities take from the reference to the block.
struct Context {
    QTransform transform;
    const CString* layer = nullptr; ///< For entities on layer "0"; null outside of blocks.
    int color = kForeground;
    int lineWeight = CEnt::kWeightDefault;
    int depth = 0;
};

struct LayerStyle {
    bool visible = true;
    int color = kForeground;
    int lineWeight = CEnt::kWeightDefault;
    Qt::PenStyle style = Qt::SolidLine;
};

Qt::PenStyle penStyle(const CString& linetype) {
    CString name = linetype;
    name.MakeUpper();
    const auto holds = [&name](const wchar_t* word) { return name.Find(word) >= 0; };
    if (holds(L"CENTER") || holds(L"DASHDOT") || holds(L"PHANTOM"))
        return Qt::DashDotLine;
    if (holds(L"HIDDEN") || holds(L"DASHED"))
        return Qt::DashLine;
    return holds(L"DOT") ? Qt::DotLine : Qt::SolidLine;
}

bool isReal(const QRectF& box) {
    const auto near = [](double value) { return std::abs(value) < kFarthest; };
    return near(box.left()) && near(box.right()) && near(box.top()) && near(box.bottom());
}

/// What an entity looks like: lines, and areas that are filled.
struct Look {
    QPainterPath lines;
    QPainterPath areas;
};

Look polylineLook(std::span<const CDblPoint> points, std::span<const CDblWidth> widths, int flags) {
    constexpr int kClosed = 1;
    const bool closed = (flags & kClosed) != 0;
    return {bulged(points, closed), wideSegments(points, widths, closed)};
}

Look polylineLook(const CLwPline& polyline) {
    if (polyline.m_width > 0 && polyline.GetWidths().empty()) {
        const std::vector<CDblWidth> widths(polyline.GetPoints().size(),
                                            {polyline.m_width, polyline.m_width});
        return polylineLook(polyline.GetPoints(), widths, polyline.m_flags);
    }
    return polylineLook(polyline.GetPoints(), polyline.GetWidths(), polyline.m_flags);
}

Look polylineLook(const CPline& polyline) {
    constexpr int kControlPoint = 16;
    constexpr int kMeshOrFaces = 16 | 64;
    if ((polyline.m_flags & kMeshOrFaces) != 0)
        return {};
    std::vector<CDblPoint> points;
    std::vector<CDblWidth> widths;
    for (POSITION at = polyline.m_vertices.GetHeadPosition(); at != nullptr;) {
        const auto& vertex = static_cast<const CVertex&>(*polyline.m_vertices.GetNext(at));
        if ((vertex.m_flags & kControlPoint) != 0)
            continue;
        points.push_back({vertex.m_x, vertex.m_y, vertex.m_bulge});
        widths.push_back({vertex.Has(40) ? vertex.m_startWidth : polyline.m_startWidth,
                          vertex.Has(41) ? vertex.m_endWidth : polyline.m_endWidth});
    }
    return polylineLook(points, widths, polyline.m_flags);
}

class ShapeProducer {
public:
    ShapeProducer(const CAcadDxf& part, const std::function<void(const Shape&)>& draw)
        : part_(part), draw_(draw) {}

    /// False when there was more than may be drawn.
    bool run() {
        Context top;
        addEntities(part_.GetEntities(), top);
        return left_ > 0;
    }

private:
    void addEntities(const CObList& entities, const Context& context) {
        for (POSITION at = entities.GetHeadPosition(); at != nullptr && left_ > 0;) {
            const auto& entity = static_cast<const CEnt&>(*entities.GetNext(at));
            --left_;
            if (!entity.m_paper)
                addEntity(entity, context);
        }
    }

    void addEntity(const CEnt& entity, const Context& context) {
        const bool onLayerZero = entity.GetLayer() == L"0" && context.layer != nullptr;
        const CString& layer = onLayerZero ? *context.layer : entity.GetLayer();
        const LayerStyle& style = styleOf(layer);
        if (!style.visible)
            return;
        Shape shape;
        shape.color = colorOf(entity, context, style);
        shape.lineWeight = weightOf(entity, context, style);
        shape.style = style.style;
        const Context own{transformOf(entity, context), &layer, shape.color, shape.lineWeight, context.depth};
        draw(entity, own, std::move(shape));
    }

    void draw(const CEnt& entity, const Context& own, Shape shape) {
        switch (entity.m_type) {
        case EntType::insert:
            addInsert(static_cast<const CInsert&>(entity), own);
            return;
        case EntType::dimension:
            addBlock(static_cast<const CDim&>(entity).GetBlock(), own, own.transform);
            return;
        case EntType::point:
            addPoint(static_cast<const CAcPoint&>(entity), own, std::move(shape));
            return;
        default:
            break;
        }
        if (own.depth > 0 && known_ < kMostKnown)
            add(knownLookOf(entity), shape, own.transform);
        else
            add(lookOf(entity), shape, own.transform);
    }

    /// Those of blocks are made once, however often their blocks are shown.
    const Look& knownLookOf(const CEnt& entity) {
        const auto [place, isNew] = looks_.try_emplace(&entity);
        if (isNew) {
            place->second = lookOf(entity);
            known_ += place->second.lines.elementCount() + place->second.areas.elementCount();
        }
        return place->second;
    }

    static Look lookOf(const CEnt& entity) {
        switch (entity.m_type) {
        case EntType::line: {
            const auto& line = static_cast<const CLine&>(entity);
            QPainterPath path(QPointF(line.m_x1, line.m_y1));
            path.lineTo(line.m_x2, line.m_y2);
            return {path, {}};
        }
        case EntType::circle: {
            const auto& found = static_cast<const CCircle&>(entity);
            return {circle({found.m_x, found.m_y}, found.m_radius), {}};
        }
        case EntType::arc: {
            const auto& found = static_cast<const CArc&>(entity);
            return {arc({found.m_x, found.m_y}, found.m_radius, found.m_start, found.m_end), {}};
        }
        case EntType::ellipse:
            return {ellipse(static_cast<const CEllipse&>(entity)), {}};
        case EntType::lwPolyline:
            return polylineLook(static_cast<const CLwPline&>(entity));
        case EntType::polyline:
            return polylineLook(static_cast<const CPline&>(entity));
        case EntType::text:
            return {{}, textShape(static_cast<const CText&>(entity))};
        case EntType::mtext:
            return {{}, textShape(static_cast<const CMtext&>(entity))};
        default:
            return {};
        }
    }

    void addPoint(const CAcPoint& point, const Context& own, Shape shape) {
        // The defining points of dimensions are no part of their picture.
        if (point.GetLayer().CompareNoCase(L"Defpoints") == 0)
            return;
        shape.kind = ShapeKind::dot;
        shape.path.moveTo(point.m_x, point.m_y);
        add(std::move(shape), own.transform);
    }

    void add(const Look& look, Shape shape, const QTransform& transform) {
        shape.kind = ShapeKind::stroke;
        shape.path = look.lines;
        add(shape, transform);
        shape.kind = ShapeKind::fill;
        shape.path = look.areas;
        add(std::move(shape), transform);
    }

    void add(Shape shape, const QTransform& transform) {
        if (shape.path.elementCount() == 0)
            return;
        left_ -= shape.path.elementCount() / kElementsPerEntity;
        shape.path = transform.map(shape.path);
        if (isReal(shape.path.boundingRect()))
            draw_(shape);
    }

    void addInsert(const CInsert& insert, const Context& own) {
        if (part_.FindBlock(insert.GetBlock()) == nullptr)
            return;
        const int columns = std::max(insert.m_columns, 1);
        const int rows = std::max(insert.m_rows, 1);
        QTransform place = own.transform;
        place.translate(insert.m_x, insert.m_y);
        place.rotate(insert.m_rotation);
        for (int row = 0; row < rows && left_ > 0; ++row)
            for (int column = 0; column < columns && left_ > 0; ++column) {
                --left_;
                QTransform cell = place;
                cell.translate(column * insert.m_columnSpacing, row * insert.m_rowSpacing);
                cell.scale(insert.m_xScale, insert.m_yScale);
                addBlock(insert.GetBlock(), own, cell);
            }
    }

    void addBlock(const CString& name, const Context& own, QTransform place) {
        const CBlock* const block = own.depth < kDeepestNesting ? part_.FindBlock(name) : nullptr;
        if (block == nullptr)
            return;
        Context inner = own;
        inner.transform = place.translate(-block->m_x, -block->m_y);
        ++inner.depth;
        addEntities(block->m_entities, inner);
    }

    /// Plane curves, texts and references of a plane that is seen from below are mirrored.
    static QTransform transformOf(const CEnt& entity, const Context& context) {
        const bool inWorld = entity.m_type == EntType::line || entity.m_type == EntType::ellipse ||
                             entity.m_type == EntType::mtext || entity.m_type == EntType::point ||
                             entity.m_type == EntType::dimension;
        QTransform transform = context.transform;
        return entity.m_mirrored && !inWorld ? transform.scale(-1, 1) : transform;
    }

    static int colorOf(const CEnt& entity, const Context& context, const LayerStyle& style) {
        if (entity.m_color == CEnt::kByBlock)
            return context.color;
        const bool byLayer = entity.m_color >= CEnt::kByLayer || entity.m_color < 0;
        return byLayer ? style.color : entity.m_color;
    }

    static int weightOf(const CEnt& entity, const Context& context, const LayerStyle& style) {
        constexpr int kDefault = 25;
        int weight = entity.m_lineWeight;
        if (weight == CEnt::kWeightByBlock)
            weight = context.lineWeight;
        if (weight == CEnt::kWeightByLayer)
            weight = style.lineWeight;
        return weight < 0 ? kDefault : weight;
    }

    const LayerStyle& styleOf(const CString& name) {
        const auto [place, isNew] = styles_.try_emplace(std::wstring(name.view()));
        if (!isNew)
            return place->second;
        LayerStyle& style = place->second;
        style.color = std::abs(std::clamp(part_.GetLyColor(name), -kNoColor, kNoColor));
        style.lineWeight = part_.GetLineWeight(name);
        style.style = penStyle(part_.GetLinetype(name));
        const CLayer* const layer = part_.FindLayer(name);
        style.visible = layer == nullptr || (layer->m_color >= 0 && (layer->m_flags & kFrozen) == 0);
        return style;
    }

    const CAcadDxf& part_;
    const std::function<void(const Shape&)>& draw_;
    std::unordered_map<std::wstring, LayerStyle> styles_;
    std::unordered_map<const CEnt*, Look> looks_;
    int known_ = 0;
    int left_ = kMostEntities;
};

} // namespace

bool forEachShape(const CAcadDxf& part, const std::function<void(const Shape&)>& draw) {
    return ShapeProducer(part, draw).run();
}

} // namespace zu::preview
