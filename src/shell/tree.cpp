// The topic tree and the content pane it switches.
#include "platform/mDefs.h"
#include "shell/frmMain.h"
#include "shell/topics.h"

namespace {
QString qs(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}
}  // namespace

void frmMain::BoldTopTopics() {
    // Selecting, letting events through and turning the bold mark over, entry by entry, is
    // how the mark was made on the original tree; the effect is the six top entries bold.
    try {
        for (int i = 1; i <= 26; ++i) {
            if (std::find(topics::kTopLevelIndices.begin(), topics::kTopLevelIndices.end(), i) ==
                topics::kTopLevelIndices.end()) {
                continue;
            }
            TreeView1->setSelected(i);
            platform::DoEvents();
            const int item = TreeView1->selectedIndex();
            if (item <= 0)
                continue;
            TreeView1->setBold(item, !TreeView1->isBold(item));
        }
        TreeView1->setSelected(1);
    } catch (const std::exception&) {
        // Entries not reached stay regular; start-up goes on.
    }
}

void frmMain::TreeView1_NodeClick(int nodeIndex) {
    const QString text = TreeView1->nodeText(nodeIndex);
    const auto topic = std::find_if(topics::kTopics.begin(), topics::kTopics.end(),
                                    [&](const topics::Topic& t) { return qs(t.text) == text; });
    if (topic == topics::kTopics.end())
        return;

    switch (topic->action) {
        case topics::Action::Page:
            WebBrowser1->setVisible(true);
            picQuiz->setVisible(false);
            picDemo->setVisible(false);
            WebBrowser1->Navigate2(platform::AppPath(qs(topic->page)));
            break;
        case topics::Action::Exercise:
            WebBrowser1->setVisible(false);
            picQuiz->setVisible(true);
            picDemo->setVisible(false);
            switch (topic->screen) {
                case topics::Screen::HandNames:
                    ShowHandNamesScreen();
                    break;
                case topics::Screen::Rankings:
                    ShowRankingsScreen();
                    break;
                case topics::Screen::PairValue:
                    ShowPairValueScreen();
                    break;
                case topics::Screen::BestHand:
                    ShowBestHandScreen();
                    break;
                default:
                    break;
            }
            break;
        case topics::Action::SampleGame:
            WebBrowser1->setVisible(false);
            picQuiz->setVisible(false);
            ensureStage();
            picDemo->setVisible(true);
            sampleStep = 0;
            ShowSampleGame();
            break;
    }
    if (topic->treeTakesFocus && !platform::programEnding())
        TreeView1->setFocus();
}

void frmMain::WebBrowser1_BeforeNavigate2(const QString&) {
    // Every navigation goes ahead in the pane, outside addresses included.
}
