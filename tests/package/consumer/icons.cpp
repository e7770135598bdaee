#include <QFile>

#include <cstdio>

/// The embedded files are there in a program that links the library and calls nothing of it.
int main()
{
    for (const char *name : {":/icon/AddGroup.png", ":/icon/Favorite@2x.png"}) {
        QFile icon(QString::fromLatin1(name));
        if (!icon.open(QIODevice::ReadOnly) || icon.size() == 0) {
            std::fprintf(stderr, "%s is missing\n", name);
            return 1;
        }
    }
    return 0;
}
