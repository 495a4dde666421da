#pragma once

#include <dbid.h>
#include <gepnt2d.h>
#include <zucomn/model/joints.h>

#include <QString>

#include <cstdint>
#include <functional>
#include <map>
#include <string>
#include <utility>
#include <vector>

class AcDbDatabase;

namespace zu::app {

/// A block reference with an element prefix or a route's link kind.
struct PlanElement {
    AcDbObjectId id;
    std::uint64_t handle = 0;
    int code = 0;     ///< See ZuComn_GetBlockElementCode.
    int linkKind = 0; ///< Of a route kind; 0 of none.
    bool isShown = true;
    AcGePoint2d position; ///< The middle of its connection points, else its origin.
};

/// A connection point; a joined one meets one of another element.
struct PlanJoint {
    AcGePoint2d position;
    std::uint64_t element = 0; ///< Handle.
    bool joined = false;
};

/// Returns true when a layer is to be shown.
using LayerFilter = std::function<bool(const QString& layer)>;

/// The elements of a drawing's model space.
class PlanElements {
public:
    PlanElements() = default;
    /// Elements on layers that are off, frozen or filtered out, hidden ones and those that `shows` refuses
    /// are not shown. Finds no joints yet.
    PlanElements(AcDbDatabase& drawing, const LayerFilter& showsLayer,
                 const std::function<bool(AcDbObjectId)>& shows);

    /// In drawing order.
    [[nodiscard]] const std::vector<PlanElement>& all() const { return elements_; }
    [[nodiscard]] const PlanElement* find(std::uint64_t handle) const;
    class Finder;
    /// Does not use the drawing, which another thread may read meanwhile, as it may read all().
    void findJoints();
    /// The connection points of shown elements, joined to shown elements or hidden ones.
    [[nodiscard]] const std::vector<PlanJoint>& joints() const { return joints_; }
    /// Elements with connection points that are hidden although no filter asks for it.
    [[nodiscard]] const std::vector<std::string>& hidden() const { return hidden_; }

private:
    std::vector<PlanElement> elements_;
    std::vector<std::pair<std::uint64_t, std::size_t>> index_; ///< Places of elements by handle, ascending.
    std::vector<zucomn::ConnectionPoint> points_; ///< In the order of the elements, until joints are found.
    std::vector<PlanJoint> joints_;
    std::vector<std::string> hidden_;
};

/// Finds elements by handle, at once where handles come in ascending order.
class PlanElements::Finder {
public:
    explicit Finder(const PlanElements& elements) : elements_(elements) {}
    [[nodiscard]] const PlanElement* operator()(std::uint64_t handle);

private:
    const PlanElements& elements_;
    std::size_t next_ = 0; ///< In the index, after the place of the last search.
};

/// Returns the name of an element's block without its element prefix: "AHU" of "KK-AHU".
[[nodiscard]] QString elementName(AcDbObjectId element);
/// Returns the size of an element by its attributes; empty when it has none.
[[nodiscard]] QString elementSize(AcDbObjectId element);

/// Returns for each link kind the values of the attribute "use" of its elements that are shown, the most
/// frequent first. Of a kind with very many elements, a part spread over the drawing is read.
[[nodiscard]] std::map<int, std::vector<QString>> usesByKind(const std::vector<PlanElement>& elements);

} // namespace zu::app
