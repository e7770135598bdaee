// A picker in a form; it tells what the user picks.
#include "colorscheme/picker/VTColorSchemeComboBox.h"
#include "vomap/VOColorRamp.h"

#include <QApplication>
#include <QFormLayout>
#include <QLabel>

int main(int argc, char *argv[])
{
    QApplication app(argc, argv);
    QWidget window;
    auto *picker = new VTColorSchemeComboBox(&window);
    picker->setDefaultGroup("Default", "DEM", 0);
    auto *told = new QLabel("Pick a scheme", &window);
    QObject::connect(picker, &VTColorSchemeComboBox::currentRampChanged, told, [=] {
        told->setText(QString("%1 colors").arg(picker->currentColorRamp()->getLevel()));
    });

    auto *form = new QFormLayout(&window);
    form->addRow("Relief:", picker);
    form->addRow(told);
    window.show();
    return QApplication::exec();
}
