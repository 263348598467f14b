// Window controls with the properties the logic works in: geometry in twips (stored
// unrounded, applied at 15 twips per pixel), colours as 0xRRGGBB, captions, border styles.
// `Visible` and `Enabled` are QWidget's own; the control's own flag is isHidden() /
// isEnabledTo(parent), not the effective isVisible() / isEnabled().
#pragma once

#include <QGroupBox>
#include <QImage>
#include <QLabel>
#include <QPainter>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QStringList>
#include <QWidget>
#include <cmath>
#include <cstdint>
#include <functional>
#include <stdexcept>

namespace platform {

inline constexpr double kTwipsPerPixel = 15.0;

// A property value the control refuses (a negative size); the caller's failure handling
// decides what follows, as with the original toolkit's run-time error.
class InvalidPropertyValue : public std::runtime_error {
  public:
    InvalidPropertyValue() : std::runtime_error("Invalid property value") {}
};

// Geometry in twips for any widget. Kept as double so layout rules give exact figures.
class TwipsGeometry {
  public:
    double Left() const { return left_; }
    double Top() const { return top_; }
    double Width() const { return width_; }
    double Height() const { return height_; }
    void setLeft(double twips);
    void setTop(double twips);
    void setWidth(double twips);   // throws InvalidPropertyValue when negative
    void setHeight(double twips);  // throws InvalidPropertyValue when negative
    void setGeometryTwips(double left, double top, double width, double height);

  protected:
    explicit TwipsGeometry(QWidget* self) : self_(self) {}
    // The pixel rectangle the twips map to.
    QRect pixelRect() const;
    void applyGeometry();

  private:
    QWidget* self_;
    double left_ = 0, top_ = 0, width_ = 0, height_ = 0;
};

// Maps a font of the original design ("MS Sans Serif", "Courier New", "Small Fonts") to
// what this platform has, at a size whose text takes the room the design gave it.
QFont designFont(const QString& family, double pointSize, bool bold = false,
                 bool underline = false);

// Runs `activated` each time `window` becomes the active window coming from another window
// of this program, and the first time it is activated at all; not when the user comes back
// to it from another application.
void onActivationFromOwnWindow(QWidget* window, std::function<void()> activated);

// Shows a control's move on the screen at once, without serving any event: repaints what it
// left and where it went, and gives the eye a moment before the next step.
void paintMoveNow(QWidget& moved, const QRect& from);

QColor colorFromRgb(std::int32_t rgb);

// A label: drawn text with an optional single-line border, a background colour or a
// transparent ground, and optionally a size that follows its caption.
class Label : public QLabel, public TwipsGeometry {
    Q_OBJECT
  public:
    explicit Label(QWidget* parent, const QString& name);

    QString caption() const { return text(); }
    void setCaption(const QString& caption);
    std::int32_t ForeColor() const { return foreColor_; }
    void setForeColor(std::int32_t rgb);
    std::int32_t BackColor() const { return backColor_; }
    void setBackColor(std::int32_t rgb);
    void setTransparent(bool transparent);
    std::int16_t BorderStyle() const { return borderStyle_; }
    void setBorderStyle(std::int16_t style);
    // The width (and height) follow the caption whenever it or the font changes, the
    // centre staying where it is for centred text.
    void setAutoSize(bool autoSize) { autoSize_ = autoSize; }
    // A status line: a screen reader speaks every new caption, wherever the focus is.
    void setAnnouncesChanges(bool announces);
    bool announcesChanges() const { return announces_; }

  signals:
    void Click();
    void MouseMove();

  protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void enterEvent(QEnterEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

  private:
    void applyColors();
    void fitToCaption();

    std::int32_t foreColor_ = 0;
    std::int32_t backColor_ = 0xC0C0C0;
    bool transparent_ = false;
    std::int16_t borderStyle_ = 0;
    bool autoSize_ = false;
    bool pressed_ = false;
    bool announces_ = false;
};

class CommandButton : public QPushButton, public TwipsGeometry {
    Q_OBJECT
  public:
    explicit CommandButton(QWidget* parent, const QString& name, const QString& caption = {});
    QString caption() const { return text(); }
    void setCaption(const QString& caption) { setText(caption); }
    void setBackColor(std::int32_t rgb);
};

class Frame : public QGroupBox, public TwipsGeometry {
    Q_OBJECT
  public:
    explicit Frame(QWidget* parent, const QString& name, const QString& caption);
    QString caption() const { return title(); }
};

// A picture box: a child window that shows a picture fixed at its top left corner and keeps
// a persistent drawing surface. What is drawn survives being covered; Cls() wipes it, and
// so does setting BackColor. Its picture, its drawing and the controls it holds all count
// from the inner corner, inside the border. It has no accessible name of its own: whoever
// makes one that a user meets names it as the user would.
class PictureBox : public QWidget, public TwipsGeometry {
    Q_OBJECT
  public:
    enum class Border { None, FlatSingle, Sunken };
    explicit PictureBox(QWidget* parent, const QString& name, Border border = Border::None);

    std::int32_t BackColor() const { return backColor_; }
    void setBackColor(std::int32_t rgb);
    void setPicture(const QImage& picture);
    // Paints no background of its own: what lies beneath shows where nothing is drawn.
    void setTransparentBackground(bool transparent);
    const QImage& picture() const { return picture_; }
    void Cls();
    void Refresh() { repaint(); }
    // The inner height in twips: the height less the border.
    double ScaleHeight() const;
    int borderPixels() const;

    // Draws on the persistent surface, in pixels from the inner top left corner.
    template <typename Paint>
    void drawOnSurface(Paint&& paint) {
        ensureSurface();
        QPainter painter(&surface_);
        painter.setRenderHint(QPainter::Antialiasing);
        paint(painter);
    }
    // What lies on the surface, in drawing order, for assistive technology.
    void noteDrawn(const QString& what);
    QStringList drawnItems() const { return drawn_; }
    // The colour of a surface pixel (inner coordinates), for tests and probes.
    QRgb surfacePixel(int x, int y) const;

  signals:
    void Click();

  protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

  private:
    void ensureSurface();
    void updateDescription();

    Border border_;
    std::int32_t backColor_ = 0xC0C0C0;
    QImage picture_;
    QImage surface_;  // transparent where nothing is drawn
    QStringList drawn_;
    bool pressed_ = false;
    bool transparent_ = false;
    // The focus cue shows only while the focus is one that came by the keyboard.
    bool keyboardFocus_ = false;
};

// A multi-line text box with a vertical scroll bar, read-only for the user.
class TextBox : public QPlainTextEdit, public TwipsGeometry {
    Q_OBJECT
  public:
    explicit TextBox(QWidget* parent, const QString& name);
    // The text as written, "\r\n" line breaks included; the editor shows each as one break.
    QString Text() const { return text_; }
    void setText(const QString& text);

  private:
    QString text_;
};

}  // namespace platform
