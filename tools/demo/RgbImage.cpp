#include "demo/RgbImage.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <unordered_map>

namespace vellumar {

namespace {

std::uint32_t KeyOf(Rgb c)
{
    return (std::uint32_t{c.r} << 16) | (std::uint32_t{c.g} << 8) | c.b;
}

Rgb ColourOf(std::uint32_t key)
{
    return {static_cast<std::uint8_t>(key >> 16), static_cast<std::uint8_t>(key >> 8),
            static_cast<std::uint8_t>(key)};
}

int Channel(std::uint32_t key, int channel)
{
    return static_cast<int>((key >> (16 - 8 * channel)) & 0xFF);
}

struct Weighted {
    std::uint32_t key = 0;
    std::uint32_t count = 0;
};

struct Box {
    std::size_t begin = 0;
    std::size_t end = 0;
    std::uint64_t weight = 0;
    int channel = 0; // the channel with the widest range
    int range = 0;

    void measure(const std::vector<Weighted>& colours)
    {
        std::array<int, 3> low{255, 255, 255};
        std::array<int, 3> high{0, 0, 0};
        weight = 0;
        for (std::size_t i = begin; i < end; ++i) {
            weight += colours[i].count;
            for (int c = 0; c < 3; ++c) {
                low[c] = std::min(low[c], Channel(colours[i].key, c));
                high[c] = std::max(high[c], Channel(colours[i].key, c));
            }
        }
        range = -1;
        for (int c = 0; c < 3; ++c)
            if (high[c] - low[c] > range) {
                range = high[c] - low[c];
                channel = c;
            }
    }
};

// The distinct colours of the picture with how often each occurs, in key order.
std::vector<Weighted> DistinctColours(const RgbImage& image)
{
    std::vector<std::uint32_t> keys;
    keys.reserve(image.pixels.size());
    for (const Rgb& pixel : image.pixels)
        keys.push_back(KeyOf(pixel));
    std::sort(keys.begin(), keys.end());
    std::vector<Weighted> colours;
    for (std::uint32_t key : keys) {
        if (colours.empty() || colours.back().key != key)
            colours.push_back({key, 0});
        ++colours.back().count;
    }
    return colours;
}

// Splits the colours into at most `maxColours` boxes; the palette is the weighted mean of each
// box, and every colour maps to its own box.
std::vector<Rgb> MedianCut(std::vector<Weighted> colours, std::size_t maxColours,
                           std::unordered_map<std::uint32_t, std::uint8_t>& indexOf)
{
    std::vector<Box> boxes(1);
    boxes[0].end = colours.size();
    boxes[0].measure(colours);
    while (boxes.size() < maxColours) {
        // Split the box where a wide range meets many pixels, the range counting most, so that
        // no colour ends up far from its box's mean; ties go to the first box, so the result
        // never depends on anything but the picture.
        std::size_t pick = boxes.size();
        std::uint64_t best = 0;
        for (std::size_t i = 0; i < boxes.size(); ++i) {
            const auto range = static_cast<std::uint64_t>(boxes[i].range);
            const std::uint64_t score = range * range * boxes[i].weight;
            if (boxes[i].end - boxes[i].begin >= 2 && score > best) {
                best = score;
                pick = i;
            }
        }
        if (pick == boxes.size())
            break;
        Box& box = boxes[pick];
        const int channel = box.channel;
        std::sort(colours.begin() + static_cast<std::ptrdiff_t>(box.begin),
                  colours.begin() + static_cast<std::ptrdiff_t>(box.end),
                  [channel](const Weighted& a, const Weighted& b) {
                      const int ca = Channel(a.key, channel);
                      const int cb = Channel(b.key, channel);
                      return ca != cb ? ca < cb : a.key < b.key;
                  });
        std::uint64_t running = 0;
        std::size_t split = box.begin + 1;
        for (std::size_t i = box.begin; i + 1 < box.end; ++i) {
            running += colours[i].count;
            split = i + 1;
            if (running * 2 >= box.weight)
                break;
        }
        Box upper;
        upper.begin = split;
        upper.end = box.end;
        box.end = split;
        box.measure(colours);
        upper.measure(colours);
        boxes.push_back(upper);
    }

    std::vector<Rgb> palette;
    for (const Box& box : boxes) {
        for (std::size_t i = box.begin; i < box.end; ++i)
            indexOf.emplace(colours[i].key, static_cast<std::uint8_t>(palette.size()));
        std::array<std::uint64_t, 3> sum{};
        for (std::size_t i = box.begin; i < box.end; ++i)
            for (int c = 0; c < 3; ++c)
                sum[c] += static_cast<std::uint64_t>(Channel(colours[i].key, c)) * colours[i].count;
        Rgb mean;
        mean.r = static_cast<std::uint8_t>((sum[0] + box.weight / 2) / box.weight);
        mean.g = static_cast<std::uint8_t>((sum[1] + box.weight / 2) / box.weight);
        mean.b = static_cast<std::uint8_t>((sum[2] + box.weight / 2) / box.weight);
        palette.push_back(mean);
    }
    return palette;
}

} // namespace

RgbImage::RgbImage(int w, int h, Rgb fill)
    : width(w)
    , height(h)
    , pixels(static_cast<std::size_t>(w) * static_cast<std::size_t>(h), fill)
{}

IndexedImage ToGreyscale(const RgbImage& image)
{
    IndexedImage result;
    result.width = image.width;
    result.height = image.height;
    result.palette.resize(256);
    for (int i = 0; i < 256; ++i) {
        const auto level = static_cast<std::uint8_t>(i);
        result.palette[static_cast<std::size_t>(i)] = {level, level, level};
    }
    result.indices.reserve(image.pixels.size());
    for (const Rgb& pixel : image.pixels)
        result.indices.push_back(static_cast<std::uint8_t>(
            (299 * pixel.r + 587 * pixel.g + 114 * pixel.b + 500) / 1000));
    return result;
}

IndexedImage ToAdaptivePalette(const RgbImage& image, int maxColours)
{
    const std::size_t limit = static_cast<std::size_t>(std::clamp(maxColours, 1, 256));
    IndexedImage result;
    result.width = image.width;
    result.height = image.height;
    std::vector<Weighted> colours = DistinctColours(image);
    if (colours.empty())
        return result;

    std::unordered_map<std::uint32_t, std::uint8_t> indexOf;
    if (colours.size() <= limit) {
        // Few enough colours: every one keeps its exact value.
        for (const Weighted& colour : colours) {
            indexOf.emplace(colour.key, static_cast<std::uint8_t>(result.palette.size()));
            result.palette.push_back(ColourOf(colour.key));
        }
    } else {
        result.palette = MedianCut(std::move(colours), limit, indexOf);
    }

    result.indices.reserve(image.pixels.size());
    for (const Rgb& pixel : image.pixels)
        result.indices.push_back(indexOf.at(KeyOf(pixel)));
    return result;
}

} // namespace vellumar
