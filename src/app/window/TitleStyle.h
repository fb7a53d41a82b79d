#pragma once

#include <QProxyStyle>

namespace klt {

/// How the titles of document windows are drawn: as by the program's style, but what does not fit is left
/// out at the left, so that the file's name stays.
class TitleStyle : public QProxyStyle {
public:
    TitleStyle();

    void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                            const QWidget* widget) const override;
};

}  // namespace klt
