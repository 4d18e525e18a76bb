// vellumar-demo DIR [--force]: the demo generator as a program of its own. It draws with Qt, and
// loading Qt's libraries costs every run of a program that links them: vellumar-cli stays light
// for scripts and runs this one for its `demo` command, which checks the arguments first.

#include "common/FileOperations.h"
#include "demo/DemoProgram.h"

#include <iostream>
#include <string>

int main(int argc, char** argv)
{
    std::string folder;
    bool force = false;
    bool wrong = false;
    for (int i = 1; i < argc; ++i) {
        const std::string word = argv[i];
        if (word == "--force")
            force = true;
        else if (folder.empty() && !word.starts_with("--"))
            folder = word;
        else
            wrong = true;
    }
    if (wrong || argc < 2) {
        std::cerr << "Usage: vellumar-demo DIR [--force]\n";
        return 2;
    }
    const auto files = vellumar::CreatePlatformFileOperations();
    return vellumar::RunDemoProgram(folder, force, *files, std::cout, std::cerr);
}
