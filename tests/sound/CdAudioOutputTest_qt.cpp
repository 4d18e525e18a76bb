// The CD's sound output on whatever this machine has: a sound device that takes the samples, or
// none, which must be said in a line the sound window can show. It must never do neither.

#include "sound/CdAudioOutput_qt.h"

#include <QTest>

#include <memory>

namespace vellumar {

class CdAudioOutputTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void playsTheSourceOrSaysWhyNot()
    {
        QtCdAudioOutput output;
        QCOMPARE(output.problem(), std::string());
        // Two seconds of silence; the source keeps a token so the test sees when it is let go.
        auto left = std::make_shared<std::size_t>(2 * 44100 * 4);
        auto pulled = std::make_shared<std::size_t>(0);
        auto token = std::make_shared<int>(0);
        const bool started = output.Start(
            [left, pulled, token](std::uint8_t* into, std::size_t size) -> std::size_t {
                const std::size_t count = std::min(size, *left);
                std::fill(into, into + count, std::uint8_t(0));
                *left -= count;
                *pulled += count;
                return count;
            });
        output.SetVolume(30);
        if (!started)
            QVERIFY(!output.problem().empty());
        QTRY_VERIFY_WITH_TIMEOUT(*pulled > 0 || !output.problem().empty(), 5000);
        if (!output.problem().empty()) {
            qInfo("no sound here: %s", output.problem().c_str());
            QVERIFY(output.problem().find('\n') == std::string::npos);
        }

        output.Pause();
        output.Resume();
        output.Stop();
        QCOMPARE(token.use_count(), 1L);
    }
};

} // namespace vellumar

QTEST_MAIN(vellumar::CdAudioOutputTest)
#include "CdAudioOutputTest_qt.moc"
