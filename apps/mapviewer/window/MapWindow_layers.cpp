#include "apps/mapviewer/map/MapWidget.h"
#include "apps/mapviewer/window/AppSettings.h"
#include "apps/mapviewer/window/LayerCard.h"
#include "apps/mapviewer/window/MapWindow.h"
#include "apps/mapviewer/window/NoticeBar.h"
#include "apps/mapviewer/window/OwnMaps.h"

#include <QDir>
#include <QFileInfo>
#include <QPushButton>
#include <QVBoxLayout>

#include <algorithm>

namespace mapviewer {

namespace {

/// All that Tab stops at inside a card, from top to bottom: as it was made.
QWidgetList tabStops(const QWidget *card)
{
    QWidgetList stops;
    for (QWidget *widget : card->findChildren<QWidget *>()) {
        const bool stop = (widget->focusPolicy() & Qt::TabFocus) != 0 && !widget->focusProxy();
        if (stop && widget->window() == card->window())
            stops.append(widget);
    }
    return stops;
}

} // namespace

void MapWindow::addOwnMaps()
{
    for (const QString &path : ownMapFiles()) {
        FileProblem problem;
        if (hasLayerOf(path))
            continue;
        if (auto layer = readMap(path, &problem))
            addLayer(std::move(layer), {});
    }
}

void MapWindow::restoreLayers()
{
    QSettings settings = appSettings();
    const std::optional<QVector<LayerState>> states = readLayerStates(&settings);
    if (!states) {
        addOwnMaps();
        return;
    }
    takeLayers(*states);
}

void MapWindow::takeLayers(const QVector<LayerState> &states)
{
    missing.clear();
    missingReasons.clear();
    // From the lowest up: each goes on top of those before.
    for (auto state = states.rbegin(); state != states.rend(); ++state) {
        FileProblem problem;
        if (auto layer = readMap(state->path, &problem)) {
            state->applyTo(layer.get());
            addLayer(std::move(layer), *state);
        } else {
            missing.prepend(*state);
            missingReasons.prepend(problem.message(QDir::toNativeSeparators(state->path)));
        }
    }
    if (!missing.isEmpty())
        tellMissingLayers();
}

void MapWindow::tellMissingLayers()
{
    auto *notice = new NoticeBar(tr("These maps could not be opened:") + QLatin1Char('\n') +
                                     missingReasons.join(QLatin1Char('\n')),
                                 this);
    notice->setObjectName(QStringLiteral("missingMaps"));
    notice->setCloseHint(tr("Try again at the next start"));
    connect(notice->addButton(tr("Try again"), QStringLiteral("tryAgain")), &QPushButton::clicked,
            this, [this, notice] {
                notice->hide();
                notice->deleteLater();
                takeLayers(QVector<LayerState>(missing));
            });
    connect(notice->addButton(tr("Forget them"), QStringLiteral("forget")), &QPushButton::clicked,
            this, [this, notice] {
                missing.clear();
                missingReasons.clear();
                rememberLayers();
                notice->hide();
                notice->deleteLater();
            });
    showNotice(notice);
}

void MapWindow::rememberLayers() const
{
    // Not while the layers of the last run are still coming back.
    if (!started)
        return;
    QVector<LayerState> states;
    for (const LayerCard *card : cards())
        states.append(card->state());
    QSettings settings = appSettings();
    writeLayerStates(&settings, states + missing);
}

bool MapWindow::hasLayerOf(const QString &path) const
{
    return std::any_of(layers.begin(), layers.end(),
                       [&](const auto &layer) { return layer->path() == path; });
}

void MapWindow::addLayer(std::unique_ptr<MapLayer> layer, const LayerState &state)
{
    auto *card = new LayerCard(layer.get(), schemesFor(layer->path()), panel);
    layers.insert(layers.begin(), std::move(layer));
    cardColumn->insertWidget(0, card);
    card->choose(VTObjects::VOColorSchemeId::fromText(state.scheme));
    connect(card, &LayerCard::changed, this, [this] {
        m_map->refresh();
        rememberLayers();
    });
    connect(card, &LayerCard::visibilityChanged, this, [this, card] { followVisibility(card); });
    connect(card, &LayerCard::zoomRequested, this, [this, card] { showLayer(card->layer()); });
    connect(card, &LayerCard::editRequested, this, [this, card] { editScheme(card); });
    // Queued, because the button that asks for it lies on the card.
    connect(
        card, &LayerCard::removeRequested, this, [this, card] { removeLayer(card); },
        Qt::QueuedConnection);
    orderTabs();
    fitPanel();
    markCards();
    m_map->refresh();
    rememberLayers();
}

void MapWindow::removeLayer(LayerCard *card)
{
    const auto found = std::find_if(layers.begin(), layers.end(), [card](const auto &layer) {
        return layer.get() == card->layer();
    });
    delete card;
    layers.erase(found);
    onPointerLeft();
    leaveEmptyMap();
    m_map->refresh();
    rememberLayers();
}

void MapWindow::followVisibility(const LayerCard *card)
{
    const MapLayer *layer = card->layer();
    if (layer->isVisible() && !sharesCoordinates(*layer, m_map->view()))
        showLayer(layer);
    else
        leaveEmptyMap();
}

void MapWindow::leaveEmptyMap()
{
    bool any = false;
    for (const auto &layer : layers) {
        if (layer->isVisible() && sharesCoordinates(*layer, m_map->view()))
            return;
        any = any || layer->isVisible();
    }
    // All that is left lies in other coordinates.
    if (any)
        m_map->showAll();
}

void MapWindow::markCards()
{
    for (LayerCard *card : cards())
        card->setOnMap(sharesCoordinates(*card->layer(), m_map->view()));
}

void MapWindow::orderTabs()
{
    QWidget *last = nullptr;
    for (const LayerCard *card : cards()) {
        for (QWidget *stop : tabStops(card)) {
            if (last)
                setTabOrder(last, stop);
            last = stop;
        }
    }
    if (last)
        setTabOrder(last, m_map);
}

void MapWindow::showFile(const QString &path)
{
    const QString file = QFileInfo(path).absoluteFilePath();
    for (const auto &layer : layers) {
        if (layer->path() == file) {
            showLayer(layer.get());
            return;
        }
    }
    openFileOrTell(path);
}

} // namespace mapviewer
