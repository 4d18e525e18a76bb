#pragma once

#include "demo/RgbImage.h"

#include <string>

namespace vellumar {

// Windows bitmap files as the simulator and every picture viewer read them: an uncompressed
// BMP with the 40-byte information header, rows stored bottom-up and padded to four bytes.

// A 24-bit bitmap.
std::string EncodeBitmap(const RgbImage& image);

// An 8-bit bitmap with the image's palette (at most 256 colours).
std::string EncodeBitmap(const IndexedImage& image);

} // namespace vellumar
