// The promotion window for the online poker room: a small table on which nine players get
// their cards and five board cards spread out, again and again, over a text and a button
// that opens a web page. frmPacific2 is its twin; the two differ only in what a Look holds.
#pragma once

#include <QString>
#include <QWidget>
#include <array>
#include <cstdint>

#include "platform/controls.h"

class frmMain;
class QCloseEvent;

namespace promotion {

// A control's place in twips.
struct Place {
    double left, top, width, height;
};

// What one twin has that the other has not.
struct Look {
    QString caption;
    QString label2Text;
    Place label2;
    double label28Left;
    QString pokerRoomCaption;
    double pokerRoomLeft, pokerRoomTop;
    Place picture4;
    Place label44;
    QString label44Text;
    QString label1Text;
    // The facts panel (Picture5), the award line (Label43) and its picture (Picture1(6)).
    bool hasFactsPanel;
    // cmdPokerRoom opens the room page when the room offer is on; otherwise the school page.
    bool linkFollowsOffer;
};

}  // namespace promotion

class frmPacific : public QWidget {
    Q_OBJECT
  public:
    // The room's own window; its owner is the main window, which it unloads at the end.
    explicit frmPacific(frmMain& main);
    ~frmPacific() override;

    // Opens the window. The first time it loads it, and then the animation runs inside
    // this call until the program ends.
    void Show();

    // Raised when the window closes: every wait and loop of the animation stops on it.
    bool isEnd = false;

    void Form_Load();
    void StartPromotion();
    void shortDelay(std::int32_t delayTime);
    // The animation loop; it returns only once the animation is over.
    void Command1_Click();
    // Clears the table for the next deal.
    void Command2_Click();
    void cmdPokerRoom_Click();
    void Form_QueryUnload();

    // ---- the controls; the card pictures lie above the table ----
    platform::PictureBox* Picture6 = nullptr;
    platform::Label* Label2 = nullptr;
    platform::Label* Label28 = nullptr;
    std::array<platform::PictureBox*, 9> Picture2{};
    platform::PictureBox* Picture3 = nullptr;
    // 0..4 are the board cards (4 lies inside Picture6); 6 is the award picture of the
    // room's window, in Picture5. There is no 5.
    std::array<platform::PictureBox*, 7> Picture1{};
    platform::PictureBox* Picture4 = nullptr;
    platform::Label* Label44 = nullptr;
    platform::CommandButton* cmdPokerRoom = nullptr;
    platform::Label* Label1 = nullptr;
    // Only in the room's window.
    platform::Label* Label43 = nullptr;
    platform::PictureBox* Picture5 = nullptr;

  protected:
    frmPacific(frmMain& main, const promotion::Look& look);
    void closeEvent(QCloseEvent* event) override;

  private:
    void createControls();
    void createTable();
    void createTexts();
    void createFactsPanel();
    // The animation is over when the window has closed or the program is ending.
    bool over() const;
    void dealSeats();
    void showBoardStack();
    // Moves board card i by i twips per turn, 411 turns: +1 spreads, -1 stacks again.
    void slideBoard(int direction);

    frmMain& main_;
    const promotion::Look& look_;
    bool loaded_ = false;
};
