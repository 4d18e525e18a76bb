// The floor of the start-up benchmark: a Qt Widgets program that shows one window and quits as
// soon as it has been shown.

#include <QApplication>
#include <QTimer>
#include <QWidget>

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    QWidget window;
    window.resize(640, 480);
    window.show();
    QTimer::singleShot(0, &application, &QApplication::quit);
    return QApplication::exec();
}
