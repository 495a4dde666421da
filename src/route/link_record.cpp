#include "link_record.h"

#include "extended_data.h"

namespace zu {

int linkKindOf(const AcDbObject& object) {
    constexpr short kText = 1000;
    int kind = -1;
    visitExtendedData(object, kLinkApplication, [&kind](short type, std::wstring_view text) {
        if (type == kText)
            kind = linkKind(text);
        return type != kText;
    });
    return kind;
}

} // namespace zu
