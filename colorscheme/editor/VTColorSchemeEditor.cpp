#include "colorscheme/editor/VTColorSchemeEditor.h"

#include "colorscheme/accessibility/describeCells_p.h"
#include "colorscheme/accessibility/describeColorRamp_p.h"
#include "colorscheme/editor/ColorRowDelegate_p.h"
#include "colorscheme/editor/LongTextField_p.h"
#include "colorscheme/editor/VTColorModel.h"
#include "colorscheme/editor/editorControls_p.h"
#include "colorscheme/model/DialogMemory_p.h"
#include "colorscheme/model/colorRampPreviewPixmap.h"
#include "colorscheme/model/defaultColorRamp_p.h"
#include "colorscheme/model/filePath_p.h"
#include "colorscheme/model/lastOpenFilePath_p.h"
#include "colorscheme/model/messageBoxes_p.h"
#include "vomap/VOColorSchemeManager.h"
#include "vomap/VOStringConversion.h"

#include <QFileDialog>
#include <QShortcut>
#include <QSignalBlocker>
#include <QToolButton>

#include <utility>

using vtcontrolcolorscheme::CellText;
using vtcontrolcolorscheme::ColorRowDelegate;
using vtcontrolcolorscheme::defaultColorRamp;
using vtcontrolcolorscheme::describeCells;
using vtcontrolcolorscheme::describeColor;
using vtcontrolcolorscheme::describeColorRamp;
using vtcontrolcolorscheme::DialogMemory;
using vtcontrolcolorscheme::fileProblem;
using vtcontrolcolorscheme::HsvBound;
using vtcontrolcolorscheme::hsvBounds;
using vtcontrolcolorscheme::lastOpenFilePath;
using vtcontrolcolorscheme::listedColors;
using vtcontrolcolorscheme::LongTextField;
using vtcontrolcolorscheme::rampOf;
using vtcontrolcolorscheme::tellFailure;
using vtcontrolcolorscheme::toFilePath;
using VTObjects::toQString;
using VTObjects::toVOString;
using VTObjects::VOColorRamp;
using VTObjects::VOColorScheme;
using VTObjects::VOColorSchemeGroup;
using VTObjects::VOColorSchemeManager;
using VTObjects::VORandomColorRamp;
using VTObjects::VORandomColorRampForHsv;
using VTObjects::VOString;

namespace {

constexpr int dialogWidth = 555;
constexpr int plainHeight = 450;
constexpr int hsvHeight = 515;
constexpr int numberColumnWidth = 25;
const QSize previewSize(515, 30);
const QSize swatchSize(500, 23);

constexpr int initialRandomSeed = 2;
constexpr int initialHsvSeed = 1;

/// The ramp as the class of the kind; null for a ramp of another kind.
template <typename Ramp>
Ramp *rampOfKind(VOColorRamp *ramp, VOColorRamp::ColorRampType kind)
{
    return ramp && ramp->category() == kind ? dynamic_cast<Ramp *>(ramp) : nullptr;
}

} // namespace

VTColorSchemeEditor::VTColorSchemeEditor(int index, VOColorSchemeGroup *group, bool isNew,
                                         QWidget *parent)
    : QDialog(parent)
    , ui(std::make_unique<Ui::VTColorSchemeEditorBase>())
    , isNewScheme(isNew)
    , schemeIndex(index)
    , schemeGroup(group)
{
    // A linker that was not told to take the icons out of a static archive does so for this.
    Q_INIT_RESOURCE(VTControlColorScheme);
    ui->setupUi(this);
    initUi();
    setupConnections();
}

VTColorSchemeEditor::~VTColorSchemeEditor()
{
    // Before the view, which would otherwise go first and with it the selection.
    delete colorModel;
    colorModel = nullptr;
}

void VTColorSchemeEditor::initUi()
{
    setWindowFlags(Qt::Dialog | Qt::WindowCloseButtonHint);
    setFixedWidth(dialogWidth);

    colorModel = new VTColorModel(this);
    ui->colorView->setModel(colorModel);
    ui->colorView->setItemDelegate(new ColorRowDelegate(ui->colorView));
    QHeaderView *const header = ui->colorView->horizontalHeader();
    header->setStretchLastSection(true);
    header->setMinimumSectionSize(numberColumnWidth); // styles ask for more than a number needs
    header->resizeSection(0, numberColumnWidth);
    header->setSectionResizeMode(0, QHeaderView::Fixed);
    ui->colorView->setIconSize(swatchSize);
    ui->colorView->setTabKeyNavigation(false); // Tab leaves it
    ui->colorView->installEventFilter(this);
    // By Tab and not by a click; and last, so that the name is where one begins.
    QWidget *last = ui->pushButton_cancel;
    const QList<QAction *> commands = ui->toolbar->actions();
    for (QAction *command : commands) {
        if (auto *button = qobject_cast<QToolButton *>(ui->toolbar->widgetForAction(command))) {
            button->setFocusPolicy(Qt::TabFocus);
            setTabOrder(last, button);
            last = button;
        }
    }
    describeParts();

    for (int kind = VOColorRamp::RandomRamp; kind <= VOColorRamp::PredefineRamp; ++kind)
        ui->comboBox_type->insertItem(kind, QString());
    setTexts();

    author = new LongTextField(ui->lineEdit_author);
    describe = new LongTextField(ui->lineEdit_describe);

    const VOColorScheme empty;
    const VOColorScheme *const stored = currentScheme();
    const VOColorScheme &scheme = stored ? *stored : empty;
    typeChangeUi(scheme.colorRamp ? scheme.colorRamp->category() : VOColorRamp::EvenRamp);
    viewScheme(scheme);
    memory = new DialogMemory(this, QStringLiteral("editor"));
}

void VTColorSchemeEditor::setTexts()
{
    if (isNewScheme)
        setWindowTitle(tr("Add color scheme"));
    ui->comboBox_type->setItemText(VOColorRamp::RandomRamp, tr("Random"));
    ui->comboBox_type->setItemText(VOColorRamp::RandomHsvRamp, tr("RandomForHsv"));
    ui->comboBox_type->setItemText(VOColorRamp::EvenRamp, tr("Even"));
    ui->comboBox_type->setItemText(VOColorRamp::PredefineRamp, tr("Predefine"));
    ui->colorView->setAccessibleName(tr("Colors"));
    ui->previewLabel->setAccessibleName(tr("Preview"));
    // The label beside it belongs to the whole name field and not to the line in it.
    ui->nameWidget->lineEdit()->setAccessibleName(ui->label->text());
    setupKeys();
}

void VTColorSchemeEditor::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::LanguageChange && colorModel) {
        const QPixmap shown = ui->previewLabel->pixmap(Qt::ReturnByValue);
        ui->retranslateUi(this);
        ui->previewLabel->setPixmap(shown); // a text, be it none, takes its place
        setTexts();
        Q_EMIT colorModel->headerDataChanged(Qt::Horizontal, 0, VTColorModel::ColumnCount - 1);
        describePreview(updateColorRamp().get());
        if (ui->nameWidget->hasWarning())
            onNameChanged(ui->nameWidget->lineEdit()->text());
    }
    QDialog::changeEvent(event);
}

void VTColorSchemeEditor::describeParts()
{
    describeCells(ui->colorView, [this](const QModelIndex &index) {
        CellText words;
        if (index.column() == VTColorModel::SwatchColumn) {
            const QColor color = colorModel->colors.value(index.row());
            words.name = describeColor(color);
            words.description = color.name();
        }
        return words;
    });
}

void VTColorSchemeEditor::setupConnections()
{
    // By signature, so that a host that wants to take a command over can disconnect it by
    // signature.
    connect(ui->colorView->selectionModel(),
            SIGNAL(selectionChanged(QItemSelection, QItemSelection)), this,
            SLOT(onSelectionChanged(QItemSelection, QItemSelection)));
    // A longer list has another last row, and a new one no selection, which nobody announces.
    connect(colorModel, &QAbstractItemModel::rowsInserted, this,
            &VTColorSchemeEditor::onListChanged);
    connect(colorModel, &QAbstractItemModel::rowsRemoved, this,
            &VTColorSchemeEditor::onListChanged);
    connect(colorModel, &QAbstractItemModel::modelReset, this, &VTColorSchemeEditor::onListChanged);
    connect(ui->colorView, SIGNAL(doubleClicked(QModelIndex)), this,
            SLOT(onColorDoubleClicked(QModelIndex)));
    connect(ui->nameWidget, SIGNAL(textEdited(QString)), this, SLOT(onNameChanged(QString)));
    connect(ui->pushButton_ok, SIGNAL(clicked(bool)), this, SLOT(onOk()));
    connect(ui->pushButton_cancel, SIGNAL(clicked(bool)), this, SLOT(onClose()));
    connect(ui->spinBox_level, SIGNAL(valueChanged(int)), this, SLOT(onPreview()));
    connect(ui->comboBox_type, SIGNAL(activated(int)), this, SLOT(onTypeChanged(int)));
    const std::pair<const QAction *, const char *> commands[] = {
        {ui->actionLoad_scheme, SLOT(onLoadScheme())},
        {ui->actionAdd_color, SLOT(onAddColor())},
        {ui->actionDelete_color, SLOT(onDeleteColor())},
        {ui->actionSelect_all, SLOT(onSelectAll())},
        {ui->actionInvert_select, SLOT(onInvetSelect())},
        {ui->actionColor_antitone, SLOT(onColorAntitone())},
        {ui->actionTop, SLOT(onTop())},
        {ui->actionUp, SLOT(onUp())},
        {ui->actionBottom, SLOT(onBottom())},
        {ui->actionDown, SLOT(onDown())},
    };
    for (const auto &[action, slot] : commands)
        connect(action, SIGNAL(triggered(bool)), this, slot);
    connect(ui->spinBox_seed, SIGNAL(valueChanged(int)), this, SLOT(onPreview()));
    auto *toColors = new QShortcut(Qt::Key_F6, this);
    connect(toColors, &QShortcut::activated, ui->colorView,
            [view = ui->colorView] { view->setFocus(Qt::ShortcutFocusReason); });
    const auto hsvBoxes = ui->groupBox_hsv->findChildren<QSpinBox *>();
    for (const QSpinBox *box : hsvBoxes)
        connect(box, SIGNAL(valueChanged(int)), this, SLOT(onPreview()));
}

void VTColorSchemeEditor::typeChangeUi(VOColorRamp::ColorRampType type)
{
    const bool hsv = type == VOColorRamp::RandomHsvRamp;
    const bool seeded = hsv || type == VOColorRamp::RandomRamp;
    if (!seeded && type != VOColorRamp::EvenRamp && type != VOColorRamp::PredefineRamp)
        return;
    ui->label_seed->setVisible(seeded);
    ui->spinBox_seed->setVisible(seeded);
    ui->groupBox_hsv->setVisible(hsv);
    // From the inside out, else the dialog keeps the minimum height that the rows just hidden
    // needed.
    ui->gridLayout->activate();
    layout()->activate();
    resize(dialogWidth, hsv ? hsvHeight : plainHeight);
    if (memory)
        memory->takeDefaultSize();
}

void VTColorSchemeEditor::onTypeChanged(int index)
{
    if (index < VOColorRamp::RandomRamp || index > VOColorRamp::PredefineRamp)
        return;
    typeChangeUi(static_cast<VOColorRamp::ColorRampType>(index));

    const VOColorScheme *const scheme = currentScheme();
    VOColorRamp *const stored = scheme ? scheme->colorRamp : nullptr;
    if (index == VOColorRamp::RandomRamp) {
        const auto *random = rampOfKind<VORandomColorRamp>(stored, VOColorRamp::RandomRamp);
        const QSignalBlocker blocker(ui->spinBox_seed);
        ui->spinBox_seed->setValue(random ? random->seed : initialRandomSeed);
    } else if (index == VOColorRamp::RandomHsvRamp) {
        const auto *random =
            rampOfKind<VORandomColorRampForHsv>(stored, VOColorRamp::RandomHsvRamp);
        const QSignalBlocker blocker(ui->spinBox_seed);
        ui->spinBox_seed->setValue(random ? random->seed : initialHsvSeed);
        for (const HsvBound &bound : hsvBounds) {
            QSpinBox *const box = ui.get()->*bound.box;
            const QSignalBlocker boxBlocker(box);
            box->setValue(random ? random->*bound.field : bound.initial);
        }
    }
    onPreview();
}

void VTColorSchemeEditor::viewScheme(const VOColorScheme &scheme)
{
    std::unique_ptr<VOColorRamp> standIn;
    if (!scheme.colorRamp)
        standIn = defaultColorRamp();
    VOColorRamp *const ramp = standIn ? standIn.get() : scheme.colorRamp;

    ui->nameWidget->lineEdit()->setText(toQString(scheme.name));
    author->setText(toQString(scheme.author));
    describe->setText(toQString(scheme.describe));
    // Deliberate: the rows for seed and bounds stay as they are when a file of another kind is
    // loaded. They follow the kind that the user chose last.
    ui->comboBox_type->setCurrentIndex(ramp->category());
    ui->spinBox_level->setValue(static_cast<int>(ramp->getLevel()));
    if (const auto *random = rampOfKind<VORandomColorRamp>(ramp, VOColorRamp::RandomRamp)) {
        ui->spinBox_seed->setValue(random->seed);
    } else if (const auto *hsvRandom =
                   rampOfKind<VORandomColorRampForHsv>(ramp, VOColorRamp::RandomHsvRamp)) {
        ui->spinBox_seed->setValue(hsvRandom->seed);
        for (const HsvBound &bound : hsvBounds)
            (ui.get()->*bound.box)->setValue(hsvRandom->*bound.field);
    }
    colorModel->setColors(listedColors(*ramp));
    // From the scheme's own ramp: what is loaded is shown as it is, even where the controls cannot
    // hold it.
    showPreview(ramp);
}

void VTColorSchemeEditor::showPreview(VOColorRamp *ramp)
{
    ui->previewLabel->setPixmap(colorRampPreviewPixmap(ramp, previewSize));
    describePreview(ramp);
}

void VTColorSchemeEditor::describePreview(VOColorRamp *ramp)
{
    ui->previewLabel->setAccessibleDescription(describeColorRamp(ramp));
}

std::unique_ptr<VOColorRamp> VTColorSchemeEditor::updateColorRamp() const
{
    return rampOf(*ui, colorModel->colors);
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
    QString problem;
    if (!VOColorSchemeManager::readFile(scheme, toFilePath(file), problem)) {
        tellFailure(this, title, tr("Failed to open file!"), fileProblem(file, problem));
        return;
    }
    hasBeenSelected = true; // whatever was, it is not in the new list
    viewScheme(scheme);
}

VOColorScheme *VTColorSchemeEditor::currentScheme() const
{
    if (!schemeGroup)
        return nullptr;
    auto &schemes = schemeGroup->schemes;
    const bool exists = schemeIndex >= 0 && static_cast<std::size_t>(schemeIndex) < schemes.size();
    return exists ? &schemes[static_cast<std::size_t>(schemeIndex)] : nullptr;
}
