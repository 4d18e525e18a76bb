#pragma once

#include "common/TextList.h"

#include <string>
#include <string_view>

namespace vellumar {

// The texts of the file dialog (cDialog). Filters are written as pairs separated by "|":
// "MP3 (*.mp3;*.m3u)|*.mp3;*.m3u|Wave (*.wav)|*.wav|". The dialog of the toolkit takes them as
// "MP3 (*.mp3 *.m3u);;Wave (*.wav)": each description with its own patterns.
std::string ToolkitFileFilter(std::string_view pairs);

// The answer of a dialog that may return several files: the folder, then the file names, all
// separated by NUL (one file alone is its full path, as with a single choice).
std::string MultipleFilesAnswer(const TextList& chosenPaths);

} // namespace vellumar
