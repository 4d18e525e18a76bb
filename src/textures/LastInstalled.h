#pragma once

#include <string>
#include <vector>

namespace vellumar {

// One line of the record: the set and the data type it was installed as.
struct LastInstalledEntry {
    std::string setName;
    std::string dataType;
};

class CloudIniFile;
class EventPump;

// The sets installed last, oldest first, kept in [LastInstalled] of cloud.ini.
class LastInstalledRecord {
public:
    LastInstalledRecord() = default;
    LastInstalledRecord(std::vector<LastInstalledEntry> entries, int limit);

    // Appends a set; then, for i from 1 to (count - limit), removes the entry at position i of
    // the shortening list. After one install on a full list this drops the oldest entry; with
    // more entries over the limit every second one goes, as the record has always done.
    void AddLastInstalled(const std::string& setName, const std::string& dataType);

    // Writes every entry as "n=set name,data type" and deletes the numbered keys an earlier,
    // longer list left behind.
    void SaveLastInstalled(CloudIniFile& ini, EventPump& events) const;

    // The text of the "Last Installed Data" window.
    std::string LastInstalledText() const;

    const std::vector<LastInstalledEntry>& entries() const { return entries_; }
    int limit() const { return limit_; }

private:
    std::vector<LastInstalledEntry> entries_;
    int limit_ = 3;
};

} // namespace vellumar
