#ifndef TCV2WIDGET_H
#define TCV2WIDGET_H

#include "maindevicewidget.h"

namespace Ui {
class TCV2Widget;
}

// The editor of the temperature converter ("TCV-C", "DX-C"): its input
// (resistance thermometer, thermocouple or the sensor of the free ends), its
// range, the two-point correction of a thermometer and the adjustment of the
// output current and of the input channels behind the metrology access code.
class TCV2Widget : public MainDeviceWidget
{
    Q_OBJECT

public:
    explicit TCV2Widget(QWidget* parent = nullptr);
    ~TCV2Widget() override;

    void initWidget() override;
    void showDeviceInfoInFields() override;
    void setFieldColorModified(QWidget* field, bool modified) override;
    QString prompt() const { return m_prompt; }

public slots:
    void onResetWidget() override;
    void onUpdateButtons(bool on) override;
    void onStartPeriod(bool deviceFree) override;
    void onWidgetStateChanged() override;
    void execAdditionalActions() override;
    bool completeAdjustParameter() override;

protected:
    void changeEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private slots:
    void on_btnReadCfgFromDevice_clicked();
    void on_btnWriteCfgInDevice_clicked();
    void on_cmbInputSignalType_currentIndexChanged(int index);
    void on_btnSaveMinByPV_clicked();
    void on_btnSaveMaxByPV_clicked();
    void on_btnSetFixedCurrent_clicked();
    void on_btnResetFixedCurrent_clicked();
    void on_btnSaveManufacturerSettings_clicked();
    void on_btnRestoreManufacturerSettings_clicked();
    void on_btnBeginCorrection_clicked();
    void on_btnStartCorrection_clicked();
    void on_btnSavePoint1_clicked();
    void on_btnSavePoint2_clicked();
    void on_btnCancelCorrection_clicked();
    void on_tabWidget_currentChanged(int index);
    void on_btnStartAdjust_clicked();
    void on_btnStartAdjustByU_clicked();
    void on_btnStartAdjustByR_clicked();
    void on_btnStartAdjustByT_clicked();
    void on_btnCancelAdjust_clicked();
    void on_btnCheckCode_clicked();
    void on_btnSet4mA_clicked();
    void on_btnSet20mA_clicked();
    void on_btnAdjust4mA_clicked();
    void on_btnAdjust20mA_clicked();
    void on_btnGetVoltage_clicked();
    void on_btnGetResistance_clicked();
    void on_btnGetTemperature_clicked();
    void on_btnAdjustVoltage_clicked();
    void on_btnAdjustResistance_clicked();
    void on_btnAdjustTemperature_clicked();
    void on_btnCompleteAdjustCurrent_clicked();
    void on_btnCompleteAdjustVoltage_clicked();
    void on_btnCompleteAdjustResistance_clicked();
    void on_btnCompleteAdjustTemperature_clicked();

private:
    void initComboBoxes(int signalType);
    void showSensorInfo();
    void showRangeInfo();
    void showAnalogInputInfo();
    void ControlFieldsByInputSignalType(int type);
    void reset2PointCorrection();
    // Writes correction point 1 or 2 after the user's consent.
    void saveCorrectionPoint(int point);
    void startAdjust(AdjustMode mode, bool needsConfig);
    void getAdjustedParameter();
    void adjustParameter();
    // The write button's state: on with a blue field once the configuration was read.
    void updateWriteButton();

    Ui::TCV2Widget* ui;
    QString m_prompt;
};

#endif // TCV2WIDGET_H
