// The four exercise screens through the window: what a user picks, is dealt, clicks and sees.
#include <QFile>
#include <QTest>
#include <numeric>
#include <random>
#include <set>
#include <span>

#include "board/board.h"
#include "pairs/pairs.h"
#include "platform/cardface.h"
#include "support/window_fixture.h"

void PrintTo(const QString& text, std::ostream* out) {
    *out << '"' << text.toStdString() << '"';
}

namespace {

// The key of a card written as value and suit ("Th"); the rows from the top hold clubs,
// diamonds, spades and hearts.
int key(std::string_view card) {
    return static_cast<int>(std::string_view("cdsh").find(card[1]) * 13 +
                            std::string_view("23456789TJQKA").find(card[0]));
}

std::vector<int> keys(std::string_view cards) {
    std::vector<int> result;
    for (std::size_t at = 0; at + 1 < cards.size(); at += 3)
        result.push_back(key(cards.substr(at, 2)));
    return result;
}

// A left click as a user gives it: only on a control that is shown and enabled.
bool userClick(QWidget* widget) {
    if (!widget->isVisible() || !widget->isEnabled())
        return false;
    QTest::mouseClick(widget, Qt::LeftButton, Qt::NoModifier, widget->rect().center());
    return true;
}

// Presses the keys of these cards, in order; each must be open.
void press(frmMain& form, std::string_view cards) {
    for (const int k : keys(cards))
        ASSERT_TRUE(userClick(form.cmdKey[static_cast<std::size_t>(k)])) << "key " << k;
}

// The 52 values that make one pass of exchanges over `deck` leave `wanted` on its first
// places, whether the shuffle scales a value by 51 or by 52; `deck` becomes the result. A key
// at place 51 reaches the top only with the last exchange.
std::vector<float> scriptPlacing(cards::Deck& deck, std::span<const int> wanted) {
    std::vector<float> values;
    int lastPlace = 50;
    for (int i = 0; i < 52; ++i) {
        int r = std::min(i, 50);
        if (i < static_cast<int>(wanted.size())) {
            const auto at =
                std::find(deck.begin(), deck.end(), wanted[std::size_t(i)]) - deck.begin();
            r = at <= 50 ? static_cast<int>(at) : (lastPlace = i);
        } else if (i == 51) {
            r = lastPlace;
        }
        std::swap(deck[std::size_t(i)], deck[std::size_t(r)]);
        values.push_back(static_cast<float>((r / 51.0 + (r + 1) / 52.0) / 2.0));
    }
    return values;
}

// The values that deal `wanted` first from a fresh deck.
cards::Deck freshDeck() {
    cards::Deck deck{};
    std::iota(deck.begin(), deck.end(), std::int16_t{0});
    return deck;
}
std::vector<float> scriptDeal(std::span<const int> wanted) {
    cards::Deck deck = freshDeck();
    return scriptPlacing(deck, wanted);
}

// The keys of the cards drawn on a surface, in the order drawn (-1 for an unknown name).
std::vector<int> keysOnSurface(const frmMain& form, const platform::PictureBox& surface) {
    std::vector<int> result;
    for (const QString& name : surface.drawnItems()) {
        int found = -1;
        for (int k = 0; k < 52; ++k) {
            if (platform::cardName(cards::DrawIdOfKey(std::int16_t(k), form.keyMap)) == name)
                found = k;
        }
        result.push_back(found);
    }
    return result;
}

// The board reader's answer for five board keys, worked out from the board alone.
QString answerForBoard(std::span<const int> board) {
    std::array<bool, 52> enabled{};
    std::array<std::string, 52> captions;
    for (std::size_t k = 0; k < 52; ++k) {
        enabled[k] = std::find(board.begin(), board.end(), int(k)) == board.end();
        captions[k] = k % 13 == 8 ? "10" : std::string(1, "23456789TJQKA"[k % 13]);
    }
    std::array<std::string, 5> boardCaptions;
    for (std::size_t i = 0; i < 5 && i < board.size(); ++i)
        boardCaptions[i] = captions[std::size_t(board[i])];
    return QString::fromStdString(
        board::ReadBoard(boardCaptions, board::BoardFlushPossible(enabled, captions)));
}

class Exercises : public test_support::WindowTest {
  protected:
    void open(const char* topic) {
        startWindow();
        form->Timer1->stop();
        clickTopic(topic);
    }
    QString message() const { return form->lblMessage->caption(); }
    std::vector<int> borderedRows() const {
        std::vector<int> rows;
        for (int i = 0; i < 9; ++i) {
            if (form->lblName[std::size_t(i)]->BorderStyle() == 1)
                rows.push_back(i);
        }
        return rows;
    }
    // Clicks both surfaces; gives the message if both leave the same one.
    QString clickBothSurfaces() {
        QString seen[2];
        for (QWidget* surface : {form->picShow, form->picLabels}) {
            form->lblMessage->setCaption("before");
            userClick(surface);
            seen[surface == form->picLabels] = message();
        }
        return seen[0] == seen[1] ? seen[0] : "surfaces differ: " + seen[0] + " / " + seen[1];
    }
    void clickOpenKey(std::size_t n = 0) {
        form->cmdKey[std::size_t(enabledKeys().at(n))]->click();
    }
    void clickName(int i) { QTest::mouseClick(form->lblName[std::size_t(i)], Qt::LeftButton); }
    // Exercise 2: deals exactly these cards; they must lie last on the surface.
    void deal(std::string_view cards) {
        const auto wanted = keys(cards);
        for (const float u : scriptDeal(wanted))
            random->script.push_back(u);
        form->cmdStart3B->click();
        const auto shown = keysOnSurface(*form, *form->picShow);
        ASSERT_GE(shown.size(), 2u);
        ASSERT_EQ(std::vector<int>(shown.end() - 2, shown.end()), wanted);
    }
};

TEST_F(Exercises, FivePickedCardsAreFannedAndNamedAndClearStartsAFreshPick) {
    open("Poker Hand Names");
    ASSERT_TRUE(userClick(form->cmdStart1A));
    EXPECT_EQ(message(), "Pick 5 cards from the keyboard..");
    EXPECT_EQ(enabledKeys().size(), 52u);
    for (int i = 0; i < 5; ++i) {  // each card a fifth of a card (71 pixels) right of the last
        press(*form, std::string_view("As Ks Qs Js Ts").substr(std::size_t(i) * 3, 2));
        EXPECT_EQ(form->xincr, 38 + 14 * i);
    }
    EXPECT_EQ(markedName(), 0);
    EXPECT_EQ(form->lblName[0]->caption(), "Straight Flush");
    EXPECT_EQ(form->picShow->drawnItems().join(", "),
              "Ace of Spades, King of Spades, Queen of Spades, Jack of Spades, Ten of Spades");
    EXPECT_TRUE(enabledKeys().empty());
    EXPECT_EQ(message(), "Pick 5 cards from the keyboard..");

    ASSERT_TRUE(userClick(form->cmdClear));
    press(*form, "2c 2d 2h");
    ASSERT_TRUE(userClick(form->cmdClear));
    EXPECT_TRUE(form->picShow->drawnItems().isEmpty());
    EXPECT_EQ(qAlpha(form->picShow->surfacePixel(60, 60)), 0) << "a card is left on the surface";
    EXPECT_EQ(enabledKeys().size(), 52u);
    EXPECT_EQ(message(), "Pick 5 cards..");
    press(*form, "9c 9d Kh Ks 4c");
    EXPECT_EQ(markedName(), 6) << "two pair: the cards before Clear play no part";
}

TEST_F(Exercises, BlinkingMessageShowsForFourTicksAndHidesForOne) {
    open("Poker Hand Names");
    form->lblMessage->setForeColor(0);
    form->messageBlinking = false;
    form->Timer1_Timer();
    EXPECT_EQ(form->lblMessage->ForeColor(), 0) << "a tick without blinking changed it";
    form->messageBlinking = true;
    std::string seen;
    for (int tick = 0; tick < 15; ++tick) {
        form->Timer1_Timer();
        seen += form->lblMessage->ForeColor() == 0 ? '-' : '#';
    }
    EXPECT_EQ(seen, "####-####-####-");
    form->cmdStart1A_Click();  // a Start stops the blinking with the message shown
    EXPECT_FALSE(form->messageBlinking);
    EXPECT_EQ(form->lblMessage->ForeColor(), 0xFFFFFF);
}

TEST_F(Exercises, DealtHandIsAnsweredOnceByItsNameAndTheBorderFollowsThePointer) {
    open("Poker Hand Names");
    form->cmdStart1A_Click();  // exercise 1: the list neither answers nor follows the pointer
    form->lblName_MouseMove(3);
    form->lblName_Click(3);
    EXPECT_TRUE(borderedRows().empty());
    EXPECT_TRUE(recorded.sounds.empty());

    ASSERT_TRUE(userClick(form->cmdStart1B));
    EXPECT_EQ(message(), "Click a poker hand name from the list..");
    EXPECT_TRUE(enabledKeys().empty());
    const QStringList shown = form->picShow->drawnItems();
    ASSERT_EQ(shown.size(), 5);
    for (std::size_t i = 0; i < 5; ++i)
        EXPECT_EQ(shown[int(i)], platform::cardName(form->hand1[i].drawId));
    const auto right = std::int16_t(cards::NameRowOfCategory(form->hand1Result));
    const std::int16_t wrong = right == 6 ? 5 : 6;
    ASSERT_GE(right, 0);
    form->lblName_MouseMove(wrong);
    EXPECT_EQ(borderedRows(), std::vector<int>{wrong});
    clickTopic("Intro");  // leaving and coming back keeps the question open
    clickTopic("Poker Hand Names");
    EXPECT_TRUE(form->picShow->drawnItems().isEmpty());
    for (int i = 0; i < 3; ++i)
        ASSERT_TRUE(userClick(form->lblName[std::size_t(wrong)]));
    ASSERT_EQ(recorded.sounds.size(), 3u);
    EXPECT_TRUE(recorded.sounds.back().endsWith("/wavs/no.wav"));
    EXPECT_EQ(markedName(), -1);

    form->lblName_MouseMove(right);
    ASSERT_TRUE(userClick(form->lblName[std::size_t(right)]));
    ASSERT_EQ(recorded.sounds.size(), 4u);
    EXPECT_TRUE(recorded.sounds.back().startsWith(appFolder()));
    EXPECT_TRUE(recorded.sounds.back().endsWith("/wavs/yes.wav"));
    EXPECT_EQ(markedName(), right);
    form->lblName_MouseMove(wrong);  // answered: the list is still and silent
    for (std::int16_t row = 0; row < 9; ++row)
        form->lblName_Click(row);
    EXPECT_EQ(recorded.sounds.size(), 4u);
    EXPECT_EQ(markedName(), right);
    EXPECT_EQ(borderedRows(), std::vector<int>{right});

    form->cmdStart1B_Click();
    EXPECT_EQ(markedName(), -1);
    EXPECT_TRUE(form->answerPending);
}

// Start draws a row r from 1 to 6; in rows 1 to 3 it deals until the first hand's category is
// in the row's range, rows 4 to 6 take the first deal. A second hand shares no card.
TEST_F(Exercises, SteeredDealsOfBothScreensStayInTheirRows) {
    open("Poker Hand Rankings");
    struct Screen {
        void (frmMain::*start)();
        std::array<std::pair<int, int>, 3> accepted;
    };
    const std::array<Screen, 2> screens{{
        {&frmMain::cmdStart1B_Click, {{{2, 7}, {4, 8}, {6, 9}}}},
        {&frmMain::cmdStart2B_Click, {{{4, 7}, {4, 8}, {7, 9}}}},
    }};
    for (const Screen& screen : screens) {
        const bool twoHands = screen.start == &frmMain::cmdStart2B_Click;
        for (int row = 1; row <= 6; ++row) {
            SCOPED_TRACE((twoHands ? "rankings, row " : "names, row ") + std::to_string(row));
            for (int deal = 0; deal < 60; ++deal) {
                random->script.push_back((static_cast<float>(row) - 0.5f) / 6.0f);
                const int reseedsBefore = random->reseeds;
                (form.get()->*screen.start)();
                if (row <= 3) {
                    const auto [low, high] = screen.accepted[std::size_t(row - 1)];
                    ASSERT_TRUE(form->hand1Result >= low && form->hand1Result <= high)
                        << "dealt " << form->hand1Result;
                } else {
                    ASSERT_EQ(random->reseeds - reseedsBefore, 2) << "dealt more than once";
                }
                ASSERT_EQ(form->picShow->drawnItems().size(), 5) << "a rejected hand stayed";
                if (!twoHands)
                    continue;
                std::set<std::int16_t> ids;
                for (std::size_t i = 0; i < 5; ++i)
                    ids.insert({form->hand1[i].drawId, form->hand2[i].drawId});
                ASSERT_EQ(ids.size(), 10u) << "the hands share a card";
            }
        }
    }
}

TEST_F(Exercises, RankingsGiveTheVerdictOfPickedHandsAndOfDealtOnesOnEitherSurface) {
    open("Poker Hand Rankings");
    const std::array<std::pair<const char*, const char*>, 4> cases{{
        {"As Ah Ac Ks Kh Qc Qd Qs Jc Jd", "Hand (1) wins with aces full of kings"},
        {"Ac 2d 3h 4s 5c 2c 3d 4h 5s 6c", "Hand (2) wins with a six high straight"},
        {"9c 9d 9h 4s 4c 2h 7h Jh Qh Kh", "Hand (1) wins with a full house "},
        {"6c 6d Th 8s 3c 6h 6s Tc 8d 3d", "There is a tie"},
    }};
    EXPECT_EQ(clickBothSurfaces(), "before") << "a surface answered before Start";
    for (const auto& [cards, verdict] : cases) {
        SCOPED_TRACE(verdict);
        ASSERT_TRUE(userClick(form->cmdStart2A));
        const std::string_view picks(cards);
        press(*form, picks.substr(0, 17));
        EXPECT_EQ(form->xincr, 38) << "the second hand starts at the first card's place";
        press(*form, picks.substr(18));
        EXPECT_EQ(message(), verdict);
        EXPECT_TRUE(form->messageBlinking);
        EXPECT_TRUE(enabledKeys().empty());
        EXPECT_EQ(form->picLabels->drawnItems().size(), 5);
        EXPECT_EQ(clickBothSurfaces(), "before") << "a surface answered in exercise 1";
    }
    for (int deal = 0; deal < 12; ++deal) {
        ASSERT_TRUE(userClick(form->cmdStart2B));
        ASSERT_EQ(message(), "Click the window with the best hand..");
        ASSERT_FALSE(form->messageBlinking);
        const QString verdict = clickBothSurfaces();
        EXPECT_TRUE(form->messageBlinking);
        EXPECT_EQ(clickBothSurfaces(), verdict) << "a second click";
        // The lower category wins; equal categories are settled card by card.
        const QString winner = form->hand1Result < form->hand2Result   ? "Hand (1) wins with a"
                               : form->hand1Result > form->hand2Result ? "Hand (2) wins with a"
                                                                       : "";
        EXPECT_TRUE(verdict.startsWith(winner) &&
                    (verdict.startsWith("Hand (") || verdict == "There is a tie"))
            << verdict.toStdString() << " for " << form->hand1Result << ":" << form->hand2Result;
    }
    EXPECT_TRUE(form->answerPending) << "a verdict closed the question";
    EXPECT_TRUE(recorded.sounds.empty());
}

// Every screen sets itself up whole, whatever the one before left: a Best Hand pick half made,
// other captions on the name list, names hidden.
TEST_F(Exercises, EachScreenSetsItselfUpWholeAfterAnyOther) {
    open("Best Hand Recognition");
    form->cmdStart4->click();
    clickOpenKey();
    struct Screen {
        const char *topic, *heading, *message, *names /* shown, 0..8 */, *third, *starts;
        bool frame2;
        std::int32_t listColour;
        const char* surfaces;  // what a screen reader calls the two surfaces
    };
    const Screen screens[] = {
        {"Starting Pair Awareness", "Pre-Flop Pair Value", "Click [Start] to begin..", "001111100",
         "Very Good", "3A 3B", true, 0xE0E0E0, "Two cards/Pair values"},
        {"Poker Hand Names", "Poker Hand Names", "Click [Start] to begin..", "111111111",
         "Full House", "1A 1B", true, 0xE0E0E0, "Hand/Hand names"},
        {"Poker Hand Rankings", "Poker Hand Rankings", "Click [Start] to begin...", "000000000", "",
         "2A 2B", true, 0x008000, "First hand/Second hand"},
        {"Starting Pair Awareness", "Pre-Flop Pair Value", "Click [Start] to begin..", "001111100",
         "Very Good", "3A 3B", true, 0xE0E0E0, "Two cards/Pair values"},
        {"Best Hand Recognition", "Best Hand Recognition", "Click [Start] to begin...", "000000000",
         "", "4", false, 0x008000, "Board/Your two cards"},
    };
    for (const Screen& s : screens) {
        SCOPED_TRACE(s.topic);
        clickTopic(s.topic);
        EXPECT_EQ(form->lblHeading1->caption(), s.heading);
        EXPECT_EQ(message(), s.message);
        std::string names;
        for (const auto* name : form->lblName)
            names += name->isHidden() ? '0' : '1';
        EXPECT_EQ(names, s.names);
        EXPECT_EQ(names[2] == '1' ? form->lblName[2]->caption() : "", s.third);
        QStringList starts;
        for (auto* button : {form->cmdStart1A, form->cmdStart1B, form->cmdStart2A, form->cmdStart2B,
                             form->cmdStart3A, form->cmdStart3B, form->cmdStart4})
            starts << (button->isHidden() ? "" : button->objectName().mid(8));
        EXPECT_EQ(starts.join(' ').simplified(), s.starts);
        EXPECT_EQ(form->Frame2->isEnabledTo(form->picQuiz), s.frame2);
        EXPECT_EQ(form->picLabels->BackColor(), s.listColour);
        EXPECT_EQ(form->picShow->accessibleName() + '/' + form->picLabels->accessibleName(),
                  s.surfaces);
        EXPECT_EQ(markedName(), -1);
        EXPECT_TRUE(enabledKeys().empty());
        EXPECT_FALSE(form->cmdClear->isEnabledTo(form->picQuiz));
        EXPECT_TRUE(form->picShow->drawnItems().isEmpty());
    }
    EXPECT_EQ(form->lblEx1->caption(),
              "Pick the best pocket pair to the board. (full house or less)");
    EXPECT_EQ(form->lblEx2->caption(), "");
    EXPECT_TRUE(form->modeBestHand) << "leaving changes no mode";
}

// Exercise 1 marks the first label whose lowest rank (90, 70, 60, 50) the pair reaches;
// exercise 2 accepts only the label of the rank's band (90+, 80s, 70s, 60s, below 60).
TEST_F(Exercises, PairValueLabelsFollowTheRankInBothExercises) {
    struct Row {
        const char *cards, *tableKey;
        int rank, shown, accepted;
    };
    // Rank edges of both tables; then one row suited, two rows offsuit, one column a pair.
    const Row rows[] = {
        {"Ah 2c", "A2", 100, 2, 2}, {"Kh 2c", "K2", 90, 2, 2}, {"Qh 2c", "Q2", 89, 3, 3},
        {"Jh 2c", "J2", 80, 3, 3},  {"Th 2c", "T2", 79, 3, 4}, {"9h 2c", "92", 70, 3, 4},
        {"8h 2c", "82", 69, 4, 5},  {"7h 2c", "72", 60, 4, 5}, {"6h 2c", "62", 59, 5, 6},
        {"5h 2c", "52", 50, 5, 6},  {"4h 2c", "42", 49, 6, 6}, {"As Ks", "AKs", 95, 2, 2},
        {"Kd Ac", "AK", 85, 3, 3},  {"Kc Kh", "KK", 99, 2, 2}, {"9d Td", "T9s", 62, 4, 5}};
    std::vector<std::string> table(169, "x");  // each key at the first position of its rank
    for (const Row& r : rows) {
        int position = 1;
        while (position < 169 && pairs::RankOfPosition(position) != r.rank)
            ++position;
        ASSERT_EQ(pairs::RankOfPosition(position), r.rank);
        table[std::size_t(position - 1)] = r.tableKey;
    }
    QFile file(appFile("169.txt"));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
    for (const auto& entry : table)
        file.write((entry + ",\n").c_str());
    file.close();
    open("Starting Pair Awareness");
    for (const Row& r : rows) {
        SCOPED_TRACE(r.tableKey);
        const QString rankText = QStringLiteral("Preflop rank is %1%").arg(r.rank);
        form->cmdStart3A->click();
        EXPECT_EQ(message(), "Pick 2 cards from the keyboard..");
        press(*form, r.cards);
        EXPECT_EQ(markedName(), r.shown);
        EXPECT_EQ(message(), rankText);
        EXPECT_TRUE(enabledKeys().empty());
        form->lblName_MouseMove(3);
        for (int label = 2; label <= 6; ++label)
            clickName(label);
        EXPECT_EQ(markedName(), r.shown) << "the labels do not answer in exercise 1";
        EXPECT_EQ(form->lblName[3]->BorderStyle(), 0);
        EXPECT_TRUE(recorded.sounds.empty());

        deal(r.cards);
        EXPECT_EQ(markedName(), -1);
        for (int label = 2; label <= 6; ++label) {
            if (label == r.accepted)
                continue;
            clickName(label);
            ASSERT_EQ(recorded.sounds.size(), 1u);
            EXPECT_TRUE(recorded.sounds.back().endsWith("no.wav")) << "label " << label;
            recorded.sounds.clear();
            EXPECT_EQ(markedName(), -1) << "a wrong label changes nothing";
            EXPECT_EQ(message(), "Click a pair value label from the list..");
        }
        clickName(r.accepted);
        for (int label = 0; label <= 8; ++label)
            clickName(label);  // answered: silent from now on
        ASSERT_EQ(recorded.sounds.size(), 1u);
        EXPECT_TRUE(recorded.sounds.back().endsWith("yes.wav"));
        EXPECT_EQ(markedName(), r.accepted);
        EXPECT_EQ(message(), rankText);
        recorded.sounds.clear();
    }
}

TEST_F(Exercises, MissingRankFileSaysSoOnceBeforeTheWindowAndRanksEveryPairZero) {
    ASSERT_TRUE(QFile::remove(appFile("169.txt")));
    std::vector<bool> windowShown;
    platform::seams().messageBox = [&](const QString& text) {
        recorded.messages.push_back(text);
        windowShown.push_back(form && form->isVisible());
    };
    open("Starting Pair Awareness");
    ASSERT_EQ(recorded.messages.size(), 1u);
    EXPECT_TRUE(recorded.messages[0].startsWith("error in load169 -"));
    EXPECT_GT(recorded.messages[0].size(), 18) << "the platform's description follows";
    EXPECT_FALSE(windowShown[0]);
    EXPECT_EQ(form->pairTable.Count(), 0u);
    form->cmdStart3A->click();
    press(*form, "As Ah");
    EXPECT_EQ(markedName(), 6);
    EXPECT_EQ(message(), "Preflop rank is 0%");
    EXPECT_EQ(recorded.messages.size(), 1u) << "the message shows at start-up only";
}

TEST_F(Exercises, DealtPairsPileUpUntilClearAndAnOpenQuestionSurvivesLeaving) {
    open("Starting Pair Awareness");
    form->cmdStart3A->click();
    press(*form, "7c");
    form->cmdClear->click();
    EXPECT_TRUE(form->picShow->drawnItems().isEmpty());
    EXPECT_EQ(enabledKeys().size(), 52u);
    EXPECT_EQ(message(), "Pick 2 cards from the keyboard..");

    form->cmdStart3B->click();
    form->cmdStart3B->click();
    EXPECT_EQ(form->picShow->drawnItems().size(), 4) << "a new pair is drawn over the old one";
    EXPECT_TRUE(enabledKeys().empty());
    form->cmdKey_Click(std::int16_t(key("5c")));
    EXPECT_EQ(form->picShow->drawnItems().size(), 4) << "a key press in exercise 2";
    form->lblName_MouseMove(4);
    EXPECT_EQ(form->lblName[4]->BorderStyle(), 1) << "the open question shows the hover border";
    form->cmdClear->click();
    EXPECT_EQ(form->picShow->drawnItems().size(), 2);
    EXPECT_EQ(message(), "Click a pair value label from the list..");

    const std::int16_t rank = form->hand2Result;
    clickTopic("Poker Basics");
    clickTopic("Starting Pair Awareness");
    EXPECT_TRUE(form->modePairRandom && form->answerPending);
    for (int label = 2; label <= 6 && form->answerPending; ++label)
        clickName(label);
    EXPECT_FALSE(form->answerPending);
    EXPECT_EQ(message(), QStringLiteral("Preflop rank is %1%").arg(rank));
}

TEST_F(Exercises, BestHandDealsThenTakesTwoPicksThenAnswers) {
    open("Best Hand Recognition");
    form->cmdStart4->click();
    EXPECT_EQ(enabledKeys().size(), 47u);
    EXPECT_EQ(message(), "Select the best pocket pair (full house or less)");
    EXPECT_FALSE(form->cmdClear->isEnabledTo(form->picQuiz)) << "Clear comes with the answer";
    EXPECT_TRUE(form->messageBlinking) << "the deal leaves the blinking alone";
    clickOpenKey();
    EXPECT_EQ(form->picLabels->drawnItems().size(), 1);
    form->cmdStart4->click();  // a new deal drops the pick
    EXPECT_TRUE(form->picLabels->drawnItems().empty());
    clickOpenKey();
    EXPECT_EQ(enabledKeys().size(), 46u);
    EXPECT_EQ(message(), "Select the best pocket pair (full house or less)");
    clickOpenKey();
    EXPECT_TRUE(enabledKeys().empty());
    EXPECT_EQ(form->picLabels->drawnItems().size(), 2);
    EXPECT_TRUE(form->cmdClear->isEnabledTo(form->picQuiz));
    EXPECT_EQ(message(), answerForBoard(keysOnSurface(*form, *form->picShow)));
    form->cmdClear->click();  // Clear deals again
    EXPECT_FALSE(form->messageBlinking);
    EXPECT_EQ(enabledKeys().size(), 47u);
    EXPECT_TRUE(form->picLabels->drawnItems().empty());
    EXPECT_EQ(form->picShow->drawnItems().size(), 5);
}

TEST_F(Exercises, ChosenBoardsGiveTheReadersAnswer) {
    open("Best Hand Recognition");
    const std::array<std::pair<const char*, const char*>, 8> boards{{
        {"3c 9c 9d Kc Kh", "Any K makes a full house"},
        {"2h 2s 5h 9h Td", "Best full house is a (1010)"},
        {"3c 7c 9d Kc As", "Best hand is a Club Flush (AQ)"},
        {"2s 3s 4s 5s 6s", "Best hand is a Spade Flush (AK)"},
        {"Qh 2c Ah 7d Kh", "Best hand is a Hearts Flush (J10)"},
        {"Ad Kd Qd Jd 4c", "Best hand is a Diamond Flush (10)"},
        {"2c 5c 6d 7d Ks", "Best Hand is a Straight (56789)"},
        {"2c 5d 8s Jh Kc", "Best Hand is 3 of a Kind (KKK)"},
    }};
    for (const auto& [cards, answer] : boards) {
        SCOPED_TRACE(cards);
        const auto board = keys(cards);
        for (const float u : scriptDeal(board))
            random->script.push_back(u);
        form->cmdStart4->click();
        ASSERT_EQ(keysOnSurface(*form, *form->picShow), board);
        clickOpenKey(0);
        clickOpenKey(0);
        EXPECT_EQ(message(), answer);
    }
}

TEST_F(Exercises, BoardWithThreeOfAValueIsShuffledAgainAsItLies) {
    open("Best Hand Recognition");
    const auto threeKings = keys("Kc Kd Ks 2c 3h");
    cards::Deck deck = freshDeck();
    for (const float u : scriptPlacing(deck, threeKings))
        random->script.push_back(u);
    // The second pass brings only the card of place 10 to the top: the deck is not refilled.
    const int fromPlaceTen = deck[10];
    ASSERT_NE(fromPlaceTen % 13, 11);
    for (const float u : scriptPlacing(deck, std::array<int, 1>{fromPlaceTen}))
        random->script.push_back(u);
    const int reseeds = random->reseeds;
    form->cmdStart4->click();
    EXPECT_EQ(random->reseeds - reseeds, 2) << "one reseed for each pass";
    EXPECT_EQ(keysOnSurface(*form, *form->picShow),
              (std::vector<int>{fromPlaceTen, threeKings[1], threeKings[2], threeKings[3],
                                threeKings[4]}));
    EXPECT_EQ(enabledKeys().size(), 47u);
}

TEST_F(Exercises, RandomBoardsKeepTheDealRuleAndAnswerFromTheBoardAlone) {
    open("Best Hand Recognition");
    std::mt19937 picks(20240611);
    for (int deal = 0; deal < 300 && !HasFailure(); ++deal) {
        SCOPED_TRACE(deal);
        form->cmdStart4->click();
        const auto board = keysOnSurface(*form, *form->picShow);
        ASSERT_EQ(board.size(), 5u);
        std::array<int, 13> perValue{};
        for (const int k : board) {
            ASSERT_GE(k, 0);
            EXPECT_LT(++perValue[std::size_t(k % 13)], 3) << "three of one value";
        }
        ASSERT_EQ(enabledKeys().size(), 47u);
        clickOpenKey(picks() % 47);
        clickOpenKey(picks() % 46);
        EXPECT_EQ(message(), answerForBoard(board));
    }
}

}  // namespace
