#include "colorscheme/manager/VTLineEditWidget.h"

#include "ui_VTLineEditWidget.h"

#include <QCoreApplication>
#include <QEvent>
#include <QFile>
#include <QMovie>

static bool &embeddedWarning()
{
    static bool on = false;
    return on;
}

void VTLineEditWidget::setEmbeddedWarning(bool on)
{
    embeddedWarning() = on;
}

VTLineEditWidget::VTLineEditWidget(QWidget *parent)
    : QWidget(parent)
    , ui(std::make_unique<Ui::VTLineEditWidget>())
{
    Q_INIT_RESOURCE(VTControlColorScheme);
    ui->setupUi(this);
    ui->label->setAttribute(Qt::WA_TranslucentBackground);
    // Beside the application: the host may ship an animation of its own.
    const QString path =
        QCoreApplication::applicationDirPath() + QStringLiteral("/resources/warning.gif");
    movie = new QMovie(path, QByteArray(), ui->label);
    ui->label->setMovie(movie);
    hideWarning();
    connect(ui->lineEdit, &QLineEdit::textEdited, this, &VTLineEditWidget::textEdited);
    connect(ui->lineEdit, &QLineEdit::editingFinished, this, &VTLineEditWidget::editingFinished);
    // As an editor in a table this widget is given the keyboard; the field is where it belongs.
    setFocusProxy(ui->lineEdit);
}

VTLineEditWidget::~VTLineEditWidget()
{
    // The field can lose the keyboard while it is taken down, when nobody is left to relay that.
    ui->lineEdit->disconnect(this);
    movie->stop();
}

QLineEdit *VTLineEditWidget::lineEdit() const
{
    return ui->lineEdit;
}

void VTLineEditWidget::setData(const QVariant &data)
{
    m_data = data;
}

void VTLineEditWidget::showWarning(const QString &message)
{
    if (embeddedWarning() && !QFile::exists(movie->fileName()))
        movie->setFileName(QStringLiteral(":/VTControlColorScheme/warning.gif"));
    movie->start();
    ui->label->setToolTip(message);
    ui->label->show();
}

bool VTLineEditWidget::hasWarning() const
{
    return !ui->label->isHidden();
}

void VTLineEditWidget::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::LanguageChange) {
        ui->retranslateUi(this);
        ui->label->setMovie(movie); // a text, be it none, takes its place
    }
    QWidget::changeEvent(event);
}

void VTLineEditWidget::hideWarning()
{
    movie->stop();
    ui->label->hide();
}
