#include "shapes/builders.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace zu::picture {

namespace {

/// Where the elements of a multiline pass a vertex.
struct Corner {
    AcGePoint3d place;
    AcGeVector3d along; ///< Of the segment that starts here.
    AcGeVector3d mitre;
    /// For each element its distance along the mitre, then where the segment's line begins and ends in turn.
    std::vector<std::vector<double>> elements;

    [[nodiscard]] AcGePoint3d at(std::size_t element) const {
        const bool isKnown = element < elements.size() && !elements[element].empty();
        return place + mitre * (isKnown ? elements[element][0] : 0.0);
    }
};

struct Element {
    double offset = 0.0;
    std::optional<Colour> colour; ///< None for that of the entity.
    QString linetype;
};

/// Flags of a style's ends.
struct Cap {
    int square = 0;
    int innerArcs = 0;
    int round = 0;
    int suppressed = 0; ///< Of the entity.
};
constexpr Cap kStart{16, 32, 64, 4};
constexpr Cap kEnd{256, 512, 1024, 8};
constexpr int kFilled = 1;
constexpr int kShowsMitres = 2;
constexpr int kClosed = 2;

std::vector<Corner> cornersOf(const Records& records) {
    std::vector<Corner> corners;
    bool isParameter = false;
    for (std::size_t i = records.position(11); i < records.size(); ++i) {
        const int code = records.code(i);
        if (code == 11)
            corners.push_back({records.pointAt(i), {}, {}, {}});
        else if (code == 12)
            corners.back().along = records.pointAt(i).asVector();
        else if (code == 13)
            corners.back().mitre = records.pointAt(i).asVector();
        else if (code == 74)
            corners.back().elements.emplace_back();
        if (code == 74 || code == 75)
            isParameter = code == 74;
        else if (code == 41 && isParameter && !corners.back().elements.empty())
            corners.back().elements.back().push_back(records.realAt(i));
    }
    return corners;
}

/// Whether a segment's fill ends and begins again, as where multilines cross.
bool hasFillGaps(const Records& records) {
    constexpr int kBeginAndEnd = 2;
    for (std::size_t i = records.position(75); i < records.size(); i = records.position(75, i + 1))
        if (records.integerAt(i) > kBeginAndEnd)
            return true;
    return false;
}

std::vector<Element> elementsOf(const Records& style) {
    std::vector<Element> elements;
    for (std::size_t at = style.position(49, style.position(71)); at < style.size();) {
        const std::size_t next = style.position(49, at + 1);
        const Records own = style.part(at, next);
        elements.push_back({own.real(49), colourOf(own), own.text(6)});
        at = next;
    }
    return elements;
}

class Multiline {
public:
    Multiline(Canvas& canvas, const Entity& entity)
        : canvas_(canvas), entity_(entity), corners_(cornersOf(entity.records)),
          isClosed_((entity.records.integer(71) & kClosed) != 0) {
        for (const Corner& corner : corners_)
            count_ = std::max(count_, corner.elements.size());
        if (const Object* const style = canvas.drawing().find(entity.records.handle(340))) {
            const Records records = canvas.drawing().records(*style);
            flags_ = records.integer(70);
            fillColour_ = colourOf(records.part(0, records.position(71)));
            elements_ = elementsOf(records);
        }
        elements_.resize(count_);
        for (std::size_t i = 0; i < count_; ++i)
            order_.push_back(i);
        const auto offset = [this](std::size_t i) {
            const auto& own = corners_[0].elements;
            return i < own.size() && !own[i].empty() ? own[i][0] : 0.0;
        };
        std::stable_sort(order_.begin(), order_.end(),
                         [&](std::size_t a, std::size_t b) { return offset(a) < offset(b); });
    }

    Outcome draw() {
        if (count_ == 0)
            return "it has no lines";
        if (!canvas_.take(corners_.size() * count_))
            return kDrawn;
        const bool isFilled =
            (flags_ & kFilled) != 0 && canvas_.drawing().variable("$FILLMODE").integer(70, 1) != 0;
        if (isFilled)
            fill();
        for (std::size_t element = 0; element < count_; ++element)
            drawElement(element);
        if ((flags_ & kShowsMitres) != 0)
            for (std::size_t i = isClosed_ ? 0 : 1; i + (isClosed_ ? 0 : 1) < corners_.size(); ++i)
                canvas_.line(entity_, corners_[i].at(order_.front()), corners_[i].at(order_.back()));
        if (!isClosed_) {
            drawCap(kStart, corners_.front(), -corners_.front().along);
            drawCap(kEnd, corners_.back(), corners_[corners_.size() > 1 ? corners_.size() - 2 : 0].along);
        }
        return isFilled && hasFillGaps(entity_.records) ? "its fill is drawn without gaps" : kDrawn;
    }

private:
    [[nodiscard]] Entity look(std::size_t element) const {
        Entity own = entity_;
        const Element& style = elements_[element];
        own.look.colour = style.colour.value_or(entity_.look.colour);
        if (!style.linetype.isEmpty() && style.linetype.compare(u"BYLAYER", Qt::CaseInsensitive) != 0)
            own.look.linetype = canvas_.styles().linetype(style.linetype);
        return own;
    }

    [[nodiscard]] std::vector<AcGePoint3d> lineOf(std::size_t element) const {
        std::vector<AcGePoint3d> points;
        points.reserve(corners_.size());
        for (const Corner& corner : corners_)
            points.push_back(corner.at(element));
        return points;
    }

    /// One line, unless some segment has gaps.
    void drawElement(std::size_t element) {
        const Entity own = look(element);
        const auto isCut = [element](const Corner& corner) {
            return element < corner.elements.size() && corner.elements[element].size() > 2;
        };
        if (std::none_of(corners_.begin(), corners_.end(), isCut)) {
            canvas_.stroke(own, lineOf(element), isClosed_);
            return;
        }
        const std::size_t segments = corners_.size() - (isClosed_ ? 0 : 1);
        for (std::size_t i = 0; i < segments; ++i)
            drawSegment(own, corners_[i], corners_[(i + 1) % corners_.size()], element);
    }

    void drawSegment(const Entity& own, const Corner& from, const Corner& to, std::size_t element) {
        const AcGePoint3d start = from.at(element);
        const AcGePoint3d end = to.at(element);
        if (element >= from.elements.size() || from.elements[element].size() < 2) {
            canvas_.line(own, start, end);
            return;
        }
        const std::vector<double>& places = from.elements[element];
        for (std::size_t i = 1; i < places.size(); i += 2)
            canvas_.line(own, start + from.along * places[i],
                         i + 1 < places.size() ? start + from.along * places[i + 1] : end);
    }

    /// Half an ellipse outwards over two elements.
    [[nodiscard]] std::vector<AcGePoint3d> arc(const Corner& corner, const AcGeVector3d& outwards,
                                               std::size_t from, std::size_t to) const {
        constexpr int kChords = 24;
        const AcGePoint3d a = corner.at(from);
        const AcGePoint3d b = corner.at(to);
        const AcGeVector3d u = (a - b) * 0.5;
        const AcGeVector3d v = outwards.normal() * u.length();
        std::vector<AcGePoint3d> points;
        for (int i = 0; i <= kChords; ++i) {
            const double t = std::numbers::pi * i / kChords;
            points.push_back(b + u * (1.0 + std::cos(t)) + v * std::sin(t));
        }
        return points;
    }

    [[nodiscard]] bool has(int flag, const Cap& cap) const {
        return (flags_ & flag) != 0 && (entity_.records.integer(71) & cap.suppressed) == 0;
    }

    void drawCap(const Cap& cap, const Corner& corner, const AcGeVector3d& outwards) {
        if (has(cap.square, cap))
            canvas_.line(entity_, corner.at(order_.front()), corner.at(order_.back()));
        if (has(cap.round, cap))
            canvas_.stroke(look(order_.front()), arc(corner, outwards, order_.front(), order_.back()));
        if (has(cap.innerArcs, cap))
            for (std::size_t i = 1; i + 1 < count_ - i; ++i)
                canvas_.stroke(look(order_[i]), arc(corner, outwards, order_[i], order_[count_ - 1 - i]));
    }

    /// The area between the outermost elements, round caps included.
    void fill() {
        Entity own = entity_;
        own.look.colour = fillColour_.value_or(entity_.look.colour);
        std::vector<AcGePoint3d> low = lineOf(order_.front());
        std::vector<AcGePoint3d> high = lineOf(order_.back());
        QPainterPath area;
        if (isClosed_) {
            add(area, low);
            add(area, high);
        } else {
            const auto append = [&low](const std::vector<AcGePoint3d>& points) {
                low.insert(low.end(), points.begin(), points.end());
            };
            if (has(kEnd.round, kEnd) && corners_.size() > 1)
                append(
                    arc(corners_.back(), corners_[corners_.size() - 2].along, order_.front(), order_.back()));
            std::reverse(high.begin(), high.end());
            append(high);
            if (has(kStart.round, kStart))
                append(arc(corners_.front(), -corners_.front().along, order_.back(), order_.front()));
            add(area, low);
        }
        canvas_.fill(own, area, {});
    }

    void add(QPainterPath& area, const std::vector<AcGePoint3d>& points) const {
        QPolygonF polygon;
        for (const AcGePoint3d& point : points)
            polygon << canvas_.worldPoint(point);
        area.addPolygon(polygon);
        area.closeSubpath();
    }

    Canvas& canvas_;
    const Entity& entity_;
    std::vector<Corner> corners_;
    bool isClosed_;
    std::size_t count_ = 0; ///< Of elements.
    int flags_ = 0;         ///< Of the style.
    std::optional<Colour> fillColour_;
    std::vector<Element> elements_;
    std::vector<std::size_t> order_; ///< The elements from side to side.
};

} // namespace

/// MLINE: the lines of its style's elements, their caps, the fill between them.
Outcome buildMultiline(Canvas& canvas, const Entity& entity) {
    return Multiline(canvas, entity).draw();
}

} // namespace zu::picture
