#include "report_model.h"

#include <algorithm>
#include <numeric>

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

void ReportModel::removeHeading(int column) {
    beginRemoveColumns({}, column, column);
    headings_.erase(headings_.begin() + column);
    for (ReportLine& line : lines_)
        if (column < line.texts.size())
            line.texts.removeAt(column);
    endRemoveColumns();
}

void ReportModel::setHeading(int column, const QString& text, Qt::Alignment alignment) {
    headings_[static_cast<std::size_t>(column)] = {text, alignment};
    emit headerDataChanged(Qt::Horizontal, column, column);
}

void ReportModel::sortLines(const std::function<bool(const ReportLine&, const ReportLine&)>& isBefore) {
    emit layoutAboutToBeChanged();
    std::vector<std::size_t> order(lines_.size());
    std::iota(order.begin(), order.end(), std::size_t{0});
    std::stable_sort(order.begin(), order.end(), [&](std::size_t left, std::size_t right) {
        return isBefore(lines_[left], lines_[right]);
    });
    std::vector<ReportLine> sorted;
    std::vector<int> newRows(order.size());
    sorted.reserve(order.size());
    for (const std::size_t row : order) {
        newRows[row] = static_cast<int>(sorted.size());
        sorted.push_back(std::move(lines_[row]));
    }
    lines_ = std::move(sorted);
    for (const QModelIndex& held : persistentIndexList())
        changePersistentIndex(held, index(newRows[static_cast<std::size_t>(held.row())], held.column()));
    emit layoutChanged();
}

} // namespace zuhost
