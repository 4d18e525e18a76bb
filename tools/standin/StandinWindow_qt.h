#pragma once

#include "standin/StandinScene.h"

#include <QFileSystemWatcher>
#include <QImage>
#include <QTimer>
#include <QWidget>

#include <vector>

namespace vellumar::standin {

// The stand-in simulator's window: the splash picture for a moment, then the sky made of the
// bitmaps installed in the simulator folder, drawn again whenever they or fs9.cfg change.
class StandinWindow : public QWidget {
public:
    struct Settings {
        std::string simulatorFolder;
        std::string configFile; // "" for no start situation
        std::string winePrefix;
        bool exitWhenReady = false; // end the program once the first sky is drawn
    };

    explicit StandinWindow(Settings settings, QWidget* parent = nullptr);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    struct Sprite {
        QImage image;
        enum class Kind { Puff, Sheet, Streaks } kind = Kind::Puff;
    };

    void refresh();
    void watchFiles();
    void loadPictures();
    void paintSplash(QPainter& painter);
    void paintSky(QPainter& painter);
    void paintGround(QPainter& painter, qreal horizon);
    void paintLights(QPainter& painter, qreal horizon);
    void paintClouds(QPainter& painter, qreal horizon);
    void paintPrecipitation(QPainter& painter, qreal horizon);
    void paintOverlay(QPainter& painter);
    void paintProblem(QPainter& painter);

    Settings settings_;
    StandinScene scene_;
    bool described_ = false;
    bool showingSplash_ = false;
    bool readyReported_ = false;

    QImage splash_;
    std::vector<QColor> skyColours_; // zenith to horizon
    std::vector<QColor> earthColours_;
    std::vector<Sprite> clouds_;
    QImage sun_, corona_, moon_;
    std::vector<QImage> flares_;
    std::vector<QImage> precipitation_;
    int skippedPictures_ = 0;

    QFileSystemWatcher watcher_;
    QTimer settle_; // changes come in bursts while a set is copied: draw once they stop
    QTimer poll_;   // the watcher misses changes on some file systems; the time stamps do not
};

} // namespace vellumar::standin
