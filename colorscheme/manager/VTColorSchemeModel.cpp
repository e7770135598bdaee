#include "colorscheme/manager/VTColorSchemeModel.h"

#include "colorscheme/manager/WorkingCopies_p.h"
#include "colorscheme/manager/tableColumns_p.h"
#include "colorscheme/model/colorRampPreviewPixmap.h"
#include "vomap/VOStringConversion.h"

#include <QIcon>

#include <stdexcept>
#include <utility>

using vtcontrolcolorscheme::AuthorColumn;
using vtcontrolcolorscheme::DescribeColumn;
using vtcontrolcolorscheme::NameColumn;
using vtcontrolcolorscheme::NumberColumn;
using vtcontrolcolorscheme::RampColumn;
using vtcontrolcolorscheme::tablePreviewSize;
using vtcontrolcolorscheme::WorkingCopies;
using VTObjects::toQString;
using VTObjects::toVOString;
using VTObjects::VOColorScheme;
using VTObjects::VOColorSchemeGroup;
using VTObjects::VOString;

namespace {

using Field = VOString VOColorScheme::*;

/// The field that a column shows and edits; null for the columns that have none.
Field fieldOf(int column)
{
    switch (column) {
    case NameColumn:
        return &VOColorScheme::name;
    case AuthorColumn:
        return &VOColorScheme::author;
    case DescribeColumn:
        return &VOColorScheme::describe;
    default:
        return nullptr;
    }
}

QIcon previewIcon(const VOColorScheme &scheme)
{
    const QPixmap preview = colorRampPreviewPixmap(scheme.colorRamp, tablePreviewSize);
    QIcon icon(preview);
    // The colours stay true in a selected row, which the style would tint.
    if (!preview.isNull())
        icon.addPixmap(preview, QIcon::Selected);
    return icon;
}

} // namespace

VTColorSchemeModel::VTColorSchemeModel(QObject *parent)
    : QAbstractTableModel(parent)
    , headers(titles())
{
}

VTColorSchemeModel::~VTColorSchemeModel() = default;

QStringList VTColorSchemeModel::titles()
{
    return {QString(), tr("ColorRamp"), tr("Name"), tr("Author"), tr("Describe")};
}

void VTColorSchemeModel::retranslate()
{
    headers = titles();
    Q_EMIT headerDataChanged(Qt::Horizontal, 0, headers.size() - 1);
}

void VTColorSchemeModel::setGroup(const VOColorSchemeGroup &group)
{
    beginResetModel();
    m_group = group;
    endResetModel();
}

void VTColorSchemeModel::appendSchemes(std::vector<VOColorScheme> schemes)
{
    for (VOColorScheme &scheme : schemes) {
        m_group.schemes.push_back(std::move(scheme));
        insertSchemeRow(static_cast<int>(m_group.schemes.size()) - 1, QModelIndex());
    }
}

void VTColorSchemeModel::insertSchemeRow(int row, const QModelIndex &parent)
{
    if (!hasScheme(row))
        return;
    beginInsertRows(parent, row, row);
    endInsertRows();
}

void VTColorSchemeModel::removeScheme(int row, const QModelIndex &parent)
{
    if (!hasScheme(row))
        return;
    // Deliberate: the scheme goes before the notice, so whoever hears it sees the new list.
    m_group.schemes.erase(m_group.schemes.begin() + row);
    beginRemoveRows(parent, row, row);
    endRemoveRows();
}

int VTColorSchemeModel::rowCount(const QModelIndex & /*parent*/) const
{
    return static_cast<int>(m_group.schemes.size());
}

int VTColorSchemeModel::columnCount(const QModelIndex & /*parent*/) const
{
    return headers.size();
}

QVariant VTColorSchemeModel::data(const QModelIndex &index, int role) const
{
    const int row = index.row();
    const int column = index.column();
    if (role == Qt::DecorationRole && column == RampColumn) {
        if (!hasScheme(row))
            throw std::out_of_range("invalid vector<T> subscript");
        return previewIcon(m_group.schemes[static_cast<std::size_t>(row)]);
    }
    if (role == Qt::DisplayRole && column == NumberColumn)
        return row + 1;
    const Field field = fieldOf(column);
    if (!field || !hasScheme(row) || (role != Qt::DisplayRole && role != Qt::EditRole))
        return QVariant();
    return toQString(m_group.schemes[static_cast<std::size_t>(row)].*field);
}

bool VTColorSchemeModel::setData(const QModelIndex &index, const QVariant &value, int role)
{
    if (role != Qt::EditRole)
        return QAbstractTableModel::setData(index, value, role);
    const Field field = fieldOf(index.column());
    if (field && hasScheme(index.row()))
        m_group.schemes[static_cast<std::size_t>(index.row())].*field =
            toVOString(value.toString());
    // Deliberate: true for every edit, with no dataChanged().
    WorkingCopies::markModified();
    return true;
}

QVariant VTColorSchemeModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (role != Qt::DisplayRole)
        return QVariant();
    if (orientation == Qt::Vertical)
        return section + 1;
    return section >= 0 && section < headers.size() ? headers[section] : QVariant();
}

Qt::ItemFlags VTColorSchemeModel::flags(const QModelIndex &index) const
{
    if (!index.isValid())
        return Qt::NoItemFlags;
    const Qt::ItemFlags flags = Qt::ItemIsSelectable | Qt::ItemIsEnabled;
    return fieldOf(index.column()) ? flags | Qt::ItemIsEditable : flags;
}

bool VTColorSchemeModel::hasScheme(int row) const
{
    return row >= 0 && static_cast<std::size_t>(row) < m_group.schemes.size();
}
