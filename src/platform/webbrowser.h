// The lesson pane. It shows local HTML pages and follows their links, also to outside
// addresses. Pages show through a real browser engine, loaded as a module once the window
// is on the screen; until the engine has its first page in, and for good without the
// module, a text pane shows them. A Navigate2 that comes before the pane is ready is kept
// and carried out.
#pragma once

#include <QString>
#include <QUrl>
#include <memory>

#include "platform/controls.h"
#include "platform/webpane.h"

class QStackedLayout;

namespace platform {

class WebBrowser : public QWidget, public TwipsGeometry {
    Q_OBJECT
  public:
    enum class Backend { Pending, Engine, Text };

    explicit WebBrowser(QWidget* parent, const QString& name);
    ~WebBrowser() override;

    void Navigate2(const QString& address);
    // The address of the last Navigate2, as it was given.
    QString LocationURL() const { return address_; }
    // Text from startPane until the engine pane takes over, if it can.
    Backend backend() const { return backend_; }
    // Shows the text pane; once it is painted, loads the engine module if allowed.
    void startPane();

    // Whether the engine module may be tried (tests and platforms without it say no).
    static void setEngineAllowed(bool allowed);
    static bool engineAllowed();

  signals:
    // Before each navigation: those asked for with Navigate2 and the links followed in the
    // pane. Nothing is filtered.
    void BeforeNavigate2(const QString& address);
    // The first pane is on show.
    void paneReady();

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    void goTo(const QUrl& url);
    void watchNavigation(WebPane& pane);
    void startEngine();
    void showEngine();
    WebPane* loadEnginePane();

    QStackedLayout* stack_;
    std::unique_ptr<WebPane> pane_;     // the pane on show
    std::unique_ptr<WebPane> warming_;  // the engine pane until its first page is in
    Backend backend_ = Backend::Pending;
    QString address_;
    QUrl current_;  // where the panes are, or are to go
    bool engineDue_ = false;
};

// The text pane fallback, exported for tests.
WebPane* createTextPane(QWidget* parent);

}  // namespace platform
