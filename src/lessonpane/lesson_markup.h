// The lessons as Qt's rich-text engine reads them. The pages are plain HTML5 with one shared
// stylesheet; the few constructs that engine lacks are written in ones it has before it reads
// a page, so the pages stay what any browser shows well.
#pragma once

#include <QByteArray>
#include <QString>
#include <QUrl>

namespace platform::lesson {

// The page's text, in the encoding its bytes declare (UTF-8 when they declare none).
QString decoded(const QByteArray& data);

// The page with its local linked stylesheets written into it. Qt's reader takes a linked
// sheet only when it says type="text/css", which HTML lets a page leave out, and gives a
// sheet in the page more weight than a default one (the size of a heading, for one).
QString withStyleSheetsInline(const QString& html, const QUrl& page);

// The page for the rich-text engine: a call-out (<aside class="tip">) becomes a one-cell
// table, which can have a coloured edge and background; the page title (<h1>) gets its rule
// underneath; a card chip gets a little room inside and between its neighbours.
QString forRichText(const QString& html);

}  // namespace platform::lesson
