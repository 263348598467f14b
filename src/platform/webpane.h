// The interface between the lesson pane's host and the pane that shows the pages: the
// browser-engine pane (a module loaded after the first paint) or the text pane fallback.
#pragma once

#include <QUrl>
#include <QWidget>

namespace platform {

class WebPane {
public:
    virtual ~WebPane() = default;
    virtual QWidget* widget() = 0;
    virtual void navigate(const QUrl& url) = 0;
};

// The module exports this function under the name below.
using CreateWebPaneFunction = WebPane* (*)(QWidget* parent);
inline constexpr const char* kCreateWebPaneSymbol = "tablewright_create_web_pane";
inline constexpr const char* kWebPaneModuleName = "tablewright_webpane";

}  // namespace platform
