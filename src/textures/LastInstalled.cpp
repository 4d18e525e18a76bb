#include "textures/LastInstalled.h"

#include "common/EventPump.h"
#include "common/ResultText.h"
#include "config/CloudIniFile.h"

namespace vellumar {

namespace {

std::string PaddedTo(std::string text, std::size_t width)
{
    if (text.size() < width)
        text.append(width - text.size(), ' ');
    return text;
}

} // namespace

LastInstalledRecord::LastInstalledRecord(std::vector<LastInstalledEntry> entries, int limit)
    : entries_(std::move(entries))
    , limit_(limit)
{}

void LastInstalledRecord::AddLastInstalled(const std::string& setName, const std::string& dataType)
{
    entries_.push_back({setName, dataType});
    const int over = static_cast<int>(entries_.size()) - limit_;
    // Positions close up after each removal; a position past the shortened end stops it.
    for (int position = 1; position <= over; ++position) {
        if (static_cast<std::size_t>(position) > entries_.size())
            break;
        entries_.erase(entries_.begin() + (position - 1));
    }
}

void LastInstalledRecord::SaveLastInstalled(CloudIniFile& ini, EventPump& events) const
{
    int key = 1;
    for (const LastInstalledEntry& entry : entries_)
        ini.Write("LastInstalled", std::to_string(key++), entry.setName + "," + entry.dataType);
    for (;; ++key) {
        events.DoEvents();
        if (IsError(ini.ReadRaw("LastInstalled", std::to_string(key))))
            break;
        ini.Write("LastInstalled", std::to_string(key), "");
    }
}

std::string LastInstalledRecord::LastInstalledText() const
{
    std::string text = "============ Last set installed ============\n"
                       "Lower number on the screen,\n"
                       "                are the latest set installed.\n"
                       "--------------------------------------------\n"
                       "No.   DataType     SetName\n"
                       "--------------------------------------------\n";
    if (entries_.empty())
        text += "No Data was not installed.\n";
    for (std::size_t i = 0; i < entries_.size(); ++i)
        text += PaddedTo(std::to_string(i + 1), 6) + PaddedTo(entries_[i].dataType, 13) +
                entries_[i].setName + "\n";
    return text;
}

} // namespace vellumar
