#include "maindevicewidget.h"

#include "appsettings.h"
#include "commandwidget.h"
#include "commonwidget.h"
#include "device.h"
#include "logwidget.h"
#include "measurewidget.h"
#include "port.h"
#include "pvwidget.h"
#include "statuswidget.h"

#include <QBoxLayout>
#include <QGridLayout>
#include <QTabWidget>

MainDeviceWidget::MainDeviceWidget(QWidget* parent) : DeviceWidget(parent)
{}

MainDeviceWidget::~MainDeviceWidget() = default;

void MainDeviceWidget::composeEditor(const Composition& composition)
{
    auto* status = new StatusWidget(this);
    composition.statusLayout->addWidget(status);
    setStatusWidget(status);

    m_pvWidget = new PVWidget(this, composition.variableCount, composition.showAdditionalStatus);
    setChildWidget(m_pvWidget, QStringLiteral("PV"));
    connect(m_pvWidget, &DeviceWidget::changed, this, &DeviceWidget::changed);

    m_commonWidget = new CommonWidget(this, composition.hasSelfTest);
    setChildWidget(m_commonWidget, QStringLiteral("Common"));
    connect(m_commonWidget, &DeviceWidget::resetWidget, this, &MainDeviceWidget::onResetWidget);
    connect(m_commonWidget, &DeviceWidget::updateButtons, this, &MainDeviceWidget::onUpdateButtons);
    connect(m_commonWidget, &DeviceWidget::changed, this, &DeviceWidget::changed);
    // The identification tab's switches reach every panel through the editor.
    connect(m_commonWidget, &DeviceWidget::resetWidget, this, &DeviceWidget::resetWidget);
    connect(m_commonWidget, &DeviceWidget::updateButtons, this, &DeviceWidget::updateButtons);
    connect(m_commonWidget, &CommonWidget::appendDeviceError, status, &StatusWidget::onAppendDeviceError);
    connect(m_commonWidget, &CommonWidget::appendDeviceError, m_pvWidget, &PVWidget::appendDeviceError);

    composition.firstPage->addWidget(m_commonWidget, 0, 0);
    composition.firstPage->addWidget(m_pvWidget, 0, 1);
    composition.firstPage->setColumnStretch(0, 3);
    composition.firstPage->setColumnStretch(1, 2);

    m_measureWidget = new MeasureWidget(this);
    setWidgetInTab(m_measureWidget, composition.tabs, QStringLiteral("Measurement"));
    connect(this, &DeviceWidget::deviceChanged, m_measureWidget, &MeasureWidget::onDeviceChanged);
    connect(this, &MainDeviceWidget::closeApplication, m_measureWidget, &MeasureWidget::onCloseApplication);
    connect(this, &DeviceWidget::updateButtons, m_measureWidget, &MeasureWidget::onUpdateButtons);
    connect(m_measureWidget, &MeasureWidget::responsePV, m_pvWidget, &PVWidget::showPeriodResponsePV);
    connect(m_measureWidget, &MeasureWidget::startPeriod, m_commonWidget, &CommonWidget::onStartPeriod);
    connect(m_measureWidget, &MeasureWidget::startPeriod, this, &MainDeviceWidget::onStartPeriod);
    connect(m_measureWidget, &MeasureWidget::changed, this, &DeviceWidget::changed);

    m_logWidget = new LogWidget(this);
    setWidgetInTab(m_logWidget, composition.tabs, QStringLiteral("Hart Log"));
    connect(this, &MainDeviceWidget::appendLogMessage, m_logWidget, &LogWidget::appendLogMessage);

    m_commandWidget = new CommandWidget(this);
    setWidgetInTab(m_commandWidget, composition.tabs, QStringLiteral("Custom"));
    connect(this, &DeviceWidget::deviceChanged, m_commandWidget, &CommandWidget::onDeviceChanged);
    connect(this, &DeviceWidget::updateButtons, m_commandWidget, &CommandWidget::onUpdateButtons);
    connect(this, &DeviceWidget::resetWidget, m_commandWidget, &CommandWidget::onResetWidget);

    retranslateTabWidget();
    onUpdateButtons(false);
    m_commandWidget->onUpdateButtons(false);
    composition.tabs->setCurrentIndex(0);
}

void MainDeviceWidget::setItem(Device* device)
{
    if (m_device) {
        disconnect(m_device, &Device::modbusMessage, this, &MainDeviceWidget::appendLogMessage);
        if (Port* port = m_device->port())
            disconnect(port, &Port::serialNameChanged, this, &DeviceWidget::serialNameChanged);
    }
    setDevice(device);
    if (device) {
        connect(device, &Device::modbusMessage, this, &MainDeviceWidget::appendLogMessage);
        if (Port* port = device->port())
            connect(port, &Port::serialNameChanged, this, &DeviceWidget::serialNameChanged);
    }
    emit deviceChanged(device);
}

void MainDeviceWidget::onResetWidget()
{
    m_hasReadedConfig = false;
}

void MainDeviceWidget::onUpdateButtons(bool on)
{
    Q_UNUSED(on)
}

void MainDeviceWidget::onStartPeriod(bool deviceFree)
{
    m_commandWidget->setEnabled(deviceFree);
    m_pvWidget->onUpdateButtons(deviceFree && m_device && m_device->isIdentified());
}
