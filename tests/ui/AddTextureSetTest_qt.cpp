// Adding a texture set from the main window: the Option menu's item and a drop on the window.

#include "app/StartUpSequence.h"
#include "common/MessageService.h"
#include "support/TempFolder.h"
#include "support/TestInstallation.h"
#include "ui/Form1.h"

#include <QAction>
#include <QComboBox>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QMimeData>
#include <QTest>
#include <QUrl>

#include <memory>

namespace vellumar {

class AddTextureSetTest final : public QObject {
    Q_OBJECT

    struct Window {
        test::TempFolder temp;
        test::TestServices fakes;
        test::TestInstallation installation{temp, fakes};
        ScreenFacts screen;
        ProgramState state;
        std::unique_ptr<Form1> form;

        Window()
        {
            temp.write("Downloads/Golden dusk/sky_dusk.bmp", "dusk");
            temp.write("Downloads/Golden dusk/sun1.bmp", "sun");
            if (RunStartUpSequence(fakes.services, screen, state) != StartUpOutcome::Continue)
                qFatal("the start-up failed");
            form = std::make_unique<Form1>(fakes.services, state, screen, [] { return 0.5; });
            form->Form_Load();
            form->show();
        }

        QStringList sets() const
        {
            QStringList names;
            auto* combo = form->findChild<QComboBox*>(QStringLiteral("cmbClouds"));
            for (int i = 0; i < combo->count(); ++i)
                names << combo->itemText(i);
            return names;
        }

        void drop(const std::string& path)
        {
            QMimeData data;
            data.setUrls({QUrl::fromLocalFile(QString::fromStdString(path))});
            // The drop goes where the drag was taken in.
            QDragEnterEvent enter(QPoint(10, 10), Qt::CopyAction, &data, Qt::LeftButton, {});
            QCoreApplication::sendEvent(form.get(), &enter);
            QVERIFY(enter.isAccepted());
            QDropEvent drop(QPointF(10, 10), Qt::CopyAction, &data, Qt::LeftButton, {});
            QCoreApplication::sendEvent(form.get(), &drop);
        }
    };

private Q_SLOTS:
    void theMenuItemAsksWithNameTypeAndCountThenTheListsShowTheSet()
    {
        Window window;
        int asked = 0;
        window.form->chooseTextureSetSource = [&] {
            ++asked;
            return asked == 1 ? std::string() : window.temp / "Downloads/Golden dusk";
        };
        auto* item = window.form->findChild<QAction*>(QStringLiteral("mnuAddTextureSet"));
        QVERIFY(item);
        item->trigger(); // cancelled: nothing asked
        QVERIFY(window.fakes.messages.empty());

        window.fakes.messages.answerNext(MessageResult::Yes);
        item->trigger();
        QCOMPARE(asked, 2);
        const auto& question = window.fakes.messages.last();
        QCOMPARE(question.title, std::string("Add Texture Set"));
        QVERIFY2(question.text.find("\"Golden dusk\"") != std::string::npos, question.text.c_str());
        QVERIFY2(question.text.find("Data type: Sky Color\nFiles: 2") != std::string::npos,
                 question.text.c_str());
        QCOMPARE(window.sets(),
                 (QStringList{QStringLiteral("Summer haze"), QStringLiteral("Golden dusk")}));
        QCOMPARE(window.temp.read("Vellumar/Texture/Golden dusk/sun1.bmp"), std::string("sun"));
    }

    void aDroppedFolderIsAddedAndAProblemIsShown()
    {
        Window window;
        window.fakes.messages.answerNext(MessageResult::Yes);
        window.drop(window.temp / "Downloads/Golden dusk");
        QCOMPARE(window.sets().size(), 2);

        window.drop(window.temp / "Downloads/Golden dusk"); // again: the folder exists
        QCOMPARE(window.fakes.messages.last().title, std::string("Add Texture Set"));
        QVERIFY(window.fakes.messages.last().text.find("already") != std::string::npos);
        QCOMPARE(window.sets().size(), 2);
    }
};

} // namespace vellumar

QTEST_MAIN(vellumar::AddTextureSetTest)
#include "AddTextureSetTest_qt.moc"
