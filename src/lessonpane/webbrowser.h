// The lesson pane. It shows local HTML pages and follows their links, also to outside
// addresses: every navigation goes ahead in the pane. Local pages (the lessons) are drawn by
// Qt's own rich-text engine; an address on the web loads the browser-engine module and shows
// in it, until a local page is asked for again. Without the module a short page says that
// the address can't be shown here.
#pragma once

#include <QString>
#include <QUrl>
#include <memory>

#include "lessonpane/webpane.h"
#include "platform/controls.h"

class QStackedLayout;

namespace platform {

class WebBrowser : public QWidget, public TwipsGeometry {
    Q_OBJECT
  public:
    enum class Backend { Native, Engine };

    explicit WebBrowser(QWidget* parent, const QString& name);
    ~WebBrowser() override;

    void Navigate2(const QString& address);
    // The address of the last Navigate2, as it was given.
    QString LocationURL() const { return address_; }
    // Which pane is on show.
    Backend backend() const { return backend_; }

    // Whether the engine module may be tried (tests and platforms without it say no).
    static void setEngineAllowed(bool allowed);
    static bool engineAllowed();

  signals:
    // Before each navigation: those asked for with Navigate2 and the links followed in the
    // pane. Nothing is filtered.
    void BeforeNavigate2(const QString& address);

  private:
    void goTo(const QUrl& url);
    bool linkFollowed(const QUrl& url, Backend from);
    WebPane& paneFor(const QUrl& url);
    WebPane* enginePane();
    void showPane(WebPane& pane, Backend backend);
    void releaseEngineLater();

    QStackedLayout* stack_;
    std::unique_ptr<WebPane> native_;
    std::unique_ptr<WebPane> engine_;  // from the first web address on, while on show
    bool engineFailed_ = false;        // said once why, then the message page
    Backend backend_ = Backend::Native;
    QString address_;
};

}  // namespace platform
