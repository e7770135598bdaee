// Two windows, one store: what is managed in one, or saved by another program, both show.
#include "colorscheme/manager/VTColorSchemeManager.h"
#include "colorscheme/picker/VTColorSchemeComboBox.h"
#include "vomap/VOColorSchemeManager.h"

#include <QApplication>
#include <QFormLayout>
#include <QPushButton>

struct Window : QWidget
{
    Window()
    {
        auto *picker = new VTColorSchemeComboBox(this);
        picker->setFollowsStore(true);
        picker->setDefaultGroup("Default", "DEM", 0);
        auto *manage = new QPushButton("Manage...", this);
        connect(manage, &QPushButton::clicked, this, [this, picker] {
            VTColorSchemeManager manager(this);
            manager.showScheme(picker->currentSchemeId());
            manager.exec();
        });
        auto *form = new QFormLayout(this);
        form->addRow("Relief:", picker);
        form->addRow(manage);
        show();
    }
};

int main(int argc, char *argv[])
{
    QApplication app(argc, argv);
    Window one, two;
    QObject::connect(&app, &QApplication::applicationStateChanged,
                     [] { VTObjects::VOColorSchemeManager::instance()->reloadIfChanged(); });
    return QApplication::exec();
}
