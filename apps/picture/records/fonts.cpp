#include "records/fonts.h"

#include <QFontDatabase>
#include <QHash>
#include <QStringList>

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

QString fallbackFamily() {
    static const QString family = [] {
        for (const char16_t* name : {u"ipagothic", u"notosansmonocjkjp", u"ipaexgothic", u"msgothic",
                                     u"notosanscjkjp", u"dejavusansmono", u"dejavusans"})
            if (const QString found = families().value(QString::fromUtf16(name)); !found.isEmpty())
                return found;
        return QStringLiteral("sans-serif");
    }();
    return family;
}

} // namespace zu::picture
