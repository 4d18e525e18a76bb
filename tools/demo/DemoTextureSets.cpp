#include "demo/DemoTextureSets.h"

#include "common/TextCompare.h"
#include "demo/DemoFolderWriter.h"
#include "demo/DemoPictureFiles.h"
#include "demo/DemoPictures.h"

namespace vellumar::demo {

namespace {

constexpr int kPreviewWidth = 128;
constexpr int kPreviewHeight = 96;

std::string Bmp(const QImage& image)
{
    return BitmapFile(image);
}

std::string GreyBmp(const QImage& image)
{
    return GreyBitmapFile(image);
}

std::string GifPreview(Scene scene, std::uint32_t seed)
{
    return GifFile(ScenePicture(scene, kPreviewWidth, kPreviewHeight, seed));
}

std::string JpegPreview(Scene scene, std::uint32_t seed)
{
    return JpegFile(ScenePicture(scene, kPreviewWidth, kPreviewHeight, seed), 88);
}

std::string Notes(std::string_view title, std::string_view body)
{
    std::string text = std::string(title) + "\n" + std::string(title.size(), '=') + "\n\n";
    text += body;
    text += "\n\nThis file is for you, not for the simulator: Vellumar installs only the set's\n"
            "bitmaps (.bmp), cloud files (names ending in cld or xml), effect files (.fx) and\n"
            "suneffect.cfg. The preview picture is shown in the main window.\n";
    return text;
}

std::string Numbered(std::string_view stem, int number)
{
    return std::string(stem) + (number < 10 ? "0" : "") + std::to_string(number) + ".bmp";
}

std::vector<DemoSet> MakeSets()
{
    std::vector<DemoSet> sets;

    sets.push_back(
        {"Clouds\\Summer haze", "Hazy summer cumulus", 0, 0, true, 1,
         "Heaped cumulus in a milky summer sky. Data type Cumulus (cld*.bmp);\n"
         "filter Cumulus. With a cloud file and notes that are not installed.",
         "", [](int, const SetFileSink& sink) {
             std::vector<std::string> names;
             for (int i = 1; i <= 3; ++i) {
                 names.push_back(Numbered("cld", i));
                 sink(names.back(),
                      Bmp(CloudTexture(CloudKind::Cumulus, 100u + static_cast<unsigned>(i))));
             }
             sink("clouds.cld", CloudFileText("Summer haze", "Cumulus", names, 4500, 7500, "3/8"));
             sink("notes.txt",
                  Notes("Summer haze", "Three sheets of soft cumulus for hazy afternoons. "
                                       "Best with a\nsummer sky set such as Clear day."));
             sink("preview.gif", GifPreview(Scene::SummerHaze, 11));
         }});

    sets.push_back(
        {"Clouds\\Fair weather", "Fair-weather cumulus", 0, 0, true, 2,
         "Small, flat fair-weather cumulus. Data type Cumulus (cumul*.bmp); its\n"
         "preview is a .jpg.",
         "", [](int, const SetFileSink& sink) {
             std::vector<std::string> names;
             for (int i = 1; i <= 2; ++i) {
                 names.push_back(Numbered("cumulus", i));
                 sink(names.back(),
                      Bmp(CloudTexture(CloudKind::FairWeather, 200u + static_cast<unsigned>(i))));
             }
             sink("clouds.cld", CloudFileText("Fair weather", "Cumulus", names, 3500, 5000, "2/8"));
             sink("preview.jpg", JpegPreview(Scene::FairWeather, 21));
         }});

    sets.push_back(
        {"Clouds\\t-storm", "", 1, 3, true, 5,
         "A numbered series: the folders Clouds\\t-storm  1 to Clouds\\t-storm  3\n"
         "(two blanks before the number), from a building storm to a severe one.\n"
         "Data type Thunder (cldcn*.bmp comes before cld*.bmp); filter Cumulus.",
         "", [](int number, const SetFileSink& sink) {
             const float darkness = 0.25f + 0.2f * static_cast<float>(number - 1);
             std::vector<std::string> names;
             for (int i = 1; i <= 2; ++i) {
                 names.push_back(Numbered("cldcn", i));
                 sink(names.back(),
                      Bmp(CloudTexture(CloudKind::Thunder,
                                       static_cast<unsigned>(300 + 10 * number + i), darkness)));
             }
             sink("clouds.cld", CloudFileText("t-storm " + std::to_string(number), "Cumulonimbus",
                                              names, 3000, 30000 + 5000 * number, "5/8"));
             if (number == 1)
                 sink("notes.txt",
                      Notes("t-storm", "Three stages of a thunderstorm, one set each:\n"
                                       "1 building, 2 mature, 3 severe. The darker the "
                                       "number, the lower the light."));
             sink("preview.gif",
                  GifPreview(Scene::Thunderstorm, 30u + static_cast<unsigned>(number)));
         }});

    sets.push_back(
        {"Clouds\\Overcast stratus", "Overcast", 0, 0, true, 4,
         "A grey stratus deck. Data type Stratus; filter Misc. Its cloud file is XML.", "",
         [](int, const SetFileSink& sink) {
             sink("stratus01.bmp", Bmp(CloudTexture(CloudKind::Stratus, 401)));
             sink("stratus02.bmp", Bmp(CloudTexture(CloudKind::Stratus, 402, 0.3f)));
             sink("clouds.xml",
                  "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\r\n"
                  "<!-- Cloud layers of the set Overcast stratus -->\r\n"
                  "<Clouds version=\"1.0\">\r\n"
                  "  <Layer kind=\"Stratus\" base=\"2500\" tops=\"4200\" coverage=\"8/8\">\r\n"
                  "    <Texture file=\"stratus01.bmp\" />\r\n"
                  "    <Texture file=\"stratus02.bmp\" />\r\n"
                  "  </Layer>\r\n"
                  "</Clouds>\r\n");
             sink("preview.gif", GifPreview(Scene::Overcast, 41));
         }});

    sets.push_back({"Clouds\\High cirrus", "", 0, 0, true, 3,
                    "Thin cirrus streaks; no Alias, so the folder name is shown.\n"
                    "Data type Cirrus; filter Cirrus.",
                    "", [](int, const SetFileSink& sink) {
                        sink("cirrus01.bmp", Bmp(CloudTexture(CloudKind::Cirrus, 501)));
                        sink("cirrus02.bmp", Bmp(CloudTexture(CloudKind::Cirrus, 502)));
                        sink("notes.txt", Notes("High cirrus", "Wind-drawn ice cloud for fine days "
                                                               "before a front."));
                        sink("preview.gif", GifPreview(Scene::HighCirrus, 51));
                    }});

    sets.push_back({"Sky\\Clear day", "Clear day sky", 0, 0, true, 6,
                    "Sky colours for dawn, day, dusk and night. Data type Sky Color;\n"
                    "filter Sky Color.",
                    "", [](int, const SetFileSink& sink) {
                        sink("sky_dawn.bmp", Bmp(SkyTexture(SkyTime::Dawn, false)));
                        sink("sky_day.bmp", Bmp(SkyTexture(SkyTime::Day, false)));
                        sink("sky_dusk.bmp", Bmp(SkyTexture(SkyTime::Dusk, false)));
                        sink("sky_night.bmp", Bmp(SkyTexture(SkyTime::Night, false)));
                        sink("preview.gif", GifPreview(Scene::ClearDay, 61));
                    }});

    sets.push_back({"Sky\\Golden dusk", "", 0, 0, true, 7,
                    "Warmer sky colours with an earth bitmap: sky_*.bmp comes first, so the\n"
                    "data type is Sky Color. Its preview is a .jpeg.",
                    "", [](int, const SetFileSink& sink) {
                        sink("sky_dawn.bmp", Bmp(SkyTexture(SkyTime::Dawn, true)));
                        sink("sky_day.bmp", Bmp(SkyTexture(SkyTime::Day, true)));
                        sink("sky_dusk.bmp", Bmp(SkyTexture(SkyTime::Dusk, true)));
                        sink("sky_night.bmp", Bmp(SkyTexture(SkyTime::Night, true)));
                        sink("earth_dusk.bmp", Bmp(EarthTexture(true)));
                        sink("preview.jpeg", JpegPreview(Scene::GoldenDusk, 71));
                    }});

    sets.push_back({"Sky\\Hazy horizon", "Haze over the ground", 0, 0, true, 0,
                    "The haze over the ground by day and by night. Data type Earth.", "",
                    [](int, const SetFileSink& sink) {
                        sink("earth_haze.bmp", Bmp(EarthTexture(false)));
                        sink("earth_night.bmp", Bmp(EarthTexture(true)));
                        sink("notes.txt", Notes("Hazy horizon", "Thicker haze low over the ground, "
                                                                "for summer heat and city air."));
                        sink("preview.gif", GifPreview(Scene::HazyHorizon, 81));
                    }});

    sets.push_back({"Sun\\Lens flare", "", 0, 0, true, 0,
                    "Four flare ghosts and the sun effect file that places them.\n"
                    "Data type Sun flare.",
                    "", [](int, const SetFileSink& sink) {
                        std::vector<std::string> names;
                        for (int i = 1; i <= 4; ++i) {
                            names.push_back(Numbered("flare", i));
                            sink(names.back(), Bmp(FlareTexture(i)));
                        }
                        sink("suneffect.cfg",
                             SunEffectText("Lens flare", "", "", names, "255,250,240"));
                        sink("preview.gif", GifPreview(Scene::LensFlare, 91));
                    }});

    sets.push_back({"Sun\\Warm sun", "Warm sun and corona", 0, 0, true, 0,
                    "A warmer sun disc with its corona. Data type Sun.", "",
                    [](int, const SetFileSink& sink) {
                        sink("sun.bmp", Bmp(SunTexture()));
                        sink("corona.bmp", Bmp(CoronaTexture()));
                        sink("suneffect.cfg",
                             SunEffectText("Warm sun", "sun.bmp", "corona.bmp", {}, "255,236,200"));
                        sink("preview.gif", GifPreview(Scene::WarmSun, 101));
                    }});

    sets.push_back({"Night\\Full moon", "", 0, 0, true, 0, "A detailed full moon. Data type Moon.",
                    "", [](int, const SetFileSink& sink) {
                        sink("moon.bmp", Bmp(MoonTexture(0)));
                        sink("preview.gif", GifPreview(Scene::FullMoon, 111));
                    }});

    sets.push_back({"Weather\\Heavy rain", "", 0, 0, true, 0,
                    "Dense rain streaks, as 8-bit grey bitmaps. Data type Rain.", "",
                    [](int, const SetFileSink& sink) {
                        sink("rain01.bmp", GreyBmp(RainTexture(1201, 140)));
                        sink("rain02.bmp", GreyBmp(RainTexture(1202, 110)));
                        sink("preview.gif", GifPreview(Scene::HeavyRain, 121));
                    }});

    sets.push_back({"Weather\\Cockpit rain", "Rain on the windscreen", 0, 0, true, 0,
                    "Drops on the windscreen of the virtual cockpit. Data type VC Rain\n"
                    "(rain*.bmp does not match a name that begins with VC).",
                    "", [](int, const SetFileSink& sink) {
                        sink("VCrain01.bmp", Bmp(CockpitRainTexture(1301)));
                        sink("notes.txt",
                             Notes("Cockpit rain", "Seen only from the virtual cockpit."));
                        sink("preview.gif", GifPreview(Scene::CockpitRain, 131));
                    }});

    sets.push_back({"Weather\\Snow flurries", "", 0, 0, true, 0,
                    "Flakes large and small, as 8-bit grey bitmaps. Data type Snow.", "",
                    [](int, const SetFileSink& sink) {
                        sink("snow01.bmp", GreyBmp(SnowTexture(1401, 140)));
                        sink("snow02.bmp", GreyBmp(SnowTexture(1402, 90)));
                        sink("preview.gif", GifPreview(Scene::SnowFlurries, 141));
                    }});

    sets.push_back({"Scenery\\Autumn town", "Autumn trees and houses", 0, 0, false, 0,
                    "Autogen trees in autumn colours and a house front. Data type Autogen.",
                    "autogen is scenery, not weather: keep it out of AutoRandom",
                    [](int, const SetFileSink& sink) {
                        sink("trees01.bmp", Bmp(TreesTexture(1501)));
                        sink("trees02.bmp", Bmp(TreesTexture(1502)));
                        sink("BLD01.bmp", Bmp(BuildingTexture(1503)));
                        sink("notes.txt", Notes("Autumn town", "Leaves turn from October on; "
                                                               "install in time for the season."));
                        sink("preview.gif", GifPreview(Scene::AutumnTown, 151));
                    }});

    sets.push_back({"Airport\\Runway halo", "Runway light halo", 0, 0, false, 0,
                    "The glow around runway lights: halo.bmp alone makes the data type\n"
                    "Runway, not Sun.",
                    "", [](int, const SetFileSink& sink) {
                        sink("halo.bmp", Bmp(HaloTexture(1.0f)));
                        sink("preview.gif", GifPreview(Scene::RunwayHalo, 161));
                    }});

    sets.push_back({"Effects\\Soft glow", "Soft glow effect", 0, 0, false, 0,
                    "An effect file with its bitmap: no name of the table matches, so the\n"
                    "data type is Unknown. Installing it puts glow.fx into the simulator's\n"
                    "effects folder and, because a .fx file is installed, the bitmap into\n"
                    "effects\\texture.",
                    "", [](int, const SetFileSink& sink) {
                        sink("glow.fx", WithCrLf(EffectFileText("Soft glow", "fx_glow.bmp")));
                        sink("fx_glow.bmp", Bmp(GlowTexture()));
                        sink("notes.txt",
                             Notes("Soft glow", "A gentle light for beacons and lamps."));
                        sink("preview.gif", GifPreview(Scene::SoftGlow, 171));
                    }});

    // Text files of the sets are written with Windows line endings like every other text.
    for (DemoSet& set : sets) {
        auto content = std::move(set.content);
        set.content = [content](int number, const SetFileSink& sink) {
            content(number, [&sink](const std::string& name, const std::string& bytes) {
                const bool text = EndsWithIgnoreCase(name, ".txt") ||
                                  EndsWithIgnoreCase(name, ".cld") ||
                                  EndsWithIgnoreCase(name, ".cfg");
                sink(name, text ? WithCrLf(bytes) : bytes);
            });
        };
    }
    return sets;
}

} // namespace

const std::vector<DemoSet>& DemoSets()
{
    static const std::vector<DemoSet> sets = MakeSets();
    return sets;
}

std::vector<std::string> SetFolders(const DemoSet& set)
{
    std::string folder = set.dirName;
    for (char& c : folder)
        if (c == '\\')
            c = '/';
    if (set.to == 0)
        return {folder};
    const std::size_t slash = folder.rfind('/');
    const std::string name = slash == std::string::npos ? folder : folder.substr(slash + 1);
    const std::string gap = StartsWithIgnoreCase(name, "t-storm") ? "  " : " ";
    std::vector<std::string> folders;
    for (int number = set.from; number <= set.to; ++number)
        folders.push_back(folder + gap + std::to_string(number));
    return folders;
}

void WriteTextureLibrary(DemoFolderWriter& writer, std::string_view textureFolder)
{
    const std::string root(textureFolder);
    for (const DemoSet& set : DemoSets()) {
        const std::vector<std::string> folders = SetFolders(set);
        for (std::size_t i = 0; i < folders.size() && !writer.failed(); ++i) {
            const std::string folder = root + "/" + folders[i];
            writer.folder(folder);
            set.content(set.to == 0 ? 0 : set.from + static_cast<int>(i),
                        [&](const std::string& name, const std::string& bytes) {
                            writer.file(folder + "/" + name, bytes);
                        });
        }
    }

    // Option sets: their bitmaps can go along with any set.
    writer.file(root + "/Option/Bright halo/halo.bmp", Bmp(HaloTexture(1.6f)));
    writer.file(root + "/Option/Crescent moon/moon.bmp", Bmp(MoonTexture(0.7f)));
    writer.file(root + "/Option/Crescent moon/preview.gif", GifPreview(Scene::CrescentMoon, 181));
    writer.file(root + "/Option/Light rain/rain01.bmp", GreyBmp(RainTexture(1701, 50)));
    writer.textFile(root + "/Option/Light rain/notes.txt",
                    Notes("Light rain", "A drizzle to add to any cloud set. Only the bitmaps of an "
                                        "option set\nare offered for installation."));
}

std::string CloudFileText(std::string_view title, std::string_view kind,
                          const std::vector<std::string>& textures, int base, int tops,
                          std::string_view coverage)
{
    std::string list;
    for (const std::string& name : textures)
        list += (list.empty() ? "" : ", ") + name;
    return "; Cloud layer of \"" + std::string(title) +
           "\"\n"
           "[General]\n"
           "Title=" +
           std::string(title) +
           "\n"
           "Version=1.0\n"
           "\n"
           "[Layer.0]\n"
           "Kind=" +
           std::string(kind) + "\nTextures=" + list + "\nBaseFeet=" + std::to_string(base) +
           "\nTopsFeet=" + std::to_string(tops) + "\nCoverage=" + std::string(coverage) +
           "\nPuffSizeMetres=900\nDensity=0.55\n";
}

std::string SunEffectText(std::string_view title, std::string_view sun, std::string_view corona,
                          const std::vector<std::string>& flares, std::string_view colour)
{
    std::string text = "; Sun and flare effect of \"" + std::string(title) + "\"\n";
    text += "[Sun]\nTexture=" + std::string(sun.empty() ? "sun.bmp" : sun) +
            "\nSize=1.10\nColour=" + std::string(colour) + "\n\n";
    text += "[Corona]\nTexture=" + std::string(corona.empty() ? "corona.bmp" : corona) +
            "\nSize=3.20\nFade=0.85\n\n";
    text += "[Flare]\nCount=" + std::to_string(flares.size()) + "\n";
    for (std::size_t i = 0; i < flares.size(); ++i)
        text += "Flare." + std::to_string(i) + "=" + flares[i] + ", " +
                std::to_string(45 + 25 * static_cast<int>(i)) + ", 0." +
                std::to_string(20 + 10 * static_cast<int>(i)) + "\n";
    return text;
}

std::string EffectFileText(std::string_view title, std::string_view texture)
{
    return "[Library Effect]\n"
           "Lifetime=5\n"
           "Version=1.00\n"
           "Radius=6\n"
           "Display Name=" +
           std::string(title) +
           "\n\n"
           "[Properties]\n"
           "Priority=0\n\n"
           "[Emitter.0]\n"
           "Lifetime=0.00, 0.00\n"
           "Delay=0.00, 0.00\n"
           "Rate=4.00, 4.00\n"
           "Y Emitter Velocity=0.20, 0.40\n"
           "Drag=0.00, 0.00\n\n"
           "[Particle.0]\n"
           "Lifetime=1.20, 1.80\n"
           "Texture=" +
           std::string(texture) +
           "\n"
           "Color Start=255, 240, 220, 140\n"
           "Color End=200, 220, 255, 0\n"
           "Scale=0.40, 0.60\n"
           "Scale Rate=0.30, 0.30\n";
}

} // namespace vellumar::demo
