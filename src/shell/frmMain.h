// The main window. The exercises' state and rules live in the drill library; the window reads
// its events, asks the rules and shows their answers. Its routines are implemented in the
// folder of their subsystem (shell, exercises, sample, promotion).
#pragma once

#include <QTimer>
#include <QWidget>
#include <array>
#include <cstdint>
#include <string>

#include "drill/rules.h"
#include "lessonpane/webbrowser.h"
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

    // ---- card keyboard, name list, message line ----
    void initKeys();
    void cmdKey_Click(std::int16_t Index);
    void cmdClear_Click();
    void lblName_MouseMove(std::int16_t Index);
    void lblName_Click(std::int16_t Index);
    void Timer1_Timer();

    // ---- the four exercises ----
    void ShowHandNamesScreen();
    void cmdStart1A_Click();
    void cmdStart1B_Click();
    void ShowRankingsScreen();
    void cmdStart2A_Click();
    void cmdStart2B_Click();
    void picShow_Click();
    void picLabels_Click();
    void ShowPairValueScreen();
    void cmdStart3A_Click();
    void cmdStart3B_Click();
    void ShowBestHandScreen();
    void cmdStart4_Click();
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

    // The promotion window, made at its first use.
    frmPacific* promotionWindow() const { return promotion_; }

  protected:
    void showEvent(QShowEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

  private:
    // The exercises' state, and what the sample game and the ways out keep.
    drill::State state_;
    std::int16_t sampleStep = 0;
    bool promoteOnClose = false;
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

    // the sample game's stage, made when the game is first opened (ensureStage)
    platform::CommandButton* cmdNext = nullptr;
    platform::PictureBox* picShowDown2 = nullptr;
    platform::PictureBox* picShowDown1 = nullptr;
    std::array<platform::PictureBox*, 5> picFlop{};
    platform::PictureBox* picDealer = nullptr;
    std::array<platform::PictureBox*, 8> picPocket{};
    platform::PictureBox* Picture1 = nullptr;
    platform::TextBox* txtComments = nullptr;
    platform::Label* lblEnough = nullptr;
    std::array<platform::Label*, 9> lblArray{};

    // Building the controls at their design places (frmMain_controls.cpp).
    void createControls();
    void createExercisePanel();
    void createKeyboard();
    void createNameList();
    void ensureStage();
    void createStage();
    void paintStage();
    void fitPanesToWindow();
    void orderTabStops();
    void connectHandlers();

    // The keys and panes at their places for the window's size (initKeys).
    void layOutKeyboard();
    // The rules' answers put on the controls (display.cpp).
    void applyShow(const drill::Show& show);
    void applyLayout(const drill::Layout& layout);
    void showStartButtons(const std::vector<drill::Start>& shown);
    void markName(std::int16_t Index);
    platform::PictureBox* surface(drill::Surface which) const;
    void drawCardOn(platform::PictureBox* target, std::int32_t x, std::int16_t drawId);
    // The window's outer size in twips, borders included.
    double outerWidthTwips() const;
    double outerHeightTwips() const;

    frmPacific* promotion_ = nullptr;
    bool unloaded_ = false;
    bool inQueryUnload_ = false;
};
