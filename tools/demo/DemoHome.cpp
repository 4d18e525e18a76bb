#include "demo/DemoHome.h"

#include "demo/DemoCd.h"
#include "demo/DemoCloudIni.h"
#include "demo/DemoDefaultCloudIni.h"
#include "demo/DemoFolderWriter.h"
#include "demo/DemoPictureFiles.h"
#include "demo/DemoPictures.h"
#include "demo/DemoSounds.h"
#include "demo/DemoTextureSets.h"

#include <string>

namespace vellumar::demo {

namespace {

struct Situation {
    std::string_view name;
    Scene picture;
    std::string_view title;
    std::string_view shownText;
    std::string_view skyFolders[3];
    std::string_view time;     // season, day of the year, hours, minutes
    std::string_view position; // latitude, longitude, altitude, heading
    std::string_view weather;
    std::string_view description; // a .txt file beside the situation, when not empty
};

constexpr Situation kSituations[] = {
    {"Summer evening",
     Scene::SummerEvening,
     "Summer evening over the bay",
     "Haze, scattered cumulus and a golden sunset over the bay.",
     {"Clouds\\Summer haze", "Sky\\Golden dusk", ""},
     "Summer|172|20|15",
     "37.6190|-122.3750|2500|290",
     "Visibility=12\nWind=270/08\nTemperature=24\nClouds=Cumulus 4500 3/8\n",
     "Summer evening over the bay\n\n"
     "A calm flight along the coast as the sun goes down. The haze of a warm\n"
     "day hangs over the water, and scattered cumulus catch the last light.\n\n"
     "Installs: Clouds\\Summer haze, Sky\\Golden dusk."},
    {"Storm approach",
     Scene::StormApproach,
     "Storm approach",
     "A thunderstorm builds west of the field; heavy rain under its base.",
     {"Clouds\\t-storm  2", "Weather\\Heavy rain", ""},
     "Summer|201|16|40",
     "47.4490|-122.3090|3000|250",
     "Visibility=4\nWind=240/22G35\nTemperature=27\nClouds=Cumulonimbus 3000 5/8\n",
     ""},
    {"Winter morning",
     Scene::WinterMorning,
     "Winter morning",
     "Low stratus and light snow after a cold night.",
     {"Clouds\\Overcast stratus", "Weather\\Snow flurries", "Sky\\Clear day"},
     "Winter|15|8|30",
     "61.1740|-149.9960|1800|070",
     "Visibility=6\nWind=010/06\nTemperature=-9\nClouds=Stratus 2500 8/8\n",
     ""},
};

std::vector<std::string> Split(std::string_view text)
{
    std::vector<std::string> parts;
    std::size_t start = 0;
    for (std::size_t bar = text.find('|'); bar != std::string_view::npos;
         bar = text.find('|', start)) {
        parts.emplace_back(text.substr(start, bar - start));
        start = bar + 1;
    }
    parts.emplace_back(text.substr(start));
    return parts;
}

// The section a situation file keeps for Vellumar.
std::string VellumarSection(const Situation& situation, std::string_view shownText)
{
    std::string text = "[Vellumar]\nShownText=" + std::string(shownText) + "\n";
    int number = 0;
    for (std::string_view folder : situation.skyFolders)
        if (!folder.empty())
            text += "SkyFolder" + std::to_string(++number) + "=" + std::string(folder) + "\n";
    return text;
}

std::string FlightFile(const Situation& situation)
{
    const std::vector<std::string> time = Split(situation.time);
    const std::vector<std::string> position = Split(situation.position);
    return "[Main]\nTitle=" + std::string(situation.title) +
           "\nDescription=" + std::string(situation.shownText) + "\n\n" +
           VellumarSection(situation, situation.shownText) +
           "\n[DateTimeSeason]\nSeason=" + time[0] + "\nYear=2004\nDay=" + time[1] +
           "\nHours=" + time[2] + "\nMinutes=" + time[3] +
           "\n\n[SimVars.0]\nLatitude=" + position[0] + "\nLongitude=" + position[1] +
           "\nAltitude=" + position[2] + "\nHeading=" + position[3] +
           "\nAirspeed=120\n\n[Weather]\nWeatherFile=" + std::string(situation.name) + ".WX\n";
}

std::string WeatherFile(const Situation& situation)
{
    return "; Weather of the situation \"" + std::string(situation.name) + "\"\n[Weather]\n" +
           std::string(situation.weather) + "\n" +
           VellumarSection(situation, "Weather for " + std::string(situation.title) + ".");
}

// A playlist as a player on Windows writes it: entries relative to the playlist, one of them
// in the folder beside it, with backslashes between the parts.
std::string PlaylistText()
{
    return "#EXTM3U\n"
           "#EXTINF:2,Tower chime\n"
           "tower-chime.wav\n"
           "#EXTINF:2,Evening wind\n"
           "..\\Ch2\\wind.wav\n";
}

std::string HelpPage()
{
    return R"(<!DOCTYPE html>
<html lang="en">
<head>
<meta charset="utf-8">
<title>Vellumar demo</title>
<style>
body { font-family: sans-serif; max-width: 46em; margin: 2em auto; line-height: 1.45; color: #222; }
h1, h2 { color: #24466b; }
code { background: #eef2f6; padding: 0 0.2em; }
dt { font-weight: bold; margin-top: 0.6em; }
</style>
</head>
<body>
<h1>The Vellumar demo</h1>
<p>This folder is a complete, made-up installation: a Wine prefix with a stand-in for Flight
Simulator 2004, and a Vellumar program folder with a library of texture sets. Everything in it
was generated by <code>vellumar-cli demo</code>; the pictures and sounds are synthetic.</p>

<h2>Starting it</h2>
<p>Set the variables that <code>vellumar-cli demo</code> printed, then start Vellumar:</p>
<pre>export WINEPREFIX=.../prefix
export VELLUMAR_HOME=.../home
export VELLUMAR_CD='.../home/CD/Vellumar Demo.cue'
vellumar</pre>
<p>Vellumar finds the simulator through the prefix's registry (value <code>EXE Path</code>),
reads <code>cloud.ini</code> from the home folder and opens on the list of texture sets.
<code>VELLUMAR_CD</code> puts the demo's disc image in the CD player on Linux; without it the
player uses the computer's first CD drive.</p>

<h2>Things to try</h2>
<dl>
<dt>Install a set</dt>
<dd>Pick a set in the list, look at its preview and press <em>Install</em>. Its bitmaps land in the
simulator's <code>texture</code> folder, cloud files in <code>weather\clouds</code>, effect files in
<code>effects</code>, and <code>suneffect.cfg</code> in the simulator folder itself. A small tick
then marks, in the set lists, each set whose files are all in the simulator now.</dd>
<dt>Filters</dt>
<dd>All, Cumulus, Cirrus, Sky Color and Misc sort the sets by the bitmaps they hold.</dd>
<dt>AutoRandom</dt>
<dd>Click the time to set an interval; Vellumar then installs a random set (or the next one in
order) while the simulator runs. <em>Auto Install</em> chooses which sets take part; the autogen,
runway halo and glow sets are switched off in <code>cloud.ini</code> (<code>Random=off</code>).</dd>
<dt>Situations</dt>
<dd>Switch to <em>Situation</em>: three saved flights with pictures. Installing one installs the
sets it names and makes it the simulator's start flight in <code>fs9.cfg</code>.</dd>
<dt>Splash screens</dt>
<dd><em>Install and start</em> puts one of the three pictures of <code>Splash Screen</code> in place
of the simulator's own splash picture, in turn.</dd>
<dt>Sounds</dt>
<dd>The buttons click and AutoRandom chimes. Click <em>Option</em> and choose <em>Sound</em>
for the sound window, <em>Vellumar Sound</em>:
<ul>
<li><em>Audio CD</em> plays the demo's disc, <em>Vellumar Demo</em>: three short tunes. Choose a
track with the slider and tick <em>Play</em>; <em>Repeat</em> starts the disc again after its
last track.</li>
<li>Sound channels 1 and 2 play the files of <code>Sound\Ch1</code> (an engine drone) and
<code>Sound\Ch2</code> (wind, rain) in random turns, with a pause between two sounds.</li>
<li><em>Music</em> plays the music list in its order: a piece from <code>Sound\Ch1</code>, the
little waltz of <code>Sound\Ch3</code>, and the playlist <code>evening.m3u</code>, whose two
entries (the tower chime and the evening wind) play in its place. <em>Music Order&hellip;</em>
shows the list to add to, take from and rearrange; the list is kept in <code>cloud.ini</code>
(<code>[Sound] MusicFile1</code>, <code>MusicFile2</code>, ...).</li>
</ul></dd>
</dl>

<h2>What is where</h2>
<dl>
<dt><code>home/cloud.ini</code></dt><dd>The configuration, with a comment for every key.</dd>
<dt><code>home/Texture</code></dt><dd>The sets: <code>Texture\Group\Set</code>, option sets in
<code>Texture\Option</code>.</dd>
<dt><code>home/Splash Screen</code>, <code>home/Situation</code>, <code>home/Sound</code></dt>
<dd>Splash pictures, situations and sounds.</dd>
<dt><code>home/CD</code></dt><dd>The demo's audio CD as a disc image: <code>Vellumar Demo.cue</code>
and the <code>.bin</code> it names, which holds the audio (44100 Hz, 16-bit stereo).</dd>
<dt><code>prefix/drive_c/Program Files (x86)/Microsoft Games/Flight Simulator 9</code></dt>
<dd>The simulator. On Linux its <code>fs9.exe</code> is a small shell script that starts
<code>vellumar-standin</code>: a window that shows the sky made of the bitmaps installed in
<code>texture</code>, the splash picture, and the start situation of <code>fs9.cfg</code>, and that
draws again whenever an install changes them. So <em>Install and start</em> shows what it did.
Where the stand-in is missing (and on Windows), <code>fs9.exe</code> is a placeholder that does not
run; point <code>WINEPREFIX</code> at a real installation to start the real simulator.</dd>
</dl>

<h2>Starting over</h2>
<p><code>vellumar-cli demo DIR --force</code> builds the demo again from scratch, which undoes every
install and every change to <code>cloud.ini</code>.</p>
</body>
</html>
)";
}

} // namespace

void WriteHome(DemoFolderWriter& writer, std::string_view homeFolder, const DemoIniPaths& paths)
{
    if (writer.failed())
        return; // nothing more would be written; spare the painting
    const std::string home(homeFolder);
    writer.file(home + "/cloud.ini", DemoCloudIni(DefaultCloudIni(), paths));
    WriteTextureLibrary(writer, home + "/Texture");

    for (int number = 1; number <= 3; ++number)
        writer.file(home + "/Splash Screen/dlgsplash" + std::to_string(number) + ".bmp",
                    BitmapFile(SplashPicture(number)));

    for (const Situation& situation : kSituations) {
        const std::string stem = home + "/Situation/" + std::string(situation.name);
        writer.textFile(stem + ".FLT", FlightFile(situation));
        writer.textFile(stem + ".WX", WeatherFile(situation));
        writer.file(stem + ".jpg", JpegFile(ScenePicture(situation.picture, 160, 120, 700), 85));
        if (!situation.description.empty())
            writer.textFile(stem + ".txt", situation.description);
    }

    writer.file(home + "/Sound/button.wav", ButtonClickWave());
    writer.file(home + "/Sound/autorandom.wav", AutoRandomChimeWave());
    writer.file(home + "/Sound/Ch1/engine-drone.wav", ChannelWave(1));
    writer.file(home + "/Sound/Ch2/wind.wav", ChannelWave(2));
    writer.file(home + "/Sound/Ch2/rain.wav", RainWave());
    writer.file(home + "/Sound/Ch3/tower-chime.wav", ChannelWave(3));
    writer.file(home + "/Sound/Ch3/little-waltz.wav", LittleWaltzWave());
    writer.textFile(home + "/Sound/Ch3/evening.m3u", PlaylistText());
    WriteDemoCd(writer, home + "/" + std::string(kDemoCdFolder));

    writer.file(home + "/help/index.html", HelpPage());
}

} // namespace vellumar::demo
