#include "demo/BitmapWriter.h"

#include "demo/LittleEndian.h"

#include <cstdint>

namespace vellumar {

namespace {

constexpr std::uint32_t kFileHeaderSize = 14;
constexpr std::uint32_t kInfoHeaderSize = 40;
constexpr std::int32_t kPixelsPerMetre = 2835; // 72 dots per inch

std::uint32_t RowStride(int width, int bitsPerPixel)
{
    return ((static_cast<std::uint32_t>(width) * static_cast<std::uint32_t>(bitsPerPixel) + 31) /
            32) *
           4;
}

// Both headers; the pixel rows follow the palette.
std::string Headers(int width, int height, int bitsPerPixel, std::uint32_t paletteEntries)
{
    const std::uint32_t imageSize =
        RowStride(width, bitsPerPixel) * static_cast<std::uint32_t>(height);
    const std::uint32_t offset = kFileHeaderSize + kInfoHeaderSize + 4 * paletteEntries;
    std::string out;
    out.reserve(offset + imageSize);
    out += "BM";
    PutU32(out, offset + imageSize);
    PutU32(out, 0); // two reserved words
    PutU32(out, offset);
    PutU32(out, kInfoHeaderSize);
    PutU32(out, static_cast<std::uint32_t>(width));
    PutU32(out, static_cast<std::uint32_t>(height)); // positive: bottom-up rows
    PutU16(out, 1);                                  // planes
    PutU16(out, static_cast<std::uint32_t>(bitsPerPixel));
    PutU32(out, 0); // no compression
    PutU32(out, imageSize);
    PutU32(out, static_cast<std::uint32_t>(kPixelsPerMetre));
    PutU32(out, static_cast<std::uint32_t>(kPixelsPerMetre));
    PutU32(out, paletteEntries);
    PutU32(out, 0); // every colour is important
    return out;
}

} // namespace

std::string EncodeBitmap(const RgbImage& image)
{
    std::string out = Headers(image.width, image.height, 24, 0);
    const std::uint32_t padding =
        RowStride(image.width, 24) - 3 * static_cast<std::uint32_t>(image.width);
    for (int y = image.height - 1; y >= 0; --y) {
        for (int x = 0; x < image.width; ++x) {
            const Rgb& pixel = image.at(x, y);
            out.push_back(static_cast<char>(pixel.b));
            out.push_back(static_cast<char>(pixel.g));
            out.push_back(static_cast<char>(pixel.r));
        }
        out.append(padding, '\0');
    }
    return out;
}

std::string EncodeBitmap(const IndexedImage& image)
{
    const auto entries = static_cast<std::uint32_t>(image.palette.size());
    std::string out = Headers(image.width, image.height, 8, entries);
    for (const Rgb& colour : image.palette) {
        out.push_back(static_cast<char>(colour.b));
        out.push_back(static_cast<char>(colour.g));
        out.push_back(static_cast<char>(colour.r));
        out.push_back('\0');
    }
    const std::uint32_t padding =
        RowStride(image.width, 8) - static_cast<std::uint32_t>(image.width);
    for (int y = image.height - 1; y >= 0; --y) {
        const auto row = image.indices.begin() + static_cast<std::ptrdiff_t>(y) * image.width;
        out.append(row, row + image.width);
        out.append(padding, '\0');
    }
    return out;
}

} // namespace vellumar
