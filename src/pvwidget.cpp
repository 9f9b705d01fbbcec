#include "pvwidget.h"
#include "ui_pvwidget.h"

#include "device.h"

#include <QLCDNumber>
#include <QMessageBox>

#include <cmath>

namespace {

const int UnitNotUsed = 250;

} // namespace

void PVWidget::showValue(QLCDNumber* display, double value)
{
    if (std::isfinite(value))
        display->display(QString::number(value, 'f', 2).toDouble());
    else
        display->display(QStringLiteral("----"));
}

PVWidget::PVWidget(DeviceWidget* owner, int variableCount, bool showAdditionalStatus)
    : DeviceWidget(owner), ui(new Ui::PVWidget)
{
    ui->setupUi(this);
    const bool shown[] = {variableCount > 1, variableCount > 2, variableCount == 4};
    const QList<Variable> all = variables();
    for (int i = 0; i < all.size(); ++i) {
        for (QWidget* widget : {static_cast<QWidget*>(all.at(i).display), static_cast<QWidget*>(all.at(i).unit),
                                static_cast<QWidget*>(all.at(i).title)})
            widget->setVisible(shown[i]);
    }
    ui->chkAdditionalStatus->setVisible(showAdditionalStatus);
    connect(owner, &DeviceWidget::deviceChanged, this, &PVWidget::onDeviceChanged);
    connect(owner, &DeviceWidget::updateButtons, this, &PVWidget::onUpdateButtons);
    connect(owner, &DeviceWidget::resetWidget, this, &PVWidget::onResetWidget);
    connect(owner, &DeviceWidget::init_progress_bar, this, &PVWidget::onInitProgressBar);
    onUpdateButtons(false);
}

PVWidget::~PVWidget()
{
    delete ui;
}

QString PVWidget::statusLines() const
{
    return ui->txtStatusText->toPlainText();
}

void PVWidget::onDeviceChanged(Device* device)
{
    if (m_device)
        disconnect(m_device, nullptr, this, nullptr);
    setDevice(device);
    if (!device)
        return;
    connect(device, &Device::deviceStatus, this, &PVWidget::appendDeviceStatus);
    connect(device, &Device::deviceError, this, &PVWidget::appendDeviceError);
    const QSignalBlocker blocker(ui->chkAdditionalStatus);
    ui->chkAdditionalStatus->setChecked(device->alwaysAdditionalStatus());
}

void PVWidget::onUpdateButtons(bool on)
{
    ui->btnRefresh->setEnabled(on);
    ui->chkAdditionalStatus->setEnabled(on);
    ui->btnResetConfigChanged->setEnabled(on && m_configChanged);
}

void PVWidget::onResetWidget()
{
    ui->txtStatusText->clear();
    m_shownStatusLines.clear();
    for (QLCDNumber* display : {ui->lcdPVValue, ui->lcdSVValue, ui->lcdTVValue, ui->lcdQVValue}) {
        display->setDigitCount(6);
        display->display(0);
    }
    ui->txtOutputCurrent->setFloatValue(0);
    ui->txtOutputCurrentP->setFloatValue(0);
}

void PVWidget::onInitProgressBar(const QString& title, int max)
{
    Q_UNUSED(title)
    Q_UNUSED(max)
    ui->txtStatusText->clear();
    m_shownStatusLines.clear();
}

QList<PVWidget::Variable> PVWidget::variables() const
{
    return {{"SV", ui->lcdSVValue, ui->lbSVUnit, ui->lbSVTitle, &Device::getSVUnitCodeText},
            {"TV", ui->lcdTVValue, ui->lbTVUnit, ui->lbTVTitle, &Device::getTVUnitCodeText},
            {"QV", ui->lcdQVValue, ui->lbQVUnit, ui->lbQVTitle, &Device::getQVUnitCodeText}};
}

bool PVWidget::showVariable(const Variable& variable)
{
    const QString name = QLatin1String(variable.name);
    const QString key = name + QStringLiteral("_unit_code");
    bool shown = false;
    if (m_device->hasDeviceInfoParam(key)) {
        shown = m_device->getDeviceInfoByte(key) != UnitNotUsed;
        variable.unit->setText(shown ? (m_device->*variable.unitText)() : tr("not used"));
    }
    for (QWidget* widget : {static_cast<QWidget*>(variable.display), static_cast<QWidget*>(variable.unit),
                            static_cast<QWidget*>(variable.title)})
        widget->setVisible(shown);
    if (shown)
        showValue(variable.display, m_device->getDeviceInfoFloat(name));
    return shown;
}

bool PVWidget::readPrimaryVariable(bool standalone)
{
    if (!m_device)
        return false;
    if (standalone && !initProgressBar(tr("Reading variables"), 1))
        return false;
    for (const char* key : {"SV_unit_code", "TV_unit_code", "QV_unit_code"})
        m_device->removeDeviceInfo(QLatin1String(key));

    if (!readDevice(3)) {
        ui->lcdPVValue->display(0);
        if (standalone) {
            showFinalMessage(0);
            QMessageBox::warning(this, tr("Reading the primary variable"),
                                 tr("Primary Variable value read error! Try again please."));
        }
        return false;
    }
    showValue(ui->lcdPVValue, m_device->getDeviceInfoFloat(QStringLiteral("PV")));
    ui->lbPVUnit->setText(m_device->getPVUnitCodeText());
    for (const Variable& variable : variables())
        showVariable(variable);

    const QByteArray status = m_device->statusBytes();
    if (status.size() > 1 && (quint8(status.at(1)) & 0x80))
        runExchange([this]() { return m_device->checkAdditionalStatus(true, false); });

    const int errorCode = m_device->getDeviceInfo(QStringLiteral("error_code")).toInt();
    if (standalone) {
        if (errorCode == 0) {
            nextStep();
            showFinalMessage(0);
        } else {
            showFinalMessage(0);
            QMessageBox::warning(this, tr("Reading the primary variable"),
                                 tr("PV measurement error=%1! Try again please.").arg(errorCode));
        }
    }
    return true;
}

bool PVWidget::readOutputCurrent()
{
    if (!m_device)
        return false;
    if (!readDevice(2)) {
        ui->txtOutputCurrent->setFloatValue(0);
        ui->txtOutputCurrentP->setFloatValue(0);
        return false;
    }
    showDeviceInfoInField(QStringLiteral("output_current"), ui->txtOutputCurrent, false);
    showDeviceInfoInField(QStringLiteral("output_current_%"), ui->txtOutputCurrentP, false);
    appendCurrentLoopMode(true);
    return true;
}

void PVWidget::appendCurrentLoopMode(bool refresh)
{
    if (!m_device)
        return;
    const QString modeKey = QStringLiteral("current_loop_mode");
    auto mode = [&]() { return m_device->hasDeviceInfoParam(modeKey) ? m_device->getDeviceInfo(modeKey).toInt() : 1; };
    // A disabled loop in multidrop keeps 4 mA; more than that says the mode
    // shown is stale.
    if (refresh && mode() == 0 && m_device->getDeviceInfo(QStringLiteral("polling_address")).toInt() != 0 &&
        m_device->getDeviceInfoFloat(QStringLiteral("output_current")) > 4.01f)
        readDevice(7);
    ui->lbCurrentLoopMode->setText(mode() == 0 ? tr("current loop disabled") : QString());
}

void PVWidget::on_btnRefresh_clicked()
{
    if (!initProgressBar(tr("Reading variables"), 3))
        return;
    nextStep();
    if (readPrimaryVariable(false))
        nextStep();
    if (readOutputCurrent())
        nextStep();
    showFinalMessage(0);
}

void PVWidget::on_btnResetConfigChanged_clicked()
{
    if (!initProgressBar(tr("Reset flag <Config changed>"), 1))
        return;
    if (writeDevice(38))
        nextStep();
    showFinalMessage(0);
}

void PVWidget::on_chkAdditionalStatus_stateChanged(int state)
{
    if (m_device)
        m_device->setAlwaysAdditionalStatus(state == Qt::Checked);
}

void PVWidget::appendDeviceStatus(const QString& statusText, const QByteArray& statusCode)
{
    appendCurrentLoopMode(false);
    const QString code = QString::fromLatin1(statusCode.toHex(' ').toUpper());
    for (const QString& line : statusText.split(QLatin1Char('\n'))) {
        if (m_shownStatusLines.contains(line))
            continue;
        m_shownStatusLines.insert(line);
        const bool prefixed = code != QLatin1String("00 00") && !line.isEmpty() && !line.contains(QLatin1String("---"));
        ui->txtStatusText->appendPlainText(prefixed ? QStringLiteral("[%1] %2").arg(code, line) : line);
    }
    m_configChanged = statusCode.size() >= 2 && (quint8(statusCode.at(1)) & 0x40);
    ui->btnResetConfigChanged->setEnabled(m_configChanged && ui->btnRefresh->isEnabled());
}

void PVWidget::appendDeviceError(const QString& errorText)
{
    QString text = errorText;
    text.replace(QLatin1String("***"), QLatin1String("\n***"));
    ui->txtStatusText->appendPlainText(text);
}

void PVWidget::showPeriodResponsePV(const QVariantMap& values)
{
    if (!m_device)
        return;
    showValue(ui->lcdPVValue, m_device->getDeviceInfoFloat(QStringLiteral("PV")));
    ui->lbPVUnit->setText(m_device->getPVUnitCodeText());
    if (values.contains(QStringLiteral("output_current")))
        ui->txtOutputCurrent->setText(
            QString::number(values.value(QStringLiteral("output_current")).toDouble(), 'f', 2));
    for (const Variable& variable : variables()) {
        if (!values.contains(QLatin1String(variable.name)))
            continue;
        showValue(variable.display, m_device->getDeviceInfoFloat(QLatin1String(variable.name)));
        variable.unit->setText((m_device->*variable.unitText)());
    }
}

void PVWidget::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange)
        ui->retranslateUi(this);
    DeviceWidget::changeEvent(event);
}
