#pragma once
// Panel buttons that react to the pointer passing over them. Hover reactions happen
// only while the button's window is the active window.

#include <QColor>
#include <QPushButton>

// Fades between 0.65 and full opacity on hover. A flat button paints only its glyph
// (or icon); a raised one paints the accent "shoot" plate with a light title.
class HoverButton : public QPushButton
{
    Q_OBJECT
    Q_PROPERTY(qreal alphaValue READ alphaValue WRITE setAlphaValue)
    Q_PROPERTY(QString glyphName READ glyphName WRITE setGlyphName)
public:
    explicit HoverButton(QWidget *parent = nullptr);
    // Opacity 0..1; larger values (100.0 is used for "fully opaque") count as 1.
    qreal alphaValue() const { return m_alpha; }
    void setAlphaValue(qreal alpha);
    // Artwork name of the glyph painted on the button (empty: the button's icon, if any).
    QString glyphName() const { return m_glyphName; }
    void setGlyphName(const QString &name);

    QSize sizeHint() const override;

protected:
    void enterEvent(QEnterEvent *event) override;
    void leaveEvent(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    qreal m_alpha = 1.0;
    QString m_glyphName;
};

// The name field's clear button ("clear" glyph): an alpha of exactly 0 means hidden
// on purpose, and hovering leaves such a button alone.
class HoverButtonX : public HoverButton
{
    Q_OBJECT
public:
    explicit HoverButtonX(QWidget *parent = nullptr);

protected:
    void enterEvent(QEnterEvent *event) override;
    void leaveEvent(QEvent *event) override;
};

// The link-list button: shows "edit" while hovered if the "toggleedit" setting is on,
// "edit_off" otherwise.
class HoverButtonEdit : public QPushButton
{
    Q_OBJECT
    Q_PROPERTY(QString imageName READ imageName WRITE setImageName)
public:
    explicit HoverButtonEdit(QWidget *parent = nullptr);
    void setImageName(const QString &name);
    QString imageName() const { return m_imageName; }

protected:
    void enterEvent(QEnterEvent *event) override;
    void leaveEvent(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    QString m_imageName = QStringLiteral("edit_off");
};

// Method and output buttons: plate image idle "butt0", hover "butt1", chosen "butt2"
// (method) or "butt3" (output), which hovering keeps. Paints the plate stretched to the
// button, then the glyph above the title, both in the title colour.
class HoverButtonMatrix : public QPushButton
{
    Q_OBJECT
    Q_PROPERTY(QString imageName READ imageName WRITE setImageName)
    Q_PROPERTY(QString glyphName READ glyphName WRITE setGlyphName)
    Q_PROPERTY(QColor titleColor READ titleColor WRITE setTitleColor)
public:
    explicit HoverButtonMatrix(QWidget *parent = nullptr);
    // Empty until set; an empty image paints as "butt0".
    void setImageName(const QString &name);
    QString imageName() const { return m_imageName; }
    void setGlyphName(const QString &name);
    QString glyphName() const { return m_glyphName; }
    void setTitleColor(const QColor &colour);
    QColor titleColor() const { return m_titleColor; }

    QSize sizeHint() const override;

protected:
    void enterEvent(QEnterEvent *event) override;
    void leaveEvent(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    QString m_imageName;
    QString m_glyphName;
    QColor m_titleColor;
};
