#include "ph77widget.h"
#include "ui_ph77widget.h"

#include "commonwidget.h"
#include "measurewidget.h"
#include "periodthread33.h"

#include <QKeyEvent>
#include <QMessageBox>

#include <cmath>

namespace {

enum AdjustPage { AdjustStart = 0, AdjustCode, AdjustCurrentPage, AdjustURRPage, AdjustRangesPage, AdjustSensorPage };
enum GraduationPage { GraduationOverview = 0, GraduationRun };

// What the watches ask for by command 33: temperature, electrode EMF and the
// buffer recognised; the U channel, the Rc channel and the Rt channel.
const QList<int> bufferVariables = {1, 4, 6, 250};
const QList<int> adjustVariables = {2, 7, 5, 250};
const int bufferPeriodMs = 2100;
const int adjustPeriodMs = 1700;

// The stored value of a watch before its first response: any EMF lies far from it.
const float noBufferValue = 3000.0f;
// Readings closer than this to the one before stand still.
const double stableDelta = 0.1;
// A jump this big is no reading of the electrode.
const double plausibleDelta = 2000.0;

const char* const stopCaption = QT_TRANSLATE_NOOP("PH77Widget", "Stop measurement");
const char* const startCaption = QT_TRANSLATE_NOOP("PH77Widget", "Start measurement");

QString redText(const QString& text)
{
    return QStringLiteral("<p style=\"color: red; \">%1</p>").arg(text);
}

bool isNan(const QVariant& value)
{
    return value.toString() == QLatin1String("nan") || std::isnan(value.toDouble());
}

QString valueWithUnit(const QVariantMap& values, int slot, int decimals)
{
    const double value = values.value(QStringLiteral("slot_%1_value").arg(slot)).toDouble();
    const int unit = values.value(QStringLiteral("slot_%1_unit_code").arg(slot)).toInt();
    return QStringLiteral("%1 %2").arg(QString::number(value, 'f', decimals), Device::getUnitCodeText(unit, 0));
}

} // namespace

PH77Widget::PH77Widget(QWidget* parent)
    : MainDeviceWidget(parent), ui(new Ui::PH77Widget), m_thread33(new PeriodThread33(this))
{
    ui->setupUi(this);
    initWidget();
    composeEditor({ui->tabWidget, ui->gridMain, ui->layoutStatus, 4, true, true});
    m_commonWidget->setExpectedCodes(0xE0, 0x94);
    // A watch belongs to the device it was started on.
    connect(this, &DeviceWidget::deviceChanged, this, &PH77Widget::stopWatches);
    connect(this, &MainDeviceWidget::closeApplication, this, &PH77Widget::stopWatches);
    m_bIsModifyBlocking = true;
    ControlFieldsByInputUnits(0);
    m_bIsModifyBlocking = false;
    ui->stackedWidgetAdjust->setCurrentIndex(AdjustStart);
    resetGraduation();
}

PH77Widget::~PH77Widget()
{
    // No response may reach the form once it is gone.
    m_thread33->disconnect(this);
    m_thread33->stopThread();
    delete ui;
}

void PH77Widget::initWidget()
{
    MainDeviceWidget::initWidget();
    addWriteFields({
        {"sensor_number", ui->spnSensorNumber, 49},
        {"range_max", ui->dspnRangeMax, 35},
        {"range_min", ui->dspnRangeMin, 35},
        {"input_units", ui->cmbInputMode, 131},
        {"ei_isopotential_point", ui->dspnEi, 131},
        {"steepness", ui->dspnS, 131},
        {"phi_isopotential_point", ui->dspnpHi, 131},
        {"average_time_small_sig_ph", ui->spnAvTimeSmallSignal_pH, 132},
        {"average_time_big_sig_ph", ui->spnAvTimeBigSignal_pH, 132},
        {"big_sig_threshold_ph", ui->dspnBigSignalThreshold_pH, 132},
        {"electrode_diag", ui->cmbElectrodeDiag, 133},
        {"t_measurement_mode", ui->cmbCompensationMode, 135},
        {"t_manual", ui->dspnHandSetTemperature, 135},
        {"ts_type", ui->cmbResistorType, 136},
        {"ts_0", ui->dspnResistanceTS0, 136},
        {"t_for_correction", ui->dspnTempCorrection, 136},
        {"average_time_small_sig_t", ui->spnAvTimeSmallSignal_T, 137},
        {"average_time_big_sig_t", ui->spnAvTimeBigSignal_T, 137},
        {"big_sig_threshold_t", ui->dspnBigSignalThreshold_T, 137},
        {"indicate_range_min", ui->dspnMinIndication, 141},
        {"indicate_range_max", ui->dspnMaxIndication, 141},
    });
    initComboBoxes();
}

void PH77Widget::initComboBoxes()
{
    loadComboBoxItems({tr("pH-meter"), tr("pH-meter with VCW"), tr("OVP-meter"), tr("EMF-meter")}, ui->cmbInputMode);
    loadComboBoxItems({tr("measured by temperature sensor"), tr("manually set temperature")}, ui->cmbCompensationMode);
    loadComboBoxItems({tr("off"), tr("on")}, ui->cmbElectrodeDiag);
    loadComboBoxItems({tr("P") + tr(" (W=1,385)"), tr("Pt (W=1,391)")}, ui->cmbResistorType);
    loadComboBoxItems({tr("1-point"), tr("2-point")}, ui->cmbGrdType);
}

// ---------------------------------------------------------------------------
// Showing the configuration

void PH77Widget::showDeviceInfoInFields()
{
    MainDeviceWidget::showDeviceInfoInFields();
    showAnalogInputInfo();
    showRangeInfo();
    showSensorInfo();
    showCurrentEiSRanges();
    showCurrentGraduationInfo();
}

void PH77Widget::showAnalogInputInfo()
{
    const QList<std::pair<const char*, QWidget*>> fields = {
        {"input_units", ui->cmbInputMode},
        {"ei_isopotential_point", ui->dspnEi},
        {"steepness", ui->dspnS},
        {"phi_isopotential_point", ui->dspnpHi},
        {"average_time_small_sig_ph", ui->spnAvTimeSmallSignal_pH},
        {"average_time_big_sig_ph", ui->spnAvTimeBigSignal_pH},
        {"big_sig_threshold_ph", ui->dspnBigSignalThreshold_pH},
        {"electrode_diag", ui->cmbElectrodeDiag},
        {"t_measurement_mode", ui->cmbCompensationMode},
        {"t_manual", ui->dspnHandSetTemperature},
        {"ts_type", ui->cmbResistorType},
        {"ts_0", ui->dspnResistanceTS0},
        {"t_for_correction", ui->dspnTempCorrection},
        {"average_time_small_sig_t", ui->spnAvTimeSmallSignal_T},
        {"average_time_big_sig_t", ui->spnAvTimeBigSignal_T},
        {"big_sig_threshold_t", ui->dspnBigSignalThreshold_T},
    };
    for (const auto& [name, field] : fields)
        showDeviceInfoInField(QLatin1String(name), field);
}

void PH77Widget::showRangeInfo()
{
    showDeviceInfoInField(QStringLiteral("range_min"), ui->dspnRangeMin);
    showDeviceInfoInField(QStringLiteral("range_max"), ui->dspnRangeMax);
    showDeviceInfoInField(QStringLiteral("indicate_range_min"), ui->dspnMinIndication);
    showDeviceInfoInField(QStringLiteral("indicate_range_max"), ui->dspnMaxIndication);
    const QString suffix =
        m_device ? QLatin1Char(' ') +
                       Device::getUnitCodeText(m_device->getDeviceInfo(QStringLiteral("range_unit_code")).toInt(), 0)
                 : QString();
    for (QDoubleSpinBox* spin : {ui->dspnRangeMin, ui->dspnRangeMax, ui->dspnMinIndication, ui->dspnMaxIndication})
        spin->setSuffix(suffix);
    const bool writeProtected = m_device && m_device->getDeviceInfo(QStringLiteral("write_protection")).toInt() == 1;
    ui->lbWriteProtection->setText(writeProtected ? tr("write protection is enabled") : QString());
}

void PH77Widget::showSensorInfo()
{
    showDeviceInfoInField(QStringLiteral("sensor_range_min"), ui->lbSensorRangeMin);
    showDeviceInfoInField(QStringLiteral("sensor_range_max"), ui->lbSensorRangeMax);
    showDeviceInfoInField(QStringLiteral("sensor_minimum_range"), ui->lbSensorMinimumRange);
    showDeviceInfoInField(QStringLiteral("sensor_number"), ui->spnSensorNumber);
    const QString unit =
        m_device ? Device::getUnitCodeText(m_device->getDeviceInfo(QStringLiteral("sensor_unit_code")).toInt(), 0)
                 : QString();
    for (QLabel* label : {ui->lbSensorUnit1, ui->lbSensorUnit2, ui->lbSensorUnit3, ui->lbSensorParamUnit1,
                          ui->lbSensorParamUnit2, ui->lbSensorParamUnit3})
        label->setText(unit);
}

void PH77Widget::showCurrentEiSRanges()
{
    showDeviceInfoInField(QStringLiteral("ei_min"), ui->dspnEiMin);
    showDeviceInfoInField(QStringLiteral("ei_max"), ui->dspnEiMax);
    showDeviceInfoInField(QStringLiteral("s_min"), ui->dspnSMin);
    showDeviceInfoInField(QStringLiteral("s_max"), ui->dspnSMax);
}

void PH77Widget::showCurrentGraduationInfo()
{
    if (!m_device)
        return;
    const QVariant type = m_device->getDeviceInfo(QStringLiteral("current_grd_type"));
    if (!type.isValid())
        return;
    const bool twoPoints = type.toInt() == 1;
    auto number = [this](const char* key, int decimals) {
        return QString::number(double(m_device->getDeviceInfoFloat(QLatin1String(key))), 'f', decimals);
    };
    ui->lbCurGrdType->setText(ui->cmbGrdType->itemText(type.toInt()));
    ui->lbCurPH1->setText(number("current_ph_1", 2));
    ui->lbCurEds1->setText(number("current_eds_1", 2));
    ui->lbCurT1->setText(number("current_t_1", 2));
    ui->lbCurPH2->setText(twoPoints ? number("current_ph_2", 2) : QString());
    ui->lbCurEds2->setText(twoPoints ? number("current_eds_2", 2) : QString());
    ui->lbCurT2->setText(twoPoints ? number("current_t_2", 2) : QString());
    // The next graduation starts as the last one was made.
    if (m_graduationPoint == 0 && type.toInt() < ui->cmbGrdType->count())
        ui->cmbGrdType->setCurrentIndex(type.toInt());
}

// ---------------------------------------------------------------------------
// Buttons and their states

void PH77Widget::setFieldColorModified(QWidget* field, bool modified)
{
    MainDeviceWidget::setFieldColorModified(field, modified);
    updateWriteButton();
}

void PH77Widget::setFieldColor(QWidget* field, Qt::GlobalColor color)
{
    QPalette palette = field->palette();
    for (QPalette::ColorGroup group : {QPalette::Active, QPalette::Inactive})
        palette.setColor(group, QPalette::Text, color);
    field->setPalette(palette);
}

void PH77Widget::updateWriteButton()
{
    const bool on = !m_writeParameters.isEmpty() && m_hasReadedConfig;
    setWriteButtonEnabled(ui->btnWriteCfgInDevice, on);
}

void PH77Widget::onUpdateButtons(bool on)
{
    for (QPushButton* button : {ui->btnReadCfgFromDevice,
                                ui->btnSaveMinByPV,
                                ui->btnSaveMaxByPV,
                                ui->btnSetFixedCurrent,
                                ui->btnResetFixedCurrent,
                                ui->btnSaveManufacturerSettings,
                                ui->btnRestoreManufacturerSettings,
                                ui->btnReadCurrentGrdValues,
                                ui->btnStartGraduation,
                                ui->btnStartPoint_1,
                                ui->btnStartPoint_2,
                                ui->btnGetPH_p1,
                                ui->btnGetPH_p2,
                                ui->btnStopGraduation,
                                ui->btnStartAdjust,
                                ui->btnStartURRAdjust,
                                ui->btnEiSRangeCorrection,
                                ui->btnStartSensorParam,
                                ui->btnCheckCode,
                                ui->btnSet4mA,
                                ui->btnSet20mA,
                                ui->btnAdjustInfo,
                                ui->btnSaveEiSRanges,
                                ui->btnSaveSensorParam,
                                ui->btnCompleteAdjustCurrent,
                                ui->btnCompleteAdjustURR,
                                ui->btnCompleteAdjustRanges,
                                ui->btnCompleteSensorParam})
        button->setEnabled(on);
    for (QPushButton* button :
         {ui->btnAdjustU_p1, ui->btnAdjustU_p2, ui->btnAdjustRc_p1, ui->btnAdjustRc_p2, ui->btnAdjustRt})
        button->setEnabled(on && m_watch != AdjustWatch);
    if (!on) {
        for (QPushButton* button : {ui->btnAdjust4mA, ui->btnAdjust20mA, ui->btnSetPH_p1, ui->btnSetPH_p2})
            button->setEnabled(false);
    }
    ui->btnWriteCfgInDevice->setEnabled(false);
}

void PH77Widget::onStartPeriod(bool deviceFree)
{
    MainDeviceWidget::onStartPeriod(deviceFree);
    if (!deviceFree) {
        if (!m_polling) {
            m_mapButtons.insert(ui->btnWriteCfgInDevice, ui->btnWriteCfgInDevice->isEnabled());
            m_mapButtons.insert(ui->btnReadCfgFromDevice, ui->btnReadCfgFromDevice->isEnabled());
        }
        m_polling = true;
        ui->btnWriteCfgInDevice->setEnabled(false);
        ui->btnReadCfgFromDevice->setEnabled(false);
        // Whoever polls, only its own page stays open.
        ui->tabAdjust->setEnabled(m_watch == AdjustWatch);
        ui->tabGraduation->setEnabled(m_watch == BufferWatch);
        ui->tabRange->setEnabled(m_watch == NoWatch);
        m_measureWidget->setEnabled(m_watch == NoWatch);
        if (m_watch == AdjustWatch) {
            for (QPushButton* button :
                 {ui->btnAdjustU_p1, ui->btnAdjustU_p2, ui->btnAdjustRc_p1, ui->btnAdjustRc_p2, ui->btnAdjustRt})
                button->setEnabled(false);
        }
    } else {
        m_polling = false;
        for (QWidget* page : {static_cast<QWidget*>(ui->tabAdjust), static_cast<QWidget*>(ui->tabGraduation),
                              static_cast<QWidget*>(ui->tabRange), static_cast<QWidget*>(m_measureWidget)})
            page->setEnabled(true);
        ui->btnWriteCfgInDevice->setEnabled(m_mapButtons.value(ui->btnWriteCfgInDevice));
        ui->btnReadCfgFromDevice->setEnabled(m_mapButtons.value(ui->btnReadCfgFromDevice));
        const bool on = ui->btnAdjustInfo->isEnabled();
        for (QPushButton* button :
             {ui->btnAdjustU_p1, ui->btnAdjustU_p2, ui->btnAdjustRc_p1, ui->btnAdjustRc_p2, ui->btnAdjustRt})
            button->setEnabled(on);
    }
    emit changed();
}

void PH77Widget::onResetWidget()
{
    MainDeviceWidget::onResetWidget();
    onUpdateButtons(false);
    resetGraduation();
    if (m_adjustMode != NoAdjust)
        completeAdjustParameter();
    // The device is no longer the one watched, closed access or not.
    if (m_watch == AdjustWatch)
        stopWatch();
    m_hasReadedConfig = false;
    ui->stackedWidgetAdjust->setCurrentIndex(AdjustStart);
}

void PH77Widget::on_tabWidget_currentChanged(int)
{
    resetGraduation();
}

// ---------------------------------------------------------------------------
// Reading and writing the configuration

void PH77Widget::on_btnReadCfgFromDevice_clicked()
{
    // The indication range (140) is read too: its fields are written with 141.
    const QList<int> reads = {130, 134, 140, 150, 152, 14, 15};
    if (!initProgressBar(tr("Read device configuration"), int(reads.size())))
        return;
    m_hasReadedConfig = false;
    int steps = 0;
    for (int cmd : reads) {
        if (!readDevice(cmd))
            break;
        nextStep();
        ++steps;
    }
    showAnalogInputInfo();
    showRangeInfo();
    showSensorInfo();
    showCurrentEiSRanges();
    showCurrentGraduationInfo();
    showFinalMessage(steps);
    if (steps == int(reads.size())) {
        m_hasReadedConfig = true;
        emit changed();
    }
    updateWriteButton();
}

void PH77Widget::on_btnWriteCfgInDevice_clicked()
{
    const QList<int> list = getWriteFunctionsList();
    if (list.isEmpty())
        return;
    execWriteFunctionsByList(list, list.contains(131));
}

void PH77Widget::execAdditionalActions()
{
    // A new mode brings the range and the sensor limits of its quantity.
    if (readDevice(14) && readDevice(15)) {
        showSensorInfo();
        showRangeInfo();
    }
}

void PH77Widget::on_cmbInputMode_currentIndexChanged(int index)
{
    if (index != -1)
        ControlFieldsByInputUnits(index);
}

void PH77Widget::ControlFieldsByInputUnits(int mode)
{
    const bool ph = mode < 2;
    ui->stackedWidget->setCurrentIndex(ph ? 0 : 1);
    // pH for the two pH modes, millivolts for the ORP and the EMF.
    const int unit = ph ? 59 : 36;
    if (m_device && m_device->getDeviceInfo(QStringLiteral("range_unit_code")).isValid())
        m_device->setDeviceInfo(QStringLiteral("range_unit_code"), unit);
    const QString suffix = QLatin1Char(' ') + Device::getUnitCodeText(unit, 0);
    for (QDoubleSpinBox* spin : {ui->dspnRangeMin, ui->dspnRangeMax, ui->dspnMinIndication, ui->dspnMaxIndication})
        spin->setSuffix(suffix);
    initComboBoxes();
}

void PH77Widget::on_cmbElectrodeDiag_currentIndexChanged(int index)
{
    if (index != 1 || m_bIsModifyBlocking)
        return;
    QMessageBox::warning(this, tr("Electrode diagnostics"),
                         tr("It is forbidden to turn on the test of the resistance of the auxiliary electrode with a "
                            "two-wire connection diagram of the ES, since in this mode the current consumption "
                            "exceeds 4 mA!"));
}

// ---------------------------------------------------------------------------
// Range, fixed current and manufacturer settings

void PH77Widget::on_btnSaveMinByPV_clicked()
{
    saveRangeMinByPV();
}

void PH77Widget::on_btnSaveMaxByPV_clicked()
{
    saveRangeMaxByPV();
}

void PH77Widget::on_btnSetFixedCurrent_clicked()
{
    if (setFixedCurrent(float(ui->dspnFixedCurrent->value())))
        showDeviceInfoInField(QStringLiteral("fixed_current"), ui->dspnFixedCurrent, false);
}

void PH77Widget::on_btnResetFixedCurrent_clicked()
{
    setFixedCurrent(0);
}

void PH77Widget::on_btnSaveManufacturerSettings_clicked()
{
    saveManufacturerSettings();
}

void PH77Widget::on_btnRestoreManufacturerSettings_clicked()
{
    restoreManufacturerSettings();
}

// ---------------------------------------------------------------------------
// The watches

void PH77Widget::startWatch(Watch watch, int periodMs, const QList<int>& codes)
{
    if (!m_device || m_polling)
        return;
    if (watch == BufferWatch)
        connect(m_thread33, &PeriodThread33::responsePeriodThrd33, this, &PH77Widget::updateBufferInfoByResponsePT33);
    else
        connect(m_thread33, &PeriodThread33::responsePeriodThrd33, this, &PH77Widget::updateAdjustInfoByResponsePT33);
    m_watch = watch;
    onStartPeriod(false);
    m_commonWidget->onStartPeriod(false);
    m_thread33->setDevice(m_device, periodMs, codes.at(0), codes.at(1), codes.at(2), codes.at(3));
    updateWatchButtons();
}

void PH77Widget::stopWatch()
{
    if (m_watch == NoWatch)
        return;
    disconnect(m_thread33, &PeriodThread33::responsePeriodThrd33, this, nullptr);
    m_thread33->stopThread();
    m_watch = NoWatch;
    updateWatchButtons();
    onStartPeriod(true);
    m_commonWidget->onStartPeriod(true);
}

void PH77Widget::stopWatches()
{
    if (m_watch == BufferWatch)
        resetGraduation();
    stopWatch();
}

void PH77Widget::updateWatchButtons()
{
    auto caption = [](bool running) { return running ? tr(stopCaption) + QLatin1Char(' ') : tr(startCaption); };
    ui->btnGetPH_p1->setText(caption(m_watch == BufferWatch && m_graduationPoint == 1));
    ui->btnGetPH_p2->setText(caption(m_watch == BufferWatch && m_graduationPoint == 2));
    ui->btnAdjustInfo->setText(caption(m_watch == AdjustWatch));
}

void PH77Widget::startStopBufferInfoTimer(int start)
{
    stopWatch();
    if (start <= 0)
        return;
    m_graduationPoint = start;
    m_prevBufferValue = noBufferValue;
    startWatch(BufferWatch, bufferPeriodMs, bufferVariables);
}

void PH77Widget::startStopAdjustInfoTimer()
{
    if (m_watch == AdjustWatch)
        stopWatch();
    else
        startWatch(AdjustWatch, adjustPeriodMs, adjustVariables);
}

void PH77Widget::updateBufferInfoByResponsePT33(const QVariantMap& values)
{
    // A response sent before the watch stopped finds nobody waiting.
    if (m_watch != BufferWatch || m_graduationPoint == 0)
        return;
    const bool first = m_graduationPoint == 1;
    QLabel* status = first ? ui->lbGrdStatus_p1 : ui->lbGrdStatus_p2;
    QPushButton* set = first ? ui->btnSetPH_p1 : ui->btnSetPH_p2;
    QDoubleSpinBox* buffer = first ? ui->dspnPH_p1 : ui->dspnPH_p2;
    if (values.contains(QStringLiteral("errorText"))) {
        status->setText(redText(tr("Error")));
        return;
    }
    const float value = values.value(QStringLiteral("slot_1_value")).toFloat();
    // The readings are floats: their difference is judged to a thousandth.
    const double delta = std::round(std::fabs(double(value) - double(m_prevBufferValue)) * 1000.0) / 1000.0;
    m_prevBufferValue = value;
    if (delta < plausibleDelta) {
        (first ? ui->lbEds_p1 : ui->lbEds_p2)->setText(valueWithUnit(values, 1, 2));
        (first ? ui->lbT_p1 : ui->lbT_p2)->setText(valueWithUnit(values, 0, 2));
    }
    const QVariant ph = values.value(QStringLiteral("slot_2_value"));
    if (isNan(ph)) {
        status->setText(redText(tr("Undefined")));
        set->setEnabled(false);
        return;
    }
    status->clear();
    buffer->setValue(ph.toDouble());
    buffer->setSuffix(QLatin1Char(' ') +
                      Device::getUnitCodeText(values.value(QStringLiteral("slot_2_unit_code")).toInt(), 0));
    setFieldColor(buffer, delta <= stableDelta ? Qt::darkGreen : Qt::magenta);
    set->setEnabled(true);
}

void PH77Widget::updateAdjustInfoByResponsePT33(const QVariantMap& values)
{
    if (m_watch != AdjustWatch)
        return;
    const bool failed = values.contains(QStringLiteral("errorText"));
    const QList<QLabel*> labels = {ui->lbU, ui->lbRc, ui->lbRt};
    for (int slot = 0; slot < int(labels.size()); ++slot) {
        if (failed)
            labels.at(slot)->setText(redText(tr("Err")));
        else if (isNan(values.value(QStringLiteral("slot_%1_value").arg(slot))))
            labels.at(slot)->setText(redText(tr("nan")));
        else
            labels.at(slot)->setText(valueWithUnit(values, slot, 3));
    }
}

// ---------------------------------------------------------------------------
// Graduation

void PH77Widget::on_btnReadCurrentGrdValues_clicked()
{
    if (!m_device || !initProgressBar(tr("Current graduation values"), 1))
        return;
    if (readDevice(150)) {
        nextStep();
        showCurrentGraduationInfo();
    }
    showFinalMessage(0);
}

void PH77Widget::on_btnStartGraduation_clicked()
{
    if (m_adjustMode != NoAdjust) {
        if (QMessageBox::warning(this, tr("Adjustment"),
                                 tr("You are in metrology mode and really want to start graduation?"),
                                 QMessageBox::Yes | QMessageBox::Cancel) == QMessageBox::Cancel)
            return;
        completeAdjustParameter();
    }
    ui->btnStartPoint_2->setVisible(ui->cmbGrdType->currentIndex() == 1);
    ui->cmbGrdType->setEnabled(false);
    ui->stackedWidgetGraduation->setCurrentIndex(GraduationRun);
    startPoint(1);
}

void PH77Widget::startPoint(int point)
{
    ui->stackedWidgetPoint->setCurrentIndex(point - 1);
    (point == 1 ? ui->lbGrdStatus_p1 : ui->lbGrdStatus_p2)->clear();
    (point == 1 ? ui->btnSetPH_p1 : ui->btnSetPH_p2)->setEnabled(false);
    if (m_watch != BufferWatch || m_graduationPoint != point)
        startStopBufferInfoTimer(point);
    m_graduationPoint = point;
    updateWatchButtons();
}

void PH77Widget::on_btnStartPoint_1_clicked()
{
    startPoint(1);
}

void PH77Widget::on_btnStartPoint_2_clicked()
{
    startPoint(2);
}

void PH77Widget::on_btnGetPH_p1_clicked()
{
    startStopBufferInfoTimer(m_watch == BufferWatch && m_graduationPoint == 1 ? 0 : 1);
}

void PH77Widget::on_btnGetPH_p2_clicked()
{
    startStopBufferInfoTimer(m_watch == BufferWatch && m_graduationPoint == 2 ? 0 : 2);
}

void PH77Widget::on_btnSetPH_p1_clicked()
{
    m_graduationPoint = 1;
    setGraduationBuffer();
}

void PH77Widget::on_btnSetPH_p2_clicked()
{
    m_graduationPoint = 2;
    setGraduationBuffer();
}

void PH77Widget::setGraduationBuffer()
{
    stopWatch();
    const int point = m_graduationPoint;
    if (!m_device || point == 0 || !initProgressBar(tr("Write graduation point %1").arg(point), 3))
        return;
    m_device->setDeviceInfo(QStringLiteral("grd_type"), ui->cmbGrdType->currentIndex());
    m_device->setDeviceInfo(QStringLiteral("grd_point_number"), point);
    m_device->setDeviceInfo(QStringLiteral("grd_point_value"),
                            float((point == 1 ? ui->dspnPH_p1 : ui->dspnPH_p2)->value()));
    nextStep();
    const bool written = writeDevice(151);
    if (written) {
        nextStep();
        emit changed();
        if (point == 1)
            ui->lbGrdStatus_p1->setText(QStringLiteral("<p style=\"color: green; \">%1</p>").arg(tr("Saved")));
        // The device worked the electrode out anew.
        showDeviceInfoInField(QStringLiteral("ei_isopotential_point"), ui->dspnEi);
        showDeviceInfoInField(QStringLiteral("steepness"), ui->dspnS);
        if (readDevice(150)) {
            nextStep();
            showCurrentGraduationInfo();
        }
    }
    showFinalMessage(0);
    // The second point ends the graduation.
    if (written && point == 2)
        resetGraduation();
}

void PH77Widget::on_btnStopGraduation_clicked()
{
    resetGraduation();
    on_btnReadCurrentGrdValues_clicked();
}

void PH77Widget::resetGraduation()
{
    if (m_watch == BufferWatch)
        stopWatch();
    m_graduationPoint = 0;
    for (QLabel* label : {ui->lbGrdStatus_p1, ui->lbGrdStatus_p2, ui->lbEds_p1, ui->lbEds_p2, ui->lbT_p1, ui->lbT_p2})
        label->clear();
    for (QDoubleSpinBox* buffer : {ui->dspnPH_p1, ui->dspnPH_p2})
        setFieldColor(buffer, Qt::black);
    ui->btnSetPH_p1->setEnabled(false);
    ui->btnSetPH_p2->setEnabled(false);
    ui->cmbGrdType->setEnabled(true);
    ui->stackedWidgetPoint->setCurrentIndex(0);
    ui->stackedWidgetGraduation->setCurrentIndex(GraduationOverview);
    updateWatchButtons();
}

// ---------------------------------------------------------------------------
// Metrology

void PH77Widget::prepareToInputAdjustCode(AdjustMode mode, bool needsConfig)
{
    if (needsConfig && !IsReadedConfig())
        return;
    m_adjustMode = mode;
    ui->dspnAdjustCode->setValue(0);
    ui->stackedWidgetAdjust->setCurrentIndex(AdjustCode);
    ui->dspnAdjustCode->setFocus();
    ui->dspnAdjustCode->selectAll();
}

void PH77Widget::on_btnStartAdjust_clicked()
{
    prepareToInputAdjustCode(Current, false);
}

void PH77Widget::on_btnStartURRAdjust_clicked()
{
    prepareToInputAdjustCode(Voltage, true);
}

void PH77Widget::on_btnEiSRangeCorrection_clicked()
{
    prepareToInputAdjustCode(Ranges, true);
}

void PH77Widget::on_btnStartSensorParam_clicked()
{
    prepareToInputAdjustCode(Sensor, true);
}

void PH77Widget::on_btnCancelAdjust_clicked()
{
    ui->stackedWidgetAdjust->setCurrentIndex(AdjustStart);
}

void PH77Widget::keyPressEvent(QKeyEvent* event)
{
    const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (enter && ui->dspnAdjustCode->hasFocus() && ui->stackedWidgetAdjust->currentIndex() == AdjustCode) {
        on_btnCheckCode_clicked();
        return;
    }
    MainDeviceWidget::keyPressEvent(event);
}

void PH77Widget::on_btnCheckCode_clicked()
{
    if (!m_device || m_adjustMode == NoAdjust)
        return;
    if (!sendAccessCode(quint32(ui->dspnAdjustCode->value())))
        return;
    ui->dspnAdjustCode->setValue(0);
    switch (m_adjustMode) {
    case Voltage:
        ui->stackedWidgetAdjust->setCurrentIndex(AdjustURRPage);
        loadCurrentURR();
        break;
    case Ranges:
        ui->stackedWidgetAdjust->setCurrentIndex(AdjustRangesPage);
        loadCurrentEiSRanges();
        break;
    case Sensor:
        ui->stackedWidgetAdjust->setCurrentIndex(AdjustSensorPage);
        setSensorParameters();
        break;
    default:
        ui->btnAdjust4mA->setEnabled(false);
        ui->btnAdjust20mA->setEnabled(false);
        ui->stackedWidgetAdjust->setCurrentIndex(AdjustCurrentPage);
        break;
    }
}

void PH77Widget::on_btnSet4mA_clicked()
{
    setFixedCurrentForAdjust(true, ui->dspn4mA, ui->dspn20mA, ui->btnAdjust4mA, ui->btnAdjust20mA);
}

void PH77Widget::on_btnSet20mA_clicked()
{
    setFixedCurrentForAdjust(false, ui->dspn4mA, ui->dspn20mA, ui->btnAdjust4mA, ui->btnAdjust20mA);
}

void PH77Widget::on_btnAdjust4mA_clicked()
{
    onAdjust4mA_clicked(ui->dspn4mA);
}

void PH77Widget::on_btnAdjust20mA_clicked()
{
    onAdjust20mA_clicked(ui->dspn20mA);
}

bool PH77Widget::loadCurrentURR()
{
    if (!m_device || !initProgressBar(tr("Reading metrological parameters"), 1))
        return false;
    const bool ok = readDevice(171);
    if (ok)
        nextStep();
    showCurrentURR();
    showFinalMessage(0);
    return ok;
}

void PH77Widget::showCurrentURR()
{
    if (!m_device)
        return;
    auto number = [this](const char* key) {
        return QString::number(double(m_device->getDeviceInfoFloat(QLatin1String(key))), 'f', 3);
    };
    ui->lbAdjustU->setText(QStringLiteral("%1 / %2").arg(number("adjust_U_p1"), number("adjust_U_p2")));
    ui->lbAdjustRc->setText(QStringLiteral("%1 / %2").arg(number("adjust_Rc_p1"), number("adjust_Rc_p2")));
    ui->lbAdjustRt->setText(number("adjust_Rt_p"));
}

void PH77Widget::on_btnAdjustInfo_clicked()
{
    startStopAdjustInfoTimer();
}

void PH77Widget::adjustChannel(int command, int point)
{
    struct Channel
    {
        const char* title;
        const char* pointKey;
        const char* key;
        QDoubleSpinBox* spin;
    };
    const Channel channel =
        command == 172   ? Channel{QT_TR_NOOP("U adjustment"), "adjust_U_point", "adjust_U", ui->dspnAdjustU}
        : command == 174 ? Channel{QT_TR_NOOP("Rc adjustment"), "adjust_Rc_point", "adjust_Rc", ui->dspnAdjustRc}
                         : Channel{QT_TR_NOOP("Rt adjustment"), nullptr, "adjust_Rt", ui->dspnAdjustRt};
    if (!m_device || !initProgressBar(tr(channel.title), 2))
        return;
    if (channel.pointKey)
        m_device->setDeviceInfo(QLatin1String(channel.pointKey), point);
    m_device->setDeviceInfo(QLatin1String(channel.key), float(channel.spin->value()));
    if (writeDevice(command)) {
        nextStep();
        if (readDevice(171))
            nextStep();
    }
    showCurrentURR();
    emit changed();
    showFinalMessage(0);
}

void PH77Widget::on_btnAdjustU_p1_clicked()
{
    adjustChannel(172, 1);
}

void PH77Widget::on_btnAdjustU_p2_clicked()
{
    adjustChannel(172, 2);
}

void PH77Widget::on_btnAdjustRc_p1_clicked()
{
    adjustChannel(174, 1);
}

void PH77Widget::on_btnAdjustRc_p2_clicked()
{
    adjustChannel(174, 2);
}

void PH77Widget::on_btnAdjustRt_clicked()
{
    adjustChannel(173, 0);
}

bool PH77Widget::loadCurrentEiSRanges()
{
    if (!m_device || !initProgressBar(tr("Reading the ranges of Ei and S"), 1))
        return false;
    const bool ok = readDevice(152);
    if (ok) {
        nextStep();
        showCurrentEiSRanges();
    }
    showFinalMessage(0);
    return ok;
}

void PH77Widget::on_btnSaveEiSRanges_clicked()
{
    if (!m_device || !initProgressBar(tr("Ei and S ranges"), 1))
        return;
    const QList<std::pair<const char*, QDoubleSpinBox*>> ranges = {
        {"ei_min", ui->dspnEiMin}, {"ei_max", ui->dspnEiMax}, {"s_min", ui->dspnSMin}, {"s_max", ui->dspnSMax}};
    for (const auto& [key, spin] : ranges)
        m_device->setDeviceInfo(QLatin1String(key), float(spin->value()));
    if (writeDevice(176)) {
        nextStep();
        emit changed();
        showCurrentEiSRanges();
    }
    showFinalMessage(0);
}

bool PH77Widget::setSensorParameters()
{
    if (!m_device || !initProgressBar(tr("Reading sensor parameters"), 1))
        return false;
    const bool ok = readDevice(14);
    if (ok) {
        nextStep();
        ui->spnSensorParamNumber->setValue(m_device->getDeviceInfo(QStringLiteral("sensor_number")).toInt());
        ui->dspnSensorParamMin->setValue(double(m_device->getDeviceInfoFloat(QStringLiteral("sensor_range_min"))));
        ui->dspnSensorParamMax->setValue(double(m_device->getDeviceInfoFloat(QStringLiteral("sensor_range_max"))));
        ui->dspnSensorParamMinRange->setValue(
            double(m_device->getDeviceInfoFloat(QStringLiteral("sensor_minimum_range"))));
        showSensorInfo();
    }
    showFinalMessage(0);
    return ok;
}

void PH77Widget::on_btnSaveSensorParam_clicked()
{
    if (!m_device || !initProgressBar(tr("Sensor parameters saving"), 2))
        return;
    // The unit is the one of the mode: the device takes no other.
    m_device->setDeviceInfo(QStringLiteral("sensor_unit_code"),
                            m_device->getDeviceInfo(QStringLiteral("sensor_unit_code")).toInt());
    m_device->setDeviceInfo(QStringLiteral("sensor_number"), ui->spnSensorParamNumber->value());
    m_device->setDeviceInfo(QStringLiteral("sensor_range_max"), float(ui->dspnSensorParamMax->value()));
    m_device->setDeviceInfo(QStringLiteral("sensor_range_min"), float(ui->dspnSensorParamMin->value()));
    m_device->setDeviceInfo(QStringLiteral("sensor_minimum_range"), float(ui->dspnSensorParamMinRange->value()));
    if (writeDevice(49)) {
        nextStep();
        if (writeDevice(142)) {
            nextStep();
            emit changed();
        }
    }
    showSensorInfo();
    showFinalMessage(0);
}

bool PH77Widget::completeAdjustParameter()
{
    if (!completeAdjust())
        return false;
    if (m_watch == AdjustWatch)
        stopWatch();
    ui->stackedWidgetAdjust->setCurrentIndex(AdjustStart);
    ui->btnSetFixedCurrent->setEnabled(true);
    ui->btnResetFixedCurrent->setEnabled(true);
    return true;
}

void PH77Widget::on_btnCompleteAdjustCurrent_clicked()
{
    completeAdjustParameter();
}

void PH77Widget::on_btnCompleteAdjustURR_clicked()
{
    completeAdjustParameter();
}

void PH77Widget::on_btnCompleteAdjustRanges_clicked()
{
    completeAdjustParameter();
}

void PH77Widget::on_btnCompleteSensorParam_clicked()
{
    completeAdjustParameter();
}

void PH77Widget::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange) {
        // The form's texts, the boxes' rows (kept where they stand) and the captions of the watches.
        const bool blocking = m_bIsModifyBlocking;
        m_bIsModifyBlocking = true;
        ui->retranslateUi(this);
        initComboBoxes();
        m_bIsModifyBlocking = blocking;
        updateWatchButtons();
        showCurrentGraduationInfo();
    }
    MainDeviceWidget::changeEvent(event);
}
