// The browser-engine lesson pane, built as a module so that the program's window is on
// the screen before the engine's large libraries are loaded.
#include <QWebEngineProfile>
#include <QWebEngineSettings>
#include <QWebEngineView>

#include "platform/webpane.h"

namespace {

class EnginePane final : public platform::WebPane {
public:
    explicit EnginePane(QWidget* parent)
        : profile_(new QWebEngineProfile(parent)),  // no storage name: off the record
          view_(new QWebEngineView(profile_, parent)) {
        view_->setObjectName(QStringLiteral("lessonEnginePane"));
        view_->setAccessibleName(QStringLiteral("Lesson"));
        profile_->setHttpCacheType(QWebEngineProfile::MemoryHttpCache);
        profile_->setPersistentCookiesPolicy(QWebEngineProfile::NoPersistentCookies);
        view_->settings()->setAttribute(QWebEngineSettings::LocalContentCanAccessRemoteUrls, true);
        view_->setContextMenuPolicy(Qt::NoContextMenu);
    }
    QWidget* widget() override { return view_; }
    void navigate(const QUrl& url) override { view_->load(url); }

private:
    QWebEngineProfile* profile_;  // owned by the parent widget
    QWebEngineView* view_;
};

}  // namespace

extern "C" Q_DECL_EXPORT platform::WebPane* tablewright_create_web_pane(QWidget* parent) {
    return new EnginePane(parent);
}
