#pragma once
// Pop-up buttons of the panel. Both paint themselves; their open lists show each item's
// Qt::ForegroundRole colour and Qt::FontRole font and use uniform row heights.
// HoverPopUpPrefs is a pull-down: item 0 is its own title item and is never offered in
// the list. HoverPopUp is a true pop-up: every item (index 0 included) is a choice.
// Neither changes its item on the mouse wheel.

#include <QColor>
#include <QComboBox>

class HoverPopUp : public QComboBox
{
    Q_OBJECT
    Q_PROPERTY(qreal alphaValue READ alphaValue WRITE setAlphaValue)
public:
    explicit HoverPopUp(QWidget *parent = nullptr);
    qreal alphaValue() const { return m_alpha; }
    // Opacity 0..1; larger values (100.0 is used for "fully opaque") count as 1.
    void setAlphaValue(qreal alpha);

    static QColor myCol(float red, float green, float blue, float alpha);
    // The grey plate painted under the current item's text.
    static QRectF plateRect() { return QRectF(2, 3, 65, 20); }

    void showPopup() override;
    QSize sizeHint() const override;

protected:
    void enterEvent(QEnterEvent *event) override;
    void leaveEvent(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;

private:
    qreal m_alpha = 1.0;
};

// The preferences menu, drawn as a gear: dims to 0.75 under the pointer, full opacity otherwise.
class HoverPopUpPrefs : public QComboBox
{
    Q_OBJECT
public:
    explicit HoverPopUpPrefs(QWidget *parent = nullptr);
    qreal alphaValue() const { return m_alpha; }

    void showPopup() override;
    QSize sizeHint() const override;

protected:
    void enterEvent(QEnterEvent *event) override;
    void leaveEvent(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    qreal m_alpha = 1.0;
};

namespace PopUpList {
// Gives a combo box's list the panel's item delegate (item colours and fonts, separators)
// and uniform row heights. Safe for lists of any length.
void prepare(QComboBox *popUp);
// Hides row 0 (a pull-down's title item) in the open list; call before each opening.
void hideTitleRow(QComboBox *popUp);
// Moves the open list so that it hangs under the pop-up and lies on its screen.
void placeUnder(QComboBox *popUp);
}  // namespace PopUpList
