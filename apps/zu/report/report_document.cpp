#include "report/report_document.h"

#include "manners/translation.h"
#include "report/document_links.h"
#include "report/plan_marks.h"
#include "report/report_page.h"

#include <zuhost/desktop.h>

#include <QAbstractTextDocumentLayout>
#include <QBuffer>
#include <QImage>
#include <QPainter>
#include <QPdfWriter>
#include <QTextBlock>
#include <QTextDocument>

#include <algorithm>

namespace zu::app {

namespace {

constexpr const char* kFont = "IPAexGothic";
constexpr int kDotsPerInch = 300;
constexpr double kMargin = 15.0;   ///< Millimetres.
constexpr double kPlanShare = 0.9; ///< Of the first page's height at most.
constexpr double kLineHeight = 1.6;
constexpr double kTextPoints = 9.0;
constexpr double kTitlePoints = 15.0;

QString text(const std::string& utf8) {
    return QString::fromStdString(utf8);
}

double dots(double points) {
    return points / 72.0 * kDotsPerInch;
}

QFont fontOf(double points, bool bold = false) {
    QFont font(kFont);
    font.setPixelSize(static_cast<int>(dots(points)));
    font.setBold(bold);
    return font;
}

QImage planOf(const Json& report) {
    const auto address = QByteArray::fromStdString(report["plan"]["light"].get<std::string>());
    return QImage::fromData(QByteArray::fromBase64(address.mid(address.indexOf(',') + 1)));
}

/// The names of anchors that begin in a block.
QStringList anchorsOf(const QTextBlock& block) {
    QStringList names;
    for (auto part = block.begin(); !part.atEnd(); ++part)
        names += part.fragment().charFormat().anchorNames();
    return names;
}

/// Prints one report after another, each on pages of its own. The numbers of findings on the plan and in the
/// list lead to each other.
class DocumentPainter {
public:
    DocumentPainter(QPdfWriter& writer, DocumentLinks& links)
        : writer_(writer), links_(links), painter_(&writer), page_(0, 0, writer.width(), writer.height()) {}

    void print(const Json& report) {
        if (reports_++ > 0)
            newPage();
        double y = printLine(text(report["name"].get<std::string>()), 0.0, fontOf(kTitlePoints, true));
        if (report.contains("error")) {
            printLine(text(translated(report["error"].get<std::string>())), y, fontOf(kTextPoints));
            return;
        }
        QStringList facts;
        for (const char* key : {"drawing", "format", "program"})
            facts << text(report[key].get<std::string>());
        y = printLine(facts.join(" · "), y, fontOf(kTextPoints));
        printPlan(report, y + dots(kTextPoints));
        printTables(report);
    }

private:
    void newPage() {
        writer_.newPage();
        ++pages_;
    }

    /// A mark "m1" or a finding "f1" of this report.
    [[nodiscard]] QString placeName(const QString& name) const { return QString::number(reports_) + name; }

    void setPlace(const QString& name, int page, double y) {
        const QPageLayout layout = writer_.pageLayout();
        const double height = layout.fullRect(QPageLayout::Point).height();
        const double top = layout.margins(QPageLayout::Point).top() + y / kDotsPerInch * 72.0;
        links_.setPlace(placeName(name), page, {0.0, std::clamp(height - top, 0.0, height)});
    }

    double printLine(const QString& line, double y, const QFont& font) {
        painter_.setFont(font);
        painter_.setPen(Qt::black);
        const QRectF room(0.0, y, page_.width(), page_.height());
        const QRectF used = painter_.boundingRect(room, Qt::TextWrapAnywhere, line);
        painter_.drawText(room, Qt::TextWrapAnywhere, line);
        return y + std::max(used.height(), font.pixelSize() * kLineHeight);
    }

    void printPlan(const Json& report, double y) {
        const QImage plan = planOf(report);
        if (plan.isNull())
            return;
        const double scale =
            std::min(page_.width() / plan.width(), page_.height() * kPlanShare / plan.height());
        const QRectF area(0.0, y, plan.width() * scale, plan.height() * scale);
        painter_.drawImage(area, plan);
        painter_.setFont(fontOf(kTextPoints * 0.7));
        for (const PlanMark& mark : planMarks(report))
            printMark(mark, area);
    }

    void printMark(const PlanMark& mark, const QRectF& area) {
        QTextDocument label;
        label.documentLayout()->setPaintDevice(&writer_);
        label.setDocumentMargin(0.0);
        label.setDefaultFont(painter_.font());
        label.setDefaultStyleSheet("a,span{color:white;text-decoration:none}");
        label.setHtml(text("<span>" + mark.text([this](const Json& finding) {
            const std::string number = finding["number"].dump();
            return "<a href=\"" + DocumentLinks::address(placeName(text("f" + number))).toStdString() +
                   "\">" + number + "</a>";
        }) + "</span>"));
        const double size = dots(kTextPoints);
        const double width = std::max(size, label.idealWidth() + size / 2.0);
        const QPointF at(area.left() + mark.x * area.width(), area.top() + mark.y * area.height() - size);
        const QRectF shape(at.x() - width / 2.0, at.y() - size / 2.0, width, size);
        painter_.setPen(Qt::NoPen);
        painter_.setBrush(mark.isError() ? QColor(0xb3, 0x26, 0x1e) : QColor(0x8a, 0x5a, 0x00));
        painter_.drawRoundedRect(shape, size / 2.0, size / 2.0);
        painter_.save();
        painter_.translate(shape.center() - QPointF(label.idealWidth(), label.size().height()) / 2.0);
        label.drawContents(&painter_);
        painter_.restore();
        for (const Json* const finding : mark.findings)
            setPlace("m" + text((*finding)["number"].dump()), pages_, shape.top() - size);
    }

    /// On further pages.
    void printTables(const Json& report) {
        QTextDocument document;
        document.documentLayout()->setPaintDevice(&writer_);
        QFont font(kFont);
        font.setPointSizeF(kTextPoints);
        document.setDefaultFont(font);
        document.setDocumentMargin(0.0);
        document.setDefaultStyleSheet("a{color:black;text-decoration:none}");
        document.setHtml(text(reportTables(report, [this](const std::string& place) {
            return DocumentLinks::address(placeName(text(place))).toStdString();
        })));
        document.setPageSize(page_.size());
        setPlaces(document);
        for (int i = 0; i < document.pageCount(); ++i) {
            newPage();
            const QRectF shown = page_.translated(0.0, i * page_.height());
            painter_.save();
            painter_.translate(0.0, -shown.top());
            document.drawContents(&painter_, shown);
            painter_.restore();
        }
    }

    /// Of the findings, on the pages that follow.
    void setPlaces(const QTextDocument& document) {
        for (QTextBlock block = document.begin(); block.isValid(); block = block.next())
            for (const QString& name : anchorsOf(block)) {
                const double y = document.documentLayout()->blockBoundingRect(block).top();
                const int page = static_cast<int>(y / page_.height());
                setPlace(name, pages_ + 1 + page, y - page * page_.height());
            }
    }

    QPdfWriter& writer_;
    DocumentLinks& links_;
    QPainter painter_;
    QRectF page_;
    int pages_ = 0; ///< Finished ones.
    int reports_ = 0;
};

/// The document is complete once its painter is gone.
void printAll(const Json& reports, QPdfWriter& writer, DocumentLinks& links) {
    DocumentPainter painter(writer, links);
    for (const Json& report : reports)
        painter.print(report);
}

} // namespace

QByteArray reportDocument(const Json& reports) {
    // Pages need no screen.
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    zuhost::ensureDesktop();
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    QPdfWriter writer(&buffer);
    writer.setResolution(kDotsPerInch);
    writer.setPageSize(QPageSize(QPageSize::A4));
    writer.setPageMargins(QMarginsF(kMargin, kMargin, kMargin, kMargin), QPageLayout::Millimeter);
    writer.setTitle(text(reports[0]["name"].get<std::string>()));
    DocumentLinks links;
    printAll(reports, writer, links);
    links.resolve(bytes);
    return bytes;
}

} // namespace zu::app
