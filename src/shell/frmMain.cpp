#include "shell/frmMain.h"

#include <QCloseEvent>
#include <QGuiApplication>
#include <QScreen>

#include "drill/palette.h"
#include "drill/rounding.h"
#include "platform/mDefs.h"

namespace {
// The inner area at the design size, and what the usual borders add to it, in twips.
constexpr double kInnerWidth = 13815, kInnerHeight = 9795;
constexpr double kBorderWidth = 120, kBorderHeight = 405;
int pixels(double twips) {
    return drill::rounded(twips / platform::kTwipsPerPixel);
}
}  // namespace

frmMain::frmMain(QWidget* parent) : QWidget(parent) {
    setObjectName(QStringLiteral("frmMain"));
    setWindowTitle(QStringLiteral("Tablewright.."));
    setAutoFillBackground(true);
    QPalette pal = palette();
    pal.setColor(QPalette::Window, platform::colorFromRgb(palette::kGrey));
    setPalette(pal);
    createControls();
    connectHandlers();
    // Coming back from another application leaves the focus where the user had it.
    platform::onActivationFromOwnWindow(this, [this] { Form_Activate(); });
    resize(pixels(kInnerWidth), pixels(kInnerHeight));
    if (const QScreen* screen = QGuiApplication::primaryScreen()) {
        const QRect available = screen->availableGeometry();
        move(available.center() - QPoint(width() / 2, height() / 2));
    }
    // The home page is then laid out once, at the width it shows with.
    fitPanesToWindow();
    Timer1->start();
}

frmMain::~frmMain() = default;

void frmMain::connectHandlers() {
    connect(Timer1, &QTimer::timeout, this, &frmMain::Timer1_Timer);
    connect(TreeView1, &platform::TreeView::NodeClick, this, &frmMain::TreeView1_NodeClick);
    connect(WebBrowser1, &platform::WebBrowser::BeforeNavigate2, this,
            &frmMain::WebBrowser1_BeforeNavigate2);
    for (std::size_t i = 0; i < cmdKey.size(); ++i) {
        const auto index = static_cast<std::int16_t>(i);
        connect(cmdKey[i], &QPushButton::clicked, this, [this, index] { cmdKey_Click(index); });
    }
    for (std::size_t i = 0; i < lblName.size(); ++i) {
        const auto index = static_cast<std::int16_t>(i);
        connect(lblName[i], &platform::Label::Click, this, [this, index] { lblName_Click(index); });
        connect(lblName[i], &platform::Label::MouseMove, this,
                [this, index] { lblName_MouseMove(index); });
    }
    connect(cmdClear, &QPushButton::clicked, this, &frmMain::cmdClear_Click);
    connect(cmdStart1A, &QPushButton::clicked, this, &frmMain::cmdStart1A_Click);
    connect(cmdStart1B, &QPushButton::clicked, this, &frmMain::cmdStart1B_Click);
    connect(cmdStart2A, &QPushButton::clicked, this, &frmMain::cmdStart2A_Click);
    connect(cmdStart2B, &QPushButton::clicked, this, &frmMain::cmdStart2B_Click);
    connect(cmdStart3A, &QPushButton::clicked, this, &frmMain::cmdStart3A_Click);
    connect(cmdStart3B, &QPushButton::clicked, this, &frmMain::cmdStart3B_Click);
    connect(cmdStart4, &QPushButton::clicked, this, &frmMain::cmdStart4_Click);
    connect(picShow, &platform::PictureBox::Click, this, &frmMain::picShow_Click);
    connect(picLabels, &platform::PictureBox::Click, this, &frmMain::picLabels_Click);
}

double frmMain::outerWidthTwips() const {
    const int frame = frameGeometry().width() - width();
    return frame > 0 ? frameGeometry().width() * platform::kTwipsPerPixel
                     : width() * platform::kTwipsPerPixel + kBorderWidth;
}

double frmMain::outerHeightTwips() const {
    const int frame = frameGeometry().height() - height();
    return frame > 0 ? frameGeometry().height() * platform::kTwipsPerPixel
                     : height() * platform::kTwipsPerPixel + kBorderHeight;
}

void frmMain::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    Form_Resize();
}

void frmMain::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    if (isVisible())
        Form_Resize();
}

void frmMain::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::WindowStateChange && isVisible())
        Form_Resize();
}

void frmMain::closeEvent(QCloseEvent* event) {
    if (unloaded_) {
        event->accept();
        return;
    }
    Form_QueryUnload();
    // Once the promotion window has taken over, or nothing is to be promoted, the main
    // window goes; closing asks no question.
    event->accept();
}

void frmMain::Unload() {
    unloaded_ = true;
    Timer1->stop();
    hide();
}
