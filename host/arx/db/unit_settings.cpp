#include "zuhost/unit_settings.h"

#include "acutmem.h"
#include "dbapserv.h"
#include "zuhost/header_variables.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace zuhost {

namespace {

/// Returns the number of a header variable; the usual one when it is missing or, in a damaged header, no
/// number.
double number(const AcDbDatabase& drawing, const wchar_t* name, double usual) {
    resbuf value;
    if (!headerVariable(drawing, name, value))
        return usual;
    if (value.restype == RTSTR)
        acutDelString(value.resval.rstring);
    if (value.restype == RTREAL)
        return value.resval.rreal;
    return value.restype == RTSHORT ? value.resval.rint : usual;
}

int integer(const AcDbDatabase& drawing, const wchar_t* name, int usual) {
    constexpr double kGreatest = 32767.0;
    return static_cast<int>(std::clamp(number(drawing, name, usual), -kGreatest, kGreatest));
}

} // namespace

UnitSettings unitSettings() {
    UnitSettings settings;
    const AcDbDatabase* const drawing = acdbHostApplicationServices()->workingDatabase();
    if (drawing == nullptr)
        return settings;
    settings.lengthUnit = integer(*drawing, L"LUNITS", settings.lengthUnit);
    settings.lengthPrecision = integer(*drawing, L"LUPREC", settings.lengthPrecision);
    settings.angleUnit = integer(*drawing, L"AUNITS", settings.angleUnit);
    settings.anglePrecision = integer(*drawing, L"AUPREC", settings.anglePrecision);
    settings.angleBase = number(*drawing, L"ANGBASE", 0.0) / 180.0 * std::numbers::pi; // degrees in files
    settings.isClockwise = integer(*drawing, L"ANGDIR", 0) == 1;
    settings.zeroSuppression = integer(*drawing, L"DIMZIN", settings.zeroSuppression);
    return settings;
}

double fromAngleBase(double angle, const UnitSettings& settings) {
    return withinTurn(settings.isClockwise ? settings.angleBase - angle : angle - settings.angleBase);
}

double withinTurn(double angle) {
    constexpr double kFullTurn = 2.0 * std::numbers::pi;
    const double rest = std::fmod(angle, kFullTurn);
    if (rest >= 0.0)
        return rest;
    const double turned = rest + kFullTurn; // a whole turn for a rest that is tiny
    return turned < kFullTurn ? turned : 0.0;
}

} // namespace zuhost
