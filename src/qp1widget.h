#ifndef QP1WIDGET_H
#define QP1WIDGET_H

#include "maindevicewidget.h"

namespace Ui {
class QP1Widget;
}

// The editor of the pressure converter ("QP-1C"): its units, indication and
// range, the correction of zero and gain, and behind the metrology access
// code the output current, the linearization table, the temperature
// correction at two temperatures and the sensor's own parameters.
class QP1Widget : public MainDeviceWidget
{
    Q_OBJECT

public:
    explicit QP1Widget(QWidget* parent = nullptr);
    ~QP1Widget() override;

    void initWidget() override;
    void showDeviceInfoInFields() override;
    void setFieldColorModified(QWidget* field, bool modified) override;
    // Pressure in Pa of one unit of the HART code; 0 for none.
    static double pascalsPerUnit(int unitCode);

public slots:
    void onResetWidget() override;
    void onUpdateButtons(bool on) override;
    void onStartPeriod(bool deviceFree) override;
    void execAdditionalActions() override;
    bool completeAdjustParameter() override;

protected:
    void changeEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private slots:
    void on_btnReadCfgFromDevice_clicked();
    void on_btnWriteCfgInDevice_clicked();
    void on_cmbInputUnits_currentIndexChanged(int index);
    void on_btnAdjustZero_clicked();
    void on_btnAdjustGain_clicked();
    void on_btnSaveMinByPV_clicked();
    void on_btnSaveMaxByPV_clicked();
    void on_btnSetFixedCurrent_clicked();
    void on_btnResetFixedCurrent_clicked();
    void on_btnSaveManufacturerSettings_clicked();
    void on_btnRestoreManufacturerSettings_clicked();
    void on_btnStartAdjust_clicked();
    void on_btnStartTemperAdjust_clicked();
    void on_btnStartLinePointAdjust_clicked();
    void on_btnStartSensorParam_clicked();
    void on_btnCancelAdjust_clicked();
    void on_btnCheckCode_clicked();
    void on_btnSet4mA_clicked();
    void on_btnSet20mA_clicked();
    void on_btnAdjust4mA_clicked();
    void on_btnAdjust20mA_clicked();
    void on_btnCompleteAdjustCurrent_clicked();
    // The linearization table
    void on_spnLinePoints_valueChanged(int count);
    void on_btnSetLinePointsCount_clicked();
    void on_btnSetCalibrateUnits_clicked();
    void on_btnStartEditLinePoints_clicked();
    void on_tblLinePoints_cellClicked(int row, int column);
    void on_spnPoint_valueChanged(int point);
    void on_btnGetPressure_clicked();
    void on_btnAdjustLinePoint_clicked();
    void on_btnCompleteAdjustPoint_clicked();
    void on_btnCompleteAdjustLinePoints_clicked();
    void on_btnReload_clicked();
    // The temperature correction
    void on_btnSetTCorrectMode_clicked();
    void on_btnAdjustT1T2_clicked();
    void on_btnNext_clicked();
    void on_btnPrev_clicked();
    void on_btnSaveT1T2_clicked();
    void on_btnCancelT1T2_clicked();
    void on_btnCompleteT1T2Adjust_clicked();
    // The sensor's parameters
    void on_cmbSensorUnits_currentIndexChanged(int index);
    void on_btnSaveSensorParam_clicked();
    void on_btnCompleteSensorParam_clicked();

private:
    void initComboBoxes(int unitsIndex);
    void showRangeInfo();
    void showInputInfo();
    void ControlFieldsByInputUnits(int index);
    void prepareToInputAdjustCode(AdjustMode mode);
    void loadLinePointsTable();
    void showLinePoint(int row, float value);
    void startTemperCorrection();
    void showTemperCorrection();
    void showWizardPage(int page);
    void startEditSensorParameters();
    void setSensorParameters();
    QString unitText(const char* codeKey) const;
    void updateWriteButton();

    Ui::QP1Widget* ui;
    int m_sensorUnitCode = 0; // the units the sensor page's limits are in
};

#endif // QP1WIDGET_H
