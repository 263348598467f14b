// The browser-engine lesson pane, built as a module so that the program's window is on
// the screen before the engine's large libraries are loaded.
#include <QPointer>
#include <QQuickWindow>
#include <QWebEnginePage>
#include <QWebEngineProfile>
#include <QWebEngineSettings>
#include <QWebEngineView>
#include <memory>

#include "platform/webpane.h"

namespace {

// Every navigation goes ahead; those the page starts by itself are told to the host first.
class LessonPage final : public QWebEnginePage {
  public:
    using QWebEnginePage::QWebEnginePage;
    platform::WebPane::NavigationObserver observer;

  protected:
    bool acceptNavigationRequest(const QUrl& url, NavigationType type, bool isMainFrame) override {
        // Typed: the host's own navigate(), already told; reloads and redirects go on with a
        // navigation already told.
        const bool startedByPage = type != NavigationTypeTyped && type != NavigationTypeReload &&
                                   type != NavigationTypeRedirect;
        if (isMainFrame && startedByPage && observer)
            observer(url);
        return true;
    }
};

// A link or script that asks for a new window opens its page in the pane itself: the
// pane is the only browser the lessons have.
class LessonView final : public QWebEngineView {
  public:
    using QWebEngineView::QWebEngineView;

  protected:
    QWebEngineView* createWindow(QWebEnginePage::WebWindowType) override { return this; }
};

class EnginePane final : public platform::WebPane {
  public:
    explicit EnginePane(QWidget* parent)
        : profile_(std::make_unique<QWebEngineProfile>()),  // no storage name: off the record
          view_(new LessonView(parent)),
          page_(new LessonPage(profile_.get(), view_)) {
        // Nothing goes to the disk: memory cache, session cookies only.
        profile_->setHttpCacheType(QWebEngineProfile::MemoryHttpCache);
        profile_->setPersistentCookiesPolicy(QWebEngineProfile::NoPersistentCookies);
        view_->setPage(page_);
        view_->setObjectName(QStringLiteral("lessonEnginePane"));
        view_->setAccessibleName(QStringLiteral("Lesson"));
        view_->setContextMenuPolicy(Qt::NoContextMenu);
        view_->settings()->setAttribute(QWebEngineSettings::LocalContentCanAccessRemoteUrls, true);
        QObject::connect(view_, &QWebEngineView::loadFinished, view_, [this] {
            if (const LoadObserver observer = loadObserver_)
                observer();
        });
    }
    // The page must go before its profile.
    ~EnginePane() override { delete view_; }

    QWidget* widget() override { return view_; }
    void navigate(const QUrl& url) override { view_->load(url); }
    void setNavigationObserver(NavigationObserver observer) override {
        page_->observer = std::move(observer);
    }
    void setLoadObserver(LoadObserver observer) override { loadObserver_ = std::move(observer); }

  private:
    std::unique_ptr<QWebEngineProfile> profile_;
    QPointer<LessonView> view_;  // owned by the parent widget, or by this pane at its end
    QPointer<LessonPage> page_;  // owned by the view
    LoadObserver loadObserver_;
};

}  // namespace

extern "C" Q_DECL_EXPORT platform::WebPane* tablewright_create_web_pane(QWidget* parent) {
    // Software drawing: OpenGL in the main window would make Qt re-create the window
    // (it blinks off and on), and the engine has no context to share (see the host).
    if (QQuickWindow::graphicsApi() != QSGRendererInterface::Software)
        QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
    return new EnginePane(parent);
}
