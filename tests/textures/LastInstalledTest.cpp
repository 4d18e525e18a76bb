#include "textures/LastInstalled.h"

#include "config/CloudIniFile.h"
#include "support/TempFolder.h"
#include "support/TestServices.h"

#include <gtest/gtest.h>

namespace vellumar {
namespace {

std::vector<std::string> Names(const LastInstalledRecord& record)
{
    std::vector<std::string> names;
    for (const auto& entry : record.entries())
        names.push_back(entry.setName);
    return names;
}

LastInstalledRecord RecordOf(std::initializer_list<const char*> names, int limit)
{
    std::vector<LastInstalledEntry> entries;
    for (const char* name : names)
        entries.push_back({name, "Cumulus"});
    return LastInstalledRecord(entries, limit);
}

TEST(LastInstalled, AFullListDropsItsOldestEntryAndSeveralOverTheLimitLoseEverySecondOne)
{
    LastInstalledRecord full = RecordOf({"A", "B", "C"}, 3);
    full.AddLastInstalled("D", "Cirrus");
    EXPECT_EQ(Names(full), (std::vector<std::string>{"B", "C", "D"}));

    LastInstalledRecord record = RecordOf({"A", "B", "C", "D"}, 3);
    record.AddLastInstalled("E", "Moon");
    EXPECT_EQ(Names(record), (std::vector<std::string>{"B", "D", "E"}));

    // Removal positions past the shortened end stop the removal.
    LastInstalledRecord shortLimit = RecordOf({"A", "B", "C", "D", "E"}, 1);
    shortLimit.AddLastInstalled("F", "Moon");
    EXPECT_EQ(Names(shortLimit), (std::vector<std::string>{"B", "D", "F"}));
}

TEST(LastInstalled, TheTextPadsItsColumns)
{
    LastInstalledRecord record;
    EXPECT_EQ(record.LastInstalledText(), "============ Last set installed ============\n"
                                          "Lower number on the screen,\n"
                                          "                are the latest set installed.\n"
                                          "--------------------------------------------\n"
                                          "No.   DataType     SetName\n"
                                          "--------------------------------------------\n"
                                          "No Data was not installed.\n");
    record.AddLastInstalled("Blue noon", "Sky Color");
    record.AddLastInstalled("Mystery", "Unknown");
    const std::string text = record.LastInstalledText();
    EXPECT_NE(text.find("\n1     Sky Color    Blue noon\n2     Unknown      Mystery\n"),
              std::string::npos);
}

TEST(LastInstalled, SavingWritesEntriesAndDeletesStaleKeys)
{
    test::TempFolder temp;
    test::TestServices fakes;
    const std::string file =
        temp.write("cloud.ini", "[LastInstalled]\r\nNumberOfDisp=3\r\n"
                                "1=Old,Cumulus\r\n2=Older,Cirrus\r\n"
                                "3=x,y\r\n4=x,y\r\n5=x,y\r\n7=beyond a gap,y\r\n");
    CloudIniFile ini(fakes.files, fakes.messages, file);
    LastInstalledRecord record = RecordOf({"Summer haze", "Blue noon"}, 3);
    record.SaveLastInstalled(ini, fakes.events);
    EXPECT_EQ(temp.read("cloud.ini"), "[LastInstalled]\r\nNumberOfDisp=3\r\n"
                                      "1=Summer haze,Cumulus\r\n2=Blue noon,Cumulus\r\n"
                                      "7=beyond a gap,y\r\n");
    EXPECT_FALSE(ini.ChangedByOthers());
    EXPECT_GE(fakes.events.calls, 4);
}

} // namespace
} // namespace vellumar
