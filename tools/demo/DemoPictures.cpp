#include "demo/DemoPictures.h"

#include <QCoreApplication>
#include <QFont>
#include <QFontMetricsF>
#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QPainterPath>
#include <QPolygonF>

#include <algorithm>
#include <array>
#include <cmath>
#include <functional>
#include <numbers>
#include <utility>
#include <vector>

namespace vellumar::demo {

namespace {

constexpr float kPi = std::numbers::pi_v<float>;

// ---------------------------------------------------------------------------------------------
// Colours and the canvas

struct Colour {
    float r = 0;
    float g = 0;
    float b = 0;
};

Colour operator+(Colour a, Colour b)
{
    return {a.r + b.r, a.g + b.g, a.b + b.b};
}

Colour operator*(Colour c, float k)
{
    return {c.r * k, c.g * k, c.b * k};
}

Colour operator*(Colour a, Colour b)
{
    return {a.r * b.r, a.g * b.g, a.b * b.b};
}

float Clamp01(float v)
{
    return std::clamp(v, 0.0f, 1.0f);
}

Colour Mix(Colour a, Colour b, float t)
{
    return a * (1 - t) + b * t;
}

float SmoothStep(float edge0, float edge1, float x)
{
    const float t = Clamp01((x - edge0) / (edge1 - edge0));
    return t * t * (3 - 2 * t);
}

// Colour is kept in floats while painting, so that glows can add up before they are clipped.
class Canvas {
public:
    Canvas(int width, int height, Colour fill = {})
        : width_(width)
        , height_(height)
        , data_(static_cast<std::size_t>(width) * static_cast<std::size_t>(height), fill)
    {}

    int width() const { return width_; }
    int height() const { return height_; }
    bool inside(int x, int y) const { return x >= 0 && y >= 0 && x < width_ && y < height_; }

    Colour& at(int x, int y) { return data_[static_cast<std::size_t>(y) * width_ + x]; }
    Colour at(int x, int y) const { return data_[static_cast<std::size_t>(y) * width_ + x]; }

    void blend(int x, int y, Colour c, float alpha)
    {
        if (inside(x, y) && alpha > 0)
            at(x, y) = Mix(at(x, y), c, Clamp01(alpha));
    }

    void add(int x, int y, Colour c)
    {
        if (inside(x, y))
            at(x, y) = at(x, y) + c;
    }

    // Additive, wrapping at the edges: for textures the simulator repeats side by side.
    void addWrapped(int x, int y, Colour c)
    {
        x = ((x % width_) + width_) % width_;
        y = ((y % height_) + height_) % height_;
        at(x, y) = at(x, y) + c;
    }

    QImage image() const
    {
        QImage result(width_, height_, QImage::Format_RGB32);
        auto channel = [](float v) { return static_cast<int>(std::lround(Clamp01(v) * 255.0f)); };
        for (int y = 0; y < height_; ++y) {
            auto* line = reinterpret_cast<QRgb*>(result.scanLine(y));
            for (int x = 0; x < width_; ++x) {
                const Colour c = at(x, y);
                line[x] = qRgb(channel(c.r), channel(c.g), channel(c.b));
            }
        }
        return result;
    }

    // Lays `colour` over the canvas wherever `draw` paints, by the coverage QPainter gives each
    // pixel: shapes and letters get smooth edges while light keeps adding up in floats.
    void paint(const std::function<void(QPainter&)>& draw, Colour colour, float alpha = 1)
    {
        QImage mask(width_, height_, QImage::Format_Alpha8);
        mask.fill(0);
        {
            QPainter painter(&mask);
            painter.setRenderHint(QPainter::Antialiasing);
            painter.setPen(Qt::NoPen);
            painter.setBrush(Qt::black);
            draw(painter);
        }
        for (int y = 0; y < height_; ++y) {
            const uchar* coverage = mask.constScanLine(y);
            for (int x = 0; x < width_; ++x)
                if (coverage[x] != 0)
                    blend(x, y, colour, alpha * static_cast<float>(coverage[x]) / 255.0f);
        }
    }

private:
    int width_;
    int height_;
    std::vector<Colour> data_;
};

// ---------------------------------------------------------------------------------------------
// Randomness with fixed seeds

class Random {
public:
    explicit Random(std::uint64_t seed)
        : state_(seed * 0x9E3779B97F4A7C15ull + 0x632BE59BD9B4E019ull)
    {}

    std::uint32_t next()
    {
        // splitmix64: small, fast and the same on every platform.
        std::uint64_t z = (state_ += 0x9E3779B97F4A7C15ull);
        z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9ull;
        z = (z ^ (z >> 27)) * 0x94D049BB133111EBull;
        return static_cast<std::uint32_t>((z ^ (z >> 31)) >> 32);
    }

    float uniform() { return static_cast<float>(next() >> 8) / 16777216.0f; }
    float range(float low, float high) { return low + (high - low) * uniform(); }

private:
    std::uint64_t state_;
};

float Lattice(int x, int y, std::uint32_t seed)
{
    std::uint32_t h = static_cast<std::uint32_t>(x) * 374761393u +
                      static_cast<std::uint32_t>(y) * 668265263u + seed * 2246822519u;
    h = (h ^ (h >> 13)) * 1274126177u;
    h ^= h >> 16;
    return static_cast<float>(h & 0xFFFFFF) / 16777216.0f;
}

// Smooth value noise in [0, 1); with a period the pattern repeats every `period` units.
float ValueNoise(float x, float y, std::uint32_t seed, int period = 0)
{
    const int x0 = static_cast<int>(std::floor(x));
    const int y0 = static_cast<int>(std::floor(y));
    const float fx = x - static_cast<float>(x0);
    const float fy = y - static_cast<float>(y0);
    auto wrap = [period](int v) { return period > 0 ? ((v % period) + period) % period : v; };
    const float a = Lattice(wrap(x0), wrap(y0), seed);
    const float b = Lattice(wrap(x0 + 1), wrap(y0), seed);
    const float c = Lattice(wrap(x0), wrap(y0 + 1), seed);
    const float d = Lattice(wrap(x0 + 1), wrap(y0 + 1), seed);
    const float sx = fx * fx * (3 - 2 * fx);
    const float sy = fy * fy * (3 - 2 * fy);
    return (a + (b - a) * sx) + ((c + (d - c) * sx) - (a + (b - a) * sx)) * sy;
}

// Fractal noise: octaves of value noise, each twice as fine and half as strong.
float Fbm(float x, float y, std::uint32_t seed, int octaves, int period = 0)
{
    float sum = 0;
    float norm = 0;
    float amplitude = 0.5f;
    float frequency = 1;
    for (int octave = 0; octave < octaves; ++octave) {
        sum += amplitude * ValueNoise(x * frequency, y * frequency,
                                      seed + static_cast<std::uint32_t>(octave) * 1013u,
                                      period > 0 ? period * static_cast<int>(frequency) : 0);
        norm += amplitude;
        amplitude *= 0.5f;
        frequency *= 2;
    }
    return sum / norm;
}

// ---------------------------------------------------------------------------------------------
// Painting primitives

struct Stop {
    float at;
    Colour colour;
};

Colour Gradient(const std::vector<Stop>& stops, float t)
{
    if (t <= stops.front().at)
        return stops.front().colour;
    for (std::size_t i = 1; i < stops.size(); ++i)
        if (t <= stops[i].at) {
            const float span = stops[i].at - stops[i - 1].at;
            return Mix(stops[i - 1].colour, stops[i].colour, (t - stops[i - 1].at) / span);
        }
    return stops.back().colour;
}

std::vector<Stop> SkyStops(SkyTime time, bool golden)
{
    std::vector<Stop> stops;
    switch (time) {
    case SkyTime::Dawn:
        stops = {{0.0f, {0.10f, 0.14f, 0.36f}},
                 {0.5f, {0.45f, 0.42f, 0.62f}},
                 {0.8f, {0.92f, 0.62f, 0.55f}},
                 {1.0f, {1.00f, 0.78f, 0.50f}}};
        break;
    case SkyTime::Day:
        stops = {{0.0f, {0.10f, 0.28f, 0.68f}},
                 {0.6f, {0.35f, 0.58f, 0.88f}},
                 {1.0f, {0.75f, 0.86f, 0.96f}}};
        break;
    case SkyTime::Dusk:
        stops = {{0.0f, {0.06f, 0.06f, 0.22f}},
                 {0.45f, {0.35f, 0.20f, 0.42f}},
                 {0.8f, {0.90f, 0.40f, 0.25f}},
                 {1.0f, {1.00f, 0.62f, 0.28f}}};
        break;
    case SkyTime::Night:
        stops = {{0.0f, {0.01f, 0.01f, 0.04f}},
                 {0.7f, {0.03f, 0.04f, 0.10f}},
                 {1.0f, {0.07f, 0.09f, 0.18f}}};
        break;
    }
    if (golden)
        for (Stop& stop : stops)
            stop.colour =
                Mix(stop.colour, stop.colour * Colour{1.25f, 0.95f, 0.60f}, 0.35f + 0.5f * stop.at);
    return stops;
}

// The sky from the top of the canvas down to `horizon` (a row); rows below are left alone.
void PaintSky(Canvas& canvas, SkyTime time, bool golden, int horizon, float haze = 0)
{
    const std::vector<Stop> stops = SkyStops(time, golden);
    for (int y = 0; y < std::min(horizon, canvas.height()); ++y) {
        const float t = static_cast<float>(y) / static_cast<float>(std::max(1, horizon - 1));
        Colour colour = Gradient(stops, t);
        colour = Mix(colour, Colour{0.86f, 0.88f, 0.90f} * (colour.r + colour.g + colour.b),
                     haze * t * t * 0.5f);
        for (int x = 0; x < canvas.width(); ++x)
            canvas.at(x, y) = colour;
    }
}

void PaintStars(Canvas& canvas, std::uint32_t seed, int count, int bottom)
{
    Random random(seed);
    for (int i = 0; i < count; ++i) {
        const int x = static_cast<int>(random.uniform() * static_cast<float>(canvas.width()));
        const int y = static_cast<int>(random.uniform() * static_cast<float>(bottom));
        const float brightness = random.range(0.25f, 0.9f);
        canvas.add(x, y, Colour{0.9f, 0.92f, 1.0f} * brightness);
        if (brightness > 0.75f)
            for (auto [dx, dy] : {std::pair{1, 0}, {-1, 0}, {0, 1}, {0, -1}})
                canvas.add(x + dx, y + dy, Colour{0.9f, 0.92f, 1.0f} * (brightness * 0.25f));
    }
}

// Ground from row `top` down: fields in two colours under a haze that thickens to the horizon.
void PaintGround(Canvas& canvas, int top, Colour nearColour, Colour farColour, std::uint32_t seed,
                 float haze = 0.5f)
{
    const Colour hazeColour = top > 0 ? canvas.at(0, top - 1) : farColour;
    for (int y = std::max(0, top); y < canvas.height(); ++y) {
        const float depth = 1 - static_cast<float>(y - top) /
                                    static_cast<float>(std::max(1, canvas.height() - top));
        for (int x = 0; x < canvas.width(); ++x) {
            const float scale = 1.0f / (0.15f + depth); // fields shrink towards the horizon
            const float field = Fbm(static_cast<float>(x) * 0.05f / scale,
                                    static_cast<float>(y - top) * 0.25f / scale + 3, seed, 3);
            Colour colour = Mix(nearColour, farColour, SmoothStep(0.35f, 0.65f, field));
            colour = colour * (0.9f + 0.2f * Fbm(static_cast<float>(x) * 0.3f,
                                                 static_cast<float>(y) * 0.3f, seed + 5, 2));
            canvas.at(x, y) = Mix(colour, hazeColour, haze * depth * depth);
        }
    }
}

// A radial glow added to the canvas: a Gaussian of the given radius.
void AddGlow(Canvas& canvas, float cx, float cy, float radius, Colour colour)
{
    const int reach = static_cast<int>(radius * 3) + 1;
    for (int y = static_cast<int>(cy) - reach; y <= static_cast<int>(cy) + reach; ++y)
        for (int x = static_cast<int>(cx) - reach; x <= static_cast<int>(cx) + reach; ++x) {
            const float dx = (static_cast<float>(x) + 0.5f - cx) / radius;
            const float dy = (static_cast<float>(y) + 0.5f - cy) / radius;
            canvas.add(x, y, colour * std::exp(-(dx * dx + dy * dy)));
        }
}

void FillDisc(Canvas& canvas, float cx, float cy, float radius, Colour colour, float alpha = 1)
{
    canvas.paint([&](QPainter& painter) { painter.drawEllipse(QPointF(cx, cy), radius, radius); },
                 colour, alpha);
}

struct Point {
    float x;
    float y;
};

void FillPolygon(Canvas& canvas, const std::vector<Point>& polygon, Colour colour, float alpha = 1)
{
    QPolygonF shape;
    for (const Point& p : polygon)
        shape << QPointF(p.x, p.y);
    canvas.paint([&](QPainter& painter) { painter.drawPolygon(shape); }, colour, alpha);
}

// A thin line of light, spread over neighbouring pixels by its sub-pixel position.
void AddLine(Canvas& canvas, Point from, Point to, Colour colour, bool wrap)
{
    const float length = std::hypot(to.x - from.x, to.y - from.y);
    const int steps = std::max(1, static_cast<int>(length * 2));
    const Colour step = colour * (0.5f);
    for (int i = 0; i <= steps; ++i) {
        const float t = static_cast<float>(i) / static_cast<float>(steps);
        const float fade = std::sin(t * kPi) * 0.7f + 0.3f; // streaks thin out at both ends
        const float x = from.x + (to.x - from.x) * t;
        const float y = from.y + (to.y - from.y) * t;
        const int x0 = static_cast<int>(std::floor(x));
        const int y0 = static_cast<int>(std::floor(y));
        const float fx = x - static_cast<float>(x0);
        const float fy = y - static_cast<float>(y0);
        const std::array<std::pair<std::pair<int, int>, float>, 4> taps = {
            std::pair{std::pair{x0, y0}, (1 - fx) * (1 - fy)},
            std::pair{std::pair{x0 + 1, y0}, fx * (1 - fy)},
            std::pair{std::pair{x0, y0 + 1}, (1 - fx) * fy},
            std::pair{std::pair{x0 + 1, y0 + 1}, fx * fy}};
        for (const auto& [position, weight] : taps) {
            const Colour c = step * (weight * fade);
            if (wrap)
                canvas.addWrapped(position.first, position.second, c);
            else
                canvas.add(position.first, position.second, c);
        }
    }
}

// One cloud, heaped from soft blobs and broken up by noise, lit from above and flat at its base.
// `size` is its width in pixels; it stands on the row `base`.
void PaintPuff(Canvas& canvas, float cx, float base, float size, CloudKind kind, std::uint32_t seed,
               float darkness)
{
    struct Blob {
        float x, y, rx, ry;
    };
    std::vector<Blob> blobs;
    Random random(seed);
    if (kind == CloudKind::Thunder) {
        // A tower that widens as it rises, under a flat anvil sheared by the wind aloft.
        const int levels = 7;
        for (int level = 0; level < levels; ++level) {
            const float t = static_cast<float>(level) / (levels - 1);
            const float halfWidth = size * (0.13f + 0.05f * t) * random.range(0.85f, 1.15f);
            const int across = 4;
            for (int i = 0; i < across; ++i) {
                const float u = -1 + 2 * static_cast<float>(i) / (across - 1);
                const float r = size * (0.13f + 0.05f * t) * random.range(0.85f, 1.15f);
                blobs.push_back({cx + u * halfWidth + size * random.range(-0.03f, 0.03f),
                                 base - r * 0.8f - size * 0.72f * t, r, r});
            }
        }
        for (int i = 0; i < 7; ++i) {
            const float u = -1 + static_cast<float>(i) / 3;
            blobs.push_back({cx + size * (0.10f + 0.40f * u), base - size * (0.93f + 0.03f * u),
                             size * 0.14f, size * (0.07f - 0.02f * std::abs(u))});
        }
    } else {
        // Lobes heaped into a dome: big ones in the middle, small ones at the flanks.
        const bool fair = kind == CloudKind::FairWeather;
        const int count = fair ? 9 : 14;
        const float halfWidth = size * (fair ? 0.36f : 0.34f);
        const float dome = size * (fair ? 0.12f : 0.30f);
        for (int i = 0; i < count; ++i) {
            const float u = random.range(-1.0f, 1.0f);
            const float middle = 1 - u * u;
            const float r =
                size * random.range(0.09f, fair ? 0.13f : 0.17f) * (0.6f + 0.5f * middle);
            blobs.push_back({cx + u * halfWidth,
                             base - r * 0.8f - dome * middle * random.range(0.3f, 1.0f), r,
                             r * (fair ? 0.85f : 1.0f)});
        }
    }

    const float height = kind == CloudKind::Thunder ? size * 1.05f : size * 0.6f;
    const int left = static_cast<int>(cx - size * 0.75f);
    const int right = static_cast<int>(cx + size * 0.75f);
    const int top = static_cast<int>(base - height - size * 0.1f);
    const int bottom = static_cast<int>(base + 2);
    for (int y = top; y <= bottom; ++y)
        for (int x = left; x <= right; ++x) {
            const float px = static_cast<float>(x) + 0.5f;
            const float py = static_cast<float>(y) + 0.5f;
            float density = 0;
            float strongest = 0;
            float lobeTop = 0; // how near the top of its own lobe this point lies
            for (const Blob& blob : blobs) {
                const float dx = (px - blob.x) / blob.rx;
                const float dy = (py - blob.y) / blob.ry;
                const float d2 = dx * dx + dy * dy;
                if (d2 > 4.5f)
                    continue; // less than 1/8000: nothing to see
                const float contribution = std::exp(-2 * d2);
                density += contribution;
                if (contribution > strongest) {
                    strongest = contribution;
                    lobeTop = Clamp01(-dy);
                }
            }
            density *= SmoothStep(base + size * 0.02f, base - size * 0.05f, py);
            if (density < 0.06f)
                continue; // even the strongest noise leaves this clear
            const float n = Fbm(px / size * 6, py / size * 6, seed, 4);
            const float alpha = SmoothStep(0.3f, 0.6f, density + (n - 0.5f) * 0.7f);
            if (alpha <= 0)
                continue;
            const float fine = Fbm(px / size * 14, py / size * 14, seed + 3, 3);
            const float lift = Clamp01((base - py) / height);
            float shade = 0.58f + 0.25f * lift + 0.16f * lobeTop + 0.22f * (fine - 0.5f);
            shade *= 1 - darkness * (0.35f + 0.4f * (1 - lift));
            const Colour colour = kind == CloudKind::Thunder
                                      ? Colour{shade * 0.95f, shade * 0.97f, shade * 1.05f}
                                      : Colour{shade, shade, shade * 1.03f};
            canvas.blend(x, y, colour, alpha);
        }
}

// A layer of stratus between two rows, in long horizontal bands; repeats sideways.
void PaintStratus(Canvas& canvas, std::uint32_t seed, int top, int bottom, float coverage,
                  float shade)
{
    const float width = static_cast<float>(canvas.width());
    const float height = static_cast<float>(std::max(1, bottom - top));
    for (int y = std::max(0, top); y < std::min(bottom, canvas.height()); ++y)
        for (int x = 0; x < canvas.width(); ++x) {
            const float u = static_cast<float>(x) / width * 3;
            const float v = static_cast<float>(y - top) / height * 10;
            const float n = Fbm(u, v, seed, 5, 3);
            const float edge = SmoothStep(0.0f, 0.15f, static_cast<float>(y - top) / height) *
                               SmoothStep(1.0f, 0.85f, static_cast<float>(y - top) / height);
            const float alpha = SmoothStep(0.62f - coverage * 0.3f, 0.72f, n) * edge;
            const float s = shade * (0.85f + 0.3f * Fbm(u * 4, v * 0.5f, seed + 9, 3, 12));
            canvas.blend(x, y, Colour{s, s, s * 1.02f}, alpha);
        }
}

// Cirrus: thin streaks drawn out by the wind, warped so that they curl a little.
void PaintCirrus(Canvas& canvas, std::uint32_t seed, int top, int bottom, float strength)
{
    const float width = static_cast<float>(canvas.width());
    const float height = static_cast<float>(std::max(1, bottom - top));
    for (int y = std::max(0, top); y < std::min(bottom, canvas.height()); ++y)
        for (int x = 0; x < canvas.width(); ++x) {
            const float u = static_cast<float>(x) / width;
            const float v = static_cast<float>(y - top) / height;
            const float warp = Fbm(u * 2, v * 2, seed + 7, 3, 2);
            const float n = Fbm(u * 2 + warp * 0.8f, v * 12 + warp * 3, seed, 5);
            const float streak = std::pow(SmoothStep(0.5f, 0.78f, n), 1.5f);
            const float patches = SmoothStep(0.3f, 0.6f, Fbm(u * 2, v * 2, seed + 3, 3, 2));
            canvas.blend(x, y, Colour{0.96f, 0.97f, 1.0f}, streak * patches * strength);
        }
}

void PaintMoon(Canvas& canvas, float cx, float cy, float radius, float shadow, std::uint32_t seed)
{
    Random random(seed);
    struct Crater {
        float x, y, r;
    };
    std::vector<Crater> craters;
    for (int i = 0; i < 14; ++i) {
        const float angle = random.range(0, 2 * kPi);
        const float distance = std::sqrt(random.uniform()) * 0.85f;
        craters.push_back(
            {std::cos(angle) * distance, std::sin(angle) * distance, random.range(0.04f, 0.13f)});
    }
    const float shadowCentre = -(2 - 2 * shadow); // the shadow disc slides over from the left
    for (int y = static_cast<int>(cy - radius) - 1; y <= static_cast<int>(cy + radius) + 1; ++y)
        for (int x = static_cast<int>(cx - radius) - 1; x <= static_cast<int>(cx + radius) + 1;
             ++x) {
            const float nx = (static_cast<float>(x) + 0.5f - cx) / radius;
            const float ny = (static_cast<float>(y) + 0.5f - cy) / radius;
            const float d2 = nx * nx + ny * ny;
            const float coverage = Clamp01((1 - std::sqrt(d2)) * radius + 0.5f);
            if (coverage <= 0)
                continue;
            const float z = std::sqrt(std::max(0.0f, 1 - d2));
            float shade = 0.80f * (0.55f + 0.45f * z);
            shade *=
                1 - 0.3f * SmoothStep(0.45f, 0.6f, Fbm(nx * 2.2f + 5, ny * 2.2f + 5, seed + 11, 4));
            shade *= 0.92f + 0.16f * Fbm(nx * 12 + 9, ny * 12 + 9, seed + 13, 3);
            for (const Crater& crater : craters) {
                const float dc = std::hypot(nx - crater.x, ny - crater.y) / crater.r;
                if (dc < 1)
                    shade *= 0.86f + 0.1f * dc;
                else if (dc < 1.25f)
                    shade *= 1.06f;
            }
            const float lit =
                shadow <= 0 ? 1 : SmoothStep(-0.04f, 0.04f, std::hypot(nx - shadowCentre, ny) - 1);
            shade = shade * lit + 0.05f * (1 - lit); // earthshine on the dark side
            canvas.blend(x, y, Colour{shade, shade * 0.98f, shade * 0.93f}, coverage);
        }
}

void PaintDrops(Canvas& canvas, std::uint32_t seed, int count, float scale)
{
    Random random(seed);
    for (int i = 0; i < count; ++i) {
        const float cx = random.uniform() * static_cast<float>(canvas.width());
        const float cy = random.uniform() * static_cast<float>(canvas.height());
        const float r = random.range(1.5f, 6.0f) * scale;
        const float stretch = random.uniform() < 0.25f ? random.range(1.5f, 2.5f) : 1.0f;
        for (int y = static_cast<int>(cy - r * stretch) - 1; y <= static_cast<int>(cy + r) + 1; ++y)
            for (int x = static_cast<int>(cx - r) - 1; x <= static_cast<int>(cx + r) + 1; ++x) {
                const float dx = (static_cast<float>(x) + 0.5f - cx) / r;
                float dy = (static_cast<float>(y) + 0.5f - cy) / r;
                if (dy < 0)
                    dy /= stretch; // a drop that ran leaves a tail above it
                const float d = std::hypot(dx, dy);
                if (d > 1.05f)
                    continue;
                const float edge = Clamp01((1 - d) * r + 0.5f);
                const float rim = SmoothStep(0.6f, 0.95f, d);
                const float highlight =
                    std::exp(-((dx + 0.35f) * (dx + 0.35f) + (dy + 0.4f) * (dy + 0.4f)) * 18);
                const Colour body = Colour{0.42f, 0.50f, 0.58f} * (0.6f + 0.4f * (1 - rim));
                canvas.blend(x, y, body + Colour{1, 1, 1} * highlight, edge * (0.55f + 0.4f * rim));
            }
    }
}

void PaintRain(Canvas& canvas, std::uint32_t seed, int streaks, float brightness, bool wrap,
               int top = 0)
{
    Random random(seed);
    const float angle = 0.2f;
    for (int i = 0; i < streaks; ++i) {
        const float x = random.uniform() * static_cast<float>(canvas.width());
        const float y =
            static_cast<float>(top) + random.uniform() * static_cast<float>(canvas.height() - top);
        const float length = random.range(10, 28);
        const float b = random.range(0.35f, 1.0f) * brightness;
        AddLine(canvas, {x, y}, {x - std::sin(angle) * length, y + std::cos(angle) * length},
                Colour{0.80f, 0.84f, 0.90f} * b, wrap);
    }
}

void PaintSnow(Canvas& canvas, std::uint32_t seed, int flakes, bool wrap)
{
    Random random(seed);
    for (int i = 0; i < flakes; ++i) {
        const float x = random.uniform() * static_cast<float>(canvas.width());
        const float y = random.uniform() * static_cast<float>(canvas.height());
        const float brightness = random.range(0.6f, 1.0f);
        if (i % 20 == 0) { // now and then a flake big enough to show its six arms
            const float r = random.range(3.5f, 5.5f);
            for (int arm = 0; arm < 3; ++arm) {
                const float a = static_cast<float>(arm) * kPi / 3 + 0.3f;
                AddLine(canvas, {x - std::cos(a) * r, y - std::sin(a) * r},
                        {x + std::cos(a) * r, y + std::sin(a) * r},
                        Colour{0.95f, 0.97f, 1.0f} * (brightness * 1.4f), wrap);
            }
            continue;
        }
        const float r = random.range(0.6f, 1.8f);
        const int reach = static_cast<int>(r * 2) + 1;
        for (int dy = -reach; dy <= reach; ++dy)
            for (int dx = -reach; dx <= reach; ++dx) {
                const float d = std::hypot(static_cast<float>(dx), static_cast<float>(dy)) / r;
                const Colour c = Colour{0.95f, 0.97f, 1.0f} * (brightness * std::exp(-d * d));
                const int px = static_cast<int>(x) + dx;
                const int py = static_cast<int>(y) + dy;
                if (wrap)
                    canvas.addWrapped(px, py, c);
                else
                    canvas.add(px, py, c);
            }
    }
}

// A tree: a trunk under a crown of leaf blobs in autumn colours.
void PaintTree(Canvas& canvas, float cx, float base, float size, std::uint32_t seed, int variant)
{
    Random random(seed);
    const std::array<Colour, 4> leaves = {Colour{0.86f, 0.46f, 0.12f}, Colour{0.72f, 0.17f, 0.10f},
                                          Colour{0.90f, 0.74f, 0.20f}, Colour{0.46f, 0.42f, 0.15f}};
    const Colour leaf = leaves[static_cast<std::size_t>(variant) % leaves.size()];
    const float trunkWidth = size * 0.07f;
    FillPolygon(canvas,
                {{cx - trunkWidth, base},
                 {cx + trunkWidth, base},
                 {cx + trunkWidth * 0.6f, base - size * 0.45f},
                 {cx - trunkWidth * 0.6f, base - size * 0.45f}},
                Colour{0.30f, 0.19f, 0.10f});
    const float crownY = base - size * 0.58f;
    const float crownR = size * 0.36f;
    for (int y = static_cast<int>(crownY - crownR * 1.3f);
         y <= static_cast<int>(crownY + crownR * 1.2f); ++y)
        for (int x = static_cast<int>(cx - crownR * 1.3f);
             x <= static_cast<int>(cx + crownR * 1.3f); ++x) {
            const float dx = (static_cast<float>(x) + 0.5f - cx) / crownR;
            const float dy = (static_cast<float>(y) + 0.5f - crownY) / (crownR * 1.1f);
            const float n =
                Fbm(static_cast<float>(x) * 0.18f, static_cast<float>(y) * 0.18f, seed, 4);
            const float body = 1 - std::hypot(dx, dy) + (n - 0.5f) * 0.7f;
            const float alpha = SmoothStep(0.0f, 0.12f, body);
            if (alpha <= 0)
                continue;
            const float light = Clamp01(0.75f - 0.35f * dx - 0.35f * dy + (n - 0.5f) * 0.6f);
            canvas.blend(x, y, leaf * (0.55f + 0.6f * light), alpha);
        }
}

// A small aircraft in profile, flying right; `length` in pixels.
void PaintAircraft(Canvas& canvas, float x, float y, float length, Colour colour)
{
    auto shape = [&](std::initializer_list<Point> points) {
        std::vector<Point> polygon;
        for (const Point& p : points)
            polygon.push_back({x + p.x * length, y + p.y * length});
        FillPolygon(canvas, polygon, colour, 0.95f);
    };
    shape({{0.00f, -0.02f},
           {0.08f, -0.055f},
           {0.85f, -0.055f},
           {0.95f, -0.04f},
           {1.0f, -0.01f},
           {0.97f, 0.02f},
           {0.85f, 0.035f},
           {0.12f, 0.035f},
           {0.02f, 0.01f}});
    shape({{0.02f, -0.02f}, {0.0f, -0.22f}, {0.07f, -0.22f}, {0.18f, -0.05f}});
    shape({{0.38f, 0.01f}, {0.58f, 0.01f}, {0.44f, 0.16f}, {0.36f, 0.16f}});
    shape({{0.03f, 0.0f}, {0.14f, 0.0f}, {0.06f, 0.06f}, {0.01f, 0.06f}});
    shape({{0.40f, 0.05f}, {0.50f, 0.05f}, {0.51f, 0.085f}, {0.40f, 0.09f}});
}

// Lights along the two edges of a runway that runs from the bottom of the picture to the
// horizon, each with its halo.
void PaintRunwayLights(Canvas& canvas, int horizon, float strength)
{
    const float centre = static_cast<float>(canvas.width()) * 0.5f;
    const float bottom = static_cast<float>(canvas.height());
    for (int row = 0; row < 14; ++row) {
        const float distance = 1.0f + static_cast<float>(row) * 0.9f;
        const float y =
            static_cast<float>(horizon) + (bottom - static_cast<float>(horizon)) / distance;
        const float spread = static_cast<float>(canvas.width()) * 0.42f / distance;
        const float radius = std::max(0.8f, 4.0f / distance);
        for (float side : {-1.0f, 1.0f}) {
            AddGlow(canvas, centre + side * spread, y, radius * 2.5f,
                    Colour{1.0f, 0.85f, 0.55f} * (0.35f * strength));
            AddGlow(canvas, centre + side * spread, y, radius * 0.6f,
                    Colour{1.0f, 0.95f, 0.85f} * (1.2f * strength));
        }
    }
}

// ---------------------------------------------------------------------------------------------
// Captions

// Fonts need a QGuiApplication; the command-line tool and the tests run without one, so the
// first caption starts one on the offscreen platform, which draws into pictures only and needs
// no display. It lives until the process ends.
bool FontsAvailable()
{
    if (qobject_cast<QGuiApplication*>(QCoreApplication::instance()))
        return true;
    if (QCoreApplication::instance())
        return false; // a console application of someone else's: no captions then
    static int argc = 3;
    static char name[] = "vellumar-demo", option[] = "-platform", platform[] = "offscreen";
    static char* argv[] = {name, option, platform, nullptr};
    // Qt's start-up notes (fonts, runtime folders) are no business of the demo's user.
    const QtMessageHandler previous =
        qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
    static QGuiApplication* application = new QGuiApplication(argc, argv);
    qInstallMessageHandler(previous);
    return application != nullptr;
}

// Centred text with a soft shadow, so that it reads on a bright sky as well as on a dark one.
void DrawCaption(Canvas& canvas, const QString& text, int top, int pixelSize, Colour colour)
{
    if (!FontsAvailable())
        return;
    QFont font(QStringLiteral("DejaVu Sans"));
    font.setStyleHint(QFont::SansSerif);
    font.setPixelSize(pixelSize);
    font.setBold(true);
    const QRectF line(0, top, canvas.width(), pixelSize * 1.4);
    auto draw = [&](QPointF offset) {
        return [&, offset](QPainter& painter) {
            QPainterPath path;
            const QFontMetricsF metrics(font);
            path.addText(line.left() + (line.width() - metrics.horizontalAdvance(text)) / 2 +
                             offset.x(),
                         line.top() + metrics.ascent() + offset.y(), font, text);
            painter.drawPath(path);
        };
    };
    const qreal shadow = std::max(1.0, pixelSize / 12.0);
    canvas.paint(draw({shadow, shadow}), Colour{0.02f, 0.03f, 0.06f}, 0.6f);
    canvas.paint(draw({0, 0}), colour);
}

// ---------------------------------------------------------------------------------------------
// Textures

constexpr int kTextureSize = 128;
constexpr int kSmallTextureSize = 64;

float DistanceFromCentre(int x, int y, int size)
{
    const float half = static_cast<float>(size) / 2;
    return std::hypot(static_cast<float>(x) + 0.5f - half, static_cast<float>(y) + 0.5f - half) /
           half;
}

// Clears what lies near the edge, so that a sprite never shows a hard border when drawn.
void FadeEdges(Canvas& canvas)
{
    for (int y = 0; y < canvas.height(); ++y)
        for (int x = 0; x < canvas.width(); ++x)
            canvas.at(x, y) =
                canvas.at(x, y) * SmoothStep(1.0f, 0.9f, DistanceFromCentre(x, y, canvas.width()));
}

Canvas SkyCanvas(SkyTime time, bool golden, int width, int height)
{
    Canvas canvas(width, height);
    PaintSky(canvas, time, golden, height);
    // A faint grain, as a sky photographed or painted by hand has.
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x)
            canvas.at(x, y) = canvas.at(x, y) *
                              (0.985f + 0.03f * ValueNoise(static_cast<float>(x) * 0.5f,
                                                           static_cast<float>(y) * 0.5f, 77, 32));
    if (time == SkyTime::Night)
        PaintStars(canvas, golden ? 402 : 401, width * height / 90, height * 3 / 4);
    return canvas;
}

} // namespace

QImage SkyTexture(SkyTime time, bool golden)
{
    return SkyCanvas(time, golden, 64, kTextureSize).image();
}

QImage EarthTexture(bool night)
{
    Canvas canvas(64, kTextureSize);
    const std::vector<Stop> stops =
        night ? std::vector<Stop>{{0.0f, {0.10f, 0.11f, 0.18f}}, {1.0f, {0.02f, 0.02f, 0.03f}}}
              : std::vector<Stop>{{0.0f, {0.72f, 0.77f, 0.82f}},
                                  {0.4f, {0.55f, 0.60f, 0.58f}},
                                  {1.0f, {0.30f, 0.36f, 0.24f}}};
    for (int y = 0; y < canvas.height(); ++y) {
        const float t = static_cast<float>(y) / static_cast<float>(canvas.height() - 1);
        for (int x = 0; x < canvas.width(); ++x) {
            const float field =
                Fbm(static_cast<float>(x) / 16, static_cast<float>(y) / 10, 31, 4, 4);
            canvas.at(x, y) = Gradient(stops, t) * (1 + (field - 0.5f) * 0.35f * t);
        }
    }
    if (night) {
        Random random(33);
        for (int i = 0; i < 70; ++i) {
            const float y = random.range(0.45f, 1.0f) * static_cast<float>(canvas.height());
            AddGlow(canvas, random.uniform() * 64, y, random.range(0.5f, 1.2f),
                    Colour{1.0f, 0.75f, 0.35f} * random.range(0.3f, 0.9f));
        }
    }
    return canvas.image();
}

QImage CloudTexture(CloudKind kind, std::uint32_t seed, float darkness)
{
    Canvas canvas(kTextureSize, kTextureSize);
    switch (kind) {
    case CloudKind::Stratus:
        PaintStratus(canvas, seed, -8, kTextureSize + 8, 0.8f, 0.78f - darkness * 0.3f);
        break;
    case CloudKind::Cirrus:
        PaintCirrus(canvas, seed, 0, kTextureSize, 0.95f);
        break;
    default: {
        // Four clouds to a sheet, one in each quarter, as the simulator picks them.
        const float cell = kTextureSize / 2.0f;
        const float base = kind == CloudKind::Thunder ? 0.95f : 0.86f;
        for (int i = 0; i < 4; ++i) {
            const float cx = cell * static_cast<float>(i % 2) + cell / 2;
            const float cy = cell * static_cast<float>(i / 2) + cell * base;
            PaintPuff(canvas, cx, cy, cell * (kind == CloudKind::Thunder ? 0.8f : 0.92f), kind,
                      seed + static_cast<std::uint32_t>(i) * 97u, darkness);
        }
        break;
    }
    }
    return canvas.image();
}

QImage SunTexture()
{
    Canvas canvas(kTextureSize, kTextureSize);
    for (int y = 0; y < kTextureSize; ++y)
        for (int x = 0; x < kTextureSize; ++x) {
            const float d = DistanceFromCentre(x, y, kTextureSize);
            const float angle = std::atan2(static_cast<float>(y) - 64, static_cast<float>(x) - 64);
            const float core = SmoothStep(0.13f, 0.09f, d);
            const float glow = std::exp(-d * 7) * 0.9f;
            const float wide = std::exp(-d * 2.5f) * 0.25f;
            const float rays =
                std::pow(0.5f +
                             0.5f * std::cos(angle * 10 + 3 * ValueNoise(angle * 3 + 10, 0.5f, 5)),
                         6.0f) *
                std::exp(-d * 4) * 0.35f;
            canvas.at(x, y) = Colour{1.0f, 1.0f, 0.95f} * core +
                              Colour{1.0f, 0.86f, 0.55f} * (glow + rays) +
                              Colour{1.0f, 0.70f, 0.40f} * wide;
        }
    FadeEdges(canvas);
    return canvas.image();
}

QImage CoronaTexture()
{
    Canvas canvas(kTextureSize, kTextureSize);
    for (int y = 0; y < kTextureSize; ++y)
        for (int x = 0; x < kTextureSize; ++x) {
            const float d = DistanceFromCentre(x, y, kTextureSize);
            const float ring = std::exp(-std::pow((d - 0.55f) / 0.1f, 2.0f)) * 0.7f;
            const Colour tint = Mix(Colour{0.75f, 0.85f, 1.0f}, Colour{1.0f, 0.65f, 0.35f},
                                    Clamp01((d - 0.45f) / 0.2f));
            canvas.at(x, y) = tint * ring + Colour{1.0f, 0.95f, 0.85f} * (std::exp(-d * 5) * 0.3f);
        }
    FadeEdges(canvas);
    return canvas.image();
}

QImage FlareTexture(int number)
{
    Canvas canvas(kSmallTextureSize, kSmallTextureSize);
    for (int y = 0; y < kSmallTextureSize; ++y)
        for (int x = 0; x < kSmallTextureSize; ++x) {
            const float half = kSmallTextureSize / 2.0f;
            const float u = (static_cast<float>(x) + 0.5f - half) / half;
            const float v = (static_cast<float>(y) + 0.5f - half) / half;
            const float d = std::hypot(u, v);
            Colour c;
            switch (number) {
            case 1:
                c = Colour{0.55f, 0.85f, 0.45f} *
                    (SmoothStep(0.7f, 0.5f, d) * 0.55f + std::exp(-d * 3) * 0.15f);
                break;
            case 2:
                c = Colour{1.0f, 0.6f, 0.25f} *
                    (std::exp(-std::pow((d - 0.62f) / 0.07f, 2.0f)) * 0.7f + 0.08f * (d < 0.62f));
                break;
            case 3: {
                const float hex = std::max(std::abs(u) * 0.866f + std::abs(v) * 0.5f, std::abs(v));
                c = Colour{0.55f, 0.45f, 1.0f} *
                    (SmoothStep(0.72f, 0.66f, hex) * (0.3f + 0.3f * SmoothStep(0.4f, 0.68f, hex)));
                break;
            }
            default: {
                const float au = std::abs(u);
                const float av = std::abs(v);
                const float diagonal1 = std::abs(u - v) * 0.7071f;
                const float diagonal2 = std::abs(u + v) * 0.7071f;
                const float streaks = std::exp(-av * 25) * std::exp(-au * 2.5f) +
                                      std::exp(-au * 25) * std::exp(-av * 2.5f) +
                                      0.5f * std::exp(-diagonal1 * 30) * std::exp(-d * 3) +
                                      0.5f * std::exp(-diagonal2 * 30) * std::exp(-d * 3);
                c = Colour{1.0f, 0.97f, 0.9f} * (streaks + std::exp(-d * 8));
                break;
            }
            }
            canvas.at(x, y) = c;
        }
    FadeEdges(canvas);
    return canvas.image();
}

QImage MoonTexture(float shadow)
{
    Canvas canvas(kTextureSize, kTextureSize);
    PaintMoon(canvas, 64, 64, 52, shadow, 1969);
    return canvas.image();
}

QImage RainTexture(std::uint32_t seed, int streaks)
{
    Canvas canvas(kTextureSize, kTextureSize);
    PaintRain(canvas, seed, streaks, 0.8f, true);
    return canvas.image();
}

QImage CockpitRainTexture(std::uint32_t seed)
{
    Canvas canvas(kTextureSize, kTextureSize);
    PaintDrops(canvas, seed, 45, 1.0f);
    return canvas.image();
}

QImage SnowTexture(std::uint32_t seed, int flakes)
{
    Canvas canvas(kTextureSize, kTextureSize);
    PaintSnow(canvas, seed, flakes, true);
    return canvas.image();
}

QImage TreesTexture(std::uint32_t seed)
{
    Canvas canvas(kTextureSize, kTextureSize);
    const float cell = kTextureSize / 2.0f;
    for (int i = 0; i < 4; ++i)
        PaintTree(canvas, cell * static_cast<float>(i % 2) + cell / 2,
                  cell * static_cast<float>(i / 2) + cell * 0.97f, cell * 0.95f,
                  seed + static_cast<std::uint32_t>(i) * 31u, i);
    return canvas.image();
}

QImage BuildingTexture(std::uint32_t seed)
{
    Canvas canvas(kTextureSize, kTextureSize);
    Random random(seed);
    const Colour wall{0.78f, 0.70f, 0.58f};
    for (int y = 0; y < kTextureSize; ++y)
        for (int x = 0; x < kTextureSize; ++x) {
            const float grain =
                Fbm(static_cast<float>(x) * 0.15f, static_cast<float>(y) * 0.15f, seed, 3);
            canvas.at(x, y) = wall * (0.85f + 0.25f * grain);
            if (y < 10)
                canvas.at(x, y) = Colour{0.28f, 0.22f, 0.20f} * (0.9f + 0.2f * grain); // roof edge
        }
    for (int row = 0; row < 5; ++row)
        for (int column = 0; column < 4; ++column) {
            const int left = 8 + column * 30;
            const int top = 18 + row * 21;
            const bool lit = random.uniform() < 0.3f;
            const bool door = row == 4 && column == 1;
            const int bottom = door ? kTextureSize : top + 14;
            for (int y = top; y < bottom; ++y)
                for (int x = left; x < left + 20; ++x) {
                    const float t = static_cast<float>(y - top) / 14;
                    Colour glass =
                        lit ? Colour{0.95f, 0.82f, 0.48f} * (0.85f + 0.15f * t)
                            : Mix(Colour{0.35f, 0.45f, 0.58f}, Colour{0.10f, 0.14f, 0.22f}, t);
                    if (door)
                        glass = Colour{0.30f, 0.20f, 0.14f};
                    const bool frame = x == left || x == left + 19 || y == top ||
                                       (!door && y == top + 13) || (!door && x == left + 10);
                    canvas.at(x, y) = frame ? Colour{0.92f, 0.90f, 0.86f} : glass;
                }
        }
    return canvas.image();
}

QImage HaloTexture(float strength)
{
    Canvas canvas(kSmallTextureSize, kSmallTextureSize);
    for (int y = 0; y < kSmallTextureSize; ++y)
        for (int x = 0; x < kSmallTextureSize; ++x) {
            const float d = DistanceFromCentre(x, y, kSmallTextureSize);
            canvas.at(x, y) =
                Colour{1.0f, 0.92f, 0.75f} *
                (strength * (std::exp(-std::pow(d / 0.35f, 2.0f)) + 0.3f * std::exp(-d * 4)));
        }
    FadeEdges(canvas);
    return canvas.image();
}

QImage GlowTexture()
{
    Canvas canvas(kSmallTextureSize, kSmallTextureSize);
    for (int y = 0; y < kSmallTextureSize; ++y)
        for (int x = 0; x < kSmallTextureSize; ++x) {
            const float d = DistanceFromCentre(x, y, kSmallTextureSize);
            canvas.at(x, y) = Colour{0.75f, 0.85f, 1.0f} * std::exp(-std::pow(d / 0.5f, 2.0f)) +
                              Colour{1.0f, 1.0f, 1.0f} * (std::exp(-d * 9) * 0.6f);
        }
    FadeEdges(canvas);
    return canvas.image();
}

QImage ScenePicture(Scene scene, int width, int height, std::uint32_t seed)
{
    Canvas canvas(width, height);
    const float w = static_cast<float>(width);
    const float h = static_cast<float>(height);
    const int horizon = static_cast<int>(h * 0.72f);
    const Colour green{0.32f, 0.42f, 0.22f};
    const Colour olive{0.45f, 0.45f, 0.28f};
    auto puffs = [&](CloudKind kind, int count, float darkness, float top, float bottom,
                     float size) {
        Random random(seed + 17);
        for (int i = 0; i < count; ++i) {
            const float t =
                (static_cast<float>(i) + random.range(0.1f, 0.9f)) / static_cast<float>(count);
            const float depth = random.uniform();
            const float base = top + (bottom - top) * depth;
            PaintPuff(canvas, w * t, base, size * (0.6f + 0.6f * depth), kind,
                      seed + static_cast<std::uint32_t>(i) * 131u, darkness);
        }
    };

    switch (scene) {
    case Scene::SummerHaze:
        PaintSky(canvas, SkyTime::Day, false, horizon, 0.8f);
        PaintGround(canvas, horizon, green, olive, seed, 0.8f);
        puffs(CloudKind::Cumulus, 4, 0, h * 0.35f, h * 0.68f, w * 0.33f);
        break;
    case Scene::FairWeather:
        PaintSky(canvas, SkyTime::Day, false, horizon, 0.3f);
        PaintGround(canvas, horizon, green, olive, seed, 0.5f);
        puffs(CloudKind::FairWeather, 7, 0, h * 0.25f, h * 0.66f, w * 0.2f);
        break;
    case Scene::Thunderstorm:
    case Scene::StormApproach: {
        PaintSky(canvas, SkyTime::Day, false, horizon, 0.2f);
        for (int y = 0; y < horizon; ++y)
            for (int x = 0; x < width; ++x)
                canvas.at(x, y) = canvas.at(x, y) * Colour{0.45f, 0.47f, 0.52f};
        PaintGround(canvas, horizon, Colour{0.18f, 0.24f, 0.14f}, Colour{0.24f, 0.26f, 0.18f}, seed,
                    0.6f);
        PaintPuff(canvas, w * 0.5f, h * 0.68f, h * 0.62f, CloudKind::Thunder, seed, 0.65f);
        Canvas rain(width, height);
        PaintRain(rain, seed + 1, width, 0.35f, false, static_cast<int>(h * 0.62f));
        for (int y = 0; y < height; ++y)
            for (int x = 0; x < width; ++x)
                if (std::abs(static_cast<float>(x) - w * 0.5f) < w * 0.28f)
                    canvas.at(x, y) = canvas.at(x, y) + rain.at(x, y);
        if (scene == Scene::StormApproach) {
            Random random(seed + 2);
            Point from{w * 0.55f, h * 0.62f};
            while (from.y < static_cast<float>(horizon) + 2) {
                const Point to{from.x + random.range(-5, 5), from.y + random.range(3, 7)};
                AddLine(canvas, from, to, Colour{2.5f, 2.5f, 3.0f}, false);
                from = to;
            }
            AddGlow(canvas, w * 0.55f, h * 0.62f, w * 0.15f, Colour{0.25f, 0.25f, 0.35f});
        }
        break;
    }
    case Scene::Overcast:
        PaintSky(canvas, SkyTime::Day, false, horizon, 1.0f);
        PaintStratus(canvas, seed, 0, horizon - 4, 1.0f, 0.72f);
        PaintGround(canvas, horizon, Colour{0.30f, 0.36f, 0.26f}, Colour{0.38f, 0.38f, 0.32f}, seed,
                    0.7f);
        break;
    case Scene::HighCirrus:
        PaintSky(canvas, SkyTime::Day, false, horizon, 0.1f);
        PaintCirrus(canvas, seed, 0, static_cast<int>(h * 0.6f), 1.0f);
        PaintGround(canvas, horizon, green, olive, seed, 0.5f);
        break;
    case Scene::ClearDay:
        PaintSky(canvas, SkyTime::Day, false, horizon, 0.2f);
        AddGlow(canvas, w * 0.78f, h * 0.18f, w * 0.06f, Colour{1.0f, 0.95f, 0.8f} * 1.6f);
        PaintGround(canvas, horizon, green, olive, seed, 0.5f);
        break;
    case Scene::GoldenDusk:
    case Scene::SummerEvening: {
        PaintSky(canvas, SkyTime::Dusk, true, horizon, 0.2f);
        AddGlow(canvas, w * 0.35f, static_cast<float>(horizon) - 2, w * 0.22f,
                Colour{1.0f, 0.55f, 0.2f} * 0.8f);
        FillDisc(canvas, w * 0.35f, static_cast<float>(horizon) - 2, w * 0.035f,
                 Colour{1.0f, 0.92f, 0.7f});
        if (scene == Scene::SummerEvening) {
            puffs(CloudKind::Cumulus, 3, 0.1f, h * 0.3f, h * 0.55f, w * 0.3f);
            for (int y = 0; y < horizon; ++y) // evening light on the clouds
                for (int x = 0; x < width; ++x)
                    canvas.at(x, y) =
                        Mix(canvas.at(x, y), canvas.at(x, y) * Colour{1.1f, 0.8f, 0.6f}, 0.5f);
            for (int y = horizon; y < height; ++y) { // the sea mirrors the sky
                const float t =
                    static_cast<float>(y - horizon) / static_cast<float>(height - horizon);
                for (int x = 0; x < width; ++x) {
                    const Colour sky = canvas.at(x, std::max(0, 2 * horizon - y - 1));
                    const float ripple =
                        0.8f + 0.2f * ValueNoise(static_cast<float>(x) * 0.08f,
                                                 static_cast<float>(y) * 0.9f, seed);
                    canvas.at(x, y) = Mix(sky * 0.7f, Colour{0.08f, 0.12f, 0.2f}, t) * ripple;
                }
            }
        } else {
            PaintGround(canvas, horizon, Colour{0.10f, 0.08f, 0.08f}, Colour{0.18f, 0.12f, 0.10f},
                        seed, 0.3f);
        }
        break;
    }
    case Scene::HazyHorizon:
        PaintSky(canvas, SkyTime::Day, false, horizon, 1.0f);
        PaintGround(canvas, horizon, Colour{0.36f, 0.40f, 0.26f}, Colour{0.52f, 0.50f, 0.38f}, seed,
                    1.0f);
        break;
    case Scene::LensFlare:
    case Scene::WarmSun: {
        const bool warm = scene == Scene::WarmSun;
        PaintSky(canvas, SkyTime::Day, warm, horizon, 0.3f);
        PaintGround(canvas, horizon, green, olive, seed, 0.5f);
        const Point sun{w * 0.25f, h * 0.2f};
        AddGlow(canvas, sun.x, sun.y, w * 0.12f, Colour{1.0f, 0.85f, 0.55f} * 0.7f);
        AddGlow(canvas, sun.x, sun.y, w * 0.03f, Colour{1.0f, 1.0f, 0.95f} * 3.0f);
        if (warm) {
            for (int y = 0; y < height; ++y)
                for (int x = 0; x < width; ++x) {
                    const float d =
                        std::hypot(static_cast<float>(x) - sun.x, static_cast<float>(y) - sun.y) /
                        (w * 0.16f);
                    canvas.add(x, y,
                               Colour{0.9f, 0.7f, 0.45f} *
                                   (std::exp(-std::pow((d - 1) / 0.12f, 2.0f)) * 0.35f));
                }
        } else {
            const std::array<std::pair<float, Colour>, 4> ghosts = {
                std::pair{0.45f, Colour{0.3f, 0.5f, 0.25f}},
                std::pair{0.7f, Colour{0.55f, 0.32f, 0.12f}},
                std::pair{0.95f, Colour{0.30f, 0.25f, 0.55f}},
                std::pair{1.3f, Colour{0.25f, 0.45f, 0.5f}}};
            for (const auto& [t, colour] : ghosts)
                FillDisc(canvas, sun.x + (w * 0.5f - sun.x) * 2 * t,
                         sun.y + (h * 0.5f - sun.y) * 2 * t, w * 0.025f * (1 + t),
                         canvas.at(0, 0) + colour, 0.55f);
        }
        break;
    }
    case Scene::FullMoon:
    case Scene::CrescentMoon: {
        PaintSky(canvas, SkyTime::Night, false, horizon);
        PaintStars(canvas, seed, width * height / 60, horizon);
        AddGlow(canvas, w * 0.65f, h * 0.3f, w * 0.12f,
                Colour{0.25f, 0.28f, 0.35f} * (scene == Scene::FullMoon ? 0.6f : 0.25f));
        PaintMoon(canvas, w * 0.65f, h * 0.3f, h * 0.14f, scene == Scene::FullMoon ? 0 : 0.7f,
                  seed);
        PaintGround(canvas, horizon, Colour{0.03f, 0.04f, 0.05f}, Colour{0.06f, 0.07f, 0.09f}, seed,
                    0.3f);
        break;
    }
    case Scene::HeavyRain:
    case Scene::LightRain: {
        const bool heavy = scene == Scene::HeavyRain;
        PaintSky(canvas, SkyTime::Day, false, horizon, 1.0f);
        for (int y = 0; y < horizon; ++y)
            for (int x = 0; x < width; ++x)
                canvas.at(x, y) = canvas.at(x, y) * (heavy ? 0.55f : 0.75f);
        PaintStratus(canvas, seed, 0, horizon / 2, 1.0f, heavy ? 0.4f : 0.6f);
        PaintGround(canvas, horizon, Colour{0.20f, 0.26f, 0.18f}, Colour{0.30f, 0.32f, 0.28f}, seed,
                    0.8f);
        PaintRain(canvas, seed, heavy ? width * 2 : width / 2, heavy ? 0.45f : 0.35f, false);
        break;
    }
    case Scene::CockpitRain: {
        PaintSky(canvas, SkyTime::Day, false, horizon, 1.0f);
        for (int y = 0; y < horizon; ++y)
            for (int x = 0; x < width; ++x)
                canvas.at(x, y) = canvas.at(x, y) * 0.7f;
        PaintGround(canvas, horizon, Colour{0.20f, 0.26f, 0.18f}, Colour{0.30f, 0.32f, 0.28f}, seed,
                    0.8f);
        PaintDrops(canvas, seed, width / 3, 0.9f);
        const Colour frame{0.10f, 0.10f, 0.11f};
        FillPolygon(canvas, {{0, h * 0.82f}, {w, h * 0.82f}, {w, h}, {0, h}}, frame);
        FillPolygon(
            canvas,
            {{w * 0.47f, 0}, {w * 0.53f, 0}, {w * 0.51f, h * 0.82f}, {w * 0.49f, h * 0.82f}},
            frame);
        FillPolygon(canvas, {{0, 0}, {w * 0.06f, 0}, {0, h * 0.82f}}, frame);
        FillPolygon(canvas, {{w, 0}, {w * 0.94f, 0}, {w, h * 0.82f}}, frame);
        break;
    }
    case Scene::SnowFlurries:
    case Scene::WinterMorning: {
        const bool morning = scene == Scene::WinterMorning;
        PaintSky(canvas, morning ? SkyTime::Dawn : SkyTime::Day, false, horizon, 1.0f);
        for (int y = 0; y < horizon; ++y)
            for (int x = 0; x < width; ++x)
                canvas.at(x, y) =
                    Mix(canvas.at(x, y), Colour{0.78f, 0.80f, 0.84f}, morning ? 0.45f : 0.6f);
        PaintStratus(canvas, seed, 0, horizon / 2, morning ? 0.6f : 1.0f, 0.82f);
        PaintGround(canvas, horizon, Colour{0.92f, 0.94f, 0.98f}, Colour{0.72f, 0.76f, 0.86f}, seed,
                    0.5f);
        PaintSnow(canvas, seed, morning ? width / 2 : width * 2, false);
        break;
    }
    case Scene::AutumnTown: {
        PaintSky(canvas, SkyTime::Day, false, horizon, 0.4f);
        PaintGround(canvas, horizon, Colour{0.40f, 0.38f, 0.20f}, olive, seed, 0.4f);
        Random random(seed);
        for (int i = 0; i < 4; ++i) { // a row of houses
            const float left = w * (0.08f + 0.22f * static_cast<float>(i));
            const float top = static_cast<float>(horizon) - h * random.range(0.12f, 0.22f);
            const float right = left + w * 0.13f;
            FillPolygon(canvas,
                        {{left, top},
                         {right, top},
                         {right, static_cast<float>(horizon) + 3},
                         {left, static_cast<float>(horizon) + 3}},
                        Colour{0.78f, 0.70f, 0.58f});
            FillPolygon(canvas,
                        {{left - 2, top}, {(left + right) / 2, top - h * 0.07f}, {right + 2, top}},
                        Colour{0.45f, 0.20f, 0.15f});
        }
        for (int i = 0; i < 6; ++i)
            PaintTree(canvas, w * (0.05f + 0.18f * static_cast<float>(i)) + random.range(-4, 4),
                      static_cast<float>(horizon) + h * random.range(0.05f, 0.2f),
                      h * random.range(0.3f, 0.42f), seed + static_cast<std::uint32_t>(i) * 7u,
                      i + static_cast<int>(seed % 4));
        break;
    }
    case Scene::RunwayHalo:
        PaintSky(canvas, SkyTime::Night, false, horizon);
        PaintStars(canvas, seed, width * height / 80, horizon);
        PaintGround(canvas, horizon, Colour{0.03f, 0.03f, 0.04f}, Colour{0.05f, 0.05f, 0.07f}, seed,
                    0.2f);
        PaintRunwayLights(canvas, horizon, 1.0f);
        break;
    case Scene::SoftGlow: {
        PaintSky(canvas, SkyTime::Night, false, height);
        Random random(seed);
        for (int i = 0; i < 9; ++i)
            AddGlow(canvas, random.uniform() * w, random.range(0.2f, 0.8f) * h, random.range(3, 10),
                    Colour{0.45f, 0.55f, 0.8f} * random.range(0.4f, 0.9f));
        break;
    }
    }
    return canvas.image();
}

QImage SplashPicture(int number)
{
    constexpr int kWidth = 256;
    constexpr int kHeight = 160;
    Canvas canvas(kWidth, kHeight);
    const int horizon = 118;
    const auto seed = static_cast<std::uint32_t>(500 + number);
    switch (number) {
    case 1: // dawn departure
        PaintSky(canvas, SkyTime::Dawn, false, horizon, 0.3f);
        AddGlow(canvas, 190, horizon - 4, 40, Colour{1.0f, 0.6f, 0.3f} * 0.7f);
        FillDisc(canvas, 190, horizon - 4, 9, Colour{1.0f, 0.93f, 0.75f});
        PaintGround(canvas, horizon, Colour{0.12f, 0.13f, 0.12f}, Colour{0.25f, 0.22f, 0.22f}, seed,
                    0.5f);
        PaintAircraft(canvas, 40, 70, 120, Colour{0.06f, 0.06f, 0.09f});
        break;
    case 2: // a summer day among the clouds
        PaintSky(canvas, SkyTime::Day, false, horizon, 0.5f);
        PaintGround(canvas, horizon, Colour{0.32f, 0.42f, 0.22f}, Colour{0.45f, 0.45f, 0.28f}, seed,
                    0.7f);
        for (int i = 0; i < 4; ++i)
            PaintPuff(canvas, 30.0f + 65.0f * static_cast<float>(i),
                      100.0f - 8.0f * static_cast<float>(i % 2), 70, CloudKind::Cumulus,
                      seed + static_cast<std::uint32_t>(i), 0);
        PaintAircraft(canvas, 70, 45, 110, Colour{0.15f, 0.17f, 0.22f});
        break;
    case 3: // night approach
        PaintSky(canvas, SkyTime::Night, false, horizon);
        PaintStars(canvas, seed, 160, horizon);
        PaintMoon(canvas, 200, 38, 16, 0.0f, seed);
        PaintGround(canvas, horizon, Colour{0.02f, 0.02f, 0.03f}, Colour{0.05f, 0.05f, 0.07f}, seed,
                    0.2f);
        PaintRunwayLights(canvas, horizon, 0.8f);
        break;
    default: // the simulator's own picture
        PaintSky(canvas, SkyTime::Day, false, horizon, 0.3f);
        PaintCirrus(canvas, seed, 0, 70, 0.7f);
        PaintGround(canvas, horizon, Colour{0.30f, 0.40f, 0.22f}, Colour{0.45f, 0.45f, 0.30f}, seed,
                    0.6f);
        PaintAircraft(canvas, 60, 60, 130, Colour{0.85f, 0.86f, 0.88f});
        break;
    }
    const QString title =
        number == 0 ? QStringLiteral("DEMO SIMULATOR") : QStringLiteral("VELLUMAR DEMO");
    const QString caption = number == 0 ? QStringLiteral("ORIGINAL SPLASH")
                                        : QStringLiteral("SPLASH %1 OF 3").arg(number);
    DrawCaption(canvas, title, 8, 16, Colour{1.0f, 1.0f, 1.0f});
    DrawCaption(canvas, caption, kHeight - 17, 10, Colour{1.0f, 0.95f, 0.8f});
    return canvas.image();
}

} // namespace vellumar::demo
