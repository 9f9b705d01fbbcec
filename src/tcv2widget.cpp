#include "tcv2widget.h"
#include "ui_tcv2widget.h"

#include "pvwidget.h"

#include <QKeyEvent>
#include <QMessageBox>

namespace {

// The pages of the two stacks.
enum CorrectionPage { CorrectionOverview = 0, CorrectionStart, CorrectionPoint1, CorrectionPoint2 };
enum AdjustPage {
    AdjustStart = 0,
    AdjustCode,
    AdjustCurrentPage,
    AdjustVoltagePage,
    AdjustResistancePage,
    AdjustTemperaturePage
};

// An input channel's adjustment: the input it needs, the reading it works
// with and the command that writes the reference value.
struct Channel
{
    int inputSignalType;
    const char* wrongInput;
    int page;
    const char* key;
    int command;
};

Channel channel(AdjustMode mode)
{
    switch (mode) {
    case Resistance:
        return {
            0,
            QT_TRANSLATE_NOOP("TCV2Widget", "It is necessary to set the device to work with a resistance thermometer"),
            AdjustResistancePage, "adjust_resistance", 172};
    case Voltage:
        return {1, QT_TRANSLATE_NOOP("TCV2Widget", "It is necessary to set the device to work with a thermocouple"),
                AdjustVoltagePage, "adjust_voltage", 171};
    case Temperature:
        return {
            2,
            QT_TRANSLATE_NOOP("TCV2Widget",
                              "It is necessary to set the device to work with sensor of free ends of the thermocouple"),
            AdjustTemperaturePage, "adjust_temperature", 173};
    default:
        return {-1, nullptr, AdjustCurrentPage, nullptr, 0};
    }
}

const char* const jumperPrompt =
    QT_TRANSLATE_NOOP("TCV2Widget", "The device needs to change\nthe position of the jumper");

} // namespace

TCV2Widget::TCV2Widget(QWidget* parent) : MainDeviceWidget(parent), ui(new Ui::TCV2Widget)
{
    ui->setupUi(this);
    initWidget();
    composeEditor({ui->tabWidget, ui->gridMain, ui->layoutStatus, 4, true, true});
    ui->lbPrompt->installEventFilter(this);
    m_bIsModifyBlocking = true;
    ControlFieldsByInputSignalType(0);
    m_bIsModifyBlocking = false;
    ui->stackedWidgetAdjust->setCurrentIndex(AdjustStart);
    reset2PointCorrection();
}

TCV2Widget::~TCV2Widget()
{
    delete ui;
}

void TCV2Widget::initWidget()
{
    MainDeviceWidget::initWidget();
    addWriteFields({
        {"sensor_number", ui->spnSensorNumber, 49},
        {"average_count", ui->spnAverageCount, 134},
        {"range_max", ui->dspnRangeMax, 35},
        {"range_min", ui->dspnRangeMin, 35},
        {"decimal_point_position", ui->cmbDecimalPoint, 133},
        {"input_signal_type", ui->cmbInputSignalType, 151},
        {"sensor_type", ui->cmbSensorType, 152},
        {"connection_schema", ui->cmbConnectRsSchem, 154},
        {"resistanceTS_0", ui->dspnResistanceTs_0C, 156},
        {"resistance_conn_wires", ui->dspnResistanceConWires, 158},
        {"free_ends_compensation", ui->cmbFreeTailsCompensation, 161},
    });
    initComboBoxes(0);
}

void TCV2Widget::initComboBoxes(int signalType)
{
    loadComboBoxItems({tr("Thermistor"), tr("Thermocouple"), tr("Sensor T free ends of the thermocouple")},
                      ui->cmbInputSignalType);
    const int sensorBefore = ui->cmbSensorType->currentIndex();
    if (signalType == 1)
        loadComboBoxItems({tr("A-1 (TBP)"), tr("A-2 (TBP)"), tr("A-3 (TBP)"), tr("B (TPR)"), tr("E (TXK)"),
                           tr("J (TJK)"), tr("K (TXA)"), tr("L (TXK)"), tr("M (TMK)"), tr("N (THH)"), tr("R (TPP)"),
                           tr("S (TPP)"), tr("T (TMK)")},
                          ui->cmbSensorType);
    else
        loadComboBoxItems({tr("Pt  (TCP)"), tr("Pt' (TCP)"), tr("Cu  (TCM)"), tr("Cu' (TCM)"), tr("Ni (TCH)")},
                          ui->cmbSensorType);
    // A user's change of the input that leaves the sensor on another row
    // needs that row written too.
    if (!m_bIsModifyBlocking && sensorBefore >= 0 && ui->cmbSensorType->currentIndex() != sensorBefore)
        setFieldColorModified(ui->cmbSensorType, true);
    loadComboBoxItems({tr("2 or 4 wire's"), tr("3 wire's")}, ui->cmbConnectRsSchem);
    loadComboBoxItems({tr("off"), tr("on")}, ui->cmbFreeTailsCompensation);
    loadComboBoxItems({QStringLiteral("0000."), QStringLiteral("000.0")}, ui->cmbDecimalPoint);
}

// ---------------------------------------------------------------------------
// Showing the configuration

void TCV2Widget::showDeviceInfoInFields()
{
    MainDeviceWidget::showDeviceInfoInFields();
    showSensorInfo();
    showRangeInfo();
    showAnalogInputInfo();
}

void TCV2Widget::showSensorInfo()
{
    showDeviceInfoInField(QStringLiteral("sensor_range_min"), ui->lbSensorRangeMin);
    showDeviceInfoInField(QStringLiteral("sensor_range_max"), ui->lbSensorRangeMax);
    showDeviceInfoInField(QStringLiteral("sensor_minimum_range"), ui->lbSensorMinimumRange);
    showDeviceInfoInField(QStringLiteral("sensor_number"), ui->spnSensorNumber);
    const QString unit =
        m_device ? Device::getUnitCodeText(m_device->getDeviceInfo(QStringLiteral("sensor_unit_code")).toInt(), 0)
                 : QString();
    for (QLabel* label : {ui->lbSensorUnit1, ui->lbSensorUnit2, ui->lbSensorUnit3})
        label->setText(unit);
}

void TCV2Widget::showRangeInfo()
{
    showDeviceInfoInField(QStringLiteral("range_min"), ui->dspnRangeMin);
    showDeviceInfoInField(QStringLiteral("range_max"), ui->dspnRangeMax);
    const QString unit =
        m_device ? Device::getUnitCodeText(m_device->getDeviceInfo(QStringLiteral("range_unit_code")).toInt(), 0)
                 : QString();
    ui->lbRangeUnit1->setText(unit);
    ui->lbRangeUnit2->setText(unit);
    const bool writeProtected = m_device && m_device->getDeviceInfo(QStringLiteral("write_protection")).toInt() == 1;
    ui->lbWriteProtection->setText(writeProtected ? tr("write protection is enabled") : QString());
}

void TCV2Widget::showAnalogInputInfo()
{
    showDeviceInfoInField(QStringLiteral("decimal_point_position"), ui->cmbDecimalPoint);
    showDeviceInfoInField(QStringLiteral("input_signal_type"), ui->cmbInputSignalType);
    showDeviceInfoInField(QStringLiteral("sensor_type"), ui->cmbSensorType);
    showDeviceInfoInField(QStringLiteral("connection_schema"), ui->cmbConnectRsSchem);
    showDeviceInfoInField(QStringLiteral("resistanceTS_0"), ui->dspnResistanceTs_0C);
    showDeviceInfoInField(QStringLiteral("resistance_conn_wires"), ui->dspnResistanceConWires);
    showDeviceInfoInField(QStringLiteral("free_ends_compensation"), ui->cmbFreeTailsCompensation);
    // The points' boxes are the user's input during a correction: shown, not watched.
    showDeviceInfoInField(QStringLiteral("first_correction_point"), ui->dspnCorrPointT1, false);
    showDeviceInfoInField(QStringLiteral("second_correction_point"), ui->dspnCorrPointT2, false);
    ui->lbPointT1->setText(ui->dspnCorrPointT1->text());
    ui->lbPointT2->setText(ui->dspnCorrPointT2->text());
    showDeviceInfoInField(QStringLiteral("average_count"), ui->spnAverageCount);
}

// ---------------------------------------------------------------------------
// Buttons and their states

void TCV2Widget::setFieldColorModified(QWidget* field, bool modified)
{
    MainDeviceWidget::setFieldColorModified(field, modified);
    updateWriteButton();
}

void TCV2Widget::updateWriteButton()
{
    const bool on = !m_writeParameters.isEmpty() && m_hasReadedConfig &&
                    ui->stackedWidgetCorrection->currentIndex() == CorrectionOverview;
    setWriteButtonEnabled(ui->btnWriteCfgInDevice, on);
}

void TCV2Widget::onUpdateButtons(bool on)
{
    for (QPushButton* button : {ui->btnReadCfgFromDevice,
                                ui->btnBeginCorrection,
                                ui->btnSaveMinByPV,
                                ui->btnSaveMaxByPV,
                                ui->btnSetFixedCurrent,
                                ui->btnResetFixedCurrent,
                                ui->btnStartAdjust,
                                ui->btnStartAdjustByR,
                                ui->btnStartAdjustByU,
                                ui->btnStartAdjustByT,
                                ui->btnSaveManufacturerSettings,
                                ui->btnRestoreManufacturerSettings,
                                ui->btnCheckCode,
                                ui->btnSet4mA,
                                ui->btnSet20mA,
                                ui->btnGetVoltage,
                                ui->btnGetResistance,
                                ui->btnGetTemperature,
                                ui->btnCompleteAdjustCurrent,
                                ui->btnCompleteAdjustVoltage,
                                ui->btnCompleteAdjustResistance,
                                ui->btnCompleteAdjustTemperature})
        button->setEnabled(on);
    if (!on) {
        for (QPushButton* button : {ui->btnAdjust4mA, ui->btnAdjust20mA, ui->btnAdjustVoltage, ui->btnAdjustResistance,
                                    ui->btnAdjustTemperature})
            button->setEnabled(false);
    }
    ui->btnWriteCfgInDevice->setEnabled(false);
}

void TCV2Widget::onStartPeriod(bool deviceFree)
{
    MainDeviceWidget::onStartPeriod(deviceFree);
    lockWhilePolling(deviceFree, ui->btnWriteCfgInDevice, ui->tabAdjust);
    emit changed();
}

void TCV2Widget::onResetWidget()
{
    MainDeviceWidget::onResetWidget();
    onUpdateButtons(false);
    reset2PointCorrection();
    ui->stackedWidgetAdjust->setCurrentIndex(AdjustStart);
}

void TCV2Widget::onWidgetStateChanged()
{
    MainDeviceWidget::onWidgetStateChanged();
    // The user's change of the configuration ends a correction under way.
    if (!m_bIsModifyBlocking)
        reset2PointCorrection();
}

// ---------------------------------------------------------------------------
// Reading and writing the configuration

void TCV2Widget::on_btnReadCfgFromDevice_clicked()
{
    if (!initProgressBar(tr("Read device configuration"), 4))
        return;
    m_hasReadedConfig = false;
    int steps = 1;
    nextStep();
    if (readDevice(14)) {
        showSensorInfo();
        nextStep();
        ++steps;
        if (readDevice(15)) {
            showRangeInfo();
            nextStep();
            ++steps;
            if (readDevice(130)) {
                showAnalogInputInfo();
                nextStep();
                ++steps;
            }
        }
    }
    showFinalMessage(steps);
    if (steps == 4) {
        m_prompt.clear();
        ui->lbPrompt->clear();
        m_hasReadedConfig = true;
        emit changed();
    }
    updateWriteButton();
}

void TCV2Widget::on_btnWriteCfgInDevice_clicked()
{
    const QList<int> list = getWriteFunctionsList();
    if (list.isEmpty())
        return;
    execWriteFunctionsByList(list, list.contains(151) || list.contains(152));
    // Once the new input is in the device, the jumper must move now.
    if (m_writeParameters.isEmpty() && !m_prompt.isEmpty()) {
        m_prompt.replace(QLatin1String("brown;"), QLatin1String("red; font: bold;"));
        ui->lbPrompt->setText(m_prompt);
    }
}

void TCV2Widget::execAdditionalActions()
{
    // A new input brings new sensor limits.
    if (readDevice(14))
        showSensorInfo();
}

void TCV2Widget::on_cmbInputSignalType_currentIndexChanged(int index)
{
    if (index == -1)
        return;
    const int inDevice = m_device ? m_device->getDeviceInfo(QStringLiteral("input_signal_type")).toInt() : 0;
    // The resistance input and the others sit on two positions of a jumper.
    if (!m_bIsModifyBlocking && m_hasReadedConfig && ((inDevice == 0) != (index == 0)))
        m_prompt = QStringLiteral("<p style=\"color: brown; \">%1</p>").arg(tr(jumperPrompt));
    else
        m_prompt.clear();
    ui->lbPrompt->setText(m_prompt);
    ControlFieldsByInputSignalType(index);
}

void TCV2Widget::ControlFieldsByInputSignalType(int type)
{
    if (type == -1) {
        setFieldUsed(ui->cmbSensorType, false, ui->lbSensorType);
        return;
    }
    setFieldUsed(ui->cmbSensorType, type < 2, ui->lbSensorType);
    setFieldUsed(ui->dspnResistanceTs_0C, type == 0, ui->lbResistanceTs_0C);
    setFieldUsed(ui->dspnResistanceConWires, type == 0, ui->lbResistanceConWires);
    setFieldUsed(ui->cmbConnectRsSchem, type == 0, ui->lbConnectRsSchem);
    setFieldUsed(ui->cmbFreeTailsCompensation, type == 1, ui->lbFreeTailsCompensation);
    setFieldUsed(ui->dspnRangeMin, true, ui->lbRangeMin);
    setFieldUsed(ui->dspnRangeMax, true, ui->lbRangeMax);
    setFieldUsed(ui->spnSensorNumber, type < 2, ui->lbSensorNumber);
    // The correction finds the resistance at 0 degC and of the wires: a
    // thermometer's alone.
    ui->grpCorrection->setEnabled(type == 0);
    ui->stackedWidget->setCurrentIndex(type);
    initComboBoxes(type);
}

bool TCV2Widget::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == ui->lbPrompt && event->type() == QEvent::MouseButtonDblClick &&
        static_cast<QMouseEvent*>(event)->button() == Qt::LeftButton && m_writeParameters.isEmpty()) {
        m_prompt.clear();
        ui->lbPrompt->clear();
        return true;
    }
    return MainDeviceWidget::eventFilter(watched, event);
}

// ---------------------------------------------------------------------------
// Range, fixed current and manufacturer settings

void TCV2Widget::on_btnSaveMinByPV_clicked()
{
    saveRangeMinByPV();
}

void TCV2Widget::on_btnSaveMaxByPV_clicked()
{
    saveRangeMaxByPV();
}

void TCV2Widget::on_btnSetFixedCurrent_clicked()
{
    if (setFixedCurrent(float(ui->dspnFixedCurrent->value())))
        showDeviceInfoInField(QStringLiteral("fixed_current"), ui->dspnFixedCurrent, false);
}

void TCV2Widget::on_btnResetFixedCurrent_clicked()
{
    setFixedCurrent(0);
}

void TCV2Widget::on_btnSaveManufacturerSettings_clicked()
{
    saveManufacturerSettings();
}

void TCV2Widget::on_btnRestoreManufacturerSettings_clicked()
{
    restoreManufacturerSettings();
}

// ---------------------------------------------------------------------------
// Two-point correction

void TCV2Widget::on_btnBeginCorrection_clicked()
{
    ui->btnWriteCfgInDevice->setEnabled(false);
    ui->stackedWidgetCorrection->setCurrentIndex(CorrectionStart);
    ui->btnCancelCorrection->setVisible(true);
}

void TCV2Widget::on_btnStartCorrection_clicked()
{
    ui->stackedWidgetCorrection->setCurrentIndex(CorrectionPoint1);
}

void TCV2Widget::on_btnSavePoint1_clicked()
{
    saveCorrectionPoint(1);
}

void TCV2Widget::on_btnSavePoint2_clicked()
{
    saveCorrectionPoint(2);
}

void TCV2Widget::saveCorrectionPoint(int point)
{
    if (!m_device || !m_pvWidget->readPrimaryVariable(true))
        return;
    const bool first = point == 1;
    QDoubleSpinBox* spin = first ? ui->dspnCorrPointT1 : ui->dspnCorrPointT2;
    const QString question = first ? tr("Primary Variable value = %1\n Do you want to write correction point 1 = %2?")
                                   : tr("Primary Variable value = %1\n Do you want to write correction point 2 = %2?");
    const auto answer = QMessageBox::warning(
        this, tr("2-point correction"),
        question.arg(double(m_device->getDeviceInfoFloat(QStringLiteral("PV")))).arg(spin->value()),
        QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel, QMessageBox::No);
    if (answer == QMessageBox::Cancel)
        return;
    if (answer == QMessageBox::No) {
        ui->stackedWidgetCorrection->setCurrentIndex(first ? CorrectionPoint2 : CorrectionPoint1);
        return;
    }
    // Both points carry the same title.
    if (!initProgressBar(tr("Write correction point 1"), 3))
        return;
    m_device->setDeviceInfo(first ? QStringLiteral("first_correction_point")
                                  : QStringLiteral("second_correction_point"),
                            float(spin->value()));
    const bool written = writeDevice(first ? 143 : 144);
    if (written) {
        (first ? ui->lbPointT1 : ui->lbPointT2)->setText(spin->text());
        nextStep();
        emit changed();
        // The correction changes what the device takes for the thermometer.
        if (readDevice(155)) {
            showDeviceInfoInField(QStringLiteral("resistanceTS_0"), ui->dspnResistanceTs_0C);
            nextStep();
            if (readDevice(157)) {
                showDeviceInfoInField(QStringLiteral("resistance_conn_wires"), ui->dspnResistanceConWires);
                nextStep();
            }
        }
    }
    showFinalMessage(0);
    // A point the device did not take stays on its page for another try.
    if (!written)
        return;
    if (first)
        ui->stackedWidgetCorrection->setCurrentIndex(CorrectionPoint2);
    else
        reset2PointCorrection();
}

void TCV2Widget::on_btnCancelCorrection_clicked()
{
    reset2PointCorrection();
}

void TCV2Widget::on_tabWidget_currentChanged(int)
{
    reset2PointCorrection();
}

void TCV2Widget::reset2PointCorrection()
{
    ui->btnStartCorrection->setVisible(true);
    ui->btnCancelCorrection->setVisible(false);
    ui->stackedWidgetCorrection->setCurrentIndex(CorrectionOverview);
    updateWriteButton();
}

// ---------------------------------------------------------------------------
// Adjustment

void TCV2Widget::startAdjust(AdjustMode mode, bool needsConfig)
{
    if (needsConfig && !IsReadedConfig())
        return;
    m_adjustMode = mode;
    ui->dspnAdjustCode->setValue(0);
    ui->stackedWidgetAdjust->setCurrentIndex(AdjustCode);
    ui->dspnAdjustCode->setFocus();
    ui->dspnAdjustCode->selectAll();
}

void TCV2Widget::on_btnStartAdjust_clicked()
{
    startAdjust(Current, false);
}

void TCV2Widget::on_btnStartAdjustByU_clicked()
{
    startAdjust(Voltage, true);
}

void TCV2Widget::on_btnStartAdjustByR_clicked()
{
    startAdjust(Resistance, true);
}

void TCV2Widget::on_btnStartAdjustByT_clicked()
{
    startAdjust(Temperature, true);
}

void TCV2Widget::on_btnCancelAdjust_clicked()
{
    ui->stackedWidgetAdjust->setCurrentIndex(AdjustStart);
}

void TCV2Widget::keyPressEvent(QKeyEvent* event)
{
    const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (enter && ui->dspnAdjustCode->hasFocus() && ui->stackedWidgetAdjust->currentIndex() == AdjustCode) {
        on_btnCheckCode_clicked();
        return;
    }
    MainDeviceWidget::keyPressEvent(event);
}

void TCV2Widget::on_btnCheckCode_clicked()
{
    if (!m_device || m_adjustMode == NoAdjust)
        return;
    const Channel input = channel(m_adjustMode);
    if (m_adjustMode != Current) {
        // The input must be the one the channel needs, in the form and in
        // the device alike; checked before access is opened for nothing.
        const int inForm = ui->cmbInputSignalType->currentIndex();
        const int inDevice = m_device->getDeviceInfo(QStringLiteral("input_signal_type")).toInt();
        if (inForm != inDevice) {
            QMessageBox::warning(
                this, tr("Adjustment"),
                tr("Program settings do not match the settings of the device! [%1/%2]")
                    .arg(ui->cmbInputSignalType->itemText(inForm), ui->cmbInputSignalType->itemText(inDevice)));
            return;
        }
        if (inDevice != input.inputSignalType) {
            QMessageBox::warning(this, tr("Adjustment"), tr(input.wrongInput));
            return;
        }
    }
    const quint32 code = quint32(ui->dspnAdjustCode->value());
    if (!sendAccessCode(code))
        return;
    ui->dspnAdjustCode->setValue(0);
    for (QPushButton* button :
         {ui->btnAdjust4mA, ui->btnAdjust20mA, ui->btnAdjustVoltage, ui->btnAdjustResistance, ui->btnAdjustTemperature})
        button->setEnabled(false);
    ui->stackedWidgetAdjust->setCurrentIndex(input.page);
}

void TCV2Widget::on_btnSet4mA_clicked()
{
    setFixedCurrentForAdjust(true, ui->dspn4mA, ui->dspn20mA, ui->btnAdjust4mA, ui->btnAdjust20mA);
}

void TCV2Widget::on_btnSet20mA_clicked()
{
    setFixedCurrentForAdjust(false, ui->dspn4mA, ui->dspn20mA, ui->btnAdjust4mA, ui->btnAdjust20mA);
}

void TCV2Widget::on_btnAdjust4mA_clicked()
{
    onAdjust4mA_clicked(ui->dspn4mA);
}

void TCV2Widget::on_btnAdjust20mA_clicked()
{
    onAdjust20mA_clicked(ui->dspn20mA);
}

namespace {

struct ChannelFields
{
    QDoubleSpinBox* spin;
    QPushButton* adjust;
};

ChannelFields channelFields(AdjustMode mode, Ui::TCV2Widget* ui)
{
    switch (mode) {
    case Voltage:
        return {ui->dspnVoltage, ui->btnAdjustVoltage};
    case Resistance:
        return {ui->dspnResistance, ui->btnAdjustResistance};
    case Temperature:
        return {ui->dspnTemperature, ui->btnAdjustTemperature};
    default:
        return {nullptr, nullptr};
    }
}

} // namespace

void TCV2Widget::getAdjustedParameter()
{
    const ChannelFields fields = channelFields(m_adjustMode, ui);
    if (!m_device || !fields.spin || !initProgressBar(tr("Reading metrological parameters"), 1))
        return;
    m_device->setDeviceInfo(QStringLiteral("adjust_parameter_code"), int(m_adjustMode));
    if (writeDevice(174)) {
        showDeviceInfoInField(QLatin1String(channel(m_adjustMode).key), fields.spin, false);
        fields.adjust->setEnabled(true);
        nextStep();
    }
    showFinalMessage(0);
}

void TCV2Widget::adjustParameter()
{
    const ChannelFields fields = channelFields(m_adjustMode, ui);
    const Channel input = channel(m_adjustMode);
    if (!m_device || !fields.spin || !initProgressBar(tr("Saving metrological parameters"), 1))
        return;
    m_device->setDeviceInfo(QLatin1String(input.key), float(fields.spin->value()));
    if (writeDevice(input.command)) {
        showDeviceInfoInField(QLatin1String(input.key), fields.spin, false);
        nextStep();
        emit changed();
    }
    showFinalMessage(0);
}

void TCV2Widget::on_btnGetVoltage_clicked()
{
    getAdjustedParameter();
}

void TCV2Widget::on_btnGetResistance_clicked()
{
    getAdjustedParameter();
}

void TCV2Widget::on_btnGetTemperature_clicked()
{
    getAdjustedParameter();
}

void TCV2Widget::on_btnAdjustVoltage_clicked()
{
    adjustParameter();
}

void TCV2Widget::on_btnAdjustResistance_clicked()
{
    adjustParameter();
}

void TCV2Widget::on_btnAdjustTemperature_clicked()
{
    adjustParameter();
}

bool TCV2Widget::completeAdjustParameter()
{
    if (!completeAdjust())
        return false;
    ui->stackedWidgetAdjust->setCurrentIndex(AdjustStart);
    ui->btnSetFixedCurrent->setEnabled(true);
    ui->btnResetFixedCurrent->setEnabled(true);
    return true;
}

void TCV2Widget::on_btnCompleteAdjustCurrent_clicked()
{
    completeAdjustParameter();
}

void TCV2Widget::on_btnCompleteAdjustVoltage_clicked()
{
    completeAdjustParameter();
}

void TCV2Widget::on_btnCompleteAdjustResistance_clicked()
{
    completeAdjustParameter();
}

void TCV2Widget::on_btnCompleteAdjustTemperature_clicked()
{
    completeAdjustParameter();
}

void TCV2Widget::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange) {
        // The form's texts, the boxes' rows (kept where they stand) and the prompt.
        const bool blocking = m_bIsModifyBlocking;
        m_bIsModifyBlocking = true;
        ui->retranslateUi(this);
        initComboBoxes(ui->cmbInputSignalType->currentIndex());
        m_bIsModifyBlocking = blocking;
        if (!m_prompt.isEmpty()) {
            const bool urgent = m_prompt.contains(QLatin1String("red;"));
            m_prompt =
                QStringLiteral("<p style=\"color: %1 \">%2</p>")
                    .arg(urgent ? QStringLiteral("red; font: bold;") : QStringLiteral("brown;"), tr(jumperPrompt));
        }
        ui->lbPrompt->setText(m_prompt);
    }
    MainDeviceWidget::changeEvent(event);
}
