#include "plaindevicewidget.h"
#include "ui_plaindevicewidget.h"

PlainDeviceWidget::PlainDeviceWidget(QWidget* parent) : MainDeviceWidget(parent), ui(new Ui::PlainDeviceWidget)
{
    ui->setupUi(this);
    initWidget();
    composeEditor({ui->tabWidget, ui->gridMain, ui->layoutStatus, 4, true, true});
}

PlainDeviceWidget::~PlainDeviceWidget()
{
    delete ui;
}

void PlainDeviceWidget::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange)
        ui->tabWidget->setTabText(0, tr("Device"));
    MainDeviceWidget::changeEvent(event);
}
