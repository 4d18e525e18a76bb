// A real drag in the AutoRandom order list and in the music list. Qt's "minimal" platform runs
// QDrag's own loop (offscreen a drag returns at once), so this test runs there.

#include "app/StartUpSequence.h"
#include "support/TempFolder.h"
#include "support/TestInstallation.h"
#include "ui/frmMusic.h"
#include "ui/frmRandSel.h"

#include <QListWidget>
#include <QRadioButton>
#include <QTest>
#include <QTimer>

namespace vellumar {

class OrderDragTest final : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void draggingASetDownTheOrderMovesItThere()
    {
        test::TempFolder temp;
        test::TestServices fakes;
        test::TestInstallation installation{temp, fakes};
        temp.write("Vellumar/Texture/Sky/Dusk/sky_dusk.bmp");
        temp.write("Vellumar/Texture/Sky/Night/sky_night.bmp");
        installation.writeCloudIni("[Set2]\r\nDirName=Sky\\Dusk\r\n[Set3]\r\nDirName=Sky\\Night\r\n"
                                   "[AutoRandom]\r\nMode=order\r\n");
        ProgramState state;
        QCOMPARE(RunStartUpSequence(fakes.services, ScreenFacts{}, state),
                 StartUpOutcome::Continue);
        frmRandSel selection(fakes.services, state);
        selection.show();
        QVERIFY(QTest::qWaitForWindowExposed(&selection));
        QVERIFY(selection.findChild<QRadioButton*>(QStringLiteral("optOrder"))->isChecked());
        auto* lstOrder = selection.findChild<QListWidget*>(QStringLiteral("lstOrder"));
        QWidget* viewport = lstOrder->viewport();
        const QPoint from = lstOrder->visualItemRect(lstOrder->item(0)).center();
        const QRect last = lstOrder->visualItemRect(lstOrder->item(2));
        const QPoint to(last.center().x(), last.bottom() - 1);

        QTest::mousePress(viewport, Qt::LeftButton, {}, from);
        // Inside QDrag::exec the drag has its own loop: the move and the drop come from a timer.
        QTimer::singleShot(100, viewport, [viewport, to] {
            QTest::mouseMove(viewport, to);
            QTest::mouseRelease(viewport, Qt::LeftButton, {}, to);
        });
        QTest::mouseMove(viewport, from + QPoint(0, QApplication::startDragDistance() + 4));
        QTest::mouseMove(viewport, from + QPoint(0, 2 * QApplication::startDragDistance() + 8));

        QTRY_COMPARE(lstOrder->item(2)->text(), QStringLiteral("Summer haze"));
        QCOMPARE(lstOrder->item(0)->text(), QStringLiteral("Dusk"));
        QCOMPARE(selection.selection().order, (std::vector<int>{1, 2, 0}));
    }

    void draggingAPieceUpTheMusicListPlaysItEarlier()
    {
        test::TestServices fakes;
        frmMusic window(fakes.files, MusicOrder{{"/m/a.mp3", "/m/b.mp3", "/m/c.mid"}, ""}, "");
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        auto* lstMusic = window.findChild<QListWidget*>(QStringLiteral("lstMusic"));
        QWidget* viewport = lstMusic->viewport();
        const QPoint from = lstMusic->visualItemRect(lstMusic->item(2)).center();
        const QRect first = lstMusic->visualItemRect(lstMusic->item(0));
        const QPoint to(first.center().x(), first.top() + 1);

        QTest::mousePress(viewport, Qt::LeftButton, {}, from);
        QTimer::singleShot(100, viewport, [viewport, to] {
            QTest::mouseMove(viewport, to);
            QTest::mouseRelease(viewport, Qt::LeftButton, {}, to);
        });
        QTest::mouseMove(viewport, from - QPoint(0, QApplication::startDragDistance() + 4));
        QTest::mouseMove(viewport, from - QPoint(0, 2 * QApplication::startDragDistance() + 8));

        QTRY_COMPARE(lstMusic->item(0)->text(), QStringLiteral("c.mid"));
        window.accept();
        QCOMPARE(window.order().files, (TextList{"/m/c.mid", "/m/a.mp3", "/m/b.mp3"}));
    }
};

} // namespace vellumar

QTEST_MAIN(vellumar::OrderDragTest)
#include "OrderDragTest_qt.moc"
