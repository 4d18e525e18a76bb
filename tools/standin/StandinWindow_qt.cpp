#include "standin/StandinWindow_qt.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>
#include <QRadialGradient>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <random>

namespace vellumar::standin {

namespace {

constexpr int kSplashMilliseconds = 2000;
constexpr qreal kHorizon = 0.7; // of the window's height

QString Text(const std::string& text)
{
    return QString::fromStdString(text);
}

QImage Load(const std::string& path, int& skipped)
{
    if (path.empty())
        return {};
    QImage image(Text(path));
    if (image.isNull())
        ++skipped; // half-copied or broken: the next change draws it
    return image;
}

// Colours down the middle of a strip bitmap, top to bottom.
std::vector<QColor> SampleStrip(const QImage& strip, int count)
{
    std::vector<QColor> colours;
    if (strip.isNull())
        return colours;
    const QImage small = strip.scaled(1, count, Qt::IgnoreAspectRatio, Qt::SmoothTransformation)
                             .convertToFormat(QImage::Format_RGB32);
    for (int y = 0; y < count; ++y)
        colours.emplace_back(small.pixel(0, y));
    return colours;
}

// A box blur of a premultiplied picture, across and then down: the simulator's textures are
// small, and stretched over the window their edges would show every pixel.
QImage Softened(const QImage& picture, int radius)
{
    QImage result = picture;
    const int w = picture.width(), h = picture.height();
    for (int pass = 0; pass < 2; ++pass) {
        const QImage source = result;
        const bool across = pass == 0;
        const int lines = across ? h : w, length = across ? w : h;
        for (int line = 0; line < lines; ++line) {
            for (int i = 0; i < length; ++i) {
                int sum[4] = {0, 0, 0, 0};
                int count = 0;
                for (int k = std::max(0, i - radius); k <= std::min(length - 1, i + radius); ++k) {
                    const QRgb p = across ? source.pixel(k, line) : source.pixel(line, k);
                    sum[0] += qRed(p), sum[1] += qGreen(p), sum[2] += qBlue(p), sum[3] += qAlpha(p);
                    ++count;
                }
                const QRgb blurred =
                    qRgba(sum[0] / count, sum[1] / count, sum[2] / count, sum[3] / count);
                if (across)
                    result.setPixel(i, line, blurred);
                else
                    result.setPixel(line, i, blurred);
            }
        }
    }
    return result;
}

// Texture bitmaps are light on black, the way the simulator blends them. As a sprite the black
// turns transparent with a soft edge. Inside, the cloud keeps its own colour, dark storm bases
// too; towards the edge it keeps the brightness of its body, or every cloud would get a dark rim.
// `tint` (with its alpha as strength) lends it the light of the hour.
QImage ToSprite(const QImage& picture, qreal edge, const QColor& tint = QColor(255, 255, 255, 0))
{
    QImage source = picture.convertToFormat(QImage::Format_RGB32);
    std::vector<int> levels;
    levels.reserve(std::size_t(source.width()) * std::size_t(source.height()));
    for (int y = 0; y < source.height(); ++y) {
        const auto* in = reinterpret_cast<const QRgb*>(source.constScanLine(y));
        for (int x = 0; x < source.width(); ++x)
            if (const int level = std::max({qRed(in[x]), qGreen(in[x]), qBlue(in[x])}); level > 24)
                levels.push_back(level);
    }
    qreal body = 0.9;
    if (!levels.empty()) {
        const auto at = levels.begin() + std::ptrdiff_t(levels.size() * 3 / 4);
        std::nth_element(levels.begin(), at, levels.end());
        body = *at / 255.0;
    }
    const qreal strength = tint.alphaF();
    QImage sprite(source.size(), QImage::Format_ARGB32_Premultiplied);
    for (int y = 0; y < source.height(); ++y) {
        const auto* in = reinterpret_cast<const QRgb*>(source.constScanLine(y));
        auto* out = reinterpret_cast<QRgb*>(sprite.scanLine(y));
        for (int x = 0; x < source.width(); ++x) {
            const qreal r = qRed(in[x]) / 255.0, g = qGreen(in[x]) / 255.0,
                        b = qBlue(in[x]) / 255.0;
            const qreal level = std::max({r, g, b, 1e-3});
            qreal t = std::clamp((level - 0.03) / std::max(edge * body - 0.03, 0.05), 0.0, 1.0);
            t = t * t * (3 - 2 * t);
            const qreal brightness = (body + (level - body) * t) / level;
            auto channel = [&](qreal value, qreal light) {
                const qreal lit = std::min(1.0, value * brightness);
                return qRound(255 * t * (lit + (lit * light - lit) * strength));
            };
            out[x] = qRgba(channel(r, tint.redF()), channel(g, tint.greenF()),
                           channel(b, tint.blueF()), qRound(255 * t));
        }
    }
    return Softened(sprite, 1);
}

// Fades what `painter` has drawn on `area` out towards its sides and its top, and towards its
// bottom unless `bottomFade` is 1 (a curtain of rain stands on the ground).
void SoftenEdges(QPainter& painter, const QRect& area, qreal topFade, qreal bottomFade)
{
    painter.setCompositionMode(QPainter::CompositionMode_DestinationIn);
    QLinearGradient across(0, 0, area.width(), 0);
    across.setColorAt(0, Qt::transparent);
    across.setColorAt(0.3, Qt::black);
    across.setColorAt(0.7, Qt::black);
    across.setColorAt(1, Qt::transparent);
    painter.fillRect(area, across);
    QLinearGradient down(0, 0, 0, area.height());
    down.setColorAt(0, Qt::transparent);
    down.setColorAt(topFade, Qt::black);
    if (bottomFade < 1) {
        down.setColorAt(bottomFade, Qt::black);
        down.setColorAt(1, Qt::transparent);
    }
    painter.fillRect(area, down);
}

// A sheet of stratus or cirrus runs to the edges of its bitmap; stretched over the sky its
// copies would end in straight cuts.
QImage FadedAtTheSides(QImage sprite)
{
    QPainter painter(&sprite);
    SoftenEdges(painter, sprite.rect(), 0.2, 0.8);
    return sprite;
}

std::vector<QColor> DefaultSky(const std::string& timeOfDay)
{
    if (timeOfDay == "night")
        return {QColor(6, 10, 28), QColor(18, 26, 58), QColor(40, 48, 80)};
    if (timeOfDay == "dusk" || timeOfDay == "dawn")
        return {QColor(40, 60, 120), QColor(170, 120, 140), QColor(250, 170, 110)};
    return {QColor(40, 90, 170), QColor(100, 150, 215), QColor(200, 220, 235)};
}

QColor Mix(const QColor& a, const QColor& b, qreal t)
{
    return QColor::fromRgbF(float(a.redF() + (b.redF() - a.redF()) * t),
                            float(a.greenF() + (b.greenF() - a.greenF()) * t),
                            float(a.blueF() + (b.blueF() - a.blueF()) * t));
}

QLinearGradient StripGradient(const std::vector<QColor>& colours, qreal top, qreal bottom)
{
    QLinearGradient gradient(0, top, 0, bottom);
    for (std::size_t i = 0; i < colours.size(); ++i)
        gradient.setColorAt(colours.size() == 1 ? 0.0 : qreal(i) / qreal(colours.size() - 1),
                            colours[i]);
    return gradient;
}

QString FileName(const std::string& path)
{
    return QFileInfo(Text(path)).fileName();
}

} // namespace

StandinWindow::StandinWindow(Settings settings, QWidget* parent)
    : QWidget(parent)
    , settings_(std::move(settings))
{
    setWindowTitle("Flight Simulator 2004 (Vellumar stand-in)");
    resize(800, 560);
    setMinimumSize(400, 280);

    settle_.setSingleShot(true);
    settle_.setInterval(150);
    connect(&settle_, &QTimer::timeout, this, [this] { refresh(); });
    connect(&watcher_, &QFileSystemWatcher::fileChanged, this, [this] { settle_.start(); });
    connect(&watcher_, &QFileSystemWatcher::directoryChanged, this, [this] { settle_.start(); });
    poll_.setInterval(1000);
    connect(&poll_, &QTimer::timeout, this, [this] { refresh(); });
    poll_.start();

    refresh();
    if (!settings_.exitWhenReady && !splash_.isNull()) {
        showingSplash_ = true;
        QTimer::singleShot(kSplashMilliseconds, this, [this] {
            showingSplash_ = false;
            update();
        });
    }
}

void StandinWindow::refresh()
{
    StandinScene scene =
        DescribeScene(settings_.simulatorFolder, settings_.configFile, settings_.winePrefix);
    // A file replaced by renaming is no longer watched; watch whatever is there now.
    watchFiles();
    if (described_ && scene.stamp == scene_.stamp)
        return;
    scene_ = std::move(scene);
    described_ = true;
    loadPictures();
    update();
}

void StandinWindow::watchFiles()
{
    QStringList wanted;
    auto add = [&wanted](const QString& path) {
        if (!path.isEmpty() && QFileInfo::exists(path) && !wanted.contains(path))
            wanted << path;
    };
    const QString simulator = Text(settings_.simulatorFolder);
    add(simulator);
    if (const auto texture = ChildIgnoringCase(settings_.simulatorFolder, "texture"))
        add(Text(texture->string()));
    if (const auto uires = ChildIgnoringCase(settings_.simulatorFolder, "UIRES"))
        add(Text(uires->string()));
    if (!settings_.configFile.empty()) {
        const QFileInfo config(Text(settings_.configFile));
        add(config.absoluteFilePath());
        add(config.absolutePath());
    }
    const QStringList watched = watcher_.files() + watcher_.directories();
    QStringList gone;
    for (const QString& path : watched)
        if (!wanted.contains(path))
            gone << path;
    if (!gone.isEmpty())
        watcher_.removePaths(gone);
    QStringList fresh;
    for (const QString& path : wanted)
        if (!watched.contains(path))
            fresh << path;
    if (!fresh.isEmpty())
        watcher_.addPaths(fresh);
}

void StandinWindow::loadPictures()
{
    skippedPictures_ = 0;
    splash_ = Load(scene_.splash, skippedPictures_);
    skyColours_ = SampleStrip(Load(scene_.sky, skippedPictures_), 16);
    earthColours_ = SampleStrip(Load(scene_.earth, skippedPictures_), 8);

    // Clouds take the light of the hour: warm at dawn and dusk, dim at night.
    QColor tint(255, 255, 255, 0);
    if (scene_.timeOfDay == "night")
        tint = QColor(70, 80, 110, 255);
    else if (scene_.timeOfDay != "day")
        tint = QColor(255, 200, 160, 130);
    clouds_.clear();
    for (const std::string& path : scene_.clouds) {
        const QImage picture = Load(path, skippedPictures_);
        if (picture.isNull())
            continue;
        const QString name = FileName(path).toLower();
        if (name.startsWith("stratus")) {
            clouds_.push_back(
                {FadedAtTheSides(ToSprite(picture, 0.85, tint)), Sprite::Kind::Sheet});
        } else if (name.startsWith("cirrus")) {
            clouds_.push_back(
                {FadedAtTheSides(ToSprite(picture, 0.85, tint)), Sprite::Kind::Streaks});
        } else {
            // Four clouds to a sheet, one in each quarter: each is a puff of its own.
            const QImage sprite = ToSprite(picture, 0.85, tint);
            const int w = sprite.width() / 2, h = sprite.height() / 2;
            for (int quarter = 0; quarter < 4; ++quarter)
                clouds_.push_back(
                    {sprite.copy((quarter % 2) * w, (quarter / 2) * h, w, h), Sprite::Kind::Puff});
        }
    }
    sun_ = Load(scene_.sun, skippedPictures_);
    corona_ = Load(scene_.corona, skippedPictures_);
    moon_ = Load(scene_.moon, skippedPictures_);
    flares_.clear();
    for (const std::string& path : scene_.flares)
        if (QImage flare = Load(path, skippedPictures_); !flare.isNull())
            flares_.push_back(std::move(flare));
    precipitation_.clear();
    for (const std::string& path : scene_.precipitation)
        if (QImage picture = Load(path, skippedPictures_); !picture.isNull())
            precipitation_.push_back(ToSprite(picture, 0.6));
}

void StandinWindow::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    if (showingSplash_) {
        paintSplash(painter);
        return;
    }
    if (scene_.problem.empty())
        paintSky(painter);
    else
        paintProblem(painter);
    paintOverlay(painter);

    if (settings_.exitWhenReady && !readyReported_) {
        // A smoke test reads what was drawn from here.
        readyReported_ = true;
        std::string drawn = scene_.problem.substr(0, scene_.problem.find('\n'));
        if (drawn.empty())
            drawn = "sky from " +
                    (scene_.sky.empty() ? std::string("built-in colours")
                                        : FileName(scene_.sky).toStdString()) +
                    ", " + std::to_string(scene_.clouds.size()) + " cloud bitmaps";
        std::fprintf(stderr, "vellumar-standin: ready: %s\n", drawn.c_str());
        QTimer::singleShot(0, qApp, &QCoreApplication::quit);
    }
}

void StandinWindow::paintSplash(QPainter& painter)
{
    painter.fillRect(rect(), QColor(8, 10, 16));
    QSize size = splash_.size().scaled(width(), height() - 40, Qt::KeepAspectRatio);
    const QRect target(QPoint((width() - size.width()) / 2, (height() - 40 - size.height()) / 2),
                       size);
    painter.drawImage(target, splash_);
    painter.setPen(QColor(180, 190, 210));
    QFont font = painter.font();
    font.setPointSizeF(9.5);
    painter.setFont(font);
    painter.drawText(QRect(0, height() - 34, width(), 28), Qt::AlignCenter,
                     "Flight Simulator 2004 is starting (Vellumar stand-in)");
}

void StandinWindow::paintSky(QPainter& painter)
{
    const qreal horizon = height() * kHorizon;
    const std::vector<QColor> sky =
        skyColours_.empty() ? DefaultSky(scene_.timeOfDay) : skyColours_;
    painter.fillRect(QRectF(0, 0, width(), horizon + 1), StripGradient(sky, 0, horizon));

    if (scene_.timeOfDay == "night") {
        // A few fixed stars: the same sky every time.
        std::minstd_rand random(17);
        std::uniform_real_distribution<qreal> unit(0, 1);
        for (int i = 0; i < 90; ++i) {
            const QPointF point(unit(random) * width(), unit(random) * horizon * 0.8);
            painter.setPen(QColor(255, 255, 240, int(60 + 150 * unit(random))));
            painter.drawPoint(point);
        }
    }
    paintLights(painter, horizon);
    paintClouds(painter, horizon);
    paintPrecipitation(painter, horizon);
    paintGround(painter, horizon);
}

void StandinWindow::paintLights(QPainter& painter, qreal horizon)
{
    const bool night = scene_.timeOfDay == "night";
    const QImage& disc = night ? moon_ : sun_;
    if (disc.isNull())
        return;
    QPointF centre(width() * 0.72, horizon * 0.26);
    if (scene_.timeOfDay == "dusk")
        centre = QPointF(width() * 0.78, horizon * 0.8);
    else if (scene_.timeOfDay == "dawn")
        centre = QPointF(width() * 0.22, horizon * 0.8);
    else if (night)
        centre = QPointF(width() * 0.7, horizon * 0.22);

    painter.save();
    if (!night) {
        // The light around the sun, so that even a small sun bitmap lights its part of the sky.
        const qreal reach = height() * (scene_.timeOfDay == "day" ? 0.45 : 0.6);
        QRadialGradient glow(centre, reach);
        const QColor warm =
            scene_.timeOfDay == "day" ? QColor(255, 250, 230) : QColor(255, 200, 130);
        QColor faint = warm;
        faint.setAlpha(0);
        QColor bright = warm;
        bright.setAlpha(150);
        glow.setColorAt(0, bright);
        glow.setColorAt(0.25, QColor(warm.red(), warm.green(), warm.blue(), 60));
        glow.setColorAt(1, faint);
        painter.fillRect(QRectF(centre.x() - reach, centre.y() - reach, 2 * reach, 2 * reach),
                         glow);
    }
    painter.setCompositionMode(QPainter::CompositionMode_Plus);
    if (!night && !corona_.isNull()) {
        const qreal size = height() * 0.55;
        painter.setOpacity(0.7);
        painter.drawImage(QRectF(centre.x() - size / 2, centre.y() - size / 2, size, size),
                          corona_);
    }
    const qreal size = height() * (night ? 0.16 : 0.2);
    painter.setOpacity(1.0);
    painter.drawImage(QRectF(centre.x() - size / 2, centre.y() - size / 2, size, size), disc);
    if (!night) {
        // Flare ghosts on the line from the sun through the middle of the window.
        const QPointF middle(width() / 2.0, height() / 2.0);
        for (std::size_t i = 0; i < flares_.size(); ++i) {
            const qreal t = 0.55 + 0.35 * qreal(i);
            const QPointF at = centre + (middle - centre) * t;
            const qreal flareSize = height() * (0.07 + 0.035 * qreal((i * 5) % 4));
            painter.setOpacity(0.45);
            painter.drawImage(
                QRectF(at.x() - flareSize / 2, at.y() - flareSize / 2, flareSize, flareSize),
                flares_[i]);
        }
    }
    painter.restore();
}

void StandinWindow::paintClouds(QPainter& painter, qreal horizon)
{
    struct Placed {
        const QImage* image;
        QRectF target;
        qreal opacity;
    };
    std::vector<Placed> placed;
    std::minstd_rand random(2004);
    std::uniform_real_distribution<qreal> unit(0, 1);
    const qreal w = width();

    std::vector<const Sprite*> puffs;
    for (const Sprite& sprite : clouds_) {
        if (sprite.kind == Sprite::Kind::Puff) {
            puffs.push_back(&sprite);
            continue;
        }
        const bool sheet = sprite.kind == Sprite::Kind::Sheet;
        const int copies = sheet ? 4 : 2;
        for (int i = 0; i < copies; ++i) {
            const qreal cw = w * (sheet ? 0.62 : 0.75);
            const qreal ch = horizon * (sheet ? 0.34 : 0.24);
            const qreal x = w * (qreal(i) / copies) - cw * 0.3 + unit(random) * w * 0.1;
            const qreal y =
                horizon * (sheet ? 0.12 + 0.22 * unit(random) : 0.02 + 0.14 * unit(random));
            placed.push_back({&sprite.image, QRectF(x, y, cw, ch), sheet ? 0.92 : 0.8});
        }
    }
    if (!puffs.empty()) {
        const int count = std::max<int>(12, int(puffs.size()) + 4);
        for (int i = 0; i < count; ++i) {
            const qreal depth = unit(random); // 0 overhead, 1 at the horizon
            const qreal size = w * (0.36 - 0.24 * depth);
            const qreal x = (qreal(i) + unit(random) * 0.8) / count * (w + size) - size * 0.6;
            const qreal y = horizon * (0.18 + 0.62 * depth) - size * 0.45;
            placed.push_back({&puffs[std::size_t(i) % puffs.size()]->image,
                              QRectF(x, y, size, size * 0.82), 0.95});
        }
    }
    // The far clouds first, so that the near ones cover them.
    std::stable_sort(placed.begin(), placed.end(), [](const Placed& a, const Placed& b) {
        return a.target.bottom() > b.target.bottom();
    });
    painter.save();
    for (const Placed& cloud : placed) {
        painter.setOpacity(cloud.opacity);
        painter.drawImage(cloud.target, *cloud.image);
    }
    painter.restore();
}

void StandinWindow::paintGround(QPainter& painter, qreal horizon)
{
    const bool night = scene_.timeOfDay == "night";
    std::vector<QColor> earth = earthColours_;
    if (earth.empty())
        earth = night ? std::vector<QColor>{QColor(24, 28, 40), QColor(6, 8, 10)}
                      : std::vector<QColor>{QColor(150, 160, 150), QColor(78, 98, 60),
                                            QColor(40, 56, 32)};
    const QColor haze =
        skyColours_.empty() ? DefaultSky(scene_.timeOfDay).back() : skyColours_.back();

    // Two ranges of hills, the far one fading into the haze of the sky.
    const qreal w = width();
    for (int range = 0; range < 2; ++range) {
        QPainterPath hills;
        hills.moveTo(0, height());
        const qreal lift = range == 0 ? horizon * 0.06 : horizon * 0.025;
        for (int x = 0; x <= width(); x += 8) {
            const qreal t = x / w;
            const qreal y =
                horizon - lift * (0.6 + 0.4 * std::sin(t * (range ? 9.0 : 5.0) + range) +
                                  0.3 * std::sin(t * 23.0 + 2 * range));
            hills.lineTo(x, y);
        }
        hills.lineTo(w, height());
        hills.closeSubpath();
        const QColor base =
            earth[std::min<std::size_t>(earth.size() - 1, range ? earth.size() / 2 : 0)];
        painter.fillPath(hills, Mix(base, haze, range == 0 ? 0.55 : 0.2));
    }
    QLinearGradient ground = StripGradient(earth, horizon, height());
    painter.fillRect(QRectF(0, horizon + horizon * 0.02, w, height()), ground);
    QLinearGradient mist(0, horizon - horizon * 0.05, 0, horizon + height() * 0.08);
    QColor clear = haze;
    clear.setAlpha(0);
    QColor thick = haze;
    thick.setAlpha(night ? 60 : 120);
    mist.setColorAt(0, clear);
    mist.setColorAt(0.45, thick);
    mist.setColorAt(1, clear);
    painter.fillRect(QRectF(0, horizon - horizon * 0.05, w, height() * 0.14), mist);
}

void StandinWindow::paintPrecipitation(QPainter& painter, qreal horizon)
{
    if (precipitation_.empty())
        return;
    // Rain and snow fall as curtains in the distance, under the cloud bases: the picture is of
    // the sky, not of a windscreen. Each bitmap installed adds a curtain.
    const qreal w = width();
    const QRectF shafts[] = {{w * 0.08, horizon * 0.42, w * 0.2, horizon * 0.62},
                             {w * 0.55, horizon * 0.48, w * 0.16, horizon * 0.56},
                             {w * 0.33, horizon * 0.5, w * 0.12, horizon * 0.54}};
    const std::size_t count = std::min(std::size(shafts), precipitation_.size());
    for (std::size_t i = 0; i < count; ++i) {
        const QRectF shaft = shafts[i];
        QImage curtain(shaft.size().toSize(), QImage::Format_ARGB32_Premultiplied);
        curtain.fill(Qt::transparent);
        {
            QPainter inner(&curtain);
            inner.fillRect(curtain.rect(), QColor(120, 130, 145, 50));
            const QImage& streaks = precipitation_[i % precipitation_.size()];
            const int tile = std::max(64, curtain.height() / 2);
            for (int y = 0; y < curtain.height(); y += tile)
                for (int x = 0; x < curtain.width(); x += tile)
                    inner.drawImage(QRect(x, y, tile, tile), streaks);
            // Soft on every side but the ground.
            SoftenEdges(inner, curtain.rect(), 0.35, 1);
        }
        painter.save();
        painter.setOpacity(0.6);
        painter.drawImage(shaft.topLeft(), curtain);
        painter.restore();
    }
}

void StandinWindow::paintProblem(QPainter& painter)
{
    painter.fillRect(rect(), StripGradient({QColor(36, 44, 60), QColor(70, 80, 96)}, 0, height()));
    const QRectF card(width() * 0.12, height() * 0.26, width() * 0.76, height() * 0.3);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(12, 16, 24, 200));
    painter.drawRoundedRect(card, 12, 12);
    painter.setPen(QColor(240, 236, 224));
    QFont font = painter.font();
    font.setPointSizeF(11);
    painter.setFont(font);
    painter.drawText(card.adjusted(24, 18, -24, -18), Qt::AlignCenter | Qt::TextWordWrap,
                     "No sky to show\n\n" + Text(scene_.problem));
}

void StandinWindow::paintOverlay(QPainter& painter)
{
    QStringList lines;
    QString heading;
    if (settings_.configFile.empty())
        heading = "No start situation (no fs9.cfg given)";
    else if (scene_.situationName.empty())
        heading = "No start situation in fs9.cfg";
    else
        heading = "Start situation: " + Text(scene_.situationName);
    if (!scene_.situationTitle.empty() && scene_.situationTitle != scene_.situationName)
        lines << QString::fromUtf8("\u201C%1\u201D").arg(Text(scene_.situationTitle));
    if (!scene_.installedAt.empty())
        lines << "Sky installed at " + Text(scene_.installedAt);

    QStringList drawn;
    if (!scene_.sky.empty())
        drawn << FileName(scene_.sky);
    if (!scene_.clouds.empty())
        drawn << QString("%1 cloud bitmap%2")
                     .arg(scene_.clouds.size())
                     .arg(scene_.clouds.size() == 1 ? "" : "s");
    if (!scene_.precipitation.empty())
        drawn << QString("%1 rain/snow bitmap%2")
                     .arg(scene_.precipitation.size())
                     .arg(scene_.precipitation.size() == 1 ? "" : "s");
    if (!scene_.earth.empty())
        drawn << FileName(scene_.earth);
    const std::size_t skipped = scene_.skipped.size() + std::size_t(skippedPictures_);
    if (skipped > 0)
        drawn << (skipped == 1 && !scene_.skipped.empty()
                      ? Text(scene_.skipped.front()) + " is incomplete, skipped"
                      : QString("%1 bitmaps incomplete or unreadable, skipped").arg(skipped));

    QFont big = painter.font();
    big.setPointSizeF(12);
    big.setBold(true);
    QFont normal = painter.font();
    normal.setPointSizeF(10);
    QFont small = normal;
    small.setPointSizeF(8.5);
    const QFontMetricsF bigMetrics(big), normalMetrics(normal), smallMetrics(small);
    const QString drawnText = drawn.join(QString::fromUtf8(" \u00B7 "));

    qreal textWidth = bigMetrics.horizontalAdvance(heading);
    for (const QString& line : lines)
        textWidth = std::max(textWidth, normalMetrics.horizontalAdvance(line));
    textWidth = std::max(textWidth, smallMetrics.horizontalAdvance(drawnText));
    textWidth = std::min(textWidth, width() - 64.0);
    const qreal lineGap = 4;
    qreal textHeight = bigMetrics.height() + lines.size() * (normalMetrics.height() + lineGap);
    if (!drawnText.isEmpty())
        textHeight += smallMetrics.height() + lineGap + 2;
    const QRectF panel(16, height() - 16 - textHeight - 24, textWidth + 32, textHeight + 24);

    painter.save();
    painter.setOpacity(1);
    painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
    painter.setPen(QPen(QColor(255, 255, 255, 40), 1));
    painter.setBrush(QColor(8, 14, 26, 175));
    painter.drawRoundedRect(panel, 10, 10);
    qreal y = panel.top() + 12;
    const qreal x = panel.left() + 16;
    painter.setFont(big);
    painter.setPen(QColor(255, 246, 226));
    painter.drawText(QRectF(x, y, textWidth, bigMetrics.height()), Qt::AlignLeft,
                     bigMetrics.elidedText(heading, Qt::ElideRight, textWidth));
    y += bigMetrics.height() + lineGap;
    painter.setFont(normal);
    painter.setPen(QColor(220, 228, 240));
    for (const QString& line : lines) {
        painter.drawText(QRectF(x, y, textWidth, normalMetrics.height()), Qt::AlignLeft,
                         normalMetrics.elidedText(line, Qt::ElideRight, textWidth));
        y += normalMetrics.height() + lineGap;
    }
    if (!drawnText.isEmpty()) {
        painter.setFont(small);
        painter.setPen(QColor(170, 184, 204));
        painter.drawText(QRectF(x, y + 2, textWidth, smallMetrics.height()), Qt::AlignLeft,
                         smallMetrics.elidedText(drawnText, Qt::ElideRight, textWidth));
    }

    // Nobody should take this for the real simulator.
    const QString badge = "Vellumar stand-in";
    const qreal badgeWidth = smallMetrics.horizontalAdvance(badge) + 20;
    const QRectF badgeRect(width() - badgeWidth - 12, 12, badgeWidth, smallMetrics.height() + 8);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(8, 14, 26, 130));
    painter.drawRoundedRect(badgeRect, 6, 6);
    painter.setFont(small);
    painter.setPen(QColor(230, 236, 246));
    painter.drawText(badgeRect, Qt::AlignCenter, badge);
    painter.restore();
}

} // namespace vellumar::standin
