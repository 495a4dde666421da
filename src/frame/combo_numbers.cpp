#include "combo_numbers.h"

#include "numbers.h"

#include <zucomn/strings.h>

#include <afxwin.h>

#include <algorithm>

namespace zu {

namespace {

constexpr int kOneDecimal = 99;

CString oneDecimal(double value) {
    CString text;
    text.Format(L"%.1lf", value);
    if (text.Right(2) == L".0")
        text = text.Left(text.GetLength() - 2);
    return text;
}

CString formatted(const wchar_t* format, double value) {
    CString text;
    text.Format(format, value);
    return text;
}

} // namespace

CString comboNumber(double value, int mode) {
    if (mode == 0)
        return ZuComn_RealFormat(value, 0, 0);
    if (mode == kOneDecimal)
        return oneDecimal(value);
    return mode > kOneDecimal ? formatted(L"%.2lf", value) : ZuComn_RealFormat(value, mode, 1);
}

std::vector<CString> withNumber(const std::vector<CString>& items, const CString& added, int mode) {
    std::vector<double> numbers;
    numbers.reserve(items.size() + 1);
    for (const CString& item : items)
        numbers.push_back(_wtof(item));
    numbers.push_back(_wtof(added));
    std::stable_sort(numbers.begin(), numbers.end());
    const int precision = mode < 0 ? configuredPrecision() : 0;
    std::vector<CString> texts;
    texts.reserve(numbers.size());
    for (const double number : numbers)
        texts.push_back(mode < 0 ? ZuComn_RealFormat(number, precision, 1) : comboNumber(number, mode));
    return texts;
}

} // namespace zu

int ZuComn_ComboBoxAdd(CComboBox& box, const wchar_t* text, int mode) {
    const CString given(text);
    if (const int index = box.FindStringExact(-1, given); index >= 0)
        return index;
    const CString styled = mode < 0 ? given : zu::comboNumber(_wtof(given), mode);
    if (const int index = box.FindStringExact(-1, styled); index >= 0)
        return index;
    std::vector<CString> items(static_cast<std::size_t>(std::max(box.GetCount(), 0)));
    for (std::size_t i = 0; i < items.size(); ++i)
        box.GetLBText(static_cast<int>(i), items[i]);
    box.ResetContent();
    for (const CString& item : zu::withNumber(items, given, mode))
        box.AddString(item);
    return box.FindStringExact(-1, given);
}
