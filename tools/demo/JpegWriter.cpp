#include "demo/JpegWriter.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <numbers>
#include <vector>

namespace vellumar {

namespace {

// Position in the 8x8 block of the n-th coefficient in zig-zag order.
constexpr std::array<std::uint8_t, 64> kZigZag = {
    0,  1,  8,  16, 9,  2,  3,  10, 17, 24, 32, 25, 18, 11, 4,  5,  12, 19, 26, 33, 40, 48,
    41, 34, 27, 20, 13, 6,  7,  14, 21, 28, 35, 42, 49, 56, 57, 50, 43, 36, 29, 22, 15, 23,
    30, 37, 44, 51, 58, 59, 52, 45, 38, 31, 39, 46, 53, 60, 61, 54, 47, 55, 62, 63};

// The standard's example quantisation tables, in natural (row by row) order.
constexpr std::array<std::uint8_t, 64> kLuminanceQuant = {
    16, 11, 10, 16, 24,  40,  51,  61,  12, 12, 14, 19, 26,  58,  60,  55,
    14, 13, 16, 24, 40,  57,  69,  56,  14, 17, 22, 29, 51,  87,  80,  62,
    18, 22, 37, 56, 68,  109, 103, 77,  24, 35, 55, 64, 81,  104, 113, 92,
    49, 64, 78, 87, 103, 121, 120, 101, 72, 92, 95, 98, 112, 100, 103, 99};
constexpr std::array<std::uint8_t, 64> kChrominanceQuant = {
    17, 18, 24, 47, 99, 99, 99, 99, 18, 21, 26, 66, 99, 99, 99, 99, 24, 26, 56, 99, 99, 99,
    99, 99, 47, 66, 99, 99, 99, 99, 99, 99, 99, 99, 99, 99, 99, 99, 99, 99, 99, 99, 99, 99,
    99, 99, 99, 99, 99, 99, 99, 99, 99, 99, 99, 99, 99, 99, 99, 99, 99, 99, 99, 99};

// The standard's example Huffman tables: the number of codes of each length 1 to 16, then the
// symbols in code order. A DC symbol is the bit size of a difference (0 to 11); an AC symbol is
// a run of zeros (high nibble) and a bit size (low nibble), with 0x00 ending a block and 0xF0
// standing for sixteen zeros.
const std::array<std::uint8_t, 16> kDcLuminanceCounts = {0, 1, 5, 1, 1, 1, 1, 1,
                                                         1, 0, 0, 0, 0, 0, 0, 0};
const std::vector<std::uint8_t> kDcLuminanceSymbols = {0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11};
const std::array<std::uint8_t, 16> kDcChrominanceCounts = {0, 3, 1, 1, 1, 1, 1, 1,
                                                           1, 1, 1, 0, 0, 0, 0, 0};
const std::vector<std::uint8_t> kDcChrominanceSymbols = {0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11};

const std::array<std::uint8_t, 16> kAcLuminanceCounts = {0, 2, 1, 3, 3, 2, 4, 3,
                                                         5, 5, 4, 4, 0, 0, 1, 0x7d};
const std::vector<std::uint8_t> kAcLuminanceSymbols = {
    0x01, 0x02, 0x03, 0x00, 0x04, 0x11, 0x05, 0x12, 0x21, 0x31, 0x41, 0x06, 0x13, 0x51, 0x61,
    0x07, 0x22, 0x71, 0x14, 0x32, 0x81, 0x91, 0xa1, 0x08, 0x23, 0x42, 0xb1, 0xc1, 0x15, 0x52,
    0xd1, 0xf0, 0x24, 0x33, 0x62, 0x72, 0x82, 0x09, 0x0a, 0x16, 0x17, 0x18, 0x19, 0x1a, 0x25,
    0x26, 0x27, 0x28, 0x29, 0x2a, 0x34, 0x35, 0x36, 0x37, 0x38, 0x39, 0x3a, 0x43, 0x44, 0x45,
    0x46, 0x47, 0x48, 0x49, 0x4a, 0x53, 0x54, 0x55, 0x56, 0x57, 0x58, 0x59, 0x5a, 0x63, 0x64,
    0x65, 0x66, 0x67, 0x68, 0x69, 0x6a, 0x73, 0x74, 0x75, 0x76, 0x77, 0x78, 0x79, 0x7a, 0x83,
    0x84, 0x85, 0x86, 0x87, 0x88, 0x89, 0x8a, 0x92, 0x93, 0x94, 0x95, 0x96, 0x97, 0x98, 0x99,
    0x9a, 0xa2, 0xa3, 0xa4, 0xa5, 0xa6, 0xa7, 0xa8, 0xa9, 0xaa, 0xb2, 0xb3, 0xb4, 0xb5, 0xb6,
    0xb7, 0xb8, 0xb9, 0xba, 0xc2, 0xc3, 0xc4, 0xc5, 0xc6, 0xc7, 0xc8, 0xc9, 0xca, 0xd2, 0xd3,
    0xd4, 0xd5, 0xd6, 0xd7, 0xd8, 0xd9, 0xda, 0xe1, 0xe2, 0xe3, 0xe4, 0xe5, 0xe6, 0xe7, 0xe8,
    0xe9, 0xea, 0xf1, 0xf2, 0xf3, 0xf4, 0xf5, 0xf6, 0xf7, 0xf8, 0xf9, 0xfa};

const std::array<std::uint8_t, 16> kAcChrominanceCounts = {0, 2, 1, 2, 4, 4, 3, 4,
                                                           7, 5, 4, 4, 0, 1, 2, 0x77};
const std::vector<std::uint8_t> kAcChrominanceSymbols = {
    0x00, 0x01, 0x02, 0x03, 0x11, 0x04, 0x05, 0x21, 0x31, 0x06, 0x12, 0x41, 0x51, 0x07, 0x61,
    0x71, 0x13, 0x22, 0x32, 0x81, 0x08, 0x14, 0x42, 0x91, 0xa1, 0xb1, 0xc1, 0x09, 0x23, 0x33,
    0x52, 0xf0, 0x15, 0x62, 0x72, 0xd1, 0x0a, 0x16, 0x24, 0x34, 0xe1, 0x25, 0xf1, 0x17, 0x18,
    0x19, 0x1a, 0x26, 0x27, 0x28, 0x29, 0x2a, 0x35, 0x36, 0x37, 0x38, 0x39, 0x3a, 0x43, 0x44,
    0x45, 0x46, 0x47, 0x48, 0x49, 0x4a, 0x53, 0x54, 0x55, 0x56, 0x57, 0x58, 0x59, 0x5a, 0x63,
    0x64, 0x65, 0x66, 0x67, 0x68, 0x69, 0x6a, 0x73, 0x74, 0x75, 0x76, 0x77, 0x78, 0x79, 0x7a,
    0x82, 0x83, 0x84, 0x85, 0x86, 0x87, 0x88, 0x89, 0x8a, 0x92, 0x93, 0x94, 0x95, 0x96, 0x97,
    0x98, 0x99, 0x9a, 0xa2, 0xa3, 0xa4, 0xa5, 0xa6, 0xa7, 0xa8, 0xa9, 0xaa, 0xb2, 0xb3, 0xb4,
    0xb5, 0xb6, 0xb7, 0xb8, 0xb9, 0xba, 0xc2, 0xc3, 0xc4, 0xc5, 0xc6, 0xc7, 0xc8, 0xc9, 0xca,
    0xd2, 0xd3, 0xd4, 0xd5, 0xd6, 0xd7, 0xd8, 0xd9, 0xda, 0xe2, 0xe3, 0xe4, 0xe5, 0xe6, 0xe7,
    0xe8, 0xe9, 0xea, 0xf2, 0xf3, 0xf4, 0xf5, 0xf6, 0xf7, 0xf8, 0xf9, 0xfa};

struct HuffmanCode {
    std::uint16_t bits = 0;
    std::uint8_t length = 0; // 0: the symbol has no code
};

struct HuffmanTable {
    const std::array<std::uint8_t, 16>& counts;
    const std::vector<std::uint8_t>& symbols;
    std::array<HuffmanCode, 256> codes{};

    HuffmanTable(const std::array<std::uint8_t, 16>& c, const std::vector<std::uint8_t>& s)
        : counts(c)
        , symbols(s)
    {
        // Canonical codes: consecutive values within a length, doubled for the next length.
        std::uint16_t code = 0;
        std::size_t next = 0;
        for (int length = 1; length <= 16; ++length) {
            for (int i = 0; i < counts[static_cast<std::size_t>(length - 1)]; ++i)
                codes[symbols[next++]] = {code++, static_cast<std::uint8_t>(length)};
            code = static_cast<std::uint16_t>(code << 1);
        }
    }
};

class BitWriter {
public:
    explicit BitWriter(std::string& out)
        : out_(out)
    {}

    void put(std::uint32_t bits, int length)
    {
        for (int i = length - 1; i >= 0; --i) {
            buffer_ = static_cast<std::uint8_t>((buffer_ << 1) | ((bits >> i) & 1));
            if (++filled_ == 8)
                flushByte();
        }
    }

    void put(const HuffmanCode& code) { put(code.bits, code.length); }

    // The last byte is padded with one bits, as the standard asks.
    void finish()
    {
        while (filled_ != 0)
            put(1, 1);
    }

private:
    void flushByte()
    {
        out_.push_back(static_cast<char>(buffer_));
        // A 0xFF byte in the entropy-coded data is followed by a zero so that no decoder takes it
        // for the start of a marker.
        if (buffer_ == 0xFF)
            out_.push_back('\0');
        buffer_ = 0;
        filled_ = 0;
    }

    std::string& out_;
    std::uint8_t buffer_ = 0;
    int filled_ = 0;
};

void PutBigEndian16(std::string& out, unsigned value)
{
    out.push_back(static_cast<char>((value >> 8) & 0xFF));
    out.push_back(static_cast<char>(value & 0xFF));
}

void PutMarker(std::string& out, std::uint8_t marker)
{
    out.push_back(static_cast<char>(0xFF));
    out.push_back(static_cast<char>(marker));
}

std::array<std::uint8_t, 64> ScaledQuant(const std::array<std::uint8_t, 64>& base, int quality)
{
    quality = std::clamp(quality, 1, 100);
    const int scale = quality < 50 ? 5000 / quality : 200 - 2 * quality;
    std::array<std::uint8_t, 64> table{};
    for (std::size_t i = 0; i < 64; ++i)
        table[i] = static_cast<std::uint8_t>(std::clamp((base[i] * scale + 50) / 100, 1, 255));
    return table;
}

void PutHuffmanTable(std::string& out, std::uint8_t classAndId, const HuffmanTable& table)
{
    out.push_back(static_cast<char>(classAndId));
    for (std::uint8_t count : table.counts)
        out.push_back(static_cast<char>(count));
    for (std::uint8_t symbol : table.symbols)
        out.push_back(static_cast<char>(symbol));
}

// Number of bits needed for the magnitude of a coefficient, and the bits themselves in the
// standard's form (negative values as their one's complement).
int MagnitudeBits(int value)
{
    int magnitude = value < 0 ? -value : value;
    int bits = 0;
    while (magnitude != 0) {
        ++bits;
        magnitude >>= 1;
    }
    return bits;
}

std::uint32_t MagnitudeCode(int value, int bits)
{
    return static_cast<std::uint32_t>(value < 0 ? value + (1 << bits) - 1 : value);
}

struct Cosines {
    std::array<std::array<double, 8>, 8> table{}; // [frequency][position]

    Cosines()
    {
        for (int u = 0; u < 8; ++u)
            for (int x = 0; x < 8; ++x)
                table[static_cast<std::size_t>(u)][static_cast<std::size_t>(x)] =
                    (u == 0 ? std::sqrt(0.5) : 1.0) *
                    std::cos((2 * x + 1) * u * std::numbers::pi / 16.0);
    }
};

// Forward DCT of one block of level-shifted samples (row by row), quantised, in zig-zag order.
std::array<int, 64> TransformBlock(const std::array<double, 64>& samples,
                                   const std::array<std::uint8_t, 64>& quant, const Cosines& cos)
{
    std::array<double, 64> rows{};
    for (int y = 0; y < 8; ++y)
        for (int u = 0; u < 8; ++u) {
            double sum = 0;
            for (int x = 0; x < 8; ++x)
                sum += samples[static_cast<std::size_t>(y * 8 + x)] *
                       cos.table[static_cast<std::size_t>(u)][static_cast<std::size_t>(x)];
            rows[static_cast<std::size_t>(y * 8 + u)] = sum / 2;
        }
    std::array<int, 64> result{};
    for (int n = 0; n < 64; ++n) {
        const int position = kZigZag[static_cast<std::size_t>(n)];
        const int u = position % 8;
        const int v = position / 8;
        double sum = 0;
        for (int y = 0; y < 8; ++y)
            sum += rows[static_cast<std::size_t>(y * 8 + u)] *
                   cos.table[static_cast<std::size_t>(v)][static_cast<std::size_t>(y)];
        result[static_cast<std::size_t>(n)] =
            static_cast<int>(std::lround(sum / 2 / quant[static_cast<std::size_t>(position)]));
    }
    return result;
}

void EncodeBlock(BitWriter& writer, const std::array<int, 64>& coefficients, int& previousDc,
                 const HuffmanTable& dc, const HuffmanTable& ac)
{
    const int difference = coefficients[0] - previousDc;
    previousDc = coefficients[0];
    const int dcBits = MagnitudeBits(difference);
    writer.put(dc.codes[static_cast<std::size_t>(dcBits)]);
    writer.put(MagnitudeCode(difference, dcBits), dcBits);

    int zeros = 0;
    for (std::size_t n = 1; n < 64; ++n) {
        const int value = coefficients[n];
        if (value == 0) {
            ++zeros;
            continue;
        }
        for (; zeros >= 16; zeros -= 16)
            writer.put(ac.codes[0xF0]);
        const int bits = MagnitudeBits(value);
        writer.put(ac.codes[static_cast<std::size_t>((zeros << 4) | bits)]);
        writer.put(MagnitudeCode(value, bits), bits);
        zeros = 0;
    }
    if (zeros > 0)
        writer.put(ac.codes[0x00]);
}

} // namespace

std::string EncodeJpeg(const RgbImage& image, int quality)
{
    const std::array<std::uint8_t, 64> lumaQuant = ScaledQuant(kLuminanceQuant, quality);
    const std::array<std::uint8_t, 64> chromaQuant = ScaledQuant(kChrominanceQuant, quality);
    const HuffmanTable dcLuma(kDcLuminanceCounts, kDcLuminanceSymbols);
    const HuffmanTable acLuma(kAcLuminanceCounts, kAcLuminanceSymbols);
    const HuffmanTable dcChroma(kDcChrominanceCounts, kDcChrominanceSymbols);
    const HuffmanTable acChroma(kAcChrominanceCounts, kAcChrominanceSymbols);

    std::string out;
    PutMarker(out, 0xD8); // start of image

    PutMarker(out, 0xE0); // JFIF 1.01, no units, square pixels, no thumbnail
    PutBigEndian16(out, 16);
    out.append("JFIF", 4);
    out.push_back('\0');
    out.push_back('\1');
    out.push_back('\1');
    out.push_back('\0');
    PutBigEndian16(out, 1);
    PutBigEndian16(out, 1);
    out.push_back('\0');
    out.push_back('\0');

    PutMarker(out, 0xDB); // quantisation tables 0 and 1, 8-bit, in zig-zag order
    PutBigEndian16(out, 2 + 2 * 65);
    for (int id = 0; id < 2; ++id) {
        const auto& table = id == 0 ? lumaQuant : chromaQuant;
        out.push_back(static_cast<char>(id));
        for (std::uint8_t position : kZigZag)
            out.push_back(static_cast<char>(table[position]));
    }

    PutMarker(out, 0xC0); // baseline frame, three components without subsampling
    PutBigEndian16(out, 8 + 3 * 3);
    out.push_back('\x08');
    PutBigEndian16(out, static_cast<unsigned>(image.height));
    PutBigEndian16(out, static_cast<unsigned>(image.width));
    out.push_back('\x03');
    for (int component = 1; component <= 3; ++component) {
        out.push_back(static_cast<char>(component));
        out.push_back('\x11');
        out.push_back(component == 1 ? '\0' : '\1');
    }

    PutMarker(out, 0xC4);
    std::size_t length = 2;
    for (const HuffmanTable* table : {&dcLuma, &acLuma, &dcChroma, &acChroma})
        length += 17 + table->symbols.size();
    PutBigEndian16(out, static_cast<unsigned>(length));
    PutHuffmanTable(out, 0x00, dcLuma);
    PutHuffmanTable(out, 0x10, acLuma);
    PutHuffmanTable(out, 0x01, dcChroma);
    PutHuffmanTable(out, 0x11, acChroma);

    PutMarker(out, 0xDA); // one scan with all three components
    PutBigEndian16(out, 6 + 2 * 3);
    out.push_back('\x03');
    out.push_back('\x01');
    out.push_back('\x00');
    out.push_back('\x02');
    out.push_back('\x11');
    out.push_back('\x03');
    out.push_back('\x11');
    out.push_back('\x00'); // coefficients 0 to 63 in this one scan, no successive approximation
    out.push_back('\x3F');
    out.push_back('\x00');

    const Cosines cosines;
    BitWriter writer(out);
    std::array<int, 3> previousDc{};
    std::array<std::array<double, 64>, 3> blocks{};
    for (int blockY = 0; blockY < image.height; blockY += 8)
        for (int blockX = 0; blockX < image.width; blockX += 8) {
            for (int y = 0; y < 8; ++y)
                for (int x = 0; x < 8; ++x) {
                    // Blocks that overhang the picture repeat its last row and column.
                    const Rgb& pixel = image.at(std::min(blockX + x, image.width - 1),
                                                std::min(blockY + y, image.height - 1));
                    const double r = pixel.r;
                    const double g = pixel.g;
                    const double b = pixel.b;
                    const auto i = static_cast<std::size_t>(y * 8 + x);
                    blocks[0][i] = 0.299 * r + 0.587 * g + 0.114 * b - 128;
                    blocks[1][i] = -0.168736 * r - 0.331264 * g + 0.5 * b;
                    blocks[2][i] = 0.5 * r - 0.418688 * g - 0.081312 * b;
                }
            EncodeBlock(writer, TransformBlock(blocks[0], lumaQuant, cosines), previousDc[0],
                        dcLuma, acLuma);
            EncodeBlock(writer, TransformBlock(blocks[1], chromaQuant, cosines), previousDc[1],
                        dcChroma, acChroma);
            EncodeBlock(writer, TransformBlock(blocks[2], chromaQuant, cosines), previousDc[2],
                        dcChroma, acChroma);
        }
    writer.finish();

    PutMarker(out, 0xD9); // end of image
    return out;
}

} // namespace vellumar
