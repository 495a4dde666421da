#pragma once

#include <QByteArray>
#include <QPointF>
#include <QString>

#include <map>

namespace zu::app {

/// Links within a PDF document. The framework writes links to addresses outside only: texts get an address
/// that stands for a place of the document, and in the finished document the link to it becomes one to the
/// place.
class DocumentLinks {
public:
    /// Returns the address of a place, for a text that is printed before or after the place is known.
    [[nodiscard]] static QString address(const QString& place);

    /// Sets where a place is: the index of its page, and the point in points from the page's lower left
    /// corner.
    void setPlace(const QString& place, int page, const QPointF& point);

    /// Replaces the addresses in a document. Links to unknown places keep theirs.
    void resolve(QByteArray& pdf) const;

private:
    struct Place {
        int page;
        QPointF point;
    };
    std::map<QByteArray, Place> places_; ///< By address.
};

} // namespace zu::app
