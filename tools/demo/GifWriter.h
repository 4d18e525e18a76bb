#pragma once

#include "demo/RgbImage.h"

#include <string>

namespace vellumar {

// A single-frame GIF89a file: the palette as the global colour table (padded to a power of two)
// and the pixels LZW-compressed, as every browser and picture viewer reads them.
std::string EncodeGif(const IndexedImage& image);

} // namespace vellumar
