#include "app/AutoRandomSelection.h"

#include "config/CloudIniFile.h"
#include "support/TempFolder.h"
#include "support/TestServices.h"
#include "textures/TextureSetEntry.h"

#include <gtest/gtest.h>

namespace vellumar {
namespace {

TextureSetEntry Set(int section, const std::string& dirName, bool random = true,
                    std::optional<int> order = std::nullopt)
{
    TextureSetEntry set;
    set.section = section;
    set.dirName = dirName;
    set.name = dirName;
    set.random = random;
    set.order = order;
    return set;
}

class AutoRandomSelectionTest : public ::testing::Test {
protected:
    test::TempFolder temp;
    test::TestServices fakes;
    // [Set1] a plain set with Order 2, [Set2] a series of three (Order 1), [Set3] no Order,
    // [Set4] Random=off.
    std::vector<TextureSetEntry> sets{Set(1, "Clouds\\Haze", true, 2),
                                      Set(2, "Clouds\\t-storm  1", true, 1),
                                      Set(2, "Clouds\\t-storm  2", true, 1),
                                      Set(2, "Clouds\\t-storm  3", true, 1),
                                      Set(3, "Sky\\Dusk"),
                                      Set(4, "Sky\\Night", false)};
    std::string path = temp.write("cloud.ini", "; mine\r\n[Set1]\r\nDirName=Clouds\\Haze\r\n"
                                               "Order=2\r\n[Set4]\r\nRandom=off\r\n");

    AutoRandomSelection read()
    {
        const CloudIniFile ini(fakes.files, fakes.messages, path);
        AutoRandomSelection selection;
        ReloadAutoRandomSelection(ini, sets, selection);
        return selection;
    }
};

TEST_F(AutoRandomSelectionTest, WithoutArrangementTheOrderKeysDecideAndTiesKeepCatalogueOrder)
{
    const AutoRandomSelection selection = read();
    EXPECT_EQ(selection.flags, (std::vector<bool>{true, true, true, true, true, false}));
    EXPECT_EQ(selection.order, (std::vector<int>{1, 2, 3, 0, 4}));
    EXPECT_FALSE(selection.OrderMode);
}

TEST_F(AutoRandomSelectionTest, AReorderTheModeAndASeriesMembersTickSurviveARestart)
{
    AutoRandomSelection selection = read();
    TickAutoRandomSet(selection, 2, false); // t-storm 2 leaves the rotation
    TickAutoRandomSet(selection, 5, true);  // Night joins it, at the end
    TickAutoRandomSet(selection, 5, true);  // ticked again: no second entry
    EXPECT_EQ(selection.order, (std::vector<int>{1, 3, 0, 4, 5}));
    selection.order = {5, 4, 3, 1, 0}; // dragged into a new order
    selection.OrderMode = true;
    {
        CloudIniFile ini(fakes.files, fakes.messages, path);
        WriteAutoRandomSelection(ini, sets, selection);
        EXPECT_FALSE(ini.ChangedByOthers()); // the program's own write
    }
    const std::string written = temp.read("cloud.ini");
    EXPECT_TRUE(written.starts_with("; mine\r\n[Set1]\r\nDirName=Clouds\\Haze\r\nOrder=2\r\n"))
        << written;
    EXPECT_EQ(written.find("Order=", written.find("[Set2]")), std::string::npos); // never written

    const AutoRandomSelection again = read();
    EXPECT_EQ(again.flags, (std::vector<bool>{true, true, false, true, true, true}));
    EXPECT_EQ(again.order, (std::vector<int>{5, 4, 3, 1, 0}));
    EXPECT_TRUE(again.OrderMode);

    // A shorter arrangement leaves no stale numbers behind; a whole series off is its Random.
    for (int member : {1, 3})
        TickAutoRandomSet(selection, member, false);
    selection.OrderMode = false;
    {
        CloudIniFile ini(fakes.files, fakes.messages, path);
        WriteAutoRandomSelection(ini, sets, selection);
        EXPECT_EQ(ini.ReadIniValue("Set2", "Random"), "off");
        EXPECT_EQ(ini.ReadIniValue("AutoRandom", "LeftOut1"), "Error");
        EXPECT_EQ(ini.ReadIniValue("AutoRandom", "Order4"), "Error");
    }
    const AutoRandomSelection last = read();
    EXPECT_EQ(last.order, (std::vector<int>{5, 4, 0}));
    EXPECT_FALSE(last.OrderMode);
    EXPECT_FALSE(last.flags[2]);
}

} // namespace
} // namespace vellumar
