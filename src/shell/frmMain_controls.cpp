// The controls of the main window at their design places, sizes, captions, colours and fonts.
// Children are made bottom first, so the stacking order is the design's.
#include <QApplication>
#include <QEvent>
#include <functional>
#include <utility>

#include "artwork/artwork.h"
#include "artwork/cardface.h"
#include "drill/keyboard.h"
#include "drill/palette.h"
#include "promotion/leaving.h"
#include "shell/frmMain.h"

using platform::CommandButton;
using platform::designFont;
using platform::Frame;
using platform::Label;
using platform::PictureBox;

namespace {

constexpr const char* kSansSerif = "MS Sans Serif";
using palette::kGrey;
using palette::kLightGrey;
constexpr std::int32_t kGreen = palette::kTableGreen;

constexpr std::array<double, 9> kNameTops{60, 375, 690, 990, 1290, 1575, 1875, 2175, 2475};
constexpr std::array<const char*, 9> kNameCaptions{
    "Straight Flush",  "Four of a Kind", "Full House", "Flush",    "Straight",
    "Three of a Kind", "Two Pair",       "One Pair",   "High Card"};

struct Place {
    double left, top;
};
constexpr std::array<Place, 8> kPocketPlaces{{{2190, 4755},
                                              {1305, 3390},
                                              {1905, 1815},
                                              {3690, 1155},
                                              {5715, 1110},
                                              {7230, 1785},
                                              {7830, 3405},
                                              {6945, 4815}}};
constexpr std::array<Place, 9> kSeatLabelPlaces{{{2850, 4950},
                                                 {1965, 3585},
                                                 {2565, 2070},
                                                 {3900, 1785},
                                                 {5910, 1755},
                                                 {7470, 2415},
                                                 {7500, 3615},
                                                 {6585, 5010},
                                                 {4905, 4080}}};
constexpr std::array<Place, 5> kFlopPlaces{
    {{3300, 2805}, {4095, 2805}, {4890, 2805}, {5685, 2805}, {6465, 2790}}};
// Jack of clubs, five of hearts, eight of spades, then the turn (six of hearts) and the
// river (seven of hearts), as draw ids.
constexpr std::array<int, 5> kFlopCards{40, 18, 31, 22, 26};
constexpr int kTenOfClubs = 36, kFourOfClubs = 12, kJackOfHearts = 42, kJackOfDiamonds = 41;

qreal screenRatio() {
    return qApp ? qApp->devicePixelRatio() : 1.0;
}

CommandButton* makeStartButton(QWidget* frame, const QString& name, double left,
                               const QString& spoken) {
    auto* button = new CommandButton(frame, name, QStringLiteral("Start"));
    button->setFont(designFont(kSansSerif, 9.75, true));
    button->setGeometryTwips(left, 1275, 735, 420);
    button->setAccessibleName(spoken);
    return button;
}

Label* makeWrappedLabel(QWidget* parent, const QString& name, double left, double height) {
    auto* label = new Label(parent, name);
    label->setFont(designFont(kSansSerif, 9.75));
    label->setBackColor(kGrey);
    label->setWordWrap(true);
    label->setGeometryTwips(left, 345, 2550, height);
    return label;
}

// Runs the action once, when the widget is first shown.
void runOnFirstShow(QWidget* widget, std::function<void()> action) {
    class FirstShow final : public QObject {
      public:
        FirstShow(QWidget* widget, std::function<void()> action)
            : QObject(widget), action_(std::move(action)) {
            widget->installEventFilter(this);
        }

      protected:
        bool eventFilter(QObject* watched, QEvent* event) override {
            if (event->type() == QEvent::Show && action_) {
                watched->removeEventFilter(this);
                std::exchange(action_, nullptr)();
            }
            return false;
        }

      private:
        std::function<void()> action_;
    };
    new FirstShow(widget, std::move(action));
}

}  // namespace

void frmMain::createControls() {
    setFont(designFont(kSansSerif, 8.25));
    TreeView1 = new platform::TreeView(this, QStringLiteral("TreeView1"));
    TreeView1->setFont(designFont(kSansSerif, 8.25));
    TreeView1->setCursor(Qt::PointingHandCursor);
    TreeView1->setGeometryTwips(135, 165, 3015, 9045);

    WebBrowser1 = new platform::WebBrowser(this, QStringLiteral("WebBrowser1"));
    WebBrowser1->setGeometryTwips(3435, 255, 10455, 8790);
    WebBrowser1->hide();

    picQuiz = new PictureBox(this, QStringLiteral("picQuiz"), PictureBox::Border::Sunken);
    picQuiz->setBackColor(kGrey);
    picQuiz->setGeometryTwips(3300, 135, 9840, 8550);
    picQuiz->setAccessibleName(QStringLiteral("Exercise"));
    createExercisePanel();

    picDemo = new PictureBox(this, QStringLiteral("picDemo"), PictureBox::Border::Sunken);
    picDemo->setBackColor(palette::kBlack);
    picDemo->setGeometryTwips(3420, 180, 9720, 8760);
    picDemo->setAccessibleName(QStringLiteral("Sample poker game"));
    orderTabStops();

    Timer1 = new QTimer(this);
    Timer1->setObjectName(QStringLiteral("Timer1"));
    Timer1->setInterval(750);
}

void frmMain::createExercisePanel() {
    // Labels have no window of their own: they lie below every child window of the panel.
    lblHeading1 = new Label(picQuiz, QStringLiteral("lblHeading1"));
    lblHeading1->setFont(designFont(QStringLiteral("Courier New"), 20.25, true));
    lblHeading1->setAlignment(Qt::AlignCenter);
    lblHeading1->setBackColor(kGrey);
    lblHeading1->setCaption(QStringLiteral("Poker Hand Names"));
    lblHeading1->setGeometryTwips(2580, 270, 3855, 465);
    lblHeading1->setAutoSize(true);

    lblMessage = new Label(picQuiz, QStringLiteral("lblMessage"));
    lblMessage->setFont(designFont(kSansSerif, 9.75, true));
    lblMessage->setAlignment(Qt::AlignCenter);
    lblMessage->setBackColor(palette::kBlack);
    lblMessage->setForeColor(palette::kWhite);
    lblMessage->setCaption(QStringLiteral("Poker Hand Names"));
    lblMessage->setAnnouncesChanges(true);  // prompts and verdicts are spoken as they come
    lblMessage->setGeometryTwips(180, 1110, 4830, 240);

    picShow = new PictureBox(picQuiz, QStringLiteral("picShow"), PictureBox::Border::Sunken);
    picShow->setBackColor(kGreen);
    picShow->setGeometryTwips(1290, 1995, 3180, 1545);
    picShow->setCursor(Qt::PointingHandCursor);
    picShow->setFocusPolicy(Qt::StrongFocus);
    picShow->setAccessibleName(QStringLiteral("First hand"));

    picLabels = new PictureBox(picQuiz, QStringLiteral("picLabels"), PictureBox::Border::Sunken);
    picLabels->setBackColor(kLightGrey);
    picLabels->setGeometryTwips(5130, 780, 3210, 2820);
    picLabels->setCursor(Qt::PointingHandCursor);
    picLabels->setFocusPolicy(Qt::StrongFocus);
    picLabels->setAccessibleName(QStringLiteral("Second hand"));
    createNameList();

    cmdClear = new CommandButton(picQuiz, QStringLiteral("cmdClear"), QStringLiteral("Clear"));
    cmdClear->setFont(designFont(kSansSerif, 9.75, true));
    cmdClear->setBackColor(kGrey);
    cmdClear->setGeometryTwips(3750, 6375, 1200, 855);

    picKeys = new PictureBox(picQuiz, QStringLiteral("picKeys"), PictureBox::Border::FlatSingle);
    picKeys->setBackColor(kLightGrey);
    picKeys->setGeometryTwips(225, 4050, 8205, 2085);
    picKeys->setAccessibleName(QStringLiteral("Card keyboard"));
    createKeyboard();

    picSuits = new PictureBox(picQuiz, QStringLiteral("picSuits"), PictureBox::Border::FlatSingle);
    picSuits->setBackColor(kLightGrey);
    picSuits->setGeometryTwips(4485, 4110, 1335, 1755);
    picSuits->setAccessibleName(QStringLiteral("Suits"));
    std::array<CommandButton**, 4> rowLabels{&zCommand1, &zCommand2, &zCommand3, &zcommandbutton5};
    const std::array<const char*, 4> rowNames{"zCommand1", "zCommand2", "zCommand3",
                                              "zcommandbutton5"};
    for (std::size_t row = 0; row < rowLabels.size(); ++row) {
        auto* label = new CommandButton(picSuits, QString::fromLatin1(rowNames[row]),
                                        QString::fromStdString(drill::keyboard::RowName(int(row))));
        label->setFont(designFont(kSansSerif, 8.25, true));
        label->setGeometryTwips(0, 435.0 * static_cast<double>(row), 1335, 435);
        label->setFocusPolicy(Qt::NoFocus);  // a row label only; nothing to do with it
        *rowLabels[row] = label;
    }

    Frame1 = new Frame(picQuiz, QStringLiteral("Frame1"), QStringLiteral("Exercise #1"));
    Frame2 = new Frame(picQuiz, QStringLiteral("Frame2"), QStringLiteral("Exercise #2"));
    for (Frame* frame : {Frame1, Frame2}) {
        frame->setFont(designFont(kSansSerif, 9.75, true));
        QPalette pal = frame->palette();
        pal.setColor(QPalette::WindowText, platform::colorFromRgb(palette::kFrameText));
        frame->setPalette(pal);
    }
    Frame1->setGeometryTwips(450, 6480, 3135, 1890);
    Frame2->setGeometryTwips(4860, 6465, 3135, 1890);

    lblEx1 = makeWrappedLabel(Frame1, QStringLiteral("lblEx1"), 285, 765);
    lblEx1->setCaption(QStringLiteral(
        "You pick 5 cards from the keyboard the program displays the poker hand name"));
    cmdStart1A = makeStartButton(Frame1, QStringLiteral("cmdStart1A"), 1380,
                                 QStringLiteral("Start exercise 1"));
    cmdStart2A = makeStartButton(Frame1, QStringLiteral("cmdStart2A"), 1380,
                                 QStringLiteral("Start exercise 1"));
    cmdStart3A = makeStartButton(Frame1, QStringLiteral("cmdStart3A"), 1380,
                                 QStringLiteral("Start exercise 1"));
    cmdStart3A->setBackColor(kGrey);
    cmdStart4 = makeStartButton(Frame1, QStringLiteral("cmdStart4"), 1395, QStringLiteral("Start"));
    cmdStart4->setBackColor(kGrey);

    lblEx2 = makeWrappedLabel(Frame2, QStringLiteral("lblEx2"), 360, 720);
    lblEx2->setCaption(QStringLiteral(
        "The program will display a random hand, you pick the correct name from the list"));
    cmdStart1B = makeStartButton(Frame2, QStringLiteral("cmdStart1B"), 1380,
                                 QStringLiteral("Start exercise 2"));
    cmdStart2B = makeStartButton(Frame2, QStringLiteral("cmdStart2B"), 1380,
                                 QStringLiteral("Start exercise 2"));
    cmdStart3B = makeStartButton(Frame2, QStringLiteral("cmdStart3B"), 1380,
                                 QStringLiteral("Start exercise 2"));
}

void frmMain::createKeyboard() {
    for (int index = 0; index < 52; ++index) {
        auto* key = new CommandButton(picKeys, QStringLiteral("cmdKey(%1)").arg(index),
                                      QStringLiteral("1"));
        key->setFont(designFont(kSansSerif, 9.75, true));
        key->setGeometryTwips(0, 0, 465, 435);
        // The caption stays the keyboard's; a screen reader says the card.
        key->setAccessibleName(
            QString::fromStdString(drill::keyboard::SpokenName(static_cast<std::int16_t>(index))));
        cmdKey[static_cast<std::size_t>(index)] = key;
    }
}

void frmMain::createNameList() {
    for (std::size_t i = 0; i < lblName.size(); ++i) {
        auto* name = new Label(picLabels, QStringLiteral("lblName(%1)").arg(i));
        name->setFont(designFont(kSansSerif, 9.75, true));
        name->setAlignment(Qt::AlignCenter);
        name->setBackColor(kLightGrey);
        name->setForeColor(palette::kBlack);
        name->setBorderStyle(1);
        name->setCaption(QString::fromLatin1(kNameCaptions[i]));
        name->setGeometryTwips(165, kNameTops[i], 2850, 270);
        name->setFocusPolicy(Qt::StrongFocus);
        lblName[i] = name;
    }
}

void frmMain::ensureStage() {
    if (cmdNext != nullptr)
        return;
    // Made when the sample game is first opened, not at start: most visits never open it,
    // and its forty controls were a tenth of the time to the window's showing.
    createStage();
    // The table and its cards are painted when the stage first shows.
    runOnFirstShow(picDemo, [this] { paintStage(); });
    promotion::setEnoughTip(*lblEnough);
    connect(cmdNext, &QPushButton::clicked, this, &frmMain::cmdNext_Click);
    connect(lblEnough, &platform::Label::Click, this, &frmMain::lblEnough_Click);
    // The stage's controls come last in the tab order, after the Start buttons.
    QWidget::setTabOrder(cmdStart4, txtComments);
    QWidget::setTabOrder(txtComments, cmdNext);
    QWidget::setTabOrder(cmdNext, lblEnough);
}

void frmMain::createStage() {
    // Labels first: they lie below the stage's child windows.
    for (std::size_t i = 0; i < lblArray.size(); ++i) {
        auto* seat = new Label(picDemo, QStringLiteral("lblArray(%1)").arg(i));
        seat->setFont(designFont(kSansSerif, 9.75));
        seat->setAlignment(Qt::AlignCenter);
        seat->setTransparent(true);
        seat->setForeColor(palette::kWhite);
        seat->setCaption(i == 8 ? QStringLiteral("Pot") : QStringLiteral("50c"));
        seat->setGeometryTwips(kSeatLabelPlaces[i].left, kSeatLabelPlaces[i].top,
                               i == 8 ? 300 : 330, 240);
        seat->setAutoSize(true);
        lblArray[i] = seat;
    }
    lblEnough = new Label(picDemo, QStringLiteral("lblEnough"));
    lblEnough->setFont(designFont(kSansSerif, 9.75, true, true));
    lblEnough->setAlignment(Qt::AlignCenter);
    lblEnough->setTransparent(true);
    lblEnough->setForeColor(palette::kLinkGreen);
    lblEnough->setBorderStyle(1);
    // Sized by the caption in the font this platform has, around the design place's centre.
    lblEnough->setGeometryTwips(2520, 8280, 4845, 270);
    lblEnough->setAutoSize(true);
    lblEnough->setCaption(QStringLiteral("Enough poker school, Take me to a real game"));
    lblEnough->setCursor(Qt::PointingHandCursor);
    lblEnough->setFocusPolicy(Qt::StrongFocus);
    lblEnough->hide();

    auto makePocket = [&](std::size_t seat) {
        auto* pocket = new PictureBox(picDemo, QStringLiteral("picPocket(%1)").arg(seat),
                                      PictureBox::Border::FlatSingle);
        pocket->setGeometryTwips(kPocketPlaces[seat].left, kPocketPlaces[seat].top, 615, 645);
        pocket->setAccessibleName(QStringLiteral("Two cards face down"));
        picPocket[seat] = pocket;
    };
    for (std::size_t seat : {4u, 3u, 2u, 1u, 0u})
        makePocket(seat);

    Picture1 = new PictureBox(picDemo, QStringLiteral("Picture1"), PictureBox::Border::FlatSingle);
    Picture1->setBackColor(kGrey);
    Picture1->setGeometryTwips(2970, 5925, 3810, 1785);
    Picture1->setAccessibleName(QStringLiteral("Commentary"));
    txtComments = new platform::TextBox(Picture1, QStringLiteral("txtComments"));
    txtComments->setFont(designFont(kSansSerif, 9.75));
    QPalette pal = txtComments->palette();
    pal.setColor(QPalette::Base, platform::colorFromRgb(kLightGrey));
    pal.setColor(QPalette::Text, Qt::black);
    txtComments->setPalette(pal);
    txtComments->setText(QStringLiteral("Text1"));
    txtComments->setGeometryTwips(105, 75, 3570, 1590);
    txtComments->setAccessibleName(QStringLiteral("Comments"));

    for (std::size_t seat : {5u, 6u, 7u})
        makePocket(seat);

    picDealer = new PictureBox(picDemo, QStringLiteral("picDealer"));
    picDealer->setTransparentBackground(true);
    picDealer->setGeometryTwips(7905, 4080, 390, 345);
    picDealer->setAccessibleName(QStringLiteral("Dealer button"));

    for (std::size_t i = 0; i < picFlop.size(); ++i) {
        auto* card = new PictureBox(picDemo, QStringLiteral("picFlop(%1)").arg(i));
        card->setTransparentBackground(true);
        card->setGeometryTwips(kFlopPlaces[i].left, kFlopPlaces[i].top, 810, 1080);
        card->setAccessibleName(platform::cardName(kFlopCards[i]));
        picFlop[i] = card;
    }

    picShowDown1 =
        new PictureBox(picDemo, QStringLiteral("picShowDown1"), PictureBox::Border::FlatSingle);
    picShowDown1->setTransparentBackground(true);
    picShowDown1->setGeometryTwips(1935, 1665, 1035, 1080);
    picShowDown1->setAccessibleName(QStringLiteral("Ten of Clubs, Four of Clubs"));
    picShowDown2 =
        new PictureBox(picDemo, QStringLiteral("picShowDown2"), PictureBox::Border::FlatSingle);
    picShowDown2->setTransparentBackground(true);
    picShowDown2->setGeometryTwips(6510, 4395, 1020, 1080);
    picShowDown2->setAccessibleName(QStringLiteral("Jack of Hearts, Jack of Diamonds"));

    cmdNext = new CommandButton(picDemo, QStringLiteral("cmdNext"), QStringLiteral("Next"));
    cmdNext->setFont(designFont(kSansSerif, 8.25));
    cmdNext->setGeometryTwips(4410, 7740, 1050, 315);
}

void frmMain::paintStage() {
    const qreal ratio = screenRatio();
    picDemo->setPicture(platform::artwork::pokerTable(ratio));
    const QImage backs = platform::artwork::pocketBacks(ratio);
    for (PictureBox* pocket : picPocket)
        pocket->setPicture(backs);
    picDealer->setPicture(platform::artwork::dealerButton(ratio));
    for (std::size_t i = 0; i < picFlop.size(); ++i)
        picFlop[i]->setPicture(platform::artwork::boardCard(kFlopCards[i], ratio));
    picShowDown1->setPicture(
        platform::artwork::showdownFan(kTenOfClubs, kFourOfClubs, QSize(67, 70), ratio));
    picShowDown2->setPicture(
        platform::artwork::showdownFan(kJackOfHearts, kJackOfDiamonds, QSize(66, 70), ratio));
}

void frmMain::orderTabStops() {
    // The window's order: the surfaces, Clear, the tree, the keys from the last to the first,
    // the Start buttons, then the stage (see ensureStage). The name labels and lblEnough take
    // the focus too, though labels in the design never do: they are answers and a link that a
    // keyboard user has no other way to choose.
    std::vector<QWidget*> order{picShow, picLabels};
    for (auto name = lblName.rbegin(); name != lblName.rend(); ++name)
        order.push_back(*name);
    order.insert(order.end(), {cmdClear, TreeView1});
    for (auto key = cmdKey.rbegin(); key != cmdKey.rend(); ++key)
        order.push_back(*key);
    order.insert(order.end(), {cmdStart1A, cmdStart1B, cmdStart2A, cmdStart2B, cmdStart3A,
                               cmdStart3B, cmdStart4});
    for (std::size_t i = 1; i < order.size(); ++i)
        QWidget::setTabOrder(order[i - 1], order[i]);
}
