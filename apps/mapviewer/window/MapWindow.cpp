#include "apps/mapviewer/window/MapWindow.h"

#include "apps/mapviewer/layers/NumberText.h"
#include "apps/mapviewer/map/MapDecorations_p.h"
#include "apps/mapviewer/map/MapPicture.h"
#include "apps/mapviewer/map/MapWidget.h"
#include "apps/mapviewer/window/AppSettings.h"
#include "apps/mapviewer/window/CardFrame.h"
#include "apps/mapviewer/window/ColorVisionWindows.h"
#include "apps/mapviewer/window/LayerCard.h"
#include "apps/mapviewer/window/NoticeBar.h"
#include "apps/mapviewer/window/StoreGuard.h"
#include "apps/mapviewer/window/Theme.h"

#include "colorscheme/model/VTDialogLayout.h"
#include "vomap/VOColorSchemeNotifier.h"
#include "vtgiscore/VTApplication.h"
#include "vtgiscore/VTSymbolUtils.h"

#include <QActionGroup>
#include <QApplication>
#include <QCloseEvent>
#include <QHBoxLayout>
#include <QIcon>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QScreen>
#include <QScrollArea>
#include <QStatusBar>
#include <QStyle>
#include <QToolBar>
#include <QToolButton>
#include <QVBoxLayout>

#include <algorithm>

namespace mapviewer {

namespace {

const QSize startSize(1280, 860);
constexpr int panelWidth = 352;
constexpr int frameRoom = 8;
constexpr double buttonZoom = 1.5;
const QSize swatchSize(28, 14);

const QString geometryKey = QStringLiteral("mapviewer/geometry");
const QString darkKey = QStringLiteral("mapviewer/dark");
const QString graticuleKey = QStringLiteral("mapviewer/graticule");
const QString hintKey = QStringLiteral("mapviewer/hintClosed");

} // namespace

MapWindow::MapWindow(QWidget *parent)
    : QMainWindow(parent)
    , dialogSettings(
          std::make_unique<QSettings>(VTApplication::vtgisSettingsFilePath(), QSettings::IniFormat))
    , seenWindows(new ColorVisionWindows(this))
    , guard(new StoreGuard(this))
{
    VTDialogLayout::rememberIn(dialogSettings.get());
    setWindowTitle(tr("Map Viewer"));
    setWindowIcon(QIcon(QStringLiteral(":/icon/Default.png")));
    buildCenter();
    auto *bar = addToolBar(tr("Tools"));
    bar->setObjectName(QStringLiteral("tools"));
    bar->setMovable(false);
    bar->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    buildFileMenu(bar);
    buildSchemeMenu(bar);
    buildViewMenu(bar);
    buildHelpMenu();
    buildStatusBar();
    connect(guard, &StoreGuard::noticed, this, &MapWindow::showNotice);
    connect(guard, &StoreGuard::opened, this, &MapWindow::onStoreOpened);
    connect(guard, &StoreGuard::otherFolderWanted, this, &MapWindow::onOpenStore);
    connect(VTObjects::VOColorSchemeNotifier::instance(),
            &VTObjects::VOColorSchemeNotifier::storeChanged, this, &MapWindow::syncCards);
    restoreState();
    restoreLayers();
    started = true;
    m_map->showAll();
    m_map->setFocus();
    guard->showProblems();
}

MapWindow::~MapWindow()
{
    // The cards point to the layers, which as members go first.
    delete takeCentralWidget();
}

QList<LayerCard *> MapWindow::cards() const
{
    QList<LayerCard *> found;
    for (int i = 0; i < cardColumn->count(); ++i) {
        if (auto *card = qobject_cast<LayerCard *>(cardColumn->itemAt(i)->widget()))
            found.append(card);
    }
    return found;
}

void MapWindow::buildCenter()
{
    auto *center = new QWidget(this);
    auto *row = new QHBoxLayout(center);
    row->setContentsMargins(8, 8, 8, 4);
    row->setSpacing(8);

    panelArea = new QScrollArea(center);
    panelArea->setWidgetResizable(true);
    panelArea->setFrameShape(QFrame::NoFrame);
    panelArea->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    panel = new QWidget(panelArea);
    panel->setObjectName(QStringLiteral("layers"));
    cardColumn = new QVBoxLayout(panel);
    cardColumn->setContentsMargins(0, 0, 2, 0);
    cardColumn->setSpacing(8);
    cardColumn->addStretch();
    panelArea->setWidget(panel);

    auto *left = new QVBoxLayout;
    left->setSpacing(8);
    noticeColumn = new QVBoxLayout;
    left->addLayout(noticeColumn);
    if (!appSettings().value(hintKey).toBool())
        left->addWidget(hint = makeHint());
    m_map = new MapWidget(layers, center);
    left->addWidget(m_map, 1);
    // At the right in every language: the pickers' menus open towards the left.
    row->setDirection(isRightToLeft() ? QBoxLayout::RightToLeft : QBoxLayout::LeftToRight);
    row->addLayout(left, 1);
    row->addWidget(panelArea);
    setCentralWidget(center);

    connect(m_map, &MapWidget::pointed, this, &MapWindow::onPointed);
    connect(m_map, &MapWidget::pointerLeft, this, &MapWindow::onPointerLeft);
    connect(m_map, &MapWidget::viewChanged, this, &MapWindow::markCards);
    connect(m_map, &MapWidget::insetClicked, this, &MapWindow::showLayer);
}

void MapWindow::fitPanel()
{
    // As wide as the widest card asks for in this font, with room for the scroll bar beside it.
    const int bar = style()->pixelMetric(QStyle::PM_ScrollBarExtent, nullptr, panelArea);
    panelArea->setFixedWidth(std::max(panelWidth, panel->minimumSizeHint().width()) + bar);
}

void MapWindow::showNotice(NoticeBar *notice)
{
    // On a small screen the map needs the room; the hint comes back with the next start.
    if (hint)
        hint->hide();
    noticeColumn->addWidget(notice);
    notice->show();
}

void MapWindow::fitScreen()
{
    // What the window manager puts around a window is not known before it is shown.
    const QRect free = screen()->availableGeometry();
    const int title = style()->pixelMetric(QStyle::PM_TitleBarHeight, nullptr, this) + frameRoom;
    const QSize most(free.width() - 2 * frameRoom, free.height() - title - frameRoom);
    resize(size().boundedTo(most));
    if (!free.contains(frameGeometry()))
        move(free.topLeft() + QPoint((free.width() - width()) / 2, 0));
}

QWidget *MapWindow::makeHint()
{
    auto *made = new CardFrame(this);
    made->setObjectName(QStringLiteral("hint"));
    auto *row = new QHBoxLayout(made);
    row->setContentsMargins(10, 4, 4, 4);
    auto *text = new QLabel(tr("<b>Click a color strip</b> at the right and pick a scheme: the map "
                               "takes it at once. Drag the map to move it, turn the wheel to zoom, "
                               "point at it to read a value, click a small map to go there."),
                            made);
    text->setWordWrap(true);
    row->addWidget(text, 1);
    auto *close = new QToolButton(made);
    close->setText(QString(QChar(0x00d7)));
    close->setAutoRaise(true);
    close->setToolTip(tr("Do not show this again"));
    connect(close, &QToolButton::clicked, made, [made] {
        appSettings().setValue(hintKey, true);
        made->hide();
    });
    row->addWidget(close, 0, Qt::AlignTop);
    return made;
}

void MapWindow::buildViewMenu(QToolBar *bar)
{
    QMenu *menu = menuBar()->addMenu(tr("&View"));
    QAction *all = menu->addAction(tr("&Whole map"), m_map, &MapWidget::showAll);
    all->setShortcut(QKeySequence(QStringLiteral("Ctrl+0")));
    QAction *closer = menu->addAction(tr("Zoom &in"), m_map, [this] { m_map->zoomBy(buttonZoom); });
    closer->setShortcut(QKeySequence::ZoomIn);
    QAction *further =
        menu->addAction(tr("Zoom &out"), m_map, [this] { m_map->zoomBy(1.0 / buttonZoom); });
    further->setShortcut(QKeySequence::ZoomOut);
    menu->addSeparator();

    QMenu *visions = menu->addMenu(tr("&Color vision"));
    visionActions = new QActionGroup(this);
    const QList<QPair<ColorVision, QString>> entries = {
        {ColorVision::Normal, tr("&Normal")},
        {ColorVision::Protan, tr("&Protan (red weakness)")},
        {ColorVision::Deutan, tr("&Deutan (green weakness)")},
        {ColorVision::Tritan, tr("&Tritan (blue weakness)")},
        {ColorVision::Gray, tr("&Gray (black-and-white print)")}};
    for (const auto &[kind, caption] : entries) {
        QAction *action = visions->addAction(caption);
        action->setCheckable(true);
        action->setChecked(kind == vision);
        action->setData(int(kind));
        visionActions->addAction(action);
    }
    connect(visionActions, &QActionGroup::triggered, this,
            [this](QAction *action) { setVision(ColorVision(action->data().toInt())); });

    graticuleAction = menu->addAction(tr("&Meridians and parallels"));
    graticuleAction->setCheckable(true);
    graticuleAction->setChecked(true);
    connect(graticuleAction, &QAction::toggled, this, [this](bool on) {
        MapStyle style = m_map->mapStyle();
        style.withGraticule = on;
        m_map->setMapStyle(style);
    });
    darkAction = menu->addAction(tr("&Dark theme"));
    darkAction->setCheckable(true);
    darkAction->setShortcut(QKeySequence(QStringLiteral("Ctrl+D")));
    connect(darkAction, &QAction::toggled, this, &MapWindow::setDarkTheme);

    bar->addSeparator();
    bar->addAction(all);
    auto *button = new QToolButton(bar);
    button->setText(tr("Color vision"));
    button->setToolTip(tr("See the map as people with another color vision do"));
    button->setMenu(visions);
    button->setPopupMode(QToolButton::InstantPopup);
    bar->addWidget(button);
    bar->addAction(darkAction);
}

void MapWindow::buildHelpMenu()
{
    QMenu *menu = menuBar()->addMenu(tr("&Help"));
    menu->addAction(tr("&About this program"), this, &MapWindow::onAbout);
}

void MapWindow::buildStatusBar()
{
    positionLabel = new QLabel(this);
    positionLabel->setObjectName(QStringLiteral("position"));
    swatchLabel = new QLabel(this);
    swatchLabel->setObjectName(QStringLiteral("swatch"));
    valueLabel = new QLabel(this);
    valueLabel->setObjectName(QStringLiteral("value"));
    statusBar()->setContentsMargins(8, 0, 8, 0);
    statusBar()->addWidget(swatchLabel);
    statusBar()->addWidget(valueLabel, 1);
    statusBar()->addPermanentWidget(positionLabel);
    storeLabel = new QLabel(this);
    storeLabel->setObjectName(QStringLiteral("store"));
    storeLabel->setTextFormat(Qt::PlainText);
    statusBar()->addPermanentWidget(storeLabel);
    showStoreName();
    onPointerLeft();
}

void MapWindow::restoreState()
{
    const QSettings settings = appSettings();
    resize(startSize);
    restoreGeometry(settings.value(geometryKey).toByteArray());
    if (!isMaximized() && !isFullScreen())
        fitScreen();
    graticuleAction->setChecked(settings.value(graticuleKey, true).toBool());
    // A toggle only tells of a change, so the light theme is set by hand.
    darkAction->setChecked(settings.value(darkKey, false).toBool());
    setDarkTheme(darkAction->isChecked());
}

void MapWindow::closeEvent(QCloseEvent *event)
{
    if (!guard->mayLeave()) {
        event->ignore();
        return;
    }
    QSettings settings = appSettings();
    settings.setValue(geometryKey, saveGeometry());
    settings.setValue(graticuleKey, graticuleAction->isChecked());
    settings.setValue(darkKey, darkAction->isChecked());
    QMainWindow::closeEvent(event);
}

void MapWindow::setDarkTheme(bool on)
{
    darkAction->setChecked(on);
    QApplication::setPalette(on ? darkPalette() : lightPalette());
    panel->setStyleSheet(panelStyleSheet(on));
    MapStyle style = on ? MapStyle::dark(font()) : MapStyle::light(font());
    style.withGraticule = graticuleAction->isChecked();
    m_map->setMapStyle(style);
}

void MapWindow::setVision(ColorVision seenWith)
{
    vision = seenWith;
    seenWindows->setVision(vision);
    for (QAction *action : visionActions->actions())
        action->setChecked(action->data().toInt() == int(vision));
    QString remark = visionRemark(vision);
    if (!remark.isEmpty())
        remark[0] = remark.at(0).toUpper();
    // The program's name last: before a title that ends otherwise the toolkit adds it once more.
    setWindowTitle(remark.isEmpty() ? tr("Map Viewer") : tr("%1 – Map Viewer").arg(remark));
}

void MapWindow::showLayer(const MapLayer *layer)
{
    m_map->showExtent(layer->extent());
}

void MapWindow::onPointed(const QPointF &position, const MapLayer *layer,
                          const IdentifyResult &result)
{
    if (m_map->view().geographic()) {
        positionLabel->setText(
            QStringLiteral("%1  %2").arg(latitudeText(position.y()), longitudeText(position.x())));
    } else {
        positionLabel->setText(
            QStringLiteral("%1  %2").arg(numberText(position.x()), numberText(position.y())));
    }
    const bool found = layer && result.found;
    swatchLabel->setVisible(found);
    if (!found) {
        valueLabel->setText(tr("No value here"));
        return;
    }
    const QColor color(result.color);
    swatchLabel->setPixmap(VTSymbolUtils::createColorPixmap(swatchSize, color));
    valueLabel->setText(
        tr("%1 – %2   %3")
            .arg(isolated(layer->title()), isolated(result.text), isolated(color.name())));
}

void MapWindow::onPointerLeft()
{
    swatchLabel->hide();
    positionLabel->clear();
    valueLabel->setText(tr("Point at the map to read its values"));
}

void MapWindow::onAbout()
{
    QStringList sources;
    for (const auto &layer : layers) {
        if (!layer->source().isEmpty() && !sources.contains(layer->source()))
            sources.append(layer->source());
    }
    QMessageBox box(QMessageBox::Information, tr("About this program"),
                    tr("<b>Map Viewer</b> colors maps by the schemes of a library that "
                       "applications share: pick one for each layer, make your own, and look at "
                       "them with other eyes."),
                    QMessageBox::Close, this);
    box.setInformativeText(sources.join(QStringLiteral("<br>")));
    box.exec();
}

} // namespace mapviewer
