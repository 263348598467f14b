// The Best Hand Recognition exercise: a dealt board of five, two pocket picks, and the best
// hand (full house or less) that the board allows. The board is deck(0..4) with its five keys
// disabled; the board reader works on the keys' captions and enabled states.
#include <cmath>

#include "board/board.h"
#include "exercises/keyboard_text.h"
#include "platform/mDefs.h"
#include "shell/frmMain.h"

namespace {

constexpr std::size_t kBoardSize = 5;

}  // namespace

void frmMain::ShowBestHandScreen() {
    // A failure ends the set-up silently; what was done so far stays done.
    try {
        for (auto* name : lblName) {
            name->setVisible(false);
        }
        cmdClear->setEnabled(false);
        picLabels->setBackColor(0x008000);
        picShow->setAccessibleName(QStringLiteral("Board"));
        picLabels->setAccessibleName(QStringLiteral("Your two cards"));
        picLabels->Cls();
        picShow->Cls();
        lblHeading1->setCaption(QStringLiteral("Best Hand Recognition"));
        lblEx1->setCaption(QStringLiteral("Pick the best pocket pair to the board.") +
                           QStringLiteral(" (full house or less)"));
        lblEx2->setCaption(QString());
        messageBlinking = true;
        lblMessage->setCaption(QStringLiteral("Click [Start] to begin..."));
        for (auto* other :
             {cmdStart2A, cmdStart2B, cmdStart3A, cmdStart3B, cmdStart1A, cmdStart1B}) {
            other->setVisible(false);
        }
        cmdStart4->setVisible(true);
        setAllKeysEnabled(false);
        Frame2->setEnabled(false);
    } catch (const std::exception&) {
    }
}

void frmMain::cmdStart4_Click() {
    // Blinking, the message colour and Clear stay as they are: Clear comes with the answer.
    setModeFlags(&modeBestHand);
    xincr = keyboard_text::rounded(cWidth / 3.0);
    picLabels->Cls();
    setAllKeysEnabled(true);
    cardCount = 0;
    DealBoard();
    xincr = keyboard_text::rounded(cWidth / 2.0);
    lblMessage->setCaption(QStringLiteral("Select the best pocket pair (full house or less)"));
}

namespace {

// True when one value text stands on three or more of the board's keys.
bool BoardHasThreeOfAValue(const cards::Deck& deck,
                           const std::array<platform::CommandButton*, 52>& keys) {
    for (const char* text : keyboard_text::kColumnCaptions) {
        const QString value = QString::fromLatin1(text);
        int count = 0;
        for (std::size_t i = 0; i < kBoardSize; ++i) {
            if (keys[static_cast<std::size_t>(deck[i])]->caption() == value) {
                ++count;
            }
        }
        if (count >= 3) {
            return true;
        }
    }
    return false;
}

}  // namespace

void frmMain::DealBoard() {
    // A failure ends the deal silently.
    try {
        for (std::size_t i = 0; i < deck.size(); ++i) {
            deck[i] = static_cast<std::int16_t>(i);
        }
        // A redeal shuffles the deck as it lies, with a new seed, as often as it takes.
        do {
            cards::ShuffleInPlace(deck, platform::Random());
        } while (BoardHasThreeOfAValue(deck, cmdKey));

        picShow->Cls();
        xincr = keyboard_text::rounded(cWidth / 3.0);
        for (std::size_t i = 0; i < kBoardSize; ++i) {
            DrawHandOneCard(deck[i]);
            cmdKey[static_cast<std::size_t>(deck[i])]->setEnabled(false);
        }
        // It reads the keys: only now are the disabled ones exactly the board.
        BoardFlushPossible();
    } catch (const std::exception&) {
    }
}

namespace {

std::array<cards::Card, kBoardSize> BoardCards(const cards::Deck& deck,
                                               const cards::KeyMap& keyMap) {
    std::array<cards::Card, kBoardSize> board{};
    cards::BuildHandFromDeck(deck, 0, keyMap, board);
    return board;
}

}  // namespace

void frmMain::BoardFlushPossible() {
    flushAnswer = board::BoardFlushPossible(BoardCards(deck, keyMap));
}

void frmMain::ReadBoard() {
    const cards::Checked<std::string> answer =
        board::ReadBoard(BoardCards(deck, keyMap), flushAnswer);
    if (answer.failure)
        platform::MsgBox(QString::fromStdString(*answer.failure));
    lblMessage->setCaption(QString::fromStdString(answer.value));
}

void frmMain::keyPressBestHand(std::int16_t Index) {
    // The picks only trigger the answer: neither key goes into it.
    ++cardCount;
    cmdKey[static_cast<std::size_t>(Index)]->setEnabled(false);
    DrawHandTwoCard(Index);
    if (cardCount > 1) {
        cardCount = 0;
        ReadBoard();
        cmdClear->setEnabled(true);
        setAllKeysEnabled(false);
    }
}
