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

// Texture bitmaps are light on black, the way the simulator blends them. As a sprite the black
// turns transparent with a soft edge while the cloud keeps its own colour, dark storm bases too.
QImage ToSprite(const QImage& picture, qreal edge)
{
    QImage source = picture.convertToFormat(QImage::Format_RGB32);
    QImage sprite(source.size(), QImage::Format_ARGB32_Premultiplied);
    for (int y = 0; y < source.height(); ++y) {
        const auto* in = reinterpret_cast<const QRgb*>(source.constScanLine(y));
        auto* out = reinterpret_cast<QRgb*>(sprite.scanLine(y));
        for (int x = 0; x < source.width(); ++x) {
            const int r = qRed(in[x]), g = qGreen(in[x]), b = qBlue(in[x]);
            const qreal level = std::max({r, g, b}) / 255.0;
            qreal t = std::clamp((level - 0.03) / edge, 0.0, 1.0);
            t = t * t * (3 - 2 * t);
            out[x] = qRgba(qRound(r * t), qRound(g * t), qRound(b * t), qRound(255 * t));
        }
    }
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

    clouds_.clear();
    for (const std::string& path : scene_.clouds) {
        const QImage picture = Load(path, skippedPictures_);
        if (picture.isNull())
            continue;
        const QString name = FileName(path).toLower();
        if (name.startsWith("stratus")) {
            clouds_.push_back({ToSprite(picture, 0.5), Sprite::Kind::Sheet});
        } else if (name.startsWith("cirrus")) {
            clouds_.push_back({ToSprite(picture, 0.6), Sprite::Kind::Streaks});
        } else {
            // Four clouds to a sheet, one in each quarter: each is a puff of its own.
            const QImage sprite = ToSprite(picture, 0.3);
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
            precipitation_.push_back(ToSprite(picture, 0.8));
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
    paintGround(painter, horizon);
    paintPrecipitation(painter);
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
        const int copies = sheet ? 3 : 2;
        for (int i = 0; i < copies; ++i) {
            const qreal cw = w * (sheet ? 0.62 : 0.75);
            const qreal ch = horizon * (sheet ? 0.34 : 0.24);
            const qreal x = w * (qreal(i) / copies) - cw * 0.2 + unit(random) * w * 0.12;
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

void StandinWindow::paintPrecipitation(QPainter& painter)
{
    if (precipitation_.empty())
        return;
    painter.save();
    painter.setOpacity(0.55);
    const int tile = std::max(128, height() / 2);
    for (std::size_t i = 0; i < precipitation_.size(); ++i) {
        const int offset = int(i) * tile / 3;
        for (int y = -offset; y < height(); y += tile)
            for (int x = -offset / 2; x < width(); x += tile)
                painter.drawImage(QRect(x, y, tile, tile), precipitation_[i]);
    }
    painter.restore();
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
        drawn << QString("%1 rain/snow").arg(scene_.precipitation.size());
    if (!scene_.earth.empty())
        drawn << FileName(scene_.earth);
    if (skippedPictures_ > 0)
        drawn << QString("%1 unreadable, skipped").arg(skippedPictures_);

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
