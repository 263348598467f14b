#include "platform/webbrowser.h"

#include "platform/mDefs.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QLibrary>
#include <QTextBrowser>
#include <QVBoxLayout>

#ifdef Q_OS_UNIX
#include <unistd.h>
#endif

namespace platform {

namespace {

bool g_engineAllowed = true;

QUrl urlOf(const QString& address) {
    const QUrl url(address);
    if (url.isValid() && url.scheme().size() > 1) return url;  // "C:" is a drive, not a scheme
    return QUrl::fromLocalFile(address);
}

QString notFoundPage(const QUrl& url) {
    return QStringLiteral(
               "<html><body style='font-family:sans-serif;margin:24px'>"
               "<h2>This page can't be shown</h2><p>The page <b>%1</b> could not be found.</p>"
               "<p>Choose another topic in the tree on the left.</p></body></html>")
        .arg(url.toDisplayString().toHtmlEscaped());
}

// Shows local pages with Qt's rich-text engine; anything it cannot show gets a short page
// that says so, as a browser would.
class TextPane final : public WebPane {
public:
    explicit TextPane(QWidget* parent) : browser_(new QTextBrowser(parent)) {
        browser_->setObjectName(QStringLiteral("lessonTextPane"));
        browser_->setAccessibleName(QStringLiteral("Lesson"));
        browser_->setOpenLinks(false);
        browser_->setOpenExternalLinks(false);
        QObject::connect(browser_, &QTextBrowser::anchorClicked, browser_, [this](const QUrl& link) {
            navigate(browser_->source().resolved(link));
        });
    }
    QWidget* widget() override { return browser_; }
    void navigate(const QUrl& url) override {
        if (url.isLocalFile() && QFileInfo(url.toLocalFile()).isFile()) {
            browser_->setSource(url);
        } else {
            browser_->setHtml(notFoundPage(url));
        }
    }

private:
    QTextBrowser* browser_;  // owned by its parent widget
};

void allowEngineAsRoot() {
#ifdef Q_OS_UNIX
    // Chromium refuses to run its sandbox as root (as in CI containers).
    if (geteuid() == 0) qputenv("QTWEBENGINE_DISABLE_SANDBOX", "1");
#endif
}

}  // namespace

WebPane* createTextPane(QWidget* parent) { return new TextPane(parent); }

WebBrowser::WebBrowser(QWidget* parent, const QString& name) : QWidget(parent), TwipsGeometry(this) {
    setObjectName(name);
    setAccessibleName(QStringLiteral("Lesson"));
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
}

WebBrowser::~WebBrowser() = default;

void WebBrowser::setEngineAllowed(bool allowed) { g_engineAllowed = allowed; }
bool WebBrowser::engineAllowed() { return g_engineAllowed; }

void WebBrowser::Navigate2(const QString& address) {
    emit BeforeNavigate2(address);
    address_ = address;
    if (pane_) {
        pane_->navigate(urlOf(address));
    } else {
        pendingNavigation_ = true;
    }
}

void WebBrowser::startPane() {
    if (pane_) return;
    WebPane* pane = g_engineAllowed ? loadEnginePane() : nullptr;
    if (pane) {
        adoptPane(pane, Backend::Engine);
    } else {
        adoptPane(createTextPane(this), Backend::Text);
    }
}

WebPane* WebBrowser::loadEnginePane() {
    allowEngineAsRoot();
    QLibrary module(QDir(ApplicationFolder()).filePath(QString::fromLatin1(kWebPaneModuleName)));
    auto create = reinterpret_cast<CreateWebPaneFunction>(module.resolve(kCreateWebPaneSymbol));
    if (!create) return nullptr;
    return create(this);
}

void WebBrowser::adoptPane(WebPane* pane, Backend backend) {
    pane_.reset(pane);
    backend_ = backend;
    layout()->addWidget(pane_->widget());
    pane_->widget()->show();
    if (pendingNavigation_) {
        pendingNavigation_ = false;
        pane_->navigate(urlOf(address_));
    }
    emit paneReady();
}

}  // namespace platform
