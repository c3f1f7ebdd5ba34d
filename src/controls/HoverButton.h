#pragma once
// Panel buttons that react to the pointer passing over them.

#include <QPushButton>

// Fades between 0.65 and full opacity on hover.
class HoverButton : public QPushButton
{
    Q_OBJECT
public:
    explicit HoverButton(QWidget *parent = nullptr);
    qreal alphaValue() const { return m_alpha; }
    void setAlphaValue(qreal alpha);

protected:
    void enterEvent(QEnterEvent *event) override;
    void leaveEvent(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    qreal m_alpha = 1.0;
};

// The name field's clear button: an alpha of exactly 0 means hidden on purpose.
class HoverButtonX : public HoverButton
{
    Q_OBJECT
public:
    using HoverButton::HoverButton;

protected:
    void enterEvent(QEnterEvent *event) override;
    void leaveEvent(QEvent *event) override;
};

// The link-list button: lights up ("edit") only while the list is active.
class HoverButtonEdit : public QPushButton
{
    Q_OBJECT
public:
    explicit HoverButtonEdit(QWidget *parent = nullptr);
    void setImageName(const QString &name);
    QString imageName() const { return m_imageName; }

protected:
    void enterEvent(QEnterEvent *event) override;
    void leaveEvent(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    QString m_imageName;
};

// Method and output buttons: idle "butt0", hover "butt1", chosen "butt2"/"butt3".
class HoverButtonMatrix : public QPushButton
{
    Q_OBJECT
public:
    explicit HoverButtonMatrix(QWidget *parent = nullptr);
    void setImageName(const QString &name);
    QString imageName() const { return m_imageName; }

protected:
    void enterEvent(QEnterEvent *event) override;
    void leaveEvent(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    QString m_imageName;
};
