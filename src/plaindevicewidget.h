#ifndef PLAINDEVICEWIDGET_H
#define PLAINDEVICEWIDGET_H

#include "maindevicewidget.h"

namespace Ui {
class PlainDeviceWidget;
}

// The editor of a device for which no model editor exists: the panels every
// editor has, with nothing of a model's own.
class PlainDeviceWidget : public MainDeviceWidget
{
    Q_OBJECT

public:
    explicit PlainDeviceWidget(QWidget* parent = nullptr);
    ~PlainDeviceWidget() override;

protected:
    void changeEvent(QEvent* event) override;

private:
    Ui::PlainDeviceWidget* ui;
};

#endif // PLAINDEVICEWIDGET_H
