#pragma once

#include "demo/RgbImage.h"

#include <string>

namespace vellumar {

// A baseline JPEG (JFIF) file: YCbCr without subsampling, the example quantisation tables
// scaled to `quality` (1 to 100, as in the common encoders) and the example Huffman tables of
// the JPEG standard, which every decoder accepts.
std::string EncodeJpeg(const RgbImage& image, int quality = 85);

} // namespace vellumar
