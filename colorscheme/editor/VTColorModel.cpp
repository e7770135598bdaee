#include "colorscheme/editor/VTColorModel.h"

#include "vtgiscore/VTSymbolUtils.h"

namespace {

const QSize swatchSize(500, 23);

} // namespace

VTColorModel::VTColorModel(QObject *parent)
    : QAbstractListModel(parent)
{
}

VTColorModel::~VTColorModel() = default;

int VTColorModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : colors.size();
}

int VTColorModel::columnCount(const QModelIndex &) const
{
    return ColumnCount;
}

QVariant VTColorModel::data(const QModelIndex &index, int role) const
{
    if (index.column() == NumberColumn && role == Qt::DisplayRole)
        return index.row() + 1;
    if (index.column() == SwatchColumn && role == Qt::DecorationRole)
        return VTSymbolUtils::createColorPixmap(swatchSize, colors.value(index.row()));
    return QVariant();
}

QVariant VTColorModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation == Qt::Horizontal && section == SwatchColumn && role == Qt::DisplayRole)
        return tr("Colors");
    return QVariant();
}

void VTColorModel::appendColor(const QColor &color)
{
    colors.append(color);
    const int last = colors.size() - 1;
    beginInsertRows(QModelIndex(), last, last);
    endInsertRows();
}

void VTColorModel::removeColorAt(int row)
{
    if (row < 0 || row >= colors.size())
        return;
    beginRemoveRows(QModelIndex(), row, row);
    colors.remove(row);
    endRemoveRows();
}

void VTColorModel::setColors(const QVector<QColor> &newColors)
{
    beginResetModel();
    colors = newColors; // a list that is shared already stays shared
    endResetModel();
}
