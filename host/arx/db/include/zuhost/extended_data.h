#pragma once

#include <functional>
#include <string_view>

class AcDbObject;

namespace zuhost {

/// Receives the type of a value and, for texts, the text, which is valid during the call; returns false to
/// end.
using ExtendedValueVisitor = std::function<bool(short type, std::wstring_view text)>;

/// Visits the values that AcDbObject::xData returns as a chain, in the same order, where they are stored.
/// Returns false when there are none.
bool visitExtendedData(const AcDbObject& object, const wchar_t* application,
                       const ExtendedValueVisitor& visit);

} // namespace zuhost
