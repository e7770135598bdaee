#pragma once

#include "colorscheme/vtcontrolcolorscheme_export.h"

#include <QVariant>
#include <QWidget>

#include <memory>

class QLineEdit;
class QMovie;

namespace Ui {
class VTLineEditWidget;
}

/// A one-line text field with a 20 x 20 px warning icon at its right. It judges nothing itself:
/// its owner listens to textEdited() and answers with showWarning() or hideWarning().
///
/// The icon is the file "/resources/warning.gif" below the application's folder. If that is missing
/// or no animation, the icon stays blank and all else works. The keyboard goes to the inner field.
class VTCONTROLCOLORSCHEME_EXPORT VTLineEditWidget : public QWidget
{
    Q_OBJECT
    Q_DISABLE_COPY(VTLineEditWidget)
public:
    explicit VTLineEditWidget(QWidget *parent = nullptr);
    ~VTLineEditWidget() override;

    /// For a host that does not ship the file: whether an embedded copy stands in where there is
    /// none. Off at first. A file that is there always wins.
    static void setEmbeddedWarning(bool on);

    /// The inner field: never null, owned by this widget.
    QLineEdit *lineEdit() const;

    /// Whatever the owner left here; invalid at first. The scheme table keeps the row, from 0.
    QVariant data() const { return m_data; }
    void setData(const QVariant &data);

    /// Shows the icon, with the reason as its tool-tip.
    void showWarning(const QString &message);
    void hideWarning();
    /// Whether the icon is shown.
    bool hasWarning() const;

Q_SIGNALS:
    /// The user changed the text. Setting it from code does not emit this.
    void textEdited(const QString &text);
    /// Return was pressed in the field, or the field lost the keyboard.
    void editingFinished();

protected:
    void changeEvent(QEvent *event) override;

private:
    std::unique_ptr<Ui::VTLineEditWidget> ui;
    QMovie *movie = nullptr; // owned by the label that plays it
    QVariant m_data;
};
