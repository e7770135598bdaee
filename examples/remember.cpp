// A picker whose choice is there again at the next start, under whatever name it has by then.
#include "colorscheme/picker/VTColorSchemeComboBox.h"
#include "vtgiscore/VTApplication.h"

#include <QApplication>
#include <QFormLayout>
#include <QSettings>

using VTObjects::VOColorSchemeId;

int main(int argc, char *argv[])
{
    QApplication app(argc, argv);
    QSettings settings(VTApplication::vtgisSettingsFilePath(), QSettings::IniFormat);
    QWidget window;
    auto *picker = new VTColorSchemeComboBox(&window);
    const QString kept = settings.value("relief/scheme").toString();
    if (!picker->setCurrentScheme(VOColorSchemeId::fromText(kept)))
        picker->setDefaultGroup("Default", "DEM", 0);
    QObject::connect(picker, &VTColorSchemeComboBox::currentSchemeChanged, &window, [&] {
        settings.setValue("relief/scheme", picker->currentSchemeId().toText());
    });

    auto *form = new QFormLayout(&window);
    form->addRow("Relief:", picker);
    window.show();
    return QApplication::exec();
}
