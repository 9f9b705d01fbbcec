#ifndef MEASUREWIDGET_H
#define MEASUREWIDGET_H

#include "filethread.h"
#include "periodthread.h"
#include "readingsmodel.h"

#include <QPointer>
#include <QVariantMap>
#include <QWidget>

class Device;
class QLCDNumber;
class QLabel;

namespace Ui {
class MeasureWidget;
}

// The measurement tab of a device editor: it polls the device's dynamic
// variables at a period, shows each reading in a table (a window on the last
// 300 000), on the displays and on the trend plot, and writes it to the CSV
// archive when asked. The table and the plot can be saved by hand.
class MeasureWidget : public QWidget
{
    Q_OBJECT

public:
    explicit MeasureWidget(QWidget* parent = nullptr);
    ~MeasureWidget() override;

    void initWidget();
    void stopPeriodThread();
    void plotValue(int curve, unsigned int time, double value);
    void drawPlot();
    void showVariables();

    bool isPolling() const { return m_polling; }
    ReadingsModel* readings() { return &m_model; }
    int rowLimit() const { return m_rowLimit; }
    // The period chosen, in milliseconds.
    int periodMs() const;

signals:
    void responsePV(const QVariantMap& values);
    void startPeriod(bool deviceFree);
    void changed();

public slots:
    void onCloseApplication();
    void onUpdateButtons(bool on);
    void onDeviceChanged(Device* device);
    void showPeriodResponsePV(const QVariantMap& values);
    void onFileThreadError(const QString& errorString);
    void onFileThreadWriteLines(const QString& fileName, int count);
    void onChangeThreadFile();
    void onMinXChanged(double minX);
    void onZoomChanged();

    void on_cmbTimes_currentIndexChanged(int index);
    void on_spnPeriod_valueChanged(int arg);
    void on_btnStartStop_clicked();
    void on_chkPeriod_stateChanged(int state);
    void on_dspnViewMinY_editingFinished();
    void on_dspnViewMaxY_editingFinished();
    void on_dtViewMinX_editingFinished();
    void on_dtViewMaxX_editingFinished();
    void on_btnShowFullPlot_clicked();
    void on_btnSetRange_clicked();
    void on_btnClear_clicked();
    void on_btnSaveAsFile_clicked();
    void on_btnSavePlotInFile_clicked();

protected:
    void changeEvent(QEvent* event) override;

private:
    void setPolling(bool on);
    void storeSettings();
    // The default name of a saved table or plot: the archive folder, the
    // device and the time span of the readings.
    QString defaultFileName(const QString& extension) const;
    void updateViewFields();
    void showArchiveFile(int lines);
    void fillTimes();
    QList<ReadingsModel::Variable> shownVariables() const;
    // The columns and displays of the variables a reading carries.
    void takeColumnsFrom(const QVariantMap& reading);

    Ui::MeasureWidget* ui;
    PeriodThread m_periodThread;
    FileThread m_fileThread;
    ReadingsModel m_model;
    QPointer<Device> m_device;
    int m_rowLimit = 300000;
    bool m_polling = false;
    bool m_archiving = false;
    bool m_hasPlotPoint = false;
    QList<ReadingsModel::Variable> m_shown; // of SV, TV and QV, what the last reading carried
    bool m_shownFromReading = false;
    QString m_pvUnit;
};

#endif // MEASUREWIDGET_H
