#pragma once
// The panel's fixed colours and the colouring of button titles and menu items:
// text colour tells whether an option is chosen or switched on.

#include <QColor>

class HoverButtonMatrix;
class QComboBox;

namespace Theme {

// A colour from four 0..1 components (red, green, blue, alpha).
QColor myCol(float red, float green, float blue, float alpha);

QColor darkText();   // 0.21 0.19 0.19
QColor midGrey();    // 0.4
QColor lightGrey();  // 0.6
QColor nearWhite();  // 0.9
QColor accent();     // #6FC5AC

// Method row: chosen dark text, else mid grey. Output row: chosen near white, else mid grey.
// The title's font is kept.
void colorButtonTitle(HoverButtonMatrix *button, bool chosen, bool outputRow);

// The item at index takes light grey when on, dark text when off, and the 11-point system
// font. A missing index (or pop-up) changes nothing.
void colorMenuItem(QComboBox *popUp, int index, bool on);

}  // namespace Theme
