// Saving and loading 100,000 schemes, beside what no store can do without: writing the same bytes
// with fsync and rename, reading them, and copying the records. One run, turn by turn, so that both
// sides meet the same disk.

#include "vomap/VOColorSchemeManager.h"
#include "vomap/VOEvenColorRamp.h"
#include "vomap/VORandomColorRamp.h"
#include "vomap/VOStringConversion.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>

#include <algorithm>
#include <cstdio>
#include <fcntl.h>
#include <memory>
#include <unistd.h>
#include <vector>

using namespace VTObjects;

namespace {

constexpr int groupCount = 100;
constexpr int schemesPerGroup = 1000;
constexpr int rounds = 9;

VOColorScheme sample(int number)
{
    VOColorScheme scheme;
    scheme.name = L"Scheme number " + std::to_wstring(number);
    scheme.author = L"Author " + std::to_wstring(number % 7);
    scheme.describe = L"What number " + std::to_wstring(number) + L" is good for";
    if (number % 2 == 0) {
        auto *ramp = new VOEvenColorRamp;
        rgb_color<float> sources[] = {
            {196, 69, float(number % 256)}, {255, 255, 191}, {48, 95, 207}};
        ramp->setSourceColor(3, sources);
        ramp->split(10);
        scheme.colorRamp = ramp;
    } else {
        auto *ramp = new VORandomColorRamp;
        ramp->setSeed(number);
        for (int i = 0; i < 10; ++i)
            ramp->addColor(
                {float((number * 7 + i * 25) % 256), float(number % 256), float(i * 25)});
        scheme.colorRamp = ramp;
    }
    return scheme;
}

void fill(VOColorSchemeTeam &team)
{
    team.groups.resize(groupCount);
    for (int i = 0; i < groupCount; ++i) {
        team.groups[std::size_t(i)].name = L"Group " + std::to_wstring(i);
        for (int j = 0; j < schemesPerGroup; ++j)
            team.groups[std::size_t(i)].schemes.push_back(sample(i * schemesPerGroup + j));
    }
}

double milliseconds(const QElapsedTimer &timer)
{
    return double(timer.nsecsElapsed()) / 1e6;
}

bool writeRaw(const QByteArray &bytes, const QByteArray &path)
{
    const QByteArray scratch = path + ".new";
    const int file = ::open(scratch.constData(), O_WRONLY | O_CREAT | O_TRUNC, 0666);
    if (file < 0)
        return false;
    const bool written =
        ::write(file, bytes.constData(), std::size_t(bytes.size())) == bytes.size() &&
        ::fsync(file) == 0;
    return ::close(file) == 0 && written && ::rename(scratch.constData(), path.constData()) == 0;
}

bool readRaw(char *bytes, ssize_t size, const QByteArray &path)
{
    const int file = ::open(path.constData(), O_RDONLY);
    if (file < 0)
        return false;
    const ssize_t count = ::read(file, bytes, std::size_t(size));
    return ::close(file) == 0 && count == size;
}

// Nothing shared with the original: every text and every list has its own memory.
VOColorScheme fullCopy(const VOColorScheme &scheme)
{
    VOColorScheme copy;
    copy.name = scheme.name.text();
    copy.author = scheme.author.text();
    copy.describe = scheme.describe.text();
    copy.colorRamp = scheme.colorRamp->clone();
    auto *container = dynamic_cast<VOColorRampContainer *>(copy.colorRamp);
    QVector<rgb_color<float>> colors = container->colorList();
    colors.detach();
    container->setColorList(colors);
    if (auto *even = dynamic_cast<VOEvenColorRamp *>(copy.colorRamp)) {
        QVector<rgb_color<float>> sources = even->sourceColorList();
        sources.detach();
        even->setSourceColorList(sources);
    }
    return copy;
}

VOColorSchemeTeam fullCopy(const VOColorSchemeTeam &team)
{
    VOColorSchemeTeam copy;
    for (const VOColorSchemeGroup &group : team.groups) {
        copy.groups.emplace_back();
        copy.groups.back().name = group.name;
        copy.groups.back().schemes.reserve(group.schemes.size());
        for (const VOColorScheme &scheme : group.schemes)
            copy.groups.back().schemes.push_back(fullCopy(scheme));
    }
    return copy;
}

double median(std::vector<double> values)
{
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

void print(const char *what, const std::vector<double> &store, const std::vector<double> &raw)
{
    std::printf("%-8s %8.1f ms (best %.1f), raw %8.1f ms (best %.1f): %.2f times\n", what,
                median(store), *std::min_element(store.begin(), store.end()), median(raw),
                *std::min_element(raw.begin(), raw.end()), median(store) / median(raw));
}

} // namespace

int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    // Beside the program and not in the folder for temporary files, which may be in memory.
    QTemporaryDir directory(QCoreApplication::applicationDirPath() + "/store-XXXXXX");
    VOColorSchemeManager::setStoreDirectory(toVOString(directory.path()));
    VOColorSchemeManager &manager = *VOColorSchemeManager::instance();
    fill(manager.customTeam);
    if (!manager.save())
        return 1;
    QFile saved(directory.filePath("custom.team"));
    if (!saved.open(QIODevice::ReadOnly))
        return 1;
    const QByteArray bytes = saved.readAll();
    const QByteArray rawPath = QFile::encodeName(directory.filePath("raw"));
    std::printf("%d schemes, %.1f MB, %d rounds, medians\n", groupCount * schemesPerGroup,
                bytes.size() / 1e6, rounds);

    std::vector<double> saving;
    std::vector<double> writing;
    std::vector<double> loading;
    std::vector<double> copying;
    std::vector<double> sharing;
    for (int round = 0; round < rounds; ++round) {
        QElapsedTimer timer;
        manager.customTeam.groups[0].schemes[0].author = std::to_wstring(round);
        timer.start();
        if (!manager.saveCustomTeam())
            return 1;
        saving.push_back(milliseconds(timer));
        timer.start();
        if (!writeRaw(bytes, rawPath))
            return 1;
        writing.push_back(milliseconds(timer));
    }
    for (int round = 0; round < rounds; ++round) {
        manager.customTeam.groups.clear();
        QElapsedTimer timer;
        timer.start();
        if (!manager.load())
            return 1;
        loading.push_back(milliseconds(timer));
        VOColorSchemeTeam copy;
        timer.start();
        const std::unique_ptr<char[]> read(new char[std::size_t(bytes.size())]);
        if (!readRaw(read.get(), bytes.size(), rawPath))
            return 1;
        copy = manager.customTeam;
        sharing.push_back(milliseconds(timer));
        copy.groups.clear();
        timer.start();
        const std::unique_ptr<char[]> again(new char[std::size_t(bytes.size())]);
        if (!readRaw(again.get(), bytes.size(), rawPath))
            return 1;
        copy = fullCopy(manager.customTeam);
        copying.push_back(milliseconds(timer));
    }
    print("saving", saving, writing);
    print("loading", loading, copying);
    std::printf("         (copies that share their texts and lists: %.1f ms with the reading)\n",
                median(sharing));
    return 0;
}
