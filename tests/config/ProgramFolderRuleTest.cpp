// Which folder holds cloud.ini: the rules in their order, on facts made up by the test.

#include "config/ProgramFolderRule.h"

#include <gtest/gtest.h>

namespace vellumar {
namespace {

ProgramFolderFacts InstalledOnLinux()
{
    ProgramFolderFacts facts;
    facts.executableFolder = "/usr/bin";
    facts.usesUserDataFolder = true;
    facts.home = "/home/pilot";
    return facts;
}

TEST(ProgramFolderRule, EachRuleInItsTurn)
{
    ProgramFolderFacts facts = InstalledOnLinux();
    ProgramFolderChoice choice = ChooseProgramFolder(facts);
    EXPECT_EQ(choice.folder, "/home/pilot/.local/share/vellumar");
    EXPECT_EQ(choice.rule, ProgramFolderRule::UserDataFolder);

    // A relative data home would change with the current folder; the desktop's rules say to
    // ignore it.
    facts.xdgDataHome = "data";
    EXPECT_EQ(ChooseProgramFolder(facts).folder, "/home/pilot/.local/share/vellumar");
    facts.xdgDataHome = "/srv/pilot";
    EXPECT_EQ(ChooseProgramFolder(facts).folder, "/srv/pilot/vellumar");

    // A build tree or a portable copy: the cloud.ini beside the executable is the one.
    facts.executableFolderHoldsIni = true;
    choice = ChooseProgramFolder(facts);
    EXPECT_EQ(choice.folder, "/usr/bin");
    EXPECT_EQ(choice.rule, ProgramFolderRule::BesideExecutable);

    // The variable wins over everything.
    facts.vellumarHome = "/opt/skies";
    choice = ChooseProgramFolder(facts);
    EXPECT_EQ(choice.folder, "/opt/skies");
    EXPECT_EQ(choice.rule, ProgramFolderRule::Environment);
}

TEST(ProgramFolderRule, WindowsAndHomelessUsersKeepTheExecutablesFolder)
{
    ProgramFolderFacts windows;
    windows.executableFolder = "C:\\Program Files\\Vellumar";
    EXPECT_EQ(ChooseProgramFolder(windows).folder, "C:\\Program Files\\Vellumar");
    EXPECT_EQ(ChooseProgramFolder(windows).rule, ProgramFolderRule::BesideExecutable);

    ProgramFolderFacts homeless = InstalledOnLinux();
    homeless.home.clear();
    EXPECT_EQ(ChooseProgramFolder(homeless).folder, "/usr/bin");
}

} // namespace
} // namespace vellumar
