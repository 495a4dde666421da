#include "plan/plan_elements.h"

#include "model/drawing_file.h"

#include <dbents.h>
#include <dbmain.h>
#include <dbobjptr.h>
#include <dbsymtb.h>
#include <zucomn/model/attributes.h>
#include <zucomn/model/elements.h>
#include <zucomn/model/joints.h>
#include <zucomn/route.h>

#include <algorithm>
#include <set>

namespace zu::app {

namespace {

constexpr std::size_t kMostReadForUses = 2000;

/// Layers as the plan sees them, each looked up once.
class ShownLayers {
public:
    explicit ShownLayers(const LayerFilter& filter) : filter_(filter) {}

    struct State {
        bool isOn = true;
        bool passes = true;
    };

    const State& operator[](AcDbObjectId id) {
        const auto [known, isNew] = states_.try_emplace(id);
        if (isNew)
            known->second = stateOf(id);
        return known->second;
    }

private:
    [[nodiscard]] State stateOf(AcDbObjectId id) const {
        const AcDbObjectPointer<AcDbLayerTableRecord> layer(id);
        if (layer.openStatus() != Acad::eOk)
            return {};
        const QString name = QString::fromStdWString(std::wstring(CString(layer->name()).view()));
        return {!layer->isOff() && !layer->isFrozen(), !filter_ || filter_(name)};
    }

    const LayerFilter& filter_;
    std::unordered_map<AcDbObjectId, State> states_;
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

AcGePoint2d middleOf(const std::vector<AcGePoint2d>& points) {
    AcGePoint2d sum;
    for (const AcGePoint2d& point : points) {
        sum.x += point.x / static_cast<double>(points.size());
        sum.y += point.y / static_cast<double>(points.size());
    }
    return sum;
}

} // namespace

PlanElements::PlanElements(AcDbDatabase& drawing, const LayerFilter& showsLayer,
                           const std::function<bool(AcDbObjectId)>& shows) {
    addElements(drawing, showsLayer, shows);
    addJoints();
}

void PlanElements::addElements(AcDbDatabase& drawing, const LayerFilter& showsLayer,
                               const std::function<bool(AcDbObjectId)>& shows) {
    ShownLayers layers(showsLayer);
    for (const AcDbObjectId id : zucomn::modelSpaceReferences(drawing)) {
        PlanElement element;
        element.id = id;
        element.handle = static_cast<std::uint64_t>(id.handle());
        int kind = -1;
        if (ZuComn_GetBlockElementCode(id, element.code) != 0)
            continue;
        RootComn_GetBlockRootKind(id, &kind);
        element.linkKind = zucomn::isRouteKind(kind) ? kind : 0;
        if (element.code == zucomn::kNoElement && element.linkKind == 0)
            continue;
        const AcDbObjectPointer<AcDbBlockReference> reference(id);
        if (reference.openStatus() != Acad::eOk)
            continue;
        const AcGePoint3d position = reference->position();
        element.position.set(position.x, position.y);
        const ShownLayers::State& layer = layers[reference->layerId()];
        const bool isAskedFor = layer.passes && (!shows || shows(id));
        element.isShown = isAskedFor && layer.isOn && reference->isVisible();
        if (isAskedFor && !element.isShown)
            hidden_.push_back(handleText(id));
        index_.emplace(element.handle, elements_.size());
        elements_.push_back(element);
    }
}

void PlanElements::addJoints() {
    std::vector<AcDbObjectId> ids;
    ids.reserve(elements_.size());
    for (const PlanElement& element : elements_)
        ids.push_back(element.id);
    const std::vector<zucomn::ConnectionPoint> points = zucomn::connectionPoints(ids);
    const std::vector<std::vector<AcDbObjectId>> joined = zucomn::joinedElements(points);
    std::set<std::string> connected;
    std::vector<AcGePoint2d> ofElement;
    for (std::size_t i = 0; i < points.size(); ++i) {
        const AcDbObjectId id = points[i].element;
        const std::size_t at = index_.at(static_cast<std::uint64_t>(id.handle()));
        ofElement.push_back(points[i].position);
        if (i + 1 == points.size() || points[i + 1].element != id) {
            elements_[at].position = middleOf(ofElement);
            ofElement.clear();
        }
        if (elements_[at].isShown)
            joints_.push_back({points[i].position, elements_[at].handle, !joined[i].empty()});
        else
            connected.insert(handleText(id));
    }
    std::erase_if(hidden_, [&connected](const std::string& handle) { return !connected.contains(handle); });
}

const PlanElement* PlanElements::find(std::uint64_t handle) const {
    const auto found = index_.find(handle);
    return found != index_.end() ? &elements_[found->second] : nullptr;
}

QString elementName(AcDbObjectId element) {
    constexpr qsizetype kPrefix = 2;
    const AcDbObjectPointer<AcDbBlockReference> reference(element);
    if (reference.openStatus() != Acad::eOk)
        return {};
    const AcDbObjectPointer<AcDbBlockTableRecord> block(reference->blockTableRecord());
    if (block.openStatus() != Acad::eOk)
        return {};
    const QString name = text(CString(block->name()).view());
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
