#include "qp1widget.h"
#include "ui_qp1widget.h"

#include "pvwidget.h"

#include <QHeaderView>
#include <QInputDialog>
#include <QKeyEvent>
#include <QMessageBox>

namespace {

enum AdjustPage {
    AdjustStart = 0,
    AdjustCode,
    AdjustCurrentPage,
    AdjustLinePointsPage,
    AdjustTemperaturePage,
    AdjustSensorPage
};
enum WizardPage { SetT1 = 0, P1T1, P2T1, SetT2, P1T2, P2T2 };

struct Unit
{
    const char* name;
    int code;
    double pascals; // one unit in Pa; 0 for the free conversion
};

const Unit units[] = {
    {QT_TRANSLATE_NOOP("QP1Widget", "Free convertion"), 251, 0.0},
    {QT_TRANSLATE_NOOP("QP1Widget", "Pa  (Pa)"), 11, 1.0},
    {QT_TRANSLATE_NOOP("QP1Widget", "kPa (kPa)"), 12, 1000.0},
    {QT_TRANSLATE_NOOP("QP1Widget", "MPa (MPa)"), 237, 1.0e6},
    {QT_TRANSLATE_NOOP("QP1Widget", "kgf/sm2 (kgf/sm2)"), 10, 98066.5},
    {QT_TRANSLATE_NOOP("QP1Widget", "mbar (mbar)"), 8, 100.0},
    {QT_TRANSLATE_NOOP("QP1Widget", "bar (bar)"), 7, 1.0e5},
    {QT_TRANSLATE_NOOP("QP1Widget", "mmWS (mmWS)"), 4, 9.80665},
    {QT_TRANSLATE_NOOP("QP1Widget", "inchWS (inchWS)"), 1, 249.08891},
    {QT_TRANSLATE_NOOP("QP1Widget", "mmHg (mmHg)"), 5, 133.322387},
    {QT_TRANSLATE_NOOP("QP1Widget", "inchHg (inchHg)"), 2, 3386.389},
    {QT_TRANSLATE_NOOP("QP1Widget", "psi (lb/inch2)"), 6, 6894.757},
};

// Which wizard page saves which step, and with which temperature.
struct WizardPoint
{
    int page;
    int step;
    bool secondTemperature;
};

const WizardPoint wizardPoints[] = {{P1T1, 0, false}, {P2T1, 1, false}, {P1T2, 2, true}, {P2T2, 3, true}};

} // namespace

QP1Widget::QP1Widget(QWidget* parent) : MainDeviceWidget(parent), ui(new Ui::QP1Widget)
{
    ui->setupUi(this);
    initWidget();
    composeEditor({ui->tabWidget, ui->gridMain, ui->layoutStatus, 4, true, true});
    ui->tblLinePoints->setColumnCount(1);
    ui->tblLinePoints->setHorizontalHeaderLabels({tr("Value")});
    ui->tblLinePoints->setWordWrap(false);
    ui->tblLinePoints->horizontalHeader()->setStretchLastSection(true);
    m_bIsModifyBlocking = true;
    ControlFieldsByInputUnits(0);
    m_bIsModifyBlocking = false;
    ui->stackedWidgetAdjust->setCurrentIndex(AdjustStart);
    ui->stackedWidgetLinePoints->setCurrentIndex(0);
    ui->stackedWidgetTemper->setCurrentIndex(0);
}

QP1Widget::~QP1Widget()
{
    delete ui;
}

double QP1Widget::pascalsPerUnit(int unitCode)
{
    for (const Unit& unit : units) {
        if (unit.code == unitCode)
            return unit.pascals;
    }
    return 0.0;
}

void QP1Widget::initWidget()
{
    MainDeviceWidget::initWidget();
    addWriteFields({
        {"sensor_number", ui->spnSensorNumber, 49},
        {"average_count", ui->spnAverageCount, 134},
        {"range_max", ui->dspnRangeMax, 35},
        {"range_min", ui->dspnRangeMin, 35},
        {"decimal_point_position", ui->cmbDecimalPoint, 133},
        {"input_units", ui->cmbInputUnits, 44},
        {"indicate_range_min", ui->dspnMinIndication, 146},
        {"indicate_range_max", ui->dspnMaxIndication, 146},
        {"free_range_min", ui->dspnMinInputForIndication, 145},
        {"free_range_max", ui->dspnMaxInputForIndication, 145},
    });
    // Written by their own buttons on the table page.
    m_mapWriteTagWidget.insert(QStringLiteral("calibrate_units"), ui->cmbCalibrateUnits);
    m_mapWriteTagWidget.insert(QStringLiteral("line_points_count"), ui->spnLinePoints);
    initComboBoxes(0);
}

void QP1Widget::initComboBoxes(int unitsIndex)
{
    Q_UNUSED(unitsIndex)
    QVariantList items;
    for (const Unit& unit : units)
        items << QVariantMap{{QStringLiteral("id"), unit.code}, {QStringLiteral("name"), tr(unit.name)}};
    loadComboBoxItemsWithItemData(items, ui->cmbInputUnits);
    loadComboBoxItemsWithItemData(items, ui->cmbCalibrateUnits);
    loadComboBoxItemsWithItemData(items.mid(1), ui->cmbSensorUnits);
    loadComboBoxItems(
        {QStringLiteral("0000."), QStringLiteral("000.0"), QStringLiteral("00.00"), QStringLiteral("0.000")},
        ui->cmbDecimalPoint);
    loadComboBoxItems(
        {tr("correction is disabled"), tr("zero offset correction"), tr("zero offset and gain correction")},
        ui->cmbTCorrectionMode);
}

QString QP1Widget::unitText(const char* codeKey) const
{
    return m_device ? Device::getUnitCodeText(m_device->getDeviceInfo(QLatin1String(codeKey)).toInt(), 0) : QString();
}

// ---------------------------------------------------------------------------
// Showing, buttons and their states

void QP1Widget::showDeviceInfoInFields()
{
    MainDeviceWidget::showDeviceInfoInFields();
    showRangeInfo();
    showInputInfo();
}

void QP1Widget::showRangeInfo()
{
    showDeviceInfoInField(QStringLiteral("range_min"), ui->dspnRangeMin);
    showDeviceInfoInField(QStringLiteral("range_max"), ui->dspnRangeMax);
    ui->lbRangeUnit1->setText(unitText("range_unit_code"));
    ui->lbRangeUnit2->setText(unitText("range_unit_code"));
    const bool writeProtected = m_device && m_device->getDeviceInfo(QStringLiteral("write_protection")).toInt() == 1;
    ui->lbWriteProtection->setText(writeProtected ? tr("write protection is enabled") : QString());
}

void QP1Widget::showInputInfo()
{
    for (const char* name : {"decimal_point_position", "average_count", "input_units", "free_range_min",
                             "free_range_max", "indicate_range_min", "indicate_range_max", "sensor_number"})
        showDeviceInfoInField(QLatin1String(name), m_mapWriteTagWidget.value(QLatin1String(name)));
}

void QP1Widget::setFieldColorModified(QWidget* field, bool modified)
{
    MainDeviceWidget::setFieldColorModified(field, modified);
    updateWriteButton();
}

void QP1Widget::updateWriteButton()
{
    const bool on = !m_writeParameters.isEmpty() && m_hasReadedConfig;
    setWriteButtonEnabled(ui->btnWriteCfgInDevice, on);
}

void QP1Widget::onUpdateButtons(bool on)
{
    for (QPushButton* button : {ui->btnReadCfgFromDevice,
                                ui->btnAdjustZero,
                                ui->btnAdjustGain,
                                ui->btnSaveMinByPV,
                                ui->btnSaveMaxByPV,
                                ui->btnSetFixedCurrent,
                                ui->btnResetFixedCurrent,
                                ui->btnSaveManufacturerSettings,
                                ui->btnRestoreManufacturerSettings,
                                ui->btnStartAdjust,
                                ui->btnStartTemperAdjust,
                                ui->btnStartLinePointAdjust,
                                ui->btnStartSensorParam,
                                ui->btnCheckCode,
                                ui->btnSet4mA,
                                ui->btnSet20mA,
                                ui->btnCompleteAdjustCurrent,
                                ui->btnSetLinePointsCount,
                                ui->btnSetCalibrateUnits,
                                ui->btnReload,
                                ui->btnStartEditLinePoints,
                                ui->btnGetPressure,
                                ui->btnCompleteAdjustLinePoints,
                                ui->btnSetTCorrectMode,
                                ui->btnSaveT1T2,
                                ui->btnCompleteT1T2Adjust,
                                ui->btnSaveSensorParam,
                                ui->btnCompleteSensorParam})
        button->setEnabled(on);
    if (!on) {
        for (QPushButton* button : {ui->btnAdjust4mA, ui->btnAdjust20mA, ui->btnAdjustLinePoint, ui->btnAdjustT1T2})
            button->setEnabled(false);
    }
    ui->btnWriteCfgInDevice->setEnabled(false);
}

void QP1Widget::onStartPeriod(bool deviceFree)
{
    MainDeviceWidget::onStartPeriod(deviceFree);
    lockWhilePolling(deviceFree, ui->btnWriteCfgInDevice, ui->tabAdjust);
    emit changed();
}

void QP1Widget::onResetWidget()
{
    MainDeviceWidget::onResetWidget();
    onUpdateButtons(false);
    ui->stackedWidgetAdjust->setCurrentIndex(AdjustStart);
}

// ---------------------------------------------------------------------------
// Configuration

void QP1Widget::on_btnReadCfgFromDevice_clicked()
{
    if (!initProgressBar(tr("Read device configuration"), 4))
        return;
    m_hasReadedConfig = false;
    int steps = 1;
    nextStep();
    if (readDevice(14)) {
        nextStep();
        ++steps;
        if (readDevice(15)) {
            showRangeInfo();
            nextStep();
            ++steps;
            if (readDevice(135)) {
                showInputInfo();
                nextStep();
                ++steps;
            }
        }
    }
    showFinalMessage(steps);
    if (steps == 4) {
        m_hasReadedConfig = true;
        emit changed();
    }
    updateWriteButton();
}

void QP1Widget::on_btnWriteCfgInDevice_clicked()
{
    const QList<int> list = getWriteFunctionsList();
    if (!list.isEmpty())
        execWriteFunctionsByList(list, list.contains(44));
}

void QP1Widget::execAdditionalActions()
{
    // New units bring the range in them.
    if (readDevice(15))
        showRangeInfo();
}

void QP1Widget::on_cmbInputUnits_currentIndexChanged(int index)
{
    if (index != -1)
        ControlFieldsByInputUnits(index);
}

void QP1Widget::ControlFieldsByInputUnits(int index)
{
    if (index == -1)
        return;
    setFieldUsed(ui->dspnMinInputForIndication, index == 0, ui->lbMinInputForIndication);
    setFieldUsed(ui->dspnMaxInputForIndication, index == 0, ui->lbMaxInputForIndication);
    ui->stackedWidget->setCurrentIndex(index == 0 ? 0 : 1);
    initComboBoxes(index);
}

void QP1Widget::on_btnAdjustZero_clicked()
{
    if (!m_device || !m_pvWidget->readPrimaryVariable(true))
        return;
    const QString pv = QString::number(double(m_device->getDeviceInfoFloat(QStringLiteral("PV"))));
    if (QMessageBox::warning(this, tr("Zero adjustment"),
                             tr("Do you want to set current\nPrimary Variable value=%1 %2\nas Zero Value ?")
                                 .arg(pv, m_device->getPVUnitCodeText()),
                             QMessageBox::Yes | QMessageBox::Cancel) != QMessageBox::Yes)
        return;
    if (!initProgressBar(tr("Adjusting zero"), 2))
        return;
    nextStep();
    if (writeDevice(43)) {
        nextStep();
        emit changed();
    }
    showFinalMessage(0);
}

void QP1Widget::on_btnAdjustGain_clicked()
{
    if (!m_device || !m_pvWidget->readPrimaryVariable(true))
        return;
    const double pv = double(m_device->getDeviceInfoFloat(QStringLiteral("PV")));
    const QString unit = m_device->getPVUnitCodeText();
    const auto answer = QMessageBox::warning(
        this, tr("Gain correction"),
        tr("Do you want to set current\nPrimary Variable value=%1 %2\nas upper limit of measurement ?")
            .arg(QString::number(pv), unit),
        QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel);
    if (answer == QMessageBox::Cancel)
        return;
    double gain = pv;
    if (answer == QMessageBox::No) {
        bool ok = false;
        gain = QInputDialog::getDouble(this, tr("Gain correction"), tr("Real value of input signal (%1):").arg(unit),
                                       pv, -1999, 9999, 3, &ok);
        if (!ok)
            return;
    }
    m_device->setDeviceInfo(QStringLiteral("gain_adjustment"), float(gain));
    if (!initProgressBar(tr("Adjusting the gain"), 2))
        return;
    nextStep();
    if (writeDevice(142)) {
        nextStep();
        emit changed();
    }
    showFinalMessage(0);
}

void QP1Widget::on_btnSaveMinByPV_clicked()
{
    saveRangeMinByPV();
}

void QP1Widget::on_btnSaveMaxByPV_clicked()
{
    saveRangeMaxByPV();
}

void QP1Widget::on_btnSetFixedCurrent_clicked()
{
    if (setFixedCurrent(float(ui->dspnFixedCurrent->value())))
        showDeviceInfoInField(QStringLiteral("fixed_current"), ui->dspnFixedCurrent, false);
}

void QP1Widget::on_btnResetFixedCurrent_clicked()
{
    setFixedCurrent(0);
}

void QP1Widget::on_btnSaveManufacturerSettings_clicked()
{
    saveManufacturerSettings();
}

void QP1Widget::on_btnRestoreManufacturerSettings_clicked()
{
    restoreManufacturerSettings();
}

// ---------------------------------------------------------------------------
// Adjustment: the access code and the current

void QP1Widget::prepareToInputAdjustCode(AdjustMode mode)
{
    m_adjustMode = mode;
    ui->dspnAdjustCode->setValue(0);
    ui->stackedWidgetAdjust->setCurrentIndex(AdjustCode);
    ui->dspnAdjustCode->setFocus();
    ui->dspnAdjustCode->selectAll();
}

void QP1Widget::on_btnStartAdjust_clicked()
{
    prepareToInputAdjustCode(Current);
}

void QP1Widget::on_btnStartTemperAdjust_clicked()
{
    prepareToInputAdjustCode(Temperature);
}

void QP1Widget::on_btnStartLinePointAdjust_clicked()
{
    prepareToInputAdjustCode(LinePoints);
}

void QP1Widget::on_btnStartSensorParam_clicked()
{
    prepareToInputAdjustCode(Sensor);
}

void QP1Widget::on_btnCancelAdjust_clicked()
{
    ui->stackedWidgetAdjust->setCurrentIndex(AdjustStart);
}

void QP1Widget::keyPressEvent(QKeyEvent* event)
{
    const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (enter && ui->dspnAdjustCode->hasFocus() && ui->stackedWidgetAdjust->currentIndex() == AdjustCode) {
        on_btnCheckCode_clicked();
        return;
    }
    MainDeviceWidget::keyPressEvent(event);
}

void QP1Widget::on_btnCheckCode_clicked()
{
    if (!m_device || m_adjustMode == NoAdjust || !sendAccessCode(quint32(ui->dspnAdjustCode->value())))
        return;
    ui->dspnAdjustCode->setValue(0);
    switch (m_adjustMode) {
    case Current:
        ui->btnAdjust4mA->setEnabled(false);
        ui->btnAdjust20mA->setEnabled(false);
        ui->stackedWidgetAdjust->setCurrentIndex(AdjustCurrentPage);
        break;
    case LinePoints:
        ui->stackedWidgetAdjust->setCurrentIndex(AdjustLinePointsPage);
        loadLinePointsTable();
        break;
    case Temperature:
        ui->stackedWidgetAdjust->setCurrentIndex(AdjustTemperaturePage);
        startTemperCorrection();
        break;
    case Sensor:
        startEditSensorParameters();
        break;
    default:
        break;
    }
}

void QP1Widget::on_btnSet4mA_clicked()
{
    setFixedCurrentForAdjust(true, ui->dspn4mA, ui->dspn20mA, ui->btnAdjust4mA, ui->btnAdjust20mA);
}

void QP1Widget::on_btnSet20mA_clicked()
{
    setFixedCurrentForAdjust(false, ui->dspn4mA, ui->dspn20mA, ui->btnAdjust4mA, ui->btnAdjust20mA);
}

void QP1Widget::on_btnAdjust4mA_clicked()
{
    onAdjust4mA_clicked(ui->dspn4mA);
}

void QP1Widget::on_btnAdjust20mA_clicked()
{
    onAdjust20mA_clicked(ui->dspn20mA);
}

void QP1Widget::on_btnCompleteAdjustCurrent_clicked()
{
    completeAdjustParameter();
}

bool QP1Widget::completeAdjustParameter()
{
    if (!completeAdjust())
        return false;
    ui->stackedWidgetAdjust->setCurrentIndex(AdjustStart);
    ui->stackedWidgetTemper->setCurrentIndex(0);
    return true;
}

// ---------------------------------------------------------------------------
// The linearization table

void QP1Widget::showLinePoint(int row, float value)
{
    auto* item =
        new QTableWidgetItem(QStringLiteral("   %1\t%2").arg(double(value)).arg(unitText("calibrate_unit_code")));
    ui->tblLinePoints->setItem(row, 0, item);
}

void QP1Widget::loadLinePointsTable()
{
    on_btnCompleteAdjustPoint_clicked();
    ui->lbSensorRange->setText(QStringLiteral("[%1 - %2] %3")
                                   .arg(double(m_device->getDeviceInfoFloat(QStringLiteral("sensor_range_min"))))
                                   .arg(double(m_device->getDeviceInfoFloat(QStringLiteral("sensor_range_max"))))
                                   .arg(unitText("sensor_unit_code")));
    showDeviceInfoInField(QStringLiteral("calibrate_unit_code"), ui->cmbCalibrateUnits);
    const int count = m_device->getDeviceInfo(QStringLiteral("line_points_count")).toInt();
    {
        const QSignalBlocker blocker(ui->spnLinePoints);
        ui->spnLinePoints->setValue(count);
    }
    setFieldColorModified(ui->spnLinePoints, false);
    ui->tblLinePoints->setRowCount(count);
    if (count > 0 && initProgressBar(tr("Linearization table loading"), count)) {
        for (int point = 0; point < count; ++point) {
            m_device->setDeviceInfo(QStringLiteral("line_point_number"), point);
            if (!writeDevice(148))
                break;
            showLinePoint(point, m_device->getDeviceInfoFloat(QStringLiteral("line_point_value")));
            nextStep();
        }
        showFinalMessage(0);
    }
    ui->tblLinePoints->resizeColumnsToContents();
}

void QP1Widget::on_btnReload_clicked()
{
    loadLinePointsTable();
}

void QP1Widget::on_spnLinePoints_valueChanged(int count)
{
    const int before = ui->tblLinePoints->rowCount();
    ui->tblLinePoints->setRowCount(count);
    for (int row = before; row < count; ++row)
        ui->tblLinePoints->setItem(
            row, 0, new QTableWidgetItem(QStringLiteral("   0.0\t%1").arg(unitText("calibrate_unit_code"))));
    setFieldColorModified(ui->spnLinePoints, true);
}

void QP1Widget::on_btnSetLinePointsCount_clicked()
{
    if (!m_device || !initProgressBar(tr("Line points count saving"), 1))
        return;
    m_device->setDeviceInfo(QStringLiteral("line_points_count"), ui->spnLinePoints->value());
    if (writeDevice(137)) {
        setFieldColorModified(ui->spnLinePoints, false);
        nextStep();
    }
    showFinalMessage(0);
}

void QP1Widget::on_btnSetCalibrateUnits_clicked()
{
    if (!m_device || !initProgressBar(tr("Calibration units saving"), 1))
        return;
    m_device->setDeviceInfo(QStringLiteral("calibrate_unit_code"), ui->cmbCalibrateUnits->currentData().toInt());
    if (writeDevice(136)) {
        setFieldColorModified(ui->cmbCalibrateUnits, false);
        nextStep();
    }
    showFinalMessage(0);
}

void QP1Widget::on_btnStartEditLinePoints_clicked()
{
    const int count = ui->tblLinePoints->rowCount();
    if (count == 0)
        return;
    ui->spnPoint->setRange(1, count);
    ui->btnAdjustLinePoint->setEnabled(false);
    ui->stackedWidgetLinePoints->setCurrentIndex(1);
    ui->tblLinePoints->selectRow(ui->spnPoint->value() - 1);
}

void QP1Widget::on_tblLinePoints_cellClicked(int row, int)
{
    if (ui->stackedWidgetLinePoints->currentIndex() == 1)
        ui->spnPoint->setValue(row + 1);
}

void QP1Widget::on_spnPoint_valueChanged(int point)
{
    ui->tblLinePoints->selectRow(point - 1);
}

void QP1Widget::on_btnGetPressure_clicked()
{
    if (!m_device || !initProgressBar(tr("Pressure reading"), 1))
        return;
    if (readDevice(149)) {
        showDeviceInfoInField(QStringLiteral("line_point_pressure"), ui->dspnPressure, false);
        ui->btnAdjustLinePoint->setEnabled(true);
        nextStep();
    }
    showFinalMessage(0);
}

void QP1Widget::on_btnAdjustLinePoint_clicked()
{
    const int point = ui->spnPoint->value();
    if (!m_device || !initProgressBar(tr("Linearization point %1 value saving").arg(point), 1))
        return;
    m_device->setDeviceInfo(QStringLiteral("line_point_number"), point - 1);
    m_device->setDeviceInfo(QStringLiteral("line_point_value"), float(ui->dspnPressure->value()));
    if (writeDevice(138)) {
        showLinePoint(point - 1, float(ui->dspnPressure->value()));
        setFieldColorModified(ui->dspnPressure, false);
        nextStep();
    }
    showFinalMessage(0);
}

void QP1Widget::on_btnCompleteAdjustPoint_clicked()
{
    ui->stackedWidgetLinePoints->setCurrentIndex(0);
    ui->tblLinePoints->clearSelection();
}

void QP1Widget::on_btnCompleteAdjustLinePoints_clicked()
{
    completeAdjustParameter();
    setFieldColorModified(ui->cmbCalibrateUnits, false);
    setFieldColorModified(ui->spnLinePoints, false);
}

// ---------------------------------------------------------------------------
// The temperature correction

void QP1Widget::showTemperCorrection()
{
    showDeviceInfoInField(QStringLiteral("temper_correction_mode"), ui->cmbTCorrectionMode, false);
    showDeviceInfoInField(QStringLiteral("t1_correcton_value"), ui->dspnCurrentT1, false);
    showDeviceInfoInField(QStringLiteral("t2_correcton_value"), ui->dspnCurrentT2, false);
    ui->btnAdjustT1T2->setEnabled(m_device->getDeviceInfo(QStringLiteral("temper_correction_mode")).toInt() != 0);
}

void QP1Widget::startTemperCorrection()
{
    ui->stackedWidgetTemper->setCurrentIndex(0);
    if (!initProgressBar(tr("Temperature correction mode reading"), 1))
        return;
    if (readDevice(139)) {
        showTemperCorrection();
        nextStep();
    }
    showFinalMessage(0);
}

void QP1Widget::on_btnSetTCorrectMode_clicked()
{
    if (!m_device || !initProgressBar(tr("Temperature correction mode saving"), 1))
        return;
    m_device->setDeviceInfo(QStringLiteral("temper_correction_mode"), ui->cmbTCorrectionMode->currentIndex());
    if (writeDevice(140)) {
        ui->btnAdjustT1T2->setEnabled(ui->cmbTCorrectionMode->currentIndex() != 0);
        nextStep();
    }
    showFinalMessage(0);
}

void QP1Widget::on_btnAdjustT1T2_clicked()
{
    ui->dspnT1->setValue(ui->dspnCurrentT1->value());
    ui->dspnT2->setValue(ui->dspnCurrentT2->value());
    ui->stackedWidgetTemper->setCurrentIndex(1);
    showWizardPage(SetT1);
}

void QP1Widget::showWizardPage(int page)
{
    const int last = ui->stackedWidgetT1T2->count() - 1;
    ui->stackedWidgetT1T2->setCurrentIndex(page);
    ui->btnPrev->setVisible(page > 0);
    ui->btnNext->setVisible(page < last);
    ui->btnSaveT1T2->setVisible(page != SetT1 && page != SetT2);
}

void QP1Widget::on_btnNext_clicked()
{
    const int page = ui->stackedWidgetT1T2->currentIndex();
    // Leaving a set page names the temperature on its two measuring pages.
    if (page == SetT1) {
        const QString text = tr("in thermostat should be T1=%1 ").arg(ui->dspnT1->value());
        ui->lbP1T1->setText(text + tr("Apply the pressure P1 and save the point."));
        ui->lbP2T1->setText(text + tr("Apply the pressure P2 and save the point."));
    } else if (page == SetT2) {
        const QString text = tr("in the thermostat should be T2=%1 ").arg(ui->dspnT2->value());
        ui->lbP1T2->setText(text + tr("Apply the pressure P1 and save the point."));
        ui->lbP2T2->setText(text + tr("Apply the pressure P2 and save the point."));
    }
    showWizardPage(qMin(page + 1, ui->stackedWidgetT1T2->count() - 1));
}

void QP1Widget::on_btnPrev_clicked()
{
    showWizardPage(qMax(ui->stackedWidgetT1T2->currentIndex() - 1, 0));
}

void QP1Widget::on_btnSaveT1T2_clicked()
{
    const int page = ui->stackedWidgetT1T2->currentIndex();
    const WizardPoint* point = nullptr;
    for (const WizardPoint& candidate : wizardPoints) {
        if (candidate.page == page)
            point = &candidate;
    }
    if (!m_device || !point)
        return;
    QDoubleSpinBox* spin = point->secondTemperature ? ui->dspnT2 : ui->dspnT1;
    const int pressure = point->step % 2 + 1;
    const int temperature = point->secondTemperature ? 2 : 1;
    if (!initProgressBar(tr("P%1T%2 correction saving").arg(pressure).arg(temperature), 1))
        return;
    const float previous = m_device->getDeviceInfoFloat(
        point->secondTemperature ? QStringLiteral("t2_correcton_value") : QStringLiteral("t1_correcton_value"));
    m_device->setDeviceInfo(QStringLiteral("temper_correction_step"), point->step);
    m_device->setDeviceInfo(QStringLiteral("temper_correction_value"), float(spin->value()));
    // The answer's response code tells whether the point had another temperature before.
    QByteArray status;
    const auto connection = connect(
        m_device, &Device::deviceStatus, this, [&status](const QString&, const QByteArray& code) { status = code; },
        Qt::DirectConnection);
    const bool ok = writeDevice(141);
    disconnect(connection);
    if (ok) {
        if (!status.isEmpty() && quint8(status.at(0)) == 8)
            QMessageBox::information(
                this, tr("P%1T%2 correction saving").arg(pressure).arg(temperature),
                tr("Operation completed successfully!\n\nWritting temperature is different from previous value at "
                   "this point.\nPrev = %1 °C - Current = %2 °C")
                    .arg(double(previous))
                    .arg(spin->value()));
        setFieldColorModified(spin, false);
        nextStep();
    }
    showFinalMessage(0);
}

void QP1Widget::on_btnCancelT1T2_clicked()
{
    ui->stackedWidgetTemper->setCurrentIndex(0);
}

void QP1Widget::on_btnCompleteT1T2Adjust_clicked()
{
    completeAdjustParameter();
}

// ---------------------------------------------------------------------------
// The sensor's parameters

void QP1Widget::startEditSensorParameters()
{
    m_adjustMode = Sensor;
    ui->stackedWidgetAdjust->setCurrentIndex(AdjustSensorPage);
    setSensorParameters();
}

void QP1Widget::setSensorParameters()
{
    if (!readDevice(14))
        return;
    m_sensorUnitCode = m_device->getDeviceInfo(QStringLiteral("sensor_unit_code")).toInt();
    showDeviceInfoInField(QStringLiteral("sensor_range_min"), ui->dspnSensorMin, false);
    showDeviceInfoInField(QStringLiteral("sensor_range_max"), ui->dspnSensorMax, false);
    showDeviceInfoInField(QStringLiteral("sensor_minimum_range"), ui->dspnSensorMinRange, false);
    ui->spnSensorParamNumber->setValue(m_device->getDeviceInfo(QStringLiteral("sensor_number")).toInt());
    const QSignalBlocker blocker(ui->cmbSensorUnits);
    ui->cmbSensorUnits->setCurrentIndex(ui->cmbSensorUnits->findData(m_sensorUnitCode));
}

void QP1Widget::on_cmbSensorUnits_currentIndexChanged(int index)
{
    const int code = ui->cmbSensorUnits->itemData(index).toInt();
    const double from = pascalsPerUnit(m_sensorUnitCode);
    const double to = pascalsPerUnit(code);
    if (index < 0 || from <= 0.0 || to <= 0.0)
        return;
    for (QDoubleSpinBox* spin : {ui->dspnSensorMin, ui->dspnSensorMax, ui->dspnSensorMinRange})
        spin->setValue(spin->value() * from / to);
    m_sensorUnitCode = code;
}

void QP1Widget::on_btnSaveSensorParam_clicked()
{
    if (!m_device || !initProgressBar(tr("Sensor parameters saving"), 2))
        return;
    m_device->setDeviceInfo(QStringLiteral("sensor_unit_code"), ui->cmbSensorUnits->currentData().toInt());
    m_device->setDeviceInfo(QStringLiteral("sensor_number"), ui->spnSensorParamNumber->value());
    m_device->setDeviceInfo(QStringLiteral("sensor_range_max"), float(ui->dspnSensorMax->value()));
    m_device->setDeviceInfo(QStringLiteral("sensor_range_min"), float(ui->dspnSensorMin->value()));
    m_device->setDeviceInfo(QStringLiteral("sensor_minimum_range"), float(ui->dspnSensorMinRange->value()));
    if (writeDevice(49)) {
        setFieldColorModified(ui->spnSensorParamNumber, false);
        nextStep();
        if (writeDevice(147)) {
            for (QWidget* field :
                 {static_cast<QWidget*>(ui->cmbSensorUnits), static_cast<QWidget*>(ui->dspnSensorMin),
                  static_cast<QWidget*>(ui->dspnSensorMax), static_cast<QWidget*>(ui->dspnSensorMinRange)})
                setFieldColorModified(field, false);
            nextStep();
        }
    }
    showFinalMessage(0);
}

void QP1Widget::on_btnCompleteSensorParam_clicked()
{
    completeAdjustParameter();
}

void QP1Widget::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange) {
        const bool blocking = m_bIsModifyBlocking;
        m_bIsModifyBlocking = true;
        ui->retranslateUi(this);
        initComboBoxes(ui->cmbInputUnits->currentIndex());
        ui->tblLinePoints->setHorizontalHeaderLabels({tr("Value")});
        m_bIsModifyBlocking = blocking;
    }
    MainDeviceWidget::changeEvent(event);
}
