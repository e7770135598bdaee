#pragma once

#include "colorscheme/vtcontrolcolorscheme_export.h"
#include "vomap/VOColorSchemeGroup.h"

#include <QAbstractTableModel>
#include <QStringList>

/// The table of one group: a row a scheme, with its number, its preview strip, its name, author and
/// description. It holds a copy of the group of its own, the working copy, and never touches the
/// store.
///
/// The working copy may be changed through group(); who appends or removes schemes tells the views
/// with the two functions below, which announce what has already happened.
class VTCONTROLCOLORSCHEME_EXPORT VTColorSchemeModel : public QAbstractTableModel
{
    Q_OBJECT
    Q_DISABLE_COPY(VTColorSchemeModel)
public:
    explicit VTColorSchemeModel(QObject *parent = nullptr);
    ~VTColorSchemeModel() override;

    /// Replaces the working copy.
    void setGroup(const VTObjects::VOColorSchemeGroup &group);
    VTObjects::VOColorSchemeGroup &group() { return m_group; }
    const VTObjects::VOColorSchemeGroup &group() const { return m_group; }

    /// Appends schemes and announces them one by one; the group's own ones are copied like others.
    void appendSchemes(std::vector<VTObjects::VOColorScheme> schemes);
    /// Announces a scheme that the caller has appended at `row`; nothing if there is none.
    void insertSchemeRow(int row, const QModelIndex &parent);
    /// Removes the scheme at `row` and announces it; nothing if there is none.
    void removeScheme(int row, const QModelIndex &parent);

    /// Fetches the titles anew, after the language has changed.
    void retranslate();

    int rowCount(const QModelIndex &parent = QModelIndex()) const override;
    int columnCount(const QModelIndex &parent = QModelIndex()) const override;
    /// Previews are drawn anew on each request. An index that has outlived its row throws
    /// std::out_of_range when its preview is asked for, and is empty otherwise.
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    /// Takes any text and marks the manager's data as modified; judging is left to the name editor.
    bool setData(const QModelIndex &index, const QVariant &value, int role = Qt::EditRole) override;
    QVariant headerData(int section, Qt::Orientation orientation,
                        int role = Qt::DisplayRole) const override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;

private:
    static QStringList titles();
    bool hasScheme(int row) const;

    QStringList headers;
    VTObjects::VOColorSchemeGroup m_group;
};
