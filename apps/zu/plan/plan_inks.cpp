#include "plan/plan_inks.h"

#include <zucomn/model/elements.h>

#include <algorithm>

namespace zu::app {

namespace {

constexpr double kBackground = 0.8;
constexpr double kElement = 1.6;
constexpr double kThinElement = 1.1;
/// Width of pictures in which elements have thin lines.
constexpr int kSmall = 700;
// Shares of the ground in subdued colours.
constexpr double kFadedLine = 0.5;
constexpr double kFadedFill = 0.8;
constexpr double kFadedText = 0.2;
constexpr double kGrey = 0.8; ///< How much of its colour a subdued line loses.

QColor grey(const QColor& colour) {
    const int value = (colour.red() * 299 + colour.green() * 587 + colour.blue() * 114) / 1000;
    const auto mixed = [value](int part) { return static_cast<int>(part + (value - part) * kGrey); };
    return {mixed(colour.red()), mixed(colour.green()), mixed(colour.blue())};
}

double fading(picture::Shape::Kind kind) {
    if (kind == picture::Shape::Kind::text)
        return kFadedText;
    return kind == picture::Shape::Kind::fill ? kFadedFill : kFadedLine;
}

} // namespace

PlanInks::PlanInks(const picture::Theme& theme, const PlanElements& elements, const PlanOptions& options,
                   const AcDbDatabase& drawing)
    : theme_(theme),
      ownColours_(!options.layout.empty() || (elements.all().empty() && options.colours.empty())),
      element_(options.size.width() > 0 && options.size.width() < kSmall ? kThinElement : kElement) {
    for (const zucomn::RouteKind& kind : zucomn::routeKinds())
        kinds_[kind.number] = theme_.visible(QColor(kind.colour));
    for (const auto& [id, colour] : options.colours)
        if (id.database() == &drawing)
            given_[static_cast<std::uint64_t>(id.handle())] = colour;
}

QColor PlanInks::kind(int linkKind) const {
    const auto found = kinds_.find(linkKind);
    return found != kinds_.end() ? found->second : otherElements();
}

QColor PlanInks::equipment() const {
    return theme_.visible({0x7b, 0x1f, 0xa2});
}

QColor PlanInks::otherElements() const {
    return theme_.visible({0x5d, 0x40, 0x37});
}

QColor PlanInks::highlight() const {
    return theme_.isDark ? QColor(0xff, 0xca, 0x28, 0x90) : QColor(0xff, 0xb3, 0x00, 0x90);
}

QColor PlanInks::finding() const {
    return theme_.isDark ? QColor(0xff, 0x80, 0x7a) : QColor(0xc6, 0x28, 0x28);
}

QColor PlanInks::ofElement(const PlanElement& element) const {
    // Where a caller's colours matter, those of kinds would be mistaken for them.
    if (!given_.empty())
        return theme_.faded(theme_.ink, kFadedLine);
    if (element.linkKind != 0)
        return kind(element.linkKind);
    return element.code == zucomn::kEquipment ? equipment() : otherElements();
}

picture::Ink PlanInks::inkOf(const QColor& given) const {
    return {theme_.visible(given), element_};
}

picture::Ink PlanInks::inkOf(const picture::Shape& shape, const PlanElement* element) const {
    if (const auto given = given_.find(shape.source); given != given_.end())
        return inkOf(given->second);
    if (ownColours_)
        return {theme_.colourOf(shape.colour), kBackground};
    if (element != nullptr && given_.empty())
        return {ofElement(*element), element_};
    const QColor own = theme_.colourOf(shape.colour);
    return {theme_.faded(theme_.visible(grey(own)), fading(shape.kind)), kBackground};
}

} // namespace zu::app
