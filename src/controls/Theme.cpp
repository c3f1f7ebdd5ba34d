#include "Theme.h"

#include "HoverButton.h"

#include <QApplication>
#include <QBrush>
#include <QComboBox>

namespace Theme {

QColor myCol(float red, float green, float blue, float alpha)
{
    return QColor::fromRgbF(red, green, blue, alpha);
}

QColor darkText() { return myCol(0.21f, 0.19f, 0.19f, 1.0f); }
QColor midGrey() { return myCol(0.4f, 0.4f, 0.4f, 1.0f); }
QColor lightGrey() { return myCol(0.6f, 0.6f, 0.6f, 1.0f); }
QColor nearWhite() { return myCol(0.9f, 0.9f, 0.9f, 1.0f); }
QColor accent() { return QColor(0x6F, 0xC5, 0xAC); }

void colorButtonTitle(HoverButtonMatrix *button, bool chosen, bool outputRow)
{
    if (!button)
        return;
    button->setTitleColor(chosen ? (outputRow ? nearWhite() : darkText()) : midGrey());
}

void colorMenuItem(QComboBox *popUp, int index, bool on)
{
    if (!popUp || index < 0 || index >= popUp->count())
        return;
    QFont font = QApplication::font();
    font.setPointSizeF(11.0);
    popUp->setItemData(index, QBrush(on ? lightGrey() : darkText()), Qt::ForegroundRole);
    popUp->setItemData(index, font, Qt::FontRole);
}

}  // namespace Theme
