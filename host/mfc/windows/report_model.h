#pragma once

#include <QAbstractTableModel>
#include <QStringList>

#include <cstdint>
#include <functional>
#include <vector>

namespace zuhost {

/// A line of a list control.
struct ReportLine {
    QStringList texts;
    std::uintptr_t data = 0;
    int indent = 0;
};

/// The lines and columns of a list control.
class ReportModel : public QAbstractTableModel {
public:
    using QAbstractTableModel::QAbstractTableModel;

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

    void insertHeading(int column, const QString& heading, Qt::Alignment alignment);
    void insertLine(int row, ReportLine line);
    void removeLine(int row);
    void removeHeading(int column);
    [[nodiscard]] QString heading(int column) const {
        return headings_[static_cast<std::size_t>(column)].text;
    }
    void setHeading(int column, const QString& text, Qt::Alignment alignment);
    [[nodiscard]] Qt::Alignment alignment(int column) const {
        return headings_[static_cast<std::size_t>(column)].alignment;
    }
    /// Sorts the lines; the indexes of lines that a view holds follow them.
    void sortLines(const std::function<bool(const ReportLine&, const ReportLine&)>& isBefore);
    void clearLines();
    void setText(int row, int column, const QString& text);

    /// Sets the height of every line; 0 leaves it to the view.
    void setLineHeight(int height) { lineHeight_ = height; }

    [[nodiscard]] bool hasLine(int row) const { return row >= 0 && row < rowCount(); }
    [[nodiscard]] ReportLine& line(int row) { return lines_[static_cast<std::size_t>(row)]; }

private:
    struct Heading {
        QString text;
        Qt::Alignment alignment;
    };
    std::vector<Heading> headings_;
    std::vector<ReportLine> lines_;
    int lineHeight_ = 0;
};

} // namespace zuhost
