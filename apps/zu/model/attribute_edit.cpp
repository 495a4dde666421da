#include "model/attribute_edit.h"

#include "failure.h"
#include "model/drawing_file.h"
#include "model/readable_file.h"
#include "text.h"

#include <zucomn/model/attributes.h>
#include <zuhost/paths.h>
#include <zuhost/texts.h>

namespace zu::app {

AttributeEdit editAttribute(const std::vector<AcDbObjectId>& elements, const std::string& key,
                            const std::string& value, bool askedByName) {
    const zucomn::AttributeValue wanted{std::wstring(zuhost::viewOf(wide(key).SpanExcluding(L"|"))),
                                        std::wstring(zuhost::viewOf(wide(value)))};
    AttributeEdit edit;
    for (const zucomn::EditedElement& edited : zucomn::editAttributes(elements, {&wanted, 1})) {
        const std::string handle = handleText(edited.element);
        if (!edited.hasAttribute) {
            if (askedByName)
                edit.skipped.push_back({handle, "no attribute " + key});
        } else if (edited.outcome == zucomn::EditOutcome::lockedLayer) {
            edit.skipped.push_back({handle, "layer " + narrow(edited.layer) + " is locked"});
        } else if (edited.outcome == zucomn::EditOutcome::failed) {
            edit.skipped.push_back({handle, "its attributes can't be written"});
        } else {
            edit.changed.push_back(handle);
        }
    }
    return edit;
}

bool mayEditAttribute(const std::string& key) {
    const std::wstring file = zucomn::parameterTableFile();
    if (file.empty())
        throw Failure("the settings name no folder of the parameter table (標準部品 in [環境設定])");
    const auto editable = zucomn::isEditableAttribute(zuhost::viewOf(wide(key).SpanExcluding(L"|")));
    if (editable)
        return *editable;
    const std::string path = zuhost::systemPath(file);
    requireReadable(path);
    throw Failure(path + ": the parameter table holds no records");
}

} // namespace zu::app
