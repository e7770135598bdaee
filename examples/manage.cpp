// The manager on the user's own store: whatever it saves is there at the next start.
#include "colorscheme/manager/VTColorSchemeManager.h"

#include <QApplication>

int main(int argc, char *argv[])
{
    QApplication app(argc, argv);
    VTColorSchemeManager manager(nullptr);
    return manager.exec() == QDialog::Accepted ? 0 : 1;
}
