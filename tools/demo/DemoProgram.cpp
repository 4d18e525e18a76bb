#include "demo/DemoProgram.h"

#include "demo/DemoEnvironment.h"

#include <ostream>

namespace vellumar {

int RunDemoProgram(const std::string& folder, bool force, FileOperations& files, std::ostream& out,
                   std::ostream& err, const std::string& standinProgram)
{
    // An empty DIR (an unset shell variable, say) would otherwise build in the current folder.
    if (folder.empty()) {
        err << "vellumar-cli demo: DIR is empty\n";
        return 2;
    }
    DemoOptions options;
    options.folder = folder;
    options.force = force;
    options.userName = CurrentUserName();
    options.standinProgram = standinProgram;
    const DemoOutcome outcome = BuildDemoEnvironment(files, options);
    for (const std::string& note : outcome.notes)
        err << "vellumar-cli: note: " << note << '\n';
    if (!outcome.built) {
        err << "vellumar-cli: demo: " << outcome.error << '\n';
        return 1;
    }
    const auto tenths = static_cast<unsigned long long>((outcome.bytes + 52428) / 104858);
    out << "# Vellumar demo " << (outcome.replaced ? "rebuilt" : "built") << " in "
        << outcome.folder << ": " << outcome.files << " files, " << tenths / 10 << '.'
        << tenths % 10 << " MB; see home/help/index.html\n"
        << "export WINEPREFIX=" << ShellQuoted(outcome.prefix) << '\n'
        << "export VELLUMAR_HOME=" << ShellQuoted(outcome.home) << '\n'
        << "export VELLUMAR_CD=" << ShellQuoted(outcome.cd) << '\n';
    return 0;
}

} // namespace vellumar
