#pragma once

#include <adesk.h>
#include <zuhost/platform/export.h>

#include <functional>
#include <span>
#include <string_view>

class AcDbObject;

namespace zuhost {

/// Receives the type of a value and, for texts, the text, which is valid during the call; returns false to
/// end.
using ExtendedValueVisitor = std::function<bool(short type, std::wstring_view text)>;

/// Visits the values that AcDbObject::xData returns as a chain, in the same order, where they are stored.
/// Returns false when there are none.
ZUHOST_API bool visitExtendedData(const AcDbObject& object, const wchar_t* application,
                                  const ExtendedValueVisitor& visit);

/// Replaces the texts (type 1000) of a registered application, in order: texts too many are removed, further
/// ones appended; values of other types keep their places. All values that stay equal keep their stored form.
/// Results and error codes are those of AcDbObject::setXData.
ZUHOST_API Acad::ErrorStatus setExtendedTexts(AcDbObject& object, const wchar_t* application,
                                              std::span<const std::wstring_view> texts);

} // namespace zuhost
