// What the rules ask the window to show, put on the controls.
#include <cmath>

#include "artwork/cardface.h"
#include "drill/palette.h"
#include "platform/mDefs.h"
#include "shell/frmMain.h"

namespace {

QString qs(const std::string& text) {
    return QString::fromStdString(text);
}

}  // namespace

platform::PictureBox* frmMain::surface(drill::Surface which) const {
    return which == drill::Surface::first ? picShow : picLabels;
}

void frmMain::applyShow(const drill::Show& show) {
    for (const std::string& failure : show.failures)
        platform::MsgBox(qs(failure));
    for (const drill::Surface which : {drill::Surface::first, drill::Surface::second}) {
        if (show.wiped[static_cast<std::size_t>(which)])
            surface(which)->Cls();
    }
    if (show.allKeysEnabled) {
        for (auto* key : cmdKey)
            key->setEnabled(*show.allKeysEnabled);
    }
    for (const std::int16_t key : show.disabledKeys)
        cmdKey[static_cast<std::size_t>(key)]->setEnabled(false);
    if (show.focusFirstSurface)
        picShow->setFocus();
    for (const drill::CardDraw& draw : show.drawn)
        drawCardOn(surface(draw.surface), draw.x, draw.drawId);
    if (show.namesPlain) {
        for (auto* name : lblName) {
            name->setForeColor(palette::kBlack);
            name->setBackColor(palette::kLightGrey);
            name->setBorderStyle(0);
        }
    }
    if (show.markedName)
        markName(*show.markedName);
    if (show.borderedName)
        lblName[static_cast<std::size_t>(*show.borderedName)]->setBorderStyle(1);
    if (show.clearEnabled)
        cmdClear->setEnabled(*show.clearEnabled);
    if (show.messageColour)
        lblMessage->setForeColor(*show.messageColour);
    if (show.message)
        lblMessage->setCaption(qs(*show.message));
    if (show.sound) {
        platform::PlaySound(platform::AppPath(show.sound == drill::Sound::yes
                                                  ? QStringLiteral("\\wavs\\yes.wav")
                                                  : QStringLiteral("\\wavs\\no.wav")));
    }
}

void frmMain::applyLayout(const drill::Layout& layout) {
    for (std::size_t i = 0; i < lblName.size(); ++i)
        lblName[i]->setVisible(layout.namesShown[i]);
    for (const auto& [name, caption] : layout.nameCaptions)
        lblName[static_cast<std::size_t>(name)]->setCaption(qs(caption));
    picLabels->setBackColor(layout.secondSurfaceColour);
    picShow->setAccessibleName(qs(layout.firstSurfaceName));
    picLabels->setAccessibleName(qs(layout.secondSurfaceName));
    lblHeading1->setCaption(qs(layout.heading));
    lblMessage->setCaption(qs(layout.message));
    lblEx1->setCaption(qs(layout.exercise1));
    lblEx2->setCaption(qs(layout.exercise2));
    showStartButtons(layout.starts);
    Frame2->setEnabled(layout.exercise2Enabled);
    applyShow(layout.show);
}

void frmMain::showStartButtons(const std::vector<drill::Start>& shown) {
    const std::array<std::pair<drill::Start, platform::CommandButton*>, 7> buttons{{
        {drill::Start::names1, cmdStart1A},
        {drill::Start::names2, cmdStart1B},
        {drill::Start::rankings1, cmdStart2A},
        {drill::Start::rankings2, cmdStart2B},
        {drill::Start::pair1, cmdStart3A},
        {drill::Start::pair2, cmdStart3B},
        {drill::Start::bestHand, cmdStart4},
    }};
    for (const auto& [start, button] : buttons)
        button->setVisible(std::find(shown.begin(), shown.end(), start) != shown.end());
}

void frmMain::markName(std::int16_t Index) {
    for (auto* name : lblName) {
        name->setForeColor(palette::kBlack);
        name->setBackColor(palette::kLightGrey);
    }
    lblName[static_cast<std::size_t>(Index)]->setForeColor(palette::kLightGrey);
    lblName[static_cast<std::size_t>(Index)]->setBackColor(palette::kBlack);
}

void frmMain::drawCardOn(platform::PictureBox* target, std::int32_t x, std::int16_t drawId) {
    // A fifth of the way down the surface, whole pixels.
    const int y =
        static_cast<int>(std::nearbyint((target->ScaleHeight() / 5) / platform::kTwipsPerPixel));
    target->drawOnSurface(
        [&](QPainter& painter) { platform::cdtDraw(painter, x, y, drawId, 0, palette::kWhite); });
    target->noteDrawn(platform::cardName(drawId));
    target->Refresh();
}
