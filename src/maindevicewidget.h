#ifndef MAINDEVICEWIDGET_H
#define MAINDEVICEWIDGET_H

#include "devicewidget.h"

class CommandWidget;
class CommonWidget;
class LogWidget;
class MeasureWidget;
class PVWidget;
class QBoxLayout;
class QGridLayout;

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

public slots:
    virtual void onResetWidget();
    virtual void onUpdateButtons(bool on);
    // While the measurement tab polls, the tabs that talk to the device are
    // locked: deviceFree is false.
    virtual void onStartPeriod(bool deviceFree);

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

    PVWidget* m_pvWidget = nullptr;
    CommonWidget* m_commonWidget = nullptr;
    MeasureWidget* m_measureWidget = nullptr;
    LogWidget* m_logWidget = nullptr;
    CommandWidget* m_commandWidget = nullptr;
    bool m_hasReadedConfig = false;
};

#endif // MAINDEVICEWIDGET_H
