#pragma once

#include <QString>

#include <algorithm>

namespace zuhost {

/// A character with the case of ASCII letters dropped.
inline QChar folded(QChar character) {
    return character >= QChar(u'A') && character <= QChar(u'Z') ? character.toLower() : character;
}

/// Looks for beginnings with the case of ASCII letters ignored only.
inline bool beginsWith(const QString& text, const QString& start) {
    return text.size() >= start.size() &&
           std::equal(start.begin(), start.end(), text.begin(),
                      [](QChar left, QChar right) { return folded(left) == folded(right); });
}

inline bool equals(const QString& left, const QString& right) {
    return left.compare(right, Qt::CaseInsensitive) == 0;
}

/// Index of the first item behind `after`, going round at the end, that matches a text; -1 when there is
/// none, as for an empty text.
template <typename TextAt, typename Matches>
int findText(int count, int after, const QString& text, TextAt textAt, Matches matches) {
    const int first = after < 0 || after >= count ? 0 : after + 1;
    for (int step = 0; step < count && !text.isEmpty(); ++step)
        if (const int index = (first + step) % count; matches(textAt(index), text))
            return index;
    return -1;
}

} // namespace zuhost
