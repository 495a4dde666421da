#include "report/document_links.h"

#include <QList>

namespace zu::app {

namespace {

constexpr const char* kBeforeAddress = "/S /URI\n/URI (";
/// Replacing must not move what follows, which the document refers to by its position: an address has room
/// for a link to a place.
constexpr qsizetype kAddressLength = 56;

/// The objects of the pages, in order: "/Kids [6 0 R 13 0 R]".
QList<QByteArray> pagesOf(const QByteArray& pdf) {
    QList<QByteArray> pages;
    const qsizetype tree = pdf.lastIndexOf("/Type /Pages");
    const qsizetype begin = pdf.indexOf('[', tree);
    const qsizetype end = pdf.indexOf(']', begin);
    if (tree < 0 || begin < 0 || end < 0)
        return pages;
    const QList<QByteArray> words = pdf.mid(begin + 1, end - begin - 1).simplified().split(' ');
    for (qsizetype i = 0; i + 2 < words.size(); i += 3)
        pages.push_back(words[i] + " 0 R");
    return pages;
}

} // namespace

QString DocumentLinks::address(const QString& place) {
    return ("zu:" + place).leftJustified(kAddressLength, '-');
}

void DocumentLinks::setPlace(const QString& place, int page, const QPointF& point) {
    places_.insert_or_assign(address(place).toLatin1(), Place{page, point});
}

void DocumentLinks::resolve(QByteArray& pdf) const {
    const QList<QByteArray> pages = pagesOf(pdf);
    const QByteArray before(kBeforeAddress);
    for (qsizetype at = pdf.indexOf(before); at >= 0; at = pdf.indexOf(before, at + 1)) {
        const auto found = places_.find(pdf.mid(at + before.size(), kAddressLength));
        if (found == places_.end() || found->second.page >= pages.size())
            continue;
        const auto& [page, point] = found->second;
        const QByteArray link = "/S /GoTo\n/D [" + pages[page] + " /XYZ " +
                                QByteArray::number(point.x(), 'f', 1) + ' ' +
                                QByteArray::number(point.y(), 'f', 1) + " null]";
        const qsizetype room = before.size() + kAddressLength + 1; // with the parenthesis after the address
        if (link.size() <= room)
            pdf.replace(at, room, link.leftJustified(room, ' '));
    }
}

} // namespace zu::app
