#include "apps/mapviewer/window/LayerCard.h"

#include "apps/mapviewer/layers/GridLayer.h"
#include "apps/mapviewer/layers/PolygonLayer.h"
#include "apps/mapviewer/schemes/storeSchemes.h"
#include "apps/mapviewer/window/AppSettings.h"
#include "apps/mapviewer/window/ElidedCheckBox.h"
#include "apps/mapviewer/window/LegendWidget.h"
#include "apps/mapviewer/window/WheelGuard.h"

#include "colorscheme/picker/VTColorSchemeComboBox.h"
#include "vomap/VOColorSchemeManager.h"
#include "vomap/VOTeamKind.h"

#include <QAbstractItemView>
#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QHBoxLayout>
#include <QLabel>
#include <QSpinBox>
#include <QTextDocument>
#include <QToolButton>
#include <QUrl>
#include <QVBoxLayout>

#include <algorithm>

namespace mapviewer {

using VTObjects::CustomTeam;
using VTObjects::DefaultTeam;
using VTObjects::teamKey;
using VTObjects::VOColorSchemeId;
using VTObjects::VOColorSchemeManager;

namespace {

constexpr int pickerHeight = 26;
constexpr int rowMargin = 8;
constexpr int leastFieldCharacters = 12;

// Many names or long ones: the box keeps to the card, its list and its tool-tip have the whole.
void keepNarrow(QComboBox *box)
{
    box->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    box->setMinimumContentsLength(leastFieldCharacters);
    box->view()->setTextElideMode(Qt::ElideMiddle);
}

// A name is shown as it is, even where it looks like mark-up.
QString plainToolTip(const QString &text)
{
    return Qt::convertFromPlainText(text, Qt::WhiteSpaceNormal);
}

} // namespace

LayerCard::LayerCard(MapLayer *layer, const QStringList &preferredSchemes, QWidget *parent)
    : CardFrame(parent)
    , m_layer(layer)
    , polygons(dynamic_cast<PolygonLayer *>(layer))
    , preferred(preferredSchemes)
{
    setObjectName(QStringLiteral("layerCard"));
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(10, 8, 10, 8);
    column->setSpacing(6);
    addHeader(column);
    addPicker(column);
    addClassification(column);
    if (auto *grid = dynamic_cast<GridLayer *>(layer))
        addGridOptions(column, grid);
    legend = new LegendWidget(this);
    column->addWidget(legend);
    // Not only what the user picks: a scheme that is edited elsewhere stays the layer's.
    m_picker->setFollowsStore(true);
    connect(m_picker, &VTColorSchemeComboBox::currentRampChanged, this, &LayerCard::take);
    reloadScheme();
}

void LayerCard::addHeader(QVBoxLayout *column)
{
    auto *row = new QHBoxLayout;
    row->setSpacing(2);
    auto *visible = new ElidedCheckBox(m_layer->title(), this);
    QFont bold = visible->font();
    bold.setBold(true);
    visible->setFont(bold);
    visible->setChecked(m_layer->isVisible());
    const QString file = m_layer->path().startsWith(QLatin1Char(':'))
                             ? QString()
                             : QDir::toNativeSeparators(m_layer->path());
    QStringList hints{m_layer->title(), file, tr("Show or hide this layer")};
    hints.removeAll(QString());
    visible->setToolTip(plainToolTip(hints.join(QLatin1Char('\n'))));
    connect(visible, &QCheckBox::toggled, this, [this](bool on) {
        m_layer->setVisible(on);
        Q_EMIT visibilityChanged();
        Q_EMIT changed();
    });
    row->addWidget(visible, 1);
    auto *zoom = new QToolButton(this);
    zoom->setObjectName(QStringLiteral("zoomToLayer"));
    zoom->setText(tr("Zoom to"));
    zoom->setAutoRaise(true);
    zoom->setToolTip(tr("Show this layer as large as it fits"));
    connect(zoom, &QToolButton::clicked, this, &LayerCard::zoomRequested);
    row->addWidget(zoom);
    auto *remove = new QToolButton(this);
    remove->setObjectName(QStringLiteral("removeLayer"));
    remove->setText(QString(QChar(0x00d7)));
    remove->setAutoRaise(true);
    remove->setToolTip(tr("Remove this layer from the map"));
    connect(remove, &QToolButton::clicked, this, &LayerCard::removeRequested);
    row->addWidget(remove);
    column->addLayout(row);
    elsewhere = new QLabel(tr("Not on this map, which has other coordinates."), this);
    elsewhere->setObjectName(QStringLiteral("elsewhere"));
    elsewhere->setWordWrap(true);
    elsewhere->hide();
    column->addWidget(elsewhere);
}

void LayerCard::setOnMap(bool on)
{
    elsewhere->setVisible(!on);
}

LayerState LayerCard::state() const
{
    LayerState state = LayerState::of(*m_layer);
    state.scheme = (chosen.isNull() ? currentScheme() : chosen).toText();
    return state;
}

void LayerCard::addPicker(QVBoxLayout *column)
{
    auto *row = new QHBoxLayout;
    m_picker = new VTColorSchemeComboBox(this);
    // Both in one line, also with larger letters.
    const int height = std::max(pickerHeight, fontMetrics().height() + rowMargin);
    m_picker->setFixedHeight(height);
    m_picker->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    m_picker->setToolTip(tr("Pick a color scheme for this layer"));
    m_picker->setAccessibleName(tr("Color scheme of %1").arg(m_layer->title()));
    row->addWidget(m_picker, 1);
    auto *edit = new QToolButton(this);
    edit->setObjectName(QStringLiteral("editScheme"));
    edit->setText(tr("Edit…"));
    edit->setFixedHeight(height);
    edit->setToolTip(tr("Edit this scheme, or a copy of it if it is not your own"));
    connect(edit, &QToolButton::clicked, this, &LayerCard::editRequested);
    row->addWidget(edit);
    column->addLayout(row);
}

void LayerCard::addClassification(QVBoxLayout *column)
{
    if (polygons) {
        auto *fields = new QComboBox(this);
        fields->setObjectName(QStringLiteral("field"));
        keepNarrow(fields);
        new WheelGuard(fields);
        fields->addItems(polygons->fieldNames());
        for (int i = 0; i < fields->count(); ++i)
            fields->setItemData(i, plainToolTip(fields->itemText(i)), Qt::ToolTipRole);
        fields->setCurrentText(polygons->field());
        const auto hint = [fields] {
            fields->setToolTip(plainToolTip(
                tr("The attribute that the colors show: %1").arg(fields->currentText())));
        };
        hint();
        connect(fields, &QComboBox::currentTextChanged, this, hint);
        connect(fields, &QComboBox::currentTextChanged, this, &LayerCard::onFieldChosen);
        column->addWidget(fields);
    }
    auto *row = new QHBoxLayout;
    methods = new QComboBox(this);
    methods->setObjectName(QStringLiteral("classificationMethod"));
    methods->setToolTip(tr("How values become colors"));
    keepNarrow(methods);
    new WheelGuard(methods);
    row->addWidget(methods, 1);
    classCount = new QSpinBox(this);
    classCount->setObjectName(QStringLiteral("classCount"));
    classCount->setRange(MapLayer::fewestClasses, MapLayer::mostClasses);
    classCount->setSuffix(tr(" classes"));
    classCount->setValue(m_layer->classCount());
    new WheelGuard(classCount);
    row->addWidget(classCount);
    column->addLayout(row);
    fillMethods();
    connect(methods, QOverload<int>::of(&QComboBox::activated), this, &LayerCard::onMethodChosen);
    connect(classCount, QOverload<int>::of(&QSpinBox::valueChanged), this, [this](int count) {
        m_layer->setClassCount(count);
        showChange();
    });
}

void LayerCard::addGridOptions(QVBoxLayout *column, GridLayer *grid)
{
    auto *row = new QHBoxLayout;
    auto *shading = new QCheckBox(tr("Hill shading"), this);
    shading->setObjectName(QStringLiteral("hillShading"));
    shading->setChecked(grid->hillShading());
    connect(shading, &QCheckBox::toggled, this, [this, grid](bool on) {
        grid->setHillShading(on);
        showChange();
    });
    row->addWidget(shading);
    if (grid->crossesZero()) {
        auto *middle = new QCheckBox(tr("Zero at mid-scheme"), this);
        middle->setObjectName(QStringLiteral("zeroInMiddle"));
        middle->setToolTip(tr("The first half of the scheme for what lies below zero, the second "
                              "half for what lies above"));
        middle->setChecked(grid->zeroInMiddle());
        connect(middle, &QCheckBox::toggled, this, [this, grid](bool on) {
            grid->setZeroInMiddle(on);
            showChange();
        });
        row->addWidget(middle);
    }
    row->addStretch();
    column->addLayout(row);
}

void LayerCard::fillMethods()
{
    static const QHash<int, const char *> captions = {
        {int(ClassificationMethod::Unclassed), QT_TR_NOOP("Continuous")},
        {int(ClassificationMethod::EqualIntervals), QT_TR_NOOP("Equal intervals")},
        {int(ClassificationMethod::Quantiles), QT_TR_NOOP("Quantiles")},
        {int(ClassificationMethod::UniqueValues), QT_TR_NOOP("Unique values")}};
    methods->clear();
    for (const ClassificationMethod method : m_layer->availableMethods())
        methods->addItem(tr(captions.value(int(method))), int(method));
    methods->setCurrentIndex(methods->findData(int(m_layer->classificationMethod())));
    const bool classed = m_layer->classificationMethod() == ClassificationMethod::EqualIntervals ||
                         m_layer->classificationMethod() == ClassificationMethod::Quantiles;
    classCount->setVisible(classed);
}

QString LayerCard::schemeGroup() const
{
    if (!polygons)
        return QStringLiteral("DEM");
    return m_layer->classificationMethod() == ClassificationMethod::UniqueValues
               ? QStringLiteral("Unique")
               : QStringLiteral("Range");
}

QString LayerCard::settingsKey() const
{
    // A path holds slashes, and each would make a group of its own in the file.
    const QByteArray name = QUrl::toPercentEncoding(m_layer->path());
    return QStringLiteral("mapviewer/schemes/%1/%2").arg(QString::fromLatin1(name), schemeGroup());
}

void LayerCard::reloadScheme()
{
    chosen = VOColorSchemeId::fromText(appSettings().value(settingsKey()).toString());
    const bool found = VOColorSchemeManager::instance()->find(chosen) != nullptr;
    standIn = found ? VOColorSchemeId() : builtInScheme(schemeGroup(), preferred);
    // A store without built-in schemes leaves the picker's own default ramp.
    m_picker->setCurrentScheme(found ? chosen : standIn);
    m_layer->setRamp(m_picker->currentColorRamp());
    showChange();
}

void LayerCard::syncWithStore()
{
    // Once more, as the store may have changed without saying so.
    m_picker->setFollowsStore(true);
    if (!currentScheme().isNull())
        take();
    else if (m_picker->groupName().isEmpty()) // the drop-down shall list something
        m_picker->setDefaultGroup(teamKey(DefaultTeam), schemeGroup(), -1);
}

VOColorSchemeId LayerCard::currentScheme() const
{
    return m_picker->currentSchemeId();
}

bool LayerCard::choose(const VOColorSchemeId &id)
{
    if (m_picker->setCurrentScheme(id)) {
        standIn = {};
        take();
        return true;
    }
    if (!id.isNull()) {
        chosen = id;
        standIn = currentScheme();
    }
    return false;
}

void LayerCard::chooseOwn(int group, int scheme)
{
    if (m_picker->setDefaultGroup(teamKey(CustomTeam), group, scheme))
        take();
}

void LayerCard::take()
{
    m_layer->setRamp(m_picker->currentColorRamp());
    const VOColorSchemeId id = currentScheme();
    if (!id.isNull() && id != standIn) {
        chosen = id;
        standIn = {};
        appSettings().setValue(settingsKey(), id.toText());
    }
    showChange();
}

void LayerCard::onMethodChosen(int index)
{
    const QString before = schemeGroup();
    m_layer->setClassificationMethod(ClassificationMethod(methods->itemData(index).toInt()));
    fillMethods();
    // Values without order want other schemes than ranges; within one kind the choice stays.
    if (schemeGroup() != before)
        reloadScheme();
    else
        showChange();
}

void LayerCard::onFieldChosen(const QString &field)
{
    const QString before = schemeGroup();
    polygons->setField(field);
    // A number after a text is mostly meant to be compared.
    if (m_layer->availableMethods().contains(ClassificationMethod::Quantiles) && before == "Unique")
        m_layer->setClassificationMethod(ClassificationMethod::Quantiles);
    fillMethods();
    if (schemeGroup() != before)
        reloadScheme();
    else
        showChange();
}

void LayerCard::showChange()
{
    legend->setLegend(m_layer->legend());
    Q_EMIT changed();
}

} // namespace mapviewer
