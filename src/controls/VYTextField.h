#pragma once
// The shot-name field: a white rounded box with a thin grey edge.

#include <QLineEdit>

class VYTextField : public QLineEdit
{
    Q_OBJECT
public:
    explicit VYTextField(QWidget *parent = nullptr);

protected:
    void paintEvent(QPaintEvent *event) override;
};
