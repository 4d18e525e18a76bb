#pragma once

#include <cstdint>
#include <vector>

namespace vellumar {

struct Rgb {
    std::uint8_t r = 0;
    std::uint8_t g = 0;
    std::uint8_t b = 0;
    friend bool operator==(const Rgb&, const Rgb&) = default;
};

// A picture with 8-bit red, green and blue samples, top row first.
struct RgbImage {
    int width = 0;
    int height = 0;
    std::vector<Rgb> pixels;

    RgbImage() = default;
    RgbImage(int w, int h, Rgb fill = {});

    Rgb& at(int x, int y) { return pixels[static_cast<std::size_t>(y) * width + x]; }
    const Rgb& at(int x, int y) const { return pixels[static_cast<std::size_t>(y) * width + x]; }
};

// A picture whose pixels index a palette of at most 256 colours, top row first.
struct IndexedImage {
    int width = 0;
    int height = 0;
    std::vector<std::uint8_t> indices;
    std::vector<Rgb> palette;
};

// 256 grey levels by luminance; for textures that carry no colour of their own.
IndexedImage ToGreyscale(const RgbImage& image);

// The picture with a palette of at most `maxColours` colours chosen for it by median cut: the
// colours are split into boxes, and each pixel takes the mean colour of its box. A picture with
// few enough colours keeps them exactly. Deterministic: the same picture always gives the same
// palette.
IndexedImage ToAdaptivePalette(const RgbImage& image, int maxColours = 256);

} // namespace vellumar
