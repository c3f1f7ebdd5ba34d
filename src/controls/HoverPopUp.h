#pragma once
// Pop-up buttons of the panel. Item 0 is the pop-up's own title item and is not
// offered in the list (as in a pull-down menu); items carry their tag in Qt::UserRole.

#include <QColor>
#include <QComboBox>

class HoverPopUp : public QComboBox
{
    Q_OBJECT
public:
    explicit HoverPopUp(QWidget *parent = nullptr);
    qreal alphaValue() const { return m_alpha; }
    void setAlphaValue(qreal alpha);

    static QColor myCol(float red, float green, float blue, float alpha);

protected:
    void enterEvent(QEnterEvent *event) override;
    void leaveEvent(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    qreal m_alpha = 1.0;
};

// The preferences menu: dims to 0.75 under the pointer, full opacity otherwise.
class HoverPopUpPrefs : public QComboBox
{
    Q_OBJECT
public:
    explicit HoverPopUpPrefs(QWidget *parent = nullptr);
    qreal alphaValue() const { return m_alpha; }

protected:
    void enterEvent(QEnterEvent *event) override;
    void leaveEvent(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    qreal m_alpha = 1.0;
};
