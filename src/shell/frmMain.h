// The main window: owner of all the system's state. Its routines are implemented in the
// folder of their subsystem (shell, exercises, sample, promotion).
#pragma once

#include <QTimer>
#include <QWidget>
#include <array>
#include <cstdint>
#include <string>

#include "cards/cards.h"
#include "cards/compare.h"
#include "lessonpane/webbrowser.h"
#include "pairs/mParse.h"
#include "platform/controls.h"
#include "platform/treeview.h"

class frmPacific;

namespace mDefs {
// True selects the room's promotion window and link; no code sets it, so it stays False.
extern bool showRoomOffer;
}  // namespace mDefs

class frmMain : public QWidget {
    Q_OBJECT
  public:
    explicit frmMain(QWidget* parent = nullptr);
    ~frmMain() override;

    // ---- start-up and the ways out ----
    void Form_Load();
    void Form_Activate();
    void Form_Resize();
    void Form_QueryUnload();
    // Unloads the window: it closes for good without asking anything again.
    void Unload();

    // ---- topic tree and content pane ----
    void BoldTopTopics();
    void TreeView1_NodeClick(int nodeIndex);
    void WebBrowser1_BeforeNavigate2(const QString& url);

    // ---- card keyboard, display, name list, message line ----
    void initKeys();
    void cmdKey_Click(std::int16_t Index);
    void cmdClear_Click();
    void DrawHandOneCard(std::int16_t key);
    void DrawHandTwoCard(std::int16_t key);
    void HighlightHandName(std::int16_t Index);
    void lblName_MouseMove(std::int16_t Index);
    void lblName_Click(std::int16_t Index);
    void Timer1_Timer();

    // ---- the four exercises ----
    void ShowHandNamesScreen();
    void cmdStart1A_Click();
    void cmdStart1B_Click();
    std::int16_t DealRandomHand();
    void ShowRankingsScreen();
    void cmdStart2A_Click();
    void cmdStart2B_Click();
    std::int16_t DealSecondHand();
    void picShow_Click();
    void picLabels_Click();
    void ShowPairValueScreen();
    void cmdStart3A_Click();
    void cmdStart3B_Click();
    std::int16_t DealRandomPair();
    void ShowBestHandScreen();
    void cmdStart4_Click();
    void DealBoard();
    void BoardFlushPossible();
    void ReadBoard();
    void ReportCategoryWinner();
    void CompareHands();
    std::int16_t EvaluatePokerHand(cards::Hand& hand);
    std::int16_t PairValueKey(const cards::Hand& hand);
    void load169();

    // ---- the sample game ----
    void ShowSampleGame();
    void ShowSampleDeal();
    void ShowSampleFlop();
    void ShowSampleTurn();
    void ShowSampleRiver();
    void ShowSampleShowdown();
    void shortDelay(std::int32_t delayTime);
    void cmdNext_Click();

    // ---- leaving the school ----
    void lblEnough_Click();

    // ---- the state record ----
    std::int32_t cWidth = 0;
    std::int32_t cHeight = 0;
    std::int32_t xincr = 0;
    cards::KeyMap keyMap{};
    cards::Hand hand1{};
    cards::Hand hand2{};
    cards::Deck deck{};
    std::int16_t hand1Result = 0;
    std::int16_t hand2Result = 0;
    std::int16_t cardCount = 0;
    pairs::KeyedList pairTable;
    std::string flushAnswer;
    bool modeNamesPick = false;
    bool modeNamesRandom = false;
    bool modeRanksPick = false;
    bool modeRanksRandom = false;
    bool modePairPick = false;
    bool modePairRandom = false;
    bool modeBestHand = false;
    bool answerPending = false;
    bool messageBlinking = false;
    std::int16_t sampleStep = 0;
    bool promoteOnClose = false;
    // Kept by single routines from one call to the next.
    std::int16_t lastHoverName = 0;   // lblName_MouseMove
    std::int16_t blinkTicks = 0;      // Timer1_Timer
    std::int16_t dealerHomeLeft = 0;  // ShowSampleGame
    std::int16_t dealerHomeTop = 0;

    // ---- the controls, in the order of the window's stacking (top first) ----
    platform::PictureBox* picDemo;
    platform::PictureBox* picQuiz;
    platform::WebBrowser* WebBrowser1;
    platform::TreeView* TreeView1;
    QTimer* Timer1;

    // the exercise panel
    platform::Frame* Frame2;
    platform::Frame* Frame1;
    platform::PictureBox* picSuits;
    platform::PictureBox* picKeys;
    platform::CommandButton* cmdClear;
    platform::PictureBox* picLabels;
    platform::PictureBox* picShow;
    platform::Label* lblMessage;
    platform::Label* lblHeading1;
    platform::CommandButton* cmdStart1A;
    platform::CommandButton* cmdStart2A;
    platform::CommandButton* cmdStart3A;
    platform::CommandButton* cmdStart4;
    platform::CommandButton* cmdStart1B;
    platform::CommandButton* cmdStart2B;
    platform::CommandButton* cmdStart3B;
    platform::Label* lblEx1;
    platform::Label* lblEx2;
    platform::CommandButton* zCommand1;
    platform::CommandButton* zCommand2;
    platform::CommandButton* zCommand3;
    platform::CommandButton* zcommandbutton5;
    std::array<platform::CommandButton*, 52> cmdKey{};
    std::array<platform::Label*, 9> lblName{};

    // the sample game's stage
    platform::CommandButton* cmdNext;
    platform::PictureBox* picShowDown2;
    platform::PictureBox* picShowDown1;
    std::array<platform::PictureBox*, 5> picFlop{};
    platform::PictureBox* picDealer;
    std::array<platform::PictureBox*, 8> picPocket{};
    platform::PictureBox* Picture1;
    platform::TextBox* txtComments;
    platform::Label* lblEnough;
    std::array<platform::Label*, 9> lblArray{};

    // The promotion window, made at its first use.
    frmPacific* promotionWindow() const { return promotion_; }

  protected:
    void showEvent(QShowEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

  private:
    // Building the controls at their design places (frmMain_controls.cpp).
    void createControls();
    void createExercisePanel();
    void createKeyboard();
    void createNameList();
    void createStage();
    void connectHandlers();

    // Branches of the click handlers, one per exercise.
    void keyPressNamesPick(std::int16_t Index);
    void keyPressRanksPick(std::int16_t Index);
    void keyPressPairPick(std::int16_t Index);
    void keyPressBestHand(std::int16_t Index);
    void nameClickNamesRandom(std::int16_t Index);
    void nameClickPairRandom(std::int16_t Index);

    // Small helpers shared by the exercise routines.
    void setAllKeysEnabled(bool enabled);
    void setAllNamesPlain();
    void setModeFlags(bool* runningFlag);
    void showStartButtons(std::initializer_list<platform::CommandButton*> visible);
    void applyVerdict(const cards::Verdict& verdict);
    void drawCardOn(platform::PictureBox* surface, std::int16_t key);
    // The window's outer size in twips, borders included.
    double outerWidthTwips() const;
    double outerHeightTwips() const;

    frmPacific* promotion_ = nullptr;
    bool unloaded_ = false;
    bool inQueryUnload_ = false;
};
