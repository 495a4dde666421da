#include "acutmem.h"
#include "zuhost/list_value.h"
#include "zuhost/result_chain.h"
#include "zuhost/result_kind.h"

#include <limits>
#include <utility>

namespace zuhost {

namespace {

template <typename T>
const T* get(const ListValue& value) {
    return std::get_if<T>(&value);
}

template <typename Integer>
bool setInteger(Integer& target, const ListValue& value) {
    const auto* const number = get<std::int64_t>(value);
    if (number == nullptr)
        return false;
    target = static_cast<Integer>(*number);
    return true;
}

bool setReal(double& target, const ListValue& value) {
    if (const auto* const number = get<double>(value))
        return target = *number, true;
    // An integer literal for a real is a frequent slip; its value is clear.
    if (const auto* const number = get<std::int64_t>(value))
        return target = static_cast<double>(*number), true;
    return false;
}

bool setPoint(resbuf& item, const ListValue& value) {
    const auto* const point = get<const ads_real*>(value);
    if (point == nullptr || *point == nullptr)
        return false;
    const int size = item.restype == RTPOINT ? 2 : 3;
    for (int axis = 0; axis < size; ++axis)
        item.resval.rpoint[axis] = (*point)[axis];
    return true;
}

bool setText(resbuf& item, const ListValue& value) {
    const auto* const text = get<const ACHAR*>(value);
    return text != nullptr && acutNewString(*text, item.resval.rstring) == RTNORM;
}

bool setName(resbuf& item, const ListValue& value) {
    const auto* const name = get<const std::int64_t*>(value);
    if (name == nullptr || *name == nullptr)
        return false;
    ads_name_set(*name, item.resval.rlname);
    return true;
}

bool setValue(resbuf& item, const ListValue& value) {
    switch (resultKind(item.restype)) {
    case ResultKind::text:
        return setText(item, value);
    case ResultKind::real:
        return setReal(item.resval.rreal, value);
    case ResultKind::point:
        return setPoint(item, value);
    case ResultKind::int16:
        return setInteger(item.resval.rint, value);
    case ResultKind::int32:
        return setInteger(item.resval.rlong, value);
    case ResultKind::int64:
        return setInteger(item.resval.mnInt64, value);
    case ResultKind::name:
        return setName(item, value);
    default:
        return false; // bytes are set in a chain by hand
    }
}

constexpr int kExtendedData = -3;

/// Returns whether the type is one that stands for itself: a mark in a list.
bool isMark(int type) {
    return type == kExtendedData || (type >= RTVOID && type <= RTNIL) || type == RTT;
}

bool isType(std::int64_t type) {
    return type >= std::numeric_limits<short>::min() && type <= std::numeric_limits<short>::max() &&
           (isMark(static_cast<int>(type)) || resultKind(static_cast<int>(type)) != ResultKind::none);
}

} // namespace

resbuf* buildList(std::span<const ListValue> arguments) {
    ResultChain chain;
    resbuf* last = nullptr;
    while (!arguments.empty()) {
        const auto* const type = get<std::int64_t>(arguments.front());
        if (type == nullptr)
            return nullptr;
        if (*type == RTNONE || *type == 0)
            break;
        if (!isType(*type))
            return nullptr;
        resbuf* const item = acutNewRb(static_cast<int>(*type));
        if (last != nullptr)
            last->rbnext = item;
        else
            chain.reset(item);
        last = item;
        arguments = arguments.subspan(1);
        if (isMark(item->restype))
            continue;
        if (arguments.empty() || !setValue(*item, arguments.front()))
            return nullptr;
        if (item->restype == RTDXF0)
            item->restype = 0;
        arguments = arguments.subspan(1);
    }
    return chain.release();
}

} // namespace zuhost
