// Tells what was damaged and what could not be saved, and brings back what was there before.
#include "vomap/VOColorSchemeManager.h"
#include "vomap/VOColorSchemeNotifier.h"
#include "vomap/VOStoreHistory.h"

#include <QApplication>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

using namespace VTObjects;
int main(int argc, char *argv[])
{
    QApplication app(argc, argv);
    QWidget window;
    auto *told = new QListWidget;
    auto *store = VOColorSchemeManager::instance();
    for (const VOStoreProblem &problem : store->problems())
        told->addItem(problem.text + ' ' + problem.path);
    QObject::connect(VOColorSchemeNotifier::instance(), &VOColorSchemeNotifier::saveFailed, told,
                     [=](const QString &folder, const QString &reason) {
                         told->addItem("Not saved in " + folder + ": " + reason);
                     });
    auto *save = new QPushButton("Save again");
    QObject::connect(save, &QPushButton::clicked, told, [=] { store->save(); });
    auto *back = new QPushButton("Bring back");
    QObject::connect(back, &QPushButton::clicked, told, [=] {
        VOStoreHistory history(*store);
        const auto states = history.states(CustomTeam);
        if (!states.empty() && history.restoreTeam(states.front()) && store->save())
            told->addItem("Brought back from " + states.front().saved.toString());
    });
    auto *column = new QVBoxLayout(&window);
    column->addWidget(told);
    column->addWidget(save);
    column->addWidget(back);
    window.show();
    return QApplication::exec();
}
