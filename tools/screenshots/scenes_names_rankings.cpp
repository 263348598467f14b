// The two hand screens in the middle of an exercise.
#include <QTest>

#include "scenes.h"

namespace {

void pressCard(frmMain& form, const char* cardName) {
    for (auto* key : form.findChildren<QPushButton*>()) {
        if (key->objectName().startsWith(QLatin1String("cmdKey(")) &&
            key->accessibleName() == QLatin1String(cardName)) {
            QTest::mouseClick(key, Qt::LeftButton);
            return;
        }
    }
}

// Exercise 1: five picked cards and the name of their hand marked in the list.
screenshots::Register namesExercise("names_exercise", [](frmMain& form) {
    screenshots::clickTopic(form, QStringLiteral("Poker Hand Names"));
    QTest::mouseClick(screenshots::control(form, QStringLiteral("cmdStart1A")), Qt::LeftButton);
    for (const char* card : {"King of Spades", "Seven of Clubs", "King of Hearts",
                             "Seven of Diamonds", "King of Diamonds"}) {
        pressCard(form, card);
        screenshots::settle(60);
    }
});

// Exercise 2: a dealt hand waiting for its name, the pointer's border on one label.
screenshots::Register namesDealt("names_dealt", [](frmMain& form) {
    screenshots::clickTopic(form, QStringLiteral("Poker Hand Names"));
    QTest::mouseClick(screenshots::control(form, QStringLiteral("cmdStart1B")), Qt::LeftButton);
    form.lblName_MouseMove(4);
});

// Exercise 2: two dealt hands and the verdict a click on one of them gave.
screenshots::Register rankingsExercise("rankings_exercise", [](frmMain& form) {
    screenshots::clickTopic(form, QStringLiteral("Poker Hand Rankings"));
    QTest::mouseClick(screenshots::control(form, QStringLiteral("cmdStart2B")), Qt::LeftButton);
    screenshots::settle(100);
    QTest::mouseClick(screenshots::control(form, QStringLiteral("picLabels")), Qt::LeftButton);
});

}  // namespace
