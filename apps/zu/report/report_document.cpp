#include "report/report_document.h"

#include "manners/translation.h"
#include "report/report_page.h"

#include <zuhost/desktop.h>

#include <QAbstractTextDocumentLayout>
#include <QBuffer>
#include <QImage>
#include <QPainter>
#include <QPdfWriter>
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

/// Prints one report after another, each on pages of its own.
class DocumentPainter {
public:
    explicit DocumentPainter(QPdfWriter& writer)
        : writer_(writer), painter_(&writer), page_(0, 0, writer.width(), writer.height()) {}

    void print(const Json& report) {
        if (!isFirst_)
            writer_.newPage();
        isFirst_ = false;
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
        for (const Json& finding : report["findings"])
            if (finding["place"].is_array())
                printMark(finding, area);
    }

    void printMark(const Json& finding, const QRectF& area) {
        const QString number = text(finding["number"].dump());
        const double size = dots(kTextPoints);
        const double width = std::max(size, painter_.fontMetrics().horizontalAdvance(number) + size / 2.0);
        const QPointF at(area.left() + finding["place"][0].get<double>() * area.width(),
                         area.top() + finding["place"][1].get<double>() * area.height() - size);
        const QRectF mark(at.x() - width / 2.0, at.y() - size / 2.0, width, size);
        painter_.setPen(Qt::NoPen);
        painter_.setBrush(finding["severity"].get<std::string>() == "error" ? QColor(0xb3, 0x26, 0x1e)
                                                                            : QColor(0x8a, 0x5a, 0x00));
        painter_.drawRoundedRect(mark, size / 2.0, size / 2.0);
        painter_.setPen(Qt::white);
        painter_.drawText(mark, Qt::AlignCenter, number);
    }

    /// On further pages.
    void printTables(const Json& report) {
        QTextDocument document;
        document.documentLayout()->setPaintDevice(&writer_);
        QFont font(kFont);
        font.setPointSizeF(kTextPoints);
        document.setDefaultFont(font);
        document.setDocumentMargin(0.0);
        document.setHtml(text(reportTables(report)));
        document.setPageSize(page_.size());
        for (int i = 0; i < document.pageCount(); ++i) {
            writer_.newPage();
            const QRectF shown = page_.translated(0.0, i * page_.height());
            painter_.save();
            painter_.translate(0.0, -shown.top());
            document.drawContents(&painter_, shown);
            painter_.restore();
        }
    }

    QPdfWriter& writer_;
    QPainter painter_;
    QRectF page_;
    bool isFirst_ = true;
};

/// The document is complete once its painter is gone.
void printAll(const Json& reports, QPdfWriter& writer) {
    DocumentPainter painter(writer);
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
    printAll(reports, writer);
    return bytes;
}

} // namespace zu::app
