#pragma once

#include "vomap/VOColorRamp.h"
#include "vomap/VOColorScheme.h"
#include "vomap/VOColorSchemeTeam.h"

#include <QByteArray>

#include <random>
#include <string>

/// Makes schemes that a file format has trouble with: hostile names, all kinds of ramps, all
/// patterns of floats from 0 to 255, output colours that no split() would give. The same seed gives
/// the same schemes everywhere.
class SchemeSamples
{
public:
    explicit SchemeSamples(unsigned int seed);

    VTObjects::VOColorScheme scheme();
    VTObjects::VOColorScheme scheme(VTObjects::VOColorRamp::ColorRampType kind);
    std::wstring text();
    VTObjects::rgb_color<float> color();
    /// From 0 to `largest`.
    unsigned int number(unsigned int largest);

private:
    float component();

    std::mt19937 generator;
};

/// Every field of a record, written out so that two dumps are equal only if the records are equal
/// bit for bit. Written without the code that stores them.
QByteArray dump(const VTObjects::VOColorScheme &scheme);
QByteArray dump(const VTObjects::VOColorSchemeGroup &group);
QByteArray dump(const VTObjects::VOColorSchemeTeam &team);
