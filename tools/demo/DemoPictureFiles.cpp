#include "demo/DemoPictureFiles.h"

#include <QBuffer>
#include <QImage>

#include <algorithm>
#include <array>
#include <gif_lib.h>
#include <limits>
#include <memory>
#include <vector>

namespace vellumar::demo {

namespace {

std::string Encoded(const QImage& picture, const char* format, int quality = -1)
{
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    if (!picture.save(&buffer, format, quality))
        return {}; // an empty file is written, and the tests that decode every picture notice
    return buffer.data().toStdString();
}

int AppendToString(GifFileType* gif, const GifByteType* bytes, int length)
{
    static_cast<std::string*>(gif->UserData)
        ->append(reinterpret_cast<const char*>(bytes), static_cast<std::size_t>(length));
    return length;
}

// giflib picks the palette by median cut on five bits a channel and maps without dithering,
// which turns a sky's gradient into bands. Mapping each pixel to its nearest palette colour
// and passing the error on to its neighbours (Floyd-Steinberg) keeps the gradient.
void DiffuseOntoPalette(const QImage& rgb, const std::vector<GifColorType>& palette, int colours,
                        std::vector<GifByteType>& indices)
{
    const int width = rgb.width();
    // The error carried to this row and to the next, with a pixel to spare at either end.
    std::vector<std::array<float, 3>> row(static_cast<std::size_t>(width) + 2),
        next(static_cast<std::size_t>(width) + 2);
    for (int y = 0; y < rgb.height(); ++y) {
        std::fill(next.begin(), next.end(), std::array<float, 3>{});
        const uchar* line = rgb.constScanLine(y);
        for (int x = 0; x < width; ++x) {
            std::array<float, 3> wanted;
            for (std::size_t c = 0; c < 3; ++c)
                wanted[c] = std::clamp(line[3 * x + static_cast<int>(c)] +
                                           row[static_cast<std::size_t>(x) + 1][c],
                                       0.0f, 255.0f);
            int best = 0;
            float bestDistance = std::numeric_limits<float>::max();
            for (int i = 0; i < colours; ++i) {
                const GifColorType& p = palette[static_cast<std::size_t>(i)];
                const float dr = wanted[0] - p.Red, dg = wanted[1] - p.Green,
                            db = wanted[2] - p.Blue;
                const float distance = dr * dr + dg * dg + db * db;
                if (distance < bestDistance) {
                    bestDistance = distance;
                    best = i;
                }
            }
            indices[static_cast<std::size_t>(y) * static_cast<std::size_t>(width) +
                    static_cast<std::size_t>(x)] = static_cast<GifByteType>(best);
            const GifColorType& chosen = palette[static_cast<std::size_t>(best)];
            const std::array<float, 3> error = {wanted[0] - chosen.Red, wanted[1] - chosen.Green,
                                                wanted[2] - chosen.Blue};
            const auto at = static_cast<std::size_t>(x) + 1;
            for (std::size_t c = 0; c < 3; ++c) {
                row[at + 1][c] += error[c] * 7 / 16;
                next[at - 1][c] += error[c] * 3 / 16;
                next[at][c] += error[c] * 5 / 16;
                next[at + 1][c] += error[c] * 1 / 16;
            }
        }
        std::swap(row, next);
    }
}

} // namespace

std::string BitmapFile(const QImage& picture)
{
    // Qt writes an opaque 32-bit picture as a 24-bit bitmap.
    return Encoded(picture.convertToFormat(QImage::Format_RGB32), "BMP");
}

std::string GreyBitmapFile(const QImage& picture)
{
    const QImage grey = picture.convertToFormat(QImage::Format_Grayscale8);
    QImage indexed(grey.size(), QImage::Format_Indexed8);
    QList<QRgb> greys;
    for (int level = 0; level < 256; ++level)
        greys.push_back(qRgb(level, level, level));
    indexed.setColorTable(greys);
    for (int y = 0; y < grey.height(); ++y)
        std::copy_n(grey.constScanLine(y), grey.width(), indexed.scanLine(y));
    return Encoded(indexed, "BMP");
}

std::string JpegFile(const QImage& picture, int quality)
{
    return Encoded(picture.convertToFormat(QImage::Format_RGB32), "JPG", quality);
}

std::string GifFile(const QImage& picture)
{
    const QImage rgb = picture.convertToFormat(QImage::Format_RGB888);
    const auto width = static_cast<unsigned>(rgb.width());
    const auto height = static_cast<unsigned>(rgb.height());
    const std::size_t count = static_cast<std::size_t>(width) * height;
    std::vector<GifByteType> red(count), green(count), blue(count), indices(count);
    for (unsigned y = 0; y < height; ++y) {
        const uchar* line = rgb.constScanLine(static_cast<int>(y));
        for (unsigned x = 0; x < width; ++x) {
            const std::size_t i = static_cast<std::size_t>(y) * width + x;
            red[i] = line[3 * x];
            green[i] = line[3 * x + 1];
            blue[i] = line[3 * x + 2];
        }
    }
    int colours = 256;
    std::vector<GifColorType> palette(256);
    if (GifQuantizeBuffer(width, height, &colours, red.data(), green.data(), blue.data(),
                          indices.data(), palette.data()) != GIF_OK)
        return {};
    DiffuseOntoPalette(rgb, palette, colours, indices);
    // The global colour table holds a power of two entries; all 256 are always kept.
    const std::unique_ptr<ColorMapObject, void (*)(ColorMapObject*)> map(
        GifMakeMapObject(256, palette.data()), GifFreeMapObject);

    std::string bytes;
    int error = 0;
    GifFileType* gif = EGifOpen(&bytes, AppendToString, &error);
    if (!gif || !map)
        return {};
    EGifSetGifVersion(gif, true);
    bool written = EGifPutScreenDesc(gif, static_cast<int>(width), static_cast<int>(height), 8, 0,
                                     map.get()) == GIF_OK &&
                   EGifPutImageDesc(gif, 0, 0, static_cast<int>(width), static_cast<int>(height),
                                    false, nullptr) == GIF_OK;
    for (unsigned y = 0; written && y < height; ++y)
        written = EGifPutLine(gif, indices.data() + static_cast<std::size_t>(y) * width,
                              static_cast<int>(width)) == GIF_OK;
    written = EGifCloseFile(gif, &error) == GIF_OK && written;
    return written ? bytes : std::string();
}

} // namespace vellumar::demo
