// The picture writers are checked by reading their files back with small decoders written
// here from the file formats, so that a fault in either direction shows up as a difference in
// pixels, not only as a wrong byte somewhere.

#include "demo/BitmapWriter.h"
#include "demo/GifWriter.h"
#include "demo/JpegWriter.h"
#include "demo/RgbImage.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <cstdint>
#include <map>
#include <set>
#include <stdexcept>
#include <string>
#include <vector>

namespace vellumar {
namespace {

unsigned U16LE(const std::string& b, std::size_t at)
{
    return static_cast<unsigned char>(b.at(at)) | static_cast<unsigned char>(b.at(at + 1)) << 8;
}

std::uint32_t U32LE(const std::string& b, std::size_t at)
{
    return U16LE(b, at) | static_cast<std::uint32_t>(U16LE(b, at + 2)) << 16;
}

unsigned U16BE(const std::string& b, std::size_t at)
{
    return static_cast<unsigned char>(b.at(at)) << 8 | static_cast<unsigned char>(b.at(at + 1));
}

// A picture with smooth gradients and a sharp edge, the two things encoders get wrong.
RgbImage TestPicture(int width, int height)
{
    RgbImage image(width, height);
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x) {
            const bool edge = x > width / 2 && y > height / 3;
            image.at(x, y) = {static_cast<std::uint8_t>(x * 255 / std::max(1, width - 1)),
                              static_cast<std::uint8_t>(y * 255 / std::max(1, height - 1)),
                              static_cast<std::uint8_t>(edge ? 220 : 40)};
        }
    return image;
}

// ---------------------------------------------------------------------------------------------
// BMP

struct DecodedBitmap {
    int width = 0;
    int height = 0;
    int bits = 0;
    std::vector<Rgb> pixels; // top row first
};

DecodedBitmap DecodeBitmap(const std::string& b)
{
    if (b.substr(0, 2) != "BM" || U32LE(b, 2) != b.size() || U32LE(b, 14) != 40)
        throw std::runtime_error("not a bitmap with an information header");
    DecodedBitmap result;
    result.width = static_cast<int>(U32LE(b, 18));
    result.height = static_cast<int>(U32LE(b, 22));
    result.bits = static_cast<int>(U16LE(b, 28));
    const std::uint32_t offset = U32LE(b, 10);
    const std::uint32_t colours = U32LE(b, 46);
    if (U16LE(b, 26) != 1 || U32LE(b, 30) != 0 || offset != 54 + 4 * colours)
        throw std::runtime_error("unexpected header fields");
    const std::size_t stride =
        ((static_cast<std::size_t>(result.width) * result.bits + 31) / 32) * 4;
    if (U32LE(b, 34) != stride * result.height || offset + stride * result.height != b.size())
        throw std::runtime_error("sizes do not add up");
    for (int y = 0; y < result.height; ++y) {
        const std::size_t row = offset + stride * static_cast<std::size_t>(result.height - 1 - y);
        for (int x = 0; x < result.width; ++x) {
            if (result.bits == 24) {
                const std::size_t p = row + 3 * static_cast<std::size_t>(x);
                result.pixels.push_back({static_cast<std::uint8_t>(b[p + 2]),
                                         static_cast<std::uint8_t>(b[p + 1]),
                                         static_cast<std::uint8_t>(b[p])});
            } else {
                const auto index = static_cast<unsigned char>(b[row + static_cast<std::size_t>(x)]);
                if (index >= colours)
                    throw std::runtime_error("index beyond the palette");
                const std::size_t p = 54 + 4 * static_cast<std::size_t>(index);
                result.pixels.push_back({static_cast<std::uint8_t>(b[p + 2]),
                                         static_cast<std::uint8_t>(b[p + 1]),
                                         static_cast<std::uint8_t>(b[p])});
            }
        }
    }
    return result;
}

TEST(BitmapWriterTest, TwentyFourBitRowsOfEveryWidthReadBackExactly)
{
    // Widths 1 to 5 need 3, 2, 1, 0 and 3 bytes of padding per row.
    for (int width = 1; width <= 5; ++width) {
        const RgbImage image = TestPicture(width, 3);
        const DecodedBitmap decoded = DecodeBitmap(EncodeBitmap(image));
        EXPECT_EQ(decoded.bits, 24);
        EXPECT_EQ(decoded.width, width);
        EXPECT_EQ(decoded.height, 3);
        EXPECT_EQ(decoded.pixels, image.pixels) << "width " << width;
    }
}

TEST(BitmapWriterTest, EightBitBitmapsCarryTheirPalette)
{
    IndexedImage image;
    image.width = 3;
    image.height = 2;
    image.palette = {{255, 0, 0}, {0, 128, 0}, {1, 2, 3}};
    image.indices = {0, 1, 2, 2, 1, 0};
    const DecodedBitmap decoded = DecodeBitmap(EncodeBitmap(image));
    EXPECT_EQ(decoded.bits, 8);
    const std::vector<Rgb> expected = {{255, 0, 0}, {0, 128, 0}, {1, 2, 3},
                                       {1, 2, 3},   {0, 128, 0}, {255, 0, 0}};
    EXPECT_EQ(decoded.pixels, expected);
}

TEST(BitmapWriterTest, GreyscaleKeepsBrightnessAndDropsColour)
{
    RgbImage image(3, 1);
    image.at(0, 0) = {0, 0, 0};
    image.at(1, 0) = {255, 255, 255};
    image.at(2, 0) = {255, 0, 0}; // pure red is darker than white and lighter than black
    const DecodedBitmap decoded = DecodeBitmap(EncodeBitmap(ToGreyscale(image)));
    EXPECT_EQ(decoded.pixels[0], (Rgb{0, 0, 0}));
    EXPECT_EQ(decoded.pixels[1], (Rgb{255, 255, 255}));
    EXPECT_EQ(decoded.pixels[2].r, decoded.pixels[2].g);
    EXPECT_GT(decoded.pixels[2].r, 50);
    EXPECT_LT(decoded.pixels[2].r, 100);
}

// ---------------------------------------------------------------------------------------------
// Palette

TEST(AdaptivePaletteTest, FewColoursAreKeptExactly)
{
    RgbImage image(4, 4, {10, 20, 30});
    image.at(1, 1) = {200, 100, 0};
    image.at(3, 2) = {0, 0, 255};
    const IndexedImage indexed = ToAdaptivePalette(image);
    EXPECT_EQ(indexed.palette.size(), 3u);
    for (std::size_t i = 0; i < image.pixels.size(); ++i)
        EXPECT_EQ(indexed.palette[indexed.indices[i]], image.pixels[i]);
}

TEST(AdaptivePaletteTest, ManyColoursFitTheLimitAndStayClose)
{
    const RgbImage image = TestPicture(97, 61); // thousands of colours
    const IndexedImage indexed = ToAdaptivePalette(image);
    EXPECT_LE(indexed.palette.size(), 256u);
    EXPECT_GE(indexed.palette.size(), 200u); // the colours are spread, so the limit is used
    int worst = 0;
    for (std::size_t i = 0; i < image.pixels.size(); ++i) {
        const Rgb& mapped = indexed.palette[indexed.indices[i]];
        worst = std::max({worst, std::abs(mapped.r - image.pixels[i].r),
                          std::abs(mapped.g - image.pixels[i].g),
                          std::abs(mapped.b - image.pixels[i].b)});
    }
    EXPECT_LE(worst, 24);

    const IndexedImage again = ToAdaptivePalette(image);
    EXPECT_EQ(again.palette, indexed.palette);
    EXPECT_EQ(again.indices, indexed.indices);
    EXPECT_EQ(ToAdaptivePalette(image, 16).palette.size(), 16u);
}

// ---------------------------------------------------------------------------------------------
// GIF

IndexedImage DecodeGif(const std::string& b)
{
    if (b.substr(0, 6) != "GIF89a")
        throw std::runtime_error("no GIF89a signature");
    IndexedImage result;
    result.width = static_cast<int>(U16LE(b, 6));
    result.height = static_cast<int>(U16LE(b, 8));
    const auto packed = static_cast<unsigned char>(b.at(10));
    if (!(packed & 0x80))
        throw std::runtime_error("no global colour table");
    const std::size_t tableSize = std::size_t{2} << (packed & 7);
    std::size_t at = 13;
    for (std::size_t i = 0; i < tableSize; ++i, at += 3)
        result.palette.push_back({static_cast<std::uint8_t>(b.at(at)),
                                  static_cast<std::uint8_t>(b.at(at + 1)),
                                  static_cast<std::uint8_t>(b.at(at + 2))});
    if (b.at(at) != ',' || U16LE(b, at + 5) != static_cast<unsigned>(result.width) ||
        U16LE(b, at + 7) != static_cast<unsigned>(result.height) || b.at(at + 9) != 0)
        throw std::runtime_error("unexpected image descriptor");
    at += 10;
    const int minimum = static_cast<unsigned char>(b.at(at++));
    std::string data;
    for (std::size_t length; (length = static_cast<unsigned char>(b.at(at++))) != 0; at += length)
        data += b.substr(at, length);
    if (at + 1 != b.size() || b.at(at) != ';')
        throw std::runtime_error("no trailer right after the image");

    // LZW as a decoder reads it: codes grow by a bit whenever the next free entry no longer
    // fits, the table holds at most 4096 entries, a clear code starts it over.
    std::size_t bit = 0;
    auto read = [&](int width) {
        unsigned code = 0;
        for (int i = 0; i < width; ++i, ++bit) {
            if (bit / 8 >= data.size())
                throw std::runtime_error("the data ends before the end code");
            code |= ((static_cast<unsigned char>(data[bit / 8]) >> (bit % 8)) & 1u) << i;
        }
        return code;
    };
    const unsigned clear = 1u << minimum;
    std::vector<std::vector<std::uint8_t>> table;
    int width = minimum + 1;
    auto reset = [&] {
        table.assign(clear + 2, {});
        for (unsigned i = 0; i < clear; ++i)
            table[i] = {static_cast<std::uint8_t>(i)};
        width = minimum + 1;
    };
    reset();
    int previous = -1;
    for (;;) {
        const unsigned code = read(width);
        if (code == clear) {
            reset();
            previous = -1;
            continue;
        }
        if (code == clear + 1)
            break;
        std::vector<std::uint8_t> entry;
        if (code < table.size() && !table[code].empty())
            entry = table[code];
        else if (code == table.size() && previous >= 0)
            entry = table[static_cast<std::size_t>(previous)],
            entry.push_back(table[static_cast<std::size_t>(previous)][0]);
        else
            throw std::runtime_error("a code that is not in the table");
        if (previous >= 0 && table.size() < 4096) {
            std::vector<std::uint8_t> added = table[static_cast<std::size_t>(previous)];
            added.push_back(entry[0]);
            table.push_back(added);
            if (table.size() == (1u << width) && width < 12)
                ++width;
        }
        result.indices.insert(result.indices.end(), entry.begin(), entry.end());
        previous = static_cast<int>(code);
    }
    if (result.indices.size() != static_cast<std::size_t>(result.width) * result.height)
        throw std::runtime_error("pixel count does not match the size");
    return result;
}

TEST(GifWriterTest, PalettesOfEverySizeReadBack)
{
    for (std::size_t colours : {1u, 2u, 3u, 5u, 16u, 17u, 256u}) {
        IndexedImage image;
        image.width = 23;
        image.height = 11;
        for (std::size_t i = 0; i < colours; ++i)
            image.palette.push_back(
                {static_cast<std::uint8_t>(i), 7, static_cast<std::uint8_t>(255 - i)});
        for (int i = 0; i < image.width * image.height; ++i)
            image.indices.push_back(static_cast<std::uint8_t>((i * 7 + i / 5) % colours));
        const IndexedImage decoded = DecodeGif(EncodeGif(image));
        EXPECT_EQ(decoded.indices, image.indices) << colours << " colours";
        for (std::size_t i = 0; i < colours; ++i)
            EXPECT_EQ(decoded.palette[i], image.palette[i]);
    }
}

TEST(GifWriterTest, ALongNoisyPictureRestartsItsTableAndStillReadsBack)
{
    // Noise fills the 4096 codes of the table many times over.
    IndexedImage image;
    image.width = 300;
    image.height = 200;
    for (int i = 0; i < 256; ++i)
        image.palette.push_back({static_cast<std::uint8_t>(i), 0, 0});
    std::uint32_t state = 12345;
    for (int i = 0; i < image.width * image.height; ++i) {
        state = state * 1103515245u + 12345u;
        image.indices.push_back(static_cast<std::uint8_t>(state >> 24));
    }
    EXPECT_EQ(DecodeGif(EncodeGif(image)).indices, image.indices);

    // And a flat picture, whose runs make the longest table entries.
    IndexedImage flat = image;
    std::fill(flat.indices.begin(), flat.indices.end(), 9);
    const std::string bytes = EncodeGif(flat);
    EXPECT_EQ(DecodeGif(bytes).indices, flat.indices);
    EXPECT_LT(bytes.size(), 2000u);
}

// ---------------------------------------------------------------------------------------------
// JPEG

constexpr std::array<int, 64> kZigZag = {
    0,  1,  8,  16, 9,  2,  3,  10, 17, 24, 32, 25, 18, 11, 4,  5,  12, 19, 26, 33, 40, 48,
    41, 34, 27, 20, 13, 6,  7,  14, 21, 28, 35, 42, 49, 56, 57, 50, 43, 36, 29, 22, 15, 23,
    30, 37, 44, 51, 58, 59, 52, 45, 38, 31, 39, 46, 53, 60, 61, 54, 47, 55, 62, 63};

// A baseline decoder for what the writer makes: 8-bit tables, three components without
// subsampling, Huffman coding, one scan.
RgbImage DecodeJpeg(const std::string& b)
{
    if (U16BE(b, 0) != 0xFFD8 || U16BE(b, b.size() - 2) != 0xFFD9)
        throw std::runtime_error("no start or end of image");
    std::array<std::array<int, 64>, 4> quant{};
    std::map<int, std::map<std::pair<int, unsigned>, int>> huffman; // class*16+id -> codes
    std::array<int, 3> quantOf{}, dcOf{}, acOf{};
    int width = 0, height = 0;
    std::size_t at = 2;
    std::size_t scan = 0;
    while (scan == 0) {
        if (static_cast<unsigned char>(b.at(at)) != 0xFF)
            throw std::runtime_error("marker expected");
        const int marker = static_cast<unsigned char>(b.at(at + 1));
        const std::size_t length = U16BE(b, at + 2);
        const std::size_t body = at + 4;
        if (marker == 0xDB) {
            for (std::size_t p = body; p < at + 2 + length; p += 65) {
                if (b[p] >> 4 != 0)
                    throw std::runtime_error("16-bit table");
                for (int k = 0; k < 64; ++k)
                    quant[static_cast<std::size_t>(b[p] & 3)][static_cast<std::size_t>(k)] =
                        static_cast<unsigned char>(b[p + 1 + static_cast<std::size_t>(k)]);
            }
        } else if (marker == 0xC0) {
            height = static_cast<int>(U16BE(b, body + 1));
            width = static_cast<int>(U16BE(b, body + 3));
            if (b[body] != 8 || b[body + 5] != 3)
                throw std::runtime_error("not 8-bit with three components");
            for (std::size_t c = 0; c < 3; ++c) {
                if (b[body + 7 + 3 * c] != 0x11)
                    throw std::runtime_error("subsampled");
                quantOf[c] = b[body + 8 + 3 * c];
            }
        } else if (marker == 0xC4) {
            for (std::size_t p = body; p < at + 2 + length;) {
                const int key = static_cast<unsigned char>(b[p]);
                unsigned code = 0;
                std::size_t symbol = p + 17;
                for (int len = 1; len <= 16; ++len) {
                    for (int i = 0;
                         i < static_cast<unsigned char>(b[p + static_cast<std::size_t>(len)]); ++i)
                        huffman[key][{len, code++}] = static_cast<unsigned char>(b[symbol++]);
                    code <<= 1;
                }
                p = symbol;
            }
        } else if (marker == 0xDA) {
            for (std::size_t c = 0; c < 3; ++c) {
                dcOf[c] = static_cast<unsigned char>(b[body + 2 + 2 * c]) >> 4;
                acOf[c] = b[body + 2 + 2 * c] & 15;
            }
            scan = at + 2 + length;
        } else if (marker < 0xE0 || marker > 0xEF) {
            throw std::runtime_error("unexpected marker");
        }
        at += 2 + length;
    }

    std::string data;
    for (std::size_t p = scan; p < b.size() - 2; ++p) {
        data.push_back(b[p]);
        if (static_cast<unsigned char>(b[p]) == 0xFF) {
            if (b[p + 1] != 0)
                throw std::runtime_error("an unstuffed 0xFF in the scan");
            ++p;
        }
    }
    std::size_t bit = 0;
    auto next = [&] {
        if (bit / 8 >= data.size())
            throw std::runtime_error("the scan ends too early");
        const unsigned value = (static_cast<unsigned char>(data[bit / 8]) >> (7 - bit % 8)) & 1u;
        ++bit;
        return value;
    };
    auto decode = [&](int key) {
        unsigned code = 0;
        for (int len = 1; len <= 16; ++len) {
            code = code << 1 | next();
            const auto found = huffman[key].find({len, code});
            if (found != huffman[key].end())
                return found->second;
        }
        throw std::runtime_error("no such Huffman code");
    };
    auto receive = [&](int size) {
        int value = 0;
        for (int i = 0; i < size; ++i)
            value = value << 1 | static_cast<int>(next());
        return size > 0 && value < (1 << (size - 1)) ? value - (1 << size) + 1 : value;
    };

    const double pi = std::acos(-1.0);
    std::vector<std::array<double, 3>> ycc(static_cast<std::size_t>(width) * height);
    std::array<int, 3> dc{};
    for (int by = 0; by < height; by += 8)
        for (int bx = 0; bx < width; bx += 8)
            for (std::size_t c = 0; c < 3; ++c) {
                std::array<double, 64> coefficient{};
                dc[c] += receive(decode(dcOf[c]));
                coefficient[0] = dc[c] * quant[static_cast<std::size_t>(quantOf[c])][0];
                for (int k = 1; k < 64;) {
                    const int rs = decode(16 + acOf[c]);
                    if ((rs & 15) == 0) {
                        if (rs != 0xF0)
                            break;
                        k += 16;
                        continue;
                    }
                    k += rs >> 4;
                    if (k > 63)
                        throw std::runtime_error("run past the block");
                    coefficient[static_cast<std::size_t>(kZigZag[static_cast<std::size_t>(k)])] =
                        receive(rs & 15) *
                        quant[static_cast<std::size_t>(quantOf[c])][static_cast<std::size_t>(k)];
                    ++k;
                }
                for (int y = 0; y < 8; ++y)
                    for (int x = 0; x < 8; ++x) {
                        double sum = 0;
                        for (int v = 0; v < 8; ++v)
                            for (int u = 0; u < 8; ++u)
                                sum += (u ? 1 : std::sqrt(0.5)) * (v ? 1 : std::sqrt(0.5)) *
                                       coefficient[static_cast<std::size_t>(v * 8 + u)] *
                                       std::cos((2 * x + 1) * u * pi / 16) *
                                       std::cos((2 * y + 1) * v * pi / 16);
                        if (bx + x < width && by + y < height)
                            ycc[static_cast<std::size_t>((by + y) * width + bx + x)][c] = sum / 4;
                    }
            }
    RgbImage image(width, height);
    for (std::size_t i = 0; i < ycc.size(); ++i) {
        const double y = ycc[i][0] + 128, cb = ycc[i][1], cr = ycc[i][2];
        auto clamp = [](double v) {
            return static_cast<std::uint8_t>(std::lround(std::clamp(v, 0.0, 255.0)));
        };
        image.pixels[i] = {clamp(y + 1.402 * cr), clamp(y - 0.344136 * cb - 0.714136 * cr),
                           clamp(y + 1.772 * cb)};
    }
    return image;
}

double MeanError(const RgbImage& a, const RgbImage& b)
{
    double sum = 0;
    for (std::size_t i = 0; i < a.pixels.size(); ++i)
        sum += std::abs(a.pixels[i].r - b.pixels[i].r) + std::abs(a.pixels[i].g - b.pixels[i].g) +
               std::abs(a.pixels[i].b - b.pixels[i].b);
    return sum / (3.0 * static_cast<double>(a.pixels.size()));
}

TEST(JpegWriterTest, APictureReadsBackCloseToTheOriginal)
{
    // 37 x 21: blocks overhang both edges.
    const RgbImage image = TestPicture(37, 21);
    const RgbImage decoded = DecodeJpeg(EncodeJpeg(image, 90));
    ASSERT_EQ(decoded.width, 37);
    ASSERT_EQ(decoded.height, 21);
    EXPECT_LT(MeanError(image, decoded), 3.0);
}

TEST(JpegWriterTest, QualityTradesSizeForFidelity)
{
    const RgbImage image = TestPicture(64, 48);
    const std::string low = EncodeJpeg(image, 20);
    const std::string high = EncodeJpeg(image, 95);
    EXPECT_LT(low.size(), high.size());
    EXPECT_LT(MeanError(image, DecodeJpeg(high)), MeanError(image, DecodeJpeg(low)));
}

TEST(JpegWriterTest, NoiseUsesTheLongCodesAndStuffedBytes)
{
    // Noise brings out large coefficients, long zero runs and many 0xFF bytes in the scan.
    RgbImage image(48, 40);
    std::uint32_t state = 99;
    for (Rgb& pixel : image.pixels) {
        state = state * 1664525u + 1013904223u;
        pixel = {static_cast<std::uint8_t>(state >> 24), static_cast<std::uint8_t>(state >> 16),
                 static_cast<std::uint8_t>(state >> 8)};
    }
    const RgbImage decoded = DecodeJpeg(EncodeJpeg(image, 100));
    EXPECT_LT(MeanError(image, decoded), 6.0);

    RgbImage flat(16, 16, {200, 30, 90}); // only DC values and end-of-block codes
    EXPECT_LT(MeanError(flat, DecodeJpeg(EncodeJpeg(flat, 75))), 2.0);
}

} // namespace
} // namespace vellumar
