// Minimal behaviour so the panel builds; replaced by the real controls.
#include "HoverButton.h"
#include "HoverPopUp.h"
#include "RWColorWell.h"
#include "VYTextField.h"

#include <QPainter>

HoverButton::HoverButton(QWidget *parent) : QPushButton(parent) {}
void HoverButton::setAlphaValue(qreal alpha) { m_alpha = alpha; update(); }
void HoverButton::enterEvent(QEnterEvent *e) { QPushButton::enterEvent(e); }
void HoverButton::leaveEvent(QEvent *e) { QPushButton::leaveEvent(e); }
void HoverButton::paintEvent(QPaintEvent *e) { QPushButton::paintEvent(e); }
void HoverButtonX::enterEvent(QEnterEvent *e) { HoverButton::enterEvent(e); }
void HoverButtonX::leaveEvent(QEvent *e) { HoverButton::leaveEvent(e); }
HoverButtonEdit::HoverButtonEdit(QWidget *parent) : QPushButton(parent) {}
void HoverButtonEdit::setImageName(const QString &n) { m_imageName = n; update(); }
void HoverButtonEdit::enterEvent(QEnterEvent *e) { QPushButton::enterEvent(e); }
void HoverButtonEdit::leaveEvent(QEvent *e) { QPushButton::leaveEvent(e); }
void HoverButtonEdit::paintEvent(QPaintEvent *e) { QPushButton::paintEvent(e); }
HoverButtonMatrix::HoverButtonMatrix(QWidget *parent) : QPushButton(parent) {}
void HoverButtonMatrix::setImageName(const QString &n) { m_imageName = n; update(); }
void HoverButtonMatrix::enterEvent(QEnterEvent *e) { QPushButton::enterEvent(e); }
void HoverButtonMatrix::leaveEvent(QEvent *e) { QPushButton::leaveEvent(e); }
void HoverButtonMatrix::paintEvent(QPaintEvent *e) { QPushButton::paintEvent(e); }
HoverPopUp::HoverPopUp(QWidget *parent) : QComboBox(parent) {}
void HoverPopUp::setAlphaValue(qreal a) { m_alpha = a; update(); }
QColor HoverPopUp::myCol(float r, float g, float b, float a) { return QColor::fromRgbF(r, g, b, a); }
void HoverPopUp::enterEvent(QEnterEvent *e) { QComboBox::enterEvent(e); }
void HoverPopUp::leaveEvent(QEvent *e) { QComboBox::leaveEvent(e); }
void HoverPopUp::paintEvent(QPaintEvent *e) { QComboBox::paintEvent(e); }
HoverPopUpPrefs::HoverPopUpPrefs(QWidget *parent) : QComboBox(parent) {}
void HoverPopUpPrefs::enterEvent(QEnterEvent *e) { QComboBox::enterEvent(e); }
void HoverPopUpPrefs::leaveEvent(QEvent *e) { QComboBox::leaveEvent(e); }
void HoverPopUpPrefs::paintEvent(QPaintEvent *e) { QComboBox::paintEvent(e); }
RWColorWell::RWColorWell(QWidget *parent) : QWidget(parent) {}
void RWColorWell::setColor(const QColor &c) { m_color = c; update(); }
void RWColorWell::paintEvent(QPaintEvent *) { QPainter p(this); p.setBrush(m_color); p.drawEllipse(4, 1, 10, 10); }
void RWColorWell::mousePressEvent(QMouseEvent *) {}
VYTextField::VYTextField(QWidget *parent) : QLineEdit(parent) {}
void VYTextField::paintEvent(QPaintEvent *e) { QLineEdit::paintEvent(e); }
