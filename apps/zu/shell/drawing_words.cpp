#include "shell/drawing_words.h"

#include "failure.h"
#include "model/attribute_rows.h"
#include "model/drawing_file.h"
#include "model/element.h"
#include "text.h"

#include <zucomn/model/groups.h>

#include <set>

namespace zu::app {

namespace {

class Words {
public:
    void add(const std::string& word, const std::string& description) {
        if (!word.empty() && known_.insert(word).second)
            words_.push_back({word, description});
    }
    [[nodiscard]] std::vector<Completion> take() { return std::move(words_); }

private:
    std::set<std::string> known_;
    std::vector<Completion> words_;
};

void addGroups(const DrawingFile& drawing, Words& words) {
    for (const AcDbObjectId id : drawing.groups())
        if (const auto group = zucomn::readGroup(id))
            words.add(narrow(group->name), std::to_string(group->members.size()) + " members");
}

void addAttributeIds(const DrawingFile& drawing, Words& words) {
    for (const auto& [id, name] : attributeIds(drawing.references()))
        words.add(id, name);
}

void addElements(const DrawingFile& drawing, DrawingWords wanted, Words& words) {
    for (const AcDbObjectId id : drawing.references()) {
        const Element element = readElement(id);
        switch (wanted) {
        case DrawingWords::layers:
            words.add(element.layer, "");
            break;
        case DrawingWords::blocks:
            words.add(element.block, elementCodeName(element.code));
            break;
        default:
            words.add(element.handle, element.block);
            break;
        }
    }
}

} // namespace

std::vector<Completion> drawingWords(const std::string& drawing, DrawingWords wanted) {
    Words words;
    try {
        const DrawingFile file(DrawingSource{drawing, false});
        if (wanted == DrawingWords::groups)
            addGroups(file, words);
        else if (wanted == DrawingWords::attributeIds)
            addAttributeIds(file, words);
        else
            addElements(file, wanted, words);
    } catch (const Failure&) {
        // The shell shows nothing then; running the command says why.
    }
    return words.take();
}

} // namespace zu::app
