// The demo environment is built into temporary folders through the real file operations and
// then read the way a newcomer's program would read it: as bitmaps, pictures, INI files and
// registry files, checked against the file formats and the data layout rather than against the
// generator's own tables.

#include "demo/DemoEnvironment.h"

#include "cli/CliCommands.h"
#include "common/FileHelpers.h"
#include "common/PathText.h"
#include "common/TextCompare.h"
#include "common/WildcardMatch.h"
#include "config/ProfileText.h"
#include "config/WineRegistryFile.h"
#include "demo/DemoCloudIni.h"
#include "demo/DemoDefaultCloudIni.h"
#include "demo/DemoPrefix.h"
#include "support/FaultyFileOperations.h"
#include "support/TempFolder.h"
#include "support/TestServices.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <map>
#include <memory>
#include <set>
#include <sstream>

namespace vellumar {
namespace {

namespace fs = std::filesystem;

constexpr const char* kUser = "pilot";

std::uint32_t U32(const std::string& b, std::size_t at)
{
    std::uint32_t value = 0;
    for (int i = 3; i >= 0; --i)
        value = value << 8 | static_cast<unsigned char>(b.at(at + static_cast<std::size_t>(i)));
    return value;
}

unsigned U16(const std::string& b, std::size_t at)
{
    return static_cast<unsigned char>(b.at(at)) | static_cast<unsigned char>(b.at(at + 1)) << 8;
}

// Every plain file below a folder, by path relative to it ("/" separated); links are not
// followed, so the prefix's drive link does not count drive C: twice.
std::map<std::string, std::string> FilesBelow(const std::string& root)
{
    std::map<std::string, std::string> files;
    for (const fs::directory_entry& entry : fs::recursive_directory_iterator(root))
        if (entry.is_regular_file() && !entry.is_symlink())
            files[fs::relative(entry.path(), root).generic_string()] =
                test::ReadWholeFile(entry.path().string());
    return files;
}

bool EndsWith(const std::string& name, std::string_view suffix)
{
    return EndsWithIgnoreCase(name, suffix);
}

std::string Ini(const std::string& contents, std::string_view section, std::string_view key)
{
    return ProfileText::Read(contents, section, key, "<absent>", 4096);
}

// A cloud.ini value as the program takes it: everything from the first "'" is a comment.
std::string IniValue(const std::string& contents, std::string_view section, std::string_view key)
{
    std::string value = Ini(contents, section, key);
    if (const std::size_t apostrophe = value.find('\''); apostrophe != std::string::npos)
        value = std::string(TrimBlanks(value.substr(0, apostrophe)));
    return value;
}

std::string Native(std::string path)
{
    for (char& c : path)
        if (c == '\\' || c == '/')
            c = kNativeSeparator;
    return path;
}

// Checks a file against the layout of a Windows bitmap; "" when it holds, else what is wrong.
std::string BitmapProblem(const std::string& b)
{
    if (b.size() < 54 || b.substr(0, 2) != "BM")
        return "no BM signature";
    if (U32(b, 2) != b.size())
        return "file size field " + std::to_string(U32(b, 2)) + " for " + std::to_string(b.size());
    if (U32(b, 14) != 40)
        return "not the 40-byte information header";
    const auto width = static_cast<std::int32_t>(U32(b, 18));
    const auto height = static_cast<std::int32_t>(U32(b, 22));
    const unsigned bits = U16(b, 28);
    if (width < 64 || width > 256 || height < 64 || height > 256)
        return "size " + std::to_string(width) + "x" + std::to_string(height);
    if (U16(b, 26) != 1 || U32(b, 30) != 0 || (bits != 24 && bits != 8))
        return "planes, compression or depth";
    const std::uint32_t colours = U32(b, 46);
    if ((bits == 8) != (colours > 0) || colours > 256)
        return "palette of " + std::to_string(colours);
    const std::uint32_t stride = (static_cast<std::uint32_t>(width) * bits + 31) / 32 * 4;
    const std::uint32_t imageSize = stride * static_cast<std::uint32_t>(height);
    if (U32(b, 10) != 54 + 4 * colours || U32(b, 34) != imageSize ||
        54 + 4 * colours + imageSize != b.size())
        return "offset, image size and file size do not add up";
    return "";
}

// The spread of brightness in a bitmap's pixel bytes: a generated picture that came out as one
// flat colour (all black, say) has none.
int BrightnessSpread(const std::string& b)
{
    const std::size_t offset = U32(b, 10);
    int low = 255, high = 0;
    for (std::size_t i = offset; i < b.size(); ++i) {
        const int v = static_cast<unsigned char>(b[i]);
        low = std::min(low, v);
        high = std::max(high, v);
    }
    return high - low;
}

// The data type of a set from its file names, as the 15-row table of the program names it.
std::string DataTypeOf(const std::vector<std::string>& names)
{
    const std::vector<std::pair<std::vector<const char*>, const char*>> table = {
        {{"cldcn*.bmp"}, "Thunder"},
        {{"cld*.bmp"}, "Cumulus"},
        {{"cumul*.bmp"}, "Cumulus"},
        {{"stratus*.bmp"}, "Stratus"},
        {{"cirrus*.bmp"}, "Cirrus"},
        {{"sky_*.bmp"}, "Sky Color"},
        {{"earth*.bmp"}, "Earth"},
        {{"flare*.bmp"}, "Sun flare"},
        {{"sun*.bmp", "corona*.bmp"}, "Sun"},
        {{"halo.bmp"}, "Runway"},
        {{"moon*.bmp"}, "Moon"},
        {{"rain*.bmp"}, "Rain"},
        {{"VCrain*.bmp"}, "VC Rain"},
        {{"snow*.bmp"}, "Snow"},
        {{"trees*.bmp", "BLD*.bmp"}, "Autogen"}};
    for (const auto& [patterns, type] : table)
        for (const char* pattern : patterns)
            for (const std::string& name : names)
                if (WildcardMatch(pattern, name))
                    return type;
    return "Unknown";
}

int CompatibilityOf(const std::vector<std::string>& names)
{
    auto any = [&](std::initializer_list<const char*> patterns) {
        for (const char* pattern : patterns)
            for (const std::string& name : names)
                if (WildcardMatch(pattern, name))
                    return true;
        return false;
    };
    if (any({"cld*.bmp", "cloudmask*.bmp", "cumulus0*.bmp"}))
        return 1;
    if (any({"cirrus*.bmp"}))
        return 2;
    if (any({"sky_*.bmp"}))
        return 3;
    return 5;
}

std::vector<std::string> PlainFilesIn(const std::string& folder)
{
    std::vector<std::string> names;
    for (const fs::directory_entry& entry : fs::directory_iterator(folder))
        if (entry.is_regular_file())
            names.push_back(entry.path().filename().string());
    return names;
}

// The set folders that the [SetN] sections of a cloud.ini name, in section order; a numbered
// series gives one folder per number, spelt as the folders on disk are: "t-storm" and two
// blanks, any other name and one.
std::vector<std::string> SetFoldersOf(const std::string& ini)
{
    std::vector<std::string> folders;
    for (int number = 1;; ++number) {
        const std::string section = "Set" + std::to_string(number);
        const std::string dirName = IniValue(ini, section, "DirName");
        if (dirName == "<absent>")
            break;
        const std::string from = IniValue(ini, section, "from");
        if (from == "<absent>") {
            folders.push_back(dirName);
            continue;
        }
        const std::string name = dirName.substr(dirName.rfind('\\') + 1);
        const std::string gap = StartsWithIgnoreCase(name, "t-storm") ? "  " : " ";
        for (int n = std::stoi(from); n <= std::stoi(IniValue(ini, section, "to")); ++n)
            folders.push_back(dirName + gap + std::to_string(n));
    }
    return folders;
}

// One demo shared by the tests that only read it.
class DemoEnvironmentTest : public ::testing::Test {
protected:
    static void SetUpTestSuite()
    {
        temp_ = std::make_unique<test::TempFolder>();
        test::FaultyFileOperations files;
        const auto start = std::chrono::steady_clock::now();
        outcome_ = std::make_unique<DemoOutcome>(
            BuildDemoEnvironment(files, {(*temp_) / "demo", false, kUser}));
        seconds_ = std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
        files_ = std::make_unique<std::map<std::string, std::string>>(FilesBelow(outcome_->folder));
    }
    static void TearDownTestSuite()
    {
        files_.reset();
        outcome_.reset();
        temp_.reset();
    }

    static const DemoOutcome& outcome() { return *outcome_; }
    static const std::map<std::string, std::string>& files() { return *files_; }
    static const std::string& file(const std::string& relative) { return files_->at(relative); }
    static std::string home(const std::string& relative)
    {
        return JoinPath(outcome_->home, Native(relative));
    }
    static const std::string& cloudIni() { return file("home/cloud.ini"); }

    static inline std::unique_ptr<test::TempFolder> temp_;
    static inline std::unique_ptr<DemoOutcome> outcome_;
    static inline std::unique_ptr<std::map<std::string, std::string>> files_;
    static inline double seconds_ = 0;
};

TEST_F(DemoEnvironmentTest, BuildsQuicklyAndSaysWhereToPointTheProgram)
{
    ASSERT_TRUE(outcome().built) << outcome().error;
    EXPECT_FALSE(outcome().replaced);
    EXPECT_EQ(outcome().prefix, JoinPath((*temp_) / "demo", "prefix"));
    EXPECT_EQ(outcome().home, JoinPath((*temp_) / "demo", "home"));
    EXPECT_EQ(static_cast<std::size_t>(outcome().files), files().size());
    std::uint64_t bytes = 0;
    for (const auto& [name, contents] : files())
        bytes += contents.size();
    EXPECT_EQ(outcome().bytes, bytes);
    EXPECT_LT(bytes, 6u << 20); // a few megabytes, not more
    EXPECT_LT(seconds_, 5.0);   // well under a second on an idle machine; CI machines are not
    EXPECT_TRUE(file(std::string(kDemoMarkerName)).starts_with(kDemoMarkerSignature));
}

TEST_F(DemoEnvironmentTest, EveryBitmapIsAValidBitmapWithAPictureInIt)
{
    int bitmaps = 0, eightBit = 0;
    for (const auto& [name, contents] : files()) {
        if (!EndsWith(name, ".bmp"))
            continue;
        ++bitmaps;
        EXPECT_EQ(BitmapProblem(contents), "") << name;
        if (BitmapProblem(contents).empty()) {
            eightBit += U16(contents, 28) == 8;
            EXPECT_GT(BrightnessSpread(contents), 40) << name << " is nearly flat";
        }
    }
    EXPECT_GE(bitmaps, 50);
    EXPECT_GE(eightBit, 3); // the grey rain and snow textures
}

TEST_F(DemoEnvironmentTest, PreviewsAndSituationPicturesAreRealGifsAndJpegs)
{
    int gifs = 0, jpegs = 0;
    for (const auto& [name, contents] : files()) {
        if (EndsWith(name, ".gif")) {
            ++gifs;
            EXPECT_TRUE(contents.starts_with("GIF89a")) << name;
            EXPECT_EQ(contents.back(), ';') << name;
            EXPECT_GT(U16(contents, 6), 0u);
            EXPECT_GT(U16(contents, 8), 0u);
        } else if (EndsWith(name, ".jpg") || EndsWith(name, ".jpeg")) {
            ++jpegs;
            EXPECT_TRUE(contents.starts_with("\xFF\xD8\xFF")) << name;
            EXPECT_TRUE(contents.ends_with("\xFF\xD9")) << name;
            EXPECT_NE(contents.find("JFIF"), std::string::npos) << name;
        }
    }
    EXPECT_GE(gifs, 10);
    EXPECT_GE(jpegs, 5);
}

TEST_F(DemoEnvironmentTest, SoundsAreShortPcmWaves)
{
    int waves = 0;
    for (const auto& [name, contents] : files()) {
        if (!EndsWith(name, ".wav"))
            continue;
        ++waves;
        ASSERT_GE(contents.size(), 44u) << name;
        EXPECT_TRUE(contents.starts_with("RIFF") && contents.substr(8, 8) == "WAVEfmt ") << name;
        EXPECT_EQ(U32(contents, 4) + 8, contents.size()) << name;
        EXPECT_EQ(U16(contents, 20), 1u) << name; // PCM
        EXPECT_EQ(contents.substr(36, 4), "data") << name;
        EXPECT_EQ(U32(contents, 40) + 44, contents.size()) << name;
        EXPECT_LT(contents.size(), 100000u) << name;
    }
    EXPECT_GE(waves, 9);
}

TEST_F(DemoEnvironmentTest, EverySetSectionNamesAnExistingSetFolder)
{
    const std::string& ini = cloudIni();
    const std::vector<std::string> folders = SetFoldersOf(ini);
    EXPECT_GE(folders.size(), 12u);
    for (const std::string& folder : folders) {
        const std::string path = home("Texture/" + folder);
        ASSERT_TRUE(fs::is_directory(path)) << folder;
        const std::vector<std::string> names = PlainFilesIn(path);
        EXPECT_TRUE(std::any_of(names.begin(), names.end(), [](const std::string& n) {
            return EndsWith(n, ".bmp");
        })) << folder;
        EXPECT_EQ(std::count_if(names.begin(), names.end(),
                                [](const std::string& n) {
                                    return EndsWith(n, ".jpg") || EndsWith(n, ".jpeg") ||
                                           EndsWith(n, ".gif");
                                }),
                  1)
            << folder << " should have one preview picture";
    }

    // The features a newcomer should see at work: a numbered series, aliases, a set kept out of
    // AutoRandom, an AutoRandom order.
    bool series = false, alias = false, randomOff = false, order = false;
    for (int number = 1; IniValue(ini, "Set" + std::to_string(number), "DirName") != "<absent>";
         ++number) {
        const std::string section = "Set" + std::to_string(number);
        series |= IniValue(ini, section, "from") != "<absent>";
        alias |= IniValue(ini, section, "Alias") != "<absent>";
        randomOff |= EqualsIgnoreCase(IniValue(ini, section, "Random"), "off");
        const std::string place = IniValue(ini, section, "Order");
        if (place != "<absent>") {
            order = true;
            EXPECT_GT(std::stoi(place), 0) << section;
        }
        for (const char* key : {"DirName", "Alias"})
            EXPECT_EQ(Ini(ini, section, key).find('\''), std::string::npos)
                << section << " " << key << ": an apostrophe would cut the value short";
    }
    EXPECT_TRUE(series && alias && randomOff && order);
    EXPECT_TRUE(fs::is_directory(home("Texture/Clouds/t-storm  1")));
    EXPECT_TRUE(fs::is_directory(home("Texture/Clouds/t-storm  3")));
}

TEST_F(DemoEnvironmentTest, TheSetsCoverEveryDataTypeAndEveryCompatibilityCode)
{
    std::set<std::string> types;
    std::set<int> codes;
    for (const std::string& folder : SetFoldersOf(cloudIni())) {
        const std::vector<std::string> names = PlainFilesIn(home("Texture/" + folder));
        types.insert(DataTypeOf(names));
        codes.insert(CompatibilityOf(names));
    }
    const std::set<std::string> all = {"Thunder", "Cumulus",   "Stratus", "Cirrus",  "Sky Color",
                                       "Earth",   "Sun flare", "Sun",     "Runway",  "Moon",
                                       "Rain",    "VC Rain",   "Snow",    "Autogen", "Unknown"};
    EXPECT_EQ(types, all);
    EXPECT_EQ(codes, (std::set<int>{1, 2, 3, 5}));
}

TEST_F(DemoEnvironmentTest, SetsHoldWhatTheSimulatorReadsAndNotesThatStayBehind)
{
    std::set<std::string> kinds;
    for (const auto& [name, contents] : files()) {
        if (!name.starts_with("home/Texture/"))
            continue;
        const std::string bare = name.substr(name.rfind('/') + 1);
        for (const char* ending : {".cld", ".xml", ".fx", "suneffect.cfg", "notes.txt"})
            if (EndsWith(bare, ending))
                kinds.insert(ending);
        if (EndsWith(bare, ".cld") || EndsWith(bare, ".cfg") || EndsWith(bare, ".fx")) {
            EXPECT_NE(contents.find("\r\n"), std::string::npos) << name << " has Windows line ends";
        }
    }
    EXPECT_EQ(kinds.size(), 5u);
    // Option sets: sub-folders of Texture\Option holding bitmaps.
    int options = 0;
    for (const fs::directory_entry& entry : fs::directory_iterator(home("Texture/Option"))) {
        ++options;
        const std::vector<std::string> names = PlainFilesIn(entry.path().string());
        EXPECT_TRUE(std::any_of(names.begin(), names.end(),
                                [](const std::string& n) { return EndsWith(n, ".bmp"); }));
    }
    EXPECT_GE(options, 2);
}

TEST_F(DemoEnvironmentTest, EveryPathInCloudIniLeadsSomewhere)
{
    const std::string& ini = cloudIni();
    const std::string homeFolder = outcome().home;
    auto resolve = [&](const std::string& value) {
        if (fs::path(Native(value)).is_absolute())
            return Native(value);
        if (value.size() > 2 && value[1] == ':') // elsewhere C:\... lies in the prefix's drive C:
            return JoinPath(JoinPath(outcome().prefix, "drive_c"), Native(value.substr(3)));
        return JoinPath(homeFolder, Native(value));
    };
    EXPECT_EQ(IniValue(ini, "DataFolder", "Path"), ""); // the program's own folder
    EXPECT_TRUE(fs::is_directory(resolve(IniValue(ini, "Situation", "Loc"))));
    const std::string splash = resolve(IniValue(ini, "Splash Screen", "Path"));
    EXPECT_TRUE(EqualsIgnoreCase(IniValue(ini, "Splash Screen", "Splash"), "on"));
    for (int n = 1; n <= 3; ++n)
        EXPECT_TRUE(
            fs::is_regular_file(JoinPath(splash, "dlgsplash" + std::to_string(n) + ".bmp")));
    for (const char* key : {"Ch1Path", "Ch2Path", "Ch3Path"}) {
        const std::string folder = resolve(IniValue(ini, "Sound", key));
        EXPECT_TRUE(fs::is_directory(folder)) << key;
        EXPECT_FALSE(fs::is_empty(folder)) << key;
    }
    EXPECT_TRUE(fs::is_directory(resolve(IniValue(ini, "Sound", "LastMusicPath"))));
    EXPECT_TRUE(fs::is_regular_file(resolve(IniValue(ini, "Sound", "MusicFile1"))));
    for (const char* section : {"ButtonSound", "AutoRandomSound"}) {
        EXPECT_TRUE(EqualsIgnoreCase(IniValue(ini, section, "Beep"), "on")) << section;
        const std::string sound = IniValue(ini, section, "File");
        EXPECT_TRUE(EndsWith(sound, ".wav")) << section;
        EXPECT_TRUE(fs::is_regular_file(resolve(sound))) << section;
    }
    EXPECT_TRUE(fs::is_regular_file(resolve(IniValue(ini, "Editor", "Path"))));
    EXPECT_TRUE(
        fs::is_regular_file(JoinPath(resolve(IniValue(ini, "FS2004Path", "Path")), "fs9.exe")));
    EXPECT_EQ(IniValue(ini, "AppName", "Name").empty(), false);
}

TEST_F(DemoEnvironmentTest, TheRegistryNamesTheFolderOfTheSimulator)
{
    const std::string& registry = file("prefix/system.reg");
    EXPECT_TRUE(registry.starts_with("WINE REGISTRY Version 2\n"));
    const std::optional<std::string> exePath = WineRegistryScanner::Find(
        registry, {"Software\\Wow6432Node\\Microsoft\\Microsoft Games\\Flight Simulator\\9.0"},
        "EXE Path");
    ASSERT_TRUE(exePath.has_value());
    EXPECT_EQ(*exePath, "C:\\Program Files (x86)\\Microsoft Games\\Flight Simulator 9");

    // C: is drive_c of the prefix.
    const std::string simulator =
        JoinPath(JoinPath(outcome().prefix, "drive_c"), Native(exePath->substr(3)));
    EXPECT_TRUE(test::ReadWholeFile(JoinPath(simulator, "fs9.exe")).starts_with("MZ"));
    for (const char* part : {"texture/cld01.bmp", "weather/clouds/clouds.cld", "effects/glow.fx",
                             "effects/texture/fx_glow.bmp", "UIRES/dlgsplash.bmp", "suneffect.cfg"})
        EXPECT_TRUE(fs::is_regular_file(JoinPath(simulator, Native(part)))) << part;
    EXPECT_EQ(fs::canonical(simulator),
              fs::canonical(Native(IniValue(cloudIni(), "FS2004Path", "Path"))));

    // The sounds of the message box events, which the program plays without a button sound.
    const std::string& defaultUser = file("prefix/userdef.reg");
    for (const char* event :
         {"SystemAsterisk", "SystemExclamation", "SystemQuestion", "SystemHand"}) {
        const std::optional<std::string> sound = WineRegistryScanner::Find(
            defaultUser,
            {std::string("AppEvents\\Schemes\\Apps\\.Default\\") + event + "\\.Current"}, "");
        ASSERT_TRUE(sound.has_value()) << event;
        ASSERT_TRUE(StartsWithIgnoreCase(*sound, "%SystemRoot%")) << *sound;
        EXPECT_TRUE(fs::is_regular_file(
            JoinPath(JoinPath(outcome().prefix, "drive_c/windows"), Native(sound->substr(13)))))
            << *sound;
    }
}

TEST_F(DemoEnvironmentTest, TheUserProfileHoldsTheSimulatorConfigurationThatSituationsChange)
{
    const std::string& ini = cloudIni();
    const std::string profile = "prefix/drive_c/users/" + std::string(kUser);
    EXPECT_TRUE(fs::is_directory(
        JoinPath(outcome().folder, Native(profile + "/Documents/Flight Simulator Files"))));
    const std::string& config =
        file(profile + "/AppData/Roaming/Microsoft/FS9/" + IniValue(ini, "Situation", "CfgFile"));
    EXPECT_EQ(Ini(config, IniValue(ini, "Situation", "Section"), IniValue(ini, "Situation", "Key")),
              "");
    EXPECT_NE(IniValue(ini, "Situation", "Section"), "<absent>");
}

TEST_F(DemoEnvironmentTest, SituationsComeInPairsWithPicturesAndNameExistingSets)
{
    int situations = 0;
    for (const auto& [name, contents] : files()) {
        if (!name.starts_with("home/Situation/") ||
            !(EndsWith(name, ".FLT") || EndsWith(name, ".WX")))
            continue;
        ++situations;
        const std::string stem = name.substr(0, name.rfind('.'));
        EXPECT_TRUE(files().contains(stem + ".jpg")) << name;
        EXPECT_TRUE(files().contains(stem + ".FLT") && files().contains(stem + ".WX")) << name;
        EXPECT_NE(Ini(contents, "Vellumar", "ShownText"), "<absent>") << name;
        int sets = 0;
        for (int n = 1; Ini(contents, "Vellumar", "SkyFolder" + std::to_string(n)) != "<absent>";
             ++n, ++sets) {
            const std::string folder =
                home("Texture/" + Ini(contents, "Vellumar", "SkyFolder" + std::to_string(n)));
            const std::vector<std::string> names =
                fs::is_directory(folder) ? PlainFilesIn(folder) : std::vector<std::string>{};
            EXPECT_TRUE(std::any_of(names.begin(), names.end(),
                                    [](const std::string& f) { return EndsWith(f, ".bmp"); }))
                << name << " names " << folder;
        }
        EXPECT_GE(sets, 1) << name;
    }
    EXPECT_GE(situations, 6);
    EXPECT_TRUE(files().contains("home/help/index.html"));
}

TEST_F(DemoEnvironmentTest, TheDemoIniKeepsEveryDocumentedSettingOfTheDefault)
{
    const std::string defaults(DefaultCloudIni());
    const std::string sections =
        ProfileText::Read(defaults, std::nullopt, std::nullopt, "", 1 << 16);
    std::size_t checked = 0;
    for (std::size_t start = 0; start < sections.size(); start = sections.find('\0', start) + 1) {
        const std::string section = sections.substr(start, sections.find('\0', start) - start);
        if (section.starts_with("Set"))
            continue; // the default's example set makes way for the demo's sets
        const std::string keys = ProfileText::Read(defaults, section, std::nullopt, "", 1 << 16);
        for (std::size_t k = 0; k < keys.size(); k = keys.find('\0', k) + 1, ++checked)
            EXPECT_NE(Ini(cloudIni(), section, keys.substr(k, keys.find('\0', k) - k)), "<absent>")
                << "[" << section << "] " << keys.substr(k, keys.find('\0', k) - k);
    }
    EXPECT_GE(checked, 40u);
    // The documentation comes along: every comment line of the default's settings.
    EXPECT_NE(cloudIni().find("; [AppName]  The program's name."), std::string::npos);
    EXPECT_EQ(cloudIni().find("Clouds\\My first set"), std::string::npos);
}

// ---------------------------------------------------------------------------------------------
// Building into folders that are not empty

class DemoRebuildTest : public ::testing::Test {
protected:
    test::TempFolder temp;
    test::FaultyFileOperations files;

    DemoOutcome build(bool force = false)
    {
        return BuildDemoEnvironment(files, {temp / "demo", force, kUser});
    }
};

TEST_F(DemoRebuildTest, AForeignFolderIsRefusedAndLeftAlone)
{
    temp.write("demo/letter.txt", "mine");
    temp.write("demo/home/budget.xls", "also mine");
    const DemoOutcome outcome = build();
    EXPECT_FALSE(outcome.built);
    EXPECT_NE(outcome.error.find("--force"), std::string::npos);
    EXPECT_NE(outcome.error.find("not empty"), std::string::npos);
    EXPECT_EQ(FilesBelow(temp / "demo").size(), 2u);
    EXPECT_EQ(temp.read("demo/home/budget.xls"), "also mine");
}

TEST_F(DemoRebuildTest, ForceBuildsThereAndKeepsWhatIsNotTheDemos)
{
    temp.write("demo/letter.txt", "mine");
    temp.write("demo/home/budget.xls", "replaced with the rest of home");
    const DemoOutcome outcome = build(true);
    ASSERT_TRUE(outcome.built) << outcome.error;
    EXPECT_TRUE(outcome.replaced);
    EXPECT_EQ(temp.read("demo/letter.txt"), "mine");
    EXPECT_FALSE(fs::exists(temp / "demo/home/budget.xls"));
    EXPECT_TRUE(fs::is_regular_file(temp / "demo/home/cloud.ini"));
}

TEST_F(DemoRebuildTest, AnEarlierDemoIsRebuiltExactlyAsNew)
{
    ASSERT_TRUE(build().built);
    const std::map<std::string, std::string> first = FilesBelow(temp / "demo");

    // A newcomer's experiments: an installed set, an edited cloud.ini, a stray set folder.
    temp.write("demo/home/Texture/Clouds/Experiment/cld99.bmp", "x");
    temp.write("demo/home/cloud.ini", "[AppName]\r\nName=edited\r\n");
    fs::remove(temp / "demo/prefix/drive_c/Program Files (x86)/Microsoft Games/Flight Simulator "
                      "9/texture/sun.bmp");

    for (bool force : {false, true}) {
        const DemoOutcome again = build(force);
        ASSERT_TRUE(again.built) << again.error;
        EXPECT_TRUE(again.replaced);
        EXPECT_EQ(FilesBelow(temp / "demo"), first) << (force ? "with" : "without") << " --force";
    }
}

TEST_F(DemoRebuildTest, AFileIsNoFolderToBuildIn)
{
    temp.write("demo", "a file");
    const DemoOutcome outcome = build(true);
    EXPECT_FALSE(outcome.built);
    EXPECT_NE(outcome.error.find("is a file"), std::string::npos);
    EXPECT_EQ(temp.read("demo"), "a file");
}

TEST_F(DemoRebuildTest, AWriteThatFailsIsReportedAndTheNextRunFinishesTheJob)
{
    files.failReplace = [](const std::string& path) { return path.ends_with("system.reg"); };
    const DemoOutcome failed = build();
    EXPECT_FALSE(failed.built);
    EXPECT_NE(failed.error.find("system.reg"), std::string::npos);
    EXPECT_FALSE(fs::exists(temp / "demo/home")); // nothing is written after a failure

    // The half-built folder is recognised as a demo, so no --force is needed to finish it.
    files.failReplace = nullptr;
    const DemoOutcome finished = build();
    ASSERT_TRUE(finished.built) << finished.error;
    EXPECT_TRUE(fs::is_regular_file(temp / "demo/home/cloud.ini"));
}

TEST_F(DemoRebuildTest, AReadOnlyFileInTheOldDemoStopsTheRebuildWithItsName)
{
    // An earlier demo as far as the rebuild is concerned: the marker and a home folder.
    temp.write("demo/" + std::string(kDemoMarkerName), std::string(kDemoMarkerSignature) + "\n");
    temp.write("demo/home/Sound/button.wav", "RIFF");
    const std::string locked = temp / "demo/home/Sound/button.wav";
    ASSERT_TRUE(files.setAttributes(locked, FileAttribute::ReadOnly));
    const DemoOutcome outcome = build();
    EXPECT_FALSE(outcome.built);
    EXPECT_NE(outcome.error.find(temp / "demo/home"), std::string::npos);
    EXPECT_TRUE(fs::exists(locked));
}

// ---------------------------------------------------------------------------------------------
// Pieces with rules of their own

TEST(DemoRegistryTextTest, EscapesAsWineWritesThem)
{
    using demo::EscapeRegistryText;
    EXPECT_EQ(EscapeRegistryText("C:\\Program Files", '"'), "C:\\\\Program Files");
    EXPECT_EQ(EscapeRegistryText("say \"hi\"", '"'), "say \\\"hi\\\"");
    EXPECT_EQ(EscapeRegistryText("[x]", ']'), "[x\\]");
    EXPECT_EQ(EscapeRegistryText("a\nb\tc", '"'), "a\\nb\\tc");
    EXPECT_EQ(EscapeRegistryText(std::string("\x01x\x01"
                                             "7",
                                             4),
                                 '"'),
              "\\1x\\0017");
    // Beyond ASCII: the UTF-16 code in hex, with four digits when a hex digit follows.
    EXPECT_EQ(EscapeRegistryText("Zo\xC3\xAB", '"'), "Zo\\xeb");
    EXPECT_EQ(EscapeRegistryText("\xC3\xA9"
                                 "a1",
                                 '"'),
              "\\x00e9a1");
    EXPECT_EQ(EscapeRegistryText("\xF0\x9F\x98\x80", '"'), "\\xd83d\\xde00");
}

TEST(DemoRegistryTextTest, ANameBeyondAsciiReadsBackThroughTheProgramsScanner)
{
    test::TempFolder temp;
    test::FaultyFileOperations files;
    // Quotes would be escaped too, but Windows allows none in a folder name.
    const std::string name = "Zo\xC3\xAB 'Ace' M\xC3\xBCller";
    const DemoOutcome outcome = BuildDemoEnvironment(files, {temp / "demo", false, name});
    ASSERT_TRUE(outcome.built) << outcome.error;
    const std::string registry = temp.read("demo/prefix/system.reg");
    EXPECT_EQ(WineRegistryScanner::Find(
                  registry, {"Software\\Microsoft\\Windows NT\\CurrentVersion"}, "RegisteredOwner"),
              name);
    EXPECT_EQ(WineRegistryScanner::Find(
                  temp.read("demo/prefix/user.reg"),
                  {"Software\\Microsoft\\Windows\\CurrentVersion\\Explorer\\Shell Folders"},
                  "Personal"),
              "C:\\users\\" + name + "\\Documents");
    // Through the program's own file operations: they take UTF-8 on every system.
    EXPECT_EQ(FolderExists(files, temp / ("demo/prefix/drive_c/users/" + name + "/Documents")),
              "OK");
}

TEST(DemoCloudIniTest, SettingAValueKeepsItsComment)
{
    const std::string text = "[A]\r\nStretch=on   ' stretch the preview\r\nPlain=1\r\n";
    EXPECT_EQ(demo::SetIniValue(text, "a", "stretch", "off"),
              "[A]\r\nStretch=off   ' stretch the preview\r\nPlain=1\r\n");
    EXPECT_EQ(demo::SetIniValue(text, "A", "Plain", "2"),
              "[A]\r\nStretch=on   ' stretch the preview\r\nPlain=2\r\n");
    EXPECT_EQ(demo::SetIniValue(text, "A", "Plain", "1"), text);
}

TEST(DemoCommandTest, PrintsTheVariablesToExportAndRefusesWhatItMustNotTouch)
{
    test::TempFolder temp;
    test::TestServices fakes;
    std::ostringstream out, err;
    EXPECT_EQ(RunCliCommand({"demo", temp / "demo with blanks"}, fakes.services, out, err),
              CliExit::Success);
    const std::string printed = out.str();
    EXPECT_NE(
        printed.find("export WINEPREFIX='" + JoinPath(temp / "demo with blanks", "prefix") + "'\n"),
        std::string::npos)
        << printed;
    EXPECT_NE(printed.find("export VELLUMAR_HOME='" + JoinPath(temp / "demo with blanks", "home") +
                           "'\n"),
              std::string::npos);
    std::istringstream lines(printed);
    for (std::string line; std::getline(lines, line);)
        EXPECT_TRUE(line.starts_with("# ") || line.starts_with("export ")) << line; // fit for eval

    out.str("");
    EXPECT_EQ(
        RunCliCommand({"demo", "--force", temp / "demo with blanks"}, fakes.services, out, err),
        CliExit::Success);
    EXPECT_NE(out.str().find("rebuilt"), std::string::npos);

    temp.write("other/keep.txt", "x");
    err.str("");
    EXPECT_EQ(RunCliCommand({"demo", temp / "other"}, fakes.services, out, err), CliExit::Failed);
    EXPECT_NE(err.str().find("--force"), std::string::npos);

    for (const std::vector<std::string>& wrong : {std::vector<std::string>{"demo"},
                                                  {"demo", "a", "b"},
                                                  {"demo", "--force"},
                                                  {"demo", "a", "--fast"}})
        EXPECT_EQ(RunCliCommand(wrong, fakes.services, out, err), CliExit::UsageError);
}

TEST(DemoCommandTest, ShellQuotingSurvivesEveryCharacter)
{
    EXPECT_EQ(ShellQuoted("/tmp/demo/prefix"), "/tmp/demo/prefix");
    EXPECT_EQ(ShellQuoted("/tmp/my demo"), "'/tmp/my demo'");
    EXPECT_EQ(ShellQuoted("/tmp/it's"), "'/tmp/it'\\''s'");
    EXPECT_EQ(ShellQuoted("$HOME"), "'$HOME'");
}

} // namespace
} // namespace vellumar
