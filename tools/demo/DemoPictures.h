#pragma once

#include <QImage>

#include <cstdint>

namespace vellumar::demo {

// The pictures of the demo, painted from noise and simple shapes (QPainter draws the shapes and
// the captions). Every function is a pure
// function of its arguments (fixed seeds, no clock, no global state), so a demo built twice is
// the same byte for byte.

enum class SkyTime { Dawn, Day, Dusk, Night };

enum class CloudKind {
    Cumulus,     // heaped puffs, four to a sheet
    FairWeather, // smaller, flatter puffs
    Thunder,     // towers with an anvil, dark at the base
    Stratus,     // a grey sheet in long bands
    Cirrus,      // thin wind-drawn streaks
};

// Textures as a texture set holds them. Clouds, sun, moon, flares, rain and the like are light
// on black, the way the simulator blends them; sky and earth textures are colour strips.
QImage SkyTexture(SkyTime time, bool golden);
QImage EarthTexture(bool night);
QImage CloudTexture(CloudKind kind, std::uint32_t seed, float darkness = 0);
QImage SunTexture();
QImage CoronaTexture();
QImage FlareTexture(int number);  // 1 to 4: disc, ring, hexagon, star
QImage MoonTexture(float shadow); // 0 full moon; towards 1 a thinner crescent
QImage RainTexture(std::uint32_t seed, int streaks);
QImage CockpitRainTexture(std::uint32_t seed);
QImage SnowTexture(std::uint32_t seed, int flakes);
QImage TreesTexture(std::uint32_t seed);
QImage BuildingTexture(std::uint32_t seed);
QImage HaloTexture(float strength);
QImage GlowTexture();

// Whole pictures: the previews of the sets, the situation pictures and the splash screens.
enum class Scene {
    SummerHaze,
    FairWeather,
    Thunderstorm,
    Overcast,
    HighCirrus,
    ClearDay,
    GoldenDusk,
    HazyHorizon,
    LensFlare,
    WarmSun,
    FullMoon,
    CrescentMoon,
    HeavyRain,
    LightRain,
    CockpitRain,
    SnowFlurries,
    AutumnTown,
    RunwayHalo,
    SoftGlow,
    SummerEvening,
    StormApproach,
    WinterMorning,
};
QImage ScenePicture(Scene scene, int width, int height, std::uint32_t seed);

// A splash screen with a caption: number 0 is the simulator's own, 1 to 3 are the user's.
QImage SplashPicture(int number);

} // namespace vellumar::demo
