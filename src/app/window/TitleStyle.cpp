#include "app/window/TitleStyle.h"

#include <QApplication>
#include <QStyleOptionTitleBar>
#include <QWidget>
#include <algorithm>

namespace klt {
namespace {

/// The title of a window as the bar has room for it.
QString shortenedTitle(const QStyleOptionTitleBar& title, const QWidget& window) {
    const int width = window.style()
                          ->subControlRect(QStyle::CC_TitleBar, &title, QStyle::SC_TitleBarLabel, &window)
                          .width();
    // Styles leave some room at both ends, and would shorten the text again.
    constexpr int kEnds = 16;
    // As `asTitle` spells it.
    const QString whole = window.windowTitle().replace("[*][*]", "[*]");
    return title.fontMetrics.elidedText(whole, Qt::ElideLeft, std::max(width - kEnds, 0));
}

}  // namespace

TitleStyle::TitleStyle() : QProxyStyle(QApplication::style()->name()) {}

void TitleStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                                    QPainter* painter, const QWidget* widget) const {
    const auto* title = qstyleoption_cast<const QStyleOptionTitleBar*>(option);
    if (control != CC_TitleBar || !title || !widget)
        return QProxyStyle::drawComplexControl(control, option, painter, widget);
    QStyleOptionTitleBar shortened(*title);
    shortened.text = shortenedTitle(*title, *widget);
    QProxyStyle::drawComplexControl(control, &shortened, painter, widget);
}

}  // namespace klt
