#include "common/Unattended.h"

#include <cstdio>
#include <cstdlib>
#include <string>

namespace vellumar {

bool ExitsWhenReady()
{
    const char* value = std::getenv("VELLUMAR_EXIT_WHEN_READY");
    return value && *value && std::string_view(value) != "0";
}

void EndUnattended(std::string_view title, std::string_view text)
{
    std::string report = "vellumar: nobody to answer (VELLUMAR_EXIT_WHEN_READY is set): ";
    report.append(title);
    report += '\n';
    report.append(text);
    if (report.back() != '\n')
        report += '\n';
    std::fwrite(report.data(), 1, report.size(), stderr);
    std::fflush(stderr);
    // _Exit, not exit: the toolkit's objects still live on the stack of main, and tearing down
    // its globals under them could crash and hide the status.
    std::_Exit(kUnattendedQuestionStatus);
}

} // namespace vellumar
