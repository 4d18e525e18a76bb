#include "demo/GifWriter.h"

#include "demo/LittleEndian.h"

#include <cstdint>
#include <unordered_map>

namespace vellumar {

namespace {

constexpr int kMaxCodeBits = 12;
// The table is cleared one code early, as the common encoders do, so that a decoder never
// has to deal with a full table before the clear code arrives.
constexpr std::uint32_t kLastTableCode = (1u << kMaxCodeBits) - 1;

// Collects variable-width codes, least significant bit first, into data sub-blocks of at most
// 255 bytes.
class CodeStream {
public:
    explicit CodeStream(std::string& out)
        : out_(out)
    {}

    void put(std::uint32_t code, int bits)
    {
        buffer_ |= code << filled_;
        filled_ += bits;
        while (filled_ >= 8) {
            byte(static_cast<char>(buffer_ & 0xFF));
            buffer_ >>= 8;
            filled_ -= 8;
        }
    }

    void finish()
    {
        if (filled_ > 0)
            byte(static_cast<char>(buffer_ & 0xFF));
        flushBlock();
        out_.push_back('\0'); // block terminator
    }

private:
    void byte(char value)
    {
        block_.push_back(value);
        if (block_.size() == 255)
            flushBlock();
    }

    void flushBlock()
    {
        if (block_.empty())
            return;
        out_.push_back(static_cast<char>(block_.size()));
        out_ += block_;
        block_.clear();
    }

    std::string& out_;
    std::string block_;
    std::uint32_t buffer_ = 0;
    int filled_ = 0;
};

void CompressPixels(const IndexedImage& image, int minimumCodeSize, std::string& out)
{
    out.push_back(static_cast<char>(minimumCodeSize));
    CodeStream stream(out);
    const std::uint32_t clearCode = 1u << minimumCodeSize;
    const std::uint32_t endCode = clearCode + 1;
    std::unordered_map<std::uint32_t, std::uint32_t> table; // (prefix code << 8 | index) -> code
    table.reserve(8192);
    std::uint32_t nextCode = endCode + 1;
    int codeBits = minimumCodeSize + 1;

    stream.put(clearCode, codeBits);
    if (image.indices.empty()) {
        stream.put(endCode, codeBits);
        stream.finish();
        return;
    }
    std::uint32_t prefix = image.indices[0];
    for (std::size_t i = 1; i < image.indices.size(); ++i) {
        const std::uint32_t index = image.indices[i];
        const std::uint32_t key = (prefix << 8) | index;
        if (const auto found = table.find(key); found != table.end()) {
            prefix = found->second;
            continue;
        }
        stream.put(prefix, codeBits);
        if (nextCode < kLastTableCode) {
            table.emplace(key, nextCode);
            // A decoder learns this entry one code later; it widens its codes as soon as the
            // entry's number no longer fits, and so must we.
            if (nextCode == (1u << codeBits) && codeBits < kMaxCodeBits)
                ++codeBits;
            ++nextCode;
        } else {
            stream.put(clearCode, codeBits);
            table.clear();
            nextCode = endCode + 1;
            codeBits = minimumCodeSize + 1;
        }
        prefix = index;
    }
    stream.put(prefix, codeBits);
    stream.put(endCode, codeBits);
    stream.finish();
}

} // namespace

std::string EncodeGif(const IndexedImage& image)
{
    // The colour table holds 2^n entries, n from 1 to 8.
    int tableBits = 1;
    while ((1u << tableBits) < image.palette.size() && tableBits < 8)
        ++tableBits;
    const unsigned tableSize = 1u << tableBits;

    std::string out = "GIF89a";
    PutU16(out, static_cast<unsigned>(image.width));
    PutU16(out, static_cast<unsigned>(image.height));
    // Global colour table present, colour resolution 8 bits, table size 2^tableBits.
    out.push_back(static_cast<char>(0x80 | (7 << 4) | (tableBits - 1)));
    out.push_back('\0'); // background colour index
    out.push_back('\0'); // square pixels
    for (unsigned i = 0; i < tableSize; ++i) {
        const Rgb colour = i < image.palette.size() ? image.palette[i] : Rgb{};
        out.push_back(static_cast<char>(colour.r));
        out.push_back(static_cast<char>(colour.g));
        out.push_back(static_cast<char>(colour.b));
    }

    out.push_back(',');
    PutU16(out, 0);
    PutU16(out, 0);
    PutU16(out, static_cast<unsigned>(image.width));
    PutU16(out, static_cast<unsigned>(image.height));
    out.push_back('\0'); // no local colour table, not interlaced

    CompressPixels(image, tableBits < 2 ? 2 : tableBits, out);
    out.push_back(';');
    return out;
}

} // namespace vellumar
