#include "support/TestInstallation.h"

namespace vellumar::test {

TestInstallation::TestInstallation(const TempFolder& folder, TestServices& fakes)
    : temp(folder)
{
    fakes.systemFolders.program = temp.makeFolder("Vellumar");
    fakes.systemFolders.windows = temp.makeFolder("windows");
    fakes.systemFolders.documents = temp.makeFolder("Documents");
    fakes.systemFolders.appData = temp.makeFolder("AppData");
    fakes.registry.hostPathsAsGiven = true;
    fakes.registry.setSimulatorFolder(temp / "FS9");
    temp.write("AppData/Microsoft/FS9/fs9.cfg");
    temp.write("FS9/fs9.exe", "MZ");
    temp.makeFolder("FS9/texture");
    temp.makeFolder("FS9/weather/clouds");
    temp.write("Vellumar/Texture/Clouds/Summer haze/cld01.bmp", "summer cloud");
    temp.makeFolder("Vellumar/Splash Screen");
    temp.makeFolder("Vellumar/Situation");
    for (const char* channel : {"Vellumar/Sound/Ch1", "Vellumar/Sound/Ch2", "Vellumar/Sound/Ch3"})
        temp.makeFolder(channel);
    writeCloudIni("");
}

void TestInstallation::writeCloudIni(const std::string& sections) const
{
    temp.write("Vellumar/cloud.ini", "[PathCheck]\r\nCheck=off\r\n[ButtonSound]\r\nBeep=off\r\n"
                                     "[AppName]\r\nName=Vellumar\r\n"
                                     "[Situation]\r\nCfgFile=fs9.cfg\r\nSection=STARTUP\r\n"
                                     "Key=STARTUP_FLIGHT\r\n"
                                     "[Set1]\r\nDirName=Clouds\\Summer haze\r\n" +
                                         sections);
}

} // namespace vellumar::test
