#pragma once

#include "demo/RgbImage.h"

#include <cstdint>

namespace vellumar::demo {

// The pictures of the demo, painted from noise and simple shapes. Every function is a pure
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
RgbImage SkyTexture(SkyTime time, bool golden);
RgbImage EarthTexture(bool night);
RgbImage CloudTexture(CloudKind kind, std::uint32_t seed, float darkness = 0);
RgbImage SunTexture();
RgbImage CoronaTexture();
RgbImage FlareTexture(int number);  // 1 to 4: disc, ring, hexagon, star
RgbImage MoonTexture(float shadow); // 0 full moon; towards 1 a thinner crescent
RgbImage RainTexture(std::uint32_t seed, int streaks);
RgbImage CockpitRainTexture(std::uint32_t seed);
RgbImage SnowTexture(std::uint32_t seed, int flakes);
RgbImage TreesTexture(std::uint32_t seed);
RgbImage BuildingTexture(std::uint32_t seed);
RgbImage HaloTexture(float strength);
RgbImage GlowTexture();

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
RgbImage ScenePicture(Scene scene, int width, int height, std::uint32_t seed);

// A splash screen with a caption: number 0 is the simulator's own, 1 to 3 are the user's.
RgbImage SplashPicture(int number);

} // namespace vellumar::demo
