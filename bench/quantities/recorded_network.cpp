#include "recorded_network.h"

#include "../route/network.h"

#include <arxutil.h>

#include <stdexcept>

void writeNetwork(const std::wstring& path, int count) {
    constexpr int kSameKind = 100;
    const Network drawn(count);
    for (int i = 0; i < count; ++i) {
        CStringArray record;
        CString text;
        record.Add(L"3|系統|空調|");
        text.Format(L"S302|%d|P|ｻｲｽﾞ|1|1|", 50 * (i % 7));
        record.Add(text);
        text.Format(L"S401|%d|E|取付高|2|1|", 2500 + 100 * (i % 3));
        record.Add(text);
        record.Add(i % 5 == 0 ? L"S501|給気|A|用途|3|1|" : L"S501|還気|A|用途|3|1|");
        ApiComn_appendAttributesArray(drawn.elements[i], L"ZU_ATTR", record);
        CStringArray link;
        text.Format(L"%d|", 1 + i / kSameKind % 4);
        link.Add(text);
        ApiComn_appendAttributesArray(drawn.elements[i], L"ZU_LINK", link);
    }
    if (drawn.database->dxfOut(path.c_str()) != Acad::eOk)
        throw std::runtime_error("cannot write the drawing");
}
