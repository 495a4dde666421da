#include "model/element.h"

#include "failure.h"
#include "model/drawing_file.h"
#include "text.h"

namespace zu::app {

Element readElement(AcDbObjectId id) {
    const std::optional<zucomn::Element> read = zucomn::readElement(id);
    if (!read)
        throw Failure("object " + handleText(id) + " is no block reference");
    return {id,
            handleText(id),
            narrow(read->block),
            read->code,
            read->linkKind,
            narrow(read->layer),
            read->isOnLocked,
            read->origin,
            read->connectionPoints,
            handleTexts(read->groups)};
}

std::string elementCodeName(int code) {
    return narrow(zucomn::elementKindName(code));
}

} // namespace zu::app
