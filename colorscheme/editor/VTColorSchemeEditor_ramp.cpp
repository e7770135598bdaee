// Making a ramp of what the widgets show, and what becomes of it.
#include "colorscheme/editor/VTColorModel.h"
#include "colorscheme/editor/VTColorSchemeEditor.h"
#include "colorscheme/editor/editorControls_p.h"
#include "colorscheme/model/colorConversion.h"
#include "colorscheme/model/filePath_p.h"
#include "colorscheme/model/lastOpenFilePath_p.h"
#include "colorscheme/model/messageBoxes_p.h"
#include "vomap/VOColorSchemeManager.h"
#include "vomap/VOPredefineColorRamp.h"
#include "vomap/VOStringConversion.h"

#include <QFileDialog>

#include <algorithm>
#include <utility>
#include <vector>

using vtcontrolcolorscheme::HsvBound;
using vtcontrolcolorscheme::hsvBounds;
using vtcontrolcolorscheme::lastOpenFilePath;
using vtcontrolcolorscheme::tellFailure;
using vtcontrolcolorscheme::toFilePath;
using VTObjects::rgb_color;
using VTObjects::toRgbColor;
using VTObjects::toVOString;
using VTObjects::VOColorRamp;
using VTObjects::VOColorScheme;
using VTObjects::VOColorSchemeManager;
using VTObjects::VOEvenColorRamp;
using VTObjects::VOPredefineColorRamp;
using VTObjects::VORandomColorRamp;
using VTObjects::VORandomColorRampForHsv;
using VTObjects::VOString;

namespace {

/// The list takes the places of the first colours; what it has beyond the level is left out.
void overwriteFirstColors(VOColorRamp &ramp, const QVector<QColor> &colors, int level)
{
    const int count = std::min(colors.size(), level);
    for (int i = 0; i < count; ++i)
        ramp.setColor(static_cast<unsigned int>(i), toRgbColor(colors.at(i)));
}

void setSourceColors(VOEvenColorRamp &ramp, const QVector<QColor> &colors)
{
    std::vector<rgb_color<float>> sources;
    sources.reserve(static_cast<std::size_t>(colors.size()));
    std::transform(colors.cbegin(), colors.cend(), std::back_inserter(sources), toRgbColor);
    ramp.setSourceColor(static_cast<long>(sources.size()), sources.data());
}

} // namespace

std::unique_ptr<VOColorRamp> VTColorSchemeEditor::updateColorRamp() const
{
    const QVector<QColor> &colors = colorModel->colors;
    const int level = ui->spinBox_level->value();
    const auto count = static_cast<unsigned int>(level);
    switch (ui->comboBox_type->currentIndex()) {
    case VOColorRamp::RandomRamp: {
        auto ramp = std::make_unique<VORandomColorRamp>();
        ramp->setSeed(ui->spinBox_seed->value());
        ramp->split(count);
        overwriteFirstColors(*ramp, colors, level);
        return ramp;
    }
    case VOColorRamp::RandomHsvRamp: {
        auto ramp = std::make_unique<VORandomColorRampForHsv>();
        ramp->setSeed(ui->spinBox_seed->value());
        for (const HsvBound &bound : hsvBounds) {
            (*ramp).*bound.field = (ui.get()->*bound.box)->value();
            ramp->paramsChanged = true;
        }
        ramp->split(count);
        overwriteFirstColors(*ramp, colors, level);
        return ramp;
    }
    case VOColorRamp::EvenRamp: {
        auto ramp = std::make_unique<VOEvenColorRamp>();
        setSourceColors(*ramp, colors);
        ramp->split(count);
        return ramp;
    }
    case VOColorRamp::PredefineRamp: {
        auto ramp = std::make_unique<VOPredefineColorRamp>();
        setSourceColors(*ramp, colors);
        ramp->split(count);
        return ramp;
    }
    default:
        return nullptr;
    }
}

void VTColorSchemeEditor::onPreview()
{
    const std::unique_ptr<VOColorRamp> ramp = updateColorRamp();
    showPreview(ramp.get());
}

void VTColorSchemeEditor::onNameChanged(const QString &text)
{
    // Deliberate: blanks at the ends count neither as a name nor as a difference, although OK
    // stores them as they were typed.
    const QString trimmed = text.trimmed();
    const VOString name = toVOString(trimmed);
    QString problem;
    if (trimmed.isEmpty()) {
        problem = tr("The name cannot be empty!");
    } else if (schemeGroup) {
        // Deliberate: a new scheme is in its group already, so its first name counts as taken.
        const bool taken = isNewScheme ? schemeGroup->contains(name)
                                       : !schemeGroup->schemeNameChangeCheck(schemeIndex, name);
        if (taken)
            problem = tr("The name already exists!");
    }
    if (problem.isEmpty())
        ui->nameWidget->hideWarning();
    else
        ui->nameWidget->showWarning(problem);
    // For those who do not see the icon.
    ui->nameWidget->lineEdit()->setAccessibleDescription(problem);
    ui->pushButton_ok->setEnabled(problem.isEmpty());
}

void VTColorSchemeEditor::onOk()
{
    VOColorScheme *const scheme = currentScheme();
    if (!scheme) { // a host's code took it away meanwhile
        reject();
        return;
    }
    std::unique_ptr<VOColorRamp> ramp = updateColorRamp();
    scheme->name = toVOString(ui->nameWidget->lineEdit()->text());
    scheme->author = toVOString(ui->lineEdit_author->text());
    scheme->describe = toVOString(ui->lineEdit_describe->text());
    delete std::exchange(scheme->colorRamp, ramp.release());
    accept();
}

void VTColorSchemeEditor::onClose()
{
    if (isNewScheme && currentScheme())
        schemeGroup->schemes.erase(schemeGroup->schemes.begin() + schemeIndex);
    reject();
}

void VTColorSchemeEditor::onLoadScheme()
{
    const QString title = tr("Open color scheme file");
    const QString file =
        QFileDialog::getOpenFileName(this, title, lastOpenFilePath(), QStringLiteral("*.vcs"),
                                     nullptr, QFileDialog::DontUseNativeDialog);
    if (file.isEmpty())
        return;
    VOColorScheme scheme;
    if (!VOColorSchemeManager::readFile(scheme, toFilePath(file))) {
        tellFailure(this, title, tr("Failed to open file!"));
        return;
    }
    viewScheme(scheme);
}
