#include "platform/webbrowser.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLibrary>
#include <QPointer>
#include <QRegularExpression>
#include <QStackedLayout>
#include <QStringDecoder>
#include <QTextBrowser>
#include <QTimer>

#include "platform/mDefs.h"

#ifdef Q_OS_UNIX
#include <unistd.h>
#endif

#if QT_CONFIG(opengl)
#include <QOpenGLContext>
// Qt's own setter of the global share context (exported by Qt GUI, declared in a private
// header).
Q_GUI_EXPORT void qt_gl_set_global_share_context(QOpenGLContext* context);
#endif

namespace platform {

namespace {

bool g_engineAllowed = true;

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

// The value of one attribute of an HTML tag, quoted or not; empty when absent.
QString attributeOf(const QString& tag, const QString& name) {
    const QRegularExpression attribute(
        QStringLiteral(R"re(\s%1\s*=\s*(?:"([^"]*)"|'([^']*)'|([^\s"'<>`]+)))re").arg(name),
        QRegularExpression::CaseInsensitiveOption);
    const QRegularExpressionMatch match = attribute.match(tag);
    for (int group = 1; group <= 3; ++group) {
        if (match.hasCaptured(group))
            return match.captured(group);
    }
    return {};
}

bool isStyleSheetLink(const QString& tag) {
    const QStringList rel =
        attributeOf(tag, QStringLiteral("rel")).toLower().split(u' ', Qt::SkipEmptyParts);
    if (!rel.contains(QStringLiteral("stylesheet")) || rel.contains(QStringLiteral("alternate")))
        return false;
    const QString type = attributeOf(tag, QStringLiteral("type")).trimmed();
    return type.isEmpty() || type.compare(QStringLiteral("text/css"), Qt::CaseInsensitive) == 0;
}

// Qt's HTML reader only takes a linked stylesheet that says type="text/css"; the lessons
// leave the type out, as HTML allows, so the pane gathers their local sheets itself.
QString linkedStyleSheets(QString html, const QUrl& page) {
    static const QRegularExpression comment(QStringLiteral("<!--.*?-->"),
                                            QRegularExpression::DotMatchesEverythingOption);
    static const QRegularExpression linkTag(QStringLiteral(R"(<link\s[^>]*>)"),
                                            QRegularExpression::CaseInsensitiveOption);
    html.remove(comment);
    QString css;
    for (const QRegularExpressionMatch& match : linkTag.globalMatch(html)) {
        const QString tag = match.captured();
        if (!isStyleSheetLink(tag))
            continue;
        const QUrl sheet = page.resolved(QUrl(attributeOf(tag, QStringLiteral("href"))));
        QFile file(sheet.toLocalFile());
        if (sheet.isLocalFile() && file.open(QIODevice::ReadOnly)) {
            css += QString::fromUtf8(file.readAll()) + u'\n';
        }
    }
    return css;
}

QString decodeHtml(const QByteArray& data) {
    QStringDecoder decoder = QStringDecoder::decoderForHtml(data);
    if (!decoder.isValid())
        decoder = QStringDecoder(QStringDecoder::Utf8);
    return decoder(data);
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
        document()->setDefaultStyleSheet(QString());
        if (!name.isLocalFile())
            return outsidePage(name);
        QFile file(name.toLocalFile());
        if (!QFileInfo(file).isFile() || !file.open(QIODevice::ReadOnly))
            return notFoundPage(name);
        const QString html = decodeHtml(file.readAll());
        document()->setDefaultStyleSheet(linkedStyleSheets(html, name));
        return html;
    }
};

class TextPane final : public WebPane {
  public:
    explicit TextPane(QWidget* parent) : browser_(new LessonTextBrowser(parent)) {
        browser_->setObjectName(QStringLiteral("lessonTextPane"));
        browser_->setAccessibleName(QStringLiteral("Lesson"));
        browser_->setOpenLinks(false);
        browser_->setOpenExternalLinks(false);
        QObject::connect(browser_, &QTextBrowser::anchorClicked, browser_,
                         [this](const QUrl& link) {
                             const QUrl target = browser_->source().resolved(link);
                             if (navigationObserver_)
                                 navigationObserver_(target);
                             navigate(target);
                         });
    }
    ~TextPane() override { delete browser_; }
    QWidget* widget() override { return browser_; }
    void navigate(const QUrl& url) override {
        const bool samePage =
            url.adjusted(QUrl::RemoveFragment) == browser_->source().adjusted(QUrl::RemoveFragment);
        if (samePage && !url.hasFragment()) {
            browser_->reload();
        } else {
            browser_->setSource(url, QTextDocument::HtmlResource);
        }
        if (const LoadObserver observer = loadObserver_)
            observer();  // read at once, from the disk
    }
    void setNavigationObserver(NavigationObserver observer) override {
        navigationObserver_ = std::move(observer);
    }
    void setLoadObserver(LoadObserver observer) override { loadObserver_ = std::move(observer); }

  private:
    QPointer<QTextBrowser> browser_;  // its parent widget deletes it if it goes first
    NavigationObserver navigationObserver_;
    LoadObserver loadObserver_;
};

void allowEngineAsRoot() {
#ifdef Q_OS_UNIX
    // Chromium refuses to run its sandbox as root (as in CI containers).
    if (geteuid() == 0)
        qputenv("QTWEBENGINE_DISABLE_SANDBOX", "1");
#endif
}

// The engine pane draws in software. Asked what the platform can do, Qt's X11 OpenGL
// integration would load the OpenGL driver (a third of a second) and Mesa would start its
// shader cache under ~/.cache; the program writes nothing.
void keepOpenGLAway() {
    if (qEnvironmentVariableIsEmpty("QT_XCB_GL_INTEGRATION"))
        qputenv("QT_XCB_GL_INTEGRATION", "none");
    qputenv("MESA_SHADER_CACHE_DISABLE", "true");
    QCoreApplication::setAttribute(Qt::AA_DisableShaderDiskCache);
}

// The engine will not start without a global shared OpenGL context. Qt makes one while the
// application object is built if asked to (Qt::AA_ShareOpenGLContexts), loading the OpenGL
// driver before the window can show. The pane draws in software and never renders with
// that context, so a context that is never created stands in, set here, after the first
// paint.
void provideShareContext() {
#if QT_CONFIG(opengl)
    if (!QOpenGLContext::globalShareContext()) {
        qt_gl_set_global_share_context(new QOpenGLContext(QCoreApplication::instance()));
    }
#endif
}

QString addressOf(const QUrl& url) {
    return url.isLocalFile() && !url.hasFragment() ? url.toLocalFile() : url.toString();
}

}  // namespace

WebPane* createTextPane(QWidget* parent) {
    return new TextPane(parent);
}

WebBrowser::WebBrowser(QWidget* parent, const QString& name)
    : QWidget(parent), TwipsGeometry(this), stack_(new QStackedLayout(this)) {
    setObjectName(name);
    setAccessibleName(QStringLiteral("Lesson"));
    // The engine pane loads its first page under the text pane, drawn but out of sight.
    stack_->setStackingMode(QStackedLayout::StackAll);
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
    current_ = url;
    if (pane_)
        pane_->navigate(url);
    if (warming_)
        warming_->navigate(url);
}

void WebBrowser::startPane() {
    if (pane_)
        return;
    pane_.reset(createTextPane(this));
    backend_ = Backend::Text;
    watchNavigation(*pane_);
    stack_->addWidget(pane_->widget());
    if (!current_.isEmpty())
        pane_->navigate(current_);
    emit paneReady();
    engineDue_ = g_engineAllowed;
}

void WebBrowser::paintEvent(QPaintEvent* event) {
    QWidget::paintEvent(event);
    // The engine's libraries load once the text pane has painted the page: right after
    // this paint, not before it (the repaint waits behind queued calls).
    if (engineDue_) {
        engineDue_ = false;
        QTimer::singleShot(0, this, &WebBrowser::startEngine);
    }
}

void WebBrowser::watchNavigation(WebPane& pane) {
    pane.setNavigationObserver([this](const QUrl& url) {
        emit BeforeNavigate2(addressOf(url));
        current_ = url;
        if (warming_)
            warming_->navigate(url);
    });
}

void WebBrowser::startEngine() {
    if (warming_ || backend_ != Backend::Text)
        return;
    WebPane* engine = loadEnginePane();
    if (!engine)
        return;  // the text pane stays
    warming_.reset(engine);
    watchNavigation(*warming_);
    stack_->addWidget(warming_->widget());
    if (current_.isEmpty()) {
        showEngine();
        return;
    }
    warming_->setLoadObserver([this] { showEngine(); });
    warming_->navigate(current_);
}

void WebBrowser::showEngine() {
    if (!warming_)
        return;
    warming_->setLoadObserver({});
    pane_ = std::move(warming_);  // the text pane goes
    backend_ = Backend::Engine;
    stack_->setCurrentWidget(pane_->widget());
}

WebPane* WebBrowser::loadEnginePane() {
    QLibrary module(QDir(ApplicationFolder()).filePath(QString::fromLatin1(kWebPaneModuleName)));
    auto create = reinterpret_cast<CreateWebPaneFunction>(module.resolve(kCreateWebPaneSymbol));
    if (!create)
        return nullptr;
    allowEngineAsRoot();
    keepOpenGLAway();
    provideShareContext();
    return create(this);
}

}  // namespace platform
