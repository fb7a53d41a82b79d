// Fonts, colours and zoom, and the frame of fields.

#include <QClipboard>
#include <QFontInfo>
#include <QGuiApplication>
#include <QLineEdit>
#include <QPainter>
#include <QStyle>
#include <QStyleOptionFrame>
#include <algorithm>
#include <cmath>
#include <utility>

#include "ui/RichTextBox.h"
#include "ui/TextZoom.h"

namespace klt {
namespace {

constexpr int kTextMargin = 4;
constexpr int kFieldMargin = 2;
// The line, and what a style puts inside it for the focus. The text begins where its pixel does at a scale of
// one and a half, so that it covers no part of the line.
constexpr int kFrame = 2;
constexpr int kTwipsOfPoint = 20;

}  // namespace

void RichTextBox::setUpLooks() {
    const bool isDocument = kind_ == Kind::Document;
    const int margin = kind_ == Kind::Field ? kFieldMargin : kTextMargin;
    send(SCI_SETMARGINLEFT, 0, margin);
    send(SCI_SETMARGINRIGHT, 0, margin);
    if (!isDocument) {
        setFrameStyle(NoFrame);
        setViewportMargins(kFrame, kFrame, kFrame, kFrame);
    }
    // The base would show its selection in grey as soon as another program selects something. What listens in
    // it can't be reached, and nobody else in here does.
    disconnect(QGuiApplication::clipboard(), &QClipboard::selectionChanged, nullptr, nullptr);

    TextZoom& zoom = TextZoom::of(isDocument ? TextZoom::Of::Documents : TextZoom::Of::Fields);
    const auto take = [this](int points) {
        send(SCI_SETZOOM, points);
        if (kind_ == Kind::Field) fitHeight();
    };
    applyFormats();
    take(zoom.points());
    connect(&zoom, &TextZoom::changed, this, take);
    connect(this, &QsciScintillaBase::SCN_ZOOM, &zoom,
            [this, &zoom] { zoom.set(static_cast<int>(send(SCI_GETZOOM))); });
}

void RichTextBox::setTextFont(const TextFont& font) {
    if (std::exchange(font_, font) != font) applyFormats();
}

void RichTextBox::setStyleFormats(const StyleFormats& formats) {
    if (std::exchange(formats_, formats) != formats) applyFormats();
}

QColor RichTextBox::paper() const {
    return isEnabled() ? QColor(Qt::white) : palette().color(QPalette::Active, QPalette::Button);
}

void RichTextBox::applyFormats() {
    SendScintilla(SCI_STYLESETFONT, static_cast<unsigned long>(STYLE_DEFAULT),
                  font_.family.toUtf8().constData());
    send(SCI_STYLESETSIZEFRACTIONAL, STYLE_DEFAULT, fontSize() * SC_FONT_SIZE_MULTIPLIER / kTwipsOfPoint);
    // A dark desktop must not make the text unreadable. What is disabled looks like a button.
    const bool isLive = isEnabled();
    const QColor ink = isLive ? QColor(Qt::black) : palette().color(QPalette::Active, QPalette::ButtonText);
    SendScintilla(SCI_STYLESETFORE, static_cast<unsigned long>(STYLE_DEFAULT), ink);
    SendScintilla(SCI_STYLESETBACK, static_cast<unsigned long>(STYLE_DEFAULT), paper());
    send(SCI_STYLECLEARALL);
    for (size_t style = 0; style < formats_.size(); ++style) {
        const StyleFormat& format = formats_[style];
        SendScintilla(SCI_STYLESETFORE, style, isLive ? format.colour : ink);
        send(SCI_STYLESETBOLD, static_cast<Position>(style), format.bold ? 1 : 0);
        send(SCI_STYLESETITALIC, static_cast<Position>(style), format.italic ? 1 : 0);
    }
    SendScintilla(SCI_SETCARETFORE, QColor(Qt::black));
    colourSelection();
    if (kind_ == Kind::Field) fitHeight();
}

/// In twips. Fields and previews stand among the desktop's own texts.
int RichTextBox::fontSize() const {
    if (kind_ == Kind::Document) return font_.twips;
    const QFont font = QGuiApplication::font();
    // A font that was chosen in pixels has no points of its own.
    const double desktop = font.pointSizeF() > 0 ? font.pointSizeF() : QFontInfo(font).pointSizeF();
    return std::max(font_.twips, static_cast<int>(std::lround(desktop * kTwipsOfPoint)));
}

/// As the desktop's own texts show it: by who has the focus.
void RichTextBox::colourSelection() {
    const auto live = hasFocus() ? QPalette::Active : QPalette::Inactive;
    const auto group = isEnabled() ? live : QPalette::Disabled;
    const std::pair colours(palette().color(group, QPalette::Highlight),
                            palette().color(group, QPalette::HighlightedText));
    if (std::exchange(selectionColours_, colours) == colours) return;
    SendScintilla(SCI_SETSELBACK, 1UL, colours.first);
    SendScintilla(SCI_SETSELFORE, 1UL, colours.second);
}

/// As high as a line edit, with the line in the middle.
void RichTextBox::fitHeight() {
    send(SCI_SETEXTRAASCENT, 0);
    send(SCI_SETEXTRADESCENT, 0);
    const auto line = static_cast<int>(send(SCI_TEXTHEIGHT, 0)) + 2 * kFrame;
    const int height = std::max(line, QLineEdit().sizeHint().height());
    send(SCI_SETEXTRAASCENT, (height - line) / 2);
    send(SCI_SETEXTRADESCENT, (height - line) / 2);
    setFixedHeight(height);
}

/// The frame of what is no document is a line edit's, and shows the focus like one.
void RichTextBox::paintFrame() {
    QStyleOptionFrame option;
    initStyleOption(&option);
    option.lineWidth = 1;
    option.state |= QStyle::State_Sunken;
    option.state.setFlag(QStyle::State_HasFocus, hasFocus());
    QPainter painter(this);
    painter.fillRect(viewport()->geometry().adjusted(-1, -1, 1, 1), paper());
    style()->drawPrimitive(QStyle::PE_FrameLineEdit, &option, &painter, this);
}

void RichTextBox::showFocus(QEvent::Type event) {
    const bool changes = event == QEvent::FocusIn || event == QEvent::FocusOut;
    if (changes) colourSelection();
    if (kind_ == Kind::Document) return;
    if (changes) update();
    if (event == QEvent::Paint) paintFrame();
}

void RichTextBox::changeEvent(QEvent* event) {
    QsciScintillaBase::changeEvent(event);
    const auto type = event->type();
    if (type == QEvent::PaletteChange || type == QEvent::StyleChange || type == QEvent::EnabledChange ||
        type == QEvent::FontChange || type == QEvent::ApplicationFontChange)
        applyFormats();
}

}  // namespace klt
