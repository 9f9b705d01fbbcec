#ifndef PH77WIDGET_H
#define PH77WIDGET_H

#include "maindevicewidget.h"

#include <QVariantMap>

class PeriodThread33;

namespace Ui {
class PH77Widget;
}

// The editor of the pH meter ("pH-7702"): the electrode and temperature
// channels with their filters, the ranges, the graduation with buffer
// solutions at one or two points, and behind the metrology access code the
// adjustment of the output current, of the measuring channels U, Rc and Rt,
// the ranges of Ei and S and the sensor parameters.
//
// Graduation and the channel adjustment are watched live through command 33
// on a PeriodThread33 of the editor's own. The two watches exclude each
// other and the polling of the measurement tab; a watch stops when the
// editor leaves its device, when the program closes and with the editor.
class PH77Widget : public MainDeviceWidget
{
    Q_OBJECT

public:
    explicit PH77Widget(QWidget* parent = nullptr);
    ~PH77Widget() override;

    void initWidget() override;
    void showDeviceInfoInFields() override;
    void setFieldColorModified(QWidget* field, bool modified) override;

    // The point of the running graduation: 0 for none, 1 or 2.
    int graduationPoint() const { return m_graduationPoint; }
    bool isWatching() const { return m_watch != NoWatch; }

    // Sets the text colour of a field.
    static void setFieldColor(QWidget* field, Qt::GlobalColor color);

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
    void on_cmbInputMode_currentIndexChanged(int index);
    void on_cmbElectrodeDiag_currentIndexChanged(int index);
    void on_btnSaveMinByPV_clicked();
    void on_btnSaveMaxByPV_clicked();
    void on_btnSetFixedCurrent_clicked();
    void on_btnResetFixedCurrent_clicked();
    void on_btnSaveManufacturerSettings_clicked();
    void on_btnRestoreManufacturerSettings_clicked();
    void on_tabWidget_currentChanged(int index);

    // Graduation.
    void on_btnReadCurrentGrdValues_clicked();
    void on_btnStartGraduation_clicked();
    void on_btnStartPoint_1_clicked();
    void on_btnStartPoint_2_clicked();
    void on_btnGetPH_p1_clicked();
    void on_btnGetPH_p2_clicked();
    void on_btnSetPH_p1_clicked();
    void on_btnSetPH_p2_clicked();
    void on_btnStopGraduation_clicked();
    void updateBufferInfoByResponsePT33(const QVariantMap& values);

    // Metrology.
    void on_btnStartAdjust_clicked();
    void on_btnStartURRAdjust_clicked();
    void on_btnEiSRangeCorrection_clicked();
    void on_btnStartSensorParam_clicked();
    void on_btnCancelAdjust_clicked();
    void on_btnCheckCode_clicked();
    void on_btnSet4mA_clicked();
    void on_btnSet20mA_clicked();
    void on_btnAdjust4mA_clicked();
    void on_btnAdjust20mA_clicked();
    void on_btnAdjustInfo_clicked();
    void on_btnAdjustU_p1_clicked();
    void on_btnAdjustU_p2_clicked();
    void on_btnAdjustRc_p1_clicked();
    void on_btnAdjustRc_p2_clicked();
    void on_btnAdjustRt_clicked();
    void on_btnSaveEiSRanges_clicked();
    void on_btnSaveSensorParam_clicked();
    void on_btnCompleteAdjustCurrent_clicked();
    void on_btnCompleteAdjustURR_clicked();
    void on_btnCompleteAdjustRanges_clicked();
    void on_btnCompleteSensorParam_clicked();
    void updateAdjustInfoByResponsePT33(const QVariantMap& values);

    // Ends a watch under way: the editor leaves its device or the program closes.
    void stopWatches();

private:
    enum Watch { NoWatch, BufferWatch, AdjustWatch };

    void initComboBoxes();
    void showAnalogInputInfo();
    void showRangeInfo();
    void showSensorInfo();
    void showCurrentEiSRanges();
    void showCurrentGraduationInfo();
    void ControlFieldsByInputUnits(int mode);
    void updateWriteButton();

    // The watches by command 33. start is the graduation point to watch, 0 stops.
    void startStopBufferInfoTimer(int start);
    void startStopAdjustInfoTimer();
    void startWatch(Watch watch, int periodMs, const QList<int>& codes);
    void stopWatch();
    void updateWatchButtons();

    void startPoint(int point);
    void setGraduationBuffer();
    void resetGraduation();

    void prepareToInputAdjustCode(AdjustMode mode, bool needsConfig);
    bool loadCurrentURR();
    void showCurrentURR();
    bool loadCurrentEiSRanges();
    bool setSensorParameters();
    // One adjustment of a channel: U (172) or Rc (174) at point 1 or 2, Rt (173).
    void adjustChannel(int command, int point);

    Ui::PH77Widget* ui;
    PeriodThread33* m_thread33 = nullptr;
    Watch m_watch = NoWatch;
    int m_graduationPoint = 0;
    float m_prevBufferValue = 3000.0f;
};

#endif // PH77WIDGET_H
