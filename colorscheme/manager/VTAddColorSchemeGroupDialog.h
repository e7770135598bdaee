#pragma once

#include "colorscheme/vtcontrolcolorscheme_export.h"

#include <QDialog>
#include <QString>

#include <memory>

namespace Ui {
class VTAddColorSchemeGroupDialog;
}

/// Asks for the name of a new group of the custom team. It adds nothing itself: who runs it reads
/// groupName() after exec() answered QDialog::Accepted.
class VTCONTROLCOLORSCHEME_EXPORT VTAddColorSchemeGroupDialog : public QDialog
{
    Q_OBJECT
    Q_DISABLE_COPY(VTAddColorSchemeGroupDialog)
public:
    /// Starts with the proposed name, which is not judged until the user changes it.
    explicit VTAddColorSchemeGroupDialog(const QString &name, QWidget *parent = nullptr);
    ~VTAddColorSchemeGroupDialog() override;

    /// The name exactly as typed, once the user pressed OK; empty after Cancel; otherwise the
    /// proposed one.
    QString groupName() const { return m_groupName; }

protected:
    void changeEvent(QEvent *event) override;

private Q_SLOTS:
    void onGroupNameChanged(const QString &text);
    void onOk();
    void onCancel();

private:
    QString m_groupName;
    std::unique_ptr<Ui::VTAddColorSchemeGroupDialog> ui;
};
