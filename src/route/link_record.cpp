#include "link_record.h"

#include "attributes/result_chain.h"

#include <dbmain.h>

namespace zu {

int linkKindOf(const AcDbObject& object) {
    constexpr short kText = 1000;
    const ResultChain data(object.xData(kLinkApplication));
    for (const resbuf* item = data.get(); item != nullptr; item = item->rbnext)
        if (item->restype == kText)
            return linkKind(item->resval.rstring);
    return -1;
}

} // namespace zu
