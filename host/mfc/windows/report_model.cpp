#include "report_model.h"

#include <QSize>

namespace zuhost {

int ReportModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(lines_.size());
}

int ReportModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(headings_.size());
}

QVariant ReportModel::data(const QModelIndex& index, int role) const {
    if (role == Qt::TextAlignmentRole)
        return static_cast<int>(headings_[static_cast<std::size_t>(index.column())].alignment);
    if (role == Qt::SizeHintRole && lineHeight_ > 0)
        return QSize(0, lineHeight_);
    if (role == Qt::DisplayRole || role == Qt::ToolTipRole)
        return lines_[static_cast<std::size_t>(index.row())].texts.value(index.column());
    return {};
}

QVariant ReportModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal)
        return {};
    const Heading& heading = headings_[static_cast<std::size_t>(section)];
    if (role == Qt::DisplayRole)
        return heading.text;
    return role == Qt::TextAlignmentRole ? QVariant(static_cast<int>(heading.alignment)) : QVariant();
}

void ReportModel::insertHeading(int column, const QString& heading, Qt::Alignment alignment) {
    beginInsertColumns({}, column, column);
    headings_.insert(headings_.begin() + column, {heading, alignment | Qt::AlignVCenter});
    for (ReportLine& each : lines_)
        if (column < each.texts.size())
            each.texts.insert(column, QString());
    endInsertColumns();
}

void ReportModel::insertLine(int row, ReportLine line) {
    beginInsertRows({}, row, row);
    lines_.insert(lines_.begin() + row, std::move(line));
    endInsertRows();
}

void ReportModel::removeLine(int row) {
    beginRemoveRows({}, row, row);
    lines_.erase(lines_.begin() + row);
    endRemoveRows();
}

void ReportModel::clearLines() {
    beginResetModel();
    lines_.clear();
    endResetModel();
}

void ReportModel::setText(int row, int column, const QString& text) {
    QStringList& texts = line(row).texts;
    while (texts.size() <= column)
        texts.append(QString());
    texts[column] = text;
    emit dataChanged(index(row, column), index(row, column));
}

} // namespace zuhost
