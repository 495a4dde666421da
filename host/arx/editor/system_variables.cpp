#include "system_variables.h"

#include "acdocman.h"
#include "acedads.h"
#include "dbapserv.h"
#include "geassign.h"

#include <zuhost/folded_name.h>
#include <zuhost/header_variables.h>
#include <zuhost/undo.h>

#include <algorithm>
#include <map>
#include <numbers>
#include <string>
#include <variant>

namespace {

using Value = std::variant<short, double, std::wstring, AcGePoint3d>;

struct Variable {
    Value value;
    bool isReadOnly = false;
};

using Variables = std::map<std::wstring, Variable, std::less<>>;

/// The variables of the session with their initial values. Those that only change how the real editor looks
/// or asks keep what is set and have no effect.
Variables& session() {
    static Variables variables{
        {L"APERTURE", {short{10}}},      {L"ATTDIA", {short{0}}},       {L"ATTREQ", {short{1}}},
        {L"BLIPMODE", {short{0}}},       {L"CMDDIA", {short{1}}},       {L"CMDECHO", {short{1}}},
        {L"CVPORT", {short{2}}},         {L"DELOBJ", {short{1}}},       {L"EDGEMODE", {short{0}}},
        {L"ERRNO", {short{0}}},          {L"EXPERT", {short{0}}},       {L"FILEDIA", {short{1}}},
        {L"HIGHLIGHT", {short{1}}},      {L"LASTANGLE", {0.0, true}},   {L"LASTPOINT", {AcGePoint3d()}},
        {L"MENUECHO", {short{0}}},       {L"NOMUTT", {short{0}}},       {L"OSMODE", {short{0}}},
        {L"PICKADD", {short{1}}},        {L"PICKAUTO", {short{1}}},     {L"PICKBOX", {short{3}}},
        {L"PICKFIRST", {short{1}}},      {L"PICKSTYLE", {short{1}}},    {L"SDI", {short{0}, true}},
        {L"SNAPMODE", {short{0}}},       {L"USERS1", {std::wstring()}}, {L"USERS2", {std::wstring()}},
        {L"USERS3", {std::wstring()}},   {L"USERS4", {std::wstring()}}, {L"USERS5", {std::wstring()}},
        {L"WORLDUCS", {short{1}, true}},
    };
    return variables;
}

void store(const Value& value, resbuf& item) {
    if (const auto* const number = std::get_if<short>(&value)) {
        item.restype = RTSHORT;
        item.resval.rint = *number;
    } else if (const auto* const real = std::get_if<double>(&value)) {
        item.restype = RTREAL;
        item.resval.rreal = *real;
    } else if (const auto* const text = std::get_if<std::wstring>(&value)) {
        item.restype = RTSTR;
        acutNewString(text->c_str(), item.resval.rstring);
    } else {
        item.restype = RT3DPOINT;
        ads_point_set(asDblArray(std::get<AcGePoint3d>(value)), item.resval.rpoint);
    }
}

bool load(const resbuf& item, Value& value) {
    if (std::holds_alternative<short>(value) && item.restype == RTSHORT)
        return value = item.resval.rint, true;
    if (std::holds_alternative<double>(value) && item.restype == RTREAL)
        return value = item.resval.rreal, true;
    if (std::holds_alternative<std::wstring>(value) && item.restype == RTSTR &&
        item.resval.rstring != nullptr)
        return value = std::wstring(item.resval.rstring), true;
    if (std::holds_alternative<AcGePoint3d>(value) && (item.restype == RTPOINT || item.restype == RT3DPOINT))
        return value = AcGePoint3d(asPnt3d(item.resval.rpoint)), true;
    return false;
}

AcDbDatabase* drawing() {
    return acdbHostApplicationServices()->workingDatabase();
}

/// Angles of files are in degrees, those of the interface in radians.
constexpr std::wstring_view kAngleBase = L"ANGBASE";
constexpr double kDegree = std::numbers::pi / 180.0;

/// Read-only: the user sets it by UNDO CONTROL and UNDO AUTO.
constexpr std::wstring_view kUndoControl = L"UNDOCTL";

short undoControl() {
    const zuhost::UndoControl control = zuhost::undoControl(*drawing());
    return static_cast<short>((control.isEnabled ? 1 : 0) | (control.onlyOne ? 2 : 0) |
                              (control.autoGroups ? 4 : 0));
}

} // namespace

namespace zuhost {

AcGePoint3d lastPoint() {
    return std::get<AcGePoint3d>(session().find(L"LASTPOINT")->second.value);
}

void setLastPoint(const AcGePoint3d& point) {
    session().find(L"LASTPOINT")->second.value = point;
}

void setInputError(InputError error) {
    session().find(L"ERRNO")->second.value = static_cast<short>(error);
}

} // namespace zuhost

int acedGetVar(const ACHAR* name, resbuf* value) {
    if (name == nullptr || value == nullptr)
        return RTERROR;
    const std::wstring variable = zuhost::foldedName(name);
    value->rbnext = nullptr;
    if (const auto found = session().find(variable); found != session().end()) {
        store(found->second.value, *value);
        return RTNORM;
    }
    if (variable == kUndoControl && drawing() != nullptr) {
        value->restype = RTSHORT;
        value->resval.rint = undoControl();
        return RTNORM;
    }
    if (drawing() == nullptr || !zuhost::headerVariable(*drawing(), variable, *value))
        return RTERROR;
    if (variable == kAngleBase && value->restype == RTREAL)
        value->resval.rreal *= kDegree;
    return RTNORM;
}

int acedSetVar(const ACHAR* name, const resbuf* value) {
    if (name == nullptr || value == nullptr)
        return RTERROR;
    const std::wstring variable = zuhost::foldedName(name);
    if (const auto found = session().find(variable); found != session().end())
        return !found->second.isReadOnly && load(*value, found->second.value) ? RTNORM : RTERROR;
    if (drawing() == nullptr || variable == kUndoControl)
        return RTERROR;
    resbuf stored = *value;
    if (variable == kAngleBase && stored.restype == RTREAL)
        stored.resval.rreal /= kDegree;
    return zuhost::setHeaderVariable(*drawing(), variable, stored) ? RTNORM : RTERROR;
}
