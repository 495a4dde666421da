#include "acedads.h"

#include "geassign.h"
#include "point_text.h"
#include "prompting.h"
#include "system_variables.h"

#include "acdbads.h"

#include <zuhost/unit_settings.h>

#include <algorithm>
#include <charconv>
#include <cmath>
#include <optional>
#include <string>

using zuhost::ask;
using zuhost::InputRequest;
using zuhost::refusal;
using zuhost::takeInputRequest;

namespace {

constexpr const ACHAR* kNotNumeric = L"A number is required.\n";
constexpr const ACHAR* kNotInteger = L"An integer between -32768 and 32767 is required.\n";
constexpr const ACHAR* kNoKeyword = L"The answer is none of the options.\n";
constexpr const ACHAR* kNoPoint = L"A point is required, as x,y or x,y,z.\n";
constexpr const ACHAR* kNoDistance = L"A distance or a point is required.\n";
constexpr const ACHAR* kNoAngle = L"An angle or a point is required.\n";

const ACHAR* readReal(const std::wstring& text, int flags, double& result) {
    double value = 0.0;
    if (acdbDisToF(text.c_str(), -1, &value) != RTNORM)
        return kNotNumeric;
    const ACHAR* const problem = refusal(value, flags);
    if (problem == nullptr)
        result = value;
    return problem;
}

const ACHAR* readInteger(const std::wstring& text, int flags, int& result) {
    const auto isNumeric = [](wchar_t c) { return (c >= L'0' && c <= L'9') || c == L'-' || c == L'+'; };
    if (!std::all_of(text.begin(), text.end(), isNumeric) || text.starts_with(L"+-"))
        return kNotInteger;
    const std::string digits(text.begin(), text.end());
    const char* const first = digits.data() + (digits.starts_with('+') ? 1 : 0);
    const char* const last = digits.data() + digits.size();
    short value = 0;
    const auto [end, error] = std::from_chars(first, last, value);
    if (error != std::errc() || end != last)
        return kNotInteger;
    const ACHAR* const problem = refusal(value, flags);
    if (problem == nullptr)
        result = value;
    return problem;
}

/// The point that "@" is relative to.
AcGePoint3d originOf(const ads_real* base) {
    return base != nullptr ? AcGePoint3d(base[X], base[Y], base[Z]) : zuhost::lastPoint();
}

const ACHAR* readPoint(const std::wstring& text, const AcGePoint3d& origin, AcGePoint3d& result) {
    const auto point = zuhost::parsePoint(text, origin);
    if (!point)
        return kNoPoint;
    result = *point;
    zuhost::setLastPoint(*point);
    return nullptr;
}

int askPoint(const ads_real* base, const ACHAR* prompt, const InputRequest& request, AcGePoint3d& result) {
    return ask(prompt, request,
               [&](const std::wstring& text) { return readPoint(text, originOf(base), result); });
}

/// What acedGetDist and acedGetAngle make of their answers.
struct Measure {
    std::optional<double> (*read)(const std::wstring& text);
    double (*between)(const AcGePoint3d& from, const AcGePoint3d& to, int flags);
    const ACHAR* problem;
};

int askSecondPoint(const AcGePoint3d& first, const Measure& measure, const InputRequest& request,
                   ads_real* result) {
    AcGePoint3d second;
    const int code = askPoint(asDblArray(first), L"Second point: ", {RSG_NONULL, {}}, second);
    if (code == RTNORM)
        *result = measure.between(first, second, request.flags);
    return code;
}

int askMeasure(const ads_real* base, const ACHAR* prompt, const Measure& measure, ads_real* result) {
    const InputRequest request = takeInputRequest();
    if (result == nullptr)
        return RTERROR;
    AcGePoint3d point;
    bool isPoint = false;
    double value = 0.0;
    const int code = ask(prompt, request, [&](const std::wstring& text) -> const ACHAR* {
        const auto entered = measure.read(text);
        isPoint = !entered;
        if (entered) {
            value = *entered;
            return refusal(value, request.flags);
        }
        return readPoint(text, originOf(base), point) == nullptr ? nullptr : measure.problem;
    });
    if (code != RTNORM)
        return code;
    if (isPoint && base == nullptr)
        return askSecondPoint(point, measure, request, result);
    *result = isPoint ? measure.between(asPnt3d(base), point, request.flags) : value;
    return RTNORM;
}

std::optional<double> readLength(const std::wstring& text) {
    double value = 0.0;
    return acdbDisToF(text.c_str(), -1, &value) == RTNORM ? std::optional(value) : std::nullopt;
}

std::optional<double> readAngle(const std::wstring& text) {
    double value = 0.0;
    return acdbAngToF(text.c_str(), -1, &value) == RTNORM ? std::optional(value) : std::nullopt;
}

double distanceBetween(const AcGePoint3d& from, const AcGePoint3d& to, int flags) {
    return (flags & RSG_2D) != 0 ? std::hypot(to.x - from.x, to.y - from.y) : from.distanceTo(to);
}

double angleBetween(const AcGePoint3d& from, const AcGePoint3d& to, int /*flags*/) {
    return acutAngle(asDblArray(from), asDblArray(to));
}

} // namespace

int acedGetReal(const ACHAR* prompt, ads_real* result) {
    const InputRequest request = takeInputRequest();
    if (result == nullptr)
        return RTERROR;
    return ask(prompt, request,
               [&](const std::wstring& text) { return readReal(text, request.flags, *result); });
}

int acedGetInt(const ACHAR* prompt, int* result) {
    const InputRequest request = takeInputRequest();
    if (result == nullptr)
        return RTERROR;
    return ask(prompt, request,
               [&](const std::wstring& text) { return readInteger(text, request.flags, *result); });
}

int acedGetKword(const ACHAR* prompt, ACHAR* result, std::size_t size) {
    const InputRequest request = takeInputRequest();
    if (result == nullptr || size == 0 || request.keywords.empty())
        return RTERROR;
    const int code = ask(prompt, request, [](const std::wstring&) { return kNoKeyword; });
    return code == RTKWORD ? acedGetInput(result, size) : code;
}

int acedGetString(int allowsBlanks, const ACHAR* prompt, ACHAR* result, std::size_t size) {
    takeInputRequest();
    if (result == nullptr || size == 0)
        return RTERROR;
    std::wstring text;
    if (zuhost::takeAnswer(prompt, allowsBlanks != 0, text) != RTNORM)
        return RTCAN;
    zuhost::copyToBuffer(text, result, size);
    return RTNORM;
}

int acedGetPoint(const ads_real* base, const ACHAR* prompt, ads_point result) {
    const InputRequest request = takeInputRequest();
    if (result == nullptr)
        return RTERROR;
    AcGePoint3d point;
    const int code = askPoint(base, prompt, request, point);
    if (code == RTNORM)
        ads_point_set(asDblArray(point), result);
    return code;
}

int acedGetCorner(const ads_real* base, const ACHAR* prompt, ads_point result) {
    if (base != nullptr)
        return acedGetPoint(base, prompt, result);
    takeInputRequest();
    return RTERROR;
}

int acedGetDist(const ads_real* base, const ACHAR* prompt, ads_real* result) {
    return askMeasure(base, prompt, {readLength, distanceBetween, kNoDistance}, result);
}

int acedGetAngle(const ads_real* base, const ACHAR* prompt, ads_real* result) {
    double angle = 0.0;
    const int code = acedGetOrient(base, prompt, result != nullptr ? &angle : nullptr);
    if (code == RTNORM)
        *result = zuhost::fromAngleBase(angle, zuhost::unitSettings());
    return code;
}

int acedGetOrient(const ads_real* base, const ACHAR* prompt, ads_real* result) {
    return askMeasure(base, prompt, {readAngle, angleBetween, kNoAngle}, result);
}
