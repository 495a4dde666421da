#include "acedads.h"

#include "acdbads.h"
#include "dbapserv.h"
#include "dbents.h"
#include "dbobjptr.h"
#include "geassign.h"
#include "outline.h"
#include "pick.h"
#include "point_text.h"
#include "prompting.h"
#include "selection_filter.h"
#include "selection_sets.h"
#include "system_variables.h"

#include <zuhost/folded_name.h>

#include <algorithm>
#include <functional>
#include <optional>
#include <string>

using zuhost::Path;
using zuhost::SelectionFilter;
using zuhost::SelectionSet;

namespace {

using Ids = std::vector<AcDbObjectId>;
using Test = bool (*)(const std::vector<Path>& paths, const Path& region);

AcDbDatabase* drawing() {
    return acdbHostApplicationServices()->workingDatabase();
}

/// Returns the entities of model space that meet the test, the newest first.
Ids regionEntities(const Path& region, Test test) {
    Ids found;
    for (const AcDbObjectId id : zuhost::spaceEntities(*drawing(), false)) {
        const AcDbObjectPointer<AcDbEntity> entity(id);
        if (entity.openStatus() == Acad::eOk && zuhost::isShown(id) &&
            test(zuhost::outline(*entity.object()), region))
            found.push_back(id);
    }
    std::reverse(found.begin(), found.end());
    return found;
}

Ids allEntities(bool everywhere) {
    Ids ids = zuhost::spaceEntities(*drawing(), everywhere);
    if (!everywhere)
        std::erase_if(ids, [](AcDbObjectId id) { return !zuhost::isShown(id, false); });
    std::reverse(ids.begin(), ids.end());
    return ids;
}

Ids lastEntity() {
    const Ids all = zuhost::spaceEntities(*drawing(), false);
    const auto last =
        std::find_if(all.rbegin(), all.rend(), [](AcDbObjectId id) { return zuhost::isShown(id); });
    return last == all.rend() ? Ids() : Ids{*last};
}

Ids previousEntities() {
    Ids ids = zuhost::previousSelection();
    std::erase_if(ids, [](AcDbObjectId id) { return id.isErased() || id.database() != drawing(); });
    return ids;
}

Ids pickedEntity(const AcGePoint3d& point) {
    const AcDbObjectId id = zuhost::entityAt(*drawing(), point);
    return id.isNull() ? Ids() : Ids{id};
}

Path rectangle(const AcGePoint3d& a, const AcGePoint3d& b) {
    return {{a.x, a.y}, {b.x, a.y}, {b.x, b.y}, {a.x, b.y}};
}

std::optional<Path> pointsOf(const resbuf* chain, std::size_t least) {
    Path points;
    for (; chain != nullptr; chain = chain->rbnext) {
        if (chain->restype != RTPOINT && chain->restype != RT3DPOINT)
            return std::nullopt;
        points.emplace_back(chain->resval.rpoint[X], chain->resval.rpoint[Y]);
    }
    return points.size() >= least ? std::optional(std::move(points)) : std::nullopt;
}

/// Selects by two corners, or by the points of a chain; nullopt when they are missing.
std::optional<Ids> selectInRegion(std::wstring_view mode, const void* point1, const void* point2) {
    if (point1 == nullptr)
        return std::nullopt;
    if (mode == L"W" || mode == L"C") {
        if (point2 == nullptr)
            return std::nullopt;
        const Path region = rectangle(asPnt3d(static_cast<const ads_real*>(point1)),
                                      asPnt3d(static_cast<const ads_real*>(point2)));
        return regionEntities(region, mode == L"W" ? zuhost::isWithin : zuhost::isWithinOrCrosses);
    }
    const bool isFence = mode == L"F";
    const auto region = pointsOf(static_cast<const resbuf*>(point1), isFence ? 2 : 3);
    if (!region)
        return std::nullopt;
    if (isFence)
        return regionEntities(*region, zuhost::crosses);
    return regionEntities(*region, mode == L"WP" ? zuhost::isWithin : zuhost::isWithinOrCrosses);
}

/// Selects by a mode that needs no answers of the user; nullopt for an invalid one.
std::optional<Ids> selectByMode(std::wstring_view mode, const void* point1, const void* point2) {
    if (mode == L"X" || mode == L"A" || mode == L"ALL")
        return allEntities(mode == L"X");
    if (mode == L"L")
        return lastEntity();
    if (mode == L"P")
        return previousEntities();
    if (mode == L"I")
        return Ids();
    const bool isRegion = mode == L"W" || mode == L"C" || mode == L"WP" || mode == L"CP" || mode == L"F";
    return isRegion ? selectInRegion(mode, point1, point2) : std::nullopt;
}

// ---- the user's selection

/// One answer to "Select objects", or more for a window.
class UserSelection {
public:
    explicit UserSelection(const SelectionFilter& filter) : filter_(filter) {}

    /// Prompts until the user ends the selection; returns RTNORM, or the code that ended it.
    int run(bool onlyOne) {
        int code = RTNORM;
        while (code == RTNORM) {
            code =
                zuhost::ask(L"Select objects: ", {}, [this](const std::wstring& text) { return read(text); });
            if (code == RTNORM && windowMode_)
                code = askWindow();
            if (onlyOne && !set_.ids().empty())
                return RTNORM;
        }
        return code == RTNONE ? RTNORM : code;
    }

    [[nodiscard]] SelectionSet& set() { return set_; }

private:
    const ACHAR* read(const std::wstring& text) {
        const std::wstring word = zuhost::foldedName(text);
        windowMode_.reset();
        if (word == L"W" || word == L"WINDOW" || word == L"C" || word == L"CROSSING") {
            windowMode_ = word.front() == L'W' ? L"W" : L"C";
            return nullptr;
        }
        if (word == L"R" || word == L"REMOVE" || word == L"A" || word == L"ADD") {
            isRemoving_ = word.front() == L'R';
            return nullptr;
        }
        const auto ids = entitiesOf(text, word);
        if (!ids)
            return L"A point, an entity's handle as (handent \"2F\"), or one of ALL, L, P, W, C, A, R is "
                   L"required.\n";
        take(*ids);
        return nullptr;
    }

    static std::optional<Ids> entitiesOf(const std::wstring& text, const std::wstring& word) {
        if (word == L"ALL")
            return allEntities(false);
        if (word == L"L" || word == L"LAST")
            return lastEntity();
        if (word == L"P" || word == L"PREVIOUS")
            return previousEntities();
        if (const AcDbObjectId id = zuhost::entityOfExpression(text); !id.isNull())
            return Ids{id};
        const auto point = zuhost::parsePoint(text, zuhost::lastPoint());
        if (!point)
            return std::nullopt;
        zuhost::setLastPoint(*point);
        return pickedEntity(*point);
    }

    int askWindow() {
        ads_point first;
        ads_point second;
        acedInitGet(RSG_NONULL, nullptr);
        int code = acedGetPoint(nullptr, L"First corner: ", first);
        if (code != RTNORM)
            return code;
        acedInitGet(RSG_NONULL, nullptr);
        code = acedGetCorner(first, L"Opposite corner: ", second);
        if (code == RTNORM)
            take(*selectByMode(*windowMode_, first, second));
        return code;
    }

    void take(const Ids& ids) {
        int count = 0;
        for (const AcDbObjectId id : ids)
            if (filter_.admits(id))
                count += (isRemoving_ ? set_.remove(id) : set_.add(id)) ? 1 : 0;
        acutPrintf(isRemoving_ ? L"%d removed, %d total\n" : L"%d found, %d total\n", count,
                   static_cast<int>(set_.ids().size()));
    }

    const SelectionFilter& filter_;
    SelectionSet set_;
    std::optional<std::wstring> windowMode_;
    bool isRemoving_ = false;
};

int finish(SelectionSet selected, ads_name set) {
    if (selected.ids().empty())
        return RTERROR;
    zuhost::previousSelection().assign(selected.ids().begin(), selected.ids().end());
    return zuhost::openSelectionSet(std::move(selected), set) ? RTNORM : RTERROR;
}

/// A mode without its prefix, and what follows its colon.
struct Mode {
    std::wstring name;
    bool onlyOne = false;
};

Mode parseMode(const ACHAR* text) {
    std::wstring mode = text != nullptr ? zuhost::foldedName(text) : std::wstring();
    std::erase(mode, L'_');
    const std::size_t colon = mode.find(L':');
    const bool onlyOne = colon != std::wstring::npos && mode.find(L'S', colon) != std::wstring::npos;
    return {mode.substr(0, colon), onlyOne};
}

} // namespace

int acedSSGet(const ACHAR* text, const void* point1, const void* point2, const resbuf* filterChain,
              ads_name set) {
    const Mode mode = parseMode(text);
    zuhost::takeInputRequest();
    const SelectionFilter filter(filterChain);
    if (set == nullptr || drawing() == nullptr || !filter.isValid())
        return RTERROR;
    ads_name_clear(set);
    if (mode.name.empty() && point1 == nullptr) {
        UserSelection user(filter);
        const int code = user.run(mode.onlyOne);
        return code == RTNORM ? finish(std::move(user.set()), set) : code;
    }
    const auto ids = mode.name.empty() ? pickedEntity(asPnt3d(static_cast<const ads_real*>(point1)))
                                       : selectByMode(mode.name, point1, point2);
    if (!ids)
        return RTERROR;
    SelectionSet selected;
    for (const AcDbObjectId id : *ids)
        if (filter.admits(id))
            selected.add(id);
    return finish(std::move(selected), set);
}
