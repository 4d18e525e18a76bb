// The floor of the start-up benchmark: a Qt Widgets program that shows one window and quits as
// soon as it has been shown. With --idle it stays open instead, the floor of the idle
// benchmark, until it is killed.

#include <QApplication>
#include <QTimer>
#include <QWidget>

#include <cstring>

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    QWidget window;
    window.resize(640, 480);
    window.show();
    if (argc < 2 || std::strcmp(argv[1], "--idle") != 0)
        QTimer::singleShot(0, &application, &QApplication::quit);
    return QApplication::exec();
}
