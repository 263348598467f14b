// The interface between the lesson pane's host and the panes that show the pages: the
// native pane for the lessons, and the browser-engine pane, a module loaded when a page on
// the web is first asked for.
#pragma once

#include <QUrl>
#include <QWidget>
#include <functional>

namespace platform {

class WebPane {
  public:
    // Told of a navigation the pane starts by itself (a link followed), before it goes ahead;
    // answers whether it goes ahead in this pane (false: the host shows it in the other).
    using NavigationObserver = std::function<bool(const QUrl&)>;

    // The pane deletes its widget.
    virtual ~WebPane() = default;
    virtual QWidget* widget() = 0;
    // Shows the page at this address; returns at once, the page arrives later. Navigating to
    // the page on show loads it again.
    virtual void navigate(const QUrl& url) = 0;
    virtual void setNavigationObserver(NavigationObserver observer) = 0;
};

// The module exports this function under the name below.
using CreateWebPaneFunction = WebPane* (*)(QWidget* parent);
inline constexpr const char* kCreateWebPaneSymbol = "tablewright_create_web_pane";
inline constexpr const char* kWebPaneModuleName = "tablewright_webpane";

}  // namespace platform
