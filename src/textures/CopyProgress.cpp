#include "textures/CopyProgress.h"

#include "common/EventPump.h"
#include "common/FileOperations.h"

#include <algorithm>

namespace vellumar {

CopyProgress::CopyProgress(TextureServices& services, const TextList& sources)
    : services_(services)
{
    // The bytes before each file; a file that cannot be measured counts as empty, and its
    // copy reports the failure.
    bytesBefore_.reserve(sources.size() + 1);
    bytesBefore_.push_back(0);
    for (const std::string& source : sources)
        bytesBefore_.push_back(bytesBefore_.back() + services.files.fileSize(source).value_or(0));
}

CopyProgress::~CopyProgress()
{
    services_.showProgress(bytesBefore_.back(), bytesBefore_.back());
}

void CopyProgress::Starting(std::size_t index, const std::string& name)
{
    services_.showProgress(bytesBefore_[std::min(index, bytesBefore_.size() - 1)],
                           bytesBefore_.back());
    services_.showStatus("Copying " + name);
    services_.events.DoEvents();
}

} // namespace vellumar
