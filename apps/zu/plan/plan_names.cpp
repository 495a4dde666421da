#include "plan/plan_names.h"

#include "plan/plan_texts.h"

#include <zucomn/model/elements.h>
#include <zucomn/settings.h>
#include <zuhost/texts.h>

#include <QStringList>

#include <algorithm>

namespace zu::app {

namespace {

constexpr const wchar_t* kSection = L"経路種別";
constexpr std::size_t kMostUses = 4;

QString nameInSettings(int kind) {
    CString name;
    if (ZuComn_readConfig(name, nullptr, kSection, std::to_wstring(kind).c_str()) != 0)
        return {};
    return QString::fromStdWString(std::wstring(zuhost::viewOf(name))).trimmed();
}

QString joined(const std::vector<QString>& uses) {
    QStringList shown;
    for (std::size_t i = 0; i < std::min(uses.size(), kMostUses); ++i)
        shown << uses[i];
    if (uses.size() > kMostUses)
        shown << QString(u'…');
    return shown.join(planText(PlanText::comma));
}

/// A number alone says nothing to a reader: without uses the count of elements goes with it.
QString nameOf(const zucomn::RouteKind& kind, const std::vector<QString>& uses, std::ptrdiff_t count) {
    const QString given = nameInSettings(kind.number);
    if (!given.isEmpty())
        return uses.empty() || (uses.size() == 1 && uses.front() == given) ? given
                                                                           : given + ": " + joined(uses);
    const QString number = QString::fromStdWString(kind.name);
    return uses.empty() ? planText(PlanText::kindCount).arg(number, QString::number(count))
                        : planText(PlanText::named).arg(joined(uses), number);
}

} // namespace

std::vector<KindName> kindNames(const std::vector<PlanElement>& elements) {
    const std::map<int, std::vector<QString>> uses = usesByKind(elements);
    std::vector<KindName> names;
    for (const zucomn::RouteKind& kind : zucomn::routeKinds()) {
        const auto found = uses.find(kind.number);
        if (found == uses.end())
            continue;
        const auto count = std::count_if(elements.begin(), elements.end(), [&kind](const PlanElement& e) {
            return e.linkKind == kind.number && e.isShown;
        });
        names.push_back({kind.number, nameOf(kind, found->second, count), QColor(kind.colour)});
    }
    return names;
}

} // namespace zu::app
