#pragma once

#include <string>

class QImage;

namespace vellumar::demo {

// The demo's pictures as the files the simulator and the program read. Qt writes the bitmaps
// and JPEGs, giflib the GIFs (Qt reads GIF but cannot write it).

// A 24-bit Windows bitmap, uncompressed with the 40-byte information header: the kind of
// texture the simulator loads.
std::string BitmapFile(const QImage& picture);

// An 8-bit bitmap with a palette of 256 greys, for textures that carry no colour of their own
// (rain, snow): a third of the size and just as good to the simulator.
std::string GreyBitmapFile(const QImage& picture);

// A baseline JPEG (JFIF); `quality` from 1 to 100.
std::string JpegFile(const QImage& picture, int quality);

// A single-frame GIF89a with 256 colours chosen for the picture, dithered so that a sky keeps
// its gradient.
std::string GifFile(const QImage& picture);

} // namespace vellumar::demo
