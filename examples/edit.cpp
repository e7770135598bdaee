// The editor on a copy of a built-in scheme; the host decides what becomes of the result.
#include "colorscheme/editor/VTColorSchemeEditor.h"
#include "vomap/VOColorSchemeManager.h"

#include <QApplication>

using VTObjects::VOColorSchemeGroup;
using VTObjects::VOColorSchemeManager;

int main(int argc, char *argv[])
{
    QApplication app(argc, argv);
    VOColorSchemeGroup group = VOColorSchemeManager::instance()->defaultTeam.groups.front();
    VTColorSchemeEditor editor(0, &group, false, nullptr);
    if (editor.exec() != QDialog::Accepted)
        return 1;
    VOColorSchemeManager::instance()->customTeam.groups.push_back(group);
    return VOColorSchemeManager::instance()->saveCustomTeam() ? 0 : 2;
}
