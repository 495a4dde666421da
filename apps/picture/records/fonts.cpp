#include "records/fonts.h"

#include <QFontDatabase>
#include <QHash>
#include <QStringList>

#include <array>
#include <string_view>

namespace zu::picture {

namespace {

/// Only letters and digits: "MS Gothic", "ＭＳ ゴシック" keep them, "msgothic.ttc" has no others.
QString normalised(const QString& name) {
    QString result;
    for (const QChar c : name.normalized(QString::NormalizationForm_KC))
        if (c.isLetterOrNumber())
            result += c.toLower();
    return result;
}

const QHash<QString, QString>& families() {
    static const QHash<QString, QString> known = [] {
        QHash<QString, QString> result;
        const QStringList installed = QFontDatabase::families();
        for (const QString& family : installed)
            result.insert(normalised(family), family);
        return result;
    }();
    return known;
}

using Families = std::array<std::u16string_view, 8>;

constexpr Families kColumnFamilies{u"ipagothic",  u"notosansmonocjkjp", u"msgothic",       u"ipaexgothic",
                                   u"ipapgothic", u"notosanscjkjp",     u"dejavusansmono", u"dejavusans"};
constexpr Families kFlowingFamilies{u"ipaexgothic", u"ipapgothic", u"notosanscjkjp",     u"mspgothic",
                                    u"ipagothic",   u"msgothic",   u"notosansmonocjkjp", u"dejavusans"};

QString firstInstalled(const Families& wanted) {
    for (const std::u16string_view name : wanted)
        if (const QString found = families().value(QStringView(name).toString()); !found.isEmpty())
            return found;
    return QStringLiteral("sans-serif");
}

} // namespace

QString installedFamily(const QString& font) {
    if (font.isEmpty() || font.endsWith(u".shx", Qt::CaseInsensitive))
        return {};
    QString stem = font.section(u'/', -1).section(u'\\', -1);
    const qsizetype dot = stem.lastIndexOf(u'.');
    if (dot > 0 && stem.size() - dot <= 4)
        stem.truncate(dot);
    return families().value(normalised(stem));
}

QString fallbackFamily(bool inColumns) {
    static const QString column = firstInstalled(kColumnFamilies);
    static const QString flowing = firstInstalled(kFlowingFamilies);
    return inColumns ? column : flowing;
}

} // namespace zu::picture
