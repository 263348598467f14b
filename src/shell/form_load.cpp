// Start-up, activation and the window's resizing.
#include <QDir>

#include "artwork/cardface.h"
#include "pairs/pairs.h"
#include "platform/mDefs.h"
#include "shell/frmMain.h"
#include "shell/topics.h"

namespace mDefs {
bool showRoomOffer = false;
}

void frmMain::Form_Load() {
    mDefs::showRoomOffer = false;
    QDir::setCurrent(platform::ApplicationFolder());
    platform::cdtInit(state_.cWidth, state_.cHeight);

    TreeView1->setIndentationTwips(19 * platform::kTwipsPerPixel);
    TreeView1->setEditTriggers(QAbstractItemView::NoEditTriggers);
    for (const topics::Topic& topic : topics::kTopics) {
        const QString key =
            QString::fromUtf8(topic.key.data(), static_cast<qsizetype>(topic.key.size()));
        const QString text =
            QString::fromUtf8(topic.text.data(), static_cast<qsizetype>(topic.text.size()));
        const int index = TreeView1->addNode(
            topic.parentIndex == 0 ? std::nullopt : std::optional<int>(topic.parentIndex), key,
            text);
        // A parent is expanded right after its last child.
        const bool lastChild =
            index == TreeView1->nodeCount() &&
            (index == static_cast<int>(topics::kTopics.size()) ||
             topics::kTopics[static_cast<std::size_t>(index)].parentIndex != topic.parentIndex);
        if (topic.parentIndex != 0 && lastChild)
            TreeView1->setExpanded(topic.parentIndex, true);
    }

    BoldTopTopics();
    initKeys();
    load169();
    WebBrowser1->Navigate2(platform::AppPath(QStringLiteral("\\html\\intro.html")));
    WebBrowser1->setVisible(true);
    picQuiz->setVisible(false);
    picDemo->setVisible(false);
    promoteOnClose = true;
}

void frmMain::Form_Activate() {
    TreeView1->setFocus();
}

void frmMain::Form_Resize() {
    fitPanesToWindow();
    try {
        initKeys();
    } catch (const platform::InvalidPropertyValue&) {
    }
}

void frmMain::fitPanesToWindow() {
    // Each step that fails (a negative size is refused) is skipped; the next one still runs.
    const auto step = [](auto&& action) {
        try {
            action();
        } catch (const platform::InvalidPropertyValue&) {
        }
    };
    step([&] { WebBrowser1->setWidth(outerWidthTwips() - TreeView1->Width() - 600); });
    step([&] { WebBrowser1->setHeight(outerHeightTwips() - 850); });
    step([&] { TreeView1->setHeight(WebBrowser1->Height()); });
}

void frmMain::load169() {
    cards::Checked<pairs::KeyedList> loaded = pairs::load169(
        QDir(platform::ApplicationFolder()).filePath(QStringLiteral("169.txt")).toStdString());
    if (loaded.failure)
        platform::MsgBox(QString::fromStdString(*loaded.failure));
    state_.pairTable = std::move(loaded.value);
}
