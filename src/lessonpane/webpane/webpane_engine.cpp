// The browser-engine lesson pane, built as a module: its large libraries are loaded only
// when the pane is first asked for a page on the web.
#include <QCoreApplication>
#include <QLoggingCategory>
#include <QPointer>
#include <QQuickWindow>
#include <QWebEnginePage>
#include <QWebEngineProfile>
#include <QWebEngineView>
#include <memory>

#include "lessonpane/webpane.h"

#ifdef Q_OS_UNIX
#include <unistd.h>
#endif

namespace {

// Every navigation goes ahead; those the page starts by itself are told to the host first,
// which may show them in its other pane instead.
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
        return !(isMainFrame && startedByPage && observer) || observer(url);
    }
    // What a page says on its script console is the page's business, not the terminal's.
    void javaScriptConsoleMessage(JavaScriptConsoleMessageLevel, const QString&, int,
                                  const QString&) override {}
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
    }
    // The page must go before its profile.
    ~EnginePane() override { delete view_; }

    QWidget* widget() override { return view_; }
    void navigate(const QUrl& url) override { view_->load(url); }
    void setNavigationObserver(NavigationObserver observer) override {
        page_->observer = std::move(observer);
    }

  private:
    std::unique_ptr<QWebEngineProfile> profile_;
    QPointer<LessonView> view_;  // owned by the parent widget, or by this pane at its end
    QPointer<LessonPage> page_;  // owned by the view
};

void addEngineFlags(const QByteArray& flags) {
    const QByteArray set = qgetenv("QTWEBENGINE_CHROMIUM_FLAGS");
    qputenv("QTWEBENGINE_CHROMIUM_FLAGS", set.isEmpty() ? flags : set + ' ' + flags);
}

void allowEngineAsRoot() {
#ifdef Q_OS_UNIX
    // Chromium refuses to run its sandbox as root (as in CI containers).
    if (geteuid() == 0)
        addEngineFlags("--no-sandbox");
#endif
}

// The pane draws in software: OpenGL in the main window would make Qt re-create the window
// (it blinks off and on), and the program has no OpenGL integration (see its start-up).
void drawInSoftware() {
    qputenv("MESA_SHADER_CACHE_DISABLE", "true");
    QCoreApplication::setAttribute(Qt::AA_DisableShaderDiskCache);
    QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
}

// Set once, before the engine's first page, when the engine starts. Chromium's own log goes to
// the terminal; only its fatal errors are kept.
void prepareEngine() {
    addEngineFlags("--log-level=3");
    // The engine's report of its graphics set-up, at each start.
    QLoggingCategory::setFilterRules(QStringLiteral("qt.webenginecontext.info=false"));
    allowEngineAsRoot();
    drawInSoftware();
}

}  // namespace

extern "C" Q_DECL_EXPORT platform::WebPane* tablewright_create_web_pane(QWidget* parent) {
    static const bool prepared = (prepareEngine(), true);
    Q_UNUSED(prepared);
    return new EnginePane(parent);
}
