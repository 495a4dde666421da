#include "acdbads.h"
#include "acedads.h"
#include "geassign.h"
#include "input_queue.h"
#include "point_text.h"
#include "selection_sets.h"

#include <optional>

namespace {

using Replies = zuhost::InputQueue::Replies;

constexpr std::wstring_view kPause = L"\\";
/// Limits commands that run themselves.
constexpr std::size_t kDeepest = 16;

std::wstring entityText(AcDbObjectId id) {
    ACHAR handle[17];
    id.handle().getIntoAsciiBuffer(handle);
    return L"(handent \"" + std::wstring(handle) + L"\")";
}

bool addName(Replies& replies, const resbuf& item) {
    if (item.restype == RTPICKS) {
        const zuhost::SelectionSet* const set = zuhost::findSelectionSet(item.resval.rlname);
        if (set == nullptr)
            return false;
        for (const AcDbObjectId id : set->ids())
            replies.push_back(entityText(id));
        return true;
    }
    AcDbObjectId id;
    if (acdbGetObjectId(id, item.resval.rlname) != Acad::eOk)
        return false;
    replies.push_back(entityText(id));
    return true;
}

/// Appends the words that the user would type for the value; false for a value that no prompt accepts.
bool addReply(Replies& replies, const resbuf& item) {
    switch (item.restype) {
    case RTSTR:
        if (item.resval.rstring == nullptr || item.resval.rstring == kPause)
            return false;
        replies.emplace_back(item.resval.rstring);
        return true;
    case RTREAL:
        replies.push_back(zuhost::realText(item.resval.rreal));
        return true;
    case RTANG:
    case RTORINT:
        replies.push_back(zuhost::realText(item.resval.rreal) + L"r");
        return true;
    case RTSHORT:
        replies.push_back(std::to_wstring(item.resval.rint));
        return true;
    case RTLONG:
        replies.push_back(std::to_wstring(item.resval.rlong));
        return true;
    case RTPOINT:
    case RT3DPOINT:
        replies.push_back(zuhost::pointText(asPnt3d(item.resval.rpoint)));
        return true;
    case RTENAME:
    case RTPICKS:
        return addName(replies, item);
    default:
        return false;
    }
}

std::optional<Replies> repliesOf(const resbuf* chain) {
    Replies replies;
    for (; chain != nullptr; chain = chain->rbnext)
        if (!addReply(replies, *chain))
            return std::nullopt;
    return replies;
}

} // namespace

int acedCmdS(const resbuf* chain) {
    zuhost::InputQueue& input = zuhost::InputQueue::instance();
    auto replies = repliesOf(chain);
    if (!replies || input.depth() >= kDeepest)
        return RTERROR;
    input.pushReplies(std::move(*replies));
    bool failed = false;
    while (const auto name = input.takeNestedCommand())
        failed |= zuhost::runCommand(*name) != zuhost::CommandEnd::ended;
    const bool ranOut = input.popReplies();
    return failed || ranOut ? RTERROR : RTNORM;
}
