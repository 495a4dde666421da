#pragma once

#include "attributes/result_chain.h"

#include <dbmain.h>

#include <string_view>

/// Extended data value by value, on the interface alone.
namespace zu {

/// Visits the values of the application (null: of all), the names of applications included. `visit` receives
/// the type of a value and, for texts, the text; it returns false to end. Returns false when there are none.
template <typename Visit>
bool visitExtendedData(const AcDbObject& object, const wchar_t* application, Visit visit) {
    constexpr short kFirst = 1000;
    constexpr short kLastText = 1003;
    constexpr short kHandle = 1005;
    const ResultChain data(object.xData(application));
    for (const resbuf* item = data.get(); item != nullptr; item = item->rbnext) {
        const short type = item->restype;
        const bool isText = (type >= kFirst && type <= kLastText) || type == kHandle;
        if (!visit(type, isText ? std::wstring_view(item->resval.rstring) : std::wstring_view()))
            break;
    }
    return data != nullptr;
}

} // namespace zu
