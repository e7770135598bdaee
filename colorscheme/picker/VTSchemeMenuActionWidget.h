#pragma once

#include "colorscheme/vtcontrolcolorscheme_export.h"

#include <QWidget>

class QLabel;
class QPixmap;

/// One entry of the picker's drop-down: a scheme's name above its strip. The name lights up while
/// the pointer is over the entry; in a drop-down, which has one such entry, while it is that one. A
/// click is the business of the list that holds it.
class VTCONTROLCOLORSCHEME_EXPORT VTSchemeMenuActionWidget : public QWidget
{
    Q_OBJECT
    Q_DISABLE_COPY(VTSchemeMenuActionWidget)
public:
    explicit VTSchemeMenuActionWidget(QWidget *parent);
    ~VTSchemeMenuActionWidget() override;

    /// Sets what the entry shows. The name is plain text on one line, black on white; one that is
    /// too long is cut with dots and given in full by the tool-tip. A null strip leaves its place
    /// empty.
    void showScheme(const QString &name, const QPixmap &strip);
    /// Lights the name up as the pointer does, or back to white. The strip never changes.
    void setHighlighted(bool highlighted);
    bool isHighlighted() const;
    /// Marks the entry as the picked one, by a check mark behind its name.
    void setPicked(bool picked);
    bool isPicked() const;

protected:
    bool event(QEvent *event) override;
    void enterEvent(QEvent *event) override;
    void leaveEvent(QEvent *event) override;

private:
    void updateToolTip(int width);

    QLabel *nameLabel = nullptr;
    QLabel *previewLabel = nullptr;
};
