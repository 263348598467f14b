#include "lessonpane/webbrowser.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLibrary>
#include <QPointer>
#include <QStackedLayout>
#include <QTextBrowser>
#include <QTimer>

#include "lessonpane/lesson_markup.h"
#include "platform/mDefs.h"

namespace platform {

namespace {

bool g_engineAllowed = true;

// Room around the page, and the size of the text that headings are scaled from, in pixels.
constexpr int kPageMargin = 18;
constexpr int kTextSize = 15;

QUrl urlOf(const QString& address) {
    const QUrl url(address);
    if (url.isValid() && url.scheme().size() > 1)
        return url;  // "C:" is a drive, not a scheme
    return QUrl::fromLocalFile(QFileInfo(address).absoluteFilePath());
}

QString shownAddress(const QUrl& url) {
    return url.isLocalFile() ? QDir::toNativeSeparators(url.toLocalFile()) : url.toDisplayString();
}

// A page of the pane's own, in the plain look of a browser's message pages.
QString messagePage(const QString& heading, const QString& detail, const QUrl& url) {
    return QStringLiteral(
               "<html><head><title>%1</title></head>"
               "<body style='font-family:sans-serif;margin:24px;color:#333333'>"
               "<h2 style='color:#555555'>%1</h2><p><b>%2</b></p><p>%3</p></body></html>")
        .arg(heading.toHtmlEscaped(), shownAddress(url).toHtmlEscaped(), detail.toHtmlEscaped());
}

QString notFoundPage(const QUrl& url) {
    return messagePage(QStringLiteral("This page can't be found"),
                       QStringLiteral("The file may have been moved or deleted. "
                                      "Choose another topic in the tree on the left."),
                       url);
}

QString outsidePage(const QUrl& url) {
    return messagePage(QStringLiteral("This page can't be shown here"),
                       QStringLiteral("This viewer shows the lessons that come with the program; "
                                      "it cannot open pages on the web. "
                                      "Choose a topic in the tree on the left to go on."),
                       url);
}

// A text browser that makes each page itself: a local file with its linked stylesheets,
// or a short page saying why the address can't be shown, as a browser would.
class LessonTextBrowser final : public QTextBrowser {
  public:
    using QTextBrowser::QTextBrowser;

  protected:
    QVariant loadResource(int type, const QUrl& name) override {
        if (type != QTextDocument::HtmlResource)
            return QTextBrowser::loadResource(type, name);
        if (!name.isLocalFile())
            return outsidePage(name);
        QFile file(name.toLocalFile());
        if (!QFileInfo(file).isFile() || !file.open(QIODevice::ReadOnly))
            return notFoundPage(name);
        const QString page = lesson::forRichText(lesson::decoded(file.readAll()));
        return lesson::withStyleSheetsInline(page, name);
    }
};

// The pane for local pages, drawn by Qt's rich-text engine.
class NativePane final : public WebPane {
  public:
    explicit NativePane(QWidget* parent) : browser_(new LessonTextBrowser(parent)) {
        browser_->setObjectName(QStringLiteral("lessonTextPane"));
        browser_->setAccessibleName(QStringLiteral("Lesson"));
        browser_->setFrameShape(QFrame::NoFrame);
        browser_->document()->setDocumentMargin(kPageMargin);
        QFont font = browser_->document()->defaultFont();
        font.setPixelSize(kTextSize);
        browser_->document()->setDefaultFont(font);
        browser_->setOpenLinks(false);
        browser_->setOpenExternalLinks(false);
        QObject::connect(browser_, &QTextBrowser::anchorClicked, browser_,
                         [this](const QUrl& link) {
                             const QUrl target = browser_->source().resolved(link);
                             if (!navigationObserver_ || navigationObserver_(target))
                                 navigate(target);
                         });
    }
    ~NativePane() override { delete browser_; }
    QWidget* widget() override { return browser_; }
    void navigate(const QUrl& url) override {
        const bool samePage =
            url.adjusted(QUrl::RemoveFragment) == browser_->source().adjusted(QUrl::RemoveFragment);
        if (samePage && !url.hasFragment()) {
            browser_->reload();
        } else {
            browser_->setSource(url, QTextDocument::HtmlResource);
        }
    }
    void setNavigationObserver(NavigationObserver observer) override {
        navigationObserver_ = std::move(observer);
    }

  private:
    QPointer<QTextBrowser> browser_;  // its parent widget deletes it if it goes first
    NavigationObserver navigationObserver_;
};

QString addressOf(const QUrl& url) {
    return url.isLocalFile() && !url.hasFragment() ? url.toLocalFile() : url.toString();
}

}  // namespace

WebBrowser::WebBrowser(QWidget* parent, const QString& name)
    : QWidget(parent),
      TwipsGeometry(this),
      stack_(new QStackedLayout(this)),
      native_(std::make_unique<NativePane>(this)) {
    setObjectName(name);
    setAccessibleName(QStringLiteral("Lesson"));
    native_->setNavigationObserver(
        [this](const QUrl& url) { return linkFollowed(url, Backend::Native); });
    stack_->addWidget(native_->widget());
}

WebBrowser::~WebBrowser() = default;

void WebBrowser::setEngineAllowed(bool allowed) {
    g_engineAllowed = allowed;
}
bool WebBrowser::engineAllowed() {
    return g_engineAllowed;
}

void WebBrowser::Navigate2(const QString& address) {
    emit BeforeNavigate2(address);
    address_ = address;
    goTo(urlOf(address));
}

void WebBrowser::goTo(const QUrl& url) {
    WebPane& pane = paneFor(url);
    pane.navigate(url);
    showPane(pane, &pane == native_.get() ? Backend::Native : Backend::Engine);
}

// A link followed in one of the panes: it goes ahead there, or in the other pane.
bool WebBrowser::linkFollowed(const QUrl& url, Backend from) {
    emit BeforeNavigate2(addressOf(url));
    const bool native = &paneFor(url) == native_.get();
    if (native == (from == Backend::Native))
        return true;
    goTo(url);
    return false;
}

WebPane& WebBrowser::paneFor(const QUrl& url) {
    if (url.isLocalFile())
        return *native_;
    WebPane* engine = enginePane();
    return engine ? *engine : *native_;  // the native pane says why it can't show it
}

void WebBrowser::showPane(WebPane& pane, Backend backend) {
    stack_->setCurrentWidget(pane.widget());
    backend_ = backend;
    if (backend == Backend::Native)
        releaseEngineLater();
}

// The engine's memory goes back once a lesson is on show again.
void WebBrowser::releaseEngineLater() {
    if (!engine_)
        return;
    QTimer::singleShot(0, this, [this] {
        if (backend_ == Backend::Native)
            engine_.reset();
    });
}

WebPane* WebBrowser::enginePane() {
    if (engine_ || engineFailed_ || !g_engineAllowed)
        return engine_.get();
#ifdef TABLEWRIGHT_WEBENGINE_MODULE
    QLibrary module(QDir(ApplicationFolder()).filePath(QString::fromLatin1(kWebPaneModuleName)));
    const auto create =
        reinterpret_cast<CreateWebPaneFunction>(module.resolve(kCreateWebPaneSymbol));
    if (!create) {
        engineFailed_ = true;
        qWarning("The lesson pane shows no web pages: %s", qPrintable(module.errorString()));
        return nullptr;
    }
    engine_.reset(create(this));
    engine_->setNavigationObserver(
        [this](const QUrl& url) { return linkFollowed(url, Backend::Engine); });
    stack_->addWidget(engine_->widget());
    return engine_.get();
#else
    engineFailed_ = true;
    return nullptr;
#endif
}

}  // namespace platform
