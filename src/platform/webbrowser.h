// The lesson pane. It shows local HTML pages and follows their links, also to outside
// addresses. Pages show through a real browser engine, loaded as a module once the window
// is on the screen; without the module it falls back to a text pane. A Navigate2 that
// comes before the pane is ready is kept and carried out.
#pragma once

#include <QString>
#include <memory>

#include "platform/controls.h"
#include "platform/webpane.h"

namespace platform {

class WebBrowser : public QWidget, public TwipsGeometry {
    Q_OBJECT
public:
    enum class Backend { Pending, Engine, Text };

    explicit WebBrowser(QWidget* parent, const QString& name);
    ~WebBrowser() override;

    void Navigate2(const QString& address);
    // The address of the last navigation asked for.
    QString LocationURL() const { return address_; }
    Backend backend() const { return backend_; }
    // Creates the pane: the engine module if allowed and loadable, else the text pane.
    void startPane();

    // Whether the engine module may be tried (tests and platforms without it say no).
    static void setEngineAllowed(bool allowed);
    static bool engineAllowed();

signals:
    // Before each navigation. Nothing is filtered.
    void BeforeNavigate2(const QString& address);
    void paneReady();

private:
    void adoptPane(WebPane* pane, Backend backend);
    WebPane* loadEnginePane();

    std::unique_ptr<WebPane> pane_;
    Backend backend_ = Backend::Pending;
    QString address_;
    bool pendingNavigation_ = false;
};

// The text pane fallback, exported for tests.
WebPane* createTextPane(QWidget* parent);

}  // namespace platform
