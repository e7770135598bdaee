#include "apps/mapviewer/layers/AsciiGridReader.h"

#include <QCoreApplication>
#include <QHash>

#include <charconv>
#include <cmath>
#include <limits>

namespace mapviewer {

namespace {

constexpr double defaultNoData = -9999.0;

struct Token
{
    QByteArray text;
    int line = 0;
};

bool isBlank(char c)
{
    return c == ' ' || c == '\t' || c == '\r' || c == '\n';
}

bool toNumber(const QByteArray &text, double *number)
{
    const char *first = text.constData();
    const char *last = first + text.size();
    // The locale must not matter, and a sign "+" is legal in the format but not for from_chars.
    if (first != last && *first == '+' && first + 1 != last && first[1] != '-')
        ++first;
    const auto [end, error] = std::from_chars(first, last, *number);
    return error == std::errc() && end == last && std::isfinite(*number);
}

class Reader
{
    Q_DECLARE_TR_FUNCTIONS(AsciiGridReader)

public:
    Reader(const QByteArray &source, FileProblem *report)
        : text(source)
        , problem(report)
    {
    }

    std::optional<AsciiGrid> read()
    {
        if (!readHeader() || !checkHeader() || !readValues())
            return std::nullopt;
        return std::move(grid);
    }

private:
    struct HeaderValue
    {
        double number = 0.0;
        int line = 0;
    };

    bool fail(int atLine, const QString &reason)
    {
        problem->line = atLine;
        problem->text = reason;
        return false;
    }

    // An empty token means the end of the file.
    Token next()
    {
        while (position < text.size() && isBlank(text[position])) {
            if (text[position] == '\n')
                ++line;
            ++position;
        }
        const int start = position;
        while (position < text.size() && !isBlank(text[position]))
            ++position;
        if (position > start)
            lastTokenLine = line;
        return {QByteArray::fromRawData(text.constData() + start, position - start), line};
    }

    bool readHeader();
    bool checkHeader();
    bool readValues();
    bool checkCount(const char *key, int *count);

    const QByteArray &text;
    FileProblem *problem;
    int position = 0;
    int line = 1;
    int lastTokenLine = 1;
    QHash<QByteArray, HeaderValue> header;
    int dataPosition = 0;
    int dataLine = 1;
    AsciiGrid grid;
};

bool Reader::readHeader()
{
    if (text.startsWith("\xEF\xBB\xBF"))
        position = 3; // some editors put a byte order mark before any text
    static const QList<QByteArray> keys = {"ncols",     "nrows",     "xllcorner", "xllcenter",
                                           "yllcorner", "yllcenter", "cellsize",  "nodata_value"};
    for (;;) {
        dataPosition = position;
        dataLine = line;
        const Token key = next();
        const bool isWord = !key.text.isEmpty() && QChar::isLetter(uint(uchar(key.text[0])));
        if (!isWord)
            break;
        const QByteArray name = key.text.toLower();
        const QString shown = QString::fromLatin1(key.text);
        if (!keys.contains(name))
            return fail(key.line, tr("\"%1\" is no key of an ASCII grid's header.").arg(shown));
        if (header.contains(name))
            return fail(key.line, tr("The key \"%1\" stands here a second time.").arg(shown));
        const Token value = next();
        if (value.text.isEmpty() || value.line != key.line)
            return fail(key.line, tr("The key \"%1\" has no value.").arg(shown));
        HeaderValue entry{0.0, key.line};
        if (!toNumber(value.text, &entry.number)) {
            return fail(key.line, tr("The value \"%1\" of \"%2\" is not a number.")
                                      .arg(QString::fromLatin1(value.text), shown));
        }
        header.insert(name, entry);
    }
    // The first value of the data was only looked at.
    position = dataPosition;
    line = dataLine;
    return true;
}

bool Reader::checkCount(const char *key, int *count)
{
    const HeaderValue entry = header.value(key);
    const double number = entry.number;
    if (number < 1.0 || number != std::floor(number) || number > double(maximumGridCells)) {
        return fail(entry.line, tr("\"%1\" must be a whole number from 1 to %2.")
                                    .arg(QLatin1String(key))
                                    .arg(maximumGridCells));
    }
    *count = int(number);
    return true;
}

bool Reader::checkHeader()
{
    // Named is the line on which the values begin: by then the key should have come.
    const auto missing = [this](const QString &name) {
        return fail(lastTokenLine, tr("The header lacks \"%1\".").arg(name));
    };
    for (const char *key : {"ncols", "nrows", "cellsize"}) {
        if (!header.contains(key))
            return missing(QLatin1String(key));
    }
    for (const char axis : {'x', 'y'}) {
        const QByteArray corner = axis + QByteArray("llcorner");
        const QByteArray center = axis + QByteArray("llcenter");
        if (header.contains(corner) && header.contains(center)) {
            const int later = std::max(header.value(corner).line, header.value(center).line);
            return fail(later, tr("\"%1\" and \"%2\" exclude one another.")
                                   .arg(QLatin1String(corner), QLatin1String(center)));
        }
        if (!header.contains(corner) && !header.contains(center))
            return missing(QLatin1String(corner));
    }
    const bool centered = header.contains("xllcenter");
    if (centered != header.contains("yllcenter")) {
        const int later = std::max(header.value(centered ? "xllcenter" : "xllcorner").line,
                                   header.value(centered ? "yllcorner" : "yllcenter").line);
        return fail(later, tr("One axis gives the corner of a cell and the other its center."));
    }
    if (!checkCount("ncols", &grid.columns) || !checkCount("nrows", &grid.rows))
        return false;
    const qint64 cells = qint64(grid.columns) * grid.rows;
    if (cells > maximumGridCells) {
        return fail(
            std::max(header.value("ncols").line, header.value("nrows").line),
            tr("%1 cells are more than the %2 that fit here.").arg(cells).arg(maximumGridCells));
    }
    grid.cellSize = header.value("cellsize").number;
    if (!(grid.cellSize > 0.0))
        return fail(header.value("cellsize").line, tr("\"cellsize\" must be greater than 0."));
    const double half = centered ? grid.cellSize / 2.0 : 0.0;
    grid.west = header.value(centered ? "xllcenter" : "xllcorner").number - half;
    grid.south = header.value(centered ? "yllcenter" : "yllcorner").number - half;
    return true;
}

bool Reader::readValues()
{
    const double noData = header.value("nodata_value", {defaultNoData, 0}).number;
    const auto cells = std::size_t(grid.columns) * std::size_t(grid.rows);
    // A value takes two bytes at least, so a header that promises too much costs no memory.
    grid.values.reserve(std::min(cells, std::size_t(text.size()) / 2 + 1));
    for (Token token = next(); !token.text.isEmpty(); token = next()) {
        const std::size_t index = grid.values.size();
        if (index == cells) {
            return fail(token.line, tr("There are more values than the %1 that \"ncols\" and "
                                       "\"nrows\" announce.")
                                        .arg(cells));
        }
        double number = 0.0;
        if (!toNumber(token.text, &number)) {
            const auto columns = std::size_t(grid.columns);
            return fail(token.line, tr("\"%1\" is not a number (row %2, column %3).")
                                        .arg(QString::fromLatin1(token.text.left(40)))
                                        .arg(index / columns + 1)
                                        .arg(index % columns + 1));
        }
        if (number == noData) {
            grid.values.push_back(std::numeric_limits<float>::quiet_NaN());
            continue;
        }
        if (std::abs(number) > double(std::numeric_limits<float>::max())) {
            return fail(
                token.line,
                tr("\"%1\" is too large a number.").arg(QString::fromLatin1(token.text.left(40))));
        }
        grid.values.push_back(float(number));
    }
    if (grid.values.size() < cells) {
        return fail(lastTokenLine, tr("The file ends after %1 of the %2 values that \"ncols\" and "
                                      "\"nrows\" announce.")
                                       .arg(grid.values.size())
                                       .arg(cells));
    }
    return true;
}

} // namespace

std::optional<AsciiGrid> readAsciiGrid(const QByteArray &text, FileProblem *problem)
{
    return Reader(text, problem).read();
}

} // namespace mapviewer
