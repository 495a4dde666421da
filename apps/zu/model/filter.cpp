#include "model/filter.h"

#include "command_line.h"
#include "failure.h"
#include "report/output.h"
#include "text.h"

#include <algorithm>
#include <charconv>
#include <zuhost/texts.h>

namespace zu::app {

namespace {

constexpr int kNoLinkRecord = -1;
constexpr int kLastLinkKind = 6;

std::wstring wideText(const std::string& text) {
    return std::wstring(zuhost::viewOf(wide(text)));
}

int linkKind(const std::string& text) {
    int kind = 0;
    const char* const last = text.data() + text.size();
    const auto [end, error] = std::from_chars(text.data(), last, kind);
    if (error != std::errc() || end != last || kind < kNoLinkRecord || kind > kLastLinkKind)
        throw WrongUsage("--kind takes link kinds from -1 (no link record) to 6, not \"" + text + '"');
    return kind;
}

/// The condition with a mark below the place.
std::string pointedAt(const std::wstring& text, std::size_t place) {
    std::string shown = narrow(text);
    std::replace_if(
        shown.begin(), shown.end(), [](char c) { return c == '\n' || c == '\t' || c == '\r'; }, ' ');
    const std::size_t places = displayWidth(narrow(text.substr(0, place)));
    return "\n  " + shown + "\n  " + std::string(places, ' ') + '^';
}

zucomn::Condition condition(const std::string& where) {
    const std::wstring text = wideText(where);
    const zucomn::ParsedCondition parsed = zucomn::parseCondition(text);
    if (parsed.error)
        throw WrongUsage("--where, character " + std::to_string(parsed.error->place + 1) + ": " +
                         narrow(parsed.error->problem) + pointedAt(text, parsed.error->place));
    return parsed.condition;
}

} // namespace

bool FilterOptions::isGiven() const {
    return !layers.empty() || !blocks.empty() || !kinds.empty() || !group.empty() || !where.empty();
}

void addFilter(Command& command, FilterOptions& options) {
    addNarrowFilter(command, options);
    command
        .add_option("--kind", options.kinds,
                    "Only elements of these link kinds, separated by commas; -1 stands for no link record")
        ->delimited(',');
    command.add_option("--group", options.group, "Only members of this group, by name or handle");
}

void addNarrowFilter(Command& command, FilterOptions& options) {
    command.add_option("--layer", options.layers,
                       "Only elements on these layers, separated by commas; * and ? are wildcards");
    command.add_option("--block", options.blocks, "Only elements of these blocks, likewise");
    command.add_option("--where", options.where,
                       "Only elements whose attributes fulfil a condition, such as "
                       "'S501=給気 and not (S302<300 or S302>=600)'");
}

Filter::Filter(const FilterOptions& options) : group_(options.group) {
    filter_.layers = wideText(options.layers);
    filter_.blocks = wideText(options.blocks);
    for (const std::string& kind : options.kinds)
        filter_.linkKinds.push_back(linkKind(kind));
    filter_.where = condition(options.where);
}

zucomn::ElementFilter Filter::in(const DrawingFile& drawing) const {
    zucomn::ElementFilter filter = filter_;
    if (!group_.empty())
        filter.group = drawing.findGroup(group_);
    return filter;
}

std::vector<AcDbObjectId> Filter::pass(const DrawingFile& drawing,
                                       std::span<const AcDbObjectId> elements) const {
    return zucomn::filterElements(elements, in(drawing));
}

std::vector<AcDbObjectId> Filter::references(const DrawingFile& drawing) const {
    return pass(drawing, drawing.references());
}

} // namespace zu::app
