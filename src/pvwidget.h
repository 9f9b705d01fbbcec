#ifndef PVWIDGET_H
#define PVWIDGET_H

#include "devicewidget.h"

#include <QSet>
#include <QVariantMap>

class QLCDNumber;

namespace Ui {
class PVWidget;
}

// The live values of a device editor: the dynamic variables with their
// units, the loop current, its mode, and the status lines the instrument
// reported in the current transaction. It reads them on request and follows
// the periodic poll of the measurement tab.
class PVWidget : public DeviceWidget
{
    Q_OBJECT

public:
    PVWidget(DeviceWidget* owner, int variableCount, bool showAdditionalStatus);
    ~PVWidget() override;

    // Command 3; alone, as a transaction of its own with its boxes.
    bool readPrimaryVariable(bool standalone);
    // Command 2 into the current fields.
    bool readOutputCurrent();
    void appendCurrentLoopMode(bool refresh);
    QString statusLines() const;
    // A value on a display, rounded to two decimals; dashes for a value the
    // instrument marks as not available (NaN).
    static void showValue(QLCDNumber* display, double value);

public slots:
    void onDeviceChanged(Device* device);
    void onUpdateButtons(bool on);
    void onResetWidget();
    void onInitProgressBar(const QString& title, int max);
    void showPeriodResponsePV(const QVariantMap& values);
    void appendDeviceStatus(const QString& statusText, const QByteArray& statusCode);
    void appendDeviceError(const QString& errorText);
    void on_btnRefresh_clicked();
    void on_btnResetConfigChanged_clicked();
    void on_chkAdditionalStatus_stateChanged(int state);

protected:
    void changeEvent(QEvent* event) override;

private:
    struct Variable
    {
        const char* name;
        QLCDNumber* display;
        QLabel* unit;
        QLabel* title;
        QString (Device::*unitText)();
    };
    // SV, TV and QV with their widgets.
    QList<Variable> variables() const;
    // Shows one of SV, TV, QV by its unit code; false when it is hidden.
    bool showVariable(const Variable& variable);

    Ui::PVWidget* ui;
    QSet<QString> m_shownStatusLines;
    bool m_configChanged = false;
};

#endif // PVWIDGET_H
