// The real sound seam: a wave file that is there is played, a missing one stays silent.
#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QSoundEffect>
#include <QTest>

#include "platform/mDefs.h"

TEST(PlaySound, PlaysAFileThatIsThereAndNoneThatIsMissing) {
    int argc = 1;
    char name[] = "play_sound_test";
    char* argv[] = {name};
    QCoreApplication app(argc, argv);
    platform::setApplicationFolder(QStringLiteral(TABLEWRIGHT_APP_DIR));
    platform::PlaySound(TABLEWRIGHT_WAVS_DIR "/missing.wav");
    EXPECT_TRUE(app.findChildren<QSoundEffect*>().isEmpty()) << "a missing file was loaded";
    const QString yes = TABLEWRIGHT_WAVS_DIR "/yes.wav";
    platform::PlaySound(yes);
    const auto effects = app.findChildren<QSoundEffect*>();
    ASSERT_EQ(effects.size(), 1);
    EXPECT_EQ(effects[0]->source(), QUrl::fromLocalFile(yes));
    // Loaded, so the file is a wave Qt reads; and waited for, as Qt's sample cache deadlocks
    // when it is torn down while a file still loads.
    static_cast<void>(
        QTest::qWaitFor([&] { return effects[0]->status() != QSoundEffect::Loading; }, 60'000));
    EXPECT_EQ(effects[0]->status(), QSoundEffect::Ready);
}
