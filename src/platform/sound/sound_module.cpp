// The answer sounds, built as a module: Qt Multimedia and the sound server's client bring some
// twenty libraries, so they are loaded when the first answer is judged, not at start-up.
#include <QCoreApplication>
#include <QSoundEffect>
#include <QString>
#include <QUrl>
#include <map>

// One effect per file, kept for the life of the program. A new sound cuts off the one still
// playing, its own file included, so only the latest answer is heard.
extern "C" Q_DECL_EXPORT void tablewright_play_sound(const QString& path) {
    static std::map<QString, QSoundEffect*> effects;
    static QSoundEffect* playing = nullptr;
    if (playing)
        playing->stop();
    playing = nullptr;
    if (path.isEmpty())
        return;
    auto& effect = effects[path];
    if (!effect) {
        effect = new QSoundEffect(QCoreApplication::instance());
        effect->setSource(QUrl::fromLocalFile(path));
    }
    effect->play();
    playing = effect;
}
