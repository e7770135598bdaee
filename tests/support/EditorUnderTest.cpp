#include "tests/support/EditorUnderTest.h"

#include "colorscheme/model/colorConversion.h"
#include "colorscheme/model/colorRampPreviewPixmap.h"
#include "tests/support/TestStore.h"
#include "vomap/VOPredefineColorRamp.h"
#include "vomap/VORandomColorRampForHsv.h"

#include <QtTest>

#include <algorithm>

using namespace VTObjects;

namespace {

void fill(VOEvenColorRamp &ramp, const QVector<QColor> &sources, unsigned int level)
{
    std::vector<rgb_color<float>> colors;
    for (const QColor &source : sources)
        colors.push_back(toRgbColor(source));
    ramp.setSourceColor(sources.size(), colors.data());
    ramp.split(level);
}

} // namespace

RampPointer evenRamp(const QVector<QColor> &sources, unsigned int level)
{
    auto ramp = std::make_unique<VOEvenColorRamp>();
    fill(*ramp, sources, level);
    return ramp;
}

RampPointer predefinedRamp(const QVector<QColor> &sources, unsigned int level)
{
    auto ramp = std::make_unique<VOPredefineColorRamp>();
    fill(*ramp, sources, level);
    return ramp;
}

RampPointer randomRamp(int seed, unsigned int level)
{
    auto ramp = std::make_unique<VORandomColorRamp>();
    ramp->setSeed(seed);
    ramp->split(level);
    return ramp;
}

RampPointer hsvRamp(int seed, const HsvBounds &bounds, unsigned int level)
{
    auto ramp = std::make_unique<VORandomColorRampForHsv>();
    ramp->setSeed(seed);
    ramp->minH = bounds.minH;
    ramp->maxH = bounds.maxH;
    ramp->minS = bounds.minS;
    ramp->maxS = bounds.maxS;
    ramp->minV = bounds.minV;
    ramp->maxV = bounds.maxV;
    ramp->paramsChanged = true;
    ramp->split(level);
    return ramp;
}

RampPointer rampOf(VOColorRamp::ColorRampType kind)
{
    switch (kind) {
    case VOColorRamp::RandomRamp:
        return randomRamp(7, 12);
    case VOColorRamp::RandomHsvRamp:
        return hsvRamp(7, EditorColors::someBounds, 12);
    case VOColorRamp::EvenRamp:
        return evenRamp(EditorColors::defaultSources, 12);
    case VOColorRamp::PredefineRamp:
        return predefinedRamp({Qt::red, Qt::green, Qt::blue, Qt::black}, 12);
    }
    return nullptr;
}

void addKinds()
{
    QTest::addColumn<VOColorRamp::ColorRampType>("kind");
    QTest::newRow("random") << VOColorRamp::RandomRamp;
    QTest::newRow("HSV random") << VOColorRamp::RandomHsvRamp;
    QTest::newRow("even") << VOColorRamp::EvenRamp;
    QTest::newRow("predefined") << VOColorRamp::PredefineRamp;
}

QVector<QColor> outputColors(VOColorRamp *ramp)
{
    QVector<QColor> colors;
    for (unsigned int i = 0; i < ramp->getLevel(); ++i)
        colors.append(toQColor(ramp->getColor(i)));
    return colors;
}

QImage stripOf(VOColorRamp *ramp)
{
    return colorRampPreviewPixmap(ramp, QSize(515, 30)).toImage();
}

EditorUnderTest::EditorUnderTest(RampPointer ramp, Mode mode)
    : group(makeGroup(QStringLiteral("Group"),
                      {QStringLiteral("Before"), QStringLiteral("Mine"), QStringLiteral("After")}))
    , index(1)
{
    if (mode == AddMode) {
        group.schemes.push_back(makeScheme(QStringLiteral("add_scheme1")));
        index = 3;
    }
    delete scheme().colorRamp;
    scheme().colorRamp = ramp.release();
    dialog = std::make_unique<VTColorSchemeEditor>(index, &group, mode == AddMode, nullptr);
}

EditorUnderTest::~EditorUnderTest() = default;

VOColorScheme &EditorUnderTest::scheme()
{
    return group.schemes.at(static_cast<std::size_t>(index));
}

const VOColorScheme &EditorUnderTest::scheme() const
{
    return group.schemes.at(static_cast<std::size_t>(index));
}

VTColorModel *EditorUnderTest::model() const
{
    return qobject_cast<VTColorModel *>(view()->model());
}

QVector<int> EditorUnderTest::hsvValues() const
{
    QVector<int> values;
    for (const char *name : {"spinBox_minh", "spinBox_maxh", "spinBox_mins", "spinBox_maxs",
                             "spinBox_minv", "spinBox_maxv"})
        values.append(box(name)->value());
    return values;
}

QImage EditorUnderTest::preview() const
{
    return part<QLabel>("previewLabel")->pixmap(Qt::ReturnByValue).toImage();
}

VOColorRamp *EditorUnderTest::storedByOk()
{
    run("onOk");
    return scheme().colorRamp;
}

void EditorUnderTest::chooseType(VOColorRamp::ColorRampType type)
{
    auto *combo = part<QComboBox>("comboBox_type");
    combo->setCurrentIndex(type);
    Q_EMIT combo->activated(type);
}

void EditorUnderTest::run(const char *slot)
{
    if (!QMetaObject::invokeMethod(dialog.get(), slot))
        qFatal("no slot named %s", slot);
}

void EditorUnderTest::select(const QVector<int> &rows)
{
    QItemSelection selection;
    for (const int row : rows)
        selection.select(model()->index(row, 0), model()->index(row, 1));
    view()->selectionModel()->select(selection, QItemSelectionModel::ClearAndSelect);
    if (!rows.isEmpty())
        view()->selectionModel()->setCurrentIndex(model()->index(rows.last(), 0),
                                                  QItemSelectionModel::NoUpdate);
}

QVector<int> EditorUnderTest::selectedRows() const
{
    QVector<int> rows;
    const QModelIndexList indexes = view()->selectionModel()->selectedRows();
    for (const QModelIndex &selected : indexes)
        rows.append(selected.row());
    std::sort(rows.begin(), rows.end());
    return rows;
}

QStringList EditorUnderTest::enabledMoves() const
{
    QStringList moves;
    for (const char *name : {"actionTop", "actionBottom", "actionUp", "actionDown"}) {
        const auto *action = part<QAction>(name);
        if (action->isEnabled())
            moves.append(action->text());
    }
    return moves;
}

QString EditorUnderTest::warning() const
{
    const auto *icon = part<QWidget>("nameWidget")->findChild<QLabel *>(QStringLiteral("label"));
    return icon->isHidden() ? QString() : icon->toolTip();
}
