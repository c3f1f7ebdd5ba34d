#include "SamplePanel.h"

#include "Artwork.h"
#include "HoverButton.h"
#include "HoverPopUp.h"
#include "RWColorWell.h"
#include "Theme.h"
#include "VYTextField.h"

#include <QLabel>
#include <QPainter>
#include <QPainterPath>

namespace {

HoverButtonMatrix *matrixButton(QWidget *parent, const QRect &at, const QString &title, const QString &glyph,
                                const QString &plate, bool chosen, bool outputRow)
{
    auto *button = new HoverButtonMatrix(parent);
    button->setGeometry(at);
    button->setText(title);
    button->setGlyphName(glyph);
    button->setImageName(plate);
    Theme::colorButtonTitle(button, chosen, outputRow);
    return button;
}

}  // namespace

SamplePanel::SamplePanel(QWidget *parent) : QWidget(parent)
{
    resize(280, 290);
    auto *title = new QLabel(QStringLiteral("Quillo"), this);
    title->setGeometry(16, 8, 160, 18);
    title->setStyleSheet(QStringLiteral("font-weight: 600; color: rgb(54, 48, 48);"));

    matrixButton(this, {12, 30, 80, 52}, "Selection", "method-selection", "butt0", false, false);
    matrixButton(this, {100, 30, 80, 52}, "Window", "method-window", "butt2", true, false);
    matrixButton(this, {188, 30, 80, 52}, "Screen", "method-screen", "butt1", false, false);
    matrixButton(this, {12, 90, 80, 52}, "Save", "output-save", "butt3", true, true);
    matrixButton(this, {100, 90, 80, 52}, "Upload", "output-upload", "butt0", false, true);
    matrixButton(this, {188, 90, 80, 52}, "Open", "output-open", "butt0", false, true);

    auto *label = new QLabel(QStringLiteral("Saves to Desktop"), this);
    label->setGeometry(16, 148, 190, 20);
    label->setStyleSheet(QStringLiteral("color: rgb(102, 102, 102);"));
    auto *edit = new HoverButtonEdit(this);
    edit->setGeometry(208, 150, 18, 18);
    edit->setImageName(QStringLiteral("edit"));
    auto *editOff = new HoverButtonEdit(this);
    editOff->setGeometry(232, 150, 18, 18);

    auto *field = new VYTextField(this);
    field->setGeometry(12, 178, 200, 28);
    field->setText(QStringLiteral("Holiday snaps"));
    QPalette palette = field->palette();
    palette.setColor(QPalette::Text, Theme::midGrey());
    field->setPalette(palette);
    auto *clear = new HoverButtonX(this);
    clear->setGeometry(188, 183, 18, 18);
    clear->setAlphaValue(100.0);
    auto *well = new RWColorWell(this);
    well->setGeometry(220, 183, 20, 18);
    well->setColor(QColor::fromHsvF(0.535f, 1.0f, 1.0f));
    auto *wellOff = new RWColorWell(this);
    wellOff->setGeometry(244, 183, 20, 18);
    wellOff->setEnabled(false);

    auto *format = new HoverPopUp(this);
    format->setGeometry(12, 218, 70, 28);
    format->addItems({QStringLiteral("png"), QStringLiteral("jpg")});
    format->setAlphaValue(100.0);
    auto *shoot = new HoverButton(this);
    shoot->setGeometry(90, 216, 132, 32);
    shoot->setText(QStringLiteral("Shoot"));
    auto *prefs = new HoverPopUpPrefs(this);
    prefs->setGeometry(232, 218, 36, 28);

    // The name field's shade in its greyed-out state, over a second field.
    auto *greyField = new VYTextField(this);
    greyField->setGeometry(12, 252, 120, 26);
    greyField->setText(QStringLiteral("Quillo"));
    auto *shade = new QLabel(this);
    shade->setGeometry(12, 252, 120, 26);
    shade->setPixmap(Artwork::image(QStringLiteral("inactive"), shade->size(), devicePixelRatioF()));
}

void SamplePanel::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.fillRect(rect(), QColor(0xd8, 0xdc, 0xdc));
    painter.setRenderHint(QPainter::Antialiasing);
    QPainterPath background;
    background.addRoundedRect(QRectF(0, -10, width(), height()), 10, 10);
    painter.fillPath(background, QColor::fromRgbF(0.985f, 0.985f, 0.985f));
}
