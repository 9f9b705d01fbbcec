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
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QGridLayout>
#include <QMessageBox>
#include <QPushButton>
#include <QSpinBox>
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

// ---------------------------------------------------------------------------
// Writing the configuration

void MainDeviceWidget::addWriteFields(const QList<WriteField>& fields)
{
    for (const WriteField& entry : fields) {
        m_mapWriteTagWidget.insert(QLatin1String(entry.name), entry.field);
        m_mapTagFunction.insert(QLatin1String(entry.name), entry.function);
    }
}

void MainDeviceWidget::lockWhilePolling(bool deviceFree, QPushButton* write, QWidget* adjustTab)
{
    if (!deviceFree) {
        m_mapButtons.insert(write, write->isEnabled());
        write->setEnabled(false);
        m_polling = true;
    } else {
        m_polling = false;
        write->setEnabled(m_mapButtons.value(write));
    }
    adjustTab->setEnabled(deviceFree);
}

void MainDeviceWidget::setWriteButtonEnabled(QPushButton* button, bool on)
{
    if (m_polling)
        m_mapButtons.insert(button, on);
    else
        button->setEnabled(on);
}

void MainDeviceWidget::setFieldColorModified(QWidget* field, bool modified)
{
    DeviceWidget::setFieldColorModified(field, modified);
    const QString name = m_mapWriteTagWidget.key(field);
    if (name.isEmpty())
        return;
    if (modified)
        m_writeParameters.insert(name);
    else
        m_writeParameters.remove(name);
}

bool MainDeviceWidget::IsReadedConfig()
{
    if (!m_hasReadedConfig)
        QMessageBox::warning(this, tr("Adjustment"), tr("You must first read the device configuration!"));
    return m_hasReadedConfig;
}

QList<int> MainDeviceWidget::getWriteFunctionsList()
{
    if (isActiveTransaction() || !m_device)
        return {};
    if (m_device->getDeviceInfo(QStringLiteral("write_protection")).toInt() == 1) {
        QMessageBox::warning(this, tr("Write changes to device"), tr("The device is write-protected!"));
        return {};
    }
    if (m_adjustMode == NoAdjust) {
        if (QMessageBox::warning(this, tr("Changes"),
                                 tr("Do you want to save your changes of the settings in the device?"),
                                 QMessageBox::Yes | QMessageBox::Cancel) != QMessageBox::Yes)
            return {};
    } else {
        if (QMessageBox::warning(
                this, tr("Adjustment"),
                tr("You are in metrology mode and really want to record changes to the settings in the device?"),
                QMessageBox::Yes | QMessageBox::Cancel) == QMessageBox::Cancel)
            return {};
        completeAdjustParameter();
    }

    QSet<int> functions;
    for (const QString& name : std::as_const(m_writeParameters)) {
        QWidget* field = m_mapWriteTagWidget.value(name);
        // A field that its own button writes has no function here.
        if (!field || !m_mapTagFunction.contains(name))
            continue;
        functions.insert(m_mapTagFunction.value(name));
        // A field out of use is written with the value the device holds.
        QVariant value;
        if (field->isEnabled()) {
            if (auto* box = qobject_cast<QComboBox*>(field))
                value = box->currentData();
            else if (auto* spin = qobject_cast<QSpinBox*>(field))
                value = spin->value();
            else if (auto* dspin = qobject_cast<QDoubleSpinBox*>(field))
                value = float(dspin->value());
        }
        if (!value.isNull())
            m_device->setDeviceInfo(name, value);
    }
    QList<int> list(functions.cbegin(), functions.cend());
    std::sort(list.begin(), list.end());
    // The range goes last: it is read in the units and type set before it.
    if (list.removeOne(35))
        list.append(35);
    return list;
}

void MainDeviceWidget::execWriteFunctionsByList(const QList<int>& list, bool additional)
{
    if (list.isEmpty()) {
        if (initProgressBar(tr("Write device configuration"), 0))
            showFinalMessage(0);
        return;
    }
    if (!initProgressBar(tr("Write device configuration"), int(list.size()) + (additional ? 1 : 0)))
        return;
    int written = 0;
    for (int function : list) {
        if (!writeDevice(function))
            break;
        for (auto it = m_mapTagFunction.cbegin(); it != m_mapTagFunction.cend(); ++it) {
            if (it.value() == function)
                setFieldColorModified(m_mapWriteTagWidget.value(it.key()), false);
        }
        nextStep();
        ++written;
    }
    if (written == int(list.size()) && additional) {
        execAdditionalActions();
        showFinalMessage(written + 1);
        emit changed();
        return;
    }
    showFinalMessage(written);
    if (written == int(list.size()))
        emit changed();
}

// ---------------------------------------------------------------------------
// Current, adjustments and manufacturer settings

bool MainDeviceWidget::setFixedCurrent(float current)
{
    if (!m_device || !initProgressBar(tr("Fixed current setting"), 1))
        return false;
    m_device->setDeviceInfo(QStringLiteral("fixed_current"), current);
    const bool ok = writeDevice(40);
    if (ok) {
        nextStep();
        emit changed();
    }
    showFinalMessage(0);
    return ok;
}

void MainDeviceWidget::setFixedCurrentForAdjust(bool lower, QDoubleSpinBox* spin4mA, QDoubleSpinBox* spin20mA,
                                                QPushButton* adjust4mA, QPushButton* adjust20mA)
{
    if (!setFixedCurrent(lower ? 4.0f : 20.0f))
        return;
    (lower ? spin4mA : spin20mA)->setValue(double(m_device->getDeviceInfoFloat(QStringLiteral("fixed_current"))));
    adjust4mA->setEnabled(lower);
    adjust20mA->setEnabled(!lower);
}

namespace {

struct CurrentAdjustment
{
    const char* title;
    const char* key;
    int command;
};

const CurrentAdjustment adjust4mA = {QT_TRANSLATE_NOOP("MainDeviceWidget", "Current adjustment 4 mA"), "adjust_4mA",
                                     45};
const CurrentAdjustment adjust20mA = {QT_TRANSLATE_NOOP("MainDeviceWidget", "Current adjustment 20 mA"), "adjust_20mA",
                                      46};

} // namespace

void MainDeviceWidget::onAdjust4mA_clicked(QDoubleSpinBox* spin)
{
    adjustCurrent(adjust4mA.title, adjust4mA.key, adjust4mA.command, spin);
}

void MainDeviceWidget::onAdjust20mA_clicked(QDoubleSpinBox* spin)
{
    adjustCurrent(adjust20mA.title, adjust20mA.key, adjust20mA.command, spin);
}

void MainDeviceWidget::adjustCurrent(const char* title, const char* key, int command, QDoubleSpinBox* spin)
{
    if (!m_device || !spin || !initProgressBar(tr(title), 1))
        return;
    m_device->setDeviceInfo(QLatin1String(key), float(spin->value()));
    if (writeDevice(command)) {
        showDeviceInfoInField(QLatin1String(key), spin, false);
        nextStep();
        emit changed();
    }
    showFinalMessage(0);
}

void MainDeviceWidget::saveManufacturerSettings()
{
    askManufacturerSettings(tr("Do you really want to save current device settings as manufacturer setting?\n"
                               "Previously saved device settings will be lost!"),
                            1);
}

void MainDeviceWidget::restoreManufacturerSettings()
{
    askManufacturerSettings(tr("Do you really want to restore manufacturer settings ?\n"
                               "All current device settings will be lost!"),
                            0);
}

void MainDeviceWidget::askManufacturerSettings(const QString& question, int mode)
{
    if (QMessageBox::warning(this, tr("Manufacturer setting"), question, QMessageBox::Yes | QMessageBox::Cancel) ==
        QMessageBox::Yes)
        manufacturerSettings(mode);
}

void MainDeviceWidget::manufacturerSettings(int mode)
{
    if (!m_device || !initProgressBar(tr("Manufacturer settings"), 1))
        return;
    m_device->setDeviceInfo(QStringLiteral("manufacturer_settings"), mode);
    if (writeDevice(Device::CmdManufacturerSettings)) {
        nextStep();
        emit changed();
    }
    showFinalMessage(0);
}

void MainDeviceWidget::saveRangeMinByPV()
{
    saveRangeByPV(false);
}

void MainDeviceWidget::saveRangeMaxByPV()
{
    saveRangeByPV(true);
}

void MainDeviceWidget::saveRangeByPV(bool upper)
{
    if (!m_device || !m_pvWidget->readPrimaryVariable(true))
        return;
    const QString value = QString::number(double(m_device->getDeviceInfoFloat(QStringLiteral("PV"))));
    const QString question =
        upper ? tr("Do you want to write current\nPrimary Variable value=%1 %2\nas Upper Range Value ?")
              : tr("Do you want to write current\nPrimary Variable value=%1 %2\nas Lower Range Value ?");
    if (QMessageBox::warning(this, tr("Setting the conversion range"),
                             question.arg(value, m_device->getPVUnitCodeText()), QMessageBox::Yes | QMessageBox::Cancel,
                             QMessageBox::Yes) != QMessageBox::Yes)
        return;
    if (!initProgressBar(upper ? tr("Setting the high range limit") : tr("Setting the lower range limit"), 2))
        return;
    if (writeDevice(upper ? 36 : 37)) {
        nextStep();
        emit changed();
        if (readDevice(15)) {
            nextStep();
            const QString key = upper ? QStringLiteral("range_max") : QStringLiteral("range_min");
            showDeviceInfoInField(key, m_mapWriteTagWidget.value(key));
        }
    }
    showFinalMessage(0);
}

bool MainDeviceWidget::sendAccessCode(quint32 code)
{
    // A refused code ends the transaction with the device's answer in a box
    // under the transaction's title.
    if (!m_device || !initProgressBar(tr("Adjustment"), 1))
        return false;
    Device* device = m_device;
    const bool ok = runExchange([device, code]() { return device->sendAdjustCode(code); });
    if (ok)
        nextStep();
    showFinalMessage(0);
    return ok;
}

bool MainDeviceWidget::completeAdjust()
{
    if (!sendAccessCode(0))
        return false;
    const AdjustMode previous = m_adjustMode;
    m_adjustMode = NoAdjust;
    return previous == Current ? setFixedCurrent(0) : true;
}
