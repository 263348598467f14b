// Watching the promotion window from inside its animation: every card picture shown or
// hidden is logged with where the board cards stand, and a test may act at that moment
// (close the window, click its button). A still clock lets a wait end only by being stopped.
#pragma once

#include <QApplication>
#include <QEvent>
#include <QTimer>
#include <array>
#include <functional>
#include <string>
#include <vector>

#include "platform/mDefs.h"
#include "promotion/frmPacific.h"
#include "promotion/frmPacific2.h"
#include "support/window_fixture.h"

namespace promotion_test {

// Where Picture1(0..4) start, and where they stand once the board is spread.
inline constexpr std::array<double, 5> kStackLefts{2265, 2265, 2280, 2280, 1905};
inline constexpr std::array<double, 5> kSpreadLefts{2265, 2676, 3102, 3513, 1905 + 1644};

struct Entry {
    std::string control;  // "Picture2(7)", "Picture3"...
    bool shown;
    std::array<double, 5> boardLefts;
    bool tableClear;  // no card of the deal on the table
};

class AnimationLog : public QObject {
  public:
    // Called after each entry is logged; the promotion window is the one being watched.
    std::function<void(const Entry&, frmPacific&)> onEntry;
    std::vector<Entry> entries;

    AnimationLog() { test_support::app().installEventFilter(this); }
    ~AnimationLog() override { QCoreApplication::instance()->removeEventFilter(this); }

    std::vector<std::string> shownBeforeFirstHide() const {
        std::vector<std::string> names;
        for (const Entry& entry : entries) {
            if (!entry.shown)
                break;
            names.push_back(entry.control);
        }
        return names;
    }
    const Entry* first(const std::string& control, bool shown, std::size_t from = 0) const {
        for (std::size_t i = from; i < entries.size(); ++i) {
            if (entries[i].control == control && entries[i].shown == shown)
                return &entries[i];
        }
        return nullptr;
    }
    std::size_t indexOf(const Entry* entry) const {
        return static_cast<std::size_t>(entry - entries.data());
    }

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        const bool shown = event->type() == QEvent::ShowToParent;
        if (!shown && event->type() != QEvent::HideToParent)
            return false;
        auto* widget = qobject_cast<QWidget*>(watched);
        auto* window = widget ? qobject_cast<frmPacific*>(widget->window()) : nullptr;
        if (window == nullptr || !isCardPicture(*widget))
            return false;
        // The log starts once the window is on the screen, after it has set up its table.
        if (window->isVisible())
            started_ = window;
        if (window != started_)
            return false;
        // The event comes before the flag changes; log the state as it will be.
        entries.push_back({widget->objectName().toStdString(), shown, lefts(*window),
                           tableClear(*window, widget, shown)});
        if (onEntry)
            onEntry(entries.back(), *window);
        return false;
    }

  private:
    const frmPacific* started_ = nullptr;

    static bool isCardPicture(const QWidget& widget) {
        const QString name = widget.objectName();
        return name.startsWith(QStringLiteral("Picture1(")) ||
               name.startsWith(QStringLiteral("Picture2(")) || name == QStringLiteral("Picture3");
    }

    static std::array<double, 5> lefts(const frmPacific& window) {
        std::array<double, 5> at{};
        for (std::size_t i = 0; i < at.size(); ++i)
            at[i] = window.Picture1.at(i)->Left();
        return at;
    }
    static bool tableClear(const frmPacific& window, const QWidget* changing, bool shown) {
        const auto hidden = [&](const QWidget* box) {
            return box == changing ? !shown : box->isHidden();
        };
        bool clear = hidden(window.Picture3);
        for (const auto* seat : window.Picture2)
            clear = clear && hidden(seat);
        for (std::size_t i = 0; i < 5; ++i)
            clear = clear && hidden(window.Picture1.at(i));
        return clear;
    }
};

// The clock stands still, so a wait ends only when something stops it. Should one still be
// running after a few seconds, the watchdog lets time run so the test ends and fails.
class StillClock {
  public:
    StillClock() {
        platform::seams().waitScale = 1;
        platform::seams().tickCount = [this] { return watchdogFired ? now += 3'600'000 : now; };
        watchdog_.setSingleShot(true);
        QObject::connect(&watchdog_, &QTimer::timeout, [this] {
            watchdogFired = true;
            platform::InterruptWaits();
        });
        watchdog_.start(5000);
    }
    ~StillClock() {
        platform::seams().tickCount = [] { return std::int64_t{0}; };
        platform::seams().waitScale = 0;
    }
    StillClock(const StillClock&) = delete;
    StillClock& operator=(const StillClock&) = delete;
    bool watchdogFired = false;

  private:
    std::int64_t now = 0;
    QTimer watchdog_;
};

inline int promotionWindowCount() {
    int count = 0;
    for (QWidget* window : QApplication::topLevelWidgets()) {
        if (qobject_cast<frmPacific*>(window) != nullptr)
            ++count;
    }
    return count;
}

}  // namespace promotion_test
