#pragma once

#include "colorscheme/vtcontrolcolorscheme_export.h"

#include <QToolButton>

/// What the picker is built on: a button that stands for a scheme, and tells when it stands for
/// another one. The picker's own signal tells of the user's choices only.
class VTCONTROLCOLORSCHEME_EXPORT VTColorSchemeButton : public QToolButton
{
    Q_OBJECT
    Q_DISABLE_COPY(VTColorSchemeButton)
public:
    explicit VTColorSchemeButton(QWidget *parent);
    ~VTColorSchemeButton() override;

Q_SIGNALS:
    /// The current scheme, its id or the listed group is another one, or has another name or other
    /// colors: by whomever. For the user's choice it comes before currentRampChanged().
    void currentSchemeChanged();
};
