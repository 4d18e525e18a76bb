#include "sound/SoundSettings.h"

#include "common/FileHelpers.h"
#include "common/MessageService.h"
#include "common/PathText.h"
#include "common/ResultText.h"
#include "common/TextCompare.h"
#include "config/CloudIniFile.h"
#include "config/CloudIniSchema.h"

namespace vellumar {

namespace {

// The path of a valid wave file for one sound, or "" after telling why not.
std::string ValidateOne(const CloudIniFile& ini, FileOperations& files, MessageService& messages,
                        Registry& registry, const std::string& dataFolder, bool reportProblems,
                        const IniKey& fileKey)
{
    const std::string section(fileKey.section);
    const std::string raw = ReadIniRaw(ini, fileKey);
    const std::string value(TrimBlanks(raw));
    std::string path = value;
    std::string reason;
    if (IsError(value) || value.empty()) {
        reason = "No Ini description.";
    } else {
        path = IniPathOf(fileKey, value, IniFolders{dataFolder, dataFolder}, registry);
        if (IsError(FileExists(files, path)))
            reason = "Not found the file.";
        else if (ToLowerAscii(TextAfterLast(path, '.')) != "wav")
            reason = "Sound file should be WAV format.";
    }
    if (reason.empty())
        return path;
    if (reportProblems)
        messages.ShowMessage("[" + section + "] File = " + raw + "\n" + "File path is \"" + path +
                                 "\"\n" + reason + "\n\n" + section +
                                 " will be changed to Windows normal beep sound.",
                             MessageStyle::Information, "Not found " + section + " file");
    return {};
}

constexpr std::array<const IniKey*, 4> kMessageSoundKeys = {
    &CloudIniKeys::MessageSoundCritical, &CloudIniKeys::MessageSoundQuestion,
    &CloudIniKeys::MessageSoundExclamation, &CloudIniKeys::MessageSoundInformation};
constexpr std::array<const char*, 4> kShippedMessageSounds = {"critical.wav", "question.wav",
                                                              "exclamation.wav", "information.wav"};

} // namespace

SoundSettings ValidateSoundSettings(const CloudIniFile& ini, FileOperations& files,
                                    MessageService& messages, Registry& registry,
                                    const std::string& dataFolder,
                                    const std::string& sharedDataFolder, bool reportProblems)
{
    SoundSettings settings;
    if (ReadIniChoice(ini, CloudIniKeys::ButtonSoundBeep) != "off")
        settings.ButtonSoundPath = ValidateOne(ini, files, messages, registry, dataFolder,
                                               reportProblems, CloudIniKeys::ButtonSoundFile);
    if (ReadIniChoice(ini, CloudIniKeys::AutoRandomSoundBeep) == "on")
        settings.AutoRandomSoundPath =
            ValidateOne(ini, files, messages, registry, dataFolder, reportProblems,
                        CloudIniKeys::AutoRandomSoundFile);
    for (std::size_t icon = 0; icon < kMessageSoundKeys.size(); ++icon) {
        const IniKey& key = *kMessageSoundKeys[icon];
        const std::string value(TrimBlanks(ReadIniRaw(ini, key)));
        const std::string path =
            IsError(value) || value.empty()
                ? JoinPath(JoinPath(sharedDataFolder, "sounds"), kShippedMessageSounds[icon])
                : IniPathOf(key, value, IniFolders{dataFolder, dataFolder}, registry);
        if (IsOK(FileExists(files, path)))
            settings.MessageSoundPaths[icon] = path;
    }
    return settings;
}

} // namespace vellumar
