#include "vomap/store/StoreHistory_p.h"

#include "vomap/files/fileSystem_p.h"
#include "vomap/store/teamFileName_p.h"

#include <QDateTime>
#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <array>
#include <charconv>
#include <filesystem>
#include <string_view>
#include <system_error>

namespace VTObjects {

namespace {

namespace fs = std::filesystem;

// The digits at one place of a name; false if something else is there.
bool readDigits(std::string_view name, std::size_t at, std::size_t length, int &number)
{
    if (name.size() < at + length)
        return false;
    const char *const end = name.data() + at + length;
    const auto [read, error] = std::from_chars(name.data() + at, end, number);
    return error == std::errc() && read == end && number >= 0;
}

// "20261121T182406123Z"
bool readTime(std::string_view text, std::int64_t &time)
{
    int year = 0, month = 0, day = 0, hour = 0, minute = 0, millisecond = 0;
    const bool read = text.size() == 19 && text[8] == 'T' && text[18] == 'Z' &&
                      readDigits(text, 0, 4, year) && readDigits(text, 4, 2, month) &&
                      readDigits(text, 6, 2, day) && readDigits(text, 9, 2, hour) &&
                      readDigits(text, 11, 2, minute) && readDigits(text, 13, 5, millisecond);
    const QDate date(year, month, day);
    const QTime ofDay(hour, minute, millisecond / 1000, millisecond % 1000);
    if (!read || !date.isValid() || !ofDay.isValid())
        return false;
    time = QDateTime(date, ofDay, Qt::UTC).toMSecsSinceEpoch();
    return true;
}

// "custom.team.000012.20261121T182406123Z"; false for a name of another kind.
bool readName(std::string_view name, StoreHistory::State &state)
{
    for (const VOTeamKind which : allTeams) {
        const std::string_view team = teamFileName(which);
        const std::size_t dot = team.size() + 1 < name.size() ? name.find('.', team.size() + 1)
                                                              : std::string_view::npos;
        if (name.substr(0, team.size()) != team || dot == std::string_view::npos)
            continue;
        const std::size_t digits = dot - team.size() - 1;
        int number = 0;
        if (digits < 6 || digits > 9 || !readDigits(name, team.size() + 1, digits, number))
            return false;
        state.which = which;
        state.number = static_cast<std::uint32_t>(number);
        return readTime(name.substr(dot + 1), state.saved);
    }
    return false;
}

std::string nameOf(const StoreHistory::State &state)
{
    const QDateTime time = QDateTime::fromMSecsSinceEpoch(state.saved, Qt::UTC);
    const QString name = QStringLiteral("%1.%2.%3")
                             .arg(QLatin1String(teamFileName(state.which)))
                             .arg(state.number, 6, 10, QLatin1Char('0'))
                             .arg(time.toString(QStringLiteral("yyyyMMdd'T'HHmmsszzz'Z'")));
    return name.toStdString();
}

// Two names of one file. A system without links gives none, and a state may then be there twice.
bool areSameFile(const std::string &left, const std::string &right)
{
    std::error_code failed;
    return fs::equivalent(left, right, failed);
}

// By teams, and of each team the newest first.
bool isNewer(const StoreHistory::State &left, const StoreHistory::State &right)
{
    return left.which != right.which ? left.which < right.which : left.number > right.number;
}

} // namespace

StoreHistory::StoreHistory(const std::string &storeFolder)
    : folder(storeFolder + "/history")
{
    std::error_code failed;
    for (fs::directory_iterator at(folder, failed), end; !failed && at != end;
         at.increment(failed)) {
        State state;
        if (!readName(at->path().filename().string(), state))
            continue;
        state.size = at->file_size(failed);
        state.path = at->path().string();
        if (!failed)
            all.push_back(std::move(state));
        failed.clear();
    }
    std::sort(all.begin(), all.end(), isNewer);
}

std::string StoreHistory::keep(VOTeamKind which, const std::string &path)
{
    const auto newest = std::find_if(all.begin(), all.end(),
                                     [&](const State &state) { return state.which >= which; });
    const bool isFirst = newest == all.end() || newest->which != which;
    // A save that was interrupted may have come this far before.
    if (!isFirst && areSameFile(newest->path, path))
        return std::string();
    const QFileInfo file(QFile::decodeName(path.c_str()));
    if (!file.exists() || !makeFolder(folder))
        return std::string();
    State state;
    state.which = which;
    state.number = isFirst ? 1 : newest->number + 1;
    state.saved = file.lastModified().toMSecsSinceEpoch();
    state.size = static_cast<std::uint64_t>(file.size());
    state.path = folder + '/' + nameOf(state);
    if (!linkAs(path, state.path) || !syncFolder(folder)) {
        removeFile(state.path);
        return std::string();
    }
    return all.insert(newest, state)->path;
}

void StoreHistory::prune(const Limits &limits)
{
    const auto goes = [&](State &state, bool room) {
        if (!room)
            removeFile(state.path);
        return !room;
    };
    std::array<int, allTeams.size()> counts{};
    all.erase(std::remove_if(all.begin(), all.end(),
                             [&](State &state) {
                                 return goes(state, ++counts[state.which] <= limits.states);
                             }),
              all.end());
    // The room for bytes goes to what was saved last, of whichever team.
    std::stable_sort(all.begin(), all.end(), [](const State &left, const State &right) {
        return left.saved > right.saved;
    });
    std::uint64_t bytes = 0;
    all.erase(std::remove_if(all.begin(), all.end(),
                             [&](State &state) {
                                 bytes += state.size;
                                 return goes(state, bytes <= limits.bytes);
                             }),
              all.end());
    std::sort(all.begin(), all.end(), isNewer);
}

} // namespace VTObjects
