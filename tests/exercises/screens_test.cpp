// The four exercise screens through the window: what a user picks, is dealt, clicks and sees.
#include <QFile>
#include <QTest>
#include <map>
#include <numeric>
#include <set>

#include "exercises/steering.h"
#include "pairs/pairs.h"
#include "platform/cardface.h"
#include "support/window_fixture.h"

void PrintTo(const QString& text, std::ostream* out) {
    *out << '"' << text.toStdString() << '"';
}

namespace {

// Keys of cards written as value and suit ("Th 2c"); key rows: clubs, diamonds, spades, hearts.
std::vector<int> keys(std::string_view cards) {
    std::vector<int> result;
    for (std::size_t at = 0; at + 1 < cards.size(); at += 3)
        result.push_back(int(std::string_view("cdsh").find(cards[at + 1]) * 13 +
                             std::string_view("23456789TJQKA").find(cards[at])));
    return result;
}

// A left click as a user gives it: only on a control that is shown and enabled.
bool userClick(QWidget* widget) {
    if (!widget->isVisible() || !widget->isEnabled())
        return false;
    QTest::mouseClick(widget, Qt::LeftButton, Qt::NoModifier, widget->rect().center());
    return true;
}

void press(frmMain& form, std::string_view cards) {
    for (const int k : keys(cards))
        ASSERT_TRUE(userClick(form.cmdKey[std::size_t(k)])) << "key " << k;
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
        for (int i = 0; i < 9; ++i)
            if (form->lblName[std::size_t(i)]->BorderStyle() == 1)
                rows.push_back(i);
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
    void clickOpenKey() { form->cmdKey[std::size_t(enabledKeys().at(0))]->click(); }
    void clickName(int i) { QTest::mouseClick(form->lblName[std::size_t(i)], Qt::LeftButton); }
    // Scripts the next shuffle of a fresh deck to deal these cards first, whether it scales a
    // value by 51 or by 52. A card at place 51 reaches the top only with the last exchange.
    void script(std::string_view cards) {
        cards::Deck deck{};
        std::iota(deck.begin(), deck.end(), std::int16_t{0});
        const auto wanted = keys(cards);
        int lastPlace = 50;
        for (int i = 0; i < 52; ++i) {
            int r = std::min(i, 50);
            if (i < int(wanted.size())) {
                const auto at = std::find(deck.begin(), deck.end(), wanted[std::size_t(i)]);
                r = at - deck.begin() <= 50 ? int(at - deck.begin()) : (lastPlace = i);
            } else if (i == 51) {
                r = lastPlace;
            }
            std::swap(deck[std::size_t(i)], deck[std::size_t(r)]);
            random->script.push_back(float((r / 51.0 + (r + 1) / 52.0) / 2.0));
        }
    }
};

TEST_F(Exercises, FivePickedCardsAreFannedAndNamedAndClearStartsAFreshPick) {
    open("Poker Hand Names");
    ASSERT_TRUE(userClick(form->cmdStart1A));
    EXPECT_EQ(message(), "Pick 5 cards from the keyboard..");
    EXPECT_EQ(enabledKeys().size(), 52u);
    press(*form, "As Ks Qs Js Ts");
    EXPECT_EQ(form->xincr, 94) << "each card a fifth of 71 pixels right of the last, rounded";
    EXPECT_EQ(markedName(), 0);
    EXPECT_EQ(form->lblName[0]->caption(), "Straight Flush");
    EXPECT_EQ(form->picShow->drawnItems().join(", "),
              "Ace of Spades, King of Spades, Queen of Spades, Jack of Spades, Ten of Spades");
    EXPECT_TRUE(enabledKeys().empty());

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
    ASSERT_TRUE(userClick(form->cmdStart1B));
    EXPECT_EQ(message(), "Click a poker hand name from the list..");
    EXPECT_TRUE(enabledKeys().empty());
    QStringList dealt;
    for (const auto& card : form->hand1)
        dealt << platform::cardName(card.drawId);
    EXPECT_EQ(form->picShow->drawnItems(), dealt);
    const auto right = std::int16_t(cards::CategoryPlace(form->hand1Result));
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
    EXPECT_EQ(recorded.sounds.back(), appFolder() + "/wavs/yes.wav");
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
    form->cmdStart1A_Click();  // a pick clears the surface and leaves the question unanswerable
    EXPECT_TRUE(form->picShow->drawnItems().isEmpty());
    form->lblName_Click(right);
    EXPECT_EQ(recorded.sounds.size(), 4u);
}

// Start draws a row r from 1 to 6; in rows 1 to 3 it deals until the first hand's category is
// in the row's range, rows 4 to 6 take the first deal. A second hand shares no card.
TEST_F(Exercises, SteeredDealsOfBothScreensStayInTheirRows) {
    open("Poker Hand Rankings");
    const std::pair<void (frmMain::*)(), std::array<std::pair<int, int>, 3>> screens[] = {
        {&frmMain::cmdStart1B_Click, {{{2, 7}, {4, 8}, {6, 9}}}},
        {&frmMain::cmdStart2B_Click, {{{4, 7}, {4, 8}, {7, 9}}}},
    };
    for (const auto& [start, accepted] : screens) {
        const bool twoHands = start == &frmMain::cmdStart2B_Click;
        for (int row = 1; row <= 6; ++row) {
            SCOPED_TRACE((twoHands ? "rankings, row " : "names, row ") + std::to_string(row));
            for (int deal = 0; deal < 60; ++deal) {
                random->script.push_back((float(row) - 0.5f) / 6.0f);
                const int reseedsBefore = random->reseeds;
                (form.get()->*start)();
                if (row <= 3) {
                    const auto [low, high] = accepted[std::size_t(row - 1)];
                    ASSERT_TRUE(form->hand1Result >= low && form->hand1Result <= high)
                        << "dealt " << form->hand1Result;
                } else {
                    ASSERT_EQ(random->reseeds - reseedsBefore, 2) << "dealt more than once";
                }
                ASSERT_EQ(form->picShow->drawnItems().size(), 5) << "a rejected hand stayed";
                std::set<std::int16_t> ids;
                for (std::size_t i = 0; i < 5 && twoHands; ++i)
                    ids.insert({form->hand1[i].drawId, form->hand2[i].drawId});
                ASSERT_EQ(ids.size(), twoHands ? 10u : 0u) << "the hands share a card";
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
        press(*form, std::string_view(cards).substr(0, 17));
        EXPECT_EQ(form->xincr, 38) << "the second hand starts at the first card's place";
        press(*form, std::string_view(cards).substr(18));
        EXPECT_EQ(message(), verdict);
        EXPECT_TRUE(form->messageBlinking);
        EXPECT_TRUE(enabledKeys().empty());
        EXPECT_EQ(form->picLabels->drawnItems().size(), 5);
        EXPECT_EQ(clickBothSurfaces(), "before") << "a surface answered in exercise 1";
    }
    random->script.push_back(0.6f);  // row 4: the first deal stands
    script("9c 9d 9h 4s 4c 2h 7h Jh Qh Kh");
    ASSERT_TRUE(userClick(form->cmdStart2B));
    EXPECT_EQ(message(), "Click the window with the best hand..");
    EXPECT_FALSE(form->messageBlinking);
    EXPECT_EQ(clickBothSurfaces(), "Hand (1) wins with a full house ");
    EXPECT_TRUE(form->messageBlinking);
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
    const Row rows[] = {
        // the rank edges of both
        {"Ah 2c", "A2", 100, 2, 2}, {"Kh 2c", "K2", 90, 2, 2}, {"Qh 2c", "Q2", 89, 3, 3},
        {"Jh 2c", "J2", 80, 3, 3},  {"Th 2c", "T2", 79, 3, 4}, {"9h 2c", "92", 70, 3, 4},
        {"8h 2c", "82", 69, 4, 5},  {"7h 2c", "72", 60, 4, 5}, {"6h 2c", "62", 59, 5, 6},
        {"5h 2c", "52", 50, 5, 6},  {"4h 2c", "42", 49, 6, 6}};
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
        press(*form, r.cards);
        EXPECT_EQ(markedName(), r.shown);
        EXPECT_EQ(message(), rankText);
        EXPECT_TRUE(enabledKeys().empty());
        for (int label = 2; label <= 6; ++label)
            clickName(label);
        EXPECT_EQ(markedName(), r.shown) << "the labels do not answer in exercise 1";
        EXPECT_TRUE(recorded.sounds.empty());

        script(r.cards);
        form->cmdStart3B->click();
        ASSERT_EQ(form->hand2Result, r.rank) << "not dealt as scripted";
        for (int n = 1; n < 5; ++n)  // every other label first, each a wrong answer
            clickName(2 + (r.accepted - 2 + n) % 5);
        EXPECT_EQ(markedName(), -1) << "a wrong label changes nothing";
        EXPECT_EQ(message(), "Click a pair value label from the list..");
        for (int label = r.accepted; label <= 8; ++label)
            clickName(label);  // answered: silent from now on
        QStringList sounds;
        for (const QString& sound : recorded.sounds)
            sounds << sound.section('/', -1);
        EXPECT_EQ(sounds.join(' '), "no.wav no.wav no.wav no.wav yes.wav");
        EXPECT_EQ(markedName(), r.accepted);
        EXPECT_EQ(message(), rankText);
        recorded.sounds.clear();
    }
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
    form->lblName_MouseMove(4);
    EXPECT_EQ(form->lblName[4]->BorderStyle(), 1) << "the open question shows the hover border";
    form->cmdClear->click();
    EXPECT_EQ(form->picShow->drawnItems().size(), 2);
    EXPECT_EQ(message(), "Click a pair value label from the list..");

    clickTopic("Poker Basics");
    clickTopic("Starting Pair Awareness");
    EXPECT_TRUE(form->modePairRandom && form->answerPending);
}

// The answer reads the board as dealt; the picks, the first open keys, only trigger it.
TEST_F(Exercises, BestHandDealsThenTakesTwoPicksThenGivesTheBoardsAnswer) {
    open("Best Hand Recognition");
    form->cmdStart4->click();
    EXPECT_EQ(enabledKeys().size(), 47u);
    EXPECT_EQ(message(), "Select the best pocket pair (full house or less)");
    EXPECT_FALSE(form->cmdClear->isEnabledTo(form->picQuiz)) << "Clear comes with the answer";
    EXPECT_TRUE(form->messageBlinking) << "the deal leaves the blinking alone";
    clickOpenKey();
    EXPECT_EQ(form->picLabels->drawnItems().size(), 1);
    const std::array<std::pair<const char*, const char*>, 5> boards{{
        {"3c 9c 9d Kc Kh", "Any K makes a full house"},
        {"2h 2s 5h 9h Td", "Best full house is a (1010)"},
        {"Qh 2c Ah 7d Kh", "Best hand is a Hearts Flush (J10)"},
        {"2c 5c 6d 7d Ks", "Best Hand is a Straight (56789)"},
        {"2c 5d 8s Jh Kc", "Best Hand is 3 of a Kind (KKK)"},
    }};
    for (const auto& [cards, answer] : boards) {
        SCOPED_TRACE(cards);
        script(cards);
        form->cmdStart4->click();  // a new deal drops the pick
        EXPECT_TRUE(form->picLabels->drawnItems().empty());
        clickOpenKey();
        EXPECT_EQ(enabledKeys().size(), 46u);
        EXPECT_EQ(message(), "Select the best pocket pair (full house or less)");
        clickOpenKey();
        EXPECT_EQ(message(), answer);
        EXPECT_TRUE(enabledKeys().empty());
        EXPECT_EQ(form->picLabels->drawnItems().size(), 2);
        EXPECT_TRUE(form->cmdClear->isEnabledTo(form->picQuiz));
    }
    form->cmdClear->click();  // Clear deals again
    EXPECT_FALSE(form->messageBlinking);
    EXPECT_EQ(enabledKeys().size(), 47u);
    EXPECT_TRUE(form->picLabels->drawnItems().empty());
    EXPECT_EQ(form->picShow->drawnItems().size(), 5);
    for (int deal = 0; deal < 300 && !HasFailure(); ++deal) {  // three of a value are dealt again
        form->cmdStart4->click();
        std::map<QString, int> perValue;
        for (const QString& card : form->picShow->drawnItems())
            EXPECT_LT(++perValue[card.section(' ', 0, 0)], 3) << "deal " << deal;
    }
}

}  // namespace

namespace {

// Row 1 of the names table wants three of a kind or better; a failed deal answers 0.
TEST(Steering, DealsUntilTheRowIsMetAndGivesUpOnAFailedDeal) {
    for (const auto& [answers, calls] : {std::pair{std::vector<std::int16_t>{9, 8, 5}, 3},
                                         std::pair{std::vector<std::int16_t>{9, 0, 5}, 2}}) {
        std::size_t dealt = 0;
        steering::dealSteered(steering::kHandNames, 1, [&] { return answers[dealt++]; });
        EXPECT_EQ(dealt, static_cast<std::size_t>(calls));
    }
}

}  // namespace
