#include "app/CloudIniCheck.h"
#include "support/TempFolder.h"
#include "support/TestServices.h"

#include <gtest/gtest.h>

namespace vellumar {
namespace {

// Only Linux can hold such a file; Windows (and the simulator under Wine) cannot open it.
TEST(IniCheckPosix, ASetFileWindowsCannotOpenIsNamed)
{
    test::TempFolder temp;
    test::TestServices fakes;
    temp.write("Texture/Clouds/Haze/cld01.bmp");
    temp.write("Texture/Clouds/Haze/PRN.cld");
    temp.write("cloud.ini", "[AppName]\nName=V\n[Situation]\nCfgFile=fs9.cfg\n"
                            "[Set1]\nDirName=Clouds\\Haze\n");
    const std::vector<IniFinding> findings = CheckCloudIni(temp / "cloud.ini", fakes.services);
    ASSERT_EQ(findings.size(), 1u);
    EXPECT_EQ(findings[0].line, 6u);
    EXPECT_EQ(findings[0].problem, "\"PRN.cld\" in " + (temp / "Texture/Clouds/Haze") +
                                       " is not offered: PRN is a device name on Windows");
}

} // namespace
} // namespace vellumar
