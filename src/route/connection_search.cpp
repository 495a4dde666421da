#include "connection_indexes.h"
#include "element_code.h"

#include <zucomn/route.h>

#include <dbents.h>
#include <dbobjptr.h>
#include <dbsymtb.h>

#include <functional>
#include <optional>
#include <span>
#include <unordered_set>

namespace {

using zu::CandidateIndex;
using zu::ConnectionIndexes;

/// The condition on a candidate besides its distance.
using Filter = std::function<bool(ConnectionIndexes& indexes, AcDbObjectId candidate)>;

constexpr double kLargeScaleReach = 20.0;

/// Returns whether the connection points of an element can be read now, even if the index has cached them.
bool canBeRead(ConnectionIndexes& indexes, AcDbObjectId element) {
    return AcDbObjectPointer<AcDbBlockReference>(element).openStatus() == Acad::eOk &&
           AcDbObjectPointer<AcDbBlockTableRecord>(indexes.element(element).block).openStatus() == Acad::eOk;
}

Filter ofKind(int kindFilter) {
    return [kindFilter](ConnectionIndexes& indexes, AcDbObjectId candidate) {
        if (kindFilter == 0)
            return true;
        const int kind = indexes.linkKind(candidate);
        return kind == 0 || kind == kindFilter;
    };
}

/// Returns whether a growing list contains an id. The first few calls search the list, later ones a set.
class Contained {
public:
    explicit Contained(const AcDbObjectIdArray& list) : list_(list) {}

    bool operator()(AcDbObjectId id) {
        if (calls_ < kFew) {
            ++calls_;
            return list_.contains(id);
        }
        for (; taken_ < list_.length(); ++taken_)
            ids_.insert(list_[taken_]);
        return ids_.contains(id);
    }

private:
    static constexpr int kFew = 16;

    const AcDbObjectIdArray& list_;
    std::unordered_set<AcDbObjectId> ids_;
    int calls_ = 0;
    int taken_ = 0;
};

/// The members of a group or, unless it is null, a list.
struct Candidates {
    AcDbObjectId group;
    const AcDbObjectIdArray* list = nullptr;
};

class Search {
public:
    Search(AcDbObjectId element, double distance, Filter filter)
        : element_(element), distance_(distance), filter_(std::move(filter)) {
        if (AcDbDatabase* const database = element.isNull() ? nullptr : element.database();
            database != nullptr)
            indexes_ = &ConnectionIndexes::of(*database);
    }

    /// The element's connection points; nullopt when they can't be read.
    [[nodiscard]] std::optional<zu::Points> testedPoints() const {
        if (indexes_ == nullptr || !canBeRead(*indexes_, element_))
            return std::nullopt;
        const zu::CachedElement& read = indexes_->element(element_);
        if (read.status != Acad::eOk)
            return std::nullopt;
        const std::span<const AcGePoint3d> points = indexes_->points(read);
        return zu::Points(points.begin(), points.end());
    }

    /// Appends the joined candidates; -1 when they can't be read.
    int run(const Candidates& candidates, std::span<const AcGePoint3d> tested, AcDbObjectIdArray& result,
            int& count) {
        const CandidateIndex* const index = candidates.list != nullptr
                                                ? &indexes_->ofList(*candidates.list, distance_)
                                                : indexes_->ofGroup(candidates.group, distance_);
        if (index == nullptr)
            return -1;
        Contained isKnown(result);
        zu::SmallSet<int> seen;
        std::vector<int> positions;
        for (const AcGePoint3d& point : tested) {
            index->findNear(zu::inPlan(point), distance_, seen, positions);
            for (const int position : positions) {
                const AcDbObjectId candidate = index->candidates()[position];
                if (candidate == element_ || !canBeRead(*indexes_, candidate) ||
                    !filter_(*indexes_, candidate) || isKnown(candidate))
                    continue;
                result.append(candidate);
                ++count;
            }
        }
        return 0;
    }

private:
    AcDbObjectId element_;
    double distance_;
    Filter filter_;
    ConnectionIndexes* indexes_ = nullptr;
};

void setCount(int* count, int value) {
    if (count != nullptr)
        *count = value;
}

/// Searches about the element's connection points, or about one given point.
int searchAbout(const Candidates& candidates, AcDbObjectId element, const AcGePoint3d* given,
                AcDbObjectIdArray& result, int* count, int kindFilter) {
    setCount(count, 0);
    Search search(element, zu::connectionTolerance(), ofKind(kindFilter));
    const auto points = search.testedPoints();
    if (!points)
        return -1;
    int found = 0;
    const int status =
        search.run(candidates, given != nullptr ? std::span(given, 1) : std::span(*points), result, found);
    setCount(count, found);
    return status;
}

/// Modes of the search by code: candidates with the element's own code, with another one, or all.
Filter ofCode(int mode, int code, bool fullForm) {
    return [=](ConnectionIndexes& /*indexes*/, AcDbObjectId candidate) {
        if (mode != 1 && mode != 2)
            return true;
        return (zu::searchCode(zu::blockNameOf(candidate), fullForm) == code) == (mode == 1);
    };
}

} // namespace

int RootComn_GetConnectBlock(const AcDbObjectId& group, const AcDbObjectId& element,
                             AcArray<AcDbObjectId>& result, int* count, int kindFilter) {
    return searchAbout({group}, element, nullptr, result, count, kindFilter);
}

int RootComn_GetConnectBlock2(const AcDbObjectId& group, const AcDbObjectId& element,
                              AcArray<AcDbObjectId>& result, int* count, int /*unused*/) {
    setCount(count, 0);
    if (!zu::startsWithNoCase(zu::blockNameOf(element), L"RB"))
        return -1;
    AcDbObjectIdArray found;
    if (searchAbout({group}, element, nullptr, found, nullptr, 0) != 0)
        return -1;
    const int before = result.length();
    RootComn_GetConnectBlock2Sub(AcDbObjectIdArray(), found, result);
    setCount(count, result.length() - before);
    return 0;
}

int RootComn_GetConnectBlock2Sub(const AcArray<AcDbObjectId>& a, const AcArray<AcDbObjectId>& b,
                                 AcArray<AcDbObjectId>& result) {
    std::unordered_set<AcDbObjectId> seen(result.begin(), result.end());
    for (const AcDbObjectIdArray& ids : {a, b})
        for (const AcDbObjectId id : ids)
            if (seen.insert(id).second)
                result.append(id);
    return 0;
}

int RootComn_GetConnectBlock3(const AcDbObjectId& group, const AcDbObjectId& element,
                              AcArray<AcDbObjectId>& result, int* count, int kindFilter, int /*unused*/) {
    return searchAbout({group}, element, nullptr, result, count, kindFilter);
}

int RootComn_GetConnectBlock4(const AcArray<AcDbObjectId>& candidates, const AcDbObjectId& element,
                              AcArray<AcDbObjectId>& result, int kindFilter, int /*unused*/) {
    return searchAbout({{}, &candidates}, element, nullptr, result, nullptr, kindFilter);
}

int RootComn_GetConnectBlock4EX(int mode, const AcArray<AcDbObjectId>& candidates,
                                const AcDbObjectId& element, AcArray<AcDbObjectId>& result, int* count,
                                const int* form) {
    setCount(count, 0);
    const bool fullForm = form != nullptr && *form == 1;
    const double reach = zu::isLargeScale() ? kLargeScaleReach : zu::smallScaleTolerance();
    Search search(element, reach, ofCode(mode, zu::searchCode(zu::blockNameOf(element), fullForm), fullForm));
    const auto points = search.testedPoints();
    const bool isSearched = points && points->size() >= 2;
    // A separate array: the result may be the list of candidates itself.
    AcDbObjectIdArray joinedIds;
    int found = 0;
    if (isSearched)
        (void)search.run({{}, &candidates}, *points, joinedIds, found);
    result = joinedIds;
    setCount(count, found);
    return isSearched ? 0 : -1;
}

int RootComn_GetConnectBlock5(const AcDbObjectId& group, const AcDbObjectId& element,
                              const AcGePoint3d& point, AcArray<AcDbObjectId>& result, int* count,
                              int kindFilter, int /*unused*/) {
    return searchAbout({group}, element, &point, result, count, kindFilter);
}

int RootComn_GetConnectBlock6(const AcDbObjectId& group, const AcDbObjectId& element,
                              AcArray<AcDbObjectId>& result, int* count, int kindFilter, int /*unused*/) {
    return searchAbout({group}, element, nullptr, result, count, kindFilter);
}

int RootComn_GetConnectBlock7(const AcArray<AcDbObjectId>& candidates, const AcDbObjectId& element,
                              const AcGePoint3d& point, AcArray<AcDbObjectId>& result, int* count,
                              int kindFilter, int /*unused*/) {
    return searchAbout({{}, &candidates}, element, &point, result, count, kindFilter);
}
