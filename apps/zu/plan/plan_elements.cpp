#include "plan/plan_elements.h"

#include "model/drawing_file.h"

#include <dbents.h>
#include <dbmain.h>
#include <dbobjptr.h>
#include <dbsymtb.h>
#include <zucomn/model/attributes.h>
#include <zucomn/model/elements.h>
#include <zucomn/model/joints.h>
#include <zuhost/names.h>

#include <afxstr.h>

#include <algorithm>
#include <unordered_map>

namespace zu::app {

namespace {

constexpr std::size_t kMostReadForUses = 2000;
constexpr std::size_t kMostUsualPoints = 3; ///< Of an element.

/// Layers as the plan sees them, each looked up once.
class ShownLayers {
public:
    ShownLayers(const AcDbDatabase& drawing, const LayerFilter& filter)
        : drawing_(drawing), filter_(filter) {}

    struct State {
        bool isOn = true;
        bool passes = true;
    };

    /// Most elements are on the layer of the one before.
    const State& operator[](const std::wstring& name) {
        if (last_ != nullptr && last_->first == name)
            return last_->second;
        const auto [known, isNew] = states_.try_emplace(name);
        if (isNew)
            known->second = stateOf(name);
        last_ = &*known;
        return known->second;
    }

private:
    [[nodiscard]] State stateOf(const std::wstring& name) const {
        AcDbObjectId id;
        if (const AcDbObjectPointer<AcDbLayerTable> layers(drawing_.layerTableId());
            layers.openStatus() == Acad::eOk)
            layers->getAt(name.c_str(), id);
        const AcDbObjectPointer<AcDbLayerTableRecord> layer(id);
        if (layer.openStatus() != Acad::eOk)
            return {};
        const QString stored = QString::fromStdWString(zuhost::recordName(*layer));
        return {!layer->isOff() && !layer->isFrozen(), !filter_ || filter_(stored)};
    }

    const AcDbDatabase& drawing_;
    const LayerFilter& filter_;
    std::unordered_map<std::wstring, State> states_;
    const std::pair<const std::wstring, State>* last_ = nullptr;
};

QString text(std::wstring_view wide) {
    return QString::fromWCharArray(wide.data(), static_cast<qsizetype>(wide.size()));
}

QString attribute(const std::vector<zucomn::AttributeRow>& rows, std::wstring_view id) {
    constexpr std::size_t kId = 3;
    constexpr std::size_t kValue = 4;
    const auto row =
        std::find_if(rows.begin(), rows.end(), [id](const zucomn::AttributeRow& r) { return r[kId] == id; });
    return row != rows.end() ? text((*row)[kValue]).trimmed() : QString();
}

/// The middle of its connection points, else its origin.
AcGePoint2d middleOf(const zucomn::Element& element) {
    if (element.connectionPoints.empty())
        return {element.origin.x, element.origin.y};
    const auto count = static_cast<double>(element.connectionPoints.size());
    AcGePoint2d sum;
    for (const AcGePoint3d& point : element.connectionPoints) {
        sum.x += point.x / count;
        sum.y += point.y / count;
    }
    return sum;
}

} // namespace

PlanElements::PlanElements(AcDbDatabase& drawing, const LayerFilter& showsLayer,
                           const std::function<bool(AcDbObjectId)>& shows) {
    ShownLayers layers(drawing, showsLayer);
    const std::vector<AcDbObjectId> references = zucomn::modelSpaceReferences(drawing);
    elements_.reserve(references.size());
    index_.reserve(references.size());
    points_.reserve(kMostUsualPoints * references.size());
    const auto take = [&](const zucomn::Element& read) {
        const int kind = zucomn::isRouteKind(read.linkKind) ? read.linkKind : 0;
        if (read.code == zucomn::kNoElement && kind == 0)
            return;
        const ShownLayers::State& layer = layers[read.layer];
        const bool isAskedFor = layer.passes && (!shows || shows(read.id));
        const bool isShown = isAskedFor && layer.isOn && read.isVisible;
        if (isAskedFor && !isShown && !read.connectionPoints.empty())
            hidden_.push_back(handleText(read.id));
        const auto handle = static_cast<std::uint64_t>(read.id.handle());
        index_.emplace_back(handle, elements_.size());
        elements_.push_back({read.id, handle, read.code, kind, isShown, middleOf(read)});
        int number = 0;
        for (const AcGePoint3d& point : read.connectionPoints)
            points_.push_back({read.id, number++, {point.x, point.y}});
    };
    zucomn::readElements(references, take, zucomn::ElementGroups::leaveEmpty);
    if (!std::is_sorted(index_.begin(), index_.end()))
        std::sort(index_.begin(), index_.end());
}

void PlanElements::findJoints() {
    const std::vector<zucomn::ConnectionPoint> points = std::move(points_);
    const std::vector<bool> joined = zucomn::joinedPoints(points);
    joints_.reserve(points.size());
    std::size_t at = 0;
    for (std::size_t i = 0; i < points.size(); ++i) {
        while (elements_[at].id != points[i].element)
            ++at;
        if (elements_[at].isShown)
            joints_.push_back({points[i].position, elements_[at].handle, joined[i]});
    }
}

const PlanElement* PlanElements::find(std::uint64_t handle) const {
    return Finder(*this)(handle);
}

const PlanElement* PlanElements::Finder::operator()(std::uint64_t handle) {
    const auto& index = elements_.index_;
    const bool isNext = (next_ == 0 || index[next_ - 1].first < handle) &&
                        (next_ == index.size() || handle <= index[next_].first);
    if (!isNext)
        next_ = static_cast<std::size_t>(
            std::lower_bound(index.begin(), index.end(), std::pair(handle, std::size_t{0})) - index.begin());
    if (next_ == index.size() || index[next_].first != handle)
        return nullptr;
    return &elements_.elements_[index[next_++].second];
}

QString elementName(AcDbObjectId element) {
    constexpr qsizetype kPrefix = 2;
    const AcDbObjectPointer<AcDbBlockReference> reference(element);
    if (reference.openStatus() != Acad::eOk)
        return {};
    const AcDbObjectPointer<AcDbBlockTableRecord> block(reference->blockTableRecord());
    if (block.openStatus() != Acad::eOk)
        return {};
    const QString name = QString::fromStdWString(zuhost::recordName(*block));
    qsizetype start = kPrefix;
    while (start < name.size() && name[start] == u'-')
        ++start;
    return start < name.size() ? name.mid(start) : name;
}

QString elementSize(AcDbObjectId element) {
    const std::vector<zucomn::AttributeRow> rows = zucomn::readAttributes(element);
    for (const wchar_t* const id : {L"S302", L"S303"})
        if (QString size = attribute(rows, id); !size.isEmpty())
            return size;
    const QString width = attribute(rows, L"S306");
    const QString height = attribute(rows, L"S307");
    return width.isEmpty() || height.isEmpty() ? width + height : width + u'×' + height;
}

std::map<int, std::vector<QString>> usesByKind(const std::vector<PlanElement>& elements) {
    std::map<int, std::vector<AcDbObjectId>> byKind;
    for (const PlanElement& element : elements)
        if (element.linkKind != 0 && element.isShown)
            byKind[element.linkKind].push_back(element.id);
    std::map<int, std::vector<QString>> uses;
    for (const auto& [kind, ids] : byKind) {
        std::map<QString, std::size_t> counts;
        const std::size_t step = ids.size() / kMostReadForUses + 1;
        for (std::size_t i = 0; i < ids.size(); i += step)
            if (const QString use = attribute(zucomn::readAttributes(ids[i]), L"S501"); !use.isEmpty())
                ++counts[use];
        std::vector<QString>& names = uses[kind];
        for (const auto& [use, count] : counts)
            names.push_back(use);
        std::stable_sort(names.begin(), names.end(), [&counts](const QString& a, const QString& b) {
            return counts.at(a) > counts.at(b);
        });
    }
    return uses;
}

} // namespace zu::app
