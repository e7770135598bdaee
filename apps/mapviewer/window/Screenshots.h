#pragma once

#include <QFont>
#include <QString>
#include <QVector>

namespace mapviewer {

class MapWindow;

/// How the windows look on one series of pictures.
struct ScreenshotLook
{
    enum Kind {
        Light,
        Dark,
        HostStyle, ///< a host's style sheet that makes every widget dark
        LargeText, ///< half as large again
        RightToLeft
    };

    QString folder; ///< below that of all pictures; empty for that itself
    Kind kind = Light;

    /// Sets what a look needs before its windows are made, and takes it back at its end.
    class Applied
    {
    public:
        explicit Applied(Kind kind);
        ~Applied();
        Applied(const Applied &) = delete;
        Applied &operator=(const Applied &) = delete;

    private:
        QFont font;
    };
};

/// All there are, the program as it comes first.
QVector<ScreenshotLook> screenshotLooks();

/// Writes a PNG of the map window, and of each window of the scheme library over it, into the
/// look's folder, and prints the paths. `window` was made while the look was applied. False, after
/// a message on the standard error output, when a file cannot be written.
bool writeScreenshots(MapWindow *window, const ScreenshotLook &look, const QString &folder);

} // namespace mapviewer
