#include "colorscheme/manager/VTAddColorSchemeGroupDialog.h"

#include "colorscheme/model/DialogMemory_p.h"
#include "vomap/VOColorSchemeManager.h"
#include "vomap/VOStringConversion.h"

#include "ui_VTAddColorSchemeGroupDialog.h"

#include <QEvent>

using vtcontrolcolorscheme::DialogMemory;
using VTObjects::toVOString;
using VTObjects::VOColorSchemeManager;
using VTObjects::VOColorSchemeTeam;

VTAddColorSchemeGroupDialog::VTAddColorSchemeGroupDialog(const QString &name, QWidget *parent)
    : QDialog(parent)
    , m_groupName(name)
    , ui(std::make_unique<Ui::VTAddColorSchemeGroupDialog>())
{
    ui->setupUi(this);
    setWindowFlags(Qt::Dialog | Qt::WindowCloseButtonHint);
    // New groups always go into the custom team, so there is nothing to choose.
    ui->lineEdit_team_name->setText(tr("Custom"));
    ui->lineEdit_team_name->setReadOnly(true);
    ui->widget_group_name->lineEdit()->setText(m_groupName);
    ui->widget_group_name->setFocus();
    connect(ui->pushButton_cancel, &QPushButton::clicked, this,
            &VTAddColorSchemeGroupDialog::onCancel);
    connect(ui->pushButton_ok, &QPushButton::clicked, this, &VTAddColorSchemeGroupDialog::onOk);
    connect(ui->widget_group_name, &VTLineEditWidget::textEdited, this,
            &VTAddColorSchemeGroupDialog::onGroupNameChanged);
    new DialogMemory(this, QStringLiteral("addGroup"));
}

VTAddColorSchemeGroupDialog::~VTAddColorSchemeGroupDialog() = default;

void VTAddColorSchemeGroupDialog::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::LanguageChange) {
        ui->retranslateUi(this);
        ui->lineEdit_team_name->setText(tr("Custom"));
        if (ui->widget_group_name->hasWarning())
            onGroupNameChanged(ui->widget_group_name->lineEdit()->text());
    }
    QDialog::changeEvent(event);
}

void VTAddColorSchemeGroupDialog::onGroupNameChanged(const QString &text)
{
    // Deliberate: this asks the store and not the manager's unsaved copy, so a group added a
    // moment ago in the same manager does not count as taken yet.
    const VOColorSchemeTeam &custom = VOColorSchemeManager::instance()->customTeam;
    QString problem;
    if (text.isEmpty())
        problem = tr("The name cannot be empty!");
    else if (custom.contains(toVOString(text)))
        problem = tr("The name already exists!");
    if (problem.isEmpty())
        ui->widget_group_name->hideWarning();
    else
        ui->widget_group_name->showWarning(problem);
    ui->pushButton_ok->setEnabled(problem.isEmpty());
}

void VTAddColorSchemeGroupDialog::onOk()
{
    m_groupName = ui->widget_group_name->lineEdit()->text();
    accept();
}

void VTAddColorSchemeGroupDialog::onCancel()
{
    m_groupName.clear();
    reject();
}
