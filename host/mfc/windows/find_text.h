#pragma once

#include <QString>

#include <algorithm>

namespace zuhost {

/// Returns the character, ASCII letters in lower case.
inline QChar folded(QChar character) {
    return character >= QChar(u'A') && character <= QChar(u'Z') ? character.toLower() : character;
}

/// Returns true when the text begins with `start`; ignores the case of ASCII letters only.
inline bool beginsWith(const QString& text, const QString& start) {
    return text.size() >= start.size() &&
           std::equal(start.begin(), start.end(), text.begin(),
                      [](QChar left, QChar right) { return folded(left) == folded(right); });
}

inline bool equals(const QString& left, const QString& right) {
    return left.compare(right, Qt::CaseInsensitive) == 0;
}

/// Returns where a text belongs in a sorted list: after those that are not greater, ignoring case.
template <typename TextAt>
int sortedPlace(int count, const QString& text, TextAt textAt) {
    int first = 0;
    while (count > 0) {
        const int half = count / 2;
        const bool isAfter = textAt(first + half).compare(text, Qt::CaseInsensitive) <= 0;
        first += isAfter ? half + 1 : 0;
        count = isAfter ? count - half - 1 : half;
    }
    return first;
}

/// Returns the index of the first item after `after`, wrapping at the end, that matches the text; -1 when
/// there is none. An empty text matches no item.
template <typename TextAt, typename Matches>
int findText(int count, int after, const QString& text, TextAt textAt, Matches matches) {
    const int first = after < 0 || after >= count ? 0 : after + 1;
    for (int step = 0; step < count && !text.isEmpty(); ++step)
        if (const int index = (first + step) % count; matches(textAt(index), text))
            return index;
    return -1;
}

} // namespace zuhost
