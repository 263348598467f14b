// The promotion windows' controls at their design places; the room's own window's Look.
// Children are made bottom first, so the cards lie above the table.
#include "promotion/frmPacific.h"

#include <QApplication>
#include <QCloseEvent>
#include <QScreen>
#include <QUrl>

#include "artwork/artwork.h"
#include "artwork/cardface.h"
#include "drill/palette.h"
#include "promotion/open_url.h"
#include "shell/frmMain.h"

using platform::CommandButton;
using platform::designFont;
using platform::Label;
using platform::PictureBox;
using promotion::Place;

namespace {

constexpr const char* kSansSerif = "MS Sans Serif";
constexpr const char* kSmallFonts = "Small Fonts";
constexpr double kDesignPoints = 8.25;
using palette::kDarkGrey;
using palette::kGrey;
using palette::kWhite;
constexpr double kInnerWidth = 6615, kInnerHeight = 7890;

// Where each seat gets its two cards face down, and the size of such a pair.
constexpr std::array<std::array<double, 2>, 9> kSeatPlaces{{{960, 1950},
                                                            {1260, 1140},
                                                            {2280, 825},
                                                            {4215, 825},
                                                            {5025, 1140},
                                                            {5325, 1980},
                                                            {4935, 2640},
                                                            {3900, 2805},
                                                            {1380, 2610}}};
constexpr double kSeatWidth = 330, kSeatHeight = 345;

// The five board cards as draw ids: six and seven of hearts, eight of spades, jack of
// clubs, five of hearts; and where they start. The fifth lies inside the table picture.
constexpr std::array<int, 5> kBoardCards{22, 26, 31, 40, 18};
constexpr std::array<std::array<double, 2>, 5> kBoardPlaces{
    {{2265, 1695}, {2265, 1695}, {2280, 1695}, {2280, 1695}, {1905, 1425}}};
constexpr double kBoardWidth = 405, kBoardHeight = 540;
constexpr int kJackOfHearts = 42, kJackOfDiamonds = 41;

// The facts panel of the room's window: a grey caption and a bold value on each row. The
// first value is the room's name, set when the program is built.
struct FactRow {
    const char* captionName;
    const char* caption;
    Place captionPlace;
    const char* valueName;
    const char* value;  // nullptr: the room's name
    Place valuePlace;
};
constexpr std::array<FactRow, 5> kFacts{{
    {"Label26", " Name", {0, 135, 855, 195}, "Label25", nullptr, {930, 150, 885, 195}},
    {"Label23", " Established", {0, 390, 1215, 225}, "Label24", "2001", {1260, 390, 435, 195}},
    {"Label22", " Members", {0, 675, 1110, 225}, "Label19", "3,000,000 +", {1170, 675, 1035, 195}},
    {"Label20",
     " Free play money account",
     {0, 960, 1500, 225},
     "Label17",
     "$1000",
     {1530, 960, 540, 195}},
    {"Label16", " Minimum stakes", {0, 1245, 1605, 225}, "Label15", "5c", {1665, 1245, 225, 195}},
}};

qreal screenRatio() {
    return qApp ? qApp->devicePixelRatio() : 1.0;
}

void place(platform::TwipsGeometry& control, const Place& at) {
    control.setGeometryTwips(at.left, at.top, at.width, at.height);
}

// The platform's sans-serif is wider than the design's font: rather than lose words, a
// one-line caption grows about its centre and a wrapped text grows downwards.
void growToFit(Label& label) {
    const int widthPixels = label.width();
    if (label.wordWrap()) {
        const double needed = label.heightForWidth(widthPixels) * platform::kTwipsPerPixel;
        if (needed > label.Height())
            label.setHeight(needed);
        return;
    }
    const QFontMetrics metrics(label.font());
    const double needed = (metrics.horizontalAdvance(label.text()) + 2) * platform::kTwipsPerPixel;
    if (needed <= label.Width())
        return;
    const bool centred = label.alignment() & Qt::AlignHCenter;
    const double left = centred ? label.Left() - (needed - label.Width()) / 2 : label.Left();
    label.setGeometryTwips(left, label.Top(), needed, label.Height());
}

enum class Lines { One, Wrapped };

Label* makeLabel(QWidget* parent, const QString& name, const QString& caption, const Place& at,
                 bool bold, Lines lines = Lines::Wrapped) {
    auto* label = new Label(parent, name);
    label->setFont(designFont(QString::fromLatin1(kSansSerif), kDesignPoints, bold));
    label->setWordWrap(lines == Lines::Wrapped);
    label->setCaption(caption);
    place(*label, at);
    return label;
}

// A picture that lies on the table: it paints nothing but its picture.
PictureBox* makeCardPicture(QWidget* parent, const QString& name, const QImage& picture,
                            const Place& at) {
    auto* box = new PictureBox(parent, name);
    box->setTransparentBackground(true);
    box->setPicture(picture);
    place(*box, at);
    return box;
}

const promotion::Look& roomLook() {
    static const promotion::Look look{
        .caption = QStringLiteral("Play Poker Online Today... Real People Real Money Real Fun"),
        .label2Text = mDefs::RoomName(),
        .label2 = {2835, 30, 885, 195},
        .label28Left = 2685,
        .pokerRoomCaption = QStringLiteral("Free Download.."),
        .pokerRoomLeft = 3795,
        .pokerRoomTop = 6405,
        .picture4 = {3135, 4905, 3510, 1380},
        .label44 = {75, 75, 3255, 1755},
        .label44Text = QStringLiteral("Play poker with real people at ") +
                       QUrl(mDefs::RoomPage()).host() +
                       QStringLiteral(" You get a FREE $1000 play money account for practice "
                                      "without any risk. Download and enjoy poker fun and "
                                      "excitement today."),
        .label1Text = mDefs::RoomTrademark(),
        .hasFactsPanel = true,
        .linkFollowsOffer = true,
    };
    return look;
}

}  // namespace

frmPacific::frmPacific(frmMain& main) : frmPacific(main, roomLook()) {}

frmPacific::frmPacific(frmMain& main, const promotion::Look& look)
    : QWidget(&main, Qt::Window), main_(main), look_(look) {
    setObjectName(QStringLiteral("frmPacific"));
    setWindowTitle(look_.caption);
    setAutoFillBackground(true);
    QPalette pal = palette();
    pal.setColor(QPalette::Window, platform::colorFromRgb(kGrey));
    setPalette(pal);
    createControls();
    setFixedSize(static_cast<int>(kInnerWidth / platform::kTwipsPerPixel),
                 static_cast<int>(kInnerHeight / platform::kTwipsPerPixel));
    if (const QScreen* screen = QGuiApplication::primaryScreen()) {
        move(screen->availableGeometry().center() - QPoint(width() / 2, height() / 2));
    }
}

frmPacific::~frmPacific() = default;

void frmPacific::createControls() {
    createTable();
    createTexts();
    if (look_.hasFactsPanel)
        createFactsPanel();
    connect(cmdPokerRoom, &QPushButton::clicked, this, &frmPacific::cmdPokerRoom_Click);
}

void frmPacific::createTable() {
    const qreal ratio = screenRatio();
    Picture6 = new PictureBox(this, QStringLiteral("Picture6"), PictureBox::Border::Sunken);
    Picture6->setPicture(platform::artwork::promotionTable(ratio));
    Picture6->setGeometryTwips(315, 240, 6015, 4350);
    Picture6->setAccessibleName(QStringLiteral("Poker table"));
    Picture6->setAccessibleDescription(QStringLiteral("A poker table seen from above"));

    const QImage backs = platform::artwork::smallBacks(ratio);
    for (std::size_t seat = 0; seat < Picture2.size(); ++seat) {
        const auto [left, top] = kSeatPlaces.at(seat);
        Picture2.at(seat) = makeCardPicture(this, QStringLiteral("Picture2(%1)").arg(seat), backs,
                                            {left, top, kSeatWidth, kSeatHeight});
        Picture2.at(seat)->setAccessibleName(QStringLiteral("Two cards face down"));
    }
    Picture3 = makeCardPicture(this, QStringLiteral("Picture3"),
                               platform::artwork::frontPair(kJackOfHearts, kJackOfDiamonds, ratio),
                               {2250, 2520, 600, 630});
    Picture3->setAccessibleName(QStringLiteral("Jack of Hearts, Jack of Diamonds"));
    Picture3->hide();

    for (std::size_t card = 0; card < kBoardCards.size(); ++card) {
        const auto [left, top] = kBoardPlaces.at(card);
        QWidget* holder = card == 4 ? static_cast<QWidget*>(Picture6) : this;
        auto* box = makeCardPicture(holder, QStringLiteral("Picture1(%1)").arg(card),
                                    platform::artwork::smallCard(kBoardCards.at(card), ratio),
                                    {left, top, kBoardWidth, kBoardHeight});
        box->setAccessibleName(platform::cardName(kBoardCards.at(card)));
        Picture1.at(card) = box;
    }
    Picture1.at(4)->hide();
}

void frmPacific::createTexts() {
    Label2 =
        makeLabel(this, QStringLiteral("Label2"), look_.label2Text, look_.label2, true, Lines::One);
    Label28 = makeLabel(this, QStringLiteral("Label28"), QStringLiteral("Reduced size image"),
                        {look_.label28Left, 4590, 1440, 195}, false, Lines::One);
    for (Label* caption : {Label2, Label28}) {
        caption->setAlignment(Qt::AlignCenter);
        growToFit(*caption);
    }

    Picture4 = new PictureBox(this, QStringLiteral("Picture4"));
    place(*Picture4, look_.picture4);
    Label44 =
        makeLabel(Picture4, QStringLiteral("Label44"), look_.label44Text, look_.label44, true);

    cmdPokerRoom = new CommandButton(this, QStringLiteral("cmdPokerRoom"), look_.pokerRoomCaption);
    cmdPokerRoom->setFont(designFont(QString::fromLatin1(kSansSerif), kDesignPoints, true));
    cmdPokerRoom->setGeometryTwips(look_.pokerRoomLeft, look_.pokerRoomTop, 2070, 750);

    Label1 =
        makeLabel(this, QStringLiteral("Label1"), look_.label1Text, {15, 7470, 5775, 405}, false);
    Label1->setFont(designFont(QString::fromLatin1(kSmallFonts), 6.75));
    growToFit(*Label44);
    growToFit(*Label1);
}

void frmPacific::createFactsPanel() {
    Label43 = makeLabel(this, QStringLiteral("Label43"),
                        QStringLiteral("Winner of Best Online Poker Room Award "),
                        {75, 6960, 3195, 390}, false);
    growToFit(*Label43);
    Picture5 = new PictureBox(this, QStringLiteral("Picture5"));
    Picture5->setGeometryTwips(405, 4800, 2505, 1875);
    for (const FactRow& row : kFacts) {
        auto* caption =
            makeLabel(Picture5, QString::fromLatin1(row.captionName),
                      QString::fromLatin1(row.caption), row.captionPlace, false, Lines::One);
        caption->setForeColor(kWhite);
        caption->setBackColor(kDarkGrey);
        growToFit(*caption);
        // A caption that grew pushes its value to the right rather than under it.
        Place valuePlace = row.valuePlace;
        valuePlace.left = std::max(valuePlace.left, caption->Left() + caption->Width());
        auto* value = makeLabel(Picture5, QString::fromLatin1(row.valueName),
                                row.value ? QString::fromLatin1(row.value) : mDefs::RoomName(),
                                valuePlace, true, Lines::One);
        growToFit(*value);
    }
    Picture1.at(6) =
        makeCardPicture(Picture5, QStringLiteral("Picture1(6)"),
                        platform::artwork::awardBadge(screenRatio()), {0, 1530, 930, 255});
}

void frmPacific::closeEvent(QCloseEvent* event) {
    Form_QueryUnload();
    event->accept();
}
