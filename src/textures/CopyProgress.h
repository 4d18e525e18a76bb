#pragma once

#include "common/TextList.h"
#include "textures/TextureFolders.h"

#include <cstdint>
#include <string>
#include <vector>

namespace vellumar {

// Tells the window how far a run of file copies has come. Before each file the status line
// names it, the bytes of the files before it are reported against the bytes of the whole run,
// and pending window events run, so a long copy keeps the window alive. The end of the run,
// however it ends, reports every byte done.
class CopyProgress {
public:
    CopyProgress(TextureServices& services, const TextList& sources);
    ~CopyProgress();
    CopyProgress(const CopyProgress&) = delete;
    CopyProgress& operator=(const CopyProgress&) = delete;

    // The file `sources[index]` is about to be copied; `name` is what the status line shows.
    void Starting(std::size_t index, const std::string& name);

private:
    TextureServices& services_;
    std::vector<std::uint64_t> bytesBefore_;
};

} // namespace vellumar
