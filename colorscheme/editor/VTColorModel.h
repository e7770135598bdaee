#pragma once

#include "colorscheme/vtcontrolcolorscheme_export.h"

#include <QAbstractListModel>
#include <QColor>
#include <QVector>

/// The colour list of the scheme editor: one colour a row, in ramp order. Column 0 is the number
/// of the row, counted from 1, column 1 a swatch of 500 x 23 pixels.
///
/// Items can be selected and are never edited in place.
class VTCONTROLCOLORSCHEME_EXPORT VTColorModel : public QAbstractListModel
{
    Q_OBJECT
    Q_DISABLE_COPY(VTColorModel)
public:
    enum Column { NumberColumn, SwatchColumn, ColumnCount };

    explicit VTColorModel(QObject *parent = nullptr);
    ~VTColorModel() override;

    /// The rows. Single elements may be written in place; whoever does so emits dataChanged()
    /// afterwards. The functions below change the number of rows.
    QVector<QColor> colors;

    int rowCount(const QModelIndex &parent = QModelIndex()) const override;
    /// Always 2.
    int columnCount(const QModelIndex &parent = QModelIndex()) const override;
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    /// "Colors" above the swatches, nothing above the numbers.
    QVariant headerData(int section, Qt::Orientation orientation,
                        int role = Qt::DisplayRole) const override;

    /// Adds a last row. Deliberate: the colour is in the list before the new row is announced.
    void appendColor(const QColor &color);
    /// Does nothing for a row that does not exist.
    void removeColorAt(int row);
    /// Replaces all rows; views are reset.
    void setColors(const QVector<QColor> &newColors);
};
