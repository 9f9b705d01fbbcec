#ifndef DEFAULTDEVICEWIDGET_H
#define DEFAULTDEVICEWIDGET_H

#include "maindevicewidget.h"

class QComboBox;
class QLabel;
class QTableWidgetItem;

namespace Ui {
class DefaultDeviceWidget;
}

// The editor of any HART device of revision 5, 6 or 7 without a model of
// its own ("General"). It works with the universal and common-practice
// commands only: the units, transfer function, range and sensor of the
// primary variable, the device variables behind PV, SV, TV and QV, the
// table of all device variables with the settings of one of them, and the
// zero and current adjustments, which need no access code on such a device.
class DefaultDeviceWidget : public MainDeviceWidget
{
    Q_OBJECT

public:
    explicit DefaultDeviceWidget(QWidget* parent = nullptr);
    ~DefaultDeviceWidget() override;

    void initWidget() override;
    void showDeviceInfoInFields() override;
    void setFieldColorModified(QWidget* field, bool modified) override;

public slots:
    void onResetWidget() override;
    void onUpdateButtons(bool on) override;
    void onStartPeriod(bool deviceFree) override;
    void execAdditionalActions() override;

protected:
    void changeEvent(QEvent* event) override;

private slots:
    void on_btnReadCfgFromDevice_clicked();
    void on_btnWriteCfgInDevice_clicked();
    void on_tableWidgetDV_currentItemChanged(QTableWidgetItem* current, QTableWidgetItem* previous);
    void on_btnAdjustZero_clicked();
    void on_btnAdjust4mA_clicked();
    void on_btnAdjust20mA_clicked();
    void on_btnSetFixedCurrent_clicked();
    void on_btnResetFixedCurrent_clicked();
    void on_btnSaveMinByPV_clicked();
    void on_btnSaveMaxByPV_clicked();

private:
    // A unit box with the units of a HART device variable class; a class
    // without a list of its own gets every unit.
    void initComboBoxes(int deviceClass, QComboBox* box);
    // The rows of the boxes, in the present language.
    void loadLists();
    void loadComboBoxItemsWithItemData(const QVariantList& items, QComboBox* box, int deviceClass);
    void initDeviceVariableComboBoxes();
    void initDVTableWidget();
    // The slots of every device variable and command 9 for them, as many
    // requests as the device's revision needs; true when all were answered.
    bool requestDeviceVariables();
    // Command 54 for the variable of the group.
    bool readDeviceVariable();
    void showDynamicVariableInfo();
    void showDeviceVariablesInfo();
    void showDeviceVariableInfo(int row);
    void showSensorInfo();
    void showRangeInfo();
    void showAnalogInputInfo();
    // Shows a code in its box, adding a row for a code the list lacks.
    void showCodeInBox(const QString& name, QComboBox* box);
    // The two questions of a current adjustment; true when both got Yes.
    bool confirmCurrentAdjustment(bool upper);
    void updateWriteButton();

    Ui::DefaultDeviceWidget* ui;
    QList<int> m_writeList; // the functions of the write under way
};

#endif // DEFAULTDEVICEWIDGET_H
