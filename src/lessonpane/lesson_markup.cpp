#include "lessonpane/lesson_markup.h"

#include <QFile>
#include <QRegularExpression>
#include <QStringDecoder>
#include <QStringList>

namespace platform::lesson {

namespace {

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

QRegularExpression tagPattern(const char* pattern) {
    return QRegularExpression(
        QString::fromLatin1(pattern),
        QRegularExpression::CaseInsensitiveOption | QRegularExpression::DotMatchesEverythingOption);
}

// Each match of the pattern replaced by what `rewrite` makes of it.
template <class Rewrite>
QString rewritten(const QString& html, const QRegularExpression& pattern, Rewrite rewrite) {
    QString out;
    out.reserve(html.size() + html.size() / 8);
    qsizetype from = 0;
    for (const QRegularExpressionMatch& match : pattern.globalMatch(html)) {
        out += QStringView(html).mid(from, match.capturedStart() - from);
        out += rewrite(match);
        from = match.capturedEnd();
    }
    out += QStringView(html).mid(from);
    return out;
}

QString calloutsAsTables(const QString& html) {
    static const QRegularExpression open = tagPattern(R"(<aside(\s[^>]*)?>)");
    static const QRegularExpression close = tagPattern(R"(</aside\s*>)");
    const QString opened = rewritten(html, open, [](const QRegularExpressionMatch& match) {
        const QString kind = attributeOf(match.captured(), QStringLiteral("class"));
        return QStringLiteral(R"(<table class="callout %1" width="100%"><tr><td>)")
            .arg(kind.toHtmlEscaped());
    });
    return QString(opened).replace(close, QStringLiteral("</td></tr></table>"));
}

QString ruleUnderTitles(const QString& html) {
    static const QRegularExpression close = tagPattern(R"(</h1\s*>)");
    return QString(html).replace(
        close,
        QStringLiteral(R"(</h1><table class="rule" width="100%"><tr><td></td></tr></table>)"));
}

QString roomyCardChips(const QString& html) {
    static const QRegularExpression chip =
        tagPattern(R"((<span\s[^>]*class\s*=\s*["']card\b[^>]*>)(.*?)(</span\s*>))");
    static const QRegularExpression neighbours =
        tagPattern(R"((</span>)(<span\s[^>]*class\s*=\s*["']card\b))");
    const QString padded = QString(html).replace(chip, QStringLiteral("\\1&nbsp;\\2&nbsp;\\3"));
    return QString(padded).replace(neighbours, QStringLiteral("\\1 \\2"));
}

}  // namespace

QString decoded(const QByteArray& data) {
    QStringDecoder decoder = QStringDecoder::decoderForHtml(data);
    if (!decoder.isValid())
        decoder = QStringDecoder(QStringDecoder::Utf8);
    return decoder(data);
}

QString withStyleSheetsInline(const QString& html, const QUrl& page) {
    static const QRegularExpression linkTag = tagPattern(R"(<link\s[^>]*>)");
    return rewritten(html, linkTag, [&page](const QRegularExpressionMatch& match) {
        const QString tag = match.captured();
        const QUrl sheet = page.resolved(QUrl(attributeOf(tag, QStringLiteral("href"))));
        QFile file(sheet.toLocalFile());
        if (!isStyleSheetLink(tag) || !sheet.isLocalFile() || !file.open(QIODevice::ReadOnly))
            return tag;
        return QStringLiteral("<style>") + QString::fromUtf8(file.readAll()) +
               QStringLiteral("</style>");
    });
}

QString forRichText(const QString& html) {
    return roomyCardChips(ruleUnderTitles(calloutsAsTables(html)));
}

}  // namespace platform::lesson
