#ifndef MAINDEVICEWIDGET_H
#define MAINDEVICEWIDGET_H

#include "devicewidget.h"

#include <QSet>

class CommandWidget;
class CommonWidget;
class LogWidget;
class MeasureWidget;
class PVWidget;
class QBoxLayout;
class QDoubleSpinBox;
class QGridLayout;
class QPushButton;

// The adjustment under way in an editor.
enum AdjustMode { Resistance = 0, Voltage, Temperature, Current, LinePoints, Ranges, Sensor, NoAdjust };

// The base of the device editors. An editor is one of these pointed at the
// device selected in the tree: setItem() moves every panel's connections to
// the device. It is composed of the identification tab and the live values
// side by side on its first page, the status strip at its foot, and the
// tabs of measurement, of the HART log and of custom commands.
class MainDeviceWidget : public DeviceWidget
{
    Q_OBJECT

public:
    explicit MainDeviceWidget(QWidget* parent = nullptr);
    ~MainDeviceWidget() override;

    void setItem(Device* device);

    CommonWidget* commonWidget() const { return m_commonWidget; }
    PVWidget* pvWidget() const { return m_pvWidget; }
    LogWidget* logWidget() const { return m_logWidget; }
    MeasureWidget* measureWidget() const { return m_measureWidget; }
    CommandWidget* commandWidget() const { return m_commandWidget; }

    // True once the configuration was read; otherwise says so in a box.
    bool IsReadedConfig();
    // The write functions of the blue configuration fields, in ascending
    // order with 35 (the range) last, after the user's consent; their
    // values are stored in the device on the way. Empty when refused.
    QList<int> getWriteFunctionsList();
    // Runs the writes as one transaction; each success paints its fields
    // clean, so a failure leaves exactly the unwritten ones blue.
    void execWriteFunctionsByList(const QList<int>& list, bool additional);
    bool setFixedCurrent(float current);
    // The Set buttons of a current adjustment page: the loop held at 4 mA
    // (lower) or 20 mA, the value shown in its box and only the adjust
    // button of that end on.
    void setFixedCurrentForAdjust(bool lower, QDoubleSpinBox* spin4mA, QDoubleSpinBox* spin20mA, QPushButton* adjust4mA,
                                  QPushButton* adjust20mA);
    void onAdjust4mA_clicked(QDoubleSpinBox* spin);
    void onAdjust20mA_clicked(QDoubleSpinBox* spin);
    void saveManufacturerSettings();
    void restoreManufacturerSettings();
    void manufacturerSettings(int mode);
    void saveRangeMinByPV();
    void saveRangeMaxByPV();
    // Command 190: opens metrology access with the code the user gave, or
    // closes it with 0. A refused code is said in a box titled "Adjustment"
    // and the caller stays where it is.
    bool sendAccessCode(quint32 code);
    // Ends the adjustment under way and closes metrology access.
    bool completeAdjust();
    AdjustMode adjustMode() const { return m_adjustMode; }
    const QSet<QString>& writeParameters() const { return m_writeParameters; }

    void setFieldColorModified(QWidget* field, bool modified) override;

public slots:
    virtual void onResetWidget();
    virtual void onUpdateButtons(bool on);
    // While the measurement tab polls, the tabs that talk to the device are
    // locked: deviceFree is false.
    virtual void onStartPeriod(bool deviceFree);

    virtual void execAdditionalActions() {}
    virtual bool completeAdjustParameter() { return completeAdjust(); }

signals:
    void appendLogMessage(int addr, const QString& msg);
    void closeApplication();

protected:
    struct Composition
    {
        QTabWidget* tabs;          // the editor's tabs; the first page holds the panels
        QGridLayout* firstPage;    // the layout of the first tab's page
        QBoxLayout* statusLayout;  // where the status strip goes, at the foot
        int variableCount;         // dynamic variables the model has, 1 to 4
        bool showAdditionalStatus; // the live panel offers command 48 with each exchange
        bool hasSelfTest;          // the identification tab offers command 41
    };
    // Builds the panels into the form, as every editor has them; the model's
    // own pages go between the first tab and the log.
    void composeEditor(const Composition& composition);
    // Enters configuration fields with their device values and write functions.
    struct WriteField
    {
        const char* name;
        QWidget* field;
        int function;
    };
    void addWriteFields(const QList<WriteField>& fields);
    // The write button on or off; while polling the state waits for its end.
    void setWriteButtonEnabled(QPushButton* button, bool on);
    // While polling, the write button (its state kept) and the adjustment tab are off.
    void lockWhilePolling(bool deviceFree, QPushButton* write, QWidget* adjustTab);
    // The question of saving (mode 1) or restoring (0) the manufacturer settings.
    void askManufacturerSettings(const QString& question, int mode);
    // One of saveRangeMinByPV and saveRangeMaxByPV.
    void saveRangeByPV(bool upper);
    // One of the 4 mA and 20 mA adjustments.
    void adjustCurrent(const char* title, const char* key, int command, QDoubleSpinBox* spin);

    PVWidget* m_pvWidget = nullptr;
    CommonWidget* m_commonWidget = nullptr;
    MeasureWidget* m_measureWidget = nullptr;
    LogWidget* m_logWidget = nullptr;
    CommandWidget* m_commandWidget = nullptr;
    bool m_hasReadedConfig = false;
    QMap<QPushButton*, bool> m_mapButtons;
    QMap<QString, QWidget*> m_mapWriteTagWidget; // device value to its configuration field
    QMap<QString, int> m_mapTagFunction;         // device value to its write function
    QSet<QString> m_writeParameters;             // the blue configuration fields
    AdjustMode m_adjustMode = NoAdjust;
    bool m_polling = false; // the measurement tab polls the device
};

#endif // MAINDEVICEWIDGET_H
