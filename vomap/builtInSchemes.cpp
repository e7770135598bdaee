#include "vomap/builtInSchemes_p.h"

#include "vomap/VOEvenColorRamp.h"
#include "vomap/VOPredefineColorRamp.h"
#include "vomap/VORandomColorRampForHsv.h"

#include <memory>
#include <vector>

namespace VTObjects {

namespace {

using Colors = std::vector<rgb_color<float>>;

VOColorScheme scheme(const wchar_t *name, const wchar_t *describe,
                     std::unique_ptr<VOColorRamp> ramp)
{
    VOColorScheme made;
    made.name = name;
    made.author = L"Built-in";
    made.describe = describe;
    made.colorRamp = ramp.release();
    return made;
}

template <typename Ramp>
VOColorScheme spread(const wchar_t *name, const wchar_t *describe, unsigned int level,
                     Colors sources)
{
    auto ramp = std::make_unique<Ramp>();
    ramp->setSourceColor(static_cast<long>(sources.size()), sources.data());
    ramp->split(level);
    return scheme(name, describe, std::move(ramp));
}

VOColorScheme random(const wchar_t *name, const wchar_t *describe, int seed)
{
    auto ramp = std::make_unique<VORandomColorRamp>();
    ramp->setSeed(seed);
    ramp->split(10);
    return scheme(name, describe, std::move(ramp));
}

struct HsvBox
{
    int minH, maxH, minS, maxS, minV, maxV;
};

VOColorScheme bounded(const wchar_t *name, const wchar_t *describe, int seed, HsvBox box)
{
    auto ramp = std::make_unique<VORandomColorRampForHsv>();
    ramp->setSeed(seed);
    ramp->minH = box.minH;
    ramp->maxH = box.maxH;
    ramp->minS = box.minS;
    ramp->maxS = box.maxS;
    ramp->minV = box.minV;
    ramp->maxV = box.maxV;
    ramp->split(10);
    return scheme(name, describe, std::move(ramp));
}

VOColorSchemeGroup group(const wchar_t *name, std::vector<VOColorScheme> schemes)
{
    VOColorSchemeGroup made;
    made.name = name;
    made.schemes = std::move(schemes);
    return made;
}

VOColorSchemeGroup dem()
{
    return group(L"DEM", {spread<VOPredefineColorRamp>(L"Lowland to snow", L"Elevation tints", 64,
                                                       {{46, 125, 77},
                                                        {158, 190, 110},
                                                        {240, 226, 165},
                                                        {196, 150, 96},
                                                        {133, 94, 66},
                                                        {255, 255, 255}}),
                          spread<VOPredefineColorRamp>(
                              L"Dry relief", L"Elevation tints for dry land", 64,
                              {{112, 92, 66}, {186, 152, 104}, {226, 202, 152}, {244, 234, 212}}),
                          spread<VOPredefineColorRamp>(
                              L"Sea floor", L"Depths, deep to shallow", 64,
                              {{8, 29, 88}, {34, 94, 168}, {65, 182, 196}, {199, 233, 240}})});
}

VOColorSchemeGroup unique()
{
    return group(
        L"Unique",
        {spread<VOEvenColorRamp>(L"Eight clear hues", L"Qualitative, 8 classes", 8,
                                 {{31, 120, 180},
                                  {230, 120, 20},
                                  {45, 150, 60},
                                  {200, 35, 45},
                                  {125, 85, 170},
                                  {140, 90, 70},
                                  {225, 120, 190},
                                  {120, 120, 120}}),
         spread<VOEvenColorRamp>(L"Six pastels", L"Qualitative, 6 classes", 6,
                                 {{166, 206, 227},
                                  {253, 205, 172},
                                  {203, 225, 180},
                                  {244, 190, 205},
                                  {221, 208, 232},
                                  {255, 242, 174}}),
         spread<VOEvenColorRamp>(
             L"Five dark tones", L"Qualitative, 5 classes", 5,
             {{27, 110, 90}, {190, 90, 10}, {100, 95, 165}, {190, 35, 120}, {90, 140, 25}})});
}

VOColorSchemeGroup range()
{
    return group(L"Range",
                 {spread<VOEvenColorRamp>(L"Yellow to red", L"Sequential", 7,
                                          {{255, 247, 188}, {254, 153, 41}, {140, 20, 20}}),
                  spread<VOEvenColorRamp>(L"Pale to deep blue", L"Sequential", 7,
                                          {{239, 243, 255}, {107, 174, 214}, {8, 48, 107}}),
                  spread<VOEvenColorRamp>(L"Red to blue", L"Diverging", 9,
                                          {{178, 24, 43}, {247, 247, 247}, {33, 102, 172}})});
}

VOColorSchemeGroup graph()
{
    return group(
        L"Graph",
        {spread<VOEvenColorRamp>(L"Four strong", L"Charts, 4 series", 4,
                                 {{0, 114, 178}, {213, 94, 0}, {0, 158, 115}, {204, 121, 167}}),
         spread<VOEvenColorRamp>(
             L"Five warm and cool", L"Charts, 5 series", 5,
             {{38, 70, 83}, {42, 157, 143}, {233, 196, 106}, {244, 162, 97}, {231, 111, 81}}),
         spread<VOEvenColorRamp>(L"Three greys", L"Charts in print, 3 series", 3,
                                 {{40, 40, 40}, {200, 200, 200}})});
}

VOColorSchemeGroup even()
{
    return group(
        L"Even",
        {spread<VOEvenColorRamp>(L"Red, yellow, blue", L"Even", 10,
                                 {{196, 69, 57}, {255, 255, 191}, {48, 95, 207}}),
         spread<VOEvenColorRamp>(L"Black to white", L"Even", 10, {{0, 0, 0}, {255, 255, 255}}),
         spread<VOEvenColorRamp>(L"White to green", L"Even", 10, {{247, 252, 245}, {0, 90, 50}})});
}

VOColorSchemeGroup randomGroup()
{
    return group(L"Random",
                 {random(L"Any colour", L"Random, seed 1", 1),
                  bounded(L"Pastel", L"Random, pale", 2, {0, 360, 20, 45, 85, 100}),
                  bounded(L"Earth", L"Random, brown to green", 3, {20, 100, 30, 65, 35, 80})});
}

} // namespace

VOColorSchemeTeam builtInTeam()
{
    VOColorSchemeTeam team;
    team.name = L"Default";
    team.groups = {dem(), unique(), range(), graph(), even(), randomGroup()};
    return team;
}

} // namespace VTObjects
