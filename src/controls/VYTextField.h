#pragma once
// The shot-name field: a white rounded box with a thin grey edge, the text vertically
// centred, and an accent focus ring that follows the rounded outline.

#include <QLineEdit>

class VYTextField : public QLineEdit
{
    Q_OBJECT
public:
    explicit VYTextField(QWidget *parent = nullptr);

protected:
    void paintEvent(QPaintEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    void clearBase();
    bool m_settingPalette = false;
};
